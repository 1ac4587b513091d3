// A Windows console, which speaks Unicode whatever its code page; redirected, the channels are UTF-8. The
// echo comes back at the end of the question, and when the console ends the program.
#include "strumenti/terminale.h"

#include "strumenti/riga_ingresso.h"

#include <qt_windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace {

DWORD normale = 0; // the console's mode as it was: the handler has no other way to it

BOOL WINAPI Fine_Richiesta(DWORD)
{
    SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), normale);
    return FALSE; // the next handler ends the program
}

class SenzaEco
{
public:
    SenzaEco() : m_console(GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &normale) != FALSE)
    {
        if (!m_console)
            return;
        SetConsoleCtrlHandler(Fine_Richiesta, TRUE);
        const DWORD riga = ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT;
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), (normale | riga) & ~DWORD{ENABLE_ECHO_INPUT});
    }
    ~SenzaEco()
    {
        if (!m_console)
            return;
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), normale);
        SetConsoleCtrlHandler(Fine_Richiesta, FALSE);
    }
    Q_DISABLE_COPY_MOVE(SenzaEco)

    bool Console() const { return m_console; }

private:
    const bool m_console;
};

std::optional<QString> Riga_Console()
{
    QString riga;
    while (!riga.endsWith(u'\n')) {
        wchar_t pezzo[256];
        DWORD letti = 0;
        if (ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), pezzo, DWORD{std::size(pezzo)}, &letti, nullptr) ==
                FALSE ||
            letti == 0)
            return std::nullopt;
        riga += QString::fromWCharArray(pezzo, static_cast<qsizetype>(letti));
    }
    riga.chop(riga.endsWith(QStringLiteral("\r\n")) ? 2 : 1);
    return riga;
}

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
    const bool errori = canale == Canale::Errori;
    const HANDLE console = GetStdHandle(errori ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE);
    DWORD modo = 0;
    if (GetConsoleMode(console, &modo) != FALSE) {
        WriteConsoleW(console, testo.utf16(), static_cast<DWORD>(testo.size()), nullptr, nullptr);
        return;
    }
    Byte_Scrivi(errori ? stderr : stdout, testo.toUtf8());
}

void Terminale_ScriviByte(const QByteArray &byte)
{
    const int prima = _setmode(_fileno(stdout), _O_BINARY);
    Byte_Scrivi(stdout, byte);
    _setmode(_fileno(stdout), prima);
}

bool Terminale_Presente(Canale canale)
{
    DWORD modo = 0;
    return GetConsoleMode(GetStdHandle(canale == Canale::Errori ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE),
                          &modo) != FALSE;
}

bool Terminale_Integro()
{
    return std::ferror(stdout) == 0;
}

std::optional<QString> Terminale_Chiedi(const QString &domanda)
{
    const SenzaEco muto; // before the question: who answers it at once is not shown either
    Terminale_Scrivi(Canale::Errori, domanda);
    if (!muto.Console())
        return Riga_Ingresso();
    std::optional<QString> riga = Riga_Console();
    Terminale_Scrivi(Canale::Errori, QStringLiteral("\n")); // Enter is not shown either
    return riga;
}
