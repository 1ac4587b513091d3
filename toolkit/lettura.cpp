// The one line of a label, measured in the type that the label asks for.
#include "toolkit/lettura.h"

#include "toolkit/controlli.h"
#include "toolkit/schermo.h"

#include <QFontMetrics>

#include <algorithm>

void Mostra_Accorciata(Etichetta &etichetta, const QString &testo)
{
    etichetta.Fai([&](const QWidget &widget) {
        QFont carattere = widget.font();
        carattere.setPixelSize(Pixel_Interi(etichetta.FontSize()));
        const QFontMetrics metrica(carattere);
        etichetta.Caption(metrica.elidedText(testo, Qt::ElideRight, Pixel_DaTwip(etichetta.Width())));
        etichetta.NomeAccessibile(testo);
    });
}

qint32 Larghezza_Scritta(const Etichetta &etichetta)
{
    return etichetta.Chiedi(qint32{0}, [&](const QWidget &widget) {
        return Twip_DaPixel(widget.fontMetrics().horizontalAdvance(etichetta.Caption()));
    });
}

void Pareggia(const std::vector<Etichetta *> &etichette)
{
    double punti = -1;
    for (const Etichetta *etichetta : etichette) {
        etichetta->Fai([&punti](const QWidget &widget) {
            const double mostrati = widget.font().pixelSize() / Pixel_DaPunti(1);
            punti = punti < 0 ? mostrati : std::min(punti, mostrati);
        });
    }
    if (punti < 0)
        return; // their window has gone
    for (Etichetta *etichetta : etichette)
        etichetta->FontSize(punti);
}
