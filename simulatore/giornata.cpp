// Figures drawn by chance within the limits of a new installation, and the lamps out of order. It knows no
// frame.
#include "simulatore/giornata.h"

#include <iterator>

namespace {

constexpr int UNO_SU = 5; // vehicles of which one fails

/// Figures of a lamp in order, in hundreds, 10% to either side stays inside the limits of a new
/// installation: dipped 38 to 899, main 201 to 1499.
constexpr int ANAB_MINIMO = 70;
constexpr int ANAB_MASSIMO = 540;
constexpr int ABB_MINIMO = 300;
constexpr int ABB_MASSIMO = 1200;

/// One lamp out of order. Letters other than "O" are irregular for the station whatever they are; these are
/// the simulator's own: A too high, B too low, S to the left, D to the right.
struct Difetto
{
    bool abbagliante;
    char esitoV;
    char esitoO;
    int luxMinimo; ///< 0 and 0: the figure is in order
    int luxMassimo;
};

// clang-format off
constexpr Difetto DIFETTI[] = {
    {false, 'O', 'O',   12,   37},
    {false, 'O', 'O',  900, 1200},
    {true,  'O', 'O',   60,  200},
    {true,  'O', 'O', 1500, 1900},
    {false, 'A', 'O',    0,    0},
    {false, 'B', 'O',    0,    0},
    {false, 'O', 'S',    0,    0},
    {true,  'O', 'D',    0,    0},
};
// clang-format on

QByteArray Record_Componi(int lux, char esitoV, char esitoO)
{
    return QByteArray::number(lux).rightJustified(4, '0') + esitoV + esitoO;
}

} // namespace

Veicolo Giornata::Prossimo()
{
    Veicolo veicolo;
    veicolo.riposo = Tra(3, 6);
    veicolo.prova = Tra(5, 12);
    const int anab = Tra(ANAB_MINIMO, ANAB_MASSIMO);
    const int abb = Tra(ABB_MINIMO, ABB_MASSIMO);
    std::array<int, 4> lux{};
    for (size_t i = 0; i < lux.size(); ++i)
        lux[i] = Lux_Tipico(i % 2 == 0 ? anab : abb);
    for (size_t i = 0; i < lux.size(); ++i)
        veicolo.record[i] = Record_Componi(lux[i], 'O', 'O');
    if (Tra(1, UNO_SU) != 1)
        return veicolo;

    const Difetto &difetto = DIFETTI[Tra(0, static_cast<int>(std::size(DIFETTI)) - 1)];
    const size_t lampada = (Tra(0, 1) == 0 ? 0U : 2U) + (difetto.abbagliante ? 1U : 0U);
    if (difetto.luxMassimo > 0)
        lux[lampada] = Tra(difetto.luxMinimo, difetto.luxMassimo);
    veicolo.record[lampada] = Record_Componi(lux[lampada], difetto.esitoV, difetto.esitoO);
    return veicolo;
}
