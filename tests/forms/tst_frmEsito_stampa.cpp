// The print button of the result screen: what is printed, what is said when nothing can be, and that the form
// and the pointer of the mouse come out of it as they went in.
#include "report/frmEsito.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "dialogs/frmMsg.h"
#include "report/modPrn.h"
#include "tests/comuni/stampa_prova.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"

#include <QApplication>
#include <QTest>

namespace {

bool Clessidra()
{
    const QCursor *puntatore = QApplication::overrideCursor();
    return puntatore != nullptr && puntatore->shape() == Qt::WaitCursor;
}

/// The texts of a page, without place and type.
QStringList Testi(const QStringList &pagina)
{
    QStringList testi;
    for (const QString &voce : pagina) {
        const qsizetype inizio = voce.indexOf(u'[');
        if (inizio >= 0)
            testi.append(voce.sliced(inizio + 1, voce.lastIndexOf(u']') - inizio - 1));
    }
    return testi;
}

} // namespace

class tst_frmEsito_stampa : public QObject
{
    Q_OBJECT

private:
    void Collega_Stampante(const CartaProva &carta = CARTA_A4)
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"), carta);
        stampa->Predefinita(QStringLiteral("Rapporto"), carta);
    }
    void Apri()
    {
        form = Nuovo<frmEsito>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    /// Presses the print button and watches the message that comes; lets its time pass.
    void Stampa_ConMessaggio()
    {
        int messaggi = 0;
        Regia regia;
        regia.Quando("frmMsg", [&messaggi](Modulo &msg) {
            ++messaggi;
            QCOMPARE(Testo_Di(msg, "lbl_0"), Testo_Lingua(Id_Lingua(58)));
            const auto &messaggio = Predefinito<frmMsg>();
            QCOMPARE(messaggio.Mode, qint16{0});
            QCOMPARE(messaggio.TopMost, qint16{0});
            QCOMPARE(messaggio.Colour, 0x80000000U);
            QVERIFY(Clessidra());
            Orologio_Banco().Avanza(1999);
            QVERIFY(msg.Caricato());
            Orologio_Banco().Avanza(1);
            QVERIFY(!msg.Caricato());
        });
        Premi(*form, "cmd_1");
        QVERIFY(regia.Finita());
        QCOMPARE(messaggi, 1);
        Verifica_ComePrima();
    }
    /// The form shows as before, and so does the pointer; nothing is left of the print job.
    void Verifica_ComePrima() const
    {
        QVERIFY(form->Caricato());
        QVERIFY(form->Finestra()->isVisible());
        QVERIFY(Abilitato(*form, "cmd_1"));
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(gPrnOggetto == nullptr);
        QCOMPARE(Nomi_Caricati(), QStringList({QStringLiteral("frmEsito")}));
    }

    std::unique_ptr<BancoForm> banco;
    std::unique_ptr<StampaProva> stampa;
    std::shared_ptr<frmEsito> form;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        stampa = std::make_unique<StampaProva>();
        Far_Azzera();
        Far_Imposta(FarEsito, QStringLiteral("R"));
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("23400"));
        Carica_Limiti();
        gAltezzaFaro = 65;
        gTipoProva = ProvaConfermata;
        gFileAcc = banco->Stazione.Accettazione(QStringLiteral("12345678.acc"));
        Report_Dati(0);
        Report_Dati(1);
        Apri();
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        stampa.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    void senzaStampanteMessaggioEFormResta() { Stampa_ConMessaggio(); }

    void predefinitaFuoriDallElencoMessaggio()
    {
        stampa->Aggiungi(QStringLiteral("Altra"));
        stampa->Predefinita(QStringLiteral("Rapporto"));
        Stampa_ConMessaggio();
        QVERIFY(stampa->Corrente->Operazioni.isEmpty());
    }

    void stampanteRiceveLaPagina()
    {
        Collega_Stampante();
        bool clessidra = false;
        stampa->Corrente->AllEndDoc = [&clessidra] { clessidra = Clessidra(); };
        Premi(*form, "cmd_1");
        Verifica_ComePrima();
        QVERIFY(clessidra);
        QCOMPARE(stampa->Corrente->Operazioni.count(QStringLiteral("EndDoc")), qsizetype{1});
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{1});

        // What the station and the acceptance file hold stands on it.
        const QStringList testi = Testi(stampa->Corrente->Pagine.first());
        for (const QString &testo :
             {QStringLiteral("Officina di prova"), Testo_Lingua(Id_Lingua(43)), QStringLiteral("QX5"),
              QStringLiteral("AB123CD"), Testo_Lingua(Id_Lingua(38)), QStringLiteral("23400"),
              Testo_Mctc(Id_Mctc(150)), Testo_Mctc(Id_Mctc(151)), QStringLiteral("Rossi Mario"),
              Testo_Lingua(Id_Lingua(55)) + u':'})
            QVERIFY2(testi.count(testo) >= 1, qPrintable(testo));
        QCOMPARE(testi.count(QStringLiteral("*")), qsizetype{12});
    }

    /// The result record counts as it stands when the button is pressed.
    void risultatoDelMomentoDellaStampa()
    {
        Collega_Stampante();
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("77700"));
        Premi(*form, "cmd_1");
        const QStringList testi = Testi(stampa->Corrente->Pagine.first());
        QVERIFY(testi.contains(QStringLiteral("77700")));
        QVERIFY(!testi.contains(QStringLiteral("23400")));
    }

    void dueVolteDuePagineAltraOraDiFine()
    {
        Collega_Stampante();
        const QString inizio = gRepMisure[RepInizio];
        QStringList fine;
        for (int volta = 0; volta < 2; ++volta) {
            Orologio_Banco().Avanza(65000);
            fine.append(Orologio_Banco().Adesso().toString(QStringLiteral("hh:mm:ss")));
            Premi(*form, "cmd_1");
            Verifica_ComePrima();
        }
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{2});
        QList<QStringList> pagine = stampa->Corrente->Pagine;
        for (int volta = 0; volta < 2; ++volta) {
            const QStringList testi = Testi(pagine[volta]);
            QCOMPARE(testi.count(fine[volta]), qsizetype{1});
            QCOMPARE(testi.count(inizio), qsizetype{1});
        }
        pagine[1].replaceInStrings(u'[' + fine[1] + u']', u'[' + fine[0] + u']');
        QCOMPARE(pagine[1], pagine[0]);
    }

    void paginaNonPresaMessaggioEFormResta()
    {
        Collega_Stampante();
        stampa->Corrente->EndDocFallisce = true;
        Stampa_ConMessaggio();
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{0});
        // The printer is back: the same button prints.
        stampa->Corrente->EndDocFallisce = false;
        Premi(*form, "cmd_1");
        Verifica_ComePrima();
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{1});
    }

    void cartaTroppoGrandeMessaggioEFormResta()
    {
        Collega_Stampante({40000, 16838, 0, 0, 40000, 16838});
        Stampa_ConMessaggio();
        QVERIFY(stampa->Corrente->Operazioni.isEmpty());
    }

    /// No message of its own: what stands of the page is printed.
    void guastoAMetaPaginaStampaQuelloCheCE()
    {
        Collega_Stampante();
        stampa->Corrente->FallisceAlTesto = 10;
        Premi(*form, "cmd_1");
        Verifica_ComePrima();
        QCOMPARE(stampa->Corrente->Finite(), qsizetype{1});
        QCOMPARE(Testi(stampa->Corrente->Pagine.first()).size(), qsizetype{10});
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmEsito_stampa>(argc, argv);
}
#include "tst_frmEsito_stampa.moc"
