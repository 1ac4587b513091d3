// lumira-diagnosi: why a station does not work, looked at from beside it, whether it runs or not. It changes
// nothing of it.
#include "core/modGeneral.h"
#include "platform/porta_seriale.h"
#include "strumenti/diagnosi.h"
#include "strumenti/pacchetto.h"
#include "strumenti/riga_comando.h"
#include "strumenti/stazione_strumento.h"
#include "strumenti/terminale.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

// clang-format off
constexpr Parole AIUTO = {
    u"Uso: lumira-diagnosi [opzioni] [CARTELLA]\n"
    "Guarda una stazione e dice, una riga per cosa guardata, che cosa va e che cosa no, e che cosa\n"
    "fare. Senza CARTELLA è la stazione con cui il programma è stato consegnato. La stazione può\n"
    "essere aperta: non le cambia niente, e allora la sua porta non si prova.\n\n"
    "  --cerca              cerca lo strumento su ogni porta, con i formati usuali, e ne legge i dati\n"
    "  --scrivi             prova a scrivere nella cartella di scambio un file che toglie subito\n"
    "  --pacchetto FILE.zip tutto in un file per l'assistenza, con la configurazione senza password\n"
    "  --json               un oggetto con tutto\n"
    "  --schermo            da solo: larghezza, altezza e ingrandimento dello schermo, e niente altro\n"
    "  --lingua IT|EN       la lingua di questo programma\n"
    "  --help, --version    questo aiuto, la versione\n\n"
    "Finisce con 0: tutto bene; 1: avvisi o guasti; 2: non si è potuto guardare.\n",

    u"Usage: lumira-diagnosi [options] [FOLDER]\n"
    "Looks at a station and tells, a line a thing, what is well and what is not, and what to do.\n"
    "Without FOLDER it is the station that the program was delivered with. The station may be\n"
    "open: nothing of it is changed, and its port is not tried then.\n\n"
    "  --cerca              looks for the instrument on every port, in the usual formats, and reads it\n"
    "  --scrivi             tries to write in the exchange folder a file that it takes away at once\n"
    "  --pacchetto FILE.zip all of it in a file for the support, the configuration without passwords\n"
    "  --json               an object with all of it\n"
    "  --schermo            by itself: width, height and scaling of the screen, and nothing else\n"
    "  --lingua IT|EN       the language of this program\n"
    "  --help, --version    this help, the version\n\n"
    "Ends with 0: all well; 1: warnings or faults; 2: nothing could be looked at.\n",
};
// clang-format on

constexpr Parole NON_SCRITTO = {u"%1 non si può scrivere, o c'è già",
                                u"%1 cannot be written, or is there already"};
constexpr Parole SCHERMO_SOLO = {u"--schermo sta da solo", u"--schermo stands by itself"};

const QString CERCA = QStringLiteral("cerca");
const QString SCRIVI = QStringLiteral("scrivi");
const QString PACCHETTO = QStringLiteral("pacchetto");
const QString JSON = QStringLiteral("json");
const QString SCHERMO = QStringLiteral("schermo");

Riscontri Guarda(const RigaComando &righe)
{
    Riscontri riscontri;
    Diagnosi_Programma(riscontri);
    Diagnosi_Figure(riscontri);
    Diagnosi_Configurazione(riscontri);
    Diagnosi_Testi(riscontri);
    Diagnosi_Cartelle(riscontri, righe.Ha(SCRIVI));
    Diagnosi_Porte(riscontri, !righe.Ha(CERCA));
    if (righe.Ha(CERCA))
        Diagnosi_Cerca(riscontri);
    Diagnosi_Stampanti(riscontri);
    Diagnosi_Schermo(riscontri, QCoreApplication::applicationFilePath());
    Diagnosi_Disco(riscontri);
    Diagnosi_Orologio(riscontri);
    return riscontri;
}

FineStrumento Esegui(const QStringList &argomenti)
{
    RigaComando righe(QStringLiteral("lumira-diagnosi"), AIUTO,
                      {
                          QCommandLineOption(CERCA),
                          QCommandLineOption(SCRIVI),
                          {PACCHETTO, QString(), QStringLiteral("FILE")},
                          QCommandLineOption(JSON),
                          QCommandLineOption(SCHERMO)
    },
                      RigaComando::Luoghi::UnoAlPiu);
    if (const std::optional<FineStrumento> fine = righe.Leggi(argomenti))
        return *fine;
    if (righe.Ha(SCHERMO))
        return righe.Rifiuta(In_Parole(SCHERMO_SOLO));
    const QString pacchetto = righe.Valore(PACCHETTO);
    // The look takes its time, and its package would have no place.
    if (righe.Ha(PACCHETTO) && QFileInfo::exists(pacchetto))
        return righe.Rifiuta(In_Parole(NON_SCRITTO).arg(pacchetto));
    QString errore;
    if (!Stazione_Leggi(righe.Posti().value(0), SegnoStazione::AncheProgramma, errore))
        return righe.Rifiuta(errore);
    Porte_Stazione(gAppPath.chopped(1));
    const QString stazione = Percorso_Mostrato(gAppPath.chopped(1));

    const Riscontri riscontri = Guarda(righe);
    FineStrumento fine = Riscontri_Fine(riscontri);
    if (righe.Ha(JSON)) {
        Terminale_Scrivi(Canale::Uscita, QString::fromUtf8(Riscontri_Json(riscontri, stazione)));
    } else {
        for (const Riscontro &riscontro : riscontri)
            Terminale_Scrivi(Canale::Uscita, Riscontro_Testo(riscontro));
    }
    if (righe.Ha(PACCHETTO) && !Pacchetto_Scrivi(pacchetto, riscontri, stazione))
        Peggiora(fine, righe.Rifiuta(In_Parole(NON_SCRITTO).arg(pacchetto)));
    if (!Terminale_Integro())
        Peggiora(fine, righe.Rifiuta(In_Parole(USCITA_PERSA)));
    return fine;
}

/// Before any application: this question makes one with windows.
bool Solo_Schermo(int argc, char **argv)
{
    return argc == 2 && qstrcmp(argv[1], "--schermo") == 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (Solo_Schermo(argc, argv)) {
        const QString schermo = Schermo_Descrivi(argc, argv);
        Terminale_Scrivi(Canale::Uscita, schermo);
        return static_cast<int>(schermo.isEmpty() ? FineStrumento::NonGuardato : FineStrumento::Buono);
    }
    const QCoreApplication programma(argc, argv);
    return static_cast<int>(Esegui(QCoreApplication::arguments()));
}
