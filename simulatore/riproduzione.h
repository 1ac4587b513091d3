// The instrument of a record again: it answers what the record holds when the station says what stands there,
// and tells where the station says something else.
#pragma once

#include "simulatore/interlocutore.h"
#include "simulatore/registrazione.h"

#include <functional>

class Riproduzione : public Interlocutore
{
public:
    /// @param passo how many times as fast as in the record each reply follows its command; 0: at once.
    /// @param annota takes a line of the log.
    Riproduzione(const Registrazione &registrazione, double passo,
                 std::function<void(const QString &)> annota);

    /// The station has said something that does not stand in the record at its place.
    bool Diversa() const { return m_diversa; }
    /// All of the record has been played.
    bool Finita() const { return m_prossimo == m_turni.size(); }

private:
    /// A command of the station, and what the instrument said up to the next one.
    struct Turno
    {
        QByteArray comando;
        QList<Invio> risposte;
    };

    /// A command that does not stand in the record at this place gets no reply, as from an instrument that
    /// does not know it, and the place stays: a station that comes back to the record is answered again.
    QList<Invio> Comando_Ricevuto(const QByteArray &trama) override;
    void Distingui(const QString &testo);

    QList<Turno> m_turni;
    qsizetype m_prossimo = 0;
    bool m_diversa = false;
};
