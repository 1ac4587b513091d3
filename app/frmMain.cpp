// The menu on the design grid, and the way of a test through the forms it opens. How any of them works is
// not known here.
#include "app/frmMain.h"

#include "app/modApp.h"
#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "dialogs/dlgPwd.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmMsg.h"
#include "link/frmComm.h"
#include "mctc/frmMctcO.h"
#include "platform/elenco.h"
#include "platform/eventi.h"
#include "report/frmEsito.h"
#include "report/frmMctc2.h"
#include "report/frmVerPerO.h"
#include "setup/frmAnagOffO.h"
#include "setup/frmSetupO.h"
#include "toolkit/applicazione.h"

#include <QScopedValueRollback>

namespace {

constexpr qint16 ULTIMO_PULSANTE = 8;
constexpr qint16 PULSANTE_NASCOSTO = 8; // it has a caption and no place
constexpr qint16 COLONNE_MENU = 3;
constexpr qint16 RIGHE_MENU = 3;

/// Entries of the menu that have an action.
enum VoceMenu : qint16
{
    MenuSetup = 1,
    MenuProva = 2,
    MenuVerifica = 4,
    MenuAnagrafica = 5,
    MenuInformazioni = 6,
    MenuUscita = 7,
};

/// Captions of the buttons, by their index.
constexpr TestoMctc VOCI_MENU[ULTIMO_PULSANTE + 1] = {
    MctcNonDisponibile0,   MctcImpostazioni,       MctcProvaProiettori, MctcNonDisponibile3,
    MctcVerificaPeriodica, MctcAnagraficaOfficina, MctcInformazioni,    MctcEsci,
    MctcNonDisponibile8,
};

/// Entries without an action in any state: they keep their place in the grid.
constexpr qint16 VOCI_SPENTE[] = {0, 3};

/// Logo of a further customer variant, with a password of its own: a hook, no code assigns it today.
constexpr const char16_t *LOGO_NORVO = u"norvo_logo.gif";

/// Brings the open form of a kind to the front, whoever opened it; false when there is none. The forms of a
/// kind share one table of rows: a second one would clear what stands typed in the first.
template <typename Form>
bool Riporta_Avanti()
{
    for (const auto &modulo : Moduli_Caricati()) {
        if (dynamic_cast<Form *>(modulo.get()) != nullptr) {
            modulo->PortaAvanti();
            return true;
        }
    }
    return false;
}

} // namespace

frmMain::frmMain() : Modulo(QStringLiteral("frmMain")), cmdMnu(QStringLiteral("cmdMnu")) {}

frmMain::~frmMain() = default;

void frmMain::Disegno()
{
    Massimizza();
    Caption(QStringLiteral("lumira"));
    imgLogo = std::make_unique<Immagine>(Finestra(), QStringLiteral("imgLogo"));
    cmdMnu.Inizia(Finestra(), [this](Pulsante &pulsante, qint16 i) {
        Collega(pulsante, [this, i] { cmdMnu_Click(i); });
    });
    cmdMnu.Carica(0);
}

void frmMain::Load()
{
    Mostra_Immagine();
    Disponi_Menu();
    Disattiva_Menu();
}

/// A customer without pictures of its own sees the program's name: no picture file is asked for.
void frmMain::Mostra_Immagine()
{
    imgLogo->NomeAccessibile(QStringLiteral("lumira"));
    if (!gSplashFile.isEmpty()) {
        imgLogo->Picture(gDirImmagini + gSplashFile);
        return;
    }
    imgLogo->FontSize(ScalaX(60));
    imgLogo->Testo(QStringLiteral("lumira"));
}

void frmMain::Disponi_Menu()
{
    const qint16 altezza = ScalaY_16(1050);
    const qint32 cima = gScreenH - RIGHE_MENU * altezza;
    imgLogo->Posto(ScalaX(100), ScalaY(100), gScreenW - 200, cima - 200);
    for (qint16 i = 0; i <= cmdMnu.UBound(); ++i)
        cmdMnu[i].FontSize(ScalaX(20));
    for (qint16 i = 1; i <= ULTIMO_PULSANTE; ++i)
        cmdMnu.Carica(i);
    const qint32 larghezza = gScreenW / COLONNE_MENU;
    for (qint16 i = 0; i < PULSANTE_NASCOSTO; ++i) {
        cmdMnu[i].Posto(i % COLONNE_MENU * larghezza, cima + i / COLONNE_MENU * altezza, larghezza, altezza);
        cmdMnu[i].Visible(true);
    }
    Carica_Menu();
    Carica_Password();
}

void frmMain::Carica_Menu()
{
    for (qint16 i = 0; i <= ULTIMO_PULSANTE; ++i)
        cmdMnu[i].Caption(Testo_Mctc(VOCI_MENU[i]));
}

void frmMain::Carica_Password()
{
    const ChiaveIni &chiave = gLogoFile == LOGO_NORVO ? ChiavePassword2 : ChiavePassword;
    gPwdCorrente = Pwd_Decifra(Valore_Ini(gFileIni, chiave));
}

void frmMain::Disattiva_Menu()
{
    for (const qint16 i : VOCI_SPENTE)
        cmdMnu[i].Enabled(false);
}

void frmMain::cmdMnu_Click(qint16 Index)
{
    switch (Index) {
    case MenuSetup:
        Apri_Setup();
        break;
    case MenuProva:
        Inizia_Prova();
        break;
    case MenuVerifica:
        Apri_Verifica();
        break;
    case MenuAnagrafica:
        Apri_Anagrafica();
        break;
    case MenuInformazioni:
        Apri_Informazioni();
        break;
    case MenuUscita:
        Scarica();
        break;
    default:
        break;
    }
}

/// A new form in its reference, heard from now on, and shown.
template <typename Form, typename Gestore>
void frmMain::Apri_Nuovo(std::shared_ptr<Form> &riferimento, Gestore gestore)
{
    riferimento = Nuovo<Form>();
    connect(riferimento.get(), &Form::Notifica, this, gestore);
    riferimento->Mostra();
}

void frmMain::Apri_Setup()
{
    if (!Riporta_Avanti<frmSetupO>())
        Apri_Nuovo(formSetup, &frmMain::formSetup_Notifica);
}

void frmMain::Apri_Verifica()
{
    Chiedi_Password(gPwdCorrente);
    if (mPwdEsito == PwdGiusta)
        Predefinito<frmVerPerO>().Mostra(Modale);
}

void frmMain::Apri_Anagrafica()
{
    if (Riporta_Avanti<frmAnagOffO>())
        return;
    formAnagOff = Nuovo<frmAnagOffO>();
    formAnagOff->Mostra();
}

void frmMain::Apri_Informazioni()
{
    Predefinito<frmAbout>().Mostra(Modale);
    Eventi_Esegui();
}

void frmMain::Chiedi_Password(const QString &password)
{
    Password_Chiedi(frmPwd, password, this, &frmMain::frmPwd_PwdReady);
}

void frmMain::frmPwd_PwdReady(quint8 &esito)
{
    mPwdEsito = esito;
}

// --- a test -----------------------------------------------------------------------------------------------

/// Reading a full folder takes a moment and lets events run: a second press meanwhile opens nothing. Nor does
/// one while a vehicle is being chosen: a vehicle is tested once.
void frmMain::Inizia_Prova()
{
    if (mApertura || Riporta_Avanti<frmMctcO>() || Riporta_Avanti<frmMctc2>())
        return;
    const QScopedValueRollback<bool> apertura(mApertura, true);
    gTipoProva = ProvaScelta;
    const bool lista = gIniFile && Accettazioni_Presenti();
    if (!Caricato())
        return; // the way out was taken while the folder was listed
    if (lista)
        Apri_Lista();
    else
        Apri_Veicolo();
}

bool frmMain::Accettazioni_Presenti() const
{
    QStringList nomi;
    // A folder that is too deep for its files is as good as none: start-up has said so.
    return Fs_CartellaAmmessa(gDirAcc) && Fs_Esiste(gDirAcc, 0) &&
           Fs_Elenco(gDirAcc, QStringLiteral("*.acc"), nomi, Falso, Vero) > -1;
}

void frmMain::Apri_Veicolo()
{
    gFileAcc.clear(); // of a vehicle tested before: this test has no file to answer to
    Apri_Nuovo(formMctc2, &frmMain::formMctc2_Notifica);
}

void frmMain::Apri_Lista()
{
    Apri_Nuovo(formMctcO, &frmMain::formMctcO_Notifica);
}

void frmMain::Avvia_Prova(qint16)
{
    Carica_Lingua(gFileLingue, ULTIMO_TESTO_LINGUA, gTabLingua);
    if (!File_Presente(gDirImmagini, ATTRIBUTO_CARTELLA)) {
        Mostra_MsgTempo(Testo_Lingua(LinguaCartellaDatiAssente));
        Programma_Termina();
    }
    Sessione_Esegui(formComm, ModoMisura, this, &frmMain::formComm_Notifica);
}

// --- what the child forms report --------------------------------------------------------------------------

void frmMain::Veicolo_Confermato(qint16 codice, const QVariant &valore)
{
    if (codice != VeicoloConfermato)
        return;
    gTipoProva = Intero16(valore.toInt());
    Avvia_Prova(gTipoProva);
}

void frmMain::formSetup_Notifica(qint16 &codice, QVariant &)
{
    switch (codice) {
    case SetupSalvato:
        formSetup.reset();
        break;
    case SetupLingua:
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Carica_Menu();
        break;
    case SetupLavoro:
        Mostra_Immagine();
        Disattiva_Menu();
        break;
    default:
        break;
    }
}

void frmMain::formMctc2_Notifica(qint16 &codice, QVariant &valore)
{
    if (codice == SetupSalvato)
        formSetup.reset(); // as in the handler of the setup form; the entry form never says it
    Veicolo_Confermato(codice, valore);
}

void frmMain::formMctcO_Notifica(qint16 &codice, QVariant &valore)
{
    Veicolo_Confermato(codice, valore);
}

void frmMain::formComm_Notifica(qint16 &codice, QVariant &)
{
    if (codice == SessioneCompletata) {
        gTipoProva = ProvaConfermata;
        Calcola_Esito();
        formEsito = Nuovo<frmEsito>();
        formEsito->Mostra(Modale);
        Eventi_Esegui();
    }
    Aggiorna();
    Eventi_Esegui();
}

void frmMain::Unload()
{
    for (qint16 i = cmdMnu.UBound(); i >= 1; --i)
        cmdMnu.Scarica(i);
    // Every other form goes with the main window, the one loaded last first. The link form may be unloading
    // already, as long as the result it brought shows: it ends by itself once the result has gone.
    const auto moduli = Moduli_Caricati();
    for (auto modulo = moduli.rbegin(); modulo != moduli.rend(); ++modulo) {
        if (modulo->get() != this)
            (*modulo)->Scarica();
    }
}
