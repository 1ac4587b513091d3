// The combo box on Qt's, with an arrow of its own.
#include "toolkit/casella_combinata.h"

#include "platform/errore_esecuzione.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyle>
#include <QStylePainter>

namespace {

/// Draws its own arrow: that of the style is as small on a large screen as on a small one.
class WidgetCombinata : public QComboBox
{
public:
    using QComboBox::QComboBox;
    QRect Parte(QStyle::SubControl parte) const
    {
        QStyleOptionComboBox opzione;
        initStyleOption(&opzione);
        return style()->subControlRect(QStyle::CC_ComboBox, &opzione, parte, this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter pennello(this);
        QStyleOptionComboBox opzione;
        initStyleOption(&opzione);
        pennello.drawComplexControl(QStyle::CC_ComboBox, opzione);
        pennello.drawControl(QStyle::CE_ComboBoxLabel, opzione);
        const QRectF freccia = Parte(QStyle::SC_ComboBoxArrow);
        const qreal lato = freccia.width() / 4;
        const QPointF centro = freccia.center();
        pennello.setRenderHint(QPainter::Antialiasing);
        pennello.setPen(Qt::NoPen);
        pennello.setBrush(palette().color(QPalette::Text));
        pennello.drawPolygon(QPolygonF({centro + QPointF(-lato, -lato / 2), centro + QPointF(lato, -lato / 2),
                                        centro + QPointF(0, lato / 2)}));
    }
};

} // namespace

CasellaCombinata::CasellaCombinata(QWidget *finestra, const QString &nome)
    : Controllo(new WidgetCombinata(finestra), nome)
{
    Combo()->setFocusPolicy(Qt::StrongFocus); // a turn of the wheel over it does not take the focus
    QObject::connect(Combo(), &QComboBox::activated, Combo(), [this] {
        if (Click)
            Click();
    });
}

QComboBox *CasellaCombinata::Combo() const
{
    return static_cast<QComboBox *>(Widget());
}

void CasellaCombinata::AddItem(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Combo()->addItem(testo);
    if (Combo()->count() == 1)
        Combo()->setCurrentIndex(-1); // nothing is chosen until somebody chooses
    Adatta();
}

bool CasellaCombinata::Entra() const
{
    if (Widget() == nullptr)
        return true;
    const int spazio =
        static_cast<const WidgetCombinata *>(Widget())->Parte(QStyle::SC_ComboBoxEditField).width();
    for (int i = 0; i < Combo()->count(); ++i) {
        if (Combo()->fontMetrics().horizontalAdvance(Combo()->itemText(i)) > spazio)
            return false;
    }
    return true;
}

void CasellaCombinata::Clear()
{
    if (Widget() != nullptr)
        Combo()->clear();
}

QWidget *CasellaCombinata::Elenco() const
{
    return Widget() != nullptr ? Combo()->view() : nullptr;
}

QString CasellaCombinata::Text() const
{
    return Widget() != nullptr ? Combo()->currentText() : QString();
}

void CasellaCombinata::Text(const QString &testo)
{
    if (Widget() != nullptr)
        Combo()->setCurrentIndex(Combo()->findText(testo));
}

qint16 CasellaCombinata::ListIndex() const
{
    return Widget() != nullptr ? Intero16(Combo()->currentIndex()) : qint16{-1};
}

void CasellaCombinata::ListIndex(qint16 indice)
{
    if (Widget() == nullptr)
        return;
    if (indice < -1 || indice >= Combo()->count())
        Solleva(NumeroErrore::ValoreProprietaErrato);
    Combo()->setCurrentIndex(indice);
}
