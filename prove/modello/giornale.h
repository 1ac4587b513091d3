// What a session does to its window and to the line, in the order in which it happens: the machine and the
// model each write one, and the two must be the same.
#pragma once

#include <QStringList>

namespace modello {

struct Giornale
{
    bool Muto = false; ///< nobody will read it
    QStringList Righe;

    void Annota(QLatin1String cosa, const QString &valore)
    {
        if (!Muto)
            Righe.append(cosa + u' ' + valore);
    }
    void Annota(QLatin1String cosa, qint64 valore)
    {
        if (!Muto)
            Righe.append(cosa + u' ' + QString::number(valore));
    }
};

} // namespace modello
