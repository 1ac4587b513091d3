// The user's locale as a test wants it, wherever the program takes it from.
#pragma once

#include <QLocale>

/// Puts the separators of a locale in force, for this program; QLocale::c() has the decimal point.
void Imposta_Locale(const QLocale &locale);
