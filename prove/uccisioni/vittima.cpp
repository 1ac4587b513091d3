// A fork for each killing, and the tracing calls of Linux for the boundaries: the work needs to know nothing
// of it, and no library stands between it and the system.
#include "prove/uccisioni/vittima.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <ctime>
#include <semaphore.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

namespace uccisioni {

namespace {

constexpr qint64 MINIMA = 1000; // ns
constexpr qint64 MILIARDO = 1000000000;

/// What both processes see.
struct Comune
{
    std::atomic<int> Passi = 0;
    sem_t Partita; // raised at the beginning of the work
};

Comune &In_Comune()
{
    static auto *pagina =
        new (::mmap(nullptr, sizeof(Comune), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
            Comune;
    return *pagina;
}

/// @param seguita it stops before its work, for whoever traces it.
pid_t Fai_Partire(const Lavoro &lavoro, bool seguita)
{
    ::sem_init(&In_Comune().Partita, 1, 0);
    In_Comune().Passi = 0;
    const pid_t vittima = ::fork();
    if (vittima < 0)
        qFatal("no process to be had");
    if (vittima != 0)
        return vittima;
    if (seguita) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        (void)std::raise(SIGSTOP);
    }
    ::sem_post(&In_Comune().Partita);
    lavoro();
    ::_exit(0);
}

void Attendi_Partenza()
{
    while (::sem_wait(&In_Comune().Partita) != 0)
        continue; // a signal
}

/// Waits until it stops or has gone. @return true when it stands and waits.
bool Ferma(pid_t vittima, int &stato)
{
    if (::waitpid(vittima, &stato, 0) != vittima)
        qFatal("the process has got lost");
    return WIFSTOPPED(stato);
}

Morte Morte_Con(int stato)
{
    Morte morte;
    morte.Finita = WIFEXITED(stato) && WEXITSTATUS(stato) == 0;
    if (!morte.Finita && !(WIFSIGNALED(stato) && WTERMSIG(stato) == SIGKILL))
        qFatal("the work has failed by itself, status %d", stato);
    morte.Passi = In_Comune().Passi;
    return morte;
}

/// The calls that change a disk or what stands on it, by the argument that says of which file: an open one,
/// or the address of its path.
struct Effetto
{
    quint64 Numero;
    const char *Nome;
    int Argomento;
    bool Aperto;
};

constexpr Effetto EFFETTI[] = {
    {SYS_openat,    "openat",    1, false},
    {SYS_write,     "write",     0, true },
    {SYS_pwrite64,  "pwrite64",  0, true },
    {SYS_writev,    "writev",    0, true },
    {SYS_ftruncate, "ftruncate", 0, true },
    {SYS_fchown,    "fchown",    0, true },
    {SYS_fchmod,    "fchmod",    0, true },
    {SYS_fsync,     "fsync",     0, true },
    {SYS_fdatasync, "fdatasync", 0, true },
    {SYS_linkat,    "linkat",    3, false},
    {SYS_renameat,  "renameat",  3, false},
    {SYS_renameat2, "renameat2", 3, false},
    {SYS_unlinkat,  "unlinkat",  1, false},
#ifdef SYS_unlink  // machines of a younger kind have the calls with "at" alone
    {SYS_rename,    "rename",    1, false},
    {SYS_unlink,    "unlink",    0, false},
#endif
};

/// The last part of a path in another process's memory.
QByteArray Nome_A(pid_t vittima, quint64 indirizzo)
{
    QByteArray testo(4096, '\0');
    iovec qui = {testo.data(), static_cast<size_t>(testo.size())};
    // NOLINTNEXTLINE(performance-no-int-to-ptr) -- an address of the other's, as its registers have it
    iovec la = {reinterpret_cast<void *>(indirizzo), 4096 - indirizzo % 4096}; // never across a page's end
    const ssize_t letti = ::process_vm_readv(vittima, &qui, 1, &la, 1, 0);
    testo.truncate(std::max<ssize_t>(0, letti));
    testo.truncate(std::max<qsizetype>(0, testo.indexOf('\0')));
    return testo.mid(testo.lastIndexOf('/') + 1);
}

QByteArray Nome_Aperto(pid_t vittima, quint64 descrittore)
{
    const QString voce = QStringLiteral("/proc/%1/fd/%2").arg(vittima).arg(descrittore);
    return QFile::encodeName(QFileInfo(QFile::symLinkTarget(voce)).fileName());
}

/// @return the call that it is about to make, empty behind one and before one that changes nothing.
QByteArray Chiamata_Di(pid_t vittima)
{
    __ptrace_syscall_info sistema = {};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, vittima, sizeof(sistema), &sistema);
    if (sistema.op != PTRACE_SYSCALL_INFO_ENTRY)
        return {};
    for (const Effetto &effetto : EFFETTI) {
        if (effetto.Numero != sistema.entry.nr)
            continue;
        const quint64 valore = sistema.entry.args[effetto.Argomento];
        return QByteArray(effetto.Nome) + ' ' +
               (effetto.Aperto ? Nome_Aperto(vittima, valore) : Nome_A(vittima, valore));
    }
    return {};
}

/// Lets it go from boundary to boundary as long as it is told to.
/// @param vai given each boundary's call, see Chiamata_Di; false kills.
Morte Accompagna(const Lavoro &lavoro, const std::function<bool(const QByteArray &)> &vai)
{
    const pid_t vittima = Fai_Partire(lavoro, true);
    int stato = 0;
    QByteArray davanti;
    for (bool prima = true; Ferma(vittima, stato); prima = false) {
        if (prima) {
            ::ptrace(PTRACE_SETOPTIONS, vittima, nullptr, PTRACE_O_TRACESYSGOOD); // else no call is told
        } else {
            davanti = Chiamata_Di(vittima);
            if (!vai(davanti)) {
                ::kill(vittima, SIGKILL);
                continue;
            }
        }
        ::ptrace(PTRACE_SYSCALL, vittima, nullptr, nullptr);
    }
    Morte morte = Morte_Con(stato);
    morte.Davanti = davanti;
    return morte;
}

/// How long the work takes when nobody kills it, in ns: the middle one of several.
qint64 Durata_Di(const Lavoro &lavoro)
{
    QList<qint64> durate;
    for (int volta = 0; volta < 9; ++volta) {
        const pid_t vittima = Fai_Partire(lavoro, false);
        Attendi_Partenza();
        QElapsedTimer orologio;
        orologio.start();
        int stato = 0;
        Ferma(vittima, stato);
        durate.append(orologio.nsecsElapsed());
    }
    std::sort(durate.begin(), durate.end());
    return durate[durate.size() / 2];
}

} // namespace

void Passo_Fatto()
{
    ++In_Comune().Passi;
}

Morte Uccidi_Dopo(const Lavoro &lavoro, qint64 nanosecondi)
{
    const pid_t vittima = Fai_Partire(lavoro, false);
    Attendi_Partenza();
    // Asleep, so that the work has the machine to itself as far as it is ours.
    const timespec ancora = {nanosecondi / MILIARDO, nanosecondi % MILIARDO};
    ::nanosleep(&ancora, nullptr);
    ::kill(vittima, SIGKILL);
    int stato = 0;
    Ferma(vittima, stato);
    return Morte_Con(stato);
}

Morte Uccidi_Alla(const Lavoro &lavoro, int confine)
{
    int qui = 0;
    return Accompagna(lavoro, [&qui, confine](const QByteArray &) { return qui++ < confine; });
}

QList<QByteArray> Effetti_Di(const Lavoro &lavoro)
{
    QList<QByteArray> effetti;
    Accompagna(lavoro, [&effetti](const QByteArray &chiamata) {
        if (!chiamata.isEmpty())
            effetti.append(chiamata);
        return true;
    });
    return effetti;
}

Momenti::Momenti(const Lavoro &lavoro, quint32 seme) : m_caso(seme), m_durata(Durata_Di(lavoro)) {}

/// Of ten moments about one comes too late, and the end of the work has its share of the killings.
void Momenti::Corretto(const Morte &morte)
{
    m_durata = morte.Finita ? std::max(MINIMA, m_durata / 10 * 9) : m_durata + m_durata / 90;
}

} // namespace uccisioni
