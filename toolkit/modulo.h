// The base of every form: its window, its control arrays, its life (load, show, unload) and the rules that
// all forms share: leaving a box asks txt_Validate first, Enter and Escape press the form's buttons.
#pragma once

#include "toolkit/array_controlli.h"
#include "toolkit/controlli.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

class QEventLoop;
class QPushButton;
class FinestraModulo;

class Modulo : public QObject, public std::enable_shared_from_this<Modulo>
{
    Q_OBJECT

public:
    enum Modalita : qint32
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
    void Mostra(Modalita modalita = NonModale);
    /// Runs Unload and takes the window away; harmless on a form already unloaded. The object lives on as
    /// long as somebody holds a reference.
    void Scarica();
    /// Brings a form that shows to the front and gives it the keyboard; harmless on one that is not loaded.
    void PortaAvanti();
    bool Caricato() const { return m_finestra != nullptr; }
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
    void RitardoTasti(int ms) { m_ritardoTasti = ms; }
    QString Caption() const;
    void Caption(const QString &testo);
    /// What a screen reader calls the window, in place of its title.
    void NomeAccessibile(const QString &nome);

    /// Draws a segment in the default colour; counts only inside Paint.
    void Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2);

    QWidget *Finestra() const;

    ArrayControlli<CasellaTesto> txt;
    ArrayControlli<CasellaCombinata> cbo;
    ArrayControlli<CasellaSpunta> chk;
    ArrayControlli<Etichetta> lbl;
    ArrayControlli<Pulsante> cmd;

protected:
    /// Design time: makes the controls that the form has before Load, member 0 of its arrays among them.
    virtual void Disegno() = 0;

    // The form's handlers. Those that a form does not write do nothing.
    virtual void Load() {}
    virtual void Activate() {}
    virtual void Paint() {}
    virtual void Unload() {}
    virtual void txt_Validate(qint16 Index, bool &Cancel);
    virtual void txt_Change(qint16 Index);
    /// KeyAscii: the character's code, never a Tab; 0 on return swallows the key.
    virtual void txt_KeyPress(qint16 Index, qint16 &KeyAscii);
    virtual void cbo_Click(qint16 Index);
    /// KeyCode: every key but Tab; 0 on return swallows it.
    virtual void cbo_KeyDown(qint16 Index, qint16 &KeyCode);
    virtual void chk_Click(qint16 Index);
    virtual void cmd_Click(qint16 Index);
    /// A function key pressed anywhere on the form. @param numero 1 for F1.
    virtual void FunctionKey(qint16 numero);

    /// Binds the press of a button that stands outside the array cmd, with the leaving rule of all buttons.
    void Collega(Pulsante &pulsante, std::function<void()> procedura);
    /// Binds a text box that stands outside the array txt.
    /// @param tasto takes a key as txt_KeyPress does.
    void Collega(CasellaTesto &casella, std::function<void()> cambio, std::function<void(qint16 &)> tasto);
    /// Runs a handler and keeps the form alive until it has returned, also when it unloads itself.
    void Esegui(const std::function<void()> &procedura);

    bool eventFilter(QObject *oggetto, QEvent *evento) override;

private:
    friend class FinestraModulo;

    void Togli_Finestra();
    void Posa_Sopra();
    void Prepara_Array();
    void Ordina_Tabulazione();
    void Disponi();
    bool Puo_Uscire();
    bool Puo_Entrare(QWidget *widget, Qt::FocusReason motivo);
    qint16 Indice_Combo(const QWidget *widget) const;
    bool Lista_Aperta(const QWidget *widget) const;
    bool Inghiottito(const QWidget *widget, const QString &testo);
    QPushButton *Bottone_Per(QWidget *widget, int tasto) const;
    bool Tasto(QWidget *widget, int tasto, const QString &testo);
    bool Troppo_Presto(QWidget *widget, int tasto) const;
    void Dipingi(QWidget *finestra);
    const Pulsante *Pulsante_Con(bool (Pulsante::*proprieta)() const) const;
    template <typename T>
    qint16 Indice_Di(const ArrayControlli<T> &array, const QWidget *widget) const;

    QString m_nome;
    FinestraModulo *m_finestra = nullptr;
    QPointer<QEventLoop> m_ciclo;
    qint32 m_left = 0;
    qint32 m_top = 0;
    qint32 m_width = 0;
    qint32 m_height = 0;
    bool m_intero = false;
    bool m_scarica = false;
    bool m_convalida = false;
    int m_ritardoTasti = 0;
    QDateTime m_mostrato; ///< when the form came up
    std::vector<std::pair<const QWidget *, std::function<void(qint16 &)>>> m_tasti;
    QPointer<QWidget> m_lasciata; ///< the control that the click at hand took the focus from
    struct Segmento
    {
        qint32 x1, y1, x2, y2;
    };
    std::vector<Segmento> m_segmenti;
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
