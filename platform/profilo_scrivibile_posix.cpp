// The question outside Windows, where a write makes a temporary file beside the profile and lets it take the
// profile's place: rights on the file alone do not answer it.
#include "platform/profilo_scrivibile.h"

#include "platform/percorsi.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <unistd.h>

namespace {

/// True when another file may take this one's place. A folder can forbid it although new files may be made in
/// it (its sticky bit with somebody else's file). The removal of a folder asks for the same rights, and goes
/// no further on a file: when nothing else is left to complain of, the answer is that it is no folder.
bool Si_Puo_Sostituire(const QString &nativo)
{
    return ::rmdir(QFile::encodeName(nativo).constData()) != 0 && errno == ENOTDIR;
}

} // namespace

bool Profilo_Scrivibile(const QString &file)
{
    const QString nativo =
        QFileInfo(Percorso_Nativo(file)).canonicalFilePath(); // behind links, as a write goes
    QFile attuale(nativo);
    if (!attuale.open(QIODevice::ReadOnly))
        return false;
    const QByteArray byte = attuale.readAll();
    QSaveFile prova(nativo); // without a commit it takes its temporary file away
    return prova.open(QIODevice::WriteOnly) && prova.write(byte) == byte.size() && prova.flush() &&
           Si_Puo_Sostituire(nativo);
}
