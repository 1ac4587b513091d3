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
#include "platform/colori.h"
#include "platform/elenco.h"
#include "platform/errore_esecuzione.h"
#include "platform/eventi.h"
#include "platform/numeri.h"
#include "platform/orologio.h"
#include "platform/porta_seriale.h"
#include "report/frmEsito.h"
#include "report/frmMctc2.h"
#include "report/frmVerPerO.h"
#include "setup/frmAnagOffO.h"
#include "setup/frmSetupO.h"
#include "toolkit/applicazione.h"
#include "toolkit/lettura.h"
#include "toolkit/risalto.h"
#include "toolkit/schermo.h"

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

// The state of the station.
constexpr int DOPO_RITORNO = 100; // ms: the menu is painted first
constexpr int FRA_DUE_SGUARDI = 30000;
constexpr int MINUTO = 60000;

// Their places, in design units: the lines in the cell of the grid that has no button, the notice on the
// lower edge of the picture.
constexpr qint32 STATO_MARGINE_X = 40;
constexpr qint32 STATO_MARGINE_Y = 10;
constexpr qint32 AVVISO_X = 400;
constexpr qint32 AVVISO_SOTTO = 250;
constexpr qint32 AVVISO_ALTO = 1900;

/// Logo of a further customer variant, with a password of its own: a hook, no code assigns it today.
constexpr const char16_t *LOGO_NORVO = u"norvo_logo.gif";

qint16 Altezza_Pulsante()
{
    return ScalaY_16(1050);
}

/// Where the picture ends and the first row of buttons begins.
qint32 Cima_Menu()
{
    return gScreenH - RIGHE_MENU * Altezza_Pulsante();
}

/// Why the worklist does not open although it is in use. @param stato what the look at the folder found.
QString Motivo_SenzaLista(StatoCartella stato)
{
    switch (stato) {
    case StatoCartella::Mancante:
        return Testo_Mctc(MctcSceltaSenzaCartella);
    case StatoCartella::Illeggibile:
        return Testo_Mctc(MctcSceltaIlleggibile);
    case StatoCartella::Vuota:
    case StatoCartella::ConAccettazioni: // the last went while the folder was listed
        break;
    }
    return Testo_Mctc(MctcSceltaVuota);
}

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

frmMain::frmMain()
    : Modulo(QStringLiteral("frmMain")),
      cmdMnu(QStringLiteral("cmdMnu")),
      lblStato(QStringLiteral("lblStato")),
      tmrStato([this] { Esegui([this] { tmrStato_Timer(); }); }),
      tmrAvviso([this] { Esegui([this] { tmrAvviso_Timer(); }); })
{
}

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
    lblStato.Inizia(Finestra());
    lblAvviso = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblAvviso"));
    lblAvviso->Visible(false);
}

void frmMain::Load()
{
    Disponi_Immagine();
    Mostra_Immagine();
    Disponi_Menu();
    Disattiva_Menu();
    mRilievo = {};
    mRiposo = {};
    Rileva();
    Mostra_Stato(mRilievo);
    cmdMnu[MenuProva].SetFocus();
}

/// Before the picture is loaded: a file is decoded at the size of its place.
void frmMain::Disponi_Immagine()
{
    imgLogo->Posto(ScalaX(100), ScalaY(100), gScreenW - 200, Cima_Menu() - 200);
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
    const qint16 altezza = Altezza_Pulsante();
    const qint32 cima = Cima_Menu();
    for (qint16 i = 0; i <= cmdMnu.UBound(); ++i)
        cmdMnu[i].FontSize(ScalaX(20));
    for (qint16 i = 1; i <= ULTIMO_PULSANTE; ++i)
        cmdMnu.Carica(i);
    const qint32 larghezza = gScreenW / COLONNE_MENU;
    for (qint16 i = 0; i < PULSANTE_NASCOSTO; ++i) {
        cmdMnu[i].Posto(i % COLONNE_MENU * larghezza, cima + i / COLONNE_MENU * altezza, larghezza, altezza);
        cmdMnu[i].Visible(true);
    }
    for (const qint16 i : VOCI_SPENTE)
        Pulsante_Assente(cmdMnu[i]);
    Pulsante_Principale(cmdMnu[MenuProva]);
    Disponi_Stato(cima, larghezza, altezza);
    Carica_Menu();
    Carica_Password();
}

void frmMain::Disponi_Stato(qint32 cima, qint32 larghezza, qint32 altezza)
{
    const qint32 sopra = cima + PULSANTE_NASCOSTO / COLONNE_MENU * altezza + ScalaY(STATO_MARGINE_Y);
    const qint32 riga = (altezza - 2 * ScalaY(STATO_MARGINE_Y)) / RIGHE_STATO;
    for (qint16 i = 0; i < RIGHE_STATO; ++i) {
        Etichetta &etichetta = lblStato.Carica(i);
        etichetta.FontSize(Punti_Normali() * LETTURA_TASTIERA);
        etichetta.Posto(PULSANTE_NASCOSTO % COLONNE_MENU * larghezza + ScalaX(STATO_MARGINE_X),
                        sopra + i * riga, larghezza - 2 * ScalaX(STATO_MARGINE_X), riga);
        etichetta.Visible(true);
    }
    const qint32 fine = imgLogo->Top() + imgLogo->Height() - ScalaY(AVVISO_SOTTO);
    lblAvviso->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lblAvviso->FontBold(true);
    lblAvviso->BackColor(COLORE_BIANCO);
    lblAvviso->Bordo_Evidente();
    lblAvviso->Allineamento(Orizzontale::Centro);
    lblAvviso->Posto(ScalaX(AVVISO_X), fine - ScalaY(AVVISO_ALTO), gScreenW - 2 * ScalaX(AVVISO_X),
                     ScalaY(AVVISO_ALTO));
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

// --- the state of the station ------------------------------------------------------------------------------

/// The menu is back: what it tells may have changed under the form before it.
void frmMain::Activate()
{
    tmrStato.Interval(mRiposo.Attesa(DOPO_RITORNO));
    tmrStato.Enabled(true);
    Mostra_Avviso();
}

void frmMain::tmrStato_Timer()
{
    tmrStato.Enabled(false);
    if (!Attivo())
        return; // whoever works elsewhere does not read the menu: its return asks anew
    if (mRiposo.Lento())
        Annuncia_Sguardo();
    mRiposo.Comincia();
    Rileva();
    if (mRilievo.Lista)
        mRilievo.Cartella = Cartella_Guarda(gDirAcc);
    mRiposo.Finisci();
    Mostra_Stato(mRilievo);
    Mostra_Avviso();
    tmrStato.Interval(mRiposo.Attesa(FRA_DUE_SGUARDI));
    tmrStato.Enabled(true);
}

/// What answers at once. The folder, which may not, is looked at apart.
void frmMain::Rileva()
{
    mRilievo.Lista = gIniFile != Falso;
    mRilievo.Porta = Numero_Pezzo(Valore_Ini(gFileIni, ChiavePortaNumero));
    mRilievo.PortaPresente = mRilievo.Porta > 0 && Porta_Presente(mRilievo.Porta);
    mRilievo.Scadenza = Valore_Ini(gFileIni, ChiaveStrumentoScadenza);
    mRilievo.Oggi = Orologio_Corrente().Adesso().date();
}

void frmMain::Mostra_Stato(const Rilievo &rilievo)
{
    qint16 i = 0;
    for (const RigaStato &riga : Stato_Righe(rilievo)) {
        Etichetta &etichetta = lblStato[i++];
        etichetta.FontBold(riga.Avviso);
        etichetta.Caption(riga.Testo);
    }
}

/// A folder that answers late, or never, lets the whole window stand still: what the operator waits for is on
/// the screen by then.
void frmMain::Annuncia_Sguardo()
{
    Rilievo inAttesa = mRilievo;
    inAttesa.Cartella.reset();
    Mostra_Stato(inAttesa);
    for (qint16 i = 0; i < RIGHE_STATO; ++i)
        lblStato[i].Ridipingi();
}

/// The failure's minute begins when the menu stands before the operator: who read the message of the form
/// between, or waited for a slow machine, has lost nothing of it. Another form in front shows it to nobody.
void frmMain::Prendi_FineSessione()
{
    if (!Attivo() || mFine == Sessione_Fine())
        return;
    mFine = Sessione_Fine();
    tmrAvviso.Interval(MINUTO); // a whole one, also during that of the session before
    tmrAvviso.Enabled(!mFine.Testo.isEmpty());
}

/// For a minute what the last session failed of, otherwise the lines of the state that ask for somebody.
void frmMain::Mostra_Avviso()
{
    Prendi_FineSessione();
    QStringList avvisi;
    if (tmrAvviso.Enabled()) {
        avvisi.append(mFine.Testo);
    } else {
        for (const RigaStato &riga : Stato_Righe(mRilievo)) {
            if (riga.Avviso && !riga.Testo.isEmpty())
                avvisi.append(riga.Testo);
        }
        if (Scrittura_Persa())
            avvisi.append(Testo_SenzaScrittura());
    }
    lblAvviso->Caption(avvisi.join(u'\n'));
    lblAvviso->Visible(!avvisi.isEmpty());
}

void frmMain::tmrAvviso_Timer()
{
    tmrAvviso.Enabled(false);
    Mostra_Avviso();
}

// --- the entries -------------------------------------------------------------------------------------------

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

/// A new form in its reference, heard from now on.
template <typename Form, typename Gestore>
Form &frmMain::Nuovo_Sentito(std::shared_ptr<Form> &riferimento, Gestore gestore)
{
    riferimento = Nuovo<Form>();
    connect(riferimento.get(), &Form::Notifica, this, gestore);
    return *riferimento;
}

void frmMain::Apri_Setup()
{
    if (!Riporta_Avanti<frmSetupO>())
        Nuovo_Sentito(formSetup, &frmMain::formSetup_Notifica).Mostra();
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
    QString motivo;
    if (gIniFile)
        Annuncia_Sguardo();
    const bool lista = gIniFile && Accettazioni_Presenti(motivo);
    if (!Caricato())
        return; // the way out was taken while the folder was listed
    Mostra_Stato(mRilievo);
    if (lista)
        Apri_Lista();
    else
        Apri_Veicolo(motivo);
}

/// Whether there is a file to choose. One look finds what the folder holds and, when it holds none, why: a
/// share that is out of reach lets every look wait.
/// @param[out] motivo why there is none, in the operator's language.
bool frmMain::Accettazioni_Presenti(QString &motivo) const
{
    StatoCartella stato = Cartella_Guarda(gDirAcc).Stato;
    try {
        QStringList nomi;
        if (stato == StatoCartella::ConAccettazioni &&
            Fs_Elenco(gDirAcc, QStringLiteral("*.acc"), nomi, Falso, Vero) > -1)
            return true;
    } catch (const ErroreEsecuzione &) {
        stato = StatoCartella::Illeggibile; // the connection was lost since the look
    }
    motivo = Motivo_SenzaLista(stato);
    return false;
}

void frmMain::Apri_Veicolo(const QString &motivo)
{
    gFileAcc.clear(); // of a vehicle tested before: this test has no file to answer to
    frmMctc2 &veicolo = Nuovo_Sentito(formMctc2, &frmMain::formMctc2_Notifica);
    veicolo.Motivo = motivo;
    veicolo.Mostra();
}

void frmMain::Apri_Lista()
{
    Nuovo_Sentito(formMctcO, &frmMain::formMctcO_Notifica).Mostra();
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
        Mostra_Stato(mRilievo);
        Mostra_Avviso();
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
    tmrStato.Enabled(false);
    tmrAvviso.Enabled(false);
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
