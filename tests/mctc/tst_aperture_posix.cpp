// How often a check opens its files, and what it makes of a file that cannot be opened. Watches the file
// system's own events, so it stands apart from the tests that run on every system.
#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_sintassi.h"
#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "tests/mctc/prova_acc.h"

#include <QFile>
#include <QTest>

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

namespace {

/// Counts the times that a file is opened while the watch lives.
class Sorveglianza
{
public:
    /// Closings are watched only to stand between two openings: equal events in a row come as one.
    explicit Sorveglianza(const QString &nativo) : m_notifiche(::inotify_init1(IN_NONBLOCK))
    {
        if (::inotify_add_watch(m_notifiche, QFile::encodeName(nativo).constData(), IN_OPEN | IN_CLOSE) < 0)
            qFatal("cannot watch %s", qPrintable(nativo));
    }
    ~Sorveglianza() { ::close(m_notifiche); }
    Q_DISABLE_COPY_MOVE(Sorveglianza)

    /// Openings since the last question.
    int Aperture() const
    {
        int aperture = 0;
        inotify_event evento; // a watch on a file delivers records without a name
        while (::read(m_notifiche, &evento, sizeof evento) == ssize_t(sizeof evento))
            aperture += (evento.mask & IN_OPEN) != 0 ? 1 : 0;
        return aperture;
    }

private:
    int m_notifiche;
};

/// Waits until the clock that stamps files has left the stamp of this one: from then on a change is bound to
/// show, and what has been read is kept.
bool Attendi_Timbro(const QString &nativo)
{
    const QByteArray nome = QFile::encodeName(nativo);
    return QTest::qWaitFor([&nome] {
        struct stat stato;
        timespec ora;
        ::clock_gettime(CLOCK_REALTIME_COARSE, &ora);
        return ::stat(nome.constData(), &stato) == 0 &&
               (ora.tv_sec > stato.st_ctim.tv_sec ||
                (ora.tv_sec == stato.st_ctim.tv_sec && ora.tv_nsec > stato.st_ctim.tv_nsec));
    });
}

} // namespace

class TestAperturePosix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laSorveglianzaConta()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("x"), "x");
        const Sorveglianza sorveglianza(stazione.Nativo(QStringLiteral("x")));
        for (int volta = 0; volta < 7; ++volta)
            stazione.Leggi(QStringLiteral("x"));
        QCOMPARE(sorveglianza.Aperture(), 7);
        QCOMPARE(sorveglianza.Aperture(), 0);
    }

    void unControlloApreOgniFileCinqueVolteAlPiu()
    {
        ProvaAcc prova;
        gControlloVisivo = Vero;
        const QString percorso = prova.Scrivi(prova.Buono());
        const QString nativo = prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\12345678.acc"));
        QVERIFY(Attendi_Timbro(nativo));
        const Sorveglianza suFile(nativo);
        const Sorveglianza suModello(prova.Stazione.Nativo(QStringLiteral("dati\\ModelloAcc.acc")));

        Acc_Apri(percorso);
        QCOMPARE(Acc_Controlla(percorso, prova.Rapporto), qint16{0});
        const int aperture = suFile.Aperture();
        QVERIFY2(aperture >= 1 && aperture <= 5, qPrintable(QString::number(aperture)));
        QCOMPARE(suModello.Aperture(), 1);
    }

    void laListaApreOgniFileUnaVolta()
    {
        const ProvaAcc prova;
        for (const char16_t *nome : {u"10000000.acc", u"20000000.ACC", u"30000000.Acc"})
            prova.Scrivi(prova.Buono(), QString::fromUtf16(nome));
        const Sorveglianza primo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\10000000.acc")));
        const Sorveglianza secondo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\20000000.ACC")));
        const Sorveglianza terzo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\30000000.Acc")));
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint16{2});
        QCOMPARE(primo.Aperture(), 1);
        QCOMPARE(secondo.Aperture(), 1);
        QCOMPARE(terzo.Aperture(), 1);
    }

    /// A hidden file is not there for the scan, though it could be opened.
    void fileNascosto()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("DIR_FAR\\.acc"), "[A]\r\n");
        const QString percorso = stazione.Percorso(QStringLiteral("DIR_FAR\\.acc"));
        ListaAnomalie lista;
        QCOMPARE(Acc_ControllaSintassi(percorso, lista), qint16{0});
        QCOMPARE(lista, (ListaAnomalie{
                            {percorso, AnomaliaFile, AnomaliaNonDisponibile, {}}
        }));
    }

    /// The folder lists a socket as a file, and nobody can open it: so stands for a file that the network
    /// software holds.
    void fileElencatoCheNonSiApre()
    {
        const StazioneProva stazione;
        const QByteArray nome = QFile::encodeName(stazione.Nativo(QStringLiteral("DIR_FAR\\12345678.acc")));
        sockaddr_un indirizzo{};
        indirizzo.sun_family = AF_UNIX;
        QVERIFY(nome.size() < qsizetype(sizeof indirizzo.sun_path));
        std::memcpy(indirizzo.sun_path, nome.constData(), size_t(nome.size()));
        const int presa = ::socket(AF_UNIX, SOCK_STREAM, 0);
        const bool legata =
            ::bind(presa, reinterpret_cast<const sockaddr *>(&indirizzo), sizeof indirizzo) == 0;
        ::close(presa);
        QVERIFY(legata);

        const QString percorso = stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.acc"));
        ListaAnomalie lista;
        QCOMPARE(Acc_ControllaSintassi(percorso, lista), qint16{0});
        QCOMPARE(lista, (ListaAnomalie{
                            {percorso, AnomaliaFile, AnomaliaNonDisponibile, {}}
        }));
    }
};

QTEST_GUILESS_MAIN(TestAperturePosix)
#include "tst_aperture_posix.moc"
