// Any bytes from the station, through the instrument's stand-in: whatever it says on a line without faults is
// a frame that the station takes whole, and it says it to good commands alone.
#include "fuzz/comune.h"
#include "link/protocollo.h"
#include "platform/profilo.h"
#include "simulatore/strumento.h"

namespace {

/// How many good commands stand in the bytes.
qsizetype Comandi_Buoni(const QByteArray &byte)
{
    AssemblatoreComandi assemblatore;
    qsizetype buoni = 0;
    for (const char b : byte)
        buoni += assemblatore.Aggiungi(b) && Trama_Difetto(assemblatore.Trama()).isEmpty();
    return buoni;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    const QByteArray byte = Byte_Di(dati, quanti);
    const QString stato = File_Con(QStringLiteral("stato.ini"), QByteArray());
    const ProfiloFermo fermo(stato); // until the first write: a new file would be read anew for each text
    Strumento strumento(QString(), stato, 1, [](const QString &) {});
    const QList<Invio> invii = strumento.Ricevi(byte);
    Pretendi(invii.size() <= Comandi_Buoni(byte), "a wrong command gets no reply");
    for (const Invio &invio : invii) {
        if (invio.byte.size() > LUNGHEZZA_RX)
            continue; // the station wrote texts longer than a reply holds
        Assemblatore assemblatore;
        for (const char b : invio.byte)
            assemblatore.Aggiungi(static_cast<quint8>(b));
        Pretendi(Risposta_Valida(assemblatore.BufRx), "the station takes every reply");
    }
    return 0;
}
