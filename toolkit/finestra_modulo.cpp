// A form's window on Qt's. What a form does stands in its handlers.
#include "toolkit/finestra_modulo.h"

#include "toolkit/aspetto.h"
#include "toolkit/gestori_modulo.h"
#include "toolkit/schermo.h"
#include "toolkit/tastiera_modulo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <utility>
#include <vector>

FinestraModulo::FinestraModulo(GestoriModulo &modulo, TastieraModulo &tastiera, const QString &nome)
    : QWidget(nullptr), m_modulo(&modulo), m_tastiera(tastiera)
{
    setObjectName(nome);
}

// --- place and look ---------------------------------------------------------------------------------------

void FinestraModulo::Disponi(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const QPoint origine = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QSize grandezza(Pixel_DaTwip(width), Pixel_DaTwip(height));
    if (size() != grandezza)
        setFixedSize(grandezza);
    const QPoint posto = origine + QPoint(Pixel_DaTwip(left), Pixel_DaTwip(top));
    if (pos() != posto)
        move(posto);
}

void FinestraModulo::Massimizza(qint32 width, qint32 height)
{
    m_intero = true;
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    Disponi(0, 0, width, height);
    setWindowState(Qt::WindowFullScreen); // after the place, which would take the state away
}

/// Windows of another kind belong to none. The new kind has every control polished anew, and one that had
/// been polished for the keyboard in Load would forget its type.
void FinestraModulo::Diventa_Dialogo()
{
    std::vector<std::pair<QWidget *, QFont>> caratteri;
    for (QWidget *controllo : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        caratteri.emplace_back(controllo, controllo->font());
    setWindowFlag(Qt::Dialog);
    for (const auto &[controllo, carattere] : caratteri)
        controllo->setFont(carattere);
}

/// A small form belongs to the window that it opens over. Without that a window manager may take the screen
/// away from the form below, so that the desktop's panel comes up over its buttons, or lay the small one
/// under.
void FinestraModulo::Posa_Sopra(const QWidget *altrimenti)
{
    if (m_intero || isVisible())
        return;
    const QWidget *attiva = QApplication::activeWindow();
    const QWidget *sotto = attiva != nullptr ? attiva : altrimenti;
    if (sotto == nullptr)
        return;
    Diventa_Dialogo();
    winId(); // makes its handle
    windowHandle()->setTransientParent(sotto->windowHandle());
}

void FinestraModulo::Mostra(const QWidget *altrimenti)
{
    Posa_Sopra(altrimenti);
    show();
}

void FinestraModulo::PortaAvanti()
{
    if (isMinimized())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void FinestraModulo::InPrimoPiano()
{
    if (windowHandle() != nullptr)
        windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
}

void FinestraModulo::Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2)
{
    m_segmenti.push_back({x1, y1, x2, y2});
}

// --- what the window system tells -------------------------------------------------------------------------

bool FinestraModulo::event(QEvent *evento)
{
    const bool esito = QWidget::event(evento);
    if (evento->type() == QEvent::WindowActivate && m_modulo != nullptr)
        m_modulo->Esegui([this] { m_modulo->Activate(); });
    return esito;
}

void FinestraModulo::paintEvent(QPaintEvent *)
{
    if (m_modulo == nullptr)
        return;
    m_segmenti.clear();
    m_modulo->Esegui([this] { m_modulo->Paint(); });
    QPainter pennello(this);
    pennello.setPen(QPen(Colore_Cornice(), Spessore_Linea()));
    if (!m_intero)
        pennello.drawRect(rect().adjusted(0, 0, -1, -1)); // stands out also where no frame is drawn
    for (const Segmento &s : m_segmenti)
        pennello.drawLine(Pixel_DaTwip(s.x1), Pixel_DaTwip(s.y1), Pixel_DaTwip(s.x2), Pixel_DaTwip(s.y2));
}

void FinestraModulo::closeEvent(QCloseEvent *evento)
{
    evento->accept();
    if (m_modulo != nullptr)
        m_modulo->Scarica();
}

void FinestraModulo::keyPressEvent(QKeyEvent *evento)
{
    if (m_modulo == nullptr || !m_tastiera.Tasto(this, evento->key(), evento->text()))
        QWidget::keyPressEvent(evento);
}

bool FinestraModulo::focusNextPrevChild(bool avanti)
{
    if (m_modulo != nullptr && !m_tastiera.Puo_Uscire())
        return true; // the key is used up, the focus stays
    return QWidget::focusNextPrevChild(avanti);
}
