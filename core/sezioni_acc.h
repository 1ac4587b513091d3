// The sections of an acceptance file that are read also by others than its checks.
#pragma once

#include <QStringView>

inline constexpr QStringView SEZIONE_PRENOTAZIONE = u"Prenotazione";
inline constexpr QStringView SEZIONE_LIBRETTO = u"DatiLibrettoVeicolo";
