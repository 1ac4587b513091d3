#include "prove/modello/esplorazione.h"

#include <bit>
#include <deque>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace modello {

namespace {

/// The texts that a parent leaves: five, as the form of the periodic verification does.
const QStringList &Lasciati()
{
    static const QStringList LASCIATI = PROFILO_IDENTITA.first(5);
    return LASCIATI;
}

constexpr int NESSUNO = -1;

/// A state of the model and the shortest way to it.
struct Nodo
{
    int Da;     // NESSUNO: the start
    int Evento; // in the alphabet; of a start: its port
    int Profondita;
    quint32 Restano;       // events that the machine has not been through here, a bit each
    std::vector<int> Dopo; // the state that each event of the alphabet leads to; -1: none
};

class Esploratore
{
public:
    Esploratore(quint8 modo, int fino) : m_modo(modo), m_fino(fino) {}

    Misurata Esegui()
    {
        Trova_Stati();
        Percorri();
        return m_misurata;
    }

private:
    struct DaVisitare
    {
        Sessione Dove;
        int Nodo;
    };

    void Trova_Stati();
    void Visita(const DaVisitare &questo);
    int Numero_Di(const Sessione &sessione, int da, int evento);
    std::deque<int> Verso_IlProssimo(int da);
    Nodo &Di(int nodo) { return m_nodi[static_cast<size_t>(nodo)]; }
    void Percorri();
    void Sessione_Per(int nodo);
    bool Passo(Banco &banco, int evento);
    void Denuncia(const QString &che);

    quint8 m_modo;
    int m_fino;
    std::vector<Nodo> m_nodi;
    std::unordered_map<quint64, int> m_perChiave;
    std::deque<DaVisitare> m_coda;
    QByteArrayList m_via; // of the session under way
    Misurata m_misurata;
};

void Esploratore::Trova_Stati()
{
    Giornale muto{true, {}};
    for (const Porta porta : {Porta::Buona, Porta::Sorda, Porta::Chiusa}) {
        Sessione sessione(m_modo, porta, Lasciati());
        sessione.Apri(muto);
        Numero_Di(sessione, NESSUNO, static_cast<int>(porta));
    }
    while (!m_coda.empty()) {
        const DaVisitare questo = std::move(m_coda.front());
        m_coda.pop_front();
        if (m_fino == 0 || Di(questo.Nodo).Profondita < m_fino)
            Visita(questo);
    }
    m_misurata.Stati = static_cast<qint64>(m_nodi.size());
    m_misurata.Profondita = m_nodi.back().Profondita;
}

void Esploratore::Visita(const DaVisitare &questo)
{
    Giornale muto{true, {}};
    for (int e = 0; e < Alfabeto().size(); ++e) {
        if (!questo.Dove.Offre(Alfabeto()[e]))
            continue;
        Sessione dopo = questo.Dove;
        dopo.Accada(Alfabeto()[e], muto);
        ++m_misurata.Transizioni;
        const int numero = dopo.Finita ? NESSUNO : Numero_Di(dopo, questo.Nodo, e);
        Di(questo.Nodo).Restano |= 1U << e;
        Di(questo.Nodo).Dopo[static_cast<size_t>(e)] = numero;
    }
}

int Esploratore::Numero_Di(const Sessione &sessione, int da, int evento)
{
    const int nuovo = static_cast<int>(m_nodi.size());
    const auto [trovato, aggiunto] = m_perChiave.emplace(sessione.Chiave(), nuovo);
    if (aggiunto) {
        const std::vector<int> dopo(static_cast<size_t>(Alfabeto().size()), NESSUNO);
        m_nodi.push_back({da, evento, da < 0 ? 0 : Di(da).Profondita + 1, 0, dopo});
        m_coda.push_back({sessione, nuovo});
    }
    return trovato->second;
}

/// The machine cannot be copied: every session goes to its state from the start.
void Esploratore::Percorri()
{
    for (int nodo = 0; nodo < static_cast<int>(m_nodi.size()); ++nodo) {
        while (Di(nodo).Restano != 0) {
            Sessione_Per(nodo);
            if (m_misurata.Diverse.size() >= BASTANO)
                return;
        }
    }
}

/// Goes to a state, and from there on wherever something is left to be tried.
void Esploratore::Sessione_Per(int nodo)
{
    int inizio = nodo;
    std::deque<int> via;
    for (; Di(inizio).Da >= 0; inizio = Di(inizio).Da)
        via.push_front(Di(inizio).Evento);

    ++m_misurata.Sessioni;
    m_via.clear();
    Banco banco(m_modo, static_cast<Porta>(Di(inizio).Evento), Lasciati());
    if (!banco.Differenza().isEmpty())
        Denuncia(banco.Differenza());
    for (int qui = inizio;;) {
        if (via.empty())
            via = Verso_IlProssimo(qui);
        if (via.empty())
            break;
        const int evento = via.front();
        via.pop_front();
        Di(qui).Restano &= ~(1U << evento);
        const int atteso = Di(qui).Dopo[static_cast<size_t>(evento)];
        if (!Passo(banco, evento))
            break;
        const auto trovato = m_perChiave.find(banco.Modello().Chiave());
        const int arrivo = banco.Modello().Finita || trovato == m_perChiave.end() ? NESSUNO : trovato->second;
        if (arrivo != atteso)
            Denuncia(QStringLiteral("due stati di una chiave non vanno per la stessa via"));
        if (arrivo != atteso || arrivo == NESSUNO)
            break;
        qui = atteso;
    }
}

/// The events to the nearest place where one is left to be tried, that one too; none when it is far.
std::deque<int> Esploratore::Verso_IlProssimo(int da)
{
    constexpr size_t LONTANO = 100; // states looked at
    struct Visto
    {
        int Nodo;
        std::deque<int> Via;
    };
    std::vector<Visto> visti{
        {da, {}}
    };
    std::unordered_set<int> noti{da};
    for (size_t i = 0; i < visti.size(); ++i) {
        Visto qui = visti[i];
        const Nodo &nodo = Di(qui.Nodo);
        if (nodo.Restano != 0) {
            qui.Via.push_back(std::countr_zero(nodo.Restano));
            return qui.Via;
        }
        for (size_t e = 0; e < nodo.Dopo.size() && visti.size() < LONTANO; ++e) {
            if (nodo.Dopo[e] < 0 || !noti.insert(nodo.Dopo[e]).second)
                continue;
            visti.push_back({nodo.Dopo[e], qui.Via});
            visti.back().Via.push_back(static_cast<int>(e));
        }
    }
    return {};
}

/// @return false when the machine is not what the model is.
bool Esploratore::Passo(Banco &banco, int evento)
{
    m_via.append(Alfabeto()[evento].Nome);
    banco.Accada(Alfabeto()[evento]);
    if (banco.Modello().Finita && banco.Modello().Errore == 0)
        banco.Dopo_LaFine();
    if (!banco.Differenza().isEmpty())
        Denuncia(banco.Differenza());
    return banco.Differenza().isEmpty();
}

void Esploratore::Denuncia(const QString &che)
{
    m_misurata.Diverse.append(
        QStringLiteral("modo %1, %2: %3").arg(m_modo).arg(QString::fromLatin1(m_via.join(", ")), che));
}

} // namespace

Misurata Esplora(quint8 modo, int fino)
{
    return Esploratore(modo, fino).Esegui();
}

} // namespace modello
