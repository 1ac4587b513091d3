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
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
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
    void chiusuraDellaFinestra();

    void pulsanteAlSuoPosto();
    void centratoSulloSchermo();
    void bordoEIcona();
    void testoCentrato();
    void testoTuttoInVista_data();
    void testoTuttoInVista();
    void testoTroppoLungoMostraIlPrincipio();
    void testoLunghissimoComeIntero_data();
    void testoLunghissimoComeIntero();
    void testoLunghissimoCostaQuantoSiVede();
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

void tst_frmMsg::pulsanteAlSuoPosto()
{
    for (const int lunghezza : {0, 75, 600}) {
        bool visto = false;
        Mostra_E_Guarda(1, Testo(lunghezza), [&] {
            const Pulsante &pulsante = Messaggio().cmd[0];
            QCOMPARE(pulsante.Top(), Messaggio().Height() - 2 * pulsante.Height() - 100);
            QCOMPARE(pulsante.Left(), (Messaggio().Width() - pulsante.Width()) / 2);
            visto = true;
        });
        QVERIFY(visto);
    }
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
            QCOMPARE(Parte("PicMex")->geometry(), QRect(13, 13, 46, 46));
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

/// What a reader of the box would miss: the whole text, in its form, beside the icon and above the button.
static QString Difetti()
{
    QString difetti;
    auto *lbl = Parte<QLabel>("lbl_0");
    if (Scritta_Tagliata(lbl))
        difetti += QStringLiteral("tagliato ");
    if (!Messaggio().Finestra()->rect().contains(lbl->geometry()) || lbl->height() <= 0)
        difetti += QStringLiteral("fuori ");
    if (lbl->geometry().intersects(Parte("PicMex")->geometry()))
        difetti += QStringLiteral("sull'icona ");
    if (Parte("cmd_0")->isVisible() && lbl->geometry().intersects(Parte("cmd_0")->geometry()))
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

void tst_frmMsg::testoTroppoLungoMostraIlPrincipio()
{
    for (const qint16 modo : {qint16{0}, qint16{1}}) {
        QString difetti = QStringLiteral("non visto");
        Qt::Alignment allineamento;
        Mostra_E_Guarda(modo, Testo(20000), [&] {
            difetti = Difetti();
            allineamento = Parte<QLabel>("lbl_0")->alignment();
        });
        QCOMPARE(difetti, QStringLiteral("tagliato "));
        QVERIFY(allineamento.testFlag(Qt::AlignTop)); // what is cut is the end
    }
}

void tst_frmMsg::testoLunghissimoComeIntero_data()
{
    QTest::addColumn<QString>("testo");
    QTest::newRow("parole") << Testo(64000);
    QTest::newRow("righe") << QStringLiteral("File: a - Estranea\r\n").repeated(3200);
    QTest::newRow("righe vuote") << QStringLiteral("\r\n").repeated(32000);
    QTest::newRow("una parola larga, poi altre righe")
        << QString(32000, u'=') + QStringLiteral(" - Estranea\r\n") + Testo(20000);
    QTest::newRow("bianchi, poi altre parole") << QString(20000, u' ') + Testo(20000);
    QTest::newRow("trattini invisibili, poi altre parole") << QString(20000, QChar(0xAD)) + Testo(20000);
}

/// What is seen is to the dot what a label shows that has been given the whole text.
void tst_frmMsg::testoLunghissimoComeIntero()
{
    QFETCH(QString, testo);
    QImage vista, intera;
    QString nome;
    Mostra_E_Guarda(1, testo, [&] {
        auto *lbl = Parte<QLabel>("lbl_0");
        nome = lbl->accessibleName();
        vista = lbl->grab().toImage();
        lbl->setText(testo);
        intera = lbl->grab().toImage();
    });
    QVERIFY(!vista.isNull());
    QCOMPARE(vista, intera);
    QCOMPARE(nome, testo);
}

namespace {

/// The look of before, and how many characters were painted by it.
class StileContatore : public QProxyStyle
{
public:
    StileContatore() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawItemText(QPainter *pennello, const QRect &posto, int modo, const QPalette &colori, bool acceso,
                      const QString &testo, QPalette::ColorRole ruolo) const override
    {
        caratteri += testo.size();
        QProxyStyle::drawItemText(pennello, posto, modo, colori, acceso, testo, ruolo);
    }

    mutable qsizetype caratteri = 0;
};

} // namespace

/// A report many screens long is not handed on whole: what is painted is a screen or two.
void tst_frmMsg::testoLunghissimoCostaQuantoSiVede()
{
    auto *stile = new StileContatore;
    QApplication::setStyle(stile);
    const auto caratteri_per = [stile](const QString &testo) {
        stile->caratteri = 0;
        Mostra_E_Guarda(1, testo, [] {});
        return stile->caratteri;
    };
    const qsizetype lungo = caratteri_per(QStringLiteral("Entry: a - Entry Estranea\r\n").repeated(2285));
    const qsizetype breve = caratteri_per(QStringLiteral("Entry: a - Entry Estranea\r\n"));
    Aspetto_Applica(*qApp);
    QVERIFY2(breve > 27, qPrintable(QString::number(breve))); // the label is painted by the style
    QVERIFY2(lungo < 64000 / 4, qPrintable(QString::number(lungo)));
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
                if (lunghezza == 20000)
                    trovati.remove(QStringLiteral("tagliato "));
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
