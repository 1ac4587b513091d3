// Setup: the instrument's identity, the language, the test limits, the link to the network software, the
// serial port. It also reads the instrument into the configuration and writes the operator to it.
#pragma once

#include "core/codici.h"
#include "toolkit/modulo.h"
#include "toolkit/titolo.h"

#include <QVariant>

class dlgPwd;
class frmComm;
enum ModoScambio : quint8;

class frmSetupO : public Modulo
{
    Q_OBJECT

public:
    frmSetupO();
    ~frmSetupO() override;

Q_SIGNALS:
    /// A NotificaSetup; value always 0.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Activate() override;
    void Paint() override;
    void Unload() override;
    void txt_Validate(qint16 Index, bool &Cancel) override;
    void txt_Change(qint16 Index) override;
    void txt_KeyPress(qint16 Index, qint16 &KeyAscii) override;
    void cbo_KeyDown(qint16 Index, qint16 &KeyCode) override;
    void cbo_Click(qint16 Index) override;
    void chk_Click(qint16 Index) override;
    void cmd_Click(qint16 Index) override;
    void FunctionKey(qint16 numero) override;

private:
    void Campi_Imposta();
    void Didascalie();
    void Mostra_Percorsi();
    void Sfoglia(qint16 riga);
    void Convalida_Cartella(const QString &testo);
    void Scegli_Lingua(qint16 Index);
    void Scegli_Modalita(qint16 Index);
    void Scegli_Strumento(qint16 Index);
    void Blocca_Rete(bool bloccata);
    void Sblocca_Limiti(qint16 Index);
    void Blocca_Limite(qint16 riga, bool bloccato);
    void Salva();
    void Salva_Effetti(qint16 riga);
    void Scrivi_Operatore();
    void Mostra_Verifica();
    void Setup_Aggiorna();
    void Mostra_Valore(qint16 riga, const QString &testo);
    void Chiedi_Password(const QString &password);
    void Collega_Strumento(ModoScambio modo);
    void frmPwd_PwdReady(quint8 &esito);
    void formComm_Notifica(qint16 &codice, QVariant &valore);
    void Accetta_Strumento();
    void Avvisa(NotificaSetup notifica);

    ArrayControlli<Etichetta> lblDes;
    ArrayControlli<Titolo> lblIntestazione; ///< over the rows of the frames
    ArrayControlli<Etichetta> lblPercorso;  ///< the whole path of RigaRisultati and RigaDati
    ArrayControlli<Pulsante> cmdSfoglia;    ///< choose a folder for these
    std::shared_ptr<frmComm> formComm;
    std::shared_ptr<dlgPwd> frmPwd;
    quint8 mPwdEsito = 0; // what the password box reported last
};
