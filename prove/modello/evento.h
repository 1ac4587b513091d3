// What can happen to a session from outside: time, bytes on the line, the line itself, the operator.
#pragma once

#include <QByteArray>
#include <QList>

namespace modello {

enum class Genere : quint8
{
    Battito,            ///< nothing comes in until the timer beats; a while, when it is off
    BattitoConLista,    ///< the same with the debug list on
    BattitoSenzaUscita, ///< the same on a port that refuses what is sent
    Byte,               ///< a batch comes in
    Linea,              ///< the line says something that is no byte
    Vuoto,              ///< a receive event without a byte
    Profilo,            ///< somebody changes the calibration in the profile
    Default,            ///< the write of the defaults into a session that is on
    Pulsante,           ///< the operator breaks off
};

struct Evento
{
    QByteArray Nome;
    Genere Tipo = Genere::Battito;
    QByteArray Byte = {};
    qint16 Codice = 0; ///< of a Linea
    int Dopo = 1;      ///< ms from what was before, cut short so that the beat comes later
};

/// One event of every class that an exploration goes through; those that end a session stand last.
const QList<Evento> &Alfabeto();

/// A reply with its start, check character and end. @param corpo what stands from offset 1 on.
QByteArray Risposta(const QByteArray &corpo);

} // namespace modello
