// The station's bytes made into frames; what lies between them is told.
#include "simulatore/interlocutore.h"

#include "core/parole.h"

#include <utility>

namespace {

constexpr Parole FUORI_TRAMA = {u"-- fuori trama: ", u"-- outside a frame: "};

} // namespace

Interlocutore::Interlocutore(std::function<void(const QString &)> annota) : m_annota(std::move(annota)) {}

QList<Invio> Interlocutore::Ricevi(const QByteArray &byte)
{
    QList<Invio> invii;
    for (const char b : byte) {
        if (m_assemblatore.Aggiungi(b))
            invii += Comando_Ricevuto(m_assemblatore.Trama());
    }
    if (const QByteArray scartati = m_assemblatore.Scartati(); !scartati.isEmpty())
        Annota(In_Parole(FUORI_TRAMA) + Trama_Hex(scartati));
    return invii;
}

void Interlocutore::Linea_Lasciata()
{
    m_assemblatore.Azzera();
}
