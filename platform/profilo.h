// The two profile calls: a section in square brackets, lines of a key, "=" and a value.
// The contract is that of the real calls; on Windows the body is the real calls.
#pragma once

#include <QString>

/// Reads one value.
/// @param sezione, chiave  compared without regard to case; spaces (only spaces) at both ends are dropped.
/// @param predefinito      what a missing section, key or file gives.
/// @param misura           size of the caller's buffer: at most misura - 1 characters come back.
/// @param file             path of the profile, with backslashes.
/// @return the value of the first such key in the first such section, without the blanks round it and
/// without one pair of equal quotes (" or ') round what is left.
QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int misura,
                      const QString &file);

/// Writes one value: changes the one line that holds the key and leaves every other byte alone; a new key
/// goes right after the last key of its section, a new section to the end of the file.
/// @return true when the file now holds the value. On false the file is as it was: the write happens whole
/// or not at all, even if the process dies in the middle of it.
bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore,
                    const QString &file);
