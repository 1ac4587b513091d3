// The acceptance file at hand as a record of 49 fields, and the two questions that the flow asks of a file
// without opening it as a whole. Knows no window: the form adds the layout of the rows.
#pragma once

#include "mctc/formato_acc.h"

/// The fields of the file last opened; row numbers as in REGOLE_ACC.
extern std::array<CampoForm, RIGHE_ACC> gCampiAcc;

/// Fills the fixed members of the 49 rows, on a table that Campi_Azzera has cleared: section, key, caption,
/// kinds. Acceptance data are never edited here: every row is display-only.
void Campi_ImpostaAcc();

/// Points the 49 rows at a file. @param percorso with backslashes.
void Acc_AssegnaFile(const QString &percorso);

/// Points the 49 rows at a file and reads them, for whoever shows them to nobody. The worklist reads them
/// with its boxes. @param percorso with backslashes.
void Acc_Apri(const QString &percorso);

/// A row of gCampiAcc. @throws ErroreEsecuzione 9 for a number outside 0 to 48.
CampoForm &Campo_Acc(qint16 riga);

/// The plate of a file, empty when it has none; gCampiAcc stays as it is.
QString Targa_Leggi(const QString &percorso);

/// True when the file's visual check has been filled in, told by the first point of its list.
Flag Visivo_Compilato(const QString &percorso);
