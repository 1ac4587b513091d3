// Fourth pass on an acceptance file: the letters, dates, times and texts of the visual check. They are read
// from the file one by one and kept nowhere.
#pragma once

#include "platform/tipi.h"

#include <QStringList>

/// Section names of the last check.
extern QStringList mErroriVisivi;

/// Checks the visual-check keys of a file.
/// @param[out] sezioni the section's name once for each fault, built afresh. @return how many.
qint16 Visivo_Controlla(const QString &percorso, QStringList &sezioni);
