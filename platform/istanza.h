// One station a workstation: tells whether the program of this folder runs already.
#pragma once

#include <QString>

/// Takes the program's lock for the whole run; a crash releases it, an upgrade of a running station does not.
/// @return true when another instance of the same installed program holds it.
bool Istanza_Precedente();

/// True when a station's program runs now. It takes no lock: a station may start at the same moment.
/// @param programma path of its file, with backslashes.
bool Istanza_InCorso(const QString &programma);
