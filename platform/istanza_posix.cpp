// The lock is laid on the program's own file: nothing is created, and the system drops it with the process.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

bool Istanza_Precedente()
{
    const QByteArray programma = QFile::encodeName(QCoreApplication::applicationFilePath());
    // Never closed: the lock lasts as long as the process.
    const int descrittore = ::open(programma.constData(), O_RDONLY | O_CLOEXEC);
    return descrittore >= 0 && ::flock(descrittore, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}
