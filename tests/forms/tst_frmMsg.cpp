#include "dialogs/frmMsg.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "platform/colori.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/forms/difetti_prova.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <QWindow>

#include <cstdio>

namespace {

/// The clock of the whole program: the default instance of the form keeps its timer from the first use on.
OrologioProva &Orologio_Prova()
{
    static OrologioProva orologio;
    return orologio;
}

frmMsg &Messaggio()
{
    Orologio_Prova();
    return Predefinito<frmMsg>();
}

template <typename T = QWidget>
T *Parte(const char *nome)
{
    return Messaggio().Finestra()->findChild<T *>(QString::fromLatin1(nome));
}

/// What lies on each other because the rules place it so.
constexpr Sovrapposti VOLUTI[] = {
    {"frmMsg", "Shape1", "*",         "the border stands round everything"             },
    {"frmMsg", "lbl_0",  "lblTitolo", "the text's place is round the form's own middle"},
};

/// A text of that many characters.
QString Testo(int lunghezza)
{
    return QStringLiteral("parola ").repeated(lunghezza / 7 + 1).left(lunghezza);
}

/// Shows the form modally and lets the test look at it once it is painted; then it is closed.
void Mostra_E_Guarda(qint16 modo, const QString &testo, const std::function<void()> &guarda)
{
    QTimer::singleShot(0, &Messaggio(), [&] {
        Messaggio().Finestra()->grab(); // paints it
        guarda();
        Messaggio().Scarica();
    });
    Mostra_Msg(modo, Modulo::Modale, Falso, COLORE_MESSAGGIO, 2000, testo);
}

} // namespace

class tst_frmMsg : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void primaDiOgniAltraFinestra();
    void altezza_data();
    void altezza();
    void altezzaFinoAlloSchermo();
    void larghezzaSullaGriglia();
    void titoloNellaLinguaInForza();

    void siChiudeAlTempo_data();
    void siChiudeAlTempo();
    void aTempoNonHaPulsante();
    void aTempoITastiNonChiudono();
    void conPulsanteAspettaLOperatore();
    void pulsanteChiude_data();
    void pulsanteChiude();
    void invioSenzaFuoco();
    void chiusuraDellaFinestra();

    void pulsanteAlSuoPosto_data();
    void pulsanteAlSuoPosto();
    void centratoSulloSchermo();
    void bordoEIcona();
    void testoCentrato();
    void testoTuttoInVista_data();
    void testoTuttoInVista();
    void rapportoScorre_data();
    void rapportoScorre();
    void rapportoConITasti();
    void rapportoConRotellaEDito();
    void rapportoAllineatoASinistra();
    void testoLunghissimoSiMostraSubito();
    void titoloDisegnato();
    void inPrimoPiano();

    void secondoMessaggioMentreUnoSiMostra();
    void messaggioDopoMessaggio();
    void nonModaleRitornaSubito();
    void erroreDentroLasciatoCadere();
    void leDueFormeDelProgramma();
    void tornaAttivaLaFinestraDiPrima();

    void ogniSchermo_data();
    void ogniSchermo();

private:
    std::unique_ptr<StazioneProva> m_stazione;
    std::unique_ptr<ReteModale> m_rete;
};

void tst_frmMsg::initTestCase()
{
    Orologio_Prova();
}

void tst_frmMsg::init()
{
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    m_rete = std::make_unique<ReteModale>();
    if (QTest::currentTestFunction() != QByteArray("primaDiOgniAltraFinestra"))
        m_stazione = std::make_unique<StazioneProva>();
}

void tst_frmMsg::cleanup()
{
    QVERIFY(!m_rete->Scattata());
    Scarica_Tutti();
    QCOMPARE(Orologio_Prova().Armate(), 0);
    m_stazione.reset();
}

/// At start-up a missing file is told before any text file has been read and any window opened.
void tst_frmMsg::primaDiOgniAltraFinestra()
{
    gTabMctc.clear();
    QVERIFY(Moduli_Caricati().empty());
    const QString testo = QStringLiteral("Setup File not Found\r\n (C:\\lumira\\lumira.ini)");
    QString letto, titolo;
    bool visto = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        visto = QTest::qWaitForWindowExposed(Messaggio().Finestra());
        letto = Parte<QLabel>("lbl_0")->text();
        titolo = Messaggio().Caption();
        Orologio_Prova().Avanza(2000);
    });
    Mostra_MsgTempo(testo);
    QVERIFY(visto);
    QCOMPARE(letto, testo);
    QCOMPARE(titolo, QString());
    QVERIFY(!Messaggio().Caricato());
}

void tst_frmMsg::altezza_data()
{
    QTest::addColumn<int>("lunghezza");
    QTest::addColumn<int>("attesa");
    const int righe[][2] = {
        {0,    1500 },
        {1,    1500 },
        {25,   1500 },
        {26,   2000 },
        {49,   2000 },
        {50,   2000 },
        {74,   2000 },
        {75,   2500 },
        {76,   2500 },
        {124,  2500 },
        {125,  2500 },
        {126,  3000 },
        {150,  3000 },
        {175,  3500 },
        {1000, 11500},
    };
    for (const auto &riga : righe)
        QTest::addRow("%d", riga[0]) << riga[0] << riga[1];
}

void tst_frmMsg::altezza()
{
    QFETCH(int, lunghezza);
    QFETCH(int, attesa);
    QCOMPARE(gScreenH, 12000);
    qint32 trovata = 0;
    Mostra_E_Guarda(0, Testo(lunghezza), [&] {
        trovata = Messaggio().Height();
        QCOMPARE(Messaggio().Finestra()->height(), Pixel_DaTwip(trovata));
    });
    QCOMPARE(trovata, attesa);
}

void tst_frmMsg::altezzaFinoAlloSchermo()
{
    for (const int lunghezza : {1050, 1100, 20000}) {
        qint32 trovata = 0;
        Mostra_E_Guarda(1, Testo(lunghezza), [&] { trovata = Messaggio().Height(); });
        QCOMPARE(trovata, 12000);
    }
}

void tst_frmMsg::larghezzaSullaGriglia()
{
    qint32 trovata = 0;
    Mostra_E_Guarda(0, QString(), [&] { trovata = Messaggio().Width(); });
    QCOMPARE(trovata, ScalaX(9000));
    QCOMPARE(trovata, 7031);
}

void tst_frmMsg::titoloNellaLinguaInForza()
{
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        gLingua = QStringLiteral("EN");
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        QString titolo;
        Mostra_E_Guarda(modo, QString(), [&] { titolo = Messaggio().Finestra()->windowTitle(); });
        QCOMPARE(titolo, QStringLiteral("Notice"));
    }
}

// --- closing ----------------------------------------------------------------------------------------------

void tst_frmMsg::siChiudeAlTempo_data()
{
    QTest::addColumn<int>("tempo");
    for (const int tempo : {1, 2000, 32767})
        QTest::addRow("%d ms", tempo) << tempo;
}

void tst_frmMsg::siChiudeAlTempo()
{
    QFETCH(int, tempo);
    bool prima = false;
    bool dopo = true;
    QTimer::singleShot(0, &Messaggio(), [&] {
        Orologio_Prova().Avanza(tempo - 1);
        prima = Messaggio().Caricato();
        Orologio_Prova().Avanza(1);
        dopo = Messaggio().Caricato();
    });
    Mostra_Msg(0, Modulo::Modale, Falso, COLORE_MESSAGGIO, static_cast<qint16>(tempo),
               QStringLiteral("Avviso"));
    QVERIFY(prima);
    QVERIFY(!dopo);
}

void tst_frmMsg::aTempoNonHaPulsante()
{
    bool visibile = true;
    Mostra_E_Guarda(0, QStringLiteral("Avviso"), [&] { visibile = Parte("cmd_0")->isVisible(); });
    QVERIFY(!visibile);
}

void tst_frmMsg::aTempoITastiNonChiudono()
{
    bool aperto = false;
    Mostra_E_Guarda(0, QStringLiteral("Avviso"), [&] {
        for (const Qt::Key tasto : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space})
            QTest::keyClick(Messaggio().Finestra(), tasto);
        aperto = Messaggio().Caricato();
    });
    QVERIFY(aperto);
}

void tst_frmMsg::conPulsanteAspettaLOperatore()
{
    bool aperto = false;
    Mostra_E_Guarda(1, QStringLiteral("Avviso"), [&] {
        Orologio_Prova().Avanza(24 * 3600 * 1000);
        aperto = Messaggio().Caricato() && Parte("cmd_0")->isVisible();
    });
    QVERIFY(aperto);
}

void tst_frmMsg::pulsanteChiude_data()
{
    QTest::addColumn<int>("tasto");
    QTest::newRow("mouse") << 0;
    QTest::newRow("Invio") << int{Qt::Key_Return};
    QTest::newRow("Escape") << int{Qt::Key_Escape};
    QTest::newRow("spazio") << int{Qt::Key_Space};
}

// Enter closes a message also when none of its controls has the keyboard.
void tst_frmMsg::invioSenzaFuoco()
{
    bool visto = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        visto = Attiva(Messaggio());
        Parte("cmd_0")->clearFocus();
        QTest::keyClick(Messaggio().Finestra(), Qt::Key_Return);
        if (Messaggio().Caricato()) {
            visto = false;
            Messaggio().Scarica();
        }
    });
    Mostra_MsgConferma(QStringLiteral("Avviso"));
    QVERIFY(visto);
}

void tst_frmMsg::pulsanteChiude()
{
    QFETCH(int, tasto);
    bool visto = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        visto = Attiva(Messaggio());
        QCOMPARE(Parte<QPushButton>("cmd_0")->text(), QStringLiteral("Ok"));
        if (tasto == 0)
            QTest::mouseClick(Parte("cmd_0"), Qt::LeftButton);
        else
            QTest::keyClick(Messaggio().Finestra()->focusWidget(), static_cast<Qt::Key>(tasto));
    });
    Mostra_MsgConferma(QStringLiteral("Avviso"));
    QVERIFY(visto);
    QVERIFY(!Messaggio().Caricato());
}

void tst_frmMsg::chiusuraDellaFinestra()
{
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        QTimer::singleShot(0, &Messaggio(), [] { Messaggio().Finestra()->close(); });
        Mostra_Msg(modo, Modulo::Modale, Falso, COLORE_MESSAGGIO, 2000, QStringLiteral("Avviso"));
        QVERIFY(!Messaggio().Caricato());
        QCOMPARE(Orologio_Prova().Armate(), 0); // a later message does not inherit the time of this one
    }
}

// --- the look ---------------------------------------------------------------------------------------------

// The button grows with the form: by a fifth of a low one, in a high one by half of what the two lines of the
// text that have to be seen leave over.
void tst_frmMsg::pulsanteAlSuoPosto_data()
{
    QTest::addColumn<int>("lunghezza");
    QTest::addColumn<int>("alto");
    const int righe[][2] = {
        {0,   360},
        {50,  400},
        {75,  435},
        {126, 685},
        {175, 900},
        {600, 900},
    };
    for (const auto &riga : righe)
        QTest::addRow("%d", riga[0]) << riga[0] << riga[1];
}

void tst_frmMsg::pulsanteAlSuoPosto()
{
    QFETCH(int, lunghezza);
    QFETCH(int, alto);
    bool visto = false;
    Mostra_E_Guarda(1, Testo(lunghezza), [&] {
        const Pulsante &pulsante = Messaggio().cmd[0];
        QCOMPARE(pulsante.Height(), alto);
        QCOMPARE(pulsante.Top(), Messaggio().Height() - 2 * pulsante.Height() - 100);
        QCOMPARE(pulsante.Left(), (Messaggio().Width() - pulsante.Width()) / 2);
        visto = true;
    });
    QVERIFY(visto);
}

void tst_frmMsg::centratoSulloSchermo()
{
    bool visto = false;
    Mostra_E_Guarda(0, Testo(75), [&] {
        QCOMPARE(Messaggio().Left(), (gScreenW - Messaggio().Width()) / 2);
        QCOMPARE(Messaggio().Top(), (gScreenH - 2500) / 2);
        QCOMPARE(Messaggio().Finestra()->pos(), QPoint(Pixel_DaTwip(Messaggio().Left()), Pixel_DaTwip(4750)));
        visto = true;
    });
    QVERIFY(visto);
}

void tst_frmMsg::bordoEIcona()
{
    for (int volta = 0; volta < 2; ++volta) { // the design places are the same at each loading
        bool visto = false;
        Mostra_E_Guarda(0, Testo(75), [&] {
            QCOMPARE(Parte("Shape1")->geometry(), Messaggio().Finestra()->rect());
            QCOMPARE(Parte("PicMex")->geometry(), QRect(6, 13, 45, 46));
            QVERIFY(!Parte<QLabel>("PicMex")->pixmap(Qt::ReturnByValue).isNull());
            visto = Parte("Shape1")->isVisible() && Parte("PicMex")->isVisible();
        });
        QVERIFY(visto);
    }
}

void tst_frmMsg::testoCentrato()
{
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        bool visto = false;
        Mostra_E_Guarda(modo, Testo(60), [&] {
            const Etichetta &lbl = Messaggio().lbl[0];
            QCOMPARE(lbl.Left(), (Messaggio().Width() - lbl.Width()) / 2);
            QCOMPARE(lbl.Top(), (Messaggio().Height() - lbl.Height()) / 2 - 200);
            visto = true;
        });
        QVERIFY(visto);
    }
}

void tst_frmMsg::testoTuttoInVista_data()
{
    QTest::addColumn<QString>("testo");
    for (const int lunghezza : {1, 10, 25, 26, 60, 74, 75, 120, 200, 400, 800})
        QTest::addRow("%d caratteri", lunghezza) << Testo(lunghezza);
    QTest::newRow("una parola sola") << QStringLiteral("W").repeated(20);
    QTest::newRow("due righe") << QStringLiteral("Setup File not Found\r\n (C:\\lumira\\lumira.ini)");
    QTest::newRow("molte righe") << QStringLiteral("[Prenotazione] Targa: mancante\r\n").repeated(20);
}

/// What a reader of a list that scrolls would miss: an entry, a part of its letters, its end.
static QString Difetti_Elenco(QListWidget *lista)
{
    QString difetti;
    QString atteso, letto;
    for (const QString &riga : Messaggio().Text.split(u'\n'))
        atteso += riga.trimmed();
    for (int i = 0; i < lista->count(); ++i)
        letto += lista->item(i)->text();
    if (letto != atteso)
        difetti += QStringLiteral("un altro testo ");
    lista->verticalScrollBar()->setValue(lista->verticalScrollBar()->maximum());
    const QRect ultima = lista->visualItemRect(lista->item(lista->count() - 1));
    if (!lista->viewport()->rect().contains(ultima.bottomLeft()))
        difetti += QStringLiteral("senza fine ");
    const QRect scritta = lista->fontMetrics().boundingRect(ultima, Qt::TextWordWrap | Qt::TextWrapAnywhere,
                                                            lista->item(lista->count() - 1)->text());
    if (ultima.right() >= lista->viewport()->width() || scritta.height() > ultima.height())
        difetti += QStringLiteral("tagliato ");
    return difetti;
}

/// What a reader of the box would miss: the whole text, in its form, beside the icon and above the button.
static QString Difetti()
{
    QString difetti;
    auto *lista = Parte<QListWidget>("lstTesto");
    auto *lbl = Parte<QLabel>("lbl_0");
    if (lbl->isVisible() == lista->isVisible())
        difetti += QStringLiteral("due volte o mai ");
    const auto *testo = lista->isVisible() ? static_cast<QWidget *>(lista) : lbl;
    if (lista->isVisible())
        difetti += Difetti_Elenco(lista);
    else if (Scritta_Tagliata(lbl))
        difetti += QStringLiteral("tagliato ");
    if (!Messaggio().Finestra()->rect().contains(testo->geometry()) || testo->height() <= 0)
        difetti += QStringLiteral("fuori ");
    if (testo->geometry().intersects(Parte("PicMex")->geometry()))
        difetti += QStringLiteral("sull'icona ");
    if (Parte("cmd_0")->isVisible() && testo->geometry().intersects(Parte("cmd_0")->geometry()))
        difetti += QStringLiteral("sotto il pulsante ");
    if (Parte("cmd_0")->isVisible() && !Messaggio().Finestra()->rect().contains(Parte("cmd_0")->geometry()))
        difetti += QStringLiteral("pulsante fuori ");
    return difetti;
}

void tst_frmMsg::testoTuttoInVista()
{
    QFETCH(QString, testo);
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        QString difetti = QStringLiteral("non visto");
        Mostra_E_Guarda(modo, testo, [&] { difetti = Difetti(); });
        QCOMPARE(difetti, QString());
    }
}

/// A report as the worklist gives it: a sentence and an entry a line, more than a screen of them.
static QString Rapporto(int voci)
{
    QString rapporto = QStringLiteral("Anomalie trovate: \r\n");
    for (int i = 0; i < voci; ++i)
        rapporto += QStringLiteral("Sezione: Prenotazione - Entry: %1 - Estranea\r\n").arg(i);
    return rapporto;
}

void tst_frmMsg::rapportoScorre_data()
{
    QTest::addColumn<int>("modo");
    QTest::addColumn<QString>("testo");
    QTest::newRow("con pulsante") << 1 << Rapporto(100);
    QTest::newRow("a tempo") << 0 << Rapporto(100);
    QTest::newRow("una riga senza fine") << 1 << Testo(20000);
    QTest::newRow("una parola senza fine") << 1 << QString(20000, u'W');
    QTest::newRow("migliaia di righe") << 1 << Rapporto(2000);
}

// What is longer than the screen can be read to its end.
void tst_frmMsg::rapportoScorre()
{
    QFETCH(int, modo);
    QFETCH(QString, testo);
    QString difetti = QStringLiteral("non visto");
    int corsa = 0;
    QString nome;
    QTimer::singleShot(0, &Messaggio(), [&] {
        auto *lista = Parte<QListWidget>("lstTesto");
        QTRY_COMPARE(lista->visualItemRect(lista->item(lista->count() - 1)).isEmpty(), false); // laid out
        corsa = lista->verticalScrollBar()->maximum();
        nome = lista->accessibleName();
        difetti = Difetti();
        Messaggio().Scarica();
    });
    Mostra_Msg(static_cast<qint16>(modo), Modulo::Modale, Falso, COLORE_MESSAGGIO, 2000, testo);
    QCOMPARE(difetti, QString());
    QVERIFY(corsa > 0);
    QCOMPARE(nome, testo);
}

namespace {

/// Whether a key that is pressed on the control with the keyboard comes to the form, having been used by
/// nobody.
bool Arriva_AllaFinestra(Qt::Key tasto)
{
    class Spia : public QObject
    {
    public:
        bool arrivato = false;
        bool eventFilter(QObject *, QEvent *evento) override
        {
            arrivato = arrivato || evento->type() == QEvent::KeyPress;
            return false;
        }
    } spia;
    QWidget *finestra = Messaggio().Finestra();
    finestra->installEventFilter(&spia);
    QTest::keyClick(finestra->focusWidget(), tasto);
    return spia.arrivato;
}

} // namespace

void tst_frmMsg::rapportoConITasti()
{
    bool visto = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        const bool attivo = Attiva(Messaggio());
        QScrollBar *barra = Parte<QListWidget>("lstTesto")->verticalScrollBar();
        QTRY_VERIFY(barra->maximum() > 3 * barra->pageStep());
        const auto dopo = [barra](Qt::Key tasto) {
            QTest::keyClick(Messaggio().Finestra()->focusWidget(), tasto);
            return barra->value();
        };
        const int riga = dopo(Qt::Key_Down);
        const int pagina = dopo(Qt::Key_PageDown) - riga;
        visto = attivo && riga > 0 && pagina == barra->pageStep() && dopo(Qt::Key_End) == barra->maximum();
        visto = visto && dopo(Qt::Key_PageUp) == barra->maximum() - pagina;
        visto = visto && dopo(Qt::Key_Up) == barra->maximum() - pagina - riga && dopo(Qt::Key_Home) == 0;
        // What scrolls does nothing besides.
        for (const Qt::Key tasto :
             {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End})
            visto = visto && !Arriva_AllaFinestra(tasto);
        visto = visto && Arriva_AllaFinestra(Qt::Key_X);
        QTest::keyClick(Messaggio().Finestra()->focusWidget(), Qt::Key_Return); // the button still has it
    });
    Mostra_MsgConferma(Rapporto(100));
    QVERIFY(visto);
    QVERIFY(!Messaggio().Caricato());
}

void tst_frmMsg::rapportoConRotellaEDito()
{
    bool rotella = false;
    bool dito = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        QVERIFY(Attiva(Messaggio()));
        auto *lista = Parte<QListWidget>("lstTesto");
        QScrollBar *barra = lista->verticalScrollBar();
        QTRY_VERIFY(barra->maximum() > 3 * barra->pageStep());
        const QPoint centro = lista->viewport()->rect().center();
        QWheelEvent giro(centro, lista->viewport()->mapToGlobal(centro), QPoint(), QPoint(0, -120),
                         Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(lista->viewport(), &giro);
        rotella = barra->value() > 0;
        barra->setValue(0);
        QTest::mousePress(lista->viewport(), Qt::LeftButton, {}, centro);
        for (int i = 1; i <= 10; ++i)
            QTest::mouseMove(lista->viewport(), centro - QPoint(0, 8 * i), 20);
        QTest::mouseRelease(lista->viewport(), Qt::LeftButton, {}, centro - QPoint(0, 80));
        dito = QTest::qWaitFor([barra] { return barra->value() == 80; }); // as far as the finger went
        dito = dito && Messaggio().Caricato();                            // a drag presses nothing
        Messaggio().Scarica();
    });
    Mostra_MsgConferma(Rapporto(100));
    QVERIFY(rotella);
    QVERIFY(dito);
}

void tst_frmMsg::rapportoAllineatoASinistra()
{
    bool visto = false;
    Mostra_E_Guarda(1, Rapporto(3), [&] {
        auto *lista = Parte<QListWidget>("lstTesto");
        QImage vista = lista->viewport()->grab().toImage();
        int primo = vista.width(); // the leftmost dark point
        for (int y = 0; y < vista.height(); ++y) {
            for (int x = 0; x < primo; ++x) {
                if (qGray(vista.pixel(x, y)) < 100)
                    primo = x;
            }
        }
        visto = lista->isVisible() && lista->count() == 4 && primo < Spessore_Linea(12);
    });
    QVERIFY(visto);
}

// A report many screens long is laid out a part at a time: the form comes up as soon as with a short one.
void tst_frmMsg::testoLunghissimoSiMostraSubito()
{
    qint64 lungo = 0;
    bool visto = false;
    QElapsedTimer tempo;
    QTimer::singleShot(0, &Messaggio(), [&] {
        visto = QTest::qWaitForWindowExposed(Messaggio().Finestra());
        Messaggio().Finestra()->grab();
        lungo = tempo.elapsed();
        Messaggio().Scarica();
    });
    tempo.start();
    Mostra_MsgConferma(QStringLiteral("Entry: a - Entry Estranea\r\n").repeated(2285));
    QVERIFY(visto);
    QVERIFY2(lungo < 5000, qPrintable(QString::number(lungo)));
}

void tst_frmMsg::titoloDisegnato()
{
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        for (const int lunghezza : {1, 60, 85, 300}) {
            QString difetti = QStringLiteral("non visto");
            QString titolo;
            Mostra_E_Guarda(modo, Testo(lunghezza), [&] {
                titolo = Parte<QLabel>("lblTitolo")->text();
                difetti = Difetti_Di(Messaggio(), VOLUTI).join(u'\n');
            });
            QCOMPARE(titolo, QStringLiteral("Avviso"));
            QVERIFY2(difetti.isEmpty(), qPrintable(difetti));
        }
    }
}

void tst_frmMsg::inPrimoPiano()
{
    for (const qint16 primoPiano : {Vero, Falso}) {
        bool sopra = !primoPiano;
        QTimer::singleShot(0, &Messaggio(), [&] {
            Messaggio().Finestra()->grab();
            sopra = Messaggio().Finestra()->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
            Messaggio().Scarica();
        });
        Mostra_Msg(1, Modulo::Modale, primoPiano, COLORE_MESSAGGIO, 0, QStringLiteral("Avviso"));
        QCOMPARE(sopra, primoPiano != Falso);
    }
}

// --- one box for the whole program ------------------------------------------------------------------------

void tst_frmMsg::secondoMessaggioMentreUnoSiMostra()
{
    QString letto;
    bool aperto = false;
    Mostra_E_Guarda(1, QStringLiteral("primo"), [&] {
        Mostra_MsgTempo(QStringLiteral("secondo")); // cannot show, and stops nothing
        letto = Parte<QLabel>("lbl_0")->text();
        Orologio_Prova().Avanza(5000);
        aperto = Messaggio().Caricato();
    });
    QCOMPARE(letto, QStringLiteral("primo"));
    QVERIFY(aperto);
}

void tst_frmMsg::messaggioDopoMessaggio()
{
    Mostra_E_Guarda(1, Testo(300), [] {});
    QString letto;
    qint32 alto = 0;
    bool pulsante = true;
    Mostra_E_Guarda(0, QStringLiteral("breve"), [&] {
        letto = Parte<QLabel>("lbl_0")->text();
        alto = Messaggio().Height();
        pulsante = Parte("cmd_0")->isVisible();
    });
    QCOMPARE(letto, QStringLiteral("breve"));
    QCOMPARE(alto, 1500);
    QVERIFY(!pulsante);
}

void tst_frmMsg::nonModaleRitornaSubito()
{
    Mostra_Msg(0, Modulo::NonModale, Falso, COLORE_MESSAGGIO, 500, QStringLiteral("Avviso"));
    QVERIFY(Messaggio().Caricato());
    QVERIFY(!Messaggio().Finestra()->isModal());
    Orologio_Prova().Avanza(500);
    QVERIFY(!Messaggio().Caricato());
}

void tst_frmMsg::erroreDentroLasciatoCadere()
{
    gScreenW = 2000000000; // the width of the form overflows
    Mostra_MsgTempo(QStringLiteral("perduto"));
    QVERIFY(!Messaggio().Caricato());
    QVERIFY(Moduli_Caricati().empty());
    gScreenW = Schermo_Larghezza();
    QString letto;
    Mostra_E_Guarda(0, QStringLiteral("mostrato"), [&] { letto = Parte<QLabel>("lbl_0")->text(); });
    QCOMPARE(letto, QStringLiteral("mostrato"));
}

void tst_frmMsg::leDueFormeDelProgramma()
{
    const auto chiudi = [] { QTimer::singleShot(0, &Messaggio(), [] { Messaggio().Scarica(); }); };
    chiudi();
    Mostra_MsgTempo(QStringLiteral("a tempo"));
    const frmMsg &form = Messaggio();
    QCOMPARE(form.Mode, qint16{0});
    QCOMPARE(form.TopMost, qint16{0});
    QCOMPARE(form.Colour, quint32{0x80000000});
    QCOMPARE(form.Time, qint16{2000});
    QCOMPARE(form.Text, QStringLiteral("a tempo"));
    chiudi();
    Mostra_MsgConferma(QStringLiteral("da confermare"));
    QCOMPARE(form.Mode, qint16{1});
    QCOMPARE(form.TopMost, qint16{-1});
    QCOMPARE(form.Colour, quint32{0x80000000});
    QCOMPARE(form.Time, qint16{0});
    QCOMPARE(form.Text, QStringLiteral("da confermare"));
}

void tst_frmMsg::tornaAttivaLaFinestraDiPrima()
{
    const auto sotto = Nuovo<ModuloProva>();
    sotto->Mostra();
    QVERIFY(Attiva(*sotto));
    bool sopra = false;
    QTimer::singleShot(0, &Messaggio(), [&] {
        sopra = Attiva(Messaggio());
        Orologio_Prova().Avanza(2000);
    });
    Mostra_MsgTempo(QStringLiteral("Avviso"));
    QVERIFY(sopra);
    QTRY_COMPARE(QApplication::activeWindow(), sotto->Finestra());
}

// --- every screen -----------------------------------------------------------------------------------------

/// What goes wrong with messages of several lengths on the present screen; empty when nothing does.
static QString Schermo_Prova()
{
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    const QRect schermo = QGuiApplication::primaryScreen()->geometry();
    const ReteModale rete;
    QString difetti;
    for (const int lunghezza : {0, 1, 25, 26, 75, 300, 20000}) {
        for (const qint16 modo : {qint16{0}, qint16{1}}) {
            QString trovati = QStringLiteral("non visto");
            Mostra_E_Guarda(modo, Testo(lunghezza), [&] {
                trovati = lunghezza == 0 ? QString() : Difetti();
                const QRect posto(Messaggio().Finestra()->pos(), Messaggio().Finestra()->size());
                if (!schermo.contains(posto))
                    trovati += QStringLiteral("oltre lo schermo ");
                if (Messaggio().Height() > 32767 || Messaggio().Width() > 32767)
                    trovati += QStringLiteral("oltre i 16 bit ");
            });
            if (!trovati.isEmpty())
                difetti += QStringLiteral("%1/%2: %3; ").arg(lunghezza).arg(modo).arg(trovati);
        }
    }
    return difetti;
}

void tst_frmMsg::ogniSchermo_data()
{
    Righe_PerSchermo();
}

void tst_frmMsg::ogniSchermo()
{
    QFETCH(QSize, schermo);
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--schermo")}, schermo);
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    QCOMPARE(figlio.Uscita, QStringLiteral("difetti: \n"));
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--schermo") == 0) {
        const Applicazione applicazione(argc, argv);
        std::printf("difetti: %s\n", qPrintable(Schermo_Prova()));
        return 0;
    }
    return Principale_Prova<tst_frmMsg>(argc, argv);
}

#include "tst_frmMsg.moc"
