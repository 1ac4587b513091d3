// Held keys and double clicks as they come from the window system: on two forms of which one makes way for
// the other, at the same place on the screen.
#include "toolkit/gesti.h"

#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWindow>

#include <array>

namespace {

enum Pressione
{
    Singola,
    Ripetuta
};

/// A key goes down in the window that has the keyboard. A hand takes longer than a moment of the window
/// system's clock; a repeat does not.
void Premi(int tasto, Pressione pressione, const QString &testo = {})
{
    const QDeadlineTimer mano(pressione == Singola ? 2 : 0);
    while (!mano.hasExpired())
        QCoreApplication::processEvents();
    qt_handleKeyEvent(QGuiApplication::focusWindow(), QEvent::KeyPress, tasto, Qt::NoModifier, testo,
                      pressione == Ripetuta);
    QCoreApplication::processEvents();
}

void Lascia(int tasto, Pressione pressione, const QString &testo = {})
{
    qt_handleKeyEvent(QGuiApplication::focusWindow(), QEvent::KeyRelease, tasto, Qt::NoModifier, testo,
                      pressione == Ripetuta);
    QCoreApplication::processEvents();
}

/// Half a second of a key that stays down, as the window system tells it.
void Ripeti(int tasto, const QString &testo = {})
{
    for (int i = 0; i < 15; ++i) {
        Lascia(tasto, Ripetuta, testo);
        Premi(tasto, Ripetuta, testo);
    }
}

void Batti(int tasto, const QString &testo = {})
{
    Premi(tasto, Singola, testo);
    Lascia(tasto, Singola, testo);
}

/// The left button over the middle of a widget, at the display's own level: two presses at one place within
/// its interval are a double click.
void Mouse(QWidget *widget, QEvent::Type tipo)
{
    QWindow *finestra = widget->window()->windowHandle();
    const QPoint posto = widget->mapTo(widget->window(), widget->rect().center());
    const Qt::MouseButtons giu = tipo == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    qt_handleMouseEvent(finestra, posto, finestra->mapToGlobal(posto), giu, Qt::LeftButton, tipo,
                        Qt::NoModifier, ++QTest::lastMouseTimestamp);
    QCoreApplication::processEvents();
}

void Clic(QWidget *widget)
{
    Mouse(widget, QEvent::MouseButtonPress);
    Mouse(widget, QEvent::MouseButtonRelease);
}

void Passa_Intervallo()
{
    QTest::lastMouseTimestamp += 2000;
}

constexpr std::array INVIO_ED_ESCAPE = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape};

} // namespace

class tst_gesti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tenutoPremeUnaVoltaSola_data();
    void tenutoPremeUnaVoltaSola();
    void tenutoNonPassaAlFormDopo_data();
    void tenutoNonPassaAlFormDopo();
    void tenutoNonPremeNelDialogoDelToolkit();
    void tenutoNonSceglieNellaListaAperta();
    void ripetizioneNonRiconosciuta_data();
    void ripetizioneNonRiconosciuta();
    void dueBattuteDiUnMomento();
    void rilascioPerduto();
    void spazioTenutoPremeUnaVoltaSola();
    void spazioTenutoNonPassaAlFormDopo();
    void casellaPrendeLeRipetizioni();
    void elencoPrendeLeFrecceRipetute();

    void doppioClicSuDueForm_data();
    void doppioClicSuDueForm();
    void doppioClicSulloStessoForm();
    void dueClicSuDueForm();
    void terzaPressioneConta();
    void doppioClicSuUnaListaCheSiApre();

    void nessunMenuDelToolkit();

private:
    /// A form at the top left of the screen, with a control of every kind, one of which lies at (0, 0).
    static std::shared_ptr<ModuloProva> Form(const char *inCima);
    /// Two forms; the button on top of the first takes it away and brings the second up.
    void Due_Form(const char *inCimaAlSecondo);

    std::shared_ptr<ModuloProva> primo;
    std::shared_ptr<ModuloProva> secondo;
    std::unique_ptr<ElencoVoci> lista;
};

void tst_gesti::init()
{
    QVERIFY(Moduli_Caricati().empty());
    Passa_Intervallo();
}

void tst_gesti::cleanup()
{
    lista.reset();
    Scarica_Tutti();
    primo.reset();
    secondo.reset();
}

std::shared_ptr<ModuloProva> tst_gesti::Form(const char *inCima)
{
    auto modulo = Nuovo<ModuloProva>();
    modulo->AlDisegno = [m = modulo.get(), inCima] {
        m->Sposta(0, 0);
        m->cmd.Carica(0).Default(true);
        m->cmd.Carica(1).Cancel(true);
        m->txt.Carica(0);
        m->txt.Carica(1);
        m->cbo.Carica(0).AddItem(QStringLiteral("uno"));
        m->cbo[0].AddItem(QStringLiteral("due"));
        m->chk.Carica(0);
        qint32 cima = 600;
        for (Controllo *controllo : std::initializer_list<Controllo *>{&m->cmd[0], &m->cmd[1], &m->txt[0],
                                                                       &m->txt[1], &m->cbo[0], &m->chk[0]})
        {
            const bool qui = controllo->Widget()->objectName() == QLatin1String(inCima);
            controllo->Posto(0, qui ? 0 : std::exchange(cima, cima + 600), 3000, 450);
            controllo->Visible(true);
        }
    };
    return modulo;
}

void tst_gesti::Due_Form(const char *inCimaAlSecondo)
{
    primo = Form("cmd_0");
    secondo = Form(inCimaAlSecondo);
    primo->AlClick = [this](qint16) {
        primo->Scarica();
        secondo->Mostra();
    };
    secondo->Carica(); // so that the program does not end with the first
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    primo->cmd[0].SetFocus();
}

// --- held keys --------------------------------------------------------------------------------------------

void tst_gesti::tenutoPremeUnaVoltaSola_data()
{
    QTest::addColumn<int>("tasto");
    QTest::addColumn<QString>("fuoco");
    for (const int tasto : INVIO_ED_ESCAPE) {
        for (const char *fuoco : {"cmd_0", "cmd_1", "txt_0", "cbo_0", "chk_0"})
            QTest::addRow("%x in %s", tasto, fuoco) << tasto << QString::fromLatin1(fuoco);
    }
}

void tst_gesti::tenutoPremeUnaVoltaSola()
{
    QFETCH(int, tasto);
    QFETCH(QString, fuoco);
    primo = Form("cmd_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    primo->Finestra()->findChild<QWidget *>(fuoco)->setFocus();
    const auto premute = [this] { return primo->Registro.filter(QStringLiteral("cmd_Click")).size(); };
    Premi(tasto, Singola, QStringLiteral("\r"));
    QCOMPARE(premute(), 1);
    primo->Registro.clear();
    Ripeti(tasto, QStringLiteral("\r"));
    QCOMPARE(primo->Registro, QStringList()); // no handler hears of the repeats either
    Lascia(tasto, Singola);
    Batti(tasto, QStringLiteral("\r"));
    QCOMPARE(premute(), 1);
}

void tst_gesti::tenutoNonPassaAlFormDopo_data()
{
    QTest::addColumn<int>("tasto");
    for (const int tasto : INVIO_ED_ESCAPE)
        QTest::addRow("%x", tasto) << tasto;
}

void tst_gesti::tenutoNonPassaAlFormDopo()
{
    QFETCH(int, tasto);
    Due_Form("cmd_0");
    Premi(tasto, Singola);
    QVERIFY(Attiva(*secondo));
    Ripeti(tasto);
    Lascia(tasto, Singola);
    QCOMPARE(secondo->Registro.filter(QStringLiteral("cmd_Click")), QStringList());
    Batti(tasto); // pressed anew it counts at once
    QCOMPARE(secondo->Registro.filter(QStringLiteral("cmd_Click")).size(), 1);
}

// The boxes of the system, an error on the line say, come up by themselves.
void tst_gesti::tenutoNonPremeNelDialogoDelToolkit()
{
    QDialog dialogo;
    QPushButton bottone(QStringLiteral("OK"), &dialogo);
    bottone.setDefault(true);
    connect(&bottone, &QPushButton::clicked, &dialogo, &QDialog::accept);
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    for (const int tasto : INVIO_ED_ESCAPE)
        Ripeti(tasto);
    QVERIFY(dialogo.isVisible());
    Batti(Qt::Key_Return);
    QVERIFY(!dialogo.isVisible());
}

void tst_gesti::tenutoNonSceglieNellaListaAperta()
{
    primo = Form("cbo_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    auto *combo = qobject_cast<QComboBox *>(primo->cbo[0].Widget());
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    Premi(Qt::Key_Down, Singola);
    Ripeti(Qt::Key_Return, QStringLiteral("\r"));
    Ripeti(Qt::Key_Escape, QStringLiteral("\x1b"));
    QVERIFY(combo->view()->isVisible());
    Batti(Qt::Key_Return, QStringLiteral("\r"));
    QTRY_VERIFY(!combo->view()->isVisible());
    QCOMPARE(primo->Volte(QStringLiteral("cbo_Click 0")), 1);
}

void tst_gesti::ripetizioneNonRiconosciuta_data()
{
    QTest::addColumn<int>("lasciato");
    QTest::addColumn<int>("premuto");
    QTest::addColumn<quint64>("passati");
    QTest::addColumn<QString>("dove");
    QTest::addColumn<bool>("scartato");
    const auto riga = [](const char *nome, int lasciato, int premuto, quint64 passati, const char *dove,
                         bool scartato) {
        QTest::newRow(nome) << lasciato << premuto << passati << QString::fromLatin1(dove) << scartato;
    };
    riga("Invio nello stesso momento", Qt::Key_Return, Qt::Key_Return, 0, "cmd_0", true);
    riga("Invio del tastierino", Qt::Key_Enter, Qt::Key_Enter, 0, "txt_0", true);
    riga("Escape", Qt::Key_Escape, Qt::Key_Escape, 0, "txt_0", true);
    riga("aiuto", Qt::Key_F1, Qt::Key_F1, 0, "txt_0", true);
    riga("Invio premuto di nuovo", Qt::Key_Return, Qt::Key_Return, 1, "cmd_0", false);
    riga("un altro tasto", Qt::Key_A, Qt::Key_Return, 0, "cmd_0", false);
    riga("spazio su un pulsante", Qt::Key_Space, Qt::Key_Space, 0, "cmd_0", true);
    riga("spazio su una spunta", Qt::Key_Space, Qt::Key_Space, 0, "chk_0", true);
    riga("spazio in una casella", Qt::Key_Space, Qt::Key_Space, 0, "txt_0", false);
    riga("lettera in una casella", Qt::Key_A, Qt::Key_A, 0, "txt_0", false);
}

// What the toolkit does not know for a repeat.
void tst_gesti::ripetizioneNonRiconosciuta()
{
    QFETCH(int, lasciato);
    QFETCH(int, premuto);
    QFETCH(quint64, passati);
    QFETCH(QString, dove);
    primo = Form("cmd_0");
    primo->Mostra();
    const QObject *ricevente = primo->Finestra()->findChild<QWidget *>(dove);
    Gesti gesti(true);
    const auto da_scartare = [&](QEvent::Type tipo, int tasto, quint64 momento) {
        QKeyEvent evento(tipo, tasto, Qt::NoModifier);
        evento.setTimestamp(momento);
        return gesti.Da_Scartare(ricevente, evento);
    };
    QVERIFY(!da_scartare(QEvent::KeyPress, lasciato, 1000));
    QVERIFY(!da_scartare(QEvent::KeyRelease, lasciato, 1500));
    QTEST(da_scartare(QEvent::KeyPress, premuto, 1500 + passati), "scartato");
    QVERIFY(!da_scartare(QEvent::KeyRelease, lasciato, 0)); // of a program, not of a hand
    QVERIFY(!da_scartare(QEvent::KeyPress, premuto, 0));
}

// Where events bear the moment at which a busy loop took them up, two strokes that waited there are two.
void tst_gesti::dueBattuteDiUnMomento()
{
    primo = Form("cmd_0");
    primo->Mostra();
    const QObject *ricevente = primo->Finestra()->findChild<QWidget *>(QStringLiteral("cmd_0"));
    Gesti gesti(false);
    for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease, QEvent::KeyPress}) {
        QKeyEvent evento(tipo, Qt::Key_Return, Qt::NoModifier);
        evento.setTimestamp(1500);
        QVERIFY(!gesti.Da_Scartare(ricevente, evento));
    }
    const QKeyEvent tenuto(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QVERIFY(gesti.Da_Scartare(ricevente, tenuto));
}

// The release of a key may go with the form that it was pressed on: the next press, minutes later, is flagged
// as a repeat of that one.
void tst_gesti::rilascioPerduto()
{
    primo = Form("cmd_0");
    primo->Mostra();
    const QObject *ricevente = primo->Finestra()->findChild<QWidget *>(QStringLiteral("cmd_0"));
    Gesti gesti(true);
    const auto da_scartare = [&](bool ripetuto, quint64 momento) {
        QKeyEvent evento(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, ripetuto);
        evento.setTimestamp(momento);
        return gesti.Da_Scartare(ricevente, evento);
    };
    QVERIFY(!da_scartare(false, 1000));
    QVERIFY(da_scartare(true, 1500));
    QVERIFY(da_scartare(true, 6400)); // a machine that stood still
    QVERIFY(!da_scartare(true, 11500));
    QVERIFY(!da_scartare(true, 11500)); // the same event, on its way from the window to the control
    QVERIFY(da_scartare(true, 11530));
}

void tst_gesti::spazioTenutoPremeUnaVoltaSola()
{
    primo = Form("cmd_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    const QString spazio = QStringLiteral(" ");
    for (const auto &[nome, gestore] : {std::pair("cmd_1", "cmd_Click 1"), std::pair("chk_0", "chk_Click 0")})
    {
        primo->Finestra()->findChild<QWidget *>(QString::fromLatin1(nome))->setFocus();
        Premi(Qt::Key_Space, Singola, spazio);
        Ripeti(Qt::Key_Space, spazio);
        QCOMPARE(primo->Volte(QString::fromLatin1(gestore)), 0); // it presses when it is let go
        Lascia(Qt::Key_Space, Singola, spazio);
        QCOMPARE(primo->Volte(QString::fromLatin1(gestore)), 1);
    }
}

void tst_gesti::spazioTenutoNonPassaAlFormDopo()
{
    Due_Form("cmd_0");
    const QString spazio = QStringLiteral(" ");
    Premi(Qt::Key_Space, Singola, spazio);
    secondo->Mostra(); // it comes up by itself
    QVERIFY(Attiva(*secondo));
    secondo->cmd[0].SetFocus();
    Ripeti(Qt::Key_Space, spazio);
    Lascia(Qt::Key_Space, Singola, spazio);
    QCOMPARE(secondo->Volte(QStringLiteral("cmd_Click 0")), 0);
    Batti(Qt::Key_Space, spazio);
    QCOMPARE(secondo->Volte(QStringLiteral("cmd_Click 0")), 1);
}

void tst_gesti::casellaPrendeLeRipetizioni()
{
    primo = Form("txt_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    primo->txt[0].SetFocus();
    for (const auto &[tasto, testo] : {std::pair(Qt::Key_A, u'a'), std::pair(Qt::Key_Space, u' ')}) {
        Premi(tasto, Singola, QString(testo));
        Ripeti(tasto, QString(testo));
        Lascia(tasto, Singola, QString(testo));
    }
    QCOMPARE(primo->txt[0].Text(), QString(16, u'a') + QString(16, u' '));
    Premi(Qt::Key_Backspace, Singola, QStringLiteral("\b"));
    Ripeti(Qt::Key_Backspace, QStringLiteral("\b"));
    QCOMPARE(primo->txt[0].Text(), QString(16, u'a'));
}

void tst_gesti::elencoPrendeLeFrecceRipetute()
{
    primo = Form("cmd_0");
    primo->AlLoad = [this] {
        lista = std::make_unique<ElencoVoci>(primo->Finestra(), QStringLiteral("lst"));
        lista->Posto(4500, 0, 3000, 3000);
        lista->Visible(true);
        for (int i = 0; i < 20; ++i)
            lista->AddItem(QString::number(i));
    };
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    lista->SetFocus();
    Premi(Qt::Key_Down, Singola);
    Ripeti(Qt::Key_Down);
    QCOMPARE(lista->ListIndex(), 15);
}

// --- double clicks ----------------------------------------------------------------------------------------

void tst_gesti::doppioClicSuDueForm_data()
{
    QTest::addColumn<QString>("inCima");
    for (const char *nome : {"cmd_0", "chk_0", "txt_1", "cbo_0", "lst"})
        QTest::newRow(nome) << QString::fromLatin1(nome);
}

// Neither the press nor the release counts, whatever lies there; the focus stays where it is too.
void tst_gesti::doppioClicSuDueForm()
{
    QFETCH(QString, inCima);
    Due_Form(inCima.toLatin1().constData());
    if (inCima == u"lst") {
        lista = std::make_unique<ElencoVoci>(secondo->Finestra(), inCima);
        lista->Posto(0, 0, 3000, 450);
        lista->Visible(true);
        lista->AddItem(QStringLiteral("12345678.ACC"));
        lista->AddItem(QStringLiteral("23456789.ACC"));
    }
    int scelte = 0;
    if (lista != nullptr)
        lista->Click = [&scelte] { ++scelte; };
    const QPoint posto = primo->cmd[0].Widget()->rect().center();
    Clic(primo->cmd[0].Widget());
    QVERIFY(Attiva(*secondo));
    secondo->txt[0].SetFocus();
    secondo->Registro.clear();
    QWidget *sotto = secondo->Finestra()->childAt(posto);
    QVERIFY(sotto != nullptr);
    Clic(sotto);
    QCOMPARE(secondo->Registro, QStringList());
    QCOMPARE(scelte, 0);
    QVERIFY(secondo->txt[0].Widget()->hasFocus());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void tst_gesti::doppioClicSulloStessoForm()
{
    primo = Form("cmd_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    Clic(primo->cmd[0].Widget());
    Clic(primo->cmd[0].Widget());
    QCOMPARE(primo->Volte(QStringLiteral("cmd_Click 0")), 2);
}

// Two clicks that are no double click, however short the second form has been up.
void tst_gesti::dueClicSuDueForm()
{
    Due_Form("cmd_0");
    Clic(primo->cmd[0].Widget());
    QVERIFY(Attiva(*secondo));
    Passa_Intervallo();
    Clic(secondo->cmd[0].Widget());
    QCOMPARE(secondo->Volte(QStringLiteral("cmd_Click 0")), 1);
}

void tst_gesti::terzaPressioneConta()
{
    Due_Form("cmd_0");
    Clic(primo->cmd[0].Widget());
    QVERIFY(Attiva(*secondo));
    Clic(secondo->cmd[0].Widget());
    Passa_Intervallo();
    Clic(secondo->cmd[0].Widget());
    Clic(secondo->cmd[0].Widget());
    QCOMPARE(secondo->Volte(QStringLiteral("cmd_Click 0")), 2);
}

// The list that drops down is a window of its own and yet no other form.
void tst_gesti::doppioClicSuUnaListaCheSiApre()
{
    primo = Form("cbo_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    auto *combo = qobject_cast<QComboBox *>(primo->cbo[0].Widget());
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    const QPointer<QWidget> vista = combo->view()->viewport();
    Gesti gesti(true);
    const auto evento = [](QEvent::Type tipo) {
        return QMouseEvent(tipo, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    };
    QVERIFY(!gesti.Da_Scartare(combo, evento(QEvent::MouseButtonPress)));
    QVERIFY(!gesti.Da_Scartare(vista, evento(QEvent::MouseButtonDblClick)));
    QVERIFY(!gesti.Da_Scartare(vista, evento(QEvent::MouseButtonRelease)));
    combo->hidePopup();
    secondo = Form("cmd_0");
    secondo->Mostra();
    QVERIFY(gesti.Da_Scartare(secondo->cmd[0].Widget(), evento(QEvent::MouseButtonDblClick)));
    QVERIFY(gesti.Da_Scartare(secondo->cmd[0].Widget(), evento(QEvent::MouseMove)));
    QVERIFY(gesti.Da_Scartare(secondo->cmd[0].Widget(), evento(QEvent::MouseButtonRelease)));
    QVERIFY(!gesti.Da_Scartare(secondo->cmd[0].Widget(), evento(QEvent::MouseMove)));
    QVERIFY(!gesti.Da_Scartare(secondo->cmd[0].Widget(), evento(QEvent::MouseButtonRelease)));
}

// --- menus ------------------------------------------------------------------------------------------------

void tst_gesti::nessunMenuDelToolkit()
{
    primo = Form("txt_0");
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    primo->txt[0].SetFocus();
    QTest::mouseClick(primo->Finestra()->windowHandle(), Qt::RightButton, {},
                      primo->txt[0].Widget()->geometry().center());
    QVERIFY(QApplication::activePopupWidget() == nullptr);
    QContextMenuEvent tasto(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(primo->txt[0].Widget(), &tasto);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_gesti>(argc, argv);
}

#include "tst_gesti.moc"
