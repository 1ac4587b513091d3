// The end of the simulator asked for at a Windows console: Ctrl+C, its window closed, the session left.
#include "simulatore/fine.h"

#include <QCoreApplication>

#include <qt_windows.h>

namespace {

/// Runs on a thread that the system makes for it.
BOOL WINAPI Richiesta_Arrivata(DWORD richiesta)
{
    QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit, Qt::QueuedConnection);
    // On a closed window the process ends as soon as this returns: the loop gets its time to end first.
    if (richiesta != CTRL_C_EVENT && richiesta != CTRL_BREAK_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

} // namespace

void Fine_Prepara()
{
    SetConsoleCtrlHandler(Richiesta_Arrivata, TRUE);
}
