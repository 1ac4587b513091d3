// The seven lines by table, and the version of the program that runs. It reads them and knows no more of the
// program.
#include "dialogs/frmAbout.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/versione.h"
#include "platform/colori.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"

namespace {

// The form, in twips: it does not grow with the screen.
constexpr qint32 FORM_LARGO = 9000;
constexpr qint32 FORM_ALTO = 5250;
constexpr qint32 SINISTRA = 2750;
// Left of the button, below the frame.
constexpr qint32 VERSIONE_SINISTRA = 200;
constexpr qint32 VERSIONE_LARGA = 3100;

struct RigaAbout
{
    ChiaveIni chiave;
    qint32 cima;
    qint32 altezza;
    double punti;
};

constexpr RigaAbout RIGHE[] = {
    {ChiaveAssistenzaProgramma,   420,  500, 24},
    {ChiaveAssistenzaVersione,    950,  500, 24},
    {ChiaveAssistenzaNome,        1320, 400, 16},
    {ChiaveAssistenzaIndirizzo,   1770, 400, 16},
    {ChiaveAssistenzaTelefonoFax, 2220, 400, 16},
    {ChiaveAssistenzaMail,        2670, 300, 16},
    {ChiaveAssistenzaSitoWeb,     3070, 800, 16},
};

constexpr qint16 ULTIMA_RIGA = static_cast<qint16>(std::size(RIGHE)) - 1;

} // namespace

frmAbout::frmAbout() : Modulo(QStringLiteral("frmAbout")), lblAbout(QStringLiteral("lblAbout")) {}

void frmAbout::Disegno()
{
    Width(FORM_LARGO);
    Height(FORM_ALTO);
    Centra();
    lblAbout.Inizia(Finestra());
    lblAbout.Carica(0).Posto(SINISTRA, RIGHE[0].cima, FORM_LARGO - SINISTRA - 300, RIGHE[0].altezza);
    lblAbout[0].Visible(true);
    lblVersione = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblVersione"));
    lblVersione->Posto(VERSIONE_SINISTRA, FORM_ALTO - 1100, VERSIONE_LARGA, 800);
    lblVersione->FontSize(Punti_Normali() * LETTURA_TASTIERA);
    lblVersione->Visible(true);
    cmd.Carica(0).Posto((FORM_LARGO - 2000) / 2, FORM_ALTO - 1100, 2000, 800);
    cmd[0].FontSize(Punti_Normali() * LETTURA_TASTIERA);
    cmd[0].Visible(true);
    cmd[0].Default(true);
    cmd[0].Cancel(true);
}

void frmAbout::Load()
{
    mCostruito = false;
}

/// The first painting builds the form.
void frmAbout::Costruisci()
{
    mCostruito = true;
    for (qint16 i = 1; i <= ULTIMA_RIGA; ++i)
        lblAbout.Carica(i).Visible(true);
    for (qint16 i = 0; i <= ULTIMA_RIGA; ++i) {
        const RigaAbout &riga = RIGHE[i];
        lblAbout[i].Caption(Valore_Ini(gFileIni, riga.chiave));
        lblAbout[i].Top(riga.cima);
        lblAbout[i].Height(riga.altezza);
        lblAbout[i].FontSize(riga.punti);
        // A place lower than its line still has room for the letters, at its bottom.
        lblAbout[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
        if (lblAbout[i].Altezza_Testo() <= riga.altezza)
            lblAbout[i].Allineamento(Orizzontale::Sinistra, Verticale::Alto);
    }
    lblAbout[0].ForeColor(COLORE_ROSSO);
    lblAbout[1].ForeColor(COLORE_ROSSO);
    lblAbout[1].Left(FORM_LARGO / 2 - 450);
    lblAbout[1].Width(FORM_LARGO - lblAbout[1].Left() - 300);
    // What an update has changed: the version among the lines is a text of the installation, which stays.
    lblVersione->Caption(QStringLiteral("lumira ") + Versione_Programma());
    cmd[0].Caption(QStringLiteral("Ok"));
    Caption(Testo_Mctc(MctcInformazioni));
}

void frmAbout::Paint()
{
    if (!mCostruito)
        Costruisci();
    Disegna_Cornice(*this, 100, 100, Width() - 200, Height() - 1300);
}

void frmAbout::cmd_Click(qint16)
{
    Scarica();
}
