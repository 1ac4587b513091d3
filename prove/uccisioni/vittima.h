// A work done by a process of its own that is killed in the middle of it. What the work is, and what it may
// leave behind, is not known here.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

#include <functional>

namespace uccisioni {

using Lavoro = std::function<void()>;

/// How a work ended, and what it said of itself.
struct Morte
{
    bool Finita = false; ///< it came to its end before it was killed
    int Passi = 0;       ///< Passo_Fatto was called so often
    QByteArray Davanti;  ///< the system call that it was killed before or behind
};

/// Called by a work behind each step of it: what was done then must not be lost.
void Passo_Fatto();

/// Kills the work so long after its beginning, whatever it is at.
Morte Uccidi_Dopo(const Lavoro &lavoro, qint64 nanosecondi);

/// Kills the work at a boundary of a system call: 0 is before the first, 1 behind it, 2 before the second.
/// What lies between two boundaries changes nothing on the disk.
Morte Uccidi_Alla(const Lavoro &lavoro, int confine);

/// What a work does to the disk, in order: the system call and the file, e.g. "fsync 12345678.far".
QList<QByteArray> Effetti_Di(const Lavoro &lavoro);

/// Moments at random within a work, by what it takes: measured at first, then by whether the last one came
/// too late. A machine that does something else besides makes the figure of a moment ago worth nothing.
class Momenti
{
public:
    /// @param seme of the moments.
    Momenti(const Lavoro &lavoro, quint32 seme);
    /// @return ns from the beginning of the work.
    qint64 Prossimo() { return m_caso.bounded(m_durata); }
    /// How the killing at the last moment went.
    void Corretto(const Morte &morte);

private:
    QRandomGenerator m_caso;
    qint64 m_durata; // ns
};

} // namespace uccisioni
