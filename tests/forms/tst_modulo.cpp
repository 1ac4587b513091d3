#include "toolkit/modulo.h"

#include "platform/errore_esecuzione.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/trascina_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/elenco_voci.h"
#include "toolkit/schermo.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>

#include <cstdio>

class tst_modulo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    // life
    void caricaDisegnaEPoiChiamaLoad();
    void ordineDegliEventi();
    void caricatoDueVolteCaricaUnaVoltaSola();
    void mostratoDueVolteCaricaUnaVoltaSola();
    void secondoScaricoInnocuo();
    void scaricoDentroUnGestore_data();
    void scaricoDentroUnGestore();
    void scaricatoDuranteLaMostra();
    void vivoFinoAlRitornoDelGestore();
    void scaricoDentroUnload();
    void erroreDentroUnload();
    void eseguitoDopo();
    void scaricatoDaUnoFuoriDagliArray();
    void caricamentoFallito_data();
    void caricamentoFallito();
    void vivoDopoLoScaricoFinoAllUltimoRiferimento();
    void ricaricatoRinasceDalDisegno();
    void ricaricatoDentroIlSuoClic();
    void raccoltaNellOrdineDiCaricamento();
    void ultimoScaricoFinisceIlProgramma();
    void scaricoDiUnoDeiDueNonFinisceIlProgramma();
    void chiusuraDellaFinestraScarica();
    void dopoLoScaricoTornaAttivoLUltimo();
    void istanzaPredefinitaUnaSola();

    // modal shows
    void modaleRitornaDopoLoScarico();
    void modaleScaricatoInLoadRitornaSubito();
    void modaliAnnidati();
    void modaleBloccaLeAltreFinestre();
    void modaleDueVolte400();
    void modaleGiaVisibile400();
    void modaleMostratoDiNuovoDalSuoGestore();
    void nonModaleRitornaSubito();

    // leaving a box
    void lasciareLaCasella_data();
    void lasciareLaCasella();
    void convalidaTrattenutaPoiLiberata();
    void doppioClicTrattenuto();
    void clicNellaStessaCasellaNonConvalida();
    void testoTrascinatoSuUnaCasella();
    void casellaBloccataNonConvalida_data();
    void casellaBloccataNonConvalida();
    void bloccataSaltataDaTab();
    void tabEsceDaUnaCasellaBloccata();
    void erroreDentroLaConvalida();
    void convalidaScaricaLaSuaCasella();
    void convalidaScaricaIlPulsante();
    void convalidaPremeUnPulsante();
    void scaricatoDentroLaConvalida_data();
    void scaricatoDentroLaConvalida();
    void nascostaOSpentaNonConvalida_data();
    void nascostaOSpentaNonConvalida();
    void convalidaCheMostraUnMessaggio();
    void rotellaNonPortaViaIlFuoco();
    void pulsanteFuoriDaCmd();

    // keys
    void tastoInghiottitoNellaCasella();
    void tastoInghiottitoNellaCombo();
    void tastoInghiottitoSulPulsante();
    void tastoInghiottitoAListaAperta();
    void tastiConLaListaAperta();
    void tabNonSiInghiotte();
    void tastiNonInghiottitiPassano();
    void tastiFunzioneDaOvunque();
    void casellaFuoriDaTxt();
    void rotellaSullaComboNonSceglie();
    void invioPremeIlPulsanteConIlFuoco();
    void invioPremeIlPredefinito_data();
    void invioPremeIlPredefinito();
    void escapePremeAnnulla();
    void ritardoDeiTasti_data();
    void ritardoDeiTasti();
    void ritardoSoloPerITasti();
    void ritardoDaOgniMostra();
    void ritardoConLOrologioRimesso();
    void pulsanteSpentoONascostoNonSiPreme_data();
    void pulsanteSpentoONascostoNonSiPreme();
    void senzaPulsantiInvioEdEscapeNonFannoNulla();
    void tabulazionePerRigaPoiPulsanti();
    void tabulazioneElencoDopoLeRighe();
    void tabulazioneElencoFattoInMezzo();

    // window
    void misureInTwip();
    void centrato();
    void massimizzatoCopreLoSchermo();
    void massimizzatoGiaInLoad();
    void piccoloSopraQuelloAttivo();
    void portatoAvanti();
    void senzaCorniceMisuraFissa();
    void titolo();
    void inPrimoPiano();
    void aggiornaRidipinge();
    void lineeSullaFinestra();
    void corniceSullOrlo();
    void attivatoAOgniRitorno();

private:
    /// A form with every kind of control: txt 0 to 2 (rows 0, 1, 4), cbo 0 (row 2), chk 0 (row 3), cmd 0 the
    /// default, 1 with the mnemonic S, 2 the one that Escape presses.
    static std::shared_ptr<ModuloProva> Completo();
    static void Disegna(ModuloProva &modulo);
};

void tst_modulo::init()
{
    QVERIFY(Moduli_Caricati().empty());
}

void tst_modulo::cleanup()
{
    Scarica_Tutti();
}

void tst_modulo::Disegna(ModuloProva &modulo)
{
    struct Riga
    {
        Controllo &controllo;
        const char16_t *tag;
    };
    for (qint16 i = 0; i <= 2; ++i)
        modulo.cmd.Carica(i);
    for (qint16 i = 0; i <= 2; ++i)
        modulo.txt.Carica(i);
    const Riga righe[] = {
        {modulo.txt[0],        u"0"},
        {modulo.txt[1],        u"1"},
        {modulo.cbo.Carica(0), u"2"},
        {modulo.chk.Carica(0), u"3"},
        {modulo.txt[2],        u"4"},
        {modulo.cmd[0],        u"" },
        {modulo.cmd[1],        u"" },
        {modulo.cmd[2],        u"" },
    };
    qint32 cima = 150;
    for (const Riga &riga : righe) {
        riga.controllo.Posto(150, cima, 3000, 450);
        riga.controllo.Tag(QString::fromUtf16(riga.tag));
        riga.controllo.Visible(true);
        cima += 600;
    }
    for (const char16_t *voce : {u"uno", u"due", u"tre"})
        modulo.cbo[0].AddItem(QString::fromUtf16(voce));
    modulo.cbo[0].ListIndex(1);
    modulo.cmd[0].Default(true);
    modulo.cmd[1].Caption(QStringLiteral("&Salva"));
    modulo.cmd[2].Cancel(true);
}

std::shared_ptr<ModuloProva> tst_modulo::Completo()
{
    auto modulo = Nuovo<ModuloProva>();
    ModuloProva *questo = modulo.get();
    modulo->AlDisegno = [questo] { Disegna(*questo); };
    modulo->Mostra();
    Attiva(*modulo);
    modulo->Registro.clear();
    return modulo;
}

// --- life -------------------------------------------------------------------------------------------------

void tst_modulo::caricaDisegnaEPoiChiamaLoad()
{
    const auto modulo = Nuovo<ModuloProva>();
    QVERIFY(!modulo->Caricato());
    modulo->Carica();
    QVERIFY(modulo->Caricato());
    QCOMPARE(modulo->Registro, QStringList({QStringLiteral("Disegno"), QStringLiteral("Load")}));
    QVERIFY(!modulo->Finestra()->isVisible());
    QCOMPARE(modulo->Finestra()->objectName(), QStringLiteral("frmProva"));
}

void tst_modulo::ordineDegliEventi()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QTRY_VERIFY(modulo->Dipinture > 0);
    modulo->Scarica();
    QCOMPARE(modulo->Registro, QStringList({QStringLiteral("Disegno"), QStringLiteral("Load"),
                                            QStringLiteral("Activate"), QStringLiteral("Unload")}));
}

void tst_modulo::caricatoDueVolteCaricaUnaVoltaSola()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Carica();
    modulo->Carica();
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 1);
    QCOMPARE(Moduli_Caricati().size(), size_t{1});
}

void tst_modulo::mostratoDueVolteCaricaUnaVoltaSola()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    modulo->Mostra();
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 1);
    QVERIFY(modulo->Finestra()->isVisible());
}

void tst_modulo::secondoScaricoInnocuo()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Scarica(); // never loaded
    QCOMPARE(modulo->Registro, QStringList());
    modulo->Mostra();
    modulo->Scarica();
    modulo->Scarica();
    QVERIFY(!modulo->Caricato());
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1);
    QVERIFY(Moduli_Caricati().empty());
}

void tst_modulo::scaricoDentroUnGestore_data()
{
    QTest::addColumn<QString>("gestore");
    for (const char *nome : {"Load", "Activate", "Paint", "txt_Change", "txt_KeyPress", "txt_Validate",
                             "cbo_Click", "cbo_KeyDown", "chk_Click", "cmd_Click", "FunctionKey"})
        QTest::newRow(nome) << QString::fromLatin1(nome);
}

void tst_modulo::scaricoDentroUnGestore()
{
    QFETCH(QString, gestore);
    auto modulo = Nuovo<ModuloProva>();
    ModuloProva &m = *modulo;
    int dopo = 0;
    const auto scarica = [&m, &dopo] {
        m.Scarica();
        dopo = m.Registro.isEmpty() ? 0 : 1; // the object is whole until its handler has returned
    };
    m.AlDisegno = [&m] { Disegna(m); };
    if (gestore == u"FunctionKey")
        m.AlFunzione = [scarica](qint16) { scarica(); };
    else if (gestore == u"Load")
        m.AlLoad = scarica;
    else if (gestore == u"Activate")
        m.AlActivate = scarica;
    else if (gestore == u"Paint")
        m.AlPaint = scarica;
    else if (gestore == u"txt_Change")
        m.AlChange = [scarica](qint16) { scarica(); };
    else if (gestore == u"txt_KeyPress")
        m.AlKeyPress = [scarica](qint16, qint16 &) { scarica(); };
    else if (gestore == u"txt_Validate")
        m.AlValidate = [scarica](qint16) { scarica(); };
    else if (gestore == u"cbo_Click")
        m.AlCombo = [scarica](qint16) { scarica(); };
    else if (gestore == u"cbo_KeyDown")
        m.AlKeyDown = [scarica](qint16, qint16 &) { scarica(); };
    else if (gestore == u"chk_Click")
        m.AlSpunta = [scarica](qint16) { scarica(); };
    else
        m.AlClick = [scarica](qint16) { scarica(); };

    const std::weak_ptr<ModuloProva> spia = modulo;
    m.Mostra();
    modulo.reset(); // from here on nobody but the collection of loaded forms holds it
    const bool daSola = gestore == u"Load" || gestore == u"Activate" || gestore == u"Paint";
    if (!daSola && Attiva(m)) {
        const auto preme = [](QWidget *widget, int tasto) {
            widget->setFocus();
            QTest::keyClick(widget, static_cast<Qt::Key>(tasto));
        };
        if (gestore == u"txt_Change" || gestore == u"txt_KeyPress")
            preme(m.txt[1].Widget(), Qt::Key_A);
        else if (gestore == u"txt_Validate")
            preme(m.txt[1].Widget(), Qt::Key_Tab);
        else if (gestore == u"cbo_Click" || gestore == u"cbo_KeyDown")
            preme(m.cbo[0].Widget(), Qt::Key_Down);
        else if (gestore == u"FunctionKey")
            preme(m.txt[1].Widget(), Qt::Key_F1);
        else if (gestore == u"chk_Click")
            QTest::keyClick(m.chk[0].Widget(), Qt::Key_Space);
        else if (gestore == u"cmd_Click")
            QTest::mouseClick(m.cmd[1].Widget(), Qt::LeftButton);
    }
    QTRY_COMPARE(dopo, 1);
    QVERIFY(Moduli_Caricati().empty());
    QVERIFY(spia.expired());
}

// A window system that activates a window before its show has returned.
void tst_modulo::scaricatoDuranteLaMostra()
{
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--attivato-subito")}, QSize(800, 600));
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
}

/// What the process of its own does. @return its status.
int Attivato_Subito(int argc, char **argv)
{
    Applicazione applicazione(argc, argv);
    for (const auto modo : {Modulo::NonModale, Modulo::Modale}) {
        const ReteModale rete;
        const auto modulo = Nuovo<ModuloProva>();
        bool ritornato = false;
        bool subito = false;
        modulo->AlActivate = [&] {
            subito = !ritornato;
            modulo->Scarica();
        };
        modulo->Mostra(modo);
        ritornato = true;
        if (rete.Scattata() || !subito || modulo->Caricato())
            return 2;
    }
    return 0;
}

void tst_modulo::vivoFinoAlRitornoDelGestore()
{
    auto modulo = Nuovo<ModuloProva>();
    const std::weak_ptr<ModuloProva> spia = modulo;
    ModuloProva *m = modulo.get();
    bool vivo = false;
    m->AlDisegno = [m] { Disegna(*m); };
    m->AlClick = [m, spia, &vivo](qint16) {
        m->Scarica();
        vivo = !spia.expired() && !m->Caricato() && !m->cmd[1].Caption().isEmpty();
    };
    m->Mostra();
    QVERIFY(Attiva(*m));
    modulo.reset();
    QTest::mouseClick(m->cmd[1].Widget(), Qt::LeftButton);
    QVERIFY(vivo);
    QVERIFY(spia.expired());
}

void tst_modulo::scaricoDentroUnload()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->AlUnload = [&] { modulo->Scarica(); };
    modulo->Mostra();
    modulo->Scarica();
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1);
    QVERIFY(!modulo->Caricato());
}

// A form that could not be unloaded stands, and its owner may try again.
void tst_modulo::erroreDentroUnload()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    modulo->AlUnload = [] { Solleva(NumeroErrore::FileNonTrovato); };
    QCOMPARE(Errore_Di([&] { modulo->Scarica(); }), 53);
    QVERIFY(modulo->Caricato());
    modulo->AlUnload = {};
    modulo->Scarica();
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 2);
    QVERIFY(!modulo->Caricato());
}

void tst_modulo::eseguitoDopo()
{
    auto modulo = Nuovo<ModuloProva>();
    const std::weak_ptr<ModuloProva> spia = modulo;
    ModuloProva *m = modulo.get();
    m->Mostra();
    bool vivo = false;
    m->Esegui_Dopo([m, &spia, &vivo] {
        m->Scarica();
        vivo = !spia.expired();
    });
    QVERIFY(m->Caricato());
    modulo.reset();
    QTRY_VERIFY(vivo);
    QVERIFY(spia.expired());
}

// As the buttons of a menu that go with their form.
void tst_modulo::scaricatoDaUnoFuoriDagliArray()
{
    const auto modulo = Nuovo<ModuloProva>();
    std::unique_ptr<Pulsante> pulsante;
    std::unique_ptr<CasellaTesto> casella;
    QStringList letti;
    const QString segno = QStringLiteral("captured by value, on the heap of the closure");
    modulo->AlDisegno = [&] {
        pulsante = std::make_unique<Pulsante>(modulo->Finestra(), QStringLiteral("cmdSolo"));
        casella = std::make_unique<CasellaTesto>(modulo->Finestra(), QStringLiteral("txtSola"));
        modulo->Collega(*pulsante, [&modulo, &pulsante, &letti, segno] {
            modulo->Scarica();
            pulsante.reset();
            letti.append(segno);
        });
        const auto cambio = [&casella, &letti, segno] {
            casella.reset();
            letti.append(segno);
        };
        modulo->Collega(*casella, cambio, [](qint16 &) {});
    };
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QTest::keyClick(casella->Widget(), Qt::Key_A);
    QCOMPARE(letti, QStringList{segno});
    QTest::mouseClick(pulsante->Widget(), Qt::LeftButton);
    QCOMPARE(letti, (QStringList{segno, segno}));
    QVERIFY(!modulo->Caricato());
}

void tst_modulo::caricamentoFallito_data()
{
    QTest::addColumn<bool>("disegno");
    QTest::newRow("Disegno") << true;
    QTest::newRow("Load") << false;
}

void tst_modulo::caricamentoFallito()
{
    QFETCH(bool, disegno);
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    const auto fallisci = [] { Solleva(NumeroErrore::FileNonTrovato); };
    (disegno ? modulo->AlDisegno : modulo->AlLoad) = fallisci;
    QCOMPARE(Errore_Di([&] { modulo->Mostra(Modulo::Modale); }), 53);
    QVERIFY(!modulo->Caricato());
    QVERIFY(Moduli_Caricati().empty());
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 0);
    modulo->AlDisegno = modulo->AlLoad = {};
    QTimer::singleShot(0, modulo.get(), [&] { modulo->Scarica(); });
    modulo->Mostra(Modulo::Modale); // the next show begins afresh
    QVERIFY(!rete.Scattata());
    QCOMPARE(modulo->Volte(QStringLiteral("Disegno")), 2);
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1);
}

void tst_modulo::vivoDopoLoScaricoFinoAllUltimoRiferimento()
{
    auto modulo = Completo();
    const std::weak_ptr<ModuloProva> spia = modulo;
    modulo->txt[0].Text(QStringLiteral("AB123CD"));
    modulo->Scarica();
    QVERIFY(!spia.expired());
    QVERIFY(!modulo->Caricato());
    QCOMPARE(modulo->Finestra(), nullptr);
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1); // its fields still stand
    Scarica_Tutti();
    // A control whose window has gone takes every call and does nothing.
    QCOMPARE(modulo->txt[0].Text(), QString());
    modulo->txt[0].Text(QStringLiteral("XX"));
    modulo->cmd[0].Caption(QStringLiteral("XX"));
    modulo->cbo[0].ListIndex(7);
    modulo->chk[0].Value(1);
    modulo->Caption(QStringLiteral("XX"));
    modulo->Aggiorna();
    modulo->InPrimoPiano();
    QCOMPARE(modulo->chk[0].Value(), qint16{0});
    modulo.reset();
    QVERIFY(spia.expired());
}

void tst_modulo::ricaricatoRinasceDalDisegno()
{
    const auto modulo = Completo();
    modulo->txt[0].Text(QStringLiteral("AB123CD"));
    modulo->txt.Carica(3);
    modulo->Scarica();
    modulo->Mostra();
    QCOMPARE(modulo->txt[0].Text(), QString());
    QCOMPARE(modulo->txt.UBound(), qint16{2});
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 1);
    QVERIFY(modulo->Finestra()->isVisible());
}

void tst_modulo::ricaricatoDentroIlSuoClic()
{
    const auto modulo = Completo();
    modulo->AlClick = [&](qint16) {
        modulo->Scarica();
        modulo->Mostra();
    };
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QVERIFY(modulo->Caricato());
    QVERIFY(modulo->Finestra()->isVisible());
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 1);
    Scarica_Tutti();
}

void tst_modulo::raccoltaNellOrdineDiCaricamento()
{
    const auto primo = std::make_shared<ModuloProva>(QStringLiteral("frmPrimo"));
    const auto secondo = std::make_shared<ModuloProva>(QStringLiteral("frmSecondo"));
    const auto terzo = std::make_shared<ModuloProva>(QStringLiteral("frmTerzo"));
    const auto nomi = [] {
        QStringList elenco;
        for (const auto &modulo : Moduli_Caricati())
            elenco.append(modulo->objectName());
        return elenco;
    };
    secondo->Carica();
    primo->Mostra();
    terzo->Carica();
    QCOMPARE(nomi(), QStringList({QStringLiteral("frmSecondo"), QStringLiteral("frmPrimo"),
                                  QStringLiteral("frmTerzo")}));
    secondo->Scarica();
    secondo->Carica();
    QCOMPARE(nomi(), QStringList({QStringLiteral("frmPrimo"), QStringLiteral("frmTerzo"),
                                  QStringLiteral("frmSecondo")}));
}

void tst_modulo::ultimoScaricoFinisceIlProgramma()
{
    const auto primo = Nuovo<ModuloProva>();
    const auto secondo = Nuovo<ModuloProva>();
    primo->Mostra();
    secondo->Mostra();
    QTimer::singleShot(0, primo.get(), [&] { primo->Scarica(); });
    QTimer::singleShot(0, secondo.get(),
                       [&] { QTimer::singleShot(0, secondo.get(), [&] { secondo->Scarica(); }); });
    const ReteModale rete;
    QCOMPARE(QCoreApplication::exec(), 0);
    QVERIFY(!rete.Scattata());
    QVERIFY(!secondo->Caricato());
}

void tst_modulo::scaricoDiUnoDeiDueNonFinisceIlProgramma()
{
    const auto primo = Nuovo<ModuloProva>();
    const auto secondo = Nuovo<ModuloProva>();
    primo->Mostra();
    secondo->Mostra();
    QTimer::singleShot(0, this, [&] {
        primo->Scarica();
        QTimer::singleShot(0, this, [] { QCoreApplication::exit(7); });
    });
    QCOMPARE(QCoreApplication::exec(), 7);
    QVERIFY(secondo->Caricato());
}

void tst_modulo::chiusuraDellaFinestraScarica()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QVERIFY(modulo->Finestra()->close());
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1);
    QVERIFY(!modulo->Caricato());
    QVERIFY(Moduli_Caricati().empty());
}

void tst_modulo::dopoLoScaricoTornaAttivoLUltimo()
{
    const auto primo = Nuovo<ModuloProva>();
    const auto secondo = Nuovo<ModuloProva>();
    const auto terzo = Nuovo<ModuloProva>();
    const auto quarto = Nuovo<ModuloProva>();
    primo->Mostra();
    secondo->Mostra();
    terzo->Carica(); // loaded and not shown: it cannot take the keyboard
    quarto->Mostra();
    QVERIFY(Attiva(*quarto));
    quarto->Scarica();
    QTRY_COMPARE(QApplication::activeWindow(), secondo->Finestra());
}

void tst_modulo::istanzaPredefinitaUnaSola()
{
    QCOMPARE(&Predefinito<ModuloProva>(), &Predefinito<ModuloProva>());
    QVERIFY(Nuovo<ModuloProva>().get() != &Predefinito<ModuloProva>());
}

// --- modal shows ------------------------------------------------------------------------------------------

void tst_modulo::modaleRitornaDopoLoScarico()
{
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    bool visibile = false;
    QTimer::singleShot(0, modulo.get(), [&] {
        visibile = modulo->Finestra()->isVisible() && modulo->Finestra()->isModal();
        modulo->Scarica();
    });
    modulo->Mostra(Modulo::Modale);
    QVERIFY(!rete.Scattata());
    QVERIFY(visibile);
    QVERIFY(!modulo->Caricato());
    QCOMPARE(modulo->Registro.last(), QStringLiteral("Unload"));
}

void tst_modulo::modaleScaricatoInLoadRitornaSubito()
{
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    modulo->AlLoad = [&] { modulo->Scarica(); };
    modulo->Mostra(Modulo::Modale);
    QVERIFY(!rete.Scattata());
    QCOMPARE(modulo->Volte(QStringLiteral("Unload")), 1);
}

void tst_modulo::modaliAnnidati()
{
    const ReteModale rete;
    const auto esterno = Nuovo<ModuloProva>();
    const auto interno = Nuovo<ModuloProva>();
    QStringList ordine;
    QTimer::singleShot(0, esterno.get(), [&] {
        QTimer::singleShot(0, interno.get(), [&] {
            ordine.append(QStringLiteral("esterno giu"));
            esterno->Scarica(); // the outer one goes first: its show still waits for the inner one
            QTimer::singleShot(0, interno.get(), [&] {
                ordine.append(QStringLiteral("interno giu"));
                interno->Scarica();
            });
        });
        interno->Mostra(Modulo::Modale);
        ordine.append(QStringLiteral("interno ritorna"));
    });
    esterno->Mostra(Modulo::Modale);
    ordine.append(QStringLiteral("esterno ritorna"));
    QVERIFY(!rete.Scattata());
    QCOMPARE(ordine, QStringList({QStringLiteral("esterno giu"), QStringLiteral("interno giu"),
                                  QStringLiteral("interno ritorna"), QStringLiteral("esterno ritorna")}));
}

void tst_modulo::modaleBloccaLeAltreFinestre()
{
    const ReteModale rete;
    const auto sotto = Completo();
    const auto sopra = Nuovo<ModuloProva>();
    const auto clic = [&] {
        QTest::mouseClick(sotto->Finestra()->windowHandle(), Qt::LeftButton, {},
                          sotto->cmd[1].Widget()->geometry().center());
    };
    QVERIFY(Attiva(*sotto));
    QTimer::singleShot(0, sopra.get(), [&] {
        clic();
        sopra->Scarica();
    });
    sopra->Mostra(Modulo::Modale);
    QVERIFY(!rete.Scattata());
    QCOMPARE(sotto->Volte(QStringLiteral("cmd_Click 1")), 0);
    clic(); // the same click, once the modal form has gone
    QCOMPARE(sotto->Volte(QStringLiteral("cmd_Click 1")), 1);
}

void tst_modulo::modaleDueVolte400()
{
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    int errore = 0;
    QTimer::singleShot(0, modulo.get(), [&] {
        errore = Errore_Di([&] { modulo->Mostra(Modulo::Modale); });
        modulo->Scarica();
    });
    modulo->Mostra(Modulo::Modale);
    QVERIFY(!rete.Scattata());
    QCOMPARE(errore, 400);
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 1);
}

void tst_modulo::modaleGiaVisibile400()
{
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QCOMPARE(Errore_Di([&] { modulo->Mostra(Modulo::Modale); }), 400);
    QVERIFY(!rete.Scattata());
    QVERIFY(modulo->Caricato());
}

void tst_modulo::modaleMostratoDiNuovoDalSuoGestore()
{
    const ReteModale rete;
    const auto modulo = Nuovo<ModuloProva>();
    int errore = 0;
    QTimer::singleShot(0, modulo.get(), [&] {
        modulo->Scarica();
        QTimer::singleShot(0, modulo.get(), [&] { modulo->Scarica(); });
        errore = Errore_Di([&] { modulo->Mostra(Modulo::Modale); });
    });
    modulo->Mostra(Modulo::Modale);
    QVERIFY(!rete.Scattata());
    QCOMPARE(errore, 0);
    QCOMPARE(modulo->Volte(QStringLiteral("Load")), 2);
    QVERIFY(!modulo->Caricato());
}

void tst_modulo::nonModaleRitornaSubito()
{
    const auto primo = Completo();
    const auto secondo = Completo();
    QVERIFY(primo->Finestra()->isVisible() && secondo->Finestra()->isVisible());
    QVERIFY(!secondo->Finestra()->isModal());
    QTest::mouseClick(primo->Finestra()->windowHandle(), Qt::LeftButton, {},
                      primo->cmd[1].Widget()->geometry().center());
    QCOMPARE(primo->Volte(QStringLiteral("cmd_Click 1")), 1);
}

// --- leaving a box ----------------------------------------------------------------------------------------

namespace {

/// A way to leave the box txt_1, and what it brings about when the box lets go.
struct Gesto
{
    const char *nome;
    std::function<void(ModuloProva &)> compi;
    const char *effetto; ///< the handler that runs; empty: none
    const char *fuoco;   ///< where the focus ends
};

QAccessibleActionInterface *Azioni(const Controllo &controllo)
{
    return QAccessible::queryAccessibleInterface(controllo.Widget())->actionInterface();
}

void Clic_Finestra(const ModuloProva &m, const Controllo &controllo)
{
    QTest::mouseClick(m.Finestra()->windowHandle(), Qt::LeftButton, {},
                      controllo.Widget()->geometry().center());
}

void Premi(const ModuloProva &m, Qt::Key tasto, Qt::KeyboardModifiers modificatori = {})
{
    QTest::keyClick(m.Finestra()->focusWidget(), tasto, modificatori);
}

void Gira_Rotella(QWidget *widget, int giro)
{
    const QPointF posto = QRectF(widget->rect()).center();
    QWheelEvent evento(posto, widget->mapToGlobal(posto), {}, {0, giro}, Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&evento);
    qApp->notify(widget, &evento);
}

const Gesto GESTI[] = {
    {"Tab",                                   [](ModuloProva &m) { Premi(m, Qt::Key_Tab); },                                   "",            "cbo_0"},
    {"Maiusc Tab",                            [](ModuloProva &m) { Premi(m, Qt::Key_Backtab, Qt::ShiftModifier); },            "",            "txt_0"},
    {"clic",                                  [](ModuloProva &m) { QTest::mouseClick(m.cmd[1].Widget(), Qt::LeftButton); },    "cmd_Click 1",
     "cmd_1"                                                                                                                                         },
    {"clic nella finestra",                   [](ModuloProva &m) { Clic_Finestra(m, m.cmd[1]); },                              "cmd_Click 1", "cmd_1"},
    {"mnemonico",                             [](ModuloProva &m) { Premi(m, Qt::Key_S, Qt::AltModifier); },                    "cmd_Click 1", "cmd_1"},
    {"Invio",                                 [](ModuloProva &m) { Premi(m, Qt::Key_Return); },                                "cmd_Click 0", "cmd_0"},
    {"Invio del tastierino",                  [](ModuloProva &m) { Premi(m, Qt::Key_Enter); },                                 "cmd_Click 0", "cmd_0"},
    {"Escape",                                [](ModuloProva &m) { Premi(m, Qt::Key_Escape); },                                "cmd_Click 2", "cmd_2"},
    {"pressione di una tecnologia assistiva",
     [](ModuloProva &m) { Azioni(m.cmd[1])->doAction(QAccessibleActionInterface::pressAction()); },
     "cmd_Click 1",                                                                                                                           "cmd_1"},
    {"click()",                               [](ModuloProva &m) { qobject_cast<QPushButton *>(m.cmd[1].Widget())->click(); },
     "cmd_Click 1",                                                                                                                           "cmd_1"},
    {"clic su una casella",                   [](ModuloProva &m) { Clic_Finestra(m, m.txt[2]); },                              "",            "txt_2"},
    {"clic su una spunta",                    [](ModuloProva &m) { Clic_Finestra(m, m.chk[0]); },                              "chk_Click 0", "chk_0"},
    {"clic su una casella bloccata",
     [](ModuloProva &m) {
         m.txt[2].Locked(true);
         Clic_Finestra(m, m.txt[2]);
     },                                                                                                                        "",            "txt_2"},
};

} // namespace

void tst_modulo::lasciareLaCasella_data()
{
    QTest::addColumn<int>("gesto");
    QTest::addColumn<bool>("trattieni");
    for (int i = 0; i < static_cast<int>(std::size(GESTI)); ++i) {
        for (const bool trattieni : {false, true})
            QTest::addRow("%s, %s", GESTI[i].nome, trattieni ? "trattenuto" : "lasciato") << i << trattieni;
    }
}

void tst_modulo::lasciareLaCasella()
{
    QFETCH(int, gesto);
    QFETCH(bool, trattieni);
    const Gesto &g = GESTI[gesto];
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = trattieni;
    modulo->Registro.clear();
    g.compi(*modulo);
    // A mnemonic, or an assistive technology, shows the button pressed for a moment before it clicks.
    const QString effetto = QString::fromLatin1(g.effetto);
    QTRY_VERIFY(modulo->Registro.contains(trattieni || effetto.isEmpty() ? QStringLiteral("txt_Validate 1")
                                                                         : effetto));
    QApplication::processEvents();
    modulo->Registro.removeAll(QStringLiteral("txt_KeyPress 1"));
    QStringList atteso(QStringLiteral("txt_Validate 1"));
    if (!trattieni && !effetto.isEmpty())
        atteso.append(effetto);
    QCOMPARE(modulo->Registro, atteso);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(),
             trattieni ? QStringLiteral("txt_1") : QString::fromLatin1(g.fuoco));
    QCOMPARE(modulo->chk[0].Value(), qint16{effetto.startsWith(u"chk") && !trattieni});
}

void tst_modulo::convalidaTrattenutaPoiLiberata()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = true;
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 2);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
    QVERIFY(modulo->txt[1].Widget()->hasFocus());
    modulo->Trattieni = false;
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 3); // the last click leaves no box
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 2);
}

// The second press of a double click comes as an event of its own kind.
void tst_modulo::doppioClicTrattenuto()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = true;
    QTest::mouseDClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
    QVERIFY(modulo->txt[1].Widget()->hasFocus());
}

void tst_modulo::clicNellaStessaCasellaNonConvalida()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    QTest::mouseClick(modulo->txt[1].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 0);
}

// A text let go over a box is written in it as a typed one is: the box is left later, and the one before now.
void tst_modulo::testoTrascinatoSuUnaCasella()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[0].SetFocus();
    Rilascia(modulo->txt[1], QStringLiteral("70"));
    QCOMPARE(modulo->txt[1].Text(), QStringLiteral("70"));
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 0);
    modulo->Trattieni = true;
    Rilascia(modulo->txt[0], QStringLiteral("altrove"));
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 1);
    QVERIFY(!modulo->txt[0].Text().contains(QStringLiteral("altrove")));
    modulo->Trattieni = false;
    QTest::mouseClick(modulo->cmd[0].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 2);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 0")), 1);
}

void tst_modulo::casellaBloccataNonConvalida_data()
{
    QTest::addColumn<int>("gesto");
    for (int i = 0; i < static_cast<int>(std::size(GESTI)); ++i)
        QTest::newRow(GESTI[i].nome) << i;
}

void tst_modulo::casellaBloccataNonConvalida()
{
    QFETCH(int, gesto);
    const Gesto &g = GESTI[gesto];
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].Locked(true);
    QTest::mouseClick(modulo->txt[1].Widget(), Qt::LeftButton); // its text may be selected and copied
    QVERIFY(modulo->txt[1].Widget()->hasFocus());
    modulo->Trattieni = true;
    modulo->Registro.clear();
    g.compi(*modulo);
    const QString effetto = QString::fromLatin1(g.effetto);
    if (!effetto.isEmpty())
        QTRY_COMPARE(modulo->Volte(effetto), 1);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 0);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QString::fromLatin1(g.fuoco));
}

void tst_modulo::bloccataSaltataDaTab()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].Locked(true);
    modulo->txt[0].SetFocus();
    Premi(*modulo, Qt::Key_Tab);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("cbo_0"));
    Premi(*modulo, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("txt_0"));
    modulo->txt[1].Locked(false);
    Premi(*modulo, Qt::Key_Tab);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("txt_1"));
}

void tst_modulo::tabEsceDaUnaCasellaBloccata()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->AlKeyPress = [](qint16, qint16 &KeyAscii) { KeyAscii = 0; }; // as forms do in a locked row
    modulo->txt[1].Locked(true);
    QTest::mouseClick(modulo->txt[1].Widget(), Qt::LeftButton);
    Premi(*modulo, Qt::Key_Tab);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("cbo_0"));
}

// The box is asked again at the next leaving.
void tst_modulo::erroreDentroLaConvalida()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->AlValidate = [](qint16) { Solleva(NumeroErrore::FileNonTrovato); };
    QCOMPARE(Errore_Di([&] { modulo->cmd[1].Click(); }), 53);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
    modulo->AlValidate = {};
    modulo->Trattieni = true;
    modulo->cmd[1].Click();
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 2);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
}

void tst_modulo::convalidaScaricaLaSuaCasella()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[2].SetFocus();
    modulo->Trattieni = true;
    modulo->AlValidate = [&](qint16 Index) { modulo->txt.Scarica(Index); };
    modulo->cmd[1].Click();
    QVERIFY(!modulo->txt.Esiste(2));
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1); // what has gone holds nobody
}

// While a box is being asked it is not asked again: what its handler presses is pressed.
void tst_modulo::convalidaPremeUnPulsante()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->AlValidate = [&](qint16) { modulo->cmd[2].Click(); };
    modulo->cmd[1].Click();
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 1);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 2")), 1);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1);
}

void tst_modulo::convalidaScaricaIlPulsante()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->AlValidate = [&](qint16) { modulo->cmd.Scarica(2); };
    const Evento click = modulo->cmd[2].Click;
    click();
    QVERIFY(!modulo->cmd.Esiste(2));
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 1);
    QVERIFY(modulo->Caricato());
}

void tst_modulo::scaricatoDentroLaConvalida_data()
{
    lasciareLaCasella_data();
}

void tst_modulo::scaricatoDentroLaConvalida()
{
    QFETCH(int, gesto);
    QFETCH(bool, trattieni);
    auto modulo = Completo();
    const std::weak_ptr<ModuloProva> spia = modulo;
    ModuloProva *m = modulo.get();
    int clic = 0;
    m->AlUnload = [m] { m->txt.Scarica(1); };
    m->AlValidate = [m](qint16) { m->Scarica(); };
    m->AlClick = [&clic](qint16) { ++clic; };
    QVERIFY(Attiva(*m));
    m->txt[1].SetFocus();
    m->Trattieni = trattieni;
    modulo.reset();
    GESTI[gesto].compi(*m);
    QTRY_VERIFY(spia.expired());
    QCOMPARE(clic, 0); // the form has gone: nothing of it is pressed any more
}

void tst_modulo::nascostaOSpentaNonConvalida_data()
{
    QTest::addColumn<bool>("nascosta");
    QTest::newRow("nascosta") << true;
    QTest::newRow("spenta") << false;
}

void tst_modulo::nascostaOSpentaNonConvalida()
{
    QFETCH(bool, nascosta);
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = true;
    if (nascosta)
        modulo->txt[1].Visible(false);
    else
        modulo->txt[1].Enabled(false);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 0);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("cbo_0"));
}

// The message that tells what is wrong with a value is a modal form inside the question.
void tst_modulo::convalidaCheMostraUnMessaggio()
{
    const ReteModale rete;
    const auto modulo = Completo();
    const auto messaggio = Nuovo<ModuloProva>();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = true;
    modulo->AlValidate = [&](qint16) {
        QTimer::singleShot(0, messaggio.get(), [&] { messaggio->Scarica(); });
        messaggio->Mostra(Modulo::Modale);
    };
    for (const Gesto &gesto : GESTI) {
        modulo->Registro.clear();
        gesto.compi(*modulo);
        QTRY_COMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 1);
        QTRY_COMPARE(QApplication::activeWindow(), modulo->Finestra());
        QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("txt_1"));
        QCOMPARE(modulo->Volte(QString::fromLatin1(gesto.effetto)), 0);
    }
    QVERIFY(!rete.Scattata());
}

void tst_modulo::rotellaNonPortaViaIlFuoco()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    Gira_Rotella(modulo->cbo[0].Widget(), -120);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("txt_1"));
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{1});
}

void tst_modulo::pulsanteFuoriDaCmd()
{
    const auto modulo = Nuovo<ModuloProva>();
    std::unique_ptr<Pulsante> solo;
    int clic = 0;
    modulo->AlDisegno = [&] {
        Disegna(*modulo);
        solo = std::make_unique<Pulsante>(modulo->Finestra(), QStringLiteral("cmdSolo"));
        solo->Posto(4500, 150, 3000, 450);
        solo->Visible(true);
        modulo->Collega(*solo, [&] { ++clic; });
    };
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    modulo->Trattieni = true;
    QTest::mouseClick(solo->Widget(), Qt::LeftButton);
    QCOMPARE(clic, 0);
    modulo->Trattieni = false;
    QTest::mouseClick(solo->Widget(), Qt::LeftButton);
    QCOMPARE(clic, 1);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Validate 1")), 2);
    QTest::keyClick(solo->Widget(), Qt::Key_Return);
    QCOMPARE(clic, 2); // the button with the focus, not the default one
    modulo->Scarica();
}

// --- keys -------------------------------------------------------------------------------------------------

void tst_modulo::tastoInghiottitoNellaCasella()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->txt[1].SetFocus();
    QList<qint16> codici;
    modulo->AlKeyPress = [&](qint16, qint16 &KeyAscii) {
        codici.append(KeyAscii);
        if (KeyAscii == 'b')
            KeyAscii = 0;
    };
    QTest::keyClicks(modulo->txt[1].Widget(), QStringLiteral("abc"));
    QCOMPARE(modulo->txt[1].Text(), QStringLiteral("ac"));
    QTest::keyClick(modulo->txt[1].Widget(), Qt::Key_Backspace);
    QCOMPARE(modulo->txt[1].Text(), QStringLiteral("a"));
    QCOMPARE(codici, QList<qint16>({'a', 'b', 'c', 8}));
    QCOMPARE(modulo->Volte(QStringLiteral("txt_KeyPress 1")), 4);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_KeyPress 0")), 0);
    QCOMPARE(modulo->Volte(QStringLiteral("txt_Change 1")), 3);
}

void tst_modulo::tastoInghiottitoNellaCombo()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cbo[0].SetFocus();
    modulo->AlKeyDown = [](qint16, qint16 &KeyCode) { KeyCode = 0; };
    const Qt::Key tasti[] = {Qt::Key_Down,     Qt::Key_Up, Qt::Key_End,   Qt::Key_Home,
                             Qt::Key_PageDown, Qt::Key_T,  Qt::Key_Space, Qt::Key_Return};
    for (const Qt::Key tasto : tasti)
        QTest::keyClick(modulo->cbo[0].Widget(), tasto);
    QTest::keyClick(modulo->cbo[0].Widget(), Qt::Key_F4); // would open the list; it is the form's FunctionKey
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{1});
    QVERIFY(!qobject_cast<QComboBox *>(modulo->cbo[0].Widget())->view()->isVisible());
    QCOMPARE(modulo->Volte(QStringLiteral("cbo_KeyDown 0")), 8);
    QCOMPARE(modulo->Volte(QStringLiteral("FunctionKey 4")), 1);
    QCOMPARE(modulo->Registro.size(), 9); // and no click came of any of them
}

void tst_modulo::tastoInghiottitoSulPulsante()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[1].SetFocus();
    QList<qint16> codici;
    modulo->AlTasto = [&](qint16, qint16 &KeyAscii) {
        codici.append(KeyAscii);
        KeyAscii = 0;
    };
    for (const Qt::Key tasto : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Space})
        Premi(*modulo, tasto);
    QCOMPARE(codici, QList<qint16>({27, 13, 32}));
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 2")), 0);
    modulo->AlTasto = {};
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1);
}

void tst_modulo::tastoInghiottitoAListaAperta()
{
    const auto modulo = Completo();
    auto *combo = qobject_cast<QComboBox *>(modulo->cbo[0].Widget());
    modulo->AlKeyDown = [](qint16, qint16 &KeyCode) { KeyCode = 0; };
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_T, Qt::Key_Return})
        QTest::keyClick(combo->view(), tasto);
    QVERIFY(combo->view()->isVisible());
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{1});
    QCOMPARE(modulo->Volte(QStringLiteral("cbo_KeyDown 0")), 3);
    QCOMPARE(modulo->Volte(QStringLiteral("cbo_Click 0")), 0);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 0")), 0);
    combo->hidePopup();
}

// They are the list's own: Enter chooses and Escape closes it, and neither presses a button of the form.
void tst_modulo::tastiConLaListaAperta()
{
    const auto modulo = Completo();
    auto *combo = qobject_cast<QComboBox *>(modulo->cbo[0].Widget());
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QTRY_VERIFY(!combo->view()->isVisible());
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{2});
    combo->showPopup();
    QTRY_VERIFY(combo->view()->isVisible());
    QTest::keyClick(combo->view(), Qt::Key_Up);
    QTest::keyClick(combo->view(), Qt::Key_Escape);
    QTRY_VERIFY(!combo->view()->isVisible());
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{2});
    QCOMPARE(modulo->Volte(QStringLiteral("cbo_Click 0")), 1);
    QCOMPARE(modulo->Registro.filter(QStringLiteral("cmd_Click")), QStringList());
    QVERIFY(modulo->Caricato());
}

void tst_modulo::tabNonSiInghiotte()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    QList<qint16> codici;
    modulo->AlKeyPress = [&](qint16, qint16 &codice) { codici.append(std::exchange(codice, qint16{0})); };
    modulo->AlKeyDown = modulo->AlKeyPress;
    modulo->txt[1].SetFocus();
    Premi(*modulo, Qt::Key_Tab);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("cbo_0"));
    Premi(*modulo, Qt::Key_Tab);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("chk_0"));
    Premi(*modulo, Qt::Key_Backtab, Qt::ShiftModifier);
    Premi(*modulo, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(modulo->Finestra()->focusWidget()->objectName(), QStringLiteral("txt_1"));
    QVERIFY(!codici.contains('\t'));
}

void tst_modulo::tastiNonInghiottitiPassano()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cbo[0].SetFocus();
    Premi(*modulo, Qt::Key_Down);
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{2});
    QCOMPARE(modulo->Registro, QStringList({QStringLiteral("cbo_KeyDown 0"), QStringLiteral("cbo_Click 0")}));
}

void tst_modulo::tastiFunzioneDaOvunque()
{
    const auto modulo = Completo();
    QStringList atteso;
    for (int i = 0; i < 12; ++i) {
        Premi(*modulo, static_cast<Qt::Key>(Qt::Key_F1 + i));
        atteso.append(QStringLiteral("FunctionKey %1").arg(i + 1));
    }
    for (const char *nome : {"cbo_0", "chk_0", "cmd_1"}) {
        modulo->Finestra()->findChild<QWidget *>(QString::fromLatin1(nome))->setFocus();
        Premi(*modulo, Qt::Key_F2);
        atteso.append(QStringLiteral("FunctionKey 2"));
    }
    QTest::keyClick(modulo->Finestra(), Qt::Key_F9);
    atteso.append(QStringLiteral("FunctionKey 9"));
    QCOMPARE(modulo->Registro, atteso);
}

void tst_modulo::casellaFuoriDaTxt()
{
    const auto modulo = Nuovo<ModuloProva>();
    std::unique_ptr<CasellaTesto> sola;
    int cambi = 0;
    QList<qint16> codici;
    modulo->AlDisegno = [&] {
        sola = std::make_unique<CasellaTesto>(modulo->Finestra(), QStringLiteral("txtSola"));
        sola->Posto(150, 150, 3000, 450);
        sola->Visible(true);
        modulo->Collega(
            *sola, [&] { ++cambi; },
            [&](qint16 &KeyAscii) {
                codici.append(KeyAscii);
                if (KeyAscii == 'x')
                    KeyAscii = 0;
                else if (KeyAscii == 27)
                    modulo->Scarica();
            });
    };
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QTest::keyClicks(sola->Widget(), QStringLiteral("axb"));
    QCOMPARE(sola->Text(), QStringLiteral("ab"));
    QCOMPARE(cambi, 2);
    QTest::keyClick(sola->Widget(), Qt::Key_Tab);
    QTest::keyClick(sola->Widget(), Qt::Key_Escape);
    QCOMPARE(codici, QList<qint16>({'a', 'x', 'b', 27}));
    QVERIFY(!modulo->Caricato());
}

void tst_modulo::rotellaSullaComboNonSceglie()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cbo[0].SetFocus();
    for (const int giro : {-120, 120, 120, -120, -120})
        Gira_Rotella(modulo->cbo[0].Widget(), giro);
    QApplication::processEvents();
    QCOMPARE(modulo->cbo[0].ListIndex(), qint16{1});
    QCOMPARE(modulo->Volte(QStringLiteral("cbo_Click 0")), 0);
}

void tst_modulo::invioPremeIlPulsanteConIlFuoco()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[1].SetFocus();
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Registro, QStringList(QStringLiteral("cmd_Click 1")));
}

void tst_modulo::invioPremeIlPredefinito_data()
{
    QTest::addColumn<QString>("fuoco");
    for (const char *nome : {"txt_1", "cbo_0", "chk_0"})
        QTest::newRow(nome) << QString::fromLatin1(nome);
}

void tst_modulo::invioPremeIlPredefinito()
{
    QFETCH(QString, fuoco);
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->Finestra()->findChild<QWidget *>(fuoco)->setFocus();
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 0")), 1);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
}

void tst_modulo::escapePremeAnnulla()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[1].SetFocus();
    Premi(*modulo, Qt::Key_Escape);
    QCOMPARE(modulo->Registro, QStringList(QStringLiteral("cmd_Click 2")));
}

void tst_modulo::ritardoDeiTasti_data()
{
    QTest::addColumn<int>("tasto");
    QTest::addColumn<QString>("fuoco");
    QTest::addColumn<QString>("effetto");
    const auto riga = [](const char *nome, int tasto, const char *fuoco, const char *effetto) {
        QTest::newRow(nome) << tasto << QString::fromLatin1(fuoco) << QString::fromLatin1(effetto);
    };
    riga("Invio sul pulsante", Qt::Key_Return, "cmd_1", "cmd_Click 1");
    riga("Invio del tastierino", Qt::Key_Enter, "cmd_1", "cmd_Click 1");
    riga("Invio altrove", Qt::Key_Return, "chk_0", "cmd_Click 0");
    riga("spazio", Qt::Key_Space, "cmd_1", "cmd_Click 1");
}

void tst_modulo::ritardoDeiTasti()
{
    QFETCH(int, tasto);
    QFETCH(QString, fuoco);
    QFETCH(QString, effetto);
    OrologioProva orologio;
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->RitardoTasti(500);
    QWidget *widget = modulo->Finestra()->findChild<QWidget *>(fuoco);
    widget->setFocus();
    QTest::keyClick(widget, static_cast<Qt::Key>(tasto));
    orologio.Avanza(499);
    QTest::keyPress(widget, static_cast<Qt::Key>(tasto));
    orologio.Avanza(1);
    QTest::keyRelease(widget, static_cast<Qt::Key>(tasto)); // pressed too early, whenever it is let go
    QCOMPARE(modulo->Registro, QStringList());
    QTest::keyClick(widget, static_cast<Qt::Key>(tasto));
    QCOMPARE(modulo->Registro, QStringList(effetto));
}

void tst_modulo::ritardoSoloPerITasti()
{
    const OrologioProva orologio;
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->RitardoTasti(500);
    QTest::mouseClick(modulo->cmd[1].Widget(), Qt::LeftButton);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1);
    Premi(*modulo, Qt::Key_Escape);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 2")), 1);
    Azioni(modulo->cmd[1])->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 2);
    modulo->txt[1].SetFocus();
    Premi(*modulo, Qt::Key_Space);
    QCOMPARE(modulo->txt[1].Text(), QStringLiteral(" "));
    modulo->chk[0].SetFocus();
    Premi(*modulo, Qt::Key_Space);
    QCOMPARE(modulo->chk[0].Value(), qint16{1});
}

void tst_modulo::ritardoDaOgniMostra()
{
    OrologioProva orologio;
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->RitardoTasti(500);
    orologio.Avanza(1000);
    modulo->Mostra(); // it comes up again
    QVERIFY(Attiva(*modulo));
    modulo->cmd[1].SetFocus();
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 0);
    orologio.Avanza(500);
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1);
}

// The station's clock is set by the network now and then.
void tst_modulo::ritardoConLOrologioRimesso()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->RitardoTasti(500);
    const OrologioProva indietro; // long before the form came up
    modulo->cmd[1].SetFocus();
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Volte(QStringLiteral("cmd_Click 1")), 1);
}

void tst_modulo::pulsanteSpentoONascostoNonSiPreme_data()
{
    QTest::addColumn<bool>("spento");
    QTest::newRow("spento") << true;
    QTest::newRow("nascosto") << false;
}

void tst_modulo::pulsanteSpentoONascostoNonSiPreme()
{
    QFETCH(bool, spento);
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    for (const qint16 i : {qint16{0}, qint16{2}}) {
        if (spento)
            modulo->cmd[i].Enabled(false);
        else
            modulo->cmd[i].Visible(false);
    }
    modulo->chk[0].SetFocus();
    Premi(*modulo, Qt::Key_Return);
    Premi(*modulo, Qt::Key_Escape);
    QCOMPARE(modulo->Registro, QStringList());
    modulo->cmd[0].Enabled(true);
    modulo->cmd[0].Visible(true);
    Premi(*modulo, Qt::Key_Return);
    QCOMPARE(modulo->Registro, QStringList(QStringLiteral("cmd_Click 0")));
}

void tst_modulo::senzaPulsantiInvioEdEscapeNonFannoNulla()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    modulo->cmd[0].Default(false);
    modulo->cmd[2].Cancel(false);
    modulo->txt[1].SetFocus();
    Premi(*modulo, Qt::Key_Return);
    Premi(*modulo, Qt::Key_Escape);
    QCOMPARE(modulo->Registro,
             QStringList({QStringLiteral("txt_KeyPress 1"), QStringLiteral("txt_KeyPress 1")}));
    QVERIFY(modulo->Caricato());
    QVERIFY(modulo->txt[1].Widget()->hasFocus());
}

// The buttons were made first; the keyboard goes through the rows of the table and comes to them last.
void tst_modulo::tabulazionePerRigaPoiPulsanti()
{
    const auto modulo = Completo();
    QVERIFY(Attiva(*modulo));
    QStringList giro;
    for (int i = 0; i < 9; ++i) {
        giro.append(modulo->Finestra()->focusWidget()->objectName());
        Premi(*modulo, Qt::Key_Tab);
    }
    QCOMPARE(giro, QStringLiteral("txt_0 txt_1 cbo_0 chk_0 txt_2 cmd_0 cmd_1 cmd_2 txt_0").split(u' '));
}

/// A list that belongs to no row comes behind all of them, and before the buttons.
void tst_modulo::tabulazioneElencoDopoLeRighe()
{
    const auto modulo = Nuovo<ModuloProva>();
    std::unique_ptr<ElencoVoci> elenco;
    modulo->AlDisegno = [&] {
        Disegna(*modulo);
        elenco = std::make_unique<ElencoVoci>(modulo->Finestra(), QStringLiteral("lst"));
        elenco->Posto(0, 0, 1500, 1500);
        elenco->Visible(true);
    };
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    QStringList giro;
    for (int i = 0; i < 7; ++i) {
        giro.append(modulo->Finestra()->focusWidget()->objectName());
        Premi(*modulo, Qt::Key_Tab);
    }
    QCOMPARE(giro, QStringLiteral("txt_0 txt_1 cbo_0 chk_0 txt_2 lst cmd_0").split(u' '));
}

/// So it does where it was made between them.
void tst_modulo::tabulazioneElencoFattoInMezzo()
{
    const auto modulo = Nuovo<ModuloProva>();
    std::unique_ptr<ElencoVoci> elenco;
    modulo->AlDisegno = [&] {
        modulo->cmd.Carica(0).Posto(0, 3000, 1500, 450);
        modulo->cmd[0].Visible(true);
        elenco = std::make_unique<ElencoVoci>(modulo->Finestra(), QStringLiteral("lst"));
        elenco->Posto(0, 0, 1500, 1500);
        elenco->Visible(true);
        modulo->txt.Carica(0).Posto(0, 2000, 1500, 450);
        modulo->txt[0].Visible(true);
    };
    modulo->Mostra();
    QVERIFY(Attiva(*modulo));
    modulo->txt[0].SetFocus();
    QStringList giro;
    for (int i = 0; i < 4; ++i) {
        giro.append(modulo->Finestra()->focusWidget()->objectName());
        Premi(*modulo, Qt::Key_Tab);
    }
    QCOMPARE(giro, QStringLiteral("txt_0 lst cmd_0 txt_0").split(u' '));
}

// --- window -----------------------------------------------------------------------------------------------

void tst_modulo::misureInTwip()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    modulo->Height(3000);
    QCOMPARE(modulo->Finestra()->height(), 200);
    modulo->Width(4500); // each by itself, at once
    QCOMPARE(modulo->Finestra()->size(), QSize(300, 200));
    modulo->Sposta(1500, 750);
    QCOMPARE(modulo->Finestra()->size(), QSize(300, 200));
    QCOMPARE(modulo->Finestra()->pos(), QPoint(100, 50));
    QCOMPARE(modulo->Width(), 4500);
    QCOMPARE(modulo->Height(), 3000);
    QCOMPARE(modulo->Left(), 1500);
    QCOMPARE(modulo->Top(), 750);
}

void tst_modulo::centrato()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    modulo->Width(4500);
    modulo->Height(3000);
    modulo->Centra();
    QCOMPARE(modulo->Left(), (Schermo_Larghezza() - 4500) / 2);
    QCOMPARE(modulo->Top(), (Schermo_Altezza() - 3000) / 2);
    QCOMPARE(modulo->Finestra()->pos(), QPoint(250, 300));
}

void tst_modulo::massimizzatoCopreLoSchermo()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->AlLoad = [&] {
        modulo->Sposta(150, 300); // where it stood before counts no more
        modulo->Massimizza();
    };
    modulo->Mostra();
    QCOMPARE(modulo->Finestra()->geometry(), QRect(0, 0, 800, 800));
    QVERIFY(modulo->Finestra()->windowFlags().testFlag(Qt::FramelessWindowHint));
    QTRY_VERIFY(modulo->Finestra()->isFullScreen()); // over the panels of a desktop, too
    QCOMPARE(modulo->Left(), 0);
    QCOMPARE(modulo->Top(), 0);
    QCOMPARE(modulo->Width(), Schermo_Larghezza());
    QCOMPARE(modulo->Height(), Schermo_Altezza());
}

// Whoever asks the window in Load gets the size that it will have.
void tst_modulo::massimizzatoGiaInLoad()
{
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--intero")}, QSize(900, 700));
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    QCOMPARE(figlio.Uscita.trimmed(), QStringLiteral("900x700"));
}

/// What the process of its own does. @return its status.
int Intero(int argc, char **argv)
{
    Applicazione applicazione(argc, argv);
    const auto modulo = Nuovo<ModuloProva>();
    QSize grandezza;
    modulo->AlLoad = [&] {
        modulo->Massimizza();
        grandezza = modulo->Finestra()->size();
    };
    modulo->Carica();
    std::printf("%dx%d\n", grandezza.width(), grandezza.height());
    return 0;
}

/// A small form belongs to the one it opens over, whatever was loaded last; one that covers the screen to
/// none.
void tst_modulo::piccoloSopraQuelloAttivo()
{
    const auto grande = Nuovo<ModuloProva>();
    grande->AlLoad = [&] { grande->Massimizza(); };
    grande->Mostra();
    const auto altro = Nuovo<ModuloProva>();
    altro->Mostra();
    QCOMPARE(altro->Finestra()->windowHandle()->transientParent(), grande->Finestra()->windowHandle());
    grande->PortaAvanti();
    QVERIFY(Attiva(*grande));
    const auto piccolo = Nuovo<ModuloProva>();
    piccolo->Mostra();
    QCOMPARE(piccolo->Finestra()->windowHandle()->transientParent(), grande->Finestra()->windowHandle());
    QCOMPARE(piccolo->Finestra()->windowType(), Qt::Dialog);
    const auto intero = Nuovo<ModuloProva>();
    intero->AlLoad = [&] { intero->Massimizza(); };
    intero->Mostra();
    QVERIFY(intero->Finestra()->windowHandle()->transientParent() == nullptr);
}

/// What stands in the form stays, nothing is loaded again.
void tst_modulo::portatoAvanti()
{
    const auto primo = Nuovo<ModuloProva>();
    primo->PortaAvanti(); // not loaded: nothing
    primo->Mostra();
    const auto secondo = Nuovo<ModuloProva>();
    secondo->Mostra();
    QVERIFY(Attiva(*secondo));
    primo->PortaAvanti();
    QVERIFY(Attiva(*primo));
    QCOMPARE(primo->Volte(QStringLiteral("Load")), 1);
    secondo->Finestra()->showMinimized();
    secondo->PortaAvanti();
    QVERIFY(!secondo->Finestra()->isMinimized());
    QVERIFY(Attiva(*secondo));
}

void tst_modulo::senzaCorniceMisuraFissa()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QCOMPARE(modulo->Finestra()->minimumSize(), QSize(600, 400));
    QCOMPARE(modulo->Finestra()->maximumSize(), QSize(600, 400));
}

void tst_modulo::titolo()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Carica();
    modulo->Caption(QStringLiteral("Attenzione"));
    QCOMPARE(modulo->Caption(), QStringLiteral("Attenzione"));
    QCOMPARE(modulo->Finestra()->windowTitle(), QStringLiteral("Attenzione"));
}

void tst_modulo::inPrimoPiano()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    const QWindow *finestra = modulo->Finestra()->windowHandle();
    QVERIFY(!finestra->flags().testFlag(Qt::WindowStaysOnTopHint));
    modulo->InPrimoPiano();
    QVERIFY(finestra->flags().testFlag(Qt::WindowStaysOnTopHint));
    QVERIFY(modulo->Finestra()->isVisible());
}

void tst_modulo::aggiornaRidipinge()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->Mostra();
    QTRY_VERIFY(modulo->Dipinture > 0);
    QApplication::processEvents();
    const int prima = modulo->Dipinture;
    modulo->Aggiorna();
    QTRY_VERIFY(modulo->Dipinture > prima);
}

void tst_modulo::lineeSullaFinestra()
{
    const auto modulo = Nuovo<ModuloProva>();
    modulo->AlPaint = [&] { modulo->Linea(1500, 3000, 4500, 3000); };
    modulo->Mostra();
    const auto punto = [](const QImage &immagine, int x, int y) { return immagine.pixelColor(x, y); };
    const QColor cornice = Colore_Cornice();
    QImage vista = modulo->Finestra()->grab().toImage();
    QCOMPARE(punto(vista, 100, 200), cornice);
    QCOMPARE(punto(vista, 200, 200), cornice);
    QCOMPARE(punto(vista, 300, 200), cornice);
    QVERIFY(punto(vista, 99, 200) != cornice);
    QVERIFY(punto(vista, 301, 200) != cornice);
    QVERIFY(punto(vista, 200, 199) != cornice);
    QVERIFY(punto(vista, 200, 201) != cornice);

    modulo->AlPaint = [&] { modulo->Linea(1500, 4500, 4500, 4500); };
    vista = modulo->Finestra()->grab().toImage();
    QVERIFY(punto(vista, 200, 200) != cornice); // what an earlier Paint drew is gone
    QCOMPARE(punto(vista, 200, 300), cornice);
}

// A small form has a frame of its own, to its last pixels; one that covers the screen has none.
void tst_modulo::corniceSullOrlo()
{
    const auto piccolo = Nuovo<ModuloProva>();
    piccolo->Mostra();
    const QImage vista = piccolo->Finestra()->grab().toImage();
    const QColor cornice = Colore_Cornice();
    for (const int x : {0, vista.width() / 2, vista.width() - 1}) {
        QCOMPARE(vista.pixelColor(x, 0), cornice);
        QCOMPARE(vista.pixelColor(x, vista.height() - 1), cornice);
    }
    for (const int x : {0, vista.width() - 1})
        QCOMPARE(vista.pixelColor(x, vista.height() / 2), cornice);
    QVERIFY(vista.pixelColor(1, 1) != cornice);
    QVERIFY(vista.pixelColor(vista.width() - 2, vista.height() - 2) != cornice);

    const auto intero = Nuovo<ModuloProva>();
    intero->AlLoad = [&] { intero->Massimizza(); };
    intero->Mostra();
    QVERIFY(intero->Finestra()->grab().toImage().pixelColor(0, 0) != cornice);
}

void tst_modulo::attivatoAOgniRitorno()
{
    const auto primo = Nuovo<ModuloProva>();
    const auto secondo = Nuovo<ModuloProva>();
    primo->Mostra();
    QVERIFY(Attiva(*primo));
    QCOMPARE(primo->Volte(QStringLiteral("Activate")), 1);
    secondo->Mostra();
    QVERIFY(Attiva(*secondo));
    QCOMPARE(primo->Volte(QStringLiteral("Activate")), 1);
    secondo->Scarica();
    QTRY_COMPARE(primo->Volte(QStringLiteral("Activate")), 2);
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--attivato-subito") == 0)
        return Attivato_Subito(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], "--intero") == 0)
        return Intero(argc, argv);
    return Principale_Prova<tst_modulo>(argc, argv);
}

#include "tst_modulo.moc"
