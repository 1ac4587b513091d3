// The keys of the result record in the order of the result file. What the values mean is not known here.
#include "core/risultato.h"

#include <algorithm>

RisultatoFar gRisultatoFar;

namespace {

constexpr const char *CHIAVI_FAR[] = {
    "Marca",
    "Tipo",
    "NumOmologa",
    "NumSerie",
    "NumVersioneSoftware",
    "DataScadenza",
    "AltezzaAnab",
    "TipoAnab",
    "VertAnabDx",
    "VertAnabSx",
    "VertAbbDx",
    "VertAbbSx",
    "OrizzAnabDx",
    "OrizzAnabSx",
    "OrizzAbbDx",
    "OrizzAbbSx",
    "IllumLuxAnabDx",
    "IllumLuxAnabSx",
    "IllumLuxAbbDx",
    "IllumLuxAbbSx",
    "EsitoIllumLuxAnabDx",
    "EsitoIllumLuxAnabSx",
    "EsitoIllumLuxAbbDx",
    "EsitoIllumLuxAbbSx",
    "Esito",
    "CodErrore",
    "DataMisura",
    "InizioMisura",
    "FineMisura",
    "Operatore",
};

static_assert(std::size(CHIAVI_FAR) == RIGHE_FAR);

} // namespace

QString Far_Chiave(RigaFar riga)
{
    return QString::fromLatin1(CHIAVI_FAR[riga]);
}

bool Riga_Regolare(RigaFar riga)
{
    return Far_Valore(riga) == FAR_REGOLARE;
}

bool Far_Regolare(const RisultatoFar &risultato)
{
    return std::all_of(FAR_DECISIVE.begin(), FAR_DECISIVE.end(),
                       [&](RigaFar riga) { return risultato[riga].Valore == FAR_REGOLARE; });
}

void Far_Azzera()
{
    for (size_t i = 0; i < gRisultatoFar.size(); ++i)
        gRisultatoFar[i] = {Far_Chiave(static_cast<RigaFar>(i)), QString()};
}

QString Far_Valore(RigaFar riga)
{
    return gRisultatoFar[riga].Valore;
}

void Far_Imposta(RigaFar riga, const QString &valore)
{
    gRisultatoFar[riga].Valore = valore;
}
