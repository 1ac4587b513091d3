// The exchange folder at a look: whether it is there, and which of its acceptance files already have their
// result beside them. It opens no file.
#pragma once

#include "platform/tipi.h"

#include <QSet>
#include <QString>

#include <functional>

enum class StatoCartella
{
    ConAccettazioni,
    Vuota,      ///< no acceptance file in it
    Mancante,   ///< not there, or out of reach
    Illeggibile ///< there, but it cannot be listed, or lies too deep for its files
};

struct CartellaScambio
{
    StatoCartella Stato = StatoCartella::Mancante;
    qint32 InAttesa = 0; ///< acceptance files without a result
};

/// Looks at an exchange folder once. No events run meanwhile.
/// @param cartella ends in a backslash.
CartellaScambio Cartella_Guarda(const QString &cartella);

/// The vehicles of a folder that have their result.
using VeicoliFatti = QSet<QString>;

/// Finds them: the names of the result files that are not empty, in capitals, up to their first point, as the
/// result file takes its name from the acceptance file.
/// @param cartella ends in a backslash. @param intanto  runs again and again while a full folder is listed.
/// @return nothing for a folder that cannot be listed.
VeicoliFatti Fatti_Elenca(const QString &cartella, const std::function<void()> &intanto = {});

/// True when the result of an acceptance file is among those. @param nomeFile without folder.
bool E_Fatto(const VeicoliFatti &fatti, const QString &nomeFile);
