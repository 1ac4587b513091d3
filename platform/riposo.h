// How long a thing that may answer slowly is left alone after a look at it: the one thread waits for every
// look.
#pragma once

#include <QDateTime>

class Riposo
{
public:
    /// A look begins.
    void Comincia();
    /// It has ended: the next one may come a hundred times later than this one took, after an hour at most.
    void Finisci();
    /// @return ms until the next look may begin, by the clock in force: the whole rest when it was set back
    /// since. @param almeno no less than this.
    int Attesa(int almeno) const;
    /// True when the last look took so long that somebody before the screen wonders: the next one is
    /// announced.
    bool Lento() const;

private:
    QDateTime m_inizio;
    QDateTime m_fine;
    qint64 m_durata = 0; // ms
    qint64 m_riposo = 0; // ms; a length and no moment: somebody may set the computer's clock meanwhile
};
