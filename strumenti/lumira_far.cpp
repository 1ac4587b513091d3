// lumira-far: reads result files, says where one is not what the network software expects, and counts. It
// changes no result file.
#include "core/limiti.h"
#include "platform/errore_esecuzione.h"
#include "strumenti/elenco_file.h"
#include "strumenti/grafico_far.h"
#include "strumenti/progresso.h"
#include "strumenti/raccolta_far.h"
#include "strumenti/riga_comando.h"
#include "strumenti/stazione_strumento.h"
#include "strumenti/terminale.h"

#include <QGuiApplication>
#include <QSaveFile>

#include <algorithm>
#include <memory>

namespace {

// clang-format off
constexpr Parole AIUTO = {
    u"Uso: lumira-far [opzioni] FILE|CARTELLA...\n"
    "Legge i file di risultato: una riga per veicolo, e sugli errori ciò che non va, file e riga.\n"
    "Di una cartella legge i file .far; non li cambia.\n\n"
    "  --csv                ogni riga dei file in CSV (RFC 4180, UTF-8)\n"
    "  --json               lo stesso in JSON, con i difetti di ogni file\n"
    "  --riepilogo          conta i veicoli per giorno, operatore, esito e causa; anche con --csv o --json\n"
    "  --grafico FILE       scrive un grafico, FILE.svg o FILE.png: veicoli al giorno, e le luci di ogni\n"
    "                       proiettore fra i suoi limiti\n"
    "  --stazione CARTELLA  con --grafico: la stazione di cui mostra i limiti; senza: quella con cui il programma\n"
    "                       è stato consegnato, o i limiti predefiniti\n"
    "  --lingua IT|EN       la lingua di questo programma\n"
    "  --help, --version    questo aiuto, la versione\n\n"
    "Finisce con 0: tutti come devono essere; 1: qualche difetto; 2: qualcosa non si è potuto guardare.\n",

    u"Usage: lumira-far [options] FILE|FOLDER...\n"
    "Reads result files: a line a vehicle, and on the errors what is wrong, file and line.\n"
    "Of a folder it reads the .far files; it does not change them.\n\n"
    "  --csv                every row of the files as CSV (RFC 4180, UTF-8)\n"
    "  --json               the same as JSON, with the defects of each file\n"
    "  --riepilogo          counts vehicles by day, operator, verdict and cause; with --csv or --json too\n"
    "  --grafico FILE       writes a chart, FILE.svg or FILE.png: vehicles a day, and the figures of each\n"
    "                       lamp between its limits\n"
    "  --stazione FOLDER    with --grafico: the station whose limits it shows; without it: the one that the program\n"
    "                       was delivered with, or the default limits\n"
    "  --lingua IT|EN       the language of this program\n"
    "  --help, --version    this help, the version\n\n"
    "Ends with 0: all as they should be; 1: some defects; 2: something could not be looked at.\n",
};
// clang-format on

constexpr Parole FORME_INSIEME = {u"--csv e --json non vanno insieme",
                                  u"--csv and --json exclude each other"};
constexpr Parole GRAFICO_IGNOTO = {u"il grafico è un .svg o un .png, non %1",
                                   u"a chart is a .svg or a .png, not %1"};
constexpr Parole STAZIONE_SOLA = {u"--stazione vale con --grafico", u"--stazione goes with --grafico"};
constexpr Parole GRAFICO_PERSO = {u"%1 non si può scrivere", u"%1 cannot be written"};
constexpr Parole LIMITI_ILLEGGIBILI = {u"i limiti della stazione non si leggono: errore %1, %2",
                                       u"the limits of the station cannot be read: error %1, %2"};

const QString CSV = QStringLiteral("csv");
const QString JSON = QStringLiteral("json");
const QString RIEPILOGO = QStringLiteral("riepilogo");
const QString GRAFICO = QStringLiteral("grafico");
const QString STAZIONE = QStringLiteral("stazione");

constexpr QLatin1String SVG(".svg");
constexpr QLatin1String PNG(".png");

RaccoltaFar Leggi_Tutti(const RigaComando &righe, FineStrumento &fine)
{
    RaccoltaFar raccolta;
    const ElencoFile elenco = File_Elenca(righe.Posti(), QStringLiteral("*.far"));
    QStringList irreperibili = elenco.Irreperibili;
    Progresso progresso(elenco.File.size());
    for (const QString &file : elenco.File) {
        try {
            raccolta.append({file, Far_Leggi(file)});
        } catch (const ErroreEsecuzione &) {
            irreperibili.append(Percorso_Mostrato(file)); // the network software has taken it meanwhile
        }
        progresso.Passo();
    }
    progresso.Togli();
    for (const QString &posto : std::as_const(irreperibili))
        Peggiora(fine, righe.Rifiuta(In_Parole(IRREPERIBILE).arg(posto)));
    return raccolta;
}

/// In JSON the defects stand with their files.
void Scrivi_Difetti(const RigaComando &righe, const RaccoltaFar &raccolta, FineStrumento &fine)
{
    const bool nelJson = righe.Ha(JSON) && !righe.Ha(RIEPILOGO);
    QString testo;
    for (const FileFar &file : raccolta) {
        for (const DifettoFar &difetto : file.Letto.Difetti) {
            Peggiora(fine, FineStrumento::Anomalie);
            if (!nelJson)
                testo += Difetto_Testo(file.File, difetto) + u'\n';
        }
    }
    Terminale_Scrivi(Canale::Errori, testo);
}

void Scrivi_Raccolta(const RigaComando &righe, const RaccoltaFar &raccolta)
{
    const bool riepilogo = righe.Ha(RIEPILOGO);
    if (righe.Ha(JSON))
        Terminale_Scrivi(Canale::Uscita,
                         QString::fromUtf8(riepilogo ? Riepilogo_Json(raccolta) : Raccolta_Json(raccolta)));
    else if (righe.Ha(CSV))
        Terminale_ScriviByte(Tabella_Csv(riepilogo ? Raccolta_Riepilogo(raccolta, Lettore::Programma)
                                                   : Raccolta_PerEsteso(raccolta)));
    else if (riepilogo)
        Terminale_Scrivi(Canale::Uscita, Tabella_Testo(Raccolta_Riepilogo(raccolta, Lettore::Persona)));
    else if (!righe.Ha(GRAFICO))
        Terminale_Scrivi(Canale::Uscita, Tabella_Testo(Raccolta_InBreve(raccolta)));
}

/// Reads the limits that the chart shows. @return false, with the error, when a station that was named has
/// none.
bool Limiti_Leggi(const RigaComando &righe, QString &errore)
{
    // A tool that lies alone somewhere has the limits of a configuration without any.
    if (!Stazione_Leggi(righe.Valore(STAZIONE), SegnoStazione::Configurazione, errore) && righe.Ha(STAZIONE))
        return false;
    try {
        Carica_Limiti();
        return true;
    } catch (const ErroreEsecuzione &guasto) {
        errore = In_Parole(LIMITI_ILLEGGIBILI).arg(guasto.Numero()).arg(guasto.Descrizione());
        return false;
    }
}

FineStrumento Scrivi_Grafico(const RigaComando &righe, const RaccoltaFar &raccolta)
{
    QString errore;
    if (!Limiti_Leggi(righe, errore))
        return righe.Rifiuta(errore);
    const QString nome = righe.Valore(GRAFICO);
    const Disegno disegno = Raccolta_Grafico(raccolta);
    const QByteArray byte =
        nome.endsWith(SVG, Qt::CaseInsensitive) ? Disegno_Svg(disegno) : Disegno_Png(disegno);
    QSaveFile file(nome);
    if (!file.open(QIODevice::WriteOnly) || file.write(byte) != byte.size() || !file.commit())
        return righe.Rifiuta(In_Parole(GRAFICO_PERSO).arg(nome));
    return FineStrumento::Buono;
}

/// @return false when the options do not go together.
bool Opzioni_Buone(const RigaComando &righe, QString &errore)
{
    const QString grafico = righe.Valore(GRAFICO);
    if (righe.Ha(CSV) && righe.Ha(JSON))
        errore = In_Parole(FORME_INSIEME);
    else if (righe.Ha(GRAFICO) && !grafico.endsWith(SVG, Qt::CaseInsensitive) &&
             !grafico.endsWith(PNG, Qt::CaseInsensitive))
        errore = In_Parole(GRAFICO_IGNOTO).arg(grafico);
    else if (righe.Ha(STAZIONE) && !righe.Ha(GRAFICO))
        errore = In_Parole(STAZIONE_SOLA);
    return errore.isEmpty();
}

FineStrumento Esegui(const QStringList &argomenti)
{
    RigaComando righe(QStringLiteral("lumira-far"), AIUTO,
                      {
                          QCommandLineOption(CSV),
                          QCommandLineOption(JSON),
                          QCommandLineOption(RIEPILOGO),
                          {GRAFICO,  QString(), QStringLiteral("FILE")    },
                          {STAZIONE, QString(), QStringLiteral("CARTELLA")}
    });
    if (const std::optional<FineStrumento> fine = righe.Leggi(argomenti))
        return *fine;
    QString errore;
    if (!Opzioni_Buone(righe, errore))
        return righe.Rifiuta(errore);
    FineStrumento fine = FineStrumento::Buono;
    const RaccoltaFar raccolta = Leggi_Tutti(righe, fine);
    Scrivi_Raccolta(righe, raccolta);
    Scrivi_Difetti(righe, raccolta, fine);
    if (righe.Ha(GRAFICO))
        Peggiora(fine, Scrivi_Grafico(righe, raccolta));
    if (!Terminale_Integro())
        Peggiora(fine, righe.Rifiuta(In_Parole(USCITA_PERSA)));
    return fine;
}

/// Type in an image needs the application of windows; nothing else here does, and it runs without it.
bool Chiede_Immagine(int argc, char *argv[])
{
    return std::any_of(argv + 1, argv + argc, [](const char *argomento) {
        return QString::fromLocal8Bit(argomento).endsWith(PNG, Qt::CaseInsensitive);
    });
}

} // namespace

int main(int argc, char *argv[])
{
    // An image is drawn where no display is.
    qputenv("QT_QPA_PLATFORM", LUMIRA_PIATTAFORMA_DISEGNO);
    std::unique_ptr<QCoreApplication> programma;
    if (Chiede_Immagine(argc, argv))
        programma = std::make_unique<QGuiApplication>(argc, argv);
    else
        programma = std::make_unique<QCoreApplication>(argc, argv);
    return static_cast<int>(Esegui(QCoreApplication::arguments()));
}
