// The five rows of the workshop and their layout. Where they are printed is not known here.
#include "setup/frmAnagOffO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "toolkit/titolo.h"

#include <array>

namespace {

constexpr qint16 ULTIMA_RIGA = 4;
std::array<CampoForm, ULTIMA_RIGA + 1> gCampiOfficina;

struct RigaOfficina
{
    TestoMctc etichetta;
    ChiaveIni chiave;
};

constexpr RigaOfficina RIGHE[] = {
    {MctcDenominazione, ChiaveOfficinaDenominazione},
    {MctcIndirizzo,     ChiaveOfficinaIndirizzo    },
    {MctcLocalita,      ChiaveOfficinaLocalita     },
    {MctcTelefonoFax,   ChiaveOfficinaTelefonoFax  },
    {MctcSitoWeb,       ChiaveOfficinaSitoWeb      },
};

// The form, in twips: it does not grow with the screen, nor does its frame, which stands where the boxes
// begin. The rows have the left of it to the top; the title stands beside them.
constexpr qint32 FORM_LARGO = 9700;
constexpr qint32 FORM_ALTO = 5300;
constexpr qint16 SINISTRA = 100;
constexpr qint32 CORNICE = 100;
constexpr qint16 ETICHETTA_RIENTRO = 80; // clear of the frame's line
constexpr qint16 PRIMA_CIMA = 400;
constexpr qint16 PASSO = 700;
constexpr qint16 CASELLA_LARGA = 6300;
constexpr qint32 CASELLA_ALTA = 420;
constexpr qint16 ETICHETTA_SU = 260;
constexpr qint32 TITOLO_SINISTRA = 6700;
constexpr double PUNTI_TESTO = 12.75;
constexpr double PUNTI_TITOLO = 18;

} // namespace

frmAnagOffO::frmAnagOffO() : Modulo(QStringLiteral("frmAnagOffO")) {}

frmAnagOffO::~frmAnagOffO() = default;

void frmAnagOffO::Disegno()
{
    Width(FORM_LARGO);
    Height(FORM_ALTO);
    Centra();
    lblTitolo = std::make_unique<Titolo>(Finestra(), QStringLiteral("lblTitolo"));
    lblTitolo->Visible(true);
    lblTitolo->Posto(TITOLO_SINISTRA, PRIMA_CIMA, FORM_LARGO - 350 - TITOLO_SINISTRA, 1500);
    lblTitolo->FontSize(PUNTI_TITOLO);
    lbl.Carica(0).Posto(0, 0, CASELLA_LARGA, ETICHETTA_SU);
    lbl[0].FontSize(PUNTI_TESTO);
    txt.Carica(0).Posto(0, 0, CASELLA_LARGA, CASELLA_ALTA);
    txt[0].FontSize(PUNTI_TESTO);
    for (qint16 i = 0; i <= 1; ++i) {
        cmd.Carica(i).FontSize(PUNTI_TESTO);
        cmd[i].Visible(true);
    }
}

void frmAnagOffO::Load()
{
    Campi_Azzera(gCampiOfficina, ULTIMA_RIGA);
    Campi_Imposta();
    Campi_Crea(gCampiOfficina, ULTIMA_RIGA, *this);
    Campi_Applica(gCampiOfficina, ULTIMA_RIGA, *this);
    for (qint16 i = 0; i <= lbl.UBound(); ++i)
        lbl[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso); // its letters have all of the low place
    cmd[0].SetFocus();
}

void frmAnagOffO::Campi_Imposta()
{
    for (size_t i = 0; i < gCampiOfficina.size(); ++i) {
        CampoForm &campo = gCampiOfficina[i];
        campo.LabelId = RIGHE[i].etichetta;
        campo.Kind = CampoTesto;
        Campo_Chiave(campo, RIGHE[i].chiave);
        campo.CtlLeft = SINISTRA;
        campo.CtlTop = Intero16(PRIMA_CIMA + static_cast<qint32>(i) * PASSO);
        campo.LabelLeft = CORNICE + ETICHETTA_RIENTRO;
        campo.LabelTop = Intero16(campo.CtlTop - ETICHETTA_SU);
    }
    Caption(Testo_Mctc(MctcAnagraficaOfficina));
    lblTitolo->Caption(Testo_Mctc(MctcAnagraficaOfficina));
    cmd[0].Caption(QStringLiteral("Ok"));
    cmd[0].Posto(FORM_LARGO - 1700, FORM_ALTO - 1000, 1500, 800);
    cmd[1].Caption(Testo_Mctc(MctcAnnulla));
    cmd[1].Posto(200, FORM_ALTO - 1000, 1500, 800);
    cmd[1].Cancel(true);
}

void frmAnagOffO::Paint()
{
    Disegna_Cornice(*this, CORNICE, CORNICE, Width() - 200, Height() - 1200);
}

void frmAnagOffO::txt_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    if (!gCampiOfficina[static_cast<size_t>(Riga_Di(txt[Index]))].Editable)
        KeyAscii = 0;
}

/// Any text is accepted, the empty one included: the report then has an empty line in its place.
void frmAnagOffO::txt_Validate(qint16 Index, bool &)
{
    CampoForm &campo = gCampiOfficina[static_cast<size_t>(Riga_Di(txt[Index]))];
    campo.Dirty = Vero;
    campo.Value = txt[Index].Text();
}

void frmAnagOffO::cmd_Click(qint16 Index)
{
    if (Index == 0)
        Salva();
    Scarica();
}

void frmAnagOffO::Salva()
{
    Campi_Salva(gCampiOfficina, ULTIMA_RIGA);
    // The language in force is kept whether or not anything changed.
    Scrivi_Ini(gFileIni, ChiaveLingua, gLingua);
    qint16 codice = AnagraficaSalvata;
    QVariant valore = qint16{0};
    Q_EMIT Notifica(codice, valore);
}

void frmAnagOffO::Unload()
{
    Campi_Scarica(*this);
}
