// On the loop of Qt, whose body here takes a message for what it is told from outside.
#include "platform/eventi.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

void Eventi_Esegui()
{
    QCoreApplication::processEvents();
    // A loop that is told to end gets a word that it stops waiting at. Events that run before it has control
    // take that word away: it would wait on, and a program without a window left for ever.
    if (auto *distributore = QAbstractEventDispatcher::instance(); distributore != nullptr)
        distributore->wakeUp();
}
