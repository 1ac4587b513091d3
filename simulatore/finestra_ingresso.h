// The way into the module of the window. It stands apart from the program: what plays without a window needs
// neither a display nor the libraries of one.
#pragma once

#include "simulatore/opzioni.h"

/// Shows the window with its exercise until it is closed. @return the program's status.
using IngressoFinestra = int (*)(int &argc, char **argv, const Opzioni &opzioni);

/// The name under which the module gives it.
inline constexpr char NOME_INGRESSO_FINESTRA[] = "qx5sim_finestra";
