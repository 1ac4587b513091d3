#include "prove/operatore/mano.h"

#include "core/modGeneral.h"
#include "toolkit/modulo.h"

#include <QApplication>
#include <QClipboard>
#include <QListWidget>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <numeric>

namespace operatore {

namespace {

constexpr Qt::Key TASTI[] = {
    Qt::Key_F1,       Qt::Key_F2,     Qt::Key_F4,        Qt::Key_F10,    Qt::Key_F12,     Qt::Key_Escape,
    Qt::Key_Return,   Qt::Key_Enter,  Qt::Key_Space,     Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,
    Qt::Key_Down,     Qt::Key_Left,   Qt::Key_Right,     Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp,
    Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Insert, Qt::Key_A,       Qt::Key_B,
    Qt::Key_C,        Qt::Key_O,      Qt::Key_V,         Qt::Key_X,      Qt::Key_Z,       Qt::Key_1,
    Qt::Key_9,        Qt::Key_Period, Qt::Key_Comma,     Qt::Key_Minus,  Qt::Key_Menu,
};

constexpr Qt::KeyboardModifier CON[] = {Qt::NoModifier,    Qt::NoModifier,  Qt::NoModifier,
                                        Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier};

constexpr const char16_t *TESTI[] = {
    u"AB123CD",
    u"65",
    u"12,5",
    u"-1",
    u"0",
    u"1e400",
    u"99999999999",
    u".",
    u"31/02/2024",
    u"una\r\ndue\ntre",
    u"=[sezione];",
    u"..\\..\\",
    u"C:\\",
    u"%1 %2 &a",
    u"perché è così",
    u"Łódź 日本語 العربية",
    u"\U0001F697\u0301\u200F",
    u"COM9",
};

constexpr int LUNGHISSIMO = 10000;
constexpr int RIPETIZIONI = 20; // of a key that is held

/// The key of a modifier; one alone is held at a time.
Qt::Key Modificatore(Qt::KeyboardModifiers con)
{
    if (con == Qt::ShiftModifier)
        return Qt::Key_Shift;
    if (con == Qt::ControlModifier)
        return Qt::Key_Control;
    return con == Qt::AltModifier ? Qt::Key_Alt : Qt::Key_unknown;
}

} // namespace

// clang-format off
const Mano::Gesto Mano::GESTI[] = {
    {40, "click",        &Mano::Mira,          &Mano::Clicca       },
    { 4, "double click", &Mano::Mira,          &Mano::Clicca_Doppio},
    { 2, "right click",  &Mano::Mira,          &Mano::Clicca_Destro},
    { 3, "wheel",        &Mano::Mira,          &Mano::Gira_Rotella },
    { 3, "drag",         &Mano::Mira,          &Mano::Trascina     },
    {20, "go on",        &Mano::Mira_Avanti,   &Mano::Clicca       },
    {20, "key",          &Mano::Sceglie_Tasto, &Mano::Batti_Tasto  },
    { 4, "held key",     &Mano::Sceglie_Tasto, &Mano::Tieni_Tasto  },
    {10, "text",         &Mano::Sceglie_Testo, &Mano::Batti_Testo  },
    { 5, "paste",        &Mano::Sceglie_Testo, &Mano::Incolla      },
    { 1, "close",        &Mano::Niente,        &Mano::Chiudi       },
    { 1, "minimise",     &Mano::Niente,        &Mano::Riduci       },
    { 2, "other window", &Mano::Niente,        &Mano::Cambia       },
};
// clang-format on

const Mano::Gesto &Mano::Scegli()
{
    const int tutto = std::accumulate(std::begin(GESTI), std::end(GESTI), 0,
                                      [](int somma, const Gesto &gesto) { return somma + gesto.Peso; });
    int resto = m_caso.bounded(tutto);
    const Gesto *gesto = std::begin(GESTI);
    while (resto >= gesto->Peso)
        resto -= (gesto++)->Peso;
    return *gesto;
}

/// What the operator can get at: a list that has dropped down, a box that has to be answered, the window with
/// the keyboard. Nothing once a box has its answer: what comes next is for the window behind, when the box's
/// loop has ended.
QWidget *Mano::Davanti() const
{
    if (m_daRispondere && (m_modale == nullptr || !m_modale->isVisible()))
        return nullptr;
    for (QWidget *widget :
         {QApplication::activePopupWidget(), QApplication::activeModalWidget(), QApplication::activeWindow()})
    {
        if (widget != nullptr && widget->isVisible() && widget->windowHandle() != nullptr)
            return widget;
    }
    return nullptr;
}

// --- the mouse
// ----------------------------------------------------------------------------------------------

/// What there is to be clicked in a window: every second time only what takes a click.
QList<QWidget *> Mano::Bersagli(QWidget *finestra)
{
    const bool soloVivi = Fra(0, 1) == 0;
    QList<QWidget *> bersagli{finestra};
    for (QWidget *widget : finestra->findChildren<QWidget *>()) {
        const bool vivo = widget->focusPolicy() != Qt::NoFocus;
        if (widget->isVisible() && !widget->isWindow() && widget->isEnabled() && (vivo || !soloVivi) &&
            !widget->visibleRegion().isEmpty())
            bersagli.append(widget);
    }
    return bersagli;
}

void Mano::Mira_A(QWidget *finestra, QWidget *scelto)
{
    const QRect posto = scelto->visibleRegion().boundingRect();
    if (posto.isEmpty())
        return;
    m_finestra = finestra->windowHandle();
    m_punto =
        scelto->mapTo(finestra, QPoint(Fra(posto.left(), posto.right()), Fra(posto.top(), posto.bottom())));
    m_racconto = QStringLiteral(" on %1 %2 at %3,%4")
                     .arg(finestra->objectName(), scelto->objectName())
                     .arg(m_punto.x())
                     .arg(m_punto.y());
}

/// Somewhere on a control of the window, or on its bare ground.
void Mano::Mira()
{
    m_finestra = nullptr;
    QWidget *finestra = Davanti();
    if (finestra == nullptr)
        return;
    const QList<QWidget *> bersagli = Bersagli(finestra);
    Mira_A(finestra, bersagli[Fra(0, int(bersagli.size()) - 1)]);
}

/// On the way of a test: without it chance would hardly ever bring a vehicle to its result.
void Mano::Mira_Avanti()
{
    m_finestra = nullptr;
    QWidget *finestra = Davanti();
    if (finestra == nullptr)
        return;
    const bool scelta = Fra(0, 1) == 0; // of a vehicle, before it is confirmed
    for (const char *nome : {"cmdMnu_2", "lstAuto", "cmd_0"}) {
        auto *controllo = finestra->findChild<QWidget *>(QString::fromLatin1(nome));
        const bool elenco = qobject_cast<QListWidget *>(controllo) != nullptr;
        if (controllo != nullptr && controllo->isVisible() && controllo->isEnabled() && (scelta || !elenco))
            return Mira_A(finestra, controllo);
    }
    Mira();
}

/// In pieces, each for a window that is still there.
void Mano::Clicca()
{
    if (m_finestra != nullptr)
        QTest::mousePress(m_finestra, Qt::LeftButton, {}, m_punto);
    if (m_finestra != nullptr)
        QTest::mouseRelease(m_finestra, Qt::LeftButton, {}, m_punto);
}

/// Its second press comes to whatever lies there by then.
void Mano::Clicca_Doppio()
{
    Clicca();
    QWidget *finestra = Davanti();
    if (finestra == nullptr || !finestra->rect().contains(m_punto))
        return;
    m_finestra = finestra->windowHandle();
    QTest::mousePress(m_finestra, Qt::LeftButton, {}, m_punto, 1);
    if (m_finestra != nullptr)
        QTest::mouseRelease(m_finestra, Qt::LeftButton, {}, m_punto, 1);
}

void Mano::Clicca_Destro()
{
    if (m_finestra != nullptr)
        QTest::mousePress(m_finestra, Qt::RightButton, {}, m_punto);
    if (m_finestra != nullptr)
        QTest::mouseRelease(m_finestra, Qt::RightButton, {}, m_punto);
}

void Mano::Gira_Rotella()
{
    if (m_finestra == nullptr)
        return;
    const QWidget *finestra = Davanti();
    QWidget *sotto = finestra != nullptr ? finestra->childAt(m_punto) : nullptr;
    if (sotto == nullptr)
        return;
    const QPoint qui = sotto->mapFrom(finestra, m_punto);
    QWheelEvent rotella(qui, sotto->mapToGlobal(qui), QPoint(), QPoint(0, Fra(-4, 4) * 120), Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(sotto, &rotella);
}

void Mano::Trascina()
{
    if (m_finestra == nullptr)
        return;
    const QSize spazio = m_finestra->size();
    QTest::mousePress(m_finestra, Qt::LeftButton, {}, m_punto);
    for (int i = Fra(1, 4); i > 0 && m_finestra != nullptr; --i) {
        m_punto = QPoint(Fra(0, spazio.width() - 1), Fra(0, spazio.height() - 1));
        QTest::mouseMove(m_finestra, m_punto);
    }
    if (m_finestra != nullptr)
        QTest::mouseRelease(m_finestra, Qt::LeftButton, {}, m_punto);
}

// --- the keyboard
// -------------------------------------------------------------------------------------------

void Mano::Sceglie_Tasto()
{
    m_tasto = TASTI[Fra(0, int(std::size(TASTI)) - 1)];
    m_con = CON[Fra(0, int(std::size(CON)) - 1)];
    m_racconto = QStringLiteral(" %1 with %2").arg(int(m_tasto), 0, 16).arg(int(m_con), 0, 16);
}

/// In pieces, each for a window that is still there: the test library would send the modifier's events to one
/// that went at the key.
void Mano::Tasto(Qt::Key tasto, Qt::KeyboardModifiers con, int volte)
{
    const QWidget *davanti = Davanti();
    const QPointer<QWindow> finestra = davanti != nullptr ? davanti->windowHandle() : nullptr;
    const auto manda = [&finestra](bool premuto, Qt::Key quale, Qt::KeyboardModifiers tenuti,
                                   const QString &parola) {
        if (finestra != nullptr && quale != Qt::Key_unknown)
            QTest::simulateEvent(finestra.data(), premuto, quale, tenuti, parola, false);
    };
    const Qt::Key modificatore = Modificatore(con);
    const char ascii = QTest::keyToAscii(tasto);
    const QString testo = ascii != 0 ? QString(QLatin1Char(ascii)) : QString();
    for (int i = 0; i < volte; ++i) {
        manda(true, modificatore, Qt::NoModifier, QString());
        manda(true, tasto, con, testo);
    }
    manda(false, tasto, con, testo);
    manda(false, modificatore, con, QString());
}

void Mano::Batti_Tasto()
{
    Tasto(m_tasto, m_con, 1);
}

/// A key repeats into whatever window has the keyboard by then.
void Mano::Tieni_Tasto()
{
    for (int i = 0; i < RIPETIZIONI; ++i) {
        const QWidget *davanti = Davanti();
        if (davanti == nullptr)
            return;
        qt_handleKeyEvent(davanti->windowHandle(), QEvent::KeyPress, m_tasto, m_con, QString(), i > 0);
        QCoreApplication::processEvents();
    }
    Tasto(m_tasto, m_con, 0);
}

QString Mano::Testo_ACaso()
{
    switch (Fra(0, 12)) {
    case 0:
        return QString(LUNGHISSIMO, QChar(Fra('0', 'z')));
    case 1:
        return QStringLiteral("prima") + QChar(u'\0') + QStringLiteral("dopo");
    case 2:
    case 3:
    case 4:
        return gPwdCorrente;
    default:
        return QString::fromUtf16(TESTI[Fra(0, int(std::size(TESTI)) - 1)]);
    }
}

void Mano::Sceglie_Testo()
{
    m_testo = Testo_ACaso();
    m_racconto = QStringLiteral(" of %1: ").arg(m_testo.size()) + m_testo.left(20).simplified();
}

/// As many characters as a hand types; a longer text only comes in as a whole.
void Mano::Batti_Testo()
{
    constexpr qsizetype A_MANO = 40;
    for (const QChar carattere : m_testo.left(A_MANO)) {
        const QWidget *davanti = Davanti();
        if (davanti == nullptr)
            return;
        const QPointer<QWindow> finestra = davanti->windowHandle();
        QTest::sendKeyEvent(QTest::Press, finestra.data(), Qt::Key_unknown, QString(carattere),
                            Qt::NoModifier);
        if (finestra != nullptr)
            QTest::sendKeyEvent(QTest::Release, finestra.data(), Qt::Key_unknown, QString(carattere),
                                Qt::NoModifier);
    }
}

void Mano::Incolla()
{
    QApplication::clipboard()->setText(m_testo);
    Tasto(Qt::Key_V, Qt::ControlModifier, 1);
}

// --- the windows
// --------------------------------------------------------------------------------------------

void Mano::Chiudi()
{
    if (QWidget *davanti = Davanti(); davanti != nullptr)
        davanti->close();
}

void Mano::Riduci()
{
    const QPointer<QWidget> davanti = Davanti();
    if (davanti == nullptr || davanti->windowType() == Qt::Popup)
        return;
    davanti->setWindowState(davanti->windowState() | Qt::WindowMinimized);
    QCoreApplication::processEvents();
    if (davanti != nullptr)
        davanti->setWindowState(davanti->windowState() & ~Qt::WindowMinimized);
    if (davanti != nullptr)
        davanti->activateWindow();
}

/// By the desktop's own means: the window of another form comes to the front, unless a box waits for its
/// answer.
void Mano::Cambia()
{
    const auto moduli = Moduli_Caricati();
    if (QApplication::activeModalWidget() != nullptr || moduli.empty())
        return;
    const auto &modulo = moduli[size_t(Fra(0, int(moduli.size()) - 1))];
    if (modulo->Finestra() != nullptr && modulo->Finestra()->isVisible())
        modulo->Finestra()->activateWindow();
}

} // namespace operatore
