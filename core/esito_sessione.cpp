// The one record of the last session's end.
#include "core/esito_sessione.h"

#include "platform/orologio.h"

namespace {

FineSessione &Ultima()
{
    static FineSessione ultima;
    return ultima;
}

} // namespace

const FineSessione &Sessione_Fine()
{
    return Ultima();
}

void Sessione_Annota(const QString &testo)
{
    Ultima() = {testo, Orologio_Corrente().Adesso()};
}
