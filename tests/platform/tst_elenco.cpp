// Folder listings: order, masks, attributes, find records.
#include "platform/elenco.h"

#include "platform/maiuscole.h"
#include "platform/percorsi.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimeZone>

class tst_elenco : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;

    QString Percorso(const char16_t *nome) const { return m_stazione.Percorso(QString::fromUtf16(nome)); }
    QStringList Elenca(const char16_t *percorso, qint16 attributo = 0) const
    {
        return Cartella_Elenca(Percorso(percorso), attributo);
    }
    QStringList Trova(const char16_t *percorso) const
    {
        QList<RecordTrovato> trovati;
        Trova_File(Percorso(percorso), trovati);
        QStringList nomi;
        for (const RecordTrovato &trovato : trovati)
            nomi.append(trovato.cFileName);
        return nomi;
    }
    static QStringList Nomi(std::initializer_list<const char16_t *> nomi)
    {
        QStringList lista;
        for (const char16_t *nome : nomi)
            lista.append(QString::fromUtf16(nome));
        return lista;
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char16_t *nome :
             {u"L\\b.acc", u"L\\A.acc", u"L\\c.ACC", u"L\\a_1.acc", u"L\\aZ.acc", u"L\\10.acc", u"L\\9.acc",
              u"L\\x.accetta", u"L\\y.acc.old", u"L\\z.ac", u"L\\senza", u"L\\.nascosto.acc", u"L\\è.acc",
              u"L\\S\\dentro.acc", u"V\\S\\dentro.acc"})
            m_stazione.Scrivi(QString::fromUtf16(nome), "testo");
        QDir(m_stazione.Nativo(QStringLiteral("L"))).mkdir(QStringLiteral("cartella.acc"));
    }

    /// Upper case decides: "_" stands between the upper and the lower letters, and so behind every letter.
    void ordinePerNomeSenzaCaso()
    {
        QCOMPARE(Elenca(u"L\\*.acc"), Nomi({u"10.acc", u"9.acc", u"A.acc", u"aZ.acc", u"a_1.acc", u"b.acc",
                                            u"c.ACC", u"x.accetta", u"è.acc"}));
    }

    /// Of names that differ by case alone one is listed: the one that opens under the name in capitals.
    void gemelliPerCaso()
    {
        for (const char16_t *nome : {u"G\\due.acc", u"G\\DUE.ACC", u"G\\Due.acc", u"G\\uno.acc",
                                     u"G\\Uno.Acc", u"G\\tre.acc", u"G\\ÿ.acc", u"G\\Ÿ.ACC"})
            m_stazione.Scrivi(QString::fromUtf16(nome), QString::fromUtf16(nome).toUtf8());
        const QStringList attesi = Nomi({u"DUE.ACC", u"tre.acc", u"Uno.Acc", u"Ÿ.ACC"});
        QCOMPARE(Elenca(u"G\\*.acc"), attesi);
        QCOMPARE(Trova(u"G\\*.acc"), attesi);
        for (const QString &nome : attesi) {
            QCOMPARE(Percorso_Nativo(Percorso(u"G\\") + Maiuscole(nome)),
                     m_stazione.Nativo(QStringLiteral("G\\") + nome));
        }
    }

    void maschere_data()
    {
        QTest::addColumn<QString>("maschera");
        QTest::addColumn<QStringList>("nomi");
        QTest::newRow("one name") << QStringLiteral("b.acc") << Nomi({u"b.acc"});
        QTest::newRow("one name, other case") << QStringLiteral("B.ACC") << Nomi({u"b.acc"});
        QTest::newRow("no such name") << QStringLiteral("manca.acc") << QStringList();
        QTest::newRow("a name is no beginning") << QStringLiteral("x.acc") << QStringList();
        QTest::newRow("question mark")
            << QStringLiteral("?.acc") << Nomi({u"9.acc", u"A.acc", u"b.acc", u"c.ACC", u"è.acc"});
        QTest::newRow("beginning") << QStringLiteral("a*.acc") << Nomi({u"A.acc", u"aZ.acc", u"a_1.acc"});
        QTest::newRow("two letters do not take longer") << QStringLiteral("*.ac") << Nomi({u"z.ac"});
        QTest::newRow("last extension counts") << QStringLiteral("*.old") << Nomi({u"y.acc.old"});
        QTest::newRow("point and star takes names without a point")
            << QStringLiteral("*.*")
            << Nomi({u"10.acc", u"9.acc", u"A.acc", u"aZ.acc", u"a_1.acc", u"b.acc", u"c.ACC", u"senza",
                     u"x.accetta", u"y.acc.old", u"z.ac", u"è.acc"});
        QTest::newRow("a star takes the longest that fits")
            << QStringLiteral("*c*.old") << Nomi({u"y.acc.old"});
        QTest::newRow("stars and marks")
            << QStringLiteral("?*?.ac?") << Nomi({u"10.acc", u"aZ.acc", u"a_1.acc"});
        QTest::newRow("signs of an expression are letters") << QStringLiteral("[ab].acc") << QStringList();
    }
    void maschere()
    {
        QFETCH(QString, maschera);
        QTEST(Cartella_Elenca(Percorso(u"L\\") + maschera, 0), "nomi");
    }

    void treLetterePrendonoEstensioniPiuLunghe()
    {
        QVERIFY(Elenca(u"L\\*.acc").contains(QStringLiteral("x.accetta")));
        QVERIFY(!Elenca(u"L\\*.acc").contains(QStringLiteral("y.acc.old")));
        QVERIFY(Trova(u"L\\*.acc").contains(QStringLiteral("x.accetta")));
    }

    void attributo0DaSoloFile()
    {
        const QStringList nomi = Elenca(u"L\\*");
        QVERIFY(nomi.contains(QStringLiteral("senza")));
        QVERIFY(!nomi.contains(QStringLiteral("S")));
        QVERIFY(!nomi.contains(QStringLiteral("cartella.acc")));
        QVERIFY(!nomi.contains(QStringLiteral(".")));
        QVERIFY(!nomi.contains(QStringLiteral(".nascosto.acc")));
    }

    void attributo16AggiungeLeCartelle()
    {
        const QStringList nomi = Elenca(u"L\\*", 16);
        for (const char16_t *nome : {u".", u"..", u"S", u"cartella.acc", u"senza", u"b.acc"})
            QVERIFY2(nomi.contains(QString::fromUtf16(nome)), qPrintable(QString::fromUtf16(nome)));
        QVERIFY(!nomi.contains(QStringLiteral(".nascosto.acc")));
    }

    void barraAllaFineElencaLaCartella()
    {
        QCOMPARE(Elenca(u"L\\"), Elenca(u"L\\*"));
        QCOMPARE(Elenca(u"l\\", 16), Elenca(u"L\\*", 16));
        QCOMPARE(Elenca(u"V\\"), QStringList()); // it holds a folder, but no file
        QVERIFY(!Elenca(u"V\\", 16).isEmpty());
    }

    void cartellaPerNome()
    {
        QCOMPARE(Elenca(u"l", 16), Nomi({u"L"}));
        QCOMPARE(Elenca(u"l", 0), QStringList());
    }

    void cartellaMancanteDaElencoVuoto()
    {
        QCOMPARE(Elenca(u"manca\\*.acc"), QStringList());
        QCOMPARE(Elenca(u"manca\\", 16), QStringList());
    }

    void fileAlPostoDellaCartellaDaElencoVuoto() { QCOMPARE(Elenca(u"L\\senza\\*"), QStringList()); }

    void percorsoErratoDa52_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::newRow("NUL inside") << QString(Percorso(u"L") + QChar(0) + QStringLiteral("\\*"));
        QTest::newRow("too long") << QString(Percorso(u"") + QString(5000, u'a') + QStringLiteral("\\*"));
    }
    void percorsoErratoDa52()
    {
        QFETCH(QString, percorso);
        QCOMPARE(Errore_Di([&] { Cartella_Elenca(percorso, 0); }), 52);
    }

    /// The find calls know no attribute mask: all that matches comes.
    void ricercaDaTutto()
    {
        const QStringList nomi = Trova(u"L\\*");
        for (const char16_t *nome : {u".", u"..", u"S", u"cartella.acc", u"senza", u".nascosto.acc"})
            QVERIFY2(nomi.contains(QString::fromUtf16(nome)), qPrintable(QString::fromUtf16(nome)));
        QVERIFY(Trova(u"L\\*.acc").contains(QStringLiteral(".nascosto.acc")));
    }

    void ricercaNellOrdineDelVolume()
    {
        QCOMPARE(Trova(u"L\\a*.acc"), Nomi({u"A.acc", u"aZ.acc", u"a_1.acc"}));
    }

    /// A full folder takes a while: what runs meanwhile runs again and again, in a small one not at all.
    void intantoSiFaAltro()
    {
        constexpr int QUANTI = 1000;
        for (int i = 0; i < QUANTI; ++i)
            m_stazione.Scrivi(QStringLiteral("Q\\%1.acc").arg(i), {});
        QList<RecordTrovato> trovati;
        int volte = 0;
        QVERIFY(Trova_File(Percorso(u"Q\\*.acc"), trovati, [&volte] { ++volte; }));
        QCOMPARE(trovati.size(), QUANTI);
        QCOMPARE(volte, 5); // after each two hundred
        const QStringList nomi = Cartella_Elenca(Percorso(u"Q\\*.acc"), 0, [&volte] { ++volte; });
        QCOMPARE(nomi.size(), QUANTI);
        QCOMPARE(volte, 10);
        m_stazione.Scrivi(QStringLiteral("P\\1.acc"), {});
        m_stazione.Scrivi(QStringLiteral("P\\2.acc"), {});
        QVERIFY(Trova_File(Percorso(u"P\\*.acc"), trovati, [&volte] { ++volte; }));
        QCOMPARE(trovati.size(), 2);
        QCOMPARE(volte, 10);
    }

    /// A file or a folder that Windows marks as read-only, or as changed, is listed like any other.
    void altriAttributiNonContano()
    {
        constexpr quint32 SOLA_LETTURA = 1;
        constexpr quint32 ARCHIVIO = 32;
        QList<RecordTrovato> trovati(3);
        trovati[0].cFileName = QStringLiteral("a.acc");
        trovati[0].dwFileAttributes = SOLA_LETTURA | ARCHIVIO;
        trovati[1].cFileName = QStringLiteral("B");
        trovati[1].dwFileAttributes = ATTRIBUTO_CARTELLA | SOLA_LETTURA;
        trovati[2].cFileName = QStringLiteral("c.acc");
        trovati[2].dwFileAttributes = ATTRIBUTO_NASCOSTO;
        QCOMPARE(Nomi_Con(trovati, 0), QStringList(QStringLiteral("a.acc")));
        QCOMPARE(Nomi_Con(trovati, static_cast<qint16>(ATTRIBUTO_CARTELLA)),
                 QStringList({QStringLiteral("a.acc"), QStringLiteral("B")}));
    }

    void ricercaSenzaRisultato()
    {
        QList<RecordTrovato> trovati = {RecordTrovato{}};
        QVERIFY(!Trova_File(Percorso(u"L\\*.xyz"), trovati));
        QVERIFY(trovati.isEmpty());
        QVERIFY(!Trova_File(Percorso(u"manca\\*"), trovati));
        QVERIFY(!Trova_File(Percorso(u"L\\"), trovati)); // a folder and no mask
    }

    /// Windows gives what is no folder its archive bit, which nobody asks for.
    void attributiDelRecord()
    {
        constexpr quint32 ARCHIVIO = 32;
        QList<RecordTrovato> trovati;
        QVERIFY(Trova_File(Percorso(u"L\\senza"), trovati));
        QCOMPARE(trovati[0].dwFileAttributes & ~ARCHIVIO, quint32{0});
        QVERIFY(Trova_File(Percorso(u"L\\S"), trovati));
        QCOMPARE(trovati[0].dwFileAttributes, ATTRIBUTO_CARTELLA);
        QVERIFY(Trova_File(Percorso(u"L\\.nascosto.acc"), trovati));
        QCOMPARE(trovati[0].dwFileAttributes & ~ARCHIVIO, ATTRIBUTO_NASCOSTO);
        QVERIFY(Trova_File(Percorso(u"L\\."), trovati));
        QCOMPARE(trovati[0].dwFileAttributes, ATTRIBUTO_CARTELLA);
    }

    /// 1 January 1970 is 116444736000000000 steps of 100 ns after 1 January 1601.
    void tempiDal1601()
    {
        const auto imposta = [this](QFileDevice::FileTime quale, const QDateTime &tempo) {
            QFile file(m_stazione.Nativo(QStringLiteral("L\\senza")));
            return file.open(QIODevice::ReadWrite) && file.setFileTime(tempo, quale);
        };
        QVERIFY(imposta(QFileDevice::FileModificationTime, QDateTime::fromMSecsSinceEpoch(0, Qt::UTC)));
        QVERIFY(
            imposta(QFileDevice::FileAccessTime, QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC)));
        QList<RecordTrovato> trovati;
        QVERIFY(Trova_File(Percorso(u"L\\senza"), trovati));
        QCOMPARE(trovati[0].ftLastWriteTime, quint64{116444736000000000});
        QCOMPARE(trovati[0].ftLastAccessTime, quint64{133444736001230000});

        QVERIFY(imposta(QFileDevice::FileModificationTime, QDateTime(QDate(1960, 1, 1), QTime(), Qt::UTC)));
        QVERIFY(Trova_File(Percorso(u"L\\senza"), trovati));
        QVERIFY(trovati[0].ftLastWriteTime < quint64{116444736000000000});
    }
};

QTEST_GUILESS_MAIN(tst_elenco)
#include "tst_elenco.moc"
