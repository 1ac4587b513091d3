// The check levels: what the section holds is shown, and nothing is ever kept.
#include "mctc/frmControlliMctc.h"

#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/ini_prova.h"
#include "tests/forms/principale_prova.h"

#include <QComboBox>
#include <QTest>

namespace {

constexpr int COMBO = 9, RIGHE = 11;
constexpr const char *CHIAVI[RIGHE] = {"NomeFile",     "SezDuplicate", "SezEstranee", "SezMancanti",
                                       "KeyDuplicate", "KeyEstranee",  "KeyMancanti", "Spazi",
                                       "Dati",         "Data",         "Versione"};

const QString LIVELLI = QStringLiteral("LivelliMctc");

} // namespace

class tst_frmControlliMctc : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmControlliMctc>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QComboBox *Combo(int i) const { return Membro_Di<QComboBox>(*form, "cbo", i); }
    QByteArray Ini() const { return banco->Stazione.Leggi(QStringLiteral("lumira.ini")); }
    QWidget *Controllo_Di(int riga) const
    {
        return riga < COMBO ? Combo(riga) : Membro_Di<QWidget>(*form, "txt", riga - COMBO);
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmControlliMctc> form;

private Q_SLOTS:
    void init() { banco = std::make_unique<BancoForm>(); }
    void cleanup()
    {
        banco.reset();
        form.reset();
    }

    void righeAlLoroPosto()
    {
        Apri();
        QCOMPARE(Testo_Di(*form, "lbl1"), Testo_Mctc(Id_Mctc(158)));
        QVERIFY(Visibile(*form, "lbl1"));
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(158)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(106)));
        QCOMPARE(Widget_Di(*form, "lbl1")->y(), Controllo_Di(0)->y()); // at the top, beside the rows
        for (int riga = 0; riga < RIGHE; ++riga) {
            const QRect posto =
                Posto_Twip(ScalaX(1200), ScalaY(100 + riga * 500), ScalaX(riga < COMBO ? 800 : 2000), 0);
            QCOMPARE(Controllo_Di(riga)->geometry().topLeft(), posto.topLeft());
            QCOMPARE(Controllo_Di(riga)->width(), posto.width());
            QVERIFY(Controllo_Di(riga)->isVisible() && Controllo_Di(riga)->isEnabled());
            auto *etichetta = Membro_Di<QLabel>(*form, "lbl", riga);
            QCOMPARE(etichetta->text(), Testo_Mctc(Id_Mctc(159)));
            QVERIFY(etichetta->isVisible());
            QVERIFY(!etichetta->geometry().intersects(Controllo_Di(riga)->geometry()));
        }
        for (int i = 0; i < COMBO; ++i) {
            QCOMPARE(Combo(i)->count(), 2);
            QCOMPARE(Combo(i)->itemText(0), Testo_Mctc(Id_Mctc(112)));
            QCOMPARE(Combo(i)->itemText(1), Testo_Mctc(Id_Mctc(141)));
        }
    }

    /// Each class shows the level stored for it, and the others do not follow it.
    void livelloMemorizzato_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<int>("voce");
        QTest::newRow("primo") << QStringLiteral("0") << 0;
        QTest::newRow("secondo") << QStringLiteral("1") << 1;
        QTest::newRow("vuoto") << QString() << -1;
        QTest::newRow("oltre la lista") << QStringLiteral("2") << -1;
        QTest::newRow("negativo") << QStringLiteral("-5") << -1;
        QTest::newRow("nessun numero") << QStringLiteral("alto") << -1;
    }
    void livelloMemorizzato()
    {
        QFETCH(QString, valore);
        QFETCH(int, voce);
        for (int altra = 0; altra < COMBO; ++altra) {
            for (int i = 0; i < COMBO; ++i)
                banco->Stazione.Imposta(LIVELLI, QString::fromLatin1(CHIAVI[i]),
                                        i == altra ? valore : QString::number(altra % 2));
            Apri();
            for (int i = 0; i < COMBO; ++i)
                QCOMPARE(Combo(i)->currentIndex(), i == altra ? voce : altra % 2);
            form->Scarica();
        }
    }

    void dataEVersione()
    {
        banco->Stazione.Imposta(LIVELLI, QStringLiteral("Data"), QStringLiteral("02111999"));
        banco->Stazione.Imposta(LIVELLI, QStringLiteral("Versione"), QStringLiteral("100"));
        Apri();
        QCOMPARE(Testo_Di(*form, "txt_0"), QStringLiteral("02111999")); // as stored
        QCOMPARE(Testo_Di(*form, "txt_1"), QStringLiteral("100"));
    }

    void sezioneAssente()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\nUser=KP\r\n");
        Apri();
        for (int i = 0; i < COMBO; ++i) {
            QCOMPARE(Combo(i)->currentIndex(), -1);
            QVERIFY(Combo(i)->currentText().isEmpty());
        }
        QVERIFY(Testo_Di(*form, "txt_0").isEmpty() && Testo_Di(*form, "txt_1").isEmpty());
    }

    void nienteSiTiene_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"cmd_0", "cmd_1", "escape", "finestra"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    void nienteSiTiene()
    {
        QFETCH(QString, modo);
        const QByteArray prima = Ini();
        Apri();
        for (int i = 0; i < COMBO; ++i) {
            Combo(i)->setFocus();
            QTest::keyClick(Combo(i), Qt::Key_Down);
            QCOMPARE(Combo(i)->currentIndex(), 1);
        }
        Scrivi(*form, "txt_0", QStringLiteral("01012000"));
        Scrivi(*form, "txt_1", QStringLiteral("7"));
        if (modo == u"escape")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else if (modo == u"finestra")
            form->Finestra()->close();
        else
            Premi(*form, modo.toLatin1().constData());
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QCOMPARE(form->lbl.UBound(), qint16{0}); // the rows have gone with it
        form->Mostra();
        QVERIFY(Attiva(*form));
        QCOMPARE(Combo(0)->currentIndex(), 0);
        QCOMPARE(Testo_Di(*form, "txt_1"), QStringLiteral("100"));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmControlliMctc>(argc, argv);
}
#include "tst_frmControlliMctc.moc"
