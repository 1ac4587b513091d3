// What start-up derives and reads, step by step, before any window: paths from the program's folder, the
// flags of lumira.ini, the table of screen texts.
#pragma once

#include <QString>

/// Derives every path from the program's folder. @param cartella with backslashes, none at its end.
void Avvio_Percorsi(const QString &cartella);

/// Reads the customer code, the language and the flags of section MCTC, the exchange folders and the texts.
/// A missing key is no failure: it reads as an empty text, which is False for a flag.
void Avvio_Impostazioni();

/// Chooses the pictures of the customer variant by the customer code, whatever its case.
void Avvio_Variante();
