// The life of a form. It knows controls and no form in particular: what a form does stands in its handlers.
#include "toolkit/modulo.h"

#include "platform/errore_esecuzione.h"
#include "toolkit/finestra_modulo.h"
#include "toolkit/schermo.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <utility>

namespace {

std::vector<std::shared_ptr<Modulo>> caricati;

/// The window of the form loaded last of those that show; nullptr when none does.
QWidget *Ultima_Visibile()
{
    for (auto modulo = caricati.rbegin(); modulo != caricati.rend(); ++modulo) {
        QWidget *finestra = (*modulo)->Finestra();
        if (finestra != nullptr && finestra->isVisible())
            return finestra;
    }
    return nullptr;
}

/// After a form has gone, the one loaded last of those that show takes the keyboard.
void Attiva_Ultimo()
{
    if (QWidget *finestra = Ultima_Visibile(); finestra != nullptr)
        finestra->activateWindow();
}

} // namespace

std::vector<std::shared_ptr<Modulo>> Moduli_Caricati()
{
    return caricati;
}

Modulo::Modulo(const QString &nome) : m_nome(nome)
{
    setObjectName(nome);
}

Modulo::~Modulo()
{
    if (m_finestra != nullptr) {
        m_finestra->Stacca();
        delete std::exchange(m_finestra, nullptr);
    }
}

void Modulo::Carica()
{
    if (m_finestra != nullptr)
        return;
    m_finestra = new FinestraModulo(*this, m_tastiera, m_nome);
    m_tastiera.Inizia();
    caricati.push_back(shared_from_this());
    Prepara_Array();
    try {
        Disegno();
        Load();
    } catch (const ErroreEsecuzione &) {
        Togli_Finestra(); // a form that failed to load is not loaded: the next show begins afresh
        throw;
    }
    if (m_finestra != nullptr)
        m_tastiera.Ordina_Tabulazione();
}

void Modulo::Mostra(ModoMostra modo)
{
    const auto vivo = shared_from_this();
    if (modo == Modale && m_finestra != nullptr && m_finestra->isVisible())
        Solleva(NumeroErrore::FormGiaVisibile);
    Carica();
    if (m_finestra == nullptr)
        return;
    Disponi();
    QEventLoop ciclo;
    if (modo == Modale) {
        m_finestra->setWindowModality(Qt::ApplicationModal);
        m_ciclo = &ciclo;
    }
    m_tastiera.Mostrato();
    m_finestra->Mostra(Ultima_Visibile());
    PortaAvanti();
    if (modo == Modale && m_ciclo == &ciclo)
        ciclo.exec();
}

void Modulo::PortaAvanti()
{
    if (m_finestra == nullptr)
        return;
    // Some window systems activate the window before they return, and Activate may unload the form: the
    // window itself stands until the loop has control.
    m_finestra->PortaAvanti();
}

void Modulo::Scarica()
{
    if (m_finestra == nullptr || m_scarica)
        return;
    const auto vivo = shared_from_this();
    {
        const QScopedValueRollback<bool> scarica(m_scarica, true);
        Unload();
    }
    Togli_Finestra();
    if (caricati.empty())
        QCoreApplication::quit();
    else
        Attiva_Ultimo();
}

/// Takes the form out of the collection and its window off the screen; a modal show returns.
void Modulo::Togli_Finestra()
{
    if (m_finestra == nullptr)
        return;
    std::erase(caricati, shared_from_this());
    m_finestra->Stacca();
    m_finestra->hide();
    m_finestra->deleteLater();
    m_finestra = nullptr;
    if (m_ciclo != nullptr)
        m_ciclo->quit();
    m_ciclo = nullptr; // the form may show modally again before that loop has returned
}

void Modulo::Esegui_Dopo(std::function<void()> procedura)
{
    QMetaObject::invokeMethod(
        this, [this, procedura = std::move(procedura)] { Esegui(procedura); }, Qt::QueuedConnection);
}

// --- the window's place and look --------------------------------------------------------------------------

bool Modulo::Attivo() const
{
    return m_finestra != nullptr && m_finestra->isActiveWindow();
}

QWidget *Modulo::Finestra() const
{
    return m_finestra;
}

void Modulo::Aggiorna()
{
    if (m_finestra != nullptr)
        m_finestra->update();
}

void Modulo::Width(qint32 twip)
{
    m_width = twip;
    Disponi();
}

void Modulo::Height(qint32 twip)
{
    m_height = twip;
    Disponi();
}

void Modulo::Sposta(qint32 left, qint32 top)
{
    m_left = left;
    m_top = top;
    Disponi();
}

void Modulo::Centra()
{
    Sposta((Schermo_Larghezza() - m_width) / 2, (Schermo_Altezza() - m_height) / 2);
}

void Modulo::Massimizza()
{
    m_left = 0;
    m_top = 0;
    m_width = Schermo_Larghezza();
    m_height = Schermo_Altezza();
    m_finestra->Massimizza(m_width, m_height);
}

void Modulo::InPrimoPiano()
{
    if (m_finestra != nullptr)
        m_finestra->InPrimoPiano();
}

void Modulo::Disponi()
{
    if (m_finestra != nullptr)
        m_finestra->Disponi(m_left, m_top, m_width, m_height);
}

QString Modulo::Caption() const
{
    return m_finestra != nullptr ? m_finestra->windowTitle() : QString();
}

void Modulo::Caption(const QString &testo)
{
    if (m_finestra != nullptr)
        m_finestra->setWindowTitle(testo);
}

void Modulo::NomeAccessibile(const QString &nome)
{
    if (m_finestra != nullptr)
        m_finestra->setAccessibleName(nome);
}

void Modulo::Linea(qint32 x1, qint32 y1, qint32 x2, qint32 y2)
{
    if (m_finestra != nullptr)
        m_finestra->Linea(x1, y1, x2, y2);
}

// --- arrays and events ------------------------------------------------------------------------------------

void Modulo::Prepara_Array()
{
    txt.Inizia(m_finestra, [this](CasellaTesto &casella, qint16 i) {
        casella.Change = [this, i] { Esegui([&] { txt_Change(i); }); };
        m_tastiera.Osserva(casella.Widget());
    });
    cbo.Inizia(m_finestra, [this](CasellaCombinata &casella, qint16 i) {
        casella.Click = [this, i] { Esegui([&] { cbo_Click(i); }); };
        m_tastiera.Osserva(casella.Widget());
        m_tastiera.Osserva(casella.Elenco()); // its keys while the list is open
    });
    chk.Inizia(m_finestra, [this](CasellaSpunta &casella, qint16 i) {
        casella.Click = [this, i] { Esegui([&] { chk_Click(i); }); };
        m_tastiera.Osserva(casella.Widget());
    });
    lbl.Inizia(m_finestra);
    cmd.Inizia(m_finestra,
               [this](Pulsante &pulsante, qint16 i) { Collega(pulsante, [this, i] { cmd_Click(i); }); });
}

void Modulo::Collega(Pulsante &pulsante, std::function<void()> procedura)
{
    QWidget *bottone = pulsante.Widget();
    m_tastiera.Osserva(bottone);
    pulsante.Click = [this, bottone = QPointer(bottone), procedura = std::move(procedura)] {
        Esegui([&] {
            // The mouse has asked the box on its way here; a key or an assistive technology has not.
            if (!m_tastiera.Puo_Uscire())
                return;
            if (bottone != nullptr) // by its widget: the box that was asked may have unloaded the button
                bottone->setFocus(Qt::OtherFocusReason);
            procedura();
        });
    };
}

void Modulo::Collega(CasellaTesto &casella, std::function<void()> cambio, std::function<void(qint16 &)> tasto)
{
    casella.Change = [this, cambio = std::move(cambio)] { Esegui(cambio); };
    m_tastiera.Osserva(casella.Widget(), std::move(tasto));
}
