// The command line of qx5sim.
#include "simulatore/opzioni.h"

#include "core/parole.h"

#include <QDir>
#include <QTest>

class tst_opzioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void nessuna();
    void tutte();
    void percorsiInteri();
    void ponte();
    void riproduzione();
    void finestra();
    void errate_data();
    void errate();
    void accelera_data();
    void accelera();
    void parlaLaLinguaChiesta();
    void aiutoDiceOgniOpzione();
};

namespace {

std::optional<Opzioni> Leggi(const QString &riga, QString &errore)
{
    return Opzioni_Leggi(QStringLiteral("qx5sim ").append(riga).split(u' ', Qt::SkipEmptyParts), errore);
}

} // namespace

void tst_opzioni::nessuna()
{
    QString errore;
    const auto opzioni = Leggi(QString(), errore);
    QVERIFY(opzioni);
    QVERIFY(!opzioni->aiuto);
    QVERIFY(!opzioni->versione);
    QVERIFY(opzioni->scenario.isEmpty());
    QVERIFY(opzioni->collega.isEmpty());
    QVERIFY(opzioni->dispositivo.isEmpty());
    QCOMPARE(opzioni->velocita, 9600);
    QVERIFY(opzioni->stato.isEmpty());
    QVERIFY(opzioni->registro.isEmpty());
    QVERIFY(!opzioni->seme);
}

void tst_opzioni::tutte()
{
    const QString radice = QDir::rootPath(); // on Windows with its drive
    QString errore;
    const auto opzioni =
        Leggi(QStringLiteral("--dispositivo /dev/ttyUSB0 --velocita 19200 --stato "
                             "%1a/s.ini --registro %1a/r.txt --seme 0 --help --version %1a/scenario.ini")
                  .arg(radice),
              errore);
    QVERIFY(opzioni);
    QVERIFY(opzioni->aiuto);
    QVERIFY(opzioni->versione);
    QCOMPARE(opzioni->scenario, radice + QStringLiteral("a/scenario.ini"));
    QCOMPARE(opzioni->dispositivo, QStringLiteral("/dev/ttyUSB0"));
    QCOMPARE(opzioni->velocita, 19200);
    QCOMPARE(opzioni->stato, radice + QStringLiteral("a/s.ini"));
    QCOMPARE(opzioni->registro, radice + QStringLiteral("a/r.txt"));
    QCOMPARE(opzioni->seme, std::optional<quint32>(0));
}

void tst_opzioni::percorsiInteri()
{
    QString errore;
    const auto opzioni = Leggi(QStringLiteral("--stato s.ini --collega porte/COM1 scenari/muto.ini"), errore);
    QVERIFY(opzioni);
    QCOMPARE(opzioni->collega, QDir::current().absoluteFilePath(QStringLiteral("porte/COM1")));
    QCOMPARE(opzioni->scenario, QDir::current().absoluteFilePath(QStringLiteral("scenari/muto.ini")));
    QCOMPARE(opzioni->stato, QDir::current().absoluteFilePath(QStringLiteral("s.ini")));
}

void tst_opzioni::ponte()
{
    QString errore;
    const auto opzioni =
        Leggi(QStringLiteral("--ponte COM3 --registrazione r.txt --collega porte/COM1"), errore);
    QVERIFY2(opzioni, qUtf8Printable(errore));
    QCOMPARE(opzioni->ponte, QStringLiteral("COM3"));
    QCOMPARE(opzioni->registrazione, QDir::current().absoluteFilePath(QStringLiteral("r.txt")));
    QVERIFY(opzioni->riproduci.isEmpty());
}

void tst_opzioni::riproduzione()
{
    QString errore;
    const auto opzioni = Leggi(QStringLiteral("--riproduci r.txt --svelto --dispositivo COM3"), errore);
    QVERIFY2(opzioni, qUtf8Printable(errore));
    QCOMPARE(opzioni->riproduci, QDir::current().absoluteFilePath(QStringLiteral("r.txt")));
}

void tst_opzioni::accelera_data()
{
    QTest::addColumn<QString>("riga");
    QTest::addColumn<double>("passo");
    QTest::newRow("senza") << QString() << 1.0;
    QTest::newRow("svelto") << QStringLiteral("--svelto") << 0.0;
    QTest::newRow("0") << QStringLiteral("--accelera 0") << 0.0;
    QTest::newRow("1") << QStringLiteral("--accelera 1") << 1.0;
    QTest::newRow("10") << QStringLiteral("--accelera 10") << 10.0;
    QTest::newRow("la metà") << QStringLiteral("--accelera 0.5") << 0.5;
    QTest::newRow("il massimo") << QStringLiteral("--accelera 1000") << 1000.0;
}

void tst_opzioni::accelera()
{
    QFETCH(QString, riga);
    QString errore;
    const auto opzioni = Leggi(QStringLiteral("--riproduci r.txt ") + riga, errore);
    QVERIFY2(opzioni, qUtf8Printable(errore));
    QTEST(opzioni->passo, "passo");
}

void tst_opzioni::parlaLaLinguaChiesta()
{
    const auto errore = [](const char16_t *riga) {
        QString detto;
        return Leggi(QString::fromUtf16(riga), detto) ? QString() : detto;
    };
    QCOMPARE(errore(u"a b --lingua it"), QStringLiteral("più di uno scenario"));
    QCOMPARE(errore(u"a b --lingua EN"), QStringLiteral("more than one scenario"));
    QVERIFY(Opzioni_Aiuto().startsWith(QStringLiteral("Usage: qx5sim [options] [scenario.ini]")));
    QVERIFY(Opzioni_Aiuto().contains(QStringLiteral("--collega PATH")));
    QCOMPARE(errore(u"--muto --lingua IT"), QStringLiteral("opzione sconosciuta: muto"));
    // Beside a window in a language that the messages do not have they are in English.
    QCOMPARE(errore(u"--finestra --lingua de a b"), QStringLiteral("more than one scenario"));
}

void tst_opzioni::finestra()
{
    QString errore;
    const auto opzioni = Leggi(QStringLiteral("--finestra --lingua de --seme 3 scenario.ini"), errore);
    QVERIFY2(opzioni, qUtf8Printable(errore));
    QVERIFY(opzioni->finestra);
    QCOMPARE(opzioni->lingua, QStringLiteral("DE"));
    QVERIFY(Leggi(QStringLiteral("--finestra"), errore)->lingua.isEmpty());
}

void tst_opzioni::errate_data()
{
    QTest::addColumn<QString>("errore");

    QTest::newRow("--muto") << QStringLiteral("opzione sconosciuta: muto");
    QTest::newRow("--stato") << QStringLiteral("manca il valore");
    QTest::newRow("a.ini b.ini") << QStringLiteral("più di uno scenario");
    QTest::newRow("--seme dodici") << QStringLiteral("vogliono un numero");
    QTest::newRow("--seme 4294967296") << QStringLiteral("vogliono un numero");
    QTest::newRow("--collega a --dispositivo b") << QStringLiteral("--collega vale per il terminale");
    QTest::newRow("--ponte a --riproduci b") << QStringLiteral("con --ponte");
    QTest::newRow("--ponte a --finestra") << QStringLiteral("con --ponte");
    QTest::newRow("--ponte a --stato b") << QStringLiteral("con --ponte");
    QTest::newRow("--ponte a --seme 1") << QStringLiteral("con --ponte");
    QTest::newRow("--ponte a scenario.ini") << QStringLiteral("con --ponte");
    QTest::newRow("--riproduci a scenario.ini") << QStringLiteral("con --riproduci");
    QTest::newRow("--riproduci a --finestra") << QStringLiteral("con --riproduci");
    QTest::newRow("--registrazione a") << QStringLiteral("--registrazione vale con --ponte");
    QTest::newRow("--svelto") << QStringLiteral("--svelto vale con --riproduci");
    QTest::newRow("--svelto --accelera 2 --riproduci a") << QStringLiteral("uno solo dei due");
    QTest::newRow("--accelera 2") << QStringLiteral("--accelera vale con --riproduci");
    for (const char *passo : {"due", "-1", "1001", "nan", "inf", "2,5", "", "10x"})
        QTest::newRow(qPrintable(QStringLiteral("--riproduci a --accelera=%1").arg(QLatin1String(passo))))
            << QStringLiteral("--accelera vuole un numero da 0 a 1000");
    QTest::newRow("--lingua FR") << QStringLiteral("con --finestra anche FR");
    QTest::newRow("--finestra --lingua PT") << QStringLiteral("le lingue sono IT ed EN");
    QTest::newRow("--velocita=-9600") << QStringLiteral("vogliono un numero");
}

void tst_opzioni::errate()
{
    QFETCH(QString, errore);
    QString detto;
    QVERIFY(!Leggi(QString::fromLatin1(QTest::currentDataTag()), detto));
    QVERIFY2(detto.contains(errore), qUtf8Printable(detto));
}

void tst_opzioni::aiutoDiceOgniOpzione()
{
    const QString aiuto = Opzioni_Aiuto();
    for (const char16_t *nome :
         {u"--collega PERCORSO", u"--dispositivo PERCORSO", u"--velocita BAUD", u"--stato FILE",
          u"--registro FILE", u"--seme NUMERO", u"--finestra", u"--lingua SIGLA", u"--ponte PORTA",
          u"--registrazione FILE", u"--riproduci FILE", u"--accelera NUMERO", u"--svelto", u"--help",
          u"--version", u"scenario.ini"})
        QVERIFY2(aiuto.contains(QString::fromUtf16(nome)), qUtf8Printable(QString::fromUtf16(nome)));
}

QTEST_GUILESS_MAIN(tst_opzioni)
#include "tst_opzioni.moc"
