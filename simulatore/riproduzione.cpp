// The record cut into turns, and the station's commands held against them. No line and no clock.
#include "simulatore/riproduzione.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// The longest that a timer waits, in ms.
constexpr qint64 MASSIMO_RITARDO = std::numeric_limits<int>::max();

} // namespace

Riproduzione::Riproduzione(const Registrazione &registrazione, bool svelta,
                           std::function<void(const QString &)> annota)
    : Interlocutore(std::move(annota))
{
    AssemblatoreComandi comandi;
    qint64 inizio = 0; // ms of the last command's end
    for (const BranoLinea &brano : registrazione.brani) {
        if (brano.voce == Voce::Strumento && m_turni.isEmpty()) {
            // Before the first command nobody can say when the station has opened its end.
            Annota(QStringLiteral("-- prima di ogni comando, non riprodotti: ") + Trama_Hex(brano.byte));
        } else if (brano.voce == Voce::Strumento) {
            const qint64 ritardo = svelta ? 0 : std::min<qint64>(brano.ms - inizio, MASSIMO_RITARDO);
            m_turni.last().risposte.append(
                {.ritardo = static_cast<int>(ritardo), .byte = brano.byte, .nota = {}});
        } else {
            for (const char byte : brano.byte) {
                if (comandi.Aggiungi(byte)) {
                    m_turni.append({.comando = comandi.Trama(), .risposte = {}});
                    inizio = brano.ms;
                }
            }
        }
    }
    Annota(QStringLiteral("-- registrazione di %1 comandi").arg(m_turni.size()));
}

QList<Invio> Riproduzione::Comando_Ricevuto(const QByteArray &trama)
{
    Annota(QStringLiteral("<- ") + Trama_Hex(trama));
    if (Finita()) {
        Distingui(QStringLiteral("la registrazione è finita"));
        return {};
    }
    const Turno &turno = m_turni[m_prossimo];
    if (trama != turno.comando) {
        Distingui(QStringLiteral("nella registrazione il comando %1 è ").arg(m_prossimo + 1) +
                  Trama_Hex(turno.comando));
        return {};
    }
    ++m_prossimo;
    if (Finita())
        Annota(QStringLiteral("-- fine della registrazione"));
    return turno.risposte;
}

void Riproduzione::Distingui(const QString &testo)
{
    m_diversa = true;
    Annota(QStringLiteral("-- diverso: ") + testo);
}
