// Time: the date and time now, and the beats that timers run on. A test puts a clock of its own in the
// place of the system's, so that hours of sessions run in a moment.
#pragma once

#include <QDateTime>

#include <functional>
#include <memory>

/// One alarm of a clock: while armed it calls its procedure at every interval.
class Sveglia
{
public:
    virtual ~Sveglia() = default;
    /// Starts, or starts again from now. @param ms interval, above 0.
    virtual void Arma(int ms) = 0;
    virtual void Disarma() = 0;
};

class Orologio
{
public:
    virtual ~Orologio() = default;
    virtual QDateTime Adesso() const = 0;
    /// @param suona what to call at each beat; called on the form loop.
    virtual std::unique_ptr<Sveglia> Nuova_Sveglia(std::function<void()> suona) = 0;
};

/// The clock in force: the system's own, until Orologio_Imposta says otherwise.
Orologio &Orologio_Corrente();

/// Puts another clock in force for timers made from now on; nullptr brings the system's back. The caller
/// keeps the clock alive as long as it is in force.
void Orologio_Imposta(Orologio *orologio);
