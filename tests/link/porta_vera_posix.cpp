#undef _FORTIFY_SOURCE // its inline calls would stand in the way of these

#include "tests/link/porta_vera_posix.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

PortaVera *inForza = nullptr;

/// The system's own call of that name.
template <auto Chiamata>
auto Vera(const char *nome)
{
    static const auto vera = reinterpret_cast<decltype(Chiamata)>(dlsym(RTLD_NEXT, nome));
    return vera;
}

bool E_Porta(int fd)
{
    return inForza != nullptr && isatty(fd) != 0;
}

void Annuncia_Chiamata()
{
    if (inForza != nullptr && inForza->Chiamata)
        inForza->Chiamata();
}

} // namespace

PortaVera::PortaVera()
{
    inForza = this;
}

PortaVera::~PortaVera()
{
    inForza = nullptr;
}

// --- the calls, in place of the system's ------------------------------------------------------------------

extern "C" {

int open64(const char *percorso, int modo, ...)
{
    va_list altri;
    va_start(altri, modo);
    const mode_t diritti = (modo & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(altri, mode_t) : 0;
    va_end(altri);
    const QString nome = QString::fromLocal8Bit(percorso);
    if (inForza != nullptr && (modo & O_ACCMODE) == O_RDWR && nome.startsWith(u"/dev/")) {
        Annuncia_Chiamata();
        inForza->Aperti.append(nome);
    }
    return Vera<open64>("open64")(percorso, modo, diritti);
}

int tcgetattr(int fd, termios *formato) noexcept
{
    Annuncia_Chiamata();
    const int esito = Vera<tcgetattr>("tcgetattr")(fd, formato);
    if (inForza != nullptr && esito == 0 && inForza->Formato.c_cflag != 0)
        *formato = inForza->Formato;
    return esito;
}

int tcsetattr(int fd, int quando, const termios *formato) noexcept
{
    Annuncia_Chiamata();
    if (inForza == nullptr)
        return Vera<tcsetattr>("tcsetattr")(fd, quando, formato);
    if (inForza->Rifiuta && inForza->Rifiuta(*formato)) {
        errno = EINVAL;
        return -1;
    }
    inForza->Formato = *formato;
    // The terminal below gets what it can have: it has to pass bytes as they are.
    termios sotto = *formato;
    sotto.c_cflag = (sotto.c_cflag & ~tcflag_t{CSIZE | PARENB}) | CS8;
    return Vera<tcsetattr>("tcsetattr")(fd, quando, &sotto);
}

int tcflush(int fd, int coda) noexcept
{
    if (inForza != nullptr)
        inForza->Svuotati.append(coda);
    return Vera<tcflush>("tcflush")(fd, coda);
}

int ioctl(int fd, unsigned long richiesta, ...) noexcept
{
    va_list altri;
    va_start(altri, richiesta);
    void *const dato = va_arg(altri, void *);
    va_end(altri);
    Annuncia_Chiamata();
    const bool linee = richiesta == TIOCMBIS || richiesta == TIOCMBIC;
    if (inForza == nullptr || !linee || !inForza->LineeModem)
        return Vera<ioctl>("ioctl")(fd, richiesta, dato);
    const int quali = *static_cast<int *>(dato);
    inForza->Alzate = richiesta == TIOCMBIS ? inForza->Alzate | quali : inForza->Alzate & ~quali;
    return 0;
}

ssize_t read(int fd, void *dove, size_t quanti)
{
    if (inForza != nullptr && inForza->LettureGuaste > 0 && E_Porta(fd)) {
        --inForza->LettureGuaste;
        errno = EIO;
        return -1;
    }
    return Vera<read>("read")(fd, dove, quanti);
}

int poll(pollfd *quali, nfds_t quanti, int ms)
{
    const int esito = Vera<poll>("poll")(quali, quanti, ms);
    if (inForza == nullptr || !inForza->Rotta || quanti != 1 || !E_Porta(quali[0].fd))
        return esito;
    quali[0].revents |= POLLERR;
    return 1;
}

} // extern "C"
