// A station's day with somebody at it who does anything: forms, folder, instrument and printer by chance, on
// a test's clock. It is a process of its own, since the program may end by an error.
#pragma once

namespace operatore {

/// The first argument of a process that lives a day: after it come its seed and how many actions it has. It
/// says on standard output what it is about to do, a line an action. Before it ends by an error it says,
/// behind a SEGNO_DOPO, what that followed.
inline constexpr const char *ARGOMENTO_VITA = "vita";

inline constexpr const char *SEGNO_DOPO = "@ ";

/// How it ended. One that ends by a run-time error has the program's own status, 1.
enum EsitoVita
{
    VitaBuona = 0,
    VitaFinitaPerErrore = 1,
    VitaGuasta = 3, ///< a file changed that no rule changes: a line with a "!" tells which
};

/// @return an EsitoVita.
int Vita_Vivi(int &quanti, char **argomenti);

} // namespace operatore
