// The check of an acceptance file before its vehicle may be tested: runs the four passes and words the
// report. Knows no window and no folder.
#pragma once

#include "platform/tipi.h"

#include <QString>

/// Result of a check.
enum EsitoControllo : qint16
{
    AccBuona = 0,
    AccAnomala = 1, ///< structure or text
    AccErrata = 2,  ///< values or visual check
};

/// Characters of a report: many screens of it, and nobody reads as many.
inline constexpr qsizetype MASSIMO_RAPPORTO = 64000;

/// Checks a file against the template gFileModelloAcc, line by line, field by field and, with
/// gControlloVisivo, in its visual check. The fields are those of gCampiAcc, read before from the same file.
/// @param[out] rapporto lines for the operator, each ended by CR LF; empty for a clean file. While the
/// structure or the text is faulty the errors in the values stay out of it, for they may be its consequence.
/// A report longer than MASSIMO_RAPPORTO is cut there, at the end of a line.
/// @throws ErroreEsecuzione 6 for a file past 32767 bytes.
EsitoControllo Acc_Controlla(const QString &percorso, QString &rapporto);
