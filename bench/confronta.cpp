// Folders and files against a yardstick: what the station does, and the least that has to be done for it, in
// one process and by turns. A figure is a ratio, for the time itself says more about the machine than about
// us.
//
//   lumira-confronta [--json] [--giri N] [--solo WORD]
//   lumira-confronta --solo WORD --misura NAME --perf COMMANDS,ANSWERS --lato nostra|metro
//
// Times are the processor's, but where an operator waits. The second form is led by attrezzi/profilo.py: a
// sampler looks at that side of that measure.
#include "bench/stazione_misure.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/frmMctcO.h"
#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "toolkit/schermo.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <malloc.h>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>
#include <vector>

namespace {

/// A measure and its yardstick. Both give a figure a round.
struct Misura
{
    QString nome;
    QString unita;
    double aim = 0; ///< the ratio to the yardstick; without one, the figure itself
    std::function<double()> nostra;
    QString metroNome;
    std::function<double()> metro; ///< may be none
    int giri = 0;                  ///< at most; 0 for as many as are asked for
};

struct Esito
{
    Misura misura;
    QList<double> nostra;
    QList<double> metro;
};

// --- what is common ----------------------------------------------------------------------------------------

/// A sampler of the processor, told to look while what is measured runs, and not while its folder is made.
class Campionatore
{
public:
    /// @param tubi its two pipes, for commands and for answers, with a comma between.
    void Apri(const QString &tubi)
    {
        m_comandi = ::open(QFile::encodeName(tubi.section(u',', 0, 0)).constData(), O_WRONLY | O_CLOEXEC);
        m_risposte = ::open(QFile::encodeName(tubi.section(u',', 1)).constData(), O_RDONLY | O_CLOEXEC);
        if (m_comandi < 0 || m_risposte < 0)
            qFatal("the sampler's pipes do not open");
    }
    /// @param lato what runs from now on is of the side that is wanted.
    void Attiva(bool lato) { m_attivo = lato && m_comandi >= 0; }
    void Comincia() const { Di("enable\n"); }
    void Finisci() const { Di("disable\n"); }

private:
    void Di(QByteArrayView comando) const
    {
        std::array<char, 16> risposta;
        if (m_attivo &&
            (::write(m_comandi, comando.data(), static_cast<size_t>(comando.size())) != comando.size() ||
             ::read(m_risposte, risposta.data(), risposta.size()) <= 0))
            qFatal("the sampler has gone");
    }

    bool m_attivo = false;
    int m_comandi = -1;
    int m_risposte = -1;
};

Campionatore gCampionatore;

/// What the processor has worked for this program, in milliseconds.
double Tempo_Processore()
{
    timespec ora;
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ora);
    return static_cast<double>(ora.tv_sec) * 1e3 + static_cast<double>(ora.tv_nsec) / 1e6;
}

/// The same of a procedure.
template <typename Procedura>
double Processore(Procedura procedura)
{
    gCampionatore.Comincia();
    const double prima = Tempo_Processore();
    procedura();
    const double tempo = Tempo_Processore() - prima;
    gCampionatore.Finisci();
    return tempo;
}

/// The same a time, of a procedure too short for the clock.
template <typename Procedura>
double Processore_Medio(int volte, Procedura procedura)
{
    return Processore([&] {
               for (int i = 0; i < volte; ++i)
                   procedura();
           }) /
           volte;
}

double Minimo(const QList<double> &figure)
{
    return *std::min_element(figure.cbegin(), figure.cend());
}
double Massimo(const QList<double> &figure)
{
    return *std::max_element(figure.cbegin(), figure.cend());
}
double Mediana(QList<double> figure)
{
    std::sort(figure.begin(), figure.end());
    const qsizetype mezzo = figure.size() / 2;
    return figure.size() % 2 == 1 ? figure[mezzo] : (figure[mezzo - 1] + figure[mezzo]) / 2;
}

// --- yardsticks --------------------------------------------------------------------------------------------

struct VoceMetro
{
    std::string nome;
    struct stat stato;
};

/// The names of a folder, each with its status, as the system gives them.
std::vector<VoceMetro> Metro_Elenco(const QByteArray &cartella)
{
    std::vector<VoceMetro> voci;
    DIR *aperta = ::opendir(cartella.constData());
    while (const dirent *voce = ::readdir(aperta)) {
        VoceMetro trovata{voce->d_name, {}};
        if (::fstatat(::dirfd(aperta), voce->d_name, &trovata.stato, 0) == 0)
            voci.push_back(std::move(trovata));
    }
    ::closedir(aperta);
    return voci;
}

/// A listing, and every plain file of it opened and read.
void Metro_Lettura(const QByteArray &cartella)
{
    static std::array<char, 65536> byte;
    const int folder = ::open(cartella.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (const VoceMetro &voce : Metro_Elenco(cartella)) {
        if (!S_ISREG(voce.stato.st_mode))
            continue;
        const int file = ::openat(folder, voce.nome.c_str(), O_RDONLY | O_CLOEXEC);
        while (::read(file, byte.data(), byte.size()) > 0) {
        }
        ::close(file);
    }
    ::close(folder);
}

/// The toolkit's own reading of such a file, told the file at each value as ours is.
void Metro_Tabella(const QString &nativo, qint16 ultimo, QStringList &tabella)
{
    tabella.resize(ultimo + 1);
    for (qint16 id = 0; id <= ultimo; ++id)
        tabella[id] =
            QSettings(nativo, QSettings::IniFormat).value(gLingua + u'/' + Lingua_Id(id)).toString();
}

// --- measures ----------------------------------------------------------------------------------------------

QByteArray Cartella_Nativa(const Stazione &stazione)
{
    return QFile::encodeName(stazione.Nativo(QString()));
}

QString Controllo_Di(const QString &file)
{
    QString rapporto;
    Acc_Apri(file);
    if (Acc_Controlla(file, rapporto) != AccBuona)
        qFatal("the file does not pass");
    return rapporto;
}

void Prepara_Controllo()
{
    gControlloVisivo = Vero;
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
}

constexpr int FILE_PIENA = 10000;
constexpr int VOLTE_CONTROLLO = 20;

/// As the worklist asks for it: its lines are in capitals.
double Controllo_In_Capitali()
{
    const QString file = gDirAcc + QStringLiteral("12345678.ACC");
    return Processore_Medio(VOLTE_CONTROLLO, [&file] { Controllo_Di(file); });
}

QList<Misura> Controllo()
{
    auto piena = std::make_shared<Stazione>();
    piena->Accettazioni(FILE_PIENA);
    auto sola = std::make_shared<Stazione>();
    Stazione::Invecchia();
    Prepara_Controllo();
    const auto in = [](const std::shared_ptr<Stazione> &stazione) {
        stazione->Metti_In_Vigore();
        gControlloVisivo = Vero;
    };
    const auto nellaPiena = [=] {
        in(piena);
        return Controllo_In_Capitali();
    };
    const auto daSolo = [=] {
        in(sola);
        const QString file = gDirAcc + QStringLiteral("12345678.acc");
        return Processore_Medio(VOLTE_CONTROLLO, [&file] { Controllo_Di(file); });
    };
    return {
        {QStringLiteral("check of a file in a folder of 10,000, asked for in capitals"), QStringLiteral("ms"),
         1.1, nellaPiena, QStringLiteral("the same file alone, as it is spelled"), daSolo, 0},
        {QStringLiteral("check of a file in a folder of 10,000, the time itself"),
         QStringLiteral("ms"),
         0.2, nellaPiena,
         {},
         {},
         0                                                                                  },
    };
}

QList<Misura> Sondaggio()
{
    auto stazione = std::make_shared<Stazione>();
    stazione->Accettazioni(FILE_PIENA);
    auto prima = std::make_shared<QStringList>();
    Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), *prima);
    const auto nostra = [prima, stazione] {
        return Processore([&] {
            QStringList dopo;
            Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), dopo);
            if (Liste_Differenze(*prima, dopo) != -1)
                qFatal("the folder has changed");
            *prima = dopo;
        });
    };
    const auto metro = [stazione] { return Processore([&] { Metro_Elenco(Cartella_Nativa(*stazione)); }); };
    return {
        {QStringLiteral("poll of 10,000 files"), QStringLiteral("ms"), 1.2, nostra,
         QStringLiteral("listing with status"), metro, 0}
    };
}

QList<Misura> Targhe()
{
    auto stazione = std::make_shared<Stazione>();
    stazione->Accettazioni(5000);
    const auto nostra = [stazione] {
        QList<VoceLista> voci;
        return Processore([&] { Lista_Leggi(gDirAcc, voci); });
    };
    const auto metro = [stazione] { return Processore([&] { Metro_Lettura(Cartella_Nativa(*stazione)); }); };
    return {
        {QStringLiteral("plates of 5,000 new files"), QStringLiteral("ms"), 2, nostra,
         QStringLiteral("opening and reading them"), metro, 0}
    };
}

QList<Misura> Tabella()
{
    constexpr int VOLTE = 50;
    auto stazione = std::make_shared<Stazione>();
    const auto nostra = [stazione] {
        return Processore_Medio(VOLTE, [] { Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc); });
    };
    const auto metro = [stazione] {
        QStringList tabella;
        const QString nativo = stazione->Nativo(QStringLiteral("../lingueMCTC.ini"));
        return Processore_Medio(VOLTE, [&] { Metro_Tabella(nativo, ULTIMO_TESTO_MCTC, tabella); });
    };
    return {
        {QStringLiteral("language table, 160 ids"), QStringLiteral("ms"), 0.1, nostra,
         QStringLiteral("QSettings, asked for each id"), metro, 0}
    };
}

/// The longest time in which no event ran, and the most that the processor worked in such a time.
class Sosta
{
public:
    Sosta()
    {
        Segna();
        m_battito.callOnTimeout([this] {
            m_massima = std::max(m_massima, static_cast<double>(m_orologio.nsecsElapsed()) / 1e6);
            m_lavoro = std::max(m_lavoro, Tempo_Processore() - m_prima);
            Segna();
        });
        m_battito.start(0);
    }
    double Millisecondi() const { return m_massima; }
    double Lavoro() const { return m_lavoro; }

private:
    void Segna()
    {
        m_orologio.start();
        m_prima = Tempo_Processore();
    }

    QElapsedTimer m_orologio;
    QTimer m_battito;
    double m_prima = 0;
    double m_massima = 0;
    double m_lavoro = 0;
};

void Battiti(int millisecondi)
{
    for (const QDeadlineTimer fine(millisecondi); !fine.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

/// The worklist as an operator sees it: on a full folder, polled, read again after a new file. Its opening is
/// no part of it.
struct Attesa
{
    double massima;
    double lavoro;
};

Attesa Attesa_Alla_Lista(const Stazione &stazione)
{
    stazione.Metti_In_Vigore();
    const auto lista = Nuovo<frmMctcO>();
    lista->Mostra();
    const Sosta sosta;
    Battiti(2500); // the first poll reads the list once more
    stazione.Accettazione(QStringLiteral("30000001.acc"));
    Battiti(2500); // and this one for the new file
    lista->Scarica();
    stazione.Togli(QStringLiteral("30000001.acc"));
    return {sosta.Millisecondi(), sosta.Lavoro()};
}

/// The wait, and what of it was the processor's work for us: the rest is other programs'.
QList<Misura> Sosta_Con(int quanti)
{
    constexpr int GIRI = 3; // five seconds each
    auto stazione = std::make_shared<Stazione>();
    stazione->Accettazioni(quanti);
    auto lavori = std::make_shared<QList<double>>();
    const auto attesa = [stazione, lavori] {
        const Attesa vista = Attesa_Alla_Lista(*stazione);
        lavori->append(vista.lavoro);
        return vista.massima;
    };
    const auto lavoro = [lavori] { return lavori->takeFirst(); };
    const QString nome = QStringLiteral("longest time without an event, list of %1").arg(quanti);
    const QString ms = QStringLiteral("ms");
    return {
        {nome,                                       ms, 10, attesa, {}, {}, GIRI},
        {nome + QStringLiteral(", the processor's"), ms, 10, lavoro, {}, {}, GIRI},
    };
}

QList<Misura> Soste()
{
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    return Sosta_Con(5000) + Sosta_Con(10000);
}

/// What a list of a folder and its poll hold, in bytes a file: as much as they give back.
double Memoria_A_File(int file)
{
    const auto tenuta = [] { return static_cast<double>(::mallinfo2().uordblks + ::mallinfo2().hblkhd); };
    auto voci = std::make_unique<QList<VoceLista>>();
    auto firme = std::make_unique<QStringList>();
    Lista_Leggi(gDirAcc, *voci);
    Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), *firme);
    const double prima = tenuta();
    voci.reset();
    firme.reset();
    return (prima - tenuta()) / file;
}

/// Each figure a file, against the same with a thousand files: a ratio of 1 is a time that grows as the
/// folder does. The files hold their plate alone.
QList<Misura> Crescita_A(int quanti, const std::shared_ptr<Stazione> &mille)
{
    auto stazione = std::make_shared<Stazione>();
    for (int i = 1; i < quanti; ++i)
        stazione->Scrivi(QStringLiteral("%1.acc").arg(20000000 + i),
                         "[DatiLibrettoVeicolo]\r\nTarga=AB123CD\r\n");
    const auto in = [](const std::shared_ptr<Stazione> &dove, auto procedura) {
        return [dove, procedura] {
            dove->Metti_In_Vigore();
            return procedura(static_cast<int>(QDir(dove->Nativo(QString())).count()) - 2);
        };
    };
    // As many files in all, so that the clock has as much to measure in a small folder.
    const auto sondaggio = [](int file) {
        const int volte = std::max(1, 20000 / file);
        QStringList firme;
        return 1e3 / file *
               Processore_Medio(volte, [&] { Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), firme); });
    };
    const auto lettura = [](int file) {
        const int volte = std::max(1, 5000 / file);
        QList<VoceLista> voci;
        return 1e3 / file * Processore_Medio(volte, [&] { Lista_Leggi(gDirAcc, voci); });
    };
    const QString in1000 = QStringLiteral("with 1,000 files");
    const QString us = QStringLiteral("us a file");
    return {
        {QStringLiteral("poll of %1 files, a file").arg(quanti),             us,                      1.2, in(stazione, sondaggio),      in1000,
         in(mille,                                                                                                                                         sondaggio),      0},
        {QStringLiteral("plates of %1 files, a file").arg(quanti),           us,                      1.2, in(stazione, lettura),        in1000,
         in(mille,                                                                                                                                         lettura),        0},
        {QStringLiteral("memory of a list of %1 files, a file").arg(quanti), QStringLiteral("bytes"), 1.2,
         in(stazione,                                                                                                   Memoria_A_File), in1000, in(mille, Memoria_A_File), 0},
    };
}

QList<Misura> Crescita()
{
    auto mille = std::make_shared<Stazione>();
    for (int i = 1; i < 1000; ++i)
        mille->Scrivi(QStringLiteral("%1.acc").arg(20000000 + i),
                      "[DatiLibrettoVeicolo]\r\nTarga=AB123CD\r\n");
    return Crescita_A(100, mille) + Crescita_A(10000, mille) + Crescita_A(100000, mille);
}

/// A station is made when its turn comes: hundreds of megabytes of files are not to lie about all the while.
struct Gruppo
{
    const char *parola; ///< what --solo takes
    QList<Misura> (*misure)();
};

constexpr Gruppo GRUPPI[] = {
    {"controllo", Controllo},
    {"sondaggio", Sondaggio},
    {"sosta",     Soste    },
    {"targhe",    Targhe   },
    {"tabella",   Tabella  },
    {"crescita",  Crescita },
};

// --- rounds, and what they come to -------------------------------------------------------------------------

/// @param lato whether the sampler looks at our side; at the yardstick otherwise.
Esito Misura_Per(const Misura &misura, int giri, bool lato)
{
    Esito esito{misura, {}, {}};
    if (misura.giri == 0) { // the first finds nothing in the system's memory
        misura.nostra();
        if (misura.metro)
            misura.metro();
    }
    for (int giro = 0; giro < (misura.giri > 0 ? std::min(misura.giri, giri) : giri); ++giro) {
        gCampionatore.Attiva(lato);
        esito.nostra.append(misura.nostra());
        gCampionatore.Attiva(!lato);
        if (misura.metro)
            esito.metro.append(misura.metro());
    }
    gCampionatore.Attiva(false);
    return esito;
}

double Rapporto(const Esito &esito)
{
    return Mediana(esito.nostra) / (esito.metro.isEmpty() ? 1 : Mediana(esito.metro));
}

QJsonArray Numeri(const QList<double> &figure)
{
    QJsonArray numeri;
    for (const double figura : figure)
        numeri.append(figura);
    return numeri;
}

QJsonObject Json_Di(const Esito &esito)
{
    return {
        {QStringLiteral("nome"),       esito.misura.nome     },
        {QStringLiteral("unita"),      esito.misura.unita    },
        {QStringLiteral("nostra"),     Numeri(esito.nostra)  },
        {QStringLiteral("metro"),      Numeri(esito.metro)   },
        {QStringLiteral("aim"),        esito.misura.aim      },
        {QStringLiteral("metro_nome"), esito.misura.metroNome},
    };
}

QString Tre(const QList<double> &figure)
{
    return QStringLiteral("%1 / %2 / %3")
        .arg(Minimo(figure), 0, 'g', 3)
        .arg(Mediana(figure), 0, 'g', 3)
        .arg(Massimo(figure), 0, 'g', 3);
}

void Scrivi_Riga(const Esito &esito)
{
    const double rapporto = Rapporto(esito);
    std::printf("%s\n    ours      %s %s\n", qPrintable(esito.misura.nome), qPrintable(Tre(esito.nostra)),
                qPrintable(esito.misura.unita));
    if (!esito.metro.isEmpty())
        std::printf("    yardstick %s (%s)\n    ratio     %.2f\n", qPrintable(Tre(esito.metro)),
                    qPrintable(esito.misura.metroNome), rapporto);
    std::printf("    aim       %g, %s\n", esito.misura.aim,
                rapporto <= esito.misura.aim ? "reached" : "not reached");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    // Measured without a display where there is none.
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication applicazione(argc, argv);
    QCommandLineParser argomenti;
    argomenti.addHelpOption();
    argomenti.addOptions({
        {QStringLiteral("json"),                     QStringLiteral("The figures as an array of objects.")},
        {                                   QStringLiteral("giri"), QStringLiteral("Rounds of each measure."),                                   QStringLiteral("N"),
         QStringLiteral("7")},
        {                                                                                                                   QStringLiteral("solo"),
         QStringLiteral("One group: controllo, sondaggio, sosta, targhe, tabella, "
                        "crescita."),
         QStringLiteral("WORD")},
        {                                                                                                                QStringLiteral("misura"),                   QStringLiteral("One measure of the group."),           QStringLiteral("NAME")},
        {QStringLiteral("perf"),                     QStringLiteral("Pipes of a sampler."),                 QStringLiteral("COMMANDS,ANSWERS")},
        {                                                                                                    QStringLiteral("lato"),                     QStringLiteral("The side that is sampled."),           QStringLiteral("nostra|metro")},
    });
    argomenti.process(applicazione);

    const int giri = std::max(1, argomenti.value(QStringLiteral("giri")).toInt());
    const QString solo = argomenti.value(QStringLiteral("solo"));
    const QString nome = argomenti.value(QStringLiteral("misura"));
    const bool lato = argomenti.value(QStringLiteral("lato")) != u"metro";
    if (argomenti.isSet(QStringLiteral("perf")))
        gCampionatore.Apri(argomenti.value(QStringLiteral("perf")));
    const bool json = argomenti.isSet(QStringLiteral("json"));
    QJsonArray esiti;
    for (const Gruppo &gruppo : GRUPPI) {
        if (!solo.isEmpty() && solo != QLatin1String(gruppo.parola))
            continue;
        for (const Misura &misura : gruppo.misure()) {
            if (!nome.isEmpty() && nome != misura.nome)
                continue;
            const Esito esito = Misura_Per(misura, giri, lato);
            esiti.append(Json_Di(esito));
            if (!json)
                Scrivi_Riga(esito);
        }
    }
    if (json)
        std::printf("%s", QJsonDocument(esiti).toJson().constData());
    return 0;
}
