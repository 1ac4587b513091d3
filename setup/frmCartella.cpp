// The folders below a folder, and the way up. What a chosen one is for is not known here.
#include "setup/frmCartella.h"

#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "platform/elenco.h"
#include "platform/file.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/titolo.h"

namespace {

enum PulsanteCartella : qint16
{
    PulsanteOk = 0,
    PulsanteAnnulla = 1,
    PulsanteApri = 2,
};

// The layout, in design units.
constexpr qint32 FORM_LARGO = 7600;
constexpr qint32 FORM_ALTO = 7600;
constexpr qint32 MARGINE = 200;
constexpr qint32 LARGHEZZA = FORM_LARGO - 2 * MARGINE;

/// The folder above; empty above a drive, and above a share, which is a drive of its own.
QString Sopra(const QString &cartella)
{
    if (cartella.startsWith(u"\\\\") && cartella.count(u'\\') <= 4)
        return {};
    const QString senza = cartella.chopped(1);
    return senza.left(senza.lastIndexOf(u'\\') + 1);
}

/// Folders that an operator knows: neither hidden nor the marks of the listing itself.
QStringList Cartelle_In(const QString &cartella)
{
    QList<RecordTrovato> trovati;
    Trova_File(cartella + u'*', trovati);
    QStringList nomi;
    for (const RecordTrovato &voce : std::as_const(trovati)) {
        const bool visibile = (voce.dwFileAttributes & ATTRIBUTO_NASCOSTO) == 0;
        if ((voce.dwFileAttributes & ATTRIBUTO_CARTELLA) != 0 && visibile && !voce.cFileName.startsWith(u'.'))
            nomi.append(voce.cFileName);
    }
    return nomi;
}

} // namespace

frmCartella::frmCartella() : Modulo(QStringLiteral("frmCartella")) {}

frmCartella::~frmCartella() = default;

void frmCartella::Disegno()
{
    Width(ScalaX(FORM_LARGO));
    Height(ScalaY(FORM_ALTO));
    Centra();
    lblTitolo = std::make_unique<Titolo>(Finestra(), QStringLiteral("lblTitolo"));
    lblTitolo->Posto(ScalaX(MARGINE), ScalaY(150), ScalaX(LARGHEZZA), ScalaY(450));
    lblTitolo->FontSize(Punti_Normali() * LETTURA_COMODA);
    lblTitolo->Visible(true);
    lbl.Carica(0).Posto(ScalaX(MARGINE), ScalaY(650), ScalaX(LARGHEZZA), ScalaY(600));
    lbl[0].FontSize(Punti_Normali() * LETTURA_TASTIERA);
    lbl[0].SpezzaOvunque();
    lbl[0].Visible(true);
    lstCartelle = std::make_unique<ElencoVoci>(Finestra(), QStringLiteral("lstCartelle"));
    lstCartelle->Posto(ScalaX(MARGINE), ScalaY(1350), ScalaX(LARGHEZZA), ScalaY(4800));
    lstCartelle->FontSize(Punti_Normali() * LETTURA_COMODA);
    lstCartelle->Visible(true);
    lstCartelle->Click = [this] { Mostra_Indicata(); };
    const qint32 larghezza = (LARGHEZZA - 2 * MARGINE) / 3;
    for (const qint16 i : {PulsanteOk, PulsanteAnnulla, PulsanteApri}) {
        const qint32 colonna = i == PulsanteOk ? 2 : i == PulsanteAnnulla ? 0 : 1;
        cmd.Carica(i).Posto(ScalaX(MARGINE + colonna * (larghezza + MARGINE)), ScalaY(6400),
                            ScalaX(larghezza), ScalaY(900));
        cmd[i].FontSize(Punti_Normali() * LETTURA_TASTIERA);
        cmd[i].Visible(true);
    }
}

void frmCartella::Load()
{
    Scelta = Falso;
    Caption(Testo_Mctc(MctcScegliCartella));
    lblTitolo->Caption(Testo_Mctc(MctcScegliCartella));
    lstCartelle->NomeAccessibile(Testo_Mctc(MctcScegliCartella));
    cmd[PulsanteOk].Caption(QStringLiteral("Ok"));
    cmd[PulsanteAnnulla].Caption(Testo_Mctc(MctcAnnulla));
    cmd[PulsanteAnnulla].Cancel(true);
    cmd[PulsanteApri].Caption(Testo_Mctc(MctcApriCartella));
    cmd[PulsanteApri].Default(true);
    const QString da = Cartella.isEmpty() ? QString() : Fs_ConBarra(Cartella);
    Elenca(!da.isEmpty() && Fs_Esiste(da, ATTRIBUTO_CARTELLA) ? da : QString());
    lstCartelle->SetFocus();
}

void frmCartella::Elenca(const QString &cartella)
{
    const Clessidra clessidra; // a folder of the network may take its time
    mQui = cartella;
    lstCartelle->Clear();
    if (!mQui.isEmpty())
        lstCartelle->AddItem(QStringLiteral(".."));
    for (const QString &nome : mQui.isEmpty() ? Unita_Disco() : Cartelle_In(mQui))
        lstCartelle->AddItem(nome);
    Mostra_Indicata();
}

/// The folder that the buttons mean: the chosen line, or the one whose folders are listed.
QString frmCartella::Indicata() const
{
    const qint32 riga = lstCartelle->ListIndex();
    if (riga < 0)
        return mQui;
    const QString nome = lstCartelle->List(riga);
    return nome == u".." ? Sopra(mQui) : Fs_ConBarra(mQui + nome);
}

void frmCartella::Mostra_Indicata()
{
    lbl[0].Caption(lbl[0].Principio(Indicata()));
    cmd[PulsanteOk].Enabled(!Indicata().isEmpty()); // above the drives there is no folder
}

void frmCartella::cmd_Click(qint16 Index)
{
    if (Index == PulsanteApri) {
        Elenca(Indicata());
        lstCartelle->SetFocus();
        return;
    }
    if (Index == PulsanteOk) {
        Cartella = Indicata();
        Scelta = Vero;
    }
    Scarica();
}
