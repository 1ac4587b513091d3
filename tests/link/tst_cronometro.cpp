// Whole seconds by the clock on the wall, which somebody may set.
#include "link/cronometro.h"

#include "tests/comuni/orologio_prova.h"

#include <QTest>

class tst_cronometro : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void secondi()
    {
        OrologioProva orologio;
        Cronometro cronometro;
        QVERIFY(!cronometro.Partito());
        cronometro.Parti();
        QVERIFY(cronometro.Partito());
        orologio.Avanza(2999);
        QCOMPARE(cronometro.Secondi(), 2);
        orologio.Sposta(-10000);
        QCOMPARE(cronometro.Secondi(), 0);
        orologio.Avanza(10001);
        QCOMPARE(cronometro.Secondi(), 3);
    }
};

QTEST_GUILESS_MAIN(tst_cronometro)
#include "tst_cronometro.moc"
