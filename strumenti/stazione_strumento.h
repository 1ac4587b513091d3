// The station whose rules a tool applies: its configuration, template and texts. The tool changes nothing of
// it.
#pragma once

#include <QString>

/// Path of the program, with backslashes and whole, for a path as somebody typed it.
QString Percorso_Intero(const QString &digitato);

/// A path of the program as the system's user knows it.
QString Percorso_Mostrato(const QString &percorso);

/// Reads a station as it reads itself at its start.
/// @param cartella as typed; empty: the station that the tool was delivered with, in the tool's own folder or
/// the one above.
/// @param[out] errore what is wrong. @return false when there is no station.
bool Stazione_Leggi(const QString &cartella, QString &errore);
