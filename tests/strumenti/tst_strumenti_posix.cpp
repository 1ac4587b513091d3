// lumira-acc, lumira-far and lumira-password against what POSIX has of its own: a terminal, the user's
// language, a full device, folders without rights, a platform without a display.
#include "tests/mctc/prova_acc.h"
#include "tests/strumenti/processo.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Runs a program on a pseudo terminal to its end. @return all that the terminal got.
QByteArray Al_Terminale(const QStringList &comando, int &stato)
{
    QList<QByteArray> byte;
    QList<char *> argomenti;
    for (const QString &parola : comando)
        byte.append(QFile::encodeName(parola));
    for (QByteArray &parola : byte)
        argomenti.append(parola.data());
    argomenti.append(nullptr);
    int terminale = -1;
    const pid_t processo = ::forkpty(&terminale, nullptr, nullptr, nullptr);
    if (processo < 0)
        qFatal("no pseudo terminal");
    if (processo == 0) {
        ::execv(argomenti[0], argomenti.data());
        ::_exit(127);
    }
    QByteArray mostrato;
    char pezzo[4096];
    for (ssize_t letti; (letti = ::read(terminale, pezzo, sizeof pezzo)) > 0;)
        mostrato.append(pezzo, qsizetype(letti));
    ::waitpid(processo, &stato, 0);
    ::close(terminale);
    return mostrato;
}

/// The same with an environment of its own.
Esecuzione Con_Lingua(const QString &strumento, const char *lingua)
{
    return Processo_Esegui(QStringLiteral("/usr/bin/env"),
                           {QStringLiteral("LC_ALL=") + QString::fromUtf8(lingua),
                            QStringLiteral("LANGUAGE="), strumento, QStringLiteral("--help")});
}

} // namespace

class tst_strumenti_posix : public QObject
{
    Q_OBJECT

    const ProvaAcc m_prova;
    const QString m_stazione = m_prova.Stazione.Nativo(QString());
    const QString m_cartella = m_prova.Stazione.Nativo(QStringLiteral("DIR_FAR"));

private Q_SLOTS:
    void init() { QVERIFY(QDir(m_cartella).removeRecursively() && QDir().mkpath(m_cartella)); }

    /// At a terminal one line tells how far the run is, and is gone at its end; in a pipe there is none.
    void progresso()
    {
        for (int n = 0; n < 500; ++n)
            m_prova.Scrivi(m_prova.Buono(), QStringLiteral("%1.acc").arg(10000000 + n));
        const QStringList argomenti = {QStringLiteral("--solo-anomali"), QStringLiteral("--stazione"),
                                       m_stazione, m_cartella};
        int stato = -1;
        const QByteArray mostrato = Al_Terminale(QStringList{QStringLiteral(LUMIRA_ACC)} + argomenti, stato);
        QVERIFY(WIFEXITED(stato) && WEXITSTATUS(stato) == 0);
        QVERIFY2(mostrato.startsWith('\r') && mostrato.contains("/500\r"), mostrato.constData());
        QVERIFY2(mostrato.contains(" \r500 file: 500 buoni"), mostrato.constData());
        const Esecuzione inPipe = Processo_Esegui(QStringLiteral(LUMIRA_ACC), argomenti);
        QCOMPARE(inPipe.stato, 0);
        QVERIFY(inPipe.errori.isEmpty() && inPipe.uscita.count(u'\n') == 1);
    }

    void linguaDelSistema()
    {
        for (const char *strumento : {LUMIRA_ACC, LUMIRA_FAR, LUMIRA_PASSWORD}) {
            const QString programma = QString::fromUtf8(strumento);
            QVERIFY(Con_Lingua(programma, "it_IT.UTF-8").uscita.startsWith(QStringLiteral("Uso: ")));
            QVERIFY(Con_Lingua(programma, "C.UTF-8").uscita.startsWith(QStringLiteral("Uso: ")));
            QVERIFY(Con_Lingua(programma, "en_GB.UTF-8").uscita.startsWith(QStringLiteral("Usage: ")));
            QVERIFY(Con_Lingua(programma, "de_DE.UTF-8").uscita.startsWith(QStringLiteral("Usage: ")));
        }
    }

    /// A script must not take half an output for a whole one.
    void uscitaPiena()
    {
        m_prova.Scrivi(m_prova.Buono());
        const auto stato = [this](const char *strumento) {
            return Processo_Esegui(QStringLiteral("/bin/sh"),
                                   {QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$@\" > /dev/full"),
                                    QString::fromUtf8(strumento), QStringLiteral("--json"), m_cartella,
                                    QStringLiteral("--stazione"), m_stazione})
                .stato;
        };
        QCOMPARE(stato(LUMIRA_ACC), 2);
        QCOMPARE(stato(LUMIRA_FAR), 2);
    }

    /// Root may list every folder: the tool runs as nobody.
    void cartellaSenzaDiritti()
    {
        if (::geteuid() != 0)
            QSKIP("only root can become nobody");
        m_prova.Scrivi(m_prova.Buono());
        QVERIFY(::chmod(QFile::encodeName(m_stazione).constData(), 0755) == 0);
        QVERIFY(::chmod(QFile::encodeName(m_cartella).constData(), 0700) == 0);
        const Esecuzione e =
            Processo_Esegui(QStringLiteral("/usr/bin/setpriv"),
                            {QStringLiteral("--reuid=65534"), QStringLiteral("--clear-groups"),
                             QStringLiteral(LUMIRA_ACC), QStringLiteral("--lingua"), QStringLiteral("IT"),
                             QStringLiteral("--stazione"), m_stazione, m_cartella});
        QCOMPARE(e.stato, 2);
        QVERIFY2(e.errori.contains(QStringLiteral("non si può leggere")), qPrintable(e.errori));
    }

    /// An image is drawn on a machine that has no display, whatever platform the user's session names.
    void graficoSenzaSchermo()
    {
        const QString file = m_prova.Stazione.Nativo(QStringLiteral("g.png"));
        const Esecuzione e = Processo_Esegui(
            QStringLiteral("/usr/bin/env"),
            {QStringLiteral("-u"), QStringLiteral("DISPLAY"), QStringLiteral("QT_QPA_PLATFORM=xcb"),
             QStringLiteral(LUMIRA_FAR), QStringLiteral("--grafico"), file, m_cartella});
        QCOMPARE(e.stato, 0);
        QVERIFY(QFile::exists(file));
    }
};

QTEST_GUILESS_MAIN(tst_strumenti_posix)
#include "tst_strumenti_posix.moc"
