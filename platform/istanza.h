// One station a workstation: tells whether this very program runs already.
#pragma once

/// Takes the program's lock for the whole run; a crash releases it.
/// @return true when another instance of the same installed program holds it.
bool Istanza_Precedente();
