// How far a long run is, for who waits at a terminal: one line that goes when the run ends. In a pipe or a
// file nothing is written.
#pragma once

#include <QElapsedTimer>

class Progresso
{
public:
    /// @param totale how many steps there will be.
    explicit Progresso(qsizetype totale);
    ~Progresso();
    Q_DISABLE_COPY_MOVE(Progresso)

    void Passo();
    /// Takes the line away, for something that is written below it; the next step brings it back.
    void Togli();

private:
    const qsizetype m_totale;
    const bool m_terminale;
    qsizetype m_fatti = 0;
    qsizetype m_larghezza = 0; // of the line that stands there
    QElapsedTimer m_daUltima;
};
