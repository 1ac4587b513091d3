// The instance is known by the program's folder: a name in the system's space of socket names, taken for the
// whole run. Nothing is created, the system drops it with the process, and an upgrade that puts a new program
// file in the old one's place leaves it alone. The folder itself is locked by whoever saves a profile in it.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

bool Istanza_Precedente()
{
    struct stat cartella;
    if (::stat(QFile::encodeName(QCoreApplication::applicationDirPath()).constData(), &cartella) != 0)
        return false;
    // A NUL in front: the name stands in no folder. However the path is spelled, the folder is the same one.
    const QByteArray nome = QByteArray("\0lumira-", 8) + QByteArray::number(quint64{cartella.st_dev}, 16) +
                            '-' + QByteArray::number(quint64{cartella.st_ino}, 16);
    sockaddr_un indirizzo{};
    indirizzo.sun_family = AF_UNIX;
    std::copy(nome.cbegin(), nome.cend(), indirizzo.sun_path);
    const auto grandezza =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + static_cast<size_t>(nome.size()));
    // Never closed: the name is taken as long as the process runs. A program that this one starts does not
    // get it.
    const int descrittore = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return descrittore >= 0 &&
           ::bind(descrittore, reinterpret_cast<const sockaddr *>(&indirizzo), grandezza) != 0 &&
           errno == EADDRINUSE;
}
