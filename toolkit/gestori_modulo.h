// What a form has that its window and its keyboard come to: the control arrays and the handlers. How the form
// lives is its own business.
#pragma once

#include "toolkit/array_controlli.h"
#include "toolkit/controlli.h"

#include <functional>
#include <memory>

class GestoriModulo
{
public:
    virtual ~GestoriModulo() = default;

    virtual void Scarica() = 0;
    /// nullptr for a form that is not loaded.
    virtual QWidget *Finestra() const = 0;
    bool Caricato() const { return Finestra() != nullptr; }

    ArrayControlli<CasellaTesto> txt{QStringLiteral("txt")};
    ArrayControlli<CasellaCombinata> cbo{QStringLiteral("cbo")};
    ArrayControlli<CasellaSpunta> chk{QStringLiteral("chk")};
    ArrayControlli<Etichetta> lbl{QStringLiteral("lbl")};
    ArrayControlli<Pulsante> cmd{QStringLiteral("cmd")};

protected:
    friend class FinestraModulo;
    friend class TastieraModulo;

    /// Design time: makes the controls that the form has before Load, member 0 of its arrays among them.
    virtual void Disegno() = 0;

    // The form's handlers. Those that a form does not write do nothing.
    virtual void Load() {}
    virtual void Activate() {}
    virtual void Paint() {}
    virtual void Unload() {}
    virtual void txt_Validate(qint16, bool & /*Cancel*/) {}
    virtual void txt_Change(qint16) {}
    /// KeyAscii: the character's code, never a Tab; 0 on return swallows the key.
    virtual void txt_KeyPress(qint16, qint16 & /*KeyAscii*/) {}
    virtual void cbo_Click(qint16) {}
    /// KeyCode: every key but Tab; 0 on return swallows it.
    virtual void cbo_KeyDown(qint16, qint16 & /*KeyCode*/) {}
    virtual void chk_Click(qint16) {}
    virtual void cmd_Click(qint16) {}
    /// As txt_KeyPress; a key that is not swallowed presses the button, if it is one that does.
    virtual void cmd_KeyPress(qint16, qint16 & /*KeyAscii*/) {}
    /// A function key pressed anywhere on the form: 1 for F1.
    virtual void FunctionKey(qint16) {}

    /// A reference to the form: it lives as long as this stands.
    virtual std::shared_ptr<void> Vivo() = 0;
    /// Runs a handler and keeps the form alive until it has returned, also when it unloads itself.
    void Esegui(const std::function<void()> &procedura)
    {
        const auto vivo = Vivo();
        procedura();
    }
};
