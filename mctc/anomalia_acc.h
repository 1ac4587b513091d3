// One finding about the structure or the text of an acceptance file: what the two passes leave and the
// report words.
#pragma once

#include "core/brano.h"

#include <QList>
#include <QString>

/// What a finding is about.
enum TipoAnomalia : quint8
{
    AnomaliaSezione = 1,
    AnomaliaEntry = 2,
    AnomaliaFile = 3,
};

/// What is wrong.
enum ErroreAnomalia : quint8
{
    AnomaliaEstranea = 1,
    AnomaliaMancante = 2,
    AnomaliaDuplicata = 3,
    AnomaliaNonIdoneo = 4,
    AnomaliaNonDisponibile = 5,
    AnomaliaInizio = 6, ///< first of the two faults of a line
    AnomaliaFine = 7,   ///< second of them
    AnomaliaPosto = 8,  ///< a short or misplaced entry
};

struct AnomaliaAcc
{
    Brano Testo;     ///< the section, key, file path or whole line concerned
    quint8 Tipo;     ///< a TipoAnomalia
    quint8 Errore;   ///< an ErroreAnomalia
    QString Sezione; ///< where an entry stands; empty otherwise
    qint32 Riga = 0; ///< line of the file, from 1; 0 when the pass does not look at lines

    bool operator==(const AnomaliaAcc &) const = default;
};

using ListaAnomalie = QList<AnomaliaAcc>;
