// Place, type and end of a control's widget. It knows no kind of control.
#include "toolkit/controllo.h"

#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QCoreApplication>

namespace {

void Carattere_Pixel(QWidget &widget, int pixel)
{
    QFont carattere = widget.font();
    carattere.setPixelSize(pixel);
    widget.setFont(carattere);
}

} // namespace

Controllo::Controllo(QWidget *widget, const QString &nome) : m_widget(widget), m_punti(Punti_Normali())
{
    widget->setObjectName(nome);
    Carattere_Pixel(*widget, Pixel_Interi(m_punti));
}

Controllo::~Controllo()
{
    if (QCoreApplication::instance() == nullptr)
        return; // a form of the whole program's life goes after the screen has gone
    // It may be the very widget whose event is being handled: it goes when the loop has control again. Only
    // its own handlers fall silent: others, such as the accessibility bus, must hear of its end.
    Fai([](QWidget &widget) {
        QObject::disconnect(&widget, nullptr, &widget, nullptr);
        widget.hide();
        widget.deleteLater();
    });
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
    const bool nuovo = m_width == 0 || m_height == 0;
    m_left = left;
    m_top = top;
    m_width = width;
    m_height = height;
    // Edges are mapped, not sizes, so that neighbours meet without a gap.
    const int x = Pixel_DaTwip(left);
    const int y = Pixel_DaTwip(top);
    const QSize grandezza(Pixel_DaTwip(left + width) - x, Pixel_DaTwip(top + height) - y);
    Fai([&](QWidget &widget) {
        const QSize prima = widget.size();
        widget.setGeometry(QRect(QPoint(x, y), grandezza));
        if (nuovo || widget.size() != prima) // who has only moved fits as before
            Adatta();
    });
}

bool Controllo::Visible() const
{
    return Chiedi(false, [](const QWidget &widget) { return !widget.isHidden(); });
}

void Controllo::Visible(bool visibile)
{
    Fai([visibile](QWidget &widget) { widget.setVisible(visibile); });
}

bool Controllo::Enabled() const
{
    return Chiedi(false, [](const QWidget &widget) { return widget.isEnabled(); });
}

void Controllo::Enabled(bool abilitato)
{
    Fai([abilitato](QWidget &widget) { widget.setEnabled(abilitato); });
}

void Controllo::FontSize(double punti)
{
    const bool mostrati = Chiedi(
        false, [punti](const QWidget &widget) { return widget.font().pixelSize() == Pixel_Interi(punti); });
    m_punti = punti;
    if (!mostrati) // what shows at this size has been found to fit in it
        Adatta();
}

void Controllo::Adatta()
{
    Fai([this](QWidget &widget) {
        const int voluto = Pixel_Interi(m_punti);
        Carattere_Pixel(widget, voluto);
        if (m_width == 0 || m_height == 0)
            return; // it has no place yet
        if (voluto > Carattere_Minimo() && !Entra())
            Carattere_Pixel(widget, Maggiore_CheEntra(widget, voluto));
    });
}

/// The largest size below one that does not fit, by halving: each size that is tried has to be loaded and the
/// text laid out in it.
int Controllo::Maggiore_CheEntra(QWidget &widget, int oltre) const
{
    const auto entra = [&](int pixel) {
        Carattere_Pixel(widget, pixel);
        return Entra();
    };
    const int voluto = oltre;
    int pixel = Carattere_Minimo();
    while (oltre - pixel > 1) {
        const int meta = (pixel + oltre) / 2;
        (entra(meta) ? pixel : oltre) = meta;
    }
    // Letters are of whole pixels: now and then a size fits although the one below it does not.
    return pixel + 2 < voluto && entra(pixel + 2) ? pixel + 2 : pixel;
}

void Controllo::FontBold(bool grassetto)
{
    Fai([grassetto](QWidget &widget) {
        QFont carattere = widget.font();
        carattere.setBold(grassetto);
        widget.setFont(carattere);
    });
    Adatta();
}

void Controllo::FontName(const QString &nome)
{
    Fai([&nome](QWidget &widget) {
        QFont carattere = widget.font();
        carattere.setFamily(nome);
        widget.setFont(carattere);
    });
    Adatta();
}

void Controllo::Stile(const QString &foglio)
{
    Fai([&foglio](QWidget &widget) {
        const QFont carattere = widget.font(); // a new style sheet forgets it
        widget.setStyleSheet(foglio);
        widget.setFont(carattere);
    });
    Adatta();
}

void Controllo::Ridipingi()
{
    Fai([](QWidget &widget) { widget.repaint(); });
}

void Controllo::SetFocus()
{
    Fai([](QWidget &widget) { widget.setFocus(Qt::OtherFocusReason); });
}

void Controllo::NomeAccessibile(const QString &nome)
{
    Fai([&nome](QWidget &widget) { widget.setAccessibleName(nome); });
}

void Controllo::Copia_Disegno(const Controllo &modello)
{
    modello.Fai([this](const QWidget &suo) { Fai([&suo](QWidget &mio) { mio.setFont(suo.font()); }); });
    m_punti = modello.m_punti;
    Posto(modello.m_left, modello.m_top, modello.m_width, modello.m_height);
}
