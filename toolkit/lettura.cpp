// The sizes as parts of the normal one, which follows the screen. It knows no control.
#include "toolkit/lettura.h"

#include "toolkit/schermo.h"

#include <array>

double Punti_Lettura(Lettura lettura)
{
    constexpr std::array VOLTE = {1.15, 2.2, 3.5};
    return Punti_Normali() * VOLTE[static_cast<size_t>(lettura)];
}
