// The instrument of a record: what it answers, when, and where it finds the station different.
#include "simulatore/riproduzione.h"

#include "core/parole.h"
#include "tests/simulatore/byte_prova.h"

#include <QTest>

#include <limits>

namespace {

BranoLinea Dalla_Stazione(qint64 ms, const QByteArray &byte)
{
    return {ms, Voce::Stazione, byte};
}

BranoLinea Dallo_Strumento(qint64 ms, const QByteArray &byte)
{
    return {ms, Voce::Strumento, byte};
}

/// A record being played.
class Banchetto
{
public:
    explicit Banchetto(const QList<BranoLinea> &brani, double passo = 1)
        : riproduzione({{}, brani}, passo, [this](const QString &riga) { registro.append(riga); })
    {
    }

    /// Pieces as "delay:hexadecimal".
    QStringList Manda(const QByteArray &byte)
    {
        QStringList pezzi;
        for (const Invio &invio : riproduzione.Ricevi(byte))
            pezzi.append(QString::number(invio.ritardo) + u':' + Trama_Hex(invio.byte));
        return pezzi;
    }

    QStringList registro;
    Riproduzione riproduzione;
};

const QList<BranoLinea> DUE_COMANDI = {Dalla_Stazione(100, STATO), Dallo_Strumento(141, A_RIPOSO),
                                       Dalla_Stazione(300, MISURA), Dallo_Strumento(350, PRONTA)};

} // namespace

class tst_riproduzione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void risponde();
    void accelerata_data();
    void accelerata();
    void inInglese();
    void rispostaSpezzata();
    void comandoSpezzatoDaEntrambe();
    void silenzioERipetizione();
    void rispostaTardivaDopoIlSecondoInvio();
    void diversaSenzaRispostaENelPosto();
    void oltreLaFine();
    void primaDiOgniComando();
    void rumoreDellaStazione();
    void lineaLasciataAMetaTrama();
    void attesaSmisurata();
};

void tst_riproduzione::risponde()
{
    Banchetto banchetto(DUE_COMANDI);
    QCOMPARE(banchetto.Manda(STATO), QStringList(QStringLiteral("41:") + Trama_Hex(A_RIPOSO)));
    QVERIFY(!banchetto.riproduzione.Finita());
    QCOMPARE(banchetto.Manda(MISURA), QStringList(QStringLiteral("50:") + Trama_Hex(PRONTA)));
    QVERIFY(banchetto.riproduzione.Finita());
    QVERIFY(!banchetto.riproduzione.Diversa());
    QCOMPARE(banchetto.registro,
             QStringList({QStringLiteral("-- registrazione di 2 comandi"),
                          QStringLiteral("<- ") + Trama_Hex(STATO), QStringLiteral("<- ") + Trama_Hex(MISURA),
                          QStringLiteral("-- fine della registrazione")}));
}

void tst_riproduzione::accelerata_data()
{
    QTest::addColumn<double>("passo");
    QTest::addColumn<int>("primo"); // ms of the delays, 41 and 50 in the record
    QTest::addColumn<int>("secondo");
    QTest::newRow("subito") << 0.0 << 0 << 0;
    QTest::newRow("il doppio") << 2.0 << 21 << 25;
    QTest::newRow("dieci volte") << 10.0 << 4 << 5;
    QTest::newRow("la metà") << 0.5 << 82 << 100;
    QTest::newRow("quasi ferma") << 1e-12 << std::numeric_limits<int>::max()
                                 << std::numeric_limits<int>::max();
}

void tst_riproduzione::accelerata()
{
    QFETCH(double, passo);
    QFETCH(int, primo);
    QFETCH(int, secondo);
    Banchetto banchetto(DUE_COMANDI, passo);
    QCOMPARE(banchetto.Manda(STATO), QStringList(QString::number(primo) + u':' + Trama_Hex(A_RIPOSO)));
    QCOMPARE(banchetto.Manda(MISURA), QStringList(QString::number(secondo) + u':' + Trama_Hex(PRONTA)));
}

void tst_riproduzione::inInglese()
{
    QVERIFY(Lingua_Scegli(QStringLiteral("EN")));
    Banchetto banchetto(QList<BranoLinea>{Dallo_Strumento(5, A_RIPOSO)} + DUE_COMANDI);
    banchetto.Manda("z" + MISURA + STATO + MISURA + MISURA);
    initTestCase();
    QCOMPARE(banchetto.registro[0],
             QStringLiteral("-- before any command, not played again: ") + Trama_Hex(A_RIPOSO));
    QCOMPARE(banchetto.registro[1], QStringLiteral("-- a record of 2 commands"));
    QVERIFY(banchetto.registro.contains(QStringLiteral("-- different: in the record command 1 is ") +
                                        Trama_Hex(STATO)));
    QVERIFY(banchetto.registro.contains(QStringLiteral("-- end of the record")));
    QVERIFY(banchetto.registro.contains(QStringLiteral("-- different: the record has ended")));
    QCOMPARE(banchetto.registro.last(), QStringLiteral("-- outside a frame: 7A"));
}

void tst_riproduzione::rispostaSpezzata()
{
    Banchetto banchetto({Dalla_Stazione(10, STATO), Dallo_Strumento(20, A_RIPOSO.first(3)),
                         Dallo_Strumento(320, A_RIPOSO.sliced(3))});
    QCOMPARE(banchetto.Manda(STATO),
             QStringList({QStringLiteral("10:02 41 42"), QStringLiteral("310:43 31 39 03")}));
}

void tst_riproduzione::comandoSpezzatoDaEntrambe()
{
    // The record has the command in two pieces, the station sends it in three: the reply waits for its end.
    Banchetto banchetto({Dalla_Stazione(10, STATO.first(2)), Dalla_Stazione(15, STATO.sliced(2)),
                         Dallo_Strumento(20, A_RIPOSO)});
    QCOMPARE(banchetto.Manda(STATO.first(4)), QStringList());
    QCOMPARE(banchetto.Manda(STATO.sliced(4, 1)), QStringList());
    QCOMPARE(banchetto.Manda(STATO.sliced(5)), QStringList(QStringLiteral("5:") + Trama_Hex(A_RIPOSO)));
}

void tst_riproduzione::silenzioERipetizione()
{
    Banchetto banchetto(
        {Dalla_Stazione(0, STATO), Dalla_Stazione(2200, STATO), Dallo_Strumento(2240, A_RIPOSO)});
    QCOMPARE(banchetto.Manda(STATO), QStringList());
    QCOMPARE(banchetto.Manda(STATO), QStringList(QStringLiteral("40:") + Trama_Hex(A_RIPOSO)));
    QVERIFY(!banchetto.riproduzione.Diversa());
}

void tst_riproduzione::rispostaTardivaDopoIlSecondoInvio()
{
    Banchetto banchetto({Dalla_Stazione(0, STATO), Dalla_Stazione(2200, STATO),
                         Dallo_Strumento(2500, A_RIPOSO), Dallo_Strumento(2600, A_RIPOSO)});
    QCOMPARE(banchetto.Manda(STATO), QStringList());
    QCOMPARE(banchetto.Manda(STATO).size(), 2);
}

void tst_riproduzione::diversaSenzaRispostaENelPosto()
{
    Banchetto banchetto(DUE_COMANDI);
    QCOMPARE(banchetto.Manda(STATO).size(), 1);
    QCOMPARE(banchetto.Manda(LEGGI_DATI), QStringList());
    QVERIFY(banchetto.riproduzione.Diversa());
    QCOMPARE(banchetto.registro.last(),
             QStringLiteral("-- diverso: nella registrazione il comando 2 è ") + Trama_Hex(MISURA));
    QCOMPARE(banchetto.Manda(MISURA), QStringList(QStringLiteral("50:") + Trama_Hex(PRONTA)));
    QVERIFY(banchetto.riproduzione.Finita());
    QVERIFY(banchetto.riproduzione.Diversa());
}

void tst_riproduzione::oltreLaFine()
{
    Banchetto banchetto(DUE_COMANDI);
    banchetto.Manda(STATO + MISURA);
    QVERIFY(!banchetto.riproduzione.Diversa());
    QCOMPARE(banchetto.Manda(STATO), QStringList());
    QVERIFY(banchetto.riproduzione.Diversa());
    QCOMPARE(banchetto.registro.last(), QStringLiteral("-- diverso: la registrazione è finita"));
}

void tst_riproduzione::primaDiOgniComando()
{
    Banchetto banchetto(
        {Dallo_Strumento(5, A_RIPOSO), Dalla_Stazione(10, STATO), Dallo_Strumento(20, IN_PROVA)});
    QCOMPARE(banchetto.registro.first(),
             QStringLiteral("-- prima di ogni comando, non riprodotti: ") + Trama_Hex(A_RIPOSO));
    QCOMPARE(banchetto.Manda(STATO), QStringList(QStringLiteral("10:") + Trama_Hex(IN_PROVA)));
}

void tst_riproduzione::rumoreDellaStazione()
{
    // Bytes outside a frame are no command, in the record as on the line.
    Banchetto banchetto({Dalla_Stazione(5, "xy" + STATO), Dallo_Strumento(20, A_RIPOSO)});
    QCOMPARE(banchetto.Manda("z" + STATO), QStringList(QStringLiteral("15:") + Trama_Hex(A_RIPOSO)));
    QVERIFY(!banchetto.riproduzione.Diversa());
    QCOMPARE(banchetto.registro.last(), QStringLiteral("-- fuori trama: 7A"));
}

void tst_riproduzione::lineaLasciataAMetaTrama()
{
    Banchetto banchetto(DUE_COMANDI);
    QCOMPARE(banchetto.Manda(STATO.first(4)), QStringList());
    banchetto.riproduzione.Linea_Lasciata();
    QCOMPARE(banchetto.Manda(STATO).size(), 1);
    QVERIFY(!banchetto.riproduzione.Diversa());
}

void tst_riproduzione::attesaSmisurata()
{
    Banchetto banchetto({Dalla_Stazione(0, STATO), Dallo_Strumento(999999999999, A_RIPOSO)});
    QCOMPARE(banchetto.Manda(STATO),
             QStringList(QString::number(std::numeric_limits<int>::max()) + u':' + Trama_Hex(A_RIPOSO)));
}

QTEST_GUILESS_MAIN(tst_riproduzione)
#include "tst_riproduzione.moc"
