// The screen and its unit. Screens are designed in twips: 15 a pixel, coarser on a screen so wide that a
// 16-bit position would overflow; the design grid of 15360 by 11520 always stands for the whole screen.
#pragma once

#include <QSize>

/// Sides of the design grid.
inline constexpr double GRIGLIA_X = 15360.0;
inline constexpr double GRIGLIA_Y = 11520.0;

/// Twips a pixel for a screen of that size in pixels: 15 divided by the least whole number that keeps both
/// sides within 16 bits. So a screen of twice the size looks as the smaller one, only finer.
double Twip_PerPixel(QSize pixel);

/// Size of the primary screen in twips, rounded.
qint32 Schermo_Larghezza();
qint32 Schermo_Altezza();

/// Lengths on the primary screen. A point is 20 twips, whatever the unit.
int Pixel_DaTwip(qint32 twip);
qint32 Twip_DaPixel(int pixel);
double Pixel_DaPunti(double punti);
/// The same as type is set in: whole pixels, one at least.
int Pixel_Interi(double punti);

/// The size of type of a control that asks for none, in points: 10 on the design screen, and in proportion.
double Punti_Normali();

/// The hourglass for as long as it stands. The screen has one pointer and nobody counts: where one hourglass
/// stands inside another, the pointer is the normal one from the end of the inner one on, so that what the
/// inner procedure then tells the operator is told under it.
class Clessidra
{
public:
    Clessidra();
    ~Clessidra();
    Q_DISABLE_COPY_MOVE(Clessidra)
};
