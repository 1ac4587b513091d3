// The one line of a label, measured in the type that the label asks for.
#include "toolkit/lettura.h"

#include "toolkit/controlli.h"
#include "toolkit/schermo.h"

#include <QFontMetrics>

#include <cmath>

QString Accorcia(const Etichetta &etichetta, const QString &testo)
{
    if (etichetta.Widget() == nullptr)
        return testo;
    QFont carattere = etichetta.Widget()->font();
    carattere.setPixelSize(static_cast<int>(std::lround(Pixel_DaPunti(etichetta.FontSize()))));
    return QFontMetrics(carattere).elidedText(testo, Qt::ElideRight, Pixel_DaTwip(etichetta.Width()));
}
