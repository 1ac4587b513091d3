// Goes through every state that a session can come to and every event that can happen there, first on the
// model alone, then with the machine beside it.
#pragma once

#include "prove/modello/banco.h"

namespace modello {

struct Misurata
{
    qint64 Stati = 0;
    qint64 Transizioni = 0;
    int Profondita = 0;  ///< events from the start to the farthest state
    qint64 Sessioni = 0; ///< opened on the machine to go through every transition
    QStringList Diverse; ///< ways on which the machine is not what the model is, and in what
};

/// @param modo of the session. @param fino depth to stop at; 0: until nothing new turns up.
Misurata Esplora(quint8 modo, int fino = 0);

/// How the random sessions ended.
struct Estratte
{
    qint64 Sessioni = 0;
    qint64 Eventi = 0;
    qint64 Riuscite = 0;
    qint64 Fallite = 0; ///< those that the operator broke off among them
    qint64 Fatali = 0;  ///< ended by a run-time error, as the rules have it
    QStringList Diverse;
};

/// Sessions at random, each by its own seed: seme, seme + 1 and so on, in the four modes by turns.
Estratte Estrai(qint64 sessioni, quint32 seme);

/// Differences after which the search is given up.
inline constexpr int BASTANO = 5;

} // namespace modello
