// The one look of all forms: colours, type, focus. Geometry is the forms' own.
#pragma once

#include "platform/colori.h"

#include <QColor>

class QApplication;

/// What a colour of platform/colori.h looks like.
QColor Colore_Da(quint32 colore);

/// Colour of the lines that frame parts of a form.
QColor Colore_Cornice();

/// The name of the type family used on screen.
QString Carattere_Normale();
QString Carattere_Fisso();

/// Lays style, palette and style sheet on the application.
void Aspetto_Applica(QApplication &applicazione);
