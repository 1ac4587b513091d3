// The installer's password tool, as a process: what goes in by the standard input, what comes out where.
#include "core/modStr.h"

#include <QProcess>
#include <QTest>

namespace {

struct Esecuzione
{
    int stato = -1;
    QString uscita;
    QString errori;
};

Esecuzione Esegui(const QByteArray &ingresso, const QStringList &argomenti = {})
{
    QProcess strumento;
    strumento.start(QStringLiteral(LUMIRA_PASSWORD), argomenti);
    strumento.write(ingresso);
    strumento.closeWriteChannel();
    if (!strumento.waitForFinished() || strumento.exitStatus() != QProcess::NormalExit)
        return {};
    return {strumento.exitCode(), QString::fromUtf8(strumento.readAllStandardOutput()),
            QString::fromUtf8(strumento.readAllStandardError())};
}

} // namespace

class tst_lumira_password : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passwordCifrataInUscita_data()
    {
        QTest::addColumn<QByteArray>("ingresso");
        QTest::addColumn<QString>("password");
        QTest::newRow("una riga") << QByteArray("lumira\n") << QStringLiteral("lumira");
        QTest::newRow("senza fine riga") << QByteArray("lumira") << QStringLiteral("lumira");
        QTest::newRow("fine riga di Windows") << QByteArray("lumira\r\n") << QStringLiteral("lumira");
        QTest::newRow("solo la prima riga") << QByteArray("prima\nseconda\n") << QStringLiteral("prima");
        QTest::newRow("blank tenuti") << QByteArray(" a b \n") << QStringLiteral(" a b ");
        QTest::newRow("accenti") << QByteArray("è ora\n") << QStringLiteral("è ora");
    }
    void passwordCifrataInUscita()
    {
        QFETCH(QByteArray, ingresso);
        QFETCH(QString, password);
        const Esecuzione esecuzione = Esegui(ingresso);
        QCOMPARE(esecuzione.stato, 0);
        QCOMPARE(esecuzione.uscita.count(u'\n'), 1); // the text alone, ready to be redirected
        QVERIFY(esecuzione.uscita.endsWith(u'\n'));
        QCOMPARE(Pwd_Decifra(esecuzione.uscita.chopped(1)), password);
        QCOMPARE(esecuzione.errori, QStringLiteral("Password: "));
    }

    void testoNotoAlCarattere() { QCOMPARE(Esegui("AAA\n").uscita, QStringLiteral("EIM\n")); }

    void passwordRifiutata_data()
    {
        QTest::addColumn<QByteArray>("ingresso");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("niente") << QByteArray() << QStringLiteral("vuota");
        QTest::newRow("riga vuota") << QByteArray("\n") << QStringLiteral("vuota");
        QTest::newRow("fuori dalla tabella") << QByteArray("Ж\n") << QStringLiteral("Windows-1252");
        QTest::newRow("oltre la tabella") << QByteArray("aaÿ\n") << QStringLiteral("il carattere 3 (\"ÿ\")");
    }
    void passwordRifiutata()
    {
        QFETCH(QByteArray, ingresso);
        QFETCH(QString, motivo);
        const Esecuzione esecuzione = Esegui(ingresso);
        QCOMPARE(esecuzione.stato, 1);
        QVERIFY(esecuzione.uscita.isEmpty()); // nothing that could be stored by mistake
        QVERIFY2(esecuzione.errori.contains(QStringLiteral("Non si può usare: ")),
                 qPrintable(esecuzione.errori));
        QVERIFY2(esecuzione.errori.contains(motivo), qPrintable(esecuzione.errori));
    }

    /// A password among the arguments would stay in the shell's history: it is not taken.
    void argomentiNonLetti()
    {
        const Esecuzione esecuzione = Esegui("AAA\n", {QStringLiteral("BBB")});
        QCOMPARE(esecuzione.stato, 0);
        QCOMPARE(esecuzione.uscita, QStringLiteral("EIM\n"));
    }
};

QTEST_GUILESS_MAIN(tst_lumira_password)
#include "tst_lumira_password.moc"
