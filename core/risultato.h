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

/// A whole record: the one of the test at hand, or one read back from its file.
using RisultatoFar = std::array<VoceFar, RIGHE_FAR>;

extern RisultatoFar gRisultatoFar;

/// What the rows of a verdict say, each for its aim, its intensity or the whole vehicle.
inline constexpr QStringView FAR_REGOLARE = u"R";
inline constexpr QStringView FAR_IRREGOLARE = u"I";
/// The headlamps in FarTipoAnab. It describes the vehicle and no measure: so it begins with a mark.
inline constexpr QStringView FAR_SIMMETRICO = u"#S";
inline constexpr QStringView FAR_ASIMMETRICO = u"#A";
/// FarNumVersioneSoftware: a fixed text for the ministry's system, it does not follow the program's version.
inline constexpr QStringView FAR_VERSIONE = u"1.0";

/// The rows whose verdicts decide on the vehicle: the aims and the intensities. The figures between them do
/// not.
inline constexpr std::array<RigaFar, 12> FAR_DECISIVE = {
    FarVertAnabDx,          FarVertAnabSx,          FarVertAbbDx,          FarVertAbbSx,
    FarOrizzAnabDx,         FarOrizzAnabSx,         FarOrizzAbbDx,         FarOrizzAbbSx,
    FarEsitoIllumLuxAnabDx, FarEsitoIllumLuxAnabSx, FarEsitoIllumLuxAbbDx, FarEsitoIllumLuxAbbSx,
};

/// A verdict of the test at hand.
bool Riga_Regolare(RigaFar riga);

/// The key of a row, as it stands in the file.
QString Far_Chiave(RigaFar riga);

/// True when all the rows that decide are regular.
bool Far_Regolare(const RisultatoFar &risultato);

/// Sets every row's key and empties its value.
void Far_Azzera();

/// Value of a row; empty until the first Far_Azzera.
QString Far_Valore(RigaFar riga);
void Far_Imposta(RigaFar riga, const QString &valore);
