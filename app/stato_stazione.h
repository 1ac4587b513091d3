// The state of the station in the words of the menu: version, exchange folder, port, verification of the
// instrument. It is given what was found and looks at nothing itself; nothing is decided by it.
#pragma once

#include "mctc/cartella_scambio.h"

#include <QDate>
#include <QString>

#include <array>
#include <optional>

enum class StatoVerifica
{
    Valida,
    InScadenza, ///< within the next 30 days
    Scaduta,
    SenzaData,
    Illeggibile ///< the text is no date
};

/// Judges the end of the instrument's verification, the last day on which it holds.
/// @param scadenza as the configuration keeps it: free text, day, month and year by position (dd/mm/yyyy),
/// whatever parts them, as the result file takes them. @param oggi today.
StatoVerifica Verifica_Di(const QString &scadenza, const QDate &oggi);

/// What was found of the station.
struct Rilievo
{
    bool Lista = false;                      ///< tests start from the worklist: the folder is in use
    std::optional<CartellaScambio> Cartella; ///< none: being looked at
    qint16 Porta = 0;                        ///< its number; 0 where the configuration has none
    bool PortaPresente = false;
    QString Scadenza; ///< of the verification, as the configuration keeps it
    QDate Oggi;
};

/// One line of the menu's state.
struct RigaStato
{
    QString Testo;
    bool Avviso; ///< somebody has to do something about it
};

inline constexpr qint16 RIGHE_STATO = 4;

/// The state, a line a thing: version, exchange folder, port, verification.
std::array<RigaStato, RIGHE_STATO> Stato_Righe(const Rilievo &rilievo);

/// That the configuration cannot be written; in English where an older text file has no words for it.
QString Testo_SenzaScrittura();
