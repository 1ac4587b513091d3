// The keys of a list before the list gets them. Those that write nothing are left to it.
#include "toolkit/ricerca_elenco.h"

#include "toolkit/controlli.h"

#include <QKeyEvent>
#include <QPointer>

namespace {

/// True for a key that writes a sign. Space chooses the line that the keyboard is on.
bool Scrive(const QKeyEvent &tasto)
{
    const Qt::KeyboardModifiers altri = tasto.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    return altri == Qt::NoModifier && tasto.text().size() == 1 && tasto.text().front().isPrint() &&
           !tasto.text().front().isSpace();
}

} // namespace

RicercaElenco::RicercaElenco(const ElencoVoci &elenco) : m_pausa([this] { Azzera(); })
{
    m_pausa.Interval(PAUSA_RICERCA);
    elenco.Fai([this](QWidget &lista) { lista.installEventFilter(this); });
}

void RicercaElenco::Azzera()
{
    if (!m_testo.isEmpty())
        Imposta(QString());
}

/// The pause begins when whoever is told has done with it: a message may stand in between.
void RicercaElenco::Imposta(const QString &testo)
{
    m_pausa.Enabled(false);
    m_testo = testo;
    const QPointer<RicercaElenco> vivo(this);
    Cambiata();
    if (vivo != nullptr)
        m_pausa.Enabled(!m_testo.isEmpty());
}

bool RicercaElenco::eventFilter(QObject *oggetto, QEvent *evento)
{
    if (evento->type() != QEvent::KeyPress)
        return QObject::eventFilter(oggetto, evento);
    const auto &tasto = *static_cast<QKeyEvent *>(evento);
    if (Scrive(tasto)) {
        Imposta(m_testo + tasto.text().toUpper());
        return true;
    }
    if (m_testo.isEmpty())
        return false;
    if (tasto.key() == Qt::Key_Backspace) {
        Imposta(m_testo.chopped(1));
        return true;
    }
    if (tasto.key() != Qt::Key_Down && tasto.key() != Qt::Key_Up)
        return false;
    m_pausa.Enabled(false);
    const QPointer<RicercaElenco> vivo(this);
    const bool presa = Freccia(tasto.key() == Qt::Key_Down);
    if (vivo != nullptr)
        m_pausa.Enabled(!m_testo.isEmpty());
    return presa;
}
