// Sheets and type by Qt's painter, with a stand-in for each family that the machine lacks. How a sheet
// reaches the paper is the queues' business (code_stampa.h).
#include "platform/stampante_qt.h"

#include "platform/code_stampa.h"
#include "platform/colore_qt.h"
#include "platform/errore_esecuzione.h"
#include "platform/tipi.h"
#include "platform/unita.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>

#include <cmath>

namespace {

constexpr double TWIP_POLLICE = 1440;
constexpr double MM_POLLICE = 25.4;
constexpr double SPESSORE_UNITA = TWIP_POLLICE / 300; // twips

/// What stands in for a family that the machine lacks: letters of the same widths, or as near as the free
/// fonts come (there is no free twin of the black cut: the bold one is set wider).
struct Sostituto
{
    const char16_t *manca;
    const char16_t *usa;
    bool grassetto;
    int larghezza; // percent
};

constexpr Sostituto SOSTITUTI[] = {
    {u"Arial",       u"Liberation Sans", false, 100},
    {u"Arial Black", u"Liberation Sans", true,  117},
    {u"Courier New", u"Liberation Mono", false, 100},
};

QFont Carattere_Disponibile(const QString &nome)
{
    if (QFontDatabase::hasFamily(nome))
        return QFont(nome);
    for (const Sostituto &sostituto : SOSTITUTI) {
        if (nome == QString::fromUtf16(sostituto.manca)) {
            QFont carattere(QString::fromUtf16(sostituto.usa));
            carattere.setBold(sostituto.grassetto);
            carattere.setStretch(sostituto.larghezza);
            return carattere;
        }
    }
    return QFont(nome);
}

/// One printer. The page is painted in twips from the corner of the paper; the sheet is opened by the first
/// thing that is drawn on it.
class StampanteQt : public OggettoStampa
{
public:
    explicit StampanteQt(const QString &nome) : m_nome(nome) {}

    QString DeviceName() const override { return m_nome; }
    qint32 Width() const override { return Twip(Carta().size(QPageSize::Millimeter).width()); }
    qint32 Height() const override { return Twip(Carta().size(QPageSize::Millimeter).height()); }
    qint32 ScaleLeft() const override { return 0; }
    qint32 ScaleTop() const override { return 0; }
    qint32 ScaleWidth() const override { return Width(); }
    qint32 ScaleHeight() const override { return Height(); }

    void FontTransparent(bool trasparente) override { m_trasparente = trasparente; }
    void ForeColor(quint32 colore) override { m_colore = Colore_Da(colore); }
    void FontName(const QString &nome) override
    {
        // The page names its family with each text; whether the machine has it is asked once.
        if (!m_caratteri.contains(nome))
            m_caratteri.insert(nome, Carattere_Disponibile(nome));
        m_carattere = m_caratteri.value(nome);
    }
    void FontSize(float punti) override { m_punti = punti; }
    void FontBold(bool grassetto) override { m_grassetto = grassetto; }
    qint32 TextWidth(const QString &testo) override
    {
        return Arrotonda(QFontMetricsF(Carattere()).horizontalAdvance(testo));
    }
    qint32 TextHeight(const QString &) override { return Arrotonda(QFontMetricsF(Carattere()).height()); }

    void CurrentX(float x) override { m_posto.setX(static_cast<qreal>(x)); }
    void CurrentY(float y) override { m_posto.setY(static_cast<qreal>(y)); }
    void Print(const QString &testo) override;
    void DrawStyle(qint16 stile) override { m_stile = stile; }
    void DrawWidth(qint16 spessore) override { m_spessore = spessore; }
    void Line(float x1, float y1, float x2, float y2, quint32 colore) override;
    void EndDoc() override;

private:
    static qint32 Twip(double millimetri) { return Arrotonda(millimetri / MM_POLLICE * TWIP_POLLICE); }
    const QPageSize &Carta() const;
    QFont Carattere() const;
    QPainter &Pennello();

    QString m_nome;
    mutable QPageSize m_carta; // asked of the queue once
    bool m_trasparente = true;
    QColor m_colore = Qt::black;
    QHash<QString, QFont> m_caratteri;
    QFont m_carattere;
    float m_punti = 10;
    bool m_grassetto = false;
    QPointF m_posto;
    qint16 m_stile = 0;
    qint16 m_spessore = 1;
    std::unique_ptr<FoglioStampa> m_foglio;
    QPainter m_pennello; // goes before the sheet that it paints on
};

const QPageSize &StampanteQt::Carta() const
{
    // Queues tell their paper in whole points: the sheet that is meant is the nearest of the known ones.
    if (!m_carta.isValid())
        m_carta = QPageSize(Coda_Carta(m_nome), QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch);
    return m_carta;
}

QFont StampanteQt::Carattere() const
{
    QFont carattere = m_carattere;
    carattere.setPixelSize(
        std::max(1, static_cast<int>(std::lround(static_cast<double>(m_punti) * TWIP_PUNTO))));
    carattere.setHintingPreference(QFont::PreferNoHinting);
    if (m_grassetto)
        carattere.setBold(true);
    return carattere;
}

QPainter &StampanteQt::Pennello()
{
    if (!m_foglio) {
        m_foglio = Foglio_Nuovo(m_nome, QStringLiteral("lumira"));
        QPagedPaintDevice &superficie = m_foglio->Superficie();
        // From the corner of the paper, whatever the margins.
        if (m_foglio->Imposta_Carta(Carta()) && m_pennello.begin(&superficie))
            m_pennello.scale(superficie.logicalDpiX() / TWIP_POLLICE,
                             superficie.logicalDpiY() / TWIP_POLLICE);
    }
    if (!m_pennello.isActive())
        Solleva(NumeroErrore::ErroreStampante);
    return m_pennello;
}

void StampanteQt::Print(const QString &testo)
{
    QPainter &pennello = Pennello();
    const QFont carattere = Carattere();
    pennello.setFont(carattere);
    pennello.setPen(m_colore);
    pennello.setBackgroundMode(m_trasparente ? Qt::TransparentMode : Qt::OpaqueMode);
    pennello.drawText(m_posto + QPointF(0, QFontMetricsF(carattere).ascent()), testo);
}

void StampanteQt::Line(float x1, float y1, float x2, float y2, quint32 colore)
{
    // The styles of the system and of the painter follow the same order, from solid on.
    const auto stile = static_cast<Qt::PenStyle>(m_stile + 1);
    QPainter &pennello = Pennello();
    pennello.setPen(QPen(Colore_Da(colore), m_spessore * SPESSORE_UNITA, stile));
    const QPointF da(static_cast<qreal>(x1), static_cast<qreal>(y1));
    pennello.drawLine(da, QPointF(static_cast<qreal>(x2), static_cast<qreal>(y2)));
}

void StampanteQt::EndDoc()
{
    if (!m_foglio)
        return;
    const bool preso = m_pennello.isActive() && m_pennello.end() && m_foglio->Consegna();
    m_foglio.reset();
    if (!preso)
        Solleva(NumeroErrore::ErroreStampante);
}

QStringList Code_Pronte()
{
    QStringList nomi;
    const QList<CodaStampa> code = Code_Elenca();
    for (const CodaStampa &coda : code) {
        if (coda.accetta)
            nomi.append(coda.nome);
    }
    return nomi;
}

} // namespace

qint16 SistemaStampaQt::Count() const
{
    m_pronte = Code_Pronte();
    return Intero16(m_pronte.size());
}

std::shared_ptr<OggettoStampa> SistemaStampaQt::Printers(qint16 numero) const
{
    if (numero >= m_pronte.size())
        m_pronte = Code_Pronte();
    return std::make_shared<StampanteQt>(m_pronte.value(numero));
}

std::shared_ptr<OggettoStampa> SistemaStampaQt::Printer() const
{
    const QString nome = Coda_Predefinita();
    return nome.isEmpty() ? nullptr : std::make_shared<StampanteQt>(nome);
}
