// What happens to a control, and who hears of it. It knows no control.
#pragma once

#include <functional>
#include <utility>

class Evento
{
public:
    Evento &operator=(std::function<void()> procedura)
    {
        m_procedura = std::move(procedura);
        return *this;
    }

    /// Calls the procedure, if there is one. A copy of it: a handler may unload its own control, and with it
    /// this event, and goes on with what it has captured.
    void operator()() const
    {
        const std::function<void()> procedura = m_procedura;
        if (procedura)
            procedura();
    }

private:
    std::function<void()> m_procedura;
};
