// Any bytes from the line, through the station's assembler and its readers of replies, each written a second
// time.
#include "fuzz/comune.h"
#include "link/protocollo.h"
#include "platform/codifica.h"

#include <limits>

namespace {

/// The assembler once more, over all bytes at once: what the buffer holds, and whether it has come to its
/// end.
struct Modello
{
    QByteArray buffer = QByteArray(LUNGHEZZA_RX, '\0');
    qsizetype posto = 0; // 0: between frames

    EsitoByte Aggiungi(char byte)
    {
        if (posto == 0 && byte != BYTE_INIZIO)
            return EsitoByte::Nulla;
        const bool inizio = posto == 0;
        buffer[posto++] = byte;
        if (!inizio && byte == BYTE_FINE) {
            posto = 0;
            return EsitoByte::Fine;
        }
        return inizio ? EsitoByte::Nulla : EsitoByte::Accolto;
    }
    bool Piena() const { return posto == buffer.size(); }
};

bool Valida(const QByteArray &buffer)
{
    const qsizetype fine = buffer.indexOf(static_cast<char>(BYTE_FINE));
    if (fine < 1)
        return false;
    quint8 somma = 0;
    for (const char byte : buffer.first(fine - 1))
        somma = static_cast<quint8>(somma + static_cast<quint8>(byte));
    return buffer[fine - 1] == '0' + somma % 10;
}

/// The figure of a record; nothing where 16 bits do not hold it, or a part of it on the way from the last
/// digit.
bool Lux(const QByteArray &cifre, qint32 &lux)
{
    const auto ci_sta = [](qint32 n) {
        return n >= std::numeric_limits<qint16>::min() && n <= std::numeric_limits<qint16>::max();
    };
    constexpr qint32 PESI[] = {1000, 100, 10, 1};
    lux = 0;
    bool intero = true;
    for (qsizetype i = 3; i >= 0; --i) {
        const qint32 parte = (static_cast<quint8>(cifre[i]) - '0') * PESI[i];
        lux += parte;
        intero = intero && ci_sta(parte) && ci_sta(lux);
    }
    return intero;
}

void Prova_Misura(const BufferRx &risposta, const QByteArray &buffer)
{
    QStringList righe;
    const bool letta = Esegui({NumeroErrore::Overflow},
                              [&] { Leggi_Misura(risposta, [&](const QString &r) { righe.append(r); }); });
    bool tutte = true;
    for (size_t k = 0; k < gMisure.size() && tutte; ++k) {
        const QByteArray record = buffer.mid(4 + 6 * static_cast<qsizetype>(k), 6);
        qint32 lux = 0;
        tutte = Lux(record, lux);
        if (!tutte)
            break;
        Pretendi(gMisure[k].Lux == lux, "the figure is that of its digits");
        Pretendi(gMisure[k].EsitoV == Testo_DaAnsi(record.mid(4, 1)),
                 "the vertical verdict stands behind the figure");
        Pretendi(gMisure[k].EsitoO == Testo_DaAnsi(record.mid(5, 1)),
                 "the horizontal verdict is the last byte");
    }
    Pretendi(letta == tutte, "only a figure beyond 16 bits ends the reading");
    Pretendi(!letta || righe.size() == 12, "three lines a beam");
}

void Prova_Testi(const BufferRx &risposta, const QByteArray &buffer)
{
    for (const qint16 posto : {qint16{4}, qint16{5}}) {
        QStringList testi, righe;
        Esegui({}, [&] { Leggi_Testi(risposta, posto, testi, [&](const QString &r) { righe.append(r); }); });
        const QByteArray resto = buffer.mid(posto);
        const QByteArray carico = resto.split(static_cast<char>(BYTE_FINE)).first();
        QStringList attesi;
        for (const QByteArray &testo : carico.split(static_cast<char>(BYTE_SEPARATORE)))
            attesi.append(Testo_DaAnsi(testo));
        Pretendi(testi == attesi, "the texts are what stands between the separators");
        Pretendi(righe == testi.first(testi.size() - 1), "each text that a separator closed has its line");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    Assemblatore assemblatore;
    Modello modello;
    for (const char byte : Byte_Di(dati, quanti)) {
        EsitoByte esito = EsitoByte::Nulla;
        const bool preso = Esegui({NumeroErrore::IndiceFuoriIntervallo},
                                  [&] { esito = assemblatore.Aggiungi(static_cast<quint8>(byte)); });
        Pretendi(preso == !modello.Piena(), "a byte is lost where the buffer ends, and there alone");
        if (!preso)
            continue;
        Pretendi(esito == modello.Aggiungi(byte), "a byte begins, fills or ends a frame");
        const QByteArray buffer =
            QByteArray::fromRawData(reinterpret_cast<const char *>(assemblatore.BufRx.data()), LUNGHEZZA_RX);
        Pretendi(buffer == modello.buffer, "the buffer holds the frame, and the tail of the one before");
        if (esito != EsitoByte::Fine)
            continue;
        Pretendi(assemblatore.InfoRx.Testo.size() == assemblatore.InfoRx.Conta, "a character a byte");
        Pretendi(Risposta_Valida(assemblatore.BufRx) == Valida(buffer),
                 "a reply is good by its check character");
        Prova_Misura(assemblatore.BufRx, buffer);
        Prova_Testi(assemblatore.BufRx, buffer);
    }
    return 0;
}
