// The one place of a control that knows its widget. It knows no kind of control.
#include "toolkit/controllo.h"

#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <algorithm>
#include <cmath>

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
    if (m_widget == nullptr)
        return;
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
