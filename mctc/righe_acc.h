// Where the names of an acceptance file stand in it, for whoever has to mend it. It judges nothing.
#pragma once

#include "mctc/rilievo_acc.h"

/// Gives each finding without a line the line that it is about: of the key, or of the section's head; of a
/// doubled name the second. What the file does not hold stays without one.
/// @param percorso of the file that the findings are about; one that has gone leaves them as they are.
void Rilievi_Numera(const QString &percorso, ListaRilievi &rilievi);
