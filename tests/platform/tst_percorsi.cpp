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
