// The periodic verification by the station's own judgement.
#include "strumenti/diagnosi.h"

#include "app/stato_stazione.h"
#include "core/parole.h"
#include "platform/orologio.h"

namespace {

struct ParoleVerifica
{
    Grado Livello;
    Parole Trovato;
};

// clang-format off
/// By StatoVerifica.
constexpr ParoleVerifica VERIFICHE[] = {
    {Grado::Buono,  {u"verifica periodica valida fino al %1",       u"periodic verification valid until %1"}},
    {Grado::Avviso, {u"la verifica periodica scade il %1",          u"the periodic verification expires on %1"}},
    {Grado::Guasto, {u"la verifica periodica è scaduta il %1",      u"the periodic verification expired on %1"}},
    {Grado::Avviso, {u"la verifica periodica non ha una scadenza%1", u"the periodic verification has no end%1"}},
    {Grado::Guasto, {u"la scadenza della verifica periodica, \"%1\", non è una data gg/mm/aaaa",
                     u"the end of the periodic verification, \"%1\", is no date dd/mm/yyyy"}},
};
// clang-format on

constexpr Parole VERIFICARE = {u"far verificare lo strumento e scriverne la nuova scadenza",
                               u"have the instrument verified and write its new end"};

} // namespace

void Verifica_Aggiungi(Riscontri &riscontri, Materia materia, const QString &scadenza)
{
    const StatoVerifica stato = Verifica_Di(scadenza, Orologio_Corrente().Adesso().date());
    const ParoleVerifica &parole = VERIFICHE[static_cast<size_t>(stato)];
    riscontri.append({materia, parole.Livello, In_Parole(parole.Trovato).arg(scadenza),
                      parole.Livello == Grado::Buono ? QString() : In_Parole(VERIFICARE)});
}
