// The window's module, looked for beside the program when the window is asked for.
#pragma once

#include "simulatore/finestra_ingresso.h"

/// Runs the window. @param cartella of the program. @return the program's status.
int Finestra_Avvia(const QString &cartella, int &argc, char **argv, const Opzioni &opzioni);
