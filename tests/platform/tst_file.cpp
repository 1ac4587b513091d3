// Plain file operations with the classic errors.
#include "platform/file.h"

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

class tst_file : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("DIR_FAR\\prova.txt");
    const QString m_file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\prova.txt"));

    QStringList Righe_Di(const QByteArray &byte) const
    {
        m_stazione.Scrivi(m_nome, byte);
        QStringList righe;
        for (FileRighe file(m_file); !file.Fine();)
            righe.append(file.Leggi());
        return righe;
    }

private Q_SLOTS:
    void cleanup() { QFile::remove(m_stazione.Nativo(m_nome)); }

    void scriveOgniRigaConCrLf()
    {
        File_ScriviRighe(m_file,
                         {QStringLiteral("[Sez]"), QString(), QStringLiteral("Citt\u00E0=\u20AC\u0416")});
        QCOMPARE(m_stazione.Leggi(m_nome), "[Sez]\r\n\r\nCitt\xE0=\x80?\r\n");
    }

    void scriveNessunaRiga()
    {
        File_ScriviRighe(m_file, {});
        QVERIFY(QFile::exists(m_stazione.Nativo(m_nome)));
        QCOMPARE(m_stazione.Leggi(m_nome), "");
    }

    void prendeIlPostoDiUnFilePiuLungo()
    {
        m_stazione.Scrivi(m_nome, QByteArray(5000, 'x'));
        File_ScriviRighe(m_file, {QStringLiteral("a")});
        QCOMPARE(m_stazione.Leggi(m_nome), "a\r\n");
    }

    void prendeIlPostoDelFileInAltroCaso()
    {
        m_stazione.Scrivi(m_nome, "x");
        File_ScriviRighe(m_stazione.Percorso(QStringLiteral("dir_far\\PROVA.TXT")), {QStringLiteral("a")});
        QCOMPARE(m_stazione.Leggi(m_nome), "a\r\n");
        QCOMPARE(QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR"))).entryList(QDir::Files),
                 QStringList{QStringLiteral("prova.txt")});
    }

    void cartellaMancanteDa76()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("manca\\prova.txt"));
        QCOMPARE(Errore_Di([&] { File_ScriviRighe(file, {QStringLiteral("a")}); }), 76);
        QVERIFY(!QFile::exists(m_stazione.Nativo(QStringLiteral("manca"))));
    }

    void cartellaAlPostoDelFileDa70()
    {
        const QString file = m_stazione.Percorso(QStringLiteral("DIR_FAR"));
        QCOMPARE(Errore_Di([&] { File_ScriviRighe(file, {QStringLiteral("a")}); }), 70);
        QCOMPARE(Errore_Di([&] { FileRighe righe(file); }), 70);
        QCOMPARE(Errore_Di([&] { File_Elimina(file); }), 70);
    }

    void elimina()
    {
        m_stazione.Scrivi(m_nome, "x");
        File_Elimina(m_stazione.Percorso(QStringLiteral("DIR_FAR\\PROVA.txt")));
        QVERIFY(!QFile::exists(m_stazione.Nativo(m_nome)));
        QCOMPARE(Errore_Di([&] { File_Elimina(m_file); }), 53);
    }

    void leggeLeRighe_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QStringList>("righe");
        const QStringList ab = {QStringLiteral("a"), QStringLiteral("b")};
        QTest::newRow("CRLF") << QByteArray("a\r\nb\r\n") << ab;
        QTest::newRow("LF") << QByteArray("a\nb\n") << ab;
        QTest::newRow("CR") << QByteArray("a\rb\r") << ab;
        QTest::newRow("no last line end") << QByteArray("a\r\nb") << ab;
        QTest::newRow("mixed") << QByteArray("a\rb\nc\r\nd")
                               << QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                              QStringLiteral("d")};
        QTest::newRow("LF CR are two ends")
            << QByteArray("a\n\rb") << QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")};
        QTest::newRow("two CR before LF")
            << QByteArray("a\r\r\nb") << QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")};
        QTest::newRow("blank lines") << QByteArray("\r\n\r\n") << QStringList{QString(), QString()};
        QTest::newRow("empty file") << QByteArray() << QStringList();
        QTest::newRow("code page") << QByteArray("\x80\xE0") << QStringList{QStringLiteral("€à")};
        QTest::newRow("blanks stay") << QByteArray(" a \t\r\n") << QStringList{QStringLiteral(" a \t")};
    }
    void leggeLeRighe()
    {
        QFETCH(QByteArray, byte);
        QTEST(Righe_Di(byte), "righe");
    }

    void leggeInAltroCaso()
    {
        m_stazione.Scrivi(m_nome, "a\r\n");
        FileRighe file(m_stazione.Percorso(QStringLiteral("DIR_FAR\\Prova.TXT")));
        QCOMPARE(file.Leggi(), QStringLiteral("a"));
        QVERIFY(file.Fine());
        QCOMPARE(file.Leggi(), QString());
    }

    void fileMancanteDa53()
    {
        QCOMPARE(Errore_Di([&] { FileRighe file(m_file); }), 53);
    }
};

QTEST_GUILESS_MAIN(tst_file)
#include "tst_file.moc"
