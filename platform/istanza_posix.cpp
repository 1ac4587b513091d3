// The instance is known by the program's folder: a name in the system's space of socket names, taken for the
// whole run. Nothing is created, the system drops it with the process, and an upgrade that puts a new program
// file in the old one's place leaves it alone. The folder itself is locked by whoever saves a profile in it.
#include "platform/istanza.h"

#include "platform/percorsi.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace {

/// The name that a station of a folder takes, behind its leading NUL; empty when there is no such folder.
/// However the path is spelled, the folder is the same one.
QByteArray Nome_Istanza(const QString &cartella)
{
    struct stat dati;
    if (::stat(QFile::encodeName(cartella).constData(), &dati) != 0)
        return {};
    return "lumira-" + QByteArray::number(quint64{dati.st_dev}, 16) + '-' +
           QByteArray::number(quint64{dati.st_ino}, 16);
}

} // namespace

bool Istanza_Precedente()
{
    const QByteArray istanza = Nome_Istanza(QCoreApplication::applicationDirPath());
    if (istanza.isEmpty())
        return false;
    const QByteArray nome = '\0' + istanza; // a NUL in front: the name stands in no folder
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

bool Istanza_InCorso(const QString &programma)
{
    const QByteArray istanza = Nome_Istanza(QFileInfo(Percorso_Nativo(programma)).path());
    QFile nomi(QStringLiteral("/proc/net/unix")); // where the system lists the names taken, "@" for the NUL
    return !istanza.isEmpty() && nomi.open(QIODevice::ReadOnly) &&
           nomi.readAll().contains(" @" + istanza + '\n');
}
