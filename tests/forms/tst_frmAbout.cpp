// The about form: seven lines of configuration, each in its place, built by the first painting.
#include "dialogs/frmAbout.h"

#include "core/modGeneral.h"
#include "core/versione.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/ini_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/schermo.h"

#include <QTest>

namespace {

struct RigaAttesa
{
    const char *chiave;
    qint32 cima, altezza;
    double punti;
};

constexpr RigaAttesa RIGHE[] = {
    {"NomeProgrUser",   420,  500, 24},
    {"VerSwUser",       950,  500, 24},
    {"NomeUser",        1320, 400, 16},
    {"IndirizzoUser",   1770, 400, 16},
    {"TelefonoFaxUser", 2220, 400, 16},
    {"MailUser",        2670, 300, 16},
    {"WebUser",         3070, 800, 16},
};
constexpr int QUANTE = 7;

const QString DATIUSER = QStringLiteral("DATIUSER");
const QColor ROSSO(255, 0, 0);

} // namespace

class tst_frmAbout : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmAbout>();
        form->Mostra();
        QVERIFY(Attiva(*form));
        QTRY_VERIFY(form->Finestra()->findChild<QLabel *>(QStringLiteral("lblAbout_6")) != nullptr);
    }
    QLabel *Riga(int i) const { return Membro_Di<QLabel>(*form, "lblAbout", i); }
    QByteArray Ini() const { return banco->Stazione.Leggi(QStringLiteral("lumira.ini")); }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmAbout> form;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        for (const RigaAttesa &riga : RIGHE)
            banco->Stazione.Imposta(DATIUSER, QString::fromLatin1(riga.chiave),
                                    QStringLiteral("testo di ") + QString::fromLatin1(riga.chiave));
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
    }

    void setteRigheAlLoroPosto()
    {
        Apri();
        for (int i = 0; i < QUANTE; ++i) {
            QCOMPARE(Riga(i)->text(), QStringLiteral("testo di ") + QString::fromLatin1(RIGHE[i].chiave));
            QVERIFY(Riga(i)->isVisible());
            const qint32 sinistra = i == 1 ? form->Width() / 2 - 450 : 2750;
            const QRect posto = Posto_Twip(sinistra, RIGHE[i].cima, 1500, RIGHE[i].altezza);
            QCOMPARE(Riga(i)->geometry().topLeft(), posto.topLeft());
            QCOMPARE(Riga(i)->height(), posto.height());
            QCOMPARE(Riga(i)->font().pixelSize(), qRound(Pixel_DaPunti(RIGHE[i].punti)));
            QCOMPARE(Ha_Colore(Riga(i), Colore_Leggibile(ROSSO, Colore_Tema(Tinta::Sfondo))), i <= 1);
        }
        QVERIFY(form->Finestra()->findChild<QLabel *>(QStringLiteral("lblAbout_7")) == nullptr);
    }

    /// What runs is told beside what the installation calls itself, and moves nothing: the button stays in
    /// the middle.
    void versioneDelProgramma()
    {
        banco->Stazione.Imposta(DATIUSER, QStringLiteral("VerSwUser"), QStringLiteral("Ver. 0.9"));
        Apri();
        const auto *versione = form->Finestra()->findChild<QLabel *>(QStringLiteral("lblVersione"));
        QVERIFY(versione != nullptr && versione->isVisible());
        QCOMPARE(versione->text(), QStringLiteral("lumira ") + Versione_Programma());
        QCOMPARE(Riga(1)->text(), QStringLiteral("Ver. 0.9"));
        const QRect pulsante = Posto_Twip((form->Width() - 2000) / 2, form->Height() - 1100, 2000, 800);
        QCOMPARE(Membro_Di<QPushButton>(*form, "cmd", 0)->geometry(), pulsante);
        QVERIFY(versione->geometry().right() < pulsante.left());
        QVERIFY(versione->geometry().top() > Posto_Twip(0, 0, 1, form->Height() - 1200).bottom());
        QVERIFY(form->Finestra()->rect().contains(versione->geometry()));
    }

    void titoloEPulsante()
    {
        Apri();
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(6)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
        QVERIFY(Ha_Cornice(*form, 100, 100, form->Width() - 200, form->Height() - 1300));
    }

    void chiaveMancanteRigaVuota_data()
    {
        QTest::addColumn<int>("mancante");
        QTest::addColumn<bool>("presente");
        for (int i = 0; i < QUANTE; ++i) {
            QTest::addRow("%s mancante", RIGHE[i].chiave) << i << false;
            QTest::addRow("%s vuota", RIGHE[i].chiave) << i << true;
        }
    }
    /// Its line stays empty, and the others stay where they are.
    void chiaveMancanteRigaVuota()
    {
        QFETCH(int, mancante);
        QFETCH(bool, presente);
        const char *chiave = RIGHE[mancante].chiave;
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), presente ? Ini_Con(Ini(), "DATIUSER", chiave, {})
                                                                      : Ini_Senza(Ini(), "DATIUSER", chiave));
        Apri();
        for (int i = 0; i < QUANTE; ++i) {
            QCOMPARE(Riga(i)->text().isEmpty(), i == mancante);
            QCOMPARE(Riga(i)->y(), Pixel_DaTwip(RIGHE[i].cima));
        }
    }

    void sezioneMancante()
    {
        banco->Stazione.Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\n");
        Apri();
        for (int i = 0; i < QUANTE; ++i)
            QVERIFY(Riga(i)->text().isEmpty());
        QCOMPARE(Testo_Di(*form, "cmd_0"), QStringLiteral("Ok"));
    }

    /// Loading builds nothing; the first painting reads the keys, and no later one does again.
    void costruitaDallaPrimaPittura()
    {
        form = Nuovo<frmAbout>();
        form->Carica();
        QVERIFY(form->Finestra()->findChild<QLabel *>(QStringLiteral("lblAbout_1")) == nullptr);
        QVERIFY(form->Caption().isEmpty());
        QVERIFY(Testo_Di(*form, "cmd_0").isEmpty());
        banco->Stazione.Imposta(DATIUSER, QStringLiteral("NomeUser"), QStringLiteral("dopo il caricamento"));
        form->Mostra();
        QVERIFY(Attiva(*form));
        QTRY_COMPARE(form->Caption(), Testo_Mctc(Id_Mctc(6)));
        QCOMPARE(Riga(2)->text(), QStringLiteral("dopo il caricamento"));
        banco->Stazione.Imposta(DATIUSER, QStringLiteral("NomeUser"), QStringLiteral("dopo la pittura"));
        form->Finestra()->repaint();
        QCOMPARE(Riga(2)->text(), QStringLiteral("dopo il caricamento"));
    }

    /// The one instance is built again at each opening.
    void riapertaRilegge()
    {
        Apri();
        form->Scarica();
        banco->Stazione.Imposta(DATIUSER, QStringLiteral("VerSwUser"), QStringLiteral("2.0"));
        form->Mostra();
        QVERIFY(Attiva(*form));
        QTRY_COMPARE(form->Caption(), Testo_Mctc(Id_Mctc(6)));
        QCOMPARE(Riga(1)->text(), QStringLiteral("2.0"));
        QCOMPARE(form->Finestra()->findChildren<QLabel *>().size(), QUANTE + 1); // and the version
    }

    void chiusa_data()
    {
        QTest::addColumn<QString>("modo");
        for (const char *modo : {"pulsante", "invio", "escape"})
            QTest::newRow(modo) << QString::fromLatin1(modo);
    }
    void chiusa()
    {
        QFETCH(QString, modo);
        const QByteArray prima = Ini();
        Apri();
        if (modo == u"pulsante")
            Premi(*form, "cmd_0");
        else
            QTest::keyClick(QApplication::focusWidget(), modo == u"invio" ? Qt::Key_Return : Qt::Key_Escape);
        QVERIFY(!form->Caricato());
        QCOMPARE(Ini(), prima);
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmAbout>(argc, argv);
}
#include "tst_frmAbout.moc"
