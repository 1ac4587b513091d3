// The shape, drawn by ourselves.
#include "toolkit/forma.h"

#include "platform/colore_qt.h"
#include "toolkit/aspetto.h"

#include <QPainter>

namespace {

class WidgetForma : public QWidget
{
public:
    WidgetForma(QWidget *finestra, Forma::Aspetto aspetto) : QWidget(finestra), m_aspetto(aspetto) {}
    void Colora(const QColor &colore)
    {
        m_colore = colore;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter pennello(this);
        pennello.setRenderHint(QPainter::Antialiasing);
        const qreal linea = Spessore_Linea(2);
        pennello.setPen(QPen(Colore_Tema(Tinta::TestoSpento), linea));
        pennello.setBrush(m_colore);
        const QRectF posto = QRectF(rect()).adjusted(linea / 2, linea / 2, -linea / 2, -linea / 2);
        if (m_aspetto == Forma::Cerchio)
            pennello.drawEllipse(posto);
        else
            pennello.drawRect(posto);
    }

private:
    Forma::Aspetto m_aspetto;
    QColor m_colore = Qt::white;
};

} // namespace

Forma::Forma(QWidget *finestra, const QString &nome, Aspetto aspetto)
    : Controllo(new WidgetForma(finestra, aspetto), nome)
{
}

void Forma::FillColor(quint32 colore)
{
    Fai<WidgetForma>([colore](WidgetForma &forma) { forma.Colora(Colore_Da(colore)); });
}
