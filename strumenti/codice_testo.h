// In which code the bytes of a profile stand, as far as they tell. It knows no file.
#pragma once

#include <QByteArray>

/// True for accented letters in UTF-8. Text is only the letters of a file in this: a byte that is none of
/// UTF-8 makes it no text.
bool E_Utf8(const QByteArray &riga);
