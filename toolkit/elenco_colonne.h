// A list whose lines have two columns, the second the one that is looked for: it stands in larger and heavier
// type. Lines may be marked as done.
#pragma once

#include "platform/tipi.h"

#include <QString>

class ElencoVoci;

/// Shows a list's lines in two columns, parted at the tab character of their text.
/// @param unita where the second begins, in quarters of an average character of 12 points, as the system's
/// list message takes a tab stop: it counts in a type of its own, not in the list's. @param righe how many
/// whole lines are to be seen at once in the list's present place. @return the second column's place, in
/// twips from the left edge.
qint32 Elenco_Colonne(ElencoVoci &elenco, qint32 unita, int righe);

/// Marks a line as done, or takes the mark away: such a line is paler and bears a tick. @param parola what a
/// screen reader says of it besides its text.
void Elenco_Fatta(ElencoVoci &elenco, qint32 riga, bool fatta, const QString &parola);
