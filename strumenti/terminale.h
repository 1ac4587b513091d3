// The terminal that the tool is run from, or the pipe. Knows nothing of what is asked.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

enum class Canale
{
    Uscita,
    Errori,
};

/// Writes a text as a terminal shows it; in a pipe or a file it is UTF-8.
void Terminale_Scrivi(Canale canale, const QString &testo);

/// Writes bytes to the output as they are, with their own line ends on every system.
void Terminale_ScriviByte(const QByteArray &byte);

/// True when a person reads the channel, no pipe and no file.
bool Terminale_Presente(Canale canale);

/// False once something written to the output was lost: a disk that is full, a pipe that nobody reads.
bool Terminale_Integro();

/// Asks for a line, the question on the error channel. At a terminal what is typed is not shown; from a pipe
/// it is the next line, in UTF-8.
/// @return the line without its end; nothing when the input has ended.
std::optional<QString> Terminale_Chiedi(const QString &domanda);
