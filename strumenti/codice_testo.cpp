// UTF-8 is told from the station's page by its rules alone: letters of the page hardly ever keep them.
#include "strumenti/codice_testo.h"

#include <QString>

#include <algorithm>

bool E_Utf8(const QByteArray &riga)
{
    const bool accenti = std::any_of(riga.cbegin(), riga.cend(), [](char c) { return (c & 0x80) != 0; });
    return accenti && !QString::fromUtf8(riga).contains(QChar::ReplacementCharacter);
}
