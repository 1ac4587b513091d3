// What a scenario file asks of the instrument: its vehicles, its faults, its pace. The identity and
// calibration texts of the same file are read by memoria.h.
#pragma once

#include "simulatore/comandi.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

enum class TipoGuasto : quint8
{
    Silenzio,   ///< no reply
    Controllo,  ///< the check character is wrong
    Tipo,       ///< the byte that tells the kind of reply is wrong, the check character right
    Spezzata,   ///< the reply goes out in two pieces
    Unita,      ///< the reply is held and goes out in one piece with the next one
    Rumore,     ///< bytes outside any frame before and after
    Lunga,      ///< the reply is longer than the station can hold
    Seconda,    ///< the reply goes out, and once more later
    Ritardo,    ///< the reply goes out later
    Riaggancio, ///< in place of the reply the line goes away for a while
};

struct Guasto
{
    std::optional<CodiceComando> comando; ///< empty: every command
    int daVolta = 1; ///< first and last time at which it strikes, from the start of the vehicle
    int aVolta = 1;
    TipoGuasto tipo = TipoGuasto::Silenzio;
    int numero = 0; ///< ms or bytes, by the type
};

/// The four records of six bytes, in the order left dipped, left main, right dipped, right main.
using RecordMisura = std::array<QByteArray, 4>;

/// One vehicle: how many polls are answered "1" and "2" before "4", and its records.
struct Veicolo
{
    int riposo = 0;
    int prova = 0;
    RecordMisura record;
    QList<Guasto> guasti; ///< of this vehicle alone
};

/// Names of the four records, as scenarios and log spell them.
inline constexpr std::array<const char16_t *, 4> NOMI_RECORD = {u"AnabSx", u"AbbSx", u"AnabDx", u"AbbDx"};

struct Scenario
{
    int ritardo = 40;        ///< ms from a command to its reply
    bool ricomincia = false; ///< after the last vehicle the first comes again; otherwise the last stays
    QList<Veicolo> veicoli;  ///< empty: vehicles of the plausible day
    QList<Guasto> guasti;    ///< of all vehicles
};

/// All types of fault, in the order of the documents.
QList<TipoGuasto> Guasti_Tutti();

/// A fault of that type that strikes every reply, with the number that stands for one left out.
/// @param comando empty: the replies to all commands.
Guasto Guasto_Continuo(TipoGuasto tipo, std::optional<CodiceComando> comando);

/// Name of a type of fault, as scenarios and log spell it.
QString Guasto_Nome(TipoGuasto tipo);

/// Reads a scenario file; an empty path is a scenario without vehicles and faults.
/// @param[out] scenario left as it was when there is an error, so that a slip of the pen in a file that is
/// edited while the program runs does not stop the exercise.
/// @return what is wrong, a line an error, in the language chosen (core/parole.h); empty when all is well.
QStringList Scenario_Leggi(const QString &file, Scenario &scenario);
