// The lock is advisory and belongs to the descriptor: closing it, by hand or by the process's end, lets go.
#include "platform/serratura.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

/// The lock is asked for again and again: a wait for it in the system would have no end.
constexpr qint64 ATTESA = 2000;    // ms
constexpr unsigned long PASSO = 1; // ms

/// True when the lock is with somebody else; any other refusal is no reason to wait.
bool Occupata(int descrittore)
{
    return ::flock(descrittore, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

void Attendi(int descrittore)
{
    static bool invano = false; // the last wait was
    const QDeadlineTimer termine(invano ? 0 : ATTESA);
    invano = Occupata(descrittore);
    while (invano && !termine.hasExpired()) {
        QThread::msleep(PASSO);
        invano = Occupata(descrittore);
    }
}

} // namespace

Serratura::Serratura(const QString &cartella)
    : m_descrittore(::open(QFile::encodeName(cartella).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_descrittore >= 0)
        Attendi(m_descrittore);
}

Serratura::~Serratura()
{
    if (m_descrittore >= 0)
        ::close(m_descrittore);
}
