// The keys of the result record in the order of the result file. What the values mean is not known here.
#include "core/risultato.h"

#include "platform/errore_esecuzione.h"

#include <algorithm>

std::array<RigaFar, RIGHE_FAR> gRisultatoFar;

namespace {

constexpr const char *CHIAVI_FAR[RIGHE_FAR] = {
    "Marca",               // 0
    "Tipo",                // 1
    "NumOmologa",          // 2
    "NumSerie",            // 3
    "NumVersioneSoftware", // 4
    "DataScadenza",        // 5
    "AltezzaAnab",         // 6
    "TipoAnab",            // 7
    "VertAnabDx",          // 8
    "VertAnabSx",          // 9
    "VertAbbDx",           // 10
    "VertAbbSx",           // 11
    "OrizzAnabDx",         // 12
    "OrizzAnabSx",         // 13
    "OrizzAbbDx",          // 14
    "OrizzAbbSx",          // 15
    "IllumLuxAnabDx",      // 16
    "IllumLuxAnabSx",      // 17
    "IllumLuxAbbDx",       // 18
    "IllumLuxAbbSx",       // 19
    "EsitoIllumLuxAnabDx", // 20
    "EsitoIllumLuxAnabSx", // 21
    "EsitoIllumLuxAbbDx",  // 22
    "EsitoIllumLuxAbbSx",  // 23
    "Esito",               // 24
    "CodErrore",           // 25
    "DataMisura",          // 26
    "InizioMisura",        // 27
    "FineMisura",          // 28
    "Operatore",           // 29
};

RigaFar &Riga_Di(const QString &chiave)
{
    auto *riga = std::find_if(gRisultatoFar.begin(), gRisultatoFar.end(),
                              [&chiave](const RigaFar &r) { return r.Chiave == chiave; });
    if (riga == gRisultatoFar.end())
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    return *riga;
}

} // namespace

void Far_Azzera()
{
    for (size_t i = 0; i < gRisultatoFar.size(); ++i)
        gRisultatoFar[i] = {QString::fromLatin1(CHIAVI_FAR[i]), QString()};
}

QString Far_Valore(const QString &chiave)
{
    return Riga_Di(chiave).Valore;
}

void Far_Imposta(const QString &chiave, const QString &valore)
{
    Riga_Di(chiave).Valore = valore;
}
