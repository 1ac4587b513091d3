// The box that grows with its text, and the ways to show it. It knows no caller.
#include "dialogs/frmMsg.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "platform/colori.h"
#include "platform/errore_esecuzione.h"
#include "toolkit/elenco_lettura.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/titolo.h"

#include <algorithm>

namespace {

constexpr qint16 TEMPO_MESSAGGIO = 2000; // ms

// In twips, as the form's height is: it grows with the text, not with the screen.
constexpr qint32 MARGINE_TESTO = 820;
constexpr qint32 SALITA_TESTO = 200; // the text stands that much above the middle
constexpr qint32 TITOLO_CIMA = 30;
constexpr qint32 TITOLO_FONDO = 320;
constexpr qint32 ELENCO_CIMA = 400;
constexpr qint32 ELENCO_MARGINE = 200; // beside and below
constexpr qint32 ELENCO_MINIMO = 930;  // two lines
constexpr qint32 FORM_BASSO = 2000;    // up to here the text is a sentence or two

/// Height of the form: room for one more line every 50 characters.
qint32 Altezza_Per(const QString &testo)
{
    return Arrotonda(static_cast<double>(testo.size()) / 50) * 500 + 1500;
}

/// Height of the button. Its place goes by its height: a low form has to leave room for the text above it.
qint32 Pulsante_Per(qint32 altezza)
{
    if (altezza <= FORM_BASSO)
        return std::max(altezza / 5, 360);
    return std::clamp((altezza - 100 - ELENCO_MARGINE - ELENCO_CIMA - ELENCO_MINIMO) / 2, 360, 900);
}

} // namespace

frmMsg::frmMsg() : Modulo(QStringLiteral("frmMsg")), tmr([this] { Esegui([this] { Scarica(); }); }) {}

frmMsg::~frmMsg() = default;

void frmMsg::Disegno()
{
    Shape1 = std::make_unique<Forma>(Finestra(), QStringLiteral("Shape1"), Forma::Rettangolo);
    PicMex = std::make_unique<Immagine>(Finestra(), QStringLiteral("PicMex"));
    PicMex->Posto(90, 400, 480, 480);
    PicMex->Avviso();
    lblTitolo = std::make_unique<Titolo>(Finestra(), QStringLiteral("lblTitolo"));
    lblTitolo->Visible(true);
    lstTesto = std::make_unique<ElencoLettura>(Finestra(), QStringLiteral("lstTesto"));
    lstTesto->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lstTesto->Visible(false);
    lbl.Carica(0).FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lbl[0].Visible(true);
    cmd.Carica(0).Width(ScalaX(1575));
    cmd[0].FontSize(Punti_Normali() * LETTURA_SCHERMO);
    cmd[0].Caption(QStringLiteral("Ok"));
    cmd[0].Default(true);
    lstTesto->Tasti_Di(cmd[0]); // it has the keyboard
    cmd[0].Cancel(true);
}

void frmMsg::Load()
{
    Height(std::min(Altezza_Per(Text), gScreenH));
    Width(ScalaX(9000));
    PicMex->Posto(PicMex->Left(), PicMex->Top() - 200, 680, 680);
    Caption(Testo_Mctc(MctcAvviso));
    lblTitolo->Posto(MARGINE_TESTO, TITOLO_CIMA, Width() - 2 * MARGINE_TESTO, TITOLO_FONDO - TITOLO_CIMA);
    lblTitolo->Caption(Testo_Mctc(MctcAvviso));
    PicMex->NomeAccessibile(Testo_Mctc(MctcAvviso));
    if (Mode == 0) {
        tmr.Interval(Time);
        tmr.Enabled(true);
    } else {
        cmd[0].Height(Pulsante_Per(Height()));
        cmd[0].Top(Height() - 2 * cmd[0].Height() - 100);
        cmd[0].Left((Width() - cmd[0].Width()) / 2);
        cmd[0].Visible(true);
    }
    Adatta_Testo();
    if (!lbl[0].Entra() || (Mode != 0 && Height() > FORM_BASSO))
        Mostra_Elenco();
}

/// The text takes the room round its middle, and no more. What the title needs of it is left free.
void frmMsg::Adatta_Testo()
{
    const qint32 meta = Height() / 2 - SALITA_TESTO;
    const qint32 fondo = cmd[0].Visible() ? cmd[0].Top() : Height();
    const qint32 spazio = 2 * std::min(meta, fondo - meta);
    const qint32 titolo = std::max(0, TITOLO_FONDO - (meta - spazio / 2));
    lbl[0].Posto(lbl[0].Left(), lbl[0].Top(), Width() - 2 * MARGINE_TESTO, spazio);
    lbl[0].Allineamento(Orizzontale::Centro);
    lbl[0].Margini(titolo, 0);
    // Only now that the room is known: of a report many screens long no more is laid out than can be seen.
    lbl[0].Caption(lbl[0].Principio(Text));
    lbl[0].NomeAccessibile(Text);
    const qint32 alto = lbl[0].Altezza_Testo() - titolo;
    if (alto > spazio - 2 * titolo)
        return; // it stands between the title and the end of its room
    lbl[0].Margini(0, 0);
    lbl[0].Height(alto);
}

/// A report: an entry a line, from the title to the button.
void frmMsg::Mostra_Elenco()
{
    const qint32 fondo = cmd[0].Visible() ? cmd[0].Top() : Height();
    lstTesto->Posto(MARGINE_TESTO, ELENCO_CIMA, Width() - MARGINE_TESTO - ELENCO_MARGINE,
                    fondo - ELENCO_MARGINE - ELENCO_CIMA);
    lstTesto->Testo(Text);
    lstTesto->NomeAccessibile(Text);
    lstTesto->Visible(true);
    lbl[0].Visible(false);
}

void frmMsg::Paint()
{
    Centra();
    Shape1->Posto(0, 0, Width(), Height());
    lbl[0].Left((Width() - lbl[0].Width()) / 2);
    lbl[0].Top((Height() - lbl[0].Height()) / 2 - SALITA_TESTO);
    if (TopMost != 0)
        InPrimoPiano();
}

void frmMsg::Unload()
{
    tmr.Enabled(false);
}

void frmMsg::cmd_Click(qint16)
{
    Scarica();
}

void Mostra_Msg(qint16 modo, qint32 comeModale, qint16 primoPiano, quint32 colore, qint16 tempo,
                const QString &testo)
{
    try {
        auto &form = Predefinito<frmMsg>();
        form.Mode = modo;
        form.TopMost = primoPiano;
        form.Colour = colore;
        form.Text = testo;
        form.Time = tempo;
        form.Mostra(static_cast<Modulo::ModoMostra>(comeModale));
    } catch (const ErroreEsecuzione &) {
        return;
    }
}

void Mostra_MsgTempo(const QString &testo)
{
    Mostra_Msg(0, Modulo::Modale, Falso, COLORE_MESSAGGIO, TEMPO_MESSAGGIO, testo);
}

void Mostra_MsgConferma(const QString &testo)
{
    Mostra_Msg(1, Modulo::Modale, Vero, COLORE_MESSAGGIO, 0, testo);
}
