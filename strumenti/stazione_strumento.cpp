// Looking for the lumira.ini of a station, and the station's own start. It opens no window.
#include "strumenti/stazione_strumento.h"

#include "app/avvio.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/parole.h"
#include "platform/percorsi.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

constexpr Parole MANCA = {
    u"%1 non è la cartella di una stazione: manca lumira.ini",
    u"%1 is no station folder: there is no lumira.ini",
};

bool Avvia_Da(const QString &cartella, SegnoStazione segno)
{
    Avvio_Percorsi(cartella);
    const bool programma =
        segno == SegnoStazione::AncheProgramma && Fs_Esiste(gAppPath + Nome_Programma(), 0);
    if (!programma && !Fs_Esiste(gFileIni, 0))
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

QString Nome_Programma()
{
    const QString suffisso = QFileInfo(QCoreApplication::applicationFilePath()).suffix();
    return suffisso.isEmpty() ? QStringLiteral("lumira") : QStringLiteral("lumira.") + suffisso;
}

bool Stazione_Leggi(const QString &cartella, SegnoStazione segno, QString &errore)
{
    const QString programma = Cartella_Programma();
    const QString scelta = cartella.isEmpty() ? programma : Percorso_Intero(cartella);
    if (Avvia_Da(scelta, segno))
        return true;
    if (cartella.isEmpty() && Avvia_Da(programma.left(programma.lastIndexOf(u'\\')), segno))
        return true;
    errore = In_Parole(MANCA).arg(Percorso_Mostrato(scelta));
    return false;
}
