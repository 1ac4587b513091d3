// A terminal by its modes. The echo comes back at the end of the question, and when a signal ends the
// program.
#include "strumenti/terminale.h"

#include "strumenti/riga_ingresso.h"

#include <csignal>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int SEGNALI[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

termios normale; // as the terminal was: a signal's handler has no other way to it

/// It has been taken down by its own call, so that the signal raised again does what it does without it.
void Fine_Richiesta(int segnale)
{
    ::tcsetattr(STDIN_FILENO, TCSADRAIN, &normale);
    static_cast<void>(::raise(segnale));
}

class SenzaEco
{
public:
    SenzaEco() : m_terminale(::tcgetattr(STDIN_FILENO, &normale) == 0)
    {
        if (!m_terminale)
            return;
        struct sigaction fine = {};
        fine.sa_handler = Fine_Richiesta;
        fine.sa_flags = static_cast<int>(SA_RESETHAND);
        for (const int segnale : SEGNALI)
            ::sigaction(segnale, &fine, nullptr);
        termios muto = normale;
        muto.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        muto.c_lflag |= ECHONL; // Enter still ends the line of the question
        ::tcsetattr(STDIN_FILENO, TCSADRAIN, &muto);
    }
    ~SenzaEco()
    {
        if (!m_terminale)
            return;
        ::tcsetattr(STDIN_FILENO, TCSADRAIN, &normale);
        for (const int segnale : SEGNALI)
            static_cast<void>(std::signal(segnale, SIG_DFL));
    }
    Q_DISABLE_COPY_MOVE(SenzaEco)

private:
    const bool m_terminale;
};

/// By their number: a damaged file's text may hold a NUL. What could not be written is told at the end, by
/// Terminale_Integro.
void Byte_Scrivi(std::FILE *flusso, const QByteArray &byte)
{
    static_cast<void>(std::fwrite(byte.constData(), 1, static_cast<size_t>(byte.size()), flusso));
    static_cast<void>(std::fflush(flusso));
}

} // namespace

void Terminale_Scrivi(Canale canale, const QString &testo)
{
    Byte_Scrivi(canale == Canale::Errori ? stderr : stdout, testo.toUtf8());
}

void Terminale_ScriviByte(const QByteArray &byte)
{
    Byte_Scrivi(stdout, byte);
}

bool Terminale_Presente(Canale canale)
{
    return ::isatty(canale == Canale::Errori ? STDERR_FILENO : STDOUT_FILENO) == 1;
}

bool Terminale_Integro()
{
    return std::ferror(stdout) == 0;
}

std::optional<QString> Terminale_Chiedi(const QString &domanda)
{
    const SenzaEco muto; // before the question: who answers it at once is not shown either
    Terminale_Scrivi(Canale::Errori, domanda);
    return Riga_Ingresso();
}
