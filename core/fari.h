// The four lamps of a vehicle: of which beam each is, and its rows of the result. Everybody who goes through
// the lamps walks this one table; it knows no name and no record of the instrument.
#pragma once

#include "core/limiti.h"
#include "core/risultato.h"

/// In the order in which the result names them, and its table shows them.
enum Faro : quint8
{
    FaroAnabDx,
    FaroAnabSx,
    FaroAbbDx,
    FaroAbbSx,
};

struct RigheFaro
{
    Fascio fascio;
    RigaFar vert, orizz; ///< verdicts on the aim
    RigaFar lux;         ///< intensity
    RigaFar esitoLux;    ///< verdict on it
};

// clang-format off
/// A row for each Faro, in their order.
inline constexpr RigheFaro FARI[] = {
    {FascioAnabbagliante, FarVertAnabDx, FarOrizzAnabDx, FarIllumLuxAnabDx, FarEsitoIllumLuxAnabDx},
    {FascioAnabbagliante, FarVertAnabSx, FarOrizzAnabSx, FarIllumLuxAnabSx, FarEsitoIllumLuxAnabSx},
    {FascioAbbagliante,   FarVertAbbDx,  FarOrizzAbbDx,  FarIllumLuxAbbDx,  FarEsitoIllumLuxAbbDx },
    {FascioAbbagliante,   FarVertAbbSx,  FarOrizzAbbSx,  FarIllumLuxAbbSx,  FarEsitoIllumLuxAbbSx },
};
// clang-format on
