// Who the supplier is and which program this is: seven lines of configuration, and the version that runs.
#pragma once

#include "toolkit/modulo.h"

class frmAbout : public Modulo
{
    Q_OBJECT

public:
    frmAbout();

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void cmd_Click(qint16 Index) override;

private:
    void Costruisci();

    ArrayControlli<Etichetta> lblAbout;
    std::unique_ptr<Etichetta> lblVersione;
    bool mCostruito = false;
};
