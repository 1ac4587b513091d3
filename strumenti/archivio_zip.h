// A zip file of a few small texts, stored as they are: whatever opens a zip opens it. No library of both
// systems makes one: the toolkit's is its own affair, and the Windows tools bring none.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>

struct VoceZip
{
    QByteArray Nome; ///< of ASCII letters
    QByteArray Byte;
};

/// @param quando stands at every entry. @return the whole file.
QByteArray Zip_Componi(const QList<VoceZip> &voci, const QDateTime &quando);
