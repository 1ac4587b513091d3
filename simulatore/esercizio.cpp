// The parts of an exercise in the order in which they need each other.
#include "simulatore/esercizio.h"

#include "core/parole.h"
#include "simulatore/apertura.h"
#include "simulatore/errore.h"

#include <QCoreApplication>
#include <QRandomGenerator>

namespace {

constexpr Parole INIZIO = {u"-- qx5sim %1, seme %2", u"-- qx5sim %1, seed %2"};

} // namespace

Esercizio::Esercizio(const Opzioni &opzioni)
    : m_opzioni(opzioni), m_collegamento(opzioni.collega), m_linea(Linea_Stazione(opzioni))
{
}

bool Esercizio::Apri(QString &errore)
{
    Scenario scenario;
    if (const QStringList errori = Scenario_Leggi(m_opzioni.scenario, scenario); !errori.isEmpty()) {
        errore = errori.join(QStringLiteral("\nqx5sim: "));
        return false;
    }
    if (!m_registro.Apri(m_opzioni.registro, errore))
        return false;
    m_registro.Annotata = Annotata;

    const QString stato =
        m_opzioni.stato.isEmpty() ? m_passeggero.filePath(QStringLiteral("stato.ini")) : m_opzioni.stato;
    const quint32 seme = m_opzioni.seme.value_or(QRandomGenerator::global()->generate());
    m_registro.Annota(In_Parole(INIZIO).arg(QCoreApplication::applicationVersion(), QString::number(seme)));
    m_strumento = std::make_unique<Strumento>(m_opzioni.scenario, stato, seme,
                                              [this](const QString &riga) { m_registro.Annota(riga); });
    // An adapter that comes back has often another name: whoever started the program knows, and starts it
    // again.
    m_linea->Perduta = [this] {
        const QString perche = Dispositivo_Perduto(m_opzioni.dispositivo);
        m_registro.Annota(QStringLiteral("-- ") + perche);
        Perduta(perche);
    };
    m_banco = std::make_unique<Banco>(*m_linea, *m_strumento, m_registro, m_collegamento);
    return m_banco->Apri(errore);
}
