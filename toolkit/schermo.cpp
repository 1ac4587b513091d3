// The primary screen, measured anew at every question, and its pointer. It knows no form.
#include "toolkit/schermo.h"

#include "platform/unita.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr double TWIP_PIXEL = 15.0;
constexpr double POSIZIONE_MASSIMA = 32767.0;
constexpr double PUNTI_DISEGNO = 10.0;

QSize Pixel_Schermo()
{
    return QGuiApplication::primaryScreen()->geometry().size();
}

double Unita()
{
    return Twip_PerPixel(Pixel_Schermo());
}

} // namespace

double Twip_PerPixel(QSize pixel)
{
    const int lato = std::max(pixel.width(), pixel.height());
    return TWIP_PIXEL / std::max(1.0, std::ceil(lato * TWIP_PIXEL / POSIZIONE_MASSIMA));
}

qint32 Schermo_Larghezza()
{
    return Twip_DaPixel(Pixel_Schermo().width());
}
qint32 Schermo_Altezza()
{
    return Twip_DaPixel(Pixel_Schermo().height());
}

int Pixel_DaTwip(qint32 twip)
{
    return static_cast<int>(std::lround(twip / Unita()));
}
qint32 Twip_DaPixel(int pixel)
{
    return static_cast<qint32>(std::lround(pixel * Unita()));
}
double Pixel_DaPunti(double punti)
{
    return punti * TWIP_PUNTO / Unita();
}

int Pixel_Interi(double punti)
{
    return std::max(1, static_cast<int>(std::lround(Pixel_DaPunti(punti))));
}

double Punti_Normali()
{
    return PUNTI_DISEGNO * std::min(Schermo_Larghezza() / GRIGLIA_X, Schermo_Altezza() / GRIGLIA_Y);
}

Clessidra::Clessidra()
{
    if (QApplication::overrideCursor() == nullptr)
        QApplication::setOverrideCursor(Qt::WaitCursor);
}

Clessidra::~Clessidra()
{
    if (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
}
