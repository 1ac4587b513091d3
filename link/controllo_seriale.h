// The serial control: everything that the link needs of a serial port. Its body is the system's (seriale.h);
// a test has a line of its own.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/// Codes of CommEvent.
enum EventoSeriale : qint16
{
    EventoInvio = 1,
    EventoRicezione = 2,
    EventoCts = 3,
    EventoDsr = 4,
    EventoCd = 5,
    EventoRing = 6,
    EventoEof = 7,
    ErroreBreak = 1001,
    ErroreFrame = 1004,
    ErroreOverrun = 1006,
    ErroreRxOver = 1008,
    ErroreRxParity = 1009,
    ErroreTxFull = 1010,
    ErroreDcb = 1011,
};

/// Bytes that the input buffer holds, the control's own default. What it cannot hold is lost.
inline constexpr int BUFFER_INGRESSO = 1024;

/// Properties bear the names of the control. All events come on the form's loop, in order.
class ControlloSeriale
{
public:
    virtual ~ControlloSeriale() = default;

    virtual void CommPort(qint16 numero) = 0;
    virtual bool PortOpen() const = 0;
    /// @throws ErroreEsecuzione when the port cannot be opened.
    virtual void PortOpen(bool aperta) = 0;
    /// "speed,parity,data bits,stop bits", e.g. 9600,N,8,1.
    /// @throws ErroreEsecuzione 380 for a bad text, and for a format that the device does not have; that one
    /// closes the port too.
    virtual void Settings(const QString &testo) = 0;
    /// 0: a read takes everything waiting.
    virtual void InputLen(qint16 numero) = 0;
    /// 1: binary.
    virtual void InputMode(qint16 modo) = 0;
    /// 1: an event at every received byte or batch.
    virtual void RThreshold(qint16 soglia) = 0;
    /// false: byte 0x00 is kept.
    virtual void NullDiscard(bool scarta) = 0;
    /// Bytes waiting, at most BUFFER_INGRESSO.
    virtual qint16 InBufferCount() const = 0;
    /// The waiting bytes, which leave the buffer. @throws ErroreEsecuzione 8018 when the port is not open.
    virtual QByteArray Input() = 0;
    /// 0 drops whatever was waiting to go out. @throws ErroreEsecuzione 8018 when the port is not open.
    virtual void OutBufferCount(qint16 numero) = 0;
    /// Queues bytes for the line, without waiting. On an open port whose device has gone they are queued and
    /// lost: no error. @throws ErroreEsecuzione 8018 when the port is not open.
    virtual void Output(const QByteArray &byte) = 0;
    /// The code of the event just raised.
    virtual qint16 CommEvent() const = 0;

    /// True for an open port whose device has gone, an adapter pulled out: to the properties above it stays
    /// open, as an empty line.
    virtual bool Persa() const { return false; }

    /// Raised at each event.
    std::function<void()> OnComm;
};
