// A form's place and look.
#include "toolkit/finestra_modulo.h"

#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWindow>

QWidget *Modulo::Finestra() const
{
    return m_finestra;
}

void Modulo::Aggiorna()
{
    if (m_finestra != nullptr)
        m_finestra->update();
}

void Modulo::Width(qint32 twip)
{
    m_width = twip;
    Disponi();
}

void Modulo::Height(qint32 twip)
{
    m_height = twip;
    Disponi();
}

void Modulo::Sposta(qint32 left, qint32 top)
{
    m_left = left;
    m_top = top;
    Disponi();
}

void Modulo::Centra()
{
    Sposta((Schermo_Larghezza() - m_width) / 2, (Schermo_Altezza() - m_height) / 2);
}

void Modulo::Massimizza()
{
    m_intero = true;
    m_width = Schermo_Larghezza();
    m_height = Schermo_Altezza();
    m_finestra->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    Sposta(0, 0);
    m_finestra->setWindowState(Qt::WindowFullScreen); // after the place, which would take the state away
}

void Modulo::InPrimoPiano()
{
    if (m_finestra != nullptr && m_finestra->windowHandle() != nullptr)
        m_finestra->windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
}

void Modulo::Disponi()
{
    if (m_finestra == nullptr)
        return;
    const QPoint origine = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QSize misura(Pixel_DaTwip(m_width), Pixel_DaTwip(m_height));
    if (m_finestra->size() != misura)
        m_finestra->setFixedSize(misura);
    const QPoint posto = origine + QPoint(Pixel_DaTwip(m_left), Pixel_DaTwip(m_top));
    if (m_finestra->pos() != posto)
        m_finestra->move(posto);
}

QString Modulo::Caption() const
{
    return m_finestra != nullptr ? m_finestra->windowTitle() : QString();
}

void Modulo::Caption(const QString &testo)
{
    if (m_finestra != nullptr)
        m_finestra->setWindowTitle(testo);
}

void Modulo::NomeAccessibile(const QString &nome)
{
    if (m_finestra != nullptr)
        m_finestra->setAccessibleName(nome);
}

void Modulo::Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2)
{
    m_segmenti.push_back({x1, y1, x2, y2});
}

void Modulo::Dipingi(QWidget *finestra)
{
    m_segmenti.clear();
    Paint();
    QPainter pennello(finestra);
    pennello.setPen(QPen(Colore_Cornice(), Spessore_Linea()));
    if (!m_intero)
        pennello.drawRect(finestra->rect().adjusted(0, 0, -1, -1)); // stands out also where no frame is drawn
    for (const Segmento &s : m_segmenti)
        pennello.drawLine(Pixel_DaTwip(s.x1), Pixel_DaTwip(s.y1), Pixel_DaTwip(s.x2), Pixel_DaTwip(s.y2));
}
