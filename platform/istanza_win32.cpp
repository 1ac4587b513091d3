// The lock is a mutex named after the program's own file: the system drops it with the process.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <qt_windows.h>

namespace {

/// A name holds no backslash and has its limit, a path has neither: the name is the path's digest. "Global"
/// reaches the users that are logged on beside each other: the serial port is one.
QString Nome_Mutex()
{
    const QString programma = QCoreApplication::applicationFilePath().toCaseFolded();
    const QByteArray impronta = QCryptographicHash::hash(programma.toUtf8(), QCryptographicHash::Sha256);
    return QStringLiteral("Global\\lumira-") + QString::fromLatin1(impronta.toHex());
}

} // namespace

bool Istanza_Precedente()
{
    const HANDLE mutex =
        CreateMutexW(nullptr, FALSE, reinterpret_cast<const wchar_t *>(Nome_Mutex().utf16()));
    if (mutex == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED; // another user's
    // Never released: the lock lasts as long as the process. One that died holding it has left it behind.
    if (WaitForSingleObject(mutex, 0) != WAIT_TIMEOUT)
        return false;
    CloseHandle(mutex);
    return true;
}
