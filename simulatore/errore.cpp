// The words of an end. It ends nothing by itself.
#include "simulatore/errore.h"

#include "core/parole.h"

#include <QTextStream>

namespace {

constexpr Parole PERDUTO = {u"%1: il dispositivo non c'è più", u"%1: the device has gone"};
constexpr Parole CHIUSA = {u"la stazione ha chiuso la porta", u"the station has closed the port"};

} // namespace

int Errore_Mostra(const QString &errore)
{
    QTextStream(stderr) << QStringLiteral("qx5sim: ") << errore << Qt::endl;
    return STATO_NON_PARTITO;
}

QString Dispositivo_Perduto(const QString &dispositivo)
{
    return In_Parole(PERDUTO).arg(dispositivo);
}

QString Porta_Chiusa()
{
    return In_Parole(CHIUSA);
}
