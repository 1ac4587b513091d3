#include "tests/forms/lettere_prova.h"

#include "toolkit/modulo.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace {

/// Takes every text that is painted on it, with the type that it is painted in, and paints nothing.
class Uditore : public QPaintEngine
{
public:
    Uditore() : QPaintEngine(QPaintEngine::AllFeatures) {}
    double Minimo() const { return m_minimo; }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath &) override {}
    void drawTextItem(const QPointF &, const QTextItem &testo) override
    {
        if (testo.text().trimmed().isEmpty())
            return;
        const double altezza = QFontMetricsF(testo.font()).capHeight() * std::abs(state->transform().m22());
        m_minimo = m_minimo == 0 ? altezza : std::min(m_minimo, altezza);
    }
    Type type() const override { return User; }

private:
    double m_minimo = 0;
};

class Foglio : public QPaintDevice
{
public:
    explicit Foglio(const QWidget *widget) : m_widget(widget) {}
    double Minimo() const { return m_uditore.Minimo(); }
    QPaintEngine *paintEngine() const override { return &m_uditore; }

protected:
    int metric(PaintDeviceMetric quale) const override
    {
        switch (quale) {
        case PdmWidth:
            return m_widget->width();
        case PdmHeight:
            return m_widget->height();
        case PdmWidthMM:
            return m_widget->widthMM();
        case PdmHeightMM:
            return m_widget->heightMM();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget->logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget->logicalDpiY();
        case PdmDepth:
            return m_widget->depth();
        case PdmNumColors:
            return m_widget->colorCount();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    const QWidget *m_widget;
    mutable Uditore m_uditore;
};

double Bersaglio_Di(const QWidget *widget)
{
    const auto *lista = qobject_cast<const QListWidget *>(widget);
    if (lista != nullptr && lista->selectionMode() != QAbstractItemView::NoSelection)
        return lista->count() > 0 ? lista->visualItemRect(lista->item(0)).height() : 0;
    return qobject_cast<const QPushButton *>(widget) != nullptr ? widget->height() : 0;
}

} // namespace

double Maiuscole_Di(QWidget *widget)
{
    Foglio foglio(widget);
    // A form paints under its controls; a list's lines are painted by a part of the list.
    const bool parti = qobject_cast<QListWidget *>(widget) != nullptr;
    widget->render(&foglio, QPoint(), QRegion(),
                   parti ? QWidget::DrawChildren : QWidget::RenderFlags(QWidget::DrawWindowBackground));
    return foglio.Minimo();
}

QList<Lettere> Lettere_Di(const Modulo &modulo)
{
    QList<Lettere> tutte;
    QList<QWidget *> widget =
        modulo.Finestra()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    widget.prepend(modulo.Finestra());
    for (QWidget *uno : std::as_const(widget)) {
        if (!uno->isVisible() || (uno->isWindow() && uno != modulo.Finestra()))
            continue;
        const Lettere sue = {uno->objectName(), Maiuscole_Di(uno), Bersaglio_Di(uno)};
        if (sue.maiuscole > 0 || sue.bersaglio > 0)
            tutte.append(sue);
    }
    return tutte;
}
