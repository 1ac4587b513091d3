// Words of the toolkit's own: what it says in English wherever the program has not put a text of the
// station's language in its place.
#pragma once

#include <QStringList>
#include <QTranslator>

class QWidget;

/// While it stands, every word that the toolkit says of its own is marked; the texts of the forms never ask
/// here. It has to stand before the windows that are looked at are made.
class SegnaParole : public QTranslator
{
public:
    SegnaParole();
    ~SegnaParole() override;
    Q_DISABLE_COPY_MOVE(SegnaParole)

    bool isEmpty() const override { return false; }
    QString translate(const char *contesto, const char *testo, const char *distinzione,
                      int quanti) const override;

private:
    mutable bool m_chiede = false;
};

/// The marked words that a window shows, or tells an assistive technology: titles, captions, tool tips,
/// names, descriptions, values, keys and actions, its own and those of everything on it. One line a word,
/// with whose it is.
QStringList Parole_Del_Toolkit(QWidget *finestra);

/// The controls of a window that bring up a menu when they are asked for one, with the mouse or a key.
QStringList Menu_Del_Toolkit(QWidget *finestra);
