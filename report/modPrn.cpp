// Texts and lines by their alignment, on the target in force. It knows no page and no printer's body.
#include "report/modPrn.h"

std::shared_ptr<OggettoStampa> gPrnStampante;
Flag gPrnPresente = Falso;
std::shared_ptr<OggettoStampa> gPrnOggetto;
float gPrnScala = 1.0F;
qint16 gPrnWidth = 0, gPrnHeight = 0;
qint16 gPrnScaleLeft = 0, gPrnScaleTop = 0, gPrnScaleWidth = 0, gPrnScaleHeight = 0;

namespace {

struct VariabilePagina
{
    qint16 *variabile;
    qint32 (OggettoStampa::*proprieta)() const;
    qint16 senzaStampante;
};

constexpr VariabilePagina PAGINA[] = {
    {&gPrnWidth,       &OggettoStampa::Width,       12140},
    {&gPrnHeight,      &OggettoStampa::Height,      15740},
    {&gPrnScaleLeft,   &OggettoStampa::ScaleLeft,   0    },
    {&gPrnScaleTop,    &OggettoStampa::ScaleTop,    0    },
    {&gPrnScaleWidth,  &OggettoStampa::ScaleWidth,  12240},
    {&gPrnScaleHeight, &OggettoStampa::ScaleHeight, 15840},
};

void Imposta_Carattere(Flag grassetto, qint16 punti, const QString &carattere)
{
    gPrnOggetto->FontName(carattere);
    gPrnOggetto->FontSize(static_cast<float>(punti) * gPrnScala);
    gPrnOggetto->FontBold(grassetto != Falso);
}

/// First edge of a text of that extent. The three alignments follow each other in opposite directions
/// across and down: across 0 starts at the place, down 0 ends at it.
qint16 Bordo(qint16 posto, qint32 estensione, bool inizia, bool centra, bool finisce)
{
    if (inizia)
        return posto;
    if (centra)
        return Intero16(Arrotonda(posto - estensione / 2.0));
    return finisce ? Intero16(posto - estensione) : qint16{0};
}

} // namespace

Flag Prn_CercaStampante()
{
    const SistemaStampa &sistema = Stampa_Corrente();
    const qint16 numero = sistema.Count();
    const auto predefinita = numero > 0 ? sistema.Printer() : nullptr;
    Flag trovata = Falso;
    for (qint16 i = 0; predefinita != nullptr && i < numero; ++i) {
        const auto stampante = sistema.Printers(i);
        if (stampante->DeviceName() == predefinita->DeviceName()) {
            gPrnStampante = stampante;
            trovata = Vero;
        }
    }
    return trovata;
}

Flag Prn_Inizializza()
{
    gPrnPresente = Prn_CercaStampante();
    for (const VariabilePagina &voce : PAGINA) {
        *voce.variabile =
            gPrnPresente ? Intero16((gPrnStampante.get()->*voce.proprieta)()) : voce.senzaStampante;
    }
    return gPrnPresente;
}

void Prn_ImpostaOggetto(const std::shared_ptr<OggettoStampa> &oggetto)
{
    gPrnOggetto = oggetto;
    gPrnScala = 1.0F;
}

void Prn_MisuraTesto(qint16 &altezza, qint16 &larghezza, Flag grassetto, qint16 punti,
                     const QString &carattere, const QString &testo)
{
    gPrnOggetto->FontTransparent(true);
    Imposta_Carattere(grassetto, punti, carattere);
    larghezza = Intero16(gPrnOggetto->TextWidth(testo));
    altezza = Intero16(gPrnOggetto->TextHeight(testo));
}

void Prn_Testo(qint16 x, qint16 y, qint16 orizzontale, qint16 verticale, quint32 colore, Flag grassetto,
               qint16 punti, const QString &carattere, const QString &testo)
{
    gPrnOggetto->FontTransparent(true);
    gPrnOggetto->ForeColor(colore);
    Imposta_Carattere(grassetto, punti, carattere);
    const qint32 larghezza = gPrnOggetto->TextWidth(testo);
    const qint32 altezza = gPrnOggetto->TextHeight(testo);
    const qint16 sinistra = Bordo(x, larghezza, orizzontale == PRN_SINISTRA, orizzontale == PRN_CENTRO,
                                  orizzontale == PRN_DESTRA);
    const qint16 cima =
        Bordo(y, altezza, verticale == PRN_SOTTO, verticale == PRN_MEZZO, verticale == PRN_SOPRA);
    gPrnOggetto->CurrentX(static_cast<float>(sinistra) * gPrnScala);
    gPrnOggetto->CurrentY(static_cast<float>(cima) * gPrnScala);
    gPrnOggetto->Print(testo);
}

void Prn_Linea(qint16 x1, qint16 y1, qint16 x2, qint16 y2, quint32 colore, qint16 spessore, qint16 stile)
{
    const qint16 arrotondato =
        Intero16(Arrotonda(static_cast<double>(spessore) * static_cast<double>(gPrnScala)));
    gPrnOggetto->DrawStyle(stile);
    gPrnOggetto->DrawWidth(arrotondato == 0 ? qint16{1} : arrotondato);
    gPrnOggetto->Line(static_cast<float>(x1) * gPrnScala, static_cast<float>(y1) * gPrnScala,
                      static_cast<float>(x2) * gPrnScala, static_cast<float>(y2) * gPrnScala, colore);
}
