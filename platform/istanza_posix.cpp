// The lock is laid on the program's folder: nothing is created, the system drops it with the process, and an
// upgrade that puts a new program file in the old one's place while the station runs leaves it where it is.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

bool Istanza_Precedente()
{
    const QByteArray cartella = QFile::encodeName(QCoreApplication::applicationDirPath());
    // Never closed: the lock lasts as long as the process. A program that this one starts does not get it.
    const int descrittore = ::open(cartella.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descrittore >= 0 && ::flock(descrittore, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}
