// The lines of a record made and read. It knows no frame.
#include "simulatore/registrazione.h"

#include "core/parole.h"
#include "simulatore/trama.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

/// The first line, up to the number of the format.
constexpr char16_t TESTA[] = u"qx5sim registrazione ";
constexpr int VERSIONE = 1;

constexpr char16_t PAROLA_FAR[] = u"far ";
constexpr char16_t COMMENTO = u'#';

constexpr Parole NON_REGISTRAZIONE = {u"non è una registrazione di qx5sim", u"this is no record of qx5sim"};
constexpr Parole TROPPO_NUOVA = {u"registrazione di formato %1: questo programma legge fino al %2",
                                 u"a record of format %1: this program reads up to %2"};
constexpr Parole SENZA_FORMA = {u"non ha la forma: millesimi, chi parla, byte in esadecimale",
                                u"it has not the form: milliseconds, who speaks, bytes in hexadecimal"};
constexpr Parole VOCE_IGNOTA = {u"\"%1\" non è né stazione né strumento",
                                u"\"%1\" is neither stazione nor strumento"};
constexpr Parole INDIETRO = {u"il tempo torna indietro", u"the time goes back"};
constexpr Parole ALLA_RIGA = {u"%1, riga %2: %3", u"%1, line %2: %3"};
constexpr Parole C_E_GIA = {u"%1: esiste già", u"%1: there is one already"};
constexpr Parole COLONNE = {u"# millesimi dall'inizio, chi parla, byte",
                            u"# milliseconds from the start, who speaks, bytes"};

/// Columns, so that the times and the voices stand below each other.
constexpr int LARGHEZZA_MS = 8;
constexpr int LARGHEZZA_VOCE = 9;

struct DefVoce
{
    Voce voce;
    const char16_t *nome;
};

// clang-format off
constexpr DefVoce VOCI[] = {
    {Voce::Stazione,  u"stazione"},
    {Voce::Strumento, u"strumento"},
};
// clang-format on

QString Voce_Nome(Voce voce)
{
    const auto *def =
        std::find_if(std::begin(VOCI), std::end(VOCI), [voce](const DefVoce &d) { return d.voce == voce; });
    return QString::fromUtf16(def->nome);
}

/// What is wrong with the first line; empty when nothing is.
QString Testa_Difetto(const QString &riga)
{
    bool buono = false;
    const int versione = riga.mid(QStringView(TESTA).size()).toInt(&buono);
    if (!riga.startsWith(TESTA) || !buono || versione < 1)
        return In_Parole(NON_REGISTRAZIONE);
    if (versione > VERSIONE)
        return In_Parole(TROPPO_NUOVA).arg(versione).arg(VERSIONE);
    return {};
}

/// @return what is wrong with the line of a piece; empty when nothing is.
QString Brano_Leggi(const QString &riga, BranoLinea &brano)
{
    static const QRegularExpression FORMA(
        QStringLiteral("^(\\d{1,15})\\s+(\\w+)\\s+([0-9A-Fa-f]{2}(?:\\s+[0-9A-Fa-f]{2})*)$"));
    const QRegularExpressionMatch forma = FORMA.match(riga);
    if (!forma.hasMatch())
        return In_Parole(SENZA_FORMA);
    const auto *def = std::find_if(std::begin(VOCI), std::end(VOCI), [&forma](const DefVoce &d) {
        return forma.capturedView(2) == QStringView(d.nome);
    });
    if (def == std::end(VOCI))
        return In_Parole(VOCE_IGNOTA).arg(forma.captured(2));
    brano.ms = forma.captured(1).toLongLong();
    brano.voce = def->voce;
    brano.byte = QByteArray::fromHex(forma.captured(3).toLatin1());
    return {};
}

/// @return what is wrong with a line behind the first; empty when nothing is.
QString Riga_Leggi(const QString &riga, Registrazione &registrazione)
{
    if (riga.isEmpty() || riga.startsWith(COMMENTO))
        return {};
    if (riga.startsWith(PAROLA_FAR)) {
        registrazione.far = riga.sliced(QStringView(PAROLA_FAR).size()).trimmed();
        return {};
    }
    BranoLinea brano;
    if (QString difetto = Brano_Leggi(riga, brano); !difetto.isEmpty())
        return difetto;
    if (!registrazione.brani.isEmpty() && brano.ms < registrazione.brani.last().ms)
        return In_Parole(INDIETRO);
    registrazione.brani.append(brano);
    return {};
}

} // namespace

QString Brano_Testo(const BranoLinea &brano)
{
    return QString::number(brano.ms).rightJustified(LARGHEZZA_MS) + u' ' +
           Voce_Nome(brano.voce).leftJustified(LARGHEZZA_VOCE) + u' ' + Trama_Hex(brano.byte);
}

QStringList Registrazione_Leggi(const QString &file, Registrazione &registrazione)
{
    QFile aperto(file);
    if (!aperto.open(QIODevice::ReadOnly))
        return {QStringLiteral("%1: %2").arg(file, aperto.errorString())};
    const QStringList righe = QString::fromUtf8(aperto.readAll()).split(u'\n');
    if (const QString difetto = Testa_Difetto(righe.first().trimmed()); !difetto.isEmpty())
        return {QStringLiteral("%1: %2").arg(file, difetto)};

    Registrazione letta;
    QStringList errori;
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QString difetto = Riga_Leggi(righe[i].trimmed(), letta);
        if (!difetto.isEmpty())
            errori.append(In_Parole(ALLA_RIGA).arg(file, QString::number(i + 1), difetto));
    }
    if (errori.isEmpty())
        registrazione = letta;
    return errori;
}

bool ScrittoreRegistrazione::Apri(const QString &percorso, const QString &nota, QString &errore)
{
    m_file.setFileName(percorso);
    if (m_file.exists()) {
        errore = In_Parole(C_E_GIA).arg(percorso);
        return false;
    }
    const bool scritta = m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                         Scrivi(QString::fromUtf16(TESTA) + QString::number(VERSIONE)) &&
                         Scrivi(QStringLiteral("# ") + nota) && Scrivi(In_Parole(COLONNE));
    if (!scritta)
        errore = QStringLiteral("%1: %2").arg(percorso, m_file.errorString());
    return scritta;
}

void ScrittoreRegistrazione::Scarta()
{
    m_file.remove();
}

bool ScrittoreRegistrazione::Aggiungi(const BranoLinea &brano)
{
    return Scrivi(Brano_Testo(brano));
}

bool ScrittoreRegistrazione::Annota(qint64 ms, const QString &testo)
{
    return Scrivi(QStringLiteral("# %1 %2").arg(ms, LARGHEZZA_MS - 2).arg(testo));
}

bool ScrittoreRegistrazione::Scrivi(const QString &riga)
{
    const QByteArray byte = (riga + u'\n').toUtf8();
    return m_file.write(byte) == byte.size() && m_file.flush();
}
