// The station's frames on the station's serial control, with a loop of its own around each question.
#include "strumenti/sonda_strumento.h"

#include "core/codici.h"
#include "link/modComm.h"
#include "link/scambio.h"
#include "link/seriale.h"
#include "platform/errore_esecuzione.h"

#include <QEventLoop>
#include <QTimer>

namespace {

constexpr size_t POSTO_STATO = 4;      // of the byte of the state in its reply
constexpr int LIMITE_IDENTITA = 15000; // ms

/// Nobody looks at it: a session that is watched for its end alone.
class SenzaFinestra final : public FinestraScambio
{
public:
    void Mostra_Titolo(const QString &) override {}
    void Mostra_Lbl(const QString &) override {}
    void Mostra_Tx(const QString &) override {}
    void Mostra_Rx(const QString &) override {}
    void Aggiungi_Dbg(const QString &) override {}
    void Colora_Sha(quint32) override {}
    void Mostra_Errore(const QString &) override {}
    void Scarica_Modulo() override {}
    void Mostra_Avanzamento() override
    {
        if (Sessione != nullptr && Sessione->Stato == StatoChiusura)
            Giro.quit();
    }

    const MacchinaScambio *Sessione = nullptr;
    QEventLoop Giro;
};

} // namespace

SondaStrumento::SondaStrumento() : m_porta(Crea_ControlloSeriale()) {}

SondaStrumento::~SondaStrumento()
{
    Chiudi_Porta(*m_porta);
}

EsitoSonda SondaStrumento::Apri()
{
    if (Apri_Porta(*m_porta))
        return EsitoSonda::Risponde;
    return m_porta->PortOpen() ? EsitoSonda::Sorda : EsitoSonda::NonAperta;
}

EsitoSonda SondaStrumento::Chiedi_Stato(int attesa)
{
    if (const EsitoSonda aperta = Apri(); aperta != EsitoSonda::Risponde)
        return aperta;
    m_risposta = Assemblatore();
    m_completa = false;
    m_porta->OnComm = [this] { Ricevi(); };
    QTimer fine;
    fine.setSingleShot(true);
    QObject::connect(&fine, &QTimer::timeout, &m_giro, &QEventLoop::quit);
    fine.start(attesa);
    QByteArray senzaDati;
    quint8 comando = 0;
    Componi_Comando(CmdStato, senzaDati, comando);
    Scrivi_Porta(*m_porta, gTxFrame);
    m_giro.exec();
    m_porta->OnComm = nullptr;

    if (!m_completa)
        return m_risposta.StatoRx == 0 ? EsitoSonda::Muto : EsitoSonda::Storpio;
    m_stato = static_cast<char>(m_risposta.BufRx[POSTO_STATO]);
    return Risposta_Valida(m_risposta.BufRx) ? EsitoSonda::Risponde : EsitoSonda::Storpio;
}

void SondaStrumento::Ricevi()
{
    if (m_porta->CommEvent() != EventoRicezione)
        return;
    try {
        Ricevi_Porta(*m_porta);
        for (const char byte : std::as_const(gRxDati)) {
            if (m_risposta.Aggiungi(static_cast<quint8>(byte)) == EsitoByte::Fine)
                m_completa = true;
        }
    } catch (const ErroreEsecuzione &) {
        // Longer than any reply: its end will not come, and the wait tells it.
    }
    if (m_completa)
        m_giro.quit();
}

bool SondaStrumento::Leggi_Identita()
{
    gDatiStrumento.clear();
    SenzaFinestra finestra;
    // The session finds the port open and leaves its settings as they are.
    MacchinaScambio sessione(finestra, *m_porta);
    finestra.Sessione = &sessione;
    sessione.Modo = ModoLeggi;
    sessione.Prepara();
    QTimer::singleShot(LIMITE_IDENTITA, &finestra.Giro, &QEventLoop::quit);
    sessione.Avvia();
    finestra.Giro.exec();
    const bool letta = sessione.Esito == SessioneCompletata;
    finestra.Sessione = nullptr;
    sessione.Termina();
    return letta;
}
