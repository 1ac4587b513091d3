// The numbers of the codes: a form and its parent keep to them, whatever they are called.
#include "core/codici.h"

#include <QTest>

class tst_codici : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniCodiceHaIlSuoNumero_data()
    {
        QTest::addColumn<int>("codice");
        QTest::addColumn<int>("numero");
        const auto riga = [](const char *nome, int codice, int numero) {
            QTest::newRow(nome) << codice << numero;
        };
        riga("test button", ProvaScelta, 2);
        riga("vehicle confirmed", ProvaConfermata, 4);
        riga("setup saved", SetupSalvato, 1);
        riga("language chosen", SetupLingua, 2);
        riga("work mode", SetupLavoro, 4);
        riga("workshop saved", AnagraficaSalvata, 1);
        riga("vehicle", VeicoloConfermato, 4);
        riga("result left", EsitoChiuso, 5);
        riga("session completed", SessioneCompletata, 6);
        riga("session failed", SessioneFallita, 7);
    }
    void ogniCodiceHaIlSuoNumero()
    {
        QFETCH(int, codice);
        QTEST(codice, "numero");
    }
};

QTEST_GUILESS_MAIN(tst_codici)
#include "tst_codici.moc"
