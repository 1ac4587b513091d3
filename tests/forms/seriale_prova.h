// The serial control of the tests in place of the system's: a program that is linked with seriale_prova.cpp
// gets a line of the test's own wherever a form asks for one.
#pragma once

#include "tests/comuni/linea_prova.h"

/// What every line made from now on gets, before its session starts. An empty function leaves it silent.
void Linee_Prepara(std::function<void(LineaProva &)> preparazione);

/// The line of the last session; nullptr when its form has gone.
LineaProva *Linea_Corrente();
