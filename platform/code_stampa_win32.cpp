// Print queues of Windows. The sheet is painted straight on the queue's driver: the job begins with the
// painter and goes out when it ends.
#include "platform/code_stampa.h"

#include <QPrinter>
#include <QPrinterInfo>

#include <cmath>

namespace {

constexpr double SCARTO_CARTA = 1; // mm

class FoglioCoda : public FoglioStampa
{
public:
    FoglioCoda(const QString &coda, const QString &titolo)
        : m_stampante(QPrinterInfo::printerInfo(coda), QPrinter::HighResolution), m_coda(coda)
    {
        m_stampante.setDocName(titolo);
    }
    /// Call by call: a layout as a whole is refused for margins below the driver's own, and nothing of it
    /// holds then. Lying on its side, shifted by margins or made for other paper a page would be spoilt.
    bool Imposta_Carta(const QPageSize &carta) override
    {
        if (m_stampante.printerName() != m_coda)
            return false; // gone since it was listed: the page would come out of another one
        const bool diritta = m_stampante.setPageOrientation(QPageLayout::Portrait);
        m_stampante.setPageSize(carta); // the measures tell whether it holds: see Stessa_Carta
        m_stampante.setFullPage(true);
        return diritta && Stessa_Carta(carta) && m_stampante.setPageMargins(QMarginsF());
    }
    QPagedPaintDevice &Superficie() override { return m_stampante; }
    /// The job has gone out with the painter's end; here it shows whether the driver took it.
    bool Consegna() override
    {
        const QPrinter::PrinterState stato = m_stampante.printerState();
        return m_stampante.isValid() && stato != QPrinter::Error && stato != QPrinter::Aborted;
    }

private:
    /// True when the driver has this paper, be it under a name of its own or a hair larger or smaller.
    bool Stessa_Carta(const QPageSize &carta) const
    {
        const QSizeF trovata = m_stampante.pageLayout().fullRect(QPageLayout::Millimeter).size();
        const QSizeF scarto = trovata - carta.size(QPageSize::Millimeter);
        return std::abs(scarto.width()) <= SCARTO_CARTA && std::abs(scarto.height()) <= SCARTO_CARTA;
    }

    QPrinter m_stampante;
    const QString m_coda;
};

} // namespace

QList<CodaStampa> Code_Elenca()
{
    QList<CodaStampa> code;
    const QString predefinita = Coda_Predefinita();
    const QList<QPrinterInfo> trovate = QPrinterInfo::availablePrinters();
    for (const QPrinterInfo &coda : trovate) {
        const QString nome = coda.printerName();
        code.append({nome, nome == predefinita, coda.state() != QPrinter::Error});
    }
    return code;
}

QString Coda_Predefinita()
{
    return QPrinterInfo::defaultPrinterName();
}

QSizeF Coda_Carta(const QString &nome)
{
    const QSizeF carta = QPrinterInfo::printerInfo(nome).defaultPageSize().size(QPageSize::Millimeter);
    return carta.isEmpty() ? A4 : carta;
}

std::unique_ptr<FoglioStampa> Foglio_Nuovo(const QString &coda, const QString &titolo)
{
    return std::make_unique<FoglioCoda>(coda, titolo);
}
