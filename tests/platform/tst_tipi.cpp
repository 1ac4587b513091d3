// Checked narrowing and rounding.
#include "platform/tipi.h"

#include "tests/comuni/errore_prova.h"

#include <QTest>

#include <limits>

namespace {

template <typename T>
void Confronta_Limiti(T (*restringi)(qint64))
{
    constexpr qint64 MINIMO = std::numeric_limits<T>::min();
    constexpr qint64 MASSIMO = std::numeric_limits<T>::max();
    QCOMPARE(restringi(MINIMO), std::numeric_limits<T>::min());
    QCOMPARE(restringi(MASSIMO), std::numeric_limits<T>::max());
    QCOMPARE(restringi(0), T{0});
    for (const qint64 fuori :
         {MINIMO - 1, MASSIMO + 1, std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()})
    {
        QCOMPARE(Errore_Di([&] { restringi(fuori); }), 6);
    }
}

} // namespace

class tst_tipi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flag()
    {
        QCOMPARE(sizeof(Flag), size_t{2});
        QCOMPARE(Vero, Flag{-1});
        QCOMPARE(Falso, Flag{0});
        QCOMPARE(Flag_Da(true), Vero);
        QCOMPARE(Flag_Da(false), Falso);
    }

    void intero8() { Confronta_Limiti<quint8>(Intero8); }
    void intero16() { Confronta_Limiti<qint16>(Intero16); }
    void intero32() { Confronta_Limiti<qint32>(Intero32); }

    void arrotonda_data()
    {
        QTest::addColumn<double>("valore");
        QTest::addColumn<int>("intero");
        QTest::newRow("half down to even") << 0.5 << 0;
        QTest::newRow("half up to even") << 1.5 << 2;
        QTest::newRow("half down to two") << 2.5 << 2;
        QTest::newRow("negative half") << -0.5 << 0;
        QTest::newRow("negative half to even") << -1.5 << -2;
        QTest::newRow("negative half to two") << -2.5 << -2;
        QTest::newRow("below the half") << 0.49999999999999994 << 0;
        QTest::newRow("above the half") << 0.5000000001 << 1;
        QTest::newRow("largest") << 2147483647.4 << 2147483647;
        QTest::newRow("smallest") << -2147483648.5 << std::numeric_limits<qint32>::min();
    }
    void arrotonda()
    {
        QFETCH(double, valore);
        QTEST(Arrotonda(valore), "intero");
    }

    void arrotondaFuoriMisura_data()
    {
        QTest::addColumn<double>("valore");
        QTest::newRow("above") << 2147483647.5;
        QTest::newRow("below") << -2147483649.0;
        QTest::newRow("far above") << 1e300;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    }
    void arrotondaFuoriMisura()
    {
        QFETCH(double, valore);
        QCOMPARE(Errore_Di([&] { Arrotonda(valore); }), 6);
    }
};

QTEST_GUILESS_MAIN(tst_tipi)
#include "tst_tipi.moc"
