// The tick of a check box and of a line that is done: drawn, since not every type has the sign.
#pragma once

#include <QRectF>

class QPainter;

/// Draws it into a place, in the colour of the painter's pen. @param spessore of its line, in pixels.
void Segno_Spunta(QPainter &pennello, const QRectF &posto, qreal spessore);
