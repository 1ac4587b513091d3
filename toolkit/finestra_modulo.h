// The window of a form: what the window system tells it goes to the form's handlers.
#pragma once

#include "toolkit/modulo.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWidget>

class FinestraModulo : public QWidget
{
public:
    explicit FinestraModulo(Modulo &modulo) : QWidget(nullptr), m_modulo(&modulo) {}
    void Stacca() { m_modulo = nullptr; }

protected:
    bool event(QEvent *evento) override
    {
        const bool esito = QWidget::event(evento);
        if (evento->type() == QEvent::WindowActivate && m_modulo != nullptr)
            m_modulo->Esegui([this] { m_modulo->Activate(); });
        return esito;
    }
    void paintEvent(QPaintEvent *) override
    {
        if (m_modulo != nullptr)
            m_modulo->Esegui([this] { m_modulo->Dipingi(this); });
    }
    void closeEvent(QCloseEvent *evento) override
    {
        evento->accept();
        if (m_modulo != nullptr)
            m_modulo->Scarica();
    }
    void keyPressEvent(QKeyEvent *evento) override
    {
        if (m_modulo == nullptr || !m_modulo->Tasto(this, evento->key(), evento->text()))
            QWidget::keyPressEvent(evento);
    }
    bool focusNextPrevChild(bool avanti) override
    {
        if (m_modulo != nullptr && !m_modulo->Puo_Uscire())
            return true; // the key is used up, the focus stays
        return QWidget::focusNextPrevChild(avanti);
    }

private:
    Modulo *m_modulo;
};
