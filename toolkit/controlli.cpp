// The controls on Qt's widgets, with what the toolkit lacks: pictures that follow their place, labels that
// break anywhere, a tab stop in a list. It knows no form and no row of a table.
#include "toolkit/controlli.h"

#include "platform/colore_qt.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "platform/una_riga.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"
#include "toolkit/segno_avviso.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStylePainter>
#include <QStyledItemDelegate>
#include <QValidator>

#include <algorithm>
#include <cmath>
#include <utility>

// --- widgets of our own -----------------------------------------------------------------------------------

namespace {

/// Width that a character adds to its line at least: none when the layout may hide it or let it hang over.
int Larghezza_Certa(QChar carattere, const QFontMetrics &metrica)
{
    const bool incerto =
        carattere.isSpace() || carattere.isMark() || carattere.category() == QChar::Other_Format;
    return incerto ? 0 : metrica.horizontalAdvance(carattere);
}

/// How many lines leave nothing of a place free, whatever a layout saves: twice as many as it has.
int Righe_Abbondanti(const QSize &posto, const QFontMetrics &metrica)
{
    return 2 * (posto.height() / metrica.lineSpacing() + 1);
}

/// True when the letters of a text cannot stand in a place, in whatever way its lines are broken. It reads no
/// further than it takes to know.
bool Trabocca(const QString &testo, const QSize &posto, const QFontMetrics &metrica)
{
    qint64 libero = qint64{posto.width()} * Righe_Abbondanti(posto, metrica);
    for (const QChar carattere : testo) {
        libero -= Larghezza_Certa(carattere, metrica);
        if (libero < 0)
            return true;
    }
    return false;
}

/// How many characters of a text leave nothing of a place free. A word that is wider than the place takes one
/// line of it.
qsizetype Quanto_Riempie(const QString &testo, const QSize &posto, const QFontMetrics &metrica)
{
    const int righe = Righe_Abbondanti(posto, metrica);
    int piene = 0;
    int riga = 0;   // width of the words that stand in the present line
    int parola = 0; // width of the present word
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (!testo[i].isSpace()) {
            if (parola < posto.width())
                parola += Larghezza_Certa(testo[i], metrica);
            continue;
        }
        const bool nuova = riga > 0 && riga + parola > posto.width();
        riga = nuova ? parola : riga + parola;
        parola = 0;
        piene += nuova;
        if (testo[i] == u'\n') {
            riga = 0;
            ++piene;
        }
        if (piene >= righe)
            return i;
    }
    return testo.size();
}

class WidgetEtichetta : public QLabel
{
public:
    using QLabel::QLabel;
    bool spezza = false;

    /// True when no ink of the text falls outside. The line of a text is higher than its letters: where they
    /// have room, the line may stick out.
    bool Entra() const
    {
        if (text().isEmpty())
            return true;
        if (Trabocca(text(), size(), fontMetrics()))
            return false;
        const int fuori = (spezza ? Altezza_Spezzata() : heightForWidth(width())) - height();
        if (fuori > fontMetrics().height())
            return false; // more than a line
        if (!spezza && minimumSizeHint().width() > width())
            return false; // its longest word
        const QRect lettere = fontMetrics().tightBoundingRect(text());
        const int sopra = fontMetrics().ascent() + lettere.top();
        const int sotto = fontMetrics().descent() - 1 - lettere.bottom();
        if (alignment() & Qt::AlignTop)
            return fuori <= sotto;
        if (alignment() & Qt::AlignBottom)
            return fuori <= sopra;
        return (fuori + 1) / 2 <= std::min(sopra, sotto);
    }

protected:
    void paintEvent(QPaintEvent *evento) override
    {
        if (!spezza) {
            QLabel::paintEvent(evento);
            return;
        }
        QPainter pennello(this);
        pennello.setPen(palette().color(QPalette::WindowText));
        pennello.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWrapAnywhere, text());
    }

private:
    int Altezza_Spezzata() const
    {
        return fontMetrics()
            .boundingRect(0, 0, width(), QWIDGETSIZE_MAX, Qt::TextWrapAnywhere, text())
            .height();
    }
};

/// A picture that follows the size of its place.
class WidgetImmagine : public QLabel
{
public:
    using QLabel::QLabel;
    void Mostra(const QPixmap &immagine)
    {
        m_immagine = immagine;
        Adatta();
    }

protected:
    void resizeEvent(QResizeEvent *evento) override
    {
        QLabel::resizeEvent(evento);
        Adatta();
    }

private:
    void Adatta()
    {
        if (m_immagine.isNull() || size().isEmpty())
            return;
        const qreal densita = devicePixelRatioF();
        QPixmap adattata = m_immagine.scaled(size() * densita, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        adattata.setDevicePixelRatio(densita);
        setPixmap(adattata);
    }
    QPixmap m_immagine;
};

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

/// A box holds one line. The toolkit asks a validator whatever way a text comes: typed, pasted, dropped, from
/// an input method, an assistive technology or the program.
class UnaRigaSola : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString &testo, int &cursore) const override
    {
        // What came in ends at the cursor. What the box held behind it stays.
        const QString prima = Una_Riga(testo.left(cursore));
        testo = prima + Una_Riga(testo.mid(cursore));
        cursore = static_cast<int>(prima.size());
        return Acceptable;
    }
};

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
        const auto punto = [&casella](qreal x, qreal y) {
            return casella.topLeft() + QPointF(casella.width() * x, casella.height() * y);
        };
        pennello.setPen(QPen(palette().color(QPalette::WindowText), lato / 7));
        pennello.drawPolyline(QPolygonF({punto(0.22, 0.52), punto(0.42, 0.75), punto(0.78, 0.25)}));
    }

private:
    static constexpr qreal LATO = 1.3;
};

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

/// A list that tells of every line that becomes the chosen one: with the keys or an assistive technology as
/// soon as it changes, with the mouse when a button, whichever, is let go. Coming to the list chooses
/// nothing: the toolkit would make the first line the current one.
class WidgetElenco : public QListWidget
{
public:
    explicit WidgetElenco(QWidget *finestra) : QListWidget(finestra)
    {
        connect(this, &QListWidget::currentRowChanged, this, [this](int riga) {
            if (riga >= 0 && !m_premuto)
                scelta();
        });
        // An assistive technology selects a line without making it the current one.
        connect(this, &QListWidget::itemSelectionChanged, this, [this] {
            const QModelIndexList scelte = selectedIndexes();
            if (!m_premuto && scelte.size() == 1)
                setCurrentRow(scelte.first().row());
        });
    }
    std::function<void()> scelta;

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
            scelta();
    }

private:
    bool m_premuto = false;
    int m_prima = -1; // the line that was chosen when the button went down
};

/// Draws both columns of a line, the second at the tab stop, in lines that a finger finds.
class DelegatoTabulazione : public QStyledItemDelegate
{
public:
    DelegatoTabulazione(QObject *padre, int posto) : QStyledItemDelegate(padre), m_posto(posto) {}

    void paint(QPainter *pennello, const QStyleOptionViewItem &opzione,
               const QModelIndex &indice) const override
    {
        const QString testo = indice.data().toString();
        QRect prima = opzione.rect.adjusted(Spessore_Linea(3), 0, 0, 0);
        prima.setRight(opzione.rect.left() + m_posto - 1);
        QStyledItemDelegate::paint(pennello, opzione, indice);
        pennello->save();
        const bool scelta = opzione.state & QStyle::State_Selected;
        pennello->setPen(opzione.palette.color(scelta ? QPalette::HighlightedText : QPalette::Text));
        pennello->drawText(prima, Qt::AlignVCenter, testo.section(u'\t', 0, 0));
        pennello->drawText(opzione.rect.adjusted(m_posto, 0, 0, 0), Qt::AlignVCenter,
                           testo.section(u'\t', 1));
        pennello->restore();
    }
    QSize sizeHint(const QStyleOptionViewItem &opzione, const QModelIndex &indice) const override
    {
        QSize misura = QStyledItemDelegate::sizeHint(opzione, indice);
        misura.setHeight(opzione.fontMetrics.height() * 3 / 2);
        return misura;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *opzione, const QModelIndex &indice) const override
    {
        QStyledItemDelegate::initStyleOption(opzione, indice);
        opzione->text.clear(); // the style paints the ground alone
    }

private:
    int m_posto;
};

} // namespace

// --- Controllo --------------------------------------------------------------------------------------------

namespace {

int Pixel_Interi(double punti)
{
    return std::max(1, static_cast<int>(std::lround(Pixel_DaPunti(punti))));
}

} // namespace

Controllo::Controllo(QWidget *widget, const QString &nome) : m_widget(widget)
{
    widget->setObjectName(nome);
    m_punti = Punti_Normali();
    Carattere_Pixel(Pixel_Interi(m_punti));
}

Controllo::~Controllo()
{
    if (m_widget == nullptr || QCoreApplication::instance() == nullptr)
        return; // a form of the whole program's life goes after the screen has gone
    // It may be the very widget whose event is being handled: it goes when the loop has control again. Only
    // its own handlers fall silent: others, such as the accessibility bus, must hear of its end.
    QObject::disconnect(m_widget, nullptr, m_widget, nullptr);
    m_widget->hide();
    m_widget->deleteLater();
}

void Controllo::Left(qint32 twip)
{
    Posto(twip, m_top, m_width, m_height);
}
void Controllo::Top(qint32 twip)
{
    Posto(m_left, twip, m_width, m_height);
}
void Controllo::Width(qint32 twip)
{
    Posto(m_left, m_top, twip, m_height);
}
void Controllo::Height(qint32 twip)
{
    Posto(m_left, m_top, m_width, twip);
}

void Controllo::Posto(qint32 left, qint32 top, qint32 width, qint32 height)
{
    m_left = left;
    m_top = top;
    m_width = width;
    m_height = height;
    Disponi();
}

void Controllo::Disponi()
{
    if (m_widget == nullptr)
        return;
    // Edges are mapped, not sizes, so that neighbours meet without a gap.
    const int x = Pixel_DaTwip(m_left);
    const int y = Pixel_DaTwip(m_top);
    m_widget->setGeometry(x, y, Pixel_DaTwip(m_left + m_width) - x, Pixel_DaTwip(m_top + m_height) - y);
    Adatta();
}

bool Controllo::Visible() const
{
    return m_widget != nullptr && !m_widget->isHidden();
}

void Controllo::Visible(bool visibile)
{
    if (m_widget != nullptr)
        m_widget->setVisible(visibile);
}

bool Controllo::Enabled() const
{
    return m_widget != nullptr && m_widget->isEnabled();
}

void Controllo::Enabled(bool abilitato)
{
    if (m_widget != nullptr)
        m_widget->setEnabled(abilitato);
}

void Controllo::FontSize(double punti)
{
    m_punti = punti;
    Adatta();
}

void Controllo::Carattere_Pixel(int pixel)
{
    QFont carattere = m_widget->font();
    carattere.setPixelSize(pixel);
    m_widget->setFont(carattere);
}

void Controllo::Adatta()
{
    if (m_widget == nullptr)
        return;
    int pixel = Pixel_Interi(m_punti);
    Carattere_Pixel(pixel);
    if (m_width == 0 || m_height == 0)
        return; // it has no place yet
    while (pixel > Carattere_Minimo() && !Entra())
        Carattere_Pixel(--pixel);
}

void Controllo::FontBold(bool grassetto)
{
    if (m_widget == nullptr)
        return;
    QFont carattere = m_widget->font();
    carattere.setBold(grassetto);
    m_widget->setFont(carattere);
    Adatta();
}

void Controllo::FontName(const QString &nome)
{
    if (m_widget == nullptr)
        return;
    QFont carattere = m_widget->font();
    carattere.setFamily(nome);
    m_widget->setFont(carattere);
    Adatta();
}

void Controllo::Stile(const QString &foglio)
{
    if (m_widget == nullptr)
        return;
    const QFont carattere = m_widget->font(); // a new style sheet forgets it
    m_widget->setStyleSheet(foglio);
    m_widget->setFont(carattere);
    Adatta();
}

void Controllo::SetFocus()
{
    if (m_widget != nullptr)
        m_widget->setFocus(Qt::OtherFocusReason);
}

void Controllo::NomeAccessibile(const QString &nome)
{
    if (m_widget != nullptr)
        m_widget->setAccessibleName(nome);
}

void Controllo::Copia_Disegno(const Controllo &modello)
{
    if (m_widget != nullptr && modello.m_widget != nullptr)
        m_widget->setFont(modello.m_widget->font());
    m_punti = modello.m_punti;
    Posto(modello.m_left, modello.m_top, modello.m_width, modello.m_height);
}

// --- Etichetta --------------------------------------------------------------------------------------------

namespace {

constexpr int LINEE_EVIDENTI = 4; // thickness of a border that stands out

} // namespace

Etichetta::Etichetta(QWidget *finestra, const QString &nome) : Controllo(new WidgetEtichetta(finestra), nome)
{
    Label()->setTextFormat(Qt::PlainText);
    Label()->setWordWrap(true);
    Label()->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QLabel *Etichetta::Label() const
{
    return static_cast<QLabel *>(Widget());
}

QString Etichetta::Caption() const
{
    return Widget() != nullptr ? Label()->text() : QString();
}

void Etichetta::Caption(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Label()->setText(testo);
    Adatta();
}

void Etichetta::ForeColor(quint32 colore)
{
    m_testo = colore;
    Colora();
}

void Etichetta::BackColor(quint32 colore)
{
    m_fondo = colore;
    Colora();
}

void Etichetta::Bordo()
{
    m_bordo = Sottile;
    Colora();
}

void Etichetta::Bordo_Evidente()
{
    m_bordo = Evidente;
    Colora();
}

void Etichetta::Colora()
{
    const QColor fondo = m_fondo ? Colore_Da(*m_fondo) : Colore_Tema(Tinta::Sfondo);
    const QColor testo = Colore_Leggibile(m_testo ? Colore_Da(*m_testo) : Colore_Tema(Tinta::Testo), fondo);
    QString regole;
    if (m_fondo)
        regole += QStringLiteral("background: %1;").arg(fondo.name());
    if (m_fondo || m_testo)
        regole += QStringLiteral("color: %1;").arg(testo.name());
    if (m_bordo != Senza)
        regole += QStringLiteral("padding: 0 %1px; border: %2px solid %3;")
                      .arg(Spessore_Linea(2))
                      .arg(Spessore_Linea(m_bordo == Evidente ? LINEE_EVIDENTI : 1))
                      .arg((m_bordo == Evidente ? testo : Colore_Cornice()).name());
    Stile(QStringLiteral("QLabel { %1 }").arg(regole));
}

void Etichetta::Allineamento(Qt::Alignment allineamento)
{
    if (Widget() == nullptr)
        return;
    Label()->setAlignment(allineamento);
    Adatta();
}

void Etichetta::SpezzaOvunque()
{
    if (Widget() == nullptr)
        return;
    static_cast<WidgetEtichetta *>(Widget())->spezza = true;
    Adatta();
}

bool Etichetta::Entra() const
{
    return Widget() == nullptr || static_cast<const WidgetEtichetta *>(Widget())->Entra();
}

void Etichetta::Etichetta_Di(const Controllo &controllo)
{
    if (Widget() != nullptr)
        Label()->setBuddy(controllo.Widget());
}

QString Etichetta::Principio(const QString &testo) const
{
    if (Widget() == nullptr)
        return testo;
    QFont carattere = Label()->font();
    carattere.setPixelSize(Carattere_Minimo());
    return testo.left(Quanto_Riempie(testo, Label()->size(), QFontMetrics(carattere)));
}

void Etichetta::Margine_Sopra(qint32 twip)
{
    if (Widget() == nullptr)
        return;
    Label()->setContentsMargins(0, Pixel_DaTwip(twip), 0, 0);
    Adatta();
}

qint32 Etichetta::Altezza_Testo() const
{
    return Widget() != nullptr ? Twip_DaPixel(Label()->heightForWidth(Label()->width())) : 0;
}

// --- CasellaTesto -----------------------------------------------------------------------------------------

CasellaTesto::CasellaTesto(QWidget *finestra, const QString &nome) : Controllo(new QLineEdit(finestra), nome)
{
    Riga()->setValidator(new UnaRigaSola(Riga()));
    // The toolkit also tells of a text that was cut back to the one that stood there.
    QObject::connect(Riga(), &QLineEdit::textChanged, Riga(),
                     [this, prima = QString()](const QString &testo) mutable {
                         if (std::exchange(prima, testo) != testo && Change)
                             Change();
                     });
}

QLineEdit *CasellaTesto::Riga() const
{
    return static_cast<QLineEdit *>(Widget());
}

QString CasellaTesto::Text() const
{
    return Widget() != nullptr ? Riga()->text() : QString();
}

void CasellaTesto::Text(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Riga()->setText(testo);
    Riga()->setCursorPosition(0); // a text longer than its box shows its beginning
}

bool CasellaTesto::Intera() const
{
    if (Widget() == nullptr)
        return true;
    QStyleOptionFrame opzione;
    opzione.initFrom(Riga());
    const QRect spazio = Riga()->style()->subElementRect(QStyle::SE_LineEditContents, &opzione, Riga());
    const int cursore = Spessore_Linea(4); // the caret's room at the ends
    return Riga()->fontMetrics().horizontalAdvance(Riga()->displayText()) + cursore <= spazio.width();
}

bool CasellaTesto::Locked() const
{
    return Widget() != nullptr && Riga()->isReadOnly();
}

void CasellaTesto::Locked(bool bloccata)
{
    if (Widget() == nullptr)
        return;
    Riga()->setReadOnly(bloccata);
    Riga()->setFocusPolicy(bloccata ? Qt::ClickFocus : Qt::StrongFocus);
}

void CasellaTesto::BackColor(quint32 colore)
{
    const QColor fondo = Colore_Da(colore);
    QString foglio = QStringLiteral("QLineEdit { background: %1; }").arg(fondo.name());
    const QColor testo = Colore_Leggibile(Colore_Tema(Tinta::Testo), fondo);
    if (testo != Colore_Tema(Tinta::Testo))
        foglio += QStringLiteral("QLineEdit { color: %1; }").arg(testo.name());
    Stile(foglio);
}

void CasellaTesto::Nascosta(bool nascosta)
{
    if (Widget() != nullptr)
        Riga()->setEchoMode(nascosta ? QLineEdit::Password : QLineEdit::Normal);
}

// --- CasellaCombinata -------------------------------------------------------------------------------------

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

// --- CasellaSpunta ----------------------------------------------------------------------------------------

CasellaSpunta::CasellaSpunta(QWidget *finestra, const QString &nome)
    : Controllo(new WidgetSpunta(finestra), nome)
{
    QObject::connect(Spunta(), &QCheckBox::toggled, Spunta(), [this] {
        if (Click)
            Click();
    });
}

QCheckBox *CasellaSpunta::Spunta() const
{
    return static_cast<QCheckBox *>(Widget());
}

qint16 CasellaSpunta::Value() const
{
    return Widget() != nullptr && Spunta()->isChecked() ? 1 : 0;
}

void CasellaSpunta::Value(qint16 valore)
{
    if (Widget() != nullptr)
        Spunta()->setChecked(valore == 1);
}

// --- Pulsante ---------------------------------------------------------------------------------------------

Pulsante::Pulsante(QWidget *finestra, const QString &nome) : Controllo(new QPushButton(finestra), nome)
{
    QObject::connect(Bottone(), &QPushButton::clicked, Bottone(), [this] {
        if (Click)
            Click();
    });
}

QPushButton *Pulsante::Bottone() const
{
    return static_cast<QPushButton *>(Widget());
}

QString Pulsante::Caption() const
{
    return Widget() != nullptr ? Bottone()->text() : QString();
}

void Pulsante::Caption(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Bottone()->setText(testo);
    Adatta();
}

bool Pulsante::Entra() const
{
    if (Widget() == nullptr)
        return true;
    QStyleOptionButton opzione;
    opzione.initFrom(Bottone());
    const QRect spazio =
        Bottone()->style()->subElementRect(QStyle::SE_PushButtonContents, &opzione, Bottone());
    return Bottone()->fontMetrics().size(Qt::TextShowMnemonic, Bottone()->text()).width() <= spazio.width();
}

// --- ElencoVoci -------------------------------------------------------------------------------------------

ElencoVoci::ElencoVoci(QWidget *finestra, const QString &nome) : Controllo(new WidgetElenco(finestra), nome)
{
    Lista()->setUniformItemSizes(true);
    static_cast<WidgetElenco *>(Lista())->scelta = [this] {
        if (Click)
            Click();
    };
}

QListWidget *ElencoVoci::Lista() const
{
    return static_cast<QListWidget *>(Widget());
}

void ElencoVoci::AddItem(const QString &testo)
{
    if (Widget() == nullptr)
        return;
    Lista()->addItem(testo);
}

void ElencoVoci::Clear()
{
    if (Widget() != nullptr)
        Lista()->clear();
}

qint32 ElencoVoci::ListCount() const
{
    return Widget() != nullptr ? Lista()->count() : 0;
}

QString ElencoVoci::List(qint32 indice) const
{
    if (Widget() == nullptr || indice < 0 || indice >= Lista()->count())
        return {};
    return Lista()->item(indice)->text();
}

qint32 ElencoVoci::ListIndex() const
{
    return Widget() != nullptr ? Lista()->currentRow() : -1;
}

void ElencoVoci::ListIndex(qint32 indice)
{
    if (Widget() == nullptr)
        return;
    if (indice < -1 || indice >= Lista()->count())
        Solleva(NumeroErrore::ValoreProprietaErrato);
    {
        const QSignalBlocker zitto(Lista());
        Lista()->setCurrentRow(indice);
    }
    if (indice != -1 && Click)
        Click();
}

qint32 ElencoVoci::Tabulazione(qint32 unita)
{
    if (Widget() == nullptr)
        return 0;
    const int posto = unita * Lista()->fontMetrics().averageCharWidth() / 4;
    Lista()->setItemDelegate(new DelegatoTabulazione(Lista(), posto));
    return Twip_DaPixel(posto);
}

// --- Immagine ---------------------------------------------------------------------------------------------

Immagine::Immagine(QWidget *finestra, const QString &nome) : Controllo(new WidgetImmagine(finestra), nome)
{
    Label()->setAlignment(Qt::AlignCenter);
}

QLabel *Immagine::Label() const
{
    return static_cast<QLabel *>(Widget());
}

void Immagine::Picture(const QString &percorso)
{
    const QString nativo = Percorso_Nativo(percorso);
    if (!QFileInfo(nativo).isFile())
        Solleva(NumeroErrore::FileNonTrovato);
    const QPixmap immagine(nativo);
    if (immagine.isNull())
        Solleva(NumeroErrore::ImmagineNonValida);
    if (Widget() != nullptr)
        static_cast<WidgetImmagine *>(Widget())->Mostra(immagine);
}

void Immagine::Avviso()
{
    constexpr int LATO = 512; // more than the largest screen shows of it
    if (Widget() != nullptr)
        static_cast<WidgetImmagine *>(Widget())->Mostra(Segno_Avviso(LATO));
}

void Immagine::Testo(const QString &testo)
{
    if (Widget() != nullptr)
        Label()->setText(testo);
}

// --- Forma ------------------------------------------------------------------------------------------------

Forma::Forma(QWidget *finestra, const QString &nome, Aspetto aspetto)
    : Controllo(new WidgetForma(finestra, aspetto), nome)
{
}

void Forma::FillColor(quint32 colore)
{
    m_colore = colore;
    if (Widget() != nullptr)
        static_cast<WidgetForma *>(Widget())->Colora(Colore_Da(colore));
}
