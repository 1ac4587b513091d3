// The keyboard of a form, on the events of Qt's widgets. What a form does stands in its handlers.
#include "toolkit/tastiera_modulo.h"

#include "platform/orologio.h"
#include "toolkit/aiuto.h"
#include "toolkit/gestori_modulo.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

bool E_Invio(int tasto)
{
    return tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
}

/// The member that a widget is; -1 for none.
template <typename T>
qint16 Indice_Di(const ArrayControlli<T> &array, const QWidget *widget)
{
    for (qint16 i = 0; i <= array.UBound(); ++i) {
        if (array.Esiste(i) && array[i].Widget() == widget)
            return i;
    }
    return -1;
}

/// A place in the tab order.
struct Voce
{
    int classe, riga;
    QWidget *widget;
};

template <typename T>
void Aggiungi(const ArrayControlli<T> &array, std::vector<Voce> &voci)
{
    for (qint16 i = 0; i <= array.UBound(); ++i) {
        if (array.Esiste(i) && array[i].Widget() != nullptr)
            voci.push_back({array[i].Tag().isEmpty() ? 1 : 0, array[i].Tag().toInt(), array[i].Widget()});
    }
}

} // namespace

void TastieraModulo::Inizia()
{
    m_fuori.clear();
    m_ritardo = 0;
}

void TastieraModulo::Osserva(QWidget *widget, std::function<void(qint16 &)> tasto)
{
    widget->installEventFilter(this);
    if (tasto)
        m_fuori.push_back({widget, std::move(tasto)});
}

void TastieraModulo::Mostrato()
{
    m_mostrato = Orologio_Corrente().Adesso();
}

// --- focus ------------------------------------------------------------------------------------------------

void TastieraModulo::Ordina_Tabulazione()
{
    QWidget *finestra = m_modulo.Finestra();
    std::vector<Voce> voci;
    Aggiungi(m_modulo.txt, voci);
    Aggiungi(m_modulo.cbo, voci);
    Aggiungi(m_modulo.chk, voci);
    for (QWidget *widget : finestra->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        const bool nuovo =
            std::none_of(voci.cbegin(), voci.cend(), [widget](const Voce &v) { return v.widget == widget; });
        if (nuovo && widget->focusPolicy() != Qt::NoFocus)
            voci.push_back({qobject_cast<QPushButton *>(widget) != nullptr ? 2 : 1, 0, widget});
    }
    std::stable_sort(voci.begin(), voci.end(), [](const Voce &a, const Voce &b) {
        return a.classe != b.classe ? a.classe < b.classe : a.riga < b.riga;
    });
    for (size_t i = 1; i < voci.size(); ++i)
        QWidget::setTabOrder(voci[i - 1].widget, voci[i].widget);

    // The order is a ring: the keyboard comes in at its beginning, unless Load has put the focus somewhere.
    const auto prima = std::find_if(voci.cbegin(), voci.cend(), [](const Voce &v) {
        return (v.widget->focusPolicy() & Qt::TabFocus) != 0 && v.widget->isEnabled() &&
               !v.widget->isHidden();
    });
    if (finestra->focusWidget() == nullptr && prima != voci.cend())
        prima->widget->setFocus();
}

bool TastieraModulo::Puo_Uscire()
{
    const QWidget *finestra = m_modulo.Finestra();
    if (finestra == nullptr || m_convalida)
        return true;
    const QWidget *casella = m_lasciata != nullptr ? m_lasciata.data() : finestra->focusWidget();
    m_lasciata = nullptr;
    const auto &txt = m_modulo.txt;
    const qint16 indice = Indice_Di(txt, casella);
    if (indice < 0 || txt[indice].Locked() || !txt[indice].Enabled() || !txt[indice].Visible())
        return true;

    const auto vivo = m_modulo.Vivo();
    bool trattieni = false;
    {
        const QScopedValueRollback<bool> convalida(m_convalida, true);
        m_modulo.txt_Validate(indice, trattieni);
    }
    if (!m_modulo.Caricato())
        return false;
    if (Indice_Di(txt, casella) < 0)
        return true; // the handler has unloaded the box: it holds nobody
    if (trattieni)
        txt[indice].SetFocus();
    return !trattieni;
}

/// The operator goes to a control by mouse or mnemonic; false when the box they come from holds them.
bool TastieraModulo::Puo_Entrare(QWidget *widget, Qt::FocusReason motivo)
{
    if (widget == m_lasciata)
        m_lasciata = nullptr;
    if (widget != m_modulo.Finestra()->focusWidget() || m_lasciata != nullptr) {
        if (!Puo_Uscire())
            return false;
        widget->setFocus(motivo);
    }
    return true;
}

const Pulsante *TastieraModulo::Pulsante_Con(bool (Pulsante::*proprieta)() const) const
{
    const auto &cmd = m_modulo.cmd;
    for (qint16 i = 0; i <= cmd.UBound(); ++i) {
        if (cmd.Esiste(i) && (cmd[i].*proprieta)() && cmd[i].Visible() && cmd[i].Enabled())
            return &cmd[i];
    }
    return nullptr;
}

/// The combo box that a widget is, or whose open list it is; -1 for none.
qint16 TastieraModulo::Indice_Combo(const QWidget *widget) const
{
    const auto &cbo = m_modulo.cbo;
    for (qint16 i = 0; i <= cbo.UBound(); ++i) {
        if (cbo.Esiste(i) && (cbo[i].Widget() == widget || cbo[i].Elenco() == widget))
            return i;
    }
    return -1;
}

/// True for the open list of a combo box.
bool TastieraModulo::Lista_Aperta(const QWidget *widget) const
{
    return Indice_Combo(widget) >= 0 && Indice_Di(m_modulo.cbo, widget) < 0;
}

// --- keys -------------------------------------------------------------------------------------------------

/// Offers a key to the handler of the control that has it.
/// @param codice 0 on return when the handler has swallowed it.
void TastieraModulo::Offri(const QWidget *widget, const QString &testo, qint16 &codice)
{
    if (const qint16 combo = Indice_Combo(widget); combo >= 0)
        return m_modulo.cbo_KeyDown(combo, codice);
    if (testo.isEmpty())
        return; // it writes nothing
    if (const qint16 casella = Indice_Di(m_modulo.txt, widget); casella >= 0)
        return m_modulo.txt_KeyPress(casella, codice);
    if (const qint16 pulsante = Indice_Di(m_modulo.cmd, widget); pulsante >= 0)
        return m_modulo.cmd_KeyPress(pulsante, codice);
    const auto fuori = std::find_if(m_fuori.cbegin(), m_fuori.cend(),
                                    [widget](const Fuori &voce) { return voce.widget == widget; });
    if (fuori != m_fuori.cend()) {
        const auto tasto = fuori->tasto; // a copy: the handler may load the form anew
        tasto(codice);
    }
}

/// Offers a key to the handlers. @return true when it goes no further.
bool TastieraModulo::Inghiottito(const QWidget *widget, const QString &testo)
{
    qint16 codice = testo.isEmpty() ? qint16{1} : static_cast<qint16>(testo.front().unicode());
    const auto vivo = m_modulo.Vivo(); // the handler may unload the form, and this goes with it
    Offri(widget, testo, codice);
    return codice == 0 || !m_modulo.Caricato();
}

/// The button that a key presses; nullptr for none.
QPushButton *TastieraModulo::Bottone_Per(QWidget *widget, int tasto) const
{
    if (Lista_Aperta(widget))
        return nullptr;
    const bool invio = E_Invio(tasto);
    if (auto *bottone = qobject_cast<QPushButton *>(widget); invio && bottone != nullptr)
        return bottone;
    const Pulsante *pulsante = nullptr;
    if (invio)
        pulsante = Pulsante_Con(&Pulsante::Default);
    else if (tasto == Qt::Key_Escape)
        pulsante = Pulsante_Con(&Pulsante::Cancel);
    return pulsante != nullptr ? static_cast<QPushButton *>(pulsante->Widget()) : nullptr;
}

/// True for Enter or Space on a button of a form that asks for a moment first: they were meant for the form
/// before it. A clock that has been put back holds nobody up.
bool TastieraModulo::Troppo_Presto(QWidget *widget, int tasto) const
{
    const bool preme = tasto == Qt::Key_Space ? qobject_cast<QPushButton *>(widget) != nullptr
                                              : E_Invio(tasto) && Bottone_Per(widget, tasto) != nullptr;
    const qint64 passati = m_mostrato.msecsTo(Orologio_Corrente().Adesso());
    return preme && passati >= 0 && passati < m_ritardo;
}

bool TastieraModulo::Tasto(QWidget *widget, int tasto, const QString &testo)
{
    if (tasto == Qt::Key_Tab || tasto == Qt::Key_Backtab)
        return false; // it moves the focus; no handler can keep the operator in a box by swallowing it
    if (E_Invio(tasto) && Lista_Aperta(widget))
        return true; // it has been offered, and chose or did not
    const auto vivo = m_modulo.Vivo();
    if (tasto >= Qt::Key_F1 && tasto <= Qt::Key_F12) {
        const QString modulo = m_modulo.Finestra()->objectName(); // the handler may unload the form
        m_modulo.Esegui([&] { m_modulo.FunctionKey(static_cast<qint16>(tasto - Qt::Key_F1 + 1)); });
        if (tasto == Qt::Key_F1)
            Aiuto_Apri(modulo);
        return true;
    }
    if (Inghiottito(widget, testo))
        return true;
    if (Troppo_Presto(widget, tasto))
        return true;
    QPushButton *bottone = Bottone_Per(widget, tasto);
    if (bottone == nullptr)
        return false;
    bottone->click();
    return true;
}

bool TastieraModulo::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *widget = qobject_cast<QWidget *>(oggetto);
    if (widget == nullptr || !m_modulo.Caricato())
        return QObject::eventFilter(oggetto, evento);
    switch (evento->type()) {
    case QEvent::KeyPress: {
        const auto *tasto = static_cast<QKeyEvent *>(evento);
        return Tasto(widget, tasto->key(), tasto->text());
    }
    case QEvent::ShortcutOverride: {
        // In an open list the toolkit lets Enter choose already here, before it is a key press.
        const auto *tasto = static_cast<QKeyEvent *>(evento);
        return E_Invio(tasto->key()) && Lista_Aperta(widget) && Inghiottito(widget, tasto->text());
    }
    case QEvent::FocusOut:
        // A click moves the focus before it arrives here itself.
        if (static_cast<QFocusEvent *>(evento)->reason() == Qt::MouseFocusReason)
            m_lasciata = widget;
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // the second press of two in a row
        // A click elsewhere leaves the box; when the box keeps the focus the click does not happen.
        return widget->isEnabled() && !Puo_Entrare(widget, Qt::MouseFocusReason);
    case QEvent::Drop:
        // A text dropped on a box is written in it: the box takes the focus, so that its leaving is asked.
        return widget->isEnabled() && !Puo_Entrare(widget, Qt::OtherFocusReason);
    case QEvent::Shortcut:
        return widget->isEnabled() && !Puo_Entrare(widget, Qt::ShortcutFocusReason);
    case QEvent::Wheel:
        // A turn of the wheel over a closed list chooses nothing.
        return Indice_Di(m_modulo.cbo, widget) >= 0;
    default:
        return QObject::eventFilter(oggetto, evento);
    }
}
