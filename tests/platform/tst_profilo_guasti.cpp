// Profiles when things go wrong in the middle of a write: the process is killed, the disk is full, another
// program writes as well. The test starts itself again as the program that writes.
#include "core/modGeneral.h"
#include "tests/comuni/stazione_prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace {

constexpr int SCRITTURE = 500;
constexpr int GIRI = 60;

/// The value of a write: each has its own text, and the lengths go up and down over two blocks of a disk.
QString Valore_Di(int scrittura)
{
    return QStringLiteral("%1:").arg(scrittura) + QString((scrittura * 2741) % 9000, u'v');
}

/// What the file holds round the value.
QByteArray Testa()
{
    return "; configurazione\r\n[GENERAL]\r\nUser=kp\r\n" + QByteArray(3000, ';') + "\r\n[A]\r\nX=";
}

QByteArray Coda()
{
    return "\r\nY=2\r\n\r\n[MCTC]\r\nIniFile=1\r\n" + QByteArray(6000, ';') + "\r\n; fine";
}

/// The other program: a run of writes, each reported by a line once it is done.
int Programma_Scrittore(const QString &file)
{
    for (int scrittura = 0; scrittura < SCRITTURE; ++scrittura) {
        if (!Scrivi_Ini(file, QStringLiteral("A"), QStringLiteral("X"), Valore_Di(scrittura)))
            return 1;
        std::putchar('\n');
        std::fflush(stdout);
    }
    return 0;
}

/// One of several programs: each writes keys of its own, as fast as it can.
int Programma_Concorrente(const QString &file, const QString &nome, int chiavi)
{
    for (int chiave = 0; chiave < chiavi; ++chiave) {
        if (!Scrivi_Ini(file, QStringLiteral("A"), nome + QString::number(chiave), nome))
            return 1;
    }
    return 0;
}

/// Files of this process may not grow past a size while it lives: to a write it is a disk that is full.
class DiscoPieno
{
public:
    explicit DiscoPieno(rlim_t byte)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_prima);
        const rlimit limite = {byte, m_prima.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~DiscoPieno() { ::setrlimit(RLIMIT_FSIZE, &m_prima); }
    Q_DISABLE_COPY_MOVE(DiscoPieno)

private:
    rlimit m_prima;
};

} // namespace

class tst_profilo_guasti : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("DIR_FAR\\lumira.ini");

    QStringList Cartella() const
    {
        return QDir(m_stazione.Nativo(QStringLiteral("DIR_FAR")))
            .entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

private Q_SLOTS:
    void init() { m_stazione.Scrivi(m_nome, Testa() + "0" + Coda()); }

    /// The file holds the state of the last write that was reported done, or of the one after it, whole.
    void uccisoAMetaScrittura()
    {
        QRandomGenerator caso(20240315);
        int uccisi = 0; // a machine that holds us up may let the other program come to its end
        for (int giro = 0; giro < GIRI; ++giro) {
            QProcess scrittore;
            scrittore.start(QCoreApplication::applicationFilePath(),
                            {QStringLiteral("scrittore"), m_stazione.Percorso(m_nome)});
            QVERIFY(scrittore.waitForStarted());

            const int attese = int(caso.bounded(1, 25));
            int fatte = 0;
            while (fatte < attese) {
                QVERIFY(scrittore.waitForReadyRead());
                fatte += int(scrittore.readAllStandardOutput().size());
            }
            const qint64 ancora = caso.bounded(3'000'000); // ns: about as long as a write takes
            QElapsedTimer orologio;
            for (orologio.start(); orologio.nsecsElapsed() < ancora;)
                continue;
            scrittore.kill();
            QVERIFY(scrittore.waitForFinished());
            uccisi += scrittore.exitStatus() == QProcess::CrashExit ? 1 : 0;
            fatte += int(scrittore.readAllStandardOutput().size());

            const QByteArray byte = m_stazione.Leggi(m_nome);
            const auto stato = [](int scrittura) {
                return Testa() + Valore_Di(scrittura).toLatin1() + Coda();
            };
            QVERIFY2(byte == stato(fatte - 1) || byte == stato(fatte),
                     qPrintable(QStringLiteral("round %1, %2 writes").arg(giro).arg(fatte)));
        }
        QVERIFY(uccisi > GIRI / 2);
        QElapsedTimer orologio; // what the killed have locked is free again
        orologio.start();
        QVERIFY(Scrivi_Ini(m_stazione.Percorso(m_nome), QStringLiteral("A"), QStringLiteral("X"),
                           QStringLiteral("dopo")));
        QVERIFY2(orologio.elapsed() < 1500, qPrintable(QString::number(orologio.elapsed())));
        QCOMPARE(m_stazione.Leggi(m_nome), Testa() + "dopo" + Coda());
    }

    /// Two programs on one file: whoever writes on what the other is about to replace would lose it.
    void dueProgrammiInsieme_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("chiavi"); // of each program
        QTest::newRow("file") << m_nome << 500;
        QTest::newRow("new file") << QStringLiteral("DIR_FAR\\nuovo.ini") << 20;
    }
    void dueProgrammiInsieme()
    {
        QFETCH(QString, nome);
        QFETCH(int, chiavi);
        const QStringList nomi = {QStringLiteral("Uno"), QStringLiteral("Due")};
        QProcess programmi[2];
        for (int i = 0; i < 2; ++i) {
            programmi[i].start(
                QCoreApplication::applicationFilePath(),
                {QStringLiteral("concorrente"), m_stazione.Percorso(nome), nomi[i], QString::number(chiavi)});
        }
        for (QProcess &programma : programmi) {
            QVERIFY(programma.waitForFinished(250'000));
            QCOMPARE(programma.exitStatus(), QProcess::NormalExit);
            QCOMPARE(programma.exitCode(), 0);
        }
        for (const QString &chi : nomi) {
            for (int chiave = 0; chiave < chiavi; ++chiave) {
                QCOMPARE(
                    Valore_Ini(m_stazione.Percorso(nome), QStringLiteral("A"), chi + QString::number(chiave)),
                    chi);
            }
        }
        QCOMPARE(m_stazione.Leggi(nome).count("\r\nUno"), chiavi);
        QCOMPARE(m_stazione.Leggi(nome).count("\r\nDue"), chiavi);
    }

    void discoPieno_data()
    {
        QTest::addColumn<qsizetype>("posto"); // how many bytes of the new file the disk takes
        const qsizetype nuovo = (Testa() + "nuovo" + Coda()).size();
        QTest::newRow("nothing fits") << qsizetype{0};
        QTest::newRow("one byte fits") << qsizetype{1};
        QTest::newRow("up to the value") << Testa().size();
        QTest::newRow("all but one byte") << nuovo - 1;
    }
    void discoPieno()
    {
        QFETCH(qsizetype, posto);
        const QStringList prima = Cartella();
        Flag esito = Vero;
        {
            const DiscoPieno pieno(static_cast<rlim_t>(posto));
            esito = Scrivi_Ini(m_stazione.Percorso(m_nome), QStringLiteral("A"), QStringLiteral("X"),
                               QStringLiteral("nuovo"));
        }
        QCOMPARE(esito, Falso);
        QCOMPARE(m_stazione.Leggi(m_nome), Testa() + "0" + Coda());
        QCOMPARE(Cartella(), prima);
        QCOMPARE(Valore_Ini(m_stazione.Percorso(m_nome), QStringLiteral("A"), QStringLiteral("X")),
                 QStringLiteral("0"));
    }

    void discoPienoPerUnFileNuovo()
    {
        const QStringList prima = Cartella();
        Flag esito = Vero;
        {
            const DiscoPieno pieno(4);
            esito = Scrivi_Ini(m_stazione.Percorso(QStringLiteral("DIR_FAR\\altro.ini")), QStringLiteral("A"),
                               QStringLiteral("X"), QStringLiteral("nuovo"));
        }
        QCOMPARE(esito, Falso);
        QCOMPARE(Cartella(), prima);
    }

    void discoConPostoAppenaSufficiente()
    {
        const QByteArray nuovo = Testa() + "nuovo" + Coda();
        Flag esito = Falso;
        {
            const DiscoPieno pieno(static_cast<rlim_t>(nuovo.size()));
            esito = Scrivi_Ini(m_stazione.Percorso(m_nome), QStringLiteral("A"), QStringLiteral("X"),
                               QStringLiteral("nuovo"));
        }
        QCOMPARE(esito, Vero);
        QCOMPARE(m_stazione.Leggi(m_nome), nuovo);
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication applicazione(argc, argv);
    const QStringList argomenti = QCoreApplication::arguments();
    if (argomenti.size() == 3 && argomenti[1] == u"scrittore")
        return Programma_Scrittore(argomenti[2]);
    if (argomenti.size() == 5 && argomenti[1] == u"concorrente")
        return Programma_Concorrente(argomenti[2], argomenti[3], argomenti[4].toInt());

    std::signal(SIGXFSZ, SIG_IGN); // the write fails instead
    tst_profilo_guasti prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_profilo_guasti.moc"
