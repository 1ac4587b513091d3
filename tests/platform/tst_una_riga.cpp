// Where a text is cut so that it stays one line.
#include "platform/una_riga.h"

#include <QTest>

class tst_una_riga : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void primaRiga_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("riga");
        const QString nullo(QChar(u'\0'));
        QTest::newRow("vuoto") << QString() << QString();
        QTest::newRow("una riga") << QStringLiteral("Officina Rossi") << QStringLiteral("Officina Rossi");
        QTest::newRow("CR") << QStringLiteral("uno\rdue") << QStringLiteral("uno");
        QTest::newRow("LF") << QStringLiteral("uno\ndue") << QStringLiteral("uno");
        QTest::newRow("CRLF") << QStringLiteral("uno\r\ndue\r\ntre") << QStringLiteral("uno");
        QTest::newRow("NUL") << QStringLiteral("uno") + nullo + QStringLiteral("due")
                             << QStringLiteral("uno");
        QTest::newRow("il primo dei tre")
            << QStringLiteral("uno") + nullo + QStringLiteral("\n\r") << QStringLiteral("uno");
        QTest::newRow("in testa") << QStringLiteral("\n[MCTC]") << QString();
        QTest::newRow("in coda") << QStringLiteral("uno\n") << QStringLiteral("uno");
        QTest::newRow("spazi restano") << QStringLiteral(" uno \t\r") << QStringLiteral(" uno \t");
        // What ends no line of our files, ends of a frame among them, is a character like others.
        const QString altri = QStringLiteral("a\u000Bb\u000Cc\u0003d\u0017e\u0085f\u2028g");
        QTest::newRow("altri segni") << altri << altri;
    }
    void primaRiga()
    {
        QFETCH(QString, testo);
        QTEST(Una_Riga(testo), "riga");
    }
};

QTEST_GUILESS_MAIN(tst_una_riga)
#include "tst_una_riga.moc"
