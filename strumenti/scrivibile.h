// Whether the user may write, asked of the system's rights alone: nothing is made or changed by the question.
#pragma once

#include <QString>

/// True when the user may make files in a folder. @param cartella path of the program.
bool Cartella_Scrivibile(const QString &cartella);

/// True when the profile calls may write a file. @param file path of the program.
bool Configurazione_Scrivibile(const QString &file);
