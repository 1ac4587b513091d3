// The chart of many result files: how many vehicles a day came out how, and where the figures of each lamp
// lie between its limits. It opens and writes no file.
#pragma once

#include "strumenti/disegno.h"
#include "strumenti/raccolta_far.h"

/// The limits are those in force (Carica_Limiti).
Disegno Raccolta_Grafico(const RaccoltaFar &raccolta);
