// lumira-diagnosi against a system that refuses, ports that are pseudo terminals, and the simulator as the
// instrument.
#include "platform/istanza.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/strumenti/diagnosi_prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>
#include <QSerialPort>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int ATTESA_MS = 10000;
const QString JSON = QStringLiteral("--json");
const QString CERCA = QStringLiteral("--cerca");

/// A line whose other end says nothing.
class LineaMuta
{
public:
    LineaMuta() : m_maestro(::posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_maestro < 0 || ::grantpt(m_maestro) != 0 || ::unlockpt(m_maestro) != 0)
            qFatal("no pseudo terminal");
    }
    ~LineaMuta() { ::close(m_maestro); }
    Q_DISABLE_COPY_MOVE(LineaMuta)

    QString Dispositivo() const { return QFile::decodeName(::ptsname(m_maestro)); }

private:
    const int m_maestro;
};

/// An instrument on a port of the station.
class Strumento
{
public:
    Strumento(const StazioneSana &stazione, int porta, const QByteArray &scenario = {})
    {
        QDir().mkpath(stazione.Nativo(QStringLiteral("porte")));
        const QString file = m_cartella.filePath(QStringLiteral("scenario.ini"));
        QFile testo(file);
        if (!testo.open(QIODevice::WriteOnly) || testo.write(scenario) != scenario.size())
            qFatal("cannot write the scenario");
        testo.close();
        m_processo.start(
            QStringLiteral(QX5SIM),
            {QStringLiteral("--collega"), stazione.Nativo(QStringLiteral("porte\\COM%1").arg(porta)), file});
        while (m_processo.canReadLine() || m_processo.waitForReadyRead(ATTESA_MS)) {
            while (m_processo.canReadLine()) {
                if (m_processo.readLine().startsWith("pronto: "))
                    return;
            }
        }
        qFatal("the simulator does not start");
    }
    ~Strumento()
    {
        m_processo.terminate();
        m_processo.waitForFinished(ATTESA_MS);
    }
    Q_DISABLE_COPY_MOVE(Strumento)

    /// The lines that it has written since its start; it ends with that.
    QByteArray Registro()
    {
        m_processo.terminate();
        m_processo.waitForFinished(ATTESA_MS);
        return m_processo.readAll();
    }

private:
    QTemporaryDir m_cartella;
    QProcess m_processo;
};

/// A port of the station that stands for a device.
void Porta_Collega(const StazioneSana &stazione, int numero, const QString &dispositivo)
{
    QVERIFY(QDir().mkpath(stazione.Nativo(QStringLiteral("porte"))));
    QVERIFY(QFile::link(dispositivo, stazione.Nativo(QStringLiteral("porte\\COM%1").arg(numero))));
}

/// The numbers of the machine's own ports lead nowhere: what it has is no matter then.
void Porte_Proprie_Nascondi(const StazioneSana &stazione)
{
    constexpr int CIRCUITI = 32;
    for (int numero = 1; numero <= CIRCUITI; ++numero)
        Porta_Collega(stazione, numero, QStringLiteral("/dev/assente"));
}

constexpr int PORTA = 77; ///< the station's

bool Permessi(const QString &file, mode_t modo)
{
    return ::chmod(QFile::encodeName(file).constData(), modo) == 0;
}

QStringList Di(const Esecuzione &esecuzione, const char16_t *materia)
{
    return Solo(Trovati(esecuzione), {QString::fromUtf16(materia)});
}

/// What is wrong with the station's port; the machine's others are as they are.
QStringList Mali_Della_Porta(const Esecuzione &esecuzione)
{
    return Cattivi(Di(esecuzione, u"porte")).filter(QStringLiteral("COM77"));
}

/// The station's program, that runs.
class StazioneAperta
{
public:
    explicit StazioneAperta(const StazioneSana &stazione)
    {
        const QString programma = stazione.Nativo(StazioneSana::Programma());
        if (!QFile::remove(programma) || !QFile::copy(QCoreApplication::applicationFilePath(), programma))
            qFatal("cannot copy the program");
        m_processo.start(programma, {QStringLiteral("stazione")});
        if (!m_processo.waitForReadyRead(ATTESA_MS) || m_processo.readAll() != "first\n")
            qFatal("the station does not start");
    }
    ~StazioneAperta()
    {
        m_processo.closeWriteChannel();
        m_processo.waitForFinished(ATTESA_MS);
    }
    Q_DISABLE_COPY_MOVE(StazioneAperta)

private:
    QProcess m_processo;
};

/// The other program: the station that runs.
int Programma_Stazione_Aperta()
{
    std::puts(Istanza_Precedente() ? "second" : "first");
    std::fflush(stdout);
    while (std::getchar() != EOF)
        continue;
    return 0;
}

} // namespace

class tst_lumira_diagnosi_posix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // --- rights --------------------------------------------------------------------------------------------

    void cartellaSenzaDiritti_data()
    {
        QTest::addColumn<uint>("modo");
        QTest::addColumn<QStringList>("argomenti");
        QTest::addColumn<QString>("trovato");
        const QString scrivere = QStringLiteral("guasto cartelle: in %1 non si può scrivere");
        QTest::newRow("scrivere") << 0555U << QStringList{JSON} << scrivere;
        QTest::newRow("scrivere, provato")
            << 0555U << QStringList{JSON, QStringLiteral("--scrivi")} << scrivere;
        QTest::newRow("elencare") << 0300U << QStringList{JSON}
                                  << QStringLiteral("guasto cartelle: %1 non si può elencare");
    }
    void cartellaSenzaDiritti()
    {
        QFETCH(uint, modo);
        QFETCH(QStringList, argomenti);
        QFETCH(QString, trovato);
        const StazioneSana stazione;
        const QString cartella = stazione.Nativo(QStringLiteral("DIR_FAR"));
        QVERIFY(Permessi(stazione.Cartella(), 0755) && Permessi(cartella, modo));
        const auto rimetti = qScopeGuard([&] { Permessi(cartella, 0755); });
        Esecuzione e;
        {
            const SenzaPrivilegi senza;
            e = Diagnosi(stazione, argomenti);
        }
        QCOMPARE(Cattivi(Di(e, u"cartelle")), QStringList{trovato.arg(cartella)});
    }

    void fileIlleggibile()
    {
        const StazioneSana stazione;
        QVERIFY(Permessi(stazione.Cartella(), 0755) &&
                Permessi(stazione.Nativo(QStringLiteral("dati\\faro1.jpg")), 0));
        Esecuzione e;
        {
            const SenzaPrivilegi senza;
            e = Diagnosi(stazione, {JSON});
        }
        QCOMPARE(Cattivi(Di(e, u"programma")),
                 QStringList{QStringLiteral("guasto programma: dati\\faro1.jpg non si può leggere")});
    }

    /// The station's settings are lost when a new file cannot take the old one's place.
    void configurazioneNonScrivibile_data()
    {
        QTest::addColumn<uint>("cartella");
        QTest::addColumn<uint>("file");
        QTest::addColumn<bool>("scrivibile");
        QTest::newRow("tutto permesso") << 0777U << 0666U << true;
        QTest::newRow("file di sola lettura") << 0777U << 0444U << false;
        QTest::newRow("cartella di sola lettura") << 0555U << 0666U << false;
    }
    void configurazioneNonScrivibile()
    {
        QFETCH(uint, cartella);
        QFETCH(uint, file);
        QFETCH(bool, scrivibile);
        const StazioneSana stazione;
        QVERIFY(Permessi(stazione.Nativo(QStringLiteral("lumira.ini")), file) &&
                Permessi(stazione.Cartella(), cartella));
        const auto rimetti = qScopeGuard([&] { Permessi(stazione.Cartella(), 0755); });
        Esecuzione e;
        {
            const SenzaPrivilegi senza;
            e = Diagnosi(stazione, {JSON});
        }
        QCOMPARE(Cattivi(Di(e, u"configurazione")),
                 scrivibile ? QStringList()
                            : QStringList{QStringLiteral("avviso configurazione: lumira.ini non si può "
                                                         "scrivere: ogni modifica andrà persa")});
    }

    void programmaNonEseguibile()
    {
        const StazioneSana stazione;
        QVERIFY(Permessi(stazione.Nativo(stazione.Programma()), 0644));
        QCOMPARE(Cattivi(Di(Diagnosi(stazione, {JSON}), u"programma")),
                 QStringList{QStringLiteral("guasto programma: lumira non si può eseguire")});
    }

    /// A tool of Windows looks at a program of Windows, which opens no window without these.
    void libreriaDiWindows()
    {
        const StazioneSana stazione;
        const QTemporaryDir altrove;
        const QString strumento = altrove.filePath(QStringLiteral("lumira-diagnosi.exe"));
        QVERIFY(QFile::copy(QStringLiteral(LUMIRA_DIAGNOSI), strumento));
        stazione.Scrivi(QStringLiteral("platforms\\qwindows.dll"), {});
        const QStringList trovati =
            Cattivi(Di(Processo_Esegui(strumento, {QStringLiteral("--lingua"), QStringLiteral("IT"), JSON,
                                                   stazione.Cartella()}),
                       u"programma"));
        QCOMPARE(trovati, (QStringList{
                              QStringLiteral("guasto programma: manca lumira.exe"),
                              QStringLiteral("guasto programma: platforms\\qwindows.dll è vuoto"),
                              QStringLiteral("guasto programma: manca imageformats\\qjpeg.dll"),
                          }));
    }

    // --- the port ------------------------------------------------------------------------------------------

    void portaAssente()
    {
        const StazioneSana stazione;
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QVERIFY(Di(e, u"porte")
                    .contains(QStringLiteral("guasto porte: COM77, la porta della stazione, non c'è")));
        QCOMPARE(Di(e, u"strumento"), QStringList());
    }

    void portaSenzaDiritti()
    {
        const StazioneSana stazione;
        const LineaMuta linea;
        Porta_Collega(stazione, PORTA, linea.Dispositivo());
        QVERIFY(Permessi(stazione.Cartella(), 0755) && Permessi(linea.Dispositivo(), 0600));
        Esecuzione e;
        {
            const SenzaPrivilegi senza;
            e = Diagnosi(stazione, {JSON});
        }
        QVERIFY(Di(e, u"porte")
                    .contains(QStringLiteral(
                        "guasto porte: COM77, la porta della stazione, non si può usare senza il diritto")));
        QVERIFY(Di(e, u"porte")
                    .contains(QStringLiteral("avviso porte: COM77: %1, senza diritto di usarla")
                                  .arg(linea.Dispositivo())));
    }

    void portaOccupata()
    {
        const StazioneSana stazione;
        const LineaMuta linea;
        Porta_Collega(stazione, PORTA, linea.Dispositivo());
        QSerialPort altro(linea.Dispositivo());
        QVERIFY(altro.open(QIODevice::ReadWrite));
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QCOMPARE(Mali_Della_Porta(e),
                 QStringList{QStringLiteral(
                     "guasto porte: COM77 è occupata da un altro programma, o non è una porta")});
        QCOMPARE(Di(e, u"strumento"), QStringList());
    }

    /// The station that runs may ask its instrument at any moment: nobody else does, though the port is free.
    void portaDellaStazioneAperta()
    {
        const StazioneSana stazione;
        const Strumento strumento(stazione, PORTA);
        Porta_Collega(stazione, 78,
                      QFileInfo(stazione.Nativo(QStringLiteral("porte\\COM77"))).canonicalFilePath());
        Porte_Proprie_Nascondi(stazione);
        const StazioneAperta aperta(stazione);
        const QStringList occupata{QStringLiteral("avviso porte: COM77 è occupata dalla stazione aperta")};
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QCOMPARE(Mali_Della_Porta(e), occupata);
        QCOMPARE(Di(e, u"strumento"), QStringList());
        const Esecuzione cerca = Diagnosi(stazione, {JSON, CERCA});
        QCOMPARE(Mali_Della_Porta(cerca), occupata);
        QCOMPARE(Di(cerca, u"strumento"),
                 (QStringList{QStringLiteral("avviso strumento: non cercato su COM77"),
                              QStringLiteral("avviso strumento: non cercato su COM78")}));
    }

    /// Its other ports nobody needs: the instrument may hang on one of them.
    void strumentoSuUnAltraPortaAStazioneAperta()
    {
        const StazioneSana stazione;
        const LineaMuta linea;
        Porta_Collega(stazione, PORTA, linea.Dispositivo());
        const Strumento strumento(stazione, 78);
        const StazioneAperta aperta(stazione);
        QCOMPARE(Di(Diagnosi(stazione, {JSON, CERCA}), u"strumento").value(0),
                 QStringLiteral("guasto strumento: risponde su COM78 a 9600,N,8,1, e la stazione lo cerca su "
                                "COM77 9600,N,8,1"));
    }

    // --- the instrument ------------------------------------------------------------------------------------

    void strumentoCheRisponde()
    {
        const StazioneSana stazione;
        const Strumento strumento(stazione, PORTA);
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QVERIFY(
            Di(e, u"porte")
                .contains(QStringLiteral("ok porte: COM77, la porta della stazione, si apre a 9600,N,8,1")));
        QCOMPARE(Di(e, u"strumento"),
                 QStringList{QStringLiteral("ok strumento: risponde su COM77 a 9600,N,8,1, a riposo")});
    }

    void strumentoMuto()
    {
        const StazioneSana stazione;
        const LineaMuta linea;
        Porta_Collega(stazione, PORTA, linea.Dispositivo());
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QCOMPARE(Di(e, u"strumento"),
                 QStringList{QStringLiteral("guasto strumento: su COM77 non risponde nessuno")});
    }

    void strumentoStorpio()
    {
        const StazioneSana stazione;
        const Strumento strumento(stazione, PORTA, "[GUASTI]\r\nGuasto1=Stato;*;controllo\r\n");
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QCOMPARE(
            Di(e, u"strumento"),
            QStringList{QStringLiteral("guasto strumento: su COM77 arriva qualcosa che non è una risposta")});
    }

    /// Whatever speaks there, it is not nobody; and the station's own format is asked in once.
    void strumentoStorpioCercato()
    {
        const StazioneSana stazione;
        Porte_Proprie_Nascondi(stazione);
        Strumento strumento(stazione, PORTA, "[GUASTI]\r\nGuasto1=Stato;*;controllo\r\n");
        const Esecuzione e = Diagnosi(stazione, {JSON, CERCA});
        QCOMPARE(Di(e, u"strumento"),
                 QStringList{QStringLiteral("guasto strumento: su COM77 a 9600,N,8,1 arriva qualcosa che non "
                                            "è una risposta, e in nessun formato lo è")});
        constexpr int FORMATI_USUALI = 6; // that of the station is one of them
        QCOMPARE(strumento.Registro().count("<- "), FORMATI_USUALI);
    }

    void strumentoCercatoAlSuoPosto()
    {
        const StazioneSana stazione;
        stazione.Imposta(QStringLiteral("LUMIRA"), QStringLiteral("Comm_NSerie"), QStringLiteral("000042"));
        const Strumento strumento(stazione, PORTA);
        const Esecuzione e = Diagnosi(stazione, {JSON, CERCA});
        QCOMPARE(Di(e, u"strumento"),
                 (QStringList{QStringLiteral("ok strumento: risponde su COM77 a 9600,N,8,1, a riposo"),
                              QStringLiteral("ok strumento: Strumenti Prova QX5, serie 000042"),
                              QStringLiteral("ok strumento: verifica periodica valida fino al 30/06/2030")}));
    }

    void strumentoSuUnAltraPorta()
    {
        const StazioneSana stazione;
        const LineaMuta linea;
        Porta_Collega(stazione, PORTA, linea.Dispositivo());
        const Strumento strumento(stazione, 78, "[DATI]\r\nComm_ScadRevisione=01/02/2024\r\n");
        const Esecuzione e = Diagnosi(stazione, {JSON, CERCA});
        QCOMPARE(e.stato, 1);
        QCOMPARE(
            Di(e, u"strumento"),
            (QStringList{
                QStringLiteral("guasto strumento: risponde su COM78 a 9600,N,8,1, e la stazione lo cerca su "
                               "COM77 9600,N,8,1"),
                QStringLiteral(
                    "avviso strumento: Strumenti Prova QX5, serie 000042: lumira.ini ha la serie 000001"),
                QStringLiteral("guasto strumento: la verifica periodica è scaduta il 01/02/2024")}));
    }

    void strumentoCheMisura()
    {
        const StazioneSana stazione;
        const Strumento strumento(stazione, PORTA, "[VEICOLO1]\r\nRiposo=0\r\nProva=100\r\n");
        QCOMPARE(Di(Diagnosi(stazione, {JSON, CERCA}), u"strumento"),
                 (QStringList{QStringLiteral("ok strumento: risponde su COM77 a 9600,N,8,1, misura in corso"),
                              QStringLiteral("avviso strumento: non dà la sua identità")}));
    }

    void strumentoIntrovabile()
    {
        const StazioneSana stazione;
        Porte_Proprie_Nascondi(stazione);
        QCOMPARE(Di(Diagnosi(stazione, {JSON, CERCA}), u"strumento"),
                 QStringList{QStringLiteral(
                     "guasto strumento: non risponde su nessuna porta con nessun formato usuale")});
    }

    /// Where nobody was asked the instrument may be.
    void strumentoNonCercato()
    {
        const StazioneSana stazione;
        Porte_Proprie_Nascondi(stazione);
        const LineaMuta occupata, senzaDiritti;
        Porta_Collega(stazione, PORTA, occupata.Dispositivo());
        Porta_Collega(stazione, 78, senzaDiritti.Dispositivo());
        QVERIFY(Permessi(stazione.Cartella(), 0755) && Permessi(occupata.Dispositivo(), 0666) &&
                Permessi(senzaDiritti.Dispositivo(), 0600));
        QSerialPort altro(occupata.Dispositivo());
        QVERIFY(altro.open(QIODevice::ReadWrite));
        Esecuzione e;
        {
            const SenzaPrivilegi senza;
            e = Diagnosi(stazione, {JSON, CERCA});
        }
        QCOMPARE(Di(e, u"strumento"),
                 (QStringList{QStringLiteral("avviso strumento: non cercato su COM77"),
                              QStringLiteral("avviso strumento: non cercato su COM78")}));
    }

    // --- the locale ----------------------------------------------------------------------------------------

    /// Where a comma parts decimals the station takes points for commas, and so more than one for no number.
    void numeriConLaVirgola()
    {
        const StazioneSana stazione;
        stazione.Cambia_Ini("DevVertAbb=1.5", "DevVertAbb=1.2.3");
        stazione.Cambia_Ini("DevVertAnab=1.5", "DevVertAnab=1,5");
        const QByteArray prima = qgetenv("LC_ALL");
        qputenv("LC_ALL", "it_IT.UTF-8");
        const Esecuzione e = Diagnosi(stazione, {JSON});
        qputenv("LC_ALL", prima);
        QCOMPARE(
            Cattivi(Di(e, u"configurazione")),
            QStringList{QStringLiteral("avviso configurazione: [PARAMETRI] DevVertAbb=1.2.3 non va bene")});
    }

    // --- what hangs on the machine -------------------------------------------------------------------------

    void nessunaStampante()
    {
        const StazioneSana stazione;
        const QByteArray prima = qgetenv("CUPS_SERVER");
        qputenv("CUPS_SERVER", "localhost:1");
        const Esecuzione e = Diagnosi(stazione, {JSON});
        qputenv("CUPS_SERVER", prima);
        QCOMPARE(Di(e, u"stampanti"),
                 QStringList{QStringLiteral(
                     "avviso stampanti: nessuna stampante, o il sistema di stampa non risponde")});
    }

    void schermoPiccolo()
    {
        const StazioneSana stazione;
        QCOMPARE(qEnvironmentVariable("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        QCOMPARE(Di(Diagnosi(stazione, {JSON}), u"schermo"),
                 QStringList{QStringLiteral("avviso schermo: 800 x 800, ingrandimento 1")});
    }

    void senzaSchermo()
    {
        const StazioneSana stazione;
        qputenv("QT_QPA_PLATFORM", "xcb");
        qputenv("DISPLAY", "localhost:9999");
        const Esecuzione e = Diagnosi(stazione, {JSON});
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QCOMPARE(Di(e, u"schermo"), QStringList{QStringLiteral("avviso schermo: nessuno schermo da qui")});
        QVERIFY(!Di(e, u"orologio").isEmpty()); // the rest goes on
    }
};

int main(int argc, char *argv[])
{
    const QCoreApplication applicazione(argc, argv);
    if (QCoreApplication::arguments().value(1) == u"stazione")
        return Programma_Stazione_Aperta();
    tst_lumira_diagnosi_posix prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_lumira_diagnosi_posix.moc"
