// Paths: the program writes a backslash everywhere; a path is mapped to the file system's own form at
// the moment of a file operation, and nowhere else.
#pragma once

#include <QString>

/// @param percorso a path of the program, with backslashes.
/// @return the path to hand to a file operation. Where the file system knows no backslash and tells upper
/// from lower case, a part that does not exist as spelled is found without regard to case; a part that
/// does not exist at all stays as spelled, so that a file can be made under that name.
QString Percorso_Nativo(const QString &percorso);

/// @param percorso a whole path of the program.
/// @return false when the path is longer than the file operations take: on Windows 259 characters, for the
/// profile calls and the listings at any rate.
bool Percorso_Ammesso(const QString &percorso);

/// The program's own folder, with backslashes and without one at its end.
QString Cartella_Programma();
