// The rows and columns of the page as numbers of its geometry. It knows no printer and reads no file.
#include "report/pagina.h"

#include "core/codici.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "platform/colori.h"
#include "platform/errore_esecuzione.h"
#include "report/modPrn.h"

namespace {

struct Carattere
{
    const char16_t *nome;
    qint16 punti;
    Flag grassetto;
};

constexpr Carattere OFFICINA_PRIMA = {u"Arial", 10, Vero};
constexpr Carattere OFFICINA_ALTRE = {u"Arial", 10, Falso};
constexpr Carattere TITOLO = {u"Arial Black", 16, Falso};
constexpr Carattere TITOLO_BLOCCO = {u"Courier New", 12, Vero};
constexpr Carattere ETICHETTA = {u"Courier New", 10, Falso};
constexpr Carattere VALORE = {u"Courier New", 10, Vero};
constexpr Carattere SEGNO = {u"Courier New", 18, Vero};

constexpr qint32 DOPO_ETICHETTA = 100; // twips between a label and its value
constexpr qint32 SEGNO_SU = 130;       // a mark stands that much above the foot of its row
constexpr qint16 SPESSORE_CORNICE = 2;

/// A tick table: its base row, heading, measured values and the result rows that its marks follow.
struct TabellaSpunte
{
    qint32 base;
    RigaTitoli titolo;
    RigaMisure luxDx, luxSx;
    RigaFar segni[6]; // vertical, horizontal, intensity; right before left
};

constexpr TabellaSpunte ANABBAGLIANTI = {
    20,
    RepTitoloAnab,
    RepLuxAnabDx,
    RepLuxAnabSx,
    {FarVertAnabDx, FarVertAnabSx, FarOrizzAnabDx, FarOrizzAnabSx, FarEsitoIllumLuxAnabDx,
      FarEsitoIllumLuxAnabSx},
};
constexpr TabellaSpunte ABBAGLIANTI = {
    32,
    RepTitoloAbb,
    RepLuxAbbDx,
    RepLuxAbbSx,
    {FarVertAbbDx, FarVertAbbSx, FarOrizzAbbDx, FarOrizzAbbSx, FarEsitoIllumLuxAbbDx, FarEsitoIllumLuxAbbSx},
};

/// The rows of a tick table, by their captions.
constexpr RigaVoci RIGHE_SPUNTE[] = {RepVoceVert, RepVoceOrizz, RepVoceLux};

/// The geometry of a page.
struct Geometria
{
    qint16 W, MX, MY, RH, CX, X0, X1, X2;

    Geometria(qint16 larghezza, qint16 altezza)
        : W(larghezza),
          MX(Intero16(larghezza / 20)),
          MY(Intero16(altezza / 20)),
          RH(Intero16(altezza / 65)),
          CX(Intero16(larghezza / 2)),
          X0(Intero16(larghezza - 5 * MX))
    {
        const double terzo = 4 * MX / 3.0;
        X1 = Intero16(Arrotonda(X0 + terzo));
        X2 = Intero16(Arrotonda(X0 + 2 * terzo));
    }
    /// Foot of a row.
    qint16 Y(qint32 riga) const { return Intero16(qint32{riga} * RH + MY); }
};

void Scrivi(qint32 x, qint32 y, qint16 allineamento, const Carattere &carattere, const QString &testo)
{
    Prn_Testo(Intero16(x), Intero16(y), allineamento, PRN_SOPRA, COLORE_NERO, carattere.grassetto,
              carattere.punti, QString::fromUtf16(carattere.nome), testo);
}

qint16 Larghezza(const Carattere &carattere, const QString &testo)
{
    qint16 altezza = 0;
    qint16 larghezza = 0;
    Prn_MisuraTesto(altezza, larghezza, carattere.grassetto, carattere.punti,
                    QString::fromUtf16(carattere.nome), testo);
    return larghezza;
}

/// A label with its colon, and the value behind it.
void Scrivi_Voce(qint32 x, qint32 y, const QString &etichetta, const QString &valore)
{
    const QString didascalia = etichetta + u':';
    Scrivi(x, y, PRN_SINISTRA, ETICHETTA, didascalia);
    Scrivi(x + Larghezza(ETICHETTA, didascalia) + DOPO_ETICHETTA, y, PRN_SINISTRA, VALORE, valore);
}

/// The frame of the heading. Its lower edge leaves out the top margin: the page title stands below it.
void Cornice(const Geometria &g)
{
    const qint16 fondo = Intero16(qint64{9} * g.RH);
    const qint16 destra = Intero16(g.W - g.MX);
    const auto lato = [](qint16 x1, qint16 y1, qint16 x2, qint16 y2) {
        Prn_Linea(x1, y1, x2, y2, COLORE_NERO, SPESSORE_CORNICE, 0);
    };
    lato(g.MX, g.MY, destra, g.MY);
    lato(g.MX, g.MY, g.MX, fondo);
    lato(g.MX, fondo, destra, fondo);
    lato(destra, g.MY, destra, fondo);
}

void Officina(const Geometria &g)
{
    for (size_t i = 0; i < gRepOfficina.size(); ++i) {
        const auto riga = static_cast<qint32>(i + 1);
        Scrivi(g.CX, g.MY + 50 + riga * g.RH, PRN_CENTRO, i == 0 ? OFFICINA_PRIMA : OFFICINA_ALTRE,
               gRepOfficina[i]);
    }
}

void Blocco(const Geometria &g, qint16 x, const BloccoReport &etichette, const BloccoReport &valori)
{
    for (size_t i = 0; i < etichette.size(); ++i)
        Scrivi_Voce(x, g.Y(13 + static_cast<qint32>(i)), etichette[i], valori[i]);
}

/// One lamp's line of a row: its measured value where there is one, its name, and the two empty boxes.
void Riga_Faro(const Geometria &g, qint32 riga, TestoMctc faro, bool conLux, RigaMisure lux)
{
    const qint16 y = g.Y(riga);
    if (conLux)
        Scrivi(g.CX, y, PRN_DESTRA, VALORE, gRepMisure[lux]);
    Scrivi(g.X0, y, PRN_CENTRO, ETICHETTA, Testo_Mctc(faro));
    Scrivi(g.X1, y, PRN_CENTRO, ETICHETTA, QStringLiteral("[ ]"));
    Scrivi(g.X2, y, PRN_CENTRO, ETICHETTA, QStringLiteral("[ ]"));
}

/// The marks stand in the boxes of a test that was run; a form to fill in by hand keeps them blank.
void Segni(const Geometria &g, const TabellaSpunte &tabella)
{
    if (gTipoProva != ProvaScelta && gTipoProva != ProvaConfermata)
        return;
    for (qint32 i = 0; i < static_cast<qint32>(std::size(tabella.segni)); ++i) {
        // One row below the box it falls on; a lamp's two lines follow each other, a row of the table is
        // three.
        const qint32 riga = tabella.base + 3 + i / 2 * 3 + i % 2;
        const bool regolare = Riga_Regolare(tabella.segni[i]);
        Scrivi(regolare ? g.X1 : g.X2, g.Y(riga) - SEGNO_SU, PRN_CENTRO, SEGNO, QStringLiteral("*"));
    }
}

void Tabella(const Geometria &g, const TabellaSpunte &tabella)
{
    Scrivi(g.MX, g.Y(tabella.base), PRN_SINISTRA, TITOLO_BLOCCO, gRepTitoli[tabella.titolo]);
    Scrivi(g.X1, g.Y(tabella.base + 1), PRN_CENTRO, VALORE, gRepVoci[RepVoceRegolare]);
    Scrivi(g.X2, g.Y(tabella.base + 1), PRN_CENTRO, VALORE, gRepVoci[RepVoceIrregolare]);
    qint32 riga = tabella.base + 2;
    for (const RigaVoci voce : RIGHE_SPUNTE) {
        const bool conLux = gTipoProva != ProvaScelta && voce == RepVoceLux;
        Scrivi(g.MX, g.Y(riga), PRN_SINISTRA, ETICHETTA, gRepVoci[voce]);
        Riga_Faro(g, riga, MctcDestro, conLux, tabella.luxDx);
        Riga_Faro(g, riga + 1, MctcSinistro, conLux, tabella.luxSx);
        riga += 3;
    }
    Segni(g, tabella);
}

void Piede(const Geometria &g)
{
    const qint16 y = g.Y(47);
    Scrivi_Voce(g.MX, y, gRepVoci[RepVoceData], gRepMisure[RepData]);

    const QString inizio = gRepVoci[RepVoceInizio] + u':';
    const qint16 valoreInizio = Larghezza(VALORE, gRepMisure[RepInizio]);
    const qint16 etichettaInizio = Larghezza(ETICHETTA, inizio);
    const double sinistra = g.CX - (valoreInizio + etichettaInizio) / 2.0;
    Scrivi(Arrotonda(sinistra), y, PRN_SINISTRA, ETICHETTA, inizio);
    Scrivi(Arrotonda(sinistra + etichettaInizio + DOPO_ETICHETTA), y, PRN_SINISTRA, VALORE,
           gRepMisure[RepInizio]);

    const qint32 larghezzaFine = Larghezza(ETICHETTA, gRepVoci[RepVoceFine] + u':') +
                                 Larghezza(VALORE, gRepMisure[RepFine]) + DOPO_ETICHETTA;
    Scrivi_Voce(g.W - g.MX - larghezzaFine, y, gRepVoci[RepVoceFine], gRepMisure[RepFine]);

    Scrivi_Voce(g.MX, g.Y(49), gRepVoci[RepVoceOperatore], gRepMisure[RepOperatore]);
    // Nothing after it: the space is for the pen.
    Scrivi(g.CX, g.Y(49), PRN_SINISTRA, ETICHETTA, gRepVoci[RepVoceFirma] + u':');
}

/// Runs a step of the print job; an error of it is passed over. @return true when it went well.
template <typename P>
bool Passo(P passo)
{
    try {
        passo();
        return true;
    } catch (const ErroreEsecuzione &) {
        return false;
    }
}

} // namespace

void Report_Stampa(qint16 &larghezza, qint16 &altezza)
{
    altezza = Intero16(qint32{altezza} * 10 / 10);
    larghezza = Intero16(qint32{larghezza} * 197 / 200);
    const Geometria g(larghezza, altezza);
    Cornice(g);
    Officina(g);
    Scrivi(g.CX, g.Y(9), PRN_CENTRO, TITOLO, gRepTitoli[RepTitoloPagina]);
    Scrivi(g.MX, g.Y(11), PRN_SINISTRA, TITOLO_BLOCCO, gRepTitoli[RepTitoloStrumento]);
    Scrivi(g.CX, g.Y(11), PRN_SINISTRA, TITOLO_BLOCCO, gRepTitoli[RepTitoloVeicolo]);
    Blocco(g, g.MX, gRepStrumentoEt, gRepStrumentoVal);
    Blocco(g, g.CX, gRepVeicoloEt, gRepVeicoloVal);
    Tabella(g, ANABBAGLIANTI);
    Scrivi(g.CX, g.Y(ANABBAGLIANTI.base), PRN_DESTRA, VALORE, gRepMisure[RepTipoFaro]);
    Tabella(g, ABBAGLIANTI);
    Piede(g);
}

Flag Report_Invia()
{
    Flag pronta = Falso;
    Passo([&pronta] { pronta = Prn_Inizializza(); });
    // A queue may go between one question and the next.
    const auto stampante = pronta ? Stampa_Corrente().Printer() : nullptr;
    if (stampante == nullptr)
        return Falso;
    Prn_ImpostaOggetto(stampante);
    Passo([] { Report_Stampa(gPrnWidth, gPrnHeight); });
    const bool presa = Passo([] { gPrnOggetto->EndDoc(); });
    gPrnOggetto.reset();
    return Flag_Da(presa);
}
