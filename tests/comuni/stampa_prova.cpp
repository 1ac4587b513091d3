#include "tests/comuni/stampa_prova.h"

#include "platform/errore_esecuzione.h"

#include <QtGlobal>

namespace {

struct MisuraProva
{
    const char16_t *carattere;
    qint32 normale, grassetto; // twips a letter and a point
};

constexpr MisuraProva MISURE_PROVA[] = {
    {u"Arial",       11, 12},
    {u"Arial Black", 14, 15},
    {u"Courier New", 12, 13},
};

QString Numero(double valore)
{
    return QString::number(valore, 'g', 9);
}

} // namespace

qint32 Larghezza_Prova(const QString &carattere, qint32 punti, bool grassetto, const QString &testo)
{
    if (testo.isEmpty())
        return 0;
    for (const MisuraProva &misura : MISURE_PROVA) {
        if (carattere == QString::fromUtf16(misura.carattere))
            return static_cast<qint32>(testo.size()) * punti *
                       (grassetto ? misura.grassetto : misura.normale) +
                   1;
    }
    qFatal("no measures for %s", qPrintable(carattere));
}

qint32 Altezza_Prova(qint32 punti)
{
    return 23 * punti;
}

QString Testo_Prova(qint32 sinistra, qint32 cima, const QString &carattere, qint32 punti, bool grassetto,
                    const QString &testo)
{
    return QStringLiteral("%1,%2 %3 %4%5 [%6]")
        .arg(Numero(sinistra), Numero(cima), carattere, Numero(punti),
             grassetto ? QStringLiteral(" grassetto") : QString(), testo);
}

QString Linea_Prova(qint32 x1, qint32 y1, qint32 x2, qint32 y2, qint16 spessore, qint16 stile)
{
    return QStringLiteral("linea %1,%2 %3,%4 spessore %5 stile %6")
        .arg(Numero(x1), Numero(y1), Numero(x2), Numero(y2), Numero(spessore), Numero(stile));
}

// --- the target -------------------------------------------------------------------------------------------

OggettoProva::OggettoProva(const QString &nome, const CartaProva &carta) : m_nome(nome), m_carta(carta) {}

void OggettoProva::Annota(const char *operazione, const QString &argomento)
{
    const QString nome = QString::fromLatin1(operazione);
    Operazioni.append(argomento.isNull() ? nome : nome + u' ' + argomento);
}

void OggettoProva::Annota(const char *operazione, double argomento)
{
    Annota(operazione, Numero(argomento));
}

void OggettoProva::FontTransparent(bool trasparente)
{
    Annota("FontTransparent", trasparente ? 1 : 0);
    m_trasparente = trasparente;
}

void OggettoProva::ForeColor(quint32 colore)
{
    Annota("ForeColor", colore);
    m_colore = colore;
}

void OggettoProva::FontName(const QString &nome)
{
    Annota("FontName", nome);
    m_carattere = nome;
}

void OggettoProva::FontSize(float punti)
{
    Annota("FontSize", static_cast<double>(punti));
    m_punti = punti;
}

void OggettoProva::FontBold(bool grassetto)
{
    Annota("FontBold", grassetto ? 1 : 0);
    m_grassetto = grassetto;
}

qint32 OggettoProva::TextWidth(const QString &testo)
{
    Annota("TextWidth", testo);
    return Larghezza_Prova(m_carattere, static_cast<qint32>(m_punti), m_grassetto, testo);
}

qint32 OggettoProva::TextHeight(const QString &testo)
{
    Annota("TextHeight", testo);
    return Altezza_Prova(static_cast<qint32>(m_punti));
}

void OggettoProva::CurrentX(float x)
{
    Annota("CurrentX", static_cast<double>(x));
    m_x = x;
}

void OggettoProva::CurrentY(float y)
{
    Annota("CurrentY", static_cast<double>(y));
    m_y = y;
}

void OggettoProva::Print(const QString &testo)
{
    if (m_testi++ == FallisceAlTesto)
        Solleva(NumeroErrore::ErroreStampante);
    Annota("Print", testo);
    QString voce = Testo_Prova(static_cast<qint32>(m_x), static_cast<qint32>(m_y), m_carattere,
                               static_cast<qint32>(m_punti), m_grassetto, testo);
    if (!m_trasparente)
        voce += QStringLiteral(" coprente");
    if (m_colore != 0)
        voce += QStringLiteral(" colore ") + Numero(m_colore);
    Pagine.last().append(voce);
}

void OggettoProva::DrawStyle(qint16 stile)
{
    Annota("DrawStyle", stile);
    m_stile = stile;
}

void OggettoProva::DrawWidth(qint16 spessore)
{
    Annota("DrawWidth", spessore);
    m_spessore = spessore;
}

void OggettoProva::Line(float x1, float y1, float x2, float y2, quint32 colore)
{
    const auto numero = [](float valore) { return Numero(static_cast<double>(valore)); };
    Annota("Line", QStringLiteral("%1,%2 %3,%4 colore %5")
                       .arg(numero(x1), numero(y1), numero(x2), numero(y2), Numero(colore)));
    QString voce = Linea_Prova(static_cast<qint32>(x1), static_cast<qint32>(y1), static_cast<qint32>(x2),
                               static_cast<qint32>(y2), m_spessore, m_stile);
    if (colore != 0)
        voce += QStringLiteral(" colore ") + Numero(colore);
    Pagine.last().append(voce);
}

void OggettoProva::EndDoc()
{
    if (AllEndDoc)
        AllEndDoc();
    Annota("EndDoc");
    m_testi = 0;
    if (EndDocFallisce) {
        Pagine.last().clear();
        Solleva(NumeroErrore::ErroreStampante);
    }
    Pagine.append(QStringList());
}

// --- the system -------------------------------------------------------------------------------------------

StampaProva::StampaProva() : m_prima(&Stampa_Corrente())
{
    Stampa_Imposta(this);
}

StampaProva::~StampaProva()
{
    Stampa_Imposta(m_prima);
}

void StampaProva::Aggiungi(const QString &nome, const CartaProva &carta)
{
    m_stampanti.append(std::make_shared<OggettoProva>(nome, carta));
}

void StampaProva::Predefinita(const QString &nome, const CartaProva &carta)
{
    Corrente = std::make_shared<OggettoProva>(nome, carta);
}

std::shared_ptr<OggettoStampa> StampaProva::Printer() const
{
    if (Richieste == 0)
        return nullptr;
    if (Richieste > 0)
        --Richieste;
    return Corrente;
}
