// The time of a look, and the rest after it. What is looked at is not known here.
#include "app/riposo.h"

#include "platform/orologio.h"

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 VOLTE = 100;

} // namespace

void Riposo::Comincia()
{
    m_inizio = Orologio_Corrente().Adesso();
}

void Riposo::Finisci()
{
    const QDateTime adesso = Orologio_Corrente().Adesso();
    m_finoA = adesso.addMSecs(VOLTE * std::max<qint64>(0, m_inizio.msecsTo(adesso)));
}

int Riposo::Attesa(int almeno) const
{
    const qint64 manca = m_finoA.isValid() ? Orologio_Corrente().Adesso().msecsTo(m_finoA) : 0;
    return static_cast<int>(std::clamp<qint64>(manca, almeno, std::numeric_limits<int>::max()));
}
