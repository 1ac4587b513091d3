// What leaves the workshop shows no password, nor what is left of one in a line that somebody has spoiled.
#pragma once

#include <QString>

/// Stars in the place of what follows a password's name, to the end of its line, in any line: in a second
/// section, in a note, behind a colon or nothing. The scrambling is no secret, so that every password counts
/// as legible.
/// @param testo lines with whatever ends. Every other letter stays.
QString Password_Coperte(const QString &testo);
