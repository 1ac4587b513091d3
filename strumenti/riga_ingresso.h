// The next line of the standard input, as bytes. Knows no terminal.
#pragma once

#include <QString>

#include <optional>

/// @return the line without its end, LF or CRLF, from UTF-8; nothing when the input has ended.
std::optional<QString> Riga_Ingresso();
