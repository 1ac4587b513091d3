// Killings in the middle of saving: lumira.ini keeps every value that was saved, and is whole.
#pragma once

#include <QList>
#include <QString>

namespace uccisioni {

/// What killings of one kind left of the configuration.
struct Scritture
{
    int Uccise = 0;
    int MaiUccise = 0; ///< it came to its end first
    int Prima = 0;     ///< the file is that of the last write that was done
    int Dopo = 0;      ///< that of the write at work
    int Avanzi = 0;    ///< temporary files left beside it
    int Chiamate = 0;  ///< boundaries, where they were gone through
    QStringList Guaste;

    /// What the next write took at most, in ms: the lock of the killed one must be free.
    qint64 Attesa = 0;
};

/// Kills at random moments. @param seme of the moments.
Scritture Scritture_ACaso(int quante, quint32 seme);
/// Kills a write before and behind each of its system calls.
Scritture Scritture_AOgniConfine();

} // namespace uccisioni
