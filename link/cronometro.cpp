// The moment kept, and the clock asked.
#include "link/cronometro.h"

#include "platform/orologio.h"

#include <algorithm>

void Cronometro::Parti()
{
    m_inizio = Orologio_Corrente().Adesso();
}

qint64 Cronometro::Secondi() const
{
    return std::max<qint64>(0, m_inizio.secsTo(Orologio_Corrente().Adesso()));
}
