// Who speaks with the station on the line: the instrument, or the record of one. It knows no line, no timer
// and no clock.
#pragma once

#include "simulatore/invio.h"

#include <QList>

class Interlocutore
{
public:
    virtual ~Interlocutore() = default;

    /// Takes bytes as they come, in whatever pieces. @return what goes out.
    virtual QList<Invio> Ricevi(const QByteArray &byte) = 0;

    /// The station has closed its side: what it had begun to say, and what was held for it, is void.
    virtual void Linea_Lasciata() = 0;
};
