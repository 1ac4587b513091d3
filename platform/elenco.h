// Folder listings, in the shape of the system's two: the directory query by path and attribute mask, and
// the find records. Both come in the order of an NTFS volume: by name, without regard to case. Of names that
// differ by case alone one comes: the one that the name in capitals opens.
#pragma once

#include <QList>
#include <QStringList>

#include <functional>

/// Attribute bits, as the file system keeps them.
inline constexpr quint32 ATTRIBUTO_NASCOSTO = 2;
inline constexpr quint32 ATTRIBUTO_CARTELLA = 16;

/// What a find record holds of one entry. Times are counts of 100 ns since 1601.
struct RecordTrovato
{
    QString cFileName;
    quint32 dwFileAttributes = 0;
    quint64 ftLastAccessTime = 0;
    quint64 ftLastWriteTime = 0;
    quint64 nFileSize = 0; ///< bytes
};

/// The find calls: every entry that matches, "." and ".." and hidden ones included.
/// @param percorso folder and mask, e.g. "C:\MCTC\DIR_FAR\*.acc".
/// @param[out] trovati the records. @param intanto runs again and again while a full folder is listed, which
/// takes a while: each file is asked for its times.
/// @return false when nothing matches or the folder cannot be listed.
bool Trova_File(const QString &percorso, QList<RecordTrovato> &trovati,
                const std::function<void()> &intanto = {});

/// Names of the records that a mask of attributes lets through; see Cartella_Elenca.
QStringList Nomi_Con(const QList<RecordTrovato> &trovati, qint16 attributo);

/// The directory query: names that match a path and an attribute mask. Mask 0 gives plain files, mask 16
/// adds folders ("." and ".." among them); hidden entries stay out. A path that ends in a backslash lists
/// the folder; a missing folder lists nothing. @param intanto  as of Trova_File.
/// @throws ErroreEsecuzione 52 when the path is bad or its place cannot be reached.
QStringList Cartella_Elenca(const QString &percorso, qint16 attributo,
                            const std::function<void()> &intanto = {});
