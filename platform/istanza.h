// One station a workstation: tells whether the program of this folder runs already.
#pragma once

/// Takes the program's lock for the whole run; a crash releases it, an upgrade of a running station does not.
/// @return true when another instance of the same installed program holds it.
bool Istanza_Precedente();
