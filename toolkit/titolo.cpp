// A bold label in the colour of the look. Where it stands is the form's.
#include "toolkit/titolo.h"

#include "toolkit/aspetto.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"

Titolo::Titolo(QWidget *finestra, const QString &nome) : Etichetta(finestra, nome)
{
    ForeColor(Numero_Tinta(Tinta::Fuoco));
    FontBold(true);
    FontSize(Punti_Normali() * LETTURA_TASTIERA);
    Allineamento(Orizzontale::Sinistra, Verticale::Alto);
}
