// One row of a form's table of fields, and the reading of its value. What a form makes of the rows is
// modCtl's business: this file knows no control.
#pragma once

#include "core/chiavi.h"
#include "core/testi_mctc.h"
#include "platform/tipi.h"

#include <QString>
#include <QStringList>

#include <span>

/// Control of a row.
enum TipoCampo : quint8
{
    CampoNessuno = 0,
    CampoTesto = 1,
    CampoCombo = 2,
    CampoSpunta = 4,
    CampoSoloValore = 5,
};

/// Kind of a value, for forms that check it.
enum TipoValore : qint16
{
    ValoreNessuno = -1,
    ValoreTesto = 0,
    ValoreNumero = 1,
    ValoreData = 2,
    ValoreOra = 3,
};

/// The defaults are the state after Campi_Azzera. Positions in twips.
struct CampoForm
{
    QString Nome;                    ///< nothing reads it
    TestoMctc LabelId = MctcNessuno; ///< the caption; MctcNessuno: the row has no label
    QString Value;                   ///< current text of the row
    quint8 Kind = CampoNessuno;
    qint16 CtlIndex = -1; ///< index of the row's control in its array, filled by Campi_Crea
    QString Section;
    QString Key; ///< empty: the row is not read from any file
    Flag Editable = Vero;
    Flag Dirty = Falso; ///< only such rows are written back
    quint8 LabelEnabledByEditable = 0;
    QStringList List;            ///< items of a combo box; Campi_Azzera leaves it alone
    qint16 ListIndexDefault = 0; ///< item that a combo box shows, or first value of a check box
    qint16 ValueKind = ValoreNessuno;
    qint16 DateFormat = -1; ///< display form of a text: -1 as stored, 0 stored date, 1 stored time
    QString File;           ///< profile file of the row
    qint16 CtlLeft = -1;
    qint16 CtlTop = -1;
    qint16 CtlHeight = -1; ///< no procedure reads it
    qint16 CtlWidth = -1;  ///< -1: design width
    qint16 LabelLeft = -1;
    qint16 LabelTop = -1;
};

/// A form's table, with fixed bounds from 0.
using TabellaCampi = std::span<CampoForm>;

/// Sets rows 0 to the last to the defaults, all but List; a negative last row does nothing.
void Campi_Azzera(TabellaCampi tabella, qint16 ultimaRiga);

/// Has a row stand for a key of lumira.ini: sets its File, Section and Key.
void Campo_Chiave(CampoForm &campo, const ChiaveIni &chiave);

/// Clears a row's Value and, when it has a key, reads it from its profile file.
void Campo_Leggi(CampoForm &campo);

/// Writes the rows that are Dirty and have a section to lumira.ini, whatever file they were read from.
void Campi_Salva(TabellaCampi tabella, qint16 ultimaRiga);

/// Display form of a stored value: format 0 and 8 characters: dd/mm/yyyy; format 1 and 6 characters:
/// hh.mm.ss; anything else unchanged.
QString Campo_Formato(const QString &valore, qint16 formato);
