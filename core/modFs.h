// Paths and folder contents: small, stateless procedures for the worklist and the naming of result files.
#pragma once

#include "platform/tipi.h"

#include <QString>
#include <QStringList>

/// True when a path exists under an attribute mask. With mask 0 and a folder path that ends in a backslash:
/// only if the folder holds a plain file. Any error, and an empty path, give False.
Flag Fs_Esiste(const QString &percorso, qint16 attributo);

/// True when the path of an acceptance file in the folder is no longer than file operations take.
/// @param cartella ends in a backslash.
Flag Fs_CartellaAmmessa(const QString &cartella);

/// Lists a folder's plain files, in the order in which the file system delivers them.
/// @param cartella corrected in place: it ends in a backslash afterwards.
/// @param[out] nomi the names. @param percorsoIntero the folder stands before each name.
/// @param filtroEstensione only names whose extension equals the mask's: the system's matching of a
/// three-letter mask takes longer extensions too.
/// @return the highest index filled, -1 for none.
qint32 Fs_Elenco(QString &cartella, const QString &maschera, QStringList &nomi, Flag percorsoIntero,
                 Flag filtroEstensione);

/// A folder as the procedures take it: with a backslash at its end.
QString Fs_ConBarra(const QString &cartella);

/// What stands behind the last backslash; the whole text if there is none.
QString Fs_Nome(const QString &percorso);
/// What stands behind the last point; a name without a point is its own extension.
QString Fs_Estensione(const QString &nome);
/// The file name without anything from its first point on.
QString Fs_Radice(const QString &percorso);
/// Shortens a text, in place, to what stands before its first NUL, and returns it.
QString Fs_TagliaNul(QString &testo);

/// A cheap fingerprint of a folder, no file opened: one text per entry that differs when the file changes. A
/// full folder takes longer than an operator waits for an answer: events run meanwhile.
/// @param[out] firme left as it was when nothing matches. @return the last index, -1 when nothing matches.
qint32 Fs_ElencoFirme(const QString &cartella, const QString &maschera, QStringList &firme);
