// The serial control on a real pseudo terminal: the test holds its other end, and closing that is a cable
// pulled out.
#include "link/seriale.h"

#include "platform/errore_esecuzione.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/linea_prova.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/link/porta_vera_posix.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSocketNotifier>
#include <QTest>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>

namespace {

constexpr qint16 PORTA = 7;

/// The other end of the line.
class CapoLontano
{
public:
    CapoLontano() : m_fd(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (m_fd < 0 || grantpt(m_fd) != 0 || unlockpt(m_fd) != 0)
            qFatal("no pseudo terminal");
        m_nome = QFile::decodeName(ptsname(m_fd));
    }
    ~CapoLontano() { Stacca(); }
    Q_DISABLE_COPY_MOVE(CapoLontano)

    const QString &Nome() const { return m_nome; }
    void Manda(const QByteArray &byte) const
    {
        QCOMPARE(write(m_fd, byte.data(), size_t(byte.size())), byte.size());
    }
    QByteArray Arrivati() const
    {
        QByteArray byte;
        char pezzo[4096];
        for (ssize_t letti = 0; (letti = read(m_fd, pezzo, sizeof pezzo)) > 0;)
            byte.append(pezzo, letti);
        return byte;
    }
    void Stacca()
    {
        if (m_fd >= 0)
            close(m_fd);
        m_fd = -1;
    }

private:
    int m_fd;
    QString m_nome;
};

/// Files that the program has open.
qsizetype File_Aperti()
{
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
}

double Secondi_Processore()
{
    timespec tempo = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &tempo);
    return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_nsec) / 1e9;
}

} // namespace

class tst_seriale_qt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void byteNeiDueVersi();
    void zeroConservatoEBloccoSpezzato();
    void senzaSogliaNessunEvento();
    void nessunEventoPerBytePresiPrima();
    void eventoDuranteUnRiquadro();
    void chiusaDentroLEvento();
    void distruttaDentroLEvento();
    void risveglioAVuoto_data();
    void risveglioAVuoto();

    void legameMancante();
    void legameSenzaDispositivo();
    void legameChiamatoInMinuscolo();
    void legameApertoAlSuoDispositivo();
    void senzaLegameLaPortaDellaMacchina();
    void portaOltreLaNona();
    void portaOccupata();
    void portaTenutaDaUnAltroProgramma();
    void portaChiusaAgliAltriProgrammi();
    void dueLegamiUnDispositivo();
    void portaChiusaSolleva();

    void formatoCheLoPseudoTerminaleNonHa();
    void formatoCheArrivaAllaPorta_data();
    void formatoCheArrivaAllaPorta();
    void formatoRifiutato_data();
    void formatoRifiutato();
    void richiestaDiInvioAbbassata();
    void valoriCheIlCollegamentoNonUsa();

    void lineaPienaNonBlocca();
    void frameInCodaLasciatoCadere();
    void chiusuraNonAspettaLaLineaPiena();
    void chiusuraSvuotaLeCode();
    void ingressoPienoPerdeIlResto();
    void rafficaFraDueGiri();

    void cavoStaccato_data();
    void cavoStaccato();
    void ultimiByteAncoraLeggibili();
    void letturaGuastaNonPerdeLaLinea();
    void dispositivoRottoLasciato();

    void adattatoreRimessoFraDueSessioni();
    void adattatoreRimessoASessioneAperta();
    void adattatoreToltoDuranteLApertura_data();
    void adattatoreToltoDuranteLApertura();

private:
    static QString Legame(const QString &nome = QStringLiteral("COM7"))
    {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/porte/") + nome;
    }
    /// Opens the port as a session does, and gathers what comes in.
    void Apri();
    /// The adapter is pulled out, and its device goes; plugged in, it has the same number and often another
    /// device.
    void Togli_Adattatore();
    void Rimetti_Adattatore();
    /// Bytes come through in both directions.
    void Verifica_Linea();
    /// The session goes on as on a line without an instrument, and ends.
    void Verifica_Sorda();

    std::unique_ptr<CapoLontano> m_capo;
    std::unique_ptr<ControlloSeriale> m_porta;
    int m_eventi = 0;
    QByteArray m_arrivati;
};

void tst_seriale_qt::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    cleanup(); // of a run that died
    QDir().mkpath(QCoreApplication::applicationDirPath() + QStringLiteral("/porte"));
    m_capo = std::make_unique<CapoLontano>();
    QVERIFY(QFile::link(m_capo->Nome(), Legame()));
    m_porta = Crea_ControlloSeriale();
    m_porta->CommPort(PORTA);
    m_eventi = 0;
    m_arrivati.clear();
}

void tst_seriale_qt::cleanup()
{
    m_porta.reset();
    m_capo.reset();
    QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/porte")).removeRecursively();
}

void tst_seriale_qt::Apri()
{
    m_porta->OnComm = [this] {
        ++m_eventi;
        QCOMPARE(m_porta->CommEvent(), qint16(EventoRicezione));
        const qint16 conta = m_porta->InBufferCount();
        QVERIFY(conta > 0); // an event without bytes would put an error box on the screen
        const QByteArray byte = m_porta->Input();
        QCOMPARE(byte.size(), qsizetype(conta));
        m_arrivati += byte;
    };
    m_porta->PortOpen(true);
    m_porta->Settings(QStringLiteral("9600,N,8,1"));
    m_porta->InputLen(0);
    m_porta->InputMode(1);
    m_porta->RThreshold(1);
    m_porta->NullDiscard(false);
}

void tst_seriale_qt::Togli_Adattatore()
{
    QFile::remove(Legame());
    m_capo->Stacca();
}

void tst_seriale_qt::Rimetti_Adattatore()
{
    m_capo = std::make_unique<CapoLontano>();
    QVERIFY(QFile::link(m_capo->Nome(), Legame()));
}

void tst_seriale_qt::Verifica_Linea()
{
    m_arrivati.clear();
    m_porta->Output("andata");
    QByteArray alCapo;
    QTRY_COMPARE(alCapo += m_capo->Arrivati(), QByteArray("andata"));
    m_capo->Manda("ritorno");
    QTRY_COMPARE(m_arrivati, QByteArray("ritorno"));
}

void tst_seriale_qt::Verifica_Sorda()
{
    QVERIFY(m_porta->PortOpen());
    for (int invio = 0; invio < 3; ++invio) {
        QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(0); }), 0);
        QCOMPARE(Errore_Di([this] { m_porta->Output("frame"); }), 0);
        QCoreApplication::processEvents();
    }
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
    QCOMPARE(m_porta->Input(), QByteArray());
    QVERIFY(m_porta->PortOpen());
    m_porta->PortOpen(false);
    QVERIFY(!m_porta->PortOpen());
}

void tst_seriale_qt::byteNeiDueVersi()
{
    QVERIFY(!m_porta->PortOpen());
    Apri();
    QVERIFY(m_porta->PortOpen());
    const QByteArray andata = QByteArray::fromHex("0241424310360300FF0D0A11137F");
    m_porta->OutBufferCount(0);
    m_porta->Output(andata);
    QByteArray alCapo;
    QTRY_VERIFY((alCapo += m_capo->Arrivati()).size() >= andata.size());
    QCOMPARE(alCapo, andata);

    m_capo->Manda(andata);
    QTRY_COMPARE(m_arrivati, andata);
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
    QCOMPARE(m_porta->Input(), QByteArray());
}

void tst_seriale_qt::zeroConservatoEBloccoSpezzato()
{
    Apri();
    m_capo->Manda(QByteArray("\x02\x00", 2));
    QTRY_COMPARE(m_eventi, 1);
    m_capo->Manda(QByteArray("\x00\x03", 2));
    QTRY_COMPARE(m_eventi, 2);
    QCOMPARE(m_arrivati, QByteArray("\x02\x00\x00\x03", 4));
}

void tst_seriale_qt::senzaSogliaNessunEvento()
{
    Apri();
    m_porta->RThreshold(0);
    m_capo->Manda("abc");
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(3));
    QCoreApplication::processEvents();
    QCOMPARE(m_eventi, 0);
    QCOMPARE(m_porta->Input(), QByteArray("abc"));
}

void tst_seriale_qt::nessunEventoPerBytePresiPrima()
{
    // Somebody takes the bytes in the turn of the loop that brought them, before their event.
    Apri();
    int segnale[2];
    QCOMPARE(pipe(segnale), 0);
    QSocketNotifier notifica(segnale[0], QSocketNotifier::Read);
    QByteArray presi;
    connect(&notifica, &QSocketNotifier::activated, &notifica, [&] {
        presi += m_porta->Input();
        notifica.setEnabled(false);
    });
    m_capo->Manda("abc");
    QCOMPARE(write(segnale[1], "x", 1), ssize_t(1));
    QTRY_COMPARE(presi + m_arrivati, QByteArray("abc"));
    const QDeadlineTimer unPo(50);
    QTRY_VERIFY(unPo.hasExpired());
    QCOMPARE(m_eventi, presi.isEmpty() ? 1 : 0);
    close(segnale[0]);
    close(segnale[1]);
}

void tst_seriale_qt::eventoDuranteUnRiquadro()
{
    // While the handler of one event sits in a modal box, the next bytes raise theirs.
    Apri();
    const auto raccogli = m_porta->OnComm;
    bool annidato = false;
    m_porta->OnComm = [&] {
        raccogli();
        if (std::exchange(annidato, true))
            return;
        m_capo->Manda("due");
        QTRY_COMPARE(m_arrivati, QByteArray("unodue"));
    };
    m_capo->Manda("uno");
    QTRY_COMPARE(m_eventi, 2);
    m_capo->Manda("tre");
    QTRY_COMPARE(m_arrivati, QByteArray("unoduetre"));
}

void tst_seriale_qt::chiusaDentroLEvento()
{
    Apri();
    m_porta->OnComm = [this] {
        ++m_eventi;
        m_porta->PortOpen(false);
    };
    m_capo->Manda("abc");
    QTRY_COMPARE(m_eventi, 1);
    QVERIFY(!m_porta->PortOpen());
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
}

void tst_seriale_qt::distruttaDentroLEvento()
{
    Apri();
    m_porta->OnComm = [this] {
        m_porta.reset();
        ++m_eventi;
    };
    m_capo->Manda("abc");
    QTRY_COMPARE(m_eventi, 1);
}

void tst_seriale_qt::risveglioAVuoto_data()
{
    QTest::addColumn<bool>("chiude");
    QTest::newRow("la sessione continua") << false;
    QTest::newRow("la sessione finisce subito dopo") << true;
}

void tst_seriale_qt::risveglioAVuoto()
{
    QFETCH(bool, chiude);
    // The loop is told of bytes, but when the port reads they are gone: somebody has dropped them, in the
    // same turn of the loop. The line goes on being watched.
    int segnale[2];
    QCOMPARE(pipe(segnale), 0);
    const int vicino = open(qPrintable(m_capo->Nome()), O_RDWR | O_NOCTTY | O_NONBLOCK);
    QVERIFY(vicino >= 0);
    bool scartati = false;
    QSocketNotifier notifica(segnale[0], QSocketNotifier::Read);
    connect(&notifica, &QSocketNotifier::activated, &notifica, [&] {
        tcflush(vicino, TCIFLUSH);
        // A reading that finds nothing goes by the error left behind by whoever failed last: this one.
        QCOMPARE(m_capo->Arrivati(), QByteArray());
        scartati = true;
        notifica.setEnabled(false);
    });
    Apri();
    m_capo->Manda("perduti");
    QCOMPARE(write(segnale[1], "x", 1), ssize_t(1));
    while (!scartati)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_arrivati.clear();
    if (chiude) {
        m_porta->PortOpen(false);
        const QDeadlineTimer unPo(200);
        QTRY_VERIFY(unPo.hasExpired());
    } else {
        m_capo->Manda("abc");
        QTRY_COMPARE(m_arrivati, QByteArray("abc"));
    }
    close(vicino);
    close(segnale[0]);
    close(segnale[1]);
}

void tst_seriale_qt::legameMancante()
{
    // Port 7 is then the seventh port of the machine itself, which hardly any has.
    QVERIFY(QFile::remove(Legame()));
    const int errore = Errore_Di([this] { Apri(); });
    QVERIFY(errore != 0 || QFile::exists(QStringLiteral("/dev/ttyS6")));
    QCOMPARE(m_porta->PortOpen(), errore == 0);
}

void tst_seriale_qt::legameSenzaDispositivo()
{
    QVERIFY(QFile::remove(Legame()));
    QVERIFY(QFile::link(QStringLiteral("/dev/adattatore-non-inserito"), Legame()));
    QVERIFY(Errore_Di([this] { Apri(); }) != 0);
    QVERIFY(!m_porta->PortOpen());
}

void tst_seriale_qt::legameChiamatoInMinuscolo()
{
    QVERIFY(QFile::rename(Legame(), Legame(QStringLiteral("com7"))));
    Apri();
    QVERIFY(m_porta->PortOpen());
}

/// The lock of a port goes by the name that was opened: two links to one device have to come to one.
void tst_seriale_qt::legameApertoAlSuoDispositivo()
{
    const PortaVera porta;
    Apri();
    QCOMPARE(porta.Aperti, QStringList(m_capo->Nome()));
}

void tst_seriale_qt::senzaLegameLaPortaDellaMacchina()
{
    const PortaVera porta;
    QVERIFY(QFile::remove(Legame()));
    Errore_Di([this] { m_porta->PortOpen(true); });
    QCOMPARE(porta.Aperti, QStringList(QStringLiteral("/dev/ttyS6")));
    m_porta->PortOpen(false);
    m_porta->CommPort(1);
    Errore_Di([this] { m_porta->PortOpen(true); });
    QCOMPARE(porta.Aperti.last(), QStringLiteral("/dev/ttyS0"));
}

void tst_seriale_qt::portaOccupata()
{
    Apri();
    const auto altra = Crea_ControlloSeriale();
    altra->CommPort(PORTA);
    QVERIFY(Errore_Di([&altra] { altra->PortOpen(true); }) != 0);
    QVERIFY(!altra->PortOpen());
    m_porta->PortOpen(false);
    QCOMPARE(Errore_Di([&altra] { altra->PortOpen(true); }), 0);
    QVERIFY(altra->PortOpen());
}

void tst_seriale_qt::portaOltreLaNona()
{
    QVERIFY(QFile::rename(Legame(), Legame(QStringLiteral("COM20"))));
    m_porta->CommPort(20);
    Apri();
    Verifica_Linea();
    const PortaVera porta;
    const auto altra = Crea_ControlloSeriale();
    altra->CommPort(12);
    Errore_Di([&altra] { altra->PortOpen(true); });
    QCOMPARE(porta.Aperti, QStringList(QStringLiteral("/dev/ttyS11")));
}

/// One that asks for no lock, only for the device to be its own.
void tst_seriale_qt::portaTenutaDaUnAltroProgramma()
{
    const int altro = open(qPrintable(m_capo->Nome()), O_RDWR | O_NOCTTY | O_NONBLOCK);
    QVERIFY(altro >= 0);
    QCOMPARE(fchmod(altro, 0666), 0);
    QCOMPARE(ioctl(altro, TIOCEXCL), 0);
    const SenzaPrivilegi nessuno;
    QCOMPARE(Errore_Di([this] { Apri(); }), 8002);
    QVERIFY(!m_porta->PortOpen());
    QCOMPARE(ioctl(altro, TIOCNXCL), 0);
    close(altro);
    Apri();
    Verifica_Linea();
}

void tst_seriale_qt::portaChiusaAgliAltriProgrammi()
{
    const auto altro = [this] { return open(qPrintable(m_capo->Nome()), O_RDWR | O_NOCTTY | O_NONBLOCK); };
    QCOMPARE(chmod(qPrintable(m_capo->Nome()), 0666), 0);
    const SenzaPrivilegi nessuno;
    Apri();
    QCOMPARE(altro(), -1);
    QCOMPARE(errno, EBUSY);
    m_porta->PortOpen(false);
    const int preso = altro();
    QVERIFY(preso >= 0);
    close(preso);
}

void tst_seriale_qt::dueLegamiUnDispositivo()
{
    QVERIFY(QFile::link(m_capo->Nome(), Legame(QStringLiteral("COM8"))));
    Apri();
    const auto altra = Crea_ControlloSeriale();
    altra->CommPort(8);
    QVERIFY(Errore_Di([&altra] { altra->PortOpen(true); }) != 0);
}

void tst_seriale_qt::portaChiusaSolleva()
{
    const auto verifica = [this] {
        QCOMPARE(Errore_Di([this] { m_porta->Input(); }), 8018);
        QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(0); }), 8018);
        QCOMPARE(Errore_Di([this] { m_porta->Output("x"); }), 8018);
        QCOMPARE(m_porta->InBufferCount(), qint16(0));
    };
    verifica();
    Apri();
    m_porta->PortOpen(false);
    verifica();
    m_porta->PortOpen(false); // closing once more is no error
}

void tst_seriale_qt::formatoCheLoPseudoTerminaleNonHa()
{
    PortaVera porta; // a pseudo terminal, so to speak, of those systems that say what it does not have
    porta.LineeModem = false;
    porta.Rifiuta = [](const termios &formato) { return (formato.c_cflag & PARENB) != 0; };
    Apri();
    m_porta->Settings(QStringLiteral("9600,E,7,2"));
    QCOMPARE(porta.Formato.c_cflag & (CSIZE | CSTOPB), tcflag_t{CS7 | CSTOPB}); // what it does have
    m_capo->Manda("abc");
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
}

void tst_seriale_qt::formatoCheArrivaAllaPorta_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<uint>("velocita");
    QTest::addColumn<uint>("formato");

    const auto riga = [](const char *testo, speed_t velocita, tcflag_t formato) {
        QTest::newRow(testo) << QString::fromLatin1(testo) << uint{velocita} << uint{formato};
    };
    riga("9600,N,8,1", B9600, CS8);
    riga("1200,N,8,2", B1200, CS8 | CSTOPB);
    riga("300,E,7,1", B300, CS7 | PARENB);
    riga("19200,O,7,2", B19200, CS7 | PARENB | PARODD | CSTOPB);
    riga("38400,M,6,1", B38400, CS6 | PARENB | PARODD | CMSPAR);
    riga("57600,S,5,1", B57600, CS5 | PARENB | CMSPAR);
    riga("115200,n,8,1", B115200, CS8);
    riga("2400,e,8,1", B2400, CS8 | PARENB);
    riga("4800,o,8,1", B4800, CS8 | PARENB | PARODD);
}

void tst_seriale_qt::formatoCheArrivaAllaPorta()
{
    QFETCH(QString, testo);
    QFETCH(uint, velocita);
    QFETCH(uint, formato);
    const PortaVera porta;
    m_porta->PortOpen(true);
    m_porta->Settings(testo);
    QCOMPARE(cfgetispeed(&porta.Formato), speed_t{velocita});
    QCOMPARE(cfgetospeed(&porta.Formato), speed_t{velocita});
    QCOMPARE(porta.Formato.c_cflag & (CSIZE | CSTOPB | PARENB | PARODD | CMSPAR | CRTSCTS),
             tcflag_t{formato});
    QCOMPARE(porta.Formato.c_iflag & (IXON | IXOFF), tcflag_t{0});
}

void tst_seriale_qt::formatoRifiutato_data()
{
    QTest::addColumn<uint>("velocita");
    QTest::addColumn<uint>("formato");
    QTest::newRow("velocita'") << uint{B19200} << uint{0};
    QTest::newRow("parita'") << uint{B0} << uint{PARENB};
    QTest::newRow("bit di stop") << uint{B0} << uint{CSTOPB};
    QTest::newRow("bit di dati") << uint{B0} << uint{CSIZE};
}

/// The port is closed and every frame fails: the session stands, and is not taken for one with a silent
/// instrument.
void tst_seriale_qt::formatoRifiutato()
{
    QFETCH(uint, velocita);
    QFETCH(uint, formato);
    PortaVera porta;
    Apri();
    porta.Rifiuta = [velocita, formato](const termios &nuovo) {
        const bool bit = formato == CSIZE ? (nuovo.c_cflag & CSIZE) == CS7 : (nuovo.c_cflag & formato) != 0;
        return bit || (velocita != B0 && cfgetospeed(&nuovo) == velocita);
    };
    QCOMPARE(Errore_Di([this] { m_porta->Settings(QStringLiteral("19200,E,7,2")); }), 380);
    QVERIFY(!m_porta->PortOpen());
    QCOMPARE(Errore_Di([this] { m_porta->Output("x"); }), 8018);
}

void tst_seriale_qt::richiestaDiInvioAbbassata()
{
    PortaVera porta;
    porta.Alzate = TIOCM_DTR | TIOCM_RTS; // as the system leaves them at the opening
    Apri();
    QCOMPARE(porta.Alzate, int{TIOCM_DTR});
}

void tst_seriale_qt::valoriCheIlCollegamentoNonUsa()
{
    Apri();
    QCOMPARE(Errore_Di([this] { m_porta->InputLen(1); }), 380);
    QCOMPARE(Errore_Di([this] { m_porta->InputMode(0); }), 380);
    QCOMPARE(Errore_Di([this] { m_porta->NullDiscard(true); }), 380);
    QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(1); }), 380);
}

void tst_seriale_qt::lineaPienaNonBlocca()
{
    Apri();
    QElapsedTimer durata;
    durata.start();
    for (int giro = 0; giro < 100; ++giro) {
        m_porta->Output(QByteArray(10000, 'x'));
        QCoreApplication::processEvents();
    }
    QVERIFY(durata.elapsed() < 5000);
    // It still drains, and the line still works.
    qsizetype alCapo = 0;
    QTRY_COMPARE(alCapo += m_capo->Arrivati().size(), qsizetype(1000000));
    m_capo->Manda("abc");
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
}

void tst_seriale_qt::frameInCodaLasciatoCadere()
{
    Apri();
    m_porta->Output(QByteArray(100000, 'x'));
    QCoreApplication::processEvents();
    m_porta->OutBufferCount(0);
    m_porta->Output("nuovo");
    QByteArray alCapo;
    QTRY_VERIFY((alCapo += m_capo->Arrivati()).endsWith("nuovo"));
    QVERIFY(alCapo.size() < 100000);
}

void tst_seriale_qt::chiusuraNonAspettaLaLineaPiena()
{
    Apri();
    m_porta->Output(QByteArray(100000, 'x'));
    QCoreApplication::processEvents();
    QElapsedTimer durata;
    durata.start();
    m_porta->PortOpen(false);
    QVERIFY(durata.elapsed() < 1000);
}

/// What has not gone out would be waited for, and what has come in would be the first reply of the next
/// session.
void tst_seriale_qt::chiusuraSvuotaLeCode()
{
    const PortaVera porta;
    Apri();
    QCOMPARE(porta.Svuotati, QList<int>());
    m_porta->PortOpen(false);
    QCOMPARE(porta.Svuotati, QList<int>{TCIOFLUSH});
}

void tst_seriale_qt::ingressoPienoPerdeIlResto()
{
    Apri();
    m_porta->RThreshold(0); // nobody takes them
    const int vicino = open(qPrintable(m_capo->Nome()), O_RDWR | O_NOCTTY | O_NONBLOCK);
    QVERIFY(vicino >= 0);
    const auto presi_tutti = [vicino] {
        int restano = -1;
        return ioctl(vicino, FIONREAD, &restano) == 0 && restano == 0;
    };
    QByteArray byte;
    for (int i = 0; i < 1500; ++i)
        byte.append(static_cast<char>('0' + i % 60));
    m_capo->Manda(byte);
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(1024));
    QTRY_VERIFY(presi_tutti());
    QCOMPARE(m_porta->Input(), byte.first(1024));
    m_capo->Manda("abc");
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(3));
    QCOMPARE(m_porta->Input(), QByteArray("abc"));
    close(vicino);
}

void tst_seriale_qt::rafficaFraDueGiri()
{
    Apri();
    m_porta->Settings(QStringLiteral("115200,N,8,1"));
    const QByteArray risposta = Risposta_Stato('1');
    const qsizetype quante = BUFFER_INGRESSO / risposta.size();
    QByteArray raffica = risposta.repeated(quante);
    raffica += QByteArray(BUFFER_INGRESSO - raffica.size(), 'x'); // noise between two frames
    Assemblatore ricezione;
    for (int giro = 0; giro < 5; ++giro) {
        m_arrivati.clear();
        m_capo->Manda(raffica); // nobody turns the loop until all is there
        QTRY_COMPARE(m_arrivati.size(), raffica.size());
        QCOMPARE(m_arrivati, raffica);
        QCOMPARE(Risposte_Valide(ricezione, m_arrivati), quante);
    }
}

void tst_seriale_qt::cavoStaccato_data()
{
    QTest::addColumn<bool>("riaggancio");
    QTest::newRow("l'altro capo si chiude") << false;
    QTest::newRow("il dispositivo sparisce") << true;
}

void tst_seriale_qt::cavoStaccato()
{
    QFETCH(bool, riaggancio);
    Apri();
    m_capo->Manda("abc");
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
    m_eventi = 0;
    if (riaggancio) {
        // What the system does with the open port of an adapter that is pulled out.
        const int vicino = open(qPrintable(m_capo->Nome()), O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (vicino < 0 || ioctl(vicino, TIOCVHANGUP) != 0)
            QSKIP("only root may hang up a terminal");
        close(vicino);
    } else {
        m_capo->Stacca();
    }

    const double prima = Secondi_Processore();
    const QDeadlineTimer unPo(500);
    QTRY_VERIFY(unPo.hasExpired());
    QVERIFY(Secondi_Processore() - prima < 0.15); // a loop that never sleeps takes all of it
    QCOMPARE(m_eventi, 0);

    QCOMPARE(Errore_Di([this] { m_porta->Settings(QStringLiteral("9600,N,8,1")); }), 0);
    Verifica_Sorda();
    QCOMPARE(m_eventi, 0);
}

void tst_seriale_qt::ultimiByteAncoraLeggibili()
{
    Apri();
    m_porta->RThreshold(0);
    m_capo->Manda("abc");
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(3));
    m_capo->Stacca();
    const QDeadlineTimer unPo(100);
    QTRY_VERIFY(unPo.hasExpired());
    QCOMPARE(m_porta->Input(), QByteArray("abc"));
}

void tst_seriale_qt::letturaGuastaNonPerdeLaLinea()
{
    PortaVera porta;
    Apri();
    porta.LettureGuaste = 1;
    m_capo->Manda("abc");
    QTRY_COMPARE(porta.LettureGuaste, 0);
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
    QVERIFY(m_porta->PortOpen());
}

/// A device in trouble without a hang-up is given up like one that was pulled out: it would wake the program
/// for ever.
void tst_seriale_qt::dispositivoRottoLasciato()
{
    PortaVera porta;
    Apri();
    porta.Rotta = true;
    porta.LettureGuaste = 1;
    m_capo->Manda("abc");
    QTRY_COMPARE(porta.LettureGuaste, 0);
    QTRY_COMPARE(porta.Svuotati, QList<int>{TCIOFLUSH}); // closed, and not looked at once more
    QVERIFY(m_porta->PortOpen());
    QCOMPARE(Errore_Di([this] { m_porta->Output("frame"); }), 0);
    QCOMPARE(m_capo->Arrivati(), QByteArray());
    QCOMPARE(m_eventi, 0);
}

// --- an adapter pulled out --------------------------------------------------------------------------------

void tst_seriale_qt::adattatoreRimessoFraDueSessioni()
{
    Apri();
    Verifica_Linea();
    m_porta->PortOpen(false);
    Togli_Adattatore();
    // Port 7 is then the seventh port of the machine itself, which hardly any has.
    if (!QFile::exists(QStringLiteral("/dev/ttyS6")))
        QCOMPARE(Errore_Di([this] { Apri(); }), 8002);
    m_porta->PortOpen(false);
    Rimetti_Adattatore();
    Apri();
    Verifica_Linea();
}

/// The session that lost it does not get it back, and lets go of the device; the next one has it.
void tst_seriale_qt::adattatoreRimessoASessioneAperta()
{
    const qsizetype aperti = File_Aperti();
    Apri();
    Verifica_Linea();
    Togli_Adattatore();
    QTRY_COMPARE(File_Aperti(), aperti - 1); // without the far end
    Rimetti_Adattatore();
    Verifica_Sorda();
    QCOMPARE(m_capo->Arrivati(), QByteArray());
    Apri();
    Verifica_Linea();
}

void tst_seriale_qt::adattatoreToltoDuranteLApertura_data()
{
    QTest::addColumn<bool>("lineeModem");
    QTest::newRow("porta vera") << true;
    QTest::newRow("pseudo terminale") << false;
}

/// Before every single call of the opening and of the settings.
void tst_seriale_qt::adattatoreToltoDuranteLApertura()
{
    QFETCH(bool, lineeModem);
    PortaVera porta;
    porta.LineeModem = lineeModem;
    int chiamate = 0;
    porta.Chiamata = [&chiamate] { ++chiamate; };
    Apri();
    const int tutte = chiamate;
    QVERIFY(tutte > 5);
    m_porta->PortOpen(false);
    const qsizetype aperti = File_Aperti();
    for (int quale = 1; quale <= tutte; ++quale) {
        porta.Formato = {};
        porta.Chiamata = [this, &chiamate, quale] {
            if (++chiamate == quale)
                m_capo->Stacca();
        };
        chiamate = 0;
        const int errore = Errore_Di([this] { Apri(); });
        QVERIFY2(errore == 8002 || errore == 0, qPrintable(QStringLiteral("%1: %2").arg(quale).arg(errore)));
        QCOMPARE(m_porta->PortOpen(), errore == 0);
        QTRY_COMPARE(File_Aperti(), aperti - 1); // without the far end
        m_eventi = 0;
        if (errore == 0)
            Verifica_Sorda();
        QCOMPARE(m_eventi, 0);

        porta.Chiamata = nullptr;
        QVERIFY(QFile::remove(Legame()));
        Rimetti_Adattatore();
        Apri();
        Verifica_Linea();
        m_porta->PortOpen(false);
    }
}

QTEST_GUILESS_MAIN(tst_seriale_qt)
#include "tst_seriale_qt.moc"
