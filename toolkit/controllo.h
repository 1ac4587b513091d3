// What every control is: one widget of the form's window, placed in twips, in a type that its text fits. A
// control whose window has gone takes every call and does nothing.
#pragma once

#include "platform/tipi.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class Controllo
{
public:
    /// Takes its widget away with it.
    virtual ~Controllo();
    Controllo(const Controllo &) = delete;
    Controllo &operator=(const Controllo &) = delete;

    qint32 Left() const { return m_left; }
    qint32 Top() const { return m_top; }
    qint32 Width() const { return m_width; }
    qint32 Height() const { return m_height; }
    void Left(qint32 twip);
    void Top(qint32 twip);
    void Width(qint32 twip);
    void Height(qint32 twip);
    void Posto(qint32 left, qint32 top, qint32 width, qint32 height);

    bool Visible() const;
    void Visible(bool visibile);
    bool Enabled() const;
    void Enabled(bool abilitato);
    const QString &Tag() const { return m_tag; }
    void Tag(const QString &testo) { m_tag = testo; }
    double FontSize() const { return m_punti; }
    /// A text that does not fit its place at this size is shown in a smaller one, down to what can be read.
    void FontSize(double punti);
    void FontBold(bool grassetto);
    void FontName(const QString &nome);
    void SetFocus();
    /// Shows the control as it is now, without waiting for the loop: before a call that may not come back
    /// soon.
    void Ridipingi();
    /// True when the text fits the control's place in the type that it is shown in.
    virtual bool Entra() const { return true; }
    /// What a screen reader calls the control; a caption of its own needs none.
    void NomeAccessibile(const QString &nome);

    // cppcheck-suppress CastIntegerToAddressAtReturn ; takes the pointer behind a QPointer for an integer
    QWidget *Widget() const { return m_widget; }
    /// Takes size and type from the member that was placed at design time.
    void Copia_Disegno(const Controllo &modello);

    /// Hands the widget to a procedure; does nothing when it has gone with its window. Whoever wants the
    /// widget comes by here, so that no other procedure asks whether it is there.
    /// @tparam W the kind of the widget, as the constructor made it.
    template <typename W = QWidget, typename Azione>
    void Fai(Azione azione) const
    {
        if (W *widget = static_cast<W *>(m_widget.data()); widget != nullptr)
            azione(*widget);
    }
    /// Asks the widget. @return the answer; altrimenti when the widget has gone with its window.
    template <typename W = QWidget, typename Risposta, typename Domanda>
    Risposta Chiedi(Risposta altrimenti, Domanda domanda) const
    {
        Fai<W>([&](const W &widget) { altrimenti = domanda(widget); });
        return altrimenti;
    }

protected:
    explicit Controllo(QWidget *widget, const QString &nome);
    /// Lays a style sheet on the widget and keeps its type.
    void Stile(const QString &foglio);
    /// Chooses the type anew: the text, the place or the look has changed.
    void Adatta();

private:
    int Maggiore_CheEntra(QWidget &widget, int oltre) const;

    QPointer<QWidget> m_widget;
    qint32 m_left = 0;
    qint32 m_top = 0;
    qint32 m_width = 0;
    qint32 m_height = 0;
    double m_punti = 0;
    QString m_tag;
};
