// The workshop's own data, printed at the head of the report.
#pragma once

#include "toolkit/modulo.h"

#include <QVariant>

class Titolo;

class frmAnagOffO : public Modulo
{
    Q_OBJECT

public:
    frmAnagOffO();
    ~frmAnagOffO() override;

Q_SIGNALS:
    /// AnagraficaSalvata, value 0, once after saving; nobody listens today.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void Unload() override;
    void txt_Validate(qint16 Index, bool &Cancel) override;
    void txt_KeyPress(qint16 Index, qint16 &KeyAscii) override;
    void cmd_Click(qint16 Index) override;

private:
    void Campi_Imposta();
    void Salva();

    std::unique_ptr<Titolo> lblTitolo;
};
