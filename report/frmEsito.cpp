// The result record on the screen: table of cells, colours, what is out of order, alarm and print button. It
// judges nothing anew but the colour of an intensity, by the test of the evaluation.
#include "report/frmEsito.h"

#include "core/codici.h"
#include "core/fari.h"
#include "core/limiti.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "core/veicolo.h"
#include "dialogs/frmMsg.h"
#include "platform/colori.h"
#include "platform/numeri.h"
#include "report/guasti.h"
#include "report/pagina.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/segnale.h"

#include <array>

namespace {

constexpr int INTERVALLO_BEEP = 1000; // ms

enum RigaEsito : qint16
{
    RigaAltezza,
    RigaTipoFaro,
};

constexpr qint16 ULTIMA_RIGA = RigaTipoFaro;
std::array<CampoForm, ULTIMA_RIGA + 1> gCampiEsito;

constexpr qint16 COLONNE = std::size(FARI); // a column a lamp
constexpr qint16 CELLE_MIRA = 2 * COLONNE;
constexpr qint16 CELLE = 3 * COLONNE;

/// Texts of lblPar: four column heads, three row heads.
constexpr TestoMctc TESTI_PAR[] = {
    MctcAnabbaglianteDx,       MctcAnabbaglianteSx,         MctcAbbaglianteDx, MctcAbbaglianteSx,
    MctcOrientamentoVerticale, MctcOrientamentoOrizzontale, MctcIlluminamento,
};
constexpr TestoMctc TESTI_DES[] = {MctcDatiProiettori, MctcEsitoProva};

/// The buttons by index: print stands on the left, exit on the right; the other two have no use and no face.
enum PulsanteEsito : qint16
{
    PulsanteEsci = 0,
    PulsanteStampa = 1,
    PulsanteLibero = 2,
    PulsanteChiudi = 3,
};

// The layout, in design units.
constexpr qint32 CELLA_LARGA = 1300;
constexpr qint32 CELLA_ALTA = 800;
constexpr qint32 MARGINE_TESTA = 60; // of a head on one line: it would run into the next one
constexpr qint32 CELLE_Y = 2370;
constexpr qint32 GUASTI_Y = 5100;
constexpr qint32 GUASTI_ALTI = 4800;
constexpr double PUNTI_VERDETTO = 4.2; // of the normal size
constexpr qint32 PULSANTI_Y = 1500;    // from below
constexpr qint32 VEICOLO_X = 2700;
constexpr qint32 TARGA_LARGA = 3700;
constexpr qint32 PULSANTE_LARGO = 1575;
constexpr qint32 PULSANTE_ALTO = 975;

qint32 Meta_Schermo()
{
    return gScreenW / 2;
}

} // namespace

frmEsito::frmEsito()
    : Modulo(QStringLiteral("frmEsito")),
      lblDes(QStringLiteral("lblDes")),
      lblPar(QStringLiteral("lblPar")),
      lblTab(QStringLiteral("lblTab")),
      lblGuasto(QStringLiteral("lblGuasto")),
      tmrBeep([] { Segnale_Acustico(); })
{
}

frmEsito::~frmEsito() = default;

void frmEsito::Disegno()
{
    Massimizza(); // before there are controls: another kind of window has each of them polished anew
    lblTitolo = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTitolo"));
    lblTitolo->Allineamento(Orizzontale::Centro);
    lblTitolo->FontBold(true);
    lblTitolo->FontSize(Punti_Normali() * PUNTI_VERDETTO);
    txt.Carica(0).Posto(0, 0, ScalaX(4500), ScalaY(600));
    txt[0].FontSize(Punti_Normali() * LETTURA_SCHERMO);
    txt[0].FontBold(true); // the value; its caption is neither as large nor as black
    lbl.Carica(0).Posto(0, 0, ScalaX(3200), ScalaY(300));
    lbl[0].FontSize(Punti_Normali() * LETTURA_SCHERMO);
    lblTipo = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTipo"));
    lblTarga = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblTarga"));
    lblTarga->FontSize(Punti_Normali() * LETTURA_AUTO);
    lblTarga->FontBold(true);
    lblVeicolo = std::make_unique<Etichetta>(Finestra(), QStringLiteral("lblVeicolo"));
    lblVeicolo->FontSize(Punti_Normali() * LETTURA_SCHERMO);
    for (Etichetta *etichetta : {lblTipo.get(), lblTarga.get(), lblVeicolo.get()})
        etichetta->Visible(false);
    for (ArrayControlli<Etichetta> *array : {&lblDes, &lblPar, &lblTab, &lblGuasto})
        array->Inizia(Finestra());
    for (qint16 i = 0; i < static_cast<qint16>(std::size(TESTI_DES)); ++i) {
        lblDes.Carica(i).FontBold(true);
        lblDes[i].FontSize(Punti_Normali() * LETTURA_SCHERMO);
        lblDes[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    }
    for (qint16 i = 0; i < static_cast<qint16>(std::size(TESTI_PAR)); ++i) {
        lblPar.Carica(i).Visible(true);
        lblPar[i].Allineamento(i < COLONNE ? Orizzontale::Centro : Orizzontale::Destra);
        lblPar[i].FontSize(Punti_Normali() * (i < COLONNE ? LETTURA_AUTO : LETTURA_SCHERMO));
    }
    for (qint16 i = 0; i < CELLE; ++i) {
        lblTab.Carica(i).Allineamento(Orizzontale::Centro);
        lblTab[i].FontSize(Punti_Normali() * LETTURA_AUTO);
        lblTab[i].FontBold(true);
        lblTab[i].Visible(true);
    }
    for (qint16 i = PulsanteEsci; i <= PulsanteChiudi; ++i)
        cmd.Carica(i).FontSize(Punti_Normali() * LETTURA_SCHERMO);
}

void frmEsito::Load()
{
    Campi_Azzera(gCampiEsito, ULTIMA_RIGA);
    Disponi_Pulsanti();
    Mostra_Verdetto();
    Campi_Imposta();
    Campi_Crea(gCampiEsito, ULTIMA_RIGA, *this);
    for (qint16 i = 0; i <= ULTIMA_RIGA; ++i)
        lbl[i].Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    Campi_Applica(gCampiEsito, ULTIMA_RIGA, *this);
    Riempi();
    cmd[PulsanteStampa].SetFocus();
}

void frmEsito::Disponi_Pulsanti()
{
    const qint32 cima = gScreenH - ScalaY(PULSANTI_Y);
    const qint32 posti[] = {gScreenW - ScalaX(2500), ScalaX(500), ScalaX(2500), gScreenW - ScalaX(4500)};
    for (qint16 i = PulsanteEsci; i <= PulsanteChiudi; ++i)
        cmd[i].Posto(posti[i], cima, ScalaX(PULSANTE_LARGO), ScalaY(PULSANTE_ALTO));
    cmd[PulsanteEsci].Caption(Testo_Mctc(MctcEsci));
    cmd[PulsanteEsci].Visible(true);
    cmd[PulsanteEsci].Cancel(true);
    cmd[PulsanteStampa].Caption(Testo_Mctc(MctcStampa));
    cmd[PulsanteStampa].Visible(true);
    cmd[PulsanteChiudi].Enabled(false);
}

void frmEsito::Mostra_Verdetto()
{
    const bool regolare = Riga_Regolare(FarEsito);
    lblTitolo->Posto(ScalaX(300), ScalaY(200), gScreenW - 2 * ScalaX(300), ScalaY(1000));
    lblTitolo->BackColor(regolare ? COLORE_VERDE : COLORE_ROSSO);
    lblTitolo->Caption(Testo_Mctc(regolare ? MctcEsitoRegolare : MctcEsitoIrregolare));
    Caption(lblTitolo->Caption());
}

void frmEsito::Campi_Imposta()
{
    constexpr TestoMctc ETICHETTE[] = {MctcAltezzaFaro, MctcTipoAsimmetrico};
    for (size_t i = 0; i < std::size(ETICHETTE); ++i) {
        CampoForm &campo = gCampiEsito[i];
        campo.LabelId = ETICHETTE[i];
        campo.Kind = CampoTesto;
        campo.Editable = Falso;
        campo.CtlLeft = ScalaX_16(500);
        campo.CtlTop = ScalaY_16(2500 + static_cast<qint32>(i) * 1000);
        campo.LabelLeft = campo.CtlLeft;
        campo.LabelTop = Intero16(campo.CtlTop - ScalaY(300));
    }
}

void frmEsito::Riempi()
{
    const bool simmetrico = Far_Valore(FarTipoAnab) == FAR_SIMMETRICO;
    txt[RigaAltezza].Text(Numero_Testo(gAltezzaFaro));
    txt[RigaTipoFaro].Text(Testo_Mctc(simmetrico ? MctcTipoSimmetrico : MctcTipoAsimmetrico));
    lblDes[0].Posto(ScalaX(500), ScalaY(1500), ScalaX(4000), ScalaY(550));
    lblDes[0].Caption(Testo_Mctc(TESTI_DES[0]));
    lblDes[0].Visible(true);
    if (!Riga_Regolare(FarEsito) && gAllarmeAcustico) {
        tmrBeep.Interval(INTERVALLO_BEEP);
        tmrBeep.Enabled(true);
    }
    Intestazioni_Tabella();
    Celle_Mira();
    Celle_Intensita();
    Pareggia_Scritte();
    Mostra_Tipo(simmetrico);
    Mostra_Veicolo();
    Mostra_Guasti();
}

/// What stands in a row is read as a row.
void frmEsito::Pareggia_Scritte()
{
    const auto gruppo = [](const ArrayControlli<Etichetta> &array, qint16 primo, qint16 quanti) {
        std::vector<Etichetta *> etichette;
        for (qint16 i = primo; i < primo + quanti; ++i)
            etichette.push_back(&array[i]);
        return etichette;
    };
    Pareggia(gruppo(lblPar, 0, COLONNE));
    Pareggia(gruppo(lblPar, COLONNE, 3));
    Pareggia(gruppo(lblTab, 0, CELLE_MIRA));
    Pareggia(gruppo(lblTab, CELLE_MIRA, COLONNE));
    Pareggia(gruppo(lbl, 0, ULTIMA_RIGA + 1));
}

/// The caption of the type names one of the two types: the word behind it answers it, so that nobody takes it
/// for the value below.
void frmEsito::Mostra_Tipo(bool simmetrico)
{
    Etichetta &voce = lbl[RigaTipoFaro];
    voce.Width(Larghezza_Scritta(voce) + Twip_DaPixel(2)); // the word stands right behind its last letter
    lblTipo->FontSize(lbl[0].FontSize());
    lblTipo->Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    lblTipo->FontBold(true);
    lblTipo->Posto(voce.Left() + voce.Width(), voce.Top(), ScalaX(1200), voce.Height());
    lblTipo->Caption(QStringLiteral(": ") + Testo_Mctc(simmetrico ? MctcNo : MctcSi));
    lblTipo->Visible(true);
}

/// Between the buttons.
void frmEsito::Mostra_Veicolo()
{
    const bool scelto = !gFileAcc.isEmpty() && !gVeicolo.Targa.isEmpty();
    const qint32 cima = gScreenH - ScalaY(PULSANTI_Y);
    const qint32 destra = ScalaX(VEICOLO_X + TARGA_LARGA);
    lblTarga->Posto(ScalaX(VEICOLO_X), cima, ScalaX(TARGA_LARGA), ScalaY(PULSANTE_ALTO));
    lblTarga->Caption(gVeicolo.Targa);
    lblTarga->Visible(scelto);
    lblVeicolo->Posto(destra, cima, gScreenW - ScalaX(VEICOLO_X) - destra, ScalaY(PULSANTE_ALTO));
    Mostra_Accorciata(*lblVeicolo, gVeicolo.Descrizione);
    lblVeicolo->Visible(scelto);
}

/// The free part of the screen, shared out among the lamps: the fewer they are, the larger they are told.
void frmEsito::Mostra_Guasti()
{
    const QStringList guasti = Guasti_Elenca();
    std::vector<Etichetta *> etichette;
    const auto quanti = static_cast<qint16>(guasti.size());
    for (qint16 i = 0; i < quanti; ++i) {
        const qint32 altezza = ScalaY(GUASTI_ALTI) / quanti;
        Etichetta &etichetta = lblGuasto.Carica(i);
        etichetta.FontSize(Punti_Normali() * LETTURA_AUTO);
        etichetta.Posto(ScalaX(500), ScalaY(GUASTI_Y) + i * altezza, gScreenW - 2 * ScalaX(500), altezza);
        etichetta.Caption(guasti[i]);
        etichetta.Visible(true);
        etichette.push_back(&etichetta);
    }
    Pareggia(etichette);
}

void frmEsito::Intestazioni_Tabella()
{
    lblDes[1].Posto(Meta_Schermo() + ScalaX(300), ScalaY(1450), ScalaX(4000), ScalaY(340));
    lblDes[1].Caption(Testo_Mctc(TESTI_DES[1]));
    lblDes[1].Visible(true);
    // Other languages than the Italian need two lines for a column head.
    const bool unaRiga = gLingua == u"IT";
    const qint32 cima = unaRiga ? 2000 : 1800;
    for (qint16 i = 0; i < static_cast<qint16>(std::size(TESTI_PAR)); ++i) {
        if (i < COLONNE) {
            lblPar[i].Posto(Meta_Schermo() + i * ScalaX(CELLA_LARGA), ScalaY(cima), ScalaX(CELLA_LARGA),
                            ScalaY(CELLE_Y - cima - 20));
            lblPar[i].Margini(0, unaRiga ? ScalaX(MARGINE_TESTA) : 0);
        } else {
            const qint32 larghezza = ScalaX(2200);
            lblPar[i].Posto(Meta_Schermo() - larghezza - ScalaX(150),
                            ScalaY((i - COLONNE) * CELLA_ALTA + CELLE_Y), larghezza, ScalaY(CELLA_ALTA));
        }
        lblPar[i].Caption(Testo_Mctc(TESTI_PAR[i]));
    }
    for (qint16 i = 0; i < CELLE; ++i) {
        lblTab[i].Posto(Meta_Schermo() + i % COLONNE * ScalaX(CELLA_LARGA),
                        ScalaY(CELLE_Y + i / COLONNE * CELLA_ALTA), ScalaX(CELLA_LARGA), ScalaY(CELLA_ALTA));
    }
}

void frmEsito::Celle_Mira()
{
    for (qint16 i = 0; i < CELLE_MIRA; ++i) {
        const RigheFaro &faro = FARI[i % COLONNE];
        const bool regolare = Riga_Regolare(i < COLONNE ? faro.vert : faro.orizz);
        Colora_Cella(i, regolare);
        lblTab[i].Caption(regolare ? QStringLiteral("SI") : QStringLiteral("NO"));
    }
}

void frmEsito::Celle_Intensita()
{
    for (qint16 i = CELLE_MIRA; i < CELLE; ++i) {
        const RigheFaro &faro = FARI[i % COLONNE];
        const QString lux = Far_Valore(faro.lux);
        if (lux.isEmpty()) {
            lblTab[i].Cella(COLORE_BIANCO, COLORE_NERO);
            lblTab[i].Caption(QStringLiteral(" -"));
            continue;
        }
        const float valore = Numero_Singolo(lux);
        Colora_Cella(i, Lux_Regolare(valore, faro.fascio));
        lblTab[i].Caption(Numero_Testo(valore / 1000));
    }
}

void frmEsito::Colora_Cella(qint16 cella, bool regolare)
{
    // The border of what is out of order stands out: an intensity has no word for it.
    lblTab[cella].Cella(regolare ? COLORE_VERDE : COLORE_ROSSO, COLORE_NERO, !regolare);
}

void frmEsito::Paint()
{
    Disegna_Cornice(*this, ScalaX(200), ScalaY(100), gScreenW - ScalaX(200), ScalaY(1300));
    Disegna_Cornice(*this, ScalaX(200), ScalaY(1400), Meta_Schermo() - ScalaX(2600), ScalaY(5000));
    Disegna_Cornice(*this, Meta_Schermo() - ScalaX(2500), ScalaY(1400), gScreenW - ScalaX(200), ScalaY(5000));
}

void frmEsito::cmd_Click(qint16 Index)
{
    switch (Index) {
    case PulsanteEsci: {
        qint16 codice = EsitoChiuso;
        QVariant valore = 0;
        Q_EMIT Notifica(codice, valore);
        Scarica();
        break;
    }
    case PulsanteStampa:
        Stampa();
        break;
    case PulsanteChiudi:
        Scarica();
        break;
    default:
        break;
    }
}

void frmEsito::Stampa()
{
    Report_Dati(2);
    Report_Dati(3);
    const Clessidra clessidra;
    const Flag stampato = Report_Invia();
    if (!stampato)
        Mostra_MsgTempo(Testo_Lingua(LinguaNessunaStampante));
}

void frmEsito::Unload()
{
    tmrBeep.Enabled(false);
    Campi_Scarica(*this);
}
