// The module of the window: its exercise, its window, its loop.
#include "simulatore/finestra_ingresso.h"

#include "simulatore/errore.h"
#include "simulatore/esercizio.h"
#include "simulatore/fine.h"
#include "simulatore/finestra.h"

#include <QApplication>

namespace {

int Finestra_Esegui(const Opzioni &opzioni)
{
    Opzioni_Parla(opzioni); // the program's choice is its own: a module has its words to itself
    Esercizio esercizio(opzioni);
    FinestraQx5 finestra(Lingua_Scelta(opzioni.lingua));
    esercizio.Annotata = [&finestra](const QString &riga) { finestra.Annota(riga); };
    // Whoever sits in front of the window has no eye on the standard error: it tells, and then ends.
    esercizio.Perduta = [&finestra](const QString &perche) {
        Errore_Mostra(perche);
        finestra.Avvisa(perche, [] { QCoreApplication::exit(STATO_LINEA_PERDUTA); });
    };
    Fine_Prepara();
    QString errore;
    if (!esercizio.Apri(errore))
        return Errore_Mostra(errore);
    finestra.Comincia(esercizio.Suo_Strumento(), esercizio.Porta());
    finestra.show();
    finestra.activateWindow(); // the terminal that it was started from has the keyboard
    return QCoreApplication::exec();
}

} // namespace

extern "C" Q_DECL_EXPORT int qx5sim_finestra(int &argc, char **argv, const Opzioni &opzioni)
{
    const QApplication programma(argc, argv);
    return Finestra_Esegui(opzioni);
}
