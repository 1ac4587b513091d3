// The result record: 30 rows of a key and a finished text. The evaluation fills it, the result file, the
// result screen and the report read it.
#pragma once

#include <QString>

#include <array>

struct RigaFar
{
    QString Chiave;
    QString Valore;
};

inline constexpr int RIGHE_FAR = 30;

extern std::array<RigaFar, RIGHE_FAR> gRisultatoFar;

/// Sets every row's key and empties its value.
void Far_Azzera();

/// Value of the row with that key. The key must be one of the thirty.
QString Far_Valore(const QString &chiave);
void Far_Imposta(const QString &chiave, const QString &valore);
