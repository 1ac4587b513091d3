// A table of texts and its two ways out: columns for a reader, comma-separated values for a program. It knows
// no file and no terminal.
#pragma once

#include <QList>
#include <QStringList>

struct Tabella
{
    QStringList Colonne;
    QList<QStringList> Righe; ///< each as long as Colonne
};

/// Columns as wide as their longest text, two blanks between them, a heading above. Lines end with LF.
QString Tabella_Testo(const Tabella &tabella);

/// RFC 4180: lines end with CR LF, the heading is the first, a value with a comma, a quote or a line break
/// stands in quotes and its quotes are doubled. In UTF-8.
QByteArray Tabella_Csv(const Tabella &tabella);
