// The password box. A typed text that equals the expected one closes it after a short pause, with no key
// pressed; anything else closes it after a longer one. Where the password is kept is its owner's business.
#pragma once

#include "platform/temporizzatore.h"
#include "toolkit/modulo.h"

/// What the box reports.
enum EsitoPwd : quint8
{
    PwdNonInserita = 0,
    PwdGiusta = 1,
    PwdErrata = 2,
};

class Titolo;

class dlgPwd : public Modulo
{
    Q_OBJECT

public:
    dlgPwd();
    ~dlgPwd() override;

    QString PwdCurrent;  ///< the password to compare against, clear
    quint8 PwdType = 0;  ///< 1: the title is shown in upper case
    QString PwdTitle;    ///< caption of the box
    Flag PwdDbg = Falso; ///< True: the box starts filled with the password

Q_SIGNALS:
    /// Once, at unloading. @param esito an EsitoPwd.
    void PwdReady(quint8 &esito);

protected:
    void Disegno() override;
    void Load() override;
    void Activate() override;
    void Unload() override;
    void cmd_Click(qint16 Index) override;
    void cmd_KeyPress(qint16 Index, qint16 &KeyAscii) override;

private:
    void txtPwd_Change();
    void txtPwd_KeyPress(qint16 &KeyAscii);
    void Chiudi_Fra(int ms);

    std::unique_ptr<Titolo> lblTitolo;
    std::unique_ptr<CasellaTesto> txtPwd;
    Temporizzatore tmrPwd;
    QString mInserito;
    quint8 mConta = 0; // changes of the box
};

/// A box for the service password, ready to be shown. @param password the clear password to compare against.
std::shared_ptr<dlgPwd> Password_Prepara(const QString &password);

/// Asks for the service password, modally. @param form the owner's reference. @param padre, pronta who hears
/// the result, an EsitoPwd.
template <typename T>
void Password_Chiedi(std::shared_ptr<dlgPwd> &form, const QString &password, T *padre,
                     void (T::*pronta)(quint8 &esito))
{
    form = Password_Prepara(password);
    QObject::connect(form.get(), &dlgPwd::PwdReady, padre, pronta);
    form->Mostra(Modulo::Modale);
}
