// How qx5sim ends when something is wrong: the words on the standard error, and the status that tells. The
// words of what befalls a line, whoever speaks on it.
#pragma once

#include <QString>

/// Statuses of the program; 0 stands for one that was stopped.
inline constexpr int STATO_NON_PARTITO = 1;
inline constexpr int STATO_LINEA_PERDUTA = 2; ///< a device has gone, or a record can no longer be written
inline constexpr int STATO_DIVERSO = 3;       ///< the station did otherwise than the record that was played

/// Tells what is wrong. @return the status of a program that does not start.
int Errore_Mostra(const QString &errore);

/// What to say of a device that has gone. @param dispositivo as it was named.
QString Dispositivo_Perduto(const QString &dispositivo);

/// What to say when the station has closed its end of the line.
QString Porta_Chiusa();
