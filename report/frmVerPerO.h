// Periodic verification: brings the instrument's identity up to date, in the instrument first and in
// lumira.ini only if the instrument took it.
#pragma once

#include "toolkit/modulo.h"

#include <QVariant>

class frmComm;
class Titolo;
enum ModoScambio : quint8;

class frmVerPerO : public Modulo
{
    Q_OBJECT

public:
    frmVerPerO();
    ~frmVerPerO() override;

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
    void Scrivi_Strumento();
    void Proponi_Scadenza();
    void Collega_Strumento(ModoScambio modo);
    void formComm_Notifica(qint16 &codice, QVariant &valore);

    std::unique_ptr<Titolo> lblTitolo;
    std::shared_ptr<frmComm> formComm;
    Flag mScritto = Falso; // the last session was completed
};
