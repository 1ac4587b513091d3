// The station whose rules a tool applies: its configuration, template and texts. The tool changes nothing of
// it.
#pragma once

#include <QString>

/// Path of the program, with backslashes and whole, for a path as somebody typed it.
QString Percorso_Intero(const QString &digitato);

/// A path of the program as the system's user knows it.
QString Percorso_Mostrato(const QString &percorso);

/// Name of the station's program: it has the suffix that the tool has, on each system its own.
QString Nome_Programma();

/// What a folder is known by as a station's.
enum class SegnoStazione : quint8
{
    Configurazione, ///< lumira.ini: who works by a station's rules needs them
    AncheProgramma, ///< that or the program: a lost lumira.ini is a thing to find, not the end of the looking
};

/// Reads a station as it reads itself at its start.
/// @param cartella as typed; empty: the station that the tool was delivered with, in the tool's own folder or
/// the one above.
/// @param[out] errore what is wrong. @return false when there is no station.
bool Stazione_Leggi(const QString &cartella, SegnoStazione segno, QString &errore);
