// Commands obeyed in the state of the vehicle at hand, replies with their faults. No line and no clock.
#include "simulatore/strumento.h"

#include "core/parole.h"
#include "platform/codifica.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr qsizetype POSTO_CODICE = 4;
constexpr qsizetype POSTO_CARICO = 5;
constexpr qsizetype BYTE_CODA = 2; // check character and end byte
constexpr char RIEMPITIVO = '\0';
constexpr char SEPARATORE = 0x17; // closes each text

/// The answers to a write: one byte means accepted, and any other that it could not be kept.
constexpr char SCRITTO = '\xFF';
constexpr char NON_SCRITTO = '\0';

/// The longest reply that a station holds, in bytes.
constexpr qsizetype MASSIMO_STAZIONE = 106;

constexpr Parole SCONOSCIUTO = {u"comando sconosciuto", u"unknown command"};
constexpr Parole DATI_DI_TROPPO = {u"dati in un comando che non ne porta",
                                   u"data in a command that carries none"};
constexpr Parole SENZA_RIEMPITIVO = {u"manca il riempitivo 00 prima del carattere di controllo",
                                     u"no filler 00 before the check character"};
constexpr Parole SENZA_RISPOSTA = {u"%1: nessuna risposta", u"%1: no reply"};
constexpr Parole NON_PARTE = {u"-- guasto %1: %2 non parte", u"-- fault %1: %2 is not sent"};
constexpr Parole NON_PRONTA = {u"nessuna misura pronta: nessuna risposta", u"no measure ready: no reply"};
constexpr Parole MISURA = {u"misura", u"measure"};
constexpr Parole TESTI = {u"testi", u"texts"};
constexpr Parole TROPPI_BYTE = {u"  (%1 byte: la stazione ne tiene %2)",
                                u"  (%1 bytes: the station holds %2)"};
constexpr Parole SCRITTURA_BUONA = {u"scritto", u"written"};
constexpr Parole SCRITTURA_PERSA = {u"non scritto: il file di stato non si scrive",
                                    u"not written: the state file cannot be written"};
constexpr Parole NUOVO_VEICOLO = {u"-- nuovo veicolo:", u"-- new vehicle:"};

/// Where the texts of a write go. The identity goes out in two frames, the operator alone in the second.
struct DefScrittura
{
    CodiceComando comando;
    Blocco blocco;
    qsizetype primo;
    qsizetype quanti;
};

// clang-format off
constexpr DefScrittura SCRITTURE[] = {
    {CodiceComando::ScriviDati1,    Blocco::Dati,     0,  5},
    {CodiceComando::ScriviDati2,    Blocco::Dati,     5,  1},
    {CodiceComando::ScriviTaratura, Blocco::Taratura, 0, 10},
};
// clang-format on

/// The texts of a payload; what stands behind the last separator is none.
QStringList Testi_Di(const QByteArray &carico)
{
    QStringList testi;
    for (const QByteArray &pezzo : carico.split(SEPARATORE))
        testi.append(Testo_DaAnsi(pezzo));
    testi.removeLast();
    return testi;
}

QByteArray Carico_Componi(const QStringList &testi)
{
    QByteArray carico;
    for (const QString &testo : testi)
        carico += Testo_InAnsi(testo) + SEPARATORE;
    return carico;
}

QString Testi_Nota(const QStringList &testi)
{
    QString nota;
    for (const QString &testo : testi)
        nota += QStringLiteral(" \"%1\"").arg(testo);
    return nota;
}

const DefComando *Comando_Di(const QByteArray &trama)
{
    return Comando_DaCodice(static_cast<quint8>(trama[POSTO_CODICE]));
}

QByteArray Carico_Di(const QByteArray &trama)
{
    return trama.sliced(POSTO_CARICO).chopped(BYTE_CODA);
}

/// What is wrong with a command; empty when it is one of the instrument's and has its form.
QString Comando_Difetto(const QByteArray &trama)
{
    if (QString difetto = Trama_Difetto(trama); !difetto.isEmpty())
        return difetto;
    const DefComando *comando = Comando_Di(trama);
    if (comando == nullptr)
        return In_Parole(SCONOSCIUTO);
    const QByteArray carico = Carico_Di(trama);
    if (comando->carico == CaricoComando::Nessuno && !carico.isEmpty())
        return In_Parole(DATI_DI_TROPPO);
    if (comando->carico == CaricoComando::TestiRiempitivo && !carico.endsWith(RIEMPITIVO))
        return In_Parole(SENZA_RIEMPITIVO);
    return {};
}

QString Record_Nota(const Veicolo &veicolo)
{
    QString nota;
    for (size_t i = 0; i < veicolo.record.size(); ++i)
        nota +=
            QStringLiteral(" %1=%2").arg(QString::fromUtf16(NOMI_RECORD[i]), Testo_DaAnsi(veicolo.record[i]));
    return nota;
}

/// What a poll is told.
struct DefStato
{
    StatoStrumento stato;
    char byte;
    Parole nota;
};

// clang-format off
constexpr DefStato STATI[] = {
    {StatoStrumento::Riposo, '1', {u"\"1\" a riposo", u"\"1\" idle"}},
    {StatoStrumento::Prova,  '2', {u"\"2\" prova in corso", u"\"2\" measuring"}},
    {StatoStrumento::Pronta, '4', {u"\"4\" misura pronta", u"\"4\" measure ready"}},
};
// clang-format on

const DefStato &Stato_Def(StatoStrumento stato)
{
    return *std::find_if(std::begin(STATI), std::end(STATI),
                         [stato](const DefStato &d) { return d.stato == stato; });
}

} // namespace

Strumento::Strumento(const QString &fileScenario, const QString &fileStato, quint32 seme,
                     std::function<void(const QString &)> annota)
    : Interlocutore(std::move(annota)),
      m_fileScenario(fileScenario),
      m_memoria(fileScenario, fileStato),
      m_giornata(seme)
{
    Veicolo_Nuovo();
}

void Strumento::Linea_Lasciata()
{
    Interlocutore::Linea_Lasciata();
    m_trattenuta.clear();
    if (!A_Riposo())
        return;
    Scenario_Rileggi();
    if (m_scenario.veicoli.isEmpty())
        return;
    m_indice = std::clamp<qsizetype>(m_indice, 0, m_scenario.veicoli.size() - 1);
    m_veicolo = m_scenario.veicoli[m_indice];
    m_veicolo.record = m_recordFissi.value_or(m_veicolo.record);
}

StatoStrumento Strumento::Stato() const
{
    if (Misura_Pronta())
        return StatoStrumento::Pronta;
    return m_interrogazioni <= m_veicolo.riposo ? StatoStrumento::Riposo : StatoStrumento::Prova;
}

void Strumento::Stato_Imposta(StatoStrumento stato)
{
    if (m_misurato)
        Veicolo_Nuovo();
    switch (stato) {
    case StatoStrumento::Riposo:
        m_interrogazioni = 0;
        break;
    case StatoStrumento::Prova:
        m_veicolo.prova = std::max(1, m_veicolo.prova); // a scenario may leave no poll for it
        m_interrogazioni = m_veicolo.riposo + 1;
        break;
    case StatoStrumento::Pronta:
        m_interrogazioni = m_veicolo.riposo + m_veicolo.prova + 1;
        break;
    }
}

void Strumento::Record_Fissa(const std::optional<RecordMisura> &record)
{
    m_recordFissi = record;
    if (record)
        m_veicolo.record = *record;
}

QList<Invio> Strumento::Comando_Ricevuto(const QByteArray &trama)
{
    const QString riga = QStringLiteral("<- ") + Trama_Hex(trama) + QStringLiteral("  ");
    if (const QString difetto = Comando_Difetto(trama); !difetto.isEmpty()) {
        Annota(riga + In_Parole(SENZA_RISPOSTA).arg(difetto));
        return {};
    }

    const DefComando &comando = *Comando_Di(trama);
    const QByteArray carico = Carico_Di(trama);
    Annota(riga + QString::fromUtf16(comando.nome) + Testi_Nota(Testi_Di(carico)));
    const Risposta risposta = Risposta_Di(comando, carico);
    if (risposta.trama.isEmpty()) {
        Annota(QStringLiteral("-- ") + risposta.nota);
        return {};
    }
    return Risposta_Invia(comando, risposta);
}

QList<Invio> Strumento::Risposta_Invia(const DefComando &comando, const Risposta &risposta)
{
    const Guasto *guasto = Guasto_Dovuto(comando.codice, ++m_volte[comando.codice]);
    QList<Invio> invii = {
        {.ritardo = m_scenario.ritardo, .byte = risposta.trama, .nota = risposta.nota}
    };
    if (guasto != nullptr) {
        invii = Guasto_Applica(*guasto, risposta, m_scenario.ritardo, comando.postoGenere);
        if (invii.isEmpty())
            Annota(In_Parole(NON_PARTE).arg(Guasto_Nome(guasto->tipo), risposta.nota));
        if (guasto->tipo == TipoGuasto::Unita)
            m_trattenuta += risposta.trama;
    }
    if (!invii.isEmpty() && invii.first().riaggancio < 0)
        invii.first().byte.prepend(std::exchange(m_trattenuta, QByteArray()));
    return invii;
}

const Guasto *Strumento::Guasto_Dovuto(CodiceComando comando, int volta) const
{
    const auto colpisce = [comando, volta](const Guasto &g) {
        return (!g.comando || *g.comando == comando) && volta >= g.daVolta && volta <= g.aVolta;
    };
    for (const QList<Guasto> *elenco : {&m_guastiManuali, &m_veicolo.guasti, &m_scenario.guasti}) {
        const auto trovato = std::find_if(elenco->cbegin(), elenco->cend(), colpisce);
        if (trovato != elenco->cend())
            return &*trovato;
    }
    return nullptr;
}

Risposta Strumento::Risposta_Di(const DefComando &comando, const QByteArray &carico)
{
    // The operator does not measure while the station reads and writes settings: the polls of these sessions
    // do not bring the next measure nearer.
    const bool sessioneDati =
        comando.codice != CodiceComando::Stato && comando.codice != CodiceComando::Misura;
    if (sessioneDati && A_Riposo())
        m_interrogazioni = 0;

    switch (comando.codice) {
    case CodiceComando::Stato:
        return Risposta_Stato();
    case CodiceComando::Misura:
        return Risposta_Misura();
    case CodiceComando::LeggiDati:
        return Risposta_Testi(Blocco::Dati, QByteArrayLiteral("U"));
    case CodiceComando::LeggiTaratura:
        return Risposta_Testi(Blocco::Taratura, QByteArray());
    case CodiceComando::ScriviDati1:
    case CodiceComando::ScriviDati2:
    case CodiceComando::ScriviTaratura:
        return Risposta_Scrittura(comando.codice, carico);
    }
    Q_UNREACHABLE();
}

Risposta Strumento::Risposta_Stato()
{
    if (m_misurato)
        Veicolo_Nuovo();
    if (!m_fermo)
        ++m_interrogazioni;
    const DefStato &stato = Stato_Def(Stato());
    return {Trama_Componi(QByteArray(1, stato.byte)), In_Parole(stato.nota)};
}

Risposta Strumento::Risposta_Misura()
{
    if (!Misura_Pronta())
        return {{}, In_Parole(NON_PRONTA)};
    // A station that did not get the reply asks again, and gets the same measure.
    m_misurato = true;
    QByteArray corpo;
    for (const QByteArray &record : m_veicolo.record)
        corpo += record;
    return {Trama_Componi(corpo), In_Parole(MISURA) + Record_Nota(m_veicolo)};
}

Risposta Strumento::Risposta_Testi(Blocco blocco, const QByteArray &testa)
{
    const QStringList testi = m_memoria.Leggi(blocco);
    Risposta risposta = {Trama_Componi(testa + Carico_Componi(testi)), In_Parole(TESTI) + Testi_Nota(testi)};
    if (risposta.trama.size() > MASSIMO_STAZIONE)
        risposta.nota += In_Parole(TROPPI_BYTE).arg(risposta.trama.size()).arg(MASSIMO_STAZIONE);
    return risposta;
}

Risposta Strumento::Risposta_Scrittura(CodiceComando comando, const QByteArray &carico)
{
    const auto *scrittura = std::find_if(std::begin(SCRITTURE), std::end(SCRITTURE),
                                         [comando](const DefScrittura &s) { return s.comando == comando; });
    const QStringList testi = Testi_Di(carico);
    bool tenuti = true;
    for (qsizetype i = 0; i < std::min(testi.size(), scrittura->quanti); ++i)
        tenuti = m_memoria.Scrivi(scrittura->blocco, scrittura->primo + i, testi[i]) && tenuti;
    const char esito = tenuti ? SCRITTO : NON_SCRITTO;
    return {Trama_Componi(QByteArray(1, esito)), In_Parole(tenuti ? SCRITTURA_BUONA : SCRITTURA_PERSA)};
}

/// Reads the scenario anew; one with errors leaves the last good one in force.
void Strumento::Scenario_Rileggi()
{
    for (const QString &errore : Scenario_Leggi(m_fileScenario, m_scenario))
        Annota(QStringLiteral("-- scenario: ") + errore);
}

void Strumento::Veicolo_Nuovo()
{
    Scenario_Rileggi();
    m_interrogazioni = 0;
    m_misurato = false;
    m_volte.clear();
    const qsizetype veicoli = m_scenario.veicoli.size();
    if (veicoli == 0) {
        m_indice = -1;
        m_veicolo = m_giornata.Prossimo();
    } else {
        ++m_indice;
        if (m_indice >= veicoli)
            m_indice = m_scenario.ricomincia ? 0 : veicoli - 1;
        m_veicolo = m_scenario.veicoli[m_indice];
    }
    m_veicolo.record = m_recordFissi.value_or(m_veicolo.record);
    Annota(In_Parole(NUOVO_VEICOLO) + Record_Nota(m_veicolo));
}
