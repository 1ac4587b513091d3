// The window of a session: its layout, and what the machine has it show. It knows no command and no reply.
#include "link/frmComm.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "dialogs/dlgPwd.h"
#include "link/seriale.h"
#include "toolkit/applicazione.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

namespace {

// The layout, in design units of a form of 8000 by 4000; every one goes through the x scale, as the form's
// own height does.
constexpr qint32 MARGINE = 150;
constexpr qint32 LBL_ALTA = 700;
constexpr qint32 HEX_ALTA = 460;
constexpr qint32 LAMPADA = 700;
constexpr int RITARDO_TASTI = 500;  // ms: the form comes up where the operator has just pressed Enter
constexpr double PUNTI_FISSI = 0.9; // of the normal size

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
    lbl[0].FontSize(Punti_Normali() * 1.2);
    lbl[0].FontBold(true);
    lblTx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTx"));
    lblRx = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblRx"));
    lstDbg = std::make_unique<ElencoVoci>(Finestra(), QStringLiteral("lstDbg"));
    shaComm = std::make_unique<Forma>(Finestra(), QStringLiteral("shaComm"), Forma::Cerchio);
    cmd.Carica(0).Visible(true);
    cmd[0].Cancel(true);
    RitardoTasti(RITARDO_TASTI);
    for (Controllo *fisso : {static_cast<Controllo *>(lblTx.get()), static_cast<Controllo *>(lblRx.get()),
                             static_cast<Controllo *>(lstDbg.get())})
    {
        fisso->FontName(Carattere_Fisso());
        fisso->FontSize(Punti_Normali() * PUNTI_FISSI);
    }
    lblTx->SpezzaOvunque();
    lblRx->SpezzaOvunque();
    lblTx->NomeAccessibile(QStringLiteral("TX"));
    lblRx->NomeAccessibile(QStringLiteral("RX"));
    lstDbg->NomeAccessibile(QStringLiteral("Debug"));
    commApp = Crea_ControlloSeriale();
    FinestraScambio &finestra = *this;
    mMacchina = std::make_unique<MacchinaScambio>(finestra, *commApp);
}

void frmComm::Load()
{
    Width(ScalaX(8000));
    Height(ScalaX(4000)); // by the x scale too: the form keeps its shape on every screen
    Centra();
    Image1->Posto(0, 0, Width(), Height());
    lbl[0].Posto(0, 0, Width(), ScalaX(LBL_ALTA));
    const qint32 margine = ScalaX(MARGINE);
    const qint32 larghezza = Width() - 2 * margine;
    lblTx->Posto(margine, ScalaX(750), larghezza, ScalaX(HEX_ALTA));
    lblRx->Posto(margine, ScalaX(1250), larghezza, ScalaX(HEX_ALTA));
    lstDbg->Posto(margine, ScalaX(1800), ScalaX(4600), ScalaX(2050));
    shaComm->Posto(ScalaX(4950), ScalaX(2475), ScalaX(LAMPADA), ScalaX(LAMPADA));
    cmd[0].Posto(ScalaX(5850), ScalaX(2325), ScalaX(2000), ScalaX(1000));

    Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
    Report_Dati(0);
    Report_Dati(1);
    cmd[0].Caption(Testo_Lingua(LinguaInterrompi));
    mMacchina->Modo = static_cast<ModoScambio>(Modo);
    mMacchina->Prepara();
    Mostra_Lbl(mMacchina->MsgIniziale);
    lbl[0].Visible(true);
    mMacchina->Avvia();
    cmd[0].SetFocus();
}

void frmComm::cmd_Click(qint16)
{
    Scarica();
}

void frmComm::Unload()
{
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
}

void frmComm::Colora_Sha(quint32 colore)
{
    shaComm->FillColor(colore);
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
