// A result file read back: its record, and where it is not what the network software expects. It knows no
// words for that and no folder.
#pragma once

#include "core/risultato.h"

#include <QList>

/// What is wrong with a line of a result file, or with the whole.
enum class ErroreFar : quint8
{
    Testa,      ///< the first line is not the head of every result file
    Mancante,   ///< no line has the key
    Estranea,   ///< the line has none of the keys
    Doppia,     ///< the key stands there a second time
    FuoriPosto, ///< the key comes behind one that follows it
    FineRiga,   ///< the line does not end with CR LF
    Valore,     ///< the value has not the form of its row
    Incoerente, ///< the verdict on the vehicle is not what the rows that decide say
};

struct DifettoFar
{
    qint32 Riga; ///< line of the file, from 1; of a missing key the line where it should stand
    ErroreFar Errore;
    QString Testo; ///< key missing or doubled, otherwise the line as it stands

    bool operator==(const DifettoFar &) const = default;
};

struct FarLetto
{
    RisultatoFar Righe; ///< all the keys; the value of a missing one is empty
    QList<DifettoFar> Difetti;
};

/// Reads a result file and looks at every line of it.
/// @param percorso with backslashes.
/// @throws ErroreEsecuzione 53 when there is no such file, 70 when it cannot be read.
FarLetto Far_Leggi(const QString &percorso);
