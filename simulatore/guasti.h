// What a fault makes of a good reply. No line and no clock: a list of what goes out, and when.
#pragma once

#include "simulatore/invio.h"
#include "simulatore/scenario.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// A good reply, ready to go.
struct Risposta
{
    QByteArray trama;
    QString nota;
};

/// Pieces of a reply under a fault. Unita gives none: whoever calls keeps the frame for the next reply.
/// @param ritardo ms of the undisturbed reply. @param postoGenere offset of the byte that tells the kind.
QList<Invio> Guasto_Applica(const Guasto &guasto, const Risposta &risposta, int ritardo,
                            qsizetype postoGenere);
