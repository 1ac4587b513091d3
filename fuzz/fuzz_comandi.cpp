// Any texts as the payload of a command: the instrument's stand-in, which shares no number with the station,
// takes the frame for a good one and finds the texts in it. Any bytes, as a frame of the instrument, pass the
// station's check. Input: a byte for the command, then texts, a line each.
#include "fuzz/comune.h"
#include "link/protocollo.h"
#include "platform/codifica.h"
#include "simulatore/trama.h"

#include <algorithm>

namespace {

constexpr TipoComando TIPI[] = {CmdStato,       CmdMisura,      CmdLeggiDati,
                                CmdScriviDati1, CmdScriviDati2, CmdLeggiTaratura};

/// There is no escaping: a text with such a byte ends the frame early or makes two texts of one.
bool Si_Manda(const QByteArray &carico)
{
    return std::none_of(carico.cbegin(), carico.cend(), [](char c) { return c == TRAMA_FINE; });
}

/// The frame that comes out when the instrument puts the station's bytes together.
QByteArray Ricevuta(const QByteArray &byte)
{
    AssemblatoreComandi assemblatore;
    QByteArray trama;
    for (const char b : byte) {
        if (assemblatore.Aggiungi(b)) {
            Pretendi(trama.isEmpty(), "a command is one frame");
            trama = assemblatore.Trama();
        }
    }
    Pretendi(assemblatore.Scartati().isEmpty(), "no byte of a command is dropped");
    return trama;
}

void Prova_Comando(TipoComando tipo, const QStringList &testi)
{
    const QByteArray intero = Componi_Dati(testi);
    QByteArray dati = intero;
    quint8 comando = 0;
    if (!Esegui({NumeroErrore::Overflow}, [&] { Componi_Comando(tipo, dati, comando); }))
        return;
    Pretendi(comando == tipo, "the machine is told what was built");
    const bool conTesti = tipo == CmdScriviDati1 || tipo == CmdScriviDati2;
    if (conTesti &&
        (!Si_Manda(intero) || intero.count(static_cast<char>(BYTE_SEPARATORE)) < 5 || intero.size() > 4000))
        return;
    const QByteArray trama = Ricevuta(gTxFrame);
    Pretendi(trama == gTxFrame, "the instrument gets the frame whole");
    Pretendi(Trama_Difetto(trama).isEmpty(), "the instrument finds nothing wrong with it");
    const QByteArray carico = trama.sliced(5, trama.size() - 7);
    if (!conTesti) {
        Pretendi(carico.isEmpty(), "a reading carries nothing");
        return;
    }
    qsizetype quinto = -1;
    for (int n = 0; n < 5; ++n)
        quinto = intero.indexOf(static_cast<char>(BYTE_SEPARATORE), quinto + 1);
    Pretendi(carico == (tipo == CmdScriviDati1 ? intero.first(quinto + 1) : intero.sliced(quinto + 1) + '\0'),
             "the first frame carries five texts, the second the others and a filler");
}

void Prova_Risposta(const QByteArray &corpo)
{
    if (!Si_Manda(corpo) || corpo.size() > LUNGHEZZA_RX - 6)
        return;
    Assemblatore assemblatore;
    EsitoByte esito = EsitoByte::Nulla;
    for (const char byte : Trama_Componi(corpo))
        esito = assemblatore.Aggiungi(static_cast<quint8>(byte));
    Pretendi(esito == EsitoByte::Fine, "a reply ends with its last byte");
    Pretendi(Risposta_Valida(assemblatore.BufRx), "the station takes the instrument's reply");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    if (quanti == 0)
        return 0;
    const QByteArray byte = Byte_Di(dati + 1, quanti - 1);
    QStringList testi;
    for (const QByteArray &testo : byte.split('\n'))
        testi.append(Testo_DaAnsi(testo));
    Prova_Comando(TIPI[dati[0] % std::size(TIPI)], testi);
    Prova_Risposta(byte);
    return 0;
}
