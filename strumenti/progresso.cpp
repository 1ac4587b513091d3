// A line that is written over itself a few times a second.
#include "strumenti/progresso.h"

#include "strumenti/terminale.h"

namespace {

constexpr qint64 RESPIRO = 200; // ms between two lines: writing them must not be what takes the time

} // namespace

Progresso::Progresso(qsizetype totale)
    : m_totale(totale), m_terminale(Terminale_Presente(Canale::Errori) && Terminale_Presente(Canale::Uscita))
{
    m_daUltima.start();
}

Progresso::~Progresso()
{
    Togli();
}

void Progresso::Passo()
{
    ++m_fatti;
    if (!m_terminale || m_daUltima.elapsed() < RESPIRO)
        return;
    const QString riga = QStringLiteral("%1/%2").arg(m_fatti).arg(m_totale);
    Terminale_Scrivi(Canale::Errori, u'\r' + riga);
    m_larghezza = riga.size();
    m_daUltima.restart();
}

void Progresso::Togli()
{
    if (m_larghezza > 0)
        Terminale_Scrivi(Canale::Errori, u'\r' + QString(m_larghezza, u' ') + u'\r');
    m_larghezza = 0;
}
