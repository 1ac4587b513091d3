// From where a screen is read: sizes of type by the distance, and what a hand presses. A normal eye reads
// with ease what is 16 minutes of arc high, with some effort what is 10; at two metres that is 9.3 and 5.8 mm
// of a capital letter. The figures are those of the smallest screen that workshops have, 15 inches.
#pragma once

#include <QString>

#include <vector>

class Etichetta;

/// Sizes of type, as many times Punti_Normali.
inline constexpr double LETTURA_AUTO = 3.45;     ///< read from the car: 16 minutes at two metres
inline constexpr double LETTURA_SCHERMO = 2.2;   ///< read in passing: 10 minutes
inline constexpr double LETTURA_TASTIERA = 1.15; ///< read by who sits there: 5 minutes
inline constexpr double LETTURA_COMODA = 1.4;    ///< the same where there is room: headings, few buttons

/// Height of a button that an operator presses, in design units: 15 mm.
inline constexpr qint32 BERSAGLIO_ALTO = 780;

/// Gives a label, which has its place, a text on one line in its full type: a long name shows its beginning
/// and dots instead of shrinking. An assistive technology hears all of it.
void Mostra_Accorciata(Etichetta &etichetta, const QString &testo);

/// Width of a label's caption on one line, in the type that it is shown in, in twips.
qint32 Larghezza_Scritta(const Etichetta &etichetta);

/// Labels that are read together are shown in one size of type: that of the one which has shrunk most.
void Pareggia(const std::vector<Etichetta *> &etichette);
