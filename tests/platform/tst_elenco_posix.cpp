// Listings of a folder that stops answering in the middle, as a share does that has lost its connection. The
// calls of the system are those of this program first.
#include "platform/elenco.h"

#include "core/modFs.h"
#include "mctc/cartella_scambio.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

#include <cerrno>
#include <climits>
#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>

namespace {

int voci_ancora = INT_MAX; // entries that the folder still gives
int stati_ancora = INT_MAX;
int errore_stato = 0;

template <typename Chiamata>
Chiamata Del_Sistema(const char *nome)
{
    return reinterpret_cast<Chiamata>(::dlsym(RTLD_NEXT, nome));
}

} // namespace

extern "C" {

dirent *readdir(DIR *aperta)
{
    static const auto vera = Del_Sistema<dirent *(*)(DIR *)>("readdir");
    if (voci_ancora-- > 0)
        return vera(aperta);
    errno = ENOTCONN;
    return nullptr;
}

int fstatat(int cartella, const char *nome, struct stat *stato, int modo) noexcept
{
    static const auto vera = Del_Sistema<int (*)(int, const char *, struct stat *, int)>("fstatat");
    if (stati_ancora-- > 0)
        return vera(cartella, nome, stato, modo);
    errno = errore_stato;
    return -1;
}
}

class tst_elenco_posix : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;

    QString Cartella() const { return m_stazione.Percorso(QStringLiteral("DIR_FAR\\")); }

private Q_SLOTS:
    void initTestCase()
    {
        for (int i = 0; i < 5; ++i)
            m_stazione.Accettazione(QStringLiteral("1000000%1.acc").arg(i));
    }
    void cleanup() { voci_ancora = stati_ancora = INT_MAX; }

    void collegamentoPersoAMeta()
    {
        QList<RecordTrovato> trovati;
        voci_ancora = 4;
        QVERIFY(!Trova_File(Cartella() + QStringLiteral("*.acc"), trovati));
        QVERIFY(trovati.isEmpty());
        voci_ancora = 4;
        QCOMPARE(Errore_Di([this] { Cartella_Elenca(Cartella() + QStringLiteral("*.acc"), 0); }), 52);
        voci_ancora = 4;
        QStringList firme;
        QCOMPARE(Fs_ElencoFirme(Cartella(), QStringLiteral("*.acc"), firme), -1);
        voci_ancora = 4;
        QVERIFY(Cartella_Guarda(Cartella()).Stato == StatoCartella::Illeggibile);
    }

    void collegamentoPersoDopoINomi()
    {
        QList<RecordTrovato> trovati;
        stati_ancora = 2;
        errore_stato = EIO;
        QVERIFY(!Trova_File(Cartella() + QStringLiteral("*.acc"), trovati));
        QVERIFY(trovati.isEmpty());
    }

    void unaVoceSparitaNonToglieLeAltre()
    {
        QList<RecordTrovato> trovati;
        stati_ancora = 2;
        errore_stato = ENOENT;
        QVERIFY(Trova_File(Cartella() + QStringLiteral("*.acc"), trovati));
        QCOMPARE(trovati.size(), 2);
    }

    /// Also where nothing of a full folder is looked for, as the results of one that has none yet.
    void intantoSiFaAltroFraNomiDAltri()
    {
        for (int i = 0; i < 400; ++i)
            m_stazione.Accettazione(QStringLiteral("2%1.altro").arg(i));
        QList<RecordTrovato> trovati;
        int volte = 0;
        QVERIFY(!Trova_File(Cartella() + QStringLiteral("*.far"), trovati, [&volte] { ++volte; }));
        QCOMPARE(volte, 2);
    }

    void ritornata()
    {
        QList<RecordTrovato> trovati;
        QVERIFY(Trova_File(Cartella() + QStringLiteral("*.acc"), trovati));
        QCOMPARE(trovati.size(), 5);
        QCOMPARE(Cartella_Guarda(Cartella()).InAttesa, 5);
    }
};

QTEST_GUILESS_MAIN(tst_elenco_posix)
#include "tst_elenco_posix.moc"
