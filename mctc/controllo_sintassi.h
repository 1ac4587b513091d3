// Second pass on an acceptance file: its text line by line, without the template. Looks at brackets, equals
// signs and blanks, not at names or values.
#pragma once

#include "mctc/anomalia_acc.h"
#include "platform/tipi.h"

/// Findings of the last check.
extern ListaAnomalie gAnomalieSintassi;

/// Scans a file. No trouble with the file leaves this pass: it is a finding of its own.
/// @param[out] lista the findings, built afresh. @return its last index, -1 for none.
/// @throws ErroreEsecuzione 6 past 32768 findings.
qint16 Acc_ControllaSintassi(const QString &file, ListaAnomalie &lista);
