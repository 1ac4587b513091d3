// Replies sent at their time, the line left and taken up again. What a reply says is the instrument's
// business.
#include "simulatore/banco.h"

#include "core/parole.h"
#include "simulatore/apertura.h"
#include "simulatore/errore.h"
#include "simulatore/trama.h"

#include <algorithm>

namespace {

/// Pause between two attempts to come back when the device is not there yet.
constexpr int RIPROVA_MS = 1000;

constexpr Parole PERDUTA = {u"-- perduta: ", u"-- lost: "};
constexpr Parole STACCATA = {u"-- linea staccata per %1 ms", u"-- line hung up for %1 ms"};

} // namespace

Banco::Banco(Linea &linea, Interlocutore &interlocutore, Registro &registro, Collegamento &collegamento)
    : m_linea(linea), m_interlocutore(interlocutore), m_registro(registro), m_collegamento(collegamento)
{
    m_orologio.start();
    for (QTimer *timer : {&m_prossimo, &m_ritorno}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    QObject::connect(&m_prossimo, &QTimer::timeout, &m_prossimo, [this] { Manda_Dovuti(); });
    QObject::connect(&m_ritorno, &QTimer::timeout, &m_ritorno, [this] { Riapri(); });
    m_linea.Ricevuti = [this](const QByteArray &byte) {
        for (const Invio &invio : m_interlocutore.Ricevi(byte))
            Programma(invio);
    };
    m_linea.Lasciata = [this] {
        m_registro.Annota(QStringLiteral("-- ") + Porta_Chiusa());
        m_interlocutore.Linea_Lasciata();
    };
}

bool Banco::Apri(QString &errore)
{
    return Linea_Apri(m_linea, m_collegamento, errore);
}

void Banco::Programma(const Invio &invio)
{
    const qint64 quando = m_orologio.elapsed() + invio.ritardo;
    const auto posto = std::upper_bound(m_coda.cbegin(), m_coda.cend(), quando,
                                        [](qint64 q, const InAttesa &altro) { return q < altro.quando; });
    m_coda.insert(posto, {quando, invio});
    Arma();
}

void Banco::Arma()
{
    if (!m_coda.isEmpty())
        m_prossimo.start(static_cast<int>(std::max<qint64>(0, m_coda.first().quando - m_orologio.elapsed())));
}

void Banco::Manda_Dovuti()
{
    while (!m_coda.isEmpty() && m_coda.first().quando <= m_orologio.elapsed())
        Esegui(m_coda.takeFirst().invio);
    Arma();
}

void Banco::Esegui(const Invio &invio)
{
    if (invio.riaggancio >= 0) {
        Riaggancia(invio.riaggancio);
        return;
    }
    const QString verso = m_linea.Scrivi(invio.byte) ? QStringLiteral("-> ") : In_Parole(PERDUTA);
    const QString nota = invio.nota.isEmpty() ? QString() : QStringLiteral("  ") + invio.nota;
    m_registro.Annota(verso + Trama_Hex(invio.byte) + nota);
}

void Banco::Riaggancia(int ms)
{
    m_registro.Annota(In_Parole(STACCATA).arg(ms));
    m_coda.clear();
    m_collegamento.Togli();
    m_linea.Chiudi();
    m_interlocutore.Linea_Lasciata();
    m_ritorno.start(ms);
}

void Banco::Riapri()
{
    QString errore;
    if (Apri(errore))
        return;
    m_registro.Annota(QStringLiteral("-- ") + errore);
    m_ritorno.start(RIPROVA_MS);
}
