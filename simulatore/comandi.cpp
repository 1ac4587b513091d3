// The instrument's table of commands. Nothing of the station's own table is used.
#include "simulatore/comandi.h"

#include <algorithm>

namespace {

// The measure reply has no byte that tells its kind: offset 4 is the first digit of its first figure.
// clang-format off
constexpr DefComando COMANDI[] = {
    {u"Stato",          CodiceComando::Stato,          CaricoComando::Nessuno,         4},
    {u"Misura",         CodiceComando::Misura,         CaricoComando::Nessuno,         4},
    {u"LeggiDati",      CodiceComando::LeggiDati,      CaricoComando::Nessuno,         4},
    {u"ScriviDati1",    CodiceComando::ScriviDati1,    CaricoComando::Testi,           4},
    {u"ScriviDati2",    CodiceComando::ScriviDati2,    CaricoComando::TestiRiempitivo, 4},
    {u"LeggiTaratura",  CodiceComando::LeggiTaratura,  CaricoComando::Nessuno,         3},
    {u"ScriviTaratura", CodiceComando::ScriviTaratura, CaricoComando::Testi,           4},
};
// clang-format on

template <typename Prova>
const DefComando *Comando_Cerca(Prova prova)
{
    const auto *trovato = std::find_if(std::begin(COMANDI), std::end(COMANDI), prova);
    return trovato == std::end(COMANDI) ? nullptr : trovato;
}

} // namespace

std::span<const DefComando> Comandi_Tutti()
{
    return COMANDI;
}

const DefComando *Comando_DaCodice(quint8 codice)
{
    return Comando_Cerca([codice](const DefComando &d) { return static_cast<quint8>(d.codice) == codice; });
}

const DefComando *Comando_DaNome(const QString &nome)
{
    return Comando_Cerca(
        [&nome](const DefComando &d) { return nome.compare(QStringView(d.nome), Qt::CaseInsensitive) == 0; });
}
