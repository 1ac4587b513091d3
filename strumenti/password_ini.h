// A password put into the lumira.ini of a station, and read back as the station reads it. Knows no terminal.
#pragma once

#include <QString>

/// How a run of the tool ends: its exit status.
enum class EsitoPassword
{
    Scritta = 0,
    PasswordRifiutata = 1, ///< empty, not the same twice, or not to be kept by the file
    UsoErrato = 2,
    FileRifiutato = 3, ///< missing, no lumira.ini, or not to be written
};

/// True for a file with the section that the passwords stand in.
/// @param[out] errore what is wrong, in the language chosen; untouched when it is good.
bool Ini_Adatto(const QString &file, QString &errore);

/// Writes a password under Pwd and Pwd2: the station asks for one or the other, and by the end of a test
/// always for the first, so that they are the same. Before it, the file is copied beside itself under its
/// name and the time ("lumira.ini.20260131-184500"); after it, both are read as the station reads them. On
/// anything but Scritta the file is as it was.
/// @param file one that is Ini_Adatto.
/// @param[out] copia path of the copy; empty when none is left behind.
/// @param[out] errore what is wrong, in the language chosen; empty when the password stands in the file.
EsitoPassword Password_Scrivi(const QString &file, const QString &password, QString &copia, QString &errore);
