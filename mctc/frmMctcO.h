// The worklist: watches the exchange folder for acceptance files, shows a line for each, checks the one that
// the operator picks and hands it to the entry form.
#pragma once

#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

#include <QVariant>

class frmMctc2;

class frmMctcO : public Modulo
{
    Q_OBJECT

public:
    frmMctcO();
    ~frmMctcO() override;

Q_SIGNALS:
    /// VeicoloConfermato with the value of the entry form, when its data were confirmed.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Paint() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;

private:
    void Disponi();
    void Campi_Imposta();
    void Lista_Aggiorna();
    void tmrLst_Timer();
    void Esamina_Cartella();
    void lstAuto_Click();
    EsitoControllo Esamina_File(const QString &percorso, QString &rapporto);
    void Dipingi_Errori();
    void Conferma();
    void formMctc2b_Notifica(qint16 &codice, QVariant &valore);

    QList<VoceLista> mVoci;
    bool mOccupato = false;
    bool mInLettura = false; // the files are being read for the list: no poll begins meanwhile
    QStringList mUltimoElenco;
    QString mUltimoConteggio;
    std::unique_ptr<ElencoVoci> lstAuto;
    ArrayControlli<Etichetta> lblDes;
    Temporizzatore tmrLst;
    std::shared_ptr<frmMctc2> formMctc2b;
};
