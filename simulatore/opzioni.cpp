// The options by table, their help and what contradicts itself. It opens nothing.
#include "simulatore/opzioni.h"

#include "core/lingue.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

struct DefOpzione
{
    const char16_t *nome;
    const char16_t *valore; ///< empty for a switch
    const char16_t *descrizione;
};

// clang-format off
constexpr DefOpzione OPZIONI[] = {
    {u"collega",       u"PERCORSO", u"collegamento al terminale, es. porte/COM1 nella cartella della stazione"},
    {u"dispositivo",   u"PERCORSO", u"porta seriale vera al posto del terminale, es. /dev/ttyUSB0"},
    {u"velocita",      u"BAUD",     u"velocità della porta seriale vera (9600), con formato 8N1"},
    {u"stato",         u"FILE",     u"file che conserva i testi scritti dalla stazione"},
    {u"registro",      u"FILE",     u"file del registro (uscita standard)"},
    {u"seme",          u"NUMERO",   u"seme della giornata di lavoro: lo stesso seme dà gli stessi veicoli"},
    {u"finestra",      u"",         u"apre una finestra per condurre l'esercitazione"},
    {u"lingua",        u"SIGLA",    u"lingua della finestra: IT, FR, EN, ES, DE (quella del sistema)"},
    {u"ponte",         u"PORTA",    u"sta fra la stazione e lo strumento vero su questa porta, e registra"},
    {u"registrazione", u"FILE",     u"file nuovo della registrazione (registrazione-DATA-ORA.txt)"},
    {u"riproduci",     u"FILE",     u"fa le veci dello strumento di una registrazione"},
    {u"svelto",        u"",         u"nella riproduzione risponde subito, senza i tempi della registrazione"},
    {u"help",          u"",         u"mostra questo aiuto"},
    {u"version",       u"",         u"mostra la versione"},
};
// clang-format on

constexpr int COLONNA_DESCRIZIONI = 26;

/// How an option agrees with others, whose names stand with a blank between them; "scenario" is the file
/// without an option.
struct DefAccordo
{
    const char16_t *nome;
    bool vieta; ///< true: none of the others may stand beside it; false: one of them must
    const char16_t *altre;
    const char16_t *errore;
};

// clang-format off
constexpr DefAccordo ACCORDI[] = {
    {u"collega",       true,  u"dispositivo",
     u"--collega vale per il terminale, non con --dispositivo"},
    {u"ponte",         true,  u"riproduci finestra stato seme scenario",
     u"con --ponte risponde lo strumento vero: senza scenario, --stato, --seme, --finestra, --riproduci"},
    {u"riproduci",     true,  u"finestra stato seme scenario",
     u"con --riproduci risponde la registrazione: senza scenario, --stato, --seme, --finestra"},
    {u"registrazione", false, u"ponte",     u"--registrazione vale con --ponte"},
    {u"svelto",        false, u"riproduci", u"--svelto vale con --riproduci"},
    {u"lingua",        false, u"finestra",  u"--lingua vale con --finestra"},
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
            return QString::fromUtf16(accordo.errore);
    }
    return {};
}

} // namespace

std::optional<Opzioni> Opzioni_Leggi(const QStringList &argomenti, QString &errore)
{
    QCommandLineParser analisi;
    for (const DefOpzione &def : OPZIONI)
        analisi.addOption({QString::fromUtf16(def.nome), {}, QString::fromUtf16(def.valore)});
    if (!analisi.parse(argomenti)) {
        const QStringList sconosciute = analisi.unknownOptionNames();
        errore = sconosciute.isEmpty() ? QStringLiteral("a un'opzione manca il valore, o ne ha uno di troppo")
                                       : QStringLiteral("opzione sconosciuta: ") + sconosciute.first();
        return std::nullopt;
    }
    if (analisi.positionalArguments().size() > 1) {
        errore = QStringLiteral("più di uno scenario");
        return std::nullopt;
    }
    if (errore = Accordo_Difetto(analisi); !errore.isEmpty())
        return std::nullopt;

    Opzioni opzioni;
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
    opzioni.svelto = analisi.isSet(QStringLiteral("svelto"));
    opzioni.finestra = analisi.isSet(QStringLiteral("finestra"));
    opzioni.lingua = analisi.value(QStringLiteral("lingua")).toUpper();
    if (!opzioni.lingua.isEmpty() && !E_Lingua(opzioni.lingua)) {
        errore = QStringLiteral("--lingua vuole una di queste sigle: IT, FR, EN, ES, DE");
        return std::nullopt;
    }
    quint32 seme = 0;
    if (!Numero_Leggi(analisi, QStringLiteral("seme"), seme) ||
        !Numero_Leggi(analisi, QStringLiteral("velocita"), opzioni.velocita))
    {
        errore = QStringLiteral("--seme e --velocita vogliono un numero");
        return std::nullopt;
    }
    if (analisi.isSet(QStringLiteral("seme")))
        opzioni.seme = seme;
    return opzioni;
}

QString Opzioni_Aiuto()
{
    QString aiuto = QStringLiteral("Uso: qx5sim [opzioni] [scenario.ini]\n"
                                   "Fa le veci dello strumento QX5 su una linea seriale.\n"
                                   "Senza scenario recita una giornata di lavoro.\n"
                                   "Con --ponte registra uno strumento vero, con --riproduci lo ripete.\n"
                                   "\nOpzioni:\n");
    for (const DefOpzione &def : OPZIONI) {
        const QString nome = QStringLiteral("  --%1 %2").arg(def.nome, def.valore);
        aiuto += nome.leftJustified(COLONNA_DESCRIZIONI) + QString::fromUtf16(def.descrizione) + u'\n';
    }
    return aiuto;
}
