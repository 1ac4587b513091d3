// Five texts, and what becomes of them after the session that writes them. The exchange is not known here.
#include "report/frmVerPerO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "link/frmComm.h"
#include "platform/orologio.h"
#include "toolkit/titolo.h"

#include <array>

namespace {

/// In the order of the instrument's identity block.
enum RigaIdentita : qint16
{
    RigaModello,
    RigaMarca,
    RigaOmologazione,
    RigaSerie,
    RigaScadenza,
};

constexpr qint16 ULTIMA_RIGA = RigaScadenza;
std::array<CampoForm, ULTIMA_RIGA + 1> gCampiVerifica;

struct RigaVerifica
{
    TestoMctc etichetta;
    ChiaveIni chiave;
    qint16 cima;
};

constexpr RigaVerifica RIGHE[] = {
    {MctcModelloStrumento,   ChiaveStrumentoModello,      400 },
    {MctcMarcaStrumento,     ChiaveStrumentoMarca,        1100},
    {MctcNumeroOmologazione, ChiaveStrumentoOmologazione, 1800},
    {MctcNumeroSerie,        ChiaveStrumentoSerie,        2500},
    {MctcScadenzaVerifica,   ChiaveStrumentoScadenza,     3200},
};

enum PulsanteVerifica : qint16
{
    PulsanteOk = 0,
    PulsanteEsci = 1,
    PulsanteScadenza = 2,
    PulsanteDefault = 3,
};

// The form, in twips: it does not grow with the screen. The rows have the left of it to the top; the title
// stands beside them.
constexpr qint32 FORM_LARGO = 9900;
constexpr qint32 FORM_ALTO = 5200;
constexpr qint16 SINISTRA = 100;
constexpr qint32 CASELLA_LARGA = 6600;
constexpr qint32 CASELLA_ALTA = 430;
constexpr qint16 ETICHETTA_SU = 200;
constexpr qint32 TITOLO_SINISTRA = 6950;
constexpr qint32 TITOLO_CIMA = 400;
// The labels are as large as their place between the boxes is high.
constexpr double PUNTI_TESTO = 12.75;
constexpr double PUNTI_ETICHETTA = 9.75;
constexpr double PUNTI_TITOLO = 18;
constexpr qint32 PULSANTE_LARGO = 1500;
constexpr qint32 SCADENZA_LARGA = 3000; // its caption is the longest

} // namespace

frmVerPerO::frmVerPerO() : Modulo(QStringLiteral("frmVerPerO")) {}

frmVerPerO::~frmVerPerO() = default;

void frmVerPerO::Disegno()
{
    Width(FORM_LARGO);
    Height(FORM_ALTO);
    lblTitolo = std::make_unique<Titolo>(Finestra(), QStringLiteral("lblTitolo"));
    lblTitolo->Visible(true);
    lblTitolo->Posto(TITOLO_SINISTRA, TITOLO_CIMA, FORM_LARGO - 500 - TITOLO_SINISTRA, 1500);
    lblTitolo->FontSize(PUNTI_TITOLO);
    lbl.Carica(0).Posto(0, 0, CASELLA_LARGA, ETICHETTA_SU);
    lbl[0].FontSize(PUNTI_ETICHETTA);
    txt.Carica(0).Posto(0, 0, CASELLA_LARGA, CASELLA_ALTA);
    txt[0].FontSize(PUNTI_TESTO);
    for (qint16 i = PulsanteOk; i <= PulsanteDefault; ++i) {
        cmd.Carica(i).FontSize(PUNTI_TESTO);
        cmd[i].Visible(true);
    }
}

void frmVerPerO::Load()
{
    Centra();
    Campi_Azzera(gCampiVerifica, ULTIMA_RIGA);
    Campi_Imposta();
    Campi_Crea(gCampiVerifica, ULTIMA_RIGA, *this);
    Campi_Applica(gCampiVerifica, ULTIMA_RIGA, *this);
    for (qint16 i = 0; i <= lbl.UBound(); ++i)
        lbl[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso); // its letters have all of the low place
    cmd[PulsanteOk].SetFocus();
}

void frmVerPerO::Campi_Imposta()
{
    for (size_t i = 0; i < gCampiVerifica.size(); ++i) {
        CampoForm &campo = gCampiVerifica[i];
        campo.LabelId = RIGHE[i].etichetta;
        campo.Kind = CampoTesto;
        Campo_Chiave(campo, RIGHE[i].chiave);
        campo.CtlLeft = SINISTRA;
        campo.CtlTop = RIGHE[i].cima;
        campo.LabelLeft = campo.CtlLeft;
        campo.LabelTop = Intero16(campo.CtlTop - ETICHETTA_SU);
    }
    Caption(Testo_Mctc(MctcVerificaPeriodica));
    lblTitolo->Caption(Testo_Mctc(MctcVerificaPeriodica));
    const qint32 posti[] = {Width() - 3200, Width() - 1600, 1700, 100};
    const QString didascalie[] = {QStringLiteral("Ok"), Testo_Mctc(MctcAnnulla),
                                  Testo_Mctc(MctcNuovaScadenza), QStringLiteral("Default")};
    for (qint16 i = PulsanteOk; i <= PulsanteDefault; ++i) {
        cmd[i].Posto(posti[i], Height() - 1200, i == PulsanteScadenza ? SCADENZA_LARGA : PULSANTE_LARGO, 900);
        cmd[i].Caption(didascalie[i]);
    }
    cmd[PulsanteEsci].Cancel(true);
}

void frmVerPerO::Paint()
{
    Disegna_Cornice(*this, 40, 70, Intero16(Width() - 350), Intero16(Height() - 1300));
}

/// All five fields must be filled; no other check is made: the due date is a free text.
void frmVerPerO::txt_Validate(qint16 Index, bool &Cancel)
{
    const QString testo = txt[Index].Text();
    if (testo.isEmpty()) {
        Mostra_MsgTempo(Testo_Mctc(MctcCampoErrato));
        Cancel = true;
        return;
    }
    CampoForm &campo = gCampiVerifica[static_cast<size_t>(Riga_Di(txt[Index]))];
    campo.Dirty = Vero;
    campo.Value = testo;
}

/// Drops the keys of a row without a control of its own; no row of this form is one.
void frmVerPerO::txt_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    if (gCampiVerifica[static_cast<size_t>(Riga_Di(txt[Index]))].Kind == CampoNessuno)
        KeyAscii = 0;
}

void frmVerPerO::cmd_Click(qint16 Index)
{
    switch (Index) {
    case PulsanteOk:
        Scrivi_Strumento();
        break;
    case PulsanteEsci:
        Scarica();
        break;
    case PulsanteScadenza:
        Proponi_Scadenza();
        break;
    case PulsanteDefault:
        // Sends what the profile holds, not what the boxes show; the form draws no consequence from the code.
        Collega_Strumento(ModoDefault);
        break;
    default:
        break;
    }
}

/// Five texts go out: the operator, the sixth, is left out, and the second write frame carries none.
void frmVerPerO::Scrivi_Strumento()
{
    gDatiStrumento.clear();
    for (const CampoForm &campo : gCampiVerifica)
        gDatiStrumento.append(campo.Value);
    Collega_Strumento(ModoScrivi);
    if (mScritto) {
        Campi_Salva(gCampiVerifica, ULTIMA_RIGA);
        Scrivi_Ini(gFileIni, ChiaveLingua, gLingua);
    }
    // Whatever the code was: a failed session drops the entries, after the link form has shown why.
    Scarica();
}

/// One year from today. The 29th of February gives a date that does not exist: the operator corrects it.
void frmVerPerO::Proponi_Scadenza()
{
    const QString oggi = Orologio_Corrente().Adesso().toString(QStringLiteral("ddMMyyyy"));
    const int anno = oggi.right(4).toInt() + 1;
    CampoForm &campo = gCampiVerifica[RigaScadenza];
    campo.Value = oggi.left(2) + u'/' + oggi.mid(2, 2) + u'/' + QString::number(anno);
    campo.Dirty = Vero;
    txt[RigaScadenza].Text(campo.Value);
}

void frmVerPerO::Collega_Strumento(ModoScambio modo)
{
    mScritto = Falso;
    Sessione_Esegui(formComm, modo, this, &frmVerPerO::formComm_Notifica);
}

void frmVerPerO::formComm_Notifica(qint16 &codice, QVariant &)
{
    mScritto = Flag_Da(codice == SessioneCompletata);
}

void frmVerPerO::Unload()
{
    Campi_Scarica(*this);
}
