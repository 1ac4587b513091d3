// The two profile calls: a section in square brackets, lines of a key, "=" and a value.
// The contract is that of the real calls; on Windows the body is the real calls.
#pragma once

#include <QString>

/// Reads one value.
/// @param sezione, chiave  compared without regard to case; spaces (only spaces) at both ends are dropped.
/// @param predefinito      what a missing section, key or file gives.
/// @param capienza           size of the caller's buffer: at most capienza - 1 characters come back.
/// @param file             path of the profile, with backslashes.
/// @return the value of the first such key in the first such section, without the blanks round it and
/// without one pair of equal quotes (" or ') round what is left.
QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int capienza,
                      const QString &file);

/// True when a write of these three puts the value where a read of the section and the key finds it, and
/// nothing else: a line break in any of them begins a line of its own, and text pasted into a box could bring
/// a section along that hides the real one; a key with "=" is read as a shorter one, one that begins like a
/// head or a note is none, nor is an empty one; a section ends at its first "]". A text ends at its first
/// NUL.
bool Profilo_Ammette(const QString &sezione, const QString &chiave, const QString &valore);

/// Writes one value: changes the one line that holds the key and leaves every other byte alone; a new key
/// goes right after the last key of its section, a new section to the end of the file.
/// @return true when the file now holds the value. On false the file is as it was: what is not
/// Profilo_Ammette is refused, and the write happens whole or not at all, even if the process dies in the
/// middle of it.
bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore,
                    const QString &file);

/// Many values for one look at the file: as long as it lives, reads of a profile give what stood there when
/// it was made. For procedures that read a whole table and let no event run meanwhile; on a network folder
/// each look is a way there and back. What the program writes meanwhile is read all the same. On Windows each
/// read is a call of its own.
class ProfiloFermo
{
public:
    /// @param file as the reads will name it.
    explicit ProfiloFermo(const QString &file);
    ~ProfiloFermo();
    Q_DISABLE_COPY_MOVE(ProfiloFermo)

private:
    QString m_file; // empty when an outer one stands for it
};
