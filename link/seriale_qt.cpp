// The serial control on Qt's serial port, for the systems that have no control of their own. It knows bytes
// and devices, nothing of frames or sessions.
#include "link/seriale.h"

#include "link/dispositivo_qt.h"
#include "link/seriale_comune.h"
#include "platform/porta_seriale.h"

#include <QSerialPort>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>

namespace {

// In the order of Parita and of BitStop.
constexpr QSerialPort::Parity PARITA[] = {QSerialPort::NoParity, QSerialPort::EvenParity,
                                          QSerialPort::OddParity, QSerialPort::MarkParity,
                                          QSerialPort::SpaceParity};
constexpr QSerialPort::StopBits STOP[] = {QSerialPort::OneStop, QSerialPort::OneAndHalfStop,
                                          QSerialPort::TwoStop};

class SerialeQt final : public SerialeComune
{
public:
    SerialeQt();
    ~SerialeQt() override { Chiudi(); }
    Q_DISABLE_COPY_MOVE(SerialeQt)

private:
    bool Apri_Dispositivo(qint16 numero) override;
    void Chiudi_Dispositivo() override;
    bool Dispositivo_Aperto() const override { return m_porta.isOpen(); }
    bool Imposta_Formato(const FormatoLinea &formato) override;
    void Svuota_Uscita() override { m_porta.clear(QSerialPort::Output); }
    void Manda(const QByteArray &byte) override { m_porta.write(byte); }
    void Raccogli();
    void Errore_Porta(QSerialPort::SerialPortError errore);

    bool m_lineaVera = false; ///< the device has modem lines, and so a line format
    QTimer m_annuncio;        ///< carries a receive event through the form loop
    QTimer m_ripresa;         ///< watches the line again after an empty wake-up
    QSerialPort m_porta;      ///< open as long as PortOpen says so and the device is there
};

SerialeQt::SerialeQt()
{
    m_annuncio.setSingleShot(true);
    m_ripresa.setSingleShot(true);
    QObject::connect(&m_annuncio, &QTimer::timeout, &m_annuncio, [this] { Solleva_Evento(EventoRicezione); });
    QObject::connect(&m_ripresa, &QTimer::timeout, &m_ripresa, [this] { Raccogli(); });
    // No line errors: this serial port tells of none, and they would change nothing.
    QObject::connect(&m_porta, &QSerialPort::readyRead, &m_porta, [this] { Raccogli(); });
    QObject::connect(&m_porta, &QSerialPort::errorOccurred, &m_porta,
                     [this](QSerialPort::SerialPortError errore) { Errore_Porta(errore); });
}

bool SerialeQt::Apri_Dispositivo(qint16 numero)
{
    m_porta.setPortName(Porta_Dispositivo(numero));
    if (!m_porta.open(QIODevice::ReadWrite))
        return false;
    // The system raises both lines to the instrument; the control's own default is DTR raised, RTS not. A
    // pseudo terminal has neither and refuses, and it has no line format either: what it refuses of that
    // later takes nothing from its use.
    m_lineaVera = m_porta.setRequestToSend(false);
    return true;
}

void SerialeQt::Chiudi_Dispositivo()
{
    if (!m_porta.isOpen())
        return;
    const QSignalBlocker muta(m_porta); // a device that has gone refuses the clearing
    // The system waits on closing for what has not gone out yet, seconds if the line does not drain.
    m_porta.clear();
    m_porta.close();
}

bool SerialeQt::Imposta_Formato(const FormatoLinea &formato)
{
    const bool presi[] = {m_porta.setBaudRate(formato.velocita),
                          m_porta.setParity(PARITA[static_cast<size_t>(formato.parita)]),
                          m_porta.setDataBits(static_cast<QSerialPort::DataBits>(formato.bit)),
                          m_porta.setStopBits(STOP[static_cast<size_t>(formato.stop)])};
    // A device that has gone meanwhile refuses nothing: it is closed already.
    return !m_lineaVera || !m_porta.isOpen() || std::ranges::count(presi, false) == 0;
}

void SerialeQt::Raccogli()
{
    // The event is raised from the loop and not from inside the serial port, which would hold back the next
    // one as long as a modal box in this one is open.
    if (m_porta.isOpen() && Ricevi(m_porta.readAll()))
        m_annuncio.start(0);
}

void SerialeQt::Errore_Porta(QSerialPort::SerialPortError errore)
{
    if (!PortOpen() || errore == QSerialPort::NoError || !m_porta.isOpen())
        return;
    if (Dispositivo_Perso(m_porta)) {
        Chiudi_Dispositivo();
        return;
    }
    // After a wake-up that brought nothing the serial port no longer watches the line, until somebody reads.
    m_ripresa.start(RIPRESA);
}

} // namespace

std::unique_ptr<ControlloSeriale> Crea_ControlloSeriale()
{
    return std::make_unique<SerialeQt>();
}
