// The languages of the station: section of the text files, and the text that names it. In the order in which
// the settings offer them.
#pragma once

#include "core/testi_mctc.h"

struct LinguaStazione
{
    const char16_t *codice; ///< as the settings write it
    TestoMctc testo;
};

inline constexpr LinguaStazione LINGUE[] = {
    {u"it", MctcItaliano},
    {u"fr", MctcFrancese},
    {u"en", MctcInglese },
    {u"es", MctcSpagnolo},
    {u"de", MctcTedesco },
};
