// The check of an acceptance file before its vehicle may be tested: runs the four passes and words the
// report. Knows no window and no folder.
#pragma once

#include "mctc/rilievo_acc.h"
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

/// What a check has come to.
struct ControlloAcc
{
    EsitoControllo Esito = AccBuona;
    ListaRilievi Rilievi; ///< what the report tells, in its order; not beyond what it holds
};

/// Checks a file against the template gFileModelloAcc, line by line, field by field and, with
/// gControlloVisivo, in its visual check. The fields are those of gCampiAcc, read before from the same file.
/// While the structure or the text is faulty the errors in the values are not told, for they may be its
/// consequence.
/// @throws ErroreEsecuzione 6 for a file past 32767 bytes.
ControlloAcc Acc_Esamina(const QString &percorso);

/// The same for the operator.
/// @param[out] rapporto its lines, each ended by CR LF; empty for a clean file. A report longer than
/// MASSIMO_RAPPORTO is cut there, at the end of a line.
/// @throws ErroreEsecuzione 6 for a file past 32767 bytes.
EsitoControllo Acc_Controlla(const QString &percorso, QString &rapporto);
