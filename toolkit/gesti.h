// What of the operator's hands counts, for the whole program: not what a held key goes on sending, not the
// second press of a double click whose first made way for another form. It knows no form in particular.
#pragma once

#include <QPointer>
#include <QWidget>

class QEvent;
class QKeyEvent;

class Gesti
{
public:
    /// @param momenti events bear the moment of the hand, as the window system saw it.
    explicit Gesti(bool momenti);
    /// Looks at an event before anybody gets it. @return true when it shall reach nobody: a repeat of a held
    /// Enter or Escape, or of Space on a button; the second press of a double click, and its release, when
    /// the first fell on another form; the asking for a menu of the toolkit's own. Single keys and presses
    /// count at once.
    bool Da_Scartare(const QObject *ricevente, const QEvent &evento);

private:
    bool Tenuto(const QKeyEvent &tasto) const;
    void Annota(const QKeyEvent &tasto);

    bool m_momenti;                 ///< events bear the moment of the hand
    int m_premuto = 0;              ///< the key that went down last, repeats included,
    quint64 m_istante = 0;          ///< and when,
    bool m_dimenticato = false;     ///< and that its release was never told
    int m_lasciato = 0;             ///< the key that was let go last,
    quint64 m_momento = 0;          ///< and when, in ms of the window system's clock
    QPointer<const QWidget> m_form; ///< where the last press fell
    bool m_scartato = false;        ///< the mouse button that is down counts for nobody
};
