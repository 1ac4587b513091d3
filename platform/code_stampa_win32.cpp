// Print queues of Windows. The sheet is painted straight on the queue's driver: the job begins with the
// painter and goes out when it ends.
#include "platform/code_stampa.h"

#include <QPrinter>
#include <QPrinterInfo>

namespace {

const QSizeF A4(210, 297);

class FoglioCoda : public FoglioStampa
{
public:
    FoglioCoda(const QString &coda, const QString &titolo)
        : m_stampante(QPrinterInfo::printerInfo(coda), QPrinter::HighResolution)
    {
        m_stampante.setDocName(titolo);
    }
    QPagedPaintDevice &Superficie() override { return m_stampante; }
    /// The job has gone out with the painter's end; here it shows whether the driver took it.
    bool Consegna() override
    {
        const QPrinter::PrinterState stato = m_stampante.printerState();
        return m_stampante.isValid() && stato != QPrinter::Error && stato != QPrinter::Aborted;
    }

private:
    QPrinter m_stampante;
};

} // namespace

QList<CodaStampa> Code_Elenca()
{
    QList<CodaStampa> code;
    const QString predefinita = QPrinterInfo::defaultPrinterName();
    const QList<QPrinterInfo> trovate = QPrinterInfo::availablePrinters();
    for (const QPrinterInfo &coda : trovate) {
        const QString nome = coda.printerName();
        code.append({nome, nome == predefinita, coda.state() != QPrinter::Error});
    }
    return code;
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
