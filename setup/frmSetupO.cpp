// The 32 rows of the configuration: layout, locks, what takes effect at once and what with the save. The
// exchange with the instrument is the link form's.
#include "setup/frmSetupO.h"

#include "core/lingue.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "dialogs/dlgPwd.h"
#include "dialogs/frmMsg.h"
#include "link/frmComm.h"
#include "mctc/frmControlliMctc.h"
#include "platform/elenco.h"
#include "platform/errore_esecuzione.h"
#include "platform/eventi.h"
#include "platform/numeri.h"
#include "platform/una_riga.h"
#include "report/frmVerPerO.h"
#include "setup/frmCartella.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/titolo.h"

#include <array>

namespace {

enum RigaSetup : qint16
{
    RigaModello,
    RigaMarca,
    RigaOmologazione,
    RigaSerie,
    RigaScadenza,
    RigaOperatore,
    RigaLingua,
    RigaDevOrizAnab,
    RigaDevOrizAbb,
    RigaDevVertAnab,
    RigaDevVertAbb,
    RigaLuxMaxAnab,
    RigaLuxMaxAbb,
    RigaLuxMinAnab,
    RigaLuxMinAbb,
    RigaIncMinAnab,
    RigaIncMinAbb,
    RigaIncMaxAnab,
    RigaIncMaxAbb,
    RigaModalita,
    RigaRisultati,
    RigaDati,
    RigaIniFile,
    RigaEsce,
    RigaControlloVisivo,
    RigaAllarme,
    RigaAlimentazione,
    RigaAltezzaAuto,
    RigaSblocco,
    RigaCamReset,
    RigaStrumento,
    RigaPorta,

    PrimoLimite = RigaDevOrizAnab,
    PrimoLimiteLux = RigaLuxMaxAnab,
    UltimoLimiteLux = RigaLuxMinAbb,
    UltimoLimite = RigaIncMaxAbb,
};

constexpr qint16 ULTIMA_RIGA = RigaPorta;
std::array<CampoForm, ULTIMA_RIGA + 1> gCampiSetup;

/// Whether a row is locked when the form loads.
enum Blocco
{
    Libera,
    Bloccata,
    SenzaRete
};

struct DatiRiga
{
    TestoMctc etichetta;
    quint8 controllo;
    ChiaveIni chiave; // of a row with two keys, the one of the network folders
    Blocco blocco;
};

constexpr DatiRiga RIGHE[ULTIMA_RIGA + 1] = {
    {MctcModelloStrumento,      CampoTesto,  ChiaveStrumentoModello,      Bloccata },
    {MctcMarcaStrumento,        CampoTesto,  ChiaveStrumentoMarca,        Bloccata },
    {MctcNumeroOmologazione,    CampoTesto,  ChiaveStrumentoOmologazione, Bloccata },
    {MctcNumeroSerie,           CampoTesto,  ChiaveStrumentoSerie,        Bloccata },
    {MctcScadenzaVerifica,      CampoTesto,  ChiaveStrumentoScadenza,     Bloccata },
    {MctcOperatore,             CampoTesto,  ChiaveOperatore,             Libera   },
    {MctcLingua,                CampoCombo,  ChiaveLingua,                Libera   },
    {MctcDeviazioneOrizzontale, CampoTesto,  ChiaveDevOrizAnab,           Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveDevOrizAbb,            Bloccata },
    {MctcDeviazioneVerticale,   CampoTesto,  ChiaveDevVertAnab,           Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveDevVertAbb,            Bloccata },
    {MctcIlluminamentoMassimo,  CampoTesto,  ChiaveLuxMaxAnab,            Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveLuxMaxAbb,             Bloccata },
    {MctcIlluminamentoMinimo,   CampoTesto,  ChiaveLuxMinAnab,            Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveLuxMinAbb,             Bloccata },
    {MctcInclinazioneMinima80,  CampoTesto,  ChiaveIncVertMin80An,        Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveIncVertMin80Ab,        Bloccata },
    {MctcInclinazioneMassima80, CampoTesto,  ChiaveIncVertMax80An,        Bloccata },
    {MctcNessuno,               CampoTesto,  ChiaveIncVertMax80Ab,        Bloccata },
    {MctcCartelleScambio,       CampoCombo,  ChiaveModalita,              SenzaRete},
    {MctcCartellaRisultati,     CampoTesto,  ChiaveReteRisultati,         SenzaRete},
    {MctcCartellaAccettazioni,  CampoTesto,  ChiaveReteDati,              SenzaRete},
    {MctcListaAccettazioni,     CampoSpunta, ChiaveIniFile,               Libera   },
    {MctcUscitaFineProva,       CampoSpunta, ChiaveEsce,                  Libera   },
    {MctcControlloVisivo,       CampoSpunta, ChiaveControlloVisivo,       Libera   },
    {MctcAllarmeAcustico,       CampoSpunta, ChiaveAllarmeAcustico,       Libera   },
    {MctcAlimentazione,         CampoSpunta, ChiaveAlimentazione,         Libera   },
    {MctcAltezzaAutomatica,     CampoSpunta, ChiaveAltezzaFaroAuto,       Libera   },
    {MctcSbloccaLimiti,         CampoSpunta, {},                          Libera   }, // no setting: the switch of the limits
    {MctcAzzeraTelecamera,      CampoSpunta, ChiaveAzzeraTelecamera,      Libera   },
    {MctcStrumentoDaLeggere,    CampoCombo,  ChiaveModelloSeriale,        Libera   },
    {MctcPortaSeriale,          CampoCombo,  ChiavePortaNumero,           Libera   },
};

/// The folders of RigaRisultati and RigaDati have a key for each work mode: those of the local folders.
constexpr ChiaveIni CHIAVI_LOCALI[] = {ChiaveLocaleRisultati, ChiaveLocaleDati};

/// Flags that a save brings into force, by row.
struct FlagRiga
{
    RigaSetup riga;
    Flag *flag;
};

constexpr FlagRiga FLAG_RIGHE[] = {
    {RigaEsce,            &gEsce           },
    {RigaControlloVisivo, &gControlloVisivo},
    {RigaAllarme,         &gAllarmeAcustico},
    {RigaAlimentazione,   &gAlimentazione  },
    {RigaAltezzaAuto,     &gAltezzaFaroAuto},
};

/// What a read of the instrument goes into, in the order of its writing: index in the block and row.
constexpr RigaSetup ORDINE_LETTURA[] = {RigaMarca, RigaModello,  RigaOmologazione,
                                        RigaSerie, RigaScadenza, RigaOperatore};

constexpr qint16 PORTE = 20;
constexpr TestoMctc TESTI_COLONNE[] = {MctcAnabbagliante, MctcAbbagliante};
constexpr qint16 TASTO_LIVELLI = 12; // F12: the check levels, which no menu shows

// The layout, in design units. In each frame the rows begin below its heading; a frame of one row has that
// row's label for one.
constexpr qint32 ETICHETTA_ALTA = 255;
constexpr qint32 CASELLA_ALTA = 320;
constexpr qint32 PASSO_SPUNTE = 550;

struct Posto
{
    qint32 x, y, largo;
};

constexpr Posto POSTO_STRUMENTO = {200, 735, 3095};
constexpr qint32 PASSO_STRUMENTO = 670;
constexpr Posto POSTO_LINGUA = {4700, 740, 3495};
constexpr qint32 POSTI_RETE[] = {1430, 2120, 3350}; // below each folder its whole path has two lines
constexpr Posto POSTO_SFOGLIA = {8250, -130, 600};  // y from its box
constexpr qint32 SFOGLIA_ALTO = 480;
constexpr qint32 PERCORSO_LARGO = 4200;
constexpr qint32 PERCORSO_ALTO = 520;
constexpr Posto POSTO_LIMITI = {4300, 5700, 1900};
constexpr qint32 ETICHETTA_LIMITI = 300;
constexpr qint32 SECONDA_COLONNA = 2300;
constexpr qint32 PASSO_LIMITI = 620;
constexpr Posto POSTO_SPUNTE = {9700, 560, 0};
constexpr Posto POSTO_SBLOCCO = {300, 9480, 0};
constexpr Posto POSTO_CAMRESET = {5600, 9480, 0};
constexpr Posto POSTO_MODELLO = {12000, 6400, 2700};
constexpr Posto POSTO_PORTA = {12000, 8400, 2700};

/// What stands over the rows of a frame.
struct Intestazione
{
    TestoMctc testo;
    Posto posto;
};

constexpr Intestazione INTESTAZIONI[] = {
    {MctcCorniceStrumento, {200, 110, 3200} },
    {MctcCorniceCartelle,  {4700, 110, 4200}},
    {MctcCorniceOpzioni,   {9700, 110, 3700}},
    {MctcCorniceLimiti,    {300, 5120, 3900}},
};
constexpr qint32 INTESTAZIONE_ALTA = 260;

CampoForm &Campo(qint16 riga)
{
    // cppcheck-suppress containerOutOfBounds ; reckons the size of the table one too small
    return gCampiSetup[static_cast<size_t>(riga)];
}

QString Testo_Blocco(const QStringList &testi, qint16 indice)
{
    if (indice >= testi.size())
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    return testi[indice];
}

/// Sets the keys of the two folder rows for a work mode: "0" stands for the network.
void Chiavi_Cartelle(bool rete)
{
    for (qint16 i = 0; i < 2; ++i)
        Campo_Chiave(Campo(Intero16(RigaRisultati + i)),
                     rete ? RIGHE[RigaRisultati + i].chiave : CHIAVI_LOCALI[i]);
}

qint16 Lingua_Scelta()
{
    for (qint16 i = 0; i < static_cast<qint16>(std::size(LINGUE)); ++i) {
        if (QString::fromUtf16(LINGUE[i].codice).toUpper() == gLingua)
            return i;
    }
    return 0;
}

/// Only the last character of the stored number counts: port 12 shows as the second, port 10 as none (-1).
qint16 Porta_Scelta()
{
    const QString numero = Valore_Ini(gFileIni, ChiavePortaNumero);
    return Intero16(Numero_Pezzo(numero.right(1)) - 1);
}

void Liste_Imposta()
{
    CampoForm &lingua = Campo(RigaLingua);
    lingua.List.clear();
    for (const LinguaStazione &voce : LINGUE)
        lingua.List.append(Testo_Mctc(voce.testo));
    lingua.ListIndexDefault = Lingua_Scelta();
    CampoForm &modalita = Campo(RigaModalita);
    modalita.List = {Testo_Mctc(MctcCartelleRete), Testo_Mctc(MctcCartelleLocali)};
    modalita.ListIndexDefault = gModalita ? 1 : 0;
    Campo(RigaStrumento).List = QStringList{QStringLiteral("QX5")};
    CampoForm &porta = Campo(RigaPorta);
    porta.List.clear();
    for (qint16 i = 1; i <= PORTE; ++i)
        porta.List.append(QStringLiteral("COM%1").arg(i));
    porta.ListIndexDefault = Porta_Scelta();
}

void Colloca(CampoForm &campo, const Posto &posto, qint32 y)
{
    campo.CtlLeft = ScalaX_16(posto.x);
    campo.CtlTop = ScalaY_16(y);
    campo.CtlWidth = ScalaX_16(posto.largo);
    campo.LabelLeft = campo.CtlLeft;
    campo.LabelTop = Intero16(campo.CtlTop - ScalaX(ETICHETTA_ALTA) - 10);
}

void Colloca_Spunta(CampoForm &campo, const Posto &posto, qint32 y)
{
    Colloca(campo, posto, y);
    campo.LabelLeft = Intero16(campo.CtlLeft + ScalaX(450));
    campo.LabelTop = Intero16(campo.CtlTop + (ScalaY(CASELLA_ALTA) - ScalaX(ETICHETTA_ALTA)) / 2);
}

void Colloca_Limite(CampoForm &campo, qint16 riga)
{
    const qint32 linea = (riga - PrimoLimite) / 2;
    const bool abbagliante = (riga - PrimoLimite) % 2 == 1;
    Colloca(campo, POSTO_LIMITI, POSTO_LIMITI.y + linea * PASSO_LIMITI);
    if (abbagliante)
        campo.CtlLeft = ScalaX_16(POSTO_LIMITI.x + SECONDA_COLONNA);
    campo.LabelLeft = ScalaX_16(ETICHETTA_LIMITI);
    campo.LabelTop = Intero16(campo.CtlTop + (ScalaY(CASELLA_ALTA) - ScalaX(ETICHETTA_ALTA)) / 2);
}

void Righe_Colloca()
{
    for (qint16 riga = 0; riga <= RigaOperatore; ++riga)
        Colloca(Campo(riga), POSTO_STRUMENTO, POSTO_STRUMENTO.y + riga * PASSO_STRUMENTO);
    Colloca(Campo(RigaLingua), POSTO_LINGUA, POSTO_LINGUA.y);
    for (qint16 riga = PrimoLimite; riga <= UltimoLimite; ++riga)
        Colloca_Limite(Campo(riga), riga);
    for (qint16 riga = RigaModalita; riga <= RigaDati; ++riga)
        Colloca(Campo(riga), POSTO_LINGUA, POSTI_RETE[riga - RigaModalita]);
    for (qint16 riga = RigaIniFile; riga <= RigaAltezzaAuto; ++riga)
        Colloca_Spunta(Campo(riga), POSTO_SPUNTE, POSTO_SPUNTE.y + (riga - RigaIniFile) * PASSO_SPUNTE);
    Colloca_Spunta(Campo(RigaSblocco), POSTO_SBLOCCO, POSTO_SBLOCCO.y);
    Colloca_Spunta(Campo(RigaCamReset), POSTO_CAMRESET, POSTO_CAMRESET.y);
    Colloca(Campo(RigaStrumento), POSTO_MODELLO, POSTO_MODELLO.y);
    Colloca(Campo(RigaPorta), POSTO_PORTA, POSTO_PORTA.y);
}

void Riga_Imposta(CampoForm &campo, const DatiRiga &dati)
{
    campo.LabelId = dati.etichetta;
    campo.Kind = dati.controllo;
    Campo_Chiave(campo, dati.chiave);
    // Also of a row that the form locks only later: its label goes by the lock at every change of language.
    campo.LabelEnabledByEditable = dati.blocco != Libera;
    campo.Editable = Flag_Da(dati.blocco == Libera || (dati.blocco == SenzaRete && gIniFile));
}

} // namespace

frmSetupO::frmSetupO()
    : Modulo(QStringLiteral("frmSetupO")),
      lblDes(QStringLiteral("lblDes")),
      lblIntestazione(QStringLiteral("lblIntestazione")),
      lblPercorso(QStringLiteral("lblPercorso")),
      cmdSfoglia(QStringLiteral("cmdSfoglia"))
{
}

frmSetupO::~frmSetupO() = default;

// --- loading ----------------------------------------------------------------------------------------------

void frmSetupO::Disegno()
{
    Massimizza();
    lbl.Carica(0).Posto(0, 0, ScalaX(3400), ETICHETTA_ALTA);
    txt.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(CASELLA_ALTA));
    cbo.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(CASELLA_ALTA));
    chk.Carica(0).Posto(0, 0, ScalaX(400), ScalaY(CASELLA_ALTA));
    Campi_Carattere(*this, Punti_Normali() * LETTURA_TASTIERA);
    lblDes.Inizia(Finestra());
    lblIntestazione.Inizia(Finestra());
    for (qint16 i = 0; i < static_cast<qint16>(std::size(INTESTAZIONI)); ++i) {
        const Posto &posto = INTESTAZIONI[i].posto;
        lblIntestazione.Carica(i).Posto(ScalaX(posto.x), ScalaY(posto.y), ScalaX(posto.largo),
                                        ScalaY(INTESTAZIONE_ALTA));
        lblIntestazione[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
        lblIntestazione[i].Visible(true);
    }
    cmdSfoglia.Inizia(Finestra(), [this](Pulsante &pulsante, qint16 i) {
        Collega(pulsante, [this, i] { Sfoglia(Intero16(RigaRisultati + i)); });
    });
    lblPercorso.Inizia(Finestra());
    for (qint16 i = 0; i <= 1; ++i) {
        lblPercorso.Carica(i).FontSize(Punti_Normali() * LETTURA_TASTIERA);
        lblPercorso[i].SpezzaOvunque();
        lblPercorso[i].Allineamento(Orizzontale::Sinistra, Verticale::Alto);
        cmdSfoglia.Carica(i).Caption(QStringLiteral("..."));
        cmdSfoglia[i].FontSize(Punti_Normali() * LETTURA_TASTIERA);
        cmdSfoglia[i].Posto(ScalaX(POSTO_SFOGLIA.x),
                            ScalaY(POSTI_RETE[RigaRisultati - RigaModalita + i] + POSTO_SFOGLIA.y),
                            ScalaX(POSTO_SFOGLIA.largo), ScalaY(SFOGLIA_ALTO));
        cmdSfoglia[i].Visible(true);
    }
    for (qint16 i = 0; i <= 1; ++i) {
        lblDes.Carica(i).Posto(ScalaX(POSTO_LIMITI.x + i * SECONDA_COLONNA), ScalaY(5250),
                               ScalaX(SECONDA_COLONNA), ScalaY(300));
        lblDes[i].FontSize(Punti_Normali() * LETTURA_TASTIERA);
        lblDes[i].FontBold(true);
        lblDes[i].Visible(true);
        cmd.Carica(i).FontSize(Punti_Normali() * LETTURA_COMODA);
        cmd[i].Visible(true);
    }
    cmd[0].Posto(ScalaX(11500), ScalaY(10200), ScalaX(3500), ScalaY(1100));
    cmd[1].Posto(ScalaX(6800), ScalaY(10200), ScalaX(4200), ScalaY(1100));
}

void frmSetupO::Load()
{
    Campi_Azzera(gCampiSetup, ULTIMA_RIGA);
    Campi_Imposta();
    Campi_Crea(gCampiSetup, ULTIMA_RIGA, *this);
    // A port that shows as none is no item of the list: the list is filled first and cleared then.
    const qint16 porta =
        std::exchange(Campo(RigaPorta).ListIndexDefault, std::max<qint16>(0, Porta_Scelta()));
    Campi_Applica(gCampiSetup, ULTIMA_RIGA, *this);
    Campo(RigaPorta).ListIndexDefault = porta;
    cbo[Campo(RigaPorta).CtlIndex].ListIndex(porta);
    for (const qint16 riga : {RigaModalita, RigaRisultati, RigaDati})
        lbl[riga].Width(ScalaX(3495));
    for (const qint16 riga : {RigaStrumento, RigaPorta})
        lbl[riga].Width(ScalaX(POSTO_MODELLO.largo)); // the screen ends there
    for (qint16 riga = 0; riga <= RigaOperatore; ++riga)
        lbl[riga].Width(ScalaX(POSTO_STRUMENTO.largo));
    for (qint16 i = 0; i <= lbl.UBound(); ++i) {
        lbl[i].Height(ScalaX(lbl[i].Height()));
        if (Campo(i).LabelLeft == Campo(i).CtlLeft) // on its box: its letters have all of the low place
            lbl[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    }
    for (const qint16 riga : {RigaStrumento, RigaPorta})
        lbl[riga].FontBold(true); // the heading of its frame
    Mostra_Percorsi();
    for (qint16 i = 0; i <= 1; ++i)
        cmdSfoglia[i].Enabled(Campo(Intero16(RigaRisultati + i)).Editable);
    cmd[0].SetFocus();
}

void frmSetupO::Campi_Imposta()
{
    gCaricamento = Vero;
    for (qint16 riga = 0; riga <= ULTIMA_RIGA; ++riga)
        Riga_Imposta(Campo(riga), RIGHE[riga]);
    Chiavi_Cartelle(!gModalita);
    Liste_Imposta();
    for (qint16 riga = RigaIniFile; riga <= RigaAltezzaAuto; ++riga) {
        CampoForm &campo = Campo(riga);
        campo.ListIndexDefault = Numero_Pezzo(Valore_Ini(gFileIni, campo.Section, campo.Key));
    }
    Righe_Colloca();
    cmd[0].Caption(QStringLiteral("Ok"));
    Didascalie();
    for (qint16 i = 0; i <= 1; ++i)
        lblDes[i].Enabled(false);
    gCaricamento = Falso;
}

void frmSetupO::Didascalie()
{
    for (qint16 i = 0; i <= 1; ++i)
        lblDes[i].Caption(Testo_Mctc(TESTI_COLONNE[i]));
    for (qint16 i = 0; i < static_cast<qint16>(std::size(INTESTAZIONI)); ++i)
        lblIntestazione[i].Caption(Testo_Mctc(INTESTAZIONI[i].testo));
    for (qint16 i = 0; i <= 1; ++i) {
        const CampoForm &campo = Campo(Intero16(RigaRisultati + i));
        cmdSfoglia[i].NomeAccessibile(Testo_Mctc(MctcScegliCartella) + QStringLiteral(": ") +
                                      Testo_Mctc(campo.LabelId));
    }
    cmd[1].Caption(Testo_Mctc(MctcVerificaPeriodica));
    Caption(Testo_Mctc(MctcImpostazioni));
}

void frmSetupO::Activate()
{
    Aggiorna();
}

void frmSetupO::Paint()
{
    constexpr qint32 CORNICI[][4] = {
        {100,   100,  3500,  4500 },
        {100,   5000, 11000, 10000},
        {4500,  100,  9000,  4500 },
        {9500,  100,  13500, 4000 },
        {11500, 6000, 15000, 7000 },
        {11500, 8000, 15000, 9000 },
    };
    for (const auto &cornice : CORNICI)
        Disegna_Cornice(*this, ScalaX(cornice[0]), ScalaY(cornice[1]), ScalaX(cornice[2]),
                        ScalaY(cornice[3]));
}

// --- boxes ------------------------------------------------------------------------------------------------

void frmSetupO::txt_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    if (!Campo(Riga_Di(txt[Index])).Editable)
        KeyAscii = 0;
}

/// A folder whose end its box cannot show has all of its path below, in two lines.
void frmSetupO::Mostra_Percorsi()
{
    for (qint16 i = 0; i <= 1; ++i) {
        const CampoForm &campo = Campo(Intero16(RigaRisultati + i));
        const CasellaTesto &casella = txt[campo.CtlIndex];
        lblPercorso[i].Posto(campo.CtlLeft, campo.CtlTop + ScalaY(CASELLA_ALTA) + 30, ScalaX(PERCORSO_LARGO),
                             ScalaY(PERCORSO_ALTO));
        lblPercorso[i].Caption(lblPercorso[i].Principio(casella.Text()));
        lblPercorso[i].Visible(!casella.Intera());
    }
}

/// Stands for the operator's typing: the text is in the box, and the box has the keyboard. What the folder
/// means is decided when they leave it.
void frmSetupO::Sfoglia(qint16 riga)
{
    const auto scelta = Nuovo<frmCartella>();
    scelta->Cartella = txt[Campo(riga).CtlIndex].Text();
    scelta->Mostra(Modale);
    if (!scelta->Scelta || !Caricato())
        return;
    CasellaTesto &casella = txt[Campo(riga).CtlIndex]; // the form may have been loaded anew meanwhile
    casella.SetFocus();
    casella.Text(scelta->Cartella);
}

void frmSetupO::txt_Change(qint16 Index)
{
    const qint16 riga = Riga_Di(txt[Index]);
    if (riga == RigaRisultati || riga == RigaDati)
        Mostra_Percorsi();
}

void frmSetupO::txt_Validate(qint16 Index, bool &Cancel)
{
    const qint16 riga = Riga_Di(txt[Index]);
    const QString testo = txt[Index].Text();
    if (riga >= PrimoLimite && riga <= UltimoLimite && !Numero_Valido(testo)) {
        Mostra_MsgTempo(Testo_Mctc(MctcCampoErrato));
        Cancel = true;
        return;
    }
    if (riga == RigaDati && !testo.isEmpty()) {
        Convalida_Cartella(Fs_ConBarra(testo));
        return;
    }
    Campo(riga).Dirty = Vero;
    Campo(riga).Value = testo;
}

/// The acceptance and the results folder are meant to be one and the same. So the text goes to the results
/// key, at once, and the acceptance key is written with the value that it had in the table.
void frmSetupO::Convalida_Cartella(const QString &testo)
{
    CampoForm &dati = Campo(RigaDati);
    CampoForm &risultati = Campo(RigaRisultati);
    txt[dati.CtlIndex].Text(testo);
    const Clessidra clessidra;
    if (Fs_Esiste(testo, ATTRIBUTO_CARTELLA)) {
        Chiavi_Cartelle(Campo(RigaModalita).Value == u"0");
        Scrivi_Ini(gFileIni, dati.Section, dati.Key, dati.Value);
        risultati.Value = testo;
        Scrivi_Ini(gFileIni, risultati.Section, risultati.Key, risultati.Value);
        risultati.Dirty = Vero;
    } else {
        dati.Dirty = Vero;
        dati.Value = testo;
    }
}

// --- lists ------------------------------------------------------------------------------------------------

/// The lists take the mouse only: a key pressed by chance must not start a session with the instrument.
void frmSetupO::cbo_KeyDown(qint16, qint16 &KeyCode)
{
    KeyCode = 0;
}

void frmSetupO::cbo_Click(qint16 Index)
{
    const qint16 riga = Riga_Di(cbo[Index]);
    Campo(riga).Dirty = Vero;
    Campo(riga).Value = cbo[Index].Text();
    if (riga == RigaLingua)
        Scegli_Lingua(Index);
    else if (riga == RigaModalita)
        Scegli_Modalita(Index);
    else if (riga == RigaStrumento)
        Scegli_Strumento(Index);
    else if (riga == RigaPorta)
        Campo(riga).ListIndexDefault = cbo[Index].ListIndex();
    Aggiorna();
}

/// The language takes effect at once on the screen, and is kept only by the save.
void frmSetupO::Scegli_Lingua(qint16 Index)
{
    CampoForm &campo = Campo(RigaLingua);
    for (const LinguaStazione &lingua : LINGUE) {
        if (cbo[Index].Text() == Testo_Mctc(lingua.testo)) {
            campo.Value = QString::fromUtf16(lingua.codice);
            break;
        }
    }
    gLingua = campo.Value.toUpper();
    Avvisa(SetupLingua);
    Campi_Didascalie(gCampiSetup, ULTIMA_RIGA, *this);
    Didascalie();
}

void frmSetupO::Scegli_Modalita(qint16 Index)
{
    Campo(RigaModalita).Value = QString::number(cbo[Index].ListIndex());
    Chiavi_Cartelle(cbo[Index].ListIndex() == 0);
    for (const qint16 riga : {RigaRisultati, RigaDati}) {
        CampoForm &campo = Campo(riga);
        Leggi_Ini(gFileIni, campo.Section, campo.Key, campo.Value);
        txt[campo.CtlIndex].Text(campo.Value);
    }
}

void frmSetupO::Scegli_Strumento(qint16 Index)
{
    if (cbo[Index].ListIndex() == 0)
        Collega_Strumento(ModoLeggi);
    Campo(RigaStrumento).Value = QString::number(cbo[Index].ListIndex());
    Setup_Aggiorna();
}

// --- check boxes ------------------------------------------------------------------------------------------

void frmSetupO::chk_Click(qint16 Index)
{
    if (gCaricamento) {
        gCaricamento = Falso;
        return;
    }
    const qint16 riga = Riga_Di(chk[Index]);
    Campo(riga).Value = QString::number(chk[Index].Value());
    Campo(riga).Dirty = Vero;
    if (riga == RigaIniFile)
        Blocca_Rete(chk[Index].Value() != 1);
    else if (riga == RigaSblocco)
        Sblocca_Limiti(Index);
}

void frmSetupO::Blocca_Rete(bool bloccata)
{
    for (const qint16 riga : {RigaRisultati, RigaDati}) {
        CampoForm &campo = Campo(riga);
        Testo_Blocca(txt[campo.CtlIndex], bloccata);
        campo.Editable = Flag_Da(!bloccata);
        cmdSfoglia[Intero16(riga - RigaRisultati)].Enabled(!bloccata);
        lbl[riga].Enabled(!bloccata);
    }
    cbo[Campo(RigaModalita).CtlIndex].Enabled(!bloccata);
    lbl[RigaModalita].Enabled(!bloccata);
}

/// The password opens the four lux limits only; clearing the box locks all twelve. The limits of the aim
/// belong to the instrument and are never edited here.
void frmSetupO::Sblocca_Limiti(qint16 Index)
{
    const bool sblocca = chk[Index].Value() == 1;
    if (sblocca) {
        Chiedi_Password(gPwdCorrente);
        Aggiorna();
        if (mPwdEsito != PwdGiusta) {
            Spunta_Imposta(chk[Index], 0);
            return;
        }
    }
    const qint16 prima = sblocca ? PrimoLimiteLux : PrimoLimite;
    const qint16 ultima = sblocca ? UltimoLimiteLux : UltimoLimite;
    for (qint16 riga = prima; riga <= ultima; ++riga)
        Blocca_Limite(riga, !sblocca);
    for (qint16 i = 0; i <= 1; ++i)
        lblDes[i].Enabled(sblocca);
}

void frmSetupO::Blocca_Limite(qint16 riga, bool bloccato)
{
    CampoForm &campo = Campo(riga);
    Testo_Blocca(txt[campo.CtlIndex], bloccato);
    lbl[riga].Enabled(!bloccato);
    campo.Editable = Flag_Da(!bloccato);
}

// --- buttons ----------------------------------------------------------------------------------------------

void frmSetupO::cmd_Click(qint16 Index)
{
    if (Index == 0)
        Salva();
    else
        Mostra_Verifica();
    Imposta_Cartelle();
}

void frmSetupO::Salva()
{
    // As if the operator had left the two folder boxes; a refusal changes nothing in what follows.
    for (const qint16 riga : {RigaRisultati, RigaDati}) {
        bool rifiutato = false;
        txt_Validate(Campo(riga).CtlIndex, rifiutato);
    }
    for (qint16 riga = 0; riga <= ULTIMA_RIGA; ++riga) {
        const CampoForm &campo = Campo(riga);
        if (campo.Dirty && riga != RigaRisultati && riga != RigaDati && !campo.Section.isEmpty())
            Scrivi_Ini(gFileIni, campo.Section, campo.Key, campo.Value);
    }
    for (qint16 riga = RigaOperatore; riga <= ULTIMA_RIGA; ++riga) {
        if (Campo(riga).Dirty)
            Salva_Effetti(riga);
    }
    Avvisa(SetupSalvato);
    Scarica();
}

/// What a changed row means beyond its key.
void frmSetupO::Salva_Effetti(qint16 riga)
{
    const CampoForm &campo = Campo(riga);
    const Flag acceso = Flag_Da(campo.Value != u"0");
    for (const FlagRiga &voce : FLAG_RIGHE) {
        if (voce.riga == riga)
            *voce.flag = acceso;
    }
    switch (riga) {
    case RigaOperatore:
        Scrivi_Operatore();
        break;
    case RigaModalita:
        gModalita = acceso;
        Imposta_Cartelle();
        break;
    case RigaIniFile:
        gIniFile = acceso;
        Avvisa(SetupLavoro);
        break;
    case RigaStrumento:
        Scrivi_Ini(gFileIni, campo.Section, campo.Key, QStringLiteral("1"));
        Avvisa(SetupLavoro);
        break;
    case RigaPorta:
        // The number, over the entry's text that was written with the other rows.
        Scrivi_Ini(gFileIni, campo.Section, campo.Key, QString::number(campo.ListIndexDefault + 1));
        break;
    default:
        break;
    }
}

void frmSetupO::Scrivi_Operatore()
{
    gDatiStrumento.clear();
    for (qint16 riga = 0; riga <= RigaOperatore; ++riga)
        gDatiStrumento.append(Valore_Ini(gFileIni, Campo(riga).Section, Campo(riga).Key));
    Collega_Strumento(ModoScrivi);
}

void frmSetupO::Mostra_Verifica()
{
    Chiedi_Password(gPwdCorrente);
    Aggiorna();
    if (mPwdEsito == PwdGiusta)
        Predefinito<frmVerPerO>().Mostra(Modale);
}

void frmSetupO::FunctionKey(qint16 numero)
{
    if (numero == TASTO_LIVELLI)
        Nuovo<frmControlliMctc>()->Mostra(Modale);
}

void frmSetupO::Chiedi_Password(const QString &password)
{
    Password_Chiedi(frmPwd, password, this, &frmSetupO::frmPwd_PwdReady);
}

void frmSetupO::frmPwd_PwdReady(quint8 &esito)
{
    mPwdEsito = esito;
}

// --- the instrument ---------------------------------------------------------------------------------------

void frmSetupO::Setup_Aggiorna()
{
    for (const qint16 riga : {RigaAlimentazione, RigaCamReset, RigaAltezzaAuto}) {
        chk[Campo(riga).CtlIndex].Enabled(false);
        lbl[riga].Enabled(false);
    }
    for (const qint16 riga : ORDINE_LETTURA)
        Mostra_Valore(riga, Valore_Ini(gFileIni, Campo(riga).Section, Campo(riga).Key));
}

/// Shows a text in place of what the operator may have typed: what the box shows is what a save keeps, which
/// is no more than the first line of a text.
void frmSetupO::Mostra_Valore(qint16 riga, const QString &testo)
{
    CampoForm &campo = Campo(riga);
    txt[campo.CtlIndex].Text(testo);
    campo.Value = txt[campo.CtlIndex].Text();
}

void frmSetupO::Collega_Strumento(ModoScambio modo)
{
    Sessione_Esegui(formComm, modo, this, &frmSetupO::formComm_Notifica);
}

void frmSetupO::formComm_Notifica(qint16 &codice, QVariant &)
{
    try {
        // A session that wrote the operator has read nothing that could be taken over.
        if (codice == SessioneCompletata && formComm->Modo == ModoLeggi)
            Accetta_Strumento();
        if (codice == SessioneFallita) {
            Setup_Aggiorna();
            cbo[Campo(RigaStrumento).CtlIndex].ListIndex(0);
        }
        Eventi_Esegui();
        Aggiorna();
        Eventi_Esegui();
    } catch (const ErroreEsecuzione &errore) {
        Mostra_MsgConferma(QStringLiteral("Notifica sts: %1 %2").arg(codice).arg(errore.Descrizione()));
    }
}

/// One read overwrites the whole local copy of identity and calibration.
void frmSetupO::Accetta_Strumento()
{
    for (const qint16 riga : ORDINE_LETTURA) {
        Mostra_Valore(riga, Testo_Blocco(gDatiStrumento, riga));
        const CampoForm &campo = Campo(riga);
        Scrivi_Ini(gFileIni, campo.Section, campo.Key, campo.Value);
    }
    for (qint16 i = 0; i < static_cast<qint16>(CHIAVI_TARATURA.size()); ++i) {
        Scrivi_Ini(gFileIni, CHIAVI_TARATURA[static_cast<size_t>(i)],
                   Una_Riga(Testo_Blocco(gDatiTaratura, i))); // of more the profile would keep none
    }
}

void frmSetupO::Avvisa(NotificaSetup notifica)
{
    qint16 codice = notifica;
    QVariant valore = qint16{0};
    Q_EMIT Notifica(codice, valore);
}

void frmSetupO::Unload()
{
    Campi_Scarica(*this);
}
