// The properties and the input buffer of the serial control. It knows no device.
#include "link/seriale_comune.h"

#include "platform/errore_esecuzione.h"

#include <algorithm>
#include <utility>

namespace {

/// The classic error of a port that cannot be opened.
constexpr int ERRORE_APERTURA = 8002;

} // namespace

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

void SerialeComune::Rifiuta_Formato()
{
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
