// A plausible working day: one vehicle after another with believable figures, about one in five failing.
// The same seed gives the same day.
#pragma once

#include "simulatore/scenario.h"

#include <QRandomGenerator>

class Giornata
{
public:
    explicit Giornata(quint32 seme) : m_caso(seme) {}
    Veicolo Prossimo();

private:
    int Tra(int minimo, int massimo) { return m_caso.bounded(minimo, massimo + 1); }
    int Lux_Tipico(int base) { return base * Tra(90, 110) / 100; }

    QRandomGenerator m_caso;
};
