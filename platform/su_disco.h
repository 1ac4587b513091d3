// What was written goes to the disk before the next step counts on it: without being asked the system keeps
// it in memory for up to half a minute, and a share may tell only then that it has no room. It knows no file
// by name.
#pragma once

#include <QString>

/// Waits until the bytes of an open file are on the disk, or on the server of a share.
/// @param descrittore of a file open for writing, with nothing left in a buffer of the program.
/// @return false when the disk cannot hold them or the share has gone. A file system that knows no such call
/// is no refusal: what it was given it has taken.
bool File_SuDisco(int descrittore);

/// The same for the names in a folder: a new file may lose its name with the machine's power otherwise. Many
/// shares know no such call; nothing is told.
/// @param nativo path for the file system.
void Cartella_SuDisco(const QString &nativo);
