// Focus, keys and tab order of a form: leaving a box asks it first, Enter and Escape press the form's
// buttons, a key goes to the form's handlers before its control. It knows no form in particular.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class GestoriModulo;
class Pulsante;
class QPushButton;

class TastieraModulo : public QObject
{
    Q_OBJECT

public:
    /// @param modulo the form that it belongs to.
    explicit TastieraModulo(GestoriModulo &modulo) : m_modulo(modulo) {}

    /// The form is being loaded: what is told of now on stands in a new window.
    void Inizia();
    /// Looks at the keys, clicks and drops of a widget of the form before it gets them itself.
    /// @param tasto takes its keys as txt_KeyPress does; none for the members of the form's arrays.
    void Osserva(QWidget *widget, std::function<void(qint16 &)> tasto = {});
    /// @param ms how long after the form has come up Enter and Space press no button.
    void Ritardo(int ms) { m_ritardo = ms; }
    /// The form comes up now.
    void Mostrato();
    /// The rows of the form first, then its other controls, the buttons last.
    void Ordina_Tabulazione();

    /// Asks the box that has the focus whether it may be left; false when it holds the focus, or has unloaded
    /// the form meanwhile. A locked box has nothing to ask, nobody wrote in it; nor has one that is out of
    /// reach, nor one that is being asked already.
    bool Puo_Uscire();
    /// A key on the form. @param widget where. @return true when it goes no further.
    bool Tasto(QWidget *widget, int tasto, const QString &testo);

protected:
    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    /// A box outside the form's arrays, and what takes its keys.
    struct Fuori
    {
        QPointer<QWidget> widget;
        std::function<void(qint16 &)> tasto;
    };

    bool Puo_Entrare(QWidget *widget, Qt::FocusReason motivo);
    qint16 Indice_Combo(const QWidget *widget) const;
    bool Lista_Aperta(const QWidget *widget) const;
    void Offri(const QWidget *widget, const QString &testo, qint16 &codice);
    bool Inghiottito(const QWidget *widget, const QString &testo);
    const Pulsante *Pulsante_Con(bool (Pulsante::*proprieta)() const) const;
    QPushButton *Bottone_Per(QWidget *widget, int tasto) const;
    bool Troppo_Presto(QWidget *widget, int tasto) const;

    GestoriModulo &m_modulo;
    std::vector<Fuori> m_fuori;
    bool m_convalida = false;     ///< txt_Validate is running
    QPointer<QWidget> m_lasciata; ///< the control that the click at hand took the focus from
    int m_ritardo = 0;
    QDateTime m_mostrato; ///< when the form came up
};
