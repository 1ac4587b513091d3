// The life of a form. It knows controls and no form in particular: what a form does stands in its handlers.
#include "toolkit/modulo.h"

#include "platform/orologio.h"
#include "toolkit/finestra_modulo.h"

#include <QApplication>
#include <QEventLoop>
#include <QWindow>

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

// --- life -------------------------------------------------------------------------------------------------

Modulo::Modulo(const QString &nome)
    : txt(QStringLiteral("txt")),
      cbo(QStringLiteral("cbo")),
      chk(QStringLiteral("chk")),
      lbl(QStringLiteral("lbl")),
      cmd(QStringLiteral("cmd")),
      m_nome(nome)
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
    m_finestra = new FinestraModulo(*this);
    m_finestra->setObjectName(m_nome);
    m_intero = false;
    m_ritardoTasti = 0;
    m_segmenti.clear();
    m_tasti.clear();
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
        Ordina_Tabulazione();
}

void Modulo::Mostra(Modalita modalita)
{
    const auto vivo = shared_from_this();
    if (modalita == Modale && m_finestra != nullptr && m_finestra->isVisible())
        Solleva(NumeroErrore::FormGiaVisibile);
    Carica();
    if (m_finestra == nullptr)
        return;
    Disponi();
    QEventLoop ciclo;
    if (modalita == Modale) {
        m_finestra->setWindowModality(Qt::ApplicationModal);
        m_ciclo = &ciclo;
    }
    Posa_Sopra();
    m_mostrato = Orologio_Corrente().Adesso();
    m_finestra->show();
    PortaAvanti();
    if (modalita == Modale && m_ciclo == &ciclo)
        ciclo.exec();
}

void Modulo::PortaAvanti()
{
    if (m_finestra == nullptr)
        return;
    // Some window systems activate the window before they return, and Activate may unload the form: the
    // window itself stands until the loop has control.
    QWidget *finestra = m_finestra;
    if (finestra->isMinimized())
        finestra->setWindowState(finestra->windowState() & ~Qt::WindowMinimized);
    finestra->raise();
    finestra->activateWindow();
}

void Modulo::Scarica()
{
    if (m_finestra == nullptr || m_scarica)
        return;
    const auto vivo = shared_from_this();
    m_scarica = true;
    Unload();
    m_scarica = false;

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

void Modulo::Esegui(const std::function<void()> &procedura)
{
    const auto vivo = shared_from_this();
    procedura();
}

/// A small form belongs to the window that it opens over. Without that a window manager may take the screen
/// away from the form below, so that the desktop's panel comes up over its buttons, or lay the small one
/// under.
void Modulo::Posa_Sopra()
{
    if (m_intero || m_finestra->isVisible())
        return;
    const QWidget *attiva = QApplication::activeWindow();
    const QWidget *sotto = attiva != nullptr ? attiva : Ultima_Visibile();
    if (sotto == nullptr)
        return;
    m_finestra->setWindowFlag(Qt::Dialog); // windows of another kind belong to none
    m_finestra->winId();                   // makes its handle
    m_finestra->windowHandle()->setTransientParent(sotto->windowHandle());
}

// --- arrays and events ------------------------------------------------------------------------------------

void Modulo::Prepara_Array()
{
    txt.Inizia(m_finestra, [this](CasellaTesto &casella, qint16 i) {
        casella.Change = [this, i] { Esegui([&] { txt_Change(i); }); };
        casella.Widget()->installEventFilter(this);
    });
    cbo.Inizia(m_finestra, [this](CasellaCombinata &casella, qint16 i) {
        casella.Click = [this, i] { Esegui([&] { cbo_Click(i); }); };
        casella.Widget()->installEventFilter(this);
        casella.Elenco()->installEventFilter(this); // its keys while the list is open
    });
    chk.Inizia(m_finestra, [this](CasellaSpunta &casella, qint16 i) {
        casella.Click = [this, i] { Esegui([&] { chk_Click(i); }); };
        casella.Widget()->installEventFilter(this);
    });
    lbl.Inizia(m_finestra);
    cmd.Inizia(m_finestra,
               [this](Pulsante &pulsante, qint16 i) { Collega(pulsante, [this, i] { cmd_Click(i); }); });
}

void Modulo::Collega(Pulsante &pulsante, std::function<void()> procedura)
{
    pulsante.Widget()->installEventFilter(this);
    pulsante.Click = [this, &pulsante, procedura = std::move(procedura)] {
        Esegui([&] {
            // The mouse has asked the box on its way here; a key or an assistive technology has not.
            if (!Puo_Uscire())
                return;
            pulsante.SetFocus();
            procedura();
        });
    };
}

void Modulo::Collega(CasellaTesto &casella, std::function<void()> cambio, std::function<void(qint16 &)> tasto)
{
    casella.Change = [this, cambio = std::move(cambio)] { Esegui(cambio); };
    casella.Widget()->installEventFilter(this);
    m_tasti.emplace_back(casella.Widget(), std::move(tasto));
}
