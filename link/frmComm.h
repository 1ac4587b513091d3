// The window of a link session: what the machine says, the vehicle, the steps, the traffic in hexadecimal,
// the lamp of the link and the button that breaks off. Made anew for each session; the exchange itself is
// MacchinaScambio's.
#pragma once

#include "link/scambio.h"
#include "toolkit/modulo.h"

#include <QStringList>
#include <QVariant>

class BoxSistema;
class ControlloSeriale;
class QuadroSessione;
class dlgPwd;

class frmComm : public Modulo, private FinestraScambio
{
    Q_OBJECT

public:
    frmComm();
    ~frmComm() override;

    ModoScambio Modo = ModoMisura; ///< set by the parent before loading, never changed after

    /// A second way into the writing of the defaults, for a form that is loaded already; nothing calls it.
    QVariant Imposta_Default();

    /// Asks for the service password; a prepared entry, nothing calls it. What the box reports goes into
    /// PwdEsito, which nothing reads.
    void Chiedi_Pwd(const QString &password);
    quint8 PwdEsito = 0;

Q_SIGNALS:
    /// Once, at unloading, after the port is closed: a NotificaSessione; value 0.
    void Notifica(qint16 &codice, QVariant &valore);

protected:
    void Disegno() override;
    void Load() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;

private:
    void Mostra_Titolo(const QString &testo) override;
    void Mostra_Lbl(const QString &testo) override;
    void Mostra_Tx(const QString &esadecimale) override;
    void Mostra_Rx(const QString &esadecimale) override;
    void Aggiungi_Dbg(const QString &riga) override;
    void Colora_Sha(quint32 colore) override;
    void Mostra_Errore(const QString &testo) override;
    void Scarica_Modulo() override;
    void Mostra_Porta() override;
    void Mostra_Avanzamento() override;
    void Mostra_Veicolo();
    void Disegna_Linea();
    void Disponi();
    void Disponi_Piede();
    void Disponi_Porta(qint32 left, qint32 top, qint32 width, qint32 height);
    void Disponi_InRiga(qint32 left, qint32 top, qint32 width);
    void Disponi_InColonna(qint32 left, qint32 top, qint32 width, qint32 height);
    void Annuncia_Errori();
    void Mostra_ProssimoErrore();
    void Lascia_Errori();
    void tmrPausa_Timer();
    void frmPwd_PwdReady(quint8 &esito);

    std::unique_ptr<Immagine> Image1;
    std::unique_ptr<QuadroSessione> mQuadro;
    std::unique_ptr<Etichetta> lblPorta; // of a port that did not open
    std::unique_ptr<Etichetta> lblRimedio;
    std::unique_ptr<Etichetta> lblTarga;
    std::unique_ptr<Etichetta> lblVeicolo;
    std::unique_ptr<Etichetta> lblNomeTx;
    std::unique_ptr<Etichetta> lblNomeRx;
    std::unique_ptr<Etichetta> lblTx;
    std::unique_ptr<Etichetta> lblRx;
    std::unique_ptr<ElencoVoci> lstDbg;
    std::unique_ptr<Forma> shaComm;
    std::unique_ptr<ControlloSeriale> commApp;
    std::unique_ptr<MacchinaScambio> mMacchina;
    std::shared_ptr<dlgPwd> frmPwd;
    bool mChiusura = false;
    bool mElenco = false;             // there is something in lstDbg
    QStringList mErrori;              // texts of "Err Rs232" boxes not yet shown
    std::unique_ptr<BoxSistema> mBox; // the one that is open
    Temporizzatore tmrPausa;          // on while the form stands free between two boxes
};

/// Runs one link session: makes the form, loads it, which starts the session, and shows it until it has
/// ended.
/// @param form the parent's reference. @param padre, notifica who hears the end of it.
template <typename T>
void Sessione_Esegui(std::shared_ptr<frmComm> &form, ModoScambio modo, T *padre,
                     void (T::*notifica)(qint16 &codice, QVariant &valore))
{
    form = Nuovo<frmComm>();
    QObject::connect(form.get(), &frmComm::Notifica, padre, notifica);
    form->Modo = modo;
    form->Carica();
    form->Mostra(Modulo::Modale);
}
