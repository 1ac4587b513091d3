// The instrument's side of the line: bytes of the station in, replies out, each with its delay. It knows no
// line, no timer and no clock, so that every reply and every fault is tested without them.
#pragma once

#include "simulatore/giornata.h"
#include "simulatore/guasti.h"
#include "simulatore/interlocutore.h"
#include "simulatore/memoria.h"
#include "simulatore/scenario.h"
#include "simulatore/trama.h"

#include <QHash>

#include <functional>
#include <optional>

/// Where a vehicle stands.
enum class StatoStrumento : quint8
{
    Riposo,
    Prova,
    Pronta,
};

class Strumento : public Interlocutore
{
public:
    /// @param fileScenario path of the scenario, empty for none; read anew at each new vehicle, and when the
    /// station leaves the line while the instrument is at rest.
    /// @param fileStato path of the file that keeps the texts written by the station.
    /// @param seme of the plausible day, for a scenario without vehicles.
    /// @param annota takes a line of the log: each frame that came in, and whatever else is worth telling.
    Strumento(const QString &fileScenario, const QString &fileStato, quint32 seme,
              std::function<void(const QString &)> annota);

    void Linea_Lasciata() override;

    // --- what a teacher does by hand, in the window ---------------------------------------------------

    /// Where the vehicle at hand stands: what the last poll was told, or would be.
    StatoStrumento Stato() const;
    /// Puts the vehicle there; at rest after a measure that has been fetched it is a new vehicle.
    void Stato_Imposta(StatoStrumento stato);
    /// True: polls no longer bring the measure nearer, only Stato_Imposta does.
    void Stato_Ferma(bool fermo) { m_fermo = fermo; }
    /// The four records of the vehicle at hand.
    const RecordMisura &Record() const { return m_veicolo.record; }
    /// The records of this vehicle and of every one to come; nothing: each to come has its own again.
    void Record_Fissa(const std::optional<RecordMisura> &record);
    /// Faults of all vehicles, which count before those of the scenario.
    void Guasti_Imposta(const QList<Guasto> &guasti) { m_guastiManuali = guasti; }

private:
    QList<Invio> Comando_Ricevuto(const QByteArray &trama) override;
    QList<Invio> Risposta_Invia(const DefComando &comando, const Risposta &risposta);
    const Guasto *Guasto_Dovuto(CodiceComando comando, int volta) const;
    Risposta Risposta_Di(const DefComando &comando, const QByteArray &carico);
    Risposta Risposta_Stato();
    Risposta Risposta_Misura();
    Risposta Risposta_Testi(Blocco blocco, const QByteArray &testa);
    Risposta Risposta_Scrittura(CodiceComando comando, const QByteArray &carico);
    void Scenario_Rileggi();
    void Veicolo_Nuovo();
    bool A_Riposo() const { return !m_misurato && m_interrogazioni <= m_veicolo.riposo; }
    bool Misura_Pronta() const { return m_interrogazioni > m_veicolo.riposo + m_veicolo.prova; }

    QString m_fileScenario;
    Memoria m_memoria;
    Giornata m_giornata;
    Scenario m_scenario;
    Veicolo m_veicolo;
    qsizetype m_indice = -1;           // of the vehicle in the scenario, -1 for one of the plausible day
    int m_interrogazioni = 0;          // polls that this vehicle has had
    bool m_misurato = false;           // its measure has been fetched
    QHash<CodiceComando, int> m_volte; // commands that this vehicle has had
    QByteArray m_trattenuta;           // reply held to go out with the next
    bool m_fermo = false;              // polls are not counted
    std::optional<RecordMisura> m_recordFissi;
    QList<Guasto> m_guastiManuali;
};
