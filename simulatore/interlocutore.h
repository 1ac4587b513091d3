// Who speaks with the station on the line: the instrument, or the record of one. It knows no line, no timer
// and no clock.
#pragma once

#include "simulatore/invio.h"
#include "simulatore/trama.h"

#include <QList>

#include <functional>

class Interlocutore
{
public:
    /// @param annota takes a line of the log.
    explicit Interlocutore(std::function<void(const QString &)> annota);
    virtual ~Interlocutore() = default;

    /// Takes bytes as they come, in whatever pieces. @return what goes out.
    QList<Invio> Ricevi(const QByteArray &byte);

    /// The station has closed its side: what it had begun to say, and what was held for it, is void.
    virtual void Linea_Lasciata();

protected:
    void Annota(const QString &riga) const { m_annota(riga); }

private:
    /// A whole frame of the station, right or wrong. @return what goes out.
    virtual QList<Invio> Comando_Ricevuto(const QByteArray &trama) = 0;

    std::function<void(const QString &)> m_annota;
    AssemblatoreComandi m_assemblatore;
};
