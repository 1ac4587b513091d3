// The record cut into turns, and the station's commands held against them. No line and no clock.
#include "simulatore/riproduzione.h"

#include "core/parole.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

/// The longest that a timer waits, in ms.
constexpr double MASSIMO_RITARDO = std::numeric_limits<int>::max();

constexpr Parole PRIMA = {u"-- prima di ogni comando, non riprodotti: ",
                          u"-- before any command, not played again: "};
constexpr Parole COMANDI = {u"-- registrazione di %1 comandi", u"-- a record of %1 commands"};
constexpr Parole FINITA = {u"la registrazione è finita", u"the record has ended"};
constexpr Parole ATTESO = {u"nella registrazione il comando %1 è %2", u"in the record command %1 is %2"};
constexpr Parole FINE = {u"-- fine della registrazione", u"-- end of the record"};
constexpr Parole DIVERSO = {u"-- diverso: %1", u"-- different: %1"};

/// @param ms of the record. @param passo as in the constructor.
int Ritardo_Di(qint64 ms, double passo)
{
    return passo == 0
               ? 0
               : static_cast<int>(std::min(std::round(static_cast<double>(ms) / passo), MASSIMO_RITARDO));
}

} // namespace

Riproduzione::Riproduzione(const Registrazione &registrazione, double passo,
                           std::function<void(const QString &)> annota)
    : Interlocutore(std::move(annota))
{
    AssemblatoreComandi comandi;
    qint64 inizio = 0; // ms of the last command's end
    for (const BranoLinea &brano : registrazione.brani) {
        if (brano.voce == Voce::Strumento && m_turni.isEmpty()) {
            // Before the first command nobody can say when the station has opened its end.
            Annota(In_Parole(PRIMA) + Trama_Hex(brano.byte));
        } else if (brano.voce == Voce::Strumento) {
            m_turni.last().risposte.append(
                {.ritardo = Ritardo_Di(brano.ms - inizio, passo), .byte = brano.byte, .nota = {}});
        } else {
            for (const char byte : brano.byte) {
                if (comandi.Aggiungi(byte)) {
                    m_turni.append({.comando = comandi.Trama(), .risposte = {}});
                    inizio = brano.ms;
                }
            }
        }
    }
    Annota(In_Parole(COMANDI).arg(m_turni.size()));
}

QList<Invio> Riproduzione::Comando_Ricevuto(const QByteArray &trama)
{
    Annota(QStringLiteral("<- ") + Trama_Hex(trama));
    if (Finita()) {
        Distingui(In_Parole(FINITA));
        return {};
    }
    const Turno &turno = m_turni[m_prossimo];
    if (trama != turno.comando) {
        Distingui(In_Parole(ATTESO).arg(QString::number(m_prossimo + 1), Trama_Hex(turno.comando)));
        return {};
    }
    ++m_prossimo;
    if (Finita())
        Annota(In_Parole(FINE));
    return turno.risposte;
}

void Riproduzione::Distingui(const QString &testo)
{
    m_diversa = true;
    Annota(In_Parole(DIVERSO).arg(testo));
}
