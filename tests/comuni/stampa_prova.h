// A print system of the test's own: its printers, and a target that keeps what is drawn on it. Texts have
// sizes that can be worked out by hand.
#pragma once

#include "platform/stampante.h"

#include <QList>
#include <QStringList>

#include <functional>

/// Paper of a printer, in twips.
struct CartaProva
{
    qint32 Width = 11906;
    qint32 Height = 16838;
    qint32 ScaleLeft = 0;
    qint32 ScaleTop = 0;
    qint32 ScaleWidth = 11906;
    qint32 ScaleHeight = 16838;
};

inline constexpr CartaProva CARTA_A4 = {};
inline constexpr CartaProva CARTA_LETTER = {12240, 15840, 0, 0, 12240, 15840};

/// Size of a text on a target of the tests: so many twips a letter and a point, bold ones more, and one twip
/// over, so that the width of a text that is not empty is always odd.
qint32 Larghezza_Prova(const QString &carattere, qint32 punti, bool grassetto, const QString &testo);
/// 23 twips a point.
qint32 Altezza_Prova(qint32 punti);

/// A text on a page, as OggettoProva keeps it. @param sinistra, cima its upper left corner.
QString Testo_Prova(qint32 sinistra, qint32 cima, const QString &carattere, qint32 punti, bool grassetto,
                    const QString &testo);
/// A line on a page: black.
QString Linea_Prova(qint32 x1, qint32 y1, qint32 x2, qint32 y2, qint16 spessore, qint16 stile);

class OggettoProva : public OggettoStampa
{
public:
    explicit OggettoProva(const QString &nome, const CartaProva &carta = CARTA_A4);

    /// Every call in its order: "FontName Arial", "TextWidth abc", "CurrentX 100", "Print abc", ...
    QStringList Operazioni;
    /// The texts and lines of each page, with all that counts for their look. The last page is the one that
    /// no EndDoc has ended yet.
    QList<QStringList> Pagine = {{}};
    /// Pages that were ended.
    qsizetype Finite() const { return Pagine.size() - 1; }

    // Failures on demand.
    bool EndDocFallisce = false; ///< raises 482, and the page is not taken: it is gone
    int FallisceAlTesto = -1;    ///< the text of that number, counted from 0 on each page, raises 482
    /// Run at the beginning of EndDoc.
    std::function<void()> AllEndDoc;

    QString DeviceName() const override { return m_nome; }
    qint32 Width() const override { return m_carta.Width; }
    qint32 Height() const override { return m_carta.Height; }
    qint32 ScaleLeft() const override { return m_carta.ScaleLeft; }
    qint32 ScaleTop() const override { return m_carta.ScaleTop; }
    qint32 ScaleWidth() const override { return m_carta.ScaleWidth; }
    qint32 ScaleHeight() const override { return m_carta.ScaleHeight; }

    void FontTransparent(bool trasparente) override;
    void ForeColor(quint32 colore) override;
    void FontName(const QString &nome) override;
    void FontSize(float punti) override;
    void FontBold(bool grassetto) override;
    qint32 TextWidth(const QString &testo) override;
    qint32 TextHeight(const QString &testo) override;
    void CurrentX(float x) override;
    void CurrentY(float y) override;
    void Print(const QString &testo) override;
    void DrawStyle(qint16 stile) override;
    void DrawWidth(qint16 spessore) override;
    void Line(float x1, float y1, float x2, float y2, quint32 colore) override;
    void EndDoc() override;

private:
    void Annota(const char *operazione, const QString &argomento = QString());
    void Annota(const char *operazione, double argomento);

    QString m_nome;
    CartaProva m_carta;
    bool m_trasparente = false;
    quint32 m_colore = 0xFFFFFF;
    QString m_carattere;
    float m_punti = 0;
    bool m_grassetto = false;
    float m_x = -1;
    float m_y = -1;
    qint16 m_spessore = -1;
    qint16 m_stile = -1;
    int m_testi = 0;
};

/// Takes the place of the print system in force until it is destroyed. It begins without printers.
class StampaProva : public SistemaStampa
{
public:
    StampaProva();
    ~StampaProva() override;
    Q_DISABLE_COPY_MOVE(StampaProva)

    /// Adds a printer to the list.
    void Aggiungi(const QString &nome, const CartaProva &carta = CARTA_A4);
    /// Names the current printer, which need not be in the list.
    void Predefinita(const QString &nome, const CartaProva &carta = CARTA_A4);

    /// The current printer; nullptr when there is none.
    std::shared_ptr<OggettoProva> Corrente;
    /// How often the current printer may still be asked for before it goes away; -1 for ever.
    mutable int Richieste = -1;

    qint16 Count() const override { return static_cast<qint16>(m_stampanti.size()); }
    std::shared_ptr<OggettoStampa> Printers(qint16 numero) const override { return m_stampanti.at(numero); }
    std::shared_ptr<OggettoStampa> Printer() const override;

private:
    SistemaStampa *m_prima;
    QList<std::shared_ptr<OggettoProva>> m_stampanti;
};
