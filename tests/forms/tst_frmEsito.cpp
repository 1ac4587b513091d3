// The result screen: verdict, lamp data, the twelve cells and their colours, the alarm, the way out.
#include "report/frmEsito.h"

#include "app/modApp.h"
#include "core/codici.h"
#include "core/limiti.h"
#include "core/modCtl.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "core/veicolo.h"
#include "link/protocollo.h"
#include "platform/colori.h"
#include "tests/comuni/far_prova.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/testi_prova.h"
#include "tests/forms/banco_form.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/lettura.h"
#include "toolkit/schermo.h"
#include "toolkit/segnale.h"

#include <QFile>
#include <QTest>

namespace {

const QColor VERDE(0, 255, 0);
const QColor ROSSO(255, 0, 0);

/// The row of the result that each cell shows.
constexpr const char *RIGHE[] = {
    "VertAnabDx",     "VertAnabSx",     "VertAbbDx",     "VertAbbSx",     //
    "OrizzAnabDx",    "OrizzAnabSx",    "OrizzAbbDx",    "OrizzAbbSx",    //
    "IllumLuxAnabDx", "IllumLuxAnabSx", "IllumLuxAbbDx", "IllumLuxAbbSx", //
};
constexpr int CELLE_MIRA = 8, CELLE = 12;

void Imposta_Riga(const char *riga, const QString &valore)
{
    Far_Imposta(Far_Riga(QString::fromLatin1(riga)), valore);
}

/// A vehicle that passes.
void Risultato_Buono()
{
    Far_Azzera();
    for (int i = 0; i < CELLE; ++i)
        Imposta_Riga(RIGHE[i], i < CELLE_MIRA ? QStringLiteral("R") : QStringLiteral("45600"));
    Imposta_Riga("Esito", QStringLiteral("R"));
    Imposta_Riga("TipoAnab", QStringLiteral("#A"));
}

int segnali = 0; // beeps heard

/// How many controls a window of the program has when it is told what kind of window it is.
class SpiaFinestra : public QObject
{
public:
    SpiaFinestra() { qApp->installEventFilter(this); }
    int Massimo() const { return m_massimo; }
    bool eventFilter(QObject *oggetto, QEvent *evento) override
    {
        if (evento->type() == QEvent::ParentChange && oggetto->objectName() == u"frmEsito")
            m_massimo = std::max(m_massimo, static_cast<int>(oggetto->findChildren<QWidget *>().size()));
        return false;
    }

private:
    int m_massimo = -1;
};

} // namespace

/// In place of the system's.
void Segnale_Acustico()
{
    ++segnali;
}

class tst_frmEsito : public QObject
{
    Q_OBJECT

private:
    void Apri()
    {
        form = Nuovo<frmEsito>();
        form->Mostra();
        QVERIFY(Attiva(*form));
    }
    QLabel *Cella(int i) const { return Membro_Di<QLabel>(*form, "lblTab", i); }
    /// A thick red line round a cell: seen also by eyes that do not tell red from green.
    bool Spicca(int i) const
    {
        const QImage vista = Cella(i)->grab().toImage();
        return vista.pixelColor(Spessore_Linea(2), vista.height() / 2) == ROSSO;
    }

    std::unique_ptr<BancoForm> banco;
    std::shared_ptr<frmEsito> form;

private Q_SLOTS:
    void init()
    {
        banco = std::make_unique<BancoForm>();
        Risultato_Buono();
        Carica_Limiti();
        gAltezzaFaro = 65;
    }
    void cleanup()
    {
        banco.reset();
        form.reset();
        QCOMPARE(Orologio_Banco().Armate(), 0);
    }

    // --- verdict ------------------------------------------------------------------------------------------

    void verdetto_data()
    {
        QTest::addColumn<QString>("esito");
        QTest::addColumn<bool>("regolare");
        QTest::newRow("R") << QStringLiteral("R") << true;
        QTest::newRow("I") << QStringLiteral("I") << false;
        QTest::newRow("minuscolo") << QStringLiteral("r") << false;
        QTest::newRow("vuoto") << QString() << false;
    }
    void verdetto()
    {
        QFETCH(QString, esito);
        QFETCH(bool, regolare);
        Imposta_Riga("Esito", esito);
        Apri();
        QCOMPARE(Testo_Di(*form, "lblTitolo"), Testo_Mctc(Id_Mctc(regolare ? 126 : 127)));
        QCOMPARE(Sfondo_Di(Widget_Di(*form, "lblTitolo")), regolare ? VERDE : ROSSO);
        QCOMPARE(form->Caption(), Testo_Mctc(Id_Mctc(regolare ? 126 : 127)));
    }

    /// Another kind of window polishes every control anew: the verdict waits for it.
    void finestraPrimaDeiControlli()
    {
        const SpiaFinestra spia;
        Apri();
        QCOMPARE(spia.Massimo(), 0);
    }

    // --- lamp ---------------------------------------------------------------------------------------------

    void datiDelFaro_data()
    {
        QTest::addColumn<double>("altezza");
        QTest::addColumn<bool>("virgola");
        QTest::addColumn<QString>("testo");
        QTest::newRow("intera") << 65.0 << false << QStringLiteral("65");
        QTest::newRow("punto") << 1.5 << false << QStringLiteral("1.5");
        QTest::newRow("virgola") << 1.5 << true << QStringLiteral("1,5");
    }
    void datiDelFaro()
    {
        QFETCH(double, altezza);
        QFETCH(bool, virgola);
        QFETCH(QString, testo);
        if (virgola)
            Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        gAltezzaFaro = altezza;
        Apri();
        QCOMPARE(Testo_Di(*form, "txt_0"), testo);
        QCOMPARE(Testo_Di(*form, "lbl_0"), Testo_Mctc(Id_Mctc(118)));
    }

    void tipoDelFaro_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<qint16>("testo");
        QTest::newRow("simmetrico") << QStringLiteral("#S") << qint16{120};
        QTest::newRow("asimmetrico") << QStringLiteral("#A") << qint16{121};
        QTest::newRow("altro") << QStringLiteral("S") << qint16{121};
    }
    void tipoDelFaro()
    {
        QFETCH(QString, tipo);
        QFETCH(qint16, testo);
        Imposta_Riga("TipoAnab", tipo);
        Apri();
        QCOMPARE(Testo_Di(*form, "txt_1"), Testo_Mctc(Id_Mctc(testo)));
        QCOMPARE(Testo_Di(*form, "lbl_1"), Testo_Mctc(Id_Mctc(121)));
    }

    void caselleNonSiScrivono()
    {
        Apri();
        Scrivi(*form, "txt_0", QStringLiteral("99"));
        QCOMPARE(Testo_Di(*form, "txt_0"), QStringLiteral("65"));
    }

    /// The verdict is the highest line of the screen; each of the two boxes stands under its own caption.
    void postiDelVerdettoEDelFaro()
    {
        Apri();
        const QRect titolo = Widget_Di(*form, "lblTitolo")->geometry();
        QCOMPARE(titolo.height(), Posto_Twip(0, ScalaY(200), 0, ScalaY(1000)).height());
        for (int i = 0; i <= 1; ++i) {
            const qint32 cima = ScalaY(2500 + i * 1000);
            QCOMPARE(Membro_Di<QWidget>(*form, "txt", i)->pos(),
                     Posto_Twip(ScalaX(500), cima, 0, 0).topLeft());
            QCOMPARE(Membro_Di<QWidget>(*form, "lbl", i)->pos(),
                     Posto_Twip(ScalaX(500), cima - ScalaY(300), 0, 0).topLeft());
        }
    }

    /// The caption names the asymmetric type whatever the lamps are: the word behind it answers it, and the
    /// value is set in another type.
    void tipoSiDistingueDallaVoce_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("risposta");
        QTest::newRow("simmetrico") << QStringLiteral("#S") << QStringLiteral(": No");
        QTest::newRow("asimmetrico") << QStringLiteral("#A") << QStringLiteral(": Sì");
    }
    void tipoSiDistingueDallaVoce()
    {
        QFETCH(QString, tipo);
        QFETCH(QString, risposta);
        Far_Imposta(FarTipoAnab, tipo);
        Apri();
        QCOMPARE(Testo_Di(*form, "lblTipo"), risposta);
        const QWidget *voce = Widget_Di(*form, "lbl_1");
        const QRect accanto = Widget_Di(*form, "lblTipo")->geometry();
        QCOMPARE(accanto.top(), voce->geometry().top());
        const QRect posto = voce->geometry();
        const int scritta = voce->fontMetrics().horizontalAdvance(Testo_Di(*form, "lbl_1"));
        QVERIFY(std::abs(accanto.left() - posto.left() - scritta) <= 3); // right behind it
        QVERIFY(Widget_Di(*form, "txt_1")->font().bold() && !voce->font().bold());
        QVERIFY(Widget_Di(*form, "txt_1")->font().pixelSize() > voce->font().pixelSize());
    }

    // --- vehicle and faults -------------------------------------------------------------------------------

    /// The file has gone when the result shows: the vehicle is that of the session.
    void veicoloDelFile()
    {
        gFileAcc = banco->Stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.acc"));
        gVeicolo = {QStringLiteral("AB123CD"), QStringLiteral("FABBRICA BERLINA")};
        Apri();
        QVERIFY(Visibile(*form, "lblTarga") && Visibile(*form, "lblVeicolo"));
        QCOMPARE(Testo_Di(*form, "lblTarga"), QStringLiteral("AB123CD"));
        QCOMPARE(Testo_Di(*form, "lblVeicolo"), QStringLiteral("FABBRICA BERLINA"));
        form->Scarica();
        gFileAcc.clear(); // the next one is tested by hand
        Apri();
        QVERIFY(!Visibile(*form, "lblTarga") && !Visibile(*form, "lblVeicolo"));
    }

    /// A long name shows its beginning in the full type, and is heard whole.
    void veicoloDalNomeLungo()
    {
        const QString nome = QStringLiteral("FABBRICA ") + QString(100, u'X');
        gFileAcc = banco->Stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.acc"));
        gVeicolo = {QStringLiteral("AB123CD"), nome};
        Apri();
        const QString mostrato = Testo_Di(*form, "lblVeicolo");
        QVERIFY(mostrato.startsWith(QStringLiteral("FABBRICA X")));
        QVERIFY(mostrato.endsWith(u'…'));
        const QWidget *veicolo = Widget_Di(*form, "lblVeicolo");
        QCOMPARE(veicolo->font().pixelSize(), qRound(Pixel_DaPunti(Punti_Normali() * LETTURA_SCHERMO)));
        QCOMPARE(veicolo->accessibleName(), nome);
    }

    void guastiInGrande()
    {
        Far_Imposta(FarEsito, QStringLiteral("I"));
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("2100"));
        Far_Imposta(FarVertAbbSx, QStringLiteral("I"));
        Apri();
        QCOMPARE(Testo_Di(*form, "lblGuasto_0"),
                 QStringLiteral("Anabbagliante destro: 2.1 klx, ammesso da 3.75 a 90"));
        QCOMPARE(Testo_Di(*form, "lblGuasto_1"),
                 QStringLiteral("Abbagliante sinistro: orientamento verticale errato"));
        QVERIFY(Visibile(*form, "lblGuasto_0") && Visibile(*form, "lblGuasto_1"));
        const QWidget *primo = Widget_Di(*form, "lblGuasto_0");
        QCOMPARE(primo->font().pixelSize(), Widget_Di(*form, "lblGuasto_1")->font().pixelSize());
        QVERIFY(primo->font().pixelSize() > Membro_Di<QLabel>(*form, "lblPar", 0)->font().pixelSize());
    }

    void regolareSenzaFrasi()
    {
        Apri();
        QVERIFY(form->Finestra()->findChild<QWidget *>(QStringLiteral("lblGuasto_0")) == nullptr);
    }

    // --- the table ----------------------------------------------------------------------------------------

    /// Each aim cell shows its own row, and the others do not follow it.
    void celleDellaMira_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::newRow("I") << QStringLiteral("I");
        QTest::newRow("vuota") << QString();
        QTest::newRow("minuscola") << QStringLiteral("r");
        QTest::newRow("R e blank") << QStringLiteral("R ");
    }
    void celleDellaMira()
    {
        QFETCH(QString, valore);
        for (int guasta = 0; guasta < CELLE_MIRA; ++guasta) {
            Risultato_Buono();
            Imposta_Riga(RIGHE[guasta], valore);
            Apri();
            for (int i = 0; i < CELLE_MIRA; ++i) {
                QCOMPARE(Cella(i)->text(), i == guasta ? QStringLiteral("NO") : QStringLiteral("SI"));
                QVERIFY(Ha_Colore(Cella(i), i == guasta ? ROSSO : VERDE));
                QVERIFY(!Ha_Colore(Cella(i), i == guasta ? VERDE : ROSSO));
            }
            form->Scarica();
        }
    }

    void celleDellIntensita_data()
    {
        QTest::addColumn<int>("cella");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("regolare");
        const auto riga = [](int cella, const char *valore, const char *testo, bool regolare) {
            QTest::addRow("%s %s", RIGHE[cella], valore)
                << cella << QString::fromLatin1(valore) << QString::fromLatin1(testo) << regolare;
        };
        for (const int anabbagliante : {8, 9}) {
            riga(anabbagliante, "12300", "12.3", true);
            riga(anabbagliante, "3700", "3.7", false);
            riga(anabbagliante, "3750", "3.75", false); // the limits themselves are outside
            riga(anabbagliante, "3800", "3.8", true);
            riga(anabbagliante, "89900", "89.9", true);
            riga(anabbagliante, "90000", "90", false);
            riga(anabbagliante, "-100", "-0.1", false);
        }
        for (const int abbagliante : {10, 11}) {
            riga(abbagliante, "20000", "20", false);
            riga(abbagliante, "20100", "20.1", true);
            riga(abbagliante, "149900", "149.9", true);
            riga(abbagliante, "150000", "150", false);
            riga(abbagliante, "0", "0", false);
        }
    }
    void celleDellIntensita()
    {
        QFETCH(int, cella);
        QFETCH(QString, valore);
        QFETCH(QString, testo);
        QFETCH(bool, regolare);
        Imposta_Riga(RIGHE[cella], valore);
        Apri();
        for (int i = CELLE_MIRA; i < CELLE; ++i) {
            QCOMPARE(Cella(i)->text(), i == cella ? testo : QStringLiteral("45.6"));
            QVERIFY(Ha_Colore(Cella(i), i == cella && !regolare ? ROSSO : VERDE));
            QCOMPARE(Spicca(i), i == cella && !regolare);
            QVERIFY(!Ha_Colore(Cella(i), i == cella && !regolare ? VERDE : ROSSO));
        }
    }

    /// What the evaluation writes and what colour the cell has are one judgement, at every border of the
    /// limits.
    void coloreComeIlVerdetto_data()
    {
        QTest::addColumn<qint32>("figura"); // of the instrument
        QTest::addColumn<qint32>("minimo");
        QTest::addColumn<qint32>("massimo");
        QTest::addColumn<QString>("verdetto");
        // The last figure: a limit next to it is not the same number any more in single precision.
        for (const qint32 figura : {38, 899, 1499, 32767, 167773}) {
            const qint32 lux = figura * 100;
            const auto riga = [figura](qint32 minimo, qint32 massimo, const char *verdetto) {
                QTest::addRow("%d, %d to %d", figura, minimo, massimo)
                    << figura << minimo << massimo << QString::fromLatin1(verdetto);
            };
            riga(lux - 1, lux + 1, "R");
            riga(lux, lux + 1, "I");
            riga(lux + 1, lux + 2, "I");
            riga(lux - 1, lux, "I");
            riga(lux - 2, lux - 1, "I");
        }
    }
    void coloreComeIlVerdetto()
    {
        QFETCH(qint32, figura);
        QFETCH(qint32, minimo);
        QFETCH(qint32, massimo);
        QFETCH(QString, verdetto);
        const QString parametri = QStringLiteral("PARAMETRI");
        for (const char *chiave : {"LuxMinAnab", "LuxMinAbb"})
            banco->Stazione.Imposta(parametri, QString::fromLatin1(chiave), QString::number(minimo));
        for (const char *chiave : {"LuxMaxAnab", "LuxMaxAbb"})
            banco->Stazione.Imposta(parametri, QString::fromLatin1(chiave), QString::number(massimo));
        gMisure.fill({figura, QStringLiteral("O"), QStringLiteral("O")});
        gFileAcc = gDirAcc + QStringLiteral("12345678.acc");
        Calcola_Esito();
        const QByteArray far = banco->Stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far"));
        Apri();
        for (int i = CELLE_MIRA; i < CELLE; ++i) {
            const QByteArray chiave = RIGHE[i];
            QVERIFY(far.contains("\r\n" + chiave + "=" + QByteArray::number(figura * 100) + "\r\n"));
            QVERIFY(far.contains("\r\nEsito" + chiave + "=" + verdetto.toLatin1() + "\r\n"));
            QVERIFY(Ha_Colore(Cella(i), verdetto == u"R" ? VERDE : ROSSO));
        }
    }

    /// The cells follow the limits in force, not those of the delivery.
    void limitiInVigore()
    {
        gLuxMaxAnab = 12300;
        gLuxMinAbb = 45500;
        Imposta_Riga("IllumLuxAnabDx", QStringLiteral("12299"));
        Imposta_Riga("IllumLuxAnabSx", QStringLiteral("12300"));
        Imposta_Riga("IllumLuxAbbDx", QStringLiteral("45500"));
        Imposta_Riga("IllumLuxAbbSx", QStringLiteral("45501"));
        Apri();
        QVERIFY(Ha_Colore(Cella(8), VERDE));
        QVERIFY(Ha_Colore(Cella(9), ROSSO));
        QVERIFY(Ha_Colore(Cella(10), ROSSO));
        QVERIFY(Ha_Colore(Cella(11), VERDE));
    }

    void separatoreDelLocale()
    {
        Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        Imposta_Riga("IllumLuxAnabDx", QStringLiteral("12300"));
        Apri();
        QCOMPARE(Cella(8)->text(), QStringLiteral("12,3"));
        QVERIFY(Ha_Colore(Cella(8), VERDE));
    }

    /// Neither green nor red: nothing was measured, nothing is judged.
    void faroNonProvato()
    {
        Imposta_Riga("IllumLuxAbbSx", QString());
        Imposta_Riga("VertAbbSx", QString());
        Apri();
        QCOMPARE(Cella(11)->text(), QStringLiteral(" -"));
        QVERIFY(!Ha_Colore(Cella(11), VERDE) && !Ha_Colore(Cella(11), ROSSO));
        QCOMPARE(Cella(3)->text(), QStringLiteral("NO"));
        QVERIFY(Ha_Colore(Cella(3), ROSSO));
    }

    void intestazioni()
    {
        Apri();
        const qint16 colonneERighe[] = {132, 131, 134, 133, 135, 136, 137};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(Membro_Di<QLabel>(*form, "lblPar", i)->text(), Testo_Mctc(Id_Mctc(colonneERighe[i])));
        QCOMPARE(Testo_Di(*form, "lblDes_0"), Testo_Mctc(Id_Mctc(130)));
        QCOMPARE(Testo_Di(*form, "lblDes_1"), Testo_Mctc(Id_Mctc(129)));
    }

    void postiDellaTabella_data()
    {
        QTest::addColumn<QString>("lingua");
        QTest::addColumn<qint32>("cimaColonne");
        QTest::newRow("italiano") << QStringLiteral("IT") << 2000;
        for (const char *lingua : {"FR", "EN", "ES", "DE"})
            QTest::newRow(lingua) << QString::fromLatin1(lingua) << 1800;
    }
    /// A head on one line does not run into the next one: a blank of their type stands between them at least.
    void testeStaccate()
    {
        Apri();
        for (int i = 0; i < 4; ++i) {
            const auto *testa = Membro_Di<QLabel>(*form, "lblPar", i);
            const QFontMetrics metrica = testa->fontMetrics();
            const int libero = testa->width() - metrica.horizontalAdvance(testa->text());
            QVERIFY2(libero >= metrica.horizontalAdvance(u' '), qPrintable(testa->text()));
        }
    }

    /// Each head stands over its column or beside its row, and so every figure under its own lamp.
    void postiDellaTabella()
    {
        QFETCH(QString, lingua);
        QFETCH(qint32, cimaColonne);
        gLingua = lingua;
        Apri();
        const qint32 meta = gScreenW / 2;
        for (int i = 0; i < CELLE; ++i) {
            const QRect posto = Posto_Twip(meta + i % 4 * ScalaX(1300), ScalaY(2370 + i / 4 * 800),
                                           ScalaX(1300), ScalaY(800));
            QCOMPARE(Cella(i)->geometry(), posto);
        }
        for (int i = 0; i < 4; ++i) {
            const QRect testa = Membro_Di<QWidget>(*form, "lblPar", i)->geometry();
            QCOMPARE(testa.left(), Cella(i)->geometry().left());
            QCOMPARE(testa.width(), Cella(i)->geometry().width());
            QCOMPARE(testa.top(), Posto_Twip(0, ScalaY(cimaColonne), 0, 0).y());
        }
        for (int i = 4; i < 7; ++i) {
            const QRect testa = Membro_Di<QWidget>(*form, "lblPar", i)->geometry();
            QCOMPARE(testa.top(), Cella(4 * (i - 4))->geometry().top());
            QVERIFY(testa.right() < Cella(0)->geometry().left());
        }
        const qint32 sinistre[] = {ScalaX(500), meta + ScalaX(300)};
        const qint32 cime[] = {ScalaY(1500), ScalaY(1450)};
        for (int i = 0; i <= 1; ++i) {
            const QRect testa = Membro_Di<QWidget>(*form, "lblDes", i)->geometry();
            const QRect posto = Posto_Twip(sinistre[i], cime[i], ScalaX(4000), 0);
            QCOMPARE(testa.topLeft(), posto.topLeft());
            QCOMPARE(testa.width(), posto.width());
        }
    }

    void corniciDipinte()
    {
        Apri();
        const qint32 meta = gScreenW / 2;
        QVERIFY(Ha_Cornice(*form, ScalaX(200), ScalaY(100), gScreenW - ScalaX(200), ScalaY(1300)));
        QVERIFY(Ha_Cornice(*form, ScalaX(200), ScalaY(1400), meta - ScalaX(2600), ScalaY(5000)));
        QVERIFY(Ha_Cornice(*form, meta - ScalaX(2500), ScalaY(1400), gScreenW - ScalaX(200), ScalaY(5000)));
    }

    // --- the alarm ----------------------------------------------------------------------------------------

    void allarme_data()
    {
        QTest::addColumn<QString>("esito");
        QTest::addColumn<Flag>("acustico");
        QTest::addColumn<bool>("suona");
        QTest::newRow("regolare, acceso") << QStringLiteral("R") << Vero << false;
        QTest::newRow("regolare, spento") << QStringLiteral("R") << Falso << false;
        QTest::newRow("irregolare, acceso") << QStringLiteral("I") << Vero << true;
        QTest::newRow("irregolare, spento") << QStringLiteral("I") << Falso << false;
    }
    void allarme()
    {
        QFETCH(QString, esito);
        QFETCH(Flag, acustico);
        QFETCH(bool, suona);
        Imposta_Riga("Esito", esito);
        gAllarmeAcustico = acustico;
        segnali = 0;
        Apri();
        Orologio_Banco().Avanza(999);
        QCOMPARE(segnali, 0);
        Orologio_Banco().Avanza(1);
        QCOMPARE(segnali, suona ? 1 : 0);
        Orologio_Banco().Avanza(59000);
        QCOMPARE(segnali, suona ? 60 : 0); // nothing stops it but the form's end
        Premi(*form, "cmd_0");
        Orologio_Banco().Avanza(60000);
        QCOMPARE(segnali, suona ? 60 : 0);
    }

    // --- buttons ------------------------------------------------------------------------------------------

    void pulsanti()
    {
        Apri();
        const qint32 cima = gScreenH - ScalaY(1500);
        const qint32 posti[] = {gScreenW - ScalaX(2500), ScalaX(500), ScalaX(2500), gScreenW - ScalaX(4500)};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(Membro_Di<QWidget>(*form, "cmd", i)->geometry(),
                     Posto_Twip(posti[i], cima, ScalaX(1575), ScalaY(975)));
        QVERIFY(!Abilitato(*form, "cmd_3"));
        Widget_Di<QPushButton>(*form, "cmd_2")->click(); // no action
        QVERIFY(form->Caricato());
    }

    void esciNotificaCodice5_data()
    {
        QTest::addColumn<bool>("tastiera");
        QTest::newRow("mouse") << false;
        QTest::newRow("tastiera") << true;
    }
    void esciNotificaCodice5()
    {
        QFETCH(bool, tastiera);
        Apri();
        bool caricato = false;
        const auto notifiche = Ascolta(*form);
        connect(form.get(), &frmEsito::Notifica, this, [&] { caricato = form->Caricato(); });
        if (tastiera)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            Premi(*form, "cmd_0");
        QCOMPARE(*notifiche, (Notifiche{
                                 {EsitoChiuso, 0}
        }));
        QVERIFY(caricato); // first the notification, then the unloading
        QVERIFY(!form->Caricato());
    }

    void chiusuraDellaFinestraNonNotifica()
    {
        Apri();
        const auto notifiche = Ascolta(*form);
        form->Finestra()->close();
        QVERIFY(!form->Caricato());
        QVERIFY(notifiche->isEmpty());
    }

    /// The screen reads and changes nothing.
    void risultatoNonToccato()
    {
        Imposta_Riga("Esito", QStringLiteral("I"));
        const auto prima = gRisultatoFar;
        const QByteArray ini = banco->Stazione.Leggi(QStringLiteral("lumira.ini"));
        Apri();
        Premi(*form, "cmd_0");
        for (size_t i = 0; i < prima.size(); ++i)
            QCOMPARE(gRisultatoFar[i].Valore, prima[i].Valore);
        QCOMPARE(banco->Stazione.Leggi(QStringLiteral("lumira.ini")), ini);
    }

    void senzaTestiLeCelleRestano()
    {
        QVERIFY(QFile::remove(banco->Stazione.Nativo(QStringLiteral("lingueMCTC.ini"))));
        gTabMctc.fill(QString());
        Apri();
        QVERIFY(Testo_Di(*form, "lblTitolo").isEmpty());
        QCOMPARE(Cella(0)->text(), QStringLiteral("SI"));
    }
};

int main(int argc, char **argv)
{
    return Principale_Prova<tst_frmEsito>(argc, argv);
}
#include "tst_frmEsito.moc"
