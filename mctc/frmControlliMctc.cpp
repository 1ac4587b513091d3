// The table of the levels and its layout. No check is reached from here.
#include "mctc/frmControlliMctc.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/titolo.h"

#include <array>

namespace {

constexpr qint16 ULTIMA_RIGA = 10;
std::array<CampoForm, ULTIMA_RIGA + 1> gCampiLivelli;

struct RigaLivello
{
    ChiaveIni chiave;
    quint8 controllo;
    qint32 cima;
    qint32 larghezza;
};

constexpr RigaLivello RIGHE[] = {
    {ChiaveLivelloNomeFile,     CampoCombo, 100,  800 },
    {ChiaveLivelloSezDuplicate, CampoCombo, 600,  800 },
    {ChiaveLivelloSezEstranee,  CampoCombo, 1100, 800 },
    {ChiaveLivelloSezMancanti,  CampoCombo, 1600, 800 },
    {ChiaveLivelloKeyDuplicate, CampoCombo, 2100, 800 },
    {ChiaveLivelloKeyEstranee,  CampoCombo, 2600, 800 },
    {ChiaveLivelloKeyMancanti,  CampoCombo, 3100, 800 },
    {ChiaveLivelloSpazi,        CampoCombo, 3600, 800 },
    {ChiaveLivelloDati,         CampoCombo, 4100, 800 },
    {ChiaveLivelloData,         CampoTesto, 4600, 2000},
    {ChiaveLivelloVersione,     CampoTesto, 5100, 2000},
};

// The layout, in design units. The rows begin at the top: the heading stands beside the first ones.
constexpr qint32 FORM_LARGO = 5600;
constexpr qint32 FORM_ALTO = 7000;
constexpr qint32 SINISTRA = 1200;
constexpr qint32 CASELLA_ALTA = 330;
constexpr qint32 TITOLO_SINISTRA = 2400;
constexpr double PUNTI_TITOLO = 2; // of the normal size

/// Item of the list that a stored level stands for; -1, none, for a class without a level of its own.
qint16 Livello_Di(const CampoForm &campo)
{
    static const QStringList LIVELLI = {QStringLiteral("0"), QStringLiteral("1")};
    return Intero16(LIVELLI.indexOf(campo.Value));
}

} // namespace

frmControlliMctc::frmControlliMctc() : Modulo(QStringLiteral("frmControlliMctc")) {}

frmControlliMctc::~frmControlliMctc() = default;

void frmControlliMctc::Disegno()
{
    Width(ScalaX(FORM_LARGO));
    Height(ScalaY(FORM_ALTO));
    Centra();
    lbl1 = std::make_unique<Titolo>(Finestra(), QStringLiteral("lbl1"));
    lbl1->Visible(true);
    lbl1->FontSize(Punti_Normali() * PUNTI_TITOLO);
    lbl.Carica(0).Posto(0, 0, ScalaX(SINISTRA - 200), ScalaY(CASELLA_ALTA));
    txt.Carica(0).Posto(0, 0, ScalaX(800), ScalaY(CASELLA_ALTA));
    cbo.Carica(0).Posto(0, 0, ScalaX(800), ScalaY(CASELLA_ALTA));
    Campi_Carattere(*this, Punti_Normali() * LETTURA_TASTIERA);
    for (qint16 i = 0; i <= 1; ++i) {
        cmd.Carica(i).FontSize(Punti_Normali() * LETTURA_TASTIERA);
        cmd[i].Visible(true);
    }
}

void frmControlliMctc::Load()
{
    Campi_Azzera(gCampiLivelli, ULTIMA_RIGA);
    Campi_Imposta();
    Campi_Crea(gCampiLivelli, ULTIMA_RIGA, *this);
    Campi_Applica(gCampiLivelli, ULTIMA_RIGA, *this);
    Mostra_Livelli();
    cmd[0].SetFocus();
}

void frmControlliMctc::Campi_Imposta()
{
    for (size_t i = 0; i < gCampiLivelli.size(); ++i) {
        CampoForm &campo = gCampiLivelli[i];
        campo.LabelId = MctcControllo;
        campo.Kind = RIGHE[i].controllo;
        Campo_Chiave(campo, RIGHE[i].chiave);
        campo.List = {Testo_Mctc(MctcSi), Testo_Mctc(MctcNo)};
        campo.CtlLeft = ScalaX_16(SINISTRA);
        campo.CtlTop = ScalaY_16(RIGHE[i].cima);
        campo.CtlWidth = ScalaX_16(RIGHE[i].larghezza);
        campo.LabelLeft = ScalaX_16(100);
        campo.LabelTop = campo.CtlTop;
    }
    lbl1->Posto(ScalaX(TITOLO_SINISTRA), ScalaY(100), ScalaX(FORM_LARGO - 200 - TITOLO_SINISTRA),
                ScalaY(1400));
    lbl1->Caption(Testo_Mctc(MctcLivelliControlli));
    Caption(Testo_Mctc(MctcLivelliControlli));
    cmd[0].Caption(QStringLiteral("Ok"));
    cmd[0].Posto(ScalaX(FORM_LARGO - 2000), ScalaY(5800), ScalaX(1800), ScalaY(900));
    cmd[1].Caption(Testo_Mctc(MctcAnnulla));
    cmd[1].Posto(ScalaX(200), ScalaY(5800), ScalaX(1800), ScalaY(900));
    cmd[1].Cancel(true);
}

/// A stored level is chosen in its list; a class without one shows no selection.
void frmControlliMctc::Mostra_Livelli()
{
    for (const CampoForm &campo : gCampiLivelli) {
        if (campo.Kind == CampoCombo)
            cbo[campo.CtlIndex].ListIndex(Livello_Di(campo));
    }
}

void frmControlliMctc::cmd_Click(qint16)
{
    Scarica();
}

void frmControlliMctc::Unload()
{
    Campi_Scarica(*this);
}
