// The main window: its menu and picture, and the flow of a test from the menu to the result screen, on a line
// of the test's own.
#include "app/frmMain.h"

#include "core/codici.h"
#include "core/esito_sessione.h"
#include "core/limiti.h"
#include "core/modCtl.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "core/versione.h"
#include "dialogs/dlgPwd.h"
#include "link/frmComm.h"
#include "mctc/cartella_scambio.h"
#include "mctc/frmMctcO.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "report/frmMctc2.h"
#include "setup/frmSetupO.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/seriale_prova.h"
#include "tests/forms/trova_prova.h"
#include "toolkit/applicazione.h"
#include "toolkit/schermo.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>

#include <cstdio>

namespace {

constexpr qint64 SESSIONE = 2 * 200 + 2000; // ms: two replies looked at, and the last text

const QByteArray MISURA = Risposta_Misura("0123O#", "0456OO", "0789OO", "0999##");
const QString FILE_ACC = QStringLiteral("12345678.acc");
const QString FILE_FAR = QStringLiteral("DIR_FAR\\12345678.far");
const QString ACC_RETE = QStringLiteral("ESITO\\12345678.acc");
const QString FAR_RETE = QStringLiteral("ESITO\\12345678.far");

/// Arguments of the processes that show how the program ends: without its pictures, and by the exit of the
/// menu while the result shows.
const char *const SENZA_DATI = "senza-dati";
const char *const USCITA_DAL_RISULTATO = "uscita-dal-risultato";

constexpr int DOPO_RITORNO = 100; // ms until the menu looks at its folder
constexpr int FRA_DUE_SGUARDI = 30000;
constexpr int MINUTO = 60000; // that a failure stays on the menu

/// How long the exchange folder takes to answer, in ms of the test's clock, and how often it was looked at.
int gLentezza = 0;
int gSguardi = 0;

/// What happens while the folder is asked.
std::function<void()> gIntanto;

/// The connection is lost between the look and the listing behind it.
bool gElencoPerso = false;

/// Listings of the exchange folder, by any call of the platform.
int gElenchi = 0;

/// The one port that the machine has; 0 for none.
qint16 gPorta = 0;

} // namespace

// The linker leads the menu's look at the folder through the second of these, on to the first.
CartellaScambio Cartella_Vera(const QString &cartella) asm("__real__Z15Cartella_GuardaRK7QString");
CartellaScambio Cartella_Chiesta(const QString &cartella) asm("__wrap__Z15Cartella_GuardaRK7QString");
// And its question for a port to this one.
bool Porta_Chiesta(qint16 numero) asm("__wrap__Z14Porta_Presentes");
// And every query of a directory.
QStringList Elenca_Vera(const QString &percorso, qint16 attributo, const std::function<void()> &intanto) asm(
    "__real__Z15Cartella_ElencaRK7QStringsRKSt8functionIFvvEE");
QStringList Elenca_Chiesta(
    const QString &percorso, qint16 attributo,
    const std::function<void()> &intanto) asm("__wrap__Z15Cartella_ElencaRK7QStringsRKSt8functionIFvvEE");

/// A network that takes its time.
CartellaScambio Cartella_Chiesta(const QString &cartella)
{
    ++gSguardi;
    if (gIntanto)
        gIntanto();
    Orologio_Banco().Avanza(gLentezza);
    return Cartella_Vera(cartella);
}

/// A machine whose adapter is plugged in and pulled out by the test.
bool Porta_Chiesta(qint16 numero)
{
    return numero == gPorta;
}

bool Trova_Chiesta(const QString &percorso, QList<RecordTrovato> &trovati,
                   const std::function<void()> &intanto)
{
    gElenchi += percorso.startsWith(gDirAcc) ? 1 : 0;
    return Trova_Vera(percorso, trovati, intanto);
}

QStringList Elenca_Chiesta(const QString &percorso, qint16 attributo, const std::function<void()> &intanto)
{
    gElenchi += percorso.startsWith(gDirAcc) ? 1 : 0;
    if (gElencoPerso && percorso.startsWith(gDirAcc))
        Solleva(NumeroErrore::NomeFileErrato);
    return Elenca_Vera(percorso, attributo, intanto);
}

namespace {

/// Counts how often a widget is painted.
class Ridipinta : public QObject
{
public:
    explicit Ridipinta(QWidget *widget) { widget->installEventFilter(this); }
    int Quante = 0;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        Quante += evento->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// Answers a measure to every session.
void Strumento_Pronto()
{
    Linee_Prepara([](LineaProva &linea) { linea.Copione({Risposta_Stato('4'), MISURA}); });
}

/// Steps of the director: a session that goes to its end, and a result screen that is looked at and closed.
void Sessione_Completa(Regia &regia, const std::function<void(Modulo &)> &guarda = {})
{
    regia.Quando("frmComm", [](Modulo &) { Orologio_Banco().Avanza(SESSIONE); })
        .Quando("frmEsito", [guarda](Modulo &esito) {
            if (guarda)
                guarda(esito);
            Premi(esito, "cmd_0");
        });
}

/// Counts the paintings of a form's window.
class Dipinture : public QObject
{
public:
    explicit Dipinture(Modulo &modulo) : m_finestra(modulo.Finestra())
    {
        m_finestra->installEventFilter(this);
    }
    /// The count begins when the window of another form, which is in front, has gone; a painting of this one
    /// is pending then.
    void Al_Nascondersi(Modulo &davanti)
    {
        m_davanti = davanti.Finestra();
        m_davanti->installEventFilter(this);
    }
    bool eventFilter(QObject *oggetto, QEvent *evento) override
    {
        if (oggetto == m_finestra && evento->type() == QEvent::Paint)
            ++Volte;
        if (oggetto == m_davanti && evento->type() == QEvent::Hide) {
            m_finestra->update();
            Volte = 0;
        }
        return false;
    }
    /// True when no painting is pending.
    bool Ferme()
    {
        const int prima = Volte;
        QCoreApplication::processEvents();
        return Volte == prima;
    }

    int Volte = 0;

private:
    QWidget *m_finestra;
    QWidget *m_davanti = nullptr;
};

} // namespace

class tst_frmMain : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmMain>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    /// Another form gives the keyboard up to this one.
    static bool Davanti(Modulo &modulo)
    {
        modulo.PortaAvanti();
        return Attiva(modulo);
    }
    QPushButton *Voce(int i) const { return Membro_Di<QPushButton>(*form, "cmdMnu", i); }
    QString Nativo(const QString &nome) const { return banco->Stazione.Nativo(nome); }
    bool Esiste(const QString &nome) const { return QFile::exists(Nativo(nome)); }
    void Premi_Prova() const { Premi(*form, "cmdMnu_2"); }
    /// The worklist with its one clean file picked and confirmed: the entry form shows.
    void Scegli_DallaLista() const
    {
        banco->Stazione.Accettazione(FILE_ACC);
        Conferma_Scelta();
    }
    void Conferma_Scelta() const
    {
        Premi_Prova();
        const auto lista = Modulo_Aperto("frmMctcO");
        QVERIFY(lista != nullptr);
        Widget_Di<QListWidget>(*lista, "lstAuto")->setCurrentRow(0);
        Premi(*lista, "cmd_0");
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }
    /// A whole test from the worklist of the network folder.
    void Prova_InRete()
    {
        gModalita = Falso;
        Imposta_Cartelle();
        banco->Stazione.Scrivi(ACC_RETE, banco->Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")));
        Apri();
        Conferma_Scelta();
        Regia regia;
        Sessione_Completa(regia);
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
    }
    /// Every code but the confirmation comes from a form that chooses a vehicle: nothing happens.
    template <typename Form>
    static void Notifica_Altri(Form &scelta)
    {
        const QStringList aperti = Nomi_Caricati();
        for (qint16 codice : {qint16{0}, qint16{1}, qint16{2}, qint16{5}, qint16{6}, qint16{7}}) {
            QVariant valore = 4;
            Q_EMIT scelta.Notifica(codice, valore);
        }
        QCOMPARE(gTipoProva, qint16{ProvaScelta});
        QVERIFY(Linea_Corrente() == nullptr);
        QCOMPARE(Nomi_Caricati(), aperti);
    }
    QString Stato(int riga) const
    {
        return Testo_Di(*form, QByteArray("lblStato_" + QByteArray::number(riga)));
    }
    QString Avviso() const { return Visibile(*form, "lblAvviso") ? Testo_Di(*form, "lblAvviso") : QString(); }
    void Imposta_Scadenza(const QString &testo) const
    {
        banco->Stazione.Imposta(QStringLiteral("LUMIRA"), QStringLiteral("Comm_ScadRevisione"), testo);
    }
    void Imposta_Porta(const QString &testo) const
    {
        banco->Stazione.Imposta(QStringLiteral("COMM"), QStringLiteral("Num"), testo);
    }
    /// A form over the menu, and back.
    void Va_E_Torna() const
    {
        Premi(*form, "cmdMnu_5");
        QVERIFY(Attiva(*Modulo_Aperto("frmAnagOffO")));
        Premi(*Modulo_Aperto("frmAnagOffO"), "cmd_1");
        QVERIFY(Attiva(*form));
    }
    static void Conferma_Veicolo() { Premi(*Modulo_Aperto("frmMctc2"), "cmd_0"); }
    static void Scrivi_Password(Modulo &dialogo, const QString &password)
    {
        QTest::keyClicks(Widget_Di<QLineEdit>(dialogo, "txtPwd"), password);
        Orologio_Banco().Avanza(4000);
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmMain> form;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        Strumento_Pronto();
        Far_Azzera();
        Sessione_Annota(QString());
        gLentezza = gSguardi = 0;
        gPorta = 1;
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    // --- menu ---------------------------------------------------------------------------------------------

    void menu()
    {
        Apri();
        QCOMPARE(form->Finestra()->windowTitle(), QStringLiteral("lumira"));
        for (int i = 0; i <= 8; ++i) {
            QCOMPARE(Voce(i)->text(), Testo_Mctc(Id_Mctc(i)));
            QVERIFY(!Voce(i)->text().isEmpty());
            QCOMPARE(Voce(i)->isVisible(), i != 8);
            QCOMPARE(Voce(i)->isEnabled(), i != 0 && i != 3);
        }
    }

    void menuSullaGriglia_data()
    {
        QTest::addColumn<qint32>("larghezza");
        QTest::addColumn<qint32>("altezza");
        QTest::newRow("il presente") << Schermo_Larghezza() << Schermo_Altezza();
        QTest::newRow("non divisibile per tre") << 11999 << 11000;
    }
    void menuSullaGriglia()
    {
        QFETCH(qint32, larghezza);
        QFETCH(qint32, altezza);
        gScreenW = larghezza;
        gScreenH = altezza;
        Apri();
        const qint32 h = ScalaY(1050);
        const qint32 t = altezza - 3 * h;
        const qint32 w = larghezza / 3;
        for (int i = 0; i <= 7; ++i)
            QCOMPARE(Voce(i)->geometry(), Posto_Twip(i % 3 * w, t + i / 3 * h, w, h));
        QCOMPARE(Widget_Di(*form, "imgLogo")->geometry(),
                 Posto_Twip(ScalaX(100), ScalaY(100), larghezza - 200, t - 200));
        for (int i = 0; i <= 8; ++i) // all in the type of the first
            QCOMPARE(Voce(i)->font().pixelSize(), qRound(Pixel_DaPunti(ScalaX(20))));
    }

    void vociSenzaAzione()
    {
        Apri();
        for (const char *voce : {"cmdMnu_0", "cmdMnu_3"})
            Premi(*form, voce);
        for (int i : {0, 3, 8})
            Q_EMIT Voce(i)->clicked();
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
    }

    void senzaTestiDidascalieVuote()
    {
        QVERIFY(QFile::remove(Nativo(QStringLiteral("lingueMCTC.ini"))));
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Apri();
        for (int i = 0; i <= 8; ++i)
            QVERIFY(Voce(i)->text().isEmpty());
        QVERIFY(Voce(2)->isVisible());
    }

    // --- what stands out -----------------------------------------------------------------------------------

    /// The working day begins with Enter.
    void laProvaHaIlPrimoFuoco()
    {
        gIniFile = Falso;
        Apri();
        QCOMPARE(QApplication::focusWidget(), Voce(2));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }

    void laProvaSpicca()
    {
        Apri();
        QVERIFY(Voce(2)->font().bold());
        for (int i : {1, 4, 5, 6, 7}) {
            QVERIFY(!Voce(i)->font().bold());
            QVERIFY(Sfondo_Di(Voce(i)) != Sfondo_Di(Voce(2)));
        }
    }

    /// An entry that is not there keeps its caption for the rules, and nothing of it is to be seen.
    void leVociSpenteNonSiVedono()
    {
        Apri();
        for (int i : {0, 3}) {
            const QImage vista = form->Finestra()->grab(Voce(i)->geometry()).toImage();
            const QRgb fondo = form->Finestra()->palette().color(QPalette::Window).rgb();
            for (int y = 0; y < vista.height(); ++y) {
                for (int x = 0; x < vista.width(); ++x)
                    QCOMPARE(vista.pixel(x, y), fondo);
            }
            QVERIFY(!Voce(i)->text().isEmpty());
        }
    }

    // --- the state of the station --------------------------------------------------------------------------

    /// The lines stand where the ninth button would; all but the folder at once, the folder when the menu has
    /// been painted.
    void statoDellaStazione()
    {
        banco->Stazione.Accettazione(FILE_ACC);
        banco->Stazione.Accettazione(QStringLiteral("20000000.acc"));
        banco->Stazione.Scrivi(QStringLiteral("DIR_FAR\\20000000.far"), "x");
        Apri();
        const QRect cella =
            Posto_Twip(2 * (gScreenW / 3), gScreenH - ScalaY(1050), gScreenW / 3, ScalaY(1050));
        for (int i = 0; i < 4; ++i)
            QVERIFY(cella.contains(Membro_Di<QLabel>(*form, "lblStato", i)->geometry()));
        QCOMPARE(Stato(0), QStringLiteral("lumira ") + Versione_Programma());
        QCOMPARE(Stato(1), QStringLiteral("Cartella: attesa della risposta"));
        QCOMPARE(Stato(2), QStringLiteral("Porta COM1 presente"));
        QCOMPARE(Stato(3), QStringLiteral("Verifica valida fino al 31/12/2027"));
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(1), QStringLiteral("Cartella: 1 in attesa"));
        QCOMPARE(gSguardi, 1);
        QVERIFY(Avviso().isEmpty()); // a station in order asks for nobody
    }

    /// A folder that may never answer: that it is waited for has been painted by then, from the second look
    /// on where the first was slow, and at a press of the test button always.
    void laLentaSiAnnuncia()
    {
        banco->Stazione.Accettazione(FILE_ACC);
        Apri();
        const QString attesa = QStringLiteral("Cartella: attesa della risposta");
        Ridipinta dipinture(Membro_Di<QLabel>(*form, "lblStato", 1));
        QStringList mostrati;
        gIntanto = [&] {
            mostrati.append(dipinture.Quante > 0 ? Stato(1) : Stato(1) + QStringLiteral(" (non ridipinta)"));
        };
        const auto senza = qScopeGuard([] { gIntanto = {}; });
        const QString trovato = QStringLiteral("Cartella: 1 in attesa");
        gLentezza = 100; // quick enough for nobody to wonder
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(1), trovato);
        QTRY_VERIFY(dipinture.Quante > 0); // in its turn, by the loop
        dipinture.Quante = 0;
        gLentezza = 600;
        Orologio_Banco().Avanza(FRA_DUE_SGUARDI);
        Orologio_Banco().Avanza(600 * 100);
        QCOMPARE(mostrati, QStringList({attesa + QStringLiteral(" (non ridipinta)"),
                                        trovato + QStringLiteral(" (non ridipinta)"), attesa}));
        QCOMPARE(Stato(1), trovato);

        mostrati.clear();
        dipinture.Quante = 0;
        gLentezza = 0;
        Premi(*form, "cmdMnu_2");
        QCOMPARE(mostrati.value(0), attesa);
        QCOMPARE(Stato(1), trovato);
    }

    /// Lost since the look that found it: no reason for the station to end.
    void ilCollegamentoSiPerdeDopoLoSguardo()
    {
        banco->Stazione.Accettazione(FILE_ACC);
        Apri();
        gElencoPerso = true;
        const auto tornato = qScopeGuard([] { gElencoPerso = false; });
        Premi(*form, "cmdMnu_2");
        const auto veicolo = Modulo_Aperto<frmMctc2>("frmMctc2");
        QVERIFY(veicolo != nullptr);
        QCOMPARE(veicolo->Motivo, Testo_Mctc(MctcSceltaIlleggibile));
    }

    /// The forms that save say nothing: the menu does, until a value is kept again.
    void unValorePersoSiDice()
    {
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QVERIFY(Avviso().isEmpty());
        QVERIFY(
            !Scrivi_Ini(gFileIni, QStringLiteral("OFFICINA"), QStringLiteral("Web"), QStringLiteral("a\nb")));
        Orologio_Banco().Avanza(FRA_DUE_SGUARDI);
        QCOMPARE(Avviso(), Testo_Mctc(MctcConfigurazioneBloccata));
        QVERIFY(
            Scrivi_Ini(gFileIni, QStringLiteral("OFFICINA"), QStringLiteral("Web"), QStringLiteral("ab")));
        Orologio_Banco().Avanza(FRA_DUE_SGUARDI);
        QVERIFY(Avviso().isEmpty());
    }

    /// An adapter that is pulled out and plugged in again: told at the next look.
    void portaCheVaEViene()
    {
        Imposta_Porta(QStringLiteral("12"));
        gPorta = 12;
        Apri();
        QCOMPARE(Stato(2), QStringLiteral("Porta COM12 presente"));
        QVERIFY(Avviso().isEmpty());
        gPorta = 0;
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(2), QStringLiteral("Porta COM12 assente"));
        QCOMPARE(Avviso(), QStringLiteral("Porta COM12 assente"));
        gPorta = 12;
        Orologio_Banco().Avanza(FRA_DUE_SGUARDI);
        QCOMPARE(Stato(2), QStringLiteral("Porta COM12 presente"));
        QVERIFY(Avviso().isEmpty());
    }

    void senzaListaLaCartellaNonSiGuarda()
    {
        gIniFile = Falso;
        QVERIFY(QDir(Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        Apri();
        Orologio_Banco().Avanza(10 * FRA_DUE_SGUARDI);
        QCOMPARE(gSguardi, 0);
        QCOMPARE(Stato(1), QStringLiteral("Lista accettazioni spenta"));
        QVERIFY(!Avviso().contains(QStringLiteral("Cartella")));
    }

    void avvisi_data()
    {
        QTest::addColumn<QString>("scadenza");
        QTest::addColumn<QString>("porta");
        QTest::addColumn<bool>("cartella");
        QTest::addColumn<QStringList>("attesi"); // of the notice, in any line
        const QString buona = QStringLiteral("31/12/2027");
        const QString manca = QStringLiteral("77");
        const QString assente = QStringLiteral("Porta COM77 assente");
        // The test's clock stands on 15 March 2024.
        QTest::newRow("porta assente") << buona << manca << true << QStringList(assente);
        QTest::newRow("porta senza numero")
            << buona << QString() << true << QStringList(QStringLiteral("Porta: numero mancante"));
        QTest::newRow("scaduta") << QStringLiteral("14/03/2024") << manca << true
                                 << QStringList({assente, QStringLiteral("VERIFICA SCADUTA il 14/03/2024")});
        QTest::newRow("in scadenza") << QStringLiteral("14/04/2024") << manca << true
                                     << QStringList(
                                            {assente, QStringLiteral("Verifica in scadenza il 14/04/2024")});
        QTest::newRow("non una data")
            << QStringLiteral("domani") << manca << true
            << QStringList({assente, QStringLiteral("Verifica: non è una data: domani")});
        QTest::newRow("tutto insieme") << QString() << manca << false
                                       << QStringList({QStringLiteral("Cartella assente o non raggiungibile"),
                                                       assente, QStringLiteral("Verifica: data mancante")});
    }
    /// What somebody has to do something about stands in large type too, in the same words.
    void avvisi()
    {
        QFETCH(QString, scadenza);
        QFETCH(QString, porta);
        QFETCH(bool, cartella);
        QFETCH(QStringList, attesi);
        Imposta_Scadenza(scadenza);
        Imposta_Porta(porta);
        if (!cartella)
            QVERIFY(QDir(Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Avviso().split(u'\n'), attesi);
        for (int i = 1; i < 4; ++i)
            QCOMPARE(Membro_Di<QLabel>(*form, "lblStato", i)->font().bold(), attesi.contains(Stato(i)));
    }

    /// A verification that was renewed, a port that was chosen anew: told when their form has gone.
    void alRitornoDaUnaFinestraSiGuardaDiNuovo()
    {
        Imposta_Scadenza(QStringLiteral("01/01/2024"));
        Imposta_Porta(QStringLiteral("77"));
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(1), QStringLiteral("Cartella: nessun veicolo"));
        banco->Stazione.Accettazione(FILE_ACC);
        Imposta_Scadenza(QStringLiteral("01/01/2026"));
        Imposta_Porta(QStringLiteral("78"));
        Va_E_Torna();
        QCOMPARE(Stato(1), QStringLiteral("Cartella: nessun veicolo")); // the menu is painted first
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(1), QStringLiteral("Cartella: 1 in attesa"));
        QCOMPARE(Stato(3), QStringLiteral("Verifica valida fino al 01/01/2026"));
        QCOMPARE(Avviso(), QStringLiteral("Porta COM78 assente"));
    }

    /// Looked at every half a minute while the menu has the keyboard, and never while another form has it.
    void ogniMezzoMinutoSoloDavanti()
    {
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(gSguardi, 1);
        Orologio_Banco().Avanza(FRA_DUE_SGUARDI - 1);
        QCOMPARE(gSguardi, 1);
        banco->Stazione.Accettazione(FILE_ACC);
        Orologio_Banco().Avanza(1);
        QCOMPARE(gSguardi, 2);
        QCOMPARE(Stato(1), QStringLiteral("Cartella: 1 in attesa"));
        Premi(*form, "cmdMnu_5");
        QVERIFY(Attiva(*Modulo_Aperto("frmAnagOffO")));
        Orologio_Banco().Avanza(10 * FRA_DUE_SGUARDI);
        QCOMPARE(gSguardi, 2);
    }

    /// A folder that took a second to answer is left alone for a hundred, also when a form has gone
    /// meanwhile.
    void cartellaLentaRiposa()
    {
        gLentezza = 1000;
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(gSguardi, 1);
        Orologio_Banco().Avanza(50 * gLentezza);
        Va_E_Torna();
        Orologio_Banco().Avanza(49 * gLentezza);
        QCOMPARE(gSguardi, 1);
        Orologio_Banco().Avanza(2 * gLentezza);
        QCOMPARE(gSguardi, 2);
    }

    /// Texts that an old file does not have leave their lines empty, and no empty notice shows.
    void statoSenzaTesti()
    {
        Imposta_Porta(QStringLiteral("77"));
        QVERIFY(QFile::remove(Nativo(QStringLiteral("lingueMCTC.ini"))));
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Stato(0), QStringLiteral("lumira ") + Versione_Programma());
        for (int i = 1; i < 4; ++i)
            QCOMPARE(Stato(i), QString());
        QVERIFY(!Visibile(*form, "lblAvviso"));
    }

    void statoNellaLinguaNuova()
    {
        Imposta_Porta(QStringLiteral("77"));
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        Premi(*form, "cmdMnu_1");
        gLingua = QStringLiteral("EN");
        qint16 codice = SetupLingua;
        QVariant valore = 0;
        Q_EMIT Modulo_Aperto<frmSetupO>("frmSetupO")->Notifica(codice, valore);
        QCOMPARE(Stato(1), QStringLiteral("Folder: no vehicles"));
        QCOMPARE(Avviso(), QStringLiteral("Port COM77 not found"));
    }

    // --- picture and password -----------------------------------------------------------------------------

    void figuraDelCliente_data()
    {
        QTest::addColumn<QString>("splash");
        QTest::addColumn<bool>("figura");
        QTest::newRow("KP") << QStringLiteral("splash_kp_net.jpg") << true;
        QTest::newRow("altro cliente") << QString() << false;
    }
    /// A customer without pictures of its own sees the program's name.
    void figuraDelCliente()
    {
        QFETCH(QString, splash);
        QFETCH(bool, figura);
        gSplashFile = splash;
        if (!figura)
            QVERIFY(QFile::remove(Nativo(QStringLiteral("dati\\splash_kp_net.jpg"))));
        Apri();
        auto *logo = Widget_Di<QLabel>(*form, "imgLogo");
        QCOMPARE(!logo->pixmap().isNull(), figura);
        QCOMPARE(logo->text(), figura ? QString() : QStringLiteral("lumira"));
        QVERIFY(logo->isVisible());
    }

    void figuraMancanteFinisceIlProgramma()
    {
        QVERIFY(QFile::remove(Nativo(QStringLiteral("dati\\splash_kp_net.jpg"))));
        form = Nuovo<frmMain>();
        QCOMPARE(Errore_DaEvento([this] { form->Mostra(); }), 53);
    }

    void passwordPerVariante_data()
    {
        QTest::addColumn<QString>("logo");
        QTest::addColumn<QString>("password");
        QTest::newRow("KP") << QStringLiteral("kp_logo.gif") << QStringLiteral("ab");
        QTest::newRow("altro") << QString() << QStringLiteral("ab");
        QTest::newRow("norvo") << QStringLiteral("norvo_logo.gif") << QStringLiteral("cd");
    }
    void passwordPerVariante()
    {
        QFETCH(QString, logo);
        QFETCH(QString, password);
        gLogoFile = logo;
        banco->Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd"), QStringLiteral("ej"));
        banco->Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd2"), QStringLiteral("gl"));
        Apri();
        QCOMPARE(gPwdCorrente, password);
    }

    void passwordNonDecifrabileFinisceIlProgramma()
    {
        banco->Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd"),
                                QStringLiteral("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"));
        form = Nuovo<frmMain>();
        QCOMPARE(Errore_DaEvento([this] { form->Mostra(); }), 6);
    }

    // --- the beginning of a test --------------------------------------------------------------------------

    void primaFinestraDellaProva_data()
    {
        QTest::addColumn<Flag>("lista");
        QTest::addColumn<QString>("file"); // in the folder; empty: none; "-": not even the folder
        QTest::addColumn<QString>("finestra");
        const QString veicolo = QStringLiteral("frmMctc2");
        const QString elenco = QStringLiteral("frmMctcO");
        QTest::newRow("senza lista") << Falso << FILE_ACC << veicolo;
        QTest::newRow("cartella vuota") << Vero << QString() << veicolo;
        QTest::newRow("cartella mancante") << Vero << QStringLiteral("-") << veicolo;
        QTest::newRow("altra estensione") << Vero << QStringLiteral("12345678.far") << veicolo;
        QTest::newRow("estensione piu lunga") << Vero << QStringLiteral("12345678.accx") << veicolo;
        QTest::newRow("un file") << Vero << FILE_ACC << elenco;
        QTest::newRow("estensione maiuscola") << Vero << QStringLiteral("12345678.ACC") << elenco;
        QTest::newRow("nome non idoneo") << Vero << QStringLiteral("x.acc") << elenco;
    }
    void primaFinestraDellaProva()
    {
        QFETCH(Flag, lista);
        QFETCH(QString, file);
        QFETCH(QString, finestra);
        gIniFile = lista;
        if (file == u"-")
            QVERIFY(QDir(Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        else if (!file.isEmpty())
            banco->Stazione.Accettazione(file);
        gTipoProva = ProvaConfermata;
        Apri();
        Premi_Prova();
        QCOMPARE(Nomi_Caricati(), QStringList({QStringLiteral("frmMain"), finestra}));
        QCOMPARE(gTipoProva, qint16{ProvaScelta});
        // It stands in front and does not block the menu.
        QVERIFY(Modulo_Aperto(finestra.toLatin1().constData()) != nullptr);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void motivoDelModuloVuoto_data()
    {
        QTest::addColumn<Flag>("lista");
        QTest::addColumn<QString>("cosa"); // written into the station; empty: nothing
        QTest::addColumn<bool>("cartella");
        QTest::addColumn<QString>("motivo");
        const QString nessuno =
            QStringLiteral("Nessun veicolo da scegliere: la cartella delle accettazioni ");
        const QString vuota = nessuno + QStringLiteral("è vuota");
        QTest::newRow("vuota") << Vero << QString() << true << vuota;
        QTest::newRow("risultati soli") << Vero << FILE_FAR << true << vuota;
        QTest::newRow("mancante") << Vero << QString() << false
                                  << nessuno +
                                         QStringLiteral(
                                             "manca o non si raggiunge. Controllare rete e impostazioni");
        QTest::newRow("un file al suo posto")
            << Vero << QStringLiteral("DIR_FAR") << false
            << nessuno + QStringLiteral("non si può leggere. Controllare i diritti");
        QTest::newRow("senza lista") << Falso << QString() << false << QString();
    }
    /// Why the form of the vehicle comes up empty and locked instead of the list. The folder, which may be
    /// slow, is listed once for it.
    void motivoDelModuloVuoto()
    {
        QFETCH(Flag, lista);
        QFETCH(QString, cosa);
        QFETCH(bool, cartella);
        QFETCH(QString, motivo);
        gIniFile = lista;
        if (!cartella)
            QVERIFY(QDir(Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        if (!cosa.isEmpty())
            banco->Stazione.Scrivi(cosa, "x");
        Apri();
        gElenchi = 0;
        Premi_Prova();
        QCOMPARE(gElenchi, lista ? 1 : 0);
        const auto veicolo = Modulo_Aperto("frmMctc2");
        QCOMPARE(Testo_Di(*veicolo, "lblMotivo"), motivo);
        QCOMPARE(Visibile(*veicolo, "lblMotivo"), !motivo.isEmpty());
    }

    /// What ended a session stays on the menu for a minute, in its words, in place of all else. The minute is
    /// counted from when the menu shows it, and once.
    void fineDellaSessionePerUnMinuto()
    {
        Imposta_Porta(QStringLiteral("77"));
        Apri();
        Orologio_Banco().Avanza(DOPO_RITORNO);
        QCOMPARE(Avviso(), QStringLiteral("Porta COM77 assente"));
        Premi(*form, "cmdMnu_5");
        QVERIFY(Attiva(*Modulo_Aperto("frmAnagOffO")));
        Sessione_Annota(QStringLiteral("Lo strumento non risponde"));
        Orologio_Banco().Avanza(2 * MINUTO); // a long message is read
        Premi(*Modulo_Aperto("frmAnagOffO"), "cmd_1");
        QVERIFY(Attiva(*form));
        QCOMPARE(Avviso(), QStringLiteral("Lo strumento non risponde"));
        Orologio_Banco().Avanza(20000);
        Va_E_Torna();
        Orologio_Banco().Avanza(39999);
        QCOMPARE(Avviso(), QStringLiteral("Lo strumento non risponde"));
        Orologio_Banco().Avanza(1);
        QCOMPARE(Avviso(), QStringLiteral("Porta COM77 assente"));
        // One that went well takes the word of the one before it away.
        Sessione_Annota(QStringLiteral("Lo strumento non risponde"));
        Va_E_Torna();
        Sessione_Annota(QString());
        Va_E_Torna();
        QCOMPARE(Avviso(), QStringLiteral("Porta COM77 assente"));
    }

    void uscitaDuranteIlMinutoNonLasciaTempi()
    {
        Apri();
        Sessione_Annota(QStringLiteral("Lo strumento non risponde"));
        Va_E_Torna();
        QVERIFY(Orologio_Banco().Armate() > 0);
        Premi(*form, "cmdMnu_7");
        QVERIFY(!form->Caricato());
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    /// A second failure within the minute of the first has a whole one too.
    void ogniFineHaIlSuoMinuto()
    {
        Apri();
        for (const char16_t *testo : {u"Lo strumento non risponde", u"Linea disturbata"}) {
            Sessione_Annota(QString::fromUtf16(testo));
            Va_E_Torna();
            QCOMPARE(Avviso(), QString::fromUtf16(testo));
            Orologio_Banco().Avanza(MINUTO - 1);
            QCOMPARE(Avviso(), QString::fromUtf16(testo));
        }
        Orologio_Banco().Avanza(1);
        QVERIFY(Avviso().isEmpty());
    }

    /// A change of language, which writes the notice anew behind the form of setup, begins no minute.
    void ilMinutoNonCominciaDietroUnaFinestra()
    {
        Apri();
        Premi(*form, "cmdMnu_1");
        const auto setup = Modulo_Aperto<frmSetupO>("frmSetupO");
        QVERIFY(Attiva(*setup));
        Sessione_Annota(QStringLiteral("Lo strumento non risponde"));
        qint16 codice = SetupLingua;
        QVariant valore = 0;
        Q_EMIT setup->Notifica(codice, valore);
        Orologio_Banco().Avanza(MINUTO);
        setup->Scarica();
        QVERIFY(Attiva(*form));
        QCOMPARE(Avviso(), QStringLiteral("Lo strumento non risponde"));
    }

    /// An instrument that is off: the menu says it, in the words of the session.
    void strumentoMutoDettoSulMenu()
    {
        Linee_Prepara({});
        Apri();
        Scegli_DallaLista();
        Regia regia;
        regia.Quando("frmComm", [](Modulo &) { Orologio_Banco().Avanza(30000); });
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QVERIFY(Attiva(*form));
        QVERIFY(!Sessione_Fine().Testo.isEmpty());
        QCOMPARE(Avviso(), Sessione_Fine().Testo);
    }

    /// A folder that cannot even be asked for is as good as an empty one; a missing one lists nothing anyway.
    void cartellaDellaLetturaIrraggiungibile()
    {
        gDirAcc += QString(5000, u'x') + u'\\';
        Apri();
        Premi_Prova();
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }

    /// Nor does one help that is there, but so deep that no acceptance file in it can be asked for.
    void cartellaDellaLetturaTroppoProfonda()
    {
        while (Percorso_Ammesso(gDirAcc + QStringLiteral("*.acc")))
            gDirAcc.insert(gDirAcc.size() - 1, gDirAcc.size() % 100 == 0 ? u'\\' : u'x');
        QVERIFY(QDir().mkpath(Percorso_Nativo(gDirAcc)));
        QFile file(Percorso_Nativo(gDirAcc + u'a'));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(Fs_Esiste(gDirAcc, 0), Vero);
        Apri();
        Premi_Prova();
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }

    // --- the flow -----------------------------------------------------------------------------------------

    void provaCompletaDallaLista()
    {
        Apri();
        Scegli_DallaLista();
        gTabLingua.clear();
        QStringList caricati;
        Regia regia;
        Sessione_Completa(regia, [&](Modulo &esito) {
            caricati = Nomi_Caricati();
            // Everything is done before the result shows: the record, the file, the end of the acceptance.
            QCOMPARE(Testo_Di(esito, "lblTitolo"), Testo_Mctc(Id_Mctc(126)));
            QCOMPARE(Testo_Di(esito, "lblTab_8"), QStringLiteral("78.9"));
            QCOMPARE(gTipoProva, qint16{ProvaConfermata});
            QVERIFY(banco->Stazione.Leggi(FILE_FAR).contains("\r\nEsito=R\r\n"));
            QVERIFY(!Esiste(QStringLiteral("DIR_FAR\\") + FILE_ACC));
        });
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        // The forms behind it go when their own handlers have ended.
        QCOMPARE(caricati, QStringList({QStringLiteral("frmMain"), QStringLiteral("frmMctc2"),
                                        QStringLiteral("frmComm"), QStringLiteral("frmEsito")}));
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
        QCOMPARE(gTabLingua.size(), ULTIMO_TESTO_LINGUA + 1);
        QVERIFY(form->Finestra()->isVisible());
        QCOMPARE(gAltezzaFaro, 65.0);
    }

    void provaAManoSenzaFile()
    {
        gIniFile = Falso;
        Apri();
        Premi_Prova();
        Regia regia;
        Sessione_Completa(regia);
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(Far_Valore(FarEsito), QStringLiteral("R"));
        QVERIFY(QDir(Nativo(QStringLiteral("DIR_FAR")))
                    .isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    /// In network mode the file stays for the network software to take.
    void inReteLAccettazioneResta()
    {
        Prova_InRete();
        QVERIFY(Esiste(FAR_RETE));
        QVERIFY(Esiste(ACC_RETE));
    }

    /// A vehicle typed in by hand has no file to answer to, and least of all that of the vehicle before.
    void provaAManoDopoLaListaSenzaFile()
    {
        Prova_InRete();
        banco->Stazione.Scrivi(FAR_RETE, "segno");
        gIniFile = Falso;
        Premi_Prova();
        Regia regia;
        Sessione_Completa(regia);
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(banco->Stazione.Leggi(FAR_RETE), "segno");
        QVERIFY(Esiste(ACC_RETE));
        QCOMPARE(gFileAcc, QString());
    }

    /// With the worklist on and nothing in it, the vehicle before does not come back.
    void listaVuotaSenzaIlVeicoloDiPrima()
    {
        const QString altrove = QStringLiteral("altrove\\") + FILE_ACC;
        banco->Stazione.Scrivi(altrove, banco->Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")));
        gFileAcc = banco->Stazione.Percorso(altrove);
        Apri();
        Premi_Prova();
        const auto veicolo = Modulo_Aperto("frmMctc2");
        for (int i = 0; i < 12; ++i) {
            const auto *casella = Membro_Di<QLineEdit>(*veicolo, "txt", i);
            QCOMPARE(casella->text(), QString());
            QVERIFY(casella->isReadOnly());
        }
        Regia regia;
        Sessione_Completa(regia);
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QVERIFY(!Esiste(FILE_FAR));
        QVERIFY(Esiste(altrove));
    }

    void misuraFallitaNienteRisultato_data()
    {
        QTest::addColumn<bool>("interrotta");
        QTest::newRow("interrotta dall'operatore") << true;
        QTest::newRow("strumento muto") << false;
    }
    void misuraFallitaNienteRisultato()
    {
        QFETCH(bool, interrotta);
        Linee_Prepara({});
        Apri();
        Scegli_DallaLista();
        Regia regia;
        regia.Quando("frmComm", [interrotta](Modulo &comm) {
            if (interrotta)
                Premi(comm, "cmd_0");
            else
                Orologio_Banco().Avanza(30000);
        });
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
        QVERIFY(!Esiste(FILE_FAR));
        QVERIFY(Esiste(QStringLiteral("DIR_FAR\\") + FILE_ACC));
        QVERIFY(Far_Valore(FarEsito).isEmpty());
        QVERIFY(form->Finestra()->isVisible());
    }

    /// Whatever its end, the menu is painted anew when a session reports it, while the link form still
    /// stands.
    void dopoLaSessioneIlMenuSiRidipinge()
    {
        Linee_Prepara({});
        Apri();
        Scegli_DallaLista();
        Dipinture dipinture(*form);
        int alRitorno = -1;
        Regia regia;
        regia.Quando("frmComm", [&](Modulo &comm) {
            // Heard after the main window, which was there first.
            connect(&dynamic_cast<frmComm &>(comm), &frmComm::Notifica, &dipinture,
                    [&] { alRitorno = dipinture.Volte; });
            QTRY_VERIFY(dipinture.Ferme());
            dipinture.Volte = 0;
            Premi(comm, "cmd_0");
        });
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(alRitorno, 1);
    }

    /// When the result has gone pending events run, and the menu is painted anew behind them.
    void dopoIlRisultatoIlMenuSiRidipinge()
    {
        Apri();
        Scegli_DallaLista();
        Dipinture dipinture(*form);
        int alRitorno = -1;
        Regia regia;
        regia
            .Quando("frmComm",
                    [&](Modulo &comm) {
                        connect(&dynamic_cast<frmComm &>(comm), &frmComm::Notifica, &dipinture,
                                [&] { alRitorno = dipinture.Volte; });
                        Orologio_Banco().Avanza(SESSIONE);
                    })
            .Quando("frmEsito", [&dipinture](Modulo &esito) {
                dipinture.Al_Nascondersi(esito);
                Premi(esito, "cmd_0");
            });
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(alRitorno, 2); // the painting that was pending, and the one asked for
    }

    void seconaProvaDopoLaPrima()
    {
        Apri();
        for (int i = 0; i < 2; ++i) {
            Scegli_DallaLista();
            Regia regia;
            Sessione_Completa(regia);
            Conferma_Veicolo();
            QVERIFY(regia.Finita());
            QVERIFY(Esiste(FILE_FAR));
            QVERIFY(QFile::remove(Nativo(FILE_FAR)));
        }
    }

    void altriCodiciIgnorati()
    {
        Apri();
        gIniFile = Falso;
        Premi_Prova();
        Notifica_Altri(*Modulo_Aperto<frmMctc2>("frmMctc2"));
        Modulo_Aperto("frmMctc2")->Scarica(); // as long as it is open no list opens beside it
        gIniFile = Vero;
        banco->Stazione.Accettazione(FILE_ACC);
        Premi_Prova();
        Notifica_Altri(*Modulo_Aperto<frmMctcO>("frmMctcO"));
    }

    /// The value that comes with code 4 says how the test was started.
    void valoreDellaConferma()
    {
        Linee_Prepara({});
        gIniFile = Falso;
        Apri();
        Premi_Prova();
        Regia regia;
        regia.Quando("frmComm", [](Modulo &comm) { Premi(comm, "cmd_0"); });
        qint16 codice = VeicoloConfermato;
        QVariant valore = qint16{ProvaRiservata3};
        Q_EMIT Modulo_Aperto<frmMctc2>("frmMctc2")->Notifica(codice, valore);
        QVERIFY(regia.Finita());
        QCOMPARE(gTipoProva, qint16{ProvaRiservata3}); // a failed session leaves it
    }

    /// However the test was started, its result is that of a confirmed vehicle.
    void fineDellaMisuraTipo4()
    {
        gIniFile = Falso;
        Apri();
        Premi_Prova();
        Regia regia;
        Sessione_Completa(regia, [](Modulo &) { QCOMPARE(gTipoProva, qint16{ProvaConfermata}); });
        qint16 codice = VeicoloConfermato;
        QVariant valore = qint16{ProvaRiservata3};
        Q_EMIT Modulo_Aperto<frmMctc2>("frmMctc2")->Notifica(codice, valore);
        QVERIFY(regia.Finita());
        QCOMPARE(gTipoProva, qint16{ProvaConfermata});
    }

    void primaProvaAncoraAperta_data()
    {
        QTest::addColumn<bool>("lista");
        QTest::addColumn<bool>("scelto");
        QTest::newRow("la lista") << true << false;
        QTest::newRow("il veicolo della lista") << true << true;
        QTest::newRow("il veicolo a mano") << false << false;
    }
    /// A second press of the button, before the vehicle is confirmed, brings the open form to the front:
    /// there is one choice at a time, and its vehicle is tested once.
    void primaProvaAncoraAperta()
    {
        QFETCH(bool, lista);
        QFETCH(bool, scelto);
        gIniFile = Flag_Da(lista);
        Apri();
        if (scelto)
            Scegli_DallaLista();
        else if (lista)
            banco->Stazione.Accettazione(FILE_ACC);
        if (!scelto)
            Premi_Prova();
        const auto aperti = Moduli_Caricati();
        QCOMPARE(aperti.size(), 2u);
        gIniFile = Flag_Da(!lista); // whatever a press would open now
        QVERIFY(Davanti(*form));
        Premi_Prova();
        QVERIFY(Moduli_Caricati() == aperti);
        QVERIFY(Attiva(*aperti.back()));
        gIniFile = Flag_Da(lista);
        if (lista && !scelto) {
            Widget_Di<QListWidget>(*aperti.back(), "lstAuto")->setCurrentRow(0);
            Premi(*aperti.back(), "cmd_0");
        }
        Regia regia;
        Sessione_Completa(regia);
        Conferma_Veicolo();
        QVERIFY(regia.Finita());
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
    }

    void secondaPressioneDuranteLaLettura_data() { uscitaDuranteLaLettura_data(); }
    /// A press that falls into the reading of the folder opens no second list: the one that shows is heard.
    void secondaPressioneDuranteLaLettura()
    {
        QFETCH(int, caricati);
        banco->Stazione.Accettazione(FILE_ACC);
        Apri();
        int volte = 0;
        QTimer attesa;
        connect(&attesa, &QTimer::timeout, form.get(), [&] {
            if (volte == 0 && Nomi_Caricati().size() == caricati) {
                ++volte;
                Premi_Prova();
            }
        });
        attesa.start(0);
        Premi_Prova();
        QCOMPARE(volte, 1);
        QCOMPARE(Nomi_Caricati(), QStringList({QStringLiteral("frmMain"), QStringLiteral("frmMctcO")}));
    }

    void uscitaDuranteLaLettura_data()
    {
        QTest::addColumn<int>("caricati");
        QTest::newRow("mentre la cartella si elenca") << 1;
        QTest::newRow("mentre i file si leggono") << 2;
    }
    /// Nothing shows and nothing goes on polling after the way out was taken while the folder was read.
    void uscitaDuranteLaLettura()
    {
        QFETCH(int, caricati);
        banco->Stazione.Accettazione(FILE_ACC);
        Apri();
        QTimer attesa;
        connect(&attesa, &QTimer::timeout, form.get(), [&] {
            if (Nomi_Caricati().size() == caricati)
                Premi(*form, "cmdMnu_7");
        });
        attesa.start(0);
        Premi_Prova();
        QCOMPARE(Nomi_Caricati(), QStringList());
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    void senzaCartellaDatiMessaggioEFine()
    {
        const EsitoFiglio esito = Figlio_Esegui({QString::fromLatin1(SENZA_DATI)});
        QVERIFY2(esito.Finito, qPrintable(esito.Errori));
        QCOMPARE(esito.Stato, 0);
        QVERIFY2(esito.Uscita.contains(Testo_Lingua(Id_Lingua(4))), qPrintable(esito.Uscita));
    }

    // --- the other entries --------------------------------------------------------------------------------

    void vociSenzaAttesa_data()
    {
        QTest::addColumn<int>("voce");
        QTest::addColumn<QString>("finestra");
        QTest::newRow("impostazioni") << 1 << QStringLiteral("frmSetupO");
        QTest::newRow("anagrafica") << 5 << QStringLiteral("frmAnagOffO");
    }
    void vociSenzaAttesa()
    {
        QFETCH(int, voce);
        QFETCH(QString, finestra);
        Apri();
        QTest::mouseClick(Voce(voce), Qt::LeftButton);
        QCOMPARE(Nomi_Caricati(), QStringList({QStringLiteral("frmMain"), finestra}));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void ancoraAperta_data()
    {
        QTest::addColumn<int>("voce");
        QTest::addColumn<QByteArray>("casella");
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiave");
        // Of setup the folder of the acceptance files, which its Ok gives to the results too.
        QTest::newRow("impostazioni")
            << 1 << QByteArray("txt_19") << QStringLiteral("MCTC") << QStringLiteral("DirRisultati");
        QTest::newRow("anagrafica") << 5 << QByteArray("txt_0") << QStringLiteral("OFFICINA")
                                    << QStringLiteral("Denominazione");
    }
    /// A second press brings the open form to the front, with what stands typed in it, and its Ok saves that.
    void ancoraAperta()
    {
        QFETCH(int, voce);
        QFETCH(QByteArray, casella);
        QFETCH(QString, sezione);
        QFETCH(QString, chiave);
        const QString testo = banco->Stazione.Percorso(QStringLiteral("dati\\")); // a folder that is there
        Apri();
        QTest::mouseClick(Voce(voce), Qt::LeftButton);
        const auto aperta = Moduli_Caricati().back();
        QVERIFY(Attiva(*aperta));
        Scrivi(*aperta, casella.constData(), testo);
        QVERIFY(Davanti(*form));
        QTest::mouseClick(Voce(voce), Qt::LeftButton);
        QCOMPARE(Moduli_Caricati().size(), 2u);
        QVERIFY(Moduli_Caricati().back() == aperta);
        QVERIFY(Attiva(*aperta));
        QCOMPARE(Testo_Di(*aperta, casella.constData()), testo);
        Premi(*aperta, "cmd_0");
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
        QCOMPARE(Valore_Ini(gFileIni, sezione, chiave), testo);
        // A press after that opens it afresh.
        QTest::mouseClick(Voce(voce), Qt::LeftButton);
        QVERIFY(Moduli_Caricati().back() != aperta);
        QCOMPARE(Moduli_Caricati().size(), 2u);
    }

    /// The menu is painted when the box has gone, before anything else comes.
    void dopoLeInformazioniIlMenuSiRidipinge()
    {
        Apri();
        Dipinture dipinture(*form);
        Regia regia;
        regia.Quando("frmAbout", [&dipinture](Modulo &about) {
            dipinture.Al_Nascondersi(about);
            Premi(about, "cmd_0");
        });
        Voce(6)->click();
        QVERIFY(regia.Finita());
        QVERIFY(dipinture.Volte > 0); // how often is the window system's business
    }

    void informazioni()
    {
        Apri();
        Regia regia;
        regia.Quando("frmAbout", [](Modulo &about) {
            QCOMPARE(QApplication::activeModalWidget(), about.Finestra());
            Premi(about, "cmd_0");
        });
        Premi(*form, "cmdMnu_6");
        QVERIFY(regia.Finita());
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
    }

    /// Only the right password opens the periodic verification, and a wrong one says nothing.
    void verificaConPassword()
    {
        Apri();
        QVERIFY(!gPwdCorrente.isEmpty());
        Regia errata;
        errata.Quando("dlgPwd", [](Modulo &dialogo) {
            QCOMPARE(dialogo.Caption(), Testo_Mctc(Id_Mctc(20)));
            QVERIFY(Testo_Di(dialogo, "txtPwd").isEmpty());
            Scrivi_Password(dialogo, QStringLiteral("zz"));
        });
        Premi(*form, "cmdMnu_4");
        QVERIFY(errata.Finita());
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));

        bool verifica = false;
        Regia giusta;
        giusta.Quando("dlgPwd", [](Modulo &dialogo) { Scrivi_Password(dialogo, gPwdCorrente); })
            .Quando("frmVerPerO", [&verifica](Modulo &aperta) {
                verifica = QApplication::activeModalWidget() == aperta.Finestra();
                Premi(aperta, "cmd_1");
            });
        Premi(*form, "cmdMnu_4");
        QVERIFY(giusta.Finita());
        QVERIFY(verifica);

        // The right one does not stay for the next time.
        Regia nessuna;
        nessuna.Quando("dlgPwd", [](Modulo &dialogo) { Scrivi_Password(dialogo, QString()); });
        Premi(*form, "cmdMnu_4");
        QVERIFY(nessuna.Finita());
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMain")));
    }

    // --- what setup reports -------------------------------------------------------------------------------

    void linguaCambiataSubito()
    {
        Apri();
        Premi(*form, "cmdMnu_1");
        const QString prima = Voce(2)->text();
        gLingua = QStringLiteral("EN");
        qint16 codice = SetupLingua;
        QVariant valore = 0;
        Q_EMIT Modulo_Aperto<frmSetupO>("frmSetupO")->Notifica(codice, valore);
        QCOMPARE(gTabMctc.size(), ULTIMO_TESTO_MCTC + 1);
        QCOMPARE(Voce(1)->text(), QStringLiteral("Settings"));
        QCOMPARE(Voce(2)->text(), QStringLiteral("Headlamp test"));
        QVERIFY(Voce(2)->text() != prima);
        QVERIFY(!Voce(0)->isEnabled() && Voce(2)->isEnabled());
    }

    void modoCambiatoFiguraEMenu()
    {
        Apri();
        auto *logo = Widget_Di<QLabel>(*form, "imgLogo");
        logo->clear();
        Premi(*form, "cmdMnu_1");
        Voce(0)->setEnabled(true);
        Voce(3)->setEnabled(true);
        qint16 codice = SetupLavoro;
        QVariant valore = 0;
        Q_EMIT Modulo_Aperto<frmSetupO>("frmSetupO")->Notifica(codice, valore);
        QVERIFY(!logo->pixmap().isNull());
        QVERIFY(!Voce(0)->isEnabled() && !Voce(3)->isEnabled());
        QVERIFY(Linea_Corrente() ==
                nullptr); // the same code from the entry form starts a test; not from here
    }

    /// Code 1 lets the setup form go: the object ends with its window.
    void setupRilasciato()
    {
        Apri();
        Premi(*form, "cmdMnu_1");
        std::weak_ptr<frmSetupO> setup = Modulo_Aperto<frmSetupO>("frmSetupO");
        qint16 codice = SetupSalvato;
        QVariant valore = 0;
        Q_EMIT setup.lock()->Notifica(codice, valore);
        setup.lock()->Scarica();
        QVERIFY(setup.expired());
    }

    /// The same code lets it go when it comes from the entry form.
    void setupRilasciatoDalVeicolo()
    {
        gIniFile = Falso;
        Apri();
        Premi(*form, "cmdMnu_1");
        std::weak_ptr<frmSetupO> setup = Modulo_Aperto<frmSetupO>("frmSetupO");
        Premi_Prova();
        qint16 codice = SetupSalvato;
        QVariant valore = 0;
        Q_EMIT Modulo_Aperto<frmMctc2>("frmMctc2")->Notifica(codice, valore);
        setup.lock()->Scarica();
        QVERIFY(setup.expired());
    }

    // --- the end ------------------------------------------------------------------------------------------

    void uscitaScaricaTutto_data()
    {
        QTest::addColumn<bool>("pulsante");
        QTest::newRow("pulsante") << true;
        QTest::newRow("finestra") << false;
    }
    /// Every form goes with the main window, the one loaded last first, the main window last.
    void uscitaScaricaTutto()
    {
        QFETCH(bool, pulsante);
        Apri();
        banco->Stazione.Accettazione(FILE_ACC);
        Premi_Prova();
        Premi(*form, "cmdMnu_1");
        Premi(*form, "cmdMnu_5");
        QStringList chiuse;
        for (const auto &modulo : Moduli_Caricati()) {
            connect(modulo->Finestra(), &QObject::destroyed, this,
                    [&chiuse, nome = modulo->objectName()] { chiuse.append(nome); });
        }
        if (pulsante)
            Premi(*form, "cmdMnu_7");
        else
            form->Finestra()->close();
        QVERIFY(Nomi_Caricati().isEmpty());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTRY_COMPARE(chiuse, QStringList({QStringLiteral("frmAnagOffO"), QStringLiteral("frmSetupO"),
                                          QStringLiteral("frmMctcO"), QStringLiteral("frmMain")}));
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    void uscitaDiUnaFinestraSola()
    {
        Apri();
        Premi(*form, "cmdMnu_7");
        QVERIFY(Nomi_Caricati().isEmpty());
    }

    /// The result shows from inside the unloading of the link form, which is still loaded then. An assistive
    /// technology presses the exit of the menu behind the modal screen all the same.
    void uscitaMentreSiVedeIlRisultato()
    {
        const EsitoFiglio esito = Figlio_Esegui({QString::fromLatin1(USCITA_DAL_RISULTATO)});
        QVERIFY2(esito.Finito, qPrintable(esito.Errori));
        QCOMPARE(esito.Stato, 0);
        QCOMPARE(esito.Uscita.trimmed(), QStringLiteral("frmMain frmMctc2 frmComm frmEsito"));
    }
};

namespace {

/// The folder of the pictures goes while the entry form is open; the confirmation then ends the program.
int Prova_SenzaDati(int argc, char **argv)
{
    const Applicazione applicazione(argc, argv);
    const BancoForm banco;
    gIniFile = Falso;
    const auto form = Nuovo<frmMain>();
    form->Mostra();
    Premi(*form, "cmdMnu_2");
    gTabLingua.clear(); // the start of a test loads its texts before anything else
    QDir(banco.Stazione.Nativo(QStringLiteral("dati"))).removeRecursively();
    Regia regia;
    regia.Quando("frmMsg", [](Modulo &msg) {
        std::printf("%s\n", qPrintable(Testo_Di(msg, "lbl_0")));
        Orologio_Banco().Avanza(2000);
    });
    Premi(*Modulo_Aperto("frmMctc2"), "cmd_0");
    return 99; // it never comes back
}

/// A whole test by hand; the exit is pressed at the result. The event loop ends with the last form.
int Prova_UscitaDalRisultato(int argc, char **argv)
{
    const Applicazione applicazione(argc, argv);
    const BancoForm banco;
    Strumento_Pronto();
    gIniFile = Falso;
    const auto form = Nuovo<frmMain>();
    form->Mostra();
    Premi(*form, "cmdMnu_2");
    Regia regia;
    regia.Quando("frmComm", [](Modulo &) { Orologio_Banco().Avanza(SESSIONE); })
        .Quando("frmEsito", [&form](Modulo &) {
            std::printf("%s\n", qPrintable(Nomi_Caricati().join(u' ')));
            std::fflush(stdout);
            Membro_Di<QPushButton>(*form, "cmdMnu", 7)->click();
        });
    QTimer::singleShot(0, form->Finestra(), [] { Premi(*Modulo_Aperto("frmMctc2"), "cmd_0"); });
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], SENZA_DATI) == 0)
        return Prova_SenzaDati(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], USCITA_DAL_RISULTATO) == 0)
        return Prova_UscitaDalRisultato(argc, argv);
    return Principale_Prova<tst_frmMain>(argc, argv);
}
#include "tst_frmMain.moc"
