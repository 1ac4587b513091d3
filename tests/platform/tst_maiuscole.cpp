// Capital letters, one for one.
#include "platform/maiuscole.h"

#include <QTest>

class tst_maiuscole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void letteraPerLettera_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("grande");
        QTest::newRow("vuoto") << QString() << QString();
        QTest::newRow("cifre e segni") << QStringLiteral("12-a_b.acc") << QStringLiteral("12-A_B.ACC");
        QTest::newRow("gia grandi") << QStringLiteral("ABC") << QStringLiteral("ABC");
        QTest::newRow("accenti") << QStringLiteral("forlì") << QStringLiteral("FORLÌ");
        QTest::newRow("due lettere in una") << QStringLiteral("straße") << QStringLiteral("STRAßE");
    }
    void letteraPerLettera()
    {
        QFETCH(QString, testo);
        QTEST(Maiuscole(testo), "grande");
    }
};

QTEST_GUILESS_MAIN(tst_maiuscole)
#include "tst_maiuscole.moc"
