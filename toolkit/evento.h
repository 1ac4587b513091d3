// What happens to a control, and who hears of it. It knows no control.
#pragma once

#include <functional>
#include <utility>

/// @tparam Firma what its procedure takes and gives back. One that gives something back has an answer of its
/// type for when nobody listens: the one made of nothing.
template <typename Firma>
class EventoDi;

template <typename Risposta, typename... Valori>
class EventoDi<Risposta(Valori...)>
{
public:
    EventoDi &operator=(std::function<Risposta(Valori...)> procedura)
    {
        m_procedura = std::move(procedura);
        return *this;
    }

    /// Calls the procedure, if there is one. A copy of it: a handler may unload its own control, and with it
    /// this event, and goes on with what it has captured.
    Risposta operator()(Valori... valori) const
    {
        const std::function<Risposta(Valori...)> procedura = m_procedura;
        return procedura ? procedura(valori...) : Risposta();
    }

private:
    std::function<Risposta(Valori...)> m_procedura;
};

using Evento = EventoDi<void()>;
