// The list, the poll of the folder and the card of the file picked. What makes a file good is modMctc's
// business.
#include "mctc/frmMctcO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/testo_riempito.h"
#include "dialogs/frmMsg.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_valori.h"
#include "platform/colori.h"
#include "platform/errore_esecuzione.h"
#include "platform/eventi.h"
#include "report/frmMctc2.h"
#include "toolkit/aspetto.h"
#include "toolkit/elenco_colonne.h"
#include "toolkit/lettura.h"
#include "toolkit/ricerca_elenco.h"
#include "toolkit/schermo.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int INTERVALLO_LISTA = 2000;  // ms
constexpr int INTERVALLO_FATTI = 10000; // another station may have written a result
constexpr qint32 TABULAZIONE = 100;     // quarters of a character's width
constexpr int RIGHE_INTERE = 3;         // of the list, seen at once: its frame is low

constexpr const char16_t *MASCHERA = u"*.acc";

// The layout, in design units: rows on a pitch of 500, booking and customer on the left, vehicle on the
// right.
constexpr qint32 PASSO_RIGHE = 500;
constexpr qint32 CASELLA_ALTA = 270;
constexpr qint16 PRIMA_VEICOLO = AccTipoVeicolo;
constexpr qint16 PRIMA_DOPPIA = AccKm; // from here on two rows of the vehicle share a line

struct Colonna
{
    qint32 etichetta;
    qint32 etichettaLarga;
    qint32 controllo;
    qint32 controlloLargo;
};

constexpr qint32 CIMA_PRENOTAZIONE = 2722;
constexpr qint32 CIMA_VEICOLO = 560;
constexpr Colonna PRENOTAZIONE = {200, 2550, 2800, 4050};
constexpr Colonna PRENOTAZIONE_PRIMA = {200, 2550, 2800, 2700};
constexpr Colonna PRENOTAZIONE_SECONDA = {5600, 0, 5650, 1200};
constexpr Colonna VEICOLO = {8100, 2300, 10450, 4400};
constexpr Colonna VEICOLO_PRIMA = {8100, 2300, 10450, 850};
constexpr Colonna VEICOLO_SECONDA = {11450, 2300, 13800, 1050};

// The lines in large type, in the places that frames and buttons leave free.
struct Posto
{
    qint32 x, y, larga, alta;
};

constexpr Posto POSTO_CERCA = {8000, 0, 7000, 490};
constexpr Posto POSTO_ATTESA = {8000, 10840, 7000, 620};
constexpr Posto POSTO_TARGA = {100, 9540, 3400, 1100};
constexpr Posto POSTO_AVVISO = {3550, 9540, 3450, 1100};
constexpr Posto POSTO_ESCI = {100, 10690, 2800, BERSAGLIO_ALTO};
constexpr Posto POSTO_CONFERMA = {4200, 10690, 2800, BERSAGLIO_ALTO};

// Type, in times of the normal size.
constexpr double PUNTI_CAMPO = 1.1; // frames and pitch of the rows are given

// How a stored date or time reads on the screen.
constexpr qint16 FORMATO_GREZZO = -1;
constexpr qint16 FORMATO_DATA = 0;
constexpr qint16 FORMATO_ORA = 1;

void Disponi_In(Controllo &controllo, const Posto &posto, double punti)
{
    controllo.FontSize(Punti_Normali() * punti);
    controllo.Posto(ScalaX(posto.x), ScalaY(posto.y), ScalaX(posto.larga), ScalaY(posto.alta));
}

/// Rows of the booking that share the line of the row before them.
bool Affiancata(qint16 riga)
{
    return riga == AccSesso || riga == AccProvinciaNascita || riga == AccCAP || riga == AccProvincia;
}

/// Places a row: line from the top of its frame, and the places across.
void Disponi_Riga(CampoForm &campo, qint32 cima, qint32 linea, const Colonna &colonna)
{
    campo.CtlLeft = ScalaX_16(colonna.controllo);
    campo.CtlTop = ScalaY_16(cima + linea * PASSO_RIGHE);
    campo.CtlWidth = ScalaX_16(colonna.controlloLargo);
    campo.LabelLeft = ScalaX_16(colonna.etichetta);
    campo.LabelTop = campo.CtlTop;
    campo.DateFormat = campo.ValueKind == ValoreData  ? FORMATO_DATA
                       : campo.ValueKind == ValoreOra ? FORMATO_ORA
                                                      : FORMATO_GREZZO;
}

void Disponi_Prenotazione()
{
    qint32 linea = -1;
    for (qint16 riga = 0; riga < PRIMA_VEICOLO; ++riga) {
        const bool seconda = Affiancata(riga);
        const bool prima = Affiancata(Intero16(riga + 1));
        if (!seconda)
            ++linea;
        const Colonna &colonna = seconda ? PRENOTAZIONE_SECONDA : prima ? PRENOTAZIONE_PRIMA : PRENOTAZIONE;
        Disponi_Riga(Campo_Acc(riga), CIMA_PRENOTAZIONE, linea, colonna);
    }
}

void Disponi_Veicolo()
{
    for (qint16 riga = PRIMA_VEICOLO; riga < RIGHE_ACC && Campo_Acc(riga).Kind != CampoSoloValore; ++riga) {
        const bool doppia = riga >= PRIMA_DOPPIA;
        const bool seconda = doppia && (riga - PRIMA_DOPPIA) % 2 == 1;
        const qint32 linea =
            doppia ? PRIMA_DOPPIA - PRIMA_VEICOLO + (riga - PRIMA_DOPPIA) / 2 : riga - PRIMA_VEICOLO;
        const Colonna &colonna = seconda ? VEICOLO_SECONDA : doppia ? VEICOLO_PRIMA : VEICOLO;
        Disponi_Riga(Campo_Acc(riga), CIMA_VEICOLO, linea, colonna);
    }
}

} // namespace

frmMctcO::frmMctcO()
    : Modulo(QStringLiteral("frmMctcO")),
      lblDes(QStringLiteral("lblDes")),
      tmrLst([this] { Esegui([this] { tmrLst_Timer(); }); }),
      tmrFatti([this] { Esegui([this] { tmrFatti_Timer(); }); })
{
}

frmMctcO::~frmMctcO() = default;

void frmMctcO::Disegno()
{
    Massimizza();
    lstAuto = std::make_unique<ElencoVoci>(Finestra(), QStringLiteral("lstAuto"));
    lstAuto->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lstAuto->Click = [this] { Esegui([this] { lstAuto_Click(); }); };
    mRicerca = std::make_unique<RicercaElenco>(*lstAuto);
    mRicerca->Cambiata = [this] { Esegui([this] { Cerca(); }); };
    mRicerca->Freccia = [this](bool avanti) {
        bool presa = false;
        Esegui([&] { presa = Cerca_Altra(avanti); });
        return presa;
    };
    const auto scritta = [this](const char *nome) {
        return std::make_unique<Etichetta>(Finestra(), QString::fromLatin1(nome));
    };
    lblCerca = scritta("lblCerca");
    lblAttesa = scritta("lblAttesa");
    lblTarga = scritta("lblTarga");
    lblAvviso = scritta("lblAvviso");
    lblDes.Inizia(Finestra());
    lblDes.Carica(0).Visible(true);
    lblDes.Carica(1).Visible(true);
    lbl.Carica(0).Posto(0, 0, ScalaX(PRENOTAZIONE.etichettaLarga), ScalaY(CASELLA_ALTA));
    lbl[0].FontSize(Punti_Normali() * PUNTI_CAMPO);
    txt.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(CASELLA_ALTA));
    txt[0].FontSize(Punti_Normali() * PUNTI_CAMPO);
    chk.Carica(0).Posto(0, 0, ScalaX(400), ScalaY(CASELLA_ALTA));
    cmd.Carica(0).Visible(true);
    cmd[0].Enabled(false); // until a clean file is selected
    cmd.Carica(1).Visible(true);
}

void frmMctcO::Load()
{
    gFileAcc.clear();
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_Imposta();
    Campi_Crea(gCampiAcc, ULTIMA_RIGA_ACC, *this);
    Disponi();
    Campi_Applica(gCampiAcc, ULTIMA_RIGA_ACC, *this);
    Lista_Aggiorna();
    if (!Caricato())
        return; // closed with the program while the files were read
    mUltimoConteggio = QStringLiteral("-1");
    mUltimoElenco.clear();
    tmrLst.Interval(INTERVALLO_LISTA);
    tmrLst.Enabled(true);
    tmrFatti.Interval(INTERVALLO_FATTI);
    tmrFatti.Enabled(true);
    lstAuto->SetFocus();
}

/// The rows of the record, and their places on this form.
void frmMctcO::Campi_Imposta()
{
    Campi_ImpostaAcc();
    Disponi_Prenotazione();
    Disponi_Veicolo();
}

void frmMctcO::Disponi()
{
    Caption(Testo_Mctc(MctcProvaProiettori));
    lstAuto->Posto(ScalaX(200), ScalaY(475), ScalaX(6700), ScalaY(2005));
    lstAuto->NomeAccessibile(Testo_Mctc(MctcFileAccettazione));
    const qint32 colonna = Elenco_Colonne(*lstAuto, ScalaX(TABULAZIONE), RIGHE_INTERE);
    lblDes[0].Posto(lstAuto->Left(), ScalaY(215), colonna, ScalaY(255));
    lblDes[0].Caption(Testo_Mctc(MctcFileAccettazione));
    lblDes[1].Posto(lstAuto->Left() + colonna, ScalaY(215), ScalaX(2500), ScalaY(255));
    lblDes[1].Caption(Testo_Mctc(MctcTarga));
    for (qint16 i = 0; i <= 1; ++i)
        lblDes[i].FontSize(Punti_Normali() * PUNTI_CAMPO);

    for (qint16 i = PRIMA_VEICOLO; i <= lbl.UBound(); ++i)
        lbl[i].Width(ScalaX(VEICOLO.etichettaLarga));

    cmd[0].Caption(Testo_Mctc(MctcConferma));
    Disponi_In(cmd[0], POSTO_CONFERMA, LETTURA_SCHERMO);
    cmd[0].Default(true);
    cmd[1].Caption(Testo_Mctc(MctcAnnulla));
    Disponi_In(cmd[1], POSTO_ESCI, LETTURA_SCHERMO);
    cmd[1].Cancel(true);
    Disponi_Scritte();
}

void frmMctcO::Disponi_Scritte()
{
    Disponi_In(*lblCerca, POSTO_CERCA, LETTURA_SCHERMO);
    Disponi_In(*lblAttesa, POSTO_ATTESA, LETTURA_SCHERMO);
    Disponi_In(*lblTarga, POSTO_TARGA, LETTURA_AUTO);
    Disponi_In(*lblAvviso, POSTO_AVVISO, LETTURA_SCHERMO);
    lblTarga->FontBold(true);
    lblAvviso->FontBold(true);
    lblAvviso->BackColor(COLORE_BIANCO);
    lblAvviso->Bordo_Evidente();
    lblAvviso->Allineamento(Orizzontale::Centro);
    Togli_Avviso();
    Mostra_Ricerca();
}

void frmMctcO::Paint()
{
    Disegna_Cornice(*this, ScalaX(100), ScalaY(200), ScalaX(7000), ScalaY(2500));
    Disegna_Cornice(*this, ScalaX(100), ScalaY(2700), ScalaX(7000), ScalaY(9500));
    Disegna_Cornice(*this, ScalaX(8000), ScalaY(500), ScalaX(15000), ScalaY(10800));
}

// --- the list ---------------------------------------------------------------------------------------------

void frmMctcO::Lista_Aggiorna()
{
    const QScopedValueRollback<bool> lettura(mInLettura, true);
    // Read before the list is cleared: listing a folder lets events run, and a press of a button among them
    // must find the lines that the operator sees. It may close the form, too.
    QList<VoceLista> lette = mVoci;
    const qint32 ultima = Lista_Leggi(gDirAcc, lette);
    if (!Caricato())
        return;
    const VeicoliFatti fatti = Fatti_Elenca(gDirAcc, Eventi_Esegui);
    const QStringList righe = Lista_Righe(lette, ultima + 1);
    Eventi_Esegui(); // the lines of a full folder are made and drawn in two waits, not in one
    if (!Caricato())
        return;
    const qint32 scelta = lstAuto->ListIndex(); // the line chosen while the files were read
    const QString prima = lstAuto->List(scelta);
    mVoci = std::move(lette); // with its lines: until here a press meant one of those that the operator saw
    mRighe = ultima + 1;
    lstAuto->Clear();
    lstAuto->AddItems(righe);
    mFatti.clear();
    Segna_Fatti(fatti);
    if (scelta > ultima)
        Mostra_Avviso(MctcVeicoloSparito);
    else if (lstAuto->List(scelta) != prima)
        Mostra_Avviso(MctcAltroVeicolo);
    Mostra_Targa();
    if (ultima >= 0)
        Scegli_DaProgramma(scelta);
}

/// A line chosen by its number. What the operator has typed stays.
void frmMctcO::Scegli_DaProgramma(qint32 riga)
{
    const QScopedValueRollback<bool> programma(mDaProgramma, true);
    lstAuto->ListIndex(riga);
}

// --- vehicles that have their result -----------------------------------------------------------------------

/// Touches only the lines whose mark changes: a full folder has thousands.
void frmMctcO::Segna_Fatti(const VeicoliFatti &fatti)
{
    const QString parola = Testo_Mctc(MctcFatto);
    qint32 attesa = 0;
    for (qint32 i = 0; i < mRighe; ++i) {
        const QString &nome = mVoci.at(i).NomeFile;
        const bool fatto = E_Fatto(fatti, nome);
        attesa += !fatto;
        if (fatto != E_Fatto(mFatti, nome))
            Elenco_Fatta(*lstAuto, i, fatto, parola);
    }
    mFatti = fatti;
    lblAttesa->Caption(
        Testo_Riempito(Testo_Mctc(MctcInAttesa), QString::number(attesa), QString::number(mRighe)));
}

void frmMctcO::tmrFatti_Timer()
{
    if (mOccupato || mInLettura)
        return;
    const VeicoliFatti fatti = Fatti_Elenca(gDirAcc);
    tmrFatti.Interval(INTERVALLO_FATTI); // from its answer, like the poll
    if (fatti != mFatti)
        Segna_Fatti(fatti);
}

// --- the search for a plate --------------------------------------------------------------------------------

/// The line at hand stays when what has been typed so far fits it, otherwise the first that fits is checked
/// as by a click.
void frmMctcO::Cerca()
{
    const QString testo = mRicerca->Testo();
    const qint32 scelta = std::max(0, lstAuto->ListIndex());
    if (!testo.isEmpty() && Lista_Cerca(Voci_InLista(), testo, scelta, 1) != lstAuto->ListIndex())
        Scegli_Trovata(Lista_Cerca(Voci_InLista(), testo, 0, 1));
    if (Caricato())
        Mostra_Ricerca();
}

/// The next line that fits, or the one before it. @return false when there is no other.
bool frmMctcO::Cerca_Altra(bool avanti)
{
    const qint32 passo = avanti ? 1 : -1;
    return Scegli_Trovata(
        Lista_Cerca(Voci_InLista(), mRicerca->Testo(), lstAuto->ListIndex() + passo, passo));
}

/// @return true when it is another line than the one at hand, and was chosen.
bool frmMctcO::Scegli_Trovata(qint32 trovata)
{
    if (trovata < 0 || trovata == lstAuto->ListIndex())
        return false;
    Togli_Avviso();
    Scegli_DaProgramma(trovata);
    return true;
}

/// The entries that the list shows: those read last stay when the folder has gone, and the list is empty.
QList<VoceLista> frmMctcO::Voci_InLista() const
{
    return mVoci.first(mRighe);
}

void frmMctcO::Mostra_Ricerca()
{
    const QString testo = mRicerca->Testo();
    if (testo.isEmpty())
        lblCerca->Caption(Testo_Mctc(MctcInvitoCerca));
    else if (Lista_Cerca(Voci_InLista(), testo, 0, 1) < 0)
        lblCerca->Caption(Testo_Riempito(Testo_Mctc(MctcNonTrovata), testo));
    else
        lblCerca->Caption(Testo_Riempito(Testo_Mctc(MctcCerca), testo));
}

// --- the vehicle in hand -----------------------------------------------------------------------------------

void frmMctcO::Mostra_Targa()
{
    const qint32 scelta = lstAuto->ListIndex();
    lblTarga->Caption(scelta < 0 ? QString() : mVoci[scelta].Targa);
}

/// The line keeps its place when a file comes in before it: the operator must see what stands there now
/// before the confirmation is pressed.
void frmMctcO::Mostra_Avviso(TestoMctc testo)
{
    lblAvviso->Caption(Testo_Mctc(testo));
    lblAvviso->Visible(!lblAvviso->Caption().isEmpty());
}

void frmMctcO::Togli_Avviso()
{
    lblAvviso->Visible(false);
}

// --- the poll ----------------------------------------------------------------------------------------------

void frmMctcO::tmrLst_Timer()
{
    if (mOccupato || mInLettura)
        return;
    const Clessidra clessidra;
    try {
        Esamina_Cartella();
    } catch (const ErroreEsecuzione &) {
        // A selection that lies beyond the shortened list, say, or a check broken off in the middle: the next
        // tick starts afresh, and the way out stays open.
        cmd[1].Enabled(true);
    }
    // Two seconds from the answer of the folder: one that takes longer would be asked again at once, and the
    // operator never come to a turn.
    tmrLst.Interval(INTERVALLO_LISTA);
}

/// The window stands still until the folder answers. Where it took its time at the last look, what the
/// operator waits for is on the screen by then. Events run while a full one is read, but no other poll; one
/// of them may close the form.
qint32 frmMctcO::Firme_Elenca(QStringList &firme)
{
    const QScopedValueRollback<bool> lettura(mInLettura, true);
    const QString conto = lblAttesa->Caption();
    if (mRiposo.Lento()) {
        lblAttesa->Caption(Testo_Mctc(MctcCartellaAttesa));
        lblAttesa->Ridipingi();
    }
    mRiposo.Comincia();
    const qint32 ultimo = Fs_ElencoFirme(gDirAcc, QString::fromUtf16(MASCHERA), firme);
    mRiposo.Finisci();
    if (Caricato())
        lblAttesa->Caption(conto);
    return ultimo;
}

void frmMctcO::Esamina_Cartella()
{
    qint32 differenza = -1;
    QStringList elenco;
    const qint32 ultimo = Firme_Elenca(elenco);
    if (!Caricato())
        return;
    const int prima = mUltimoConteggio.toInt();
    if (ultimo >= 0) {
        if (prima > -1)
            differenza = Liste_Differenze(mUltimoElenco, elenco);
        mUltimoElenco = elenco;
    }
    mUltimoConteggio = QString::number(ultimo);
    if (ultimo == prima && differenza == -1)
        return;
    Lista_Aggiorna();
    // Lost between the two listings: without this the list would stay empty until a file changes.
    if (ultimo >= 0 && mRighe == 0)
        mUltimoConteggio = QString::number(-1);
}

void frmMctcO::lstAuto_Click()
{
    const qint32 scelta = lstAuto->ListIndex();
    if (!lstAuto->Enabled() || scelta < 0)
        return;
    if (!mDaProgramma) {
        mRicerca->Azzera();
        Togli_Avviso();
    }
    Mostra_Targa();
    QString rapporto;
    const EsitoControllo esito = Esamina_File(gDirAcc + mVoci[scelta].NomeFile, rapporto);
    cmd[0].Enabled(esito == AccBuona);
    cmd[1].Enabled(true);
    if (esito != AccBuona) {
        Mostra_MsgConferma(Testo_Mctc(MctcFileConAnomalie) + QStringLiteral(": \r\n") + rapporto);
        Aggiorna();
    }
}

/// Shows a file's fields and checks it, under the hourglass. @return what Acc_Controlla says.
EsitoControllo frmMctcO::Esamina_File(const QString &percorso, QString &rapporto)
{
    const Clessidra clessidra;
    const QScopedValueRollback<bool> occupato(mOccupato, true);
    cmd[0].Enabled(false);
    cmd[1].Enabled(false);
    gFileAcc = percorso;
    Acc_AssegnaFile(gFileAcc);
    Campi_Applica(gCampiAcc, ULTIMA_RIGA_ACC, *this);
    const EsitoControllo esito = Acc_Controlla(gFileAcc, rapporto);
    Dipingi_Errori();
    return esito;
}

void frmMctcO::Dipingi_Errori()
{
    for (qint16 riga = 0; riga < RIGHE_ACC; ++riga) {
        const CampoForm &campo = Campo_Acc(riga);
        if (campo.Kind == CampoTesto)
            txt[campo.CtlIndex].BackColor(
                gErroriCampiAcc[static_cast<size_t>(riga)] != ValoreBuono ? COLORE_ROSSO : COLORE_BIANCO);
    }
}

// --- buttons ----------------------------------------------------------------------------------------------

void frmMctcO::cmd_Click(qint16 Index)
{
    if (Index == 0)
        Conferma();
    else
        Scarica();
}

void frmMctcO::Conferma()
{
    const qint32 scelta = lstAuto->ListIndex();
    // Files may have vanished under a confirm button that a clean one enabled: there is no entry to take.
    if (scelta < 0 || scelta >= mVoci.size())
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    gFileAcc = gDirAcc + mVoci[scelta].NomeFile;
    formMctc2b = Nuovo<frmMctc2>();
    connect(formMctc2b.get(), &frmMctc2::Notifica, this, &frmMctcO::formMctc2b_Notifica);
    formMctc2b->Mostra();
    // Only the window goes: the main window's reference keeps the form for the notification to come.
    Scarica();
}

void frmMctcO::formMctc2b_Notifica(qint16 &codice, QVariant &valore)
{
    if (codice != VeicoloConfermato)
        return;
    Q_EMIT Notifica(codice, valore);
    Scarica();
}

void frmMctcO::Unload()
{
    tmrLst.Enabled(false);
    tmrFatti.Enabled(false);
    mRicerca.reset();
    Campi_Scarica(*this);
}
