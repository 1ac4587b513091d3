// Fourth pass on an acceptance file: the letters, dates, times and texts of the visual check. They are read
// from the file one by one and kept nowhere.
#pragma once

#include "mctc/regole_valore.h"
#include "platform/tipi.h"

#include <QList>
#include <QStringList>

/// One fault of the visual check.
struct DifettoVisivo
{
    QString Sezione;
    QString Chiave;
    ErroreValore Errore;
};

/// Section names of the last check, and the faults they stand for, in the order of checking. A key may have
/// several.
extern QStringList mErroriVisivi;
extern QList<DifettoVisivo> gDifettiVisivi;

/// Checks the visual-check keys of a file.
/// @param[out] sezioni the section's name once for each fault, built afresh. @return how many.
qint16 Visivo_Controlla(const QString &percorso, QStringList &sezioni);
