// The test limits of section PARAMETRI, read anew at every evaluation, and what else is read with them.
#pragma once

#include "platform/tipi.h"

#include <QString>

// Intensities in the unit of the result file: 100 times the instrument's figure.
extern qint32 gLuxMaxAbb, gLuxMaxAnab, gLuxMinAbb, gLuxMinAnab;
// Aim limits: loaded under the instrument's own names and compared with nothing, the aim being judged by
// the instrument itself.
extern float gDevVertAbb, gDevVertAnab, gDevOrizAbb, gDevOrizAnab;
extern quint8 gSimmetrico;   ///< 1 when the vehicle's headlamps are symmetric, otherwise 0
extern QString gSepDecimale; ///< decimal separator of the user's locale

/// Kind of beam: each has its limits of intensity.
enum Fascio : quint8
{
    FascioAnabbagliante,
    FascioAbbagliante,
};

/// The two limits of intensity of a beam, both irregular themselves.
struct LimitiFascio
{
    qint32 minimo, massimo;
};

/// The limits of intensity in force.
LimitiFascio Limiti_Di(Fascio fascio);

/// True when an intensity lies between the limits of its beam.
/// @param lux in the unit of the limits; wide enough for a figure that was read back from its text.
bool Lux_Regolare(double lux, Fascio fascio);

/// A number of the configuration as it is converted: the file may use a decimal point on a machine with a
/// decimal comma; not the other way round.
/// @param separatore the machine's. @throws ErroreEsecuzione 6 for a text past 16 bits of letters.
QString Con_Separatore(const QString &valore, const QString &separatore);

/// Reads the limits, the symmetric flag, the decimal separator and the password. A value that is no number
/// gives the limit its default.
/// @throws ErroreEsecuzione 6 when a limit does not fit its width, or the stored password is no scrambled
/// text.
void Carica_Limiti();
