// Any bytes as an acceptance file, through the comparison with a template and the scan of the text. Only an
// overflow of a 16-bit length or count may end them.
#include "mctc/controllo_sintassi.h"
#include "mctc/controllo_struttura.h"
#include "platform/errore_esecuzione.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

void Scrivi(const QString &nome, const QByteArray &byte)
{
    QFile file(nome);
    if (!file.open(QIODevice::WriteOnly) || file.write(byte) != byte.size())
        std::abort();
}

/// Runs a pass that may only fail by overflow.
template <typename Passata>
void Prova(Passata passata)
{
    try {
        passata();
    } catch (const ErroreEsecuzione &errore) {
        if (errore.Numero() != static_cast<int>(NumeroErrore::Overflow))
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    static const QTemporaryDir CARTELLA;
    static const QString MODELLO = CARTELLA.filePath(QStringLiteral("Modello.acc"));
    static const QString FILE_ACC = CARTELLA.filePath(QStringLiteral("12345678.acc"));
    static const bool PRONTO = [] {
        Scrivi(MODELLO, "[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3\r\n");
        return true;
    }();
    Q_UNUSED(PRONTO)

    const QByteArray byte(reinterpret_cast<const char *>(dati), static_cast<qsizetype>(quanti));
    Scrivi(FILE_ACC, byte);
    const auto percorso = [](QString nome) { return nome.replace(u'/', u'\\'); };
    ListaAnomalie lista;
    Prova([&] { Acc_ControllaStruttura(percorso(MODELLO), percorso(FILE_ACC), lista); });
    Prova([&] { Acc_ControllaSintassi(percorso(FILE_ACC), lista); });
    return 0;
}
