// What the serial control is on every system: its properties and its input buffer. The device behind it, and
// the way its events come, are the bodies' own.
#pragma once

#include "link/controllo_seriale.h"

/// Pause before the line is watched again after a wake-up that brought nothing, in ms: long enough to cost no
/// processor time if that goes on, shorter than a beat of the exchange.
constexpr int RIPRESA = 100;

/// In the order of the letters N, E, O, M, S.
enum class Parita : quint8
{
    Nessuna,
    Pari,
    Dispari,
    Uno,
    Zero,
};

/// In the order of the texts 1, 1.5, 2.
enum class BitStop : quint8
{
    Uno,
    UnoEMezzo,
    Due,
};

/// What a settings text asks for. No driver has fewer than five data bits.
struct FormatoLinea
{
    qint32 velocita = 0; ///< bits per second, above 0
    Parita parita = Parita::Nessuna;
    quint8 bit = 8; ///< data bits, 5 to 8
    BitStop stop = BitStop::Uno;
};

/// Reads a settings text whole before anything of it is used. @throws ErroreEsecuzione 380 for one that is
/// none.
FormatoLinea Formato_Di(const QString &testo);

class SerialeComune : public ControlloSeriale
{
public:
    void CommPort(qint16 numero) override { m_numero = numero; }
    bool PortOpen() const override { return m_aperta; }
    void PortOpen(bool aperta) override;
    void Settings(const QString &testo) override;
    void InputLen(qint16 numero) override { Pretendi(numero == 0); }
    void InputMode(qint16 modo) override { Pretendi(modo == 1); }
    void RThreshold(qint16 soglia) override { m_soglia = soglia; }
    void NullDiscard(bool scarta) override { Pretendi(!scarta); }
    qint16 InBufferCount() const override;
    QByteArray Input() override;
    void OutBufferCount(qint16 numero) override;
    void Output(const QByteArray &byte) override;
    qint16 CommEvent() const override { return m_evento; }
    bool Persa() const override { return m_aperta && !Dispositivo_Aperto(); }

protected:
    /// Opens the device of that port. @return false when there is none, or somebody has it.
    virtual bool Apri_Dispositivo(qint16 numero) = 0;
    /// Closes the device, if it is open; also of a port that stays open, when the device has gone.
    virtual void Chiudi_Dispositivo() = 0;
    virtual bool Dispositivo_Aperto() const = 0;
    /// Gives the device speed and format. @return false when an open device does not have them.
    virtual bool Imposta_Formato(const FormatoLinea &formato) = 0;
    /// Drops what waits to go out. Only on an open device.
    virtual void Svuota_Uscita() = 0;
    /// Queues bytes for the line. Only on an open device.
    virtual void Manda(const QByteArray &byte) = 0;

    /// Takes what came in, as far as the input buffer holds it. @return true when it is enough for a receive
    /// event.
    bool Ricevi(const QByteArray &byte);
    /// Raises an event; none of a port that has been closed, and one of received bytes only while there are
    /// any.
    void Solleva_Evento(EventoSeriale evento);
    void Chiudi();

private:
    /// Refuses the value of a property. @throws ErroreEsecuzione 380 unless the condition holds.
    static void Pretendi(bool condizione);
    void Pretendi_Aperta() const;

    qint16 m_numero = 1;
    bool m_aperta = false;
    qint16 m_soglia = 0;   ///< 0, as a control is born: no event for what comes in
    QByteArray m_ricevuti; ///< input buffer
    qint16 m_evento = 0;
};
