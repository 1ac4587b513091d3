// The rules of held keys and double clicks, in front of everything that handles events. A form comes up where
// the one before has just been confirmed: what the hand still does there was not meant for it.
#include "toolkit/gesti.h"

#include <QAbstractButton>
#include <QKeyEvent>

#include <utility>

namespace {

/// A held key repeats many times a second; one that has been silent for so long is pressed anew. In ms.
constexpr quint64 DIMENTICATO = 5000;

/// The form that a widget stands on: a list that drops down belongs to the form of its box.
const QWidget *Form_Di(const QWidget *widget)
{
    const QWidget *finestra = widget->window();
    while (finestra->windowType() == Qt::Popup && finestra->parentWidget() != nullptr)
        finestra = finestra->parentWidget()->window();
    return finestra;
}

/// Enter and Escape press buttons and do nothing else, so that no control misses their repeats, and F1 opens
/// a page at every press. Space presses on a button alone: a text box takes its repeats.
bool Preme(const QObject *ricevente, int tasto)
{
    return tasto == Qt::Key_Return || tasto == Qt::Key_Enter || tasto == Qt::Key_Escape ||
           tasto == Qt::Key_F1 ||
           (tasto == Qt::Key_Space && qobject_cast<const QAbstractButton *>(ricevente) != nullptr);
}

} // namespace

Gesti::Gesti(bool momenti) : m_momenti(momenti) {}

/// A repeat comes as a release and a press of one moment. On a busy machine the toolkit sees the release
/// before the press has come in, and takes both for the operator's; no hand is that quick. Windows marks
/// every repeat itself, and gives two strokes that waited for a busy loop the moment at which it took them
/// up.
bool Gesti::Tenuto(const QKeyEvent &tasto) const
{
    const bool momento = m_momenti && tasto.timestamp() != 0 && tasto.timestamp() == m_momento;
    return (tasto.isAutoRepeat() && !m_dimenticato) || (momento && tasto.key() == m_lasciato);
}

/// A release that a vanishing form took along leaves the toolkit thinking that the key is still down. An
/// event passes here more than once, for the window and for the control: its moment stays the same.
void Gesti::Annota(const QKeyEvent &tasto)
{
    if (tasto.key() == m_premuto && tasto.timestamp() == m_istante)
        return;
    m_dimenticato = tasto.key() == m_premuto && tasto.timestamp() > m_istante + DIMENTICATO;
    m_premuto = tasto.key();
    m_istante = tasto.timestamp();
}

bool Gesti::Da_Scartare(const QObject *ricevente, const QEvent &evento)
{
    switch (evento.type()) {
    case QEvent::ShortcutOverride: // where an open list lets Enter choose
    case QEvent::KeyPress: {
        const auto &tasto = static_cast<const QKeyEvent &>(evento);
        Annota(tasto);
        return Preme(ricevente, tasto.key()) && Tenuto(tasto);
    }
    case QEvent::KeyRelease:
        m_lasciato = static_cast<const QKeyEvent &>(evento).key();
        m_momento = static_cast<const QKeyEvent &>(evento).timestamp();
        return false;
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
