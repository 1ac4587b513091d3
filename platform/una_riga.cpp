// Where a text's first line ends. Only what ends a line of our files counts: a vertical tab, a Unicode line
// separator or any other control character is a character like others.
#include "platform/una_riga.h"

#include <algorithm>

QString Una_Riga(const QString &testo)
{
    const auto fine = std::find_if(testo.cbegin(), testo.cend(),
                                   [](QChar c) { return c == u'\r' || c == u'\n' || c == u'\0'; });
    return testo.left(fine - testo.cbegin());
}
