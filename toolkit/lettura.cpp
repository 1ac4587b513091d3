// The one line of a label, measured in the type that the label asks for.
#include "toolkit/lettura.h"

#include "toolkit/controlli.h"
#include "toolkit/schermo.h"

#include <QFontMetrics>

#include <algorithm>
#include <cmath>

void Mostra_Accorciata(Etichetta &etichetta, const QString &testo)
{
    if (etichetta.Widget() == nullptr)
        return;
    QFont carattere = etichetta.Widget()->font();
    carattere.setPixelSize(static_cast<int>(std::lround(Pixel_DaPunti(etichetta.FontSize()))));
    const QFontMetrics metrica(carattere);
    etichetta.Caption(metrica.elidedText(testo, Qt::ElideRight, Pixel_DaTwip(etichetta.Width())));
    etichetta.NomeAccessibile(testo);
}

qint32 Larghezza_Scritta(const Etichetta &etichetta)
{
    if (etichetta.Widget() == nullptr)
        return 0;
    return Twip_DaPixel(etichetta.Widget()->fontMetrics().horizontalAdvance(etichetta.Caption()));
}

void Pareggia(const std::vector<Etichetta *> &etichette)
{
    double punti = -1;
    for (const Etichetta *etichetta : etichette) {
        if (etichetta->Widget() == nullptr)
            return;
        const double mostrati = etichetta->Widget()->font().pixelSize() / Pixel_DaPunti(1);
        punti = punti < 0 ? mostrati : std::min(punti, mostrati);
    }
    for (Etichetta *etichetta : etichette)
        etichetta->FontSize(punti);
}
