// The technician's password tool, as a process behind a pipe: what it says, how it ends, and what it leaves.
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/strumenti/processo.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

Esecuzione Esegui(const QStringList &argomenti, const QByteArray &ingresso = {})
{
    return Processo_Esegui(QStringLiteral(LUMIRA_PASSWORD),
                           QStringList{QStringLiteral("--lingua"), QStringLiteral("IT")} + argomenti,
                           ingresso);
}

/// The last language on the line counts.
Esecuzione In_Inglese(const QStringList &argomenti, const QByteArray &ingresso = {})
{
    return Esegui(QStringList{QStringLiteral("--lingua"), QStringLiteral("en")} + argomenti, ingresso);
}

QString Password_Attesa(const char16_t *chiave)
{
    return Pwd_Decifra(Valore_Ini(gFileIni, QStringLiteral("IMPOSTAZIONI"), QString::fromUtf16(chiave)));
}

} // namespace

class tst_lumira_password : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_ini = m_stazione.Nativo(QStringLiteral("lumira.ini"));
    QByteArray m_prima;

    QStringList Copie() const
    {
        return QDir(m_stazione.Nativo(QString())).entryList({QStringLiteral("lumira.ini.*")}, QDir::Files);
    }

private Q_SLOTS:
    void init() { m_prima = m_stazione.Leggi(QStringLiteral("lumira.ini")); }
    void cleanup()
    {
        m_stazione.Scrivi(QStringLiteral("lumira.ini"), m_prima);
        for (const QString &copia : Copie())
            QVERIFY(QFile::remove(m_stazione.Nativo(copia)));
    }

    void scritta_data()
    {
        QTest::addColumn<QByteArray>("ingresso");
        QTest::addColumn<QString>("password");
        QTest::newRow("due righe") << QByteArray("lampada\nlampada\n") << QStringLiteral("lampada");
        QTest::newRow("senza fine riga") << QByteArray("lampada\nlampada") << QStringLiteral("lampada");
        QTest::newRow("fine riga di Windows")
            << QByteArray("lampada\r\nlampada\r\n") << QStringLiteral("lampada");
        QTest::newRow("altre righe") << QByteArray("faro 1\nfaro 1\nterza\n") << QStringLiteral("faro 1");
        QTest::newRow("blank tenuti") << QByteArray(" a b \n a b \n") << QStringLiteral(" a b ");
        QTest::newRow("accenti") << QByteArray("è ora\nè ora\n") << QStringLiteral("è ora");
    }
    void scritta()
    {
        QFETCH(QByteArray, ingresso);
        QFETCH(QString, password);
        const Esecuzione esecuzione = Esegui({QStringLiteral("--scrivi"), m_ini}, ingresso);
        QCOMPARE(esecuzione.stato, 0);
        QCOMPARE(Password_Attesa(u"Pwd"), password);
        QCOMPARE(Password_Attesa(u"Pwd2"), password);
        QCOMPARE(esecuzione.errori, QStringLiteral("Nuova password: Ancora la stessa: "));
        QVERIFY(!esecuzione.uscita.contains(password));
        QCOMPARE(Copie().size(), 1);
        static const QRegularExpression NOME(QStringLiteral("^lumira\\.ini\\.[0-9]{8}-[0-9]{6}$"));
        QVERIFY2(NOME.match(Copie()[0]).hasMatch(), qPrintable(Copie()[0]));
        QVERIFY2(esecuzione.uscita.contains(Copie()[0]), qPrintable(esecuzione.uscita));
        QCOMPARE(m_stazione.Leggi(Copie()[0]), m_prima);
    }

    void passwordRifiutata_data()
    {
        QTest::addColumn<QByteArray>("ingresso");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("niente") << QByteArray() << QStringLiteral("va scritta due volte");
        QTest::newRow("una volta sola") << QByteArray("lampada\n") << QStringLiteral("va scritta due volte");
        QTest::newRow("vuota") << QByteArray("\n\n") << QStringLiteral("la password è vuota");
        QTest::newRow("diverse") << QByteArray("lampada\nlampade\n") << QStringLiteral("non sono uguali");
        QTest::newRow("fuori dalla tabella")
            << QByteArray("aЖ\naЖ\n") << QStringLiteral("il carattere 2 (\"Ж\") è fuori da Windows-1252");
        QTest::newRow("non UTF-8") << QByteArray("\xE8\n\xE8\n") << QStringLiteral("è fuori da Windows-1252");
        QTest::newRow("oltre la tabella")
            << QByteArray("aaù\naaù\n")
            << QStringLiteral("il carattere 3 (\"ù\") può stare al più al posto 1");
        QTest::newRow("mai nella tabella")
            << QByteArray("ü\nü\n") << QStringLiteral("il carattere 1 (\"ü\") non può stare in una password");
        QTest::newRow("tabulazione") << QByteArray("a\tb\na\tb\n")
                                     << QStringLiteral("il carattere 2 è un comando");
        QTest::newRow("troppo lunga")
            << QByteArray(60, 'a') + '\n' + QByteArray(60, 'a') + '\n'
            << QStringLiteral("il carattere 40 (\"a\") può stare al più al posto 39");
    }
    void passwordRifiutata()
    {
        QFETCH(QByteArray, ingresso);
        QFETCH(QString, motivo);
        const Esecuzione esecuzione = Esegui({QStringLiteral("--scrivi"), m_ini}, ingresso);
        QCOMPARE(esecuzione.stato, 1);
        QVERIFY2(esecuzione.errori.contains(motivo), qPrintable(esecuzione.errori));
        QVERIFY(esecuzione.uscita.isEmpty());
        QCOMPARE(m_stazione.Leggi(QStringLiteral("lumira.ini")), m_prima);
        QCOMPARE(Copie(), QStringList());
    }

    void fileRifiutato_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("manca") << QStringLiteral("manca.ini") << QStringLiteral("manca.ini non c'è");
        QTest::newRow("cartella") << QStringLiteral("dati") << QStringLiteral("non si può leggere");
        QTest::newRow("un altro profilo")
            << QStringLiteral("lingue.ini") << QStringLiteral("manca la sezione [IMPOSTAZIONI]");
    }
    /// It is told before the password is asked for.
    void fileRifiutato()
    {
        QFETCH(QString, nome);
        QFETCH(QString, motivo);
        const QByteArray prima = m_stazione.Leggi(nome);
        const Esecuzione esecuzione =
            Esegui({QStringLiteral("--scrivi"), m_stazione.Nativo(nome)}, "lampada\nlampada\n");
        QCOMPARE(esecuzione.stato, 3);
        QVERIFY2(esecuzione.errori.contains(motivo), qPrintable(esecuzione.errori));
        QVERIFY(!esecuzione.errori.contains(QStringLiteral("Nuova")));
        QCOMPARE(m_stazione.Leggi(nome), prima);
        QVERIFY(!QFile::exists(m_stazione.Nativo(QStringLiteral("manca.ini"))));
    }

    void percorsoRelativo()
    {
        const QString prima = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_stazione.Nativo(QString())));
        const Esecuzione esecuzione =
            Esegui({QStringLiteral("--scrivi"), QStringLiteral("lumira.ini")}, "AAA\nAAA\n");
        QVERIFY(QDir::setCurrent(prima));
        QCOMPARE(esecuzione.stato, 0);
        QCOMPARE(Password_Attesa(u"Pwd"), QStringLiteral("AAA"));
    }

    /// A password among the arguments would stay in the shell's history: it is not taken.
    void usoErrato_data()
    {
        QTest::addColumn<QStringList>("argomenti");
        QTest::newRow("niente") << QStringList();
        QTest::newRow("senza file") << QStringList{QStringLiteral("--scrivi")};
        QTest::newRow("solo il file") << QStringList{m_ini};
        QTest::newRow("password fra gli argomenti")
            << QStringList{QStringLiteral("--scrivi"), m_ini, QStringLiteral("lampada")};
        QTest::newRow("sconosciuta") << QStringList{QStringLiteral("--stampa"), m_ini};
        QTest::newRow("solo la password") << QStringList{QStringLiteral("lampada")};
    }
    void usoErrato()
    {
        QFETCH(QStringList, argomenti);
        const Esecuzione esecuzione = Esegui(argomenti, "lampada\nlampada\n");
        QCOMPARE(esecuzione.stato, 2);
        QVERIFY2(esecuzione.errori.contains(QStringLiteral("--help")), qPrintable(esecuzione.errori));
        QVERIFY2(!esecuzione.errori.contains(QStringLiteral("lampada")), qPrintable(esecuzione.errori));
        QCOMPARE(m_stazione.Leggi(QStringLiteral("lumira.ini")), m_prima);
    }

    void aiutoEVersione()
    {
        const Esecuzione aiuto = Esegui({QStringLiteral("--help")});
        QCOMPARE(aiuto.stato, 0);
        QCOMPARE(aiuto.uscita.section(u'\n', 0, 0).trimmed(),
                 QStringLiteral("Uso: lumira-password [opzioni] --scrivi FILE"));
        QVERIFY(aiuto.errori.isEmpty());
        const Esecuzione inglese = In_Inglese({QStringLiteral("--help")});
        QCOMPARE(inglese.stato, 0);
        QCOMPARE(inglese.uscita.section(u'\n', 0, 0).trimmed(),
                 QStringLiteral("Usage: lumira-password [options] --scrivi FILE"));
        const Esecuzione versione = Esegui({QStringLiteral("--version")});
        QCOMPARE(versione.stato, 0);
        QCOMPARE(versione.uscita.trimmed(), QStringLiteral("lumira-password " LUMIRA_VERSIONE));
    }

    void inInglese_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QByteArray>("ingresso");
        QTest::addColumn<int>("stato");
        QTest::addColumn<QString>("detto");
        const auto riga = [](const char *dati, const char16_t *nome, const QByteArray &ingresso, int stato,
                             const char16_t *detto) {
            QTest::newRow(dati) << QString::fromUtf16(nome) << ingresso << stato << QString::fromUtf16(detto);
        };
        riga("scritta", u"lumira.ini", "lampada\nlampada\n", 0, u"Password written in %1: ");
        riga("una volta", u"lumira.ini", "lampada\n", 1, u"the password has to be typed twice\n");
        riga("diverse", u"lumira.ini", "a\nb\n", 1, u"the two passwords are not the same\n");
        riga("vuota", u"lumira.ini", "\n\n", 1, u"the password is empty\n");
        riga("comando", u"lumira.ini", "a\tb\na\tb\n", 1, u"character 2 is a control character: ");
        riga("fuori", u"lumira.ini", "aЖ\naЖ\n", 1, u"character 2 (\"Ж\") is not in Windows-1252: ");
        riga("mai", u"lumira.ini", "ü\nü\n", 1, u"character 1 (\"ü\") cannot stand in a password: ");
        riga("oltre", u"lumira.ini", "aaù\naaù\n", 1, u"character 3 (\"ù\") can stand at place 1 at most: ");
        riga("manca", u"manca.ini", "", 3, u"lumira-password: %1 is not there\n");
        riga("cartella", u"dati", "", 3, u"lumira-password: %1 cannot be read\n");
        riga("un altro", u"lingue.ini", "", 3, u"lumira-password: %1 has no section [IMPOSTAZIONI]: ");
    }
    void inInglese()
    {
        QFETCH(QString, nome);
        QFETCH(QByteArray, ingresso);
        QFETCH(int, stato);
        QFETCH(QString, detto);
        const QString file = m_stazione.Nativo(nome);
        const Esecuzione esecuzione = In_Inglese({QStringLiteral("--scrivi"), file}, ingresso);
        QCOMPARE(esecuzione.stato, stato);
        const QString tutto = esecuzione.errori + esecuzione.uscita;
        QVERIFY2(tutto.contains(detto.replace(QStringLiteral("%1"), file)), qPrintable(tutto));
        QCOMPARE(tutto.contains(QStringLiteral("New password: ")), !ingresso.isEmpty());
    }
    void usoErratoInInglese()
    {
        QCOMPARE(In_Inglese({}).errori, QStringLiteral("lumira-password: --scrivi and the lumira.ini of the "
                                                       "station are needed (lumira-password --help)\n"));
        QCOMPARE(In_Inglese({m_ini}).errori, QStringLiteral("lumira-password: nothing stands beside the "
                                                            "options (lumira-password --help)\n"));
        QCOMPARE(Esegui({QStringLiteral("--lingua"), QStringLiteral("FR")}).stato, 2);
    }
};

QTEST_GUILESS_MAIN(tst_lumira_password)
#include "tst_lumira_password.moc"
