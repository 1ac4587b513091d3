// On the one call that waits for the disk.
#include "platform/su_disco.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

bool File_SuDisco(int descrittore)
{
    return ::fsync(descrittore) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

void Cartella_SuDisco(const QString &nativo)
{
    const int descrittore = ::open(QFile::encodeName(nativo).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descrittore < 0)
        return;
    ::fsync(descrittore);
    ::close(descrittore);
}
