// One piece of what goes out to the station, and when. Whoever speaks on the line makes them, the bench
// sends them.
#pragma once

#include <QByteArray>
#include <QString>

/// One piece that goes out to the station.
struct Invio
{
    int ritardo = 0; ///< ms from the command
    QByteArray byte;
    int riaggancio = -1; ///< 0 or more: no bytes, the line goes away for so many ms
    QString nota;        ///< for the log
};
