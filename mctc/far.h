// The result file: the answer to one acceptance file, in the same folder. Writes the result record as it
// stands; how it came about is the evaluation's.
#pragma once

#include <QString>

/// First line of a result file: the head that makes a profile text of it.
inline constexpr QStringView TESTA_FAR = u"[Kandelo]";

/// Path of the result file written last. Nothing reads it.
extern QString gFileFar;

/// Writes gRisultatoFar to gDirAcc, under the base name of the acceptance file with ".far", in place of an
/// older result. @param percorsoAcc path of the acceptance file, not empty.
/// @throws ErroreEsecuzione 76, 70 or 61 when it cannot be written; see File_ScriviRighe.
void Far_Scrivi(const QString &percorsoAcc);
