// Frames checked, made and put together byte by byte. It knows no command.
#include "simulatore/trama.h"

#include "core/parole.h"

#include <utility>

namespace {

/// The characters that follow the start byte of every command. The instrument opens its replies with them
/// too: the station looks at the third one alone, and only in the reply to the reading of the calibration.
constexpr char PREFISSO[] = "ABC";

constexpr Parole TROPPO_CORTA = {u"trama troppo corta", u"frame too short"};
constexpr Parole SENZA_PREFISSO = {u"manca ABC dopo il byte di inizio", u"no ABC behind the start byte"};
constexpr Parole CONTROLLO_ERRATO = {u"carattere di controllo errato, atteso \"%1\"",
                                     u"wrong check character, \"%1\" expected"};

/// A command without payload: start, prefix, code, check character, end.
constexpr qsizetype TRAMA_MINIMA = 7;

/// Far above the longest command in use; a line that only makes noise cannot fill the memory.
constexpr qsizetype TRAMA_MASSIMA = 8192;

/// The check character of the bytes that stand before it: the last decimal digit of the low eight bits of
/// their sum.
char Controllo_Di(QByteArrayView prima)
{
    quint8 somma = 0;
    for (const char byte : prima)
        somma = static_cast<quint8>(somma + static_cast<quint8>(byte));
    return static_cast<char>('0' + somma % 10);
}

} // namespace

QByteArray Trama_Componi(const QByteArray &corpo)
{
    return Trama_Controllata(TRAMA_INIZIO + QByteArray(PREFISSO) + corpo + '0' + TRAMA_FINE);
}

QByteArray Trama_Controllata(QByteArray trama)
{
    const qsizetype controllo = trama.size() - 2;
    trama[controllo] = Controllo_Di(QByteArrayView(trama).first(controllo));
    return trama;
}

QString Trama_Difetto(const QByteArray &trama)
{
    if (trama.size() < TRAMA_MINIMA)
        return In_Parole(TROPPO_CORTA);
    if (QByteArrayView(trama).sliced(1).first(3) != QByteArrayView(PREFISSO))
        return In_Parole(SENZA_PREFISSO);
    const qsizetype controllo = trama.size() - 2;
    const char atteso = Controllo_Di(QByteArrayView(trama).first(controllo));
    if (trama[controllo] != atteso)
        return In_Parole(CONTROLLO_ERRATO).arg(QLatin1Char(atteso));
    return {};
}

QString Trama_Hex(const QByteArray &byte)
{
    return QString::fromLatin1(byte.toHex(' ').toUpper());
}

bool AssemblatoreComandi::Aggiungi(char byte)
{
    if (!m_dentro && byte != TRAMA_INIZIO) {
        m_scartati.append(byte);
        return false;
    }
    if (!m_dentro)
        m_trama.clear();
    m_trama.append(byte);
    m_dentro = byte != TRAMA_FINE;
    if (m_trama.size() > TRAMA_MASSIMA) {
        m_scartati.append(m_trama);
        Azzera();
    }
    return !m_dentro && !m_trama.isEmpty();
}

QByteArray AssemblatoreComandi::Scartati()
{
    return std::exchange(m_scartati, QByteArray());
}

void AssemblatoreComandi::Azzera()
{
    m_trama.clear();
    m_dentro = false;
}
