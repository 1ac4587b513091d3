// The words of an end. It ends nothing by itself.
#include "simulatore/errore.h"

#include <QTextStream>

int Errore_Mostra(const QString &errore)
{
    QTextStream(stderr) << QStringLiteral("qx5sim: ") << errore << Qt::endl;
    return STATO_NON_PARTITO;
}

QString Dispositivo_Perduto(const QString &dispositivo)
{
    return QStringLiteral("%1: il dispositivo non c'è più").arg(dispositivo);
}
