// The worklist: the list and its poll, the check of a picked file, the hand-over to the entry form.
#include "mctc/frmMctcO.h"

#include "core/codici.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "report/frmMctc2.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/trova_prova.h"
#include "toolkit/ricerca_elenco.h"

#include <QCheckBox>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QListWidget>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>

#include <QTimer>
#include <functional>
#include <utility>

namespace {

constexpr qint64 BATTITO = 2000; // ms

const QColor ROSSO(255, 0, 0);
const QColor BIANCO(255, 255, 255);

/// How long the poll's listing takes, in ms of the test's clock, and what happens meanwhile.
int gLentezza = 0;
std::function<void()> gIntanto;

/// What happens once behind it, before anything else is asked of the folder.
std::function<void()> gSubitoDopo;

/// What happens once behind the search for results, before the lines are drawn.
std::function<void()> gDopoRisultati;

} // namespace

/// A network that takes its time.
bool Trova_Chiesta(const QString &percorso, QList<RecordTrovato> &trovati,
                   const std::function<void()> &intanto)
{
    if (gIntanto && percorso.endsWith(QStringLiteral("*.acc"))) {
        gIntanto();
        Orologio_Banco().Attendi(gLentezza);
    }
    const bool trovato = Trova_Vera(percorso, trovati, intanto);
    if (gSubitoDopo && percorso.endsWith(QStringLiteral("*.acc")))
        std::exchange(gSubitoDopo, {})();
    if (gDopoRisultati && percorso.endsWith(QStringLiteral("*.far")))
        std::exchange(gDopoRisultati, {})();
    return trovato;
}

namespace {

/// What a label reads whenever it is painted: what has only been set is not on the screen yet.
class Dipinte : public QObject
{
public:
    explicit Dipinte(QLabel &etichetta) : m_etichetta(etichetta) { etichetta.installEventFilter(this); }

    QStringList testi;

protected:
    bool eventFilter(QObject *, QEvent *evento) override
    {
        if (evento->type() == QEvent::Paint)
            testi.append(m_etichetta.text());
        return false;
    }

private:
    QLabel &m_etichetta;
};

} // namespace

class tst_frmMctcO : public QObject
{
    Q_OBJECT

private:
    // --- the folder ---------------------------------------------------------------------------------------

    QByteArray Buono() const { return banco->Stazione.Leggi(QStringLiteral("dati\\ModelloAcc.acc")); }

    void Scrivi_File(const QString &nome, const QByteArray &byte) const
    {
        banco->Stazione.Scrivi(QStringLiteral("DIR_FAR\\") + nome, byte);
    }
    QString File_Nativo(const QString &nome) const
    {
        return banco->Stazione.Nativo(QStringLiteral("DIR_FAR\\") + nome);
    }
    void Togli_File(const QString &nome) const { QVERIFY(QFile::remove(File_Nativo(nome))); }
    /// A file written again under its name: the time of its writing moves on, as it does in a workshop.
    void Riscrivi_File(const QString &nome, const QByteArray &byte)
    {
        Scrivi_File(nome, byte);
        ++scritture;
        QFile file(File_Nativo(nome));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60 * scritture),
                                 QFileDevice::FileModificationTime));
    }
    QByteArray Con(const QByteArray &riga, const QByteArray &altra) const
    {
        const QByteArray buono = Buono();
        if (!buono.contains("\r\n" + riga + "\r\n"))
            qFatal("no line %s in the template", riga.constData());
        return QByteArray(buono).replace("\r\n" + riga + "\r\n", "\r\n" + altra + "\r\n");
    }

    // --- the form -----------------------------------------------------------------------------------------

    void Apri()
    {
        form = Nuovo<frmMctcO>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QListWidget *Lista() const { return Widget_Di<QListWidget>(*form, "lstAuto"); }
    QStringList Righe() const
    {
        QStringList righe;
        for (int i = 0; i < Lista()->count(); ++i)
            righe.append(Lista()->item(i)->text());
        return righe;
    }
    void Clicca_Riga(int riga) const
    {
        QTest::mouseClick(Lista()->viewport(), Qt::LeftButton, Qt::KeyboardModifiers(),
                          Lista()->visualItemRect(Lista()->item(riga)).center());
    }
    /// Waits for the report of a faulty file, keeps its text and closes it with its button.
    void Leggi_Rapporto(Regia &regia)
    {
        regia.Quando("frmMsg", [this](Modulo &msg) {
            rapporto = Widget_Di(msg, "lbl_0")->accessibleName(); // all of it; the list shows it line by line
            QCOMPARE(Predefinito<frmMsg>().Mode, qint16{1});
            QCOMPARE(Predefinito<frmMsg>().TopMost, qint16{-1});
            Premi(msg, "cmd_0");
        });
    }
    static void Battito() { Orologio_Banco().Avanza(BATTITO); }
    /// A beat inside a loop, as the program runs, and a press of the confirmation that comes in while the
    /// beat lists the folder. @return the number of the run-time error; 0 for none.
    int Battito_ConConferma()
    {
        int errore = -1;
        QEventLoop ciclo;
        QTimer::singleShot(0, &ciclo, [&] {
            QMetaObject::invokeMethod(
                this, [this] { Premi(*form, "cmd_0"); }, Qt::QueuedConnection);
            errore = Errore_DaEvento([] { Battito(); });
            ciclo.quit();
        });
        ciclo.exec();
        return errore;
    }
    /// Four vehicles; the second and the third have plates that begin alike.
    void Scrivi_Targhe() const
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        Scrivi_File(QStringLiteral("20000000.acc"),
                    Con("Targa=AB123CD", "Targa=EF456GH").replace("Nome=NICOL\xD2", "Nome=DUE"));
        Scrivi_File(QStringLiteral("30000000.acc"), Con("Targa=AB123CD", "Targa=EF459GH"));
        Scrivi_File(QStringLiteral("40000000.acc"), Con("Targa=AB123CD", "Targa=GG777GG"));
    }
    /// The lines that tell that they are done.
    QList<int> Fatte() const
    {
        QList<int> fatte;
        for (int i = 0; i < Lista()->count(); ++i) {
            if (Lista()->item(i)->data(Qt::AccessibleDescriptionRole).toString() == u"fatto")
                fatte.append(i);
        }
        return fatte;
    }
    bool Conferma_Abilitata() const { return Abilitato(*form, "cmd_0"); }
    bool Esci_Abilitato() const { return Abilitato(*form, "cmd_1"); }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmMctcO> form;
    QString rapporto;
    int scritture = 0;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        gTipoProva = ProvaScelta;
        rapporto.clear();
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    // --- opening ------------------------------------------------------------------------------------------

    void apertura()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Scrivi_File(QStringLiteral("10000000.Acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        gFileAcc = QStringLiteral("prima");
        Apri();
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(2)));
        QCOMPARE(Testo_Di(*form, "lblDes_0"), Testo_Mctc(Id_Mctc(36)));
        QCOMPARE(Testo_Di(*form, "lblDes_1"), Testo_Mctc(Id_Mctc(37)));
        QCOMPARE(Testo_Di(*form, "cmd_0"), Testo_Mctc(Id_Mctc(107)));
        QCOMPARE(Testo_Di(*form, "cmd_1"), Testo_Mctc(Id_Mctc(106)));
        QVERIFY(gFileAcc.isEmpty());
        // Names in capitals, the plate behind a tab, in the folder's own order.
        QCOMPARE(Righe(), QStringList({QStringLiteral("10000000.ACC\tEF456GH"),
                                       QStringLiteral("20000000.ACC\tAB123CD")}));
        QCOMPARE(Orologio_Banco().Armate(), 2); // the poll, and the look for results
    }

    /// Opening the list checks no file, nor does the keyboard's coming to it.
    void nienteSceltoAllApertura()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(Lista()->currentRow(), -1);
            QVERIFY(gFileAcc.isEmpty());
            QVERIFY(Testo_Di(*form, "txt_6").isEmpty());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QVERIFY(!Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
    }

    void altreEstensioniFuoriDallaLista()
    {
        Scrivi_File(QStringLiteral("12345678.accx"), Buono());
        Scrivi_File(QStringLiteral("12345678.far"), Buono());
        Scrivi_File(QStringLiteral("1.acc"), "[x]\r\n");
        Apri();
        QCOMPARE(Righe(), QStringList(QStringLiteral("1.ACC\t"))); // unfit ones are shown, not hidden
    }

    void corniciDipinte()
    {
        Apri();
        QVERIFY(Ha_Cornice(*form, ScalaX(100), ScalaY(200), ScalaX(7000), ScalaY(2500)));
        QVERIFY(Ha_Cornice(*form, ScalaX(100), ScalaY(2700), ScalaX(7000), ScalaY(9500)));
        QVERIFY(Ha_Cornice(*form, ScalaX(8000), ScalaY(500), ScalaX(15000), ScalaY(10800)));
    }

    /// A plate is read whole, beside the mark of a line that is done, and so is the name of its file.
    void targheIntere()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        const int colonna = Widget_Di(*form, "lblDes_1")->x() - Lista()->x();
        const int spunta = QFontMetrics(Lista()->font()).height();
        QFont grande = Lista()->font();
        grande.setBold(true);
        grande.setPixelSize(static_cast<int>(grande.pixelSize() * 1.2));
        QVERIFY(colonna + QFontMetrics(grande).horizontalAdvance(QStringLiteral("AB123CD")) + spunta <=
                Lista()->viewport()->width());
        QVERIFY(QFontMetrics(Lista()->font()).horizontalAdvance(QStringLiteral("12345678.ACC")) < colonna);
    }

    /// No caption of a row reaches under its box.
    void didascalieAccantoAlleCaselle()
    {
        Apri();
        for (int i = 0; i <= 45; ++i) {
            const QWidget *etichetta = Membro_Di<QWidget>(*form, "lbl", i);
            for (int j = 0; etichetta->isVisible() && j <= 43; ++j) {
                const QRect casella = Membro_Di<QWidget>(*form, "txt", j)->geometry();
                QVERIFY2(!etichetta->geometry().intersects(casella),
                         qPrintable(QStringLiteral("lbl_%1, txt_%2").arg(i).arg(j)));
            }
        }
    }

    /// Every row of the file has its place inside its frame, and none lies on another.
    void righeNelleCornici()
    {
        Apri();
        const auto cornice = [](qint32 x1, qint32 y1, qint32 x2, qint32 y2) {
            return Posto_Twip(ScalaX(x1), ScalaY(y1), ScalaX(x2) - ScalaX(x1), ScalaY(y2) - ScalaY(y1))
                .adjusted(1, 1, 0, 0); // the lines themselves stay free
        };
        const QRect sinistra = cornice(100, 2700, 7000, 9500);
        const QRect destra = cornice(8000, 500, 15000, 10800);
        QList<QWidget *> caselle;
        for (int i = 0; i <= 43; ++i) // rows 0 to 45 without the two check boxes
            caselle.append(Membro_Di<QWidget>(*form, "txt", i));
        for (int i = 0; i <= 1; ++i)
            caselle.append(Membro_Di<QWidget>(*form, "chk", i));
        for (qsizetype i = 0; i < caselle.size(); ++i) {
            QVERIFY(caselle[i]->isVisible());
            QVERIFY2((i < 18 ? sinistra : destra).contains(caselle[i]->geometry()),
                     qPrintable(caselle[i]->objectName()));
            for (qsizetype j = 0; j < i; ++j)
                QVERIFY(!caselle[i]->geometry().intersects(caselle[j]->geometry()));
        }
    }

    // --- picking a file -----------------------------------------------------------------------------------

    void fileBuono()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Clicca_Riga(0);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("12345678.ACC"));
        QVERIFY(Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
        QCOMPARE(Testo_Di(*form, "txt_0"),
                 QStringLiteral("21/11/2026")); // dates and times as people read them
        QCOMPARE(Testo_Di(*form, "txt_2"), QStringLiteral("09.30.00"));
        QCOMPARE(Testo_Di(*form, "txt_6"), QStringLiteral("VERDI"));
        QCOMPARE(Testo_Di(*form, "txt_43"), QStringLiteral("HH"));
        QVERIFY(!Widget_Di<QCheckBox>(*form, "chk_0")->isChecked());
        QVERIFY(Widget_Di<QCheckBox>(*form, "chk_1")->isChecked());
        QVERIFY(!Abilitato(*form, "chk_0"));
        for (int i = 0; i <= 43; ++i) {
            QVERIFY(Membro_Di<QLineEdit>(*form, "txt", i)->isReadOnly());
            QCOMPARE(Sfondo_Di(Membro_Di<QWidget>(*form, "txt", i)), BIANCO);
        }
        QVERIFY(Modulo_Aperto("frmMsg") == nullptr);
    }

    /// A name of as many letters as a date or a time has digits is a name.
    void nomiLunghiComeUnaData()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Con("Nome=NICOL\xD2", "Nome=BEATRICE"));
        Scrivi_File(QStringLiteral("20000000.acc"), Con("Nome=NICOL\xD2", "Nome=SIMONA"));
        Apri();
        Clicca_Riga(0);
        QCOMPARE(Testo_Di(*form, "txt_7"), QStringLiteral("BEATRICE"));
        Clicca_Riga(1);
        QCOMPARE(Testo_Di(*form, "txt_7"), QStringLiteral("SIMONA"));
    }

    /// The keys of the list pick a file as the mouse does.
    void fileSceltoDaTastiera()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        Scrivi_File(QStringLiteral("20000000.acc"), Con("Nome=NICOL\xD2", "Nome=ADA"));
        Apri();
        QTest::keyClick(Lista(), Qt::Key_Down);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("10000000.ACC"));
        QTest::keyClick(Lista(), Qt::Key_Down);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("20000000.ACC"));
        QCOMPARE(Testo_Di(*form, "txt_7"), QStringLiteral("ADA"));
    }

    void fileGuastoMostraIlRapporto()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Regia regia;
        Leggi_Rapporto(regia);
        Clicca_Riga(0);
        QVERIFY(regia.Finita());
        QCOMPARE(rapporto, Testo_Mctc(Id_Mctc(110)) +
                               QStringLiteral(": \r\nSezione:[Prenotazione] - Campo:CAP - Errore "
                                              "di lunghezza\r\n"));
        QVERIFY(!Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
        // It stays listed, it stays the file at hand, and it cannot go into a test.
        QCOMPARE(Lista()->count(), 2);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("10000000.ACC"));
        Premi(*form, "cmd_0");
        QTest::keyClick(Lista(), Qt::Key_Return);
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMctcO")));

        // Row 13 stands in text box 13; only that one is red, and a clean file after it clears it.
        for (int i = 0; i <= 43; ++i)
            QCOMPARE(Sfondo_Di(Membro_Di<QWidget>(*form, "txt", i)), i == 13 ? ROSSO : BIANCO);
        Clicca_Riga(1);
        QCOMPARE(Sfondo_Di(Widget_Di(*form, "txt_13")), BIANCO);
        QVERIFY(Conferma_Abilitata());
    }

    void fileGuastoDopoUnoBuonoSpegneConferma()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        Scrivi_File(QStringLiteral("20000000.acc"), Con("CAP=47121", "CAP=123"));
        Apri();
        Clicca_Riga(0);
        QVERIFY(Conferma_Abilitata());
        Regia regia;
        Leggi_Rapporto(regia);
        Clicca_Riga(1);
        QVERIFY(regia.Finita());
        QVERIFY(!Conferma_Abilitata());
    }

    /// A click on the line that is picked already checks the file again.
    void secondoClickSullaStessaRiga()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Apri();
        for (int i = 0; i < 2; ++i) {
            rapporto.clear();
            Regia regia;
            Leggi_Rapporto(regia);
            Clicca_Riga(0);
            QVERIFY(regia.Finita());
            QVERIFY(!rapporto.isEmpty());
        }
    }

    void fileGuasti_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<bool>("sparisce");
        QTest::addColumn<QString>("riga");
        QTest::newRow("nome corto") << QStringLiteral("123.acc") << false
                                    << QStringLiteral("\\123.ACC - File  non idoneo\r\n");
        QTest::newRow("nome di lettere") << QStringLiteral("ABCDEFGH.acc") << false
                                         << QStringLiteral("\\ABCDEFGH.ACC - File  non idoneo\r\n");
        QTest::newRow("sparito prima del click")
            << QStringLiteral("12345678.acc") << true
            << QStringLiteral("\\12345678.ACC - File  non disponibile\r\n");
    }
    void fileGuasti()
    {
        QFETCH(QString, nome);
        QFETCH(bool, sparisce);
        QFETCH(QString, riga);
        Scrivi_File(nome, Buono());
        Apri();
        if (sparisce)
            Togli_File(nome);
        Regia regia;
        Leggi_Rapporto(regia);
        Clicca_Riga(0);
        QVERIFY(regia.Finita());
        QVERIFY2(rapporto.contains(riga), qPrintable(rapporto));
        QVERIFY(!Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
    }

    void controlloVisivoSoloSeRichiesto()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Con("GiocoSterzo_22=R", "GiocoSterzo_22=X"));
        Apri();
        Clicca_Riga(0);
        QVERIFY(Conferma_Abilitata());
        gControlloVisivo = Vero;
        Regia regia;
        Leggi_Rapporto(regia);
        Clicca_Riga(0);
        QVERIFY(regia.Finita());
        QVERIFY(rapporto.endsWith(QStringLiteral("Controllo Visivo-Sezione: Vis_Sterzo\r\n")));
        QVERIFY(!Conferma_Abilitata());
    }

    void elencoDisabilitatoNonControlla()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Lista()->setEnabled(false);
        Lista()->setCurrentRow(0);
        QVERIFY(gFileAcc.isEmpty());
        QVERIFY(!Conferma_Abilitata());
    }

    /// A file beyond 16 bits of length ends the program when the operator picks it.
    void fileTroppoLungoFinisceIlProgramma()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono() + QByteArray(33000, 'x'));
        Apri();
        QCOMPARE(Errore_DaEvento([this] { Lista()->setCurrentRow(0); }), 6);
        QApplication::restoreOverrideCursor();
    }

    // --- the poll -----------------------------------------------------------------------------------------

    /// The first beat builds the list once more; after it only a change does.
    void battitiSenzaCambiamenti()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        QSignalSpy rifatta(Lista()->model(), &QAbstractItemModel::modelReset);
        Orologio_Banco().Avanza(BATTITO - 1);
        QCOMPARE(rifatta.count(), 0);
        Orologio_Banco().Avanza(1);
        QCOMPARE(rifatta.count(), 1);
        Orologio_Banco().Avanza(10 * BATTITO);
        QCOMPARE(rifatta.count(), 1);
        QCOMPARE(Lista()->currentRow(), -1);
    }

    /// The form forgets at each opening what it knew of the folder: the same one, opened again, builds its
    /// list once more at its first beat.
    void riapertaRicominciaDaCapo()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Orologio_Banco().Avanza(3 * BATTITO);
        form->Scarica();
        form->Mostra();
        QVERIFY(Attiva(*form));
        QSignalSpy rifatta(Lista()->model(), &QAbstractItemModel::modelReset);
        Battito();
        QCOMPARE(rifatta.count(), 1);
        Battito();
        QCOMPARE(rifatta.count(), 1);
    }

    /// Nor is there anything to build in a folder that is empty, whatever the one before held.
    void riapertaSuUnaCartellaVuota()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        form->Scarica();
        Togli_File(QStringLiteral("12345678.acc"));
        form->Mostra();
        QVERIFY(Attiva(*form));
        QSignalSpy rifatta(Lista()->model(), &QAbstractItemModel::modelReset);
        Battito();
        QCOMPARE(rifatta.count(), 0);
    }

    /// What changes on its place between the opening and the first beat was never told by two listings.
    void cambiatoPrimaDelPrimoBattito()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Riscrivi_File(QStringLiteral("12345678.acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        Battito();
        QCOMPARE(Righe(), QStringList(QStringLiteral("12345678.ACC\tEF456GH")));
    }

    void cartellaVuotaPoiIlPrimoFile()
    {
        Apri();
        QCOMPARE(Lista()->count(), 0);
        Orologio_Banco().Avanza(3 * BATTITO);
        QCOMPARE(Lista()->count(), 0);
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Battito();
        QCOMPARE(Righe(), QStringList(QStringLiteral("12345678.ACC\tAB123CD")));
        QCOMPARE(Lista()->currentRow(), -1);
        Clicca_Riga(0);
        QVERIFY(Conferma_Abilitata());
    }

    /// The line keeps its place, not its file: what stands there now is checked at once.
    void nuovoFileEntroUnBattito()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        QVERIFY(Conferma_Abilitata());
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Regia regia;
        Leggi_Rapporto(regia);
        Battito();
        QVERIFY(regia.Finita());
        QCOMPARE(Lista()->count(), 2);
        QCOMPARE(Lista()->currentRow(), 0);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("10000000.ACC"));
        QVERIFY(rapporto.contains(QStringLiteral("Campo:CAP")));
        QVERIFY(!Conferma_Abilitata());
    }

    void cambiatoSulPostoEScelto()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Riscrivi_File(QStringLiteral("12345678.acc"),
                      Con("CognomeDenominazione=VERDI", "CognomeDenominazione=NERI"));
        Battito();
        QCOMPARE(Lista()->currentRow(), 0);
        QCOMPARE(Testo_Di(*form, "txt_6"), QStringLiteral("NERI"));
        QVERIFY(Conferma_Abilitata());
        // And now a fault: the confirmation goes.
        Riscrivi_File(QStringLiteral("12345678.acc"), Con("CAP=47121", "CAP=123"));
        Regia regia;
        Leggi_Rapporto(regia);
        Battito();
        QVERIFY(regia.Finita());
        QVERIFY(!Conferma_Abilitata());
    }

    void cambiatoSulPostoENonScelto()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        Riscrivi_File(QStringLiteral("12345678.acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        Battito();
        QCOMPARE(Righe(), QStringList(QStringLiteral("12345678.ACC\tEF456GH")));
        QCOMPARE(Lista()->currentRow(), -1);
        QVERIFY(gFileAcc.isEmpty());
    }

    /// A selection beyond the shortened list ends the beat; the next one starts afresh.
    void sceltaOltreLaListaAccorciata()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(1);
        Togli_File(QStringLiteral("20000000.acc"));
        Battito();
        QCOMPARE(Righe(), QStringList(QStringLiteral("10000000.ACC\tAB123CD")));
        QCOMPARE(Lista()->currentRow(), -1);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        Scrivi_File(QStringLiteral("30000000.acc"), Buono());
        Battito();
        QCOMPARE(Lista()->count(), 2);
    }

    void tuttiSparisconoELaConfermaFinisceIlProgramma()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Togli_File(QStringLiteral("12345678.acc"));
        Battito();
        QCOMPARE(Lista()->count(), 0);
        QVERIFY(Conferma_Abilitata()); // what a clean file has switched on stays so
        QCOMPARE(Errore_DaEvento([this] { Q_EMIT Widget_Di<QPushButton>(*form, "cmd_0")->clicked(); }), 9);
        QVERIFY(Modulo_Aperto("frmMctc2") == nullptr);
    }

    void cartellaCheVaEViene()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        QDir cartella(banco->Stazione.Nativo(QStringLiteral("DIR_FAR")));
        QVERIFY(cartella.removeRecursively());
        Battito();
        QCOMPARE(Lista()->count(), 0);
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Battito();
        QCOMPARE(Lista()->count(), 1);
    }

    /// While a file is read and checked a beat does nothing, and the operator sees that the form is busy.
    void battitoDuranteIlControllo()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        int volte = 0;
        // The first field that takes its text stands for any moment of the check.
        connect(Widget_Di<QLineEdit>(*form, "txt_0"), &QLineEdit::textChanged, this, [&] {
            ++volte;
            QVERIFY(!Conferma_Abilitata() && !Esci_Abilitato());
            QVERIFY(QApplication::overrideCursor() != nullptr);
            Battito();
            QCOMPARE(Lista()->count(), 1);
            QVERIFY(QApplication::overrideCursor() != nullptr); // nor did the beat take the pointer away
        });
        Clicca_Riga(0);
        QCOMPARE(volte, 1);
        QVERIFY(Conferma_Abilitata() && Esci_Abilitato());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        Widget_Di(*form, "txt_0")->disconnect(this);
        Battito();
        QCOMPARE(Lista()->count(), 2);
    }

    /// Nor does a beat begin while the files are read for the list: it would build the list inside the
    /// building.
    void battitoDuranteLaLettura()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        Apri();
        Battito();
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        QSignalSpy rifatta(Lista()->model(), &QAbstractItemModel::modelReset);
        int volte = 0;
        QMetaObject::invokeMethod(
            this,
            [&] {
                ++volte;
                Scrivi_File(QStringLiteral("30000000.acc"), Buono());
                Battito();
                QCOMPARE(rifatta.count(), 0);
                QVERIFY(QApplication::overrideCursor() != nullptr);
            },
            Qt::QueuedConnection);
        Battito();
        QCOMPARE(volte, 1);
        QCOMPARE(rifatta.count(), 1);
        Battito();
        QCOMPARE(Lista()->count(), 3);
    }

    /// The listing of a full folder takes longer than an operator waits: events run meanwhile, a beat among
    /// them does nothing.
    void gliEventiGiranoDuranteIlBattito()
    {
        for (int i = 0; i < 1000; ++i)
            Scrivi_File(QStringLiteral("%1.acc").arg(20000000 + i), {});
        Apri();
        Battito(); // the list is read once more
        int giri = 0, dentro = -1;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (++giri > 1)
                return;
            Scrivi_File(QStringLiteral("30000000.acc"), Buono());
            Battito();
            dentro = Lista()->count();
        });
        timer.start(0);
        Battito();
        timer.stop();
        QVERIFY2(giri >= 3, qPrintable(QString::number(giri)));
        QCOMPARE(dentro, 1000);
        Battito();
        Battito(); // the beat inside has put the clock forward, and the next alarm with it
        QCOMPARE(Lista()->count(), 1001);
    }

    /// The way out is pressed while a beat lists the folder: the list is not read into a form that has gone.
    void esciDuranteIlBattito()
    {
        for (int i = 0; i < 1000; ++i)
            Scrivi_File(QStringLiteral("%1.acc").arg(20000000 + i), {});
        Apri();
        Battito();
        Scrivi_File(QStringLiteral("30000000.acc"), Buono());
        QTimer::singleShot(0, this, [this] { Premi(*form, "cmd_1"); });
        QCOMPARE(Errore_DaEvento([] { Battito(); }), 0);
        QVERIFY(!form->Caricato());
    }

    void battitoConIlRapportoAperto()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Apri();
        Battito();
        Regia regia;
        regia.Quando("frmMsg", [this](Modulo &msg) {
            Scrivi_File(QStringLiteral("05000000.acc"), Con("CAP=47121", "CAP=9"));
            Battito();
            // The list went on; a second report finds the box taken, and drops itself.
            QCOMPARE(Lista()->count(), 2);
            QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("05000000.ACC"));
            Premi(msg, "cmd_0");
        });
        Clicca_Riga(0);
        QVERIFY(regia.Finita());
        QVERIFY(!Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
    }

    /// An error inside the check that a beat set off ends the beat and nothing more: the form stays in use.
    void erroreDelControlloInUnBattito()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Riscrivi_File(QStringLiteral("12345678.acc"), Buono() + QByteArray(33000, 'x'));
        QCOMPARE(Errore_DaEvento([] { Battito(); }), 0);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QVERIFY(!Conferma_Abilitata());
        QVERIFY(Esci_Abilitato());
        Riscrivi_File(QStringLiteral("12345678.acc"), Buono());
        Battito();
        QVERIFY(Conferma_Abilitata());
    }

    // --- the search for a plate ----------------------------------------------------------------------------

    void targaTrovataScrivendola()
    {
        Scrivi_Targhe();
        Apri();
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClicks(Lista(), QStringLiteral("f45"));
        QCOMPARE(Lista()->currentRow(), 1);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("20000000.ACC"));
        QVERIFY(Conferma_Abilitata()); // checked as by a click
        QCOMPARE(Testo_Di(*form, "txt_7"), QStringLiteral("DUE"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Cerca: F45"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("EF456GH"));
        QTest::keyClick(Lista(), Qt::Key_Return);
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }

    /// The first that fits, and the one at hand as long as it does: it is not checked again at every key.
    void laPrimaCheCorrispondeERimane()
    {
        Scrivi_Targhe();
        Apri();
        Clicca_Riga(3);
        QTest::keyClicks(Lista(), QStringLiteral("e"));
        QCOMPARE(Lista()->currentRow(), 1);
        gFileAcc = QStringLiteral("segno");
        QTest::keyClicks(Lista(), QStringLiteral("f4"));
        QCOMPARE(gFileAcc, QStringLiteral("segno"));
        QTest::keyClicks(Lista(), QStringLiteral("59"));
        QCOMPARE(Lista()->currentRow(), 2);
    }

    /// A plate that nobody has: told, and nothing else is chosen. The name of a file is looked through last.
    void targaCheNonCE()
    {
        Scrivi_Targhe();
        Apri();
        Clicca_Riga(0);
        QTest::keyClicks(Lista(), QStringLiteral("zz"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("ZZ: nessun veicolo"));
        QCOMPARE(Lista()->currentRow(), 0);
        QTest::keyClick(Lista(), Qt::Key_Backspace);
        QTest::keyClick(Lista(), Qt::Key_Backspace);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClicks(Lista(), QStringLiteral("4000"));
        QCOMPARE(Lista()->currentRow(), 3);
    }

    /// Down to the next that fits, up to the one before it, and round at either end.
    void laFrecciaVaAllaProssima()
    {
        Scrivi_Targhe();
        Apri();
        QTest::keyClicks(Lista(), QStringLiteral("G"));
        QCOMPARE(Lista()->currentRow(), 1);
        struct Passo
        {
            Qt::Key tasto;
            int riga;
            const char *file;
        };
        constexpr Passo PASSI[] = {
            {Qt::Key_Down, 2, "30000000.ACC"},
            {Qt::Key_Down, 3, "40000000.ACC"},
            {Qt::Key_Up,   2, "30000000.ACC"},
            {Qt::Key_Up,   1, "20000000.ACC"},
            {Qt::Key_Up,   3, "40000000.ACC"},
            {Qt::Key_Down, 1, "20000000.ACC"},
        };
        for (const Passo &passo : PASSI) {
            QTest::keyClick(Lista(), passo.tasto);
            QCOMPARE(Lista()->currentRow(), passo.riga);
            QCOMPARE(gFileAcc, gDirAcc + QString::fromLatin1(passo.file));
            QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Cerca: G"));
        }
    }

    /// With no other that fits, and with nothing typed, an arrow moves by a line as ever.
    void laFrecciaSenzaUnAltra()
    {
        Scrivi_Targhe();
        Apri();
        QTest::keyClicks(Lista(), QStringLiteral("459"));
        QCOMPARE(Lista()->currentRow(), 2);
        QTest::keyClick(Lista(), Qt::Key_Down);
        QCOMPARE(Lista()->currentRow(), 3);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClick(Lista(), Qt::Key_Up);
        QCOMPARE(Lista()->currentRow(), 2);
    }

    /// After a pause a key begins anew; a click begins anew at once.
    void dopoUnaPausaDaCapo()
    {
        Scrivi_Targhe();
        Apri();
        QTest::keyClicks(Lista(), QStringLiteral("zz"));
        Orologio_Banco().Avanza(PAUSA_RICERCA - 1);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("ZZ: nessun veicolo"));
        Orologio_Banco().Avanza(1);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClicks(Lista(), QStringLiteral("ef"));
        QCOMPARE(Lista()->currentRow(), 1);
        Clicca_Riga(3);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClicks(Lista(), QStringLiteral("459"));
        QCOMPARE(Lista()->currentRow(), 2);
    }

    /// A faulty file tells its report, and the typing goes on after it however long it was read.
    void targaDiUnFileGuasto()
    {
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Scrivi_File(QStringLiteral("20000000.acc"), Con("Targa=AB123CD", "Targa=AC456GH"));
        Apri();
        Regia regia;
        regia.Quando("frmMsg", [](Modulo &msg) {
            Orologio_Banco().Avanza(3 * PAUSA_RICERCA);
            Premi(msg, "cmd_0");
        });
        QTest::keyClicks(Lista(), QStringLiteral("a"));
        QVERIFY(regia.Finita());
        QVERIFY(!Conferma_Abilitata());
        QTest::keyClicks(Lista(), QStringLiteral("c"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Cerca: AC"));
        QCOMPARE(Lista()->currentRow(), 1);
        QVERIFY(Conferma_Abilitata());
    }

    /// Keys with Ctrl or Alt, and Space, write nothing; an empty list has nothing to find.
    void tastiCheNonCercano()
    {
        Apri();
        QTest::keyClick(Lista(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(Lista(), Qt::Key_Space);
        QTest::keyClick(Lista(), Qt::Key_Backspace);
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("Per cercare scrivere la targa"));
        QTest::keyClicks(Lista(), QStringLiteral("A"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("A: nessun veicolo"));
        QCOMPARE(Lista()->currentRow(), -1);
    }

    /// The folder goes: what was read last is no line any more.
    void cercaDopoCheLaCartellaESparita()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        QVERIFY(QDir(banco->Stazione.Nativo(QStringLiteral("DIR_FAR"))).removeRecursively());
        Battito();
        QCOMPARE(Lista()->count(), 0);
        QTest::keyClicks(Lista(), QStringLiteral("AB"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QStringLiteral("AB: nessun veicolo"));
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QStringLiteral("In attesa: 0 di 0"));
    }

    // --- what is done, and what has changed under the hand -------------------------------------------------

    void fattiEInAttesa()
    {
        Scrivi_Targhe();
        Scrivi_File(QStringLiteral("20000000.far"), "x");
        Apri();
        QCOMPARE(Fatte(), QList<int>{1});
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QStringLiteral("In attesa: 3 di 4"));
        // Another station has done one: seen without a change of the list.
        Scrivi_File(QStringLiteral("40000000.far"), "x");
        Orologio_Banco().Avanza(10000);
        QCOMPARE(Fatte(), QList<int>({1, 3}));
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QStringLiteral("In attesa: 2 di 4"));
        Togli_File(QStringLiteral("20000000.far"));
        Orologio_Banco().Avanza(10000);
        QCOMPARE(Fatte(), QList<int>{3});
    }

    /// Two seconds from each answer, so that the operator comes to a turn; what is waited for stands on the
    /// screen once the folder has shown that it is slow.
    void unaCartellaLenta()
    {
        Scrivi_Targhe();
        Apri();
        QList<qint64> inizi;
        QStringList mostrati;
        gIntanto = [&] {
            inizi.append(Orologio_Banco().Passati());
            mostrati.append(Testo_Di(*form, "lblAttesa"));
        };
        const auto svelta = qScopeGuard([] {
            gIntanto = {};
            gLentezza = 0;
        });
        gLentezza = 5000;
        Orologio_Banco().Avanza(3 * (5000 + BATTITO));
        QVERIFY2(inizi.size() >= 3, qPrintable(QString::number(inizi.size())));
        for (qsizetype i = 1; i < inizi.size(); ++i)
            QCOMPARE(inizi[i] - inizi[i - 1], 5000 + BATTITO);
        const QString conto = QStringLiteral("In attesa: 4 di 4");
        const QString attesa = QStringLiteral("Cartella: attesa della risposta");
        QCOMPARE(mostrati.first(3), QStringList({conto, attesa, attesa}));
        QCOMPARE(Testo_Di(*form, "lblAttesa"), conto);

        gLentezza = 0; // the network is well again
        Battito();
        Battito();
        QCOMPARE(mostrati.last(), conto);
        Battito();
        QCOMPARE(inizi.last() - inizi[inizi.size() - 2], BATTITO);
    }

    /// The window stands still until the folder answers: by then the announcement has to be painted, and the
    /// count again once it has answered, whether with the files or with their loss.
    void lAnnuncioSiVedePrimaDellAttesa_data()
    {
        QTest::addColumn<bool>("persa");
        QTest::newRow("risponde") << false;
        QTest::newRow("si perde") << true;
    }
    void lAnnuncioSiVedePrimaDellAttesa()
    {
        QFETCH(bool, persa);
        Scrivi_Targhe();
        Apri();
        const QString attesa = QStringLiteral("Cartella: attesa della risposta");
        const QString cartella = banco->Stazione.Nativo(QStringLiteral("DIR_FAR"));
        Dipinte dipinte(*Widget_Di<QLabel>(*form, "lblAttesa"));
        bool chiesta = false;
        QStringList prima; // painted when the slow folder is asked
        const auto svelta = qScopeGuard([] {
            gIntanto = {};
            gLentezza = 0;
        });
        gLentezza = 500;
        gIntanto = [] {};
        Battito();
        QVERIFY(!dipinte.testi.contains(attesa)); // nobody knew yet
        dipinte.testi.clear();
        gIntanto = [&] {
            if (!std::exchange(chiesta, true))
                prima = dipinte.testi;
            if (persa)
                QDir(cartella).removeRecursively();
        };
        Battito();
        QVERIFY(chiesta);
        QCOMPARE(prima, QStringList(attesa));
        const QString conto = QStringLiteral("In attesa: %1 di %1").arg(persa ? 0 : 4);
        QTRY_COMPARE(dipinte.testi.last(), conto);
        QCOMPARE(Testo_Di(*form, "lblAttesa"), conto);
    }

    /// The connection goes between the poll's listing and the reading of the files, and is back before the
    /// next beat: nothing has changed since, and yet the lines come back.
    void unaCartellaPersaFraDueElenchi()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        const QString cartella = banco->Stazione.Nativo(QStringLiteral("DIR_FAR"));
        const QString altrove = cartella + QStringLiteral(".persa");
        Scrivi_File(QStringLiteral("23456789.acc"), Buono());
        gSubitoDopo = [&] { QVERIFY(QFile::rename(cartella, altrove)); };
        Battito();
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QStringLiteral("In attesa: 0 di 0"));
        QVERIFY(QFile::rename(altrove, cartella));
        Battito();
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QStringLiteral("In attesa: 2 di 2"));
    }

    /// A line that is done is chosen as any other.
    void unFattoSiScegliAncora()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Scrivi_File(QStringLiteral("12345678.far"), "x");
        Apri();
        Clicca_Riga(0);
        QVERIFY(Conferma_Abilitata());
    }

    /// The line has become another vehicle: told before the confirmation, until the operator chooses.
    void altroVeicoloSottoLaMano()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
        QVERIFY(!Visibile(*form, "lblAvviso"));
        Scrivi_File(QStringLiteral("10000000.acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        Battito();
        QVERIFY(Conferma_Abilitata());
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("EF456GH"));
        QVERIFY(Visibile(*form, "lblAvviso"));
        QCOMPARE(Testo_Di(*form, "lblAvviso"), QStringLiteral("Altro veicolo"));
        // A file behind it changes nothing of that.
        Scrivi_File(QStringLiteral("30000000.acc"), Buono());
        Battito();
        QVERIFY(Visibile(*form, "lblAvviso"));
        Clicca_Riga(1);
        QVERIFY(!Visibile(*form, "lblAvviso"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
    }

    /// A plate that is typed is a choice too.
    void altroVeicoloPoiCercato()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Scrivi_File(QStringLiteral("10000000.acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        Battito();
        QVERIFY(Visibile(*form, "lblAvviso"));
        QTest::keyClicks(Lista(), QStringLiteral("AB"));
        QCOMPARE(Lista()->currentRow(), 1);
        QVERIFY(!Visibile(*form, "lblAvviso"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
    }

    /// Told already while the report of what stands there now is read.
    void altroVeicoloGuasto()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Scrivi_File(QStringLiteral("10000000.acc"), Con("CAP=47121", "CAP=123"));
        Regia regia;
        regia.Quando("frmMsg", [this](Modulo &msg) {
            QVERIFY(Visibile(*form, "lblAvviso"));
            Premi(msg, "cmd_0");
        });
        Battito();
        QVERIFY(regia.Finita());
        QVERIFY(Visibile(*form, "lblAvviso"));
    }

    void avvisoTace_data()
    {
        QTest::addColumn<QString>("nuovo");
        QTest::addColumn<bool>("scelta");
        QTest::newRow("un file dietro la riga") << QStringLiteral("30000000.acc") << true;
        QTest::newRow("niente di scelto") << QStringLiteral("10000000.acc") << false;
        QTest::newRow("lo stesso, riscritto") << QStringLiteral("20000000.acc") << true;
    }
    void avvisoTace()
    {
        QFETCH(QString, nuovo);
        QFETCH(bool, scelta);
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        if (scelta)
            Clicca_Riga(0);
        Riscrivi_File(nuovo, Buono());
        Battito();
        QVERIFY(!Visibile(*form, "lblAvviso"));
    }

    void veicoloSceltoSparito()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Togli_File(QStringLiteral("12345678.acc"));
        Battito();
        QCOMPARE(Testo_Di(*form, "lblAvviso"), QStringLiteral("Veicolo rimosso"));
        QVERIFY(Visibile(*form, "lblAvviso"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QString());
    }

    /// A file of texts from before these: nothing breaks, and no empty notice shows.
    void senzaITestiNuovi()
    {
        Scrivi_Targhe();
        QVERIFY(QFile::remove(banco->Stazione.Nativo(QStringLiteral("lingueMCTC.ini"))));
        Apri();
        Battito();
        QTest::keyClicks(Lista(), QStringLiteral("ef"));
        QCOMPARE(Lista()->currentRow(), 1);
        Scrivi_File(QStringLiteral("05000000.acc"), Buono());
        Battito();
        QVERIFY(!Visibile(*form, "lblAvviso"));
        QCOMPARE(Testo_Di(*form, "lblCerca"), QString());
        QCOMPARE(Testo_Di(*form, "lblAttesa"), QString());
    }

    // --- hand-over ----------------------------------------------------------------------------------------

    void confermaApreIlVeicoloEChiudeLaLista()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Clicca_Riga(0);
        gFileAcc.clear(); // it is taken from the line again
        Premi(*form, "cmd_0");
        QVERIFY(!form->Caricato());
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("12345678.ACC"));
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMctc2")));
        const auto veicolo = Modulo_Aperto("frmMctc2");
        QCOMPARE(Testo_Di(*veicolo, "txt_3"), QStringLiteral("AB123CD"));
        QCOMPARE(Orologio_Banco().Armate(), 0); // the poll has stopped
    }

    /// A press that falls into the rebuilding of the list counts for the line that the operator saw, and no
    /// other file takes its place behind his back.
    void confermaDuranteLaRilettura()
    {
        Scrivi_File(QStringLiteral("20000000.acc"), Buono());
        Apri();
        Battito();
        Clicca_Riga(0);
        Togli_File(QStringLiteral("20000000.acc"));
        Scrivi_File(QStringLiteral("10000000.acc"), Buono());
        QCOMPARE(Battito_ConConferma(), 0);
        QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("20000000.ACC"));
        QCOMPARE(Nomi_Caricati(), QStringList(QStringLiteral("frmMctc2")));
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    /// Enter in the list confirms a clean file.
    void invioConferma()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        QTest::keyClick(Lista(), Qt::Key_Down);
        QTest::keyClick(Lista(), Qt::Key_Return);
        QVERIFY(Modulo_Aperto("frmMctc2") != nullptr);
    }

    /// The entry form tells the list, the list tells its parent, once, with the value that it got.
    void notificaInDueStadi()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        Notifiche notifiche;
        connect(form.get(), &frmMctcO::Notifica, this, [&](qint16 &codice, QVariant &valore) {
            notifiche.append({codice, valore.toInt()});
            QCOMPARE(gFileAcc, gDirAcc + QStringLiteral("12345678.ACC"));
            QVERIFY(Modulo_Aperto("frmMctc2") != nullptr); // it unloads after the test that it starts
        });
        Clicca_Riga(0);
        Premi(*form, "cmd_0");
        QVERIFY(notifiche.isEmpty());
        Premi(*Modulo_Aperto("frmMctc2"), "cmd_0");
        QCOMPARE(notifiche, (QList<QPair<int, int>>{
                                {VeicoloConfermato, ProvaConfermata}
        }));
        QVERIFY(Nomi_Caricati().isEmpty());
    }

    void altriCodiciIgnorati()
    {
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        const auto notifiche = Ascolta(*form);
        Clicca_Riga(0);
        Premi(*form, "cmd_0");
        const auto veicolo = Modulo_Aperto<frmMctc2>("frmMctc2");
        for (qint16 codice : {qint16{0}, qint16{1}, qint16{5}, qint16{6}, qint16{7}}) {
            QVariant valore = 4;
            Q_EMIT veicolo->Notifica(codice, valore);
        }
        QVERIFY(notifiche->isEmpty());
        Premi(*veicolo, "cmd_2"); // leaving the entry form tells nothing either
        QVERIFY(notifiche->isEmpty());
        QVERIFY(Nomi_Caricati().isEmpty());
    }

    void esciNonDiceNulla_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::newRow("pulsante") << QStringLiteral("pulsante");
        QTest::newRow("tasto") << QStringLiteral("tasto");
        QTest::newRow("finestra") << QStringLiteral("finestra");
    }
    void esciNonDiceNulla()
    {
        QFETCH(QString, modo);
        Scrivi_File(QStringLiteral("12345678.acc"), Buono());
        Apri();
        const auto notifiche = Ascolta(*form);
        Clicca_Riga(0);
        if (modo == u"pulsante")
            Premi(*form, "cmd_1");
        else if (modo == u"tasto")
            QTest::keyClick(Lista(), Qt::Key_Escape);
        else
            form->Finestra()->close();
        QVERIFY(!form->Caricato());
        QVERIFY(Nomi_Caricati().isEmpty());
        QVERIFY(notifiche->isEmpty());
        QVERIFY(QFile::exists(File_Nativo(QStringLiteral("12345678.acc")))); // the list removes no file
    }

    /// Events run once more between the files read and their lines drawn: what is pressed there is meant for
    /// a line that the operator sees, although there are fewer files by then.
    void tastoFraLetturaERighe()
    {
        for (const char *nome : {"12345678.acc", "22345678.acc"})
            Scrivi_File(QString::fromLatin1(nome), Buono());
        Scrivi_File(QStringLiteral("32345678.acc"), Con("Targa=AB123CD", "Targa=EF456GH"));
        Apri();
        Orologio_Banco().Avanza(BATTITO);
        QCOMPARE(Lista()->count(), 3);
        Togli_File(QStringLiteral("12345678.acc"));
        QString scelta;
        gDopoRisultati = [&] {
            QTimer::singleShot(0, Lista(), [&] {
                QTest::keyClicks(Lista(), QStringLiteral("g"));
                scelta = gFileAcc;
            });
        };
        Orologio_Banco().Avanza(BATTITO);
        QVERIFY(!gDopoRisultati);
        QVERIFY2(scelta.endsWith(QStringLiteral("32345678.ACC")), qPrintable(scelta));
        QCOMPARE(Lista()->count(), 2);
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmMctcO>(argc, argv);
}
#include "tst_frmMctcO.moc"
