// The code page: every byte has its character, and a character without a byte becomes "?".
#include "platform/codifica.h"

#include <QTest>

class tst_codifica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ogniByteTornaUguale()
    {
        QByteArray byte;
        for (int b = 0; b < 256; ++b)
            byte.append(char(b));
        const QString testo = Testo_DaAnsi(byte);
        QCOMPARE(testo.size(), 256);
        QCOMPARE(Testo_InAnsi(testo), byte);
    }

    void byteECarattere_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("testo");
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("letters") << QByteArray("Abc 123") << QStringLiteral("Abc 123");
        QTest::newRow("accents") << QByteArray("\xE0\xE8\xE9\xEC\xF2\xF9\xDF") << QStringLiteral("àèéìòùß");
        QTest::newRow("degree, section") << QByteArray("\xB0\xA7") << QStringLiteral("°§");
        QTest::newRow("euro") << QByteArray("\x80") << QStringLiteral("€");
        QTest::newRow("row 80") << QByteArray("\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E")
                                << QStringLiteral("‚ƒ„…†‡ˆ‰Š‹ŒŽ");
        QTest::newRow("row 90") << QByteArray("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F")
                                << QStringLiteral("‘’“”•–—˜™š›œžŸ");
        QTest::newRow("unassigned bytes")
            << QByteArray("\x81\x8D\x8F\x90\x9D") << QStringLiteral("\u0081\u008D\u008F\u0090\u009D");
        QTest::newRow("NUL inside") << QByteArray("a\0b", 3)
                                    << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
    }
    void byteECarattere()
    {
        QFETCH(QByteArray, byte);
        QFETCH(QString, testo);
        QCOMPARE(Testo_DaAnsi(byte), testo);
        QCOMPARE(Testo_InAnsi(testo), byte);
    }

    void fuoriDallaPaginaDiCodici_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("Cyrillic") << QStringLiteral("aЖb") << QByteArray("a?b");
        QTest::newRow("letter that resembles one") << QStringLiteral("āŁ") << QByteArray("??");
        QTest::newRow("combining accent") << QStringLiteral("e\u0301") << QByteArray("e?");
        QTest::newRow("control that has no byte") << QStringLiteral("\u0080\u0099") << QByteArray("??");
        QTest::newRow("outside the base plane is one character")
            << QStringLiteral("a\U0001F600b") << QByteArray("a?b");
        QTest::newRow("a pair at the end") << QStringLiteral("a\U0001F600") << QByteArray("a?");
        QTest::newRow("half a pair, high") << QString(QChar(0xD83D)) + u'b' << QByteArray("?b");
        QTest::newRow("half a pair, low") << QString(QChar(0xDE00)) + u'b' << QByteArray("?b");
        QTest::newRow("half a pair at the end") << QString(u'b' + QString(QChar(0xD83D))) << QByteArray("b?");
    }
    void fuoriDallaPaginaDiCodici()
    {
        QFETCH(QString, testo);
        QTEST(Testo_InAnsi(testo), "byte");
    }
};

QTEST_GUILESS_MAIN(tst_codifica)
#include "tst_codifica.moc"
