// How high the capitals of a form stand on the screen, and how high what is pressed: told from what is
// painted, in pixels. It knows no form and no eye.
#pragma once

#include <QList>
#include <QString>

class Modulo;
class QWidget;

/// One control of a form; a height of 0: it has none of that kind.
struct Lettere
{
    QString controllo;    ///< the form's own name for what the form paints by itself
    double maiuscole = 0; ///< height of the capitals of its smallest text, in pixels
    double bersaglio = 0; ///< height of what the operator has to hit: a button, a line of a list; in pixels
};

/// Height of the capitals of the smallest text that a control paints; 0 for none. What its children paint is
/// not asked, but for the parts of a list.
double Maiuscole_Di(QWidget *widget);

/// What of a form can be read or pressed, a line a control. The form shows.
QList<Lettere> Lettere_Di(const Modulo &modulo);
