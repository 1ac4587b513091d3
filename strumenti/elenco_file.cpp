// Files as they are, folders by the station's own listing. It opens none of them.
#include "strumenti/elenco_file.h"

#include "core/modFs.h"
#include "mctc/cartella_scambio.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "strumenti/stazione_strumento.h"

#include <QFileInfo>

bool Cartella_Elenca(QString cartella, const QString &maschera, QStringList &file)
{
    try {
        QStringList nomi;
        if (Fs_Elenco(cartella, maschera, nomi, Vero, Vero) >= 0)
            file += nomi;
        else if (Cartella_Guarda(cartella).Stato == StatoCartella::Illeggibile)
            return false;
    } catch (const ErroreEsecuzione &) {
        return false;
    }
    return true;
}

ElencoFile File_Elenca(const QStringList &posti, const QString &maschera)
{
    ElencoFile elenco;
    for (const QString &posto : posti) {
        const QString percorso = Percorso_Intero(posto);
        const QFileInfo info(Percorso_Nativo(percorso));
        if (info.isFile())
            elenco.File.append(percorso);
        else if (!info.isDir() || !Cartella_Elenca(percorso, maschera, elenco.File))
            elenco.Irreperibili.append(posto);
    }
    return elenco;
}
