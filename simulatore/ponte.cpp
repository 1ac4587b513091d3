// Bytes passed on first and written down after: the line must not wait for the disk. It knows no frame.
#include "simulatore/ponte.h"

#include "core/parole.h"
#include "simulatore/errore.h"
#include "simulatore/trama.h"

namespace {

constexpr Parole NON_PASSATI = {u"non passati: ", u"not passed on: "};

} // namespace

Ponte::Ponte(Linea &stazione, Linea &strumento, ScrittoreRegistrazione &registrazione, Registro &registro)
    : m_stazione(stazione), m_strumento(strumento), m_registrazione(registrazione), m_registro(registro)
{
    m_orologio.start();
    m_stazione.Ricevuti = [this](const QByteArray &byte) { Passa(Voce::Stazione, m_strumento, byte); };
    m_strumento.Ricevuti = [this](const QByteArray &byte) { Passa(Voce::Strumento, m_stazione, byte); };
    m_stazione.Lasciata = [this] { Annota(Porta_Chiusa()); };
}

void Ponte::Annota(const QString &testo)
{
    m_registro.Annota(QStringLiteral("-- ") + testo);
    Esigi(m_registrazione.Annota(m_orologio.elapsed(), testo));
}

void Ponte::Passa(Voce voce, Linea &verso, const QByteArray &byte)
{
    const BranoLinea brano = {m_orologio.elapsed(), voce, byte};
    // What the other side did not get is no part of what was said: played again it would be heard.
    if (!verso.Scrivi(byte)) {
        Annota(In_Parole(NON_PASSATI) + Brano_Testo(brano).simplified());
        return;
    }
    m_registro.Annota((voce == Voce::Stazione ? QStringLiteral("<- ") : QStringLiteral("-> ")) +
                      Trama_Hex(byte));
    Esigi(m_registrazione.Aggiungi(brano));
}

void Ponte::Esigi(bool scritto)
{
    if (!scritto)
        Senza_Registrazione();
}
