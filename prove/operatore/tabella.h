// The table of what came of the days: a row a system.
#pragma once

#include "prove/operatore/giornata.h"

#include <QByteArray>

namespace operatore {

/// @param seme of the first day.
/// @param sistema that the days were lived on, e.g. "Debian GNU/Linux 12 (bookworm)".
/// @param vecchia the section as it was: the rows of other systems stay, since no one machine runs all.
/// @return the table, its rows by their systems.
QByteArray Tabella(const Giornate &giornate, quint32 seme, const QByteArray &sistema,
                   const QByteArray &vecchia);

} // namespace operatore
