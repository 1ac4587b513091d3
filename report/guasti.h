// What is out of order on a vehicle, in sentences: a lamp, what of it, by how much. It judges nothing anew:
// the rows of the result and the limits in force say it, as they say the colours of the table.
#pragma once

#include <QStringList>

/// A sentence for every lamp and beam that has something out of order, in the order of the table's columns;
/// none for a regular vehicle, nor with a text file from before the sentences.
QStringList Guasti_Elenca();
