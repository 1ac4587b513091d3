// The two locale calls.
#include "platform/localita.h"

#include "tests/comuni/locale_prova.h"

#include <QTest>

class tst_localita : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Imposta_Locale(QLocale::c()); }

    void separatori_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("decimale");
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("Italian") << QLocale(QLocale::Italian, QLocale::Italy) << QStringLiteral(",")
                                 << QByteArray("/");
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << QStringLiteral(",")
                                << QByteArray(".");
        QTest::newRow("English") << QLocale(QLocale::English, QLocale::UnitedStates) << QStringLiteral(".")
                                 << QByteArray("/");
        QTest::newRow("Dutch") << QLocale(QLocale::Dutch, QLocale::Netherlands) << QStringLiteral(",")
                               << QByteArray("-");
    }
    void separatori()
    {
        QFETCH(QLocale, locale);
        QFETCH(QString, decimale);
        QFETCH(QByteArray, data);
        Imposta_Locale(locale);
        QCOMPARE(Separatore_Decimale(), decimale.at(0));

        QByteArray testo(8, 'x');
        QCOMPARE(Locale_Dato(Locale_Utente(), LOCALE_SEPARATORE_DECIMALE, testo, 8), 2);
        QCOMPARE(testo.first(2), decimale.toLatin1() + '\0');
        QCOMPARE(Locale_Dato(Locale_Utente(), LOCALE_SEPARATORE_DATA, testo, 8), 2);
        QCOMPARE(testo.first(2), data + '\0');
    }

    void laMisura0ChiedeSoltanto()
    {
        QByteArray testo("x");
        QCOMPARE(Locale_Dato(Locale_Utente(), LOCALE_SEPARATORE_DATA, testo, 0), 2);
        QCOMPARE(testo, "x");
    }

    void bufferTroppoCorto()
    {
        QByteArray testo("x");
        QCOMPARE(Locale_Dato(Locale_Utente(), LOCALE_SEPARATORE_DECIMALE, testo, 1), 0);
        QCOMPARE(testo, "x");
    }

    void tipoSconosciuto()
    {
        QByteArray testo(8, 'x');
        QCOMPARE(Locale_Dato(Locale_Utente(), 9999, testo, 8), 0);
        QCOMPARE(testo, QByteArray(8, 'x'));
    }

    void bufferPiuGrandeRestaGrande()
    {
        QByteArray testo(8, 'x');
        Locale_Dato(Locale_Utente(), LOCALE_SEPARATORE_DECIMALE, testo, 8);
        QCOMPARE(testo.size(), 8);
        QCOMPARE(testo.last(6), QByteArray(6, 'x'));
    }
};

QTEST_GUILESS_MAIN(tst_localita)
#include "tst_localita.moc"
