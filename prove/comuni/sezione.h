// The sections of docs/affidabilita.md: each is written anew by its own command, between two marks, and
// leaves the others alone. What stands in them is the commands' business.
#pragma once

#include <QByteArray>
#include <QString>

/// Puts a section in the place of the one that the document has under this name, or at its end.
/// @param documento path of the document; one that is not there is begun.
/// @param nome of the marks, lower case, e.g. "modello dello scambio".
/// @param testo heading, text and tables, ended by a line break.
/// @return false when the document cannot be written.
bool Sezione_Scrivi(const QString &documento, const QByteArray &nome, const QByteArray &testo);

/// @param documento path of the document; one that is not there has no section.
/// @param nome as Sezione_Scrivi has it.
/// @return what stands between the marks; empty when there are none.
QByteArray Sezione_Leggi(const QString &documento, const QByteArray &nome);
