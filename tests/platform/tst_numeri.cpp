// The loose numeric test and the conversions, with a point and with a comma as decimal separator.
#include "platform/numeri.h"

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/locale_prova.h"

#include <QTest>

#include <cmath>
#include <limits>

namespace {

constexpr double NO = std::numeric_limits<double>::infinity(); // the text is no number

struct Testo
{
    const char *testo;
    double conPunto;
    double conVirgola;
};

// clang-format off
constexpr Testo TESTI[] = {
    {"0",          0,       0},
    {"12",         12,      12},
    {"-12",        -12,     -12},
    {"+12",        12,      12},
    {"007",        7,       7},
    {" 12 ",       12,      12},
    {"\t12\r\n",   12,      12},
    {"1.5",        1.5,     15},
    {"1,5",        NO,      1.5},
    {"1.",         1,       1},
    {".5",         0.5,     5},
    {"-.5",        -0.5,    -5},
    {"1,",         NO,      1},
    {",5",         NO,      0.5},
    {"-,5",        NO,      -0.5},
    {"1e3",        1000,    1000},
    {"1E3",        1000,    1000},
    {"1e+3",       1000,    1000},
    {"25e-1",      2.5,     2.5},
    {"1.5e1",      15,      150},
    {"1,5e1",      NO,      15},
    {"1.234.567",  NO,      1234567},
    {"1.234,5",    NO,      1234.5},
    {"1,234.5",    NO,      1.2345},
    {"1,2,3",      NO,      NO},
    {"",           NO,      NO},
    {" ",          NO,      NO},
    {".",          NO,      NO},
    {",",          NO,      NO},
    {"+",          NO,      NO},
    {"-",          NO,      NO},
    {"--1",        NO,      NO},
    {"+-1",        NO,      NO},
    {"1 2",        NO,      NO},
    {"e3",         NO,      NO},
    {"1e",         NO,      NO},
    {"1e+",        NO,      NO},
    {"1e1.5",      NO,      1e15},
    {"12a",        NO,      NO},
    {"a12",        NO,      NO},
    {"0x1F",       NO,      NO},
    {"nan",        NO,      NO},
    {"inf",        NO,      NO},
    {"-inf",       NO,      NO},
    {"1e-400",     0,       0},
    {"12\n.",      NO,      NO},
};
// clang-format on

} // namespace

class tst_numeri : public QObject
{
    Q_OBJECT

    static void Punto() { Imposta_Locale(QLocale::c()); }
    static void Virgola() { Imposta_Locale(QLocale(QLocale::Italian)); }

private Q_SLOTS:
    void init() { Punto(); }
    void cleanupTestCase() { Punto(); }

    void numeroDaTesto_data()
    {
        QTest::addColumn<bool>("virgola");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<double>("valore");
        for (const Testo &riga : TESTI) {
            const QString testo = QString::fromLatin1(riga.testo);
            const QByteArray nome = QByteArray(riga.testo).toPercentEncoding("+,");
            QTest::addRow("point '%s'", nome.constData()) << false << testo << riga.conPunto;
            QTest::addRow("comma '%s'", nome.constData()) << true << testo << riga.conVirgola;
        }
        // Digits of other scripts, a blank that does not break, a NUL.
        for (const char16_t *testo : {u"\u0661\u0662", u"1\u00A02", u"\uFF11"})
            QTest::addRow("%s", qPrintable(QString::fromUtf16(testo)))
                << false << QString::fromUtf16(testo) << NO;
        QTest::newRow("NUL behind") << false << QString(u'1' + QString(QChar(0))) << NO;
    }
    void numeroDaTesto()
    {
        QFETCH(bool, virgola);
        QFETCH(QString, testo);
        QFETCH(double, valore);
        if (virgola)
            Virgola();
        QCOMPARE(Numero_Valido(testo), valore != NO);
        if (valore != NO) {
            QCOMPARE(Numero_Doppio(testo), valore);
            return;
        }
        QCOMPARE(Errore_Di([&] { Numero_Doppio(testo); }), 13);
        QCOMPARE(Errore_Di([&] { Numero_Singolo(testo); }), 13);
        QCOMPARE(Errore_Di([&] { Numero_32(testo); }), 13);
        QCOMPARE(Errore_Di([&] { Numero_16(testo); }), 13);
        QCOMPARE(Errore_Di([&] { Numero_8(testo); }), 13);
        QCOMPARE(Numero_Pezzo(testo), qint16{0});
    }

    void interiArrotondanoLaMetaAlPari_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<int>("intero");
        QTest::newRow("0.5") << QStringLiteral("0.5") << 0;
        QTest::newRow("1.5") << QStringLiteral("1.5") << 2;
        QTest::newRow("2.5") << QStringLiteral("2.5") << 2;
        QTest::newRow("3.5") << QStringLiteral("3.5") << 4;
        QTest::newRow("2.4999") << QStringLiteral("2.4999") << 2;
        QTest::newRow("2.5001") << QStringLiteral("2.5001") << 3;
        QTest::newRow("254.5") << QStringLiteral("254.5") << 254;
    }
    void interiArrotondanoLaMetaAlPari()
    {
        QFETCH(QString, testo);
        QFETCH(int, intero);
        QCOMPARE(Numero_32(testo), intero);
        QCOMPARE(int{Numero_16(testo)}, intero);
        QCOMPARE(int{Numero_8(testo)}, intero);
        QCOMPARE(Numero_32(u'-' + testo), -intero);
        QCOMPARE(int{Numero_16(u'-' + testo)}, -intero);
    }

    void limitiDegliInteri()
    {
        QCOMPARE(Numero_32(QStringLiteral("2147483647")), 2147483647);
        QCOMPARE(Numero_32(QStringLiteral("-2147483648")), std::numeric_limits<qint32>::min());
        QCOMPARE(Numero_32(QStringLiteral("2147483647.4")), 2147483647);
        QCOMPARE(Numero_16(QStringLiteral("32767")), qint16{32767});
        QCOMPARE(Numero_16(QStringLiteral("-32768")), qint16{-32768});
        QCOMPARE(Numero_8(QStringLiteral("255")), quint8{255});
        QCOMPARE(Numero_8(QStringLiteral("-0.5")), quint8{0});
    }

    void fuoriMisuraDaOverflow_data()
    {
        QTest::addColumn<int>("bit");
        QTest::addColumn<QString>("testo");
        for (const char *testo : {"256", "255.5", "-1", "-0.51", "32768", "1e10"})
            QTest::addRow("8 bits %s", testo) << 8 << QString::fromLatin1(testo);
        for (const char *testo : {"32768", "32767.5", "-32769", "1e10"})
            QTest::addRow("16 bits %s", testo) << 16 << QString::fromLatin1(testo);
        for (const char *testo : {"2147483648", "2147483647.5", "-2147483649", "1e10", "1e400"})
            QTest::addRow("32 bits %s", testo) << 32 << QString::fromLatin1(testo);
        for (const char *testo : {"3.4028236e38", "-3.4028236e38", "3.5e38", "-3.5e38", "1e400"})
            QTest::addRow("single %s", testo) << 1 << QString::fromLatin1(testo);
        for (const char *testo : {"1.8e308", "-1.8e308", "1e400", "1e99999"})
            QTest::addRow("double %s", testo) << 2 << QString::fromLatin1(testo);
    }
    void fuoriMisuraDaOverflow()
    {
        QFETCH(int, bit);
        QFETCH(QString, testo);
        QVERIFY(Numero_Valido(testo));
        const int errore = Errore_Di([&] {
            bit == 8    ? void(Numero_8(testo))
            : bit == 16 ? void(Numero_16(testo))
            : bit == 32 ? void(Numero_32(testo))
            : bit == 1  ? void(Numero_Singolo(testo))
                        : void(Numero_Doppio(testo));
        });
        QCOMPARE(errore, 6);
    }

    void numeroSingoloArrotondaAlSingolo()
    {
        QCOMPARE(Numero_Singolo(QStringLiteral("0.1")), 0.1F);
        QVERIFY(double{Numero_Singolo(QStringLiteral("0.1"))} != 0.1);
        QCOMPARE(Numero_Singolo(QStringLiteral("3.4e38")), 3.4e38F);
        // The largest, as it is written; up to half a step past it a number still rounds to it.
        const float massimo = std::numeric_limits<float>::max();
        for (const char *testo : {"3.4028235e38", "3.40282356e38"}) {
            QCOMPARE(Numero_Singolo(QString::fromLatin1(testo)), massimo);
            QCOMPARE(Numero_Singolo(u'-' + QString::fromLatin1(testo)), -massimo);
        }
    }

    void pezzoDiUnaData_data()
    {
        QTest::addColumn<QString>("pezzo");
        QTest::addColumn<int>("numero");
        QTest::newRow("day") << QStringLiteral("31") << 31;
        QTest::newRow("leading zero") << QStringLiteral("08") << 8;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("letters") << QStringLiteral("ab") << 0;
        QTest::newRow("past 16 bits") << QStringLiteral("99999") << 0;
        QTest::newRow("past everything") << QStringLiteral("1e999") << 0;
        QTest::newRow("half to even") << QStringLiteral("2.5") << 2;
    }
    void pezzoDiUnaData()
    {
        QFETCH(QString, pezzo);
        QTEST(int{Numero_Pezzo(pezzo)}, "numero");
    }

    void testoPiuCorto_data()
    {
        QTest::addColumn<double>("valore");
        QTest::addColumn<QString>("testo");
        QTest::newRow("whole") << 12.0 << QStringLiteral("12");
        QTest::newRow("zero") << 0.0 << QStringLiteral("0");
        QTest::newRow("zero with a sign") << -0.0 << QStringLiteral("0");
        QTest::newRow("one place") << 12.3 << QStringLiteral("12.3");
        QTest::newRow("below one") << 0.75 << QStringLiteral("0.75");
        QTest::newRow("negative") << -1.5 << QStringLiteral("-1.5");
        QTest::newRow("tenths") << 0.1 << QStringLiteral("0.1");
        QTest::newRow("a third") << 1.0 / 3.0 << QStringLiteral("0.3333333333333333");
        QTest::newRow("large") << 150000.0 << QStringLiteral("150000");
        QTest::newRow("larger than an exponent asks for") << 1e15 << QStringLiteral("1000000000000000");
        QTest::newRow("smaller than an exponent asks for") << 1e-6 << QStringLiteral("0.000001");
    }
    void testoPiuCorto()
    {
        QFETCH(double, valore);
        QFETCH(QString, testo);
        QCOMPARE(Numero_Testo(valore), testo);
        Virgola();
        QCOMPARE(Numero_Testo(valore), testo.replace(u'.', u','));
        QCOMPARE(Numero_Doppio(Numero_Testo(valore)), valore);
    }

    /// A single shows the digits of a single, not those of the double it would become.
    void testoDiUnSingolo()
    {
        QCOMPARE(Numero_Testo(12.3F), QStringLiteral("12.3"));
        QCOMPARE(Numero_Testo(-0.0F), QStringLiteral("0"));
        QCOMPARE(Numero_Testo(0.1F), QStringLiteral("0.1"));
        Virgola();
        QCOMPARE(Numero_Testo(12.3F), QStringLiteral("12,3"));
    }

    void testoDegliEstremi()
    {
        for (const double valore :
             {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
              std::numeric_limits<double>::min(), std::numeric_limits<double>::denorm_min()})
            QCOMPARE(Numero_Doppio(Numero_Testo(valore)), valore);
        for (const float valore : {std::numeric_limits<float>::max(), std::numeric_limits<float>::min()})
            QCOMPARE(Numero_Singolo(Numero_Testo(valore)), valore);
    }
};

QTEST_GUILESS_MAIN(tst_numeri)
#include "tst_numeri.moc"
