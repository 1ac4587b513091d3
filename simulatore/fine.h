// The end of a program that runs until it is stopped: the system's request to stop leaves the loop, so that
// what was made is cleared away.
#pragma once

/// From here on an interrupt or a request to terminate ends QCoreApplication::exec(). Call once.
void Fine_Prepara();
