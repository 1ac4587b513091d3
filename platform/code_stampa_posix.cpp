// Print queues of CUPS. The sheet is painted into a PDF in memory, which is then handed over: a queue that
// refuses it is told at once, and no full disk stands in the way. Qt's own printer would ask the scheduler
// without any time-out, and stand still with it.
#include "platform/code_stampa.h"

#include <QBuffer>
#include <QPdfWriter>

#include <cups/cups.h>
#include <memory>

namespace {

constexpr int ATTESA_COLLEGAMENTO = 3000; // ms
constexpr double ATTESA_RISPOSTA = 5;     // seconds, for each answer
constexpr double CENTESIMI = 100;         // sizes come in hundredths of a millimetre

using Collegamento = std::unique_ptr<http_t, void (*)(http_t *)>;

/// Connects to a scheduler that answers. One that stands still takes the connection and then says nothing: it
/// is found out by the first question, so that nobody waits for the answers to all the others.
Collegamento Collega()
{
    Collegamento http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                   ATTESA_COLLEGAMENTO, nullptr),
                      &httpClose);
    if (!http)
        return http;
    httpSetTimeout(
        http.get(), ATTESA_RISPOSTA, [](http_t *, void *) { return 0; }, nullptr);
    ipp_t *risposta = cupsDoRequest(http.get(), ippNewRequest(IPP_OP_CUPS_GET_DEFAULT), "/");
    if (risposta == nullptr)
        http.reset();
    ippDelete(risposta);
    return http;
}

/// The scheduler's destinations, freed with the list.
class Destinazioni
{
public:
    explicit Destinazioni(http_t *http) : m_numero(cupsGetDests2(http, &m_voci)) {}
    ~Destinazioni() { cupsFreeDests(m_numero, m_voci); }
    Q_DISABLE_COPY_MOVE(Destinazioni)

    const cups_dest_t *begin() const { return m_voci; }
    const cups_dest_t *end() const { return m_voci + m_numero; }
    cups_dest_t *Trova(const QString &nome) const
    {
        return cupsGetDest(nome.toUtf8().constData(), nullptr, m_numero, m_voci);
    }

private:
    cups_dest_t *m_voci = nullptr;
    int m_numero = 0;
};

bool Accetta(const cups_dest_t &voce)
{
    return qstrcmp(cupsGetOption("printer-is-accepting-jobs", voce.num_options, voce.options), "true") == 0;
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
        const int lavoro =
            http ? cupsCreateJob(http.get(), m_coda.constData(), m_titolo.constData(), 0, nullptr) : 0;
        if (lavoro == 0)
            return false;
        if (Invia(http.get(), lavoro))
            return true;
        cupsCancelJob2(http.get(), m_coda.constData(), lavoro, 0);
        return false;
    }

private:
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

QList<CodaStampa> Code_Elenca()
{
    QList<CodaStampa> code;
    const Collegamento http = Collega();
    if (!http)
        return code;
    for (const cups_dest_t &voce : Destinazioni(http.get()))
        code.append({QString::fromUtf8(voce.name), voce.is_default != 0, Accetta(voce)});
    return code;
}

QSizeF Coda_Carta(const QString &nome)
{
    const Collegamento http = Collega();
    if (!http)
        return A4;
    const Destinazioni destinazioni(http.get());
    cups_dest_t *voce = destinazioni.Trova(nome);
    if (voce == nullptr)
        return A4;
    const std::unique_ptr<cups_dinfo_t, void (*)(cups_dinfo_t *)> dati(cupsCopyDestInfo(http.get(), voce),
                                                                       &cupsFreeDestInfo);
    // The name of the paper is left out by some queues for sizes that they have; the measures are there.
    ipp_attribute_t *carta = cupsFindDestDefault(http.get(), voce, dati.get(), "media-col");
    ipp_attribute_t *misure = Membro(carta, "media-size");
    const QSizeF mm(Centesimi(misure, "x-dimension"), Centesimi(misure, "y-dimension"));
    return mm.isEmpty() ? A4 : mm;
}

std::unique_ptr<FoglioStampa> Foglio_Nuovo(const QString &coda, const QString &titolo)
{
    return std::make_unique<FoglioPdf>(coda, titolo);
}
