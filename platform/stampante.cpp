// Which print system is in force: none until the application or a test sets one. It draws nothing.
#include "platform/stampante.h"

namespace {

class SenzaStampanti : public SistemaStampa
{
public:
    qint16 Count() const override { return 0; }
    std::shared_ptr<OggettoStampa> Printers(qint16) const override { return nullptr; }
    std::shared_ptr<OggettoStampa> Printer() const override { return nullptr; }
};

SenzaStampanti nessuna;
SistemaStampa *inForza = &nessuna;

} // namespace

SistemaStampa &Stampa_Corrente()
{
    return *inForza;
}

void Stampa_Imposta(SistemaStampa *sistema)
{
    inForza = sistema != nullptr ? sistema : &nessuna;
}
