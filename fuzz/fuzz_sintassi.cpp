// Any bytes as an acceptance file, through the scan of its lines: each line's findings are counted once more,
// by one expression for each rule.
#include "fuzz/comune.h"
#include "mctc/controllo_sintassi.h"
#include "platform/codifica.h"

#include <QRegularExpression>

namespace {

/// How many findings a line has. @param sezione some head stands above it; true from then on.
qsizetype Difetti_Attesi(const QString &riga, bool &sezione)
{
    static const QRegularExpression TESTA(QStringLiteral("\\[[^\\]]*\\]"),
                                          QRegularExpression::DotMatchesEverythingOption);
    if (riga.isEmpty())
        return 0;
    const bool testa = TESTA.match(riga).hasMatch();
    const bool uguale = riga.contains(u'=');
    sezione = sezione || testa;
    qsizetype difetti = sezione ? 0 : 1;
    if (testa)
        difetti += !riga.startsWith(u'[') + !riga.endsWith(u']');
    if (uguale)
        difetti += riga.startsWith(u' ') + riga.endsWith(u' ');
    if (uguale && riga.size() < 3)
        ++difetti;
    else if (uguale)
        difetti += riga.contains(QStringLiteral(" =")) + riga.contains(QStringLiteral("= "));
    else
        difetti += !riga.contains(u'[');
    return difetti;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    static const QRegularExpression FINE_RIGA(QStringLiteral("\r\n|\r|\n"));
    const QByteArray byte = Byte_Di(dati, quanti);
    const QString percorso = File_Con(QStringLiteral("12345678.acc"), byte);
    ListaAnomalie lista;
    qint16 ultimo = 0;
    if (!Esegui({NumeroErrore::Overflow}, [&] { ultimo = Acc_ControllaSintassi(percorso, lista); }))
        return 0;

    Pretendi(ultimo == lista.size() - 1, "the last index is that of the list");
    const QStringList righe = Testo_DaAnsi(byte).split(FINE_RIGA);
    bool sezione = false;
    auto anomalia = lista.cbegin();
    for (qsizetype i = 0; i < righe.size(); ++i) {
        for (qsizetype n = Difetti_Attesi(righe[i], sezione); n > 0; --n, ++anomalia) {
            Pretendi(anomalia != lista.cend() && anomalia->Riga == i + 1,
                     "every fault of a line is found there");
            Pretendi(anomalia->Testo.Vista() == righe[i], "a finding has the text of its line");
        }
    }
    Pretendi(anomalia == lista.cend(), "nothing is found that is no fault");
    return 0;
}
