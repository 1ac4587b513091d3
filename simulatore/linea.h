// The line to the station, as the simulator sees it. Two bodies: a pseudo terminal and a real serial device,
// both the system's own (linea_pty_posix.cpp, linea_seriale_qt.cpp).
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class Linea
{
public:
    virtual ~Linea() = default;

    /// @param[out] errore why not, when it returns false.
    virtual bool Apri(QString &errore) = 0;
    virtual void Chiudi() = 0;
    /// What the station opens, or what was opened; empty while closed.
    virtual QString Nome() const = 0;
    /// Bytes to the station. @return false when nobody has the other end open: they are lost, as on a cable.
    virtual bool Scrivi(const QByteArray &byte) = 0;

    /// Bytes of the station, as they come.
    std::function<void(const QByteArray &)> Ricevuti;
    /// The station has closed its end. A real device cannot tell.
    std::function<void()> Lasciata;
    /// The device has gone, an adapter pulled out: the line is closed. A pseudo terminal never goes.
    std::function<void()> Perduta;
};

/// A pseudo terminal: every opening gets a new one.
std::unique_ptr<Linea> Crea_LineaPty();

/// @param dispositivo path of the device, e.g. /dev/ttyUSB0. @param velocita bits per second; 8 data bits, no
/// parity, one stop bit.
std::unique_ptr<Linea> Crea_LineaSeriale(const QString &dispositivo, qint32 velocita);
