// The stations that cannot keep their configuration, each as it comes about: folder, file and their owners,
// as whoever is neither root nor their owner finds them. The write itself has the last word.
#include "platform/profilo.h"
#include "platform/profilo_scrivibile.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

constexpr uid_t ROOT = 0;
constexpr uid_t NESSUNO = 65534; // who the test becomes
constexpr uid_t ALTRO = 65533;

} // namespace

class tst_profilo_scrivibile_posix : public QObject
{
    Q_OBJECT

    std::unique_ptr<StazioneProva> m_stazione;
    QByteArray m_cartella;
    QByteArray m_nativo;
    QString m_file;

    bool Scrivi() const
    {
        return Profilo_Scrivi(QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("2"), m_file);
    }
    QStringList Voci() const
    {
        return QDir(QFile::decodeName(m_cartella))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private Q_SLOTS:
    void init()
    {
        m_stazione = std::make_unique<StazioneProva>();
        m_stazione->Scrivi(QStringLiteral("DIR_FAR\\lumira.ini"), "[A]\r\nX=1\r\n");
        m_file = m_stazione->Percorso(QStringLiteral("DIR_FAR\\lumira.ini"));
        m_cartella = QFile::encodeName(m_stazione->Nativo(QStringLiteral("DIR_FAR")));
        m_nativo = m_cartella + "/lumira.ini";
        QCOMPARE(::chmod(QFile::encodeName(m_stazione->Nativo(QString())).constData(), 0755), 0);
    }

    void diritti_data()
    {
        QTest::addColumn<uid_t>("diCartella");
        QTest::addColumn<mode_t>("cartella");
        QTest::addColumn<uid_t>("diFile");
        QTest::addColumn<mode_t>("file");
        QTest::addColumn<bool>("scrivibile");
        const auto riga = [](const char *nome, uid_t diCartella, mode_t cartella, uid_t diFile, mode_t file,
                             bool scrivibile) {
            QTest::newRow(nome) << diCartella << cartella << diFile << file << scrivibile;
        };
        riga("one's own", NESSUNO, 0755, NESSUNO, 0644, true);
        riga("everybody's", ROOT, 0777, ROOT, 0666, true);
        riga("folder not writable, file writable", ROOT, 0755, NESSUNO, 0666, false);
        riga("sticky folder, one's own file", ROOT, 01777, NESSUNO, 0644, true);
        riga("sticky folder, another's file", ROOT, 01777, ALTRO, 0666, false);
        riga("one's own sticky folder, another's file", NESSUNO, 01777, ALTRO, 0666, true);
        riga("file of root after a run as root", NESSUNO, 0755, ROOT, 0644, false);
        riga("read-only file", NESSUNO, 0755, NESSUNO, 0444, false);
        riga("file not readable", NESSUNO, 0755, ROOT, 0622, false);
    }
    void diritti()
    {
        QFETCH(uid_t, diCartella);
        QFETCH(mode_t, cartella);
        QFETCH(uid_t, diFile);
        QFETCH(mode_t, file);
        if (::geteuid() != ROOT)
            QSKIP("only root makes files of somebody else");
        QCOMPARE(::chown(m_cartella.constData(), diCartella, diCartella), 0);
        QCOMPARE(::chmod(m_cartella.constData(), cartella), 0);
        QCOMPARE(::chown(m_nativo.constData(), diFile, diFile), 0);
        QCOMPARE(::chmod(m_nativo.constData(), file), 0);
        struct stat prima;
        struct stat dopo;
        QCOMPARE(::stat(m_nativo.constData(), &prima), 0);
        bool scrivibile = false;
        bool scritto = false;
        {
            const SenzaPrivilegi senza;
            scrivibile = Profilo_Scrivibile(m_file);
            QCOMPARE(::stat(m_nativo.constData(), &dopo), 0);
            QCOMPARE(Voci(), QStringList(QStringLiteral("lumira.ini")));
            scritto = Scrivi();
        }
        QTEST(scrivibile, "scrivibile");
        QTEST(scritto, "scrivibile");
        QCOMPARE(dopo.st_ino, prima.st_ino);
        QCOMPARE(dopo.st_mtim.tv_nsec, prima.st_mtim.tv_nsec);
    }

    /// A station may keep its configuration elsewhere: the folder that counts is the one behind the link.
    void dietroUnCollegamento()
    {
        QVERIFY(QDir().mkdir(m_stazione->Nativo(QStringLiteral("altrove"))));
        const QString vero = m_stazione->Nativo(QStringLiteral("altrove/lumira.ini"));
        QVERIFY(QFile::rename(QFile::decodeName(m_nativo), vero) &&
                QFile::link(vero, QFile::decodeName(m_nativo)));
        QVERIFY(Profilo_Scrivibile(m_file));
        QVERIFY(Scrivi());
        const QByteArray altrove = QFile::encodeName(m_stazione->Nativo(QStringLiteral("altrove")));
        QCOMPARE(::chmod(m_cartella.constData(), 0777), 0);
        QCOMPARE(::chmod(QFile::encodeName(vero).constData(), 0666), 0);
        QCOMPARE(::chmod(altrove.constData(), 0555), 0);
        bool scrivibile = true;
        {
            const SenzaPrivilegi senza;
            scrivibile = Profilo_Scrivibile(m_file);
        }
        QCOMPARE(::chmod(altrove.constData(), 0755), 0);
        QVERIFY(!scrivibile);
    }

    void discoPieno()
    {
        rlimit prima;
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &prima), 0);
        const auto segnale = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limite = {4, prima.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limite), 0);
        const bool scrivibile = Profilo_Scrivibile(m_file);
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &prima), 0);
        std::signal(SIGXFSZ, segnale);
        QVERIFY(!scrivibile);
        QCOMPARE(Voci(), QStringList(QStringLiteral("lumira.ini")));
    }
};

QTEST_GUILESS_MAIN(tst_profilo_scrivibile_posix)
#include "tst_profilo_scrivibile_posix.moc"
