// The options by table, their help and what contradicts itself. It opens nothing.
#include "simulatore/opzioni.h"

#include "core/lingue.h"
#include "core/parole.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

constexpr Parole PERCORSO = {u"PERCORSO", u"PATH"};
constexpr Parole FILE_NOME = {u"FILE", u"FILE"};
constexpr Parole BAUD = {u"BAUD", u"BAUD"};
constexpr Parole NUMERO = {u"NUMERO", u"NUMBER"};
constexpr Parole SIGLA = {u"SIGLA", u"CODE"};
constexpr Parole PORTA = {u"PORTA", u"PORT"};

struct DefOpzione
{
    const char16_t *nome;
    const Parole *valore; ///< nullptr for a switch
    Parole descrizione;
};

// clang-format off
constexpr DefOpzione OPZIONI[] = {
    {u"collega",       &PERCORSO,  {u"collegamento al terminale, es. porte/COM1 nella cartella della stazione",
                                    u"link to the terminal, e.g. porte/COM1 in the station's folder"}},
    {u"dispositivo",   &PERCORSO,  {u"porta seriale vera al posto del terminale, es. /dev/ttyUSB0",
                                    u"real serial port in place of the terminal, e.g. /dev/ttyUSB0"}},
    {u"velocita",      &BAUD,      {u"velocità della porta seriale vera (9600), con formato 8N1",
                                    u"speed of the real serial port (9600), its format is 8N1"}},
    {u"stato",         &FILE_NOME, {u"file che conserva i testi scritti dalla stazione",
                                    u"file that keeps the texts written by the station"}},
    {u"registro",      &FILE_NOME, {u"file del registro (uscita standard)",
                                    u"file of the log (standard output)"}},
    {u"seme",          &NUMERO,    {u"seme della giornata di lavoro: lo stesso seme dà gli stessi veicoli",
                                    u"seed of the working day: the same seed gives the same vehicles"}},
    {u"finestra",      nullptr,    {u"apre una finestra per condurre l'esercitazione",
                                    u"opens a window to lead the exercise"}},
    {u"lingua",        &SIGLA,     {u"la lingua di questo programma: IT, EN, con --finestra anche FR, ES, DE",
                                    u"the language of this program: IT, EN, with --finestra FR, ES, DE too"}},
    {u"ponte",         &PORTA,     {u"sta fra la stazione e lo strumento vero su questa porta, e registra",
                                    u"stands between the station and the real instrument on this port, and records"}},
    {u"registrazione", &FILE_NOME, {u"file nuovo della registrazione (registrazione-DATA-ORA.txt)",
                                    u"new file of the record (registrazione-DATE-TIME.txt)"}},
    {u"riproduci",     &FILE_NOME, {u"fa le veci dello strumento di una registrazione",
                                    u"stands in for the instrument of a record"}},
    {u"accelera",      &NUMERO,    {u"quante volte più in fretta riproduce (1); 0: risponde subito",
                                    u"how many times as fast it plays the record (1); 0: replies at once"}},
    {u"svelto",        nullptr,    {u"come --accelera 0",
                                    u"the same as --accelera 0"}},
    {u"help",          nullptr,    {u"mostra questo aiuto",
                                    u"shows this help"}},
    {u"version",       nullptr,    {u"mostra la versione",
                                    u"shows the version"}},
};
// clang-format on

constexpr int COLONNA_DESCRIZIONI = 26;

constexpr Parole TESTA_AIUTO = {
    u"Uso: qx5sim [opzioni] [scenario.ini]\n"
    "Fa le veci dello strumento QX5 su una linea seriale.\n"
    "Senza scenario recita una giornata di lavoro.\n"
    "Con --ponte registra uno strumento vero, con --riproduci lo ripete.\n"
    "\nOpzioni:\n",
    u"Usage: qx5sim [options] [scenario.ini]\n"
    "Stands in for the QX5 instrument on a serial line.\n"
    "Without a scenario it plays a working day.\n"
    "With --ponte it records a real instrument, with --riproduci it plays it again.\n"
    "\nOptions:\n"};
constexpr Parole SENZA_VALORE = {u"a un'opzione manca il valore, o ne ha uno di troppo",
                                 u"an option lacks its value, or has one too many"};
constexpr Parole SCONOSCIUTA = {u"opzione sconosciuta: %1", u"unknown option: %1"};
constexpr Parole PIU_SCENARI = {u"più di uno scenario", u"more than one scenario"};
constexpr Parole LINGUA_IGNOTA = {u"le lingue sono IT ed EN, con --finestra anche FR, ES e DE, non %1",
                                  u"the languages are IT and EN, with --finestra FR, ES and DE too, not %1"};
constexpr Parole NON_NUMERO = {u"--seme e --velocita vogliono un numero",
                               u"--seme and --velocita take a number"};
constexpr Parole NON_PASSO = {
    u"--accelera vuole un numero da 0 a %1: 2 va al doppio, 0.5 alla metà, 0 risponde subito",
    u"--accelera takes a number from 0 to %1: 2 is twice as fast, 0.5 half, 0 at once"};

/// Faster than this nothing waits any more.
constexpr int MASSIMO_PASSO = 1000;

/// How an option agrees with others, whose names stand with a blank between them; "scenario" is the file
/// without an option.
struct DefAccordo
{
    const char16_t *nome;
    bool vieta; ///< true: none of the others may stand beside it; false: one of them must
    const char16_t *altre;
    Parole errore;
};

// clang-format off
constexpr DefAccordo ACCORDI[] = {
    {u"collega",       true,  u"dispositivo",
     {u"--collega vale per il terminale, non con --dispositivo",
      u"--collega is for the terminal, not for --dispositivo"}},
    {u"ponte",         true,  u"riproduci finestra stato seme scenario",
     {u"con --ponte risponde lo strumento vero: senza scenario, --stato, --seme, --finestra, --riproduci",
      u"with --ponte the real instrument replies: no scenario, --stato, --seme, --finestra, --riproduci"}},
    {u"riproduci",     true,  u"finestra stato seme scenario",
     {u"con --riproduci risponde la registrazione: senza scenario, --stato, --seme, --finestra",
      u"with --riproduci the record replies: no scenario, --stato, --seme, --finestra"}},
    {u"registrazione", false, u"ponte",
     {u"--registrazione vale con --ponte",
      u"--registrazione goes with --ponte"}},
    {u"svelto",        false, u"riproduci",
     {u"--svelto vale con --riproduci",
      u"--svelto goes with --riproduci"}},
    {u"accelera",      false, u"riproduci",
     {u"--accelera vale con --riproduci",
      u"--accelera goes with --riproduci"}},
    {u"accelera",      true,  u"svelto",
     {u"--svelto è già --accelera 0: uno solo dei due",
      u"--svelto is --accelera 0 already: one of the two"}},
};
// clang-format on

/// The window speaks the languages of the station.
bool E_Lingua(const QString &sigla)
{
    return std::any_of(std::begin(LINGUE), std::end(LINGUE), [&sigla](const LinguaStazione &lingua) {
        return sigla.compare(QStringView(lingua.codice), Qt::CaseInsensitive) == 0;
    });
}

QString Percorso_Intero(const QString &percorso)
{
    return percorso.isEmpty() ? QString() : QFileInfo(percorso).absoluteFilePath();
}

/// @return false when the option is given and is no number that fits.
template <typename Numero>
bool Numero_Leggi(const QCommandLineParser &analisi, const QString &nome, Numero &numero)
{
    if (!analisi.isSet(nome))
        return true;
    bool buono = false;
    const qlonglong letto = analisi.value(nome).toLongLong(&buono);
    numero = static_cast<Numero>(letto);
    return buono && letto >= 0 && static_cast<qlonglong>(numero) == letto;
}

/// How much faster a record is played. @return false when it is no number that fits.
bool Passo_Leggi(const QCommandLineParser &analisi, double &passo)
{
    if (analisi.isSet(QStringLiteral("svelto")))
        passo = 0;
    if (!analisi.isSet(QStringLiteral("accelera")))
        return true;
    bool buono = false;
    passo = analisi.value(QStringLiteral("accelera")).toDouble(&buono);
    return buono && passo >= 0 && passo <= MASSIMO_PASSO; // what is not a number is neither
}

/// What contradicts itself; empty when nothing does.
QString Accordo_Difetto(const QCommandLineParser &analisi)
{
    const auto data = [&analisi](const QString &nome) {
        return nome == u"scenario" ? !analisi.positionalArguments().isEmpty() : analisi.isSet(nome);
    };
    for (const DefAccordo &accordo : ACCORDI) {
        const QStringList altre = QString::fromUtf16(accordo.altre).split(u' ');
        const bool insieme = std::any_of(altre.cbegin(), altre.cend(), data);
        if (data(QString::fromUtf16(accordo.nome)) && insieme == accordo.vieta)
            return In_Parole(accordo.errore);
    }
    return {};
}

/// What is wrong with the line as a whole; empty when nothing is. @param letti whether the parser was
/// content.
QString Riga_Difetto(const QCommandLineParser &analisi, bool letti)
{
    if (const QStringList sconosciute = analisi.unknownOptionNames(); !sconosciute.isEmpty())
        return In_Parole(SCONOSCIUTA).arg(sconosciute.first());
    if (!letti)
        return In_Parole(SENZA_VALORE);
    if (analisi.positionalArguments().size() > 1)
        return In_Parole(PIU_SCENARI);
    return Accordo_Difetto(analisi);
}

/// What the help calls an option's value; empty for a switch, which the parser knows by it.
QString Valore_Nome(const DefOpzione &def)
{
    return def.valore == nullptr ? QString() : In_Parole(*def.valore);
}

} // namespace

bool Opzioni_Parla(const Opzioni &opzioni)
{
    if (opzioni.lingua.isEmpty() || Lingua_Scegli(opzioni.lingua))
        return true;
    return opzioni.finestra && E_Lingua(opzioni.lingua) && Lingua_Scegli(QStringLiteral("EN"));
}

std::optional<Opzioni> Opzioni_Leggi(const QStringList &argomenti, QString &errore)
{
    QCommandLineParser analisi;
    for (const DefOpzione &def : OPZIONI)
        analisi.addOption({QString::fromUtf16(def.nome), {}, Valore_Nome(def)});
    const bool letti = analisi.parse(argomenti);
    Opzioni opzioni;
    opzioni.finestra = analisi.isSet(QStringLiteral("finestra"));
    opzioni.lingua = analisi.value(QStringLiteral("lingua")).toUpper();
    // First of all: what follows is told in it.
    if (!Opzioni_Parla(opzioni)) {
        errore = In_Parole(LINGUA_IGNOTA).arg(opzioni.lingua);
        return std::nullopt;
    }
    if (errore = Riga_Difetto(analisi, letti); !errore.isEmpty())
        return std::nullopt;

    opzioni.aiuto = analisi.isSet(QStringLiteral("help"));
    opzioni.versione = analisi.isSet(QStringLiteral("version"));
    opzioni.scenario = Percorso_Intero(analisi.positionalArguments().value(0));
    opzioni.collega = Percorso_Intero(analisi.value(QStringLiteral("collega")));
    opzioni.dispositivo = analisi.value(QStringLiteral("dispositivo"));
    opzioni.stato = Percorso_Intero(analisi.value(QStringLiteral("stato")));
    opzioni.registro = Percorso_Intero(analisi.value(QStringLiteral("registro")));
    opzioni.ponte = analisi.value(QStringLiteral("ponte"));
    opzioni.registrazione = Percorso_Intero(analisi.value(QStringLiteral("registrazione")));
    opzioni.riproduci = Percorso_Intero(analisi.value(QStringLiteral("riproduci")));
    if (!Passo_Leggi(analisi, opzioni.passo)) {
        errore = In_Parole(NON_PASSO).arg(MASSIMO_PASSO);
        return std::nullopt;
    }
    quint32 seme = 0;
    if (!Numero_Leggi(analisi, QStringLiteral("seme"), seme) ||
        !Numero_Leggi(analisi, QStringLiteral("velocita"), opzioni.velocita))
    {
        errore = In_Parole(NON_NUMERO);
        return std::nullopt;
    }
    if (analisi.isSet(QStringLiteral("seme")))
        opzioni.seme = seme;
    return opzioni;
}

QString Opzioni_Aiuto()
{
    QString aiuto = In_Parole(TESTA_AIUTO);
    for (const DefOpzione &def : OPZIONI) {
        const QString nome = QStringLiteral("  --%1 %2").arg(def.nome, Valore_Nome(def));
        aiuto += nome.leftJustified(COLONNA_DESCRIZIONI) + In_Parole(def.descrizione) + u'\n';
    }
    return aiuto;
}
