// The workshop registry: five fields of section OFFICINA, read, written back, or left alone.
#include "setup/frmAnagOffO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/ini_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/tastiera_prova.h"

#include <QTest>

namespace {

struct RigaAttesa
{
    const char *chiave;
    qint16 etichetta;
};

constexpr RigaAttesa RIGHE[] = {
    {"Denominazione", 9 },
    {"Indirizzo",     10},
    {"Localita",      11},
    {"TelFax",        52},
    {"Web",           13},
};
constexpr int QUANTE = 5;

const QString OFFICINA = QStringLiteral("OFFICINA");

} // namespace

class tst_frmAnagOffO : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmAnagOffO>();
        notifiche = Ascolta(*form);
        connect(form.get(), &frmAnagOffO::Notifica, this, [this] {
            caricatoAllaNotifica = form->Caricato();
            iniAllaNotifica = Ini();
        });
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QByteArray Ini() const { return banco->Stazione.Leggi(QStringLiteral("lumira.ini")); }
    QLineEdit *Casella(int i) const { return Membro_Di<QLineEdit>(*form, "txt", i); }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmAnagOffO> form;
    std::shared_ptr<Notifiche> notifiche;
    bool caricatoAllaNotifica = false;
    QByteArray iniAllaNotifica;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        gLingua = QStringLiteral("EN"); // the profile says IT: what is written can be told
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        caricatoAllaNotifica = false;
        iniAllaNotifica.clear();
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
    }

    void righeDalProfilo()
    {
        for (int i = 0; i < QUANTE; ++i)
            banco->Stazione.Imposta(OFFICINA, QString::fromLatin1(RIGHE[i].chiave),
                                    QStringLiteral("valore %1").arg(i));
        Apri();
        int cima = -1;
        for (int i = 0; i < QUANTE; ++i) {
            QCOMPARE(Casella(i)->text(), QStringLiteral("valore %1").arg(i));
            QVERIFY(Casella(i)->isVisible() && !Casella(i)->isReadOnly());
            auto *etichetta = Membro_Di<QLabel>(*form, "lbl", i);
            QCOMPARE(etichetta->text(), Testo_Mctc(Id_Mctc(RIGHE[i].etichetta)));
            QVERIFY(!etichetta->text().isEmpty() && etichetta->isVisible());
            QVERIFY(!etichetta->geometry().intersects(Casella(i)->geometry()));
            QVERIFY(Casella(i)->y() > cima);
            cima = Casella(i)->geometry().bottom();
        }
        QCOMPARE(Casella(0)->pos(), Posto_Twip(100, 400, 0, 0).topLeft()); // unscaled
    }

    void titoloPulsantiECornice()
    {
        Apri();
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(5)));
        QCOMPARE(Testo_Di(*form, "lblTitolo"), Testo_Mctc(Id_Mctc(5)));
        QVERIFY(Visibile(*form, "lblTitolo"));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(106)));
        // As unscaled as the boxes: on a large screen it would run through them.
        QVERIFY(Ha_Cornice(*form, 100, 100, form->Width() - 200, form->Height() - 1200));
    }

    /// Nothing changed: the language in force is the one thing that is kept.
    void senzaModificheSoloLaLingua()
    {
        const QByteArray prima = Ini();
        Apri();
        Premi(*form, "cmd_0");
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), Ini_Con(prima, "IMPOSTAZIONI", "Lingua", "EN"));
    }

    void soloIlCampoModificato_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("testo");
        QTest::newRow("nome") << 0 << QStringLiteral("Autofficina F.lli D'Amico & C. s.n.c.");
        QTest::newRow("indirizzo") << 1 << QStringLiteral("Via 1\u00b0 Maggio, 12/b");
        QTest::newRow("localita") << 2 << QStringLiteral("39100 Bolzano/Bozen (BZ)");
        QTest::newRow("telefono") << 3 << QStringLiteral("+39 06 0000000 - fax=06.1");
        QTest::newRow("web") << 4 << QStringLiteral("https://officina.example/?a=b;c");
        QTest::newRow("accenti") << 0 << QStringLiteral("Citt\u00e0 pi\u00f9 perch\u00e9");
        QTest::newRow("vuoto") << 4 << QString();
    }
    /// Any text, and the empty one. No other byte of the file changes.
    void soloIlCampoModificato()
    {
        QFETCH(int, campo);
        QFETCH(QString, testo);
        const QByteArray prima = Ini();
        Apri();
        QTest::mouseClick(Casella(campo), Qt::LeftButton);
        Riscrivi(testo);
        QCOMPARE(Ini(), prima);
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), Ini_Con(Ini_Con(prima, "OFFICINA", RIGHE[campo].chiave, testo.toLatin1()),
                                "IMPOSTAZIONI", "Lingua", "EN"));
        Apri();
        QCOMPARE(Casella(campo)->text(), testo);
    }

    /// The rows in their order, and then the language.
    void ordineDelleScritture()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\n");
        Apri();
        for (const char *casella : {"txt_4", "txt_0", "txt_2"})
            Scrivi(*form, casella, QString::fromLatin1(casella));
        Premi(*form, "cmd_0");
        QCOMPARE(Ini(), QByteArray("[GENERAL]\r\n[OFFICINA]\r\nDenominazione=txt_0\r\nLocalita=txt_2\r\n"
                                   "Web=txt_4\r\n[IMPOSTAZIONI]\r\nLingua=EN\r\n"));
    }

    /// Written by the keyboard alone, and confirmed from the button that the Tab key comes to.
    void soloTastiera()
    {
        Apri();
        for (const char *nome : {"cmd_0", "cmd_1", "txt_0", "txt_1", "txt_2", "txt_3"}) {
            QCOMPARE(QApplication::focusWidget()->objectName(), QString::fromLatin1(nome));
            if (nome != QByteArray("txt_3"))
                Batti(Qt::Key_Tab);
        }
        Riscrivi(QStringLiteral("06 1"));
        Batti(Qt::Key_Tab);
        Batti(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("cmd_0"));
        Batti(Qt::Key_Return);
        QVERIFY(!form->Caricato());
        QCOMPARE(Valore_Ini(gFileIni, OFFICINA, QStringLiteral("TelFax")), QStringLiteral("06 1"));
    }

    void notificaUnaVoltaDopoLeScritture()
    {
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuova"));
        Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {AnagraficaSalvata, 0}
        }));
        QVERIFY(caricatoAllaNotifica);
        QCOMPARE(iniAllaNotifica, Ini());
    }

    void annullaNonScrive_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"cmd_1", "escape", "finestra"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    void annullaNonScrive()
    {
        QFETCH(QString, modo);
        const QByteArray prima = Ini();
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("Nuova"));
        if (modo == u"escape")
            Batti(Qt::Key_Escape);
        else if (modo == u"finestra")
            form->Finestra()->close();
        else
            Premi(*form, "cmd_1");
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
        QVERIFY(notifiche->isEmpty());
        Apri();
        QCOMPARE(Casella(0)->text(), Valore_Ini(gFileIni, OFFICINA, QStringLiteral("Denominazione")));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmAnagOffO>(argc, argv);
}
#include "tst_frmAnagOffO.moc"
