// The options by table, their help and what contradicts itself. It opens nothing.
#include "simulatore/opzioni.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace {

struct DefOpzione
{
    const char16_t *nome;
    const char16_t *valore; ///< empty for a switch
    const char16_t *descrizione;
};

// clang-format off
constexpr DefOpzione OPZIONI[] = {
    {u"collega",     u"PERCORSO", u"collegamento al terminale, es. porte/COM1 nella cartella della stazione"},
    {u"dispositivo", u"PERCORSO", u"porta seriale vera al posto del terminale, es. /dev/ttyUSB0"},
    {u"velocita",    u"BAUD",     u"velocità della porta seriale vera (9600), con formato 8N1"},
    {u"stato",       u"FILE",     u"file che conserva i testi scritti dalla stazione"},
    {u"registro",    u"FILE",     u"file del registro (uscita standard)"},
    {u"seme",        u"NUMERO",   u"seme della giornata di lavoro: lo stesso seme dà gli stessi veicoli"},
    {u"help",        u"",         u"mostra questo aiuto"},
    {u"version",     u"",         u"mostra la versione"},
};
// clang-format on

constexpr int COLONNA_DESCRIZIONI = 26;

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
    if (analisi.isSet(QStringLiteral("collega")) && analisi.isSet(QStringLiteral("dispositivo"))) {
        errore = QStringLiteral("--collega vale per il terminale, non con --dispositivo");
        return std::nullopt;
    }

    Opzioni opzioni;
    opzioni.aiuto = analisi.isSet(QStringLiteral("help"));
    opzioni.versione = analisi.isSet(QStringLiteral("version"));
    opzioni.scenario = Percorso_Intero(analisi.positionalArguments().value(0));
    opzioni.collega = Percorso_Intero(analisi.value(QStringLiteral("collega")));
    opzioni.dispositivo = analisi.value(QStringLiteral("dispositivo"));
    opzioni.stato = Percorso_Intero(analisi.value(QStringLiteral("stato")));
    opzioni.registro = Percorso_Intero(analisi.value(QStringLiteral("registro")));
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
                                   "Senza scenario recita una giornata di lavoro.\n\nOpzioni:\n");
    for (const DefOpzione &def : OPZIONI) {
        const QString nome = QStringLiteral("  --%1 %2").arg(def.nome, def.valore);
        aiuto += nome.leftJustified(COLONNA_DESCRIZIONI) + QString::fromUtf16(def.descrizione) + u'\n';
    }
    return aiuto;
}
