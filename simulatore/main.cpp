// qx5sim: stands in for the instrument on a serial line, for demonstration, training and tests; keeps the
// record of a real one, and plays it again.
#include "core/parole.h"
#include "core/versione.h"
#include "platform/orologio.h"
#include "simulatore/apertura.h"
#include "simulatore/banco.h"
#include "simulatore/errore.h"
#include "simulatore/esercizio.h"
#include "simulatore/fine.h"
#include "simulatore/finestra_carica.h"
#include "simulatore/ponte.h"
#include "simulatore/riproduzione.h"

#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr Parole NON_SI_SCRIVE = {u"%1: la registrazione non si scrive più",
                                  u"%1: the record can no longer be written"};
constexpr Parole NOTA_REGISTRAZIONE = {u"%1, strumento %2 a %3 baud 8N1",
                                       u"%1, instrument %2 at %3 baud 8N1"};
constexpr Parole DOVE_REGISTRA = {u"-- registrazione: ", u"-- record: "};
constexpr Parole DIVERSAMENTE = {u"la stazione ha fatto diversamente dalla registrazione",
                                 u"the station has done otherwise than the record"};

/// What went wrong while the program ran.
void Esci_Perduto(const QString &perche)
{
    Errore_Mostra(perche);
    QCoreApplication::exit(STATO_LINEA_PERDUTA);
}

int Simula(const Opzioni &opzioni)
{
    Esercizio esercizio(opzioni);
    esercizio.Perduta = Esci_Perduto;
    Fine_Prepara();
    QString errore;
    if (!esercizio.Apri(errore))
        return Errore_Mostra(errore);
    return QCoreApplication::exec();
}

/// Where the record of a bridge goes.
QString Registrazione_Percorso(const Opzioni &opzioni)
{
    const QString adesso = Orologio_Corrente().Adesso().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    return opzioni.registrazione.isEmpty() ? QStringLiteral("registrazione-%1.txt").arg(adesso)
                                           : opzioni.registrazione;
}

int Fai_Ponte(const Opzioni &opzioni)
{
    QString errore;
    Registro registro;
    if (!registro.Apri(opzioni.registro, errore))
        return Errore_Mostra(errore);
    const std::unique_ptr<Linea> strumento = Crea_LineaSeriale(opzioni.ponte, opzioni.velocita);
    const std::unique_ptr<Linea> stazione = Linea_Stazione(opzioni);
    Collegamento collegamento(opzioni.collega);
    ScrittoreRegistrazione registrazione;
    const QString percorso = Registrazione_Percorso(opzioni);
    Ponte ponte(*stazione, *strumento, registrazione, registro);
    const auto perduta = [&ponte](const QString &dispositivo) {
        const QString perche = Dispositivo_Perduto(dispositivo);
        ponte.Annota(perche);
        Esci_Perduto(perche);
    };
    strumento->Perduta = [&perduta, &opzioni] { perduta(opzioni.ponte); };
    stazione->Perduta = [&perduta, &opzioni] { perduta(opzioni.dispositivo); };
    ponte.Senza_Registrazione = [&percorso] { Esci_Perduto(In_Parole(NON_SI_SCRIVE).arg(percorso)); };
    Fine_Prepara();
    const QString nota =
        In_Parole(NOTA_REGISTRAZIONE)
            .arg(Orologio_Corrente().Adesso().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")), opzioni.ponte,
                 QString::number(opzioni.velocita));
    if (!strumento->Apri(errore) || !registrazione.Apri(percorso, nota, errore))
        return Errore_Mostra(errore);
    if (!Linea_Apri(*stazione, collegamento, errore)) {
        registrazione.Scarta(); // an empty one would be in the way of the next try
        return Errore_Mostra(errore);
    }
    registro.Annota(In_Parole(DOVE_REGISTRA) + percorso);
    return QCoreApplication::exec();
}

int Riproduci(const Opzioni &opzioni)
{
    QString errore;
    Registrazione registrazione;
    if (const QStringList errori = Registrazione_Leggi(opzioni.riproduci, registrazione); !errori.isEmpty())
        return Errore_Mostra(errori.join(QStringLiteral("\nqx5sim: ")));
    Registro registro;
    if (!registro.Apri(opzioni.registro, errore))
        return Errore_Mostra(errore);
    Riproduzione riproduzione(registrazione, opzioni.passo,
                              [&registro](const QString &riga) { registro.Annota(riga); });
    const std::unique_ptr<Linea> linea = Linea_Stazione(opzioni);
    linea->Perduta = [&opzioni, &registro] {
        const QString perche = Dispositivo_Perduto(opzioni.dispositivo);
        registro.Annota(QStringLiteral("-- ") + perche);
        Esci_Perduto(perche);
    };
    Collegamento collegamento(opzioni.collega);
    Banco banco(*linea, riproduzione, registro, collegamento);
    Fine_Prepara();
    if (!banco.Apri(errore))
        return Errore_Mostra(errore);
    const int stato = QCoreApplication::exec();
    if (stato != 0 || !riproduzione.Diversa())
        return stato;
    Errore_Mostra(In_Parole(DIVERSAMENTE));
    return STATO_DIVERSO;
}

int Esegui(const Opzioni &opzioni)
{
    if (opzioni.aiuto) {
        QTextStream(stdout) << Opzioni_Aiuto();
        return 0;
    }
    if (opzioni.versione) {
        QTextStream(stdout) << QStringLiteral("qx5sim ") << QCoreApplication::applicationVersion()
                            << Qt::endl;
        return 0;
    }
    if (!opzioni.ponte.isEmpty())
        return Fai_Ponte(opzioni);
    return opzioni.riproduci.isEmpty() ? Simula(opzioni) : Riproduci(opzioni);
}

} // namespace

int main(int argc, char *argv[])
{
    std::optional<Opzioni> opzioni;
    QString cartella;
    QCoreApplication::setApplicationVersion(Versione_Programma());
    {
        const QCoreApplication programma(argc, argv);
        QString errore;
        opzioni = Opzioni_Leggi(QCoreApplication::arguments(), errore);
        if (!opzioni)
            return Errore_Mostra(errore + QStringLiteral(" (qx5sim --help)"));
        if (!opzioni->finestra || opzioni->aiuto || opzioni->versione)
            return Esegui(*opzioni);
        cartella = QCoreApplication::applicationDirPath();
    }
    // A window asks for another application object, which its module makes.
    return Finestra_Avvia(cartella, argc, argv, *opzioni);
}
