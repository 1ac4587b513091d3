// The module loaded and entered. It knows nothing of what it shows.
#include "simulatore/finestra_carica.h"

#include "simulatore/errore.h"

#include <QLibrary>

int Finestra_Avvia(const QString &cartella, int &argc, char **argv, const Opzioni &opzioni)
{
    QLibrary modulo(cartella + QStringLiteral("/qx5finestra"));
    const auto ingresso = reinterpret_cast<IngressoFinestra>(modulo.resolve(NOME_INGRESSO_FINESTRA));
    if (ingresso == nullptr)
        return Errore_Mostra(modulo.errorString());
    return ingresso(argc, argv, opzioni);
}
