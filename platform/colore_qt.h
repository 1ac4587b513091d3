// What the colours of the rules look like, for whoever paints: the sheet of the printer, the controls.
#pragma once

#include "platform/colori.h"

#include <QColor>

/// What a colour of platform/colori.h looks like.
QColor Colore_Da(quint32 colore);
