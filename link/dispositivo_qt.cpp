// The state of a device, asked of the system. It knows no bytes.
#include "link/dispositivo_qt.h"

#include <QSerialPort>

#include <poll.h>

bool Dispositivo_Perso(const QSerialPort &porta)
{
    pollfd stato = {static_cast<int>(porta.handle()), 0, 0};
    return poll(&stato, 1, 0) > 0 && (stato.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}
