// What Qt's serial port does not tell of its device. The station's control and the stand-in for the
// instrument ask for it.
#pragma once

class QSerialPort;

/// True for an adapter pulled out, or a pseudo terminal whose other end is closed. Such a device reads as
/// ready for ever: watching it would take the whole processor. @param porta an open port.
bool Dispositivo_Perso(const QSerialPort &porta);
