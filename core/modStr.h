// Small helpers on texts: cutting, replacing, the stored password, the names in a profile text that has
// been read as a whole. No state, no files.
#pragma once

#include "core/brano.h"
#include "platform/tipi.h"

#include <QString>

/// Reverses the scrambling of a stored password: the character at position i (from 1) was raised by 4 times
/// i in the code page. The length stays.
/// @throws ErroreEsecuzione 6 when a character falls below 0: such a text was not made by the scheme.
QString Pwd_Decifra(const QString &cifrato);

/// The text with every occurrence replaced; byte-exact, case sensitive. The search goes on one character
/// behind the start of the last match and not behind the replacement.
/// @throws ErroreEsecuzione 6 when a position passes 16 bits: texts stay below 32768 characters.
QString Str_Sostituisci(const QString &testo, const QString &cercato, const QString &sostituto);

/// A piece of a text cut at a one-character separator. @param numero of the piece, from 1.
/// @return the piece; empty when the separator does not occur at all, for piece 1 too.
QString Str_Token(const QString &testo, const QString &separatore, qint16 numero);

/// Adds the section names of a profile text to an array, as they stand, duplicates included.
/// @return the highest index filled, -1 when the text has none.
qint16 Ini_Sezioni(const QString &testo, ListaBrani &nomi);

/// Adds the key names of one section's text to an array. Every "=" ends a key, also one inside a value:
/// such a line yields a second name, which begins where the first does.
/// @return the highest index filled, -1 when the text has none.
qint16 Ini_Chiavi(const QString &testo, ListaBrani &nomi);
