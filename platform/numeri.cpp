// Texts to numbers and back, by way of the C locale's form. It knows no key and no unit.
#include "platform/numeri.h"

#include "platform/errore_esecuzione.h"
#include "platform/localita.h"
#include "platform/tipi.h"

#include <QLocale>
#include <QRegularExpression>

#include <array>
#include <charconv>
#include <cmath>

namespace {

/// The text in the C locale's form, or an empty text when it is no number.
QString Forma_C(const QString &testo)
{
    static const QRegularExpression FORMA(
        QStringLiteral("^[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?\\z"));

    QString forma = testo.trimmed();
    if (Separatore_Decimale() == u',') {
        // A point only groups digits here, wherever it stands.
        forma.remove(u'.');
        forma.replace(u',', u'.');
    }
    return FORMA.match(forma).hasMatch() ? forma : QString();
}

template <typename T>
QString Testo_PiuCorto(T valore)
{
    std::array<char, 512> cifre; // the longest plain form of a double has some 330 characters
    // Zero has no sign on paper, wherever it came from: "-0" typed as a height is 0.
    const T senzaSegno = valore == 0 ? 0 : valore;
    const auto fine = std::to_chars(cifre.begin(), cifre.end(), senzaSegno, std::chars_format::fixed);
    QString testo = QString::fromLatin1(cifre.data(), fine.ptr - cifre.data());
    return testo.replace(u'.', Separatore_Decimale());
}

} // namespace

bool Numero_Valido(const QString &testo)
{
    return !Forma_C(testo).isEmpty();
}

double Numero_Doppio(const QString &testo)
{
    const QString forma = Forma_C(testo);
    if (forma.isEmpty())
        Solleva(NumeroErrore::TipoNonCorrispondente);
    const double valore = QLocale::c().toDouble(forma);
    if (std::isinf(valore))
        Solleva(NumeroErrore::Overflow);
    return valore;
}

float Numero_Singolo(const QString &testo)
{
    // Rounded first: the digits of the largest single, as it is written, are a little more than it is.
    const auto singolo = static_cast<float>(Numero_Doppio(testo));
    if (std::isinf(singolo))
        Solleva(NumeroErrore::Overflow);
    return singolo;
}

qint32 Numero_32(const QString &testo)
{
    return Arrotonda(Numero_Doppio(testo));
}
qint16 Numero_16(const QString &testo)
{
    return Intero16(Numero_32(testo));
}
quint8 Numero_8(const QString &testo)
{
    return Intero8(Numero_32(testo));
}

qint16 Numero_Pezzo(const QString &pezzo)
{
    if (!Numero_Valido(pezzo))
        return 0;
    try {
        return Numero_16(pezzo);
    } catch (const ErroreEsecuzione &) {
        return 0;
    }
}

QString Numero_Testo(double valore)
{
    return Testo_PiuCorto(valore);
}
QString Numero_Testo(float valore)
{
    return Testo_PiuCorto(valore);
}
