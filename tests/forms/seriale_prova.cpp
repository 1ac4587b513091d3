#include "tests/forms/seriale_prova.h"

#include "tests/forms/banco_form.h"

namespace {

LineaProva *corrente = nullptr;
std::function<void(LineaProva &)> prepara;

class LineaBanco : public LineaProva
{
public:
    LineaBanco() : LineaProva(Orologio_Banco())
    {
        corrente = this;
        if (prepara)
            prepara(*this);
    }
    ~LineaBanco() override
    {
        if (corrente == this)
            corrente = nullptr;
    }
    Q_DISABLE_COPY_MOVE(LineaBanco)
};

} // namespace

void Linee_Prepara(std::function<void(LineaProva &)> preparazione)
{
    prepara = std::move(preparazione);
}

LineaProva *Linea_Corrente()
{
    return corrente;
}

std::unique_ptr<ControlloSeriale> Crea_ControlloSeriale()
{
    return std::make_unique<LineaBanco>();
}
