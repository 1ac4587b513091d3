// The worklist: watches the exchange folder for acceptance files, shows a line for each, checks the one that
// the operator picks and hands it to the entry form.
#pragma once

#include "core/testi_mctc.h"
#include "mctc/cartella_scambio.h"
#include "mctc/lista.h"
#include "mctc/modMctc.h"
#include "platform/riposo.h"
#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

#include <QVariant>

class frmMctc2;
class RicercaElenco;

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
    void Disponi_Scritte();
    void Campi_Imposta();
    void Lista_Aggiorna();
    void tmrLst_Timer();
    void Esamina_Cartella();
    qint32 Firme_Elenca(QStringList &firme);
    void lstAuto_Click();
    void Scegli_DaProgramma(qint32 riga);
    void Segna_Fatti(const VeicoliFatti &fatti);
    void tmrFatti_Timer();
    void Cerca();
    bool Cerca_Altra(bool avanti);
    bool Scegli_Trovata(qint32 trovata);
    QList<VoceLista> Voci_InLista() const;
    void Mostra_Ricerca();
    void Mostra_Targa();
    void Mostra_Avviso(TestoMctc testo);
    void Togli_Avviso();
    EsitoControllo Esamina_File(const QString &percorso, QString &rapporto);
    void Dipingi_Errori();
    void Conferma();
    void formMctc2b_Notifica(qint16 &codice, QVariant &valore);

    QList<VoceLista> mVoci;
    qint32 mRighe = 0; // of the list: none when the folder has gone, whose entries stay in mVoci
    bool mOccupato = false;
    bool mInLettura = false; // the files are being read for the list: no poll begins meanwhile
    QStringList mUltimoElenco;
    QString mUltimoConteggio;
    std::unique_ptr<ElencoVoci> lstAuto;
    ArrayControlli<Etichetta> lblDes;
    std::unique_ptr<Etichetta> lblCerca;  // what is typed to find a plate
    std::unique_ptr<Etichetta> lblAttesa; // how many vehicles wait
    std::unique_ptr<Etichetta> lblTarga;  // of the line chosen, to be read from the car
    std::unique_ptr<Etichetta> lblAvviso; // that line is another vehicle now
    std::unique_ptr<RicercaElenco> mRicerca;
    VeicoliFatti mFatti;       // those that the list marks
    bool mDaProgramma = false; // a line is being chosen, and not by the operator's hand on the list
    Riposo mRiposo;            // of the exchange folder
    Temporizzatore tmrLst;
    Temporizzatore tmrFatti;
    std::shared_ptr<frmMctc2> formMctc2b;
};
