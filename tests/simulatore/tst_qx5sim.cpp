// The program as it is started: a process, its pseudo terminal, real frames.
#include "tests/simulatore/byte_prova.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int ATTESA_MS = 10000;

/// The running program.
class Simulatore
{
public:
    explicit Simulatore(const QStringList &argomenti, const QString &programma = QStringLiteral(QX5SIM))
    {
        m_processo.start(programma, argomenti);
    }
    ~Simulatore() { Termina(); }

    /// What stands behind the next "pronto: "; empty when the program ends or tarries.
    QString Pronto()
    {
        while (m_processo.canReadLine() || m_processo.waitForReadyRead(ATTESA_MS)) {
            while (m_processo.canReadLine()) {
                const QString riga = QString::fromUtf8(m_processo.readLine()).trimmed();
                if (riga.startsWith(u"pronto: "))
                    return riga.sliced(8);
            }
        }
        return {};
    }
    /// Asks it to end, as the system does. @return true when it ended well.
    bool Termina()
    {
        if (m_processo.state() != QProcess::NotRunning)
            m_processo.terminate();
        return Finito() && m_processo.exitCode() == 0;
    }
    bool Interrompi()
    {
        if (m_processo.state() != QProcess::Running)
            return false; // without a process the signal would go to this test's own group
        ::kill(static_cast<pid_t>(m_processo.processId()), SIGINT);
        return Finito() && m_processo.exitCode() == 0;
    }
    void Uccidi()
    {
        m_processo.kill();
        m_processo.waitForFinished(ATTESA_MS);
    }
    bool Finito()
    {
        return (m_processo.state() == QProcess::NotRunning || m_processo.waitForFinished(ATTESA_MS)) &&
               m_processo.exitStatus() == QProcess::NormalExit;
    }
    qint64 Numero() const { return m_processo.processId(); }
    int Codice() { return Finito() ? m_processo.exitCode() : -1; }
    QString Uscita() { return QString::fromUtf8(m_processo.readAllStandardOutput()); }
    QString Errori() { return QString::fromUtf8(m_processo.readAllStandardError()); }

private:
    QProcess m_processo;
};

/// The station's end of the line, open for the life of the object.
class Sessione
{
public:
    explicit Sessione(const QString &porta)
        : m_porta(::open(QFile::encodeName(porta).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
    }
    explicit Sessione(int porta) : m_porta(porta) {}
    ~Sessione() { ::close(m_porta); }
    Sessione(const Sessione &) = delete;
    Sessione &operator=(const Sessione &) = delete;

    bool Aperta() const { return m_porta >= 0; }
    void Manda(const QByteArray &byte) const
    {
        QCOMPARE(::write(m_porta, byte.constData(), static_cast<size_t>(byte.size())), byte.size());
    }
    /// Bytes up to the first end byte; fewer when the line is gone or silent.
    QByteArray Ricevi() const
    {
        QByteArray ricevuti;
        char byte = 0;
        while (!ricevuti.endsWith('\x03') && Attendi() && ::read(m_porta, &byte, 1) == 1)
            ricevuti.append(byte);
        return ricevuti;
    }
    QByteArray Chiedi(const QByteArray &byte) const
    {
        Manda(byte);
        return Ricevi();
    }
    /// True when the other end hangs up.
    bool Staccata() const
    {
        pollfd chiesto{m_porta, POLLIN, 0};
        return ::poll(&chiesto, 1, ATTESA_MS) == 1 && (chiesto.revents & POLLHUP) != 0;
    }

private:
    bool Attendi() const
    {
        pollfd chiesto{m_porta, POLLIN, 0};
        return ::poll(&chiesto, 1, ATTESA_MS) == 1;
    }

    int m_porta;
};

/// A line whose far end a program opens by its name: an instrument, or a station, of this test's own.
struct Cavo
{
    Cavo()
    {
        const int capo = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        if (capo < 0 || ::grantpt(capo) != 0 || ::unlockpt(capo) != 0)
            qFatal("no pseudo terminal");
        nome = QFile::decodeName(::ptsname(capo));
        vicino = std::make_unique<Sessione>(capo);
    }
    QString nome;
    std::unique_ptr<Sessione> vicino;
};

/// A bridge between two lines of this test's own.
class PonteProva
{
public:
    explicit PonteProva(const QString &registrazione, const QStringList &altri = {})
        : m_simulatore(QStringList{QStringLiteral("--ponte"), strumento.nome, QStringLiteral("--dispositivo"),
                                   stazione.nome, QStringLiteral("--registrazione"), registrazione} +
                       altri)
    {
    }
    Simulatore *operator->() { return &m_simulatore; }

    Cavo strumento;
    Cavo stazione;

private:
    Simulatore m_simulatore;
};

/// Processor time of the programs that have ended, in seconds.
double Secondi_Dei_Finiti()
{
    rusage uso = {};
    ::getrusage(RUSAGE_CHILDREN, &uso);
    const auto secondi = [](const timeval &t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
    };
    return secondi(uso.ru_utime) + secondi(uso.ru_stime);
}

/// A command with a payload, sent and answered as a write.
const QByteArray SCRIVI_DATI2 = Byte("02 41 42 43 80 41 42 17 00 36 03");

} // namespace

class tst_qx5sim : public QObject
{
    Q_OBJECT

    QString File(const QString &nome) const { return m_cartella->filePath(nome); }
    QString Scenario(const QByteArray &testo) const;
    QString Esempio(const QString &nome) const { return QStringLiteral(QX5SIM_SCENARI) + nome; }
    QByteArray Registro() const;
    QByteArray Registrazione() const;
    QString Registra() const { return File(QStringLiteral("r.txt")); }
    qsizetype Registrate(const QByteArray &segno) const { return Registro().count(segno); }

    std::unique_ptr<QTemporaryDir> m_cartella;

private Q_SLOTS:
    void init() { m_cartella = std::make_unique<QTemporaryDir>(); }

    void aiutoInItaliano();
    void versione();
    void opzioneErrata();
    void linguaDelSistema();
    void inInglese_data();
    void inInglese();
    void registroInInglese();
    void finestraInInglese();
    void scenarioErrato();
    void rispondeSulTerminale();
    void riapertaDopoLaChiusura();
    void rispostaTraDueSessioniPerduta();
    void rispostaNonLettaNonPassaAllaSessioneDopo();
    void collegamentoFattoETolto();
    void collegamentoToltoAllInterruzione();
    void collegamentoVecchioSostituito();
    void fileAlPostoDelCollegamento();
    void collegamentoDiUnAltroLasciato();
    void statoConservato();
    void senzaFileDiStatoNienteResta();
    void riaggancio();
    void dispositivoVero();
    void dispositivoMancante();
    void dispositivoPerduto();
    void ponteTrasparente();
    void ponteSenzaStrumento();
    void ponteStrumentoPerduto();
    void ponteStazionePerduta();
    void ponteSenzaPiuSpazio();
    void ponteNonCopreUnaRegistrazione();
    void ponteSenzaStazioneNonLasciaFile();
    void ponteUccisoLasciaLaRegistrazione();
    void registrazioneRiprodotta_data();
    void registrazioneRiprodotta();
    void riproduzioneAccelerata_data();
    void riproduzioneAccelerata();
    void riproduzioneDiversa();
    void riproduzioneErrata();
    void finestraSenzaIlSuoModulo();
    void registroLeggibile();
    void scenariDiEsempio_data();
    void scenariDiEsempio();
    void treVeicoliDiEsempio();
    void mutoDiEsempio();
    void controlloErratoDiEsempio();
};

QString tst_qx5sim::Scenario(const QByteArray &testo) const
{
    QFile file(File(QStringLiteral("scenario.ini")));
    if (!file.open(QIODevice::WriteOnly) || file.write(testo) != testo.size())
        qFatal("cannot write the scenario");
    return file.fileName();
}

QByteArray tst_qx5sim::Registro() const
{
    QFile file(File(QStringLiteral("registro.txt")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tst_qx5sim::Registrazione() const
{
    QFile file(Registra());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_qx5sim::aiutoInItaliano()
{
    Simulatore simulatore({QStringLiteral("--help")});
    QCOMPARE(simulatore.Codice(), 0);
    const QString aiuto = simulatore.Uscita();
    QVERIFY(aiuto.startsWith(QStringLiteral("Uso: qx5sim [opzioni] [scenario.ini]")));
    QVERIFY(aiuto.contains(QStringLiteral("--collega PERCORSO")));
}

void tst_qx5sim::versione()
{
    Simulatore simulatore({QStringLiteral("--version")});
    QCOMPARE(simulatore.Codice(), 0);
    QVERIFY(QRegularExpression(QStringLiteral("^qx5sim \\d+\\.\\d+\\.\\d+\n$"))
                .match(simulatore.Uscita())
                .hasMatch());
}

void tst_qx5sim::opzioneErrata()
{
    Simulatore simulatore({QStringLiteral("--muto")});
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY(simulatore.Errori().contains(QStringLiteral("opzione sconosciuta: muto")));
}

void tst_qx5sim::linguaDelSistema()
{
    const auto aiuto = [](const char16_t *lingua) {
        Simulatore simulatore({QStringLiteral("LANGUAGE="),
                               QStringLiteral("LC_ALL=") + QString::fromUtf16(lingua), QStringLiteral(QX5SIM),
                               QStringLiteral("--help")},
                              QStringLiteral("/usr/bin/env"));
        return simulatore.Codice() == 0 ? simulatore.Uscita() : QString();
    };
    QVERIFY(aiuto(u"it_IT.UTF-8").startsWith(QStringLiteral("Uso: ")));
    QVERIFY(aiuto(u"C.UTF-8").startsWith(QStringLiteral("Uso: ")));
    QVERIFY(aiuto(u"en_GB.UTF-8").startsWith(QStringLiteral("Usage: ")));
    QVERIFY(aiuto(u"fr_FR.UTF-8").startsWith(QStringLiteral("Usage: ")));
}

void tst_qx5sim::inInglese_data()
{
    QTest::addColumn<QStringList>("argomenti");
    QTest::addColumn<QString>("errore");
    const QString manca = QStringLiteral("/manca/file");
    const QString scenario = QStringLiteral("SCENARIO"); // what it stands for is written by the test
    QTest::newRow("opzione") << QStringList(QStringLiteral("--muto"))
                             << QStringLiteral("unknown option: muto (qx5sim --help)");
    QTest::newRow("valore") << QStringList(QStringLiteral("--stato"))
                            << QStringLiteral("an option lacks its value");
    QTest::newRow("accordo") << QStringList({QStringLiteral("--accelera"), QStringLiteral("2")})
                             << QStringLiteral("--accelera goes with --riproduci");
    QTest::newRow("numero") << QStringList({QStringLiteral("--seme"), QStringLiteral("x")})
                            << QStringLiteral("--seme and --velocita take a number");
    QTest::newRow("passo") << QStringList({QStringLiteral("--riproduci"), manca, QStringLiteral("--accelera"),
                                           QStringLiteral("x")})
                           << QStringLiteral("--accelera takes a number from 0 to 1000: ");
    QTest::newRow("scenario che manca")
        << QStringList(manca) << QStringLiteral("qx5sim: /manca/file: cannot be read");
    QTest::newRow("fascio") << QStringList(scenario)
                            << QStringLiteral("[VEICOLO1] AnabSx: \"12\" is not made of four digits");
    QTest::newRow("numero dello scenario")
        << QStringList(scenario) << QStringLiteral("[VEICOLO1] Riposo: \"x\" is no number from 0 to 60000");
    QTest::newRow("guasto dello scenario")
        << QStringList(scenario) << QStringLiteral("[VEICOLO1] Guasto1: unknown fault \"muto\"");
    QTest::newRow("registrazione") << QStringList({QStringLiteral("--riproduci"), scenario})
                                   << QStringLiteral("this is no record of qx5sim");
    QTest::newRow("collegamento") << QStringList({QStringLiteral("--collega"), scenario})
                                  << QStringLiteral("it is there and is not a link");
}

void tst_qx5sim::inInglese()
{
    QFETCH(QStringList, argomenti);
    QFETCH(QString, errore);
    const QString scenario = Scenario("[VEICOLO1]\nAnabSx=12\nRiposo=x\nGuasto1=Stato;1;muto\n");
    argomenti.replaceInStrings(QStringLiteral("SCENARIO"), scenario);
    Simulatore simulatore(QStringList({QStringLiteral("--lingua"), QStringLiteral("en")}) + argomenti);
    QCOMPARE(simulatore.Codice(), 1);
    const QString detto = simulatore.Errori();
    QVERIFY2(detto.contains(errore), qUtf8Printable(detto));
}

void tst_qx5sim::registroInInglese()
{
    Simulatore simulatore({QStringLiteral("--lingua"), QStringLiteral("EN"), QStringLiteral("--registro"),
                           File(QStringLiteral("registro.txt")),
                           Scenario("[VEICOLO1]\nRiposo=1\nProva=1\nGuasto1=Stato;3;silenzio\n")});
    {
        const Sessione sessione(simulatore.Pronto()); // the same word in every language
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
        QCOMPARE(sessione.Chiedi(STATO), IN_PROVA);
        sessione.Manda(STATO);
        QTRY_COMPARE(Registrate("-- fault silenzio: \"4\" measure ready is not sent\n"), 1);
        QCOMPARE(sessione.Chiedi(MISURA).size(), 30);
        QCOMPARE(sessione.Chiedi(SCRIVI_DATI2), SCRITTO);
        sessione.Manda(Byte("02 41 42 43 11 37 03"));
        QTRY_COMPARE(Registrate("unknown command: no reply\n"), 1);
    }
    QTRY_COMPARE(Registrate("-- the station has closed the port\n"), 1);
    for (const char *riga : {"-- qx5sim ", ", seed ", "-- new vehicle: AnabSx=0250OO", "\"1\" idle\n",
                             "\"2\" measuring\n", "  measure AnabSx=0250OO", "  written\n"})
        QVERIFY2(Registrate(riga) >= 1, Registro().constData());
}

/// The window's module has its words to itself: it takes the language that the program was given.
void tst_qx5sim::finestraInInglese()
{
    for (const auto &[lingua, detto] : {
             std::pair{u"EN", u"it is there and is not a link"  },
             {u"DE", u"it is there and is not a link"  },
             {u"IT", u"esiste e non è un collegamento"}
    })
    {
        Simulatore simulatore({QStringLiteral("--finestra"), QStringLiteral("--lingua"),
                               QString::fromUtf16(lingua), QStringLiteral("--collega"),
                               Scenario("[GENERALE]\n")});
        QCOMPARE(simulatore.Codice(), 1);
        const QString errori = simulatore.Errori();
        QVERIFY2(errori.contains(QString::fromUtf16(detto)), qUtf8Printable(errori));
    }
}

void tst_qx5sim::scenarioErrato()
{
    Simulatore simulatore({Scenario("[VEICOLO1]\nAnabSx=12\n")});
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY(simulatore.Errori().contains(QStringLiteral("[VEICOLO1] AnabSx")));
}

void tst_qx5sim::rispondeSulTerminale()
{
    Simulatore simulatore(
        {Scenario("[VEICOLO1]\nRiposo=1\nProva=1\nAnabSx=0123OO\nAbbSx=0456OO\nAnabDx=0125AO\n"
                  "AbbDx=0460OS\n")});
    const Sessione sessione(simulatore.Pronto());
    QVERIFY(sessione.Aperta());
    QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    QCOMPARE(sessione.Chiedi(STATO), IN_PROVA);
    QCOMPARE(sessione.Chiedi(STATO), PRONTA);
    QCOMPARE(sessione.Chiedi(MISURA),
             Byte("02 41 42 43 30 31 32 33 4F 4F 30 34 35 36 4F 4F 30 31 32 35 41 4F 30 34 "
                  "36 30 4F 53 33 03"));
    QCOMPARE(sessione.Chiedi(SCRIVI_DATI2), SCRITTO);
    QVERIFY(simulatore.Termina());
}

void tst_qx5sim::riapertaDopoLaChiusura()
{
    Simulatore simulatore({Scenario("[VEICOLO1]\nRiposo=100\n")});
    const QString porta = simulatore.Pronto();
    for (int n = 0; n < 10; ++n) {
        const Sessione sessione(porta);
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    }
}

void tst_qx5sim::rispostaTraDueSessioniPerduta()
{
    Simulatore simulatore({QStringLiteral("--registro"), File(QStringLiteral("registro.txt")),
                           Scenario("[VEICOLO1]\nRiposo=1\nGuasto1=Stato;1;seconda;400\n")});
    const QString porta = simulatore.Pronto();
    {
        const Sessione sessione(porta);
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    }
    QTRY_COMPARE(Registrate(" perduta: "), 1);
    QCOMPARE(Registrate(" -> "), 1);
    const Sessione sessione(porta);
    QCOMPARE(sessione.Chiedi(STATO), IN_PROVA);
}

void tst_qx5sim::rispostaNonLettaNonPassaAllaSessioneDopo()
{
    Simulatore simulatore({QStringLiteral("--registro"), File(QStringLiteral("registro.txt")),
                           Scenario("[VEICOLO1]\nRiposo=1\n")});
    const QString porta = simulatore.Pronto();
    {
        const Sessione sessione(porta);
        sessione.Manda(STATO);
        QTRY_COMPARE(Registrate(" -> "), 1);
    }
    QTRY_COMPARE(Registrate("la stazione ha chiuso la porta"), 1);
    const Sessione sessione(porta);
    QCOMPARE(sessione.Chiedi(STATO), IN_PROVA);
}

void tst_qx5sim::collegamentoFattoETolto()
{
    const QString collegamento = File(QStringLiteral("porte/COM1"));
    Simulatore simulatore({QStringLiteral("--collega"), collegamento});
    const QString porta = simulatore.Pronto();
    QVERIFY(!porta.isEmpty());
    QCOMPARE(QFileInfo(collegamento).symLinkTarget(), porta);
    {
        const Sessione sessione(collegamento);
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    }
    QVERIFY(simulatore.Termina());
    QVERIFY(
        QDir(File(QStringLiteral("porte"))).isEmpty(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot));
}

void tst_qx5sim::collegamentoToltoAllInterruzione()
{
    const QString collegamento = File(QStringLiteral("COM1"));
    Simulatore simulatore({QStringLiteral("--collega"), collegamento});
    QVERIFY(!simulatore.Pronto().isEmpty());
    QVERIFY(QFileInfo(collegamento).isSymLink());
    QVERIFY(simulatore.Interrompi());
    QVERIFY(!QFileInfo(collegamento).isSymLink());
}

void tst_qx5sim::collegamentoVecchioSostituito()
{
    const QString collegamento = File(QStringLiteral("COM1"));
    QVERIFY(QFile::link(QStringLiteral("/dev/pts/manca"), collegamento));
    Simulatore simulatore({QStringLiteral("--collega"), collegamento});
    const QString porta = simulatore.Pronto();
    QVERIFY(!porta.isEmpty());
    QCOMPARE(QFileInfo(collegamento).symLinkTarget(), porta);
}

void tst_qx5sim::fileAlPostoDelCollegamento()
{
    Simulatore simulatore({QStringLiteral("--collega"), Scenario("[GENERALE]\n")});
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY(simulatore.Errori().contains(QStringLiteral("non è un collegamento")));
    QCOMPARE(QFileInfo(File(QStringLiteral("scenario.ini"))).size(), 11);
}

void tst_qx5sim::collegamentoDiUnAltroLasciato()
{
    const QString collegamento = File(QStringLiteral("COM1"));
    Simulatore primo({QStringLiteral("--collega"), collegamento});
    QVERIFY(!primo.Pronto().isEmpty());
    Simulatore secondo({QStringLiteral("--collega"), collegamento});
    const QString porta = secondo.Pronto();
    QVERIFY(primo.Termina());
    QCOMPARE(QFileInfo(collegamento).symLinkTarget(), porta);
}

void tst_qx5sim::statoConservato()
{
    const QStringList argomenti = {QStringLiteral("--stato"), File(QStringLiteral("stato.ini"))};
    {
        Simulatore simulatore(argomenti);
        const Sessione sessione(simulatore.Pronto());
        QCOMPARE(sessione.Chiedi(SCRIVI_DATI2), SCRITTO);
    }
    Simulatore simulatore(argomenti);
    const Sessione sessione(simulatore.Pronto());
    QVERIFY(sessione.Chiedi(LEGGI_DATI).chopped(2).endsWith(Byte("17 41 42 17")));
}

void tst_qx5sim::senzaFileDiStatoNienteResta()
{
    QByteArray iniziali;
    for (int n = 0; n < 2; ++n) {
        Simulatore simulatore({});
        const Sessione sessione(simulatore.Pronto());
        const QByteArray dati = sessione.Chiedi(LEGGI_DATI);
        if (n == 0)
            iniziali = dati;
        QCOMPARE(dati, iniziali);
        QCOMPARE(sessione.Chiedi(SCRIVI_DATI2), SCRITTO);
        QVERIFY(sessione.Chiedi(LEGGI_DATI) != iniziali);
    }
}

void tst_qx5sim::riaggancio()
{
    const QString collegamento = File(QStringLiteral("COM1"));
    Simulatore simulatore({QStringLiteral("--collega"), collegamento,
                           Scenario("[VEICOLO1]\nRiposo=1\nProva=2\nGuasto1=Stato;2;riaggancio;300\n")});
    QVERIFY(!simulatore.Pronto().isEmpty());
    const Sessione staccata(collegamento);
    QCOMPARE(staccata.Chiedi(STATO), A_RIPOSO);
    staccata.Manda(STATO);
    QVERIFY(staccata.Staccata());
    const QString nuova = simulatore.Pronto();
    QVERIFY(!nuova.isEmpty());
    QCOMPARE(QFileInfo(collegamento).symLinkTarget(), nuova);
    const Sessione sessione(collegamento);
    QCOMPARE(sessione.Chiedi(STATO), IN_PROVA);
    QCOMPARE(sessione.Chiedi(STATO), PRONTA);
}

void tst_qx5sim::dispositivoVero()
{
    // The device is the far end of a terminal of this test's own; the station sits at the near one.
    const int vicino = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    QVERIFY(vicino >= 0 && ::grantpt(vicino) == 0 && ::unlockpt(vicino) == 0);
    const Sessione sessione(vicino);
    const QString lontano = QFile::decodeName(::ptsname(vicino));
    Simulatore simulatore({QStringLiteral("--dispositivo"), lontano});
    QCOMPARE(simulatore.Pronto(), lontano);
    QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    QVERIFY(sessione.Chiedi(LEGGI_DATI).startsWith(Byte("02 41 42 43 55")));
    QVERIFY(simulatore.Termina());
}

void tst_qx5sim::dispositivoMancante()
{
    Simulatore simulatore({QStringLiteral("--dispositivo"), File(QStringLiteral("manca"))});
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY(simulatore.Errori().startsWith(QStringLiteral("qx5sim: ") + File(QStringLiteral("manca"))));
}

void tst_qx5sim::dispositivoPerduto()
{
    // The other end of the terminal is closed: to the program that is an adapter pulled out.
    const int vicino = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC); // not the program's too
    QVERIFY(vicino >= 0 && ::grantpt(vicino) == 0 && ::unlockpt(vicino) == 0);
    const QString lontano = QFile::decodeName(::ptsname(vicino));
    auto sessione = std::make_unique<Sessione>(vicino);
    const double prima = Secondi_Dei_Finiti();
    Simulatore simulatore({QStringLiteral("--dispositivo"), lontano, QStringLiteral("--registro"),
                           File(QStringLiteral("registro.txt"))});
    QCOMPARE(simulatore.Pronto(), lontano);
    QCOMPARE(sessione->Chiedi(STATO), A_RIPOSO);
    sessione.reset();
    QCOMPARE(simulatore.Codice(), 2);
    const QString perche = lontano + QStringLiteral(": il dispositivo non c'è più\n");
    QCOMPARE(simulatore.Errori(), QStringLiteral("qx5sim: ") + perche);
    QVERIFY(QString::fromUtf8(Registro()).endsWith(QStringLiteral("-- ") + perche));
    QVERIFY(Secondi_Dei_Finiti() - prima < 1);
}

void tst_qx5sim::ponteTrasparente()
{
    PonteProva ponte(Registra());
    QCOMPARE(ponte->Pronto(), ponte.stazione.nome);
    QByteArray tutti;
    for (int b = 255; b >= 0; --b)
        tutti.append(static_cast<char>(b)); // the end byte, where the test stops reading, near the end
    const QByteArray letti = tutti.first(253);
    ponte.stazione.vicino->Manda(letti);
    QCOMPARE(ponte.strumento.vicino->Ricevi(), letti);
    ponte.strumento.vicino->Manda(letti);
    QCOMPARE(ponte.stazione.vicino->Ricevi(), letti);
    ponte.stazione.vicino->Manda(STATO);
    QCOMPARE(ponte.strumento.vicino->Ricevi(), STATO);
    QTRY_VERIFY(Registrazione().endsWith(" stazione  02 41 42 43 10 36 03\n"));
    QVERIFY(ponte->Termina());

    const QList<QByteArray> righe = Registrazione().split('\n');
    QCOMPARE(righe[0], QByteArray("qx5sim registrazione 1"));
    QVERIFY(righe[1].contains("strumento " + ponte.strumento.nome.toUtf8() + " a 9600 baud"));
    QByteArray stazione, strumento;
    for (const QByteArray &riga : righe) {
        const QByteArray esa = riga.mid(19);
        if (riga.mid(9).startsWith("stazione"))
            stazione += QByteArray::fromHex(esa);
        else if (riga.mid(9).startsWith("strumento"))
            strumento += QByteArray::fromHex(esa);
    }
    QCOMPARE(stazione, letti + STATO);
    QCOMPARE(strumento, letti);
}

void tst_qx5sim::ponteSenzaStrumento()
{
    Simulatore ponte({QStringLiteral("--ponte"), File(QStringLiteral("manca")),
                      QStringLiteral("--registrazione"), Registra()});
    QCOMPARE(ponte.Codice(), 1);
    QVERIFY(ponte.Errori().startsWith(QStringLiteral("qx5sim: ") + File(QStringLiteral("manca"))));
    QVERIFY(!QFileInfo::exists(Registra()));
}

void tst_qx5sim::ponteStrumentoPerduto()
{
    PonteProva ponte(Registra());
    QVERIFY(!ponte->Pronto().isEmpty());
    ponte.stazione.vicino->Manda(STATO);
    QCOMPARE(ponte.strumento.vicino->Ricevi(), STATO);
    ponte.strumento.vicino.reset();
    QCOMPARE(ponte->Codice(), 2);
    const QString perche = ponte.strumento.nome + QStringLiteral(": il dispositivo non c'è più\n");
    QCOMPARE(ponte->Errori(), QStringLiteral("qx5sim: ") + perche);
    const QString scritta = QString::fromUtf8(Registrazione());
    QVERIFY(scritta.contains(QStringLiteral(" stazione  02 41 42 43 10 36 03\n")));
    QVERIFY2(scritta.endsWith(perche), qUtf8Printable(scritta));
}

void tst_qx5sim::ponteStazionePerduta()
{
    PonteProva ponte(Registra());
    QVERIFY(!ponte->Pronto().isEmpty());
    ponte.stazione.vicino.reset();
    QCOMPARE(ponte->Codice(), 2);
    const QString perche = ponte.stazione.nome + QStringLiteral(": il dispositivo non c'è più\n");
    QCOMPARE(ponte->Errori(), QStringLiteral("qx5sim: ") + perche);
    QVERIFY(QString::fromUtf8(Registrazione()).endsWith(perche));
}

void tst_qx5sim::ponteSenzaPiuSpazio()
{
    // A limit on the size of files stands for the full disk: the record's head fits, the frames do not.
    const rlimit stretto = {256, 256};
    rlimit largo = {};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &largo), 0);
    const auto prima = ::signal(SIGXFSZ, SIG_IGN); // what was not written is told by the call
    PonteProva ponte(Registra());
    QVERIFY(!ponte->Pronto().isEmpty());
    QCOMPARE(::prlimit(static_cast<pid_t>(ponte->Numero()), RLIMIT_FSIZE, &stretto, nullptr), 0);
    ponte.stazione.vicino->Manda(QByteArray(200, 'x') + '\x03');
    QCOMPARE(ponte->Codice(), 2);
    QCOMPARE(ponte->Errori(),
             QStringLiteral("qx5sim: %1: la registrazione non si scrive più\n").arg(Registra()));
    QVERIFY(ponte.strumento.vicino->Ricevi().startsWith("xxx")); // passed on all the same
    ::signal(SIGXFSZ, prima);
}

void tst_qx5sim::ponteNonCopreUnaRegistrazione()
{
    QFile file(Registra());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("ieri") == 4);
    file.close();
    PonteProva ponte(Registra());
    QCOMPARE(ponte->Codice(), 1);
    QVERIFY(ponte->Errori().contains(QStringLiteral("esiste già")));
    QCOMPARE(Registrazione(), QByteArray("ieri"));
}

/// The next try under the same name must find its place free.
void tst_qx5sim::ponteSenzaStazioneNonLasciaFile()
{
    const Cavo strumento;
    Simulatore ponte({QStringLiteral("--ponte"), strumento.nome, QStringLiteral("--dispositivo"),
                      QStringLiteral("/dev/non-esiste"), QStringLiteral("--registrazione"), Registra()});
    QCOMPARE(ponte.Codice(), 1);
    QVERIFY(!QFile::exists(Registra()));
}

void tst_qx5sim::ponteUccisoLasciaLaRegistrazione()
{
    PonteProva ponte(Registra());
    QVERIFY(!ponte->Pronto().isEmpty());
    ponte.stazione.vicino->Manda(STATO);
    QCOMPARE(ponte.strumento.vicino->Ricevi(), STATO);
    QTRY_VERIFY(Registrazione().endsWith(" stazione  02 41 42 43 10 36 03\n"));
    ponte->Uccidi();
    QVERIFY(Registrazione().endsWith(" stazione  02 41 42 43 10 36 03\n"));
}

void tst_qx5sim::registrazioneRiprodotta_data()
{
    QTest::addColumn<QStringList>("opzioni");
    QTest::addColumn<qint64>("almeno"); // ms of the whole
    QTest::newRow("con i suoi tempi") << QStringList() << qint64{750};
    QTest::newRow("alla metà") << QStringList({QStringLiteral("--accelera"), QStringLiteral("0.5")})
                               << qint64{1500};
    QTest::newRow("svelta") << QStringList(QStringLiteral("--svelto")) << qint64{0};
}

void tst_qx5sim::registrazioneRiprodotta()
{
    QFETCH(QStringList, opzioni);
    QFETCH(qint64, almeno);
    QByteArrayList risposte;
    {
        Simulatore strumento({Scenario("[GENERALE]\nRitardo=200\n[VEICOLO1]\nRiposo=1\nProva=1\n")});
        Simulatore ponte(
            {QStringLiteral("--ponte"), strumento.Pronto(), QStringLiteral("--registrazione"), Registra()});
        const QString porta = ponte.Pronto();
        for (const QByteArray &comando : {STATO, STATO, STATO, MISURA})
            risposte.append(Sessione(porta).Chiedi(comando)); // a session each
        QTRY_VERIFY(Registrazione().contains("la stazione ha chiuso la porta"));
        QVERIFY(ponte.Termina());
    }
    QCOMPARE(risposte.first(), A_RIPOSO);

    Simulatore riproduzione(QStringList{QStringLiteral("--riproduci"), Registra()} + opzioni);
    const Sessione sessione(riproduzione.Pronto());
    QElapsedTimer durata;
    durata.start();
    for (const QByteArray &comando : {STATO, STATO, STATO, MISURA})
        QCOMPARE(sessione.Chiedi(comando), risposte.takeFirst());
    QVERIFY2(durata.elapsed() >= almeno, qUtf8Printable(QString::number(durata.elapsed())));
    QVERIFY(riproduzione.Termina());
}

void tst_qx5sim::riproduzioneAccelerata_data()
{
    QTest::addColumn<QStringList>("opzioni");
    QTest::newRow("mille volte") << QStringList({QStringLiteral("--accelera"), QStringLiteral("1000")});
    QTest::newRow("subito") << QStringList({QStringLiteral("--accelera"), QStringLiteral("0")});
    QTest::newRow("svelta") << QStringList(QStringLiteral("--svelto"));
}

/// The instrument of the record took a minute: longer than this test waits.
void tst_qx5sim::riproduzioneAccelerata()
{
    QFETCH(QStringList, opzioni);
    QFile file(Registra());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "qx5sim registrazione 1\n0 stazione 02 41 42 43 10 36 03\n60000 strumento 02 41 42 43 31 39 03\n");
    file.close();
    Simulatore simulatore(QStringList{QStringLiteral("--riproduci"), Registra()} + opzioni);
    QCOMPARE(Sessione(simulatore.Pronto()).Chiedi(STATO), A_RIPOSO);
    QVERIFY(simulatore.Termina());
}

void tst_qx5sim::riproduzioneDiversa()
{
    QFile file(Registra());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("qx5sim registrazione 1\n0 stazione 02 41 42 43 10 36 03\n5 strumento 02 41 42 43 31 39 03\n");
    file.close();
    Simulatore simulatore({QStringLiteral("--riproduci"), Registra(), QStringLiteral("--registro"),
                           File(QStringLiteral("registro.txt"))});
    const Sessione sessione(simulatore.Pronto());
    sessione.Manda(MISURA);
    QTRY_COMPARE(Registrate("-- diverso: nella registrazione il comando 1 è 02 41 42 43 10 36 03"), 1);
    QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    QVERIFY(!simulatore.Termina());
    QCOMPARE(simulatore.Codice(), 3);
    QCOMPARE(simulatore.Errori(),
             QStringLiteral("qx5sim: la stazione ha fatto diversamente dalla registrazione\n"));
}

void tst_qx5sim::riproduzioneErrata()
{
    Simulatore simulatore({QStringLiteral("--riproduci"), Scenario("[VEICOLO1]\n")});
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY(simulatore.Errori().contains(QStringLiteral("non è una registrazione di qx5sim")));
    Simulatore passo(
        {QStringLiteral("--riproduci"), Registra(), QStringLiteral("--accelera"), QStringLiteral("presto")});
    QCOMPARE(passo.Codice(), 1);
    QVERIFY(passo.Errori().contains(QStringLiteral("--accelera vuole un numero da 0 a 1000")));
}

void tst_qx5sim::finestraSenzaIlSuoModulo()
{
    const QString solo = File(QStringLiteral("qx5sim"));
    QVERIFY(QFile::copy(QStringLiteral(QX5SIM), solo));
    Simulatore simulatore({QStringLiteral("--finestra")}, solo);
    QCOMPARE(simulatore.Codice(), 1);
    QVERIFY2(simulatore.Errori().contains(QStringLiteral("qx5finestra")),
             qUtf8Printable(simulatore.Errori()));
}

void tst_qx5sim::registroLeggibile()
{
    Simulatore simulatore({QStringLiteral("--registro"), File(QStringLiteral("registro.txt")),
                           QStringLiteral("--seme"), QStringLiteral("5")});
    const QString porta = simulatore.Pronto();
    {
        const Sessione sessione(porta);
        QCOMPARE(sessione.Chiedi(STATO), A_RIPOSO);
    }
    QTRY_COMPARE(Registrate("la stazione ha chiuso la porta"), 1);
    const QStringList righe = QString::fromUtf8(Registro()).split(u'\n', Qt::SkipEmptyParts);
    const QRegularExpression forma(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} (--|<-|->) (.*)$"));
    QStringList testi;
    for (const QString &riga : righe) {
        const auto trovata = forma.match(riga);
        QVERIFY2(trovata.hasMatch(), qUtf8Printable(riga));
        testi.append(trovata.captured(1) + u' ' + trovata.captured(2));
    }
    QCOMPARE(testi.size(), 5);
    QVERIFY(testi[0].endsWith(QStringLiteral("seme 5")));
    QVERIFY(testi[1].startsWith(QStringLiteral("-- nuovo veicolo: AnabSx=")));
    QCOMPARE(testi[2], QStringLiteral("<- 02 41 42 43 10 36 03  Stato"));
    QCOMPARE(testi[3], QStringLiteral("-> 02 41 42 43 31 39 03  \"1\" a riposo"));
    QCOMPARE(testi[4], QStringLiteral("-- la stazione ha chiuso la porta"));
}

void tst_qx5sim::scenariDiEsempio_data()
{
    QTest::addColumn<QString>("file");
    const QStringList esempi = QDir(QStringLiteral(QX5SIM_SCENARI)).entryList({QStringLiteral("*.ini")});
    QVERIFY(esempi.size() >= 4);
    for (const QString &file : esempi)
        QTest::newRow(qUtf8Printable(file)) << file;
}

void tst_qx5sim::scenariDiEsempio()
{
    QFETCH(QString, file);
    Simulatore simulatore({Esempio(file)});
    QVERIFY2(!simulatore.Pronto().isEmpty(), qUtf8Printable(simulatore.Errori()));
    QVERIFY(simulatore.Termina());
}

void tst_qx5sim::treVeicoliDiEsempio()
{
    Simulatore simulatore({Esempio(QStringLiteral("tre_veicoli.ini"))});
    const Sessione sessione(simulatore.Pronto());
    for (const char *anabbaglianti : {"0243OO 0251OO", "0187OO 0021OO", "0305AS 0298OO", "0243OO 0251OO"}) {
        QByteArray stato;
        while (stato != PRONTA) {
            stato = sessione.Chiedi(STATO);
            QCOMPARE(stato.size(), 7);
        }
        const QByteArray misura = sessione.Chiedi(MISURA);
        QCOMPARE(misura.mid(4, 6) + ' ' + misura.mid(16, 6), QByteArray(anabbaglianti));
    }
}

void tst_qx5sim::mutoDiEsempio()
{
    Simulatore simulatore({QStringLiteral("--registro"), File(QStringLiteral("registro.txt")),
                           Esempio(QStringLiteral("muto.ini"))});
    const Sessione sessione(simulatore.Pronto());
    sessione.Manda(STATO + LEGGI_DATI);
    QTRY_COMPARE(Registrate("guasto silenzio"), 2);
    QCOMPARE(Registrate(" -> "), 0);
}

void tst_qx5sim::controlloErratoDiEsempio()
{
    Simulatore simulatore({Esempio(QStringLiteral("controllo_errato.ini"))});
    const Sessione sessione(simulatore.Pronto());
    QByteArray stato;
    while (stato != PRONTA) {
        stato = sessione.Chiedi(STATO);
        QCOMPARE(stato.size(), 7);
    }
    const QByteArray errata = sessione.Chiedi(MISURA);
    const QByteArray giusta = sessione.Chiedi(MISURA);
    QCOMPARE(errata.chopped(2), giusta.chopped(2));
    QVERIFY(errata != giusta);
}

QTEST_GUILESS_MAIN(tst_qx5sim)
#include "tst_qx5sim.moc"
