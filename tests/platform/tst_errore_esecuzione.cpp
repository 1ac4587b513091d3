// Run-time errors: numbers and descriptions of the classic set.
#include "platform/errore_esecuzione.h"

#include <QTest>

namespace {

struct Voce
{
    NumeroErrore errore;
    int numero;
    const char *descrizione;
};

// clang-format off
constexpr Voce VOCI[] = {
    {NumeroErrore::Overflow,              6,    "Overflow"},
    {NumeroErrore::IndiceFuoriIntervallo, 9,    "Subscript out of range"},
    {NumeroErrore::TipoNonCorrispondente, 13,   "Type mismatch"},
    {NumeroErrore::NomeFileErrato,        52,   "Bad file name or number"},
    {NumeroErrore::FileNonTrovato,        53,   "File not found"},
    {NumeroErrore::DiscoPieno,            61,   "Disk full"},
    {NumeroErrore::PermessoNegato,        70,   "Permission denied"},
    {NumeroErrore::PercorsoNonTrovato,    76,   "Path not found"},
    {NumeroErrore::ValoreProprietaErrato, 380,  "Invalid property value"},
    {NumeroErrore::FormGiaVisibile,       400,  "Form already displayed; can't show modally"},
    {NumeroErrore::ImmagineNonValida,     481,  "Invalid picture"},
    {NumeroErrore::PortaNonAperta,        8018, "Operation valid only when the port is open"},
};
// clang-format on

} // namespace

class tst_errore_esecuzione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sollevaNumeroEDescrizione_data()
    {
        QTest::addColumn<int>("voce");
        for (size_t i = 0; i < std::size(VOCI); ++i)
            QTest::newRow(VOCI[i].descrizione) << int(i);
    }
    void sollevaNumeroEDescrizione()
    {
        QFETCH(int, voce);
        const Voce &attesa = VOCI[voce];
        try {
            Solleva(attesa.errore);
        } catch (const std::exception &preso) {
            const auto *errore = dynamic_cast<const ErroreEsecuzione *>(&preso);
            QVERIFY(errore != nullptr);
            QCOMPARE(errore->Numero(), attesa.numero);
            QCOMPARE(errore->Descrizione(), QString::fromLatin1(attesa.descrizione));
            QCOMPARE(QByteArray(preso.what()),
                     QByteArray::number(attesa.numero) + ": " + QByteArray(attesa.descrizione));
        }
    }

    void numeroConDescrizionePropria()
    {
        const ErroreEsecuzione errore(8005, QStringLiteral("Port già aperta"));
        QCOMPARE(errore.Numero(), 8005);
        QCOMPARE(errore.Descrizione(), QStringLiteral("Port già aperta"));
        QCOMPARE(QByteArray(errore.what()), QByteArray("8005: Port gi\xC3\xA0 aperta"));
    }

    void numeroFuoriTabella()
    {
        const ErroreEsecuzione errore(static_cast<NumeroErrore>(1));
        QCOMPARE(errore.Descrizione(), QStringLiteral("Application-defined or object-defined error"));
    }

    void laCopiaTieneIlTesto()
    {
        QByteArray testo;
        try {
            throw ErroreEsecuzione(ErroreEsecuzione(NumeroErrore::Overflow));
        } catch (const ErroreEsecuzione &errore) {
            testo = errore.what();
        }
        QCOMPARE(testo, "6: Overflow");
    }
};

QTEST_GUILESS_MAIN(tst_errore_esecuzione)
#include "tst_errore_esecuzione.moc"
