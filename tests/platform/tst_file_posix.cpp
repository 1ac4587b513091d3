// Plain file operations where the system refuses: a full disk, files without the right to them, and one that
// opens and cannot be read.
#include "platform/file.h"

#include "platform/sostituzione.h"
#include "platform/su_disco.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QTest>

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

int errore_disco = 0;        // what the disk says to bytes that are to stay
QStringList mandati_a_disco; // "file", "cartella"

} // namespace

/// The call of the system is that of this program first.
extern "C" int fsync(int descrittore)
{
    struct stat stato;
    const bool cartella = ::fstat(descrittore, &stato) == 0 && S_ISDIR(stato.st_mode);
    mandati_a_disco.append(cartella ? QStringLiteral("cartella") : QStringLiteral("file"));
    if (errore_disco == 0)
        return int(::syscall(SYS_fsync, descrittore));
    errno = errore_disco;
    return -1;
}

class tst_file_posix : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;

private Q_SLOTS:
    void discoPienoDa61()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("this system has no device that is always full");
        QCOMPARE(Errore_Di([] { File_ScriviRighe(QStringLiteral("\\dev\\full"), {QStringLiteral("a")}); }),
                 61);
    }

    void righeSulDiscoPrimaDiAndareAvanti()
    {
        mandati_a_disco.clear();
        File_ScriviRighe(m_stazione.Percorso(QStringLiteral("DIR_FAR\\prova.txt")), {QStringLiteral("a")});
        QCOMPARE(mandati_a_disco, QStringList({QStringLiteral("file"), QStringLiteral("cartella")}));
    }

    /// A folder that has gone meanwhile, or may not be read: nothing is asked of the disk.
    void cartellaCheNonSiApre()
    {
        mandati_a_disco.clear();
        Cartella_SuDisco(m_stazione.Nativo(QStringLiteral("manca")));
        QCOMPARE(mandati_a_disco, QStringList());
    }

    /// A share may take every byte and tell only when it is asked to keep them that it has no room.
    void rifiutoDelDisco_data()
    {
        QTest::addColumn<int>("rifiuto");
        QTest::addColumn<int>("errore");
        QTest::newRow("full") << ENOSPC << 61;
        QTest::newRow("quota") << EDQUOT << 61;
        QTest::newRow("connection lost") << EIO << 61;
        QTest::newRow("a file system without the call") << EINVAL << 0;
        QTest::newRow("a system without the call") << ENOSYS << 0;
        QTest::newRow("a share without the call") << ENOTSUP << 0;
    }
    void rifiutoDelDisco()
    {
        QFETCH(int, rifiuto);
        QFETCH(int, errore);
        errore_disco = rifiuto;
        const int trovato = Errore_Di([this] {
            File_ScriviRighe(m_stazione.Percorso(QStringLiteral("DIR_FAR\\prova.txt")),
                             {QStringLiteral("a")});
        });
        errore_disco = 0;
        QCOMPARE(trovato, errore);
    }

    void sostituzioneConRifiutoDelDisco_data() { rifiutoDelDisco_data(); }
    void sostituzioneConRifiutoDelDisco()
    {
        QFETCH(int, rifiuto);
        QFETCH(int, errore);
        const QString nome = QStringLiteral("DIR_FAR\\sostituito.txt");
        m_stazione.Scrivi(nome, "prima");
        errore_disco = rifiuto;
        const bool scritto = File_Sostituisci(m_stazione.Nativo(nome), "dopo");
        errore_disco = 0;
        QCOMPARE(scritto, errore == 0);
        QCOMPARE(m_stazione.Leggi(nome), scritto ? "dopo" : "prima");
    }

    void letturaInterrottaDa70()
    {
        if (!QFile::exists(QStringLiteral("/proc/self/mem")))
            QSKIP("this system has no file whose first byte cannot be read");
        QCOMPARE(Errore_Di([] { FileRighe righe(QStringLiteral("\\proc\\self\\mem")); }), 70);
    }

    void senzaPermessoDa70()
    {
        const QString nome = QStringLiteral("DIR_FAR\\prova.txt");
        m_stazione.Scrivi(nome, "x");
        const auto permessi = [this](const QString &quale, mode_t modo) {
            return ::chmod(QFile::encodeName(m_stazione.Nativo(quale)).constData(), modo) == 0;
        };
        QVERIFY(permessi(QString(), 0755) && permessi(QStringLiteral("DIR_FAR"), 0555) && permessi(nome, 0));
        int scritto = 0, letto = 0, eliminato = 0;
        {
            const SenzaPrivilegi senza;
            const QString file = m_stazione.Percorso(nome);
            scritto = Errore_Di([&] { File_ScriviRighe(file, {QStringLiteral("a")}); });
            letto = Errore_Di([&] { FileRighe righe(file); });
            eliminato = Errore_Di([&] { File_Elimina(file); });
        }
        QVERIFY(permessi(QStringLiteral("DIR_FAR"), 0755) && permessi(nome, 0644));
        QCOMPARE(scritto, 70);
        QCOMPARE(letto, 70);
        QCOMPARE(eliminato, 70);
        QCOMPARE(m_stazione.Leggi(nome), "x");
    }
};

QTEST_GUILESS_MAIN(tst_file_posix)
#include "tst_file_posix.moc"
