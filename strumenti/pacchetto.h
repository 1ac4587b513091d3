// What the support gets of a station: the findings, its configuration without passwords, the checksums of its
// texts.
#pragma once

#include "strumenti/riscontro.h"

/// Writes the package. A file that is there already is somebody's: it stays.
/// @param file as typed. @param stazione its folder, as the system's user knows it.
/// @return false when it could not be written.
bool Pacchetto_Scrivi(const QString &file, const Riscontri &riscontri, const QString &stazione);

/// A configuration whose passwords are stars, wherever one stands: in a second section, twice, in a note.
QByteArray Senza_Password(const QByteArray &configurazione);
