#include "platform/controlli.h"

#include "platform/aspetto.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "platform/schermo.h"

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
#include <QStyledItemDelegate>

#include <cmath>

// --- widgets of our own -----------------------------------------------------------------------------------

namespace {

class WidgetEtichetta : public QLabel
{
public:
    using QLabel::QLabel;
    bool spezza = false;

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

/// A click anywhere in its place counts, as it does for the other controls.
class WidgetSpunta : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    bool hitButton(const QPoint &punto) const override { return rect().contains(punto); }
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
        pennello.setPen(QPen(QColor(0x4A, 0x5B, 0x68), 2));
        pennello.setBrush(m_colore);
        const QRectF posto = QRectF(rect()).adjusted(1, 1, -1, -1);
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
    }
    std::function<void()> scelta;

protected:
    void focusInEvent(QFocusEvent *evento) override
    {
        QAbstractScrollArea::focusInEvent(evento);
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

/// Draws what stands behind a tab character at the tab stop.
class DelegatoTabulazione : public QStyledItemDelegate
{
public:
    DelegatoTabulazione(QObject *padre, int posto) : QStyledItemDelegate(padre), m_posto(posto) {}

    void paint(QPainter *pennello, const QStyleOptionViewItem &opzione,
               const QModelIndex &indice) const override
    {
        const QString testo = indice.data().toString();
        const QString dopo = testo.section(u'\t', 1);
        QStyledItemDelegate::paint(pennello, opzione, indice);
        pennello->save();
        const bool scelta = opzione.state & QStyle::State_Selected;
        pennello->setPen(scelta ? Qt::white : opzione.palette.color(QPalette::Text));
        pennello->drawText(opzione.rect.adjusted(m_posto, 0, 0, 0), Qt::AlignVCenter, dopo);
        pennello->restore();
    }

protected:
    void initStyleOption(QStyleOptionViewItem *opzione, const QModelIndex &indice) const override
    {
        QStyledItemDelegate::initStyleOption(opzione, indice);
        opzione->text = opzione->text.section(u'\t', 0, 0);
    }

private:
    int m_posto;
};

} // namespace

// --- Controllo --------------------------------------------------------------------------------------------

Controllo::Controllo(QWidget *widget, const QString &nome) : m_widget(widget)
{
    widget->setObjectName(nome);
    FontSize(Punti_Normali());
}

Controllo::~Controllo()
{
    if (m_widget == nullptr)
        return;
    // It may be the very widget whose event is being handled: it goes when the loop has control again. Only its
    // own handlers fall silent: others, such as the accessibility bus, must hear of its end.
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
    if (m_widget == nullptr)
        return;
    QFont carattere = m_widget->font();
    carattere.setPixelSize(std::max(1, static_cast<int>(std::lround(Pixel_DaPunti(punti)))));
    m_widget->setFont(carattere);
}

void Controllo::FontBold(bool grassetto)
{
    if (m_widget == nullptr)
        return;
    QFont carattere = m_widget->font();
    carattere.setBold(grassetto);
    m_widget->setFont(carattere);
}

void Controllo::FontName(const QString &nome)
{
    if (m_widget == nullptr)
        return;
    QFont carattere = m_widget->font();
    carattere.setFamily(nome);
    m_widget->setFont(carattere);
}

void Controllo::Stile(const QString &foglio)
{
    if (m_widget == nullptr)
        return;
    const QFont carattere = m_widget->font(); // a new style sheet forgets it
    m_widget->setStyleSheet(foglio);
    m_widget->setFont(carattere);
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
    Posto(modello.m_left, modello.m_top, modello.m_width, modello.m_height);
    m_punti = modello.m_punti;
    if (m_widget != nullptr && modello.m_widget != nullptr)
        m_widget->setFont(modello.m_widget->font());
}

// --- Etichetta --------------------------------------------------------------------------------------------

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
    if (Widget() != nullptr)
        Label()->setText(testo);
}

void Etichetta::ForeColor(quint32 colore)
{
    m_testoColore = QStringLiteral("color: %1;").arg(Colore_Da(colore).name());
    Colora();
}

void Etichetta::BackColor(quint32 colore)
{
    m_sfondoColore = QStringLiteral("background: %1;").arg(Colore_Da(colore).name());
    Colora();
}

void Etichetta::Colora()
{
    Stile(QStringLiteral("QLabel { %1 %2 %3 }").arg(m_testoColore, m_sfondoColore, m_bordo));
}

void Etichetta::Bordo()
{
    m_bordo = QStringLiteral("border: 1px solid %1;").arg(Colore_Cornice().name());
    Colora();
}

void Etichetta::Allineamento(Qt::Alignment allineamento)
{
    if (Widget() != nullptr)
        Label()->setAlignment(allineamento);
}

void Etichetta::SpezzaOvunque()
{
    if (Widget() != nullptr)
        static_cast<WidgetEtichetta *>(Widget())->spezza = true;
}

qint32 Etichetta::Altezza_Testo() const
{
    return Widget() != nullptr ? Twip_DaPixel(Label()->heightForWidth(Label()->width())) : 0;
}

// --- CasellaTesto -----------------------------------------------------------------------------------------

CasellaTesto::CasellaTesto(QWidget *finestra, const QString &nome) : Controllo(new QLineEdit(finestra), nome)
{
    QObject::connect(Riga(), &QLineEdit::textChanged, Riga(), [this] {
        if (Change)
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
    Stile(QStringLiteral("QLineEdit { background: %1; }").arg(Colore_Da(colore).name()));
}

void CasellaTesto::Nascosta(bool nascosta)
{
    if (Widget() != nullptr)
        Riga()->setEchoMode(nascosta ? QLineEdit::Password : QLineEdit::Normal);
}

// --- CasellaCombinata -------------------------------------------------------------------------------------

CasellaCombinata::CasellaCombinata(QWidget *finestra, const QString &nome)
    : Controllo(new QComboBox(finestra), nome)
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
    if (Widget() != nullptr)
        Bottone()->setText(testo);
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
    if (Widget() != nullptr) {
        const QIcon icona = Widget()->style()->standardIcon(QStyle::SP_MessageBoxWarning);
        static_cast<WidgetImmagine *>(Widget())->Mostra(icona.pixmap(128));
    }
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
