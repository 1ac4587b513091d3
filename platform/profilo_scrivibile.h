// Tells whether the profile calls can write a file, so that whoever sits at the station hears of it before
// the first value is lost: the callers of a write pass its result over.
#pragma once

#include <QString>

/// Does all that a write does short of changing the file.
/// @param file path of a profile that is there, with backslashes.
/// @return false when a write would fail for want of rights or room.
bool Profilo_Scrivibile(const QString &file);
