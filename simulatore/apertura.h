// The station's side of the line as whoever starts the program has it: which line, under which link, and the
// word that it is ready.
#pragma once

#include "simulatore/collegamento.h"
#include "simulatore/linea.h"
#include "simulatore/opzioni.h"

/// The line to the station that the options ask for: a pseudo terminal, or a real device.
std::unique_ptr<Linea> Linea_Stazione(const Opzioni &opzioni);

/// Opens the line, makes the link and tells on the standard output that it is ready.
/// @param[out] errore why not, when it returns false.
bool Linea_Apri(Linea &linea, Collegamento &collegamento, QString &errore);
