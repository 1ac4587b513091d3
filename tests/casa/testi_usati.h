// The screen texts that the program shows, found in its source: the calls that take one, and the constants
// and tables that hold their ids. It knows no file of texts.
#pragma once

#include "tests/casa/regole_casa.h"

struct TestiUsati
{
    QSet<int> mctc;     ///< ids of lingueMCTC.ini
    QSet<int> lingua;   ///< ids of lingue.ini
    QStringList oscuri; ///< places whose ids the search cannot tell, one line each
};

/// The texts that the modules and forms of a tree show.
TestiUsati Testi_Usati(const Sorgenti &sorgenti);
