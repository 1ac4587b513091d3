// The language in which a program of the command line speaks: Italian or English, a text in each. What a
// station's screen and its report say stays in the station's words.
#pragma once

#include <QString>

#include <stdexcept>

/// The places for values of a text, a bit a number: %1 is the first.
constexpr unsigned Posti_Di(QStringView testo)
{
    unsigned posti = 0;
    for (qsizetype i = 1; i < testo.size(); ++i) {
        if (testo[i - 1] == u'%' && testo[i] >= u'1' && testo[i] <= u'9')
            posti |= 1U << (testo[i].unicode() - u'1');
    }
    return posti;
}

/// One text in both languages; %1, %2 are for the caller to fill.
struct Parole
{
    /// A table of texts is constant: one that lacks a text, or a place that the other has, does not compile.
    constexpr Parole(QStringView italiano, QStringView inglese) : Italiano(italiano), Inglese(inglese)
    {
        if (italiano.isEmpty() || inglese.isEmpty() || Posti_Di(italiano) != Posti_Di(inglese))
            throw std::invalid_argument("a text in one language alone, or with other places");
    }

    QStringView Italiano;
    QStringView Inglese;
};

/// Chooses the language by its code. @return false for one that is not spoken.
bool Lingua_Scegli(const QString &codice);

/// A text in the language chosen; before any choice in Italian where the user's system is Italian or says no
/// language, otherwise in English.
QString In_Parole(const Parole &parole);
