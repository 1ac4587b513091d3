// The scenario's sections read and judged, with the place of each error. It knows no frame and no line.
#include "simulatore/scenario.h"

#include "core/modGeneral.h"
#include "core/parole.h"
#include "platform/codifica.h"
#include "platform/percorsi.h"

#include <QFile>

#include <algorithm>
#include <limits>

namespace {

constexpr int MASSIMO_NUMERO = 60000;
constexpr int SEMPRE = std::numeric_limits<int>::max(); // a last time that never comes
constexpr qsizetype MISURA_RECORD = 6;
constexpr qsizetype CIFRE_RECORD = 4;

constexpr Parole ILLEGGIBILE = {u"%1: non si legge", u"%1: cannot be read"};
constexpr Parole NON_NUMERO = {u"\"%1\" non è un numero da %2 a %3", u"\"%1\" is no number from %2 to %3"};
constexpr Parole NON_RECORD = {u"\"%1\" non è fatto di quattro cifre e due caratteri",
                               u"\"%1\" is not made of four digits and two characters"};
constexpr Parole NON_GUASTO = {u"\"%1\" non ha la forma comando;volte;guasto[;numero]",
                               u"\"%1\" has not the form command;times;fault[;number]"};
constexpr Parole COMANDO_IGNOTO = {u"comando sconosciuto \"%1\"", u"unknown command \"%1\""};
constexpr Parole NON_VOLTE = {u"\"%1\" non dice le volte: si scrive *, 3, 2-5 oppure 4-",
                              u"\"%1\" does not tell the times: write *, 3, 2-5 or 4-"};
constexpr Parole GUASTO_IGNOTO = {u"guasto sconosciuto \"%1\"", u"unknown fault \"%1\""};
constexpr Parole SENZA_NUMERO = {u"il guasto \"%1\" non ha numero", u"the fault \"%1\" has no number"};

/// A beam that passes with the limits of a new installation, for a record that the scenario leaves out.
constexpr const char16_t *RECORD_PREDEFINITI[] = {u"0250OO", u"0600OO", u"0250OO", u"0600OO"};

/// A type of fault and its number: what stands for it when it is left out, and its bounds (0 and 0: none).
struct DefGuasto
{
    const char16_t *nome;
    TipoGuasto tipo;
    int predefinito;
    int minimo;
    int massimo;
};

// A frame of 107 bytes is the shortest that the station cannot hold.
// clang-format off
constexpr DefGuasto GUASTI[] = {
    {u"silenzio",   TipoGuasto::Silenzio,      0,   0,              0},
    {u"controllo",  TipoGuasto::Controllo,     0,   0,              0},
    {u"tipo",       TipoGuasto::Tipo,          0,   0,              0},
    {u"spezzata",   TipoGuasto::Spezzata,    300,   1, MASSIMO_NUMERO},
    {u"unita",      TipoGuasto::Unita,         0,   0,              0},
    {u"rumore",     TipoGuasto::Rumore,        0,   0,              0},
    {u"lunga",      TipoGuasto::Lunga,       107, 107,           4096},
    {u"seconda",    TipoGuasto::Seconda,    2500,   0, MASSIMO_NUMERO},
    {u"ritardo",    TipoGuasto::Ritardo,    2500,   1, MASSIMO_NUMERO},
    {u"riaggancio", TipoGuasto::Riaggancio, 2000,   0, MASSIMO_NUMERO},
};
// clang-format on

QString Numero_Difetto(const QString &valore, int minimo, int massimo)
{
    return In_Parole(NON_NUMERO).arg(valore, QString::number(minimo), QString::number(massimo));
}

/// A section of the file being read, and the place where its errors go.
class Lettura
{
public:
    Lettura(const QString &file, const QString &sezione, QStringList &errori)
        : m_file(file), m_sezione(sezione), m_errori(errori)
    {
    }

    QString Valore(const QString &chiave) const { return Valore_Ini(m_file, m_sezione, chiave); }

    int Numero(const QString &chiave, int predefinito, int massimo) const
    {
        const QString valore = Valore(chiave);
        bool buono = false;
        const int numero = valore.isEmpty() ? predefinito : valore.toInt(&buono);
        if (!valore.isEmpty() && (!buono || numero < 0 || numero > massimo))
            Errore(chiave, Numero_Difetto(valore, 0, massimo));
        return numero;
    }

    void Errore(const QString &chiave, const QString &testo) const
    {
        m_errori.append(QStringLiteral("[%1] %2: %3").arg(m_sezione, chiave, testo));
    }

private:
    const QString &m_file;
    QString m_sezione;
    QStringList &m_errori;
};

QByteArray Record_Leggi(const Lettura &lettura, size_t numero)
{
    const QString chiave = QString::fromUtf16(NOMI_RECORD[numero]);
    const QString valore = lettura.Valore(chiave);
    QByteArray record =
        Testo_InAnsi(valore.isEmpty() ? QString::fromUtf16(RECORD_PREDEFINITI[numero]) : valore);
    const bool cifre = std::all_of(record.cbegin(), record.cbegin() + std::min(CIFRE_RECORD, record.size()),
                                   [](char c) { return c >= '0' && c <= '9'; });
    if (record.size() != MISURA_RECORD || !cifre)
        lettura.Errore(chiave, In_Parole(NON_RECORD).arg(valore));
    return record;
}

/// The times of a fault: "*", "3", "2-5", "4-". @return false when the text is none of these.
bool Volte_Leggi(const QString &testo, Guasto &guasto)
{
    if (testo == u"*") {
        guasto.aVolta = SEMPRE;
        return true;
    }
    const QStringList estremi = testo.split(u'-');
    bool da = false;
    bool a = true;
    guasto.daVolta = estremi.first().toInt(&da);
    guasto.aVolta = guasto.daVolta;
    if (estremi.size() == 2)
        guasto.aVolta = estremi.last().isEmpty() ? SEMPRE : estremi.last().toInt(&a);
    return da && a && estremi.size() <= 2 && guasto.daVolta >= 1 && guasto.aVolta >= guasto.daVolta;
}

/// @return what is wrong with a fault's text; empty when nothing is.
QString Guasto_Interpreta(const QString &testo, Guasto &guasto)
{
    QStringList pezzi = testo.split(u';');
    for (QString &pezzo : pezzi)
        pezzo = pezzo.trimmed();
    if (pezzi.size() < 3 || pezzi.size() > 4)
        return In_Parole(NON_GUASTO).arg(testo);

    if (pezzi[0] != u"*") {
        const DefComando *comando = Comando_DaNome(pezzi[0]);
        if (comando == nullptr)
            return In_Parole(COMANDO_IGNOTO).arg(pezzi[0]);
        guasto.comando = comando->codice;
    }
    if (!Volte_Leggi(pezzi[1], guasto))
        return In_Parole(NON_VOLTE).arg(pezzi[1]);

    const auto *def = std::find_if(std::begin(GUASTI), std::end(GUASTI), [&pezzi](const DefGuasto &d) {
        return pezzi[2].compare(QStringView(d.nome), Qt::CaseInsensitive) == 0;
    });
    if (def == std::end(GUASTI))
        return In_Parole(GUASTO_IGNOTO).arg(pezzi[2]);
    guasto.tipo = def->tipo;
    guasto.numero = def->predefinito;
    if (pezzi.size() == 3)
        return {};
    if (def->massimo == 0)
        return In_Parole(SENZA_NUMERO).arg(pezzi[2]);
    bool buono = false;
    guasto.numero = pezzi[3].toInt(&buono);
    if (!buono || guasto.numero < def->minimo || guasto.numero > def->massimo)
        return Numero_Difetto(pezzi[3], def->minimo, def->massimo);
    return {};
}

/// Guasto1, Guasto2 and so on, up to the first one missing.
QList<Guasto> Guasti_Leggi(const Lettura &lettura)
{
    QList<Guasto> guasti;
    for (int n = 1;; ++n) {
        const QString chiave = QStringLiteral("Guasto%1").arg(n);
        const QString testo = lettura.Valore(chiave);
        if (testo.isEmpty())
            return guasti;
        Guasto guasto;
        const QString errore = Guasto_Interpreta(testo, guasto);
        if (!errore.isEmpty())
            lettura.Errore(chiave, errore);
        guasti.append(guasto);
    }
}

/// A section is there when one of its keys has a value.
bool Veicolo_Presente(const Lettura &lettura)
{
    QStringList chiavi = {QStringLiteral("Riposo"), QStringLiteral("Prova"), QStringLiteral("Guasto1")};
    for (const char16_t *nome : NOMI_RECORD)
        chiavi.append(QString::fromUtf16(nome));
    return std::any_of(chiavi.cbegin(), chiavi.cend(),
                       [&lettura](const QString &chiave) { return !lettura.Valore(chiave).isEmpty(); });
}

Veicolo Veicolo_Leggi(const Lettura &lettura)
{
    Veicolo veicolo;
    veicolo.riposo = lettura.Numero(QStringLiteral("Riposo"), 3, MASSIMO_NUMERO);
    veicolo.prova = lettura.Numero(QStringLiteral("Prova"), 5, MASSIMO_NUMERO);
    for (size_t i = 0; i < veicolo.record.size(); ++i)
        veicolo.record[i] = Record_Leggi(lettura, i);
    veicolo.guasti = Guasti_Leggi(lettura);
    return veicolo;
}

const DefGuasto &Guasto_Def(TipoGuasto tipo)
{
    return *std::find_if(std::begin(GUASTI), std::end(GUASTI),
                         [tipo](const DefGuasto &d) { return d.tipo == tipo; });
}

} // namespace

QList<TipoGuasto> Guasti_Tutti()
{
    QList<TipoGuasto> tipi;
    for (const DefGuasto &def : GUASTI)
        tipi.append(def.tipo);
    return tipi;
}

Guasto Guasto_Continuo(TipoGuasto tipo, std::optional<CodiceComando> comando)
{
    return {.comando = comando,
            .daVolta = 1,
            .aVolta = SEMPRE,
            .tipo = tipo,
            .numero = Guasto_Def(tipo).predefinito};
}

QString Guasto_Nome(TipoGuasto tipo)
{
    return QString::fromUtf16(Guasto_Def(tipo).nome);
}

QStringList Scenario_Leggi(const QString &file, Scenario &scenario)
{
    Scenario letto;
    QStringList errori;
    if (!file.isEmpty()) {
        if (!QFile(Percorso_Nativo(file)).open(QIODevice::ReadOnly))
            return {In_Parole(ILLEGGIBILE).arg(file)};
        const Lettura generale(file, QStringLiteral("GENERALE"), errori);
        letto.ritardo = generale.Numero(QStringLiteral("Ritardo"), letto.ritardo, MASSIMO_NUMERO);
        letto.ricomincia = generale.Numero(QStringLiteral("Ricomincia"), 0, 1) == 1;
        letto.guasti = Guasti_Leggi(Lettura(file, QStringLiteral("GUASTI"), errori));
        for (int n = 1;; ++n) {
            const Lettura sezione(file, QStringLiteral("VEICOLO%1").arg(n), errori);
            if (!Veicolo_Presente(sezione))
                break;
            letto.veicoli.append(Veicolo_Leggi(sezione));
        }
    }
    if (errori.isEmpty())
        scenario = letto;
    return errori;
}
