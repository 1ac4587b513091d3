// The one look of all forms: colours, lines, type, focus. Geometry is the forms' own.
#pragma once

#include <QColor>

class QApplication;

/// The colours of the look, for what a control paints by itself.
enum class Tinta
{
    Sfondo, ///< of a form
    Campo,  ///< of what is written in, chosen from or pressed
    CampoSpento,
    Testo,
    TestoSpento,
    Cornice,    ///< lines that frame parts of a form, and controls
    Fuoco,      ///< where the keyboard is, and the chosen line of a list
    FuocoTenue, ///< where the pointer is, and what is behind
    Guasto,     ///< ground of what stops the work, for white letters
};
QColor Colore_Tema(Tinta tinta);

/// The same as the number that a control takes (platform/colori.h).
quint32 Numero_Tinta(Tinta tinta);

/// Colour of the lines that frame parts of a form.
QColor Colore_Cornice();

/// A colour for writing on a ground: the same as long as it can be read there, otherwise as much darker, on a
/// dark ground lighter, as it takes.
QColor Colore_Leggibile(const QColor &scritta, const QColor &fondo);

/// Thickness of a line, in pixels: as fine on a large screen as on a small one. @param volte how many times.
int Spessore_Linea(int volte = 1);

/// The name of the type family used on screen.
QString Carattere_Normale();
QString Carattere_Fisso();

/// The smallest type that a text is set in to fit its place, in pixels.
int Carattere_Minimo();

/// Lays style, palette and style sheet on the application.
void Aspetto_Applica(QApplication &applicazione);
