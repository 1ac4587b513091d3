// The check box on Qt's, drawn by ourselves.
#include "toolkit/casella_spunta.h"

#include "toolkit/aspetto.h"
#include "toolkit/segno_spunta.h"

#include <QCheckBox>
#include <QPainter>

#include <algorithm>

namespace {

/// A click anywhere in its place counts, as it does for the other controls. It has no text of its own; the
/// box grows with the type.
class WidgetSpunta : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    bool hitButton(const QPoint &punto) const override { return rect().contains(punto); }
    void paintEvent(QPaintEvent *) override
    {
        const bool fuoco = hasFocus();
        const qreal linea = Spessore_Linea(fuoco ? 2 : 1);
        const qreal lato = std::min<qreal>(fontMetrics().ascent() * LATO, height() - linea);
        const QRectF casella(linea, (height() - lato) / 2, lato, lato);
        QPainter pennello(this);
        pennello.setRenderHint(QPainter::Antialiasing);
        pennello.setPen(QPen(Colore_Tema(fuoco ? Tinta::Fuoco : Tinta::Cornice), linea));
        pennello.setBrush(Colore_Tema(isEnabled() ? Tinta::Campo : Tinta::CampoSpento));
        pennello.drawRect(casella);
        if (!isChecked())
            return;
        const QRectF posto = casella.adjusted(lato * 0.22, lato * 0.25, -lato * 0.22, -lato * 0.25);
        pennello.setPen(palette().color(QPalette::WindowText));
        Segno_Spunta(pennello, posto, lato / 7);
    }

private:
    static constexpr qreal LATO = 1.3;
};

} // namespace

CasellaSpunta::CasellaSpunta(QWidget *finestra, const QString &nome)
    : Controllo(new WidgetSpunta(finestra), nome)
{
    Fai<QCheckBox>([this](QCheckBox &spunta) {
        QObject::connect(&spunta, &QCheckBox::toggled, &spunta, [this] { Click(); });
    });
}

qint16 CasellaSpunta::Value() const
{
    return Chiedi<QCheckBox>(qint16{0}, [](const QCheckBox &spunta) { return qint16{spunta.isChecked()}; });
}

void CasellaSpunta::Value(qint16 valore)
{
    Fai<QCheckBox>([valore](QCheckBox &spunta) { spunta.setChecked(valore == 1); });
}
