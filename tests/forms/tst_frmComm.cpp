// The window of a link session, on a line of the test's own: its start and end, what the operator sees of the
// exchange, and the boxes of a line in trouble.
#include "link/frmComm.h"

#include "core/codici.h"
#include "core/esito_sessione.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "dialogs/dlgPwd.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/difetti_prova.h"
#include "tests/forms/seriale_prova.h"
#include "toolkit/applicazione.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"

#include <QListWidget>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>

namespace {

constexpr qint64 TICK = 200;           // ms
constexpr qint64 PAUSA_FRA_BOX = 2000; // ms

const QByteArray MISURA = Risposta_Misura("0123O#", "0456OO", "0789XO", "9999##");
const QList<QByteArray> TESTI_STRUMENTO = {"QX5", "Marca", "OM1", "N1", "31/12/2027", "Rossi"};
const QList<QByteArray> TESTI_TARATURA = {"1000", "0", "1", "2", "3", "4", "5", "6", "7", "8"};

QMessageBox *Box_Aperto()
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

/// Stands before the screen while boxes hold the test: once for each box that comes it does what the test
/// gives it, and closes the box if that has left it standing.
class GuardiaBox
{
public:
    explicit GuardiaBox(std::function<void()> alBox = {}) : m_alBox(std::move(alBox))
    {
        QObject::connect(&m_sguardo, &QTimer::timeout, &m_sguardo, [this] { Guarda(); });
        m_sguardo.start(1);
    }
    QList<qint64> Quando; ///< ms of the clock at which each box came
    QStringList Testi;    ///< title and text of each
    int Insieme = 0;      ///< boxes seen, those behind another too

private:
    void Guarda()
    {
        const QPointer<QMessageBox> box = Box_Aperto();
        if (box == nullptr)
            return;
        Quando.append(Orologio_Banco().Passati());
        Testi.append(box->windowTitle() + u'|' + box->text());
        for (const QWidget *finestra : QApplication::topLevelWidgets()) {
            if (finestra->isVisible() && qobject_cast<const QMessageBox *>(finestra) != nullptr)
                ++Insieme;
        }
        if (m_alBox)
            m_alBox();
        if (box != nullptr)
            box->accept();
    }

    std::function<void()> m_alBox;
    QTimer m_sguardo;
};

/// A frame that does not end, with that many bytes for which there is no place.
QByteArray Frame_Troppo_Lungo(qsizetype oltre)
{
    return '\x02' + QByteArray(LUNGHEZZA_RX - 1 + oltre, 'x');
}

} // namespace

class tst_frmComm : public QObject
{
    Q_OBJECT

private:
    void Apri(ModoScambio modo = ModoMisura)
    {
        form = Nuovo<frmComm>();
        form->Modo = modo;
        notifiche = Ascolta(*form);
        connect(form.get(), &frmComm::Notifica, this, [this] {
            apertaAllaNotifica = Linea_Corrente()->PortOpen();
            caricatoAllaNotifica = form->Caricato();
        });
        form->Carica();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    static void Con_Copione(const QList<QByteArray> &risposte)
    {
        Linee_Prepara([risposte](LineaProva &linea) { linea.Copione(risposte); });
    }
    static void Passa(qint64 ms) { Orologio_Banco().Avanza(ms); }
    /// Time goes by on a line at a wrong speed, 9600 baud: about a byte of nonsense every ms.
    static void Passa_Con_Rumore(qint64 ms, QRandomGenerator &caso)
    {
        constexpr qint64 OGNI = 10;
        for (qint64 passati = 0; passati < ms; passati += OGNI) {
            QByteArray byte(OGNI, '\0');
            for (char &uno : byte)
                uno = static_cast<char>(caso.bounded(256));
            if (Linea_Corrente() != nullptr)
                Linea_Corrente()->Arriva(byte);
            Passa(OGNI);
        }
    }
    QString Scritta() const { return Testo_Di(*form, "lbl_0"); }
    QColor Lampada() const
    {
        QWidget *forma = Widget_Di(*form, "shaComm");
        return forma->grab().toImage().pixelColor(forma->rect().center());
    }
    /// The bar of the steps: the present one in brackets.
    QString Passi() const
    {
        QStringList passi;
        for (const char *nome : {"lblPasso_0", "lblPasso_1", "lblPasso_2"}) {
            const QString scritta = Testo_Di(*form, nome);
            const bool scuro = Sfondo_Di(Widget_Di(*form, nome)).lightness() < 128;
            passi.append(scuro ? u'[' + scritta + u']' : scritta);
        }
        return passi.join(u' ');
    }
    QStringList Righe_Dbg() const
    {
        const auto *lista = Widget_Di<QListWidget>(*form, "lstDbg");
        QStringList righe;
        for (int i = 0; i < lista->count(); ++i)
            righe.append(lista->item(i)->text());
        return righe;
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmComm> form;
    std::shared_ptr<Notifiche> notifiche;
    bool apertaAllaNotifica = false;
    bool caricatoAllaNotifica = false;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        Linee_Prepara({});
        gTabLingua.clear();
        gMisure.fill(MisuraFaro());
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
        QVERIFY(Box_Aperto() == nullptr);
    }

    // --- loading ------------------------------------------------------------------------------------------

    void finestraAlCentro_data()
    {
        QTest::addColumn<qint32>("larghezza");
        QTest::addColumn<qint32>("altezza");
        QTest::newRow("il presente") << Schermo_Larghezza() << Schermo_Altezza();
        QTest::newRow("altra scala") << 9000 << 12000;
    }
    /// The height goes through the x scale as the width does.
    void finestraAlCentro()
    {
        QFETCH(qint32, larghezza);
        QFETCH(qint32, altezza);
        gScreenW = larghezza;
        gScreenH = altezza;
        Apri();
        QCOMPARE(form->Width(), ScalaX(8000));
        QCOMPARE(form->Height(), ScalaX(4000));
        QCOMPARE(form->Left(), (Schermo_Larghezza() - form->Width()) / 2);
        QCOMPARE(form->Top(), (Schermo_Altezza() - form->Height()) / 2);
        const QRect etichetta = Widget_Di(*form, "lbl_0")->geometry();
        QCOMPARE(etichetta.topLeft(), QPoint(0, 0));
        QCOMPARE(etichetta.width(), Pixel_DaTwip(form->Width()));
    }

    void sessioneAllaPortaDelProfilo()
    {
        const QString comm = QStringLiteral("COMM");
        banco->Stazione.Imposta(comm, QStringLiteral("Num"), QStringLiteral("3"));
        banco->Stazione.Imposta(comm, QStringLiteral("Baud"), QStringLiteral("19200"));
        Apri();
        QCOMPARE(Linea_Corrente()->Registro.mid(0, 3),
                 QStringList({QStringLiteral("CommPort 3"), QStringLiteral("PortOpen 1"),
                              QStringLiteral("Settings 19200,N,8,1")}));
        QVERIFY(Linea_Corrente()->PortOpen());
        QCOMPARE(Linea_Corrente()->Frame(), QList<QByteArray>{QByteArray::fromHex("02414243103603")});
    }

    /// The texts of the report follow the language in force at each session.
    void testiNellaLinguaInVigore()
    {
        gLingua = QStringLiteral("EN");
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Apri();
        QCOMPARE(gTabLingua.size(), ULTIMO_TESTO_LINGUA + 1);
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Stop"));
        QCOMPARE(gTabLingua[48], QStringLiteral("Vertical aim"));
    }

    void primaScrittaPerModo_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("scritta");
        QTest::newRow("misura") << int{ModoMisura} << true;
        QTest::newRow("leggi") << int{ModoLeggi} << true;
        QTest::newRow("scrivi") << int{ModoScrivi} << true;
        QTest::newRow("default") << int{ModoDefault} << false;
    }
    /// A session of any mode refreshes the report tables and notes its beginning.
    void primaScrittaPerModo()
    {
        QFETCH(int, modo);
        QFETCH(bool, scritta);
        gRepMisure.fill(QStringLiteral("prima"));
        gRepOfficina.fill(QStringLiteral("prima"));
        const QDateTime adesso = Orologio_Banco().Adesso();
        Apri(static_cast<ModoScambio>(modo));
        QCOMPARE(Scritta(), scritta ? Testo_Mctc(Id_Mctc(152)) : QString());
        QVERIFY(Visibile(*form, "lbl_0"));
        QCOMPARE(gRepMisure[RepData], adesso.toString(QStringLiteral("dd-MM-yyyy")));
        QCOMPARE(gRepMisure[RepInizio], adesso.toString(QStringLiteral("hh:mm:ss")));
        QCOMPARE(gRepMisure[RepFine], QStringLiteral("-"));
        QCOMPARE(gRepOfficina[0], QStringLiteral("-"));
    }

    /// A port that does not open leaves the window standing: the operator ends the session.
    void portaCheNonSiApre()
    {
        Linee_Prepara([](LineaProva &linea) { linea.RifiutaApertura = true; });
        Apri();
        Passa(60000);
        QVERIFY(form->Caricato());
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(152)));
        QVERIFY(Visibile(*form, "lblPorta") && Visibile(*form, "lblRimedio"));
        QCOMPARE(Testo_Di(*form, "lblPorta"), QStringLiteral("COM1 non si è aperta"));
        QCOMPARE(Testo_Di(*form, "lblRimedio"), QStringLiteral("controllare cavo e porta"));
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM1: chiusa"));
        QVERIFY(!Visibile(*form, "lblPasso_0")); // nothing has gone out
        QVERIFY(Linea_Corrente()->Usciti.isEmpty());
        QVERIFY(Righe_Dbg().isEmpty());
        Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
        QCOMPARE(Sessione_Fine().Testo, QStringLiteral("COM1 non si è aperta: controllare cavo e porta"));
    }

    void portaApertaSenzaAvviso()
    {
        banco->Stazione.Imposta(QStringLiteral("COMM"), QStringLiteral("Num"), QStringLiteral("7"));
        Apri();
        QVERIFY(!Visibile(*form, "lblPorta"));
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM7: in attesa"));
    }

    void portaSenzaImpostazioniNelProfilo()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\n");
        Apri();
        QVERIFY(form->Caricato());
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(152)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Interrompi"));
    }

    /// The port is open and deaf: the session goes its way, and the notice says why nothing will come.
    void portaMalImpostata()
    {
        const QString avviso = QStringLiteral("COM1: velocità o formato errati in lumira.ini");
        Linee_Prepara([](LineaProva &linea) { linea.RifiutaImpostazioni = true; });
        gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Apri();
        QVERIFY(Visibile(*form, "lblPorta") && !Visibile(*form, "lblRimedio"));
        QCOMPARE(Testo_Di(*form, "lblPorta"), avviso);
        QVERIFY(!Visibile(*form, "lblTarga") && !Visibile(*form, "lblVeicolo"));
        QVERIFY(!Visibile(*form, "lblPasso_0"));
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM1: in attesa"));
        const QRect posto = Widget_Di(*form, "lblPorta")->geometry();
        QCOMPARE(Widget_Di(*form, "lblTx")->geometry().top(), Widget_Di(*form, "lblRx")->geometry().top());
        QVERIFY(posto.bottom() < Widget_Di(*form, "lblTx")->geometry().top());
        Passa(24200);
        QCOMPARE(Linea_Corrente()->Usciti.size(), 12);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(153)));
        QVERIFY(Visibile(*form, "lblPorta"));
        QCOMPARE(Widget_Di(*form, "lblPorta")->geometry(), posto); // what counts stays as large as it was
        Passa(4000);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
        QCOMPARE(Sessione_Fine().Testo, avviso);
    }

    // --- a session ----------------------------------------------------------------------------------------

    void misuraCompleta()
    {
        Con_Copione({Risposta_Stato('1'), Risposta_Stato('2'), Risposta_Stato('4'), MISURA});
        Apri();
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(152)));
        Passa(TICK);
        QCOMPARE(Scritta(), QStringLiteral("Attesa dati..."));
        Passa(2 * TICK);
        QCOMPARE(Scritta(), QStringLiteral("Attesa dati..."));
        Passa(TICK);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(156)));
        QCOMPARE(gMisure[0].Lux, 123);
        QCOMPARE(gMisure[2].EsitoV, QStringLiteral("X"));
        QCOMPARE(gMisure[3].Lux, 9999);
        const QStringList attese = {
            QStringLiteral("L0=123"),  QStringLiteral("V0=O"), QStringLiteral("O0=#"),
            QStringLiteral("L1=456"),  QStringLiteral("V1=O"), QStringLiteral("O1=O"),
            QStringLiteral("L2=789"),  QStringLiteral("V2=X"), QStringLiteral("O2=O"),
            QStringLiteral("L3=9999"), QStringLiteral("V3=#"), QStringLiteral("O3=#"),
        };
        QCOMPARE(Righe_Dbg(), attese);
        Passa(1999);
        QVERIFY(form->Caricato() && notifiche->isEmpty());
        Passa(1);
        QVERIFY(!form->Caricato());
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneCompletata, 0}
        }));
        QVERIFY(!apertaAllaNotifica); // the port is closed first
        QVERIFY(caricatoAllaNotifica);
    }

    void esitoPerModo_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<QList<QByteArray>>("risposte");
        QTest::addColumn<qint16>("scritta");
        QTest::addColumn<int>("codice");
        QTest::newRow("leggi") << int{ModoLeggi}
                               << QList<QByteArray>{Risposta_Stato('1'), Risposta_Dati(TESTI_STRUMENTO),
                                                    Frame_Risposta("ABC1000\x17"
                                                                   "0\x17")}
                               << qint16{156} << 6;
        QTest::newRow("scrivi") << int{ModoScrivi}
                                << QList<QByteArray>{Risposta_Stato('1'), Risposta_Scritto(),
                                                     Risposta_Scritto()}
                                << qint16{156} << 6;
        QTest::newRow("default") << int{ModoDefault}
                                 << QList<QByteArray>(3, Risposta_Stato('9')) // any valid frame will do
                                 << qint16{156} << 6;
        QTest::newRow("leggi, strumento occupato")
            << int{ModoLeggi} << QList<QByteArray>{Risposta_Stato('4')} << qint16{154} << 7;
        QTest::newRow("leggi, altri dati")
            << int{ModoLeggi} << QList<QByteArray>{Risposta_Stato('1'), Risposta_Stato('1')} << qint16{155}
            << 7;
        QTest::newRow("scrivi, rifiutato")
            << int{ModoScrivi} << QList<QByteArray>{Risposta_Stato('1'), Risposta_Scritto('x')} << qint16{154}
            << 7;
    }
    void esitoPerModo()
    {
        QFETCH(int, modo);
        QFETCH(QList<QByteArray>, risposte);
        QFETCH(qint16, scritta);
        QFETCH(int, codice);
        gDatiStrumento = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D"),
                          QStringLiteral("E")};
        Con_Copione(risposte);
        Apri(static_cast<ModoScambio>(modo));
        Passa(TICK * risposte.size());
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(scritta)));
        Passa(2000);
        QCOMPARE(*notifiche, (Notifiche{
                                 {codice, 0}
        }));
    }

    void testiLettiNellElenco()
    {
        Con_Copione({Risposta_Stato('1'), Risposta_Dati(TESTI_STRUMENTO), Risposta_Taratura(TESTI_TARATURA)});
        Apri(ModoLeggi);
        Passa(2 * TICK);
        QCOMPARE(Righe_Dbg().join(u' '), QStringLiteral("QX5 Marca OM1 N1 31/12/2027 Rossi"));
        QCOMPARE(gDatiStrumento[5], QStringLiteral("Rossi"));
    }

    void defaultSenzaScrittaFinoAllaPrimaRisposta()
    {
        Linee_Prepara([](LineaProva &linea) {
            linea.Copione({Risposta_Scritto()});
            linea.Ritardo = 900;
        });
        Apri(ModoDefault);
        Passa(900);
        QVERIFY(Scritta().isEmpty());
        Passa(TICK);
        QCOMPARE(Scritta(), QStringLiteral("Attesa dati..."));
    }

    void strumentoMuto()
    {
        Apri();
        Passa(24199);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(152)));
        Passa(1);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(153)));
        QCOMPARE(Linea_Corrente()->Usciti.size(), 12);
        Passa(3999);
        QVERIFY(form->Caricato());
        Passa(1);
        QVERIFY(!form->Caricato());
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
    }

    /// The resends of the session before are not counted on: a new form starts afresh.
    void secondaSessioneDaCapo()
    {
        Apri();
        Passa(23000);
        Linea_Corrente()->Arriva("\x02"
                                 "AB");
        Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
        Con_Copione({Risposta_Stato('4')});
        Apri();
        Passa(TICK);
        QCOMPARE(Testo_Di(*form, "lblRx"),
                 QString::fromLatin1(Risposta_Stato('4').toHex().toUpper())); // no half frame before it
        Passa(24199);
        QCOMPARE(Scritta(), QStringLiteral("Attesa dati..."));
        Passa(1);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(153)));
    }

    void conDebugRestaAperta()
    {
        gDebug = Vero;
        Con_Copione({Risposta_Stato('4'), MISURA});
        Apri();
        Passa(60000);
        QVERIFY(form->Caricato());
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(156)));
        QCOMPARE(Righe_Dbg().size(), 12);
        QCOMPARE(Testo_Di(*form, "lblRx"), QString::fromLatin1(MISURA.toHex().toUpper()));
        QVERIFY(notifiche->isEmpty());
        Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneCompletata, 0}
        }));
    }

    // --- what the operator sees ---------------------------------------------------------------------------

    /// Over another form the button keeps its type too: a window gets its place among the others when it
    /// shows.
    void pulsanteGrandeSopraUnAltroForm()
    {
        const auto sotto = Nuovo<ModuloProva>();
        sotto->Mostra();
        QVERIFY(Attiva(*sotto));
        Apri();
        QTRY_VERIFY(Widget_Di(*form, "cmd_0")->hasFocus());
        QCOMPARE(Widget_Di(*form, "cmd_0")->font().pixelSize(),
                 qRound(Pixel_DaPunti(Punti_Normali() * LETTURA_SCHERMO)));
        sotto->Scarica();
    }

    /// The words are read from the car: the plate too. Neither is shrunk on this screen.
    void veicoloDellaMisura()
    {
        gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Apri();
        QVERIFY(Visibile(*form, "lblTarga") && Visibile(*form, "lblVeicolo"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
        for (const char *daLontano : {"lbl_0", "lblTarga"})
            QCOMPARE(Widget_Di(*form, daLontano)->font().pixelSize(),
                     qRound(Pixel_DaPunti(Punti_Normali() * LETTURA_AUTO)));
        QVERIFY(Testo_Di(*form, "lblVeicolo").startsWith(QStringLiteral("FABBRICA")));
        QCOMPARE(Widget_Di(*form, "lblVeicolo")->accessibleName(),
                 QStringLiteral("FABBRICA DI PROVA BERLINA 1.6"));
    }

    void nessunVeicolo_data()
    {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("file");
        QTest::newRow("prova a mano") << int{ModoMisura} << false;
        QTest::newRow("lettura, dopo una prova") << int{ModoLeggi} << true;
        QTest::newRow("default, dopo una prova") << int{ModoDefault} << true;
    }
    void nessunVeicolo()
    {
        QFETCH(int, modo);
        QFETCH(bool, file);
        gFileAcc = file ? banco->Stazione.Accettazione(QStringLiteral("12345678.acc")) : QString();
        Apri(static_cast<ModoScambio>(modo));
        QVERIFY(!Visibile(*form, "lblTarga") && !Visibile(*form, "lblVeicolo"));
    }

    void veicoloCedeIlPosto_data()
    {
        QTest::addColumn<QString>("a");
        for (const char *a : {"debug", "porta", "elenco"})
            QTest::newRow(a) << QString::fromLatin1(a);
    }
    /// To the column of the traffic, and to the notice about the port.
    void veicoloCedeIlPosto()
    {
        QFETCH(QString, a);
        gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        gDebug = a == u"debug" ? Vero : Falso;
        Linee_Prepara([a](LineaProva &linea) {
            linea.RifiutaApertura = a == u"porta";
            linea.Copione({Risposta_Stato('4'), MISURA});
        });
        Apri();
        QCOMPARE(Visibile(*form, "lblTarga"), a == u"elenco"); // its first line has not come yet
        QCOMPARE(Visibile(*form, "lblVeicolo"), a == u"elenco");
        Passa(2 * TICK);
        QCOMPARE(Visibile(*form, "lstDbg"), a != u"porta");
        QVERIFY(!Visibile(*form, "lblTarga") && !Visibile(*form, "lblVeicolo"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
    }

    void passiDellaMisura()
    {
        Linee_Prepara([](LineaProva &linea) {
            linea.Copione({Risposta_Stato('1'), Risposta_Stato('4'), MISURA});
            linea.Ritardo = 500;
        });
        Apri();
        QCOMPARE(Passi(), QStringLiteral("[Misura] Dati Fatto"));
        Passa(3 * TICK); // "1": the same step again
        QCOMPARE(Passi(), QStringLiteral("[Misura] Dati Fatto"));
        Passa(3 * TICK);
        QCOMPARE(Passi(), QStringLiteral("√ Misura [Dati] Fatto"));
        Passa(3 * TICK);
        QCOMPARE(Passi(), QStringLiteral("√ Misura √ Dati √ Fatto"));
    }

    void passiDiUnaSessioneFallita_data()
    {
        QTest::addColumn<bool>("file");
        QTest::newRow("prova a mano") << false;
        QTest::newRow("veicolo") << true;
    }
    /// A session that has failed has no step to go on with: the words take their place. What came in stays to
    /// be read, and the plate.
    void passiDiUnaSessioneFallita()
    {
        QFETCH(bool, file);
        if (file)
            gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Con_Copione({Frame_Risposta("ABCx")});
        Apri();
        QVERIFY(Visibile(*form, "lblPasso_0"));
        const int prima = Widget_Di(*form, "lbl_0")->height();
        Passa(TICK);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(154)));
        QVERIFY(!Visibile(*form, "lblPasso_0"));
        QVERIFY(Widget_Di(*form, "lbl_0")->height() > prima);
        QCOMPARE(Widget_Di(*form, "lbl_0")->width(), Pixel_DaTwip(form->Width()));
        for (const char *nome : {"lblNomeTx", "lblTx", "lblNomeRx", "lblRx"}) {
            QWidget *traffico = Widget_Di(*form, nome);
            QVERIFY2(Visibile(*form, nome) && !Scritta_Tagliata(traffico), nome);
            for (const char *altro : {"lbl_0", "lblTarga", "shaComm"}) {
                const QWidget *vicino = Widget_Di(*form, altro);
                QVERIFY2(vicino->isHidden() || !vicino->geometry().intersects(traffico->geometry()), nome);
            }
        }
        QCOMPARE(Testo_Di(*form, "lblRx"), QString::fromLatin1(Frame_Risposta("ABCx").toHex().toUpper()));
        QCOMPARE(Visibile(*form, "lblTarga"), file);
        QVERIFY(!Visibile(*form, "lblVeicolo"));
    }

    /// The writing of the defaults asks for no status.
    void passiDeiDefault()
    {
        Linee_Prepara([](LineaProva &linea) {
            linea.Copione({Risposta_Scritto(), Risposta_Scritto(), Risposta_Scritto()});
        });
        Apri(ModoDefault);
        QVERIFY(!Visibile(*form, "lblPasso_0"));
        QVERIFY(Visibile(*form, "lblPasso_1"));
        // The two that are left share the line, as far from one side as from the other.
        const QRect dati = Widget_Di(*form, "lblPasso_1")->geometry();
        const QRect fatto = Widget_Di(*form, "lblPasso_2")->geometry();
        QCOMPARE(fatto.left(), dati.right() + 1);
        QVERIFY(qAbs(fatto.width() - dati.width()) <= 1);
        QVERIFY(qAbs(dati.left() - (Pixel_DaTwip(form->Width()) - 1 - fatto.right())) <= 1);
        Passa(3 * TICK);
        QCOMPARE(Testo_Di(*form, "lblPasso_2"), QStringLiteral("√ Fatto"));
    }

    /// A late reply brings a session back that had been given up: the steps come back with it.
    void passiDopoUnaRispostaTardiva()
    {
        Apri();
        Passa(24200);
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(153)));
        QVERIFY(!Visibile(*form, "lblPasso_0"));
        Linea_Corrente()->Arriva(Risposta_Stato('4'));
        Passa(4000);
        QCOMPARE(Scritta(), QStringLiteral("Attesa dati..."));
        QVERIFY(Visibile(*form, "lblPasso_0"));
        QCOMPARE(Passi(), QStringLiteral("√ Misura [Dati] Fatto"));
    }

    void tempiDellaSessione()
    {
        Linee_Prepara([](LineaProva &linea) {
            linea.Copione({Risposta_Stato('1')});
            linea.Ritardo = 1700;
        });
        Apri();
        const auto tempi = [this] {
            return Testo_Di(*form, "lblDurata") + u'|' + Testo_Di(*form, "lblRisposta");
        };
        QCOMPARE(tempi(), QStringLiteral("0:00|Nessuna risposta"));
        Passa(1000);
        QCOMPARE(tempi(), QStringLiteral("0:01|Nessuna risposta"));
        Passa(800);
        QCOMPARE(tempi(), QStringLiteral("0:01|Risposta 0 s fa"));
        Passa(5200);
        QCOMPARE(tempi(), QStringLiteral("0:07|Risposta 5 s fa"));
        Passa(13000);
        QCOMPARE(tempi(), QStringLiteral("0:20|Risposta 18 s fa"));
        Premi(*form, "cmd_0");
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    void parolaDellaLampada()
    {
        gDebug = Vero;
        Apri();
        const auto parola = [this] { return Testo_Di(*form, "lblLampada"); };
        for (int i = 0; i < 4; ++i) { // whatever the blinking shows
            QCOMPARE(parola(), QStringLiteral("COM1: in attesa"));
            Passa(TICK);
        }
        Linea_Corrente()->Arriva(Frame_Risposta("ABCx"));
        Passa(TICK);
        QCOMPARE(parola(), QStringLiteral("COM1: fermo")); // nothing goes out any more
    }

    /// The word follows the session, whose next command has gone out, in the beat that takes the reply.
    void parolaDopoUnaRispostaTardiva()
    {
        Apri();
        Passa(24200);
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM1: fermo"));
        Linea_Corrente()->Arriva(Risposta_Stato('4'));
        Passa(4000);
        QCOMPARE(Linea_Corrente()->Usciti.size(), 13);
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM1: in attesa"));
    }

    void elencoSoloSeServe()
    {
        Con_Copione({Risposta_Stato('4'), MISURA});
        Apri();
        QVERIFY(!Visibile(*form, "lstDbg"));
        Passa(TICK);
        QVERIFY(!Visibile(*form, "lstDbg"));
        Passa(TICK);
        QVERIFY(Visibile(*form, "lstDbg"));
        QCOMPARE(QApplication::focusWidget(), Widget_Di(*form, "cmd_0"));
    }

    void elencoConDebug()
    {
        gDebug = Vero;
        Apri();
        QVERIFY(Visibile(*form, "lstDbg"));
        QVERIFY(Righe_Dbg().isEmpty());
    }

    void trafficoConIlSuoNome()
    {
        Apri();
        QCOMPARE(Testo_Di(*form, "lblNomeTx"), QStringLiteral("TX"));
        QCOMPARE(Testo_Di(*form, "lblNomeRx"), QStringLiteral("RX"));
        for (const char *coppia : {"Tx", "Rx"}) {
            const QByteArray suffisso(coppia);
            const QRect nome = Widget_Di(*form, ("lblNome" + suffisso).constData())->geometry();
            const QRect byte = Widget_Di(*form, ("lbl" + suffisso).constData())->geometry();
            QCOMPARE(nome.top(), byte.top());
            QVERIFY(nome.right() < byte.left());
        }
    }

    /// A workshop keeps its text file over an upgrade: what has come since is empty, and the session goes on.
    void fileDeiTestiDiUnaVolta()
    {
        const QString nome = QStringLiteral("lingueMCTC.ini");
        QByteArray vecchio;
        for (const QByteArray &riga : banco->Stazione.Leggi(nome).split('\n')) {
            if (riga.left(3).toInt() <= 160)
                vecchio += riga + '\n';
        }
        banco->Stazione.Scrivi(nome, vecchio);
        Con_Copione({Risposta_Stato('4'), MISURA});
        Apri();
        QCOMPARE(Testo_Di(*form, "lblLampada"), QStringLiteral("COM1"));
        QCOMPARE(Scritta(), Testo_Mctc(Id_Mctc(152)));
        Passa(2 * TICK + 2000);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneCompletata, 0}
        }));
        Linee_Prepara([](LineaProva &linea) { linea.RifiutaApertura = true; });
        Apri();
        QCOMPARE(Testo_Di(*form, "lblPorta"), QStringLiteral("COM1"));
        Premi(*form, "cmd_0");
        QCOMPARE(Sessione_Fine().Testo, QStringLiteral("COM1"));
    }

    void lampadaDelCollegamento()
    {
        const QColor bianco(255, 255, 255), rosso(255, 0, 0), verde(0, 255, 0);
        Apri();
        QCOMPARE(Lampada(), bianco); // a frame goes out
        Passa(TICK);
        QCOMPARE(Lampada(), bianco);
        Passa(TICK);
        QCOMPARE(Lampada(), rosso);
        Passa(TICK);
        QCOMPARE(Lampada(), bianco);
        Passa(TICK);
        QCOMPARE(Lampada(), rosso);
        Linea_Corrente()->Arriva(Frame_Risposta("ABCx"));
        Passa(TICK);
        QCOMPARE(Lampada(), verde); // and a complete reply has come in
    }

    void trafficoInEsadecimale()
    {
        Apri();
        QCOMPARE(Testo_Di(*form, "lblTx"), QStringLiteral("02414243103603"));
        QVERIFY(Testo_Di(*form, "lblRx").isEmpty());
        Linea_Corrente()->Arriva("rumore\x02"); // noise, and a start byte that shows nothing yet
        QVERIFY(Testo_Di(*form, "lblRx").isEmpty());
        Linea_Corrente()->Arriva("A\xFF");
        QCOMPARE(Testo_Di(*form, "lblRx"), QStringLiteral("0241FF"));
        Linea_Corrente()->Arriva("\x03");
        QCOMPARE(Testo_Di(*form, "lblRx"), QStringLiteral("0241FF03"));
        Linea_Corrente()->Arriva("\x02"); // it stays until the next one begins to come in
        QCOMPARE(Testo_Di(*form, "lblRx"), QStringLiteral("0241FF03"));
        Linea_Corrente()->Arriva("B");
        QCOMPARE(Testo_Di(*form, "lblRx"), QStringLiteral("0242"));
    }

    void carattereFisso()
    {
        Apri();
        for (const char *nome : {"lblTx", "lblRx", "lstDbg"})
            QCOMPARE(Widget_Di(*form, nome)->font().family(), QStringLiteral("Courier New"));
    }

    // --- the end by the operator --------------------------------------------------------------------------

    void interruzione_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"pulsante", "escape", "invio", "finestra"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    /// The port is closed in the same event, and a frame that is still on its way is lost with it.
    void interruzione()
    {
        QFETCH(QString, modo);
        Linee_Prepara([](LineaProva &linea) {
            linea.Rispondi = [](const QByteArray &) { return Risposta_Stato('4'); };
            linea.Ritardo = 1000;
        });
        Apri();
        Passa(500);
        if (modo == u"pulsante")
            Premi(*form, "cmd_0");
        else if (modo == u"escape")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else if (modo == u"invio")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        else
            form->Finestra()->close();
        QVERIFY(!form->Caricato());
        QVERIFY(!Linea_Corrente()->PortOpen());
        QVERIFY(!apertaAllaNotifica);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
        Passa(10000);
        QCOMPARE(Linea_Corrente()->Usciti.size(), 1);
        QCOMPARE(notifiche->size(), 1);
    }

    void mezzoSecondoPerITasti_data()
    {
        QTest::addColumn<int>("tasto");
        for (const int tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            QTest::addRow("%x", tasto) << tasto;
    }
    /// A second Enter on the button that starts the session falls here.
    void mezzoSecondoPerITasti()
    {
        QFETCH(int, tasto);
        Apri();
        const auto batti = [tasto] {
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(tasto));
        };
        batti();
        Passa(499);
        batti();
        QVERIFY(form->Caricato());
        QVERIFY(Linea_Corrente()->PortOpen());
        Passa(1);
        batti();
        QVERIFY(!form->Caricato());
        QCOMPARE(notifiche->size(), 1);
    }

    void mouseEdEscapeSubito_data()
    {
        QTest::addColumn<bool>("mouse");
        QTest::newRow("mouse") << true;
        QTest::newRow("escape") << false;
    }
    void mouseEdEscapeSubito()
    {
        QFETCH(bool, mouse);
        Apri();
        if (mouse)
            Premi(*form, "cmd_0");
        else
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!form->Caricato());
    }

    /// Broken off between the two frames of a write the session counts as done.
    void interruzioneDopoLaPrimaScrittura()
    {
        gDatiStrumento = {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D"),
                          QStringLiteral("E")};
        Con_Copione({Risposta_Stato('1'), Risposta_Scritto()});
        Apri(ModoScrivi);
        Passa(2 * TICK);
        Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneCompletata, 0}
        }));
    }

    // --- modal --------------------------------------------------------------------------------------------

    /// The parent goes on when the session has ended and its notification has been dealt with, forms and all.
    void modaleFinoAllaFine()
    {
        Con_Copione({Risposta_Stato('4'), MISURA});
        form = Nuovo<frmComm>();
        QStringList ordine;
        connect(form.get(), &frmComm::Notifica, this, [&] {
            ordine.append(QStringLiteral("notifica"));
            const auto altra = Nuovo<ModuloProva>();
            altra->Mostra(Modulo::Modale);
            ordine.append(QStringLiteral("altra chiusa"));
        });
        Regia regia;
        regia.Quando("frmComm", [](Modulo &) { Passa(2 * TICK + 2000); })
            .Quando("frmProva", [](Modulo &altra) { altra.Scarica(); });
        form->Carica();
        form->Mostra(Modulo::Modale);
        ordine.append(QStringLiteral("dopo"));
        QVERIFY(regia.Finita());
        QCOMPARE(ordine, QStringList({QStringLiteral("notifica"), QStringLiteral("altra chiusa"),
                                      QStringLiteral("dopo")}));
        QVERIFY(Nomi_Caricati().isEmpty());
    }

    // --- a line in trouble --------------------------------------------------------------------------------

    void boxDellaLinea()
    {
        Apri();
        QString titolo, testo;
        Regia regia;
        regia.Quando([] { return Box_Aperto() != nullptr; },
                     [&] {
                         titolo = Box_Aperto()->windowTitle();
                         testo = Box_Aperto()->text();
                         // Time goes on behind the box: the session sends again.
                         const auto prima = Linea_Corrente()->Usciti.size();
                         Passa(3000);
                         QVERIFY(Linea_Corrente()->Usciti.size() > prima);
                         Box_Aperto()->accept();
                     });
        Linea_Corrente()->Evento(EventoRicezione); // an event without a byte behind it
        QTRY_VERIFY(regia.Finita() && Box_Aperto() == nullptr);
        QCOMPARE(titolo, QStringLiteral("Err Rs232"));
        QCOMPARE(testo, QStringLiteral("Rec sts: 13\r\nSubscript out of range"));
        QVERIFY(form->Caricato());
    }

    /// A frame that outgrows the buffer: one box for every byte too many, one after the other, and the batch
    /// is taken whole first. Between two boxes the form stands free for a while.
    void piuBoxUnoAllaVolta()
    {
        Apri();
        GuardiaBox guardia;
        Linea_Corrente()->Arriva(Frame_Troppo_Lungo(3));
        QVERIFY(guardia.Quando.isEmpty()); // shown from the loop, not from the receive event
        const qint64 inizio = Orologio_Banco().Passati();
        for (int passo = 0; passo < 80; ++passo) {
            QCoreApplication::processEvents();
            Passa(100);
        }
        QCOMPARE(guardia.Testi,
                 QStringList(3, QStringLiteral("Err Rs232|Auto sts: 1\r\nSubscript out of range")));
        QCOMPARE(guardia.Quando, (QList<qint64>{inizio, inizio + PAUSA_FRA_BOX, inizio + 2 * PAUSA_FRA_BOX}));
        QCOMPARE(guardia.Insieme, 3);
    }

    /// A line that never falls silent does not fill the memory: what comes beyond the boxes that wait is
    /// dropped.
    void alPiuTantiBoxQuantiByteInIngresso()
    {
        gDebug = Vero; // the form stays, whatever the exchange comes to
        Apri();
        GuardiaBox guardia;
        Linea_Corrente()->Arriva(Frame_Troppo_Lungo(4096));
        for (int passo = 0; passo < 1100; ++passo) {
            QCoreApplication::processEvents();
            Passa(PAUSA_FRA_BOX);
        }
        QCOMPARE(guardia.Testi.size(), 1024);
    }

    void viaDiUscitaDopoUnBox_data()
    {
        QTest::addColumn<bool>("escape");
        QTest::newRow("pulsante") << false;
        QTest::newRow("escape") << true;
    }
    /// However bad the line, one box has to be closed and no more to get out of the session.
    void viaDiUscitaDopoUnBox()
    {
        QFETCH(bool, escape);
        QRandomGenerator caso(20240315);
        gDebug = Vero;
        Apri();
        GuardiaBox guardia([&caso] { Passa_Con_Rumore(60000, caso); });
        Linea_Corrente()->Arriva(Frame_Troppo_Lungo(1));
        QCoreApplication::processEvents();
        QCOMPARE(guardia.Testi.size(), 1);

        Passa_Con_Rumore(PAUSA_FRA_BOX - 100, caso);
        QCoreApplication::processEvents();
        QCOMPARE(guardia.Testi.size(), 1);
        QVERIFY(Attiva(*form)); // the keyboard is the form's again
        if (escape)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            Premi(*form, "cmd_0");
        QVERIFY(!form->Caricato());
        QCOMPARE(Orologio_Banco().Armate(), 0);
        Passa_Con_Rumore(60000, caso);
        QCoreApplication::processEvents();
        QCOMPARE(guardia.Testi.size(), 1);
    }

    /// A session that ends by itself takes its box along, and those that wait: nothing of it stands over what
    /// its parent opens.
    void boxFinisconoConLaSessione()
    {
        QRandomGenerator caso(1);
        form = Nuovo<frmComm>();
        notifiche = Ascolta(*form);
        int box = 0;
        bool liberaAllaNotifica = false;
        connect(form.get(), &frmComm::Notifica, this, [&] { liberaAllaNotifica = Box_Aperto() == nullptr; });
        GuardiaBox guardia([&] {
            ++box;
            Passa_Con_Rumore(60000, caso);
            QVERIFY(Box_Aperto() == nullptr);
        });
        form->Carica();
        Linea_Corrente()->Arriva(Frame_Troppo_Lungo(50));
        form->Mostra(Modulo::Modale);
        QVERIFY(!form->Caricato());
        QVERIFY(liberaAllaNotifica);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SessioneFallita, 0}
        }));
        QCOMPARE(Orologio_Banco().Armate(), 0);
        Passa(60000);
        QCoreApplication::processEvents();
        QCOMPARE(box, 1);
    }

    // --- the prepared entries
    // -------------------------------------------------------------------------------

    void secondaViaAiDefault()
    {
        Apri(ModoDefault);
        const auto prima = Linea_Corrente()->Usciti.size();
        QVERIFY(!form->Imposta_Default().isValid());
        QCOMPARE(Linea_Corrente()->Usciti.size(), prima + 1);
        QCOMPARE(Linea_Corrente()->Usciti.last().Byte, Linea_Corrente()->Usciti.first().Byte);
    }

    void passwordRichiesta_data()
    {
        QTest::addColumn<QString>("scritta");
        QTest::addColumn<int>("esito");
        QTest::newRow("giusta") << QStringLiteral("abc") << int{PwdGiusta};
        QTest::newRow("errata") << QStringLiteral("abd") << int{PwdErrata};
        QTest::newRow("nessuna") << QString() << int{PwdNonInserita};
    }
    void passwordRichiesta()
    {
        QFETCH(QString, scritta);
        QFETCH(int, esito);
        form = Nuovo<frmComm>();
        form->PwdEsito = 9;
        Regia regia;
        regia.Quando("dlgPwd", [scritta](Modulo &dialogo) {
            QCOMPARE(dialogo.Caption(), Testo_Mctc(Id_Mctc(20)));
            QVERIFY(Testo_Di(dialogo, "txtPwd").isEmpty());
            QTest::keyClicks(Widget_Di<QLineEdit>(dialogo, "txtPwd"), scritta);
            Passa(4000);
        });
        form->Chiedi_Pwd(QStringLiteral("abc"));
        QVERIFY(regia.Finita());
        QCOMPARE(int{form->PwdEsito}, esito);
    }
};

int main(int argc, char **argv)
{
    Applicazione applicazione(argc, argv); // no watch over boxes: those of the line are the test's business
    tst_frmComm prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_frmComm.moc"
