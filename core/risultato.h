// The result record: 30 rows of a key and a finished text. The evaluation fills it, the result file, the
// result screen and the report read it.
#pragma once

#include <QString>

#include <array>

/// The rows in the order of the result file, each named as its key is written there.
enum RigaFar : quint8
{
    FarMarca,
    FarTipo,
    FarNumOmologa,
    FarNumSerie,
    FarNumVersioneSoftware,
    FarDataScadenza,
    FarAltezzaAnab,
    FarTipoAnab,
    FarVertAnabDx,
    FarVertAnabSx,
    FarVertAbbDx,
    FarVertAbbSx,
    FarOrizzAnabDx,
    FarOrizzAnabSx,
    FarOrizzAbbDx,
    FarOrizzAbbSx,
    FarIllumLuxAnabDx,
    FarIllumLuxAnabSx,
    FarIllumLuxAbbDx,
    FarIllumLuxAbbSx,
    FarEsitoIllumLuxAnabDx,
    FarEsitoIllumLuxAnabSx,
    FarEsitoIllumLuxAbbDx,
    FarEsitoIllumLuxAbbSx,
    FarEsito,
    FarCodErrore,
    FarDataMisura,
    FarInizioMisura,
    FarFineMisura,
    FarOperatore,
};

inline constexpr int RIGHE_FAR = FarOperatore + 1;

struct VoceFar
{
    QString Chiave;
    QString Valore;
};

extern std::array<VoceFar, RIGHE_FAR> gRisultatoFar;

/// Sets every row's key and empties its value.
void Far_Azzera();

/// Value of a row; empty until the first Far_Azzera.
QString Far_Valore(RigaFar riga);
void Far_Imposta(RigaFar riga, const QString &valore);
