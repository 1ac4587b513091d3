// A file whose bytes are replaced all at once. Knows nothing of what they mean.
#pragma once

#include <QByteArray>
#include <QString>

/// Puts new bytes in the place of a file's, or makes the file: a new file beside the old one takes its name,
/// so that the old or the new bytes are there, whole, whenever the process or the machine dies.
///
/// The new file has the owner, the group, the rights, the access list and the extended attributes of the old
/// one, as far as this user may give them. Another hard link of the old file keeps the old bytes: writing
/// through it would mean changing them in their place, half of them when the machine dies. Whoever wants a
/// second name makes a symbolic link.
/// @param nativo path for the file system, not of a symbolic link.
/// @return true when the file holds the bytes; on false it is as it was.
bool File_Sostituisci(const QString &nativo, const QByteArray &byte);

/// What is left to do behind File_Sostituisci, which no other writer need wait for: the folder goes to the
/// disk with the new name, and what killed writers have left beside the file for more than a day is removed.
/// That is looked for at the first time in a day.
void File_Riassetta(const QString &nativo);
