// A sheet of lines that stands beside the tests: what a look at the forms or the controls gave when it was
// found good, held against what it gives now.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

/// What one has and the other has not, as lines "- expected" and "+ seen" under the heading, "[...]", of the
/// place where they stand; at most ten of them.
QStringList Foglio_Differenze(const QStringList &attese, const QStringList &viste);

/// Starts the running test as `--racconta` on a screen and holds what it says against the sheet that bears
/// the screen's size, e.g. "1024x768.txt". What is seen otherwise is left beside the program, to be looked
/// through and to take the place of the sheet where it is meant so.
/// @param cartella where the sheets stand, from the folder tests/forms. @param schermo in pixels.
/// @return what is wrong; empty when nothing is.
QString Foglio_Confronta(const QString &cartella, QSize schermo);
