// On Fusion, which keeps a picture of each bar and arrow it draws under the number of the palette. A style
// sheet gives every list a palette of its own, under a number of its own: a station that is never closed
// would be left with pictures, and with names of pictures for ever, of every list that was open.
#include "toolkit/stile_barre.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

class StileBarre : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    void drawComplexControl(ComplexControl controllo, const QStyleOptionComplex *come, QPainter *pennello,
                            const QWidget *widget) const override
    {
        const auto *barra = qstyleoption_cast<const QStyleOptionSlider *>(come);
        if (controllo != CC_ScrollBar || barra == nullptr) {
            QProxyStyle::drawComplexControl(controllo, come, pennello, widget);
            return;
        }
        QStyleOptionSlider comune = *barra;
        comune.palette = QApplication::palette();
        QProxyStyle::drawComplexControl(controllo, &comune, pennello, widget);
    }

    void drawPrimitive(PrimitiveElement elemento, const QStyleOption *come, QPainter *pennello,
                       const QWidget *widget) const override
    {
        if (!E_Freccia(elemento)) {
            QProxyStyle::drawPrimitive(elemento, come, pennello, widget);
            return;
        }
        QStyleOption comune = *come;
        comune.palette = QApplication::palette();
        QProxyStyle::drawPrimitive(elemento, &comune, pennello, widget);
    }

private:
    static bool E_Freccia(PrimitiveElement elemento)
    {
        return elemento == PE_IndicatorArrowDown || elemento == PE_IndicatorArrowUp ||
               elemento == PE_IndicatorArrowLeft || elemento == PE_IndicatorArrowRight;
    }
};

} // namespace

QStyle *Stile_Nuovo()
{
    return new StileBarre(QStyleFactory::create(QStringLiteral("Fusion")));
}
