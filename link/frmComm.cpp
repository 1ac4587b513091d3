// The window of a session: its layout, and what the machine has it show. It knows no command and no reply.
#include "link/frmComm.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/veicolo.h"
#include "dialogs/dlgPwd.h"
#include "link/frmComm_quadro.h"
#include "link/seriale.h"
#include "toolkit/applicazione.h"
#include "toolkit/aspetto.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"

namespace {

// The layout, in design units of a form of 8000 by 4000; every one goes through the x scale, as the form's
// own height does. From above: the words, the steps, the traffic, the vehicle, the lamp with the button.
constexpr qint32 LARGA = 8000;
constexpr qint32 ALTA = 4000;
constexpr qint32 MARGINE = 120;
constexpr qint32 STACCO = 15;
constexpr qint32 DUE_RIGHE = 1595; // of the words, in type that is read from the car
constexpr qint32 TRE_RIGHE = 2385;
constexpr qint32 PASSI_ALTI = 540;
constexpr qint32 RIGA_HEX = 265;
constexpr qint32 NOME_HEX = 380;
constexpr qint32 TX_LARGO = 2500; // beside RX: a command without data
constexpr qint32 VEICOLO_ALTO = 610;
constexpr qint32 TARGA_LARGA = 3500;
constexpr qint32 ELENCO_LARGO = 2700;
constexpr qint32 PIEDE = 3075;
constexpr qint32 LAMPADA = 540;
constexpr qint32 CMD_LARGO = 2450;
constexpr qint32 PARTE_PORTA = 60; // hundredths of the notice
constexpr int RITARDO_TASTI = 500; // ms: the form comes up where the operator has just pressed Enter

/// "Err Rs232" boxes that wait, at most: a frame leaves one for a byte, and no more bytes wait than these.
constexpr int MASSIMO_ERRORI = BUFFER_INGRESSO;
/// How long the form stands free after a box, in ms: time for a person to press Escape or the button.
constexpr int PAUSA_FRA_BOX = 2000;

} // namespace

frmComm::frmComm() : Modulo(QStringLiteral("frmComm")), tmrPausa([this] { tmrPausa_Timer(); })
{
    tmrPausa.Interval(PAUSA_FRA_BOX);
}

frmComm::~frmComm() = default;

void frmComm::Disegno()
{
    Image1 = std::make_unique<Immagine>(Finestra(), QStringLiteral("Image1"));
    lbl.Carica(0).Allineamento(Orizzontale::Centro);
    lbl[0].FontSize(Punti_Normali() * LETTURA_AUTO);
    mQuadro = std::make_unique<QuadroSessione>(*this);
    lblPorta = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblPorta"));
    lblPorta->FontSize(Punti_Normali() * LETTURA_AUTO);
    lblRimedio = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblRimedio"));
    lblRimedio->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    for (Etichetta *etichetta : {lblPorta.get(), lblRimedio.get()}) {
        etichetta->Visible(false);
        etichetta->Allineamento(Orizzontale::Centro, Verticale::Basso);
        // Apart from the words above, which go on asking to wait.
        etichetta->BackColor(Numero_Tinta(Tinta::Guasto));
        etichetta->ForeColor(COLORE_BIANCO);
    }
    lblTarga = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTarga"));
    lblTarga->FontSize(Punti_Normali() * LETTURA_AUTO);
    lblTarga->FontBold(true);
    lblVeicolo = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblVeicolo"));
    lblVeicolo->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lblNomeTx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblNomeTx"));
    lblNomeTx->Caption(QStringLiteral("TX"));
    lblNomeRx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblNomeRx"));
    lblNomeRx->Caption(QStringLiteral("RX"));
    lblTx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTx"));
    lblRx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblRx"));
    lstDbg = std::make_unique<ElencoVoci>(Finestra(), QStringLiteral("lstDbg"));
    shaComm = std::make_unique<Forma>(Finestra(), QStringLiteral("shaComm"), Forma::Cerchio);
    cmd.Carica(0).Visible(true);
    cmd[0].FontSize(Punti_Normali() * LETTURA_SCHERMO);
    cmd[0].Cancel(true);
    RitardoTasti(RITARDO_TASTI);
    Disegna_Linea();
    commApp = Crea_ControlloSeriale();
    FinestraScambio &finestra = *this;
    mMacchina = std::make_unique<MacchinaScambio>(finestra, *commApp);
}

/// What goes over the line, in type whose bytes stand below each other.
void frmComm::Disegna_Linea()
{
    for (Controllo *fisso : {static_cast<Controllo *>(lblTx.get()), static_cast<Controllo *>(lblRx.get()),
                             static_cast<Controllo *>(lstDbg.get())})
    {
        fisso->FontName(Carattere_Fisso());
        fisso->FontSize(Punti_Normali() * LETTURA_TASTIERA);
    }
    for (Etichetta *nome : {lblNomeTx.get(), lblNomeRx.get()})
        nome->FontSize(Punti_Normali() * LETTURA_TASTIERA);
    for (Etichetta *nome : {lblNomeTx.get(), lblNomeRx.get(), lblTx.get(), lblRx.get()})
        nome->Allineamento(Orizzontale::Sinistra, Verticale::Alto);
    lblTx->SpezzaOvunque();
    lblRx->SpezzaOvunque();
    lblNomeTx->Etichetta_Di(*lblTx);
    lblNomeRx->Etichetta_Di(*lblRx);
    lblTx->NomeAccessibile(QStringLiteral("TX"));
    lblRx->NomeAccessibile(QStringLiteral("RX"));
    lstDbg->NomeAccessibile(QStringLiteral("Debug"));
}

void frmComm::Load()
{
    Width(ScalaX(LARGA));
    Height(ScalaX(ALTA)); // by the x scale too: the form keeps its shape on every screen
    Centra();
    Image1->Posto(0, 0, Width(), Height());
    lbl[0].Posto(0, 0, Width(), ScalaX(DUE_RIGHE));
    Disponi_Piede();

    Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
    Report_Dati(0);
    Report_Dati(1);
    cmd[0].Caption(Testo_Lingua(LinguaInterrompi));
    Mostra_Veicolo();
    mMacchina->Modo = Modo;
    mMacchina->Prepara();
    mQuadro->Inizia(Testo_Mctc(Modo == ModoMisura ? MctcPassoMisura : MctcPassoStrumento),
                    Modo != ModoDefault);
    Mostra_Lbl(mMacchina->MsgIniziale);
    lbl[0].Visible(true);
    mMacchina->Avvia();
    cmd[0].SetFocus();
}

/// The lowest line of the form: it stands whatever happens above.
void frmComm::Disponi_Piede()
{
    const qint32 cima = ScalaX(PIEDE);
    const qint32 altezza = Height() - ScalaX(STACCO) - cima;
    const qint32 centro = cima + altezza / 2;
    const qint32 sinistraCmd = Width() - ScalaX(MARGINE) - ScalaX(CMD_LARGO);
    const qint32 sinistraRighe = ScalaX(2 * MARGINE) + ScalaX(LAMPADA);
    shaComm->Posto(ScalaX(MARGINE), centro - ScalaX(LAMPADA) / 2, ScalaX(LAMPADA), ScalaX(LAMPADA));
    mQuadro->Posto_Righe(sinistraRighe, cima, sinistraCmd - sinistraRighe - ScalaX(MARGINE), altezza);
    cmd[0].Posto(sinistraCmd, centro - ScalaX(BERSAGLIO_ALTO) / 2, ScalaX(CMD_LARGO), ScalaX(BERSAGLIO_ALTO));
}

/// What stands between the words and the lowest line. A failure needs three lines for its words, and the last
/// reply stays to be read out to whoever helps: of the vehicle only the plate does. A list of the traffic
/// needs a column. A notice about the port keeps the words at their two lines: it is what counts.
void frmComm::Disponi()
{
    const bool guasta = !lblPorta->Caption().isEmpty();
    const bool fallita = !guasta && mMacchina->Stato == StatoChiusura && mMacchina->Esito == SessioneFallita;
    const bool elenco = gDebug || mElenco;
    const bool passi = !guasta && !fallita && !gDebug;
    const bool veicolo = !elenco && !guasta && !lblTarga->Caption().isEmpty();
    const qint32 margine = ScalaX(MARGINE);
    const qint32 larghezza = Width() - 2 * margine;
    lbl[0].Posto(0, 0, Width(), ScalaX(fallita ? TRE_RIGHE : DUE_RIGHE));
    qint32 cima = lbl[0].Height() + ScalaX(STACCO);
    mQuadro->Passi_Visibili(passi);
    if (passi) {
        mQuadro->Posto_Passi(margine, cima, larghezza, ScalaX(PASSI_ALTI));
        cima += ScalaX(PASSI_ALTI) + ScalaX(STACCO);
    }
    qint32 fondo = ScalaX(PIEDE) - ScalaX(STACCO);
    lblTarga->Visible(veicolo);
    lblVeicolo->Visible(veicolo && !fallita);
    if (veicolo)
        fondo -= ScalaX(VEICOLO_ALTO);
    lstDbg->Visible(elenco);
    qint32 sinistra = margine;
    if (elenco) {
        lstDbg->Posto(sinistra, cima, ScalaX(ELENCO_LARGO), fondo - cima);
        sinistra += ScalaX(ELENCO_LARGO) + margine;
    }
    const qint32 resto = Width() - margine - sinistra;
    const qint32 altezza = fondo - cima;
    for (Etichetta *etichetta : {lblPorta.get(), lblRimedio.get()})
        etichetta->Visible(guasta && !etichetta->Caption().isEmpty());
    if (guasta)
        Disponi_Porta(sinistra, cima, resto, altezza);
    else if (veicolo && fallita)
        Disponi_InColonna(lblVeicolo->Left(), cima, lblVeicolo->Width(), altezza + ScalaX(VEICOLO_ALTO));
    else if (veicolo)
        Disponi_InRiga(sinistra, cima, resto);
    else
        Disponi_InColonna(sinistra, cima, resto, altezza);
}

/// What is wrong with the port, and below it what to check; the traffic keeps its line.
void frmComm::Disponi_Porta(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const qint32 avviso = height - ScalaX(RIGA_HEX) - ScalaX(STACCO);
    const qint32 porta = lblRimedio->Visible() ? avviso * PARTE_PORTA / 100 : avviso;
    lblPorta->Posto(left, top, width, porta);
    lblRimedio->Posto(left, top + porta, width, avviso - porta);
    Disponi_InRiga(left, top + height - ScalaX(RIGA_HEX), width);
}

/// TX beside RX, on the one line that the vehicle leaves.
void frmComm::Disponi_InRiga(qint32 left, qint32 top, qint32 width)
{
    const qint32 nome = ScalaX(NOME_HEX);
    const qint32 riga = ScalaX(RIGA_HEX);
    const qint32 destra = left + ScalaX(TX_LARGO);
    lblNomeTx->Posto(left, top, nome, riga);
    lblTx->Posto(left + nome, top, destra - left - nome, riga);
    lblNomeRx->Posto(destra, top, nome, riga);
    lblRx->Posto(destra + nome, top, left + width - destra - nome, riga);
}

/// TX above RX, which is the longer one.
void frmComm::Disponi_InColonna(qint32 left, qint32 top, qint32 width, qint32 height)
{
    const qint32 nome = ScalaX(NOME_HEX);
    const qint32 alta = height / 3;
    lblNomeTx->Posto(left, top, nome, alta);
    lblTx->Posto(left + nome, top, width - nome, alta);
    lblNomeRx->Posto(left, top + alta, nome, height - alta);
    lblRx->Posto(left + nome, top + alta, width - nome, height - alta);
}

/// Only a measure is of a vehicle. Its place is the same in every session, so that the words fit it once.
void frmComm::Mostra_Veicolo()
{
    if (Modo != ModoMisura)
        return;
    Veicolo_Prendi();
    const qint32 cima = ScalaX(PIEDE) - ScalaX(STACCO) - ScalaX(VEICOLO_ALTO);
    const qint32 destra = ScalaX(MARGINE) + ScalaX(TARGA_LARGA);
    lblTarga->Posto(ScalaX(MARGINE), cima, ScalaX(TARGA_LARGA), ScalaX(VEICOLO_ALTO));
    lblTarga->Caption(gVeicolo.Targa);
    lblVeicolo->Posto(destra, cima, Width() - ScalaX(MARGINE) - destra, ScalaX(VEICOLO_ALTO));
    Mostra_Accorciata(*lblVeicolo, gVeicolo.Descrizione);
}

void frmComm::cmd_Click(qint16)
{
    Scarica();
}

void frmComm::Unload()
{
    mQuadro->Ferma();
    mMacchina->Termina();
    Lascia_Errori();
    qint16 codice = mMacchina->Esito;
    QVariant valore = qint16{0};
    Q_EMIT Notifica(codice, valore);
}

QVariant frmComm::Imposta_Default()
{
    return mMacchina->Imposta_Default();
}

void frmComm::Chiedi_Pwd(const QString &password)
{
    Password_Chiedi(frmPwd, password, this, &frmComm::frmPwd_PwdReady);
}

void frmComm::frmPwd_PwdReady(quint8 &esito)
{
    PwdEsito = esito;
}

// --- what the machine shows -------------------------------------------------------------------------------

void frmComm::Mostra_Titolo(const QString &testo)
{
    Caption(testo);
    lbl[0].Visible(true);
}

void frmComm::Mostra_Lbl(const QString &testo)
{
    lbl[0].Caption(testo);
    NomeAccessibile(testo); // the window has no title before the exchange has begun
}

void frmComm::Mostra_Tx(const QString &esadecimale)
{
    lblTx->Caption(esadecimale);
}

void frmComm::Mostra_Rx(const QString &esadecimale)
{
    lblRx->Caption(esadecimale);
}

void frmComm::Aggiungi_Dbg(const QString &riga)
{
    lstDbg->AddItem(riga);
    if (!mElenco) {
        mElenco = true;
        Disponi();
    }
}

void frmComm::Colora_Sha(quint32 colore)
{
    shaComm->FillColor(colore);
    mQuadro->Lampada(colore);
}

void frmComm::Mostra_Porta()
{
    lblPorta->Caption(mMacchina->Guasto_Porta());
    lblRimedio->Caption(mMacchina->Rimedio_Porta());
    mQuadro->Porta(*mMacchina);
    Disponi();
}

void frmComm::Mostra_Avanzamento()
{
    const bool prima = mChiusura;
    mChiusura = mMacchina->Stato == StatoChiusura;
    mQuadro->Avanza(*mMacchina);
    if (mChiusura != prima)
        Disponi();
}

void frmComm::Scarica_Modulo()
{
    Esegui([this] { Scarica(); });
}

// --- the boxes of a line in trouble -----------------------------------------------------------------------

void frmComm::Mostra_Errore(const QString &testo)
{
    if (mErrori.size() == MASSIMO_ERRORI)
        return; // a line that never falls silent would fill the memory
    mErrori.append(testo);
    Annuncia_Errori();
}

/// From the loop, not from here: the batch of bytes that brought the error is taken whole first.
void frmComm::Annuncia_Errori()
{
    Esegui_Dopo([this] { Mostra_ProssimoErrore(); });
}

void frmComm::Mostra_ProssimoErrore()
{
    if (mBox != nullptr || tmrPausa.Enabled() || mErrori.isEmpty())
        return;
    mBox = std::make_unique<BoxSistema>(QStringLiteral("Err Rs232"), mErrori.takeFirst());
    mBox->Mostra();
    mBox.reset();
    // A bad line has a box for every byte: without a pause nobody would get to the form behind them.
    if (Caricato())
        tmrPausa.Enabled(true);
}

void frmComm::tmrPausa_Timer()
{
    tmrPausa.Enabled(false);
    Annuncia_Errori();
}

/// The errors of a session end with it: what stands behind the form is not theirs to cover.
void frmComm::Lascia_Errori()
{
    mErrori.clear();
    tmrPausa.Enabled(false);
    if (mBox != nullptr)
        mBox->Chiudi();
}
