// The password tool at a terminal, which is a pseudo terminal here, and against a system that refuses.
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "strumenti/password_ini.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

QString Password_Attesa(const char16_t *chiave)
{
    return Pwd_Decifra(Valore_Ini(gFileIni, QStringLiteral("IMPOSTAZIONI"), QString::fromUtf16(chiave)));
}

/// The tool on a terminal of its own; what it shows is gathered, what it echoes too.
class AlTerminale
{
public:
    explicit AlTerminale(const QString &ini)
    {
        const QByteArray file = QFile::encodeName(ini);
        m_processo = ::forkpty(&m_terminale, nullptr, nullptr, nullptr);
        if (m_processo < 0)
            qFatal("no pseudo terminal");
        if (m_processo == 0) {
            termios modi; // those of a terminal in UTF-8
            ::tcgetattr(STDIN_FILENO, &modi);
            modi.c_iflag |= IUTF8;
            ::tcsetattr(STDIN_FILENO, TCSANOW, &modi);
            ::execl(LUMIRA_PASSWORD, LUMIRA_PASSWORD, "--scrivi", file.constData(), nullptr);
            ::_exit(127);
        }
        ::fcntl(m_terminale, F_SETFL, O_NONBLOCK);
    }
    ~AlTerminale()
    {
        if (m_stato < 0) {
            ::kill(m_processo, SIGKILL);
            ::waitpid(m_processo, nullptr, 0);
        }
        ::close(m_terminale);
    }
    Q_DISABLE_COPY_MOVE(AlTerminale)

    /// Waits until the terminal shows a text.
    bool Attendi(const QByteArray &testo)
    {
        return QTest::qWaitFor([&] { return Mostrato().contains(testo); });
    }
    const QByteArray &Mostrato()
    {
        char pezzo[1024];
        for (ssize_t letti; (letti = ::read(m_terminale, pezzo, sizeof pezzo)) > 0;)
            m_mostrato.append(pezzo, qsizetype(letti));
        return m_mostrato;
    }
    bool Batti(const QByteArray &tasti)
    {
        return ::write(m_terminale, tasti.constData(), size_t(tasti.size())) == tasti.size();
    }
    bool Eco() const
    {
        termios modi;
        return ::tcgetattr(m_terminale, &modi) == 0 && (modi.c_lflag & ECHO) != 0;
    }
    /// @return what waitpid tells of the end; -1 when it does not come.
    int Fine()
    {
        const auto finito = [this] {
            Mostrato();
            int stato = 0;
            if (m_stato < 0 && ::waitpid(m_processo, &stato, WNOHANG) == m_processo)
                m_stato = stato;
            return m_stato >= 0;
        };
        if (QTest::qWaitFor(finito))
            Mostrato();
        return m_stato;
    }

private:
    int m_terminale = -1;
    pid_t m_processo = -1;
    int m_stato = -1;
    QByteArray m_mostrato;
};

/// Files of this process may not grow past a size while it lives: to a write it is a disk that is full.
class DiscoPieno
{
public:
    explicit DiscoPieno(rlim_t byte)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_prima);
        const rlimit limite = {byte, m_prima.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limite);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    ~DiscoPieno() { ::setrlimit(RLIMIT_FSIZE, &m_prima); }
    Q_DISABLE_COPY_MOVE(DiscoPieno)

private:
    rlimit m_prima;
};

} // namespace

class tst_lumira_password_posix : public QObject
{
    Q_OBJECT

    QStringList File_Di(const StazioneProva &stazione) const
    {
        return QDir(stazione.Nativo(QString())).entryList({QStringLiteral("lumira.ini*")}, QDir::Files);
    }

private Q_SLOTS:
    void nienteSiVede()
    {
        const StazioneProva stazione;
        AlTerminale strumento(stazione.Nativo(QStringLiteral("lumira.ini")));
        QVERIFY(strumento.Attendi("Nuova password: "));
        QVERIFY(!strumento.Eco());
        QVERIFY(strumento.Batti("è qui\n"));
        QVERIFY(strumento.Attendi("Ancora la stessa: "));
        QVERIFY(strumento.Batti("è qui\n"));
        const int stato = strumento.Fine();
        QVERIFY2(WIFEXITED(stato) && WEXITSTATUS(stato) == 0, strumento.Mostrato().constData());
        QVERIFY2(!strumento.Mostrato().contains("qui"), strumento.Mostrato().constData());
        // Enter is shown: the question and what comes next stand on lines of their own.
        QVERIFY2(
            strumento.Mostrato().startsWith("Nuova password: \r\nAncora la stessa: \r\nPassword scritta"),
            strumento.Mostrato().constData());
        QVERIFY(strumento.Eco());
        QCOMPARE(Password_Attesa(u"Pwd"), QStringLiteral("è qui"));
        QCOMPARE(Password_Attesa(u"Pwd2"), QStringLiteral("è qui"));
    }

    /// A letter of two bytes is one letter to the Backspace key.
    void siCorreggeMentreSiScrive()
    {
        const StazioneProva stazione;
        AlTerminale strumento(stazione.Nativo(QStringLiteral("lumira.ini")));
        QVERIFY(strumento.Attendi("Nuova password: "));
        QVERIFY(strumento.Batti("lampè\x7F"
                                "ada\n"));
        QVERIFY(strumento.Attendi("Ancora la stessa: "));
        QVERIFY(strumento.Batti("lampada\n"));
        QCOMPARE(strumento.Fine(), 0);
        QCOMPARE(Password_Attesa(u"Pwd"), QStringLiteral("lampada"));
    }

    /// Who gives up in the middle gets a terminal back that shows what is typed, and the file as it was.
    void ctrlCRiportaLEco()
    {
        const StazioneProva stazione;
        const QByteArray prima = stazione.Leggi(QStringLiteral("lumira.ini"));
        AlTerminale strumento(stazione.Nativo(QStringLiteral("lumira.ini")));
        QVERIFY(strumento.Attendi("Nuova password: "));
        QVERIFY(!strumento.Eco());
        QVERIFY(strumento.Batti("lam\x03"));
        const int stato = strumento.Fine();
        QVERIFY(WIFSIGNALED(stato) && WTERMSIG(stato) == SIGINT);
        QVERIFY(strumento.Eco());
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), prima);
        QCOMPARE(File_Di(stazione), QStringList{QStringLiteral("lumira.ini")});
    }

    void ctrlDRinuncia()
    {
        const StazioneProva stazione;
        AlTerminale strumento(stazione.Nativo(QStringLiteral("lumira.ini")));
        QVERIFY(strumento.Attendi("Nuova password: "));
        QVERIFY(strumento.Batti("\x04"));
        const int stato = strumento.Fine();
        QVERIFY(WIFEXITED(stato) && WEXITSTATUS(stato) == 1);
        QVERIFY(!strumento.Mostrato().contains("Ancora"));
        QVERIFY(strumento.Eco());
        QCOMPARE(File_Di(stazione), QStringList{QStringLiteral("lumira.ini")});
    }

    /// The first key fits the disk, the second does not: the file goes back to what it was.
    void metaScritturaTornaIndietro()
    {
        const StazioneProva stazione;
        const QByteArray prima = "[IMPOSTAZIONI]\r\nPwd=xxxxxxxx\r\nPwd2=\r\n";
        stazione.Scrivi(QStringLiteral("lumira.ini"), prima);
        QString copia, errore;
        EsitoPassword esito = EsitoPassword::Scritta;
        {
            const DiscoPieno pieno(static_cast<rlim_t>(prima.size()) + 4);
            esito = Password_Scrivi(gFileIni, QStringLiteral("12345678"), copia, errore);
        }
        QCOMPARE(esito, EsitoPassword::FileRifiutato);
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), prima);
        QVERIFY(copia.isEmpty());
        QVERIFY2(errore.contains(QStringLiteral("resta com'era")), qPrintable(errore));
        QCOMPARE(File_Di(stazione), QStringList{QStringLiteral("lumira.ini")});
    }

    void discoPienoSenzaCopia()
    {
        const StazioneProva stazione;
        const QByteArray prima = stazione.Leggi(QStringLiteral("lumira.ini"));
        QString copia, errore;
        EsitoPassword esito = EsitoPassword::Scritta;
        {
            const DiscoPieno pieno(10);
            esito = Password_Scrivi(gFileIni, QStringLiteral("lampada"), copia, errore);
        }
        QCOMPARE(esito, EsitoPassword::FileRifiutato);
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), prima);
        QCOMPARE(File_Di(stazione), QStringList{QStringLiteral("lumira.ini")});
    }

    void fileProtetto()
    {
        const StazioneProva stazione;
        const QString nativo = stazione.Nativo(QStringLiteral("lumira.ini"));
        const QByteArray prima = stazione.Leggi(QStringLiteral("lumira.ini"));
        const auto permessi = [](const QString &quale, mode_t modo) {
            return ::chmod(QFile::encodeName(quale).constData(), modo) == 0;
        };
        QVERIFY(permessi(stazione.Nativo(QString()), 0777) && permessi(nativo, 0444));
        QString copia, errore;
        EsitoPassword esito = EsitoPassword::Scritta;
        {
            const SenzaPrivilegi senza;
            esito = Password_Scrivi(gFileIni, QStringLiteral("lampada"), copia, errore);
        }
        QCOMPARE(esito, EsitoPassword::FileRifiutato);
        QVERIFY2(errore.contains(QStringLiteral("non si può scrivere")), qPrintable(errore));
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), prima);
        QCOMPARE(File_Di(stazione), QStringList{QStringLiteral("lumira.ini")});
    }
};

QTEST_GUILESS_MAIN(tst_lumira_password_posix)
#include "tst_lumira_password_posix.moc"
