// Profiles against the file system: how often a read opens its file, which changes the status alone does not
// show, and rights. Watches the file system's own events, so it stands apart from the tests that run on
// every system.
#include "platform/profilo.h"

#include "tests/comuni/aperture_posix.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/mman.h>

namespace {

QString Leggi(const QString &chiave, const QString &file)
{
    return Profilo_Leggi(QStringLiteral("A"), chiave, QStringLiteral("-"), 500, file);
}

bool Scrivi(const QString &chiave, const QString &valore, const QString &file)
{
    return Profilo_Scrivi(QStringLiteral("A"), chiave, valore, file);
}

/// A file of one page mapped by another program: what it stores there after the first time changes the file
/// and stamps nothing.
class Mappa
{
public:
    explicit Mappa(const QString &nativo)
    {
        const int descrittore = ::open(QFile::encodeName(nativo).constData(), O_RDWR);
        void *inizio = ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, descrittore, 0);
        ::close(descrittore);
        if (inizio == MAP_FAILED)
            qFatal("cannot map %s", qPrintable(nativo));
        m_byte = static_cast<volatile char *>(inizio);
    }
    ~Mappa() { ::munmap(const_cast<char *>(m_byte), 4096); }
    Q_DISABLE_COPY_MOVE(Mappa)

    void Metti(int posto, char byte) { m_byte[posto] = byte; }

private:
    volatile char *m_byte;
};

} // namespace

class TestProfiloPosix : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_nome = QStringLiteral("DIR_FAR\\prova.ini");
    const QString m_file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\prova.ini"));
    const QString m_nativo = m_stazione.Nativo(QStringLiteral("DIR_FAR\\prova.ini"));

    /// Lets everybody write in the folder, so that only the rights of the file itself count.
    bool Apri_Strada(mode_t permessi) const
    {
        const auto imposta = [](const QString &nativo, mode_t modo) {
            return ::chmod(QFile::encodeName(nativo).constData(), modo) == 0;
        };
        return imposta(m_nativo, permessi) && imposta(m_stazione.Nativo(QStringLiteral("DIR_FAR")), 0777) &&
               imposta(m_stazione.Nativo(QString()), 0755);
    }

private Q_SLOTS:
    void init() { m_stazione.Scrivi(m_nome, "[A]\r\nX=1\r\nY=2\r\n"); }
    void cleanup() { QFile::remove(m_nativo); }

    void fileFermoSiApreUnaVoltaSola()
    {
        QVERIFY(Attendi_Timbro(m_nativo, 2));
        const Aperture aperture(m_nativo);
        const QString altro = m_stazione.Percorso(QStringLiteral("dir_far\\PROVA.INI"));
        for (int volta = 0; volta < 200; ++volta) {
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
            QCOMPARE(Leggi(QStringLiteral("X"), altro), QStringLiteral("1"));
            QCOMPARE(Leggi(QStringLiteral("manca"), m_file), QStringLiteral("-"));
        }
        QCOMPARE(aperture.Conta(), 1);
        m_stazione.Scrivi(m_nome, "[A]\r\nX=7\r\n");
        aperture.Conta();
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("7"));
        QVERIFY(aperture.Conta() >= 1);
    }

    void tabellaDeiTestiApreUnaVoltaAlPiu()
    {
        const QString nativo = m_stazione.Nativo(QStringLiteral("lingueMCTC.ini"));
        QVERIFY(Attendi_Timbro(nativo, 2));
        const Aperture aperture(nativo);
        for (int id = 0; id < 160; ++id) {
            Profilo_Leggi(QStringLiteral("IT"), QString::number(id), QString(), 500,
                          m_stazione.Percorso(QStringLiteral("lingueMCTC.ini")));
        }
        const int aperte = aperture.Conta(); // none if the station has read it late enough
        QVERIFY2(aperte <= 1, qPrintable(QString::number(aperte)));
    }

    void vedeUnaRiscritturaConLaDataRimessa()
    {
        struct stat prima;
        QCOMPARE(::stat(QFile::encodeName(m_nativo).constData(), &prima), 0);
        for (int volta = 0; volta < 500; ++volta) {
            const QByteArray valore = QByteArray::number(volta % 10);
            m_stazione.Scrivi(m_nome, "[A]\r\nX=" + valore + "\r\nY=2\r\n");
            const timespec tempi[2] = {prima.st_atim, prima.st_mtim};
            QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(m_nativo).constData(), tempi, 0), 0);
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QString::fromLatin1(valore));
        }
    }

    /// A program held up in the middle of writing has stamped the file before it changes the byte.
    void vedeCioCheArrivaDopoIlTimbro()
    {
        Mappa altro(m_nativo);
        altro.Metti(7, '1');
        QVERIFY(Attendi_Timbro(m_nativo, 0));
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
        altro.Metti(7, '8');
        QTRY_COMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("8"));
    }

    void scriveSuCioCheArrivaDopoIlTimbro()
    {
        Mappa altro(m_nativo);
        altro.Metti(12, '2');
        QVERIFY(Attendi_Timbro(m_nativo, 0));
        QCOMPARE(Leggi(QStringLiteral("Y"), m_file), QStringLiteral("2"));
        altro.Metti(12, '7');
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=9\r\nY=7\r\n");
    }

    void fileIllegibileDaFalsoERestaComEra()
    {
        QVERIFY(Apri_Strada(0222));
        {
            const SenzaPrivilegi senza;
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("-"));
            QVERIFY(!Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        }
        QVERIFY(Apri_Strada(0644));
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=1\r\nY=2\r\n");
    }

    void fileProtettoDaFalsoERestaComEra()
    {
        QVERIFY(Apri_Strada(0444));
        {
            const SenzaPrivilegi senza;
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
            QVERIFY(!Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
        }
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=1\r\nY=2\r\n");
    }

    /// Where no file can be made beside the old one there is no write that happens whole or not at all.
    void cartellaProtettaDaFalso()
    {
        const QByteArray cartella = QFile::encodeName(m_stazione.Nativo(QStringLiteral("DIR_FAR")));
        QVERIFY(Apri_Strada(0666));
        QCOMPARE(::chmod(cartella.constData(), 0555), 0);
        bool scritto = true;
        {
            const SenzaPrivilegi senza;
            scritto = Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file);
        }
        QVERIFY(Apri_Strada(0644));
        QVERIFY(!scritto);
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=1\r\nY=2\r\n");
    }

    void fileCheNonSiLeggePiuNonDaIlVecchioValore()
    {
        QVERIFY(Attendi_Timbro(m_nativo, 0));
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
        QVERIFY(QFile::remove(m_nativo) && QDir().mkdir(m_nativo));
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("-"));
        QVERIFY(QDir().rmdir(m_nativo));
    }

    void iPermessiRestano()
    {
        const QByteArray nome = QFile::encodeName(m_nativo);
        QCOMPARE(::chmod(nome.constData(), 0640), 0);
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        struct stat stato;
        QCOMPARE(::stat(nome.constData(), &stato), 0);
        QCOMPARE(stato.st_mode & 07777, mode_t{0640});
    }

    void ilCollegamentoRestaUnCollegamento()
    {
        const QString collegamento = m_stazione.Nativo(QStringLiteral("collegata.ini"));
        QVERIFY(QFile::link(m_nativo, collegamento));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"),
                       m_stazione.Percorso(QStringLiteral("collegata.ini"))));
        QCOMPARE(QFile::symLinkTarget(collegamento), m_nativo);
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=9\r\nY=2\r\n");
        QVERIFY(QFile::remove(collegamento));
    }
};

QTEST_GUILESS_MAIN(TestProfiloPosix)
#include "tst_profilo_posix.moc"
