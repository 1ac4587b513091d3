// How often a check opens its files, and what it makes of a file that cannot be opened. Watches the file
// system's own events, so it stands apart from the tests that run on every system.
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_sintassi.h"
#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "tests/comuni/aperture_posix.h"
#include "tests/mctc/prova_acc.h"

#include <QFile>
#include <QTest>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

class tst_aperture_posix : public QObject
{
    Q_OBJECT

    /// The one finding that a file leaves which the scan could not read.
    static void Non_Disponibile(const QString &percorso)
    {
        ListaAnomalie lista;
        QCOMPARE(Acc_ControllaSintassi(percorso, lista), qint16{0});
        QCOMPARE(lista, (ListaAnomalie{
                            {percorso, AnomaliaFile, AnomaliaNonDisponibile, {}}
        }));
    }

private Q_SLOTS:
    void ilContoDelleAperture()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("x"), "x");
        const Aperture aperture(stazione.Nativo(QStringLiteral("x")));
        for (int volta = 0; volta < 7; ++volta)
            stazione.Leggi(QStringLiteral("x"));
        QCOMPARE(aperture.Conta(), 7);
        QCOMPARE(aperture.Conta(), 0);
    }

    void unControlloApreOgniFileCinqueVolteAlPiu()
    {
        ProvaAcc prova;
        gControlloVisivo = Vero;
        const QString percorso = prova.Scrivi(prova.Buono());
        const QString nativo = prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\12345678.acc"));
        QVERIFY(Attendi_Timbro(nativo, 0));
        const Aperture suFile(nativo);
        const Aperture suModello(prova.Stazione.Nativo(QStringLiteral("dati\\ModelloAcc.acc")));

        Acc_Apri(percorso);
        QCOMPARE(qint16{Acc_Controlla(percorso, prova.Rapporto)}, qint16{0});
        const int aperture = suFile.Conta();
        QVERIFY2(aperture >= 1 && aperture <= 5, qPrintable(QString::number(aperture)));
        QCOMPARE(suModello.Conta(), 1);
    }

    void laListaApreOgniFileUnaVolta()
    {
        const ProvaAcc prova;
        for (const char16_t *nome : {u"10000000.acc", u"20000000.ACC", u"30000000.Acc"})
            prova.Scrivi(prova.Buono(), QString::fromUtf16(nome));
        const Aperture primo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\10000000.acc")));
        const Aperture secondo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\20000000.ACC")));
        const Aperture terzo(prova.Stazione.Nativo(QStringLiteral("DIR_FAR\\30000000.Acc")));
        QList<VoceLista> voci;
        QCOMPARE(Lista_Leggi(gDirAcc, voci), qint32{2});
        QCOMPARE(primo.Conta(), 1);
        QCOMPARE(secondo.Conta(), 1);
        QCOMPARE(terzo.Conta(), 1);
    }

    /// Asked for each of thousands of files, a listing each time would take minutes.
    void seUnFileCeNonCostaUnElenco()
    {
        const ProvaAcc prova;
        const QString percorso = prova.Scrivi(prova.Buono());
        const Aperture cartella(prova.Stazione.Nativo(QStringLiteral("DIR_FAR")));
        QVERIFY(Fs_Esiste(percorso, 0));
        QCOMPARE(cartella.Conta(), 0);
        // Nor in capitals, as the worklist names its files.
        QVERIFY(Fs_Esiste(prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.ACC")), 0));
        QCOMPARE(cartella.Conta(), 0);
        // A missing one costs its listing: whether the folder can be listed is part of the answer.
        QVERIFY(!Fs_Esiste(prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\87654321.ACC")), 0));
        QCOMPARE(cartella.Conta(), 1);
    }

    /// The worklist asks for its files in capitals; in a folder of ten thousand each listing was felt.
    void unControlloInMaiuscoloNonElencaLaCartella()
    {
        ProvaAcc prova;
        gControlloVisivo = Vero;
        prova.Scrivi(prova.Buono());
        const QString inMaiuscolo = gDirAcc + QStringLiteral("12345678.ACC");
        const Aperture cartella(prova.Stazione.Nativo(QStringLiteral("DIR_FAR")));
        Acc_Apri(inMaiuscolo);
        QCOMPARE(qint16{Acc_Controlla(inMaiuscolo, prova.Rapporto)}, qint16{0});
        QCOMPARE(cartella.Conta(), 0);
    }

    /// A hidden file is not there for the scan, though it could be opened.
    void fileNascosto()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("DIR_FAR\\.acc"), "[A]\r\n");
        Non_Disponibile(stazione.Percorso(QStringLiteral("DIR_FAR\\.acc")));
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

        Non_Disponibile(stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.acc")));
    }

    /// This one opens and gives nothing: so stands for a network folder that goes away at that moment.
    void fileElencatoCheNonSiLegge()
    {
        if (!QFile::exists(QStringLiteral("/proc/self/mem")))
            QSKIP("this system has no file whose first byte cannot be read");
        const StazioneProva stazione;
        QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"),
                            stazione.Nativo(QStringLiteral("DIR_FAR\\12345678.acc"))));
        Non_Disponibile(stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.acc")));
    }
};

QTEST_GUILESS_MAIN(tst_aperture_posix)
#include "tst_aperture_posix.moc"
