// Any text as a number, under a decimal point and a decimal comma, held against a grammar of its own and the
// C library; any number written and read again. Input: a byte for the separator, then the text (UTF-8), of
// which the first eight bytes are a number too.
#include "fuzz/comune.h"
#include "platform/numeri.h"

#include <QLocale>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

/// The digits at the front of a text, which leave it. @return how many.
qsizetype Taglia_Cifre(QByteArray &testo)
{
    qsizetype quante = 0;
    while (quante < testo.size() && testo[quante] >= '0' && testo[quante] <= '9')
        ++quante;
    testo.remove(0, quante);
    return quante;
}

bool Taglia_Uno(QByteArray &testo, const char *segni)
{
    const bool trovato = !testo.isEmpty() && testo[0] != '\0' && std::strchr(segni, testo[0]) != nullptr;
    testo.remove(0, trovato ? 1 : 0);
    return trovato;
}

/// [sign] digits [point digits] [e [sign] digits], with a digit on one side of the point at least.
bool E_Numero(QByteArray testo)
{
    Taglia_Uno(testo, "+-");
    qsizetype cifre = Taglia_Cifre(testo);
    if (Taglia_Uno(testo, "."))
        cifre += Taglia_Cifre(testo);
    if (cifre == 0)
        return false;
    if (Taglia_Uno(testo, "eE")) {
        Taglia_Uno(testo, "+-");
        if (Taglia_Cifre(testo) == 0)
            return false;
    }
    return testo.isEmpty();
}

/// The text as the C library reads it.
QByteArray Forma_C(const QString &testo, bool virgola)
{
    QString forma = testo.trimmed();
    if (virgola)
        forma = forma.remove(u'.').replace(u',', u'.');
    return forma.toUtf8();
}

template <typename T>
void Prova_Intero(const QString &testo, double valore, T (*leggi)(const QString &))
{
    T letto = 0;
    const double intero = std::nearbyint(valore);
    const bool ci_sta = intero >= std::numeric_limits<T>::min() && intero <= std::numeric_limits<T>::max();
    const bool ok = Esegui({NumeroErrore::Overflow}, [&] { letto = leggi(testo); });
    Pretendi(ok == ci_sta, "a whole number overflows where its width ends");
    Pretendi(!ok || letto == intero, "a whole number is rounded half to even");
}

template <typename T>
void Prova_Testo(T valore, T (*leggi)(const QString &))
{
    if (!std::isfinite(valore))
        return;
    T letto = 0;
    const QString testo = Numero_Testo(valore);
    Pretendi(Esegui({}, [&] { letto = leggi(testo); }), "a number that was written is one");
    Pretendi(letto == valore, "and the same");
    Pretendi(!std::signbit(letto) || letto != 0, "a zero has no sign");
}

void Prova_Lettura(const QString &testo, const QByteArray &forma)
{
    const double valore = std::strtod(forma.constData(), nullptr);
    double letto = 0;
    const bool finito = Esegui({NumeroErrore::Overflow}, [&] { letto = Numero_Doppio(testo); });
    Pretendi(finito == std::isfinite(valore), "a number overflows where a double ends");
    if (!finito)
        return;
    Pretendi(letto == valore, "a number is the double nearest to it");
    float singolo = 0;
    const bool ci_sta = Esegui({NumeroErrore::Overflow}, [&] { singolo = Numero_Singolo(testo); });
    Pretendi(ci_sta == std::isfinite(static_cast<float>(valore)), "a single overflows where it ends");
    Pretendi(!ci_sta || singolo == static_cast<float>(valore), "a single is the nearest to the double");
    Prova_Intero<quint8>(testo, valore, Numero_8);
    Prova_Intero<qint16>(testo, valore, Numero_16);
    Prova_Intero<qint32>(testo, valore, Numero_32);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    if (quanti == 0)
        return 0;
    const bool virgola = dati[0] % 2 != 0;
    QLocale::setDefault(virgola ? QLocale(QLocale::Italian, QLocale::Italy) : QLocale::c());
    const QByteArray byte = Byte_Di(dati + 1, quanti - 1);
    const QString testo = QString::fromUtf8(byte);
    const QByteArray forma = Forma_C(testo, virgola);
    const bool numero = E_Numero(forma);
    Pretendi(Numero_Valido(testo) == numero, "a text is a number by its grammar");
    if (numero)
        Prova_Lettura(testo, forma);
    else
        Pretendi(!Esegui({NumeroErrore::TipoNonCorrispondente}, [&] { Numero_Doppio(testo); }),
                 "no number, no value");
    Esegui({}, [&] { Numero_Pezzo(testo); });

    double doppio = 0;
    std::memcpy(&doppio, byte.leftJustified(sizeof doppio, '\0').constData(), sizeof doppio);
    Prova_Testo<double>(doppio, Numero_Doppio);
    float singolo = 0;
    std::memcpy(&singolo, byte.leftJustified(sizeof singolo, '\0').constData(), sizeof singolo);
    Prova_Testo<float>(singolo, Numero_Singolo);
    return 0;
}
