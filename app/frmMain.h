// The main window: the menu, and the flow of a test from the choice of a vehicle to the result screen. It
// opens every other form and receives their notifications; it holds no test data of its own.
#pragma once

#include "app/stato_stazione.h"
#include "core/esito_sessione.h"
#include "platform/riposo.h"
#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

#include <QVariant>

class dlgPwd;
class frmAnagOffO;
class frmComm;
class frmEsito;
class frmMctc2;
class frmMctcO;
class frmSetupO;

class frmMain : public Modulo
{
    Q_OBJECT

public:
    frmMain();
    ~frmMain() override;

protected:
    void Disegno() override;
    void Load() override;
    void Activate() override;
    void Unload() override;

private:
    void Disponi_Menu();
    void Carica_Menu();
    void Disattiva_Menu();
    void Disponi_Stato(qint32 cima, qint32 larghezza, qint32 altezza);
    void Disponi_Immagine();
    void Mostra_Immagine();
    void Carica_Password();
    void Rileva();
    void Mostra_Stato(const Rilievo &rilievo);
    void Annuncia_Sguardo();
    void Prendi_FineSessione();
    void Mostra_Avviso();
    void tmrStato_Timer();
    void tmrAvviso_Timer();
    void cmdMnu_Click(qint16 Index);
    template <typename Form, typename Gestore>
    Form &Nuovo_Sentito(std::shared_ptr<Form> &riferimento, Gestore gestore);
    void Apri_Setup();
    void Apri_Verifica();
    void Apri_Anagrafica();
    void Apri_Informazioni();
    void Chiedi_Password(const QString &password);
    void Inizia_Prova();
    bool Accettazioni_Presenti(QString &motivo) const;
    void Apri_Veicolo(const QString &motivo);
    void Apri_Lista();
    void Avvia_Prova(qint16 valore);

    void frmPwd_PwdReady(quint8 &esito);
    void formSetup_Notifica(qint16 &codice, QVariant &valore);
    void formMctc2_Notifica(qint16 &codice, QVariant &valore);
    void formMctcO_Notifica(qint16 &codice, QVariant &valore);
    void formComm_Notifica(qint16 &codice, QVariant &valore);
    void Veicolo_Confermato(qint16 codice, const QVariant &valore);

    std::unique_ptr<Immagine> imgLogo;
    ArrayControlli<Pulsante> cmdMnu;
    ArrayControlli<Etichetta> lblStato;   // the station's state, in the place that no button has
    std::unique_ptr<Etichetta> lblAvviso; // what somebody has to do something about, in large type
    Temporizzatore tmrStato;
    Temporizzatore tmrAvviso;
    Rilievo mRilievo;
    Riposo mRiposo;     // of the exchange folder
    FineSessione mFine; // the session whose end the menu told of last
    std::shared_ptr<frmSetupO> formSetup;
    std::shared_ptr<frmAnagOffO> formAnagOff;
    std::shared_ptr<frmMctc2> formMctc2;
    std::shared_ptr<frmMctcO> formMctcO;
    std::shared_ptr<frmComm> formComm;
    std::shared_ptr<frmEsito> formEsito;
    std::shared_ptr<dlgPwd> frmPwd;
    quint8 mPwdEsito = 0;   // what the password box reported last
    bool mApertura = false; // the first form of a test is being opened
};
