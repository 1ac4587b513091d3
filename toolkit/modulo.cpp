// The window of a form, its events and its life, on Qt's widgets. It knows controls and no form in
// particular: what a form does stands in its handlers.
#include "toolkit/modulo.h"

#include "platform/orologio.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <algorithm>
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

bool E_Invio(int tasto)
{
    return tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
}

} // namespace

std::vector<std::shared_ptr<Modulo>> Moduli_Caricati()
{
    return caricati;
}

// --- the window -------------------------------------------------------------------------------------------

class FinestraModulo : public QWidget
{
public:
    explicit FinestraModulo(Modulo &modulo) : QWidget(nullptr), m_modulo(&modulo) {}
    void Stacca() { m_modulo = nullptr; }

protected:
    bool event(QEvent *evento) override
    {
        const bool esito = QWidget::event(evento);
        if (evento->type() == QEvent::WindowActivate && m_modulo != nullptr)
            m_modulo->Esegui([this] { m_modulo->Activate(); });
        return esito;
    }
    void paintEvent(QPaintEvent *) override
    {
        if (m_modulo != nullptr)
            m_modulo->Esegui([this] { m_modulo->Dipingi(this); });
    }
    void closeEvent(QCloseEvent *evento) override
    {
        evento->accept();
        if (m_modulo != nullptr)
            m_modulo->Scarica();
    }
    void keyPressEvent(QKeyEvent *evento) override
    {
        if (m_modulo == nullptr || !m_modulo->Tasto(this, evento->key(), evento->text()))
            QWidget::keyPressEvent(evento);
    }
    bool focusNextPrevChild(bool avanti) override
    {
        if (m_modulo != nullptr && !m_modulo->Puo_Uscire())
            return true; // the key is used up, the focus stays
        return QWidget::focusNextPrevChild(avanti);
    }

private:
    Modulo *m_modulo;
};

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

void Modulo::Centra()
{
    Sposta((Schermo_Larghezza() - m_width) / 2, (Schermo_Altezza() - m_height) / 2);
}

void Modulo::Massimizza()
{
    m_intero = true;
    m_width = Schermo_Larghezza();
    m_height = Schermo_Altezza();
    m_finestra->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    Sposta(0, 0);
    m_finestra->setWindowState(Qt::WindowFullScreen); // after the place, which would take the state away
}

void Modulo::InPrimoPiano()
{
    if (m_finestra != nullptr && m_finestra->windowHandle() != nullptr)
        m_finestra->windowHandle()->setFlag(Qt::WindowStaysOnTopHint);
}

void Modulo::Disponi()
{
    if (m_finestra == nullptr)
        return;
    const QPoint origine = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QSize misura(Pixel_DaTwip(m_width), Pixel_DaTwip(m_height));
    if (m_finestra->size() != misura)
        m_finestra->setFixedSize(misura);
    const QPoint posto = origine + QPoint(Pixel_DaTwip(m_left), Pixel_DaTwip(m_top));
    if (m_finestra->pos() != posto)
        m_finestra->move(posto);
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
    m_segmenti.push_back({x1, y1, x2, y2});
}

void Modulo::Dipingi(QWidget *finestra)
{
    m_segmenti.clear();
    Paint();
    QPainter pennello(finestra);
    pennello.setPen(QPen(Colore_Cornice(), Spessore_Linea()));
    if (!m_intero)
        pennello.drawRect(finestra->rect().adjusted(0, 0, -1, -1)); // stands out also where no frame is drawn
    for (const Segmento &s : m_segmenti)
        pennello.drawLine(Pixel_DaTwip(s.x1), Pixel_DaTwip(s.y1), Pixel_DaTwip(s.x2), Pixel_DaTwip(s.y2));
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
