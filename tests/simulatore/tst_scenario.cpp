// Scenario files: what is read, and what is refused.
#include "simulatore/scenario.h"

#include "core/parole.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

namespace {

QStringList Leggi(const QByteArray &testo, Scenario &scenario)
{
    const QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("scenario.ini"));
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly) || file.write(testo) != testo.size())
        qFatal("cannot write the scenario");
    file.close();
    return Scenario_Leggi(percorso, scenario);
}

} // namespace

class tst_scenario : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void senzaFile();
    void fileMancante();
    void tuttoLetto();
    void veicoliFinoAlPrimoMancante();
    void recordPredefiniti();
    void volte_data();
    void volte();
    void errore_data();
    void errore();
    void erroriTuttiInsieme();
};

void tst_scenario::senzaFile()
{
    Scenario scenario;
    scenario.ritardo = 7;
    QVERIFY(Scenario_Leggi(QString(), scenario).isEmpty());
    QCOMPARE(scenario.ritardo, 40);
    QVERIFY(scenario.veicoli.isEmpty());
    QVERIFY(scenario.guasti.isEmpty());
}

void tst_scenario::fileMancante()
{
    Scenario scenario;
    QCOMPARE(Scenario_Leggi(QStringLiteral("/manca/scenario.ini"), scenario).size(), 1);
}

void tst_scenario::tuttoLetto()
{
    Scenario scenario;
    const QStringList errori =
        Leggi("[GENERALE]\nRitardo=0\nRicomincia=1\n"
              "[veicolo1]\nriposo=4\nprova=6\nAnabSx=0123OO\nAbbSx=0456A#\nAnabDx=0125BS\n"
              "AbbDx=\"0460O \"\nGuasto1 = misura ; 2 ; Spezzata ; 10\n"
              "[GUASTI]\nGuasto1=*;*;silenzio\n",
              scenario);
    QCOMPARE(errori, QStringList());
    QCOMPARE(scenario.ritardo, 0);
    QVERIFY(scenario.ricomincia);
    QCOMPARE(scenario.veicoli.size(), 1);
    const Veicolo &veicolo = scenario.veicoli.first();
    QCOMPARE(veicolo.riposo, 4);
    QCOMPARE(veicolo.prova, 6);
    QCOMPARE(veicolo.record[0], QByteArray("0123OO"));
    QCOMPARE(veicolo.record[1], QByteArray("0456A#"));
    QCOMPARE(veicolo.record[2], QByteArray("0125BS"));
    QCOMPARE(veicolo.record[3], QByteArray("0460O "));
    QCOMPARE(veicolo.guasti.size(), 1);
    QVERIFY(veicolo.guasti.first().comando == CodiceComando::Misura);
    QCOMPARE(veicolo.guasti.first().daVolta, 2);
    QCOMPARE(veicolo.guasti.first().aVolta, 2);
    QVERIFY(veicolo.guasti.first().tipo == TipoGuasto::Spezzata);
    QCOMPARE(veicolo.guasti.first().numero, 10);
    QCOMPARE(scenario.guasti.size(), 1);
    QVERIFY(!scenario.guasti.first().comando);
}

void tst_scenario::veicoliFinoAlPrimoMancante()
{
    Scenario scenario;
    QVERIFY(Leggi("[VEICOLO1]\nProva=1\n[VEICOLO2]\nGuasto1=*;1;tipo\n[VEICOLO4]\nProva=4\n", scenario)
                .isEmpty());
    QCOMPARE(scenario.veicoli.size(), 2);
}

void tst_scenario::recordPredefiniti()
{
    Scenario scenario;
    QVERIFY(Leggi("[VEICOLO1]\nProva=1\n", scenario).isEmpty());
    QCOMPARE(scenario.veicoli.first().record[0], QByteArray("0250OO"));
    QCOMPARE(scenario.veicoli.first().record[3], QByteArray("0600OO"));
}

void tst_scenario::volte_data()
{
    QTest::addColumn<int>("da");
    QTest::addColumn<int>("a");

    QTest::newRow("*") << 1 << std::numeric_limits<int>::max();
    QTest::newRow("3") << 3 << 3;
    QTest::newRow("2-5") << 2 << 5;
    QTest::newRow("2-2") << 2 << 2;
    QTest::newRow("4-") << 4 << std::numeric_limits<int>::max();
}

void tst_scenario::volte()
{
    QFETCH(int, da);
    QFETCH(int, a);
    Scenario scenario;
    QVERIFY(Leggi(QByteArray("[GUASTI]\nGuasto1=Stato;") + QTest::currentDataTag() + ";silenzio\n", scenario)
                .isEmpty());
    QCOMPARE(scenario.guasti.first().daVolta, da);
    QCOMPARE(scenario.guasti.first().aVolta, a);
}

void tst_scenario::errore_data()
{
    QTest::addColumn<QByteArray>("testo");
    QTest::addColumn<QString>("errore");

    const auto riga = [](const char *nome, const char *testo, const QString &errore) {
        QTest::newRow(nome) << QByteArray(testo) << errore;
    };
    riga("record corto", "[VEICOLO1]\nAnabSx=0123O\n", QStringLiteral("[VEICOLO1] AnabSx"));
    riga("record lungo", "[VEICOLO1]\nAbbDx=0123OOO\n", QStringLiteral("[VEICOLO1] AbbDx"));
    riga("record con lettere", "[VEICOLO1]\nAnabDx=O123OO\n", QStringLiteral("[VEICOLO1] AnabDx"));
    riga("riposo non numero", "[VEICOLO1]\nRiposo=tre\n", QStringLiteral("[VEICOLO1] Riposo"));
    riga("prova negativa", "[VEICOLO1]\nProva=-1\n", QStringLiteral("[VEICOLO1] Prova"));
    riga("ritardo enorme", "[GENERALE]\nRitardo=60001\n", QStringLiteral("[GENERALE] Ritardo"));
    riga("ricomincia", "[GENERALE]\nRicomincia=2\n", QStringLiteral("[GENERALE] Ricomincia"));
    riga("segno in un numero", "[GENERALE]\nRitardo=%1\n",
         QStringLiteral("\"%1\" non è un numero da 0 a 60000"));
    riga("segno nel numero di un guasto", "[GUASTI]\nGuasto1=Stato;1;ritardo;%2\n",
         QStringLiteral("\"%2\" non è un numero da 1 a 60000"));
    riga("guasto a pezzi", "[GUASTI]\nGuasto1=Stato;silenzio\n", QStringLiteral("comando;volte;guasto"));
    riga("troppi pezzi", "[GUASTI]\nGuasto1=Stato;1;ritardo;1;1\n", QStringLiteral("comando;volte;guasto"));
    riga("comando sconosciuto", "[GUASTI]\nGuasto1=Prova;1;tipo\n",
         QStringLiteral("comando sconosciuto \"Prova\""));
    riga("guasto sconosciuto", "[GUASTI]\nGuasto1=Stato;1;muto\n",
         QStringLiteral("guasto sconosciuto \"muto\""));
    riga("volta zero", "[GUASTI]\nGuasto1=Stato;0;tipo\n", QStringLiteral("non dice le volte"));
    riga("volte alla rovescia", "[GUASTI]\nGuasto1=Stato;5-2;tipo\n", QStringLiteral("non dice le volte"));
    riga("volte a parole", "[GUASTI]\nGuasto1=Stato;1-due;tipo\n", QStringLiteral("non dice le volte"));
    riga("numero di troppo", "[GUASTI]\nGuasto1=Stato;1;tipo;5\n", QStringLiteral("non ha numero"));
    riga("trama non abbastanza lunga", "[GUASTI]\nGuasto1=Stato;1;lunga;106\n",
         QStringLiteral("da 107 a 4096"));
    riga("guasto del veicolo", "[VEICOLO1]\nGuasto1=x\n", QStringLiteral("[VEICOLO1] Guasto1"));
}

void tst_scenario::errore()
{
    QFETCH(QByteArray, testo);
    QFETCH(QString, errore);
    Scenario scenario;
    scenario.ritardo = 7;
    const QStringList errori = Leggi(testo, scenario);
    QCOMPARE(errori.size(), 1);
    QVERIFY2(errori.first().contains(errore), qUtf8Printable(errori.first()));
    QCOMPARE(scenario.ritardo, 7);
    QVERIFY(scenario.veicoli.isEmpty());
}

void tst_scenario::erroriTuttiInsieme()
{
    Scenario scenario;
    QCOMPARE(
        Leggi("[GENERALE]\nRitardo=x\n[VEICOLO1]\nAnabSx=1\nProva=x\n[GUASTI]\nGuasto1=x\n", scenario).size(),
        4);
}

QTEST_GUILESS_MAIN(tst_scenario)
#include "tst_scenario.moc"
