// Windows-1252 outside Windows: the rows 0x80 to 0x9F by table, the rest is Latin-1.
#include "platform/codifica.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr char16_t RIGHE_80_9F[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, //
};

char Byte_Di(char16_t carattere)
{
    if (carattere < 0x80 || (carattere >= 0xA0 && carattere <= 0xFF))
        return static_cast<char>(carattere);
    const auto *trovato = std::find(std::begin(RIGHE_80_9F), std::end(RIGHE_80_9F), carattere);
    if (trovato == std::end(RIGHE_80_9F))
        return '?';
    return static_cast<char>(0x80 + (trovato - std::begin(RIGHE_80_9F)));
}

} // namespace

QString Testo_DaAnsi(const QByteArray &byte)
{
    QString testo(byte.size(), Qt::Uninitialized);
    std::transform(byte.cbegin(), byte.cend(), testo.begin(), [](char c) {
        const auto b = static_cast<unsigned char>(c);
        return QChar(b >= 0x80 && b <= 0x9F ? RIGHE_80_9F[b - 0x80] : char16_t{b});
    });
    return testo;
}

QByteArray Testo_InAnsi(const QString &testo)
{
    QByteArray byte(testo.size(), Qt::Uninitialized);
    auto *fine = byte.begin();
    for (qsizetype i = 0; i < testo.size(); ++i) {
        // A pair of surrogates is one character, and so one "?".
        if (testo[i].isHighSurrogate() && i + 1 < testo.size() && testo[i + 1].isLowSurrogate())
            ++i;
        *fine++ = Byte_Di(testo[i].unicode());
    }
    byte.truncate(fine - byte.begin());
    return byte;
}
