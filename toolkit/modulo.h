// The base of every form: its life (load, show, unload). Its control arrays and handlers stand in
// gestori_modulo.h.
//
// What surprises somebody who comes from Qt:
// - A property is a pair of overloads: Caption() reads, Caption(text) writes. Lengths are twips, not pixels.
// - A form is no widget: it makes its window when it is loaded and lets it go when it is unloaded, and may be
//   loaded again. It is held by shared pointers (Nuovo, Predefinito), and by the collection of loaded forms
//   as long as it is loaded: a form that nobody else holds goes when it is unloaded.
// - A control whose window has gone takes every call and does nothing.
// - A handler may unload its own control or its own form, also by what it shows meanwhile; whoever runs one
//   asks Caricato() afterwards. An event runs a copy of its procedure for that reason.
// - Leaving a text box asks txt_Validate first, and the box may keep the focus. Enter and Escape press the
//   form's buttons, F keys arrive at FunctionKey from wherever the focus is.
// - An index that does not exist is a run-time error (9), not an assertion.
#pragma once

#include "toolkit/gestori_modulo.h"
#include "toolkit/tastiera_modulo.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QEventLoop;
class FinestraModulo;

class Modulo : public QObject, public GestoriModulo, public std::enable_shared_from_this<Modulo>
{
    Q_OBJECT

public:
    /// How a form shows: beside the others, or before them until it has been unloaded.
    enum ModoMostra : qint32
    {
        NonModale = 0,
        Modale = 1
    };

    /// @param nome the form's name, e.g. frmComm.
    explicit Modulo(const QString &nome);
    ~Modulo() override;

    /// Makes the window and runs Load; nothing when the form is loaded already. A form whose Load raises an
    /// error is not loaded, and its Unload is not run.
    void Carica();
    /// Loads the form if need be and shows it. Modal: returns when the form has been unloaded.
    /// @throws ErroreEsecuzione 400 for a modal show of a form that is shown already.
    void Mostra(ModoMostra modo = NonModale);
    /// Runs Unload and takes the window away; harmless on a form already unloaded. The object lives on as
    /// long as somebody holds a reference. A form whose Unload raises an error stays, and may be unloaded
    /// again.
    void Scarica() override;
    /// Brings a form that shows to the front and gives it the keyboard; harmless on one that is not loaded.
    void PortaAvanti();
    /// True while the form shows and has the keyboard.
    bool Attivo() const;
    /// Asks for a new painting.
    void Aggiorna();

    /// Inner size and place of the window, in twips.
    qint32 Left() const { return m_left; }
    qint32 Top() const { return m_top; }
    qint32 Width() const { return m_width; }
    qint32 Height() const { return m_height; }
    void Width(qint32 twip);
    void Height(qint32 twip);
    void Sposta(qint32 left, qint32 top);
    void Centra();
    /// The form covers the screen, a desktop's panels included, and has no frame of its own.
    void Massimizza();
    void InPrimoPiano();
    /// For a form that comes up by itself under the operator's hands: Enter and Space press no button until
    /// so long after the form has come up. The mouse, Escape and an assistive technology press at once.
    /// @param ms 0, as at first: they press at once too.
    void RitardoTasti(int ms) { m_tastiera.Ritardo(ms); }
    QString Caption() const;
    void Caption(const QString &testo);
    /// What a screen reader calls the window, in place of its title.
    void NomeAccessibile(const QString &nome);

    /// Draws a segment in the default colour; counts only inside Paint.
    void Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2);

    QWidget *Finestra() const override;

protected:
    /// Binds the press of a button that stands outside the array cmd, with the leaving rule of all buttons.
    void Collega(Pulsante &pulsante, std::function<void()> procedura);
    /// Binds a text box that stands outside the array txt.
    /// @param tasto takes a key as txt_KeyPress does.
    void Collega(CasellaTesto &casella, std::function<void()> cambio, std::function<void(qint16 &)> tasto);
    /// Runs a procedure by Esegui when the loop has control again.
    void Esegui_Dopo(std::function<void()> procedura);

private:
    std::shared_ptr<void> Vivo() override { return shared_from_this(); }
    void Togli_Finestra();
    void Prepara_Array();
    void Disponi();

    QString m_nome;
    FinestraModulo *m_finestra = nullptr;
    TastieraModulo m_tastiera{*this};
    QPointer<QEventLoop> m_ciclo;
    qint32 m_left = 0;
    qint32 m_top = 0;
    qint32 m_width = 0;
    qint32 m_height = 0;
    bool m_scarica = false; ///< Unload is running
};

/// A new form, not yet loaded.
template <typename T>
std::shared_ptr<T> Nuovo()
{
    return std::make_shared<T>();
}

/// The one default instance of a form.
template <typename T>
T &Predefinito()
{
    static const std::shared_ptr<T> modulo = std::make_shared<T>();
    return *modulo;
}

/// The loaded forms, in the order of their loading.
std::vector<std::shared_ptr<Modulo>> Moduli_Caricati();
