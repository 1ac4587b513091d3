// A form of the tests' own: it records its handlers in the order of their calls, and runs what the test gives
// it inside them.
#pragma once

#include "toolkit/modulo.h"

#include <QStringList>
#include <QTimer>

#include <functional>

class ModuloProva : public Modulo
{
public:
    explicit ModuloProva(const QString &nome = QStringLiteral("frmProva")) : Modulo(nome) {}

    QStringList Registro;   ///< "Load", "txt_Validate 1", ... in the order of the calls; see also Dipinture
    int Dipinture = 0;      ///< calls of Paint: their number is the window system's business
    bool Trattieni = false; ///< what txt_Validate answers

    // What to do inside the handlers, after the record.
    std::function<void()> AlDisegno, AlLoad, AlActivate, AlPaint, AlUnload;
    std::function<void(qint16)> AlValidate, AlChange, AlCombo, AlSpunta, AlClick, AlFunzione;
    std::function<void(qint16, qint16 &)> AlKeyPress, AlKeyDown, AlTasto;

    /// How often a handler has been called, e.g. "txt_Validate 1".
    qsizetype Volte(const QString &gestore) const { return Registro.count(gestore); }

    using Modulo::Collega;
    using Modulo::Esegui_Dopo;

protected:
    void Disegno() override;
    void Load() override;
    void Activate() override;
    void Paint() override;
    void Unload() override;
    void txt_Validate(qint16 Index, bool &Cancel) override;
    void txt_Change(qint16 Index) override;
    void txt_KeyPress(qint16 Index, qint16 &KeyAscii) override;
    void cbo_Click(qint16 Index) override;
    void cbo_KeyDown(qint16 Index, qint16 &KeyCode) override;
    void chk_Click(qint16 Index) override;
    void cmd_Click(qint16 Index) override;
    void cmd_KeyPress(qint16 Index, qint16 &KeyAscii) override;
    void FunctionKey(qint16 numero) override;

private:
    void Annota(const char *gestore);
    void Annota(const char *gestore, qint16 indice);
};

/// Makes the window the active one, so that the focus is where the keyboard goes.
bool Attiva(const Modulo &modulo);

/// Unloads every form and lets what they left behind go.
void Scarica_Tutti();

/// A net under a modal show: when it has not returned after some seconds every form is unloaded, and the test
/// fails on Scattata instead of hanging.
class ReteModale
{
public:
    ReteModale();
    ~ReteModale();
    bool Scattata() const { return m_scattata; }

private:
    QTimer m_attesa; // goes with the net: a single shot would stay until its time
    bool m_scattata = false;
};
