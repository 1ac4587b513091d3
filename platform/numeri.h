// The loose numeric test and the conversions between texts and numbers, with the decimal separator of the
// user's locale. Whole numbers round half to even.
#pragma once

#include <QString>

/// The loose test: blanks around, a leading sign, a separator at the edge ("1.", ".5") and an exponent pass.
/// With a comma as decimal separator points are group marks and pass; with a point a comma does not pass.
bool Numero_Valido(const QString &testo);

/// Conversions. @throws ErroreEsecuzione 13 for a text that Numero_Valido refuses, 6 when it does not fit.
quint8 Numero_8(const QString &testo);
qint16 Numero_16(const QString &testo);
qint32 Numero_32(const QString &testo);
float Numero_Singolo(const QString &testo);
double Numero_Doppio(const QString &testo);

/// A piece cut out of a date or a time, as a whole number; a piece that holds no number, or one past 16
/// bits, counts as 0 and so makes no valid date.
qint16 Numero_Pezzo(const QString &pezzo);

/// The shortest decimal form that gives the number back, with the locale's separator: 12.3 or 12,3.
QString Numero_Testo(double valore);
QString Numero_Testo(float valore);
