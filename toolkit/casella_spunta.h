// A box that is ticked or not.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

class CasellaSpunta : public Controllo
{
public:
    CasellaSpunta(QWidget *finestra, const QString &nome);
    qint16 Value() const;
    /// 1 ticks the box, anything else clears it. A change raises Click, as the operator's own does.
    void Value(qint16 valore);

    Evento Click;
};
