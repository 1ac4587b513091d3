// The ground of a list, which its widget paints and its inside does not.
#pragma once

class QAbstractScrollArea;

/// Leaves the ground to the list's own widget, which the style sheet paints. An inside that fills a ground of
/// its own is asked for by the style sheet at every paint, which keeps for ever what it found (some 1,000
/// bytes a list) by an address that it never hears the end of: a station is not closed for weeks.
/// @param elenco a list that has not been shown yet, with a ground in the style sheet.
void Fondo_AllElenco(QAbstractScrollArea &elenco);
