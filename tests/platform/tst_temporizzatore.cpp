// The timer of a form, on the test's own clock and on the system's.
#include "platform/temporizzatore.h"

#include "tests/comuni/orologio_prova.h"

#include <QElapsedTimer>
#include <QTest>

class tst_temporizzatore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spentoNonBatte()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore timer([&battiti] { ++battiti; });
        QVERIFY(!timer.Enabled());
        QCOMPARE(timer.Interval(), 0);
        timer.Interval(200);
        orologio.Avanza(10000);
        QCOMPARE(battiti, 0);
        QCOMPARE(timer.Interval(), 200);
    }

    void batteAOgniIntervallo()
    {
        OrologioProva orologio;
        QList<qint64> battiti;
        Temporizzatore timer([&] { battiti.append(orologio.Passati()); });
        timer.Interval(200);
        timer.Enabled(true);
        orologio.Avanza(199);
        QCOMPARE(battiti, QList<qint64>{});
        orologio.Avanza(501);
        QCOMPARE(battiti, (QList<qint64>{200, 400, 600}));
    }

    void intervallo0NonBatte()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore timer([&battiti] { ++battiti; });
        timer.Enabled(true);
        orologio.Avanza(10000);
        QCOMPARE(battiti, 0);
        timer.Interval(100);
        orologio.Avanza(100);
        QCOMPARE(battiti, 1);
        timer.Interval(0);
        orologio.Avanza(10000);
        QCOMPARE(battiti, 1);
        QVERIFY(timer.Enabled());
        QCOMPARE(orologio.Armate(), 0);
    }

    void spegnereERiaccendereDaUnIntervalloIntero()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore timer([&battiti] { ++battiti; });
        timer.Interval(200);
        timer.Enabled(true);
        orologio.Avanza(150);
        timer.Enabled(false);
        orologio.Avanza(1000);
        QCOMPARE(battiti, 0);
        timer.Enabled(true);
        orologio.Avanza(199);
        QCOMPARE(battiti, 0);
        orologio.Avanza(1);
        QCOMPARE(battiti, 1);
    }

    void accendereUnTimerAccesoNonLoFaRipartire()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore timer([&battiti] { ++battiti; });
        timer.Interval(200);
        timer.Enabled(true);
        orologio.Avanza(150);
        timer.Enabled(true);
        orologio.Avanza(50);
        QCOMPARE(battiti, 1);
    }

    void cambiareIntervalloFaRipartire()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore timer([&battiti] { ++battiti; });
        timer.Interval(200);
        timer.Enabled(true);
        orologio.Avanza(150);
        timer.Interval(2000);
        orologio.Avanza(1999);
        QCOMPARE(battiti, 0);
        orologio.Avanza(1);
        QCOMPARE(battiti, 1);
    }

    void ilBattitoPuoSpegnere()
    {
        OrologioProva orologio;
        int battiti = 0;
        Temporizzatore *suo = nullptr;
        Temporizzatore timer([&] {
            ++battiti;
            suo->Enabled(false);
        });
        suo = &timer;
        timer.Interval(100);
        timer.Enabled(true);
        orologio.Avanza(1000);
        QCOMPARE(battiti, 1);
    }

    void distruttoNonBattePiu()
    {
        OrologioProva orologio;
        int battiti = 0;
        {
            Temporizzatore timer([&battiti] { ++battiti; });
            timer.Interval(100);
            timer.Enabled(true);
        }
        orologio.Avanza(1000);
        QCOMPARE(battiti, 0);
    }

    void sulSistemaBatteDalGiroDegliEventi()
    {
        int battiti = 0;
        QElapsedTimer passato;
        Temporizzatore timer([&battiti] { ++battiti; });
        timer.Interval(20);
        passato.start();
        timer.Enabled(true);
        QCOMPARE(battiti, 0);
        QTRY_VERIFY(battiti >= 3);
        QVERIFY2(passato.elapsed() >= 55, qPrintable(QString::number(passato.elapsed())));
    }

    void sulSistemaSpentoNonBatte()
    {
        int spenti = 0;
        int battiti = 0;
        Temporizzatore spento([&spenti] { ++spenti; });
        Temporizzatore timer([&battiti] { ++battiti; });
        spento.Interval(5);
        spento.Enabled(true);
        spento.Enabled(false);
        timer.Interval(20);
        timer.Enabled(true);
        QTRY_VERIFY(battiti >= 2);
        QCOMPARE(spenti, 0);
    }

    /// A form that its own timer closes takes the timer with it.
    void sulSistemaIlBattitoPuoDistruggereIlTimer()
    {
        int battiti = 0;
        std::unique_ptr<Temporizzatore> timer;
        timer = std::make_unique<Temporizzatore>([&] {
            ++battiti;
            timer.reset();
        });
        timer->Interval(1);
        timer->Enabled(true);
        QTRY_COMPARE(battiti, 1);
        QVERIFY(timer == nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_temporizzatore)
#include "tst_temporizzatore.moc"
