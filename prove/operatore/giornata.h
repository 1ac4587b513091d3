// Days of an operator who does anything, one after the other, each in a process of its own and each from its
// own seed.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>

namespace operatore {

struct Giornate
{
    int Azioni = 0;
    int Vite = 0;
    QMap<QString, int> Errori; ///< days that ended by a run-time error, by its words and its place
    QString Guasto; ///< what was not to be: seed, action, and what came before it; empty when all went well
};

/// Lives days until so many actions have been done, or something has happened that must not.
/// @param seme of the first day; the others follow it.
/// @param avviso gets a line a day.
Giornate Giornate_Vivi(int azioni, quint32 seme, const std::function<void(const QString &)> &avviso);

} // namespace operatore
