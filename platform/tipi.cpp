// The narrowing and the rounding, with their overflow. What the numbers stand for is not known here.
#include "platform/tipi.h"

#include "platform/errore_esecuzione.h"

#include <cmath>
#include <limits>

namespace {

template <typename T>
T Restringi(qint64 valore)
{
    if (valore < std::numeric_limits<T>::min() || valore > std::numeric_limits<T>::max())
        Solleva(NumeroErrore::Overflow);
    return static_cast<T>(valore);
}

} // namespace

quint8 Intero8(qint64 valore)
{
    return Restringi<quint8>(valore);
}
qint16 Intero16(qint64 valore)
{
    return Restringi<qint16>(valore);
}
qint32 Intero32(qint64 valore)
{
    return Restringi<qint32>(valore);
}

qint32 Arrotonda(double valore)
{
    // The default rounding mode of the processor is the one wanted: half to even.
    const double intero = std::nearbyint(valore);
    if (!(intero >= std::numeric_limits<qint32>::min() && intero <= std::numeric_limits<qint32>::max()))
        Solleva(NumeroErrore::Overflow);
    return static_cast<qint32>(intero);
}
