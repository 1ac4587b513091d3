// Capital letters one by one, where the toolkit's conversion of a whole text makes two letters of some. Knows
// no language.
#include "platform/maiuscole.h"

#include <algorithm>

QString Maiuscole(const QString &testo)
{
    // The names of the worklist are in capitals already, and looked up by the thousand.
    if (std::all_of(testo.cbegin(), testo.cend(), [](QChar c) { return c.toUpper() == c; }))
        return testo;
    QString grande(testo.size(), Qt::Uninitialized);
    std::transform(testo.cbegin(), testo.cend(), grande.begin(), [](QChar c) { return c.toUpper(); });
    return grande;
}
