// Two strokes, in parts of their place.
#include "toolkit/segno_spunta.h"

#include <QPainter>

void Segno_Spunta(QPainter &pennello, const QRectF &posto, qreal spessore)
{
    const auto punto = [&posto](qreal x, qreal y) {
        return posto.topLeft() + QPointF(posto.width() * x, posto.height() * y);
    };
    pennello.setRenderHint(QPainter::Antialiasing);
    pennello.setPen(QPen(pennello.pen().color(), spessore));
    pennello.drawPolyline(QPolygonF({punto(0.0, 0.54), punto(0.36, 1.0), punto(1.0, 0.0)}));
}
