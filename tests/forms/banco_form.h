// What the tests of the forms of a test share: a station, a screen and one clock, the widgets of a form by
// their names, and a director for modal shows. A program of such tests runs on one clock from beginning to
// end, since the default instance of the message box keeps its timer.
#pragma once

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/forms/modulo_prova.h"
#include "toolkit/modulo.h"

#include <QColor>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <functional>
#include <memory>
#include <vector>

/// The clock of the whole program; every timer made after the first call beats on it.
OrologioProva &Orologio_Banco();

/// A station on the present screen, without any form. At its end all forms are unloaded and the locale is
/// that of the C language again.
class BancoForm
{
public:
    BancoForm();
    ~BancoForm();
    Q_DISABLE_COPY_MOVE(BancoForm)

    StazioneProva Stazione;
};

// --- widgets ----------------------------------------------------------------------------------------------

/// A control of a loaded form. @param nome e.g. "cmd_0". A control that is not there ends the test program.
QWidget *Widget_Di(const Modulo &modulo, const char *nome);

template <typename T>
T *Widget_Di(const Modulo &modulo, const char *nome)
{
    return static_cast<T *>(Widget_Di(modulo, nome));
}

/// The same for a member of a control array.
template <typename T>
T *Membro_Di(const Modulo &modulo, const char *array, int indice)
{
    return Widget_Di<T>(modulo, (QByteArray(array) + '_' + QByteArray::number(indice)).constData());
}

/// What a label, a button or a text box reads.
QString Testo_Di(const Modulo &modulo, const char *nome);
bool Visibile(const Modulo &modulo, const char *nome);
bool Abilitato(const Modulo &modulo, const char *nome);

/// Place of a control, in twips mapped to pixels as the controls do it.
QRect Posto_Twip(qint32 left, qint32 top, qint32 width, qint32 height);

/// A click of the mouse in the middle of a control.
void Premi(const Modulo &modulo, const char *nome);
/// A click into a text box, and a text typed in place of the one that stood there.
void Scrivi(const Modulo &modulo, const char *nome, const QString &testo);

/// Colour of a control's ground, a little inside its top left corner.
QColor Sfondo_Di(QWidget *widget);
/// True when some pixel of a control has exactly that colour.
bool Ha_Colore(QWidget *widget, const QColor &colore);
/// True when a frame stands painted there. Corners in twips.
bool Ha_Cornice(const Modulo &modulo, qint32 x1, qint32 y1, qint32 x2, qint32 y2);

// --- run-time errors and notifications --------------------------------------------------------------------

/// While it stands, nothing that is left behind counts as lost: the toolkit is built without unwinding, and
/// an error that passes through it leaves things of its own behind. The program ends there; a test goes on.
class ErroreAttraverso
{
public:
    ErroreAttraverso();
    ~ErroreAttraverso();
    Q_DISABLE_COPY_MOVE(ErroreAttraverso)
};

/// Errore_Di for an error that passes through the toolkit on its way.
template <typename P>
int Errore_DaEvento(P procedura)
{
    const ErroreAttraverso passaggio;
    return Errore_Di(procedura);
}

/// Code and value of every notification of a form, in their order.
using Notifiche = QList<QPair<int, int>>;

/// Listens to a form from now on.
template <typename Form>
std::shared_ptr<Notifiche> Ascolta(Form &form)
{
    auto notifiche = std::make_shared<Notifiche>();
    QObject::connect(&form, &Form::Notifica, &form, [notifiche](qint16 &codice, QVariant &valore) {
        notifiche->append({codice, valore.toInt()});
    });
    return notifiche;
}

// --- forms ------------------------------------------------------------------------------------------------

/// The form of that name that was loaded last and shows; nullptr when there is none.
std::shared_ptr<Modulo> Modulo_Aperto(const char *nome);

template <typename T>
std::shared_ptr<T> Modulo_Aperto(const char *nome)
{
    return std::dynamic_pointer_cast<T>(Modulo_Aperto(nome));
}

/// Names of the loaded forms, in the order of their loading.
QStringList Nomi_Caricati();

/// What to do while a modal form holds the test: each step waits for its form to have the keyboard, then
/// acts. A step may open further modal forms. When a step does not come within some seconds every form is
/// unloaded.
class Regia
{
public:
    /// @param modulo name of the form, e.g. "frmMsg".
    Regia &Quando(const char *modulo, std::function<void(Modulo &)> azione);
    /// The same for any condition.
    Regia &Quando(std::function<bool()> condizione, std::function<void()> azione);
    /// True when every step has been taken and nothing hung.
    bool Finita() const { return m_passi.empty() && !m_rete.Scattata(); }

private:
    struct Passo
    {
        std::function<bool()> condizione;
        std::function<void()> azione;
    };
    void Guarda();
    void Riguarda();

    std::vector<Passo> m_passi;
    bool m_guarda = false;
    QObject m_contesto;
    ReteModale m_rete;
};
