// A screen text with its blanks %1, %2 filled. It knows no file and no id.
#pragma once

#include <QString>

/// @param testo an empty one, as a file of texts from before it gives, stays empty.
template <typename... Valori>
QString Testo_Riempito(const QString &testo, const Valori &...valori)
{
    return testo.isEmpty() ? testo : testo.arg(valori...);
}
