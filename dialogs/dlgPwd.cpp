// The keys typed, compared at each one, and the time until the box goes. It knows no owner.
#include "dialogs/dlgPwd.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "toolkit/schermo.h"

#include <algorithm>

namespace {

// How long the box stays, in ms.
constexpr int SENZA_SCRITTURA = 4000;
constexpr int DOPO_ERRATA = 2000;
constexpr int DOPO_GIUSTA = 800;
constexpr int DOPO_RINUNCIA = 1;

constexpr qint16 TASTO_INVIO = 13;
constexpr qint16 TASTO_ESC = 27;

} // namespace

dlgPwd::dlgPwd() : Modulo(QStringLiteral("dlgPwd")), tmrPwd([this] { Esegui([this] { Scarica(); }); }) {}

void dlgPwd::Disegno()
{
    Width(ScalaX(5600));
    Height(ScalaX(2100));
    Centra();
    txtPwd = std::make_unique<CasellaTesto>(Finestra(), QStringLiteral("txtPwd"));
    txtPwd->Posto(ScalaX(300), ScalaX(250), ScalaX(5000), ScalaX(550));
    txtPwd->FontSize(Punti_Normali() * 1.4);
    txtPwd->Nascosta(true);
    Collega(
        *txtPwd, [this] { txtPwd_Change(); }, [this](qint16 &tasto) { txtPwd_KeyPress(tasto); });
    for (qint16 i = 0; i <= 1; ++i) {
        cmd.Carica(i).Posto(ScalaX(300 + i * 2600), ScalaX(1150), ScalaX(2400), ScalaX(700));
        cmd[i].Visible(true);
    }
}

void dlgPwd::Load()
{
    mConta = 0;
    mInserito.clear();
    if (PwdType == 1)
        PwdTitle = PwdTitle.toUpper();
    Caption(PwdTitle);
    txtPwd->NomeAccessibile(PwdTitle);
    cmd[0].Caption(QStringLiteral("OK"));
    cmd[1].Caption(Testo_Mctc(MctcAnnulla));
}

void dlgPwd::Activate()
{
    txtPwd->SetFocus();
    tmrPwd.Interval(SENZA_SCRITTURA);
    tmrPwd.Enabled(true);
    if (PwdDbg)
        txtPwd->Text(PwdCurrent);
}

void dlgPwd::txtPwd_Change()
{
    mConta = static_cast<quint8>(std::min(mConta + 1, 255)); // a byte; all that counts is the second change
    mInserito = txtPwd->Text();
    tmrPwd.Enabled(false);
    if (mInserito == PwdCurrent) {
        txtPwd->Enabled(false);
        tmrPwd.Interval(DOPO_GIUSTA);
    } else if (mConta >= 2) {
        tmrPwd.Interval(DOPO_ERRATA);
    }
    tmrPwd.Enabled(true); // every keystroke starts the time again
}

void dlgPwd::txtPwd_KeyPress(qint16 &KeyAscii)
{
    if (KeyAscii == TASTO_ESC)
        mInserito.clear(); // also when the text was right until then
    if (KeyAscii != TASTO_INVIO && KeyAscii != TASTO_ESC)
        return;
    Chiudi_Fra(KeyAscii == TASTO_ESC ? DOPO_RINUNCIA : DOPO_GIUSTA);
    KeyAscii = 0;
}

/// A box that is closing is disabled and has lost the keyboard to a button: Escape counts there too, so that
/// even a right password can still be taken back.
void dlgPwd::cmd_KeyPress(qint16, qint16 &KeyAscii)
{
    if (KeyAscii == TASTO_ESC && !txtPwd->Enabled())
        txtPwd_KeyPress(KeyAscii);
}

void dlgPwd::Chiudi_Fra(int ms)
{
    tmrPwd.Enabled(false);
    txtPwd->Enabled(false);
    tmrPwd.Interval(ms);
    tmrPwd.Enabled(true);
}

void dlgPwd::cmd_Click(qint16 Index)
{
    if (Index == 1)
        Scarica();
}

void dlgPwd::Unload()
{
    quint8 esito = PwdErrata;
    if (mInserito.isEmpty())
        esito = PwdNonInserita;
    // After the empty case: a station whose stored password is empty is open.
    if (mInserito == PwdCurrent)
        esito = PwdGiusta;
    Q_EMIT PwdReady(esito);
    tmrPwd.Enabled(false);
}

std::shared_ptr<dlgPwd> Password_Prepara(const QString &password)
{
    auto form = Nuovo<dlgPwd>();
    form->PwdDbg = Falso;
    form->PwdCurrent = password;
    form->PwdType = 0;
    form->PwdTitle = Testo_Mctc(MctcPasswordServizio);
    return form;
}
