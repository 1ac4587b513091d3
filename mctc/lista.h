// The entries of the worklist and the comparison of two listings of its folder. Knows no list box.
#pragma once

#include "platform/tipi.h"

#include <QList>
#include <QString>
#include <QStringList>

/// One file of the worklist.
struct VoceLista
{
    QString NomeFile; ///< upper case, without folder
    QString Targa;
    QString Stato;    ///< not shown
    QString Riserva1; ///< stays empty
    QString Riserva2; ///< stays empty
};

/// Lists the acceptance files of a folder, in the order of the folder, each opened once for its plate.
/// Events run behind every file; what they see of voci is the reading before.
/// @param[out] voci left as it was when there is no file or the folder cannot be listed.
/// @return the last index, -1 for none.
qint32 Lista_Leggi(const QString &cartella, QList<VoceLista> &voci);

/// The lines that show the first entries: name, a tab, plate.
QStringList Lista_Righe(const QList<VoceLista> &voci, qint32 quante);

/// Compares two listings. @return -1 when they are the same, anything else when they differ.
qint32 Liste_Differenze(const QStringList &prima, const QStringList &dopo);

/// Looks for an entry whose plate holds a text, without regard to case; where no plate does, for one whose
/// file's name does. @param da where to begin. @param passo 1 or -1: at the end the search goes on at the
/// other.
/// @return its index, -1 for none.
qint32 Lista_Cerca(const QList<VoceLista> &voci, const QString &testo, qint32 da, qint32 passo);
