// On the loop of Qt.
#include "platform/eventi.h"

#include <QCoreApplication>

void Eventi_Esegui()
{
    QCoreApplication::processEvents();
}
