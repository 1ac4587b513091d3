// Looking for the lumira.ini of a station, and the station's own start. It opens no window.
#include "strumenti/stazione_strumento.h"

#include "app/avvio.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "platform/percorsi.h"
#include "strumenti/parole.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr Parole MANCA = {
    u"%1 non è la cartella di una stazione: manca lumira.ini (--stazione CARTELLA)",
    u"%1 is no station folder: there is no lumira.ini (--stazione FOLDER)",
};

bool Avvia_Da(const QString &cartella)
{
    Avvio_Percorsi(cartella);
    if (!Fs_Esiste(gFileIni, 0))
        return false;
    Avvio_Impostazioni();
    return true;
}

} // namespace

QString Percorso_Intero(const QString &digitato)
{
    return QDir::cleanPath(QFileInfo(digitato).absoluteFilePath()).replace(u'/', u'\\');
}

QString Percorso_Mostrato(const QString &percorso)
{
    return QDir::toNativeSeparators(QString(percorso).replace(u'\\', u'/'));
}

bool Stazione_Leggi(const QString &cartella, QString &errore)
{
    const QString programma = Cartella_Programma();
    const QString scelta = cartella.isEmpty() ? programma : Percorso_Intero(cartella);
    if (Avvia_Da(scelta))
        return true;
    if (cartella.isEmpty() && Avvia_Da(programma.left(programma.lastIndexOf(u'\\'))))
        return true;
    errore = In_Parole(MANCA).arg(Percorso_Mostrato(scelta));
    return false;
}
