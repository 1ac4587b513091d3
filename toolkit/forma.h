// A filled shape on a form.
#pragma once

#include "toolkit/controllo.h"

/// A filled shape: a lamp, or a form's border.
class Forma : public Controllo
{
public:
    enum Aspetto
    {
        Rettangolo,
        Cerchio
    };
    Forma(QWidget *finestra, const QString &nome, Aspetto aspetto);
    void FillColor(quint32 colore);
};
