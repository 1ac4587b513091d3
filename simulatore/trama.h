// Frames on the instrument's side: the replies it makes and the commands it assembles. It knows bytes and
// their frame, not what a command means. All of it is the instrument's own, down to the bytes that open and
// close a frame: with a number shared, a slip in the station would be its stand-in's too, and no test would
// see it.
#pragma once

#include <QByteArray>
#include <QString>

/// Bytes with a fixed place. There is no escaping: the first end byte ends a frame, wherever it stands.
inline constexpr char TRAMA_INIZIO = 0x02;
inline constexpr char TRAMA_FINE = 0x03;

/// A reply: start byte, prefix, body, check character, end byte.
/// @param corpo what stands behind the prefix, from offset 4.
QByteArray Trama_Componi(const QByteArray &corpo);

/// A whole frame with its check character put right, after bytes before it were changed.
QByteArray Trama_Controllata(QByteArray trama);

/// What is wrong with a command frame, for the log; empty when it is good: long enough, with the prefix and
/// the right check character.
QString Trama_Difetto(const QByteArray &trama);

/// Bytes in hexadecimal, with a blank between them.
QString Trama_Hex(const QByteArray &byte);

/// Assembles the station's frames byte by byte. Like the station, it ends a frame at the first end byte and
/// takes a second start byte inside a frame for an ordinary one.
class AssemblatoreComandi
{
public:
    /// @return true when this byte ends a frame, which Trama() then gives.
    bool Aggiungi(char byte);
    const QByteArray &Trama() const { return m_trama; }
    /// Bytes dropped between frames since the last call.
    QByteArray Scartati();
    /// Forgets a frame that has only begun.
    void Azzera();

private:
    QByteArray m_trama;
    QByteArray m_scartati;
    bool m_dentro = false;
};
