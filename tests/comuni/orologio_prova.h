// A clock of the test's own: time stands still until the test moves it, and then every beat that falls due
// is played in order.
#pragma once

#include "platform/orologio.h"

#include <QList>

class SvegliaProva;

class OrologioProva : public Orologio
{
public:
    /// Takes the place of the system's clock until it is destroyed.
    explicit OrologioProva(const QDateTime &inizio = QDateTime(QDate(2024, 3, 15), QTime(10, 20, 30)));
    ~OrologioProva() override;

    QDateTime Adesso() const override { return m_inizio.addMSecs(m_passati); }
    std::unique_ptr<Sveglia> Nuova_Sveglia(std::function<void()> suona) override;

    /// Moves time on, playing the beats on the way.
    void Avanza(qint64 ms);
    /// Time passes while the one thread waits for something: what falls due meanwhile is played afterwards.
    void Attendi(qint64 ms) { m_passati += ms; }
    /// Sets the clock on the wall, back where negative: no beat comes sooner or later for it.
    void Sposta(qint64 ms) { m_inizio = m_inizio.addMSecs(ms); }
    /// Time passed since the clock was made, in ms.
    qint64 Passati() const { return m_passati; }
    /// How many alarms are armed.
    int Armate() const;

private:
    friend class SvegliaProva;
    QDateTime m_inizio;
    qint64 m_passati = 0;
    QList<SvegliaProva *> m_sveglie;
};
