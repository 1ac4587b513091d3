// The question on Windows: the read-only attribute says nothing of rights, an opening that asks for them
// does.
#include "strumenti/scrivibile.h"

#include "platform/percorsi.h"
#include "platform/profilo_scrivibile.h"

#include <qt_windows.h>

bool Cartella_Scrivibile(const QString &cartella)
{
    const QString nativo = Percorso_Nativo(cartella);
    // A folder opens with the semantics of a backup only.
    const HANDLE aperta = CreateFileW(reinterpret_cast<const wchar_t *>(nativo.utf16()), FILE_ADD_FILE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (aperta == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(aperta);
    return true;
}

bool Configurazione_Scrivibile(const QString &file)
{
    return Profilo_Scrivibile(file); // it opens the file and no more
}
