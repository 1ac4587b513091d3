// A button.
#pragma once

#include "toolkit/controllo.h"
#include "toolkit/evento.h"

class Pulsante : public Controllo
{
public:
    Pulsante(QWidget *finestra, const QString &nome);
    QString Caption() const;
    void Caption(const QString &testo);
    /// The button that Enter presses from any other control, and the one that Escape presses.
    bool Default() const { return m_default; }
    void Default(bool vero) { m_default = vero; }
    bool Cancel() const { return m_cancel; }
    void Cancel(bool vero) { m_cancel = vero; }

    Evento Click;
    bool Entra() const override;

private:
    bool m_default = false;
    bool m_cancel = false;
};
