// The title of a small form, drawn inside it: a station has no desktop that would draw one round it.
#pragma once

#include "toolkit/etichetta.h"

class Titolo : public Etichetta
{
public:
    Titolo(QWidget *finestra, const QString &nome);
};
