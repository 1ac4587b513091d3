// Focus, keys and tab order of a form.
#include "platform/orologio.h"
#include "toolkit/finestra_modulo.h"

#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>

namespace {

bool E_Invio(int tasto)
{
    return tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
}

} // namespace

void Modulo::Ordina_Tabulazione()
{
    // The rows of the form first, in their order, then what else takes the focus, the buttons last.
    struct Voce
    {
        int classe, riga;
        QWidget *widget;
    };
    std::vector<Voce> voci;
    const auto aggiungi = [&voci](const auto &array) {
        for (qint16 i = 0; i <= array.UBound(); ++i) {
            if (array.Esiste(i) && array[i].Widget() != nullptr)
                voci.push_back({array[i].Tag().isEmpty() ? 1 : 0, array[i].Tag().toInt(), array[i].Widget()});
        }
    };
    aggiungi(txt);
    aggiungi(cbo);
    aggiungi(chk);
    for (QWidget *widget : m_finestra->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
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
    if (m_finestra->focusWidget() == nullptr && prima != voci.cend())
        prima->widget->setFocus();
}

template <typename T>
qint16 Modulo::Indice_Di(const ArrayControlli<T> &array, const QWidget *widget) const
{
    for (qint16 i = 0; i <= array.UBound(); ++i) {
        if (array.Esiste(i) && array[i].Widget() == widget)
            return i;
    }
    return -1;
}

/// Asks the box that has the focus whether it may be left; false when it holds the focus, or has unloaded the
/// form meanwhile. A locked box has nothing to ask, nobody wrote in it; nor has one that is out of reach.
bool Modulo::Puo_Uscire()
{
    if (m_finestra == nullptr || m_convalida)
        return true;
    const QWidget *casella = m_lasciata != nullptr ? m_lasciata.data() : m_finestra->focusWidget();
    m_lasciata = nullptr;
    const qint16 indice = Indice_Di(txt, casella);
    if (indice < 0 || txt[indice].Locked() || !txt[indice].Enabled() || !txt[indice].Visible())
        return true;

    const auto vivo = shared_from_this();
    bool trattieni = false;
    m_convalida = true;
    txt_Validate(indice, trattieni);
    m_convalida = false;
    if (m_finestra == nullptr)
        return false;
    if (trattieni)
        txt[indice].SetFocus();
    return !trattieni;
}

/// The operator goes to a control by mouse or mnemonic; false when the box they come from holds them.
bool Modulo::Puo_Entrare(QWidget *widget, Qt::FocusReason motivo)
{
    if (widget == m_lasciata)
        m_lasciata = nullptr;
    if (widget != m_finestra->focusWidget() || m_lasciata != nullptr) {
        if (!Puo_Uscire())
            return false;
        widget->setFocus(motivo);
    }
    return true;
}

const Pulsante *Modulo::Pulsante_Con(bool (Pulsante::*proprieta)() const) const
{
    for (qint16 i = 0; i <= cmd.UBound(); ++i) {
        if (cmd.Esiste(i) && (cmd[i].*proprieta)() && cmd[i].Visible() && cmd[i].Enabled())
            return &cmd[i];
    }
    return nullptr;
}

/// The combo box that a widget is, or whose open list it is; -1 for none.
qint16 Modulo::Indice_Combo(const QWidget *widget) const
{
    for (qint16 i = 0; i <= cbo.UBound(); ++i) {
        if (cbo.Esiste(i) && (cbo[i].Widget() == widget || cbo[i].Elenco() == widget))
            return i;
    }
    return -1;
}

/// True for the open list of a combo box.
bool Modulo::Lista_Aperta(const QWidget *widget) const
{
    return Indice_Combo(widget) >= 0 && Indice_Di(cbo, widget) < 0;
}

/// Offers a key to the handlers of the boxes. @return true when it goes no further.
bool Modulo::Inghiottito(const QWidget *widget, const QString &testo)
{
    const auto vivo = shared_from_this();
    const qint16 casella = Indice_Di(txt, widget);
    const qint16 combo = Indice_Combo(widget);
    qint16 codice = testo.isEmpty() ? qint16{1} : static_cast<qint16>(testo.front().unicode());
    if (casella >= 0 && !testo.isEmpty())
        Esegui([&] { txt_KeyPress(casella, codice); });
    else if (combo >= 0)
        Esegui([&] { cbo_KeyDown(combo, codice); });
    const auto fuori = std::find_if(m_tasti.cbegin(), m_tasti.cend(),
                                    [widget](const auto &voce) { return voce.first == widget; });
    if (fuori != m_tasti.cend() && !testo.isEmpty())
        Esegui([&codice, procedura = fuori->second] { procedura(codice); });
    return codice == 0 || m_finestra == nullptr;
}

/// The button that a key presses; nullptr for none.
QPushButton *Modulo::Bottone_Per(QWidget *widget, int tasto) const
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
bool Modulo::Troppo_Presto(QWidget *widget, int tasto) const
{
    const bool preme = tasto == Qt::Key_Space ? qobject_cast<QPushButton *>(widget) != nullptr
                                              : E_Invio(tasto) && Bottone_Per(widget, tasto) != nullptr;
    const qint64 passati = m_mostrato.msecsTo(Orologio_Corrente().Adesso());
    return preme && passati >= 0 && passati < m_ritardoTasti;
}

bool Modulo::Tasto(QWidget *widget, int tasto, const QString &testo)
{
    if (tasto == Qt::Key_Tab || tasto == Qt::Key_Backtab)
        return false; // it moves the focus; no handler can keep the operator in a box by swallowing it
    if (E_Invio(tasto) && Lista_Aperta(widget))
        return true; // it has been offered, and chose or did not
    const auto vivo = shared_from_this();
    if (tasto >= Qt::Key_F1 && tasto <= Qt::Key_F12) {
        Esegui([&] { FunctionKey(static_cast<qint16>(tasto - Qt::Key_F1 + 1)); });
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

bool Modulo::eventFilter(QObject *oggetto, QEvent *evento)
{
    auto *widget = qobject_cast<QWidget *>(oggetto);
    if (widget == nullptr || m_finestra == nullptr)
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
        return Indice_Di(cbo, widget) >= 0;
    default:
        return QObject::eventFilter(oggetto, evento);
    }
}

void Modulo::txt_Validate(qint16, bool &) {}
void Modulo::txt_Change(qint16) {}
void Modulo::txt_KeyPress(qint16, qint16 &) {}
void Modulo::cbo_Click(qint16) {}
void Modulo::cbo_KeyDown(qint16, qint16 &) {}
void Modulo::chk_Click(qint16) {}
void Modulo::cmd_Click(qint16) {}
void Modulo::FunctionKey(qint16) {}
