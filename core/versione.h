// The version of the program that runs, as it was built. What lumira.ini calls its version is a text of the
// installation, which an update keeps.
#pragma once

#include <QByteArray>
#include <QString>

/// E.g. "1.0.0".
QString Versione_Programma();

/// The version of another program of ours.
/// @param programma the bytes of its file. @return empty where they hold none.
QString Versione_Di(const QByteArray &programma);
