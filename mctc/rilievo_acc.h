// One finding of the check of an acceptance file, as it is told: the line of the report and its parts. Who
// found it, and how, is not known here.
#pragma once

#include <QList>
#include <QString>

struct RilievoAcc
{
    QString Testo;   ///< the line of the report, without its end
    QString Sezione; ///< empty where the finding has none
    QString Campo;   ///< key of the file; empty where the finding has none
    QString Motivo;  ///< what is wrong, in the words of the report
    qint32 Riga = 0; ///< line of the file, from 1; 0 where there is none, as for what is missing
};

using ListaRilievi = QList<RilievoAcc>;
