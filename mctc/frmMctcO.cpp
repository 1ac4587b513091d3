// The list, the poll of the folder and the card of the file picked. What makes a file good is modMctc's
// business.
#include "mctc/frmMctcO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_valori.h"
#include "platform/colori.h"
#include "platform/errore_esecuzione.h"
#include "report/frmMctc2.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QScopedValueRollback>

namespace {

constexpr int INTERVALLO_LISTA = 2000; // ms
constexpr qint32 TABULAZIONE = 100;    // quarters of a character's width

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
constexpr Colonna PRENOTAZIONE = {200, 2350, 2600, 4250};
constexpr Colonna PRENOTAZIONE_PRIMA = {200, 2350, 2600, 2900};
constexpr Colonna PRENOTAZIONE_SECONDA = {5600, 0, 5650, 1200};
constexpr Colonna VEICOLO = {8100, 2300, 10450, 4400};
constexpr Colonna VEICOLO_PRIMA = {8100, 2300, 10450, 850};
constexpr Colonna VEICOLO_SECONDA = {11450, 2300, 13800, 1050};

// How a stored date or time reads on the screen.
constexpr qint16 FORMATO_GREZZO = -1;
constexpr qint16 FORMATO_DATA = 0;
constexpr qint16 FORMATO_ORA = 1;

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
      tmrLst([this] { Esegui([this] { tmrLst_Timer(); }); })
{
}

frmMctcO::~frmMctcO() = default;

void frmMctcO::Disegno()
{
    Massimizza();
    lstAuto = std::make_unique<ElencoVoci>(Finestra(), QStringLiteral("lstAuto"));
    lstAuto->FontSize(Punti_Normali() * 1.2);
    lstAuto->Click = [this] { Esegui([this] { lstAuto_Click(); }); };
    lblDes.Inizia(Finestra());
    lblDes.Carica(0).Visible(true);
    lblDes.Carica(1).Visible(true);
    lbl.Carica(0).Posto(0, 0, ScalaX(PRENOTAZIONE.etichettaLarga), ScalaY(CASELLA_ALTA));
    lbl[0].FontSize(Punti_Normali() * 0.9);
    txt.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(CASELLA_ALTA));
    txt[0].FontSize(Punti_Normali() * 0.9);
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
    lstAuto->Posto(ScalaX(200), ScalaY(520), ScalaX(6700), ScalaY(1900));
    lstAuto->NomeAccessibile(Testo_Mctc(MctcFileAccettazione));
    const qint32 tabulazione = lstAuto->Tabulazione(ScalaX(TABULAZIONE));
    lblDes[0].Posto(lstAuto->Left(), ScalaY(240), tabulazione, ScalaY(260));
    lblDes[0].Caption(Testo_Mctc(MctcFileAccettazione));
    lblDes[1].Posto(lstAuto->Left() + tabulazione, ScalaY(240), ScalaX(2500), ScalaY(260));
    lblDes[1].Caption(Testo_Mctc(MctcTarga));

    cmd[0].Caption(Testo_Mctc(MctcConferma));
    cmd[0].Posto(ScalaX(4200), ScalaY(9900), ScalaX(2800), ScalaY(1100));
    cmd[0].Default(true);
    cmd[1].Caption(Testo_Mctc(MctcAnnulla));
    cmd[1].Posto(ScalaX(100), ScalaY(9900), ScalaX(2800), ScalaY(1100));
    cmd[1].Cancel(true);
    for (qint16 i = 0; i <= 1; ++i)
        cmd[i].FontSize(Punti_Normali() * 1.4);
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
    const qint32 ultima = Lista_Leggi(gDirAcc, mVoci);
    if (!Caricato())
        return;
    const qint32 scelta = lstAuto->ListIndex(); // the line chosen while the files were read
    lstAuto->Clear();
    if (ultima < 0)
        return;
    for (const VoceLista &voce : std::as_const(mVoci))
        lstAuto->AddItem(voce.NomeFile + u'\t' + voce.Targa);
    lstAuto->ListIndex(scelta);
}

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
        mOccupato = false;
        cmd[1].Enabled(true);
    }
}

void frmMctcO::Esamina_Cartella()
{
    qint32 differenza = -1;
    QStringList elenco;
    const qint32 ultimo = Fs_ElencoFirme(gDirAcc, QString::fromUtf16(MASCHERA), elenco);
    const int prima = mUltimoConteggio.toInt();
    if (ultimo >= 0) {
        if (prima > -1)
            differenza = Liste_Differenze(mUltimoElenco, elenco);
        mUltimoElenco = elenco;
    }
    mUltimoConteggio = QString::number(ultimo);
    if (ultimo != prima || differenza != -1)
        Lista_Aggiorna();
}

void frmMctcO::lstAuto_Click()
{
    const qint32 scelta = lstAuto->ListIndex();
    if (!lstAuto->Enabled() || scelta < 0)
        return;
    mOccupato = true;
    QString rapporto;
    const EsitoControllo esito = Esamina_File(gDirAcc + mVoci[scelta].NomeFile, rapporto);
    mOccupato = false;
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
            txt[campo.CtlIndex].BackColor(gErroriCampiAcc[static_cast<size_t>(riga)] != 0 ? COLORE_ROSSO
                                                                                          : COLORE_BIANCO);
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
    Campi_Scarica(*this);
}
