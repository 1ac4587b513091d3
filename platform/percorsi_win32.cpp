// Paths on Windows, where they are native but for their slashes. It opens no file.
#include "platform/percorsi.h"

#include <QCoreApplication>

#include <qt_windows.h>

QString Percorso_Nativo(const QString &percorso)
{
    // The file system finds names in any case by itself. The toolkit's file classes cut paths at slashes.
    return QString(percorso).replace(u'\\', u'/');
}

bool Percorso_Ammesso(const QString &percorso)
{
    return percorso.size() < MAX_PATH; // which counts the closing NUL
}

QString Cartella_Programma()
{
    QString cartella = QCoreApplication::applicationDirPath().replace(u'/', u'\\');
    // A drive's own root is the one folder that comes with its backslash.
    if (cartella.endsWith(u'\\'))
        cartella.chop(1);
    return cartella;
}
