// What a look at a station has found, and how it is told: to a reader, to a program. It looks at nothing
// itself.
#pragma once

#include "strumenti/fine_strumento.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// What was looked at.
enum class Materia : quint8
{
    Programma,
    Configurazione,
    Testi,
    Cartelle,
    Porte,
    Strumento,
    Stampanti,
    Schermo,
    Disco,
    Orologio,
};

enum class Grado : quint8
{
    Buono,
    Avviso, ///< the station works, and somebody should look at it
    Guasto, ///< a test does not get to its end, or its result is worth nothing
};

struct Riscontro
{
    Materia Di;
    Grado Livello;
    QString Trovato;
    QString Rimedio; ///< what to do; empty where nothing is
};

using Riscontri = QList<Riscontro>;

// Each adds one.
void Trovato_Buono(Riscontri &riscontri, Materia materia, const QString &trovato);
void Trovato_Avviso(Riscontri &riscontri, Materia materia, const QString &trovato, const QString &rimedio);
void Trovato_Guasto(Riscontri &riscontri, Materia materia, const QString &trovato, const QString &rimedio);

/// Anomalie as soon as one is not good.
FineStrumento Riscontri_Fine(const Riscontri &riscontri);

/// One line, ended by LF: how it stands, what was looked at and found, what to do.
QString Riscontro_Testo(const Riscontro &riscontro);

/// An object with the station, the tool's version, the time and the findings, ended by LF. Names of members,
/// of grades and of what was looked at are Italian in every language.
/// @param stazione its folder, as the system's user knows it.
QByteArray Riscontri_Json(const Riscontri &riscontri, const QString &stazione);
