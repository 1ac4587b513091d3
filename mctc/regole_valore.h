// What one value of an acceptance file may be: the kinds of check, their error codes and the dates and times
// of the exchange. Knows a value and its rule, not the file, the section or the row it comes from.
#pragma once

#include "platform/tipi.h"

#include <QString>

#include <span>

/// The values that a field admits. They are compared exactly, upper and lower case distinct.
using Vocabolario = std::span<const QStringView>;

/// How a value is checked.
enum class TipoControllo : quint8
{
    Testo,    ///< at most so many characters; with maximum 0 one of the values admitted
    Decimale, ///< a number with a point and two decimals; the point counts in the length
    Data,     ///< DDMMYYYY
    Ora,      ///< HHMMSS
    Cifre,    ///< characters 0 to 9
    Esatto,   ///< exactly so many characters, of any kind
    Anno,     ///< so many digits, not below 1900
    Targa,    ///< a plate: 4 characters up to the maximum, of any kind
};

/// Outcome of a value's check.
enum ErroreValore : qint16
{
    ValoreBuono = 0,
    ValoreNonNumero = 1, ///< it has its text, and no rule gives it
    ValoreNonData = 2,
    ValoreNonOra = 3,
    ValoreNonTesto = 4, ///< it has its text, and no rule gives it
    ValoreAssente = 5,
    ValoreLunghezza = 6,
    ValoreNonAmmesso = 7,
    ValoreNonTarga = 8,
};

/// Characters of a time HHMMSS.
inline constexpr qsizetype LUNGHEZZA_ORA = 6;

/// True for a day of the calendar in a year from 1900 on.
Flag Data_Valida(qint16 anno, qint16 mese, qint16 giorno);

/// How many of hours, minutes and seconds of a text HHMMSS are past their highest. Only too much is wrong: a
/// piece that is no number counts as 0.
qint16 Ora_PezziFuori(const QString &valore);

/// Checks one value.
/// @param massimo length in characters, 0 for none. @param ammessi read by TipoControllo::Testo with maximum
/// 0.
/// @param obbligatorio an empty value is an error; without it an empty value passes every kind.
/// @return an empty required value is ValoreAssente only where the kind itself has nothing
/// to say about an empty text: a date, for one, says ValoreNonData. The network software knows the reports
/// so.
ErroreValore Valore_Errore(const QString &valore, TipoControllo tipo, qint16 massimo, Vocabolario ammessi,
                           Flag obbligatorio);
