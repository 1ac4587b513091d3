// Vehicle and lamp entry: where its fields come from, what may be changed, and what a confirmation leaves.
#include "report/frmMctc2.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/schermo.h"

#include <QCheckBox>
#include <QFile>
#include <QTest>

namespace {

struct RigaProva
{
    qint16 etichetta;
    const char *chiaveIni; // in section VEICOLO
    const char *valoreAcc; // in the template
};

constexpr RigaProva RIGHE[] = {
    {58,  "Marca",        "FABBRICA DI PROVA"     },
    {45,  "Modello",      "BERLINA 1.6"           },
    {60,  "Allestimento", "M16D"                  },
    {37,  "Targa",        "AB123CD"               },
    {57,  "Telaio",       "ZZZ00000000000001"     },
    {62,  "AnnoImm",      "2018"                  },
    {47,  "NomeCliente",  "VERDI"                 },
    {10,  "Indirizzo",    "VIA DEI MILLE 12"      },
    {51,  "Citta",        "FORLÌ"                },
    {52,  "Telefono",     "0543000000"            },
    {142, "Operatore",    "Bianchi Anna"          },
    {53,  "Note",         "RITIRO ENTRO LE ORE 18"},
};
constexpr int RIGHE_VEICOLO = 12;

constexpr qint16 RIGA_ALTEZZA = 12, RIGA_INCLINAZIONE = 13, RIGA_SIMMETRICO = 14;

const QString IMPOSTAZIONI = QStringLiteral("IMPOSTAZIONI");
const QString VEICOLO = QStringLiteral("VEICOLO");

} // namespace

class tst_frmMctc2 : public QObject
{
    Q_OBJECT

private:
    /// Fields of the acceptance file, as the worklist hands it over; otherwise the vehicle written by hand.
    void Apri(bool accettazione)
    {
        gIniFile = Flag_Da(accettazione);
        gTipoProva = ProvaScelta;
        if (accettazione)
            gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Apri_Come();
    }
    /// With the state that the test has set.
    void Apri_Come()
    {
        form = Nuovo<frmMctc2>();
        connect(form.get(), &frmMctc2::Notifica, this, [this](qint16 &codice, QVariant &valore) {
            notifiche.append({codice, valore.toInt()});
            caricatoAllaNotifica = form->Caricato();
            iniAllaNotifica = Ini();
            altezzaAllaNotifica = gAltezzaFaro;
        });
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QByteArray Ini() const { return banco->Stazione.Leggi(QStringLiteral("lumira.ini")); }
    QString Memorizzato(const QString &sezione, const QString &chiave) const
    {
        return Valore_Ini(gFileIni, sezione, chiave);
    }
    QString Altezza_Memorizzata() const { return Memorizzato(IMPOSTAZIONI, QStringLiteral("AltezzaFaro")); }
    QLineEdit *Casella(int riga) const { return Membro_Di<QLineEdit>(*form, "txt", riga); }
    QLabel *Etichetta_Di(int riga) const { return Membro_Di<QLabel>(*form, "lbl", riga); }
    QCheckBox *Simmetrico() const { return Widget_Di<QCheckBox>(*form, "chk_0"); }
    QImage Figura() const { return Widget_Di<QLabel>(*form, "picSim")->pixmap().toImage(); }
    /// Waits for the message of a refused height, and lets its time pass.
    void Attendi_Rifiuto(Regia &regia)
    {
        regia.Quando("frmMsg", [this](Modulo &msg) {
            ++rifiuti;
            QCOMPARE(Testo_Di(msg, "lbl_0"), Testo_Mctc(Id_Mctc(108)));
            QCOMPARE(Predefinito<frmMsg>().Mode, qint16{0});
            QCOMPARE(Predefinito<frmMsg>().TopMost, qint16{0});
            Orologio_Banco().Avanza(2000);
        });
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmMctc2> form;
    Notifiche notifiche;
    bool caricatoAllaNotifica = false;
    QByteArray iniAllaNotifica;
    double altezzaAllaNotifica = 0;
    int rifiuti = 0;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        gAltezzaFaro = -1;
        notifiche.clear();
        rifiuti = 0;
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(gCaricamento, Falso);
    }

    // --- fields -------------------------------------------------------------------------------------------

    void accettazioneRigheDalFileEBloccate()
    {
        Apri(true);
        for (int i = 0; i < RIGHE_VEICOLO; ++i) {
            QCOMPARE(Casella(i)->text(), QString::fromUtf8(RIGHE[i].valoreAcc));
            QVERIFY(Casella(i)->isReadOnly());
            QCOMPARE(Etichetta_Di(i)->text(), Testo_Mctc(Id_Mctc(RIGHE[i].etichetta)));
            QVERIFY(Etichetta_Di(i)->isEnabled()); // only the lamp's labels go grey with their box
        }
        QVERIFY(!Casella(RIGA_ALTEZZA)->isReadOnly());
        QVERIFY(!Casella(RIGA_INCLINAZIONE)->isReadOnly());
        QVERIFY(Simmetrico()->isEnabled());
    }

    void aManoRigheDallaConfigurazione()
    {
        for (int i = 0; i < RIGHE_VEICOLO; ++i)
            banco->Stazione.Imposta(VEICOLO, QString::fromLatin1(RIGHE[i].chiaveIni),
                                    QStringLiteral("valore %1").arg(i));
        Apri(false);
        for (int i = 0; i < RIGHE_VEICOLO; ++i) {
            QCOMPARE(Casella(i)->text(), QStringLiteral("valore %1").arg(i));
            QVERIFY(!Casella(i)->isReadOnly());
            QCOMPARE(Etichetta_Di(i)->text(), Testo_Mctc(Id_Mctc(RIGHE[i].etichetta)));
        }
    }

    void sorgenteDelleRighe_data()
    {
        QTest::addColumn<Flag>("lista");
        QTest::addColumn<qint16>("tipoProva");
        QTest::addColumn<bool>("accettazione");
        QTest::newRow("lista e pulsante di prova") << Vero << qint16{2} << true;
        QTest::newRow("lista, altro inizio") << Vero << qint16{4} << false;
        QTest::newRow("lista, tipo 1") << Vero << qint16{1} << false;
        QTest::newRow("senza lista") << Falso << qint16{2} << false;
    }
    void sorgenteDelleRighe()
    {
        QFETCH(Flag, lista);
        QFETCH(qint16, tipoProva);
        QFETCH(bool, accettazione);
        gIniFile = lista;
        gTipoProva = tipoProva;
        gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Apri_Come();
        QCOMPARE(Casella(10)->text(),
                 accettazione ? QStringLiteral("Bianchi Anna") : QStringLiteral("Rossi Mario"));
        QCOMPARE(Casella(10)->isReadOnly(), accettazione);
    }

    /// The list is on and empty: no file stands behind the locked fields.
    void listaVuotaRigheVuoteEBloccate()
    {
        banco->Stazione.Imposta(VEICOLO, QStringLiteral("Marca"), QStringLiteral("FIAT"));
        gIniFile = Vero;
        gTipoProva = ProvaScelta;
        gFileAcc.clear();
        Apri_Come();
        for (int i = 0; i < RIGHE_VEICOLO; ++i) {
            QVERIFY(Casella(i)->text().isEmpty());
            QVERIFY(Casella(i)->isReadOnly());
        }
    }

    void fileMancanteCampiVuoti()
    {
        gIniFile = Vero;
        gTipoProva = ProvaScelta;
        gFileAcc = gDirAcc + QStringLiteral("12345678.ACC");
        Apri_Come();
        QVERIFY(Casella(0)->text().isEmpty());
    }

    void datiDelFaro()
    {
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("AltezzaFaro"), QStringLiteral("70"));
        Apri(false);
        QCOMPARE(Etichetta_Di(RIGA_ALTEZZA)->text(), Testo_Mctc(Id_Mctc(118)));
        QCOMPARE(Etichetta_Di(RIGA_INCLINAZIONE)->text(), Testo_Mctc(Id_Mctc(119)));
        QCOMPARE(Etichetta_Di(RIGA_SIMMETRICO)->text(), Testo_Mctc(Id_Mctc(140)));
        QCOMPARE(Casella(RIGA_ALTEZZA)->text(), QStringLiteral("70"));
    }

    /// The inclination is never carried over from the vehicle before; the height is.
    void inclinazioneSvuotataAlCaricamento()
    {
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("InclinazioneFaro"), QStringLiteral("1.2"));
        const QByteArray prima = Ini();
        Apri(false);
        QVERIFY(Casella(RIGA_INCLINAZIONE)->text().isEmpty());
        QCOMPARE(Ini(), QByteArray(prima).replace("InclinazioneFaro=1.2", "InclinazioneFaro="));
        QCOMPARE(Casella(RIGA_ALTEZZA)->text(), QStringLiteral("65"));
    }

    void altezzaAutomatica()
    {
        gAltezzaFaroAuto = Vero;
        Apri(false);
        QVERIFY(Casella(RIGA_ALTEZZA)->isReadOnly());
        QVERIFY(!Etichetta_Di(RIGA_ALTEZZA)->isEnabled());
        QVERIFY(Etichetta_Di(RIGA_INCLINAZIONE)->isEnabled());
        QVERIFY(Sfondo_Di(Casella(RIGA_ALTEZZA)) != Sfondo_Di(Casella(RIGA_INCLINAZIONE)));
        Scrivi(*form, "txt_12", QStringLiteral("99"));
        QCOMPARE(Casella(RIGA_ALTEZZA)->text(), QStringLiteral("65"));
        // The instrument has put its own there meanwhile: that is what the confirmation takes.
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("AltezzaFaro"), QStringLiteral("81"));
        Premi(*form, "cmd_0");
        QCOMPARE(altezzaAllaNotifica, 81.0);
    }

    void altezzaLiberaEtichettaAccesa()
    {
        Apri(false);
        QVERIFY(Etichetta_Di(RIGA_ALTEZZA)->isEnabled());
        QVERIFY(!Casella(RIGA_ALTEZZA)->isReadOnly());
    }

    void tipo1BloccaLInclinazione()
    {
        gIniFile = Falso;
        gTipoProva = ProvaRiservata1;
        Apri_Come();
        QVERIFY(Casella(RIGA_INCLINAZIONE)->isReadOnly());
        QVERIFY(!Etichetta_Di(RIGA_INCLINAZIONE)->isEnabled());
        QVERIFY(!Casella(RIGA_ALTEZZA)->isReadOnly());
        QVERIFY(Etichetta_Di(RIGA_ALTEZZA)->isEnabled());
        Scrivi(*form, "txt_13", QStringLiteral("1"));
        QVERIFY(Casella(RIGA_INCLINAZIONE)->text().isEmpty());
    }

    // --- symmetric lamps ----------------------------------------------------------------------------------

    void simmetricoAlCaricamento_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("simmetrico");
        QTest::newRow("1") << QStringLiteral("1") << true;
        QTest::newRow("0") << QStringLiteral("0") << false;
        QTest::newRow("vuoto") << QString() << false;
        QTest::newRow("parola") << QStringLiteral("forse") << false;
        QTest::newRow("troppo grande") << QStringLiteral("99999999999") << false;
    }
    void simmetricoAlCaricamento()
    {
        QFETCH(QString, valore);
        QFETCH(bool, simmetrico);
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("Simmetrico"), valore);
        Apri(false);
        QCOMPARE(Simmetrico()->isChecked(), simmetrico);
        QCOMPARE(Testo_Di(*form, "lblFaro"), Testo_Mctc(Id_Mctc(simmetrico ? 120 : 121)));
        QCOMPARE(Widget_Di(*form, "picSim")->accessibleName(), Testo_Mctc(Id_Mctc(simmetrico ? 120 : 121)));
        // The tick that the loading set is no click of the operator's: nothing is written back.
        const QByteArray prima = Ini();
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), prima);
    }

    void simmetricoCambiaLaFigura()
    {
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("Simmetrico"), QStringLiteral("0"));
        Apri(false);
        const QImage asimmetrica = Figura();
        QVERIFY(!asimmetrica.isNull());
        Premi(*form, "chk_0");
        QVERIFY(Simmetrico()->isChecked());
        QCOMPARE(Testo_Di(*form, "lblFaro"), Testo_Mctc(Id_Mctc(120)));
        const QImage simmetrica = Figura();
        QVERIFY(simmetrica != asimmetrica);
        QTest::keyClick(Simmetrico(), Qt::Key_Space);
        QVERIFY(!Simmetrico()->isChecked());
        QCOMPARE(Testo_Di(*form, "lblFaro"), Testo_Mctc(Id_Mctc(121)));
        QCOMPARE(Figura(), asimmetrica);
        QTest::keyClick(Simmetrico(), Qt::Key_Space);
        Premi(*form, "cmd_0");
        QCOMPARE(Memorizzato(IMPOSTAZIONI, QStringLiteral("Simmetrico")), QStringLiteral("1"));
        // The next vehicle begins with what was left.
        Apri(false);
        QVERIFY(Simmetrico()->isChecked());
        QCOMPARE(Figura(), simmetrica);
        // What the form set itself is not the operator's word: it takes nobody else's away.
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("Simmetrico"), QStringLiteral("0"));
        Premi(*form, "cmd_0");
        QCOMPARE(Memorizzato(IMPOSTAZIONI, QStringLiteral("Simmetrico")), QStringLiteral("0"));
    }

    void figuraMancanteFinisceIlProgramma()
    {
        QVERIFY(QFile::remove(banco->Stazione.Nativo(QStringLiteral("dati\\faro0.jpg"))));
        form = Nuovo<frmMctc2>();
        QCOMPARE(Errore_DaEvento([this] { form->Mostra(); }), 53);
        gCaricamento = Falso;
    }

    // --- keys ---------------------------------------------------------------------------------------------

    /// Every key is swallowed, no locked row is ever written, and the file stays as it was byte by byte.
    void righeBloccateInghiottonoITasti()
    {
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("InclinazioneFaro"), QStringLiteral("1.2"));
        const QByteArray prima = Ini();
        Apri(true);
        for (int i = 0; i < RIGHE_VEICOLO; ++i) {
            QTest::mouseClick(Casella(i), Qt::LeftButton);
            QTest::keyClicks(Casella(i), QStringLiteral("xyz 1"));
            QTest::keyClick(Casella(i), Qt::Key_Backspace);
            QTest::keyClick(Casella(i), Qt::Key_Delete);
            QTest::keyClick(Casella(i), Qt::Key_V, Qt::ControlModifier);
            QTest::keyClick(Casella(i), Qt::Key_Return); // no button takes what the box has swallowed
            QVERIFY(form->Caricato());
            QCOMPARE(Casella(i)->text(), QString::fromUtf8(RIGHE[i].valoreAcc));
        }
        Premi(*form, "cmd_0");
        QCOMPARE(notifiche.size(), 1);
        // Nothing of the file's sections, and of the rest the one value that the loading empties.
        QCOMPARE(Ini(), QByteArray(prima).replace("InclinazioneFaro=1.2", "InclinazioneFaro="));
    }

    // --- the height ---------------------------------------------------------------------------------------

    void altezzaAllUscitaDallaCasella_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("virgola");
        QTest::addColumn<bool>("accettata");
        QTest::newRow("123") << QStringLiteral("123") << false << true;
        QTest::newRow("1234") << QStringLiteral("1234") << false << false;
        QTest::newRow("1.5") << QStringLiteral("1.5") << false << true;
        QTest::newRow("12.5") << QStringLiteral("12.5") << false << false;
        QTest::newRow("0") << QStringLiteral("0") << false << true;
        QTest::newRow("vuota") << QString() << false << false;
        QTest::newRow("lettere") << QStringLiteral("abc") << false << false;
        QTest::newRow("1,5 con il punto") << QStringLiteral("1,5") << false << false;
        QTest::newRow("1,5 con la virgola") << QStringLiteral("1,5") << true << true;
    }
    void altezzaAllUscitaDallaCasella()
    {
        QFETCH(QString, testo);
        QFETCH(bool, virgola);
        QFETCH(bool, accettata);
        if (virgola)
            Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        Apri(false);
        Scrivi(*form, "txt_12", testo);
        Regia regia;
        if (!accettata)
            Attendi_Rifiuto(regia);
        QTest::keyClick(Casella(RIGA_ALTEZZA), Qt::Key_Tab);
        QVERIFY(regia.Finita());
        QCOMPARE(rifiuti, accettata ? 0 : 1);
        QTRY_COMPARE(Casella(RIGA_ALTEZZA)->hasFocus(), !accettata);
        QCOMPARE(Casella(RIGA_ALTEZZA)->text(), testo);
        if (accettata) {
            Premi(*form, "cmd_0");
            QCOMPARE(Altezza_Memorizzata(), testo);
            QCOMPARE(altezzaAllaNotifica, QLocale().toDouble(testo));
        }
    }

    /// No way out of the box but a good height: not by the confirmation, not by the exit, not by another box.
    void altezzaRifiutataTrattieneIlFuoco_data()
    {
        QTest::addColumn<QString>("meta");
        for (const char *meta : {"cmd_0", "cmd_2", "txt_0", "chk_0"})
            QTest::newRow(meta) << QString::fromLatin1(meta);
    }
    void altezzaRifiutataTrattieneIlFuoco()
    {
        QFETCH(QString, meta);
        Apri(false);
        Scrivi(*form, "txt_12", QStringLiteral("1234"));
        Regia regia;
        Attendi_Rifiuto(regia);
        Premi(*form, meta.toLatin1().constData());
        QVERIFY(regia.Finita());
        QVERIFY(form->Caricato());
        QTRY_VERIFY(Casella(RIGA_ALTEZZA)->hasFocus());
        QVERIFY(notifiche.isEmpty());
        QVERIFY(!Simmetrico()->isChecked());
        QCOMPARE(Altezza_Memorizzata(), QStringLiteral("65"));
        Scrivi(*form, "txt_12", QStringLiteral("80"));
        Premi(*form, "cmd_0");
        QCOMPARE(altezzaAllaNotifica, 80.0);
        QCOMPARE(rifiuti, 1);
    }

    /// No other box has a check of its content, not even the plate.
    void soloLAltezzaSiControlla()
    {
        Apri(false);
        Scrivi(*form, "txt_3", QStringLiteral("una targa impossibile, lunga quanto si vuole"));
        Scrivi(*form, "txt_13", QStringLiteral("abcdefgh"));
        Premi(*form, "cmd_0");
        QCOMPARE(notifiche.size(), 1);
        QCOMPARE(Memorizzato(VEICOLO, QStringLiteral("Targa")),
                 QStringLiteral("una targa impossibile, lunga quanto si vuole"));
        QCOMPARE(Memorizzato(IMPOSTAZIONI, QStringLiteral("InclinazioneFaro")), QStringLiteral("abcdefgh"));
    }

    // --- confirmation and exit ----------------------------------------------------------------------------

    void confermaSalvaENotificaUnaVolta()
    {
        Apri(false);
        for (int i = 0; i < RIGHE_VEICOLO; ++i)
            Scrivi(*form, ("txt_" + QByteArray::number(i)).constData(), QStringLiteral("nuovo %1").arg(i));
        Scrivi(*form, "txt_12", QStringLiteral("77"));
        Scrivi(*form, "txt_13", QStringLiteral("1.2"));
        Premi(*form, "chk_0");
        Premi(*form, "cmd_0");
        QCOMPARE(notifiche, (QList<QPair<int, int>>{
                                {VeicoloConfermato, ProvaConfermata}
        }));
        QVERIFY(caricatoAllaNotifica); // the test runs first, the form goes after it
        QVERIFY(!form->Caricato());
        QCOMPARE(altezzaAllaNotifica, 77.0);
        QCOMPARE(Ini(), iniAllaNotifica); // everything was written before
        for (int i = 0; i < RIGHE_VEICOLO; ++i)
            QCOMPARE(Memorizzato(VEICOLO, QString::fromLatin1(RIGHE[i].chiaveIni)),
                     QStringLiteral("nuovo %1").arg(i));
        QCOMPARE(Altezza_Memorizzata(), QStringLiteral("77"));
        QCOMPARE(Memorizzato(IMPOSTAZIONI, QStringLiteral("InclinazioneFaro")), QStringLiteral("1.2"));
        QCOMPARE(Memorizzato(IMPOSTAZIONI, QStringLiteral("Simmetrico")), QStringLiteral("1"));
    }

    /// Only the rows that the operator has been in are written.
    void confermaScriveSoloLeRigheToccate()
    {
        Apri(false);
        const QByteArray prima = Ini();
        Scrivi(*form, "txt_3", QStringLiteral("AA000BB"));
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), QByteArray(prima).replace("\r\nTarga=\r\n", "\r\nTarga=AA000BB\r\n"));
    }

    void confermaSenzaToccareNulla()
    {
        Apri(false);
        const QByteArray prima = Ini();
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), prima);
        QCOMPARE(gAltezzaFaro, 65.0);
        QCOMPARE(notifiche, (QList<QPair<int, int>>{
                                {VeicoloConfermato, ProvaConfermata}
        }));
    }

    void invioConferma_data()
    {
        QTest::addColumn<int>("casella"); // where the keyboard is; -1: where the form puts it
        QTest::newRow("all'apertura") << -1;
        QTest::newRow("da una casella") << 0;
    }
    void invioConferma()
    {
        QFETCH(int, casella);
        Apri(false);
        if (casella >= 0)
            QTest::mouseClick(Casella(casella), Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(notifiche.size(), 1);
        QVERIFY(!form->Caricato());
    }

    /// A stored height that is no number stops the confirmation: the test would go out without one.
    void altezzaMemorizzataNonNumerica_data()
    {
        QTest::addColumn<QString>("altezza");
        QTest::newRow("vuota") << QString();
        QTest::newRow("parola") << QStringLiteral("alto");
    }
    void altezzaMemorizzataNonNumerica()
    {
        QFETCH(QString, altezza);
        banco->Stazione.Imposta(IMPOSTAZIONI, QStringLiteral("AltezzaFaro"), altezza);
        Apri(false);
        Scrivi(*form, "txt_3", QStringLiteral("AA000BB"));
        QCOMPARE(Errore_DaEvento([this] { Q_EMIT Widget_Di<QPushButton>(*form, "cmd_0")->clicked(); }), 13);
        QVERIFY(notifiche.isEmpty());
        QVERIFY(form->Caricato());
        QCOMPARE(gAltezzaFaro, -1.0);
        QCOMPARE(Memorizzato(VEICOLO, QStringLiteral("Targa")), QStringLiteral("AA000BB")); // saved before
    }

    void esciNonSalvaNulla_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"pulsante", "tasto", "finestra"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    void esciNonSalvaNulla()
    {
        QFETCH(QString, modo);
        Apri(false);
        const QByteArray prima = Ini();
        Scrivi(*form, "txt_0", QStringLiteral("FIAT"));
        Scrivi(*form, "txt_12", QStringLiteral("99"));
        Premi(*form, "chk_0");
        if (modo == u"pulsante")
            Premi(*form, "cmd_2");
        else if (modo == u"tasto")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            form->Finestra()->close();
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QVERIFY(notifiche.isEmpty());
        QCOMPARE(gAltezzaFaro, -1.0);
    }

    /// The form of the next vehicle knows nothing of what was typed in the one before and thrown away.
    void ogniVeicoloDaCapo()
    {
        Apri(false);
        Scrivi(*form, "txt_0", QStringLiteral("FIAT"));
        Premi(*form, "txt_1");
        Premi(*form, "cmd_2");
        const QByteArray prima = Ini();
        Apri(false);
        QVERIFY(Casella(0)->text().isEmpty());
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), prima);
    }

    // --- layout -------------------------------------------------------------------------------------------

    void pulsanti()
    {
        Apri(false);
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(2)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), Testo_Mctc(Id_Mctc(113)));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(114)));
        QCOMPARE(Testo_Di(*form, "cmd_2"), Testo_Mctc(Id_Mctc(7)));
        QVERIFY(!Visibile(*form, "cmd_1")); // collapsed: it has a caption and no action
        Widget_Di<QPushButton>(*form, "cmd_1")->click();
        QVERIFY(form->Caricato());
        QVERIFY(notifiche.isEmpty());
    }

    /// The plate stands large, from the file or as it is typed.
    void targaGrande()
    {
        Apri(true);
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
        QVERIFY(Visibile(*form, "lblTarga") && !Visibile(*form, "lblMotivo"));
        QVERIFY(Widget_Di(*form, "lblTarga")->fontInfo().pixelSize() >
                2 * Casella(3)->fontInfo().pixelSize());
        form->Scarica();
        Apri(false);
        Scrivi(*form, "txt_3", QStringLiteral("ZZ9"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("ZZ9"));
        Scrivi(*form, "txt_4", QStringLiteral("TELAIO"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("ZZ9"));
    }

    /// The reason of an empty form stands where the plate would, and goes with its form.
    void motivoAlPostoDellaTarga()
    {
        gIniFile = Vero;
        gTipoProva = ProvaScelta;
        form = Nuovo<frmMctc2>();
        form->Motivo = QStringLiteral("Nessun veicolo");
        form->Mostra();
        QVERIFY(Attiva(*form));
        QCOMPARE(Testo_Di(*form, "lblMotivo"), QStringLiteral("Nessun veicolo"));
        QVERIFY(Visibile(*form, "lblMotivo") && !Visibile(*form, "lblTarga"));
        QCOMPARE(Widget_Di(*form, "lblMotivo")->geometry(), Widget_Di(*form, "lblTarga")->geometry());
    }

    void pulsantiSulloSchermoPiuPiccolo_data()
    {
        QTest::addColumn<qint32>("schermo");
        QTest::addColumn<bool>("piccoli");
        QTest::newRow("800 pixel") << 12000 << true;
        QTest::newRow("1024 pixel") << 15360 << false;
    }
    void pulsantiSulloSchermoPiuPiccolo()
    {
        QFETCH(qint32, schermo);
        QFETCH(bool, piccoli);
        gScreenW = schermo;
        Apri(false);
        for (int i : {0, 2}) {
            const QWidget *pulsante = Membro_Di<QWidget>(*form, "cmd", i);
            const qint32 larghezza = piccoli ? 1000 : ScalaX(2600);
            QVERIFY(qAbs(pulsante->width() - Pixel_DaTwip(larghezza)) <= 1); // edges are mapped, not sizes
            const double punti = piccoli ? ScalaX(14) : Punti_Normali() * 2.2;
            QCOMPARE(pulsante->font().pixelSize(), qRound(Pixel_DaPunti(punti)));
        }
    }

    /// Heights of labels go by the horizontal factor; the lamp's labels keep a width of 2000.
    void etichetteScalateInOrizzontale()
    {
        for (const qint32 schermo : {12000, 15360, 24000}) {
            gScreenW = schermo;
            gScreenH = 11520;
            Apri(false);
            for (int i = 0; i <= RIGA_SIMMETRICO; ++i) {
                const int alta = Pixel_DaTwip(ScalaX(i < RIGHE_VEICOLO ? 215 : 430));
                QVERIFY(qAbs(Etichetta_Di(i)->height() - alta) <= 1);
            }
            for (int i = RIGA_ALTEZZA; i <= RIGA_SIMMETRICO; ++i)
                QVERIFY(qAbs(Etichetta_Di(i)->width() - Pixel_DaTwip(2000)) <= 1);
            form->Scarica();
        }
    }

    void postiSullaGriglia()
    {
        Apri(false);
        QCOMPARE(Casella(0)->x(), Pixel_DaTwip(ScalaX(100)));
        QCOMPARE(Casella(0)->y(), Pixel_DaTwip(ScalaY(400)));
        QVERIFY(qAbs(Casella(0)->width() - Pixel_DaTwip(ScalaY(4000))) <=
                1); // a width by the vertical factor
        QCOMPARE(Simmetrico()->y(), Pixel_DaTwip(ScalaY(2950)));
        QVERIFY(Ha_Cornice(*form, ScalaX(100), ScalaY(2000), ScalaX(7000), ScalaY(4500)));
        QVERIFY(Ha_Cornice(*form, ScalaX(7500), ScalaY(2000), ScalaX(15000), ScalaY(4500)));
    }

    void senzaTestiCaricaLoStesso()
    {
        QVERIFY(QFile::remove(banco->Stazione.Nativo(QStringLiteral("lingueMCTC.ini"))));
        Apri(false);
        QVERIFY(Etichetta_Di(0)->text().isEmpty());
        QCOMPARE(Casella(10)->text(), QStringLiteral("Rossi Mario"));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmMctc2>(argc, argv);
}
#include "tst_frmMctc2.moc"
