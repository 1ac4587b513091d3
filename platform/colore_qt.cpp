// Numbers of colours turned into colours, those of the system by the one look of the program.
#include "platform/colore_qt.h"

namespace {

struct ColoreSistema
{
    quint32 colore;
    QRgb valore;
};

constexpr ColoreSistema COLORI_SISTEMA[] = {
    {COLORE_SISTEMA_GRIGIO,   0xFFE3E8EC},
    {COLORE_SISTEMA_FINESTRA, 0xFFFFFFFF},
};

} // namespace

QColor Colore_Da(quint32 colore)
{
    for (const ColoreSistema &sistema : COLORI_SISTEMA) {
        if (sistema.colore == colore)
            return QColor::fromRgb(sistema.valore);
    }
    return QColor(static_cast<int>(colore & 0xFF), static_cast<int>(colore >> 8 & 0xFF),
                  static_cast<int>(colore >> 16 & 0xFF));
}
