// It knows no kind of list.
#include "toolkit/fondo_elenco.h"

#include <QAbstractScrollArea>

void Fondo_AllElenco(QAbstractScrollArea &elenco)
{
    elenco.viewport()->setAutoFillBackground(false);
}
