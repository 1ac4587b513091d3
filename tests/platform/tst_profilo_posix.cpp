// Profiles against the file system: how often a read opens its file, which changes the status alone does not
// show, rights and all else that a file has beside its bytes, the lock of the folder, the order in which
// things reach the disk. Watches the file system's own events, so it stands apart from the tests that run on
// every system.
#include "platform/profilo.h"

#include "core/modGeneral.h"
#include "tests/comuni/aperture_posix.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMap>
#include <QTemporaryFile>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/xattr.h>

namespace {

/// What is looked at in the moment when something is sent to the disk. @param descrittore of the file or
/// folder.
std::function<void(int descrittore)> alDisco;

/// Reads while signals come in: every other one, from the first on, is broken off before it has a byte.
bool gSegnali = false;
int gLetture = 0;

/// Questions for the status of a file.
int gDomande = 0;

} // namespace

/// Stands before the system's own call in this program.
extern "C" int stat(const char *nome, struct stat *stato) noexcept
{
    ++gDomande;
    return ::fstatat(AT_FDCWD, nome, stato, 0);
}

/// Stands before the system's own call in this program.
extern "C" ssize_t read(int descrittore, void *dove, size_t quanti)
{
    if (gSegnali && gLetture++ % 2 == 0) {
        errno = EINTR;
        return -1;
    }
    return ssize_t(::syscall(SYS_read, descrittore, dove, quanti));
}

/// Stands before the system's own call in this program.
extern "C" int fsync(int descrittore)
{
    if (alDisco)
        alDisco(descrittore);
    return int(::syscall(SYS_fsync, descrittore));
}

namespace {

bool Cartella(int descrittore)
{
    struct stat stato;
    return ::fstat(descrittore, &stato) == 0 && S_ISDIR(stato.st_mode);
}

/// The lock of a folder, as another program holds it.
class AltroBlocco
{
public:
    explicit AltroBlocco(const QString &cartella)
        : m_descrittore(::open(QFile::encodeName(cartella).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
          m_preso(m_descrittore >= 0 && ::flock(m_descrittore, LOCK_EX | LOCK_NB) == 0)
    {
    }
    ~AltroBlocco() { ::close(m_descrittore); }
    Q_DISABLE_COPY_MOVE(AltroBlocco)

    bool Preso() const { return m_preso; }

private:
    const int m_descrittore;
    const bool m_preso;
};

/// An access list with a user of its own beside the owner, the group and the others, as the file system keeps
/// it: version, then kind, rights and number of each entry.
QByteArray Lista_Accessi()
{
    return QByteArray::fromHex("02000000"
                               "01000600ffffffff" // owner rw
                               "0200060039300000" // user 12345 rw
                               "04000400ffffffff" // group r
                               "10000600ffffffff" // at most rw
                               "20000400ffffffff" // others r
    );
}

bool Attributo_Metti(const QString &nativo, const char *nome, const QByteArray &valore)
{
    return ::setxattr(QFile::encodeName(nativo).constData(), nome, valore.constData(), size_t(valore.size()),
                      0) == 0;
}

/// The extended attributes of a file, the access list among them.
QMap<QByteArray, QByteArray> Attributi(const QString &nativo)
{
    const QByteArray file = QFile::encodeName(nativo);
    QByteArray nomi(4096, '\0');
    nomi.truncate(std::max<ssize_t>(0, ::listxattr(file.constData(), nomi.data(), size_t(nomi.size()))));
    QMap<QByteArray, QByteArray> attributi;
    for (const QByteArray &nome : nomi.split('\0')) {
        QByteArray valore(4096, '\0');
        const ssize_t quanti =
            ::getxattr(file.constData(), nome.constData(), valore.data(), size_t(valore.size()));
        if (quanti >= 0)
            attributi.insert(nome, valore.first(quanti));
    }
    return attributi;
}

struct stat Stato(const QString &nativo)
{
    struct stat stato = {};
    ::stat(QFile::encodeName(nativo).constData(), &stato);
    return stato;
}

/// Moves the times of a file into the past; of a link itself, not of its target.
bool Invecchia(const QString &nativo, int ore)
{
    timespec ora;
    ::clock_gettime(CLOCK_REALTIME, &ora);
    ora.tv_sec -= ore * 3600;
    const timespec tempi[2] = {ora, ora};
    return ::utimensat(AT_FDCWD, QFile::encodeName(nativo).constData(), tempi, AT_SYMLINK_NOFOLLOW) == 0;
}

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

class tst_profilo_posix : public QObject
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

    /// A folder that no write has been to. @return its path in the station, with the last backslash.
    QString Cartella_Nuova() const
    {
        static int quante = 0;
        const QString nome = QStringLiteral("nuova%1").arg(++quante);
        if (!QDir().mkdir(m_stazione.Nativo(nome)))
            qFatal("cannot make %s", qPrintable(nome));
        return nome + u'\\';
    }

private Q_SLOTS:
    void init() { m_stazione.Scrivi(m_nome, "[A]\r\nX=1\r\nY=2\r\n"); }
    void cleanup()
    {
        alDisco = nullptr;
        QFile::remove(m_nativo);
    }

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

    /// On a network folder each question is a way there and back.
    void tabellaDeiTestiChiedeDelFileUnaVolta()
    {
        const QString nativo = m_stazione.Nativo(QStringLiteral("lingueMCTC.ini"));
        QVERIFY(Attendi_Timbro(nativo, 2));
        QStringList tabella;
        gDomande = 0;
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, tabella);
        QCOMPARE(gDomande, 1);
        QCOMPARE(tabella.size(), ULTIMO_TESTO_MCTC + 1);
        QVERIFY(!tabella.first().isEmpty());
    }

    /// What another program writes is seen as soon as it has gone, what this one writes at once.
    void profiloFermo()
    {
        {
            const ProfiloFermo fermo(m_file);
            gDomande = 0;
            {
                const ProfiloFermo ancora(m_file);
                QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
            }
            m_stazione.Scrivi(m_nome, "[A]\r\nX=5\r\n");
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("1"));
            QCOMPARE(gDomande, 0);
            QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("6"), m_file));
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("6"));
        }
        m_stazione.Scrivi(m_nome, "[A]\r\nX=7\r\n");
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("7"));
    }

    /// One that is missing stays missing as long as it lives.
    void profiloFermoMancante()
    {
        QVERIFY(QFile::remove(m_nativo));
        {
            const ProfiloFermo fermo(m_file);
            m_stazione.Scrivi(m_nome, "[A]\r\nX=5\r\n");
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("-"));
        }
        QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("5"));
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

    void ilCollegamentoDiUnCollegamentoResta()
    {
        const QString primo = m_stazione.Nativo(QStringLiteral("primo.ini"));
        const QString secondo = m_stazione.Nativo(QStringLiteral("secondo.ini"));
        QVERIFY(QFile::link(m_nativo, primo) && QFile::link(primo, secondo));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"),
                       m_stazione.Percorso(QStringLiteral("secondo.ini"))));
        QCOMPARE(QFile::symLinkTarget(secondo), primo);
        QCOMPARE(QFile::symLinkTarget(primo), m_nativo);
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=9\r\nY=2\r\n");
        QVERIFY(QFile::remove(secondo) && QFile::remove(primo));
    }

    /// A name of its own for the same bytes is parted from the file: the old bytes stay with it, whole.
    void ilCollegamentoFisicoTieneIByteDiPrima()
    {
        const QString altro = m_stazione.Nativo(QStringLiteral("DIR_FAR\\altro.ini"));
        QCOMPARE(::link(QFile::encodeName(m_nativo).constData(), QFile::encodeName(altro).constData()), 0);
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=9\r\nY=2\r\n");
        QCOMPARE(m_stazione.Leggi(QStringLiteral("DIR_FAR\\altro.ini")), "[A]\r\nX=1\r\nY=2\r\n");
        QVERIFY(QFile::remove(altro));
    }

    /// A run of root's does not make the file root's.
    void ilProprietarioResta()
    {
        const uid_t altro = ::geteuid() == 0 ? 65534 : ::geteuid(); // only root gives files away
        QCOMPARE(::chown(QFile::encodeName(m_nativo).constData(), altro, gid_t(altro)), 0);
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QCOMPARE(Stato(m_nativo).st_uid, altro);
        QCOMPARE(Stato(m_nativo).st_gid, gid_t(altro));
    }

    /// Another's file in a folder that gives its group to what is made there: the owner changes, the group
    /// does not.
    void ilGruppoRestaAncheAChiNonPuoCedereIlFile()
    {
        const QByteArray cartella = QFile::encodeName(m_stazione.Nativo(QStringLiteral("DIR_FAR")));
        const gid_t altro = ::geteuid() == 0 ? 54321 : ::getegid();
        QVERIFY(Apri_Strada(0666));
        QCOMPARE(::chown(cartella.constData(), uid_t(-1), altro), 0);
        QCOMPARE(::chmod(cartella.constData(), 02777), 0);
        const gid_t prima = Stato(m_nativo).st_gid;
        bool scritto = false;
        {
            const SenzaPrivilegi senza;
            scritto = Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file);
        }
        QCOMPARE(::chown(cartella.constData(), uid_t(-1), ::getegid()), 0);
        QVERIFY(scritto);
        QCOMPARE(Stato(m_nativo).st_gid, prima);
        QCOMPARE(Stato(m_nativo).st_mode & 07777, mode_t{0666});
    }

    void listaDegliAccessiEAttributiRestano()
    {
        QVERIFY(Attributo_Metti(m_nativo, "system.posix_acl_access", Lista_Accessi()));
        Attributo_Metti(m_nativo, "user.lumira", "nota"); // not every file system takes one
        const auto prima = Attributi(m_nativo);
        const mode_t permessi = Stato(m_nativo).st_mode;
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QCOMPARE(Attributi(m_nativo), prima);
        QCOMPARE(Stato(m_nativo).st_mode, permessi);
    }

    /// What the folder would give to a new file is not for the one that it replaces.
    void laListaDellaCartellaNonPassaAlFile()
    {
        const QString cartella = m_stazione.Nativo(QStringLiteral("DIR_FAR"));
        QVERIFY(Attributo_Metti(cartella, "system.posix_acl_default", Lista_Accessi()));
        const auto prima = Attributi(m_nativo);
        const mode_t permessi = Stato(m_nativo).st_mode;
        const bool scritto = Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file);
        QCOMPARE(::removexattr(QFile::encodeName(cartella).constData(), "system.posix_acl_default"), 0);
        QVERIFY(scritto);
        QCOMPARE(Attributi(m_nativo), prima);
        QCOMPARE(Stato(m_nativo).st_mode, permessi);
    }

    /// The bytes first, under the lock; the name afterwards, when others may write again.
    void ilDiscoRiceveIByteEPoiIlNome()
    {
        const QString cartella = m_stazione.Nativo(QStringLiteral("DIR_FAR"));
        QStringList passi;
        alDisco = [&](int descrittore) {
            passi += Cartella(descrittore) ? QStringLiteral("folder") : QStringLiteral("file");
            passi += m_stazione.Leggi(m_nome).contains("X=9") ? QStringLiteral("new") : QStringLiteral("old");
            passi += AltroBlocco(cartella).Preso() ? QStringLiteral("free") : QStringLiteral("locked");
        };
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QCOMPARE(passi.join(u' '), QStringLiteral("file old locked folder new free"));
    }

    /// A child started now would hold the folder for as long as it lives.
    void ilBloccoNonPassaAiFigli()
    {
        int cartelle = 0, ereditate = 0;
        alDisco = [&](int sincronizzato) {
            if (Cartella(sincronizzato))
                return;
            for (int descrittore = 0; descrittore < 256; ++descrittore) {
                const int bandiere = ::fcntl(descrittore, F_GETFD);
                if (bandiere < 0 || !Cartella(descrittore))
                    continue;
                ++cartelle;
                ereditate += (bandiere & FD_CLOEXEC) == 0 ? 1 : 0;
            }
        };
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file));
        QVERIFY(cartelle > 0);
        QCOMPARE(ereditate, 0);
    }

    /// The lock is on the folder of the file, not on that of a link to it.
    void ilCollegamentoSiBloccaDoveIlFileE()
    {
        const QString collegamento = m_stazione.Nativo(QStringLiteral("collegata.ini"));
        QVERIFY(QFile::link(m_nativo, collegamento));
        bool libera = true;
        alDisco = [&](int descrittore) {
            if (!Cartella(descrittore))
                libera = AltroBlocco(m_stazione.Nativo(QStringLiteral("DIR_FAR"))).Preso();
        };
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"),
                       m_stazione.Percorso(QStringLiteral("collegata.ini"))));
        QVERIFY(!libera);
        QVERIFY(QFile::remove(collegamento));
    }

    /// A program that hangs while it holds the folder costs no value, and its wait once.
    void chiTieneIlBloccoNonFermaIlSalvataggio()
    {
        const QString cartella = m_stazione.Nativo(QStringLiteral("DIR_FAR"));
        const auto tempo = [this](int scritture) { // ms, -1 when one failed
            QElapsedTimer orologio;
            orologio.start();
            for (int i = 0; i < scritture; ++i) {
                if (!Scrivi(QStringLiteral("X"), QString::number(i), m_file))
                    return qint64{-1};
            }
            return orologio.elapsed();
        };
        const auto prima = [&] { // waits anew once the folder has been free
            const AltroBlocco altro(cartella);
            return altro.Preso() ? tempo(1) : -1;
        };
        QVERIFY(prima() >= 1500);
        {
            const AltroBlocco altro(cartella);
            QVERIFY(altro.Preso());
            const qint64 altre = tempo(5);
            QVERIFY2(altre >= 0 && altre < 5 * 1500, qPrintable(QString::number(altre)));
        }
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=4\r\nY=2\r\n");
        QVERIFY(tempo(1) >= 0);
        QVERIFY(prima() >= 1500);
        QVERIFY(tempo(1) >= 0); // so that no test behind this one is spared its wait
    }

    /// A folder that may be written in but not listed cannot be locked either.
    void cartellaIlleggibileSiScrive()
    {
        const QByteArray cartella = QFile::encodeName(m_stazione.Nativo(QStringLiteral("DIR_FAR")));
        QVERIFY(Apri_Strada(0666));
        QCOMPARE(::chmod(cartella.constData(), 0333), 0);
        bool scritto = false;
        {
            const SenzaPrivilegi senza;
            scritto = Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_file);
        }
        QVERIFY(Apri_Strada(0644));
        QVERIFY(scritto);
        QCOMPARE(m_stazione.Leggi(m_nome), "[A]\r\nX=9\r\nY=2\r\n");
    }

    void gliAvanziDiUnGiornoSpariscono_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("ore");
        QTest::addColumn<bool>("resta");
        const auto riga = [](const char *nome, const char *file, int ore, bool resta) {
            QTest::newRow(nome) << QString::fromLatin1(file) << ore << resta;
        };
        riga("more than a day", "prova.ini.aBcDeF", 25, false);
        riga("less than a day", "prova.ini.aBcDeF", 23, true);
        riga("a year", "prova.ini.Gnwzqk", 8760, true); // could be a word
        riga("one capital behind the first letter", "prova.ini.gnwzqK", 25, false);
        riga("a copy of somebody's", "prova.ini.backup", 8760, true);
        riga("a copy of somebody's, capital", "prova.ini.Backup", 8760, true);
        riga("a copy of somebody's, capitals", "prova.ini.BACKUP", 8760, true);
        riga("five letters", "prova.ini.aBcDe", 25, true);
        riga("seven letters", "prova.ini.aBcDeFg", 25, true);
        riga("a digit", "prova.ini.aBcDe1", 25, true);
        riga("a letter that is none of ours", "prova.ini.aBcDe_", 25, true);
        riga("no point", "prova.ini-aBcDeF", 25, true);
        riga("of another file", "prova2.ini.aBcDeF", 25, true);
        riga("of a file with a longer name", "laprova.ini.aBcDeF", 25, true);
        riga("of a file in another case", "Prova.ini.aBcDeF", 25, true);
    }
    void gliAvanziDiUnGiornoSpariscono()
    {
        QFETCH(QString, nome);
        QFETCH(int, ore);
        const QString cartella = Cartella_Nuova();
        m_stazione.Scrivi(cartella + nome, "[A]\r\nX=");
        QVERIFY(Invecchia(m_stazione.Nativo(cartella + nome), ore));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"),
                       m_stazione.Percorso(cartella + QStringLiteral("prova.ini"))));
        QTEST(QFile::exists(m_stazione.Nativo(cartella + nome)), "resta");
    }

    /// Nor do they stay where the file's own name begins with a point.
    void gliAvanziDiUnFileNascosto()
    {
        const QString nome = Cartella_Nuova() + QStringLiteral(".prova.ini");
        const QString avanzo = nome + QStringLiteral(".aBcDeF");
        m_stazione.Scrivi(avanzo, "[A]\r\nX=");
        QVERIFY(Invecchia(m_stazione.Nativo(avanzo), 25));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_stazione.Percorso(nome)));
        QVERIFY(!QFile::exists(m_stazione.Nativo(avanzo)));
    }

    /// A folder of thousands of files is not searched at each write.
    void gliAvanziSiCercanoUnaVoltaAlGiorno()
    {
        const QString cartella = Cartella_Nuova();
        const QString file = m_stazione.Percorso(cartella + QStringLiteral("prova.ini"));
        const QString avanzo = cartella + QStringLiteral("prova.ini.aBcDeF");
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), file));
        m_stazione.Scrivi(avanzo, "[A]\r\nX=");
        QVERIFY(Invecchia(m_stazione.Nativo(avanzo), 25));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("8"), file));
        QVERIFY(QFile::exists(m_stazione.Nativo(avanzo)));
    }

    /// The toolkit's own temporary files, as a killed program leaves them: all but those whose name could be
    /// a word.
    void gliAvanziHannoINomiDelToolkit()
    {
        const QString nome = Cartella_Nuova() + QStringLiteral("prova.ini");
        const QString nativo = m_stazione.Nativo(nome);
        for (int i = 0; i < 50; ++i) {
            QTemporaryFile avanzo(nativo + QStringLiteral(".XXXXXX"));
            avanzo.setAutoRemove(false);
            QVERIFY(avanzo.open() && Invecchia(avanzo.fileName(), 25));
        }
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_stazione.Percorso(nome)));
        const QStringList resti =
            QFileInfo(nativo).dir().entryList({QStringLiteral("prova.ini.*")}, QDir::Files);
        QVERIFY2(resti.size() < 20, qPrintable(resti.join(u' ')));
    }

    /// A timer of the toolkit, or a child that ends, may break a read off on a network folder: the file is
    /// whole all the same, in each of its blocks.
    void letturaInterrottaDaUnSegnaleVaAvanti()
    {
        m_stazione.Scrivi(m_nome, "[A]\r\nX=1\r\n;" + QByteArray(40000, 'x') + "\r\nY=2\r\n");
        gLetture = 0;
        gSegnali = true;
        const QString prima = Leggi(QStringLiteral("X"), m_file);
        gSegnali = false;
        QVERIFY2(gLetture >= 8, qPrintable(QString::number(gLetture))); // three blocks and the end
        QCOMPARE(prima, QStringLiteral("1"));
        QCOMPARE(Leggi(QStringLiteral("Y"), m_file), QStringLiteral("2"));
    }

    /// Only plain files are ours.
    void cartelleECollegamentiNonSonoAvanzi()
    {
        const QString nome = Cartella_Nuova() + QStringLiteral("prova.ini");
        const QString cartella = m_stazione.Nativo(nome + QStringLiteral(".aBcDeF"));
        const QString collegamento = m_stazione.Nativo(nome + QStringLiteral(".gHiJkL"));
        QVERIFY(QDir().mkdir(cartella) && Invecchia(cartella, 25));
        QVERIFY(Invecchia(m_nativo, 25));
        QVERIFY(QFile::link(m_nativo, collegamento) && Invecchia(collegamento, 25));
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("9"), m_stazione.Percorso(nome)));
        QVERIFY(QFileInfo::exists(cartella));
        QVERIFY(QFileInfo(collegamento).isSymLink());
    }

    /// A station runs for weeks: what is opened for a read or a write is closed again.
    void nienteRestaAperto()
    {
        const auto aperti = [] {
            return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
        };
        QVERIFY(Scrivi(QStringLiteral("X"), QStringLiteral("0"), m_file));
        const qsizetype prima = aperti();
        QVERIFY(prima > 0);
        for (int i = 0; i < 20; ++i) {
            QVERIFY(Scrivi(QStringLiteral("X"), QString::number(i), m_file));
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QString::number(i));
            m_stazione.Scrivi(m_nome, "[A]\r\nX=another's\r\n");
            QCOMPARE(Leggi(QStringLiteral("X"), m_file), QStringLiteral("another's"));
        }
        QCOMPARE(aperti(), prima);
    }
};

QTEST_GUILESS_MAIN(tst_profilo_posix)
#include "tst_profilo_posix.moc"
