// A list to be read, not chosen from: a report, an entry a line.
#pragma once

#include "toolkit/controlli.h"

/// Long entries are broken; every second one has a ground of its own, so that it shows where one begins. What
/// is longer than its place scrolls with the wheel, with a drag of mouse or finger, and with the keys that
/// its form hands on: it takes the keyboard from nobody.
class ElencoLettura : public Controllo
{
public:
    ElencoLettura(QWidget *finestra, const QString &nome);
    /// Shows a text, each of its lines an entry. Lines without a letter are left out.
    void Testo(const QString &testo);
    /// Scrolls with an arrow, a page key, Home or End. @param tasto a Qt::Key. @return true when it was one.
    bool Scorri(int tasto);

private:
    QListWidget *Lista() const;
};
