// Paths with backslashes, found without regard to case at the moment of a file operation.
#include "platform/percorsi.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class tst_percorsi : public QObject
{
    Q_OBJECT

    const QTemporaryDir m_cartella;
    const QString m_base = QString(m_cartella.path()).replace(u'/', u'\\');

    void Crea(const QString &nome) const
    {
        QDir(m_cartella.path()).mkpath(QFileInfo(nome).path());
        QFile file(m_cartella.filePath(nome));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

private Q_SLOTS:
    void initTestCase()
    {
        Crea(QStringLiteral("Dati/Interna/Foto.JPG"));
        Crea(QStringLiteral("12345678.acc"));
        Crea(QStringLiteral("Città.txt"));
        Crea(QStringLiteral(".nascosto"));
    }

    void trova_data()
    {
        QTest::addColumn<QString>("chiesto");
        QTest::addColumn<QString>("trovato");
        QTest::newRow("as spelled") << QStringLiteral("\\12345678.acc") << QStringLiteral("/12345678.acc");
        QTest::newRow("another case") << QStringLiteral("\\12345678.ACC") << QStringLiteral("/12345678.acc");
        QTest::newRow("accents") << QStringLiteral("\\CITTÀ.TXT") << QStringLiteral("/Città.txt");
        QTest::newRow("hidden") << QStringLiteral("\\.NASCOSTO") << QStringLiteral("/.nascosto");
        QTest::newRow("every level") << QStringLiteral("\\DATI\\INTERNA\\FOTO.jpg")
                                     << QStringLiteral("/Dati/Interna/Foto.JPG");
        QTest::newRow("a folder") << QStringLiteral("\\dati\\interna") << QStringLiteral("/Dati/Interna");
        QTest::newRow("a folder with its backslash")
            << QStringLiteral("\\dati\\interna\\") << QStringLiteral("/Dati/Interna/");
        QTest::newRow("missing leaf stays as spelled")
            << QStringLiteral("\\dati\\NUOVO.Far") << QStringLiteral("/Dati/NUOVO.Far");
        QTest::newRow("missing folder stays as spelled")
            << QStringLiteral("\\dati\\MANCA\\Foto.jpg") << QStringLiteral("/Dati/MANCA/Foto.jpg");
        QTest::newRow("slashes") << QStringLiteral("/dati/interna/foto.jpg")
                                 << QStringLiteral("/Dati/Interna/Foto.JPG");
        QTest::newRow("two backslashes")
            << QStringLiteral("\\dati\\\\interna\\foto.jpg") << QStringLiteral("/Dati//Interna/Foto.JPG");
        QTest::newRow("through the folder above")
            << QStringLiteral("\\dati\\..\\12345678.ACC") << QStringLiteral("/Dati/../12345678.acc");
    }
    void trova()
    {
        QFETCH(QString, chiesto);
        QFETCH(QString, trovato);
        QCOMPARE(Percorso_Nativo(m_base + chiesto), m_cartella.path() + trovato);
    }

    /// The system's limit counts the closing NUL; where names are bytes, an accented letter is two.
    void lunghezzaAmmessa()
    {
        const bool windows = QSysInfo::kernelType() == QStringLiteral("winnt");
        const qsizetype limite = windows ? 260 : 4096;
        QVERIFY(Percorso_Ammesso(QString(limite - 1, u'a')));
        QVERIFY(!Percorso_Ammesso(QString(limite, u'a')));
        QCOMPARE(Percorso_Ammesso(QString(limite / 2, u'è')), windows);
    }

    void laGrafiaEsattaVince()
    {
        Crea(QStringLiteral("doppio.ACC"));
        Crea(QStringLiteral("doppio.acc"));
        Crea(QStringLiteral("DOPPIO.acc"));
        for (const char16_t *nome : {u"doppio.ACC", u"doppio.acc", u"DOPPIO.acc"}) {
            const QString esatto = QString::fromUtf16(nome);
            QCOMPARE(Percorso_Nativo(m_base + u'\\' + esatto), m_cartella.filePath(esatto));
        }
    }

    /// A search gives the same one of several, however the folder keeps them: capitals stand before small
    /// letters.
    void diPiuGrafieSempreLaStessa()
    {
        for (const QStringList &ordine : {
                 QStringList{QStringLiteral("primo"), QStringLiteral("Primo"), QStringLiteral("pRimo")},
                 QStringList{QStringLiteral("tErzo"), QStringLiteral("Terzo"), QStringLiteral("terzo")}
        })
        {
            for (const QString &nome : ordine)
                Crea(nome);
            const QString grande = ordine[0].toUpper();
            QCOMPARE(Percorso_Nativo(m_base + u'\\' + grande), m_cartella.filePath(ordine[1]));
        }
    }

    /// A name of few letters is tried in each of its spellings, and one whose letters have more than two is
    /// looked for in the folder: both give the same one.
    void leGrafieInOrdine_data()
    {
        QTest::addColumn<QStringList>("nomi"); // in plain order
        QTest::addColumn<QString>("chiesto");
        const auto riga = [](const char *nome, const QStringList &nomi, const QString &chiesto) {
            QTest::newRow(nome) << nomi << chiesto;
        };
        riga("tried", {QStringLiteral("1.Acc"), QStringLiteral("1.aCC"), QStringLiteral("1.acc")},
             QStringLiteral("1.ACC"));
        riga("tried, asked for in small letters", {QStringLiteral("2.ACC"), QStringLiteral("2.aCc")},
             QStringLiteral("2.acc"));
        riga("looked for", {QStringLiteral("3.Abcde"), QStringLiteral("3.aBcde"), QStringLiteral("3.abcde")},
             QStringLiteral("3.ABCDE"));
        riga("a long s", {QStringLiteral("4.ſ")}, QStringLiteral("4.S"));
        riga("a dotless i", {QStringLiteral("5.ı")}, QStringLiteral("5.I"));
        riga("an accent", {QStringLiteral("6.È"), QStringLiteral("6.è")}, QStringLiteral("6.È"));
    }
    void leGrafieInOrdine()
    {
        if (QSysInfo::kernelType() == QStringLiteral("winnt"))
            QSKIP("its file system knows one spelling");
        QFETCH(QStringList, nomi);
        QFETCH(QString, chiesto);
        for (const QString &nome : nomi)
            Crea(nome);
        for (const QString &nome : nomi) {
            QCOMPARE(Percorso_Nativo(m_base + u'\\' + chiesto), m_cartella.filePath(nome));
            QVERIFY(QFile::remove(m_cartella.filePath(nome))); // and the next one takes its place
        }
    }

    /// To the system a name ends at a NUL; it is no name of a file.
    void unNulNonAccorciaIlNome()
    {
        const QString nome = m_base + QStringLiteral("\\12345678") + QChar(0) + QStringLiteral("A");
        QVERIFY(!QFile::exists(Percorso_Nativo(nome)));
        QCOMPARE(Percorso_Nativo(m_base + QStringLiteral("\\12345678.ACC") + QChar(0)),
                 m_cartella.filePath(QStringLiteral("12345678.ACC")) + QChar(0));
    }

    void laGrafiaEsattaDellaCartellaVince()
    {
        for (const char16_t *nome : {u"gemella", u"Gemella", u"GEMELLA"})
            QVERIFY(QDir(m_cartella.path()).mkdir(QString::fromUtf16(nome)));
        for (const char16_t *nome : {u"gemella", u"Gemella", u"GEMELLA"}) {
            const QString esatta = QString::fromUtf16(nome);
            QCOMPARE(Percorso_Nativo(m_base + u'\\' + esatta + QStringLiteral("\\manca.txt")),
                     m_cartella.filePath(esatta + QStringLiteral("/manca.txt")));
        }
    }

    void percorsoRelativo()
    {
        const QString prima = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_cartella.path()));
        QCOMPARE(Percorso_Nativo(QStringLiteral("12345678.ACC")), QStringLiteral("12345678.acc"));
        QCOMPARE(Percorso_Nativo(QStringLiteral("DATI\\manca.txt")), QStringLiteral("Dati/manca.txt"));
        QVERIFY(QDir::setCurrent(prima));
    }

    void cartellaDelProgramma()
    {
        const QString cartella = Cartella_Programma();
        QVERIFY(!cartella.contains(u'/'));
        QVERIFY(!cartella.endsWith(u'\\'));
        QCOMPARE(QString(cartella).replace(u'\\', u'/'), QCoreApplication::applicationDirPath());
    }
};

QTEST_GUILESS_MAIN(tst_percorsi)
#include "tst_percorsi.moc"
