// The password box: what it reports, and how long it stays, to the millisecond.
#include "dialogs/dlgPwd.h"

#include "core/modGeneral.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/tastiera_prova.h"

#include <QClipboard>
#include <QTest>

namespace {

const QString PASSWORD = QStringLiteral("Segreta 1");

} // namespace

class tst_dlgPwd : public QObject
{
    Q_OBJECT

private:
    void Apri(const QString &password, Flag dbg = Falso)
    {
        form = Nuovo<dlgPwd>();
        form->PwdDbg = dbg;
        form->PwdCurrent = password;
        form->PwdTitle = QStringLiteral("Chiave di servizio");
        connect(form.get(), &dlgPwd::PwdReady, this, &tst_dlgPwd::Pronta);
        form->Mostra();
        QVERIFY(Attiva(*form));
        if (!dbg)
            QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(Casella()));
    }
    void Pronta(quint8 &esito)
    {
        esiti.append(esito);
        caricatoAllEsito = form->Caricato();
    }
    QLineEdit *Casella() const { return Widget_Di<QLineEdit>(*form, "txtPwd"); }
    /// The box stays so long and no longer, and then reports once.
    void Chiude_Dopo(qint64 ms, int esito)
    {
        Orologio_Banco().Avanza(ms - 1);
        QVERIFY(form->Caricato());
        QVERIFY(esiti.isEmpty());
        Orologio_Banco().Avanza(1);
        QVERIFY(!form->Caricato());
        QCOMPARE(esiti, QList<int>{esito});
        QVERIFY(caricatoAllEsito); // the owner hears it while the box unloads
        Orologio_Banco().Avanza(60000);
        QCOMPARE(esiti.size(), 1);
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<dlgPwd> form;
    QList<int> esiti;
    bool caricatoAllEsito = false;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        esiti.clear();
        caricatoAllEsito = false;
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    // --- look ---------------------------------------------------------------------------------------------

    void titolo_data()
    {
        QTest::addColumn<quint8>("tipo");
        QTest::addColumn<QString>("titolo");
        QTest::newRow("come dato") << quint8{0} << QStringLiteral("Password di Servizio");
        QTest::newRow("maiuscolo") << quint8{1} << QStringLiteral("PASSWORD DI SERVIZIO");
        QTest::newRow("altro tipo") << quint8{2} << QStringLiteral("Password di Servizio");
    }
    void titolo()
    {
        QFETCH(quint8, tipo);
        QFETCH(QString, titolo);
        form = Nuovo<dlgPwd>();
        form->PwdType = tipo;
        form->PwdTitle = QStringLiteral("Password di Servizio");
        form->Mostra();
        QCOMPARE(form->Caption(), titolo);
        QCOMPARE(Casella()->accessibleName(), titolo);
    }

    void pulsanti()
    {
        Apri(PASSWORD);
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("OK"));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(106)));
    }

    void testoNascosto()
    {
        Apri(PASSWORD);
        Batti(QStringLiteral("Seg"));
        QVERIFY(!Casella()->displayText().contains(u'S'));
        QCOMPARE(Casella()->displayText().size(), 3);
    }

    // --- a text -------------------------------------------------------------------------------------------

    void giustaSiChiudeSenzaInvio_data()
    {
        QTest::addColumn<QString>("password");
        QTest::newRow("più caratteri") << PASSWORD;
        QTest::newRow("un carattere") << QStringLiteral("x");
        QTest::newRow("con blank") << QStringLiteral(" a ");
        QTest::newRow("lettera accentata") << QStringLiteral("\u00e0b");
    }
    void giustaSiChiudeSenzaInvio()
    {
        QFETCH(QString, password);
        Apri(password);
        for (qsizetype i = 0; i < password.size(); ++i) {
            QVERIFY(Casella()->isEnabled());
            Orologio_Banco().Avanza(1500);
            Batti(QString(password[i]));
        }
        QVERIFY(!Casella()->isEnabled());
        Chiude_Dopo(800, PwdGiusta);
    }

    void errataDueSecondiDopoLUltimoTasto_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::newRow("due caratteri") << QStringLiteral("zz");
        QTest::newRow("altre maiuscole") << PASSWORD.toLower();
        QTest::newRow("mancante") << PASSWORD.chopped(1);
        QTest::newRow("un blank in testa") << u' ' + PASSWORD;
    }
    void errataDueSecondiDopoLUltimoTasto()
    {
        QFETCH(QString, testo);
        Apri(PASSWORD);
        for (const QChar carattere : std::as_const(testo)) {
            Orologio_Banco().Avanza(1999);
            Batti(QString(carattere));
        }
        QVERIFY(Casella()->isEnabled());
        Chiude_Dopo(2000, PwdErrata);
    }

    /// The first key alone leaves the four seconds, and starts them again.
    void unTastoErratoQuattroSecondi()
    {
        Apri(PASSWORD);
        Orologio_Banco().Avanza(3999);
        Batti(QStringLiteral("z"));
        Chiude_Dopo(4000, PwdErrata);
    }

    void nullaScrittoQuattroSecondi()
    {
        Apri(PASSWORD);
        Chiude_Dopo(4000, PwdNonInserita);
    }

    /// A text taken back counts as changes and as nothing entered.
    void cancellatoTuttoDueSecondi()
    {
        Apri(PASSWORD);
        Batti(QStringLiteral("z"));
        Batti(Qt::Key_Backspace);
        Chiude_Dopo(2000, PwdNonInserita);
    }

    void correttaInTempo()
    {
        Apri(PASSWORD);
        Batti(QStringLiteral("z"));
        Batti(Qt::Key_Backspace);
        Batti(PASSWORD);
        Chiude_Dopo(800, PwdGiusta);
    }

    /// A key that changes nothing is no sign of typing.
    void tastiSenzaTestoNonContano()
    {
        Apri(PASSWORD);
        Orologio_Banco().Avanza(1000);
        for (const Qt::Key tasto : {Qt::Key_Left, Qt::Key_Backspace, Qt::Key_Shift, Qt::Key_F1})
            Batti(tasto);
        Chiude_Dopo(3000, PwdNonInserita);
    }

    // --- Enter and Escape ---------------------------------------------------------------------------------

    void invio_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<Qt::Key>("tasto");
        QTest::addColumn<int>("esito");
        QTest::newRow("niente") << QString() << Qt::Key_Return << int{PwdNonInserita};
        QTest::newRow("un carattere") << QStringLiteral("z") << Qt::Key_Return << int{PwdErrata};
        QTest::newRow("errata") << QStringLiteral("zzz") << Qt::Key_Return << int{PwdErrata};
        QTest::newRow("tastierino") << QStringLiteral("zzz") << Qt::Key_Enter << int{PwdErrata};
    }
    void invio()
    {
        QFETCH(QString, testo);
        QFETCH(Qt::Key, tasto);
        QFETCH(int, esito);
        Apri(PASSWORD);
        Batti(testo);
        Batti(tasto);
        QVERIFY(!Casella()->isEnabled());
        Chiude_Dopo(800, esito);
    }

    void escape_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::newRow("niente") << QString();
        QTest::newRow("errata") << QStringLiteral("zzz");
        QTest::newRow("giusta fino ad allora") << PASSWORD;
    }
    /// Also after the right text: the box is disabled by then and the keyboard is elsewhere.
    void escape()
    {
        QFETCH(QString, testo);
        Apri(PASSWORD);
        Batti(testo);
        QCOMPARE(Casella()->isEnabled(), testo != PASSWORD);
        Orologio_Banco().Avanza(700);
        Batti(Qt::Key_Escape);
        QVERIFY(!Casella()->isEnabled());
        Chiude_Dopo(1, PwdNonInserita);
    }

    void invioEPoiEscape()
    {
        Apri(PASSWORD);
        Batti(QStringLiteral("zz"));
        Batti(Qt::Key_Return);
        Batti(Qt::Key_Escape);
        Chiude_Dopo(1, PwdNonInserita);
    }

    /// Enter on the menu's entry brings the box up: as long as it is held it neither closes the box nor
    /// starts the time of its closing again.
    void tastoTenuto_data()
    {
        QTest::addColumn<int>("tasto");
        for (const int tasto : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            QTest::addRow("%x", tasto) << tasto;
    }
    void tastoTenuto()
    {
        QFETCH(int, tasto);
        Apri(PASSWORD);
        const auto ripeti = [tasto] {
            QTest::simulateEvent(QApplication::focusWidget(), true, tasto, Qt::NoModifier,
                                 QStringLiteral("\r"), true);
        };
        ripeti();
        QVERIFY(Casella()->isEnabled());
        Batti(QStringLiteral("zz"));
        Batti(Qt::Key_Return);
        Orologio_Banco().Avanza(700);
        ripeti();
        Chiude_Dopo(100, PwdErrata);
    }

    /// What is pasted with a line break is one change, of its first line.
    void incollata()
    {
        Apri(PASSWORD);
        QGuiApplication::clipboard()->setText(QStringLiteral("zz\r\n"));
        Batti(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(Casella()->text(), QStringLiteral("zz"));
        Chiude_Dopo(4000, PwdErrata); // two changes would make it 2000
    }
    void incollataGiusta()
    {
        Apri(PASSWORD);
        QGuiApplication::clipboard()->setText(PASSWORD + QStringLiteral("\n"));
        Batti(Qt::Key_V, Qt::ControlModifier);
        Chiude_Dopo(800, PwdGiusta);
    }

    /// Once the right text stands, what is typed after it is lost, and takes no time.
    void tastiDopoLaGiusta()
    {
        Apri(PASSWORD);
        Batti(PASSWORD);
        Orologio_Banco().Avanza(400);
        Batti(QStringLiteral("zz"));
        Batti(Qt::Key_Return);
        Chiude_Dopo(400, PwdGiusta);
    }

    // --- an empty stored password -------------------------------------------------------------------------

    void passwordVuotaStazioneAperta()
    {
        Apri(QString());
        Chiude_Dopo(4000, PwdGiusta);
    }

    void passwordVuotaAncheConEscape()
    {
        Apri(QString());
        Batti(Qt::Key_Escape);
        Chiude_Dopo(1, PwdGiusta);
    }

    void passwordVuotaEUnTesto()
    {
        Apri(QString());
        Batti(QStringLiteral("z"));
        Chiude_Dopo(4000, PwdErrata);
    }

    void passwordVuotaETestoTolto()
    {
        Apri(QString());
        Batti(QStringLiteral("z"));
        Batti(Qt::Key_Backspace);
        QVERIFY(!Casella()->isEnabled());
        Chiude_Dopo(800, PwdGiusta);
    }

    // --- debug --------------------------------------------------------------------------------------------

    void debugGiaScritta()
    {
        Apri(PASSWORD, Vero);
        QCOMPARE(Casella()->text(), PASSWORD);
        QVERIFY(!Casella()->isEnabled());
        Chiude_Dopo(800, PwdGiusta);
    }

    void debugConPasswordVuota()
    {
        Apri(QString(), Vero);
        Chiude_Dopo(4000, PwdGiusta);
    }

    // --- buttons and window -------------------------------------------------------------------------------

    void okNonFaNulla()
    {
        Apri(PASSWORD);
        Orologio_Banco().Avanza(1000);
        Premi(*form, "cmd_0");
        QVERIFY(form->Caricato());
        Chiude_Dopo(3000, PwdNonInserita);
    }

    void annulla_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("finestra");
        QTest::addColumn<int>("esito");
        for (const bool finestra : {false, true}) {
            const QByteArray come = finestra ? "finestra chiusa" : "pulsante";
            QTest::newRow((come + ", niente").constData()) << QString() << finestra << int{PwdNonInserita};
            QTest::newRow((come + ", errata").constData())
                << QStringLiteral("z") << finestra << int{PwdErrata};
            QTest::newRow((come + ", giusta").constData()) << PASSWORD << finestra << int{PwdGiusta};
        }
    }
    /// At once, with the result of what was typed up to then.
    void annulla()
    {
        QFETCH(QString, testo);
        QFETCH(bool, finestra);
        QFETCH(int, esito);
        Apri(PASSWORD);
        Batti(testo);
        if (finestra)
            form->Finestra()->close();
        else
            Premi(*form, "cmd_1");
        QVERIFY(!form->Caricato());
        QCOMPARE(esiti, QList<int>{esito});
        Orologio_Banco().Avanza(10000);
        QCOMPARE(esiti.size(), 1);
    }

    /// A window that comes between takes the keyboard: back at the box it is in the text again, wherever it
    /// was before, and the time begins anew.
    void tornataDavantiAspettaLaPassword()
    {
        Apri(PASSWORD);
        Premi(*form, "cmd_0");
        QCOMPARE(QApplication::focusWidget(), Widget_Di(*form, "cmd_0"));
        Orologio_Banco().Avanza(3000);
        QWidget altra;
        altra.show();
        altra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&altra));
        form->PortaAvanti();
        QVERIFY(Attiva(*form));
        QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(Casella()));
        Chiude_Dopo(4000, PwdNonInserita);
    }

    // --- asked by a form ----------------------------------------------------------------------------------

    void chiesta_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<int>("esito");
        QTest::newRow("niente") << QString() << int{PwdNonInserita};
        QTest::newRow("giusta") << PASSWORD << int{PwdGiusta};
        QTest::newRow("errata") << QStringLiteral("zz") << int{PwdErrata};
    }
    void chiesta()
    {
        QFETCH(QString, testo);
        QFETCH(int, esito);
        Regia regia;
        regia.Quando("dlgPwd", [&](Modulo &box) {
            QVERIFY(Attiva(box));
            QCOMPARE(QApplication::activeModalWidget(), box.Finestra());
            QCOMPARE(box.Caption(), Testo_Mctc(Id_Mctc(20)));
            QVERIFY(Testo_Di(box, "txtPwd").isEmpty());
            Batti(testo);
            Orologio_Banco().Avanza(4000);
        });
        Password_Chiedi(form, PASSWORD, this, &tst_dlgPwd::Pronta);
        QVERIFY(regia.Finita());
        QCOMPARE(esiti, QList<int>{esito});
        QVERIFY(Nomi_Caricati().isEmpty());
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_dlgPwd>(argc, argv);
}
#include "tst_dlgPwd.moc"
