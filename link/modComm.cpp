// The serial control set up, opened, read and written for a session. It knows no command.
#include "link/modComm.h"

#include "core/modGeneral.h"
#include "core/testo_riempito.h"
#include "link/controllo_seriale.h"
#include "platform/errore_esecuzione.h"
#include "platform/numeri.h"

qint16 gPortaNum = 0;
qint32 gPortaBaud = 0;
QString gPortaParity;
quint8 gPortaDataBit = 0;
quint8 gPortaStopBit = 0;

qint16 gRxConta = 0;
QByteArray gRxDati;

namespace {

struct VoceEvento
{
    EventoSeriale evento;
    qint16 stato;
};

// clang-format off
constexpr VoceEvento EVENTI[] = {
    {ErroreBreak,     0},
    {ErroreFrame,     1},
    {ErroreOverrun,   2},
    {ErroreRxOver,    3},
    {ErroreRxParity,  4},
    {ErroreTxFull,    5},
    {ErroreDcb,       6},
    {EventoCd,        7},
    {EventoCts,       8},
    {EventoDsr,       9},
    {EventoRing,     10},
    {EventoInvio,    11},
    {EventoEof,      12},
    {EventoRicezione, 13},
};
// clang-format on

} // namespace

QString Impostazioni_Porta()
{
    const QStringList pezzi = {QString::number(gPortaBaud), gPortaParity, QString::number(gPortaDataBit),
                               QString::number(gPortaStopBit)};
    return pezzi.join(u',');
}

void Leggi_Porta(const QString &profilo)
{
    gPortaNum = Numero_16(Valore_Ini(profilo, ChiavePortaNumero));
    gPortaBaud = Numero_32(Valore_Ini(profilo, ChiavePortaBaud));
    gPortaParity = Valore_Ini(profilo, ChiavePortaParita);
    gPortaDataBit = Numero_8(Valore_Ini(profilo, ChiavePortaBitDati));
    gPortaStopBit = Numero_8(Valore_Ini(profilo, ChiavePortaBitStop));
}

Flag Apri_Porta(ControlloSeriale &porta)
{
    try {
        porta.CommPort(gPortaNum);
        if (porta.PortOpen())
            return Vero;
        porta.PortOpen(true);
        porta.Settings(Impostazioni_Porta());
        porta.InputLen(0);
        porta.InputMode(1);
        porta.RThreshold(1);
        porta.NullDiscard(false);
        return Vero;
    } catch (const ErroreEsecuzione &) {
        return Falso;
    }
}

QString Porta_Nome()
{
    return Porta_Nome(gPortaNum);
}

QString Porta_Nome(qint16 numero)
{
    return QStringLiteral("COM%1").arg(numero);
}

QString Porta_NonAperta()
{
    return QStringLiteral("%1 %2").arg(Porta_Nome(), Testo_Mctc(MctcPortaNonAperta)).trimmed();
}

QString Porta_MalImpostata()
{
    return Testo_Riempito(Testo_Mctc(MctcPortaMalImpostata), Porta_Nome());
}

void Chiudi_Porta(ControlloSeriale &porta)
{
    if (porta.PortOpen())
        porta.PortOpen(false);
}

void Ricevi_Porta(ControlloSeriale &porta)
{
    gRxConta = porta.InBufferCount();
    const QByteArray arrivati = porta.Input();
    if (gRxConta < 1 || gRxConta > arrivati.size())
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    gRxDati = arrivati.first(gRxConta);
}

void Scrivi_Porta(ControlloSeriale &porta, const QByteArray &frame)
{
    porta.OutBufferCount(0);
    porta.Output(frame);
}

qint16 Stato_Evento(qint16 evento)
{
    for (const VoceEvento &voce : EVENTI) {
        if (voce.evento == evento)
            return voce.stato;
    }
    return -1;
}

QString Formatta_Hex(QByteArrayView byte, qsizetype conta)
{
    return QString::fromLatin1(byte.first(conta).toByteArray().toHex().toUpper());
}
