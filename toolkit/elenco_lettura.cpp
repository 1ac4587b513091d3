// The list on Qt's list widget, which lays out its entries a hundred at a time: a report may have thousands.
#include "toolkit/elenco_lettura.h"

#include "toolkit/aspetto.h"
#include "toolkit/fondo_elenco.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <cmath>

namespace {

/// Characters of an entry, at most: the toolkit keeps its height, in pixels, in 16 bits.
constexpr qsizetype VOCE_LUNGA = 2000;

/// Breaks an entry between its words; a word that is longer than a line wherever the line ends.
class DelegatoLettura : public QStyledItemDelegate
{
public:
    explicit DelegatoLettura(QListWidget *lista) : QStyledItemDelegate(lista), m_lista(lista) {}

    void paint(QPainter *pennello, const QStyleOptionViewItem &opzione,
               const QModelIndex &indice) const override
    {
        pennello->fillRect(opzione.rect,
                           Colore_Tema(indice.row() % 2 == 0 ? Tinta::Campo : Tinta::CampoSpento));
        pennello->setPen(Colore_Tema(Tinta::Testo));
        QTextLayout testo(indice.data().toString(), m_lista->font());
        Spezza(testo);
        testo.draw(pennello, opzione.rect.topLeft() + QPointF(Margine(), Margine() / 2.0));
    }
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &indice) const override
    {
        QTextLayout testo(indice.data().toString(), m_lista->font());
        return {0, Spezza(testo) + Margine()}; // as wide as the list, whatever that is
    }

private:
    static int Margine() { return Spessore_Linea(6); }
    /// Lays the lines out. @return their height, in pixels.
    int Spezza(QTextLayout &testo) const
    {
        // The bar's room is always left: a list that scrolls would else be broken anew.
        const int barra = m_lista->verticalScrollBar()->sizeHint().width();
        const int largo = m_lista->contentsRect().width() - barra - 2 * Margine();
        testo.setTextOption(Come());
        testo.beginLayout();
        qreal alto = 0;
        for (QTextLine riga = testo.createLine(); riga.isValid(); riga = testo.createLine()) {
            riga.setLeadingIncluded(true);
            riga.setLineWidth(largo);
            riga.setPosition({0, alto});
            alto += riga.height();
        }
        testo.endLayout();
        return static_cast<int>(std::ceil(alto));
    }
    static QTextOption Come()
    {
        QTextOption come;
        come.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return come;
    }
    QListWidget *m_lista;
};

/// Follows a drag: the screen of a workshop may be a touch screen, which has no wheel.
class WidgetLettura : public QListWidget
{
public:
    using QListWidget::QListWidget;

protected:
    void mousePressEvent(QMouseEvent *evento) override { m_presa = Altezza(evento); }
    void mouseMoveEvent(QMouseEvent *evento) override
    {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + m_presa - Altezza(evento));
        m_presa = Altezza(evento);
    }
    void mouseReleaseEvent(QMouseEvent *) override {}
    void mouseDoubleClickEvent(QMouseEvent *evento) override { mousePressEvent(evento); }

    bool eventFilter(QObject *altro, QEvent *evento) override
    {
        const bool tasto = evento->type() == QEvent::KeyPress && altro != viewport() && isVisible();
        return (tasto && Scorri(static_cast<QKeyEvent *>(evento)->key())) ||
               QListWidget::eventFilter(altro, evento);
    }

private:
    /// @return true for a key that scrolls.
    bool Scorri(int tasto)
    {
        QScrollBar *barra = verticalScrollBar();
        switch (tasto) {
        case Qt::Key_Up:
            barra->setValue(barra->value() - fontMetrics().lineSpacing());
            return true;
        case Qt::Key_Down:
            barra->setValue(barra->value() + fontMetrics().lineSpacing());
            return true;
        case Qt::Key_PageUp:
            barra->setValue(barra->value() - barra->pageStep());
            return true;
        case Qt::Key_PageDown:
            barra->setValue(barra->value() + barra->pageStep());
            return true;
        case Qt::Key_Home:
            barra->setValue(barra->minimum());
            return true;
        case Qt::Key_End:
            barra->setValue(barra->maximum());
            return true;
        default:
            return false;
        }
    }
    static int Altezza(const QMouseEvent *evento) { return evento->position().toPoint().y(); }
    int m_presa = 0;
};

} // namespace

ElencoLettura::ElencoLettura(QWidget *finestra, const QString &nome)
    : Controllo(new WidgetLettura(finestra), nome)
{
    Fai<QListWidget>([](QListWidget &lista) {
        Fondo_AllElenco(lista);
        lista.setItemDelegate(new DelegatoLettura(&lista));
        lista.setFocusPolicy(Qt::NoFocus);
        lista.setSelectionMode(QAbstractItemView::NoSelection);
        lista.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        lista.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        lista.setWordWrap(true);
        lista.setResizeMode(QListView::Adjust);
        lista.setLayoutMode(QListView::Batched);
    });
}

void ElencoLettura::Testo(const QString &testo)
{
    Fai<QListWidget>([&testo](QListWidget &lista) {
        lista.clear();
        for (const QString &riga : testo.split(u'\n')) {
            const QString voce = riga.trimmed();
            for (qsizetype da = 0; da < voce.size(); da += VOCE_LUNGA)
                lista.addItem(voce.mid(da, VOCE_LUNGA));
        }
    });
}

void ElencoLettura::Tasti_Di(const Controllo &controllo)
{
    Fai([&controllo](QWidget &lista) {
        controllo.Fai([&lista](QWidget &suo) { suo.installEventFilter(&lista); });
    });
}
