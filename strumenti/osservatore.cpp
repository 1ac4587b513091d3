// One look compared with the one before, by the moments of the last writes: that of the last reading, which
// the worklist's poll goes by too, moves when this program reads a file, and when a backup does.
#include "strumenti/osservatore.h"

#include "core/modFs.h"
#include "mctc/cartella_scambio.h"
#include "platform/elenco.h"

#include <utility>

namespace {

constexpr int INTERVALLO = 1000; // ms

QString Firma_Di(const QString &cartella, const RecordTrovato &voce)
{
    return cartella + voce.cFileName + u'*' + QString::number(voce.ftLastWriteTime);
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
    QList<RecordTrovato> trovati;
    if (!Trova_File(cartella + QStringLiteral("*.acc"), trovati)) {
        const StatoCartella stato = Cartella_Guarda(cartella).Stato;
        if (stato == StatoCartella::Mancante || stato == StatoCartella::Illeggibile)
            Perdi(cartella, firme);
        return;
    }
    m_perse.remove(cartella);
    for (const RecordTrovato &voce : std::as_const(trovati)) {
        const bool cartellaSua = (voce.dwFileAttributes & ATTRIBUTO_CARTELLA) != 0;
        if (cartellaSua || Fs_Estensione(voce.cFileName).compare(u"acc", Qt::CaseInsensitive) != 0)
            continue;
        const QString firma = Firma_Di(cartella, voce);
        firme.insert(firma);
        if (m_viste.contains(firma) && !m_dette.contains(firma)) {
            m_dette.insert(firma);
            m_arrivato(cartella + voce.cFileName);
        }
    }
}

/// What stood in a folder that is out of reach for a while stands there still, as far as anybody knows: it is
/// not told anew when the folder is back.
void Osservatore::Perdi(const QString &cartella, QSet<QString> &firme)
{
    for (const QString &firma : std::as_const(m_viste)) {
        if (firma.startsWith(cartella))
            firme.insert(firma);
    }
    if (!m_perse.contains(cartella))
        m_irraggiungibile(cartella);
    m_perse.insert(cartella);
}
