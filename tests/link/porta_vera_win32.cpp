#include "tests/link/porta_vera_win32.h"

#include <utility>

namespace {

constexpr ULONG_PTR IN_CORSO = 0x103;        // STATUS_PENDING
constexpr ULONG_PTR LASCIATA = 0xC0000120UL; // STATUS_CANCELLED

PortaVera *inForza = nullptr;
OVERLAPPED *ferma = nullptr; ///< the write that waits

/// The system's own call of that name.
template <typename Chiamata>
Chiamata *Vera(const char *nome)
{
    return reinterpret_cast<Chiamata *>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"kernel32"), nome)));
}

bool Lascia_Scrittura()
{
    if (ferma == nullptr)
        return false;
    OVERLAPPED *const stato = std::exchange(ferma, nullptr);
    stato->Internal = LASCIATA;
    SetEvent(stato->hEvent);
    return true;
}

BOOL WINAPI Imposta_Formato(HANDLE porta, DCB *formato)
{
    const BOOL esito = Vera<decltype(SetCommState)>("SetCommState")(porta, formato);
    if (inForza == nullptr)
        return esito;
    inForza->Formato = *formato;
    return inForza->Rifiuta ? FALSE : TRUE;
}

BOOL WINAPI Linee_Modem(HANDLE porta, DWORD *linee)
{
    if (inForza == nullptr)
        return Vera<decltype(GetCommModemStatus)>("GetCommModemStatus")(porta, linee);
    *linee = 0;
    return inForza->LineeModem ? TRUE : FALSE;
}

BOOL WINAPI Errori_Linea(HANDLE porta, DWORD *errori, COMSTAT *stato)
{
    const BOOL esito = Vera<decltype(ClearCommError)>("ClearCommError")(porta, errori, stato);
    if (inForza != nullptr && esito != FALSE)
        *errori |= std::exchange(inForza->Errori, 0);
    return esito;
}

BOOL WINAPI Svuota(HANDLE porta, DWORD quali)
{
    if (inForza != nullptr)
        inForza->Svuotate.append(quali);
    if ((quali & PURGE_TXABORT) != 0)
        Lascia_Scrittura();
    return Vera<decltype(PurgeComm)>("PurgeComm")(porta, quali);
}

BOOL WINAPI Scrivi(HANDLE porta, const void *byte, DWORD numero, DWORD *scritti, OVERLAPPED *stato)
{
    if (inForza == nullptr || !inForza->Piena || stato == nullptr)
        return Vera<decltype(WriteFile)>("WriteFile")(porta, byte, numero, scritti, stato);
    ferma = stato;
    stato->Internal = IN_CORSO;
    SetLastError(ERROR_IO_PENDING);
    return FALSE;
}

BOOL WINAPI Annulla(HANDLE porta, OVERLAPPED *stato)
{
    if (stato != nullptr && stato == ferma)
        return Lascia_Scrittura() ? TRUE : FALSE;
    return Vera<decltype(CancelIoEx)>("CancelIoEx")(porta, stato);
}

} // namespace

PortaVera::PortaVera()
{
    inForza = this;
}

PortaVera::~PortaVera()
{
    Lascia_Scrittura();
    inForza = nullptr;
}

// The places through which a program calls the system. The linker takes these for its own.
extern "C" {
extern decltype(&SetCommState) const __imp_SetCommState = Imposta_Formato;
extern decltype(&GetCommModemStatus) const __imp_GetCommModemStatus = Linee_Modem;
extern decltype(&ClearCommError) const __imp_ClearCommError = Errori_Linea;
extern decltype(&PurgeComm) const __imp_PurgeComm = Svuota;
extern decltype(&WriteFile) const __imp_WriteFile = Scrivi;
extern decltype(&CancelIoEx) const __imp_CancelIoEx = Annulla;
}
