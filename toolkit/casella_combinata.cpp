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
    Fai<QComboBox>([this](QComboBox &combo) {
        combo.setFocusPolicy(Qt::StrongFocus); // a turn of the wheel over it does not take the focus
        QObject::connect(&combo, &QComboBox::activated, &combo, [this] { Click(); });
    });
}

void CasellaCombinata::AddItem(const QString &testo)
{
    Fai<QComboBox>([&testo](QComboBox &combo) {
        combo.addItem(testo);
        if (combo.count() == 1)
            combo.setCurrentIndex(-1); // nothing is chosen until somebody chooses
    });
    Adatta();
}

bool CasellaCombinata::Entra() const
{
    return Chiedi<WidgetCombinata>(true, [](const WidgetCombinata &combo) {
        const int spazio = combo.Parte(QStyle::SC_ComboBoxEditField).width();
        for (int i = 0; i < combo.count(); ++i) {
            if (combo.fontMetrics().horizontalAdvance(combo.itemText(i)) > spazio)
                return false;
        }
        return true;
    });
}

void CasellaCombinata::Clear()
{
    Fai<QComboBox>([](QComboBox &combo) { combo.clear(); });
}

QWidget *CasellaCombinata::Elenco() const
{
    QWidget *elenco = nullptr;
    Fai<QComboBox>([&elenco](QComboBox &combo) { elenco = combo.view(); });
    return elenco;
}

QString CasellaCombinata::Text() const
{
    return Chiedi<QComboBox>(QString(), [](const QComboBox &combo) { return combo.currentText(); });
}

void CasellaCombinata::Text(const QString &testo)
{
    Fai<QComboBox>([&testo](QComboBox &combo) { combo.setCurrentIndex(combo.findText(testo)); });
}

qint16 CasellaCombinata::ListIndex() const
{
    return Chiedi<QComboBox>(qint16{-1},
                             [](const QComboBox &combo) { return Intero16(combo.currentIndex()); });
}

void CasellaCombinata::ListIndex(qint16 indice)
{
    Fai<QComboBox>([indice](QComboBox &combo) {
        if (indice < -1 || indice >= combo.count())
            Solleva(NumeroErrore::ValoreProprietaErrato);
        combo.setCurrentIndex(indice);
    });
}
