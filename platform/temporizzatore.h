// The timer of a form: an interval in ms and a switch. It needs no window.
#pragma once

#include "platform/orologio.h"

#include <functional>

class Temporizzatore
{
public:
    /// @param battito called at each beat, on the form loop.
    explicit Temporizzatore(std::function<void()> battito);

    /// Interval in ms; 0 stands for none: the timer does not beat, whatever Enabled says.
    int Interval() const { return m_intervallo; }
    void Interval(int ms);
    bool Enabled() const { return m_acceso; }
    /// Switching on a timer that is off starts a whole interval; one that is on goes on as it was.
    void Enabled(bool acceso);

private:
    void Riparti();

    std::unique_ptr<Sveglia> m_sveglia;
    int m_intervallo = 0;
    bool m_acceso = false;
};
