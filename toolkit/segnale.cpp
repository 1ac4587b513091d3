// The sound that calls the operator, by the toolkit. It knows neither form nor timer.
#include "toolkit/segnale.h"

#include <QApplication>

void Segnale_Acustico()
{
    QApplication::beep();
}
