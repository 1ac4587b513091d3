// The drawing of such a line, and its mark. What the columns hold is not known here.
#include "toolkit/elenco_colonne.h"

#include "toolkit/aspetto.h"
#include "toolkit/controlli.h"
#include "toolkit/schermo.h"
#include "toolkit/segno_spunta.h"

#include <QApplication>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int RUOLO_FATTA = Qt::UserRole;
constexpr double PUNTI_SISTEMA =
    12; // the type that a tab stop is counted in: it does not grow with the screen
constexpr double SECONDA_PIU_GRANDE = 1.2;
constexpr double SPUNTA_LARGA = 0.6; // of the type's height

class DelegatoColonne : public QStyledItemDelegate
{
public:
    DelegatoColonne(QObject *padre, int posto, int alta)
        : QStyledItemDelegate(padre), m_posto(posto), m_alta(alta)
    {
    }

    void paint(QPainter *pennello, const QStyleOptionViewItem &opzione,
               const QModelIndex &indice) const override
    {
        QStyledItemDelegate::paint(pennello, opzione, indice); // the ground alone
        pennello->save();
        const QString testo = indice.data().toString();
        const bool fatta = indice.data(RUOLO_FATTA).toBool();
        pennello->setPen(Colore(opzione, fatta));
        QRect prima = opzione.rect.adjusted(Spessore_Linea(3), 0, 0, 0);
        prima.setRight(opzione.rect.left() + m_posto - Spessore_Linea(3));
        Scrivi(*pennello, opzione.font, prima, testo.section(u'\t', 0, 0));
        QRect seconda = opzione.rect.adjusted(m_posto, 0, 0, 0);
        if (fatta) {
            const int lato = static_cast<int>(opzione.fontMetrics.height() * SPUNTA_LARGA);
            seconda.adjust(0, 0, -lato * 3 / 2, 0);
            Segno_Spunta(*pennello,
                         QRectF(seconda.right() + lato / 4.0, seconda.center().y() - lato / 2.0, lato, lato),
                         lato / 6.0);
        }
        QFont grande = opzione.font;
        grande.setBold(true);
        grande.setPixelSize(static_cast<int>(grande.pixelSize() * SECONDA_PIU_GRANDE));
        Scrivi(*pennello, grande, seconda, testo.section(u'\t', 1));
        pennello->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem &opzione, const QModelIndex &indice) const override
    {
        QSize grandezza = QStyledItemDelegate::sizeHint(opzione, indice);
        grandezza.setHeight(
            std::max(m_alta, static_cast<int>(opzione.fontMetrics.height() * SECONDA_PIU_GRANDE)));
        return grandezza;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *opzione, const QModelIndex &indice) const override
    {
        QStyledItemDelegate::initStyleOption(opzione, indice);
        opzione->text.clear();
    }

private:
    static QColor Colore(const QStyleOptionViewItem &opzione, bool fatta)
    {
        if (opzione.state & QStyle::State_Selected)
            return opzione.palette.color(QPalette::HighlightedText);
        return fatta ? Colore_Tema(Tinta::TestoSpento) : opzione.palette.color(QPalette::Text);
    }
    static void Scrivi(QPainter &pennello, const QFont &carattere, const QRect &posto, const QString &testo)
    {
        pennello.setFont(carattere);
        const QString mostrato = QFontMetrics(carattere).elidedText(testo, Qt::ElideRight, posto.width());
        pennello.drawText(posto, Qt::AlignVCenter | Qt::TextSingleLine, mostrato);
    }

    int m_posto;
    int m_alta;
};

} // namespace

qint32 Elenco_Colonne(ElencoVoci &elenco, qint32 unita, int righe)
{
    qint32 seconda = 0;
    elenco.Fai<QListWidget>([&](QListWidget &lista) {
        QFont sistema = QApplication::font();
        sistema.setPixelSize(Pixel_Interi(PUNTI_SISTEMA));
        const int posto = unita * QFontMetrics(sistema).averageCharWidth() / 4;
        const int alta = (lista.height() - 2 * lista.frameWidth()) / righe;
        lista.setItemDelegate(new DelegatoColonne(&lista, posto, alta));
        seconda = Twip_DaPixel(posto);
    });
    return seconda;
}

void Elenco_Fatta(ElencoVoci &elenco, qint32 riga, bool fatta, const QString &parola)
{
    elenco.Fai<QListWidget>([&](QListWidget &lista) {
        QListWidgetItem *voce = lista.item(riga);
        if (voce == nullptr || voce->data(RUOLO_FATTA).toBool() == fatta)
            return;
        voce->setData(RUOLO_FATTA, fatta);
        voce->setData(Qt::AccessibleDescriptionRole, fatta ? parola : QVariant());
    });
}
