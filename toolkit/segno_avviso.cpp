// A triangle with an exclamation mark. It knows no control that shows it.
#include "toolkit/segno_avviso.h"

#include <QPainter>

namespace {

constexpr QRgb AMBRA = 0xFFFFC107;
constexpr QRgb SCURO = 0xFF3A2A00; // on the amber it can be told at any size

} // namespace

QPixmap Segno_Avviso(int lato)
{
    QPixmap segno(lato, lato);
    segno.fill(Qt::transparent);
    QPainter pennello(&segno);
    pennello.setRenderHint(QPainter::Antialiasing);
    pennello.scale(lato / 100.0, lato / 100.0);
    pennello.setPen(QPen(QColor::fromRgb(SCURO), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    pennello.setBrush(QColor::fromRgb(AMBRA));
    pennello.drawPolygon(QPolygonF({
        {50, 9 },
        {95, 89},
        {5,  89}
    }));
    pennello.setPen(Qt::NoPen);
    pennello.setBrush(QColor::fromRgb(SCURO));
    pennello.drawPolygon(QPolygonF({
        {44,   34},
        {56,   34},
        {53.5, 64},
        {46.5, 64}
    }));
    pennello.drawEllipse(QPointF(50, 75), 5.5, 5.5);
    return segno;
}
