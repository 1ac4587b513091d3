// A form's timer on the alarms of the clock in force. What a beat does is its owner's business.
#include "platform/temporizzatore.h"

Temporizzatore::Temporizzatore(std::function<void()> battito)
    : m_sveglia(Orologio_Corrente().Nuova_Sveglia(std::move(battito)))
{
}

void Temporizzatore::Interval(int ms)
{
    m_intervallo = ms;
    Riparti();
}

void Temporizzatore::Enabled(bool acceso)
{
    if (acceso == m_acceso)
        return;
    m_acceso = acceso;
    Riparti();
}

void Temporizzatore::Riparti()
{
    if (m_acceso && m_intervallo > 0)
        m_sveglia->Arma(m_intervallo);
    else
        m_sveglia->Disarma();
}
