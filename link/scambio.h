// The exchange machine of a link session: a short sequence of commands, each sent, waited for with resends,
// its reply judged by the session's mode, and one code at the end. It knows no widget: it speaks to its
// window and to the line through two interfaces.
#pragma once

#include "core/testi_mctc.h"
#include "link/protocollo.h"
#include "platform/colori.h"
#include "platform/temporizzatore.h"

#include <QVariant>

class ControlloSeriale;

/// What a session does.
enum ModoScambio : quint8
{
    ModoMisura = 0,  ///< waits for a measure and fetches it into gMisure
    ModoLeggi = 1,   ///< reads identity and calibration into gDatiStrumento and gDatiTaratura
    ModoScrivi = 2,  ///< writes gDatiStrumento, as the parent filled it
    ModoDefault = 3, ///< writes identity and calibration from the profile
};

enum StatoScambio : quint8
{
    StatoFermo = 0,    ///< nothing awaited; timer off
    StatoAttesa = 1,   ///< a frame is out, the reply is awaited
    StatoRisposta = 2, ///< a complete frame lies in BufRx, not yet looked at
    StatoChiusura = 3, ///< the session is over, the last text is being shown
};

/// What the machine needs of its window.
class FinestraScambio
{
public:
    virtual ~FinestraScambio() = default;

    /// Title of the window; the label lbl becomes visible.
    virtual void Mostra_Titolo(const QString &testo) = 0;
    /// Caption of lbl: what the operator reads.
    virtual void Mostra_Lbl(const QString &testo) = 0;
    /// Texts of lblTx and lblRx: the last frame sent, the reply so far.
    virtual void Mostra_Tx(const QString &esadecimale) = 0;
    virtual void Mostra_Rx(const QString &esadecimale) = 0;
    /// One more line of lstDbg.
    virtual void Aggiungi_Dbg(const QString &riga) = 0;
    /// Fill colour of shaComm, the lamp of the link: white as a frame goes out and at odd ticks of the wait,
    /// red at even ones, green when a complete frame has come in.
    virtual void Colora_Sha(quint32 colore) = 0;
    /// The box "Err Rs232". May come many times in one receive event: the window queues the texts, shows them
    /// one at a time in order, and returns at once, so that a batch of bytes is taken whole. It keeps no more
    /// of them than an input buffer has bytes, and none beyond the session.
    virtual void Mostra_Errore(const QString &testo) = 0;
    /// Unloads the window, by way of MacchinaScambio::Termina; may destroy the machine.
    virtual void Scarica_Modulo() = 0;

    // A window that shows no more than the words does without these.
    /// The port has been tried: PortaAperta and Guasto_Porta of the machine say how it stands. Its number is
    /// gPortaNum.
    virtual void Mostra_Porta() {}
    /// The session has gone on or ended: Stato, Comando and Esito of the machine say where it stands.
    virtual void Mostra_Avanzamento() {}
};

/// One session. The window makes one for each session, sets Modo, calls Prepara and Avvia while loading and
/// Termina while unloading, and hands Esito to its parent afterwards. The fields are for reading, all but
/// those said otherwise.
class MacchinaScambio
{
public:
    /// The machine's timer starts with the clock in force. Window and line outlive the machine.
    MacchinaScambio(FinestraScambio &finestra, ControlloSeriale &linea);
    ~MacchinaScambio();
    Q_DISABLE_COPY_MOVE(MacchinaScambio)

    ModoScambio Modo = ModoMisura; ///< set before Prepara, never changed after
    QByteArray Sequenza;           ///< types of the session's commands, in order; see Imposta_Default
    qint16 UltimoPasso = 0;        ///< last index of Sequenza
    QString MsgIniziale;           ///< first caption of lbl

    bool PortaAperta = false;    ///< Avvia has opened it
    bool PortaImpostata = false; ///< and its settings were understood: otherwise nothing is heard on it
    StatoScambio Stato = StatoFermo;
    qint16 Passo = 0;       ///< index in Sequenza of the command on the wire
    quint8 Comando = 0;     ///< type last built
    QByteArray Dati;        ///< payload of the write commands
    qint16 Tick = 0;        ///< ticks of the timer since the last send
    qint16 Reinvii = 0;     ///< resends of the whole session: an answer does not bring them back
    qint16 Esito = 0;       ///< code for the parent, a NotificaSessione; SessioneFallita from Avvia on
    Assemblatore Ricezione; ///< the reply that is coming in

    /// Sets sequence and first caption of the mode. ModoDefault gets its sequence at the start of the session
    /// and no caption.
    void Prepara();

    /// Starts the session: opens the port and sends the first frame. Errors are passed over, each statement
    /// for itself: a port that does not open leaves the session standing until the operator ends it.
    void Avvia();

    /// Stops the timer and closes the port; whatever still arrives is lost. Notes what the session failed of
    /// (Sessione_Annota): the words that were on the screen, what is wrong with the port, or the operator.
    void Termina();

    /// From Avvia on: what is wrong with the port, and what to do about it where the first does not say so;
    /// empty when nothing is.
    QString Guasto_Porta() const;
    QString Rimedio_Porta() const;

    /// Writes the identity of the profile through a session that is loaded already. Sends the first identity
    /// frame as step 0 and leaves Sequenza alone: the caller sees to it. Nothing calls it at present.
    /// @return an empty value. @throws ErroreEsecuzione 8018 when the port is not open.
    QVariant Imposta_Default();

private:
    using Azione = void (MacchinaScambio::*)();
    struct RigaRisposta;
    static const RigaRisposta RISPOSTE[];

    void Imposta_Sequenza();
    void Invia_Comando();
    void Chiudi_Sessione(TestoMctc testo, int intervallo);
    QString Causa() const;
    void Avanza();

    void tmrComm_Timer();
    void Tick_Attesa();
    void Tick_Risposta();
    void Tick_Chiusura();

    void commApp_OnComm();
    void Ricevi_Byte(quint8 byte);

    // What a row of the reply table does.
    void Ripeti();
    void Accetta_Misura();
    void Accetta_Dati();
    void Accetta_Taratura();
    void Prepara_Scrittura();
    void Accetta_Scrittura();
    void Rifiuta();
    void Rifiuta_Tipo();

    RigaDbg Riga_Dbg();

    FinestraScambio &m_finestra;
    ControlloSeriale &commApp;
    Temporizzatore tmrComm;
    QString m_fallimento; // words of the failure that is on the screen, empty when there is none
};
