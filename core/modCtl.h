// Form binding: makes a form's controls from its table of CampoForm, shows the values of the profile files
// in them, and scales the design grid to the screen.
#pragma once

#include "core/campo_form.h"
#include "toolkit/modulo.h"

/// Maps a place on the design grid of 15360 by 11520 to the screen, in twips; a half goes to the even
/// neighbour. @throws ErroreEsecuzione 6 when the product passes 32 bits.
qint32 ScalaX(qint32 x);
qint32 ScalaY(qint32 y);

/// The same as a 16-bit position of a CampoForm.
qint16 ScalaX_16(qint32 x);
qint16 ScalaY_16(qint32 y);

/// Draws the four sides of a rectangle on a form, in its Paint. @param x1, y1, x2, y2 corners in twips.
void Disegna_Cornice(Modulo &form, qint32 x1, qint32 y1, qint32 x2, qint32 y2);

/// Makes the controls of rows 0 to the last: txt, cbo and chk numbered by kind in row order, a label for
/// every row under the row's number. Each control carries its row number in its Tag.
void Campi_Crea(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form);

/// Gives the members 0 of lbl, txt and cbo, and so every row made from them, a size of type in points.
void Campi_Carattere(Modulo &form, double punti);

/// Reads every row's value and shows it; then the captions.
/// @throws ErroreEsecuzione 9 for a combo row whose list is empty or whose ListIndexDefault is outside it.
void Campi_Applica(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form);

/// Loads gTabMctc afresh and sets the captions and places of the rows' labels.
void Campi_Didascalie(TabellaCampi tabella, qint16 ultimaRiga, Modulo &form);

/// Takes away the members 1 and up of txt, lbl and cbo; those of chk go with the form.
void Campi_Scarica(Modulo &form);

/// Row of a control, from its Tag.
qint16 Riga_Di(const Controllo &controllo);

/// Locks or frees a text box: a locked one is grey.
void Testo_Blocca(CasellaTesto &casella, bool bloccata);

/// Ticks or clears a check box from the program: the click that this causes is not taken for the operator's.
void Spunta_Imposta(CasellaSpunta &casella, qint16 valore);
