// A station at work: one vehicle after the other through its forms, from the list to the result file, on a
// test's clock and with an instrument of the test's own. What it costs is not known here.
#pragma once

#include "app/frmMain.h"
#include "tests/comuni/stampa_prova.h"
#include "tests/forms/banco_form.h"

namespace resistenza {

class Turno
{
public:
    /// Opens the menu. In the exchange folder stand a file that is not in order and enough sound ones for the
    /// list to need its bar.
    Turno();
    ~Turno();
    Q_DISABLE_COPY_MOVE(Turno)

    /// Tests a vehicle: the menu, the list, the report of the file that is not in order, the vehicle, the
    /// session, the result and its page, and the menu again.
    /// @return what did not come out as it has to; empty when everything did.
    QString Prova_Veicolo();

private:
    QString Esito_Veicolo() const;
    void Accetta() const;

    BancoForm m_banco;
    StampaProva m_stampa;
    std::shared_ptr<frmMain> m_menu;
};

} // namespace resistenza
