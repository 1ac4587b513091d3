// A list to be read, not chosen from: a report, an entry a line.
#pragma once

#include "toolkit/controllo.h"

/// Long entries are broken; every second one has a ground of its own, so that it shows where one begins. What
/// is longer than its place scrolls with the wheel, with a drag of mouse or finger, and with the keys pressed
/// on another control: it takes the keyboard from nobody.
class ElencoLettura : public Controllo
{
public:
    ElencoLettura(QWidget *finestra, const QString &nome);
    /// Shows a text, each of its lines an entry. Lines without a letter are left out.
    void Testo(const QString &testo);
    /// Scrolls with the arrows, page keys, Home and End that are pressed on that control, and keeps them from
    /// it.
    void Tasti_Di(const Controllo &controllo);
};
