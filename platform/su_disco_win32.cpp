// On the one call that waits for the disk. The names of a folder are kept by the volume's own journal.
#include "platform/su_disco.h"

#include <io.h>
#include <qt_windows.h>

bool File_SuDisco(int descrittore)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr) -- the library's own way to hand a handle out
    const auto aperto = reinterpret_cast<HANDLE>(_get_osfhandle(descrittore));
    if (FlushFileBuffers(aperto) != FALSE)
        return true;
    const DWORD errore = GetLastError();
    return errore == ERROR_INVALID_FUNCTION || errore == ERROR_NOT_SUPPORTED ||
           errore == ERROR_INVALID_HANDLE;
}

void Cartella_SuDisco(const QString &) {}
