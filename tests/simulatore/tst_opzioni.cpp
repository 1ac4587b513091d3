// The command line of qx5sim.
#include "simulatore/opzioni.h"

#include <QDir>
#include <QTest>

class tst_opzioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nessuna();
    void tutte();
    void percorsiInteri();
    void errate_data();
    void errate();
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

void tst_opzioni::errate_data()
{
    QTest::addColumn<QString>("errore");

    QTest::newRow("--muto") << QStringLiteral("opzione sconosciuta: muto");
    QTest::newRow("--stato") << QStringLiteral("manca il valore");
    QTest::newRow("a.ini b.ini") << QStringLiteral("più di uno scenario");
    QTest::newRow("--seme dodici") << QStringLiteral("vogliono un numero");
    QTest::newRow("--seme 4294967296") << QStringLiteral("vogliono un numero");
    QTest::newRow("--collega a --dispositivo b") << QStringLiteral("--collega vale per il terminale");
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
          u"--registro FILE", u"--seme NUMERO", u"--help", u"--version", u"scenario.ini"})
        QVERIFY2(aiuto.contains(QString::fromUtf16(nome)), qUtf8Printable(QString::fromUtf16(nome)));
}

QTEST_GUILESS_MAIN(tst_opzioni)
#include "tst_opzioni.moc"
