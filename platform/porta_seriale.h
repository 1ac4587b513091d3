// The serial ports of the machine by their numbers: what a number stands for, and whether there is such a
// port now. It opens none: a session may be using it, and opening one moves the lines of whatever hangs on
// it.
#pragma once

#include <QList>
#include <QString>

/// A serial port that the machine has at this moment.
struct PortaTrovata
{
    qint16 Numero = 0; ///< by which the station opens it; 0 for a device that no number stands for
    QString Dispositivo;
    bool Permessa = false; ///< the system lets this user read and write it
};

/// Whose folder has the links porte/COMn: the program's own until somebody names another.
/// @param cartella with backslashes, none at its end.
void Porte_Stazione(const QString &cartella);

/// What to open for a port. @param numero 1 for the first.
/// @return COMn as Windows spells it for any number; elsewhere the device behind the link porte/COMn in the
/// station's folder if it is there (to any terminal device), else /dev/ttyS(n-1).
QString Porta_Dispositivo(qint16 numero);

/// True when the machine has that port at this moment, whether it is free or not: an adapter that is not
/// plugged in is not there.
bool Porta_Presente(qint16 numero);

/// The ports of the machine: those with a number in its order, then the others.
QList<PortaTrovata> Porte_Elenca();
