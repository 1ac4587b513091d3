// Vehicle and lamp entry: the operator sees (from an acceptance file) or types the vehicle, gives the lamp
// data and confirms them to start the test.
#pragma once

#include "toolkit/modulo.h"

#include <QVariant>

class frmMctc2 : public Modulo
{
    Q_OBJECT

public:
    frmMctc2();

    QString
        Motivo; ///< why there is no vehicle to choose, told where the plate would stand; set before the show

Q_SIGNALS:
    /// VeicoloConfermato with ProvaConfermata, once: the data are confirmed and the test is to run.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void Unload() override;
    void txt_Change(qint16 Index) override;
    void txt_Validate(qint16 Index, bool &Cancel) override;
    void txt_KeyPress(qint16 Index, qint16 &KeyAscii) override;
    void chk_Click(qint16 Index) override;
    void cmd_Click(qint16 Index) override;

private:
    void Campi_Imposta();
    void Disponi_Righe();
    void Disponi_Targa();
    void Disponi_Pulsanti();
    void Mostra_Faro(bool simmetrico);
    void Azzera_Inclinazione();
    void Conferma();

    std::unique_ptr<Immagine> picSim;
    std::unique_ptr<Etichetta> lblFaro;
    std::unique_ptr<Etichetta> lblTarga; // the plate, to be read from the car
    std::unique_ptr<Etichetta> lblMotivo;
};
