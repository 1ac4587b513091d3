// The few words of the simulator's window, in the five languages of the station. The log that it shows is in
// Italian or English, as it is on every line and in every file.
#pragma once

#include "simulatore/scenario.h"
#include "simulatore/strumento.h"

#include <QString>

enum class Lingua : quint8
{
    Italiano,
    Francese,
    Inglese,
    Spagnolo,
    Tedesco,
};

enum class Parola : quint8
{
    Titolo,
    Stato,
    StatoRiposo,
    StatoProva,
    StatoPronta,
    DaSolo,
    Veicolo,
    AnabSx,
    AbbSx,
    AnabDx,
    AbbDx,
    Intensita,
    Verticale,
    Orizzontale,
    Regolare,
    Alto,
    Basso,
    Sinistra,
    Destra,
    Tieni,
    Guasti,
    GuastoSilenzio,
    GuastoControllo,
    GuastoTipo,
    GuastoSpezzata,
    GuastoUnita,
    GuastoRumore,
    GuastoLunga,
    GuastoSeconda,
    GuastoRitardo,
    GuastoRiaggancio,
    Comando,
    Tutti,
    Trame,
};

/// @param sigla two capitals, as the station spells its languages; empty for that of the system, or Italian
/// where the system's is none of the five.
Lingua Lingua_Scelta(const QString &sigla);

QString Testo(Parola parola, Lingua lingua);

/// The word of one of a row of things, each in the order of its own table.
Parola Parola_Stato(StatoStrumento stato);
Parola Parola_Record(size_t numero);
Parola Parola_Guasto(TipoGuasto tipo);
