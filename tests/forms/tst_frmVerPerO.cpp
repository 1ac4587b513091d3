// The periodic verification, with the instrument at the other end of the line: what goes to it, what comes
// back to the profile, and what is dropped.
#include "report/frmVerPerO.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "link/protocollo.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/ini_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/strumento_prova.h"

#include <QTest>

namespace {

struct RigaAttesa
{
    const char *chiave;
    qint16 etichetta;
    qint32 cima;
};

constexpr RigaAttesa RIGHE[] = {
    {"Comm_Modello",       14, 400 },
    {"Comm_Marca",         15, 1100},
    {"Comm_NOmologazione", 16, 1800},
    {"Comm_NSerie",        17, 2500},
    {"Comm_ScadRevisione", 18, 3200},
};
constexpr int QUANTE = 5;

const QString LUMIRA = QStringLiteral("LUMIRA");
const QStringList PROFILO = {QStringLiteral("QX5"), QStringLiteral("Marca di prova"),
                             QStringLiteral("OM00000"), QStringLiteral("000001"),
                             QStringLiteral("31/12/2027")};
const QStringList STRUMENTO = {QStringLiteral("vecchio"),  QStringLiteral("vecchia"),
                               QStringLiteral("OM9"),      QStringLiteral("9"),
                               QStringLiteral("1/1/2020"), QStringLiteral("Bianchi")};

/// Two replies come in and are looked at, in ms.
constexpr qint64 DUE_RISPOSTE = 2 * 200;

/// Another date on the clock of all.
class Calendario : public Orologio
{
public:
    explicit Calendario(const QDate &giorno) : m_giorno(giorno) { Orologio_Imposta(this); }
    ~Calendario() override { Orologio_Imposta(&Orologio_Banco()); }
    Q_DISABLE_COPY_MOVE(Calendario)

    QDateTime Adesso() const override { return QDateTime(m_giorno, QTime(8, 0)); }
    std::unique_ptr<Sveglia> Nuova_Sveglia(std::function<void()> suona) override
    {
        return Orologio_Banco().Nuova_Sveglia(std::move(suona));
    }

private:
    QDate m_giorno;
};

} // namespace

class tst_frmVerPerO : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmVerPerO>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QByteArray Ini() const { return banco->Stazione.Leggi(QStringLiteral("lumira.ini")); }
    QLineEdit *Casella(int i) const { return Membro_Di<QLineEdit>(*form, "txt", i); }
    QStringList Scritti() const
    {
        QStringList testi;
        for (int i = 0; i < QUANTE; ++i)
            testi.append(Casella(i)->text());
        return testi;
    }
    /// Presses a button that opens a session, and lets the session take its time.
    void Sessione(const char *pulsante, qint64 ms = DURATA_SESSIONE) const
    {
        Regia regia;
        regia.Quando("frmComm", [ms](Modulo &) { Orologio_Banco().Avanza(ms); });
        Premi(*form, pulsante);
        QVERIFY(regia.Finita());
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
    std::shared_ptr<frmVerPerO> form;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        strumento = std::make_unique<StrumentoProva>();
        strumento->Imposta(Blocco::Dati, STRUMENTO);
        gLingua = QStringLiteral("EN"); // the profile says IT: what is written can be told
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        strumento.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    // --- look ---------------------------------------------------------------------------------------------

    void righeDalProfilo()
    {
        Apri();
        QCOMPARE(Scritti(), PROFILO);
        for (int i = 0; i < QUANTE; ++i) {
            QCOMPARE(Casella(i)->pos(), Posto_Twip(100, RIGHE[i].cima, 0, 0).topLeft()); // unscaled
            auto *etichetta = Membro_Di<QLabel>(*form, "lbl", i);
            QCOMPARE(etichetta->pos(), Posto_Twip(100, RIGHE[i].cima - 200, 0, 0).topLeft());
            QCOMPARE(etichetta->text(), Testo_Mctc(Id_Mctc(RIGHE[i].etichetta)));
            QVERIFY(Casella(i)->isVisible() && !Casella(i)->isReadOnly());
        }
    }

    void titoloPulsantiECornice()
    {
        Apri();
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(4)));
        QCOMPARE(Testo_Di(*form, "lblTitolo"), Testo_Mctc(Id_Mctc(4)));
        QVERIFY(Visibile(*form, "lblTitolo"));
        const QString didascalie[] = {QStringLiteral("Ok"), Testo_Mctc(Id_Mctc(106)),
                                      Testo_Mctc(Id_Mctc(128)), QStringLiteral("Default")};
        const qint32 posti[] = {form->Width() - 3200, form->Width() - 1600, 1700, 100};
        for (int i = 0; i < 4; ++i) {
            auto *pulsante = Membro_Di<QPushButton>(*form, "cmd", i);
            QCOMPARE(pulsante->text(), didascalie[i]);
            QCOMPARE(pulsante->pos(), Posto_Twip(posti[i], form->Height() - 1200, 0, 0).topLeft());
        }
        QVERIFY(Ha_Cornice(*form, 40, 70, form->Width() - 350, form->Height() - 1300));
        QCOMPARE(form->Left(), (gScreenW - form->Width()) / 2);
        QCOMPARE(form->Top(), (gScreenH - form->Height()) / 2);
    }

    // --- Ok -----------------------------------------------------------------------------------------------

    /// The five texts go out all the same; in the profile only the language is kept.
    void okSenzaModifiche()
    {
        const QByteArray prima = Ini();
        Apri();
        Sessione("cmd_0");
        QVERIFY(!form->Caricato());
        QCOMPARE(Tipi(), QByteArray("106080"));
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(PROFILO));
        QCOMPARE(Carico_Di(strumento->Comandi[2]), QByteArray(1, '\0')); // no sixth text: the operator stays
        QCOMPARE(strumento->Testi(Blocco::Dati), PROFILO + QStringList{STRUMENTO[5]});
        QCOMPARE(gDatiStrumento.size(), QUANTE);
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "Lingua", "EN"));
    }

    /// To the instrument first, with the profile as it was; then the changed rows alone.
    void okConModifiche()
    {
        const QByteArray prima = Ini();
        QList<QByteArray> iniAiComandi;
        strumento->AlComando = [&](const QByteArray &) { iniAiComandi.append(Ini()); };
        Apri();
        Scrivi(*form, "txt_1", QStringLiteral("Nuova marca"));
        Scrivi(*form, "txt_4", QStringLiteral("quando capita"));
        Sessione("cmd_0");
        QCOMPARE(iniAiComandi, QList<QByteArray>(3, prima));
        QStringList attesi = PROFILO;
        attesi[1] = QStringLiteral("Nuova marca");
        attesi[4] = QStringLiteral("quando capita"); // a free text
        QCOMPARE(strumento->Testi(Blocco::Dati), attesi + QStringList{STRUMENTO[5]});
        QCOMPARE(Ini(), Ini_Con(Ini_Con(Ini_Con(prima, "LUMIRA", "Comm_Marca", "Nuova marca"), "LUMIRA",
                                        "Comm_ScadRevisione", "quando capita"),
                                "IMPOSTAZIONI", "Lingua", "EN"));
    }

    void ordineDelleScritture()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\n");
        Apri();
        for (const int i : {4, 0, 2, 3, 1})
            Scrivi(*form, QByteArray("txt_" + QByteArray::number(i)).constData(), QString::number(i));
        Sessione("cmd_0");
        QCOMPARE(Ini(), QByteArray("[GENERAL]\r\n[LUMIRA]\r\nComm_Modello=0\r\nComm_Marca=1\r\n"
                                   "Comm_NOmologazione=2\r\nComm_NSerie=3\r\nComm_ScadRevisione=4\r\n"
                                   "[IMPOSTAZIONI]\r\nLingua=EN\r\n"));
    }

    /// A field that the profile has not got and nobody entered goes out as an empty text.
    void campoVuotoMaiToccato()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), Ini_Senza(Ini(), "LUMIRA", "Comm_NSerie"));
        Apri();
        QVERIFY(Casella(3)->text().isEmpty());
        Sessione("cmd_0");
        QStringList attesi = PROFILO;
        attesi[3].clear();
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(attesi));
        QVERIFY(!Ini().contains("Comm_NSerie"));
    }

    void sessioneFallita_data()
    {
        QTest::addColumn<QList<QByteArray>>("risposte");
        QTest::newRow("strumento muto") << QList<QByteArray>{};
        QTest::newRow("strumento occupato") << QList<QByteArray>{Risposta_Stato('2')};
        QTest::newRow("prima scrittura rifiutata")
            << QList<QByteArray>{Risposta_Stato('1'), Risposta_Scritto('x')};
        QTest::newRow("muto dopo la prima scrittura")
            << QList<QByteArray>{Risposta_Stato('1'), Risposta_Scritto()};
        QTest::newRow("seconda scrittura rifiutata")
            << QList<QByteArray>{Risposta_Stato('1'), Risposta_Scritto(), Risposta_Scritto('x')};
    }
    /// The form closes, the entries are dropped, the profile has not changed in a byte.
    void sessioneFallita()
    {
        QFETCH(QList<QByteArray>, risposte);
        Linee_Prepara([&risposte](LineaProva &linea) { linea.Copione(risposte); });
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Premi(*form, "cmd_2");
        Sessione("cmd_0", DURATA_SILENZIO);
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        Apri();
        QCOMPARE(Scritti(), PROFILO);
    }

    /// The operator breaks off before the instrument has taken anything.
    void sessioneInterrotta()
    {
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Regia regia;
        regia.Quando("frmComm", [](Modulo &comm) { Premi(comm, "cmd_0"); });
        Premi(*form, "cmd_0");
        QVERIFY(regia.Finita());
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QCOMPARE(strumento->Testi(Blocco::Dati), STRUMENTO);
    }

    /// Broken off once the first frame has been taken and the second has gone out: that counts as done.
    void sessioneInterrottaTraLeDueScritture()
    {
        Linee_Prepara([](LineaProva &linea) { linea.Copione({Risposta_Stato('1'), Risposta_Scritto()}); });
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Regia regia;
        regia.Quando("frmComm", [](Modulo &comm) {
            Orologio_Banco().Avanza(DUE_RISPOSTE);
            QCOMPARE(Linea_Corrente()->Usciti.size(), 3);
            Premi(comm, "cmd_0");
        });
        Premi(*form, "cmd_0");
        QVERIFY(regia.Finita());
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), Ini_Con(Ini_Con(prima, "LUMIRA", "Comm_Modello", "Nuovo modello"), "IMPOSTAZIONI",
                                "Lingua", "EN"));
    }

    // --- bytes with a role in the frame -------------------------------------------------------------------

    /// A separator inside a text makes two of it: every later one moves on by one.
    void separatoreInUnTesto()
    {
        Apri();
        Casella(0)->setText(QStringLiteral(u"QX5\u0017B"));
        Casella(0)->setFocus();
        Sessione("cmd_0");
        QStringList spostati = PROFILO;
        spostati.insert(1, QStringLiteral("B"));
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(spostati.first(QUANTE)));
        QCOMPARE(Carico_Di(strumento->Comandi[2]), Testi_Chiusi(spostati.sliced(QUANTE)) + '\0');
        QCOMPARE(strumento->Testi(Blocco::Dati), spostati);
        QCOMPARE(Valore_Ini(gFileIni, LUMIRA, QStringLiteral("Comm_Modello")), QStringLiteral(u"QX5\u0017B"));
    }

    /// An end byte inside a text goes out too; the instrument does not answer what arrives of the frame.
    void fineInUnTesto()
    {
        const QByteArray prima = Ini();
        Apri();
        Casella(0)->setText(QStringLiteral(u"QX5\u0003B"));
        Casella(0)->setFocus();
        Sessione("cmd_0", DURATA_SILENZIO);
        QStringList testi = PROFILO;
        testi[0] = QStringLiteral(u"QX5\u0003B");
        QCOMPARE(Carico_Di(strumento->Comandi[1]), Testi_Chiusi(testi));
        QCOMPARE(strumento->Testi(Blocco::Dati), STRUMENTO);
        QCOMPARE(Ini(), prima);
    }

    // --- leaving ------------------------------------------------------------------------------------------

    void esciNonScrive_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"cmd_1", "escape", "finestra"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    void esciNonScrive()
    {
        QFETCH(QString, modo);
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Premi(*form, "cmd_2");
        if (modo == u"escape")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else if (modo == u"finestra")
            form->Finestra()->close();
        else
            Premi(*form, "cmd_1");
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QVERIFY(strumento->Comandi.isEmpty());
    }

    // --- the next due date --------------------------------------------------------------------------------

    void scadenzaProposta_data()
    {
        QTest::addColumn<QDate>("oggi");
        QTest::addColumn<QString>("scadenza");
        QTest::newRow("un giorno di marzo") << QDate(2024, 3, 15) << QStringLiteral("15/03/2025");
        QTest::newRow("29 febbraio") << QDate(2024, 2, 29)
                                     << QStringLiteral("29/02/2025"); // not in the calendar
        QTest::newRow("capodanno") << QDate(2025, 1, 1) << QStringLiteral("01/01/2026");
        QTest::newRow("fine secolo") << QDate(2099, 12, 31) << QStringLiteral("31/12/2100");
    }
    void scadenzaProposta()
    {
        QFETCH(QDate, oggi);
        QFETCH(QString, scadenza);
        const Calendario calendario(oggi);
        const QByteArray prima = Ini();
        Apri();
        Premi(*form, "cmd_2");
        QCOMPARE(Scritti(), PROFILO.mid(0, 4) + QStringList{scadenza});
        QCOMPARE(Ini(), prima); // only proposed
        Sessione("cmd_0");
        QCOMPARE(strumento->Testi(Blocco::Dati)[4], scadenza);
        QCOMPARE(Ini(), Ini_Con(Ini_Con(prima, "LUMIRA", "Comm_ScadRevisione", scadenza.toLatin1()),
                                "IMPOSTAZIONI", "Lingua", "EN"));
    }

    void scadenzaPropostaECorretta()
    {
        Apri();
        Premi(*form, "cmd_2");
        Scrivi(*form, "txt_4", QStringLiteral("28/02/2025"));
        Sessione("cmd_0");
        QCOMPARE(Valore_Ini(gFileIni, LUMIRA, QStringLiteral("Comm_ScadRevisione")),
                 QStringLiteral("28/02/2025"));
    }

    // --- Default ------------------------------------------------------------------------------------------

    /// What the profile holds goes out, both blocks; what was typed stays in the boxes and goes nowhere.
    void defaultMandaIlProfilo()
    {
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Sessione("cmd_3");
        QVERIFY(form->Caricato());
        QCOMPARE(Casella(0)->text(), QStringLiteral("Nuovo modello"));
        QCOMPARE(Tipi(), QByteArray("6080a0"));
        QCOMPARE(strumento->Testi(Blocco::Dati), PROFILO + QStringList{QStringLiteral("Rossi Mario")});
        QStringList taratura = {QStringLiteral("1000"), QStringLiteral("0")};
        for (int i = 0; i < 8; ++i)
            taratura.append(QStringLiteral("100"));
        QCOMPARE(strumento->Testi(Blocco::Taratura), taratura);
        QCOMPARE(Ini(), prima);
    }

    /// A station that never read its instrument: ten lone separators.
    void defaultSenzaTaratura()
    {
        const qsizetype posto = Ini().indexOf("[CALIBRAZIONE_COM]");
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), Ini().left(posto));
        Apri();
        Sessione("cmd_3");
        QCOMPARE(Carico_Di(strumento->Comandi[2]), QByteArray(10, '\x17'));
    }

    /// The code of a Default is no leave to save: the Ok that follows stands by its own session.
    void defaultRiuscitoNonValePerOk()
    {
        const QByteArray prima = Ini();
        Apri();
        Sessione("cmd_3");
        Linee_Prepara({});
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Sessione("cmd_0", DURATA_SILENZIO);
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
    }

    void defaultFallitoNonChiude()
    {
        Linee_Prepara({});
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_2", QStringLiteral("OM1"));
        Sessione("cmd_3", DURATA_SILENZIO);
        QVERIFY(form->Caricato());
        QCOMPARE(Casella(2)->text(), QStringLiteral("OM1"));
        QCOMPARE(Ini(), prima);
    }

    // --- an empty field -----------------------------------------------------------------------------------

    void campoVuotoTrattieneIlFuoco_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("uscita");
        for (int campo = 0; campo < QUANTE; ++campo) {
            for (const char *uscita : {"cmd_0", "cmd_1", "cmd_2", "cmd_3", "tab", "escape"})
                QTest::addRow("campo %d, %s", campo, uscita) << campo << QString::fromLatin1(uscita);
        }
    }
    /// A message of two seconds, and the operator is still in the field: no way out acts.
    void campoVuotoTrattieneIlFuoco()
    {
        QFETCH(int, campo);
        QFETCH(QString, uscita);
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, QByteArray("txt_" + QByteArray::number(campo)).constData(), QString());
        int messaggi = 0;
        Regia regia;
        regia.Quando("frmMsg", [&](Modulo &msg) {
            ++messaggi;
            QCOMPARE(Testo_Di(msg, "lbl_0"), Testo_Mctc(Id_Mctc(108)));
            Orologio_Banco().Avanza(1999);
            QVERIFY(msg.Caricato());
            Orologio_Banco().Avanza(1);
            QVERIFY(!msg.Caricato());
        });
        if (uscita == u"tab" || uscita == u"escape")
            QTest::keyClick(Casella(campo), uscita == u"tab" ? Qt::Key_Tab : Qt::Key_Escape);
        else
            Premi(*form, uscita.toLatin1().constData());
        QVERIFY(regia.Finita());
        QCOMPARE(messaggi, 1);
        QVERIFY(form->Caricato());
        QVERIFY(Attiva(*form));
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(Casella(campo)));
        QVERIFY(strumento->Comandi.isEmpty());
        QCOMPARE(Ini(), prima);

        // Filled again, the field lets the operator go.
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
        Premi(*form, "cmd_1");
        QVERIFY(!form->Caricato());
    }

    /// A single blank is a text.
    void unBlankBasta()
    {
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral(" "));
        Premi(*form, "cmd_1");
        QVERIFY(!form->Caricato());
    }

    // --- the one instance ---------------------------------------------------------------------------------

    /// A new opening shows the profile again, and remembers no change.
    void riapertaDalProfilo()
    {
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuovo modello"));
        Premi(*form, "cmd_1");
        form->Mostra();
        QVERIFY(Attiva(*form));
        QCOMPARE(Scritti(), PROFILO);
        const QByteArray prima = Ini();
        Sessione("cmd_0");
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "Lingua", "EN"));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmVerPerO>(argc, argv);
}
#include "tst_frmVerPerO.moc"
