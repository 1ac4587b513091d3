// The lock is a mutex named after the program's own file: the system drops it with the process.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <qt_windows.h>

namespace {

/// A name holds no backslash and has its limit, a path has neither: the name is the path's digest. "Global"
/// reaches the users that are logged on beside each other: the serial port is one.
/// @param programma with slashes, as the toolkit gives it.
QString Nome_Mutex(const QString &programma)
{
    const QByteArray impronta =
        QCryptographicHash::hash(programma.toCaseFolded().toUtf8(), QCryptographicHash::Sha256);
    return QStringLiteral("Global\\lumira-") + QString::fromLatin1(impronta.toHex());
}

} // namespace

bool Istanza_Precedente()
{
    const QString nome = Nome_Mutex(QCoreApplication::applicationFilePath());
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, reinterpret_cast<const wchar_t *>(nome.utf16()));
    if (mutex == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED; // another user's
    // Never released: the lock lasts as long as the process. One that died holding it has left it behind.
    if (WaitForSingleObject(mutex, 0) != WAIT_TIMEOUT)
        return false;
    CloseHandle(mutex);
    return true;
}

bool Istanza_InCorso(const QString &programma)
{
    const QString nome = Nome_Mutex(QString(programma).replace(u'\\', u'/'));
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, reinterpret_cast<const wchar_t *>(nome.utf16()));
    if (mutex == nullptr)
        return GetLastError() == ERROR_ACCESS_DENIED; // another user's
    CloseHandle(mutex); // it lasts as long as the station's process, which made it
    return true;
}
