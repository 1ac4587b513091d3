// The list on Qt's list widget, which lays out its entries a hundred at a time: a report may have thousands.
#include "toolkit/elenco_lettura.h"

#include "toolkit/aspetto.h"

#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

/// Characters of an entry, at most: the toolkit keeps its height, in pixels, in 16 bits.
constexpr qsizetype VOCE_LUNGA = 2000;

/// Breaks an entry wherever its line ends: a key of an acceptance file may be one long word.
class DelegatoLettura : public QStyledItemDelegate
{
public:
    explicit DelegatoLettura(QListWidget *lista) : QStyledItemDelegate(lista), m_lista(lista) {}

    void paint(QPainter *pennello, const QStyleOptionViewItem &opzione,
               const QModelIndex &indice) const override
    {
        pennello->fillRect(opzione.rect,
                           Colore_Tema(indice.row() % 2 == 0 ? Tinta::Campo : Tinta::CampoSpento));
        pennello->setFont(m_lista->font());
        pennello->setPen(Colore_Tema(Tinta::Testo));
        pennello->drawText(opzione.rect.adjusted(Margine(), Margine() / 2, -Margine(), 0), COME,
                           indice.data().toString());
    }
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &indice) const override
    {
        // The bar's room is always left: a list that scrolls would else be broken anew.
        const int barra = m_lista->verticalScrollBar()->sizeHint().width();
        const QRect posto(0, 0, m_lista->contentsRect().width() - barra - 2 * Margine(), QWIDGETSIZE_MAX);
        const QRect testo = m_lista->fontMetrics().boundingRect(posto, COME, indice.data().toString());
        return {0, testo.height() + Margine()}; // as wide as the list, whatever that is
    }

private:
    static constexpr int COME = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | Qt::TextWrapAnywhere;
    static int Margine() { return Spessore_Linea(6); }
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

private:
    static int Altezza(const QMouseEvent *evento) { return evento->position().toPoint().y(); }
    int m_presa = 0;
};

} // namespace

ElencoLettura::ElencoLettura(QWidget *finestra, const QString &nome)
    : Controllo(new WidgetLettura(finestra), nome)
{
    Lista()->setItemDelegate(new DelegatoLettura(Lista()));
    Lista()->setFocusPolicy(Qt::NoFocus);
    Lista()->setSelectionMode(QAbstractItemView::NoSelection);
    Lista()->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    Lista()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Lista()->setWordWrap(true);
    Lista()->setResizeMode(QListView::Adjust);
    Lista()->setLayoutMode(QListView::Batched);
}

QListWidget *ElencoLettura::Lista() const
{
    return static_cast<QListWidget *>(Widget());
}

void ElencoLettura::Testo(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Lista()->clear();
    for (const QString &riga : testo.split(u'\n')) {
        const QString voce = riga.trimmed();
        for (qsizetype da = 0; da < voce.size(); da += VOCE_LUNGA)
            Lista()->addItem(voce.mid(da, VOCE_LUNGA));
    }
}

bool ElencoLettura::Scorri(int tasto)
{
    if (Widget() == nullptr)
        return false;
    QScrollBar *barra = Lista()->verticalScrollBar();
    const int riga = Lista()->fontMetrics().lineSpacing();
    switch (tasto) {
    case Qt::Key_Up:
        barra->setValue(barra->value() - riga);
        return true;
    case Qt::Key_Down:
        barra->setValue(barra->value() + riga);
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
