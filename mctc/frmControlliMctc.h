// The level stored for each class of fault of an acceptance file: a display only. The checks do not read the
// levels, and what is changed here is not kept.
#pragma once

#include "toolkit/modulo.h"

class Titolo;

class frmControlliMctc : public Modulo
{
    Q_OBJECT

public:
    frmControlliMctc();
    ~frmControlliMctc() override;

protected:
    void Disegno() override;
    void Load() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;

private:
    void Campi_Imposta();
    void Mostra_Livelli();

    std::unique_ptr<Titolo> lbl1;
};
