// The screen texts by the numbers that the text files and their translators know. A test does not take the
// program's names for them: a name that stands at another text's number would then be seen by nobody.
#pragma once

#include "core/testi_lingua.h"
#include "core/testi_mctc.h"

/// @param numero of a text of lingueMCTC.ini; -1 for none.
constexpr TestoMctc Id_Mctc(int numero)
{
    return static_cast<TestoMctc>(numero);
}

/// @param numero of a text of lingue.ini.
constexpr TestoLingua Id_Lingua(int numero)
{
    return static_cast<TestoLingua>(numero);
}
