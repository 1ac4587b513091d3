// Bytes of the line as the tests write them: in hexadecimal.
#pragma once

#include <QByteArray>

inline QByteArray Byte(const char *hex)
{
    return QByteArray::fromHex(hex);
}

/// Commands without payload.
inline const QByteArray STATO = Byte("02 41 42 43 10 36 03");
inline const QByteArray MISURA = Byte("02 41 42 43 20 32 03");
inline const QByteArray LEGGI_DATI = Byte("02 41 42 43 50 34 03");
inline const QByteArray LEGGI_TARATURA = Byte("02 41 42 43 90 38 03");

/// Replies to STATO.
inline const QByteArray A_RIPOSO = Byte("02 41 42 43 31 39 03");
inline const QByteArray IN_PROVA = Byte("02 41 42 43 32 30 03");
inline const QByteArray PRONTA = Byte("02 41 42 43 34 32 03");

/// Replies to a write: taken, not taken.
inline const QByteArray SCRITTO = Byte("02 41 42 43 FF 39 03");
inline const QByteArray NON_SCRITTO = Byte("02 41 42 43 00 30 03");
