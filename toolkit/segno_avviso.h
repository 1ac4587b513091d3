// The warning sign: drawn, not loaded, so that it is as crisp on a large screen as on a small one.
#pragma once

#include <QPixmap>

/// The sign on a ground that shows through. @param lato side of the picture in pixels.
QPixmap Segno_Avviso(int lato);
