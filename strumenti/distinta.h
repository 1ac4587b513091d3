// The bill that a station is delivered with: every file of it with its sum. It judges nothing.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/// Sums (SHA-256, hexadecimal) by the name of the file in the station's folder, with backslashes. lumira.ini
/// has none: it is the workshop's from the first day.
using Distinta = QHash<QString, QByteArray>;

/// Reads the bill of the station at hand. @return empty for a station without one.
Distinta Distinta_Leggi();

/// The sum of a file's bytes, as the bill has it.
QByteArray Somma_Di(const QByteArray &byte);
