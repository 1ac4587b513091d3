// What lumira.ini has to look like, byte by byte, after a form has written to it. It reads the bytes by
// itself: the profile calls of the program are what is being judged.
#pragma once

#include <QByteArray>
#include <QList>

/// The bytes with another value behind a key, and nothing else changed. A section or a key that is not there
/// ends the test program.
QByteArray Ini_Con(const QByteArray &ini, const char *sezione, const char *chiave, const QByteArray &valore);

/// The bytes without the line of a key. Keys written anew stand at the end of their section, in the order of
/// their writing.
QByteArray Ini_Senza(const QByteArray &ini, const char *sezione, const char *chiave);

/// The lines of a section, notes and empty lines left out.
QList<QByteArray> Ini_Righe(const QByteArray &ini, const char *sezione);
