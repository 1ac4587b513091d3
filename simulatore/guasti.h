// What a fault makes of a good reply. No line and no clock: a list of what goes out, and when.
#pragma once

#include "simulatore/scenario.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One piece that goes out to the station.
struct Invio
{
    int ritardo = 0; ///< ms from the command
    QByteArray byte;
    int riaggancio = -1; ///< 0 or more: no bytes, the line goes away for so many ms
    QString nota;        ///< for the log
};

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
