// The label on Qt's, with lines that break anywhere.
#include "toolkit/etichetta.h"

#include "platform/colore_qt.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

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

constexpr int LINEE_EVIDENTI = 4; // thickness of a border that stands out

} // namespace

Etichetta::Etichetta(QWidget *finestra, const QString &nome) : Controllo(new WidgetEtichetta(finestra), nome)
{
    Fai<QLabel>([](QLabel &label) {
        label.setTextFormat(Qt::PlainText);
        label.setWordWrap(true);
        label.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    });
}

QString Etichetta::Caption() const
{
    return Chiedi<QLabel>(QString(), [](const QLabel &label) { return label.text(); });
}

void Etichetta::Caption(const QString &testo)
{
    Fai<QLabel>([&testo](QLabel &label) { label.setText(testo); });
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

void Etichetta::Cella(quint32 testo, quint32 fondo, bool evidente)
{
    m_testo = testo;
    m_fondo = fondo;
    m_bordo = evidente ? Evidente : Sottile;
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

void Etichetta::Allineamento(Orizzontale orizzontale, Verticale verticale)
{
    static constexpr Qt::Alignment ORIZZONTALI[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    static constexpr Qt::Alignment VERTICALI[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const Qt::Alignment allineamento =
        ORIZZONTALI[static_cast<size_t>(orizzontale)] | VERTICALI[static_cast<size_t>(verticale)];
    Fai<QLabel>([allineamento](QLabel &label) { label.setAlignment(allineamento); });
    Adatta();
}

void Etichetta::SpezzaOvunque()
{
    Fai<WidgetEtichetta>([](WidgetEtichetta &label) { label.spezza = true; });
    Adatta();
}

bool Etichetta::Entra() const
{
    return Chiedi<WidgetEtichetta>(true, [](const WidgetEtichetta &label) { return label.Entra(); });
}

void Etichetta::Etichetta_Di(const Controllo &controllo)
{
    Fai<QLabel>([&controllo](QLabel &label) { label.setBuddy(controllo.Widget()); });
}

QString Etichetta::Principio(const QString &testo) const
{
    return Chiedi<QLabel>(testo, [&testo](const QLabel &label) {
        QFont carattere = label.font();
        carattere.setPixelSize(Carattere_Minimo());
        return testo.left(Quanto_Riempie(testo, label.size(), QFontMetrics(carattere)));
    });
}

void Etichetta::Margini(qint32 sopra, qint32 lati)
{
    const int lato = Pixel_DaTwip(lati);
    const QMargins margini(lato, Pixel_DaTwip(sopra), lato, 0);
    Fai<QLabel>([&margini](QLabel &label) { label.setContentsMargins(margini); });
    Adatta();
}

qint32 Etichetta::Altezza_Testo() const
{
    return Chiedi<QLabel>(
        0, [](const QLabel &label) { return Twip_DaPixel(label.heightForWidth(label.width())); });
}
