// One acceptance file under the station's check, and how it is told: to a reader, to a program. It writes
// nothing.
#pragma once

#include "mctc/modMctc.h"
#include "strumenti/fine_strumento.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// What became of one file.
struct ControlloFile
{
    QString File; ///< path of the program
    ControlloAcc Controllo;
    QString Impedimento; ///< why it could not be checked; empty when it was
};

/// Gets the check ready, once. A station has been read before.
void Controllo_Prepara();

/// Checks a file as the worklist does.
ControlloFile Controllo_Esegui(const QString &percorso);

FineStrumento Controllo_Fine(const ControlloFile &controllo);

/// Path and verdict, then the lines of the station's report. Lines end with LF.
QString Controllo_Testo(const ControlloFile &controllo);

/// The same as an object, on one line without an end. Its names and verdicts are Italian in every language.
QByteArray Controllo_Json(const ControlloFile &controllo);
