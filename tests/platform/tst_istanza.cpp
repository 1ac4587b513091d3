// One station a workstation. The test starts itself again as the program that takes the lock.
#include "platform/istanza.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <cstdio>
#include <memory>

namespace {

/// A child of the other program: stays for as long as its file does, a minute at most.
int Programma_Figlio(const QString &segno)
{
    QFile file(segno);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.close();
    for (int attesa = 0; attesa < 6000 && QFile::exists(segno); ++attesa)
        QThread::msleep(10);
    return 0;
}

/// The other program: tells whether it came second, and stays until its input ends.
/// @param segno the file of a child that outlives it; empty for none.
int Programma_Istanza(const QString &segno)
{
    std::puts(Istanza_Precedente() ? "second" : "first");
    std::fflush(stdout);
    if (!segno.isEmpty())
        QProcess::startDetached(QCoreApplication::applicationFilePath(), {QStringLiteral("figlio"), segno});
    while (std::getchar() != EOF)
        continue;
    return 0;
}

/// A program that nothing can be written to: the first thing that it opens takes the place of its input.
int Programma_SenzaIngresso()
{
    (void)std::fclose(stdin);
    std::puts(Istanza_Precedente() ? "second" : "first");
    return 0;
}

class Programma
{
public:
    explicit Programma(const QString &file = QCoreApplication::applicationFilePath(),
                       const QString &segno = QString())
        : Programma(file, QStringList{QStringLiteral("istanza"), segno})
    {
    }
    Programma(const QString &file, const QStringList &argomenti) { m_processo.start(file, argomenti); }
    /// What the program said of itself.
    QByteArray Detto()
    {
        while (!m_processo.canReadLine() && m_processo.waitForReadyRead())
            continue;
        return m_processo.readLine().trimmed();
    }
    bool Uccidi()
    {
        m_processo.kill();
        // Its end may have been told already, in the wait for something else.
        return m_processo.waitForFinished() || m_processo.state() == QProcess::NotRunning;
    }
    bool Chiudi()
    {
        m_processo.closeWriteChannel();
        return m_processo.waitForFinished();
    }

private:
    QProcess m_processo;
};

} // namespace

class tst_istanza : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laSecondaSiRiconosce()
    {
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        Programma seconda;
        QCOMPARE(seconda.Detto(), "second");
        Programma terza;
        QCOMPARE(terza.Detto(), "second");
        QVERIFY(prima.Chiudi() && seconda.Chiudi() && terza.Chiudi());
    }

    /// Started by a shell that has closed its input, say.
    void ancheSenzaIngressoSiRiconosce()
    {
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        Programma seconda(QCoreApplication::applicationFilePath(),
                          QStringList(QStringLiteral("senza-ingresso")));
        QCOMPARE(seconda.Detto(), "second");
        QVERIFY(prima.Chiudi());
    }

    void laFineLasciaIlPosto()
    {
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        QVERIFY(prima.Chiudi());
        Programma dopo;
        QCOMPARE(dopo.Detto(), "first");
        QVERIFY(dopo.Chiudi());
    }

    void laMorteImprovvisaLasciaIlPosto()
    {
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        QVERIFY(prima.Uccidi());
        Programma dopo;
        QCOMPARE(dopo.Detto(), "first");
        QVERIFY(dopo.Chiudi());
    }

    /// A viewer that the station opened, say, stays when the station goes: it holds no lock.
    void unFiglioNonTieneIlPosto()
    {
        const QTemporaryDir cartella;
        const QString segno = cartella.filePath(QStringLiteral("segno"));
        Programma prima(QCoreApplication::applicationFilePath(), segno);
        QCOMPARE(prima.Detto(), "first");
        QTRY_VERIFY(QFile::exists(segno));
        QVERIFY(prima.Uccidi());
        Programma dopo;
        const QByteArray detto = dopo.Detto();
        QVERIFY(QFile::remove(segno)); // the child was there all the time, and goes now
        QCOMPARE(detto, "first");
        QVERIFY(dopo.Chiudi());
    }

    /// The second one goes away without taking the first one's lock along.
    void laSecondaCheEsceNonLiberaLaPrima()
    {
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        Programma seconda;
        QCOMPARE(seconda.Detto(), "second");
        QVERIFY(seconda.Chiudi());
        Programma terza;
        QCOMPARE(terza.Detto(), "second");
        QVERIFY(prima.Chiudi() && terza.Chiudi());
    }

    /// A package puts a new program file in the old one's place, whether the station runs or not.
    void unAggiornamentoNonLasciaEntrareLaSeconda()
    {
        const QTemporaryDir cartella;
        const QString programma =
            cartella.filePath(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
        const QString nuovo = cartella.filePath(QStringLiteral("nuovo"));
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), programma));
        Programma prima(programma);
        QCOMPARE(prima.Detto(), "first");
        QVERIFY(QFile::rename(programma, cartella.filePath(QStringLiteral("vecchio"))));
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), nuovo) &&
                QFile::rename(nuovo, programma));
        Programma seconda(programma);
        QCOMPARE(seconda.Detto(), "second");
        QVERIFY(prima.Chiudi() && seconda.Chiudi());
        Programma dopo(programma);
        QCOMPARE(dopo.Detto(), "first");
        QVERIFY(dopo.Chiudi());
    }

    /// Who only looks finds it running, and does not keep the next one out.
    void chiGuardaNonTieneIlPosto()
    {
        const QString programma = QCoreApplication::applicationFilePath().replace(u'/', u'\\');
        QVERIFY(!Istanza_InCorso(programma));
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        QVERIFY(Istanza_InCorso(programma));
        QVERIFY(!Istanza_InCorso(QDir::tempPath().replace(u'/', u'\\') + QStringLiteral("\\lumira")));
        QVERIFY(prima.Chiudi());
        QTRY_VERIFY(!Istanza_InCorso(programma));
        Programma dopo;
        QCOMPARE(dopo.Detto(), "first");
        QVERIFY(dopo.Chiudi());
    }

    void unAltraInstallazioneNonConta()
    {
        const QTemporaryDir altrove;
        const QString copia = altrove.filePath(QStringLiteral("lumira"));
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), copia));
        Programma prima;
        QCOMPARE(prima.Detto(), "first");
        Programma altra(copia);
        QCOMPARE(altra.Detto(), "first");
        QVERIFY(prima.Chiudi() && altra.Chiudi());
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication applicazione(argc, argv);
    const QStringList argomenti = QCoreApplication::arguments();
    if (argomenti.value(1) == u"istanza")
        return Programma_Istanza(argomenti.value(2));
    if (argomenti.value(1) == u"senza-ingresso")
        return Programma_SenzaIngresso();
    if (argomenti.value(1) == u"figlio")
        return Programma_Figlio(argomenti.value(2));
    tst_istanza prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_istanza.moc"
