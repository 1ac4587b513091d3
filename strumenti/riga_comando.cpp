// Options by Qt's parser, words in the tool's own languages.
#include "strumenti/riga_comando.h"

#include "core/versione.h"
#include "strumenti/terminale.h"

namespace {

constexpr Parole SCONOSCIUTA = {u"opzione sconosciuta: %1 (%2 --help)", u"unknown option: %1 (%2 --help)"};
constexpr Parole SENZA_VALORE = {u"a un'opzione manca il suo valore (%1 --help)",
                                 u"an option lacks its value (%1 --help)"};
constexpr Parole SENZA_POSTI = {u"serve almeno un FILE o una CARTELLA (%1 --help)",
                                u"at least one FILE or FOLDER is needed (%1 --help)"};
constexpr Parole POSTI_VIETATI = {u"oltre alle opzioni non va niente (%1 --help)",
                                  u"nothing stands beside the options (%1 --help)"};
constexpr Parole TROPPI_POSTI = {u"più di una CARTELLA (%1 --help)", u"more than one FOLDER (%1 --help)"};
constexpr Parole LINGUA_IGNOTA = {u"le lingue sono IT ed EN, non %1", u"the languages are IT and EN, not %1"};

const QString AIUTO = QStringLiteral("help");
const QString VERSIONE = QStringLiteral("version");
const QString LINGUA = QStringLiteral("lingua");

} // namespace

RigaComando::RigaComando(const QString &nome, const Parole &aiuto, const QList<QCommandLineOption> &opzioni,
                         Luoghi luoghi)
    : m_nome(nome), m_aiuto(aiuto), m_luoghi(luoghi)
{
    m_righe.addOption(QCommandLineOption(AIUTO));
    m_righe.addOption(QCommandLineOption(VERSIONE));
    m_righe.addOption({LINGUA, QString(), QStringLiteral("IT|EN")});
    m_righe.addOptions(opzioni);
}

std::optional<FineStrumento> RigaComando::Leggi(const QStringList &argomenti)
{
    const bool letti = m_righe.parse(argomenti);
    // First of all: what follows is told in it.
    if (Ha(LINGUA) && !Lingua_Scegli(Valore(LINGUA)))
        return Rifiuta(In_Parole(LINGUA_IGNOTA).arg(Valore(LINGUA)));
    if (Ha(AIUTO)) {
        Terminale_Scrivi(Canale::Uscita, In_Parole(m_aiuto));
        return FineStrumento::Buono;
    }
    if (Ha(VERSIONE)) {
        Terminale_Scrivi(Canale::Uscita, m_nome + u' ' + Versione_Programma() + u'\n');
        return FineStrumento::Buono;
    }
    if (!m_righe.unknownOptionNames().isEmpty())
        return Rifiuta(In_Parole(SCONOSCIUTA).arg(m_righe.unknownOptionNames().first(), m_nome));
    if (!letti)
        return Rifiuta(In_Parole(SENZA_VALORE).arg(m_nome));
    if (m_luoghi == Luoghi::UnoOPiu && Posti().isEmpty())
        return Rifiuta(In_Parole(SENZA_POSTI).arg(m_nome));
    if (m_luoghi == Luoghi::UnoAlPiu && Posti().size() > 1)
        return Rifiuta(In_Parole(TROPPI_POSTI).arg(m_nome));
    if (m_luoghi == Luoghi::Nessuno && !Posti().isEmpty())
        return Rifiuta(In_Parole(POSTI_VIETATI).arg(m_nome)); // not which: it may be a password
    return std::nullopt;
}

FineStrumento RigaComando::Rifiuta(const QString &errore) const
{
    Terminale_Scrivi(Canale::Errori, m_nome + QStringLiteral(": ") + errore + u'\n');
    return FineStrumento::NonGuardato;
}
