// What a real serial port has and a pseudo terminal lacks: a line format of every kind, modem lines, faults
// of its own. The calls on terminals that Qt's serial port makes end in this program and not in the system.
#pragma once

#include <QList>
#include <QStringList>

#include <functional>

#include <termios.h>

/// While one lives every terminal that is opened is such a port. Without one the calls go through untouched.
class PortaVera
{
public:
    PortaVera();
    ~PortaVera();
    PortaVera(const PortaVera &) = delete;
    PortaVera &operator=(const PortaVera &) = delete;

    termios Formato = {};                         ///< as it was set last
    std::function<bool(const termios &)> Rifiuta; ///< true for a format that the port does not have
    bool LineeModem = true;                       ///< false: none, as on a pseudo terminal
    int Alzate = 0;                               ///< modem lines, as they were switched last
    QStringList Aperti;                           ///< paths of /dev, in the order of their openings
    QList<int> Svuotati;                          ///< queues dropped, as tcflush names them
    int LettureGuaste = 0;                        ///< so many readings fail from now on
    bool Rotta = false;                           ///< the device reports an error, and no hang-up

    /// Told of each call that opens a port or sets it up, before it is carried out.
    std::function<void()> Chiamata;
};
