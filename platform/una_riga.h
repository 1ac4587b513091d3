// One line of text: what a line of a file, a text box and a frame's field can hold. Knows no file and no box.
#pragma once

#include <QString>

/// The text up to its first CR, LF or NUL, those not included; the whole text when it has none. What stands
/// behind them would begin a line of its own in a profile or result file, or be lost behind a C string's end.
QString Una_Riga(const QString &testo);
