// The looks at a station, one a matter. Each adds what it has found, good or not, in the order of the
// looking. A station has been read before (Stazione_Leggi); nothing of it is changed.
#pragma once

#include "platform/porta_seriale.h"
#include "strumenti/riscontro.h"

/// The files that the station is delivered with: there, readable, not empty, by their sums where their bill
/// is there too; and the program of which version.
void Diagnosi_Programma(Riscontri &riscontri);

/// Names of the pictures, in the folder of the pictures, without which the station ends.
QStringList Figure_Necessarie();

/// Those pictures, opened.
void Diagnosi_Figure(Riscontri &riscontri);

/// Path of the station's program.
QString Programma_Stazione();

/// lumira.ini: its lines, and its values by the rules that the station reads them by.
void Diagnosi_Configurazione(Riscontri &riscontri);

/// The screen texts, in every language.
void Diagnosi_Testi(Riscontri &riscontri);

/// The exchange folder and the files in it.
/// @param scrivi tries to write: a file whose name nobody takes for his own, gone at once. Otherwise the
/// system's rights tell.
void Diagnosi_Cartelle(Riscontri &riscontri, bool scrivi);

/// The ports of the machine, and whether the station's own opens.
/// @param chiedi asks then, once, for the state of the instrument on it.
void Diagnosi_Porte(Riscontri &riscontri, bool chiedi);

/// A port of the machine; a device without a number is of no use to the station.
void Porta_Aggiungi(Riscontri &riscontri, const PortaTrovata &porta);

/// The end of a periodic verification, by the station's own judgement.
/// @param materia where it stands: in the configuration or in the instrument. @param scadenza dd/mm/yyyy, as
/// it stands there.
void Verifica_Aggiungi(Riscontri &riscontri, Materia materia, const QString &scadenza);

/// Asks on every port, with the station's settings and the usual ones, and reads the identity of who answers.
void Diagnosi_Cerca(Riscontri &riscontri);

void Diagnosi_Stampanti(Riscontri &riscontri);

/// @param programma the tool's own file: started again with --schermo it asks for the screen alone, and may
/// fail of it.
void Diagnosi_Schermo(Riscontri &riscontri, const QString &programma);

/// The first screen of the desktop on one line: width and height in pixels, scaling. Empty without one;
/// without a display it may end the program.
/// @param argc, argv of main: it makes the application.
QString Schermo_Descrivi(int &argc, char **argv);

/// Room on the disks of the station and of the exchange folder.
void Diagnosi_Disco(Riscontri &riscontri);

/// @param byte free. @return what they are good for.
Grado Spazio_Grado(qint64 byte);

void Diagnosi_Orologio(Riscontri &riscontri);
