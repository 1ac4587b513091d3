// Third pass on an acceptance file: the value of each field of gCampiAcc, which must have been read before.
// Opens no file and paints nothing: the form colours its boxes by gErroriCampiAcc.
#pragma once

#include "mctc/formato_acc.h"

#include <QStringList>

/// Lines of the last check.
extern QStringList mErroriDati;

/// Outcome of the last check, for each row: not ValoreBuono turns a text box red.
extern std::array<ErroreValore, RIGHE_ACC> gErroriCampiAcc;

/// Checks all rows that have a kind of value.
/// @param[out] righe the report lines, built afresh. @return how many.
qint16 Dati_Controlla(QStringList &righe);

/// Checks the value of one row; see Valore_Errore for the arguments and the result.
/// @param riga 0 to 48. @throws ErroreEsecuzione 9 outside.
ErroreValore Valore_Controlla(qint16 riga, TipoControllo tipo, qint16 massimo, Vocabolario ammessi,
                              Flag obbligatorio);

/// The words for an error. @return empty for ValoreBuono.
/// @throws ErroreEsecuzione 9 for an unknown error.
QString Errore_Motivo(ErroreValore errore);

/// The report line of an error. @return empty for ValoreBuono.
/// @throws ErroreEsecuzione 9 for a row outside 0 to 48 or an unknown error.
QString Errore_Testo(qint16 riga, ErroreValore errore);
