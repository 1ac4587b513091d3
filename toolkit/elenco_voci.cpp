// The list on Qt's, which tells of a choice once.
#include "toolkit/elenco_voci.h"

#include "platform/errore_esecuzione.h"
#include "toolkit/fondo_elenco.h"

#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace {

/// A list that tells of every line that becomes the chosen one: with the keys or an assistive technology as
/// soon as it changes, with the mouse when a button, whichever, is let go. Coming to the list chooses
/// nothing: the toolkit would make the first line the current one.
class WidgetElenco : public QListWidget
{
    Q_OBJECT

public:
    explicit WidgetElenco(QWidget *finestra) : QListWidget(finestra)
    {
        connect(this, &QListWidget::currentRowChanged, this, [this](int riga) {
            if (riga >= 0 && !m_premuto)
                Q_EMIT Scelta();
        });
        // An assistive technology selects a line without making it the current one.
        connect(this, &QListWidget::itemSelectionChanged, this, [this] {
            const QModelIndexList scelte = selectedIndexes();
            if (!m_premuto && scelte.size() == 1)
                setCurrentRow(scelte.first().row());
        });
    }

Q_SIGNALS:
    void Scelta();

protected:
    void focusInEvent(QFocusEvent *evento) override
    {
        // Not the item view's own: it would choose the first line when the keyboard comes in.
        QAbstractScrollArea::focusInEvent(evento); // NOLINT(bugprone-parent-virtual-call)
        viewport()->update();
    }
    void mousePressEvent(QMouseEvent *evento) override
    {
        m_premuto = true;
        m_prima = currentRow();
        QListWidget::mousePressEvent(evento);
    }
    void mouseReleaseEvent(QMouseEvent *evento) override
    {
        QListWidget::mouseReleaseEvent(evento);
        m_premuto = false;
        // Below the last line there is nothing to choose.
        const bool suUnaRiga = itemAt(evento->position().toPoint()) != nullptr;
        if (currentRow() >= 0 && (suUnaRiga || currentRow() != m_prima))
            Q_EMIT Scelta();
    }

private:
    bool m_premuto = false;
    int m_prima = -1; // the line that was chosen when the button went down
};

} // namespace

ElencoVoci::ElencoVoci(QWidget *finestra, const QString &nome) : Controllo(new WidgetElenco(finestra), nome)
{
    Fai<WidgetElenco>([this](WidgetElenco &lista) {
        lista.setUniformItemSizes(true);
        Fondo_AllElenco(lista);
        QObject::connect(&lista, &WidgetElenco::Scelta, &lista, [this] { Click(); });
    });
}

void ElencoVoci::AddItem(const QString &testo)
{
    Fai<QListWidget>([&testo](QListWidget &lista) { lista.addItem(testo); });
}

void ElencoVoci::AddItems(const QStringList &testi)
{
    Fai<QListWidget>([&testi](QListWidget &lista) { lista.addItems(testi); });
}

void ElencoVoci::Clear()
{
    Fai<QListWidget>([](QListWidget &lista) { lista.clear(); });
}

QString ElencoVoci::List(qint32 indice) const
{
    return Chiedi<QListWidget>(QString(), [indice](const QListWidget &lista) {
        const QListWidgetItem *voce = lista.item(indice);
        return voce != nullptr ? voce->text() : QString();
    });
}

qint32 ElencoVoci::ListIndex() const
{
    return Chiedi<QListWidget>(-1, [](const QListWidget &lista) { return lista.currentRow(); });
}

void ElencoVoci::ListIndex(qint32 indice)
{
    Fai<QListWidget>([this, indice](QListWidget &lista) {
        if (indice < -1 || indice >= lista.count())
            Solleva(NumeroErrore::ValoreProprietaErrato);
        {
            const QSignalBlocker zitto(&lista);
            lista.setCurrentRow(indice);
        }
        if (indice != -1)
            Click();
    });
}

#include "elenco_voci.moc"
