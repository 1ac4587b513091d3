// The system's own small types, and the checked narrowing that every width change goes through.
// Knows nothing of forms or files.
#pragma once

#include <QtGlobal>

/// A flag of the system: 16 bits, -1 for True and 0 for False.
using Flag = qint16;
inline constexpr Flag Vero = -1;
inline constexpr Flag Falso = 0;

constexpr Flag Flag_Da(bool condizione)
{
    return condizione ? Vero : Falso;
}

/// Checked narrowing. @param valore any whole number. @return the same number in the width asked for.
/// @throws ErroreEsecuzione 6 (Overflow) when it does not fit: a 16-bit figure that overflows ends the
/// program, it never wraps round unseen.
quint8 Intero8(qint64 valore);
qint16 Intero16(qint64 valore);
qint32 Intero32(qint64 valore);

/// Rounds to the nearest whole number, a half to the even neighbour (0.5 gives 0, 1.5 gives 2).
/// @throws ErroreEsecuzione 6 when the result does not fit 32 bits, or is no number at all.
qint32 Arrotonda(double valore);
