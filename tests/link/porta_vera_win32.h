// What a real COM port has and a pseudo terminal lacks: a line format of every kind, modem lines, errors on
// the line, an output that does not drain. The calls of the serial control end in this program and not in the
// system.
#pragma once

#include <QList>

#include <qt_windows.h>

/// While one lives the COM port that is opened is such a port. Without one the calls go through untouched.
class PortaVera
{
public:
    PortaVera();
    ~PortaVera();
    PortaVera(const PortaVera &) = delete;
    PortaVera &operator=(const PortaVera &) = delete;

    DCB Formato = {};       ///< as it was set last
    bool Rifiuta = false;   ///< no format suits the port
    bool LineeModem = true; ///< false: none, as on a pseudo terminal
    DWORD Errori = 0;       ///< what went wrong on the line since it was asked last
    QList<DWORD> Svuotate;  ///< queues dropped, as PurgeComm names them
    bool Piena = false;     ///< what is written waits until somebody gives it up
};
