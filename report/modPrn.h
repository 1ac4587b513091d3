// Drawing primitives of the printed page: which printer, texts by their alignment, segments. They draw on
// whatever target is set; what stands on the page is pagina's business.
#pragma once

#include "platform/stampante.h"
#include "platform/tipi.h"

#include <QString>

extern std::shared_ptr<OggettoStampa> gPrnStampante; ///< printer selected by Prn_CercaStampante
extern Flag gPrnPresente;                            ///< True when a printer was selected
extern std::shared_ptr<OggettoStampa> gPrnOggetto;   ///< target of the primitives; empty outside a print job
extern float gPrnScala; ///< factor on every coordinate, font size and line width; always 1.0 so far
/// The printer's page, in twips. The layout uses only width and height.
extern qint16 gPrnWidth, gPrnHeight;
extern qint16 gPrnScaleLeft, gPrnScaleTop, gPrnScaleWidth, gPrnScaleHeight;

/// Where a text stands across: it starts at x, is centred on it, or ends at it; any other value starts at 0.
inline constexpr qint16 PRN_SINISTRA = 0, PRN_CENTRO = 1, PRN_DESTRA = 2;
/// Where it stands down: it ends at y, is centred on it, or starts at it; any other value stands at 0.
inline constexpr qint16 PRN_SOPRA = 0, PRN_MEZZO = 1, PRN_SOTTO = 2;

/// Selects the printer and takes over its page. @return False when there is none; the page then has fixed
/// values. @throws ErroreEsecuzione 6 when the page passes 16 bits.
Flag Prn_Inizializza();

/// Looks for the default printer in the printer list; the last one of that name wins.
Flag Prn_CercaStampante();

void Prn_ImpostaOggetto(const std::shared_ptr<OggettoStampa> &oggetto);

/// Measures a text. @param[out] altezza, larghezza in twips. @param punti size of the type.
void Prn_MisuraTesto(qint16 &altezza, qint16 &larghezza, Flag grassetto, qint16 punti,
                     const QString &carattere, const QString &testo);

/// Prints a text. @param x, y in twips. @param orizzontale, verticale alignment, see above. @param punti in
/// points. @throws ErroreEsecuzione 6 when a place passes 16 bits.
void Prn_Testo(qint16 x, qint16 y, qint16 orizzontale, qint16 verticale, quint32 colore, Flag grassetto,
               qint16 punti, const QString &carattere, const QString &testo);

/// Draws a segment. @param spessore line width; one that rounds to 0 is drawn as 1. @param stile 0 solid.
void Prn_Linea(qint16 x1, qint16 y1, qint16 x2, qint16 y2, quint32 colore, qint16 spessore, qint16 stile);
