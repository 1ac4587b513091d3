// What an operator would not like about a form on the screen: cut texts, controls that lie on each other or
// outside, texts that are hard to read. It looks at what is painted and knows no form.
#pragma once

#include <QColor>
#include <QStringList>

#include <span>

class Modulo;
class QWidget;

/// Two controls of a form that lie on each other on purpose.
struct Sovrapposti
{
    const char *modulo; ///< the form's name
    const char *uno;
    const char *altro; ///< "*" for any
    const char *motivo;
};

/// Contrast of two colours, 1 to 21, from their relative luminance.
double Contrasto_Di(QRgb a, QRgb b);

/// True when the text of a control is not all to be seen, and no scrolling brings the rest into sight.
bool Scritta_Tagliata(QWidget *widget);

/// The faults of a form that shows, one line each, with the control's name in front. A disabled control may
/// be pale; it must not be cut.
QStringList Difetti_Di(const Modulo &modulo, std::span<const Sovrapposti> voluti = {});
