// The time of a look, and the rest after it. What is looked at is not known here.
#include "platform/riposo.h"

#include "platform/orologio.h"

#include <algorithm>

namespace {

constexpr qint64 VOLTE = 100;
constexpr qint64 LENTO = 500;       // ms
constexpr qint64 MASSIMO = 3600000; // ms: a clock set forward during a look makes it seem to have taken days

} // namespace

void Riposo::Comincia()
{
    m_inizio = Orologio_Corrente().Adesso();
}

void Riposo::Finisci()
{
    m_fine = Orologio_Corrente().Adesso();
    m_durata = m_inizio.msecsTo(m_fine);
    m_riposo = std::clamp<qint64>(VOLTE * m_durata, 0, MASSIMO);
}

int Riposo::Attesa(int almeno) const
{
    const qint64 passati =
        m_fine.isValid() ? std::max<qint64>(0, m_fine.msecsTo(Orologio_Corrente().Adesso())) : 0;
    return static_cast<int>(std::max<qint64>(almeno, m_riposo - passati));
}

bool Riposo::Lento() const
{
    return m_durata >= LENTO;
}
