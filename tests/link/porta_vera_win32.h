// What a real COM port has and a pseudo terminal lacks: a line format of every kind, modem lines, errors on
// the line, an output that does not drain, one user at a time, an adapter that is pulled out. The calls of
// the serial control end in this program and not in the system.
#pragma once

#include <QList>
#include <QStringList>

#include <functional>

#include <qt_windows.h>

/// While one lives the COM port that is opened is such a port. Without one the calls go through untouched.
class PortaVera
{
public:
    PortaVera();
    ~PortaVera();
    PortaVera(const PortaVera &) = delete;
    PortaVera &operator=(const PortaVera &) = delete;

    DCB Formato = {};       ///< as it was set last
    bool Rifiuta = false;   ///< no format suits the port
    bool LineeModem = true; ///< false: none, as on a pseudo terminal
    DWORD Errori = 0;       ///< what went wrong on the line since it was asked last
    QList<DWORD> Svuotate;  ///< queues dropped, as PurgeComm names them
    bool Piena = false;     ///< what is written waits until somebody gives it up
    bool Muta = false;      ///< reads and waits for events wait until somebody ends them
    bool Lenta = false;     ///< to give a call up takes a moment longer than its end
    DWORD CodaIngresso = 0; ///< bytes that the driver was asked to hold
    QStringList Nomi;       ///< of the ports asked for

    /// Told of each call on a port, by its name, before it is carried out.
    std::function<void(const char *chiamata)> Chiamata;

    /// Handles of ports that are open.
    qsizetype Aperte() const { return m_aperte.size(); }
    /// Event handles that were made since it lives and are not closed.
    qsizetype Eventi() const { return m_eventi.size(); }
    /// A read waits.
    static bool In_Lettura();
    /// Bytes that wait in the driver of the port that is open.
    DWORD In_Coda() const;
    /// Ends the read that waits, with a status of the system's.
    static void Interrompi(ULONG_PTR stato);
    /// Ends the wait for the events of the line, without one.
    static void Sveglia_Attesa();
    /// The adapter is pulled out: no call on its handle succeeds any more, and it is not found.
    void Togli() { m_tolta = true; }
    /// It is plugged in again. It gets its number only when no handle of the old one is open.
    void Rimetti();

private:
    friend struct ChiamatePorta;
    bool m_tolta = false;
    QList<HANDLE> m_aperte;
    QList<HANDLE> m_eventi;
};
