// lumira-acc: checks acceptance files as a station does, for whoever makes them and for the technician who
// asks why a vehicle does not start. It changes no file.
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "platform/percorsi.h"
#include "strumenti/controllo_acc.h"
#include "strumenti/elenco_file.h"
#include "strumenti/osservatore.h"
#include "strumenti/progresso.h"
#include "strumenti/riga_comando.h"
#include "strumenti/stazione_strumento.h"
#include "strumenti/terminale.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

// clang-format off
constexpr Parole AIUTO = {
    u"Uso: lumira-acc [opzioni] FILE|CARTELLA...\n"
    "Controlla i file di accettazione come li controlla la stazione, e ne scrive il rapporto.\n"
    "Di una cartella controlla i file .acc; non cambia nessun file.\n\n"
    "  --stazione CARTELLA  la stazione di cui valgono modello, controllo visivo e testi;\n"
    "                       senza: quella con cui il programma è stato consegnato\n"
    "  --modello FILE       un altro modello\n"
    "  --visivo             controlla anche le sezioni del controllo visivo\n"
    "  --senza-visivo       non le controlla\n"
    "  --json               un oggetto per file, in un array; con --osserva uno per riga\n"
    "  --solo-anomali       tace dei file buoni\n"
    "  --osserva            resta a guardare le cartelle e controlla ciò che arriva, fino a Ctrl-C\n"
    "  --lingua IT|EN       la lingua di questo programma\n"
    "  --help, --version    questo aiuto, la versione\n\n"
    "Finisce con 0: tutti buoni; 1: qualche anomalia; 2: qualcosa non si è potuto guardare.\n",

    u"Usage: lumira-acc [options] FILE|FOLDER...\n"
    "Checks acceptance files as the station does, and writes its report.\n"
    "Of a folder it checks the .acc files; it changes no file.\n\n"
    "  --stazione FOLDER    the station whose template, visual check and texts hold;\n"
    "                       without it: the one that the program was delivered with\n"
    "  --modello FILE       another template\n"
    "  --visivo             checks the sections of the visual check too\n"
    "  --senza-visivo       does not check them\n"
    "  --json               an object a file, in an array; with --osserva one a line\n"
    "  --solo-anomali       says nothing of good files\n"
    "  --osserva            goes on watching the folders and checks what arrives, until Ctrl-C\n"
    "  --lingua IT|EN       the language of this program\n"
    "  --help, --version    this help, the version\n\n"
    "Ends with 0: all good; 1: some anomalies; 2: something could not be looked at.\n",
};
// clang-format on

constexpr Parole CON_STAZIONE = {u" (--stazione CARTELLA)", u" (--stazione FOLDER)"};
constexpr Parole SENZA_MODELLO = {u"il modello %1 non c'è: senza, ogni file è anomalo",
                                  u"there is no template %1: without it every file is anomalous"};
constexpr Parole VISIVO_DOPPIO = {u"--visivo e --senza-visivo non vanno insieme",
                                  u"--visivo and --senza-visivo exclude each other"};
constexpr Parole SOLO_CARTELLE = {u"con --osserva servono cartelle: %1 non lo è",
                                  u"--osserva needs folders: %1 is none"};
constexpr Parole TOTALE = {u"%1 file: %2 buoni, %3 con anomalie, %4 non esaminati\n",
                           u"%1 files: %2 good, %3 with anomalies, %4 not checked\n"};

const QString STAZIONE = QStringLiteral("stazione");
const QString MODELLO = QStringLiteral("modello");
const QString VISIVO = QStringLiteral("visivo");
const QString SENZA_VISIVO = QStringLiteral("senza-visivo");
const QString JSON = QStringLiteral("json");
const QString SOLO_ANOMALI = QStringLiteral("solo-anomali");
const QString OSSERVA = QStringLiteral("osserva");

/// Reads the station, then what the command line has otherwise. @return false when there is nothing to check
/// by.
bool Regole_Leggi(const RigaComando &righe, QString &errore)
{
    if (righe.Ha(VISIVO) && righe.Ha(SENZA_VISIVO)) {
        errore = In_Parole(VISIVO_DOPPIO);
        return false;
    }
    if (!Stazione_Leggi(righe.Valore(STAZIONE), SegnoStazione::Configurazione, errore)) {
        errore += In_Parole(CON_STAZIONE);
        return false;
    }
    if (righe.Ha(MODELLO))
        gFileModelloAcc = Percorso_Intero(righe.Valore(MODELLO));
    if (righe.Ha(VISIVO) || righe.Ha(SENZA_VISIVO))
        gControlloVisivo = Flag_Da(righe.Ha(VISIVO));
    if (Fs_Esiste(gFileModelloAcc, 0))
        return true;
    errore = In_Parole(SENZA_MODELLO).arg(Percorso_Mostrato(gFileModelloAcc));
    return false;
}

/// Counts what has been checked, and writes it in the form asked for.
class Relazione
{
public:
    explicit Relazione(const RigaComando &righe)
        : m_json(righe.Ha(JSON)), m_aRighe(righe.Ha(OSSERVA)), m_soloAnomali(righe.Ha(SOLO_ANOMALI))
    {
    }

    /// False for a file of which nothing is said.
    bool Da_Dire(const ControlloFile &controllo) const
    {
        return !m_soloAnomali || Controllo_Fine(controllo) != FineStrumento::Buono;
    }
    void Conta(const ControlloFile &controllo)
    {
        ++m_conteggio[static_cast<size_t>(Controllo_Fine(controllo))];
    }

    void Scrivi(const ControlloFile &controllo)
    {
        if (!m_json) {
            Terminale_Scrivi(Canale::Uscita, Controllo_Testo(controllo));
            return;
        }
        const QString prima = m_aRighe    ? QString()
                              : m_scritti ? QStringLiteral(",\n")
                                          : QStringLiteral("[\n");
        Terminale_Scrivi(Canale::Uscita, prima + QString::fromUtf8(Controllo_Json(controllo)) +
                                             (m_aRighe ? QStringLiteral("\n") : QString()));
        m_scritti = true;
    }

    void Chiudi() const
    {
        if (m_json)
            Terminale_Scrivi(Canale::Uscita, m_scritti ? QStringLiteral("\n]\n") : QStringLiteral("[]\n"));
        else
            Terminale_Scrivi(Canale::Uscita, In_Parole(TOTALE)
                                                 .arg(m_conteggio[0] + m_conteggio[1] + m_conteggio[2])
                                                 .arg(m_conteggio[0])
                                                 .arg(m_conteggio[1])
                                                 .arg(m_conteggio[2]));
    }

private:
    const bool m_json;
    const bool m_aRighe;
    const bool m_soloAnomali;
    bool m_scritti = false;
    std::array<qint32, 3> m_conteggio{}; // by FineStrumento
};

FineStrumento Controlla_Tutti(const RigaComando &righe)
{
    FineStrumento fine = FineStrumento::Buono;
    const ElencoFile elenco = File_Elenca(righe.Posti(), QStringLiteral("*.acc"));
    for (const QString &posto : elenco.Irreperibili)
        Peggiora(fine, righe.Rifiuta(In_Parole(IRREPERIBILE).arg(posto)));
    Relazione relazione(righe);
    Progresso progresso(elenco.File.size());
    for (const QString &file : elenco.File) {
        const ControlloFile controllo = Controllo_Esegui(file);
        Peggiora(fine, Controllo_Fine(controllo));
        relazione.Conta(controllo);
        if (relazione.Da_Dire(controllo)) {
            progresso.Togli();
            relazione.Scrivi(controllo);
        }
        progresso.Passo();
    }
    progresso.Togli();
    relazione.Chiudi();
    if (!Terminale_Integro())
        Peggiora(fine, righe.Rifiuta(In_Parole(USCITA_PERSA)));
    return fine;
}

/// Ends only with the program. @return NonGuardato when it cannot begin.
FineStrumento Osserva(const RigaComando &righe)
{
    QStringList cartelle;
    const QStringList posti = righe.Posti();
    for (const QString &posto : posti) {
        const QString cartella = Percorso_Intero(posto);
        if (!QFileInfo(Percorso_Nativo(cartella)).isDir())
            return righe.Rifiuta(In_Parole(SOLO_CARTELLE).arg(posto));
        cartelle.append(cartella.endsWith(u'\\') ? cartella : cartella + u'\\');
    }
    Relazione relazione(righe);
    Osservatore osservatore(
        cartelle,
        [&relazione, &righe](const QString &file) {
            const ControlloFile controllo = Controllo_Esegui(file);
            if (relazione.Da_Dire(controllo))
                relazione.Scrivi(controllo);
            if (!Terminale_Integro()) // nobody would learn of any further file
                QCoreApplication::exit(static_cast<int>(righe.Rifiuta(In_Parole(USCITA_PERSA))));
        },
        [&righe](const QString &cartella) {
            righe.Rifiuta(In_Parole(IRREPERIBILE).arg(Percorso_Mostrato(cartella)));
        });
    osservatore.Avvia();
    return static_cast<FineStrumento>(QCoreApplication::exec());
}

FineStrumento Esegui(const QStringList &argomenti)
{
    RigaComando righe(QStringLiteral("lumira-acc"), AIUTO,
                      {
                          {STAZIONE, QString(), QStringLiteral("CARTELLA")},
                          {MODELLO,  QString(), QStringLiteral("FILE")    },
                          QCommandLineOption(VISIVO),
                          QCommandLineOption(SENZA_VISIVO),
                          QCommandLineOption(JSON),
                          QCommandLineOption(SOLO_ANOMALI),
                          QCommandLineOption(OSSERVA)
    });
    if (const std::optional<FineStrumento> fine = righe.Leggi(argomenti))
        return *fine;
    QString errore;
    if (!Regole_Leggi(righe, errore))
        return righe.Rifiuta(errore);
    Controllo_Prepara();
    return righe.Ha(OSSERVA) ? Osserva(righe) : Controlla_Tutti(righe);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication programma(argc, argv);
    return static_cast<int>(Esegui(QCoreApplication::arguments()));
}
