// Capital letters as the system's file names and profile names have them: one letter stays one letter. Knows
// no language.
#pragma once

#include <QString>

/// Each letter by its capital; one whose capital is two letters stays as it is, so that a name still names
/// the same file.
QString Maiuscole(const QString &testo);
