// The files that somebody named on the command line, one by one or by their folder.
#pragma once

#include <QString>
#include <QStringList>

struct ElencoFile
{
    QStringList File;         ///< whole paths of the program, in the order of the command line
    QStringList Irreperibili; ///< as typed: neither file nor folder, or a folder that cannot be listed
};

/// Adds the plain files of a folder that a mask takes. @param cartella path of the program.
/// @return false when it cannot be listed.
bool Cartella_Elenca(QString cartella, const QString &maschera, QStringList &file);

/// @param posti files, taken as they are, and folders, of which the plain files with the extension are taken,
/// in the order of the worklist; folders in them are not.
/// @param maschera such as "*.acc".
ElencoFile File_Elenca(const QStringList &posti, const QString &maschera);
