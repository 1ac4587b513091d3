// Local heads with their bytes, the directory, its end. Numbers stand with their low byte first.
#include "strumenti/archivio_zip.h"

#include <QtEndian>

namespace {

constexpr quint32 SEGNO_VOCE = 0x04034B50;
constexpr quint32 SEGNO_INDICE = 0x02014B50;
constexpr quint32 SEGNO_FINE = 0x06054B50;
constexpr quint16 VERSIONE = 10; // 1.0: stored, no folders

template <typename Numero>
void Metti(QByteArray &byte, Numero numero)
{
    const Numero piccolo = qToLittleEndian(numero);
    byte.append(reinterpret_cast<const char *>(&piccolo), sizeof piccolo);
}

quint32 Somma_Crc(const QByteArray &byte)
{
    quint32 crc = ~quint32{0};
    for (const char c : byte) {
        crc ^= static_cast<quint8>(c);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? quint32{0xEDB88320} : quint32{0});
    }
    return ~crc;
}

quint16 Ora_Dos(const QTime &ora)
{
    return static_cast<quint16>(ora.hour() << 11 | ora.minute() << 5 | ora.second() / 2);
}
quint16 Data_Dos(const QDate &data)
{
    constexpr int PRIMO_ANNO = 1980;
    return static_cast<quint16>(qMax(0, data.year() - PRIMO_ANNO) << 9 | data.month() << 5 | data.day());
}

/// What the head of an entry and its line of the directory have alike.
QByteArray Dati_Voce(const VoceZip &voce, const QDateTime &quando)
{
    const auto grandezza = static_cast<quint32>(voce.Byte.size());
    QByteArray dati;
    Metti(dati, VERSIONE);
    Metti(dati, quint16{0}); // flags
    Metti(dati, quint16{0}); // stored
    Metti(dati, Ora_Dos(quando.time()));
    Metti(dati, Data_Dos(quando.date()));
    Metti(dati, Somma_Crc(voce.Byte));
    Metti(dati, grandezza);
    Metti(dati, grandezza);
    Metti(dati, static_cast<quint16>(voce.Nome.size()));
    Metti(dati, quint16{0}); // nothing extra
    return dati;
}

} // namespace

QByteArray Zip_Componi(const QList<VoceZip> &voci, const QDateTime &quando)
{
    QByteArray zip, indice;
    for (const VoceZip &voce : voci) {
        const auto posto = static_cast<quint32>(zip.size());
        const QByteArray dati = Dati_Voce(voce, quando);
        Metti(zip, SEGNO_VOCE);
        zip += dati + voce.Nome + voce.Byte;
        Metti(indice, SEGNO_INDICE);
        Metti(indice, VERSIONE);
        indice += dati;
        Metti(indice, quint16{0}); // no comment
        Metti(indice, quint16{0}); // first disk
        Metti(indice, quint16{0}); // no attributes
        Metti(indice, quint32{0});
        Metti(indice, posto);
        indice += voce.Nome;
    }
    const auto posto = static_cast<quint32>(zip.size());
    const auto quante = static_cast<quint16>(voci.size());
    zip += indice;
    Metti(zip, SEGNO_FINE);
    Metti(zip, quint16{0});
    Metti(zip, quint16{0});
    Metti(zip, quante);
    Metti(zip, quante);
    Metti(zip, static_cast<quint32>(indice.size()));
    Metti(zip, posto);
    Metti(zip, quint16{0});
    return zip;
}
