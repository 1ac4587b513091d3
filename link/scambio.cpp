// The machine's states, its sequences and the one ordered table of replies. It knows no widget and no
// device.
#include "link/scambio.h"

#include "core/codici.h"
#include "core/esito_sessione.h"
#include "core/modGeneral.h"
#include "link/controllo_seriale.h"
#include "link/modComm.h"
#include "platform/errore_esecuzione.h"

namespace {

/// Intervals of the timer, in ms.
constexpr int INTERVALLO_ATTESA = 200;
constexpr int INTERVALLO_TESTO = 2000;
constexpr int INTERVALLO_SILENZIO = 4000;

/// Silence after which a wait is over, and after which a frame is sent again, in ms.
constexpr qint32 LIMITE_ATTESA = 10000;
constexpr qint32 LIMITE_REINVIO = LIMITE_ATTESA / 5;
constexpr qint16 MASSIMO_REINVII = 10;

/// First data offsets of the two text replies.
constexpr qint16 POSTO_DATI = 5;
constexpr qint16 POSTO_TARATURA = 4;

/// In the reply table: any command, any byte.
constexpr int QUALSIASI = -1;

struct RigaModo
{
    ModoScambio modo;
    qint16 ultimoPasso;
    char sequenza[3];
};

// clang-format off
constexpr RigaModo MODI[] = {
    {ModoMisura,  1, {CmdStato,       CmdMisura}},
    {ModoLeggi,   2, {CmdStato,       CmdLeggiDati,   CmdLeggiTaratura}},
    {ModoScrivi,  2, {CmdStato,       CmdScriviDati1, CmdScriviDati2}},
    {ModoDefault, 2, {CmdScriviDati1, CmdScriviDati2, CmdScriviTaratura}},
};
// clang-format on

/// Runs one statement of the session start; an error in it is passed over.
template <typename Istruzione>
void Passa_Oltre(Istruzione istruzione)
{
    try {
        istruzione();
    } catch (const ErroreEsecuzione &) {
        // The window is still loading: it stands and shows its caption, and the operator ends the session.
    }
}

QString Testo_Errore(const QString &testa, qint16 stato, const ErroreEsecuzione &errore)
{
    return testa + QString::number(stato) + QStringLiteral("\r\n") + errore.Descrizione();
}

} // namespace

/// One test of a reply and what follows from it. The first row that fits a reply counts.
struct MacchinaScambio::RigaRisposta
{
    ModoScambio modo;
    int comando;
    size_t posto;
    int atteso;
    Azione azione;
};

using M = MacchinaScambio;
// clang-format off
const MacchinaScambio::RigaRisposta MacchinaScambio::RISPOSTE[] = {
    // mode       command            offset  byte          action
    {ModoMisura,  CmdStato,          4,      '1',          &M::Ripeti},
    {ModoMisura,  CmdStato,          4,      '2',          &M::Ripeti},
    {ModoMisura,  CmdStato,          4,      '4',          &M::Avanza},
    {ModoMisura,  CmdStato,          4,      QUALSIASI,    &M::Rifiuta},
    {ModoMisura,  CmdMisura,         4,      QUALSIASI,    &M::Accetta_Misura},

    {ModoLeggi,   CmdStato,          4,      '1',          &M::Avanza},
    {ModoLeggi,   CmdStato,          4,      QUALSIASI,    &M::Rifiuta},
    {ModoLeggi,   CmdLeggiDati,      4,      'U',          &M::Accetta_Dati},
    {ModoLeggi,   CmdLeggiDati,      4,      QUALSIASI,    &M::Rifiuta_Tipo},
    {ModoLeggi,   CmdLeggiTaratura,  3,      'C',          &M::Accetta_Taratura},
    {ModoLeggi,   CmdLeggiTaratura,  3,      QUALSIASI,    &M::Rifiuta_Tipo},

    {ModoScrivi,  CmdStato,          4,      '1',          &M::Prepara_Scrittura},
    {ModoScrivi,  CmdStato,          4,      QUALSIASI,    &M::Rifiuta},
    {ModoScrivi,  CmdScriviDati1,    4,      BYTE_SCRITTO, &M::Accetta_Scrittura},
    {ModoScrivi,  CmdScriviDati1,    4,      QUALSIASI,    &M::Rifiuta},
    {ModoScrivi,  CmdScriviDati2,    4,      BYTE_SCRITTO, &M::Accetta_Scrittura},
    {ModoScrivi,  CmdScriviDati2,    4,      QUALSIASI,    &M::Rifiuta},
    {ModoScrivi,  CmdScriviTaratura, 4,      BYTE_SCRITTO, &M::Accetta_Scrittura},
    {ModoScrivi,  CmdScriviTaratura, 4,      QUALSIASI,    &M::Rifiuta},

    // The profile's copy is simply sent: an answer is enough, whatever it says.
    {ModoDefault, QUALSIASI,         4,      QUALSIASI,    &M::Avanza},
};
// clang-format on

MacchinaScambio::MacchinaScambio(FinestraScambio &finestra, ControlloSeriale &linea)
    : m_finestra(finestra), commApp(linea), tmrComm([this] { tmrComm_Timer(); })
{
    commApp.OnComm = [this] { commApp_OnComm(); };
}

MacchinaScambio::~MacchinaScambio()
{
    commApp.OnComm = nullptr;
}

// --- life of a session ------------------------------------------------------------------------------------

void MacchinaScambio::Imposta_Sequenza()
{
    for (const RigaModo &riga : MODI) {
        if (riga.modo == Modo) {
            Sequenza = QByteArray(riga.sequenza, riga.ultimoPasso + 1);
            UltimoPasso = riga.ultimoPasso;
        }
    }
}

void MacchinaScambio::Prepara()
{
    if (Modo == ModoDefault)
        return;
    MsgIniziale = Testo_Mctc(MctcCollegamentoInCorso);
    Imposta_Sequenza();
}

void MacchinaScambio::Avvia()
{
    Esito = SessioneFallita;
    Passa_Oltre([] { Leggi_Porta(gFileIni); });
    PortaImpostata = Apri_Porta(commApp) == Vero;
    PortaAperta = commApp.PortOpen();
    m_finestra.Mostra_Porta();
    Ricezione.StatoRx = 0;
    if (Modo == ModoDefault) {
        Imposta_Sequenza();
        Leggi_DatiStrumento();
        Dati = Componi_Dati(gDatiStrumento);
    }
    Passo = 0;
    Passa_Oltre([this] { Componi_Comando(static_cast<quint8>(Sequenza[Passo]), Dati, Comando); });
    Passa_Oltre([this] { Invia_Comando(); });
}

void MacchinaScambio::Termina()
{
    Sessione_Annota(Esito == SessioneCompletata ? QString() : Causa());
    tmrComm.Enabled(false);
    Chiudi_Porta(commApp);
}

QString MacchinaScambio::Guasto_Porta() const
{
    if (!PortaAperta)
        return Porta_NonAperta();
    return PortaImpostata ? QString() : Porta_MalImpostata();
}

QString MacchinaScambio::Rimedio_Porta() const
{
    return PortaAperta ? QString() : Testo_Mctc(MctcPortaRimedio);
}

QString MacchinaScambio::Causa() const
{
    const QString guasto = Guasto_Porta();
    const QString rimedio = Rimedio_Porta();
    if (!guasto.isEmpty())
        return rimedio.isEmpty() ? guasto : guasto + QStringLiteral(": ") + rimedio;
    return m_fallimento.isEmpty() ? Testo_Mctc(MctcSessioneInterrotta) : m_fallimento;
}

QVariant MacchinaScambio::Imposta_Default()
{
    Leggi_DatiStrumento();
    m_finestra.Mostra_Titolo(MsgIniziale);
    Dati = Componi_Dati(gDatiStrumento);
    Passo = 0;
    Componi_Comando(CmdScriviDati1, Dati, Comando);
    Invia_Comando();
    return {};
}

void MacchinaScambio::Invia_Comando()
{
    m_finestra.Mostra_Tx(Formatta_Hex(gTxFrame, gTxFrame.size()));
    Tick = 0;
    m_finestra.Colora_Sha(COLORE_BIANCO);
    Stato = StatoAttesa;
    Scrivi_Porta(commApp, gTxFrame);
    tmrComm.Interval(INTERVALLO_ATTESA);
    tmrComm.Enabled(true);
    m_finestra.Mostra_Avanzamento();
}

void MacchinaScambio::Chiudi_Sessione(TestoMctc testo, int intervallo)
{
    m_fallimento = Testo_Mctc(testo);
    m_finestra.Mostra_Lbl(m_fallimento);
    tmrComm.Interval(intervallo);
    tmrComm.Enabled(true);
    Esito = SessioneFallita;
    Stato = StatoChiusura;
    m_finestra.Mostra_Avanzamento();
}

void MacchinaScambio::Avanza()
{
    Passo = Intero16(Passo + 1);
    if (Passo > UltimoPasso) {
        tmrComm.Interval(INTERVALLO_TESTO);
        tmrComm.Enabled(true);
        Esito = SessioneCompletata;
        Stato = StatoChiusura;
        m_finestra.Mostra_Lbl(Testo_Mctc(MctcScambioCompletato));
        m_finestra.Mostra_Avanzamento();
        return;
    }
    m_fallimento.clear();
    m_finestra.Mostra_Lbl(QStringLiteral("Attesa dati..."));
    Componi_Comando(static_cast<quint8>(Sequenza[Passo]), Dati, Comando);
    Invia_Comando();
}

// --- the beat ---------------------------------------------------------------------------------------------

void MacchinaScambio::tmrComm_Timer()
{
    switch (Stato) {
    case StatoFermo:
        break;
    case StatoAttesa:
        Tick_Attesa();
        break;
    case StatoRisposta:
        Tick_Risposta();
        break;
    case StatoChiusura:
        Tick_Chiusura();
        break;
    }
}

void MacchinaScambio::Tick_Attesa()
{
    Tick = Intero16(Tick + 1);
    m_finestra.Colora_Sha(Tick % 2 != 0 ? COLORE_BIANCO : COLORE_ROSSO);
    const qint32 trascorsi = Tick * tmrComm.Interval();
    if (trascorsi > LIMITE_REINVIO) {
        Componi_Comando(Comando, Dati, Comando);
        Invia_Comando();
        Reinvii = Intero16(Reinvii + 1);
        // The last resend goes out and is not waited for.
        if (Reinvii > MASSIMO_REINVII)
            Chiudi_Sessione(MctcStrumentoMuto, INTERVALLO_SILENZIO);
    }
    // Out of reach of a beat of 200 ms: it guards a longer one.
    if (trascorsi > LIMITE_ATTESA)
        Chiudi_Sessione(MctcStrumentoMuto, INTERVALLO_SILENZIO);
}

void MacchinaScambio::Tick_Risposta()
{
    m_finestra.Colora_Sha(COLORE_VERDE);
    tmrComm.Enabled(false);
    Stato = StatoFermo;
    if (!Risposta_Valida(Ricezione.BufRx)) {
        Rifiuta();
        return;
    }
    for (const RigaRisposta &riga : RISPOSTE) {
        const bool comando = riga.comando == QUALSIASI || riga.comando == Comando;
        const bool byte = riga.atteso == QUALSIASI || riga.atteso == Ricezione.BufRx[riga.posto];
        if (riga.modo == Modo && comando && byte) {
            (this->*riga.azione)();
            return;
        }
    }
}

void MacchinaScambio::Tick_Chiusura()
{
    tmrComm.Enabled(false);
    if (!gDebug)
        m_finestra.Scarica_Modulo();
}

// --- what a reply leads to --------------------------------------------------------------------------------

void MacchinaScambio::Ripeti()
{
    Passo = Intero16(Passo - 1);
    Avanza();
}

void MacchinaScambio::Accetta_Misura()
{
    Leggi_Misura(Ricezione.BufRx, Riga_Dbg());
    Esito = SessioneCompletata;
    Avanza();
}

void MacchinaScambio::Accetta_Dati()
{
    Leggi_Testi(Ricezione.BufRx, POSTO_DATI, gDatiStrumento, Riga_Dbg());
    Avanza();
}

void MacchinaScambio::Accetta_Taratura()
{
    Leggi_Testi(Ricezione.BufRx, POSTO_TARATURA, gDatiTaratura, Riga_Dbg());
    Esito = SessioneCompletata;
    Avanza();
}

void MacchinaScambio::Prepara_Scrittura()
{
    Dati = Componi_Dati(gDatiStrumento);
    Avanza();
}

void MacchinaScambio::Accetta_Scrittura()
{
    // From the first frame on: a session broken off between the two frames counts as done, since the
    // instrument has taken the identity it is known by.
    Esito = SessioneCompletata;
    Avanza();
}

void MacchinaScambio::Rifiuta()
{
    Chiudi_Sessione(MctcRispostaNonValida, INTERVALLO_TESTO);
}

void MacchinaScambio::Rifiuta_Tipo()
{
    Chiudi_Sessione(MctcRispostaAltroTipo, INTERVALLO_TESTO);
}

RigaDbg MacchinaScambio::Riga_Dbg()
{
    return [this](const QString &riga) { m_finestra.Aggiungi_Dbg(riga); };
}

// --- the line ---------------------------------------------------------------------------------------------

void MacchinaScambio::commApp_OnComm()
{
    qint16 stato = -1;
    try {
        const qint16 evento = commApp.CommEvent();
        stato = Stato_Evento(evento);
        // Line errors end nothing: a damaged frame is caught by its check character or by the silence.
        if (evento != EventoRicezione)
            return;
        Ricevi_Porta(commApp);
        const QByteArray arrivati = gRxDati;
        for (const char byte : arrivati)
            Ricevi_Byte(static_cast<quint8>(byte));
    } catch (const ErroreEsecuzione &errore) {
        m_finestra.Mostra_Errore(Testo_Errore(QStringLiteral("Rec sts: "), stato, errore));
    }
}

void MacchinaScambio::Ricevi_Byte(quint8 byte)
{
    try {
        const EsitoByte esito = Ricezione.Aggiungi(byte);
        if (esito != EsitoByte::Nulla)
            m_finestra.Mostra_Rx(Formatta_Hex(Ricezione.BufRx, Ricezione.InfoRx.Indice));
        if (esito == EsitoByte::Fine)
            Stato = StatoRisposta;
    } catch (const ErroreEsecuzione &errore) {
        m_finestra.Mostra_Errore(Testo_Errore(QStringLiteral("Auto sts: "), Ricezione.StatoRx, errore));
    }
}
