// The workstation's single-byte code page: profile files, result files and the texts on the line are
// Windows-1252. Memory holds Unicode.
#pragma once

#include <QByteArray>
#include <QString>

/// Bytes of the code page to text. Every byte has a character: the five unassigned ones pass as C1 controls.
QString Testo_DaAnsi(const QByteArray &byte);

/// Text to bytes of the code page; a character outside it becomes "?".
QByteArray Testo_InAnsi(const QString &testo);
