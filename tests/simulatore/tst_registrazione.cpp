// The record's file: written line by line, read with its errors, the format of the first version for ever.
#include "simulatore/registrazione.h"

#include "core/parole.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_registrazione : public QObject
{
    Q_OBJECT

    /// With a mark like those that texts are filled in at: an error names the file as it stands.
    QString File() const { return m_cartella->filePath(QStringLiteral("r al 50%2.txt")); }
    void Scrivi(const QByteArray &testo) const;
    QByteArray Scritto() const;

    std::unique_ptr<QTemporaryDir> m_cartella;

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void init() { m_cartella = std::make_unique<QTemporaryDir>(); }

    void formatoDellaPrimaVersione();
    void righeScritte();
    void scrittaERiletta();
    void interaAOgniRiga();
    void fileEsistenteLasciato();
    void cartellaMancante();
    void errori_data();
    void errori();
    void conErroriNienteCambia();
    void fileMancante();
};

void tst_registrazione::Scrivi(const QByteArray &testo) const
{
    QFile file(File());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(testo), testo.size());
}

QByteArray tst_registrazione::Scritto() const
{
    QFile file(File());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_registrazione::formatoDellaPrimaVersione()
{
    Scrivi("qx5sim registrazione 1\r\n"
           "# un commento\r\n"
           "far prova con spazi.far\r\n"
           "\r\n"
           "       0 stazione  02 41 42 43 10 36 03\r\n"
           "#    20 fra due trame\r\n"
           "41   strumento 02 ff\r\n"
           "41 strumento 03");
    Registrazione registrazione;
    QCOMPARE(Registrazione_Leggi(File(), registrazione), QStringList());
    QCOMPARE(registrazione.far, QStringLiteral("prova con spazi.far"));
    QCOMPARE(registrazione.brani.size(), 3);
    QCOMPARE(registrazione.brani[0].ms, 0);
    QCOMPARE(registrazione.brani[0].voce, Voce::Stazione);
    QCOMPARE(registrazione.brani[0].byte, QByteArray::fromHex("02414243103603"));
    QCOMPARE(registrazione.brani[1].ms, 41);
    QCOMPARE(registrazione.brani[1].voce, Voce::Strumento);
    QCOMPARE(registrazione.brani[1].byte, QByteArray::fromHex("02FF"));
    QCOMPARE(registrazione.brani[2].byte, QByteArray::fromHex("03"));
}

void tst_registrazione::righeScritte()
{
    ScrittoreRegistrazione scrittore;
    QString errore;
    QVERIFY2(scrittore.Apri(File(), QStringLiteral("strumento COM3 è vero"), errore), qUtf8Printable(errore));
    QVERIFY(scrittore.Aggiungi({7, Voce::Stazione, QByteArray::fromHex("0241")}));
    QVERIFY(scrittore.Annota(1234, QStringLiteral("chiusa")));
    QVERIFY(scrittore.Aggiungi({123456789, Voce::Strumento, QByteArray::fromHex("00FF")}));
    QCOMPARE(QString::fromUtf8(Scritto()), QStringLiteral("qx5sim registrazione 1\n"
                                                          "# strumento COM3 è vero\n"
                                                          "# millesimi dall'inizio, chi parla, byte\n"
                                                          "       7 stazione  02 41\n"
                                                          "#   1234 chiusa\n"
                                                          "123456789 strumento 00 FF\n"));
}

void tst_registrazione::scrittaERiletta()
{
    QByteArray tutti;
    for (int b = 0; b < 256; ++b)
        tutti.append(static_cast<char>(b));
    const QList<BranoLinea> brani = {
        {0,             Voce::Strumento, tutti      },
        {999,           Voce::Stazione,  "\x02"     },
        {1000000000000, Voce::Strumento, tutti + 'x'}
    };
    ScrittoreRegistrazione scrittore;
    QString errore;
    QVERIFY(scrittore.Apri(File(), QStringLiteral("prova"), errore));
    for (const BranoLinea &brano : brani)
        QVERIFY(scrittore.Aggiungi(brano));
    Registrazione letta;
    QCOMPARE(Registrazione_Leggi(File(), letta), QStringList());
    QCOMPARE(letta.far, QString());
    QCOMPARE(letta.brani.size(), brani.size());
    for (qsizetype i = 0; i < brani.size(); ++i) {
        QCOMPARE(letta.brani[i].ms, brani[i].ms);
        QCOMPARE(letta.brani[i].voce, brani[i].voce);
        QCOMPARE(letta.brani[i].byte, brani[i].byte);
    }
}

void tst_registrazione::interaAOgniRiga()
{
    // The writer is still open: what a program that is killed leaves behind.
    ScrittoreRegistrazione scrittore;
    QString errore;
    QVERIFY(scrittore.Apri(File(), QStringLiteral("prova"), errore));
    for (int n = 1; n <= 3; ++n) {
        QVERIFY(scrittore.Aggiungi({n, Voce::Stazione, "\x02"}));
        Registrazione letta;
        QCOMPARE(Registrazione_Leggi(File(), letta), QStringList());
        QCOMPARE(letta.brani.size(), n);
    }
}

void tst_registrazione::fileEsistenteLasciato()
{
    Scrivi("una prova di ieri");
    ScrittoreRegistrazione scrittore;
    QString errore;
    QVERIFY(!scrittore.Apri(File(), QStringLiteral("prova"), errore));
    QCOMPARE(errore, File() + QStringLiteral(": esiste già"));
    QCOMPARE(Scritto(), QByteArray("una prova di ieri"));
}

void tst_registrazione::cartellaMancante()
{
    ScrittoreRegistrazione scrittore;
    QString errore;
    const QString file = m_cartella->filePath(QStringLiteral("manca/r.txt"));
    QVERIFY(!scrittore.Apri(file, QStringLiteral("prova"), errore));
    QVERIFY2(errore.startsWith(file + QStringLiteral(": ")), qUtf8Printable(errore));
}

void tst_registrazione::errori_data()
{
    QTest::addColumn<QByteArray>("testo");
    QTest::addColumn<QString>("errore");
    const auto riga = [](const char *nome, const char *testo, const char16_t *errore) {
        QTest::newRow(nome) << QByteArray(testo) << QString::fromUtf16(errore);
    };
    const auto corpo = [](const char *nome, const char *testo, const char16_t *errore) {
        QTest::newRow(nome) << QByteArray("qx5sim registrazione 1\n") + testo << QString::fromUtf16(errore);
    };
    riga("vuota", "", u": non è una registrazione di qx5sim");
    riga("senza formato", "qx5sim registrazione", u": non è una registrazione di qx5sim");
    riga("formato non numero", "qx5sim registrazione x", u": non è una registrazione di qx5sim");
    riga("formato zero", "qx5sim registrazione 0", u": non è una registrazione di qx5sim");
    riga("formato di domani", "qx5sim registrazione 2",
         u": registrazione di formato 2: questo programma legge fino al 1");
    corpo("senza tempo", "\nstazione 02", u", riga 3: non ha la forma");
    corpo("senza byte", "12 stazione", u", riga 2: non ha la forma");
    corpo("mezzo byte", "12 stazione 2", u", riga 2: non ha la forma");
    corpo("cifra errata", "12 stazione 02 4G", u", riga 2: non ha la forma");
    corpo("tempo negativo", "-1 stazione 02", u", riga 2: non ha la forma");
    corpo("altra voce", "12 operatore 02", u", riga 2: \"operatore\" non è né stazione né strumento");
    corpo("tempo indietro", "12 stazione 02\n11 strumento 02", u", riga 3: il tempo torna indietro");
}

void tst_registrazione::errori()
{
    QFETCH(QByteArray, testo);
    QFETCH(QString, errore);
    Scrivi(testo);
    Registrazione registrazione;
    const QStringList errori = Registrazione_Leggi(File(), registrazione);
    QCOMPARE(errori.size(), 1);
    QVERIFY2(errori.first().startsWith(File() + errore), qUtf8Printable(errori.first()));
}

void tst_registrazione::conErroriNienteCambia()
{
    Scrivi("qx5sim registrazione 1\nfar nuovo.far\n1 stazione 02\nx\ny\n");
    Registrazione registrazione = {QStringLiteral("vecchio.far"), {{5, Voce::Strumento, "\x03"}}};
    QCOMPARE(Registrazione_Leggi(File(), registrazione).size(), 2);
    QCOMPARE(registrazione.far, QStringLiteral("vecchio.far"));
    QCOMPARE(registrazione.brani.size(), 1);
}

void tst_registrazione::fileMancante()
{
    Registrazione registrazione;
    const QStringList errori = Registrazione_Leggi(File(), registrazione);
    QCOMPARE(errori.size(), 1);
    QVERIFY(errori.first().startsWith(File() + QStringLiteral(": ")));
}

QTEST_GUILESS_MAIN(tst_registrazione)
#include "tst_registrazione.moc"
