// Frames built and read by tables. It knows no port, no timer and no form.
#include "link/protocollo.h"

#include "core/modGeneral.h"
#include "platform/codifica.h"
#include "platform/errore_esecuzione.h"

#include <algorithm>

std::array<MisuraFaro, 4> gMisure;
QStringList gDatiStrumento;
QStringList gDatiTaratura;
QByteArray gTxFrame;

namespace {

/// Bytes before the code of every command.
constexpr char TESTA[] = "\x02"
                         "ABC";
/// Sum of those bytes.
constexpr qint16 SOMMA_TESTA = 200;

/// Texts of the identity block that the first of its two frames carries.
constexpr int TESTI_PRIMO_FRAME = 5;

/// Layout of the measure reply.
constexpr size_t POSTO_MISURE = 4;
constexpr size_t BYTE_MISURA = 6;
constexpr size_t CIFRE_LUX = 4;

// clang-format off
constexpr ChiaveIni CHIAVI_STRUMENTO[] = {
    ChiaveStrumentoModello,
    ChiaveStrumentoMarca,
    ChiaveStrumentoOmologazione,
    ChiaveStrumentoSerie,
    ChiaveStrumentoScadenza,
    ChiaveOperatore,
};
// clang-format on

/// What a frame carries behind its code, and the bytes that its sum covers beside the head: not the same
/// for a payload with too few texts.
struct Carico
{
    QByteArray portati;
    QByteArray sommati;
};

/// Index of the separator that ends the fifth text, 0 when there are fewer.
qsizetype Fine_PrimoFrame(const QByteArray &dati)
{
    qsizetype posto = -1;
    for (int testo = 0; testo < TESTI_PRIMO_FRAME; ++testo) {
        posto = dati.indexOf(static_cast<char>(BYTE_SEPARATORE), posto + 1);
        if (posto < 0)
            return 0;
    }
    return posto;
}

Carico Carico_Nessuno(QByteArray &)
{
    return {};
}

Carico Carico_Dati1(QByteArray &dati)
{
    const qsizetype fine = Fine_PrimoFrame(dati);
    // With fewer than five texts the instrument has always been sent the first byte alone, under the sum of
    // the whole payload.
    return {dati.first(std::min(fine + 1, dati.size())).leftJustified(fine + 1, '\0'),
            fine == 0 ? dati : dati.first(fine + 1)};
}

Carico Carico_Dati2(QByteArray &dati)
{
    const QByteArray resto = dati.mid(Fine_PrimoFrame(dati) + 1);
    // The instrument wants a filler before the check character of this frame, and of no other.
    return {resto + '\0', resto};
}

Carico Carico_Taratura(QByteArray &dati)
{
    gDatiTaratura = QStringList(static_cast<qsizetype>(CHIAVI_TARATURA.size()));
    for (size_t i = 0; i < CHIAVI_TARATURA.size(); ++i)
        Leggi_Ini(gFileIni, CHIAVI_TARATURA[i], gDatiTaratura[static_cast<qsizetype>(i)]);
    dati = Componi_Dati(gDatiTaratura);
    return {dati, dati};
}

struct VoceComando
{
    TipoComando tipo;
    quint8 codice;
    Carico (*carico)(QByteArray &dati);
};

// clang-format off
constexpr VoceComando COMANDI[] = {
    {CmdStato,          0x10, Carico_Nessuno},
    {CmdMisura,         0x20, Carico_Nessuno},
    {CmdLeggiDati,      0x50, Carico_Nessuno},
    {CmdScriviDati1,    0x60, Carico_Dati1},
    {CmdScriviDati2,    0x80, Carico_Dati2},
    {CmdLeggiTaratura,  0x90, Carico_Nessuno},
    {CmdScriviTaratura, 0xA0, Carico_Taratura},
};
// clang-format on

QByteArray Frame_Di(quint8 codice, const Carico &carico)
{
    qint16 somma = Intero16(SOMMA_TESTA + codice);
    for (const char byte : carico.sommati)
        somma = Intero16(somma + static_cast<quint8>(byte));
    QByteArray frame(TESTA);
    frame.append(static_cast<char>(codice));
    frame.append(carico.portati);
    frame.append(static_cast<char>(Carattere_Controllo(somma)));
    frame.append(static_cast<char>(BYTE_FINE));
    return frame;
}

QString Carattere_Di(quint8 byte)
{
    return Testo_DaAnsi(QByteArray(1, static_cast<char>(byte)));
}

/// The figure of four digits. It is reckoned in 16 bits, and a byte far from any digit overflows them: such
/// a reply passed its check character, so the station no longer knows what it is talking to.
qint16 Lux_Di(const quint8 *cifre)
{
    qint16 lux = 0;
    int peso = 1;
    for (size_t i = CIFRE_LUX; i-- > 0; peso *= 10)
        lux = Intero16(lux + Intero16(qint64{peso} * (cifre[i] - 0x30)));
    return lux;
}

void Riga_Misura(const RigaDbg &riga, QChar campo, size_t numero, const QString &valore)
{
    riga(campo + QString::number(numero) + u'=' + valore);
}

} // namespace

quint8 Carattere_Controllo(qint16 somma)
{
    return static_cast<quint8>(0x30 + (somma % 256) % 10);
}

void Leggi_DatiStrumento()
{
    gDatiStrumento.clear();
    for (const ChiaveIni &chiave : CHIAVI_STRUMENTO)
        gDatiStrumento.append(Valore_Ini(gFileIni, chiave));
}

QByteArray Componi_Dati(const QStringList &testi)
{
    QByteArray dati;
    for (const QString &testo : testi)
        dati += Testo_InAnsi(testo) + static_cast<char>(BYTE_SEPARATORE);
    return dati;
}

void Componi_Comando(quint8 tipo, QByteArray &dati, quint8 &comando)
{
    for (const VoceComando &voce : COMANDI) {
        if (voce.tipo != tipo)
            continue;
        comando = tipo;
        gTxFrame = Frame_Di(voce.codice, voce.carico(dati));
        return;
    }
}

EsitoByte Assemblatore::Aggiungi(quint8 byte)
{
    if (StatoRx == 0) {
        if (byte == BYTE_INIZIO)
            Inizia();
        return EsitoByte::Nulla;
    }
    if (InfoRx.Indice >= LUNGHEZZA_RX)
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    BufRx[static_cast<size_t>(InfoRx.Indice)] = byte;
    ++InfoRx.Indice;
    InfoRx.Testo += Carattere_Di(byte);
    ++InfoRx.Conta;
    if (byte != BYTE_FINE)
        return EsitoByte::Accolto;
    StatoRx = 0;
    return EsitoByte::Fine;
}

void Assemblatore::Inizia()
{
    InfoRx = InfoFrame();
    StatoRx = 1;
    BufRx[0] = BYTE_INIZIO;
    InfoRx.Indice = 1;
}

bool Risposta_Valida(const BufferRx &risposta)
{
    const auto fine = std::find(risposta.begin(), risposta.end(), BYTE_FINE);
    if (fine == risposta.end() || fine == risposta.begin())
        return false;
    const auto controllo = fine - 1;
    qint16 somma = 0;
    for (auto byte = risposta.begin(); byte != controllo; ++byte)
        somma = Intero16(somma + *byte);
    return Carattere_Controllo(somma) == *controllo;
}

void Leggi_Misura(const BufferRx &risposta, const RigaDbg &riga)
{
    gMisure.fill(MisuraFaro());
    for (size_t k = 0; k < gMisure.size(); ++k) {
        const quint8 *record = risposta.data() + POSTO_MISURE + k * BYTE_MISURA;
        gMisure[k].Lux = Lux_Di(record);
        Riga_Misura(riga, u'L', k, QString::number(gMisure[k].Lux));
        gMisure[k].EsitoV = Carattere_Di(record[CIFRE_LUX]);
        Riga_Misura(riga, u'V', k, gMisure[k].EsitoV);
        gMisure[k].EsitoO = Carattere_Di(record[CIFRE_LUX + 1]);
        Riga_Misura(riga, u'O', k, gMisure[k].EsitoO);
    }
}

void Leggi_Testi(const BufferRx &risposta, qint16 posto, QStringList &testi, const RigaDbg &riga)
{
    testi = QStringList(QString());
    for (auto i = static_cast<size_t>(posto); i < risposta.size() && risposta[i] != BYTE_FINE; ++i) {
        if (risposta[i] == BYTE_SEPARATORE) {
            riga(testi.last());
            testi.append(QString());
        } else {
            testi.last() += Carattere_Di(risposta[i]);
        }
    }
}
