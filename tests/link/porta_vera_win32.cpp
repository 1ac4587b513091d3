#include "tests/link/porta_vera_win32.h"

#include <QTest>
#include <QThread>

#include <cwchar>
#include <utility>

namespace {

constexpr ULONG_PTR RIUSCITA = 0;            // STATUS_SUCCESS
constexpr ULONG_PTR IN_CORSO = 0x103;        // STATUS_PENDING
constexpr ULONG_PTR LASCIATA = 0xC0000120UL; // STATUS_CANCELLED

PortaVera *inForza = nullptr;
OVERLAPPED *scrittura = nullptr; ///< the write that waits
OVERLAPPED *lettura = nullptr;   ///< the read that waits
OVERLAPPED *attesa = nullptr;    ///< the wait for the events of the line

/// The system's own call of that name.
template <typename Chiamata>
Chiamata *Vera(const char *nome)
{
    return reinterpret_cast<Chiamata *>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32"), nome)));
}

BOOL Fallita(DWORD errore)
{
    SetLastError(errore);
    return FALSE;
}

BOOL Ferma(OVERLAPPED *&posto, OVERLAPPED *stato)
{
    posto = stato;
    stato->Internal = IN_CORSO;
    return Fallita(ERROR_IO_PENDING);
}

bool Lascia(OVERLAPPED *&posto, ULONG_PTR esito)
{
    if (posto == nullptr)
        return false;
    OVERLAPPED *const stato = std::exchange(posto, nullptr);
    stato->Internal = esito;
    SetEvent(stato->hEvent);
    return true;
}

} // namespace

PortaVera::PortaVera()
{
    inForza = this;
}

PortaVera::~PortaVera()
{
    for (OVERLAPPED **posto : {&scrittura, &lettura, &attesa})
        Lascia(*posto, LASCIATA);
    inForza = nullptr;
}

bool PortaVera::In_Lettura()
{
    return lettura != nullptr;
}

void PortaVera::Interrompi(ULONG_PTR stato)
{
    Lascia(lettura, stato);
}

void PortaVera::Sveglia_Attesa()
{
    QVERIFY(Lascia(attesa, RIUSCITA));
}

void PortaVera::Rimetti()
{
    QVERIFY(m_aperte.isEmpty());
    m_tolta = false;
}

// --- the calls, in place of the system's ------------------------------------------------------------------

struct ChiamatePorta
{
    /// @return true when the adapter has gone.
    static bool Persa(const char *chiamata)
    {
        if (inForza == nullptr)
            return false;
        if (inForza->Chiamata)
            inForza->Chiamata(chiamata);
        return inForza->m_tolta;
    }

    static HANDLE WINAPI Apri(const wchar_t *nome, DWORD accesso, DWORD condivisa,
                              SECURITY_ATTRIBUTES *diritti, DWORD modo, DWORD attributi, HANDLE modello)
    {
        const auto apri = [&] {
            return Vera<decltype(CreateFileW)>("CreateFileW")(nome, accesso, condivisa, diritti, modo,
                                                              attributi, modello);
        };
        if (inForza == nullptr || std::wcsncmp(nome, L"\\\\.\\COM", 7) != 0)
            return apri();
        inForza->Nomi.append(QString::fromWCharArray(nome));
        if (Persa("CreateFile"))
            return Fallita(ERROR_FILE_NOT_FOUND), INVALID_HANDLE_VALUE;
        if (!inForza->m_aperte.isEmpty())
            return Fallita(ERROR_ACCESS_DENIED), INVALID_HANDLE_VALUE;
        const HANDLE porta = apri();
        if (porta != INVALID_HANDLE_VALUE)
            inForza->m_aperte.append(porta);
        return porta;
    }

    static BOOL WINAPI Chiudi(HANDLE porta)
    {
        if (inForza != nullptr) {
            inForza->m_aperte.removeOne(porta);
            inForza->m_eventi.removeOne(porta);
        }
        return Vera<decltype(CloseHandle)>("CloseHandle")(porta);
    }

    static HANDLE WINAPI Evento(SECURITY_ATTRIBUTES *diritti, BOOL aMano, BOOL segnalato, const wchar_t *nome)
    {
        const HANDLE evento = Vera<decltype(CreateEventW)>("CreateEventW")(diritti, aMano, segnalato, nome);
        if (inForza != nullptr)
            inForza->m_eventi.append(evento);
        return evento;
    }

    static BOOL WINAPI Code(HANDLE porta, DWORD ingresso, DWORD uscita)
    {
        if (Persa("SetupComm"))
            return Fallita(ERROR_BAD_COMMAND);
        if (inForza != nullptr)
            inForza->CodaIngresso = ingresso;
        return Vera<decltype(SetupComm)>("SetupComm")(porta, ingresso, uscita);
    }

    static BOOL WINAPI Formato(HANDLE porta, DCB *formato)
    {
        return Persa("GetCommState") ? Fallita(ERROR_BAD_COMMAND)
                                     : Vera<decltype(GetCommState)>("GetCommState")(porta, formato);
    }

    static BOOL WINAPI Imposta_Formato(HANDLE porta, DCB *formato)
    {
        if (Persa("SetCommState"))
            return Fallita(ERROR_BAD_COMMAND);
        const BOOL esito = Vera<decltype(SetCommState)>("SetCommState")(porta, formato);
        if (inForza == nullptr)
            return esito;
        inForza->Formato = *formato;
        return inForza->Rifiuta ? FALSE : TRUE;
    }

    static BOOL WINAPI Tempi(HANDLE porta, COMMTIMEOUTS *tempi)
    {
        return Persa("SetCommTimeouts") ? Fallita(ERROR_BAD_COMMAND)
                                        : Vera<decltype(SetCommTimeouts)>("SetCommTimeouts")(porta, tempi);
    }

    static BOOL WINAPI Linee_Modem(HANDLE porta, DWORD *linee)
    {
        if (Persa("GetCommModemStatus"))
            return Fallita(ERROR_BAD_COMMAND);
        if (inForza == nullptr)
            return Vera<decltype(GetCommModemStatus)>("GetCommModemStatus")(porta, linee);
        *linee = 0;
        return inForza->LineeModem ? TRUE : FALSE;
    }

    static BOOL WINAPI Errori_Linea(HANDLE porta, DWORD *errori, COMSTAT *stato)
    {
        if (Persa("ClearCommError"))
            return Fallita(ERROR_BAD_COMMAND);
        const BOOL esito = Vera<decltype(ClearCommError)>("ClearCommError")(porta, errori, stato);
        if (inForza != nullptr && esito != FALSE)
            *errori |= std::exchange(inForza->Errori, 0);
        return esito;
    }

    /// What waits for the events of the line ends when they change: also on a device that has gone.
    static BOOL WINAPI Eventi(HANDLE porta, DWORD quali)
    {
        const bool persa = Persa("SetCommMask");
        Lascia(attesa, RIUSCITA);
        const BOOL esito = Vera<decltype(SetCommMask)>("SetCommMask")(porta, quali);
        return persa ? Fallita(ERROR_BAD_COMMAND) : esito;
    }

    static BOOL WINAPI Svuota(HANDLE porta, DWORD quali)
    {
        if (inForza != nullptr)
            inForza->Svuotate.append(quali);
        if ((quali & PURGE_TXABORT) != 0)
            Lascia(scrittura, LASCIATA);
        return Persa("PurgeComm") ? Fallita(ERROR_BAD_COMMAND)
                                  : Vera<decltype(PurgeComm)>("PurgeComm")(porta, quali);
    }

    static BOOL WINAPI Leggi(HANDLE porta, void *byte, DWORD numero, DWORD *letti, OVERLAPPED *stato)
    {
        if (inForza != nullptr && stato != nullptr && Persa("ReadFile"))
            return Fallita(ERROR_BAD_COMMAND);
        if (inForza == nullptr || !inForza->Muta || stato == nullptr)
            return Vera<decltype(ReadFile)>("ReadFile")(porta, byte, numero, letti, stato);
        return Ferma(lettura, stato);
    }

    static BOOL WINAPI Aspetta(HANDLE porta, DWORD *quali, OVERLAPPED *stato)
    {
        if (Persa("WaitCommEvent"))
            return Fallita(ERROR_BAD_COMMAND);
        if (inForza == nullptr || !inForza->Muta)
            return Vera<decltype(WaitCommEvent)>("WaitCommEvent")(porta, quali, stato);
        return Ferma(attesa, stato);
    }

    static BOOL WINAPI Scrivi(HANDLE porta, const void *byte, DWORD numero, DWORD *scritti, OVERLAPPED *stato)
    {
        if (inForza != nullptr && stato != nullptr && Persa("WriteFile"))
            return Fallita(ERROR_BAD_COMMAND);
        if (inForza == nullptr || !inForza->Piena || stato == nullptr)
            return Vera<decltype(WriteFile)>("WriteFile")(porta, byte, numero, scritti, stato);
        return Ferma(scrittura, stato);
    }

    static BOOL WINAPI Annulla(HANDLE porta, OVERLAPPED *stato)
    {
        for (OVERLAPPED **posto : {&scrittura, &lettura, &attesa}) {
            if (stato == nullptr || stato != *posto)
                continue;
            const bool lasciata = Lascia(*posto, LASCIATA);
            if (inForza != nullptr && inForza->Lenta)
                QThread::msleep(200); // whoever waits for its end hears of it meanwhile
            return lasciata ? TRUE : FALSE;
        }
        return Vera<decltype(CancelIoEx)>("CancelIoEx")(porta, stato);
    }
};

DWORD PortaVera::In_Coda() const
{
    DWORD errori = 0;
    COMSTAT stato = {};
    if (m_aperte.isEmpty() ||
        Vera<decltype(::ClearCommError)>("ClearCommError")(m_aperte.first(), &errori, &stato) == FALSE)
        return 0;
    return stato.cbInQue;
}

// The places through which a program calls the system. The linker takes these for its own, by
// the names that it gives them.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
extern decltype(&CreateFileW) const __imp_CreateFileW = ChiamatePorta::Apri;
extern decltype(&CreateEventW) const __imp_CreateEventW = ChiamatePorta::Evento;
extern decltype(&CloseHandle) const __imp_CloseHandle = ChiamatePorta::Chiudi;
extern decltype(&SetupComm) const __imp_SetupComm = ChiamatePorta::Code;
extern decltype(&GetCommState) const __imp_GetCommState = ChiamatePorta::Formato;
extern decltype(&SetCommState) const __imp_SetCommState = ChiamatePorta::Imposta_Formato;
extern decltype(&SetCommTimeouts) const __imp_SetCommTimeouts = ChiamatePorta::Tempi;
extern decltype(&GetCommModemStatus) const __imp_GetCommModemStatus = ChiamatePorta::Linee_Modem;
extern decltype(&ClearCommError) const __imp_ClearCommError = ChiamatePorta::Errori_Linea;
extern decltype(&SetCommMask) const __imp_SetCommMask = ChiamatePorta::Eventi;
extern decltype(&PurgeComm) const __imp_PurgeComm = ChiamatePorta::Svuota;
extern decltype(&ReadFile) const __imp_ReadFile = ChiamatePorta::Leggi;
extern decltype(&WaitCommEvent) const __imp_WaitCommEvent = ChiamatePorta::Aspetta;
extern decltype(&WriteFile) const __imp_WriteFile = ChiamatePorta::Scrivi;
extern decltype(&CancelIoEx) const __imp_CancelIoEx = ChiamatePorta::Annulla;
}
// NOLINTEND(bugprone-reserved-identifier)
