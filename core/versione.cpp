// The number is given by the build, which keeps it in one place.
#include "core/versione.h"

QString Versione_Programma()
{
    return QStringLiteral(LUMIRA_VERSIONE);
}
