// The serial ports of the machine by their numbers: what a number stands for, and whether there is such a
// port now. It opens none: a session may be using it, and opening one moves the lines of whatever hangs on
// it.
#pragma once

#include <QString>

/// What to open for a port. @param numero 1 for the first.
/// @return COMn as Windows spells it for any number; elsewhere the device behind the link porte/COMn in the
/// program's folder if it is there (to any terminal device), else /dev/ttyS(n-1).
QString Porta_Dispositivo(qint16 numero);

/// True when the machine has that port at this moment, whether it is free or not: an adapter that is not
/// plugged in is not there.
bool Porta_Presente(qint16 numero);
