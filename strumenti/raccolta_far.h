// Result files as a whole: each told to a reader or a program, all of them counted. It opens and writes none.
#pragma once

#include "mctc/lettura_far.h"
#include "strumenti/tabella.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One file that has been read.
struct FileFar
{
    QString File; ///< path of the program
    FarLetto Letto;
};

using RaccoltaFar = QList<FileFar>;

/// For whom something is told: a program gets Italian names in every language.
enum class Lettore
{
    Persona,
    Programma,
};

/// What is wrong at a line: file, line, what. One line of text without its end.
QString Difetto_Testo(const QString &file, const DifettoFar &difetto);

/// A line a vehicle: when, who, what came out, and the rows that are irregular.
Tabella Raccolta_InBreve(const RaccoltaFar &raccolta);

/// A line a vehicle with every row of its file.
Tabella Raccolta_PerEsteso(const RaccoltaFar &raccolta);

/// The same as an array of objects, with what is wrong in each file.
QByteArray Raccolta_Json(const RaccoltaFar &raccolta);

/// Vehicles counted by day, by operator and by verdict, and the irregular ones by the rows that made them so.
Tabella Raccolta_Riepilogo(const RaccoltaFar &raccolta, Lettore lettore);

/// The same as an array of objects.
QByteArray Riepilogo_Json(const RaccoltaFar &raccolta);

/// The day of a test, so that days sort as texts: yyyy-mm-dd; a value that is no date as it stands.
QString Giorno_Di(const FarLetto &letto);
