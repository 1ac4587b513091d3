// The serial control on Qt's serial port, for the systems that have no control of their own. It knows bytes
// and devices, nothing of frames or sessions.
#include "link/seriale.h"

#include "link/dispositivo_qt.h"
#include "link/seriale_comune.h"
#include "platform/errore_esecuzione.h"
#include "platform/porta_seriale.h"

#include <QSerialPort>
#include <QSignalBlocker>
#include <QStringList>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace {

struct VoceParita
{
    char16_t lettera;
    QSerialPort::Parity parita;
};

constexpr VoceParita PARITA[] = {
    {u'N', QSerialPort::NoParity   },
    {u'E', QSerialPort::EvenParity },
    {u'O', QSerialPort::OddParity  },
    {u'M', QSerialPort::MarkParity },
    {u'S', QSerialPort::SpaceParity},
};

struct VoceStop
{
    const char16_t *testo;
    QSerialPort::StopBits stop;
};

constexpr VoceStop STOP[] = {
    {u"1",   QSerialPort::OneStop       },
    {u"1.5", QSerialPort::OneAndHalfStop},
    {u"2",   QSerialPort::TwoStop       },
};

struct Formato
{
    qint32 velocita = 0;
    QSerialPort::Parity parita = QSerialPort::NoParity;
    QSerialPort::DataBits bit = QSerialPort::Data8;
    QSerialPort::StopBits stop = QSerialPort::OneStop;
};

QSerialPort::Parity Parita_Di(const QString &testo)
{
    const QString lettera = testo.toUpper();
    for (const VoceParita &voce : PARITA) {
        if (lettera == QChar(voce.lettera))
            return voce.parita;
    }
    Solleva(NumeroErrore::ValoreProprietaErrato);
}

QSerialPort::StopBits Stop_Di(const QString &testo)
{
    for (const VoceStop &voce : STOP) {
        if (testo == QStringView(voce.testo))
            return voce.stop;
    }
    Solleva(NumeroErrore::ValoreProprietaErrato);
}

/// A whole number between two limits, or error 380.
qint32 Numero_Tra(const QString &testo, qint32 minimo, qint32 massimo)
{
    bool numero = false;
    const int valore = testo.toInt(&numero);
    if (!numero || valore < minimo || valore > massimo)
        Solleva(NumeroErrore::ValoreProprietaErrato);
    return valore;
}

/// The whole text is read before anything of it is used.
Formato Formato_Di(const QString &testo)
{
    const QStringList pezzi = testo.split(u',');
    if (pezzi.size() != 4)
        Solleva(NumeroErrore::ValoreProprietaErrato);
    Formato formato;
    formato.velocita = Numero_Tra(pezzi[0], 1, std::numeric_limits<qint32>::max());
    formato.parita = Parita_Di(pezzi[1]);
    // Four data bits stop here as well: no driver of this system has them.
    formato.bit = static_cast<QSerialPort::DataBits>(Numero_Tra(pezzi[2], 5, 8));
    formato.stop = Stop_Di(pezzi[3]);
    return formato;
}

class SerialeQt final : public SerialeComune
{
public:
    SerialeQt();
    ~SerialeQt() override { Chiudi(); }
    Q_DISABLE_COPY_MOVE(SerialeQt)

    void Settings(const QString &testo) override;

private:
    bool Apri_Dispositivo(qint16 numero) override;
    void Chiudi_Dispositivo() override;
    bool Dispositivo_Aperto() const override { return m_porta.isOpen(); }
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

void SerialeQt::Settings(const QString &testo)
{
    const Formato formato = Formato_Di(testo);
    const bool presi[] = {m_porta.setBaudRate(formato.velocita), m_porta.setParity(formato.parita),
                          m_porta.setDataBits(formato.bit), m_porta.setStopBits(formato.stop)};
    // A device that has gone meanwhile refuses nothing: it is closed already.
    if (m_lineaVera && m_porta.isOpen() && std::ranges::count(presi, false) > 0)
        Rifiuta_Formato();
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
