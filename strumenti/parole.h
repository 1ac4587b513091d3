// The language in which a tool speaks: Italian or English, a text in each. What a station's report says stays
// in the station's words.
#pragma once

#include <QString>

/// One text in both languages; %1, %2 are for the caller to fill.
struct Parole
{
    QStringView Italiano;
    QStringView Inglese;
};

/// Chooses the language by its code. @return false for one that is not spoken.
bool Lingua_Scegli(const QString &codice);

/// A text in the language chosen; before any choice in Italian where the user's system is Italian or says no
/// language, otherwise in English.
QString In_Parole(const Parole &parole);
