// The one-page report: where every text and line of the report tables stands. Everything is worked out from
// the page's width and height; the drawing itself is modPrn's.
#pragma once

#include "platform/tipi.h"

/// Lays out the page on gPrnOggetto. @param larghezza, altezza of the page in twips; the width is reduced in
/// place to the part that the layout uses, which is why Prn_Inizializza runs before every print.
/// @throws ErroreEsecuzione 6 when a coordinate passes 16 bits; the page stays as far as it was drawn.
void Report_Stampa(qint16 &larghezza, qint16 &altezza);

/// Prints the report on the default printer.
/// @return False when there is no printer that takes jobs, or the system did not take the page. An error in
/// the layout abandons the rest of the page, which is sent as far as it goes.
Flag Report_Invia();
