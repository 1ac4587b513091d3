// The real serial device: a cable to a station on another computer.
#include "simulatore/linea.h"

#include "link/dispositivo_qt.h"

#include <QSerialPort>
#include <QSignalBlocker>

namespace {

class LineaSeriale : public Linea
{
public:
    LineaSeriale(const QString &dispositivo, qint32 velocita) : m_dispositivo(dispositivo)
    {
        m_porta.setPortName(dispositivo);
        m_porta.setBaudRate(velocita);
        QObject::connect(&m_porta, &QSerialPort::readyRead, &m_porta,
                         [this] { Ricevuti(m_porta.readAll()); });
        QObject::connect(&m_porta, &QSerialPort::errorOccurred, &m_porta,
                         [this](QSerialPort::SerialPortError) { Guarda_Dispositivo(); });
    }

    bool Apri(QString &errore) override
    {
        const bool aperta = m_porta.open(QIODevice::ReadWrite);
        if (!aperta)
            errore = QStringLiteral("%1: %2").arg(m_dispositivo, m_porta.errorString());
        return aperta;
    }
    void Chiudi() override { m_porta.close(); }
    QString Nome() const override { return m_porta.isOpen() ? m_dispositivo : QString(); }
    bool Scrivi(const QByteArray &byte) override
    {
        if (!m_porta.isOpen() || m_porta.write(byte) != byte.size())
            return false;
        m_porta.flush(); // at once, and not in a later turn of the loop: a program that ends would keep them
        return true;
    }

private:
    /// After an error: what cannot be read any more is not watched any more.
    void Guarda_Dispositivo()
    {
        if (!m_porta.isOpen() || !Dispositivo_Perso(m_porta))
            return;
        const QSignalBlocker muta(m_porta); // a device that has gone may refuse even the closing
        m_porta.close();
        Perduta();
    }

    QString m_dispositivo;
    QSerialPort m_porta;
};

} // namespace

std::unique_ptr<Linea> Crea_LineaSeriale(const QString &dispositivo, qint32 velocita)
{
    return std::make_unique<LineaSeriale>(dispositivo, velocita);
}
