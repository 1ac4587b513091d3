// Print queues of CUPS. The sheet is painted into a PDF in memory, which is then handed over: a queue that
// refuses it is told at once, and no full disk stands in the way. Qt's own printer would ask the scheduler
// without any time-out, and stand still with it.
#include "platform/code_stampa.h"

#include <QBuffer>
#include <QPdfWriter>

#include <array>
#include <cups/cups.h>
#include <initializer_list>
#include <memory>

namespace {

constexpr int ATTESA_COLLEGAMENTO = 3000; // ms
constexpr double ATTESA_RISPOSTA = 5;     // seconds, for each answer
constexpr double CENTESIMI = 100;         // sizes come in hundredths of a millimetre

constexpr const char *NOME = "printer-name";
constexpr const char *ACCETTA = "printer-is-accepting-jobs";
constexpr const char *CARTA = "media-col-default";

using Collegamento = std::unique_ptr<http_t, void (*)(http_t *)>;
using Messaggio = std::unique_ptr<ipp_t, void (*)(ipp_t *)>;

void Aggiungi(const Messaggio &domanda, ipp_tag_t tipo, const char *nome, const char *valore)
{
    ippAddString(domanda.get(), IPP_TAG_OPERATION, tipo, nome, nullptr, valore);
}

/// What an answer is to tell. One that tells all of a queue is long, and is read in small pieces.
void Chiedi_Solo(const Messaggio &domanda, std::initializer_list<const char *> voci)
{
    ippAddStrings(domanda.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(voci.size()), nullptr, voci.begin());
}

Collegamento Collega()
{
    Collegamento http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                   ATTESA_COLLEGAMENTO, nullptr),
                      &httpClose);
    if (http)
        httpSetTimeout(
            http.get(), ATTESA_RISPOSTA, [](http_t *, void *) { return 0; }, nullptr);
    return http;
}

QByteArray Percorso(const QByteArray &coda)
{
    return coda.isEmpty() ? QByteArrayLiteral("/") : "/printers/" + coda;
}

/// @param coda the queue that it is about; empty for the scheduler itself.
Messaggio Domanda(ipp_op_t cosa, const QByteArray &coda = {})
{
    Messaggio domanda(ippNewRequest(cosa), &ippDelete);
    if (!coda.isEmpty()) {
        std::array<char, HTTP_MAX_URI> indirizzo{};
        httpAssembleURI(HTTP_URI_CODING_ALL, indirizzo.data(), HTTP_MAX_URI, "ipp", nullptr, "localhost",
                        ippPort(), Percorso(coda).constData());
        Aggiungi(domanda, IPP_TAG_URI, "printer-uri", indirizzo.data());
    }
    Aggiungi(domanda, IPP_TAG_NAME, "requesting-user-name", cupsUser());
    return domanda;
}

/// @return nothing when the scheduler does not answer. One that stands still takes the connection and then
/// says nothing: whoever gets nothing asks no further, so that nobody waits for one answer after the other.
Messaggio Chiedi(const Collegamento &http, Messaggio domanda, const QByteArray &coda = {})
{
    const bool raggiunto = http != nullptr; // without a connection the library would make one of its own
    return Messaggio(raggiunto ? cupsDoRequest(http.get(), domanda.release(), Percorso(coda).constData())
                               : nullptr,
                     &ippDelete);
}

/// The queues of an answer: an attribute without a name parts them.
QList<CodaStampa> Leggi_Code(const Messaggio &risposta)
{
    QList<CodaStampa> code;
    bool nuova = true;
    for (auto *voce = ippFirstAttribute(risposta.get()); voce != nullptr;
         voce = ippNextAttribute(risposta.get())) {
        if (ippGetGroupTag(voce) != IPP_TAG_PRINTER) {
            nuova = true;
            continue;
        }
        if (nuova)
            code.append(CodaStampa());
        nuova = false;
        if (qstrcmp(ippGetName(voce), NOME) == 0)
            code.last().nome = QString::fromUtf8(ippGetString(voce, 0, nullptr));
        else if (qstrcmp(ippGetName(voce), ACCETTA) == 0)
            code.last().accetta = ippGetBoolean(voce, 0) != 0;
    }
    return code;
}

/// The queue that whoever works here has chosen, otherwise the machine's; empty when there is none.
QString Predefinita(const Collegamento &http)
{
    const std::unique_ptr<cups_dest_t, void (*)(cups_dest_t *)> voce(
        cupsGetNamedDest(http.get(), nullptr, nullptr), [](cups_dest_t *una) { cupsFreeDests(1, una); });
    return voce ? QString::fromUtf8(voce->name) : QString();
}

/// An attribute inside a collection; nullptr when there is none.
ipp_attribute_t *Membro(ipp_attribute_t *raccolta, const char *nome)
{
    return ippFindAttribute(ippGetCollection(raccolta, 0), nome, IPP_TAG_ZERO);
}

double Centesimi(ipp_attribute_t *misure, const char *nome)
{
    return ippGetInteger(Membro(misure, nome), 0) / CENTESIMI;
}

class FoglioPdf : public FoglioStampa
{
public:
    FoglioPdf(const QString &coda, const QString &titolo) : m_coda(coda.toUtf8()), m_titolo(titolo.toUtf8())
    {
        m_pdf.open(QIODevice::WriteOnly);
        m_scrittore = std::make_unique<QPdfWriter>(&m_pdf);
        m_scrittore->setTitle(titolo);
    }
    bool Imposta_Carta(const QPageSize &carta) override
    {
        QPageLayout pagina(carta, QPageLayout::Portrait, QMarginsF());
        pagina.setMode(QPageLayout::FullPageMode);
        return m_scrittore->setPageLayout(pagina);
    }
    QPagedPaintDevice &Superficie() override { return *m_scrittore; }
    bool Consegna() override
    {
        const Collegamento http = Collega();
        const int lavoro = Crea_Lavoro(http);
        if (lavoro == 0)
            return false;
        if (Invia(http.get(), lavoro))
            return true;
        cupsCancelJob2(http.get(), m_coda.constData(), lavoro, 0);
        return false;
    }

private:
    /// @return its number, 0 when the queue does not take it.
    int Crea_Lavoro(const Collegamento &http) const
    {
        Messaggio domanda = Domanda(IPP_OP_CREATE_JOB, m_coda);
        Aggiungi(domanda, IPP_TAG_NAME, "job-name", m_titolo.constData());
        const Messaggio risposta = Chiedi(http, std::move(domanda), m_coda);
        return ippGetInteger(ippFindAttribute(risposta.get(), "job-id", IPP_TAG_INTEGER), 0);
    }

    bool Invia(http_t *http, int lavoro) const
    {
        const bool scritto = cupsStartDocument(http, m_coda.constData(), lavoro, m_titolo.constData(),
                                               CUPS_FORMAT_PDF, 1) == HTTP_STATUS_CONTINUE &&
                             cupsWriteRequestData(http, m_pdf.data().constData(),
                                                  static_cast<size_t>(m_pdf.size())) == HTTP_STATUS_CONTINUE;
        return scritto && cupsFinishDocument(http, m_coda.constData()) <= IPP_STATUS_OK_EVENTS_COMPLETE;
    }

    QByteArray m_coda;
    QByteArray m_titolo;
    QBuffer m_pdf;
    std::unique_ptr<QPdfWriter> m_scrittore;
};

} // namespace

// Asked of the scheduler alone: the library's own list of queues looks for printers all over the network
// besides, a quarter of a second each time, and those are none that take jobs.
QList<CodaStampa> Code_Elenca()
{
    const Collegamento http = Collega();
    Messaggio domanda = Domanda(IPP_OP_CUPS_GET_PRINTERS);
    Chiedi_Solo(domanda, {NOME, ACCETTA});
    QList<CodaStampa> code = Leggi_Code(Chiedi(http, std::move(domanda)));
    const QString predefinita = code.isEmpty() ? QString() : Predefinita(http);
    for (CodaStampa &coda : code)
        coda.predefinita = coda.nome == predefinita;
    return code;
}

QString Coda_Predefinita()
{
    const Collegamento http = Collega();
    return http ? Predefinita(http) : QString();
}

QSizeF Coda_Carta(const QString &nome)
{
    const QByteArray coda = nome.toUtf8();
    Messaggio domanda = Domanda(IPP_OP_GET_PRINTER_ATTRIBUTES, coda);
    Chiedi_Solo(domanda, {CARTA});
    const Messaggio risposta = Chiedi(Collega(), std::move(domanda), coda);
    // The name of the paper is left out by some queues for sizes that they have; the measures are there.
    ipp_attribute_t *misure =
        Membro(ippFindAttribute(risposta.get(), CARTA, IPP_TAG_BEGIN_COLLECTION), "media-size");
    const QSizeF mm(Centesimi(misure, "x-dimension"), Centesimi(misure, "y-dimension"));
    return mm.isEmpty() ? A4 : mm;
}

std::unique_ptr<FoglioStampa> Foglio_Nuovo(const QString &coda, const QString &titolo)
{
    return std::make_unique<FoglioPdf>(coda, titolo);
}
