// The setup form, with the instrument at the other end of the line: what is locked and what unlocks it, what
// takes effect at once and what only with the save, and every byte that reaches the configuration.
#include "setup/frmSetupO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "link/protocollo.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/ini_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/strumento_prova.h"
#include "tests/forms/tastiera_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QTest>

namespace {

constexpr int RIGHE = 32;
constexpr int OPERATORE = 5, LINGUA = 6, MODALITA = 19, RISULTATI = 20, DATI = 21, INI_FILE = 22,
              SBLOCCO = 28, CAM_RESET = 29, STRUMENTO = 30, PORTA = 31;
constexpr int PRIMO_LIMITE = 7, PRIMO_LUX = 11, ULTIMO_LUX = 14, ULTIMO_LIMITE = 18;

enum Lucchetto
{
    Sempre,
    Mai,
    SenzaRete, // locked while the link to the network software is off
};

struct RigaAttesa
{
    const char *controllo;
    const char *sezione, *chiave;
    qint16 etichetta; // -1: none
    Lucchetto lucchetto;
};

constexpr RigaAttesa ATTESE[RIGHE] = {
    {"txt_0",  "LUMIRA",       "Comm_Modello",       14,  Sempre   },
    {"txt_1",  "LUMIRA",       "Comm_Marca",         15,  Sempre   },
    {"txt_2",  "LUMIRA",       "Comm_NOmologazione", 16,  Sempre   },
    {"txt_3",  "LUMIRA",       "Comm_NSerie",        17,  Sempre   },
    {"txt_4",  "LUMIRA",       "Comm_ScadRevisione", 18,  Sempre   },
    {"txt_5",  "VEICOLO",      "Operatore",          142, Mai      },
    {"cbo_0",  "IMPOSTAZIONI", "Lingua",             33,  Mai      },
    {"txt_6",  "PARAMETRI",    "DevOrizAnab",        25,  Sempre   },
    {"txt_7",  "PARAMETRI",    "DevOrizAbb",         -1,  Sempre   },
    {"txt_8",  "PARAMETRI",    "DevVertAnab",        26,  Sempre   },
    {"txt_9",  "PARAMETRI",    "DevVertAbb",         -1,  Sempre   },
    {"txt_10", "PARAMETRI",    "LuxMaxAnab",         27,  Sempre   },
    {"txt_11", "PARAMETRI",    "LuxMaxAbb",          -1,  Sempre   },
    {"txt_12", "PARAMETRI",    "LuxMinAnab",         28,  Sempre   },
    {"txt_13", "PARAMETRI",    "LuxMinAbb",          -1,  Sempre   },
    {"txt_14", "PARAMETRI",    "IncVertMin80An",     29,  Sempre   },
    {"txt_15", "PARAMETRI",    "IncVertMin80Ab",     -1,  Sempre   },
    {"txt_16", "PARAMETRI",    "IncVertMax80An",     30,  Sempre   },
    {"txt_17", "PARAMETRI",    "IncVertMax80Ab",     -1,  Sempre   },
    {"cbo_1",  "MCTC",         "Modalita",           22,  SenzaRete},
    {"txt_18", "MCTC",         "DirRisultati",       23,  SenzaRete},
    {"txt_19", "MCTC",         "DirDati",            24,  SenzaRete},
    {"chk_0",  "MCTC",         "IniFile",            88,  Mai      },
    {"chk_1",  "MCTC",         "Esce",               89,  Mai      },
    {"chk_2",  "MCTC",         "ControlloVisivo",    90,  Mai      },
    {"chk_3",  "MCTC",         "AllarmeAcustico",    103, Mai      },
    {"chk_4",  "MCTC",         "Alimentazione",      104, Mai      },
    {"chk_5",  "MCTC",         "AltezzaFaroAuto",    105, Mai      },
    {"chk_6",  "",             "",                   93,  Mai      },
    {"chk_7",  "IMPOSTAZIONI", "CamReset",           138, Mai      },
    {"cbo_2",  "IMPOSTAZIONI", "ModSeriale",         147, Mai      },
    {"cbo_3",  "COMM",         "Num",                157, Mai      },
};

const QString FILE_INI = QStringLiteral("lumira.ini");
const QString MCTC = QStringLiteral("MCTC");
const QString PWD = QStringLiteral("segreta");

const QStringList TESTI_STRUMENTO = {QStringLiteral("QX5 B"),      QStringLiteral("Strumenti Prova"),
                                     QStringLiteral("OM00123"),    QStringLiteral("000042"),
                                     QStringLiteral("30/06/2030"), QStringLiteral("Verdi Ugo")};
const QStringList TESTI_TARATURA = {QStringLiteral("1012"), QStringLiteral("8"),   QStringLiteral("101"),
                                    QStringLiteral("102"),  QStringLiteral("103"), QStringLiteral("104"),
                                    QStringLiteral("105"),  QStringLiteral("106"), QStringLiteral("107"),
                                    QStringLiteral("108")};

QList<Qt::CursorShape> puntatori; // while the form asked for a folder, question by question

} // namespace

// The linker leads the form's question for a folder through the second of these, on to the first.
Flag Cartella_Esiste(const QString &percorso, qint16 attributo) asm("__real__Z9Fs_EsisteRK7QStrings");
Flag Cartella_Chiesta(const QString &percorso, qint16 attributo) asm("__wrap__Z9Fs_EsisteRK7QStrings");

Flag Cartella_Chiesta(const QString &percorso, qint16 attributo)
{
    const QCursor *puntatore = QApplication::overrideCursor();
    puntatori.append(puntatore != nullptr ? puntatore->shape() : Qt::ArrowCursor);
    return Cartella_Esiste(percorso, attributo);
}

class tst_frmSetupO : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmSetupO>();
        notifiche = Ascolta(*form);
        form->Mostra();
        QVERIFY(Attiva(*form));
    }

    // --- controls of a row --------------------------------------------------------------------------------

    QWidget *Controllo_Di(int riga) const { return Widget_Di(*form, ATTESE[riga].controllo); }
    QLineEdit *Casella(int riga) const { return static_cast<QLineEdit *>(Controllo_Di(riga)); }
    QComboBox *Combo(int riga) const { return static_cast<QComboBox *>(Controllo_Di(riga)); }
    QCheckBox *Spunta(int riga) const { return static_cast<QCheckBox *>(Controllo_Di(riga)); }
    QLabel *Etichetta_Di(int riga) const { return Membro_Di<QLabel>(*form, "lbl", riga); }
    /// A locked text box is greyed and takes no text; other controls are disabled.
    bool Bloccata(int riga) const
    {
        if (ATTESE[riga].controllo[0] != 't')
            return !Controllo_Di(riga)->isEnabled();
        // The free box of the operator tells what a box to write in looks like.
        const bool grigia = Sfondo_Di(Casella(riga)) != Sfondo_Di(Casella(OPERATORE));
        if (grigia != Casella(riga)->isReadOnly())
            qFatal("row %d: its look and its lock do not agree", riga);
        return grigia;
    }
    void Limiti_Bloccati(const QList<int> &liberi) const
    {
        for (int riga = PRIMO_LIMITE; riga <= ULTIMO_LIMITE; ++riga) {
            QCOMPARE(Bloccata(riga), !liberi.contains(riga));
            if (!Etichetta_Di(riga)->isHidden()) // the main-beam column has no labels of its own
                if (Etichetta_Di(riga)->isVisible())
                    QCOMPARE(Etichetta_Di(riga)->isEnabled(), liberi.contains(riga));
        }
        QCOMPARE(Abilitato(*form, "lblDes_0"), !liberi.isEmpty());
        QCOMPARE(Abilitato(*form, "lblDes_1"), !liberi.isEmpty());
    }

    // --- what the operator does ---------------------------------------------------------------------------

    void Premi_Riga(int riga) const { QTest::mouseClick(Controllo_Di(riga), Qt::LeftButton); }
    void Riscrivi_Riga(int riga, const QString &testo) const
    {
        Premi_Riga(riga);
        QTRY_COMPARE(QApplication::focusWidget(), Controllo_Di(riga));
        Riscrivi(testo);
    }
    /// Goes on to the next control.
    static void Lascia() { Batti(Qt::Key_Tab); }
    /// Opens a list with the mouse and clicks one of its items. For a moment after the click that opened it
    /// the list takes none.
    void Scegli(int riga, int voce) const
    {
        QComboBox *combo = Combo(riga);
        QAbstractItemView *lista = combo->view();
        QTest::mouseClick(combo, Qt::LeftButton);
        QVERIFY(lista->isVisible());
        const QModelIndex indice = combo->model()->index(voce, 0);
        lista->scrollTo(indice);
        QVERIFY(QTest::qWaitFor([lista, indice] {
            QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualRect(indice).center());
            return !lista->isVisible();
        }));
        QCOMPARE(combo->currentIndex(), voce);
    }
    /// Ticks the switch of the limits and answers the password box.
    void Sblocca(const QString &password) const
    {
        Regia regia;
        Password_Data(regia, password);
        Premi_Riga(SBLOCCO);
        QVERIFY(regia.Finita());
        QVERIFY(Attiva(*form));
    }
    static void Password_Data(Regia &regia, const QString &password)
    {
        regia.Quando("dlgPwd", [password](Modulo &box) {
            QVERIFY(Attiva(box));
            QCOMPARE(box.Caption(), Testo_Mctc(Id_Mctc(20)));
            Batti(password);
            Orologio_Banco().Avanza(4000);
        });
    }
    /// The first choice of the instrument's list, and the session that it opens.
    void Leggi_Strumento(qint64 ms = DURATA_SESSIONE) const
    {
        Regia regia;
        regia.Quando("frmComm", [ms](Modulo &) { Orologio_Banco().Avanza(ms); });
        Scegli(STRUMENTO, 0);
        QVERIFY(regia.Finita());
        QVERIFY(Attiva(*form));
    }
    void Salva() const
    {
        const ReteModale rete; // under a session that nobody expects
        Premi(*form, "cmd_0");
        QVERIFY(!rete.Scattata());
        QVERIFY(!form->Caricato());
    }
    /// The same when the operator was changed: a session runs meanwhile.
    void Salva_ConSessione(qint64 ms = DURATA_SESSIONE, const std::function<void()> &guarda = {}) const
    {
        Regia regia;
        regia.Quando("frmComm", [ms, guarda](Modulo &) {
            if (guarda)
                guarda();
            Orologio_Banco().Avanza(ms);
        });
        Premi(*form, "cmd_0");
        QVERIFY(regia.Finita());
        QVERIFY(!form->Caricato());
    }

    // --- the configuration --------------------------------------------------------------------------------

    QByteArray Ini() const { return banco->Stazione.Leggi(FILE_INI); }
    void Ini(const QByteArray &byte) const { banco->Stazione.Scrivi(FILE_INI, byte); }
    void Imposta(const char *sezione, const char *chiave, const QString &valore) const
    {
        banco->Stazione.Imposta(QString::fromLatin1(sezione), QString::fromLatin1(chiave), valore);
    }
    static QString Valore(const char *sezione, const char *chiave)
    {
        return Valore_Ini(gFileIni, QString::fromLatin1(sezione), QString::fromLatin1(chiave));
    }
    /// A folder of the station, with its backslash.
    QString Cartella(const char *nome) const
    {
        const QString cartella = QString::fromLatin1(nome);
        QDir().mkpath(banco->Stazione.Nativo(cartella));
        return banco->Stazione.Percorso(cartella) + u'\\';
    }
    /// Types of the commands that the instrument got.
    QByteArray Tipi() const
    {
        QByteArray tipi;
        for (const QByteArray &comando : strumento->Comandi)
            tipi.append(comando[4]);
        return tipi.toHex();
    }

    std::unique_ptr<BancoForm> banco;
    std::unique_ptr<StrumentoProva> strumento;
    std::shared_ptr<frmSetupO> form;
    std::shared_ptr<Notifiche> notifiche;

private Q_SLOTS:
    void initTestCase()
    {
        QApplication::setDoubleClickInterval(1); // that long an open list takes no click
    }
    void init()
    {
        banco = std::make_unique<BancoForm>();
        strumento = std::make_unique<StrumentoProva>();
        strumento->Imposta(Blocco::Dati, TESTI_STRUMENTO);
        strumento->Imposta(Blocco::Taratura, TESTI_TARATURA);
        gPwdCorrente = PWD;
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        strumento.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
        QCOMPARE(gCaricamento, Falso);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    // --- loading ------------------------------------------------------------------------------------------

    void righeAlCaricamento_data()
    {
        QTest::addColumn<bool>("rete");
        QTest::addColumn<bool>("locale");
        QTest::newRow("lista, cartelle locali") << true << true;
        QTest::newRow("lista, cartelle di rete") << true << false;
        QTest::newRow("senza lista, cartelle locali") << false << true;
        QTest::newRow("senza lista, cartelle di rete") << false << false;
    }
    void righeAlCaricamento()
    {
        QFETCH(bool, rete);
        QFETCH(bool, locale);
        for (int riga = 0; riga <= DATI; ++riga) {
            if (ATTESE[riga].controllo[0] == 't')
                Imposta(ATTESE[riga].sezione, ATTESE[riga].chiave, QString::number(100 + riga));
        }
        Imposta("MCTC", "ReteRisultati", QStringLiteral("220"));
        Imposta("MCTC", "ReteDati", QStringLiteral("221"));
        gIniFile = Flag_Da(rete);
        gModalita = Flag_Da(locale);
        const QByteArray prima = Ini();
        Apri();
        for (int riga = 0; riga < RIGHE; ++riga) {
            const RigaAttesa &attesa = ATTESE[riga];
            const bool bloccata = attesa.lucchetto == Sempre || (attesa.lucchetto == SenzaRete && !rete);
            QVERIFY2(Controllo_Di(riga)->isVisible(), attesa.controllo);
            QVERIFY2(Bloccata(riga) == bloccata, attesa.controllo);
            QCOMPARE(Etichetta_Di(riga)->isVisible(), attesa.etichetta != -1);
            if (attesa.etichetta != -1) {
                QCOMPARE(Etichetta_Di(riga)->text(), Testo_Mctc(Id_Mctc(attesa.etichetta)));
                QCOMPARE(Etichetta_Di(riga)->isEnabled(), !bloccata);
            }
            if (attesa.controllo[0] == 't') {
                const bool diRete = !locale && attesa.lucchetto == SenzaRete;
                QCOMPARE(Casella(riga)->text(), QString::number((diRete ? 200 : 100) + riga));
            }
        }
        QCOMPARE(Combo(MODALITA)->currentIndex(), locale ? 1 : 0);
        QCOMPARE(Ini(), prima);
        QVERIFY(notifiche->isEmpty());
        QVERIFY(strumento->Comandi.isEmpty());
    }

    void colonneDeiLimiti()
    {
        Apri();
        QCOMPARE(Testo_Di(*form, "lblDes_0"), Testo_Mctc(Id_Mctc(32)));
        QCOMPARE(Testo_Di(*form, "lblDes_1"), Testo_Mctc(Id_Mctc(31)));
        QVERIFY(!Abilitato(*form, "lblDes_0") && !Abilitato(*form, "lblDes_1"));
        // The even rows are the second column of the line whose label stands on the odd one.
        for (int riga = PRIMO_LIMITE; riga < ULTIMO_LIMITE; riga += 2) {
            QCOMPARE(Casella(riga)->y(), Casella(riga + 1)->y());
            QVERIFY(Casella(riga)->geometry().right() < Casella(riga + 1)->x());
            QVERIFY(Etichetta_Di(riga)->geometry().right() < Casella(riga)->x());
            QCOMPARE(Casella(riga)->x(), Widget_Di(*form, "lblDes_0")->x());
            QCOMPARE(Casella(riga + 1)->x(), Widget_Di(*form, "lblDes_1")->x());
        }
    }

    void listeDelleCombo()
    {
        Apri();
        QStringList lingue, porte;
        for (qint16 id = 81; id <= 85; ++id)
            lingue.append(Testo_Mctc(Id_Mctc(id)));
        for (int porta = 1; porta <= 20; ++porta)
            porte.append(QStringLiteral("COM%1").arg(porta));
        const auto voci = [this](int riga) {
            QStringList testi;
            for (int i = 0; i < Combo(riga)->count(); ++i)
                testi.append(Combo(riga)->itemText(i));
            return testi;
        };
        QCOMPARE(voci(LINGUA), lingue);
        QCOMPARE(voci(MODALITA), QStringList({Testo_Mctc(Id_Mctc(91)), Testo_Mctc(Id_Mctc(92))}));
        QCOMPARE(voci(STRUMENTO), QStringList(QStringLiteral("QX5")));
        QCOMPARE(Combo(STRUMENTO)->currentIndex(), 0);
        QCOMPARE(voci(PORTA), porte);
    }

    void linguaAlCaricamento_data()
    {
        QTest::addColumn<QString>("lingua");
        QTest::addColumn<int>("voce");
        int voce = 0;
        for (const char *lingua : {"IT", "FR", "EN", "ES", "DE"})
            QTest::newRow(lingua) << QString::fromLatin1(lingua) << voce++;
        QTest::newRow("un'altra") << QStringLiteral("PT") << 0;
    }
    void linguaAlCaricamento()
    {
        QFETCH(QString, lingua);
        QFETCH(int, voce);
        gLingua = lingua;
        Apri();
        QCOMPARE(Combo(LINGUA)->currentIndex(), voce);
    }

    void lingueOfferteInOgniLingua_data()
    {
        QTest::addColumn<QString>("lingua");
        QTest::addColumn<QString>("nome");
        QTest::newRow("IT") << QStringLiteral("IT") << QStringLiteral("Italiano");
        QTest::newRow("FR") << QStringLiteral("FR") << QStringLiteral("Français");
        QTest::newRow("EN") << QStringLiteral("EN") << QStringLiteral("English");
        QTest::newRow("ES") << QStringLiteral("ES") << QStringLiteral("Español");
        QTest::newRow("DE") << QStringLiteral("DE") << QStringLiteral("Deutsch");
    }
    /// A station that starts in a language offers all five, each by its own name.
    void lingueOfferteInOgniLingua()
    {
        QFETCH(QString, lingua);
        gLingua = lingua;
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Apri();
        QStringList nomi;
        for (int i = 0; i < Combo(LINGUA)->count(); ++i)
            nomi.append(Combo(LINGUA)->itemText(i));
        QCOMPARE(nomi, QStringList({QStringLiteral("Italiano"), QStringLiteral("Français"),
                                    QStringLiteral("English"), QStringLiteral("Español"),
                                    QStringLiteral("Deutsch")}));
        QTEST(Combo(LINGUA)->currentText(), "nome");
    }

    void portaAlCaricamento_data()
    {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("mostrata");
        QTest::newRow("1") << QStringLiteral("1") << QStringLiteral("COM1");
        QTest::newRow("7") << QStringLiteral("7") << QStringLiteral("COM7");
        QTest::newRow("9") << QStringLiteral("9") << QStringLiteral("COM9");
        QTest::newRow("10, nessuna") << QStringLiteral("10") << QString();
        QTest::newRow("12, la sola ultima cifra") << QStringLiteral("12") << QStringLiteral("COM2");
        QTest::newRow("19") << QStringLiteral("19") << QStringLiteral("COM9");
        QTest::newRow("20, nessuna") << QStringLiteral("20") << QString();
        QTest::newRow("senza numero") << QString() << QString();
    }
    /// A port that shows wrongly stays as it is stored, as long as nobody chooses another.
    void portaAlCaricamento()
    {
        QFETCH(QString, numero);
        QFETCH(QString, mostrata);
        Imposta("COMM", "Num", numero);
        Apri();
        QCOMPARE(Combo(PORTA)->currentText(), mostrata);
        QCOMPARE(Combo(PORTA)->currentIndex() < 0, mostrata.isEmpty());
        Salva();
        QCOMPARE(Valore("COMM", "Num"), numero);
    }

    void spunteAlCaricamento_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("spuntate");
        QTest::newRow("1") << QStringLiteral("1") << true;
        QTest::newRow("0") << QStringLiteral("0") << false;
        QTest::newRow("vuoto") << QString() << false;
        QTest::newRow("parola") << QStringLiteral("vero") << false;
    }
    void spunteAlCaricamento()
    {
        QFETCH(QString, valore);
        QFETCH(bool, spuntate);
        for (int riga = INI_FILE; riga < SBLOCCO; ++riga)
            Imposta("MCTC", ATTESE[riga].chiave, valore);
        Apri();
        for (int riga = INI_FILE; riga < SBLOCCO; ++riga)
            QCOMPARE(Spunta(riga)->isChecked(), spuntate);
        QVERIFY(!Spunta(SBLOCCO)->isChecked());
    }

    void camResetAlCaricamento_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("spuntato");
        QTest::newRow("S") << QStringLiteral("S") << true;
        QTest::newRow("N") << QStringLiteral("N") << false;
        QTest::newRow("1") << QStringLiteral("1") << false; // what a saved tick leaves
        QTest::newRow("vuoto") << QString() << false;
    }
    void camResetAlCaricamento()
    {
        QFETCH(QString, valore);
        QFETCH(bool, spuntato);
        Imposta("IMPOSTAZIONI", "CamReset", valore);
        Apri();
        QCOMPARE(Spunta(CAM_RESET)->isChecked(), spuntato);
    }

    void schermoIntero()
    {
        Apri();
        QCOMPARE(form->Finestra()->geometry(), QRect(0, 0, Pixel_DaTwip(gScreenW), Pixel_DaTwip(gScreenH)));
        constexpr qint32 cornici[][4] = {
            {100,   100,  3500,  4500 },
            {100,   5000, 11000, 10000},
            {4500,  100,  9000,  4500 },
            {9500,  100,  13500, 4000 },
            {11500, 6000, 15000, 7000 },
            {11500, 8000, 15000, 9000 },
        };
        for (const auto &c : cornici)
            QVERIFY(Ha_Cornice(*form, ScalaX(c[0]), ScalaY(c[1]), ScalaX(c[2]), ScalaY(c[3])));
    }

    /// What is in a frame is told above its rows, in the language in force.
    void intestazioniDelleCornici()
    {
        Apri();
        for (const int i : {0, 1, 2, 3}) {
            auto *intestazione = Membro_Di<QLabel>(*form, "lblIntestazione", i);
            QCOMPARE(intestazione->text(), Testo_Mctc(Id_Mctc(270 + i)));
            QVERIFY(!intestazione->text().isEmpty() && intestazione->isVisible());
        }
        Scegli(LINGUA, 2);
        QCOMPARE(Testo_Di(*form, "lblIntestazione_3"), QStringLiteral("Test limits"));
    }

    /// A file of texts from before them, kept by a workshop: their places stay empty.
    void intestazioniDiUnFileDiPrima()
    {
        QByteArray testi = banco->Stazione.Leggi(QStringLiteral("lingueMCTC.ini"));
        for (const char *id : {"270=", "271=", "272=", "273=", "274=", "275="})
            testi.replace(id, "9" + QByteArray(id).mid(1));
        banco->Stazione.Scrivi(QStringLiteral("lingueMCTC.ini"), testi);
        Apri();
        QCOMPARE(Testo_Di(*form, "lblIntestazione_0"), QString());
        QCOMPARE(Etichetta_Di(OPERATORE)->text(), Testo_Mctc(Id_Mctc(142)));
        Premi(*form, "cmd_0");
        QVERIFY(!form->Caricato());
    }

    /// A path that its box cannot show to the end stands whole below it.
    void percorsoLungo()
    {
        const QString lungo = QStringLiteral("C:\\") + QStringLiteral("cartella\\").repeated(8) + u'z';
        Apri();
        for (const int riga : {RISULTATI, DATI})
            Riscrivi_Riga(riga, QStringLiteral("C:\\"));
        QVERIFY(!Visibile(*form, "lblPercorso_0") && !Visibile(*form, "lblPercorso_1"));
        Riscrivi_Riga(RISULTATI, lungo);
        QVERIFY(Visibile(*form, "lblPercorso_0"));
        QCOMPARE(Testo_Di(*form, "lblPercorso_0"), lungo);
        QVERIFY(!Visibile(*form, "lblPercorso_1"));
        Riscrivi_Riga(RISULTATI, QStringLiteral("C:\\"));
        QVERIFY(!Visibile(*form, "lblPercorso_0"));
    }

    /// Choosing a folder is typing it: nothing is written before the box is left, and then what typing
    /// writes.
    void sfogliaScriveNellaCasella()
    {
        const QString nuova = Cartella("nuova");
        Apri();
        const QByteArray prima = Ini();
        Regia regia;
        regia.Quando("frmCartella", [](Modulo &scelta) {
            auto *lista = Widget_Di<QListWidget>(scelta, "lstCartelle");
            const auto voci = lista->findItems(QStringLiteral("nuova"), Qt::MatchExactly);
            QCOMPARE(voci.size(), 1);
            QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                              lista->visualItemRect(voci.first()).center());
            Premi(scelta, "cmd_0");
        });
        Premi(*form, "cmdSfoglia_1");
        QVERIFY(regia.Finita());
        const QByteArray scelta = Ini();
        QCOMPARE(Casella(DATI)->text(), nuova);
        QTRY_VERIFY(Casella(DATI)->hasFocus());
        QCOMPARE(scelta, prima);
        QTest::keyClick(Casella(DATI), Qt::Key_Tab);
        QCOMPARE(Ini(), Ini_Con(prima, "MCTC", "DirRisultati", nuova.toLatin1()));
    }

    /// The chosen line of a list that drops down has the colours of the chosen line of any list.
    void rigaSceltaComeNegliElenchi()
    {
        Apri();
        Combo(LINGUA)->showPopup();
        QAbstractItemView *vista = Combo(LINGUA)->view();
        QTRY_VERIFY(vista->isVisible());
        const QRect riga = vista->visualRect(vista->currentIndex());
        const QImage immagine = vista->viewport()->grab().toImage();
        const QPoint angolo(immagine.width() - Spessore_Linea(4), riga.center().y()); // clear of its text
        const QColor mostrato = immagine.pixelColor(angolo);
        const QColor atteso = Colore_Tema(Tinta::Fuoco);
        for (const auto canale : {&QColor::red, &QColor::green, &QColor::blue})
            QVERIFY(qAbs((mostrato.*canale)() - (atteso.*canale)()) <= 1); // a style sheet rounds
        Combo(LINGUA)->hidePopup();
    }

    void sfogliaSenzaSceltaNonTocca()
    {
        Apri();
        const QString testo = Casella(RISULTATI)->text();
        Regia regia;
        regia.Quando("frmCartella", [](Modulo &scelta) { Premi(scelta, "cmd_1"); });
        Premi(*form, "cmdSfoglia_0");
        QVERIFY(regia.Finita());
        QCOMPARE(Casella(RISULTATI)->text(), testo);
    }

    void sfogliaConLeRighe()
    {
        gIniFile = Falso;
        Imposta("MCTC", "IniFile", QStringLiteral("0"));
        Apri();
        QVERIFY(!Abilitato(*form, "cmdSfoglia_0") && !Abilitato(*form, "cmdSfoglia_1"));
        QTest::mouseClick(Spunta(INI_FILE), Qt::LeftButton);
        QVERIFY(Abilitato(*form, "cmdSfoglia_0") && Abilitato(*form, "cmdSfoglia_1"));
    }

    /// Every label's height goes through the x scale, on whatever screen.
    void etichetteSullaScala_data()
    {
        QTest::addColumn<qint32>("larghezza");
        QTest::addColumn<qint32>("altezza");
        QTest::newRow("il presente") << Schermo_Larghezza() << Schermo_Altezza();
        QTest::newRow("altra scala") << 2 * Schermo_Larghezza() << Schermo_Altezza();
    }
    void etichetteSullaScala()
    {
        QFETCH(qint32, larghezza);
        QFETCH(qint32, altezza);
        gScreenW = larghezza;
        gScreenH = altezza;
        Apri();
        for (const int riga : {MODALITA, RISULTATI, DATI})
            QVERIFY(std::abs(Etichetta_Di(riga)->width() - Pixel_DaTwip(ScalaX(3495))) <= 1);
        const int alta = Etichetta_Di(OPERATORE)->height();
        QVERIFY(std::abs(alta - Pixel_DaTwip(ScalaX(255))) <= 1);
        for (int riga = 0; riga < RIGHE; ++riga)
            QVERIFY(std::abs(Etichetta_Di(riga)->height() - alta) <= 1);
    }

    // --- keys ---------------------------------------------------------------------------------------------

    void tastiNelleCaselleBloccate()
    {
        gIniFile = Falso;
        Apri();
        for (const int riga : {0, 4, PRIMO_LIMITE, ULTIMO_LIMITE, RISULTATI, DATI}) {
            const QString prima = Casella(riga)->text();
            Casella(riga)->setFocus();
            Riscrivi(QStringLiteral("9"));
            QCOMPARE(Casella(riga)->text(), prima);
        }
    }

    void tastiNelleCombo()
    {
        Apri();
        for (const int riga : {LINGUA, MODALITA, STRUMENTO, PORTA}) {
            const int prima = Combo(riga)->currentIndex();
            Combo(riga)->setFocus();
            for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_Up, Qt::Key_End, Qt::Key_PageDown,
                                        Qt::Key_Return, Qt::Key_Space, Qt::Key_C, Qt::Key_2, Qt::Key_F4})
                Batti(tasto);
            QCOMPARE(Combo(riga)->currentIndex(), prima);
            QVERIFY(!Combo(riga)->view()->isVisible());
        }
        QVERIFY(notifiche->isEmpty());
        QVERIFY(strumento->Comandi.isEmpty());
    }

    /// Nor while the list is open: it is the mouse that chooses.
    void tastiNellaListaAperta()
    {
        Apri();
        for (const int riga : {LINGUA, STRUMENTO, PORTA}) {
            const int prima = Combo(riga)->currentIndex();
            QAbstractItemView *lista = Combo(riga)->view();
            Premi_Riga(riga);
            QVERIFY(lista->isVisible());
            for (const Qt::Key tasto : {Qt::Key_End, Qt::Key_Up, Qt::Key_C, Qt::Key_Return, Qt::Key_Enter})
                QTest::keyClick(lista, tasto);
            QCOMPARE(Combo(riga)->currentIndex(), prima);
            Combo(riga)->hidePopup();
        }
        QVERIFY(notifiche->isEmpty());
        QVERIFY(strumento->Comandi.isEmpty());
    }

    void f12ApreILivelli()
    {
        Apri();
        bool livelli = false;
        Regia regia;
        regia.Quando("frmControlliMctc", [&](Modulo &aperta) {
            livelli = QApplication::activeModalWidget() == aperta.Finestra();
            Premi(aperta, "cmd_1");
        });
        Batti(Qt::Key_F12);
        QVERIFY(regia.Finita());
        QVERIFY(livelli);
        Batti(Qt::Key_F11);
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmSetupO")));
    }

    // --- the limits ---------------------------------------------------------------------------------------

    void sbloccoRifiutato_data()
    {
        QTest::addColumn<QString>("password");
        QTest::newRow("errata") << QStringLiteral("zz");
        QTest::newRow("nessuna") << QString();
    }
    void sbloccoRifiutato()
    {
        QFETCH(QString, password);
        Apri();
        Sblocca(password);
        QVERIFY(!Spunta(SBLOCCO)->isChecked());
        Limiti_Bloccati({});
        QCOMPARE(gCaricamento, Falso);
    }

    /// The four lux limits open, and the rest of the grid with none of the passwords.
    void sbloccoDeiSoliLux()
    {
        Apri();
        Sblocca(PWD);
        QVERIFY(Spunta(SBLOCCO)->isChecked());
        Limiti_Bloccati({11, 12, 13, 14});
        for (int riga = PRIMO_LUX; riga <= ULTIMO_LUX; ++riga) {
            Riscrivi_Riga(riga, QString::number(1000 + riga));
            Lascia();
        }
        Salva();
        for (int riga = PRIMO_LUX; riga <= ULTIMO_LUX; ++riga)
            QCOMPARE(Valore("PARAMETRI", ATTESE[riga].chiave), QString::number(1000 + riga));
    }

    void richiusiTuttiEDodici()
    {
        Apri();
        Sblocca(PWD);
        Premi_Riga(SBLOCCO);
        QVERIFY(!Spunta(SBLOCCO)->isChecked());
        Limiti_Bloccati({});
        const QString prima = Casella(PRIMO_LUX)->text();
        Casella(PRIMO_LUX)->setFocus();
        Batti(QStringLiteral("9"));
        QCOMPARE(Casella(PRIMO_LUX)->text(), prima);
    }

    /// The right password of one time does not stand for the next.
    void sbloccoGiustoEPoiErrato()
    {
        Apri();
        Sblocca(PWD);
        Premi_Riga(SBLOCCO);
        Sblocca(QStringLiteral("zz"));
        QVERIFY(!Spunta(SBLOCCO)->isChecked());
        Limiti_Bloccati({});
    }

    void passwordVuotaStazioneAperta()
    {
        gPwdCorrente.clear();
        Apri();
        Sblocca(QString());
        Limiti_Bloccati({11, 12, 13, 14});
    }

    /// The switch is no setting: it is never written.
    void sbloccoNonSiSalva()
    {
        const QByteArray prima = Ini();
        Apri();
        Sblocca(PWD);
        Salva();
        QCOMPARE(Ini(), prima);
    }

    void limiteNonNumerico_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("italiano");
        QTest::addColumn<bool>("accettato");
        QTest::newRow("intero") << QStringLiteral("3800") << false << true;
        QTest::newRow("punto") << QStringLiteral("1.5") << false << true;
        QTest::newRow("virgola, senza locale") << QStringLiteral("1,5") << false << false;
        QTest::newRow("virgola italiana") << QStringLiteral("1,5") << true << true;
        QTest::newRow("lettere") << QStringLiteral("12a") << false << false;
        QTest::newRow("vuoto") << QString() << false << false;
        QTest::newRow("segno") << QStringLiteral("-1") << false << true;
    }
    void limiteNonNumerico()
    {
        QFETCH(QString, testo);
        QFETCH(bool, italiano);
        QFETCH(bool, accettato);
        if (italiano)
            Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        const QString prima = Valore("PARAMETRI", ATTESE[PRIMO_LUX].chiave);
        Apri();
        Sblocca(PWD);
        Riscrivi_Riga(PRIMO_LUX, testo);
        int messaggi = 0;
        Regia regia;
        if (!accettato) {
            regia.Quando("frmMsg", [&messaggi](Modulo &msg) {
                ++messaggi;
                QCOMPARE(Testo_Di(msg, "lbl_0"), Testo_Mctc(Id_Mctc(108)));
                QCOMPARE(Predefinito<frmMsg>().Mode, qint16{0});
                QCOMPARE(Predefinito<frmMsg>().TopMost, qint16{0});
                Orologio_Banco().Avanza(1999);
                QVERIFY(msg.Caricato());
                Orologio_Banco().Avanza(1);
            });
        }
        Lascia();
        QVERIFY(regia.Finita());
        QCOMPARE(messaggi, accettato ? 0 : 1);
        QVERIFY(Attiva(*form));
        QCOMPARE(QApplication::focusWidget(), Controllo_Di(accettato ? PRIMO_LUX + 1 : PRIMO_LUX));
        if (!accettato) {
            Riscrivi(prima);
            Lascia();
        }
        Salva();
        QCOMPARE(Valore("PARAMETRI", ATTESE[PRIMO_LUX].chiave), accettato ? testo : prima);
    }

    // --- the exchange folder ------------------------------------------------------------------------------

    void cartellaCheCE_data()
    {
        QTest::addColumn<bool>("locale");
        QTest::addColumn<bool>("barra");
        for (const bool locale : {true, false}) {
            for (const bool barra : {true, false})
                QTest::addRow("%s, %s", locale ? "locale" : "rete", barra ? "con barra" : "senza barra")
                    << locale << barra;
        }
    }
    /// The two folders are one and the same: the text goes to the results key, at once, and the acceptance
    /// key is written before it with the value that the table had.
    void cartellaCheCE()
    {
        QFETCH(bool, locale);
        QFETCH(bool, barra);
        const char *chiaveDati = locale ? "DirDati" : "ReteDati";
        const char *chiaveRisultati = locale ? "DirRisultati" : "ReteRisultati";
        const QString nuova = Cartella("nuova");
        Imposta("MCTC", "Modalita", locale ? QStringLiteral("1") : QStringLiteral("0"));
        Imposta("MCTC", chiaveDati, QStringLiteral("X:\\vecchia\\"));
        gModalita = Flag_Da(locale);
        Apri();
        // Both keys gone: they come back at the section's end, in the order of their writing.
        const QByteArray senza = Ini_Senza(Ini_Senza(Ini(), "MCTC", chiaveDati), "MCTC", chiaveRisultati);
        Ini(senza);
        Riscrivi_Riga(DATI, barra ? nuova : nuova.chopped(1));
        QCOMPARE(Ini(), senza);
        Lascia();
        QCOMPARE(Casella(DATI)->text(), nuova);
        const QList<QByteArray> righe = Ini_Righe(Ini(), "MCTC");
        QCOMPARE(righe.mid(righe.size() - 2),
                 QList<QByteArray>({QByteArray(chiaveDati) + "=X:\\vecchia\\",
                                    QByteArray(chiaveRisultati) + '=' + nuova.toLatin1()}));
        QCOMPARE(righe.mid(0, righe.size() - 2), Ini_Righe(senza, "MCTC"));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void cartellaCheNonCE()
    {
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(DATI, banco->Stazione.Percorso(QStringLiteral("manca")));
        Lascia();
        QCOMPARE(Casella(DATI)->text(), banco->Stazione.Percorso(QStringLiteral("manca")) + u'\\');
        QCOMPARE(Ini(), prima);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        // Not even with the save, and without a word.
        Salva();
        QCOMPARE(Ini(), prima);
    }

    /// A folder that is not there is kept in the table alone. When one that is there comes after it, the
    /// acceptance key is written with what the table holds by then.
    void cartellaCheNonCEEPoiUnaCheCE()
    {
        const QString manca = banco->Stazione.Percorso(QStringLiteral("manca")) + u'\\';
        const QString nuova = Cartella("nuova");
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(DATI, manca);
        Lascia();
        QCOMPARE(Ini(), prima);
        Riscrivi_Riga(DATI, nuova);
        Lascia();
        QCOMPARE(Ini(), Ini_Con(Ini_Con(prima, "MCTC", "DirDati", manca.toLatin1()), "MCTC", "DirRisultati",
                                nuova.toLatin1()));
    }

    void clessidraPerLaCartella_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::newRow("c'è") << QStringLiteral("dati");
        QTest::newRow("manca") << QStringLiteral("manca");
    }
    /// A folder of the network may take its time: the pointer says so, and no longer than that.
    void clessidraPerLaCartella()
    {
        QFETCH(QString, nome);
        Apri();
        Riscrivi_Riga(DATI, banco->Stazione.Percorso(nome));
        puntatori.clear();
        Lascia();
        QCOMPARE(puntatori, QList<Qt::CursorShape>{Qt::WaitCursor});
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void cartellaVuota()
    {
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(DATI, QString());
        Lascia();
        QVERIFY(Casella(DATI)->text().isEmpty());
        Salva();
        QCOMPARE(Ini(), prima);
    }

    void unFileNonEUnaCartella()
    {
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(DATI, gFileIni);
        Lascia();
        QCOMPARE(Ini(), prima);
    }

    /// The results key follows the folder of the acceptance box at every save.
    void salvataggioAllineaIRisultati()
    {
        Imposta("MCTC", "DirRisultati", QStringLiteral("X:\\altra\\"));
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(RISULTATI, QStringLiteral("Y:\\ignorata\\"));
        Salva();
        QCOMPARE(Ini(), Ini_Con(prima, "MCTC", "DirRisultati", gAppPath.toLatin1()));
        QCOMPARE(gDirAcc, gAppPath + QStringLiteral("DIR_FAR\\"));
    }

    /// So does the other key, before it, with the folder it had.
    void salvataggioRiscriveLeDueCartelle()
    {
        Imposta("MCTC", "DirRisultati", QStringLiteral("X:\\altra\\"));
        Apri();
        const QByteArray senza = Ini_Senza(Ini_Senza(Ini(), "MCTC", "DirDati"), "MCTC", "DirRisultati");
        Ini(senza);
        Salva();
        const QByteArray cartella = gAppPath.toLatin1();
        QCOMPARE(Ini_Righe(Ini(), "MCTC"),
                 Ini_Righe(senza, "MCTC") +
                     QList<QByteArray>({"DirDati=" + cartella, "DirRisultati=" + cartella}));
    }

    /// Without a folder to follow, the results box alone is not kept.
    void soliRisultatiNonSiSalvano()
    {
        Imposta("MCTC", "DirDati", QStringLiteral("X:\\manca\\"));
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(RISULTATI, Cartella("nuova"));
        Salva();
        QCOMPARE(Ini(), prima);
    }

    /// The key that is written goes by the mode shown in the table, not by the one in force.
    void cartellaDopoCambioDiModo()
    {
        Apri();
        Scegli(MODALITA, 0);
        Riscrivi_Riga(DATI, Cartella("rete"));
        const QByteArray prima = Ini();
        Lascia();
        QCOMPARE(Ini(), Ini_Con(prima, "MCTC", "ReteRisultati", Cartella("rete").toLatin1()));
    }

    // --- check boxes --------------------------------------------------------------------------------------

    /// Unlocked and locked at once; what is in force stays until the save.
    void collegamentoSbloccaSenzaSalvare()
    {
        Imposta("MCTC", "IniFile", QStringLiteral("0"));
        gIniFile = Falso;
        const QByteArray prima = Ini();
        Apri();
        const auto sbloccate = [this] {
            QList<bool> stati;
            for (const int riga : {MODALITA, RISULTATI, DATI})
                stati << !Bloccata(riga) << Etichetta_Di(riga)->isEnabled();
            return stati;
        };
        QCOMPARE(sbloccate(), QList<bool>(6, false));
        Premi_Riga(INI_FILE);
        QCOMPARE(sbloccate(), QList<bool>(6, true));
        Riscrivi_Riga(RISULTATI, QStringLiteral("scritta"));
        QCOMPARE(Casella(RISULTATI)->text(), QStringLiteral("scritta"));
        Premi_Riga(INI_FILE);
        QCOMPARE(sbloccate(), QList<bool>(6, false));
        Casella(RISULTATI)->setFocus();
        Batti(QStringLiteral("9"));
        QCOMPARE(Casella(RISULTATI)->text(), QStringLiteral("scritta"));
        QCOMPARE(Ini(), prima);
        QCOMPARE(gIniFile, Falso);
        QVERIFY(notifiche->isEmpty());
    }

    void flagSalvate_data()
    {
        QTest::addColumn<int>("riga");
        QTest::addColumn<bool>("accesa");
        for (int riga = INI_FILE; riga < SBLOCCO; ++riga) {
            QTest::addRow("%s accesa", ATTESE[riga].chiave) << riga << true;
            QTest::addRow("%s spenta", ATTESE[riga].chiave) << riga << false;
        }
    }
    /// The row that was changed and its flag, and no other.
    void flagSalvate()
    {
        QFETCH(int, riga);
        QFETCH(bool, accesa);
        Flag *const flag[] = {&gIniFile,         &gEsce,          &gControlloVisivo,
                              &gAllarmeAcustico, &gAlimentazione, &gAltezzaFaroAuto};
        for (int altra = INI_FILE; altra < SBLOCCO; ++altra)
            Imposta("MCTC", ATTESE[altra].chiave, accesa ? QStringLiteral("0") : QStringLiteral("1"));
        for (Flag *uno : flag)
            *uno = Flag_Da(!accesa);
        const QByteArray prima = Ini();
        Apri();
        Premi_Riga(riga);
        QCOMPARE(*flag[riga - INI_FILE], Flag_Da(!accesa)); // not before the save
        Salva();
        for (int altra = INI_FILE; altra < SBLOCCO; ++altra)
            QCOMPARE(*flag[altra - INI_FILE], Flag_Da((altra == riga) == accesa));
        QCOMPARE(Ini(), Ini_Con(prima, "MCTC", ATTESE[riga].chiave, accesa ? "1" : "0"));
        Notifiche attese = {
            {SetupSalvato, 0}
        };
        if (riga == INI_FILE)
            attese.prepend({SetupLavoro, 0});
        QCOMPARE(*notifiche, attese);
    }

    /// Written as a state, read as a letter: a saved tick comes back unticked.
    void camResetSalvatoTornaSpento()
    {
        Imposta("IMPOSTAZIONI", "CamReset", QStringLiteral("N"));
        const QByteArray prima = Ini();
        Apri();
        Premi_Riga(CAM_RESET);
        Salva();
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "CamReset", "1"));
        Apri();
        QVERIFY(!Spunta(CAM_RESET)->isChecked());
    }

    // --- language -----------------------------------------------------------------------------------------

    void linguaSubitoSulloSchermo()
    {
        const QByteArray prima = Ini();
        const QStringList italiani = gTabMctc;
        Apri();
        Scegli(LINGUA, 2);
        QCOMPARE(gLingua, QStringLiteral("EN"));
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupLingua, 0}
        }));
        QVERIFY(gTabMctc != italiani);
        for (int riga = 0; riga < RIGHE; ++riga) {
            if (ATTESE[riga].etichetta != -1)
                QCOMPARE(Etichetta_Di(riga)->text(), Testo_Mctc(Id_Mctc(ATTESE[riga].etichetta)));
        }
        QCOMPARE(Testo_Di(*form, "lblDes_0"), Testo_Mctc(Id_Mctc(32)));
        QCOMPARE(Testo_Di(*form, "lblDes_1"), Testo_Mctc(Id_Mctc(31)));
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(1)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
        QCOMPARE(Testo_Di(*form, "cmd_1"), QStringLiteral("Periodic verification"));
        QVERIFY(!Abilitato(*form, "lblDes_0")); // the locks do not move
        QVERIFY(!Etichetta_Di(PRIMO_LUX)->isEnabled());
        QCOMPARE(Ini(), prima); // kept only by the save
        Salva();
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "Lingua", "en"));
    }

    /// Beside a box that the operator has locked, the label stays as grey in the other language.
    void linguaConLaReteBloccata()
    {
        Apri();
        Premi_Riga(INI_FILE);
        Scegli(LINGUA, 2);
        for (const int riga : {RISULTATI, DATI}) {
            QVERIFY(Bloccata(riga));
            QVERIFY(!Etichetta_Di(riga)->isEnabled());
        }
        Premi_Riga(INI_FILE);
        Scegli(LINGUA, 0);
        for (const int riga : {RISULTATI, DATI}) {
            QVERIFY(!Bloccata(riga));
            QVERIFY(Etichetta_Di(riga)->isEnabled());
        }
    }

    void linguaSenzaSalvare()
    {
        const QByteArray prima = Ini();
        Apri();
        Scegli(LINGUA, 2);
        form->Finestra()->close();
        QCOMPARE(Ini(), prima);
        QCOMPARE(gLingua, QStringLiteral("EN")); // in force until the next start
    }

    void stessaLinguaDiNuovo()
    {
        const QByteArray prima = Ini();
        Apri();
        Scegli(LINGUA, 0);
        Scegli(LINGUA, 0);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupLingua, 0},
                                 {SetupLingua, 0}
        }));
        QCOMPARE(gLingua, QStringLiteral("IT"));
        Salva();
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "Lingua", "it"));
    }

    void codiciDelleLingue_data()
    {
        QTest::addColumn<int>("voce");
        QTest::addColumn<QString>("codice");
        int voce = 0;
        for (const char *codice : {"it", "fr", "en", "es", "de"})
            QTest::newRow(codice) << voce++ << QString::fromLatin1(codice);
    }
    void codiciDelleLingue()
    {
        QFETCH(int, voce);
        QFETCH(QString, codice);
        Apri();
        Scegli(LINGUA, voce);
        QCOMPARE(gLingua, codice.toUpper());
        Salva();
        QCOMPARE(Valore("IMPOSTAZIONI", "Lingua"), codice);
    }

    /// A language whose section is not there empties the captions, and the names of the languages with them:
    /// the next choice matches none and is taken as it stands.
    void linguaSenzaTesti()
    {
        QByteArray testi = banco->Stazione.Leggi(QStringLiteral("lingueMCTC.ini"));
        banco->Stazione.Scrivi(QStringLiteral("lingueMCTC.ini"), testi.replace("[EN]", "[XX]"));
        Apri();
        Scegli(LINGUA, 2);
        QCOMPARE(gLingua, QStringLiteral("EN"));
        for (int riga = 0; riga < RIGHE; ++riga)
            QVERIFY(Etichetta_Di(riga)->text().isEmpty());
        Scegli(LINGUA, 0);
        QCOMPARE(gLingua, QStringLiteral("ITALIANO"));
        Salva();
        QCOMPARE(Valore("IMPOSTAZIONI", "Lingua"), QStringLiteral("Italiano"));
    }

    // --- work mode ----------------------------------------------------------------------------------------

    /// Both folders come from the keys of the mode chosen, and what was typed there is lost.
    void modoRicaricaLeCartelle()
    {
        for (const char *chiave : {"DirDati", "DirRisultati", "ReteDati", "ReteRisultati"})
            Imposta("MCTC", chiave, QString::fromLatin1(chiave) + QStringLiteral("\\"));
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(RISULTATI, QStringLiteral("scritta"));
        Riscrivi_Riga(DATI, QStringLiteral("scritta anche questa"));
        Scegli(MODALITA, 0);
        QCOMPARE(Casella(RISULTATI)->text(), QStringLiteral("ReteRisultati\\"));
        QCOMPARE(Casella(DATI)->text(), QStringLiteral("ReteDati\\"));
        Scegli(MODALITA, 1);
        QCOMPARE(Casella(RISULTATI)->text(), QStringLiteral("DirRisultati\\"));
        QCOMPARE(Casella(DATI)->text(), QStringLiteral("DirDati\\"));
        QCOMPARE(Ini(), prima);
    }

    void modoSoloConIlSalvataggio_data()
    {
        QTest::addColumn<int>("voce");
        QTest::newRow("rete") << 0;
        QTest::newRow("locale") << 1;
    }
    void modoSoloConIlSalvataggio()
    {
        QFETCH(int, voce);
        Imposta("MCTC", "Modalita", QString::number(1 - voce));
        Imposta("MCTC", "DirDati", QStringLiteral("X:\\locale\\"));
        Imposta("MCTC", "ReteDati", QStringLiteral("X:\\rete\\"));
        gModalita = Flag_Da(voce == 0);
        Imposta_Cartelle();
        const QString primaAcc = gDirAcc;
        const QByteArray prima = Ini();
        Apri();
        Scegli(MODALITA, voce);
        QCOMPARE(gModalita, Flag_Da(voce == 0));
        QCOMPARE(gDirAcc, primaAcc);
        Salva();
        QCOMPARE(gModalita, Flag_Da(voce == 1));
        QCOMPARE(gDirAcc,
                 voce == 0 ? QStringLiteral("X:\\rete\\ESITO\\") : QStringLiteral("X:\\locale\\DIR_FAR\\"));
        QCOMPARE(Ini(), Ini_Con(prima, "MCTC", "Modalita", QByteArray::number(voce)));
    }

    // --- serial port --------------------------------------------------------------------------------------

    void portaSalvataComeNumero_data()
    {
        QTest::addColumn<int>("porta");
        for (const int porta : {1, 7, 9, 10, 12, 20})
            QTest::addRow("COM%d", porta) << porta;
    }
    void portaSalvataComeNumero()
    {
        QFETCH(int, porta);
        Imposta("COMM", "Num", QStringLiteral("3"));
        const QByteArray prima = Ini();
        Apri();
        Scegli(PORTA, porta - 1);
        QCOMPARE(Ini(), prima);
        Salva();
        QCOMPARE(Ini(), Ini_Con(prima, "COMM", "Num", QByteArray::number(porta)));
    }

    // --- the instrument -----------------------------------------------------------------------------------

    /// One reading overwrites the whole local copy, in the order of the texts' writing.
    void letturaNelProfiloENelleCaselle()
    {
        Ini("[GENERAL]\r\n[COMM]\r\nNum=1\r\nBaud=9600\r\nParity=N\r\nDataBit=8\r\nStopBit=1\r\n");
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("scritto"));
        Leggi_Strumento();
        QCOMPARE(Tipi(), QByteArray("105090"));
        QCOMPARE(Ini(),
                 QByteArray("[GENERAL]\r\n[COMM]\r\nNum=1\r\nBaud=9600\r\nParity=N\r\nDataBit=8\r\n"
                            "StopBit=1\r\n[LUMIRA]\r\nComm_Marca=Strumenti Prova\r\n"
                            "Comm_Modello=QX5 B\r\nComm_NOmologazione=OM00123\r\nComm_NSerie=000042\r\n"
                            "Comm_ScadRevisione=30/06/2030\r\n[VEICOLO]\r\nOperatore=Verdi Ugo\r\n"
                            "[CALIBRAZIONE_COM]\r\nMaxManopola=1012\r\nMinManopola=8\r\nS1=101\r\n"
                            "S2=102\r\nS3=103\r\nS4=104\r\nS5=105\r\nS6=106\r\nS7=107\r\nS8=108\r\n"));
        for (int riga = 0; riga <= OPERATORE; ++riga)
            QCOMPARE(Casella(riga)->text(), TESTI_STRUMENTO[riga]);
    }

    /// A text with a line break is kept by its first line: refused whole, the old one would stay unnoticed.
    void taraturaConUnACapo()
    {
        Linee_Prepara([](LineaProva &linea) {
            linea.Copione({Risposta_Stato('1'), Risposta_Dati(QList<QByteArray>(6, "d")),
                           Risposta_Taratura(QList<QByteArray>(9, "n\r\n[M]") << "u\nx")});
        });
        Apri();
        Leggi_Strumento();
        for (const char *chiave : {"MaxManopola", "MinManopola", "S1", "S7"})
            QCOMPARE(Valore("CALIBRAZIONE_COM", chiave), QStringLiteral("n"));
        QCOMPARE(Valore("CALIBRAZIONE_COM", "S8"), QStringLiteral("u"));
        QVERIFY(!Ini().contains("[M]"));
    }

    /// After a session, whatever its end, three settings are out of reach.
    void dopoLaSessione_data()
    {
        QTest::addColumn<bool>("riuscita");
        QTest::newRow("riuscita") << true;
        QTest::newRow("fallita") << false;
    }
    void dopoLaSessione()
    {
        QFETCH(bool, riuscita);
        if (!riuscita)
            Linee_Prepara({});
        Apri();
        Leggi_Strumento(DURATA_SILENZIO);
        for (int riga = INI_FILE; riga <= CAM_RESET; ++riga) {
            const bool spenta = riga == 26 || riga == 27 || riga == CAM_RESET;
            QCOMPARE(Spunta(riga)->isEnabled(), !spenta);
            QCOMPARE(Etichetta_Di(riga)->isEnabled(), !spenta);
        }
        QCOMPARE(Combo(STRUMENTO)->currentIndex(), 0);
    }

    void letturaFallitaProfiloIntatto_data()
    {
        QTest::addColumn<QList<QByteArray>>("risposte");
        QTest::newRow("muto") << QList<QByteArray>{};
        QTest::newRow("occupato") << QList<QByteArray>{Risposta_Stato('4')};
        QTest::newRow("muto dopo i dati")
            << QList<QByteArray>{Risposta_Stato('1'), Risposta_Dati({"a", "b", "c", "d", "e", "f"})};
    }
    /// The boxes show the profile again, what was typed in them is gone from the screen.
    void letturaFallitaProfiloIntatto()
    {
        QFETCH(QList<QByteArray>, risposte);
        Linee_Prepara([&risposte](LineaProva &linea) { linea.Copione(risposte); });
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("scritto"));
        Leggi_Strumento(DURATA_SILENZIO);
        QCOMPARE(Ini(), prima);
        for (int riga = 0; riga <= OPERATORE; ++riga)
            QCOMPARE(Casella(riga)->text(), Valore(ATTESE[riga].sezione, ATTESE[riga].chiave));
    }

    void operatoreDopoLaLettura_data()
    {
        QTest::addColumn<bool>("riuscita");
        QTest::addColumn<QString>("operatore");
        QTest::newRow("riuscita") << true << TESTI_STRUMENTO[OPERATORE];
        QTest::newRow("fallita") << false << QStringLiteral("Rossi Mario");
    }
    /// What the box shows is what the save keeps, and not the name that stood typed there before the reading.
    void operatoreDopoLaLettura()
    {
        QFETCH(bool, riuscita);
        QFETCH(QString, operatore);
        Imposta("VEICOLO", "Operatore", QStringLiteral("Rossi Mario"));
        if (!riuscita)
            Linee_Prepara({});
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Lascia();
        Leggi_Strumento(DURATA_SILENZIO);
        QCOMPARE(Casella(OPERATORE)->text(), operatore);
        Salva_ConSessione(DURATA_SILENZIO); // the row has been touched: the operator goes to the instrument
        QCOMPARE(Valore("VEICOLO", "Operatore"), operatore);
    }

    /// What the profile keeps of an instrument's text is what the box shows of it.
    void testoDelloStrumentoComeSiVede()
    {
        strumento->Imposta(Blocco::Dati, QStringList(6, QStringLiteral("QX5\r\nPwd=")));
        Apri();
        Leggi_Strumento();
        for (int riga = 0; riga <= OPERATORE; ++riga)
            QCOMPARE(Valore(ATTESE[riga].sezione, ATTESE[riga].chiave), Casella(riga)->text());
    }

    void testiMancanti_data()
    {
        QTest::addColumn<QList<QByteArray>>("dati");
        QTest::addColumn<QList<QByteArray>>("taratura");
        QTest::newRow("nella taratura") << QList<QByteArray>(6, "d") << QList<QByteArray>(7, "t");
        QTest::newRow("nei dati") << QList<QByteArray>(3, "d") << QList<QByteArray>(10, "t");
    }
    /// An instrument that gives fewer texts than it should: the operator is told, and the form goes on.
    void testiMancanti()
    {
        QFETCH(QList<QByteArray>, dati);
        QFETCH(QList<QByteArray>, taratura);
        Linee_Prepara([&](LineaProva &linea) {
            linea.Copione({Risposta_Stato('1'), Risposta_Dati(dati), Risposta_Taratura(taratura)});
        });
        Apri();
        QString messaggio;
        Regia regia;
        regia.Quando("frmComm", [](Modulo &) { Orologio_Banco().Avanza(DURATA_SESSIONE); })
            .Quando("frmMsg", [&messaggio](Modulo &msg) {
                messaggio = Testo_Di(msg, "lbl_0");
                Orologio_Banco().Avanza(10000);
                QVERIFY(msg.Caricato()); // it waits for the operator
                Premi(msg, "cmd_0");
            });
        Scegli(STRUMENTO, 0);
        QVERIFY(regia.Finita());
        QCOMPARE(messaggio, QStringLiteral("Notifica sts: 6 Subscript out of range"));
        QVERIFY(form->Caricato());
        Salva();
    }

    /// The model is kept as 1, over the item's number that was written with the other rows.
    void strumentoSceltoSalvato()
    {
        Imposta("IMPOSTAZIONI", "ModSeriale", QStringLiteral("9"));
        Apri();
        Leggi_Strumento();
        const QByteArray letto = Ini();
        Salva();
        QCOMPARE(Ini(), Ini_Con(letto, "IMPOSTAZIONI", "ModSeriale", "1"));
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupLavoro,  0},
                                 {SetupSalvato, 0}
        }));
        QCOMPARE(Tipi(), QByteArray("105090")); // reading makes no operator to write
    }

    // --- the operator -------------------------------------------------------------------------------------

    /// Written to the profile first, and from there to the instrument with the identity it holds.
    void operatoreScrittoNelloStrumento()
    {
        const QByteArray prima = Ini();
        QByteArray alPrimoComando;
        strumento->AlComando = [&](const QByteArray &) {
            if (alPrimoComando.isEmpty())
                alPrimoComando = Ini();
        };
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Salva_ConSessione();
        const QByteArray dopo = Ini_Con(prima, "VEICOLO", "Operatore", "Neri Ada");
        QCOMPARE(alPrimoComando, dopo);
        QCOMPARE(Ini(), dopo);
        QCOMPARE(Tipi(), QByteArray("106080"));
        const QStringList identita = {QStringLiteral("QX5"), QStringLiteral("Marca di prova"),
                                      QStringLiteral("OM00000"), QStringLiteral("000001"),
                                      QStringLiteral("31/12/2027")};
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(identita));
        QCOMPARE(strumento->Testi(Blocco::Dati), identita + QStringList{QStringLiteral("Neri Ada")});
        QCOMPARE(strumento->Testi(Blocco::Taratura), TESTI_TARATURA);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupSalvato, 0}
        }));
    }

    /// The box that was only entered and left counts as changed.
    void operatoreVisitato()
    {
        const QByteArray prima = Ini();
        Apri();
        Premi_Riga(OPERATORE);
        Salva_ConSessione();
        QCOMPARE(Ini(), prima);
        QCOMPARE(Tipi(), QByteArray("106080"));
    }

    void operatoreNonToccatoNessunaSessione()
    {
        Apri();
        Premi_Riga(INI_FILE);
        Salva();
        QVERIFY(strumento->Comandi.isEmpty());
    }

    /// The profile has been written before, and stays; the save goes on.
    void operatoreConStrumentoMuto()
    {
        Linee_Prepara({});
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Premi_Riga(23);
        Salva_ConSessione(DURATA_SILENZIO);
        QCOMPARE(Ini(), Ini_Con(Ini_Con(prima, "VEICOLO", "Operatore", "Neri Ada"), "MCTC", "Esce", "1"));
        QCOMPARE(gEsce, Vero);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupSalvato, 0}
        }));
    }

    void byteRiservatiNellOperatore_data()
    {
        QTest::addColumn<QString>("operatore");
        QTest::addColumn<QByteArray>("carico");
        QTest::addColumn<QString>("tenuto");
        QTest::newRow("separatore") << QStringLiteral(u"Neri\u0017Ada")
                                    << QByteArray("Neri\x17"
                                                  "Ada\x17\0",
                                                  10)
                                    << QStringLiteral("Neri");
        // The instrument sees a frame that ends too early, and never answers it.
        QTest::newRow("fine") << QStringLiteral(u"Neri\u0003Ada")
                              << QByteArray("Neri\x03"
                                            "Ada\x17\0",
                                            10)
                              << TESTI_STRUMENTO[OPERATORE];
    }
    /// No byte is kept out of the frame, not even those that have a role in it.
    void byteRiservatiNellOperatore()
    {
        QFETCH(QString, operatore);
        QFETCH(QByteArray, carico);
        Apri();
        Premi_Riga(OPERATORE);
        Casella(OPERATORE)->setText(operatore);
        Salva_ConSessione(DURATA_SILENZIO);
        QCOMPARE(Valore("VEICOLO", "Operatore"), operatore);
        QVERIFY(Tipi().startsWith("106080"));
        QCOMPARE(Carico_Di(strumento->Comandi[2]), carico);
        QTEST(strumento->Testi(Blocco::Dati)[OPERATORE], "tenuto");
    }

    /// After a reading the block has one element more: it does not go out with the next writing.
    void letturaEPoiOperatore()
    {
        Apri();
        Leggi_Strumento();
        QCOMPARE(gDatiStrumento.size(), 7);
        strumento->Comandi.clear();
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Salva_ConSessione();
        QCOMPARE(gDatiStrumento.size(), 6);
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(TESTI_STRUMENTO.mid(0, 5)));
        QCOMPARE(Carico_Di(strumento->Comandi[2]), QByteArray("Neri Ada\x17") + '\0');
    }

    // --- the save -----------------------------------------------------------------------------------------

    void nienteDaSalvare()
    {
        const QByteArray prima = Ini();
        Apri();
        Salva();
        QCOMPARE(Ini(), prima);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupSalvato, 0}
        }));
        QVERIFY(strumento->Comandi.isEmpty());
    }

    /// Rows in their order first, with what the table holds; then what each of them means.
    void ordineDelSalvataggio()
    {
        Ini("[GENERAL]\r\n");
        gIniFile = Vero;
        gModalita = Vero;
        Apri();
        Scegli(PORTA, 6);
        Leggi_Strumento(DURATA_SILENZIO);
        Premi_Riga(25);
        Premi_Riga(INI_FILE);
        Scegli(MODALITA, 0);
        Sblocca(PWD);
        Riscrivi_Riga(ULTIMO_LUX, QStringLiteral("14"));
        Riscrivi_Riga(PRIMO_LUX, QStringLiteral("11"));
        Scegli(LINGUA, 2);
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Ini("[GENERAL]\r\n");
        notifiche->clear();
        QByteArray durante;
        Flag modalita = Falso, acustico = Vero;
        Salva_ConSessione(DURATA_SILENZIO, [&] {
            durante = Ini();
            modalita = gModalita;
            acustico = gAllarmeAcustico;
            QVERIFY(notifiche->isEmpty());
        });
        QCOMPARE(durante, QByteArray("[GENERAL]\r\n[VEICOLO]\r\nOperatore=Neri Ada\r\n"
                                     "[IMPOSTAZIONI]\r\nLingua=en\r\nModSeriale=0\r\n"
                                     "[PARAMETRI]\r\nLuxMaxAnab=11\r\nLuxMinAbb=14\r\n"
                                     "[MCTC]\r\nModalita=0\r\nIniFile=1\r\nAllarmeAcustico=1\r\n"
                                     "[COMM]\r\nNum=COM7\r\n"));
        QCOMPARE(modalita, Vero); // nothing takes effect before its row's turn
        QCOMPARE(acustico, Falso);
        QCOMPARE(Ini(), Ini_Con(Ini_Con(durante, "IMPOSTAZIONI", "ModSeriale", "1"), "COMM", "Num", "7"));
        QCOMPARE(gModalita, Falso);
        QCOMPARE(gAllarmeAcustico, Vero);
        QCOMPARE(*notifiche, (Notifiche{
                                 {SetupLavoro,  0},
                                 {SetupLavoro,  0},
                                 {SetupSalvato, 0}
        }));
    }

    void notificaPrimaDelloScarico()
    {
        Apri();
        bool caricato = false;
        connect(form.get(), &frmSetupO::Notifica, this, [&] { caricato = form->Caricato(); });
        Salva();
        QVERIFY(caricato);
    }

    /// There is no cancel: any other way out keeps nothing, and tells nobody.
    void uscitaSenzaSalvare()
    {
        const QByteArray prima = Ini();
        Apri();
        Riscrivi_Riga(OPERATORE, QStringLiteral("Neri Ada"));
        Premi_Riga(INI_FILE);
        Scegli(PORTA, 4);
        Batti(Qt::Key_Escape);
        QVERIFY(form->Caricato());
        form->Finestra()->close();
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QVERIFY(notifiche->isEmpty());
        QCOMPARE(gIniFile, Vero);
    }

    /// A box that refuses to be left holds the save back; it is not the save that asks it.
    void limiteErratoTrattieneIlSalvataggio()
    {
        Apri();
        Sblocca(PWD);
        Riscrivi_Riga(PRIMO_LUX, QStringLiteral("abc"));
        Regia regia;
        regia.Quando("frmMsg", [](Modulo &) { Orologio_Banco().Avanza(2000); });
        Premi(*form, "cmd_0");
        QVERIFY(regia.Finita());
        QVERIFY(form->Caricato());
        QVERIFY(notifiche->isEmpty());
    }

    // --- periodic verification ----------------------------------------------------------------------------

    void verifica_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<bool>("aperta");
        QTest::newRow("giusta") << PWD << true;
        QTest::newRow("errata") << QStringLiteral("zz") << false;
        QTest::newRow("nessuna") << QString() << false;
    }
    /// The derived folders follow the keys after it, whatever the password.
    void verifica()
    {
        QFETCH(QString, password);
        QFETCH(bool, aperta);
        Apri();
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(4)));
        Imposta("MCTC", "DirDati", QStringLiteral("X:\\altrove\\"));
        bool modale = false;
        Regia regia;
        Password_Data(regia, password);
        if (aperta) {
            regia.Quando("frmVerPerO", [&modale](Modulo &verifica) {
                modale = QApplication::activeModalWidget() == verifica.Finestra();
                Premi(verifica, "cmd_1");
            });
        }
        Premi(*form, "cmd_1");
        QVERIFY(regia.Finita());
        QCOMPARE(modale, aperta);
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmSetupO")));
        QCOMPARE(gDirAcc, QStringLiteral("X:\\altrove\\DIR_FAR\\"));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmSetupO>(argc, argv);
}
#include "tst_frmSetupO.moc"
