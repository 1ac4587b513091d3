// Whole seconds since a moment, by the clock in force.
#pragma once

#include <QDateTime>

class Cronometro
{
public:
    void Parti();
    bool Partito() const { return m_inizio.isValid(); }
    /// Seconds since Parti; never below 0: somebody may set the computer's clock meanwhile.
    qint64 Secondi() const;

private:
    QDateTime m_inizio;
};
