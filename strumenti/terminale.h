// The terminal that the tool is run from, or the pipe. Knows nothing of what is asked.
#pragma once

#include <QString>

#include <optional>

enum class Canale
{
    Uscita,
    Errori,
};

/// Writes a text as a terminal shows it; in a pipe or a file it is UTF-8.
void Terminale_Scrivi(Canale canale, const QString &testo);

/// Asks for a line, the question on the error channel. At a terminal what is typed is not shown; from a pipe
/// it is the next line, in UTF-8.
/// @return the line without its end; nothing when the input has ended.
std::optional<QString> Terminale_Chiedi(const QString &domanda);
