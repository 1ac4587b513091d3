// The evaluation: from the four records of the instrument to the result record and the result file.
#pragma once

/// Judges gMisure against the limits, fills gRisultatoFar, writes the result file of a test that came from
/// an acceptance file, and in local-folder mode removes that file.
/// It expects gMisure, gAltezzaFaro and the start time of the report tables to be set.
/// @throws ErroreEsecuzione as Carica_Limiti and Far_Scrivi do.
void Calcola_Esito();
