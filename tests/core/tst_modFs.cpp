// Paths and folder contents.
#include "core/modFs.h"

#include "core/modGeneral.h"
#include "platform/percorsi.h"
#include "tests/comuni/stazione_prova.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

class tst_modFs : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;

    QString Percorso(const char16_t *nome) const { return m_stazione.Percorso(QString::fromUtf16(nome)); }
    bool Tempi(const char16_t *nome, const QDateTime &accesso, const QDateTime &scrittura) const
    {
        QFile file(m_stazione.Nativo(QString::fromUtf16(nome)));
        return file.open(QIODevice::ReadWrite) && file.setFileTime(accesso, QFileDevice::FileAccessTime) &&
               file.setFileTime(scrittura, QFileDevice::FileModificationTime);
    }
    QStringList Firma_Di(const char16_t *nome) const
    {
        QStringList firme;
        Fs_ElencoFirme(Percorso(u"L\\"), QString::fromUtf16(nome), firme);
        return firme;
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char16_t *nome :
             {u"L\\b.acc", u"L\\A.ACC", u"L\\x.accetta", u"L\\y.acc.old", u"L\\senza", u"S\\sotto\\z.acc"})
            m_stazione.Scrivi(QString::fromUtf16(nome), "testo");
    }

    void nomeEstensioneRadice_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("estensione");
        QTest::addColumn<QString>("radice");
        const auto riga = [](const char16_t *percorso, const char16_t *nome, const char16_t *estensione,
                             const char16_t *radice) {
            QTest::newRow(qPrintable(u'<' + QString::fromUtf16(percorso) + u'>'))
                << QString::fromUtf16(percorso) << QString::fromUtf16(nome) << QString::fromUtf16(estensione)
                << QString::fromUtf16(radice);
        };
        riga(u"12345678.acc", u"12345678.acc", u"acc", u"12345678");
        riga(u"AB.CD.ACC", u"AB.CD.ACC", u"ACC", u"AB");
        riga(u"C:\\MCTC\\12345678.ACC", u"12345678.ACC", u"ACC", u"12345678");
        riga(u"C:\\M.CTC\\12345678", u"12345678", u"CTC\\12345678", u"12345678");
        riga(u"C:\\M.CTC\\AB.CD.acc", u"AB.CD.acc", u"acc", u"AB");
        riga(u"senza", u"senza", u"senza", u"senza");
        riga(u"C:\\MCTC\\", u"", u"C:\\MCTC\\", u"");
        riga(u"punto.", u"punto.", u"", u"punto");
        riga(u".acc", u".acc", u"acc", u"");
        riga(u"C:/MCTC/a.acc", u"C:/MCTC/a.acc", u"acc", u"C:/MCTC/a");
        riga(u"", u"", u"", u"");
    }
    void nomeEstensioneRadice()
    {
        QFETCH(QString, percorso);
        QTEST(Fs_Nome(percorso), "nome");
        QTEST(Fs_Estensione(percorso), "estensione");
        QTEST(Fs_Radice(percorso), "radice");
    }

    void tagliaNul()
    {
        QString testo = QStringLiteral("abc") + QChar(0) + QStringLiteral("de") + QChar(0);
        QCOMPARE(Fs_TagliaNul(testo), QStringLiteral("abc"));
        QCOMPARE(testo, QStringLiteral("abc"));
        QCOMPARE(Fs_TagliaNul(testo), QStringLiteral("abc"));
        QString solo = QString(260, QChar(0));
        QCOMPARE(Fs_TagliaNul(solo), QString());
        QCOMPARE(solo, QString());
    }

    void esiste()
    {
        QCOMPARE(Fs_Esiste(Percorso(u"L\\b.acc"), 0), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"l\\B.ACC"), 0), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"L\\manca.acc"), 0), Falso);
        QCOMPARE(Fs_Esiste(Percorso(u"manca\\b.acc"), 0), Falso);
        QCOMPARE(Fs_Esiste(Percorso(u"L\\*.acc"), 0), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"L"), 16), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"L"), 0), Falso);
        QCOMPARE(Fs_Esiste(Percorso(u"manca"), 16), Falso);
    }

    /// The name of an acceptance file has twelve characters.
    void cartellaAmmessa()
    {
        QString cartella = QStringLiteral("C:\\");
        while (Percorso_Ammesso(cartella + QString(12, u'1')))
            cartella.insert(cartella.size() - 1, u'x');
        QCOMPARE(Fs_CartellaAmmessa(cartella), Falso);
        cartella.remove(3, 1);
        QCOMPARE(Fs_CartellaAmmessa(cartella), Vero);
    }

    /// A folder with its backslash is there under attribute 0 only when it holds a plain file.
    void esisteUnaCartellaConLaBarra()
    {
        QVERIFY(QDir(m_stazione.Nativo(QString())).mkpath(QStringLiteral("vuota")));
        QCOMPARE(Fs_Esiste(Percorso(u"L\\"), 0), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"S\\"), 0), Falso);
        QCOMPARE(Fs_Esiste(Percorso(u"vuota\\"), 0), Falso);
        QCOMPARE(Fs_Esiste(Percorso(u"vuota\\"), 16), Vero);
        QCOMPARE(Fs_Esiste(Percorso(u"manca\\"), 16), Falso);
    }

    /// An empty path is no question: asked, it would list the current folder.
    void percorsoVuotoNonEsiste()
    {
        const QString prima = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_stazione.Nativo(QStringLiteral("L"))));
        QCOMPARE(File_Presente(QString(), 0), Vero);
        QCOMPARE(Fs_Esiste(QString(), 0), Falso);
        QCOMPARE(Fs_Esiste(QString(), 16), Falso);
        QVERIFY(QDir::setCurrent(prima));
    }

    void unErroreDaFalso()
    {
        const QString troppoLungo = Percorso(u"") + QString(5000, u'a') + QStringLiteral("\\x");
        QCOMPARE(Fs_Esiste(troppoLungo, 0), Falso);
    }

    void elencoConFiltro()
    {
        QString cartella = Percorso(u"L");
        QStringList nomi = {QStringLiteral("prima")};
        QCOMPARE(Fs_Elenco(cartella, QStringLiteral("*.acc"), nomi, Falso, Vero), qint32{1});
        QCOMPARE(nomi, (QStringList{QStringLiteral("A.ACC"), QStringLiteral("b.acc")}));
        QCOMPARE(cartella, Percorso(u"L\\"));
    }

    void elencoSenzaFiltroPrendeEstensioniPiuLunghe()
    {
        QString cartella = Percorso(u"L\\");
        QStringList nomi;
        QCOMPARE(Fs_Elenco(cartella, QStringLiteral("*.acc"), nomi, Falso, Falso), qint32{2});
        QCOMPARE(nomi, (QStringList{QStringLiteral("A.ACC"), QStringLiteral("b.acc"),
                                    QStringLiteral("x.accetta")}));
        QCOMPARE(cartella, Percorso(u"L\\"));
    }

    void elencoConPercorsoIntero()
    {
        QString cartella = Percorso(u"L");
        QStringList nomi;
        QCOMPARE(Fs_Elenco(cartella, QStringLiteral("b.*"), nomi, Vero, Falso), qint32{0});
        QCOMPARE(nomi, QStringList{Percorso(u"L\\b.acc")});
    }

    void elencoVuoto()
    {
        for (const char16_t *nome : {u"manca", u"S"}) {
            QString cartella = Percorso(nome);
            QStringList nomi;
            QCOMPARE(Fs_Elenco(cartella, QStringLiteral("*"), nomi, Falso, Falso), qint32{-1});
            QVERIFY(cartella.endsWith(u'\\'));
        }
    }

    /// Nobody empties the exchange folder of some workshops.
    void cartellaDiDecineDiMigliaiaDiFile()
    {
        constexpr qint32 QUANTI = 33000;
        const QString modello = m_stazione.Nativo(QStringLiteral("L")) + QStringLiteral("/%1.far");
        for (qint32 i = 0; i < QUANTI; ++i) {
            QFile file(modello.arg(i));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QString cartella = Percorso(u"L");
        QStringList nomi;
        QCOMPARE(Fs_Elenco(cartella, QStringLiteral("*.far"), nomi, Falso, Vero), QUANTI - 1);
        QCOMPARE(Fs_ElencoFirme(cartella, QStringLiteral("*.far"), nomi), QUANTI - 1);
        for (qint32 i = 0; i < QUANTI; ++i)
            QVERIFY(QFile::remove(modello.arg(i)));
    }

    /// The poll of a full folder: the keys are taken up between its files, read or written down.
    void firmeLascianoCorrereGliEventi()
    {
        constexpr int QUANTI = 1000;
        for (int i = 0; i < QUANTI; ++i)
            m_stazione.Scrivi(QStringLiteral("F\\%1.acc").arg(i), {});
        QTimer battito;
        int volte = 0;
        battito.callOnTimeout([&volte] { ++volte; });
        battito.start(0);
        QStringList firme;
        QCOMPARE(Fs_ElencoFirme(Percorso(u"F\\"), QStringLiteral("*.acc"), firme), QUANTI - 1);
        QVERIFY2(volte >= 10, qPrintable(QString::number(volte))); // after each two hundred, in both
    }

    void elencoLasciaCorrereGliEventi()
    {
        int eventi = 0;
        QTimer::singleShot(0, this, [&eventi] { ++eventi; });
        QString cartella = Percorso(u"L");
        QStringList nomi;
        Fs_Elenco(cartella, QStringLiteral("*.acc"), nomi, Falso, Vero);
        QCOMPARE(eventi, 1);
    }

    void firmeSenzaRisultatoLascianoLArray()
    {
        QStringList firme = {QStringLiteral("prima")};
        QCOMPARE(Fs_ElencoFirme(Percorso(u"L\\"), QStringLiteral("*.xyz"), firme), qint32{-1});
        QCOMPARE(Fs_ElencoFirme(Percorso(u"manca\\"), QStringLiteral("*"), firme), qint32{-1});
        QCOMPARE(firme, QStringList{QStringLiteral("prima")});
    }

    /// Name, " - ", then the high half of the time of access and the low half of that of writing, both
    /// signed.
    void formaDellaFirma()
    {
        // Written: 133444736001230000 steps since 1601, 31070023 times 2^32 and 3330262192, with a sign
        // -964705104. Read a thousand days later: 134308736001230000 steps, 31271189 times 2^32.
        const QDateTime scritto = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC);
        QVERIFY(Tempi(u"L\\b.acc", scritto.addDays(1000), scritto));
        QCOMPARE(Firma_Di(u"b.acc"), QStringList{QStringLiteral("b.acc - 31271189-964705104")});
    }

    /// The high half of the time of access moves every seven minutes; that of writing is not in it.
    void oreDiAccessoEDiScritturaNellaFirma()
    {
        const QDateTime tempo = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC);
        QVERIFY(Tempi(u"L\\b.acc", tempo, tempo));
        const QStringList prima = Firma_Di(u"b.acc");
        QVERIFY(Tempi(u"L\\b.acc", tempo.addSecs(1000), tempo));
        const QStringList letto = Firma_Di(u"b.acc");
        QVERIFY(letto != prima);
        QVERIFY(Tempi(u"L\\b.acc", tempo, tempo.addMSecs(1)));
        const QStringList riscritto = Firma_Di(u"b.acc");
        QVERIFY(riscritto != prima && riscritto != letto);
    }

    void firmeDiUnaCartellaFermaSonoUguali()
    {
        QStringList prima, dopo;
        QCOMPARE(Fs_ElencoFirme(Percorso(u"L\\"), QStringLiteral("*.acc"), prima), qint32{2});
        QCOMPARE(Fs_ElencoFirme(Percorso(u"L\\"), QStringLiteral("*.acc"), dopo), qint32{2});
        QCOMPARE(prima, dopo);
    }

    void laFirmaDiUnFileRiscrittoCambia()
    {
        const QDateTime tempo = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, Qt::UTC);
        QStringList prima, dopo;
        QVERIFY(Tempi(u"L\\b.acc", tempo, tempo));
        Fs_ElencoFirme(Percorso(u"L\\"), QStringLiteral("*.acc"), prima);
        QVERIFY(Tempi(u"L\\b.acc", tempo, tempo.addMSecs(1)));
        Fs_ElencoFirme(Percorso(u"L\\"), QStringLiteral("*.acc"), dopo);
        QCOMPARE(dopo.size(), prima.size());
        QCOMPARE(dopo[0], prima[0]);
        QVERIFY(dopo[1] != prima[1]);
    }
};

QTEST_GUILESS_MAIN(tst_modFs)
#include "tst_modFs.moc"
