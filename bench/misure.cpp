// The times that docs/prestazioni.md tells: profile reads, a language table, the check of an acceptance file,
// the worst files that can be checked, the poll of a full exchange folder, the worklist's longest stall, one
// evaluation.
#include "app/modApp.h"
#include "bench/stazione_misure.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "dialogs/frmMsg.h"
#include "link/protocollo.h"
#include "mctc/campi_acc.h"
#include "mctc/frmMctcO.h"
#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "platform/profilo.h"
#include "toolkit/controlli.h"
#include "toolkit/schermo.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <malloc.h>

namespace {

const Stazione &La_Stazione()
{
    static const Stazione stazione;
    return stazione;
}

void Leggi_Ini_Invariato(benchmark::State &stato)
{
    La_Stazione();
    QString valore;
    for (auto giro : stato) {
        (void)giro;
        Leggi_Ini(gFileIni, ChiaveLuxMaxAnab, valore);
        benchmark::DoNotOptimize(valore);
    }
}

void Carica_Lingua_160(benchmark::State &stato)
{
    La_Stazione();
    for (auto giro : stato) {
        (void)giro;
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    }
}

void Acc_Controlla_Completo(benchmark::State &stato)
{
    La_Stazione();
    gControlloVisivo = Vero;
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
    const QString file = gDirAcc + QStringLiteral("12345678.acc");
    QString rapporto;
    for (auto giro : stato) {
        (void)giro;
        Acc_Apri(file);
        if (Acc_Controlla(file, rapporto) != AccBuona)
            stato.SkipWithError("the file does not pass");
    }
}

/// Shows a message until it has been painted once.
void Mostra_E_Chiudi(const QString &testo)
{
    QTimer::singleShot(0, qApp, [] {
        auto &msg = Predefinito<frmMsg>();
        msg.Finestra()->grab();
        msg.Scarica();
    });
    Mostra_MsgConferma(testo);
}

/// A file of up to 32767 bytes and the kind of trouble that it makes.
struct FilePeggiore
{
    const char *nome;
    QByteArray testa;   ///< what it begins with
    QByteArray periodo; ///< what fills it
    QByteArray coda;    ///< what it ends with
};

/// Heads of all the sections, so that their keys are compared.
QByteArray Teste_Del_Modello(const QByteArray &prima)
{
    QByteArray teste = prima;
    for (const QByteArray &riga : La_Stazione().Modello().split('\n')) {
        if (riga.startsWith('[') && !prima.contains(riga.trimmed()))
            teste += riga.trimmed() + "\r\n";
    }
    return teste;
}

QList<FilePeggiore> File_Peggiori()
{
    const QByteArray teste = Teste_Del_Modello({});
    const QByteArray prenotazione = "[Prenotazione]\r\n";
    const QByteArray altre = Teste_Del_Modello(prenotazione).mid(prenotazione.size());
    const QByteArray uguali = prenotazione + QByteArray(300, '=') + "\r\n";
    const QByteArray dopo = "\r\n" + altre + prenotazione.repeated(90);
    const QByteArray nul(1, '\0');
    const QByteArray righe = "]\r\n" + QByteArray(" =\r").repeated(4000);
    return {
        {"one line of =",              teste,  "=",       ""   },
        {"many lines of one key",      teste,  "a=\r",    ""   },
        {"key lines with blanks",      teste,  " a = \r", ""   },
        {"a section many times",       uguali, "x",       dopo },
        {"empty heads",                "",     "[]",      ""   },
        {"heads a line",               "",     "[a]\r",   ""   },
        {"one long head",              "[",    "a",       righe},
        {"[ alone",                    "",     "[",       ""   },
        {"] alone",                    "[]",   "]",       ""   },
        {"CR alone",                   "",     "\r",      ""   },
        {"LF alone",                   "[]",   "\n",      ""   },
        {"lines of one letter",        teste,  "a\r",     ""   },
        {"one long line",              teste,  "x",       ""   },
        {"one line of words",          teste,  "xx ",     ""   },
        {"one line of narrow letters", teste,  "i",       ""   },
        {"one line of blanks",         teste,  " ",       ""   },
        {"one line of soft hyphens",   teste,  "\xAD",    ""   },
        {"one line of tabs",           teste,  "\t",      ""   },
        {"one line of NULs",           teste,  nul,       ""   },
    };
}

constexpr int FILE_PEGGIORI = 19;

QByteArray Byte_Di(const FilePeggiore &peggiore)
{
    constexpr qsizetype MASSIMO = 32767;
    QByteArray byte = peggiore.testa;
    while (byte.size() + peggiore.periodo.size() + peggiore.coda.size() <= MASSIMO)
        byte += peggiore.periodo;
    return byte + peggiore.coda;
}

/// The highest memory of the program since its mark, in MB; from the system's account of the process.
double Picco()
{
    QFile stato(QStringLiteral("/proc/self/status"));
    if (!stato.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &riga : stato.readAll().split('\n')) {
        if (riga.startsWith("VmHWM:"))
            return riga.mid(6).trimmed().chopped(3).toDouble() / 1024;
    }
    return 0;
}

/// Sets the mark to what the program holds now, without what it has given back.
void Picco_DaQui()
{
    ::malloc_trim(0);
    QFile marca(QStringLiteral("/proc/self/clear_refs"));
    if (marca.open(QIODevice::WriteOnly))
        marca.write("5");
}

/// The worst files: checked, and told in a message until it is painted.
void File_Peggiore_Detto(benchmark::State &stato)
{
    const FilePeggiore peggiore = File_Peggiori()[stato.range(0)];
    stato.SetLabel(peggiore.nome);
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    gControlloVisivo = Vero;
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
    Mostra_E_Chiudi(QStringLiteral("pronto"));
    const QString file = gDirAcc + QStringLiteral("87654321.acc");
    La_Stazione().Scrivi(QStringLiteral("87654321.acc"), Byte_Di(peggiore));
    Stazione::Invecchia();
    Picco_DaQui();
    const double prima = Picco();
    for (auto giro : stato) {
        (void)giro;
        QString rapporto;
        Acc_Apri(file);
        if (Acc_Controlla(file, rapporto) != AccAnomala)
            stato.SkipWithError("the file passes");
        Mostra_E_Chiudi(Testo_Mctc(MctcFileConAnomalie) + QStringLiteral(": \r\n") + rapporto);
    }
    stato.counters["MB"] = Picco() - prima;
    La_Stazione().Togli(QStringLiteral("87654321.acc"));
}

void Sondaggio_10000(benchmark::State &stato)
{
    const Stazione stazione;
    stazione.Accettazioni(10000);
    QStringList prima;
    QStringList dopo;
    Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), prima);
    for (auto giro : stato) {
        (void)giro;
        Fs_ElencoFirme(gDirAcc, QStringLiteral("*.acc"), dopo);
        benchmark::DoNotOptimize(Liste_Differenze(prima, dopo));
    }
}

void Lettura_5000(benchmark::State &stato)
{
    const Stazione stazione;
    stazione.Accettazioni(5000);
    QList<VoceLista> voci;
    for (auto giro : stato) {
        (void)giro;
        benchmark::DoNotOptimize(Lista_Leggi(gDirAcc, voci));
    }
}

void Righe_5000(benchmark::State &stato)
{
    QWidget finestra;
    ElencoVoci lista(&finestra, QStringLiteral("lista"));
    finestra.show();
    for (auto giro : stato) {
        (void)giro;
        QStringList righe;
        for (int i = 0; i < 5000; ++i)
            righe.append(QStringLiteral("%1.ACC\tAB123CD").arg(20000000 + i));
        lista.Clear();
        lista.AddItems(righe);
        QCoreApplication::processEvents();
    }
}

/// The longest time in which no event ran.
class Sosta
{
public:
    Sosta()
    {
        m_orologio.start();
        m_battito.callOnTimeout([this] {
            m_massima = std::max(m_massima, m_orologio.nsecsElapsed());
            m_orologio.start();
        });
        m_battito.start(0);
    }
    double Millisecondi() const { return static_cast<double>(m_massima) / 1e6; }

private:
    QElapsedTimer m_orologio;
    QTimer m_battito;
    qint64 m_massima = 0;
};

/// The worklist as an operator sees it: opened on a full folder, polled, read again after a new file.
void Finestra_5000(benchmark::State &stato)
{
    const Stazione stazione;
    stazione.Accettazioni(5000);
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    for (auto giro : stato) {
        (void)giro;
        const Sosta sosta;
        const auto lista = Nuovo<frmMctcO>();
        lista->Mostra();
        for (const char16_t *nuovo : {u"30000001.acc", u"30000002.acc"}) {
            stazione.Accettazione(QString::fromUtf16(nuovo));
            for (const QDeadlineTimer battiti(5000); !battiti.hasExpired();)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        stato.counters["longest_stall_ms"] = sosta.Millisecondi();
        lista->Scarica();
    }
}

void Calcola_Esito_Uno(benchmark::State &stato)
{
    const Stazione stazione;
    Report_Dati(0);
    Report_Dati(1);
    gModalita = Falso; // the acceptance file stays for the next round
    gFileAcc = gDirAcc + QStringLiteral("12345678.acc");
    for (MisuraFaro &misura : gMisure)
        misura = {500, QStringLiteral("O"), QStringLiteral("O")};
    for (auto giro : stato) {
        (void)giro;
        Calcola_Esito();
    }
}

BENCHMARK(Leggi_Ini_Invariato)->Unit(benchmark::kMicrosecond);
BENCHMARK(Carica_Lingua_160)->Unit(benchmark::kMillisecond);
BENCHMARK(Acc_Controlla_Completo)->Unit(benchmark::kMillisecond);
BENCHMARK(File_Peggiore_Detto)
    ->DenseRange(0, FILE_PEGGIORI - 1)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Sondaggio_10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Lettura_5000)->Unit(benchmark::kMillisecond);
BENCHMARK(Righe_5000)->Unit(benchmark::kMillisecond);
BENCHMARK(Finestra_5000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(Calcola_Esito_Uno)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    const QApplication applicazione(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
