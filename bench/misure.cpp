// The times that docs/prestazioni.md tells: profile reads, a language table, the check of an acceptance file,
// the poll of a full exchange folder, the worklist's longest stall, one evaluation.
#include "app/avvio.h"
#include "app/modApp.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
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
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace {

/// A station in a temporary folder, as an installation delivers it.
class Stazione
{
public:
    Stazione()
    {
        const QString sorgente = QStringLiteral(LUMIRA_SORGENTE);
        for (const char16_t *nome : {u"lumira.ini", u"lingue.ini", u"lingueMCTC.ini"})
            Copia(sorgente + QStringLiteral("/impianto/"), QString::fromUtf16(nome),
                  m_cartella.path() + u'/');
        QDir().mkpath(m_cartella.filePath(QStringLiteral("dati")));
        QDir().mkpath(m_cartella.filePath(QStringLiteral("DIR_FAR")));
        Copia(sorgente + QStringLiteral("/dati/"), QStringLiteral("ModelloAcc.acc"),
              m_cartella.filePath(QStringLiteral("dati/")));
        Avvio_Percorsi(m_cartella.path().replace(u'/', u'\\'));
        for (const char16_t *chiave : {u"DirDati", u"DirRisultati"})
            Scrivi_Ini(gFileIni, QStringLiteral("MCTC"), QString::fromUtf16(chiave), gAppPath);
        Avvio_Impostazioni();
        Accettazione(QStringLiteral("12345678.acc"));
        // Files as old as those of a workshop: what was written this very instant is read again each time.
        QThread::msleep(50);
    }

    void Accettazione(const QString &nome) const
    {
        QFile::copy(m_cartella.filePath(QStringLiteral("dati/ModelloAcc.acc")),
                    m_cartella.filePath(QStringLiteral("DIR_FAR/") + nome));
    }

private:
    static void Copia(const QString &da, const QString &nome, const QString &a)
    {
        QFile::copy(da + nome, a + nome);
    }
    QTemporaryDir m_cartella;
};

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
        Leggi_Ini(gFileIni, QStringLiteral("PARAMETRI"), QStringLiteral("LuxMaxAnab"), valore);
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

void Sondaggio_10000(benchmark::State &stato)
{
    const Stazione stazione;
    for (int i = 0; i < 10000; ++i)
        stazione.Accettazione(QStringLiteral("%1.acc").arg(20000000 + i));
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
    for (int i = 0; i < 5000; ++i)
        stazione.Accettazione(QStringLiteral("%1.acc").arg(20000000 + i));
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
        lista.Clear();
        for (int i = 0; i < 5000; ++i)
            lista.AddItem(QStringLiteral("%1.ACC\tAB123CD").arg(20000000 + i));
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
    for (int i = 0; i < 5000; ++i)
        stazione.Accettazione(QStringLiteral("%1.acc").arg(20000000 + i));
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
