// One look compared with the one before, by the signatures that the worklist's poll goes by.
#include "strumenti/osservatore.h"

#include "core/modFs.h"
#include "mctc/cartella_scambio.h"

#include <utility>

namespace {

constexpr int INTERVALLO = 1000; // ms

/// A signature begins with the name of its file.
QString Nome_Di(const QString &firma)
{
    return firma.left(firma.lastIndexOf(QStringLiteral(" - ")));
}

} // namespace

Osservatore::Osservatore(const QStringList &cartelle, std::function<void(const QString &)> arrivato,
                         std::function<void(const QString &)> irraggiungibile)
    : m_cartelle(cartelle),
      m_arrivato(std::move(arrivato)),
      m_irraggiungibile(std::move(irraggiungibile)),
      m_timer([this] { Guarda(); })
{
}

void Osservatore::Avvia()
{
    Guarda();
    m_timer.Interval(INTERVALLO);
    m_timer.Enabled(true);
}

void Osservatore::Guarda()
{
    QSet<QString> firme;
    for (const QString &cartella : m_cartelle)
        Guarda_Cartella(cartella, firme);
    m_dette.intersect(firme);
    m_viste = firme;
}

void Osservatore::Guarda_Cartella(const QString &cartella, QSet<QString> &firme)
{
    QStringList lette;
    if (Fs_ElencoFirme(cartella, QStringLiteral("*.acc"), lette) < 0) {
        const StatoCartella stato = Cartella_Guarda(cartella).Stato;
        const bool persa = stato == StatoCartella::Mancante || stato == StatoCartella::Illeggibile;
        if (persa && !m_perse.contains(cartella))
            m_irraggiungibile(cartella);
        if (persa)
            m_perse.insert(cartella);
        return;
    }
    m_perse.remove(cartella);
    for (const QString &letta : std::as_const(lette)) {
        const QString nome = Nome_Di(letta);
        if (Fs_Estensione(nome).compare(u"acc", Qt::CaseInsensitive) != 0)
            continue;
        const QString firma = cartella + letta;
        firme.insert(firma);
        if (m_viste.contains(firma) && !m_dette.contains(firma)) {
            m_dette.insert(firma);
            m_arrivato(cartella + nome);
        }
    }
}
