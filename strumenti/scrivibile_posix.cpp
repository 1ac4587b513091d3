// The question outside Windows, by the rights of the user who runs the tool.
#include "strumenti/scrivibile.h"

#include "platform/percorsi.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace {

bool Permesso(const QString &nativo, int diritti)
{
    return ::access(QFile::encodeName(nativo).constData(), diritti) == 0;
}

} // namespace

bool Cartella_Scrivibile(const QString &cartella)
{
    return Permesso(Percorso_Nativo(cartella), W_OK | X_OK);
}

bool Configurazione_Scrivibile(const QString &file)
{
    // A write makes a new file beside the old one, behind links, and lets it take its place.
    const QString nativo = QFileInfo(Percorso_Nativo(file)).canonicalFilePath();
    return Permesso(nativo, R_OK | W_OK) && Permesso(QFileInfo(nativo).path(), W_OK | X_OK);
}
