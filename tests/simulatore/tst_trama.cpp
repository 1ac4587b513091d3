// Frames on the instrument's side.
#include "simulatore/trama.h"

#include "core/parole.h"
#include "tests/simulatore/byte_prova.h"

#include <QTest>

class tst_trama : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void rispostaConPrefissoEControllo();
    void controlloDiUnaSommaDi256();
    void controlloRimessoDopoUnaModifica();
    void sommaOltreSediciBit();
    void difettoDellaTrama();
    void finoAlPrimoByteDiFine();
    void scartatiUnaVoltaSola();
};

void tst_trama::rispostaConPrefissoEControllo()
{
    QCOMPARE(Trama_Componi("1"), A_RIPOSO);
    QCOMPARE(Trama_Componi("4"), PRONTA);
    QCOMPARE(Trama_Componi("\xFF"), SCRITTO);
}

void tst_trama::controlloDiUnaSommaDi256()
{
    // 200 for start and prefix, and 56: the sum is 0 in eight bits.
    QCOMPARE(Trama_Componi("8"), Byte("02 41 42 43 38 30 03"));
}

void tst_trama::controlloRimessoDopoUnaModifica()
{
    QByteArray trama = A_RIPOSO;
    trama[4] = '2';
    QCOMPARE(Trama_Controllata(trama), IN_PROVA);
}

void tst_trama::sommaOltreSediciBit()
{
    // 200 and 1000 times 255 are 255200, in eight bits 224.
    const QByteArray trama = Trama_Componi(QByteArray(1000, '\xFF'));
    QCOMPARE(trama.last(2), QByteArray("4\x03"));
}

void tst_trama::difettoDellaTrama()
{
    QCOMPARE(Trama_Difetto(STATO), QString());
    QCOMPARE(Trama_Difetto(Byte("02 41 42 43 80 00 32 03")), QString());
    QVERIFY(!Trama_Difetto(Byte("02 41 42 43 10 35 03")).isEmpty());
    QVERIFY(!Trama_Difetto(Byte("02 41 42 43 10 03")).isEmpty());
    QVERIFY(!Trama_Difetto(Byte("02 61 62 63 10 32 03")).isEmpty());
}

void tst_trama::finoAlPrimoByteDiFine()
{
    AssemblatoreComandi assemblatore;
    QList<QByteArray> trame;
    for (const char byte : Byte("02 41 02 03 42 03 02 43 03")) {
        if (assemblatore.Aggiungi(byte))
            trame.append(assemblatore.Trama());
    }
    QCOMPARE(trame, QList<QByteArray>({Byte("02 41 02 03"), Byte("02 43 03")}));
    QCOMPARE(assemblatore.Scartati(), Byte("42 03"));
}

void tst_trama::scartatiUnaVoltaSola()
{
    AssemblatoreComandi assemblatore;
    QVERIFY(!assemblatore.Aggiungi('x'));
    QCOMPARE(assemblatore.Scartati(), QByteArray("x"));
    QCOMPARE(assemblatore.Scartati(), QByteArray());
}

QTEST_GUILESS_MAIN(tst_trama)
#include "tst_trama.moc"
