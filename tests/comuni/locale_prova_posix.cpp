// Outside Windows the program takes the toolkit's default.
#include "tests/comuni/locale_prova.h"

void Imposta_Locale(const QLocale &locale)
{
    QLocale::setDefault(locale);
}
