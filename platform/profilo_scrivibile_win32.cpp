// The question on Windows, where the profile call changes the file in its place.
#include "platform/profilo_scrivibile.h"

#include "platform/percorsi.h"

#include <qt_windows.h>

bool Profilo_Scrivibile(const QString &file)
{
    const QString nativo = Percorso_Nativo(file);
    const HANDLE aperto = CreateFileW(reinterpret_cast<const wchar_t *>(nativo.utf16()),
                                      GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    // Another program that has the file at this moment gives it back; rights do not come by waiting.
    if (aperto == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(aperto);
    return true;
}
