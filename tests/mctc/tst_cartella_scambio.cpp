// The exchange folder at a look: there or not, empty or not, and how many vehicles wait.
#include "mctc/cartella_scambio.h"

#include "core/modGeneral.h"
#include "mctc/far.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

class tst_cartella_scambio : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StazioneProva> stazione;

    void Scrivi(const QString &nome) const { stazione->Scrivi(QStringLiteral("DIR_FAR\\") + nome, "x"); }

private Q_SLOTS:
    void init() { stazione = std::make_unique<StazioneProva>(); }
    void cleanup() { stazione.reset(); }

    void vuota()
    {
        QCOMPARE(Cartella_Guarda(gDirAcc).Stato, StatoCartella::Vuota);
        Scrivi(QStringLiteral("12345678.accx"));
        Scrivi(QStringLiteral("12345678.far"));
        QVERIFY(QDir(stazione->Nativo(QStringLiteral("DIR_FAR"))).mkdir(QStringLiteral("1.acc")));
        QCOMPARE(Cartella_Guarda(gDirAcc).Stato, StatoCartella::Vuota);
        QCOMPARE(Cartella_Guarda(gDirAcc).InAttesa, 0);
    }

    void mancante()
    {
        QVERIFY(QDir(stazione->Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        QCOMPARE(Cartella_Guarda(gDirAcc).Stato, StatoCartella::Mancante);
        QVERIFY(Fatti_Elenca(gDirAcc).isEmpty());
    }

    /// A file stands where the folder should.
    void fileAlPostoDellaCartella()
    {
        QVERIFY(QDir(stazione->Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        stazione->Scrivi(QStringLiteral("DIR_FAR"), "x");
        QCOMPARE(Cartella_Guarda(gDirAcc).Stato, StatoCartella::Illeggibile);
    }

    /// A path that no operation takes is no error.
    void percorsoTroppoLungo()
    {
        const CartellaScambio vista = Cartella_Guarda(gDirAcc + QString(5000, u'x') + u'\\');
        QCOMPARE(vista.Stato, StatoCartella::Illeggibile);
    }

    void quantiAspettano()
    {
        for (const char16_t *nome : {u"10000000.acc", u"20000000.ACC", u"abcdefgh.Acc", u"x.acc"})
            Scrivi(QString::fromUtf16(nome));
        QCOMPARE(Cartella_Guarda(gDirAcc).Stato, StatoCartella::ConAccettazioni);
        QCOMPARE(Cartella_Guarda(gDirAcc).InAttesa, 4);
        Scrivi(QStringLiteral("20000000.far"));
        Scrivi(QStringLiteral("ABCDEFGH.Far"));
        Scrivi(QStringLiteral("99999999.far")); // of a file that has gone
        Scrivi(QStringLiteral("10000000.farx"));
        QCOMPARE(Cartella_Guarda(gDirAcc).InAttesa, 2);
        stazione->Scrivi(QStringLiteral("DIR_FAR\\x.far"), ""); // switched off in the middle of writing it
        QCOMPARE(Cartella_Guarda(gDirAcc).InAttesa, 2);
        const QSet<QString> fatti = Fatti_Elenca(gDirAcc);
        QVERIFY(E_Fatto(fatti, QStringLiteral("20000000.ACC")));
        QVERIFY(E_Fatto(fatti, QStringLiteral("abcdefgh.Acc")));
        QVERIFY(!E_Fatto(fatti, QStringLiteral("10000000.ACC")));
        QVERIFY(!E_Fatto(fatti, QStringLiteral("X.ACC")));
    }

    /// The result that the station writes is the one that is looked for, also for a name with two points.
    void ilRisultatoDellaStazione()
    {
        for (const char16_t *nome : {u"12345678.acc", u"12345678.bis.acc"}) {
            const QString accettazione = gDirAcc + QString::fromUtf16(nome);
            Scrivi(QString::fromUtf16(nome));
            Far_Scrivi(accettazione);
            QVERIFY(E_Fatto(Fatti_Elenca(gDirAcc), QString::fromUtf16(nome)));
            QVERIFY(QFile::remove(stazione->Nativo(QStringLiteral("DIR_FAR\\12345678.far"))));
        }
    }
};

QTEST_GUILESS_MAIN(tst_cartella_scambio)
#include "tst_cartella_scambio.moc"
