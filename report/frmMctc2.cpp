// The rows of the vehicle from either source, the lamp's rows and pictures, the confirmation. It knows no
// session.
#include "report/frmMctc2.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/sezioni_acc.h"
#include "dialogs/frmMsg.h"
#include "platform/numeri.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"

#include <array>

namespace {

constexpr qint16 RIGHE_VEICOLO = 12;

/// The rows that are named: the plate, and those behind the vehicle's.
enum RigaEntrata : qint16
{
    RigaTarga = 3,
    RigaAltezza = RIGHE_VEICOLO,
    RigaInclinazione,
    RigaSimmetrico,
    RigaVuota, ///< stays as Campi_Azzera leaves it
};

constexpr qint16 ULTIMA_RIGA = RigaVuota;

constexpr qsizetype CIFRE_ALTEZZA = 3;

std::array<CampoForm, ULTIMA_RIGA + 1> gCampiVeicolo;

/// A row of the vehicle: where it comes from with an acceptance file, and in section VEICOLO without one.
struct RigaVeicolo
{
    TestoMctc etichetta;
    QStringView sezioneAcc;
    const char16_t *chiaveAcc;
    ChiaveIni chiaveIni;
};

constexpr RigaVeicolo VEICOLO[RIGHE_VEICOLO] = {
    {MctcFabbricaMarca,        SEZIONE_LIBRETTO,     u"Fabbrica",             ChiaveVeicoloMarca       },
    {MctcTipo,                 SEZIONE_LIBRETTO,     u"Tipo",                 ChiaveVeicoloModello     },
    {MctcMotoreAllestimento,   SEZIONE_LIBRETTO,     u"TipoMotore",           ChiaveVeicoloAllestimento},
    {MctcTarga,                SEZIONE_LIBRETTO,     u"Targa",                ChiaveVeicoloTarga       },
    {MctcTelaio,               SEZIONE_LIBRETTO,     u"Telaio",               ChiaveVeicoloTelaio      },
    {MctcAnnoImmatricolazione, SEZIONE_LIBRETTO,     u"AnnoPrimaImm",         ChiaveVeicoloAnno        },
    {MctcNomeCliente,          SEZIONE_PRENOTAZIONE, u"CognomeDenominazione", ChiaveClienteNome        },
    {MctcIndirizzo,            SEZIONE_PRENOTAZIONE, u"Indirizzo",            ChiaveClienteIndirizzo   },
    {MctcCitta,                SEZIONE_PRENOTAZIONE, u"Citta",                ChiaveClienteCitta       },
    {MctcTelefonoFax,          SEZIONE_PRENOTAZIONE, u"Telefono",             ChiaveClienteTelefono    },
    {MctcOperatore,            SEZIONE_PRENOTAZIONE, u"Operatore",            ChiaveOperatore          },
    {MctcNote,                 SEZIONE_PRENOTAZIONE, u"Note",                 ChiaveVeicoloNote        },
};

struct RigaFaro
{
    TestoMctc etichetta;
    quint8 controllo;
    ChiaveIni chiave;
};

constexpr RigaFaro FARO[] = {
    {MctcAltezzaFaro,    CampoTesto,  ChiaveAltezzaFaro     },
    {MctcInclinazione,   CampoTesto,  ChiaveInclinazioneFaro},
    {MctcFariSimmetrici, CampoSpunta, ChiaveSimmetrico      },
};

// The layout, in design units. Each column of six rows stands in three lines of two boxes above its frame;
// the label stands on its box.
constexpr qint32 COLONNE_X[] = {100, 7500};
constexpr qint32 RIGA_0_Y = 400;
constexpr qint32 PASSO_Y = 620;
constexpr qint32 SECONDA_X = 4300; // second box of a line, from the column's left
constexpr qint32 SECONDA_LARGA[] = {2600, 3200};
constexpr qint32 CASELLA_ALTA = 330;
constexpr qint32 ETICHETTA_ALTA = 215;
constexpr qint32 FARO_X = 350;
constexpr qint32 FARO_PASSO = 2200;
constexpr qint32 FARO_Y = 2950;
constexpr qint32 FARO_ALTO = 450;
constexpr qint32 FARO_ETICHETTA_LARGA = 2000; // twips: it does not grow with the screen
constexpr qint32 FARO_ETICHETTA_ALTA = 430;
constexpr qint32 TARGA_Y = 4600;
constexpr qint32 TARGA_ALTA = 1080;

// Type, in times of the normal size.
constexpr double PUNTI_ETICHETTA = 0.9; // three lines of labels and boxes share a height that is given

/// The rows of the vehicle come from the acceptance file and are not to be changed.
bool Da_Accettazione()
{
    return gIniFile && gTipoProva == ProvaScelta;
}

void Riga_Veicolo(CampoForm &campo, const RigaVeicolo &riga, bool accettazione)
{
    campo.LabelId = riga.etichetta;
    campo.Kind = CampoTesto;
    if (!accettazione) {
        Campo_Chiave(campo, riga.chiaveIni);
        return;
    }
    campo.File = gFileAcc;
    campo.Section = riga.sezioneAcc.toString();
    campo.Key = QString::fromUtf16(riga.chiaveAcc);
    campo.Editable = Falso;
}

void Riga_Faro(CampoForm &campo, const RigaFaro &riga)
{
    campo.LabelId = riga.etichetta;
    campo.Kind = riga.controllo;
    Campo_Chiave(campo, riga.chiave);
}

void Riga_Bloccata(CampoForm &campo)
{
    campo.Editable = Falso;
    campo.LabelEnabledByEditable = 1;
}

/// A missing or odd value must not stop the load: it counts as not symmetric.
qint16 Simmetrico_Memorizzato()
{
    return Numero_Pezzo(Valore_Ini(gFileIni, ChiaveSimmetrico));
}

bool Altezza_Valida(const QString &testo)
{
    return testo.size() <= CIFRE_ALTEZZA && Numero_Valido(testo);
}

} // namespace

frmMctc2::frmMctc2() : Modulo(QStringLiteral("frmMctc2")) {}

void frmMctc2::Disegno()
{
    Massimizza();
    lbl.Carica(0).Posto(0, 0, ScalaX(2000), ETICHETTA_ALTA);
    lbl[0].FontSize(Punti_Normali() * PUNTI_ETICHETTA);
    txt.Carica(0).Posto(0, 0, ScalaX(2000), ScalaY(CASELLA_ALTA));
    txt[0].FontSize(Punti_Normali() * LETTURA_TASTIERA);
    chk.Carica(0).Posto(0, 0, ScalaX(500), ScalaY(FARO_ALTO));
    picSim = std::make_unique<Immagine>(Finestra(), QStringLiteral("picSim"));
    lblFaro = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblFaro"));
    lblTarga = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTarga"));
    lblMotivo = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblMotivo"));
    for (qint16 i = 0; i <= 2; ++i)
        cmd.Carica(i).Visible(true);
}

void frmMctc2::Load()
{
    Caption(Testo_Mctc(MctcProvaProiettori));
    Campi_Azzera(gCampiVeicolo, ULTIMA_RIGA);
    Campi_Imposta();
    Campi_Crea(gCampiVeicolo, ULTIMA_RIGA, *this);
    for (const qint16 riga : {RigaAltezza, RigaInclinazione, RigaSimmetrico}) {
        lbl[riga].Width(FARO_ETICHETTA_LARGA);
        lbl[riga].Height(FARO_ETICHETTA_ALTA);
        // One line or two, it stands on its box.
        lbl[riga].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    }
    Campi_Applica(gCampiVeicolo, ULTIMA_RIGA, *this);
    Azzera_Inclinazione();
    // Heights by the horizontal factor: on a wide screen the labels grow with the type.
    for (qint16 i = 0; i <= lbl.UBound(); ++i)
        lbl[i].Height(ScalaX(lbl[i].Height()));
    cmd[0].SetFocus();
}

void frmMctc2::Campi_Imposta()
{
    gCaricamento = Vero;
    const bool accettazione = Da_Accettazione();
    for (size_t i = 0; i < RIGHE_VEICOLO; ++i)
        Riga_Veicolo(gCampiVeicolo[i], VEICOLO[i], accettazione);
    for (size_t i = 0; i < std::size(FARO); ++i)
        Riga_Faro(gCampiVeicolo[RigaAltezza + i], FARO[i]);
    if (gAltezzaFaroAuto)
        Riga_Bloccata(gCampiVeicolo[RigaAltezza]);
    if (gTipoProva == ProvaRiservata1)
        Riga_Bloccata(gCampiVeicolo[RigaInclinazione]);
    gCampiVeicolo[RigaSimmetrico].ListIndexDefault = Simmetrico_Memorizzato();
    Disponi_Righe();
    Disponi_Pulsanti();
    Mostra_Faro(gCampiVeicolo[RigaSimmetrico].ListIndexDefault == 1);
    gCaricamento = Falso;
}

void frmMctc2::Disponi_Righe()
{
    const auto etichetta_sopra = [](CampoForm &campo, qint32 alta) {
        campo.LabelLeft = campo.CtlLeft;
        campo.LabelTop = Intero16(campo.CtlTop - ScalaX(alta));
    };
    for (size_t i = 0; i < RIGHE_VEICOLO; ++i) {
        CampoForm &campo = gCampiVeicolo[i];
        const size_t colonna = i / 6;
        const bool seconda = i % 2 == 1;
        campo.CtlLeft = ScalaX_16(COLONNE_X[colonna] + (seconda ? SECONDA_X : 0));
        campo.CtlTop = ScalaY_16(RIGA_0_Y + static_cast<qint32>(i % 6 / 2) * PASSO_Y);
        campo.CtlWidth = seconda ? ScalaX_16(SECONDA_LARGA[colonna]) : ScalaY_16(4000);
        etichetta_sopra(campo, ETICHETTA_ALTA);
    }
    for (size_t i = 0; i < std::size(FARO); ++i) {
        CampoForm &campo = gCampiVeicolo[RigaAltezza + i];
        campo.CtlLeft = ScalaX_16(FARO_X + static_cast<qint32>(i) * FARO_PASSO);
        campo.CtlTop = ScalaY_16(FARO_Y);
        campo.CtlWidth = ScalaX_16(1500);
        etichetta_sopra(campo, FARO_ETICHETTA_ALTA);
    }
    Disponi_Targa();
    picSim->Posto(ScalaX(2680), ScalaY(5700), ScalaX(10000), ScalaY(3900));
    lblFaro->Posto(ScalaX(7700), ScalaY(2200), ScalaX(7100), ScalaY(2100));
    lblFaro->FontSize(Punti_Normali() * 2);
    lblFaro->Allineamento(Orizzontale::Centro);
}

/// One place for both: without a vehicle to choose there is no plate, and the reason stands there.
void frmMctc2::Disponi_Targa()
{
    for (Etichetta *etichetta : {lblTarga.get(), lblMotivo.get()}) {
        etichetta->Posto(ScalaX(100), ScalaY(TARGA_Y), gScreenW - 2 * ScalaX(100), ScalaY(TARGA_ALTA));
        etichetta->Allineamento(Orizzontale::Centro);
        etichetta->FontBold(true);
    }
    lblTarga->FontSize(Punti_Normali() * LETTURA_AUTO);
    lblTarga->Visible(Motivo.isEmpty());
    lblMotivo->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lblMotivo->Caption(Motivo);
    lblMotivo->Visible(!Motivo.isEmpty());
}

void frmMctc2::Disponi_Pulsanti()
{
    const qint32 cima = gScreenH - ScalaY(1500);
    const qint32 larghezza = ScalaX(2600);
    cmd[0].Caption(Testo_Mctc(MctcAvvia));
    cmd[0].Posto(gScreenW - ScalaX(500) - larghezza, cima, larghezza, ScalaY(975));
    cmd[1].Caption(Testo_Mctc(MctcIndietro));
    cmd[1].Posto(0, 0, 0, 0); // collapsed: it has a caption and no action
    cmd[1].Visible(false);
    cmd[2].Caption(Testo_Mctc(MctcEsci));
    cmd[2].Posto(ScalaX(500), cima, larghezza, ScalaY(975));
    cmd[2].Cancel(true);
    cmd[0].Default(true);
    for (qint16 i = 0; i <= 2; ++i) {
        cmd[i].FontSize(Punti_Normali() * LETTURA_SCHERMO);
        if (gScreenW == 12000) { // the smallest screen, 800 pixels
            cmd[i].Width(1000);
            cmd[i].FontSize(ScalaX(14));
        }
    }
}

void frmMctc2::Mostra_Faro(bool simmetrico)
{
    picSim->Picture(gDirImmagini + (simmetrico ? QStringLiteral("faro1.jpg") : QStringLiteral("faro0.jpg")));
    lblFaro->Caption(Testo_Mctc(simmetrico ? MctcTipoSimmetrico : MctcTipoAsimmetrico));
    picSim->NomeAccessibile(lblFaro->Caption());
}

/// The inclination is never carried over from the vehicle before; the height is.
void frmMctc2::Azzera_Inclinazione()
{
    const CampoForm &campo = gCampiVeicolo[RigaInclinazione];
    txt[campo.CtlIndex].Text(QString());
    Scrivi_Ini(gFileIni, campo.Section, campo.Key, QString());
}

void frmMctc2::Paint()
{
    Disegna_Cornice(*this, ScalaX(100), ScalaY(2000), ScalaX(7000), ScalaY(4500));
    Disegna_Cornice(*this, ScalaX(7500), ScalaY(2000), ScalaX(15000), ScalaY(4500));
}

void frmMctc2::txt_KeyPress(qint16 Index, qint16 &KeyAscii)
{
    if (!gCampiVeicolo[static_cast<size_t>(Riga_Di(txt[Index]))].Editable)
        KeyAscii = 0;
}

/// The plate follows its box, also while it is typed.
void frmMctc2::txt_Change(qint16 Index)
{
    if (Riga_Di(txt[Index]) == RigaTarga)
        lblTarga->Caption(txt[Index].Text());
}

void frmMctc2::txt_Validate(qint16 Index, bool &Cancel)
{
    const qint16 riga = Riga_Di(txt[Index]);
    const QString testo = txt[Index].Text();
    if (riga == RigaAltezza && !Altezza_Valida(testo)) {
        Mostra_MsgTempo(Testo_Mctc(MctcCampoErrato));
        Cancel = true;
        return;
    }
    CampoForm &campo = gCampiVeicolo[static_cast<size_t>(riga)];
    campo.Dirty = Vero;
    campo.Value = testo;
}

void frmMctc2::chk_Click(qint16 Index)
{
    if (gCaricamento) {
        gCaricamento = Falso;
        return;
    }
    const qint16 riga = Riga_Di(chk[Index]);
    CampoForm &campo = gCampiVeicolo[static_cast<size_t>(riga)];
    campo.Value = QString::number(chk[Index].Value());
    campo.Dirty = Vero;
    if (riga == RigaSimmetrico)
        Mostra_Faro(chk[Index].Value() == 1);
}

void frmMctc2::cmd_Click(qint16 Index)
{
    if (Index == 0)
        Conferma();
    else if (Index == 2)
        Scarica();
}

void frmMctc2::Conferma()
{
    Campi_Salva(gCampiVeicolo, ULTIMA_RIGA);
    const CampoForm &altezza = gCampiVeicolo[RigaAltezza];
    gAltezzaFaro =
        Numero_Doppio(altezza.Dirty ? altezza.Value : Valore_Ini(gFileIni, altezza.Section, altezza.Key));
    qint16 codice = VeicoloConfermato;
    QVariant valore = qint16{ProvaConfermata};
    Q_EMIT Notifica(codice, valore);
    Scarica();
}

void frmMctc2::Unload()
{
    Campi_Scarica(*this);
}
