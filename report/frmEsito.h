// The result screen: the verdict, the vehicle, the lamp data, a cell for every lamp and beam, the alarm of a
// vehicle that failed, and the report. It reads the result record and changes nothing.
#pragma once

#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

#include <QVariant>

class frmEsito : public Modulo
{
    Q_OBJECT

public:
    frmEsito();
    ~frmEsito() override;

Q_SIGNALS:
    /// EsitoChiuso, value 0, when the exit button closes the form; nobody listens today.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;

private:
    void Disponi_Pulsanti();
    void Mostra_Verdetto();
    void Campi_Imposta();
    void Riempi();
    void Intestazioni_Tabella();
    void Celle_Mira();
    void Celle_Intensita();
    void Pareggia_Scritte();
    void Mostra_Tipo(bool simmetrico);
    void Mostra_Veicolo();
    void Mostra_Guasti();
    void Stampa();
    void Colora_Cella(qint16 cella, bool regolare);

    std::unique_ptr<Etichetta> lblTitolo;
    ArrayControlli<Etichetta> lblDes;
    ArrayControlli<Etichetta> lblPar;
    ArrayControlli<Etichetta> lblTab;
    ArrayControlli<Etichetta> lblGuasto; // one for every lamp that has something out of order
    std::unique_ptr<Etichetta> lblTipo;
    std::unique_ptr<Etichetta> lblTarga;
    std::unique_ptr<Etichetta> lblVeicolo;
    Temporizzatore tmrBeep;
};
