// The properties and the input buffer of the serial control. It knows no device.
#include "link/seriale_comune.h"

#include "platform/errore_esecuzione.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

/// The classic error of a port that cannot be opened.
constexpr int ERRORE_APERTURA = 8002;

constexpr const char16_t *LETTERE_PARITA[] = {u"N", u"E", u"O", u"M", u"S"};
constexpr const char16_t *TESTI_STOP[] = {u"1", u"1.5", u"2"};

/// Place of a text in a table, or error 380.
template <size_t N>
size_t Posto_Di(const QString &testo, const char16_t *const (&tabella)[N])
{
    const auto *posto = std::find_if(std::begin(tabella), std::end(tabella),
                                     [&testo](const char16_t *voce) { return testo == QStringView(voce); });
    if (posto == std::end(tabella))
        Solleva(NumeroErrore::ValoreProprietaErrato);
    return static_cast<size_t>(std::distance(std::begin(tabella), posto));
}

/// A whole number between two limits, or error 380. To the conversion a text ends at its first NUL: what
/// stands behind it would go unread.
qint32 Numero_Tra(const QString &testo, qint32 minimo, qint32 massimo)
{
    bool numero = false;
    const int valore = testo.toInt(&numero);
    if (!numero || testo.contains(QChar(0)) || valore < minimo || valore > massimo)
        Solleva(NumeroErrore::ValoreProprietaErrato);
    return valore;
}

} // namespace

FormatoLinea Formato_Di(const QString &testo)
{
    const QStringList pezzi = testo.split(u',');
    if (pezzi.size() != 4)
        Solleva(NumeroErrore::ValoreProprietaErrato);
    FormatoLinea formato;
    formato.velocita = Numero_Tra(pezzi[0], 1, std::numeric_limits<qint32>::max());
    formato.parita = static_cast<Parita>(Posto_Di(pezzi[1].toUpper(), LETTERE_PARITA));
    formato.bit = static_cast<quint8>(Numero_Tra(pezzi[2], 5, 8));
    formato.stop = static_cast<BitStop>(Posto_Di(pezzi[3], TESTI_STOP));
    return formato;
}

/// The control does the one value that the link uses, and no other.
void SerialeComune::Pretendi(bool condizione)
{
    if (!condizione)
        Solleva(NumeroErrore::ValoreProprietaErrato);
}

void SerialeComune::Pretendi_Aperta() const
{
    if (!m_aperta)
        Solleva(NumeroErrore::PortaNonAperta);
}

void SerialeComune::PortOpen(bool aperta)
{
    if (!aperta) {
        Chiudi();
        return;
    }
    if (m_aperta || !Apri_Dispositivo(m_numero))
        throw ErroreEsecuzione(ERRORE_APERTURA, QStringLiteral("Invalid port number"));
    m_aperta = true;
}

void SerialeComune::Chiudi()
{
    m_aperta = false;
    m_ricevuti.clear();
    Chiudi_Dispositivo();
}

/// A line at any other format than the one asked for says nothing that both ends understand. The port of a
/// device that does not have it is closed, so that the session stands as without a port and does not end as
/// with an instrument that is silent.
void SerialeComune::Settings(const QString &testo)
{
    if (Imposta_Formato(Formato_Di(testo)))
        return;
    Chiudi();
    Solleva(NumeroErrore::ValoreProprietaErrato);
}

qint16 SerialeComune::InBufferCount() const
{
    return static_cast<qint16>(m_ricevuti.size());
}

QByteArray SerialeComune::Input()
{
    Pretendi_Aperta();
    return std::exchange(m_ricevuti, QByteArray());
}

void SerialeComune::OutBufferCount(qint16 numero)
{
    Pretendi(numero == 0);
    Pretendi_Aperta();
    if (Dispositivo_Aperto())
        Svuota_Uscita();
}

void SerialeComune::Output(const QByteArray &byte)
{
    Pretendi_Aperta();
    if (Dispositivo_Aperto())
        Manda(byte);
}

bool SerialeComune::Ricevi(const QByteArray &byte)
{
    m_ricevuti += byte.first(std::min(byte.size(), BUFFER_INGRESSO - m_ricevuti.size()));
    return !byte.isEmpty() && m_soglia > 0 && m_ricevuti.size() >= m_soglia;
}

void SerialeComune::Solleva_Evento(EventoSeriale evento)
{
    // The handler of an event before may have taken these bytes too.
    if (!m_aperta || (evento == EventoRicezione && m_ricevuti.isEmpty()) || !OnComm)
        return;
    m_evento = evento;
    const auto procedura = OnComm; // the session may end in it, and take this control along
    procedura();
}
