// The rules of held keys and double clicks, in front of everything that handles events. A form comes up where
// the one before has just been confirmed: what the hand still does there was not meant for it.
#include "platform/gesti.h"

#include <QKeyEvent>

#include <utility>

namespace {

/// The form that a widget stands on: a list that drops down belongs to the form of its box.
const QWidget *Form_Di(const QWidget *widget)
{
    const QWidget *finestra = widget->window();
    while (finestra->windowType() == Qt::Popup && finestra->parentWidget() != nullptr)
        finestra = finestra->parentWidget()->window();
    return finestra;
}

/// Enter and Escape press buttons and do nothing else, so that no control misses their repeats. Space presses
/// when it is let go, once; a text box takes its repeats.
bool Tenuto(const QKeyEvent &tasto)
{
    return tasto.isAutoRepeat() &&
           (tasto.key() == Qt::Key_Return || tasto.key() == Qt::Key_Enter || tasto.key() == Qt::Key_Escape);
}

} // namespace

bool Gesti::Da_Scartare(const QObject *ricevente, const QEvent &evento)
{
    switch (evento.type()) {
    case QEvent::ShortcutOverride: // where an open list lets Enter choose
    case QEvent::KeyPress:
        return Tenuto(static_cast<const QKeyEvent &>(evento));
    case QEvent::ContextMenu:
        return true; // of a text box or a scroll bar: its words would not be in the station's language
    default:
        break;
    }
    const auto *widget = qobject_cast<const QWidget *>(ricevente);
    if (widget == nullptr)
        return false;
    switch (evento.type()) {
    case QEvent::MouseButtonPress:
        m_form = Form_Di(widget);
        m_scartato = false;
        return false;
    case QEvent::MouseButtonDblClick:
        m_scartato = m_form != Form_Di(widget);
        return m_scartato;
    case QEvent::MouseMove:
        return m_scartato;
    case QEvent::MouseButtonRelease:
        return std::exchange(m_scartato, false);
    default:
        return false;
    }
}
