// The system's serial control, behind this one header: on Windows in seriale_win32.cpp, elsewhere in
// seriale_qt.cpp.
#pragma once

#include "link/controllo_seriale.h"

#include <memory>

/// Makes the system's serial control. Port n is COMn on Windows; elsewhere the link porte/COMn in the
/// program's folder if it is there (to any terminal device), else /dev/ttyS(n-1).
std::unique_ptr<ControlloSeriale> Crea_ControlloSeriale();
