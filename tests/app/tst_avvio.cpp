// Start-up, step by step, before any window: paths, customer variant, flags, exchange folders, texts.
#include "app/avvio.h"

#include "core/modGeneral.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QTest>

namespace {

const QString GENERAL = QStringLiteral("GENERAL");
const QString MCTC = QStringLiteral("MCTC");

struct ChiaveFlag
{
    const char *chiave;
    Flag *flag;
};

constexpr ChiaveFlag FLAG[] = {
    {"IniFile",         &gIniFile        },
    {"Esce",            &gEsce           },
    {"ControlloVisivo", &gControlloVisivo},
    {"AllarmeAcustico", &gAllarmeAcustico},
    {"Alimentazione",   &gAlimentazione  },
    {"AltezzaFaroAuto", &gAltezzaFaroAuto},
    {"Modalita",        &gModalita       },
};

} // namespace

class tst_avvio : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init()
    {
        stazione = std::make_unique<StazioneProva>();
        gDebug = Falso;
    }

    void percorsiDallaCartellaDelProgramma()
    {
        Avvio_Percorsi(QStringLiteral("C:\\lumira"));
        QCOMPARE(gAppPath, QStringLiteral("C:\\lumira\\"));
        QCOMPARE(gFileIni, QStringLiteral("C:\\lumira\\lumira.ini"));
        QCOMPARE(gDirImmagini, QStringLiteral("C:\\lumira\\dati\\"));
        QCOMPARE(gDirModelli, QStringLiteral("C:\\lumira\\dati\\"));
        QCOMPARE(gFileLingue, QStringLiteral("C:\\lumira\\lingue.ini"));
        QCOMPARE(gFileLingueMctc, QStringLiteral("C:\\lumira\\lingueMCTC.ini"));
    }

    void variante_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("utente");
        QTest::addColumn<bool>("kp");
        QTest::newRow("minuscolo e altra parola")
            << QStringLiteral("kp Roma") << QStringLiteral("kp") << true;
        QTest::newRow("minuscolo") << QStringLiteral("kp") << QStringLiteral("kp") << true;
        QTest::newRow("maiuscolo") << QStringLiteral("KP") << QStringLiteral("KP") << true;
        QTest::newRow("vuoto") << QString() << QString() << false;
        QTest::newRow("altro") << QStringLiteral("NORVO") << QStringLiteral("NORVO") << false;
        QTest::newRow("seconda parola") << QStringLiteral("x kp") << QStringLiteral("x") << false;
        QTest::newRow("attaccato") << QStringLiteral("KPX") << QStringLiteral("KPX") << false;
    }
    void variante()
    {
        QFETCH(QString, valore);
        QFETCH(QString, utente);
        QFETCH(bool, kp);
        gLogoFile = gSplashFile = QStringLiteral("prima");
        stazione->Imposta(GENERAL, QStringLiteral("User"), valore);
        Avvio_Impostazioni();
        QCOMPARE(gUser, utente);
        QCOMPARE(gLogoFile, kp ? QStringLiteral("kp_logo.gif") : QString());
        QCOMPARE(gSplashFile, kp ? QStringLiteral("splash_kp_net.jpg") : QString());
    }

    void soloUnoContaComeVero_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("vero");
        QTest::newRow("1") << QStringLiteral("1") << true;
        QTest::newRow("0") << QStringLiteral("0") << false;
        QTest::newRow("true") << QStringLiteral("true") << false;
        QTest::newRow("-1") << QStringLiteral("-1") << false;
        QTest::newRow("S") << QStringLiteral("S") << false;
        QTest::newRow("01") << QStringLiteral("01") << false;
        QTest::newRow("1.0") << QStringLiteral("1.0") << false;
        // The profile drops blanks round a value; inside quotes they are part of it.
        QTest::newRow("blank 1") << QStringLiteral("\" 1\"") << false;
        QTest::newRow("1 blank") << QStringLiteral("\"1 \"") << false;
        QTest::newRow("vuoto") << QString() << false;
    }
    void soloUnoContaComeVero()
    {
        QFETCH(QString, valore);
        QFETCH(bool, vero);
        for (const ChiaveFlag &voce : FLAG) {
            *voce.flag = Flag_Da(!vero);
            stazione->Imposta(MCTC, QString::fromLatin1(voce.chiave), valore);
        }
        stazione->Imposta(GENERAL, QStringLiteral("Debug"), valore);
        Avvio_Impostazioni();
        for (const ChiaveFlag &voce : FLAG)
            QVERIFY2(*voce.flag == Flag_Da(vero), voce.chiave);
        QCOMPARE(gDebug, Flag_Da(vero));
    }

    /// Each key sets its own flag and no other.
    void ogniFlagDallaSuaChiave()
    {
        for (const ChiaveFlag &accesa : FLAG) {
            for (const ChiaveFlag &voce : FLAG)
                stazione->Imposta(MCTC, QString::fromLatin1(voce.chiave), QStringLiteral("0"));
            stazione->Imposta(MCTC, QString::fromLatin1(accesa.chiave), QStringLiteral("1"));
            Avvio_Impostazioni();
            for (const ChiaveFlag &voce : FLAG)
                QVERIFY2(*voce.flag == Flag_Da(&voce == &accesa), voce.chiave);
        }
    }

    void chiaviMancantiSonoFalse()
    {
        stazione->Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\n");
        for (const ChiaveFlag &voce : FLAG)
            *voce.flag = Vero;
        Avvio_Impostazioni();
        for (const ChiaveFlag &voce : FLAG)
            QVERIFY2(*voce.flag == Falso, voce.chiave);
        QCOMPARE(gDebug, Falso);
        QCOMPARE(gUser, QString());
        QCOMPARE(gLingua, QString());
        QCOMPARE(gDirAcc, QStringLiteral("ESITO\\"));
    }

    void linguaInMaiuscolo()
    {
        stazione->Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Lingua"), QStringLiteral("en"));
        Avvio_Impostazioni();
        QCOMPARE(gLingua, QStringLiteral("EN"));
        QCOMPARE(gTabMctc.size(), 160);
        QCOMPARE(gTabMctc[1], QStringLiteral("Settings"));
    }

    void senzaTestiOgniScrittaEVuota()
    {
        QVERIFY(QFile::remove(stazione->Nativo(QStringLiteral("lingueMCTC.ini"))));
        Avvio_Impostazioni();
        QCOMPARE(gTabMctc, QStringList(160, QString()));
    }

    void cartelle_data()
    {
        QTest::addColumn<QString>("modalita");
        QTest::addColumn<QString>("cartellaAcc");
        QTest::addColumn<QString>("cartellaFar");
        QTest::newRow("locali") << QStringLiteral("1") << QStringLiteral("C:\\A\\DIR_FAR\\")
                                << QStringLiteral("C:\\BDIR_FAR\\"); // no backslash is put in
        QTest::newRow("rete") << QStringLiteral("0") << QStringLiteral("R:\\CESITO\\")
                              << QStringLiteral("R:\\D\\ESITO\\");
    }
    void cartelle()
    {
        QFETCH(QString, modalita);
        QFETCH(QString, cartellaAcc);
        QFETCH(QString, cartellaFar);
        stazione->Imposta(MCTC, QStringLiteral("Modalita"), modalita);
        stazione->Imposta(MCTC, QStringLiteral("DirDati"), QStringLiteral("C:\\A\\"));
        stazione->Imposta(MCTC, QStringLiteral("DirRisultati"), QStringLiteral("C:\\B"));
        stazione->Imposta(MCTC, QStringLiteral("ReteDati"), QStringLiteral("R:\\C"));
        stazione->Imposta(MCTC, QStringLiteral("ReteRisultati"), QStringLiteral("R:\\D\\"));
        Avvio_Impostazioni();
        QCOMPARE(gDirAcc, cartellaAcc);
        QCOMPARE(gDirFar, cartellaFar);
        QCOMPARE(gFileModelloAcc, gDirModelli + QStringLiteral("ModelloAcc.acc"));
    }

    /// The station only reads: its configuration is the installation's.
    void nonScriveNulla()
    {
        const QByteArray prima = stazione->Leggi(QStringLiteral("lumira.ini"));
        Avvio_Impostazioni();
        QCOMPARE(stazione->Leggi(QStringLiteral("lumira.ini")), prima);
    }
};

QTEST_GUILESS_MAIN(tst_avvio)
#include "tst_avvio.moc"
