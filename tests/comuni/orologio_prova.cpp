#include "tests/comuni/orologio_prova.h"

#include <algorithm>

class SvegliaProva : public Sveglia
{
public:
    SvegliaProva(OrologioProva &orologio, std::function<void()> suona)
        : m_orologio(orologio), m_suona(std::move(suona))
    {
        m_orologio.m_sveglie.append(this);
    }
    ~SvegliaProva() override { m_orologio.m_sveglie.removeOne(this); }

    void Arma(int ms) override
    {
        m_ogni = ms;
        m_prossima = m_orologio.m_passati + ms;
        m_armata = true;
    }
    void Disarma() override { m_armata = false; }

    void Suona()
    {
        m_prossima += m_ogni;
        const auto suona = m_suona; // the beat may destroy its own timer
        suona();
    }

    bool m_armata = false;
    qint64 m_ogni = 0;
    qint64 m_prossima = 0;

private:
    OrologioProva &m_orologio;
    std::function<void()> m_suona;
};

OrologioProva::OrologioProva(const QDateTime &inizio) : m_inizio(inizio)
{
    Orologio_Imposta(this);
}

OrologioProva::~OrologioProva()
{
    Orologio_Imposta(nullptr);
}

std::unique_ptr<Sveglia> OrologioProva::Nuova_Sveglia(std::function<void()> suona)
{
    return std::make_unique<SvegliaProva>(*this, std::move(suona));
}

void OrologioProva::Avanza(qint64 ms)
{
    const qint64 fine = m_passati + ms;
    for (;;) {
        SvegliaProva *prossima = nullptr;
        for (SvegliaProva *sveglia : std::as_const(m_sveglie)) {
            const bool dovuta = sveglia->m_armata && sveglia->m_prossima <= fine;
            if (dovuta && (prossima == nullptr || sveglia->m_prossima < prossima->m_prossima))
                prossima = sveglia;
        }
        if (prossima == nullptr)
            break;
        m_passati = std::max(m_passati, prossima->m_prossima);
        prossima->Suona();
    }
    m_passati = std::max(m_passati, fine);
}

int OrologioProva::Armate() const
{
    return static_cast<int>(std::count_if(m_sveglie.cbegin(), m_sveglie.cend(),
                                          [](const SvegliaProva *s) { return s->m_armata; }));
}
