// Rows of the result record by their keys, for tests that know the result file and not the program's names.
#pragma once

#include "core/risultato.h"

/// The row with that key, once Far_Azzera has set the keys.
inline RigaFar Far_Riga(const QString &chiave)
{
    for (size_t i = 0; i < gRisultatoFar.size(); ++i) {
        if (gRisultatoFar[i].Chiave == chiave)
            return static_cast<RigaFar>(i);
    }
    qFatal("the result record has no row %s", qPrintable(chiave));
}
