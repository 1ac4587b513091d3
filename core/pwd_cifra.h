// The scrambling of a stored password, the other way round of Pwd_Decifra. The station never does it: the
// stored text comes with the installation.
#pragma once

#include <QString>

/// Raises the character at position i (from 1) by 4 times i in the code page. What it is raised to is one
/// byte, so a place has its highest character: small letters without accent reach place 33, "à" the seventh,
/// "è" and "é" the fifth, "ò" the third, "ù" the first; capitals go further.
/// @param[out] cifrato the text to store in Pwd or Pwd2.
/// @param[out] errore what is wrong, for the installer, in the language chosen (core/parole.h); empty when
/// the text is good.
/// @return true when the password can be stored and read back as it was.
bool Pwd_Cifra(const QString &password, QString &cifrato, QString &errore);
