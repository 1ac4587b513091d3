// The system's clock and timers, in force until a test puts its own in their place. It knows no form.
#include "platform/orologio.h"

#include <QTimer>

namespace {

class SvegliaSistema : public Sveglia
{
public:
    explicit SvegliaSistema(std::function<void()> suona)
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, std::move(suona));
    }
    void Arma(int ms) override { m_timer.start(ms); }
    void Disarma() override { m_timer.stop(); }

private:
    QTimer m_timer;
};

class OrologioSistema : public Orologio
{
public:
    QDateTime Adesso() const override { return QDateTime::currentDateTime(); }
    std::unique_ptr<Sveglia> Nuova_Sveglia(std::function<void()> suona) override
    {
        return std::make_unique<SvegliaSistema>(std::move(suona));
    }
};

OrologioSistema sistema;
Orologio *inForza = &sistema;

} // namespace

Orologio &Orologio_Corrente()
{
    return *inForza;
}

void Orologio_Imposta(Orologio *orologio)
{
    inForza = orologio != nullptr ? orologio : &sistema;
}
