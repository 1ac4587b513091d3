// The worklist's entries and the comparison of two listings.
#include "mctc/lista.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "platform/percorsi.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>
#include <QTimer>

class tst_lista : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaVocePerFile()
    {
        const ProvaAcc prova;
        gTabMctc[112] = QStringLiteral("da fare");
        prova.Scrivi(prova.Buono(), QStringLiteral("20000000.acc"));
        prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "Targa", "ZZ999ZZ"), QStringLiteral("10000000.Acc"));
        prova.Scrivi("x", QStringLiteral("30000000.far"));
        prova.Scrivi(prova.Buono(), QStringLiteral("40000000.accx"));

        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{1});
        QCOMPARE(voci.size(), 2);
        QCOMPARE(voci.at(0).NomeFile, QStringLiteral("10000000.ACC"));
        QCOMPARE(voci.at(0).Targa, QStringLiteral("ZZ999ZZ"));
        QCOMPARE(voci.at(1).NomeFile, QStringLiteral("20000000.ACC"));
        QCOMPARE(voci.at(1).Targa, QStringLiteral("AB123CD"));
        for (const VoceLista &voce : std::as_const(voci)) {
            QCOMPARE(voce.Stato, QStringLiteral("da fare"));
            QVERIFY(voce.Riserva1.isEmpty() && voce.Riserva2.isEmpty());
        }
    }

    /// Faulty files are shown, not hidden: the operator must see what cannot be tested.
    void ancheIFileGuasti()
    {
        const ProvaAcc prova;
        prova.Scrivi(prova.Senza("DatiLibrettoVeicolo"), QStringLiteral("11111111.acc"));
        prova.Scrivi(prova.Buono(), QStringLiteral("222.acc"));
        prova.Scrivi("", QStringLiteral("33333333.acc"));
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{2});
        QCOMPARE(voci.at(0).Targa, QString());
        QCOMPARE(voci.at(1).NomeFile, QStringLiteral("222.ACC"));
        QCOMPARE(voci.at(1).Targa, QStringLiteral("AB123CD"));
        QCOMPARE(voci.at(2).Targa, QString());
    }

    /// A folder of thousands must not hold the window: events run at every file, in the listing and in the
    /// reading, and what they see is the list of before.
    void fraDueFileGiranoGliEventi()
    {
        constexpr int QUANTI = 20;
        const ProvaAcc prova;
        for (int i = 0; i < QUANTI; ++i)
            prova.Scrivi(prova.Buono(), QStringLiteral("%1.acc").arg(20000000 + i));
        QList<VoceLista> voci(1);
        int giri = 0;
        bool intatta = true;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            ++giri;
            intatta = intatta && voci.size() == 1;
        });
        timer.start(0);
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{QUANTI - 1});
        QCOMPARE(voci.size(), QUANTI);
        QVERIFY2(giri > QUANTI * 3 / 2, qPrintable(QString::number(giri)));
        QVERIFY(intatta);
    }

    /// What is pressed while the last file is read is dealt with before the new list stands: there is a turn
    /// of events that comes too late to be read.
    void ancheDietroLUltimoFile()
    {
        const ProvaAcc prova;
        prova.Scrivi(prova.Buono());
        int giri = 0;
        const auto targa = [&giri] { return "GIRO" + QByteArray::number(giri); };
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            ++giri;
            prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "Targa", targa()));
        });
        timer.start(0);
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{0});
        QVERIFY(voci.at(0).Targa.startsWith(QStringLiteral("GIRO")));
        QVERIFY(voci.at(0).Targa != QString::fromLatin1(targa()));
    }

    /// Two names that differ by case alone, as no volume of Windows has them, are one line: what it shows is
    /// what it opens.
    void dueNomiPerUnaRiga_data()
    {
        QTest::addColumn<QStringList>("nomi");
        QTest::newRow("uno in maiuscolo")
            << QStringList{QStringLiteral("12345678.acc"), QStringLiteral("12345678.ACC")};
        QTest::newRow("nessuno in maiuscolo")
            << QStringList{QStringLiteral("12345678.acc"), QStringLiteral("12345678.Acc")};
    }
    void dueNomiPerUnaRiga()
    {
        QFETCH(QStringList, nomi);
        const ProvaAcc prova;
        prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "Targa", "AA111AA"), nomi[0]);
        prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "Targa", "BB222BB"), nomi[1]);
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{0});
        QCOMPARE(voci.at(0).NomeFile, QStringLiteral("12345678.ACC"));
        QCOMPARE(voci.at(0).Targa, Targa_Leggi(gDirAcc + voci.at(0).NomeFile));
        QStringList firme;
        QCOMPARE(Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), firme), qint32{0});
        // The other one comes into its place when it goes.
        QVERIFY(QFile::remove(Percorso_Nativo(gDirAcc + voci.at(0).NomeFile)));
        const QString prima = voci.at(0).Targa;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{0});
        QVERIFY(voci.at(0).Targa != prima);
    }

    /// A name in capitals still names its file.
    void nomeConUnaLetteraSenzaMaiuscola()
    {
        const ProvaAcc prova;
        prova.Scrivi(prova.Buono(), QStringLiteral("straße.acc"));
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{0});
        QCOMPARE(voci.at(0).NomeFile, QStringLiteral("STRAßE.ACC"));
        QVERIFY(Fs_Esiste(gDirAcc + voci.at(0).NomeFile, 0));
    }

    void cartellaSenzaBarraInFondo()
    {
        const ProvaAcc prova;
        prova.Scrivi(prova.Buono());
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc.chopped(1), voci), qint32{0});
        QCOMPARE(voci.at(0).Targa, QStringLiteral("AB123CD"));
    }

    void laListaSiAccorcia()
    {
        const ProvaAcc prova;
        prova.Scrivi(prova.Buono());
        QList<VoceLista> voci(5);
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{0});
        QCOMPARE(voci.size(), 1);
    }

    void cartellaNonElencabileLasciaLeVoci_data()
    {
        QTest::addColumn<QString>("cartella");
        QTest::newRow("vuota") << QStringLiteral("DIR_FAR\\");
        QTest::newRow("mancante") << QStringLiteral("manca\\");
        QTest::newRow("irraggiungibile") << QString(5000, u'x') + u'\\';
    }
    void cartellaNonElencabileLasciaLeVoci()
    {
        QFETCH(QString, cartella);
        const StazioneProva stazione;
        QList<VoceLista> voci(3);
        QCOMPARE(Lista_Leggi(stazione.Percorso(cartella), voci), qint32{-1});
        QCOMPARE(voci.size(), 3);
    }

    void differenze_data()
    {
        QTest::addColumn<QStringList>("prima");
        QTest::addColumn<QStringList>("dopo");
        QTest::addColumn<qint32>("differenza");
        const QString a = QStringLiteral("a"), b = QStringLiteral("b");
        QTest::newRow("vuote") << QStringList() << QStringList() << qint32{-1};
        QTest::newRow("uguali") << QStringList{a, b} << QStringList{a, b} << qint32{-1};
        QTest::newRow("una posizione") << QStringList{a, b} << QStringList{a, a} << qint32{0};
        QTest::newRow("due posizioni") << QStringList{a, b} << QStringList{b, a} << qint32{1};
        QTest::newRow("una di più") << QStringList{a} << QStringList{a, b} << qint32{0};
        QTest::newRow("tutte in meno") << QStringList{a, b} << QStringList() << qint32{0};
        QTest::newRow("altro caso") << QStringList{a} << QStringList{QStringLiteral("A")} << qint32{0};
    }
    void differenze()
    {
        QFETCH(QStringList, prima);
        QFETCH(QStringList, dopo);
        QFETCH(qint32, differenza);
        QCOMPARE(Liste_Differenze(prima, dopo), differenza);
    }

    void cerca_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<qint32>("da");
        QTest::addColumn<qint32>("passo");
        QTest::addColumn<qint32>("trovata");
        const auto riga = [](const char *nome, const char16_t *testo, qint32 da, qint32 passo,
                             qint32 trovata) {
            QTest::newRow(nome) << QString::fromUtf16(testo) << da << passo << trovata;
        };
        riga("inizio", u"EF", 0, 1, 1);
        riga("mezzo, minuscole", u"23c", 0, 1, 0);
        riga("da oltre", u"ef", 2, 1, 2);
        riga("in giro", u"ef", 3, 1, 1);
        riga("indietro", u"ef", 1, -1, 1);
        riga("indietro in giro", u"ef", 0, -1, 2);
        riga("indietro da prima della prima", u"ef", -1, -1, 2);
        riga("da oltre l'ultima", u"ab", 4, 1, 0);
        riga("nome di file", u"4000", 0, 1, 3);
        riga("la targa prima del nome", u"1", 1, 1, 0);
        riga("scritta senza gli spazi", u"B123c", 1, 1, 0);
        riga("nessuna", u"zz", 0, 1, -1);
    }
    void cerca()
    {
        QFETCH(QString, testo);
        QFETCH(qint32, da);
        QFETCH(qint32, passo);
        QList<VoceLista> voci(4);
        const char16_t *const targhe[] = {u"AB 123 CD", u"EF456GH", u"ef459gh", u""};
        for (int i = 0; i < 4; ++i) {
            voci[i].Targa = QString::fromUtf16(targhe[i]);
            voci[i].NomeFile = QStringLiteral("%1000000.ACC").arg(i + 1);
        }
        QTEST(Lista_Cerca(voci, testo, da, passo), "trovata");
        QCOMPARE(Lista_Cerca({}, testo, da, passo), -1);
    }
};

QTEST_GUILESS_MAIN(tst_lista)
#include "tst_lista.moc"
