// Settings, screen texts, locale, exchange folders.
#include "core/modGeneral.h"

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/comuni/testi_prova.h"

#include <QFile>
#include <QTest>

namespace {

const QString A = QStringLiteral("A");
const QString X = QStringLiteral("X");
const QString MCTC = QStringLiteral("MCTC");

} // namespace

class tst_modGeneral : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Imposta_Locale(QLocale::c()); }

    void leggiIni_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<Flag>("esito");
        QTest::addColumn<QString>("valore");
        QTest::newRow("value") << QByteArray("[A]\r\nX=1\r\n") << Vero << QStringLiteral("1");
        QTest::newRow("empty value") << QByteArray("[A]\r\nX=\r\n") << Falso << QString();
        QTest::newRow("value of blanks") << QByteArray("[A]\r\nX=  \r\n") << Falso << QString();
        QTest::newRow("empty quotes") << QByteArray("[A]\r\nX=\"\"\r\n") << Falso << QString();
        QTest::newRow("missing key") << QByteArray("[A]\r\n") << Falso << QString();
        QTest::newRow("missing section") << QByteArray("X=1\r\n") << Falso << QString();
        QTest::newRow("blank before") << QByteArray("[A]\r\nX= 1\r\n") << Vero << QStringLiteral("1");
        QTest::newRow("blank in quotes") << QByteArray("[A]\r\nX=\" 1\"\r\n") << Vero << QStringLiteral(" 1");
        QTest::newRow("600 characters")
            << QByteArray("[A]\r\nX=" + QByteArray(600, 'v')) << Vero << QString(499, u'v');
        QTest::newRow("499 characters")
            << QByteArray("[A]\r\nX=" + QByteArray(499, 'v')) << Vero << QString(499, u'v');
    }
    void leggiIni()
    {
        QFETCH(QByteArray, byte);
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("prova.ini"), byte);
        const QString file = stazione.Percorso(QStringLiteral("prova.ini"));
        QString valore = QStringLiteral("prima");
        QTEST(Leggi_Ini(file, A, X, valore), "esito");
        QTEST(valore, "valore");
        QTEST(Valore_Ini(file, A, X), "valore");
    }

    void leggiIniDiUnFileMancante()
    {
        const StazioneProva stazione;
        QString valore = QStringLiteral("prima");
        QCOMPARE(Leggi_Ini(stazione.Percorso(QStringLiteral("manca.ini")), A, X, valore), Falso);
        QCOMPARE(valore, QString());
    }

    void cioCheScriviIniScriveSiLeggeSubito()
    {
        const StazioneProva stazione;
        for (const char16_t *valore : {u"1", u"2", u"", u"€ 3"}) {
            QCOMPARE(Scrivi_Ini(gFileIni, A, X, QString::fromUtf16(valore)), Vero);
            QCOMPARE(Valore_Ini(gFileIni, A, X), QString::fromUtf16(valore));
        }
    }

    /// An empty value empties the key and leaves it in the file.
    void valoreVuotoLasciaLaChiave()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("prova.ini"), "[A]\r\nX=1\r\nY=2\r\n");
        QCOMPARE(Scrivi_Ini(stazione.Percorso(QStringLiteral("prova.ini")), A, X, QString()), Vero);
        QCOMPARE(stazione.Leggi(QStringLiteral("prova.ini")), "[A]\r\nX=\r\nY=2\r\n");
    }

    void scriviIniCheNonRiesceDaFalso()
    {
        const StazioneProva stazione;
        QCOMPARE(Scrivi_Ini(stazione.Percorso(QStringLiteral("manca\\prova.ini")), A, X, A), Falso);
        QCOMPARE(Scrivi_Ini(stazione.Percorso(QStringLiteral("dati")), A, X, A), Falso);
    }

    void filePresente()
    {
        const StazioneProva stazione;
        QCOMPARE(File_Presente(gFileIni, 0), Vero);
        QCOMPARE(File_Presente(gAppPath + QStringLiteral("LUMIRA.INI"), 0), Vero);
        QCOMPARE(File_Presente(gAppPath + QStringLiteral("manca.ini"), 0), Falso);
        QCOMPARE(File_Presente(gAppPath + QStringLiteral("dati"), 0), Falso);
        QCOMPARE(File_Presente(gAppPath + QStringLiteral("dati"), 16), Vero);
        QCOMPARE(File_Presente(gAppPath + QStringLiteral("manca"), 16), Falso);
    }

    void filePresenteNonHaGuardia()
    {
        const QString troppoLungo = gAppPath + QString(5000, u'a') + QStringLiteral("\\x");
        QCOMPARE(Errore_Di([&] { File_Presente(troppoLungo, 0); }), 52);
    }

    void localeInfo_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("decimali");
        QTest::addColumn<QString>("data");
        QTest::newRow("italiano") << QLocale(QLocale::Italian) << QStringLiteral(",") << QStringLiteral("/");
        QTest::newRow("tedesco") << QLocale(QLocale::German) << QStringLiteral(",") << QStringLiteral(".");
        QTest::newRow("olandese") << QLocale(QLocale::Dutch) << QStringLiteral(",") << QStringLiteral("-");
        QTest::newRow("inglese") << QLocale(QLocale::English) << QStringLiteral(".") << QStringLiteral("/");
        QTest::newRow("svizzero") << QLocale(QLocale::German, QLocale::Switzerland) << QStringLiteral(".")
                                  << QStringLiteral(".");
    }
    void localeInfo()
    {
        QFETCH(QLocale, locale);
        const QLocale prima;
        Imposta_Locale(locale);
        const QString decimali = Locale_Info(14), data = Locale_Info(29);
        Imposta_Locale(prima);
        QTEST(decimali, "decimali");
        QTEST(data, "data");
    }

    /// The buffer has the size of the date separator: of a longer text, the language's name, nothing comes.
    void localeInfoSenzaTestoPiuLungo()
    {
        for (const qint32 tipo : {2, 9999})
            QCOMPARE(Locale_Info(tipo), QString());
    }

    void fileLeggi()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("prova.txt"), QByteArray("a\r\n\0\x80\xE0", 6));
        QString testo;
        QCOMPARE(File_Leggi(stazione.Percorso(QStringLiteral("Prova.TXT")), testo), 6);
        QCOMPARE(testo, QStringLiteral("a\r\n") + QChar(0) + QStringLiteral("€à"));
    }

    void fileLeggiAggiungeAlTesto()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("prova.txt"), "abc");
        QString testo = QStringLiteral("prima ");
        QCOMPARE(File_Leggi(stazione.Percorso(QStringLiteral("prova.txt")), testo), 3);
        QCOMPARE(testo, QStringLiteral("prima abc"));
    }

    /// Sizes about one and two blocks of the reading.
    void fileLeggiQualsiasiLunghezza()
    {
        const StazioneProva stazione;
        for (const int lungo : {1, 4095, 4096, 4097, 8192, 100000}) {
            stazione.Scrivi(QStringLiteral("prova.txt"), QByteArray(lungo - 1, 'x') + 'y');
            QString testo;
            QCOMPARE(File_Leggi(stazione.Percorso(QStringLiteral("prova.txt")), testo), lungo);
            QCOMPARE(testo, QString(lungo - 1, u'x') + u'y');
        }
    }

    void fileLeggiCheNonRiesce()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("vuoto.txt"), "");
        QString testo = QStringLiteral("prima");
        for (const char16_t *nome : {u"vuoto.txt", u"manca.txt", u"dati"}) {
            QCOMPARE(File_Leggi(stazione.Percorso(QString::fromUtf16(nome)), testo), -1);
            QCOMPARE(testo, QStringLiteral("prima"));
        }
    }

    /// Its length fits no result. It is all hole: it takes no room on the disk.
    void fileLeggiOltreDueGigabyte()
    {
        const StazioneProva stazione;
        QFile file(stazione.Nativo(QStringLiteral("enorme.txt")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(qint64{1} << 31));
        QString testo = QStringLiteral("prima");
        QCOMPARE(File_Leggi(stazione.Percorso(QStringLiteral("enorme.txt")), testo), -1);
        QCOMPARE(testo, QStringLiteral("prima"));
    }

    void linguaId()
    {
        QCOMPARE(Lingua_Id(0), QStringLiteral("000"));
        QCOMPARE(Lingua_Id(7), QStringLiteral("007"));
        QCOMPARE(Lingua_Id(67), QStringLiteral("067"));
        QCOMPARE(Lingua_Id(159), QStringLiteral("159"));
    }

    void caricaLinguaNellaLinguaInVigore()
    {
        const StazioneProva stazione;
        const QString file = stazione.Percorso(QStringLiteral("testi.ini"));
        stazione.Scrivi(QStringLiteral("testi.ini"),
                        "[IT]\r\n000=zero\r\n002=due\r\n[FR]\r\n000=z\xE9ro\r\n");
        QStringList tabella = {QStringLiteral("v"), QStringLiteral("v"), QStringLiteral("v"),
                               QStringLiteral("v"), QStringLiteral("v")};
        Carica_Lingua(file, 2, tabella);
        QCOMPARE(tabella, (QStringList{QStringLiteral("zero"), QString(), QStringLiteral("due")}));
        gLingua = QStringLiteral("FR");
        Carica_Lingua(file, 1, tabella);
        QCOMPARE(tabella, (QStringList{QStringLiteral("zéro"), QString()}));
        gLingua = QStringLiteral("ES");
        Carica_Lingua(file, 1, tabella);
        QCOMPARE(tabella, (QStringList{QString(), QString()}));
    }

    void caricaLinguaDaUnFileMancante()
    {
        const StazioneProva stazione;
        Carica_Lingua(stazione.Percorso(QStringLiteral("manca.ini")), ULTIMO_TESTO_MCTC, gTabMctc);
        QCOMPARE(gTabMctc, QStringList(160, QString()));
        QCOMPARE(Testo_Mctc(Id_Mctc(0)), QString());
        QCOMPARE(Testo_Mctc(Id_Mctc(159)), QString());
    }

    /// Texts behind the table come from the file; one that a workshop has kept from before has none.
    void testoDietroLaTabella()
    {
        const StazioneProva stazione;
        QVERIFY(!Testo_Mctc(Id_Mctc(ULTIMO_TESTO_MCTC + 1)).isEmpty());
        stazione.Scrivi(QStringLiteral("lingueMCTC.ini"), "[IT]\r\n159=Controllo\r\n");
        QCOMPARE(Testo_Mctc(Id_Mctc(ULTIMO_TESTO_MCTC + 1)), QString());
        stazione.Scrivi(QStringLiteral("lingueMCTC.ini"), "[IT]\r\n160=Dietro\r\n");
        QCOMPARE(Testo_Mctc(Id_Mctc(ULTIMO_TESTO_MCTC + 1)), QStringLiteral("Dietro"));
    }

    void testoFuoriDallaTabella()
    {
        gTabMctc.clear();
        gTabLingua = {QStringLiteral("zero")};
        QCOMPARE(Testo_Mctc(Id_Mctc(0)), QString());
        QCOMPARE(Testo_Lingua(Id_Lingua(0)), QStringLiteral("zero"));
        QCOMPARE(Testo_Lingua(Id_Lingua(1)), QString());
        QCOMPARE(Testo_Lingua(Id_Lingua(-1)), QString());
    }

    void impostaCartelle_data()
    {
        QTest::addColumn<Flag>("modalita");
        QTest::addColumn<QString>("dirAcc");
        QTest::addColumn<QString>("dirFar");
        QTest::newRow("local") << Vero << QStringLiteral("C:\\Dati\\DIR_FAR\\")
                               << QStringLiteral("C:\\Ris\\DIR_FAR\\");
        QTest::newRow("network") << Falso << QStringLiteral("R:\\Dati\\ESITO\\")
                                 << QStringLiteral("R:\\Ris\\ESITO\\");
    }
    void impostaCartelle()
    {
        QFETCH(Flag, modalita);
        const StazioneProva stazione;
        stazione.Imposta(MCTC, QStringLiteral("DirDati"), QStringLiteral("C:\\Dati\\"));
        stazione.Imposta(MCTC, QStringLiteral("DirRisultati"), QStringLiteral("C:\\Ris\\"));
        stazione.Imposta(MCTC, QStringLiteral("ReteDati"), QStringLiteral("R:\\Dati\\"));
        stazione.Imposta(MCTC, QStringLiteral("ReteRisultati"), QStringLiteral("R:\\Ris\\"));
        gModalita = modalita;
        Imposta_Cartelle();
        QTEST(gDirAcc, "dirAcc");
        QTEST(gDirFar, "dirFar");
        QCOMPARE(gFileModelloAcc, gDirModelli + QStringLiteral("ModelloAcc.acc"));
    }

    /// No backslash is inserted: the stored folder must end in one.
    void impostaCartelleSenzaBarra()
    {
        const StazioneProva stazione;
        stazione.Imposta(MCTC, QStringLiteral("DirDati"), QStringLiteral("C:\\Dati"));
        stazione.Imposta(MCTC, QStringLiteral("DirRisultati"), QString());
        Imposta_Cartelle();
        QCOMPARE(gDirAcc, QStringLiteral("C:\\DatiDIR_FAR\\"));
        QCOMPARE(gDirFar, QStringLiteral("DIR_FAR\\"));
    }
};

QTEST_GUILESS_MAIN(tst_modGeneral)
#include "tst_modGeneral.moc"
