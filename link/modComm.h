// The serial port of a link session: its settings, opening and closing, the bytes that came in, the sending
// of one frame. It knows bytes, not commands.
#pragma once

#include "platform/tipi.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class ControlloSeriale;

// --- port settings, from section COMM of the profile -----------------------------------------------------

extern qint16 gPortaNum;     ///< number of the port, 1 for the first
extern qint32 gPortaBaud;    ///< bits per second
extern QString gPortaParity; ///< parity letter
extern quint8 gPortaDataBit; ///< data bits
extern quint8 gPortaStopBit; ///< stop bits

// --- what the last receive event brought ------------------------------------------------------------------

extern qint16 gRxConta;    ///< bytes waiting at the event
extern QByteArray gRxDati; ///< those bytes

/// Reads the port settings. There are no defaults: the values come from the file alone.
/// @param profilo path of the profile.
/// @throws ErroreEsecuzione 13 or 6 for a key that is missing or no number of its width; the keys after it
/// stay unread and every value not reached keeps what it held.
void Leggi_Porta(const QString &profilo);

/// The settings text of the port, "speed,parity,data bits,stop bits", of the values read last.
QString Impostazioni_Porta();

/// Opens the port gPortaNum and sets it up for binary frames. The settings are written after the opening: a
/// settings text that is none leaves the port open all the same, and deaf; a format that the device does not
/// have leaves it closed.
/// @return True when the port is open and set up, or was open before: then nothing is written to it.
Flag Apri_Porta(ControlloSeriale &porta);

/// The port as the operator knows it, e.g. COM3.
QString Porta_Nome();
QString Porta_Nome(qint16 numero);

/// What to say of a port that did not open: which it is.
QString Porta_NonAperta();

/// What to say of a port that is open without speed and format, since their text is none: which it is and
/// where to look. Empty with a file of texts from before it.
QString Porta_MalImpostata();

/// Closes the port if it is open.
void Chiudi_Porta(ControlloSeriale &porta);

/// Takes the waiting bytes into gRxConta and gRxDati. Bytes that come in between the count and the reading
/// are taken from the control and lost.
/// @throws ErroreEsecuzione 9 when nothing waits: there is no array without bytes.
void Ricevi_Porta(ControlloSeriale &porta);

/// Sends a frame whole. What still waited to go out is dropped, so that a resend replaces the old frame
/// instead of queueing behind it. @throws ErroreEsecuzione 8018 when the port is not open.
void Scrivi_Porta(ControlloSeriale &porta, const QByteArray &frame);

/// Number of an event in the error texts: line errors from 0, line changes from 7, sent 11, end of file 12,
/// received 13. @param evento code of CommEvent. @return -1 for a code without a number.
qint16 Stato_Evento(qint16 evento);

/// The first bytes as a run of upper-case hexadecimal digits, without blanks. @param conta how many.
QString Formatta_Hex(QByteArrayView byte, qsizetype conta);
