#include "toolkit/controlli.h"

#include "core/modGeneral.h"
#include "platform/colore_qt.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/trascina_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/elenco_colonne.h"
#include "toolkit/elenco_lettura.h"
#include "toolkit/schermo.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTemporaryDir>

class tst_controlli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void postoInTwip();
    void unaMisuraAllaVolta();
    void viciniSenzaFessure();
    void visibileEAbilitato();
    void nomeTagENomeAccessibile();
    void carattereInPunti();
    void carattereSenzaPosto();
    void carattereMaiSottoUnPixel();
    void carattereCheEntra_data();
    void carattereCheEntra();
    void carattereTrovatoInPochiTentativi();
    void carattereTrovatoEIlMaggiore_data();
    void carattereTrovatoEIlMaggiore();
    void etichettaVaACapoPrimaDiRimpicciolire();
    void lettereIntereInUnaRigaBassa();
    void parolaLargaComeIlPosto();
    void spaziNonOccupano();
    void principioPienoDueVolte_data();
    void principioPienoDueVolte();
    void testoSenzaFineNonEntra();
    void distruttoPortaViaIlWidget();
    void distruttoSparisceDalleTecnologieAssistive();
    void distruttoDalSuoGestore_data();
    void distruttoDalSuoGestore();
    void senzaFinestraNonFaNulla();

    void etichettaMostraIlTestoComeE();
    void etichettaColori();
    void etichettaBordo();
    void etichettaBordoEvidente();
    void etichettaCella();
    void etichettaSpostataEPoiStretta();
    void etichettaPostaGrandeComeNasce();
    void etichettaAltezzaDelTesto();
    void etichettaSpezzaOvunque();
    void etichettaAllineamento();

    void testoChangeSoloSeCambia();
    void testoLungoMostraIlPrincipio();
    void testoBloccato();
    void testoSfondo();
    void coloriTengonoIlCarattere();
    void testoNascosto();
    void testoUnaRigaSola_data();
    void testoUnaRigaSola();
    void testoIncollatoInMezzo();
    void testoTagliatoACioCheCEra();
    void testoAltriSegniRestano();

    void comboNientePrescelto();
    void comboVuotaEntraOvunque();
    void comboPerTesto();
    void comboPerIndice();
    void comboClickSoloDellOperatore();
    void comboClickAncheSullaStessaVoce();

    void spuntaDalProgrammaSollevaClick();
    void spuntaSiPremeOvunque();

    void pulsanteClick();

    void elencoVoci();
    void elencoIndiceDalProgramma();
    void elencoIndiceErrato_data();
    void elencoIndiceErrato();
    void elencoClicDelMouseUnaVolta();
    void elencoTrascinato();
    void elencoTasti();
    void elencoFuocoNonSceglie();
    void elencoSvuotatoNonSceglie();
    void elencoDistruttoAMouseGiu();
    void elencoSenzaFondoDentro();
    void elencoInDueColonne();

    void immagineCheManca();
    void immagineNonValida();
    void immagineInAltraGrafia();
    void immagineSenzaDistorsione();
    void immagineLettaAllaMisuraDelPosto();
    void immagineComeRimpicciolitaDaIntera_data();
    void immagineComeRimpicciolitaDaIntera();
    void immagineTestoEAvviso();

    void formaColore();

private:
    QColor Punto(const Controllo &controllo, int x, int y) const;

    std::unique_ptr<QWidget> m_finestra;
};

void tst_controlli::init()
{
    m_finestra = std::make_unique<QWidget>();
    m_finestra->setFixedSize(600, 400);
    m_finestra->show();
    QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
}

void tst_controlli::cleanup()
{
    m_finestra.reset();
}

QColor tst_controlli::Punto(const Controllo &controllo, int x, int y) const
{
    return controllo.Widget()->grab().toImage().pixelColor(x, y);
}

// --- every control ----------------------------------------------------------------------------------------

void tst_controlli::postoInTwip()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(1500, 750, 3000, 300);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(100, 50, 200, 20));
    etichetta.Posto(-150, -15, 30, 15);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(-10, -1, 2, 1));
}

void tst_controlli::unaMisuraAllaVolta()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(150, 150, 150, 150);
    etichetta.Left(300);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(20, 10, 10, 10));
    etichetta.Top(450);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(20, 30, 10, 10));
    etichetta.Width(600);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(20, 30, 40, 10));
    etichetta.Height(750);
    QCOMPARE(etichetta.Widget()->geometry(), QRect(20, 30, 40, 50));
    QCOMPARE(etichetta.Left(), 300);
    QCOMPARE(etichetta.Top(), 450);
    QCOMPARE(etichetta.Width(), 600);
    QCOMPARE(etichetta.Height(), 750);
}

// Places that are no whole pixels: each is rounded, and still no line of the ground shows between two cells.
void tst_controlli::viciniSenzaFessure()
{
    for (qint32 passo = 301; passo <= 330; ++passo) {
        Etichetta prima(m_finestra.get(), QStringLiteral("prima"));
        Etichetta dopo(m_finestra.get(), QStringLiteral("dopo"));
        for (qint32 i = 0; i < 12; ++i) {
            prima.Posto(i * passo, i * passo, passo, passo);
            dopo.Posto((i + 1) * passo, (i + 1) * passo, passo, passo);
            QCOMPARE(prima.Widget()->geometry().right() + 1, dopo.Widget()->geometry().left());
            QCOMPARE(prima.Widget()->geometry().bottom() + 1, dopo.Widget()->geometry().top());
        }
    }
}

void tst_controlli::visibileEAbilitato()
{
    Pulsante pulsante(m_finestra.get(), QStringLiteral("cmd"));
    pulsante.Visible(false);
    QVERIFY(!pulsante.Visible());
    pulsante.Visible(true);
    QVERIFY(pulsante.Visible());
    QVERIFY(pulsante.Widget()->isVisible());
    QVERIFY(pulsante.Enabled());
    pulsante.Enabled(false);
    QVERIFY(!pulsante.Enabled());
    m_finestra->hide();
    QVERIFY(pulsante.Visible()); // its own state, whatever its window's
}

void tst_controlli::nomeTagENomeAccessibile()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt_3"));
    QCOMPARE(casella.Widget()->objectName(), QStringLiteral("txt_3"));
    QCOMPARE(casella.Tag(), QString());
    casella.Tag(QStringLiteral("12"));
    QCOMPARE(casella.Tag(), QStringLiteral("12"));
    casella.NomeAccessibile(QStringLiteral("Targa"));
    const QAccessibleInterface *accesso = QAccessible::queryAccessibleInterface(casella.Widget());
    QCOMPARE(accesso->text(QAccessible::Name), QStringLiteral("Targa"));
}

void tst_controlli::carattereInPunti()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    QCOMPARE(etichetta.FontSize(), Punti_Normali());
    etichetta.FontSize(12);
    QCOMPARE(etichetta.FontSize(), 12.0);
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 16); // 240 twips at 15 a pixel
    QVERIFY(!etichetta.Widget()->font().bold());
    etichetta.FontBold(true);
    etichetta.FontName(QStringLiteral("Courier New"));
    QVERIFY(etichetta.Widget()->font().bold());
    QCOMPARE(etichetta.Widget()->font().family(), QStringLiteral("Courier New"));
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 16);
}

// A control that is placed one side after the other has no place yet in between: its type waits for it.
void tst_controlli::carattereSenzaPosto()
{
    for (const QSize twip : {QSize(1500, 0), QSize(0, 1500), QSize(0, 0)}) {
        Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
        etichetta.FontSize(20);
        etichetta.Caption(QStringLiteral("Intensità"));
        etichetta.Posto(0, 0, twip.width(), twip.height());
        QCOMPARE(etichetta.Widget()->font().pixelSize(), Pixel_Interi(20));
    }
}

void tst_controlli::carattereMaiSottoUnPixel()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(0);
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 1);
}

void tst_controlli::carattereCheEntra_data()
{
    QTest::addColumn<int>("quale");
    QTest::newRow("etichetta") << 0;
    QTest::newRow("pulsante") << 1;
    QTest::newRow("combo") << 2;
}

// Too long a text is set smaller, not below what can be read; a shorter one or a larger place gives the size
// back.
void tst_controlli::carattereCheEntra()
{
    QFETCH(int, quale);
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    Pulsante pulsante(m_finestra.get(), QStringLiteral("cmd"));
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    Controllo *const controlli[] = {&etichetta, &pulsante, &combo};
    Controllo &controllo = *controlli[quale];
    const auto scrivi = [&](const QString &testo) {
        etichetta.Caption(testo);
        pulsante.Caption(testo);
        combo.Clear();
        combo.AddItem(testo);
    };
    const auto pixel = [&] { return controllo.Widget()->font().pixelSize(); };
    controllo.FontSize(15);
    scrivi(QStringLiteral("Intensit\u00e0"));
    QCOMPARE(pixel(), 20); // it has no place yet
    controllo.Posto(0, 0, 1125, 450);
    QVERIFY(pixel() < 20 && pixel() > Carattere_Minimo());
    QVERIFY(controllo.Entra());
    QCOMPARE(controllo.FontSize(), 15.0);
    scrivi(QStringLiteral("SI"));
    QCOMPARE(pixel(), 20);
    scrivi(QStringLiteral("Inclinazioneorizzontale"));
    QCOMPARE(pixel(), Carattere_Minimo());
    QVERIFY(!controllo.Entra());
    controllo.Width(6000);
    QCOMPARE(pixel(), 20);
    QVERIFY(controllo.Entra());
}

namespace {

/// Counts the events of one kind that an object gets.
class ContaEventi : public QObject
{
public:
    ContaEventi(QObject *osservato, QEvent::Type tipo) : m_tipo(tipo) { osservato->installEventFilter(this); }
    int Quanti() const { return m_quanti; }
    bool eventFilter(QObject *, QEvent *evento) override
    {
        m_quanti += evento->type() == m_tipo;
        return false;
    }

private:
    QEvent::Type m_tipo;
    int m_quanti = 0;
};

} // namespace

// Each size that is tried costs the loading of its type. It is the largest one that fits, all the same.
void tst_controlli::carattereTrovatoInPochiTentativi()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(300); // 400 pixels
    etichetta.Posto(0, 0, 1950, 750);
    const ContaEventi cambi(etichetta.Widget(), QEvent::FontChange);
    etichetta.Caption(QStringLiteral("Orientamento"));
    QVERIFY2(cambi.Quanti() <= 12, qPrintable(QString::number(cambi.Quanti())));
    QVERIFY(etichetta.Entra());
    QFont carattere = etichetta.Widget()->font();
    carattere.setPixelSize(carattere.pixelSize() + 1);
    etichetta.Widget()->setFont(carattere);
    QVERIFY(!etichetta.Entra());
}

void tst_controlli::carattereTrovatoEIlMaggiore_data()
{
    QTest::addColumn<QString>("testo");
    for (const char *testo :
         {"Verificación válida hasta el 31/12/2027", "Orientamento orizzontale", "Scheinwerfer links"})
        QTest::addRow("%s", testo) << QString::fromUtf8(testo);
}

// One pixel after the other from above finds the same, in places of many widths.
void tst_controlli::carattereTrovatoEIlMaggiore()
{
    QFETCH(QString, testo);
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(30); // 40 pixels
    etichetta.Caption(testo);
    for (qint32 larghezza = 900; larghezza <= 6000; larghezza += 45) {
        etichetta.Posto(0, 0, larghezza, 450);
        QFont carattere = etichetta.Widget()->font();
        const int trovato = carattere.pixelSize();
        int pixel = 40;
        for (; pixel > Carattere_Minimo(); --pixel) {
            carattere.setPixelSize(pixel);
            etichetta.Widget()->setFont(carattere);
            if (etichetta.Entra())
                break;
        }
        QCOMPARE(trovato, pixel);
    }
}

void tst_controlli::etichettaVaACapoPrimaDiRimpicciolire()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(15);
    etichetta.Caption(QStringLiteral("Orientamento orizzontale"));
    etichetta.Posto(0, 0, 1950, 750);
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 20); // in two lines
    etichetta.Height(450);
    QVERIFY(etichetta.Widget()->font().pixelSize() < 20);
    QVERIFY(etichetta.Entra());
}

// What counts are the letters: a line is higher than they are.
void tst_controlli::lettereIntereInUnaRigaBassa()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(15); // a line of 23 pixels
    etichetta.Posto(0, 0, 3000, 300);
    etichetta.Allineamento(Orizzontale::Sinistra, Verticale::Basso);
    etichetta.Caption(QStringLiteral("pagina"));
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 20); // nothing above the small letters
    etichetta.Allineamento(Orizzontale::Sinistra, Verticale::Alto);
    QVERIFY(etichetta.Widget()->font().pixelSize() < 20); // the letters reach below
    etichetta.Caption(QStringLiteral("AZIENDA"));
    QCOMPARE(etichetta.Widget()->font().pixelSize(), 20);
}

void tst_controlli::parolaLargaComeIlPosto()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(20);
    etichetta.Caption(QStringLiteral("Intensità"));
    const int larga = etichetta.Widget()->minimumSizeHint().width();
    etichetta.Posto(0, 0, Twip_DaPixel(larga), 1500);
    QVERIFY(etichetta.Entra());
    QCOMPARE(etichetta.Widget()->font().pixelSize(), Pixel_Interi(20));
    etichetta.Width(Twip_DaPixel(larga - 1));
    QVERIFY(etichetta.Widget()->font().pixelSize() < Pixel_Interi(20));
}

// Blanks at a line's end hang over, and a hyphen that shows only where a word is broken takes no room.
void tst_controlli::spaziNonOccupano()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(20);
    etichetta.Posto(0, 0, 1500, 600);
    for (const QChar segno : {QChar(u' '), QChar(QChar::SoftHyphen)}) {
        etichetta.Caption(u'H' + QString(1000, segno)); // more than the place has pixels
        QVERIFY(etichetta.Entra());
        QCOMPARE(etichetta.Widget()->font().pixelSize(), Pixel_Interi(20));
    }
}

void tst_controlli::principioPienoDueVolte_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("quanto");
    const auto volte = [](const char *parola, int quante) {
        return QString::fromLatin1(parola).repeated(quante);
    };
    // Six lines, of ten letters each, are twice what the place and one line more hold.
    QTest::newRow("corto") << volte("HHHHH ", 3) << 18;
    QTest::newRow("due parole per riga") << volte("HHHH ", 40) << 13 * 5 - 1;
    QTest::newRow("due che riempiono la riga") << volte("HHHHH ", 40) << 13 * 6 - 1;
    QTest::newRow("la prima non ci sta con la seconda")
        << QStringLiteral("HHHHHH ") + volte("HHHHH ", 40) << 7 + 11 * 6 - 1;
    QTest::newRow("una riga per parola") << volte("HHHHHHHH ", 40) << 7 * 9 - 1;
    QTest::newRow("parole piu' larghe della riga") << volte("HHHHHHHHHHHHHHHHHHHHHHHHH ", 40) << 7 * 26 - 1;
    QTest::newRow("parole larghe e due spazi") << volte("HHHHHHHHHHHHHHHHHHHHHHHHH  ", 40) << 7 * 27 - 2;
    QTest::newRow("righe corte") << volte("H\n", 40) << 6 * 2 - 1;
    QTest::newRow("righe vuote") << volte("\n", 40) << 5;
    QTest::newRow("righe di due parole") << volte("HHHHH HHHHH\n", 40) << 6 * 12 - 1;
    QTest::newRow("senza uno spazio") << volte("H", 400) << 400;
}

void tst_controlli::principioPienoDueVolte()
{
    QFETCH(QString, testo);
    QFETCH(int, quanto);
    QFont carattere = m_finestra->font();
    carattere.setPixelSize(Carattere_Minimo());
    const QFontMetrics metrica(carattere);
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, Twip_DaPixel(10 * metrica.horizontalAdvance(u'H')),
                    Twip_DaPixel(2 * metrica.lineSpacing()));
    QCOMPARE(etichetta.Principio(testo), testo.left(quanto));
}

// A report of many screens is not laid out to learn that it does not fit.
void tst_controlli::testoSenzaFineNonEntra()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 3000, 600);
    const QString testo = QStringLiteral("Voce estranea ").repeated(300000);
    etichetta.Caption(testo);
    QVERIFY(!etichetta.Entra());
}

void tst_controlli::distruttoPortaViaIlWidget()
{
    auto pulsante = std::make_unique<Pulsante>(m_finestra.get(), QStringLiteral("cmd"));
    const QPointer<QWidget> widget = pulsante->Widget();
    int clic = 0;
    pulsante->Click = [&] {
        ++clic;
        pulsante.reset(); // the very button that is being pressed
    };
    QTest::mouseClick(widget, Qt::LeftButton);
    QCOMPARE(clic, 1);
    QVERIFY(widget == nullptr || widget->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTRY_VERIFY(widget == nullptr);
}

// A widget that stayed known under its address would hide the next one that is made there.
void tst_controlli::distruttoSparisceDalleTecnologieAssistive()
{
    auto pulsante = std::make_unique<Pulsante>(m_finestra.get(), QStringLiteral("cmd"));
    const QAccessible::Id numero =
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(pulsante->Widget()));
    QVERIFY(QAccessible::accessibleInterface(numero) != nullptr);
    pulsante.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QAccessible::accessibleInterface(numero) == nullptr);
}

namespace {

/// What raises the event of a control.
struct Gesto
{
    const char *nome;
    std::unique_ptr<Controllo> (*crea)(QWidget *finestra, const std::function<void()> &gestore);
    void (*compi)(Controllo &controllo);
};

template <typename T, Evento T::*evento>
std::unique_ptr<Controllo> Crea(QWidget *finestra, const std::function<void()> &gestore)
{
    auto controllo = std::make_unique<T>(finestra, QStringLiteral("ctl"));
    if constexpr (requires { controllo->AddItem(QString()); }) {
        for (const char16_t *voce : {u"uno", u"due"})
            controllo->AddItem(QString::fromUtf16(voce));
    }
    controllo->Posto(0, 0, 3000, 1500);
    controllo->Visible(true);
    (*controllo).*evento = gestore;
    return controllo;
}

template <int tasto>
void Batti(Controllo &controllo)
{
    controllo.SetFocus();
    QTest::keyClick(controllo.Widget(), static_cast<Qt::Key>(tasto));
}

constexpr auto TESTO = Crea<CasellaTesto, &CasellaTesto::Change>;
constexpr auto COMBINATA = Crea<CasellaCombinata, &CasellaCombinata::Click>;
constexpr auto SPUNTA = Crea<CasellaSpunta, &CasellaSpunta::Click>;
constexpr auto PULSANTE = Crea<Pulsante, &Pulsante::Click>;
constexpr auto ELENCO = Crea<ElencoVoci, &ElencoVoci::Click>;

const Gesto GESTI[] = {
    {"box, key",                  TESTO,     Batti<Qt::Key_A>                                                   },
    {"box, program",              TESTO,
     [](Controllo &c) { static_cast<CasellaTesto &>(c).Text(QStringLiteral("AB123CD")); }                       },
    {"list that drops down, key", COMBINATA, Batti<Qt::Key_Down>                                                },
    {"tick, key",                 SPUNTA,    Batti<Qt::Key_Space>                                               },
    {"tick, mouse",               SPUNTA,    [](Controllo &c) { QTest::mouseClick(c.Widget(), Qt::LeftButton); }},
    {"tick, program",             SPUNTA,    [](Controllo &c) { static_cast<CasellaSpunta &>(c).Value(1); }     },
    {"button, key",               PULSANTE,  Batti<Qt::Key_Space>                                               },
    {"button, mouse",             PULSANTE,  [](Controllo &c) { QTest::mouseClick(c.Widget(), Qt::LeftButton); }},
    {"list, key",                 ELENCO,    Batti<Qt::Key_Down>                                                },
    {"list, mouse",               ELENCO,
     [](Controllo &c) {
         const auto *lista = static_cast<const QListWidget *>(c.Widget());
         QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                           lista->visualItemRect(lista->item(1)).center());
     }                                                                                                          },
    {"list, program",             ELENCO,    [](Controllo &c) { static_cast<ElencoVoci &>(c).ListIndex(1); }    },
};

} // namespace

void tst_controlli::distruttoDalSuoGestore_data()
{
    QTest::addColumn<int>("gesto");
    for (int i = 0; i < static_cast<int>(std::size(GESTI)); ++i)
        QTest::newRow(GESTI[i].nome) << i;
}

// The handler goes on after its control has gone, with what it has captured: under the address sanitizer a
// read of what went with the control ends the test.
void tst_controlli::distruttoDalSuoGestore()
{
    QFETCH(int, gesto);
    std::unique_ptr<Controllo> controllo;
    QString letto;
    int volte = 0;
    const QString segno = QStringLiteral("captured by value, on the heap of the closure");
    controllo = GESTI[gesto].crea(m_finestra.get(), [&controllo, &letto, &volte, segno] {
        ++volte;
        controllo.reset();
        letto = segno;
    });
    const QPointer<QWidget> widget = controllo->Widget();
    GESTI[gesto].compi(*controllo);
    QCOMPARE(volte, 1);
    QCOMPARE(letto, segno);
    QTRY_VERIFY(widget == nullptr);
}

void tst_controlli::senzaFinestraNonFaNulla()
{
    QWidget *finestra = m_finestra.get();
    Etichetta lbl(finestra, QStringLiteral("lbl"));
    CasellaTesto txt(finestra, QStringLiteral("txt"));
    CasellaCombinata cbo(finestra, QStringLiteral("cbo"));
    CasellaSpunta chk(finestra, QStringLiteral("chk"));
    Pulsante cmd(finestra, QStringLiteral("cmd"));
    ElencoVoci lst(finestra, QStringLiteral("lst"));
    Immagine img(finestra, QStringLiteral("img"));
    Forma sha(finestra, QStringLiteral("sha"), Forma::Cerchio);
    m_finestra.reset();

    lbl.Posto(1, 2, 3, 4);
    QCOMPARE(lbl.Left(), 1);
    lbl.Caption(QStringLiteral("a"));
    lbl.ForeColor(0);
    lbl.Bordo();
    lbl.Allineamento(Orizzontale::Centro);
    lbl.SpezzaOvunque();
    QCOMPARE(lbl.Caption(), QString());
    QCOMPARE(lbl.Altezza_Testo(), 0);
    txt.Text(QStringLiteral("a"));
    txt.Locked(true);
    txt.BackColor(0);
    txt.Nascosta(true);
    txt.SetFocus();
    txt.NomeAccessibile(QStringLiteral("a"));
    QCOMPARE(txt.Text(), QString());
    QVERIFY(!txt.Locked() && !txt.Visible() && !txt.Enabled());
    cbo.AddItem(QStringLiteral("a"));
    cbo.Text(QStringLiteral("a"));
    cbo.ListIndex(5);
    cbo.Clear();
    QCOMPARE(cbo.ListIndex(), qint16{-1});
    QCOMPARE(cbo.Text(), QString());
    chk.Value(1);
    QCOMPARE(chk.Value(), qint16{0});
    cmd.Caption(QStringLiteral("a"));
    cmd.Enabled(true);
    cmd.Visible(true);
    cmd.FontSize(9);
    cmd.FontBold(true);
    cmd.FontName(QStringLiteral("a"));
    QCOMPARE(cmd.Caption(), QString());
    lst.AddItem(QStringLiteral("a"));
    lst.ListIndex(5);
    lst.Clear();
    QCOMPARE(lst.ListIndex(), -1);
    QCOMPARE(lst.List(0), QString());
    QCOMPARE(Elenco_Colonne(lst, 100, 3), 0);
    img.Avviso();
    img.Testo(QStringLiteral("a"));
    sha.FillColor(7);
}

// --- Etichetta --------------------------------------------------------------------------------------------

void tst_controlli::etichettaMostraIlTestoComeE()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    const QString testo = QStringLiteral("<b>Targa</b> & \"telaio\"");
    etichetta.Caption(testo);
    QCOMPARE(etichetta.Caption(), testo);
    QCOMPARE(qobject_cast<QLabel *>(etichetta.Widget())->textFormat(), Qt::PlainText);
}

void tst_controlli::etichettaColori()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 3000, 1500);
    etichetta.FontSize(60);
    etichetta.Caption(QStringLiteral("\u2588\u2588"));
    etichetta.Allineamento(Orizzontale::Centro);
    etichetta.ForeColor(0x00FF8000); // blue, green, red
    etichetta.BackColor(0x00000020);
    etichetta.Visible(true);
    QCOMPARE(Punto(etichetta, 1, 1), QColor(0x20, 0, 0));
    const QImage vista = etichetta.Widget()->grab().toImage();
    bool trovato = false;
    for (int x = 0; x < vista.width(); ++x)
        trovato = trovato || vista.pixelColor(x, vista.height() / 2) == QColor(0, 0x80, 0xFF);
    QVERIFY(trovato);
}

void tst_controlli::etichettaBordo()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 1500, 750);
    etichetta.BackColor(0x00FFFFFF);
    etichetta.Visible(true);
    QCOMPARE(Punto(etichetta, 0, 20), QColor(Qt::white));
    etichetta.Bordo();
    QVERIFY(Punto(etichetta, 0, 20) != QColor(Qt::white));
    QVERIFY(Punto(etichetta, 99, 20) != QColor(Qt::white));
    QVERIFY(Punto(etichetta, 50, 49) != QColor(Qt::white));
    QCOMPARE(Punto(etichetta, 50, 20), QColor(Qt::white));
}

// Thick, and in the colour of the text.
void tst_controlli::etichettaBordoEvidente()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 1500, 750);
    etichetta.BackColor(COLORE_NERO);
    etichetta.ForeColor(COLORE_ROSSO);
    etichetta.Visible(true);
    etichetta.Bordo();
    QVERIFY(Punto(etichetta, 0, 20) != Colore_Da(COLORE_ROSSO));
    QCOMPARE(Punto(etichetta, 2, 20), Colore_Da(COLORE_NERO));
    etichetta.Bordo_Evidente();
    QCOMPARE(Punto(etichetta, 0, 20), Colore_Da(COLORE_ROSSO));
    QCOMPARE(Punto(etichetta, 2, 20), Colore_Da(COLORE_ROSSO));
    QCOMPARE(Punto(etichetta, 50, 20), Colore_Da(COLORE_NERO));
}

// In one go what the single properties make.
void tst_controlli::etichettaCella()
{
    for (const bool evidente : {false, true}) {
        Etichetta cella(m_finestra.get(), QStringLiteral("cella"));
        Etichetta singola(m_finestra.get(), QStringLiteral("singola"));
        for (Etichetta *etichetta : {&cella, &singola}) {
            etichetta->Posto(0, 0, 1500, 750);
            etichetta->Visible(true);
        }
        cella.Bordo_Evidente(); // a look of before does not stay
        cella.Cella(COLORE_ROSSO, COLORE_NERO, evidente);
        cella.Caption(QStringLiteral("NO"));
        singola.Caption(QStringLiteral("NO"));
        singola.ForeColor(COLORE_ROSSO);
        singola.BackColor(COLORE_NERO);
        evidente ? singola.Bordo_Evidente() : singola.Bordo();
        QCOMPARE(cella.Widget()->grab().toImage(), singola.Widget()->grab().toImage());
        QCOMPARE(Punto(cella, 2, 20), Colore_Da(evidente ? COLORE_ROSSO : COLORE_NERO));
    }
}

// A place elsewhere leaves the type alone; a narrower one does not, nor does one back to the first.
void tst_controlli::etichettaSpostataEPoiStretta()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    const double punti = Punti_Normali() * 2;
    etichetta.FontSize(punti);
    etichetta.Posto(0, 0, 6000, 750);
    etichetta.Caption(QStringLiteral("Orientamento orizzontale"));
    const auto pixel = [&etichetta] { return etichetta.Widget()->font().pixelSize(); };
    const int intero = pixel();
    QCOMPARE(intero, Pixel_Interi(punti));
    etichetta.Left(1500);
    etichetta.Top(300);
    QCOMPARE(pixel(), intero);
    etichetta.Width(900);
    const int ridotto = pixel();
    QVERIFY(ridotto < intero);
    etichetta.FontSize(ridotto / Pixel_DaPunti(1)); // as it shows already: from now on it does not grow
    etichetta.Width(6000);
    QCOMPARE(pixel(), ridotto);
    etichetta.FontSize(punti);
    QCOMPARE(pixel(), intero);
}

// Its first place is looked at, also where it is as large as the widget was already.
void tst_controlli::etichettaPostaGrandeComeNasce()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.FontSize(Punti_Normali() * 4);
    etichetta.Caption(QStringLiteral("Orientamento orizzontale"));
    const QSize nata = etichetta.Widget()->size();
    etichetta.Posto(0, 0, Twip_DaPixel(nata.width()), Twip_DaPixel(nata.height()));
    QCOMPARE(etichetta.Widget()->size(), nata);
    QVERIFY(etichetta.Widget()->font().pixelSize() < Pixel_Interi(Punti_Normali() * 4));
}

void tst_controlli::etichettaAltezzaDelTesto()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 3000, 0);
    etichetta.Caption(QStringLiteral("una riga"));
    const qint32 una = etichetta.Altezza_Testo();
    QVERIFY(una >= Punti_Normali() * 20);
    etichetta.Caption(QStringLiteral("una riga\r\nun'altra\r\nun'altra ancora"));
    QVERIFY(etichetta.Altezza_Testo() > 2 * una);
    etichetta.Caption(QStringLiteral("parola ").repeated(40));
    QVERIFY(etichetta.Altezza_Testo() > 5 * una); // it is broken at the width of the label
}

void tst_controlli::etichettaSpezzaOvunque()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 1500, 1500);
    etichetta.Allineamento(Orizzontale::Sinistra, Verticale::Alto);
    etichetta.Caption(QStringLiteral("0A").repeated(50));
    etichetta.Visible(true);
    const auto scritto_in_fondo = [&] {
        const QImage vista = etichetta.Widget()->grab().toImage();
        for (int x = 0; x < vista.width(); ++x) {
            for (int y = 50; y < vista.height(); ++y) {
                if (vista.pixelColor(x, y) != vista.pixelColor(0, vista.height() - 1))
                    return true;
            }
        }
        return false;
    };
    QVERIFY(!scritto_in_fondo());
    etichetta.SpezzaOvunque();
    QVERIFY(scritto_in_fondo());
}

void tst_controlli::etichettaAllineamento()
{
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    etichetta.Posto(0, 0, 6000, 450);
    etichetta.Caption(QStringLiteral("X"));
    etichetta.Visible(true);
    const auto prima_colonna_scritta = [&] {
        const QImage vista = etichetta.Widget()->grab().toImage();
        for (int x = 0; x < vista.width(); ++x) {
            for (int y = 0; y < vista.height(); ++y) {
                if (vista.pixelColor(x, y) != vista.pixelColor(vista.width() / 4, 0))
                    return x;
            }
        }
        return -1;
    };
    const int sinistra = prima_colonna_scritta();
    QVERIFY(sinistra >= 0 && sinistra < 10);
    etichetta.Allineamento(Orizzontale::Destra);
    QVERIFY(prima_colonna_scritta() > 350);
    etichetta.Allineamento(Orizzontale::Centro);
    const int centro = prima_colonna_scritta();
    QVERIFY(centro > 150 && centro < 250);
}

// --- CasellaTesto -----------------------------------------------------------------------------------------

void tst_controlli::testoChangeSoloSeCambia()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    QStringList cambi;
    casella.Change = [&] { cambi.append(casella.Text()); };
    casella.Text(QStringLiteral("AB"));
    casella.Text(QStringLiteral("AB"));
    casella.Text(QString());
    casella.Visible(true);
    casella.SetFocus();
    QTest::keyClicks(casella.Widget(), QStringLiteral("xy"));
    QCOMPARE(cambi,
             QStringList({QStringLiteral("AB"), QString(), QStringLiteral("x"), QStringLiteral("xy")}));
}

void tst_controlli::testoLungoMostraIlPrincipio()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Posto(0, 0, 900, 450);
    casella.Text(QStringLiteral("C:\\cartella\\lunga\\").repeated(5));
    QCOMPARE(qobject_cast<QLineEdit *>(casella.Widget())->cursorPosition(), 0);
}

void tst_controlli::testoBloccato()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Visible(true);
    casella.Text(QStringLiteral("AB"));
    QVERIFY(!casella.Locked());
    casella.Locked(true);
    QVERIFY(casella.Locked());
    casella.SetFocus();
    QTest::keyClicks(casella.Widget(), QStringLiteral("xy"));
    QTest::keyClick(casella.Widget(), Qt::Key_Delete);
    QCOMPARE(casella.Text(), QStringLiteral("AB"));
    QVERIFY((casella.Widget()->focusPolicy() & Qt::TabFocus) == 0);
    QVERIFY(casella.Enabled()); // its text may be read, selected and copied
    casella.Locked(false);
    QTest::keyClick(casella.Widget(), Qt::Key_Delete);
    QCOMPARE(casella.Text(), QStringLiteral("B"));
    QVERIFY((casella.Widget()->focusPolicy() & Qt::TabFocus) != 0);
}

void tst_controlli::testoSfondo()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Posto(0, 0, 3000, 450);
    casella.Visible(true);
    for (const quint32 colore : {COLORE_SISTEMA_GRIGIO, COLORE_SISTEMA_FINESTRA, quint32{0x00FF00}}) {
        casella.BackColor(colore);
        QCOMPARE(Punto(casella, 100, 5), Colore_Da(colore));
    }
}

void tst_controlli::coloriTengonoIlCarattere()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    Etichetta etichetta(m_finestra.get(), QStringLiteral("lbl"));
    casella.Visible(true);
    etichetta.Visible(true);
    for (const quint32 colore : {COLORE_SISTEMA_GRIGIO, COLORE_ROSSO}) {
        casella.FontSize(21);
        casella.FontBold(true);
        casella.BackColor(colore);
        QCOMPARE(casella.Widget()->font().pixelSize(), 28);
        QVERIFY(casella.Widget()->font().bold());
        etichetta.FontSize(21);
        etichetta.FontBold(true);
        etichetta.BackColor(colore);
        etichetta.ForeColor(colore);
        QCOMPARE(etichetta.Widget()->font().pixelSize(), 28);
        QVERIFY(etichetta.Widget()->font().bold());
    }
}

void tst_controlli::testoNascosto()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Text(QStringLiteral("segreta"));
    casella.Nascosta(true);
    QCOMPARE(casella.Text(), QStringLiteral("segreta"));
    QVERIFY(!qobject_cast<QLineEdit *>(casella.Widget())->displayText().contains(QStringLiteral("segreta")));
    casella.Nascosta(false);
    QCOMPARE(qobject_cast<QLineEdit *>(casella.Widget())->displayText(), QStringLiteral("segreta"));
}

namespace {

/// A way into a box for a text of more than one line.
struct Via
{
    const char *nome;
    void (*scrivi)(CasellaTesto &casella, const QString &testo);
};

QLineEdit *Riga_Di(const CasellaTesto &casella)
{
    return static_cast<QLineEdit *>(casella.Widget());
}

QAccessibleInterface *Accesso(const CasellaTesto &casella)
{
    return QAccessible::queryAccessibleInterface(casella.Widget());
}

const Via VIE[] = {
    {"programma",                      [](CasellaTesto &casella, const QString &testo) { casella.Text(testo); }     },
    {"tasti",
     [](CasellaTesto &casella,                                   const QString &testo) {
         QTest::sendKeyEvent(QTest::Click, casella.Widget(), Qt::Key_unknown, testo, Qt::NoModifier);
     }                                                                                },
    {"Ctrl V",
     [](CasellaTesto &casella,                                   const QString &testo) {
         QGuiApplication::clipboard()->setText(testo);
         QTest::keyClick(casella.Widget(), Qt::Key_V, Qt::ControlModifier);
     }                                                                                },
    {"Maiusc Ins",
     [](CasellaTesto &casella,                                   const QString &testo) {
         QGuiApplication::clipboard()->setText(testo);
         QTest::keyClick(casella.Widget(), Qt::Key_Insert, Qt::ShiftModifier);
     }                                                                                },
    {"trascinato",                     [](CasellaTesto &casella, const QString &testo) { Rilascia(casella, testo); }},
    {"metodo di immissione",
     [](CasellaTesto &casella,                                   const QString &testo) {
         QInputMethodEvent evento;
         evento.setCommitString(testo);
         QCoreApplication::sendEvent(casella.Widget(), &evento);
     }                                                                                },
    {"tecnologia assistiva, valore",
     [](CasellaTesto &casella,                                   const QString &testo) {
         Accesso(casella)->setText(QAccessible::Value, testo);
     }                                                                                },
    {"tecnologia assistiva, testo",
     [](CasellaTesto &casella,                                   const QString &testo) {
         Accesso(casella)->editableTextInterface()->insertText(0, testo);
     }                                                                                },
    {"tecnologia assistiva, al posto",
     [](CasellaTesto &casella,                                   const QString &testo) {
         Accesso(casella)->editableTextInterface()->replaceText(0, 0, testo);
     }                                                                                },
};

} // namespace

void tst_controlli::testoUnaRigaSola_data()
{
    QTest::addColumn<int>("via");
    QTest::addColumn<QString>("fine");
    QTest::addColumn<bool>("nascosta");
    const QPair<const char *, QString> fini[] = {
        {"CR",   QStringLiteral("\r")  },
        {"LF",   QStringLiteral("\n")  },
        {"CRLF", QStringLiteral("\r\n")},
        {"NUL",  QString(QChar(u'\0')) },
    };
    for (int i = 0; i < static_cast<int>(std::size(VIE)); ++i) {
        for (const auto &fine : fini) {
            for (const bool nascosta : {false, true})
                QTest::addRow("%s, %s%s", VIE[i].nome, fine.first, nascosta ? ", nascosta" : "")
                    << i << fine.second << nascosta;
        }
    }
}

// A value goes into files and frames as it stands in the box: what is behind a line break would be a line, a
// section even, of its own there. It is one change, as the password box counts them.
void tst_controlli::testoUnaRigaSola()
{
    QFETCH(int, via);
    QFETCH(QString, fine);
    QFETCH(bool, nascosta);
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Posto(0, 0, 3000, 450);
    casella.Visible(true);
    casella.Nascosta(nascosta);
    casella.SetFocus();
    QStringList cambi;
    casella.Change = [&] { cambi.append(casella.Text()); };
    VIE[via].scrivi(casella, QStringLiteral("Officina Rossi") + fine + QStringLiteral("Pwd=") + fine);
    QCOMPARE(casella.Text(), QStringLiteral("Officina Rossi"));
    QCOMPARE(Riga_Di(casella)->text(), casella.Text());
    QCOMPARE(cambi, QStringList(QStringLiteral("Officina Rossi")));
}

// What stood behind the cursor is no part of what came in.
void tst_controlli::testoIncollatoInMezzo()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Visible(true);
    casella.SetFocus();
    casella.Text(QStringLiteral("ABCD"));
    Riga_Di(casella)->setCursorPosition(2);
    QGuiApplication::clipboard()->setText(QStringLiteral("xy\nz"));
    QTest::keyClick(casella.Widget(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(casella.Text(), QStringLiteral("ABxyCD"));
    QCOMPARE(Riga_Di(casella)->cursorPosition(), 4);
    Riga_Di(casella)->setSelection(0, 2);
    QTest::keyClick(casella.Widget(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(casella.Text(), QStringLiteral("xyxyCD"));
}

// The box of the password counts its changes.
void tst_controlli::testoTagliatoACioCheCEra()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    int cambi = 0;
    casella.Change = [&] { ++cambi; };
    casella.Text(QStringLiteral("\nPwd="));
    QCOMPARE(casella.Text(), QString());
    QCOMPARE(cambi, 0);
    casella.Text(QStringLiteral("AB"));
    casella.Text(QStringLiteral("AB\r\nPwd="));
    QCOMPARE(casella.Text(), QStringLiteral("AB"));
    QCOMPARE(cambi, 1);
}

// Whoever else has rules for characters, the line of the instrument say, keeps them itself.
void tst_controlli::testoAltriSegniRestano()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    const QString testo = QStringLiteral("a\tb\u0003c\u0017d\u000be\u0085f\u2028g\u007f");
    casella.Text(testo);
    QCOMPARE(casella.Text(), testo);
}

// --- CasellaCombinata -------------------------------------------------------------------------------------

void tst_controlli::comboNientePrescelto()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    QCOMPARE(combo.ListIndex(), qint16{-1});
    combo.AddItem(QStringLiteral("COM1"));
    combo.AddItem(QStringLiteral("COM2"));
    QCOMPARE(combo.ListIndex(), qint16{-1});
    QCOMPARE(combo.Text(), QString());
    combo.ListIndex(1);
    combo.AddItem(QStringLiteral("COM3"));
    QCOMPARE(combo.Text(), QStringLiteral("COM2"));
    combo.Clear();
    QCOMPARE(combo.ListIndex(), qint16{-1});
    combo.AddItem(QStringLiteral("COM1"));
    QCOMPARE(combo.ListIndex(), qint16{-1});
}

// Nothing is cut where nothing stands, be the place narrower than the arrow.
void tst_controlli::comboVuotaEntraOvunque()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    combo.FontSize(20);
    combo.Posto(0, 0, 120, 450);
    QVERIFY(combo.Entra());
    QCOMPARE(combo.Widget()->font().pixelSize(), Pixel_Interi(20));
    combo.AddItem(QStringLiteral("Italiano"));
    QVERIFY(!combo.Entra());
}

void tst_controlli::comboPerTesto()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("COM1"));
    combo.AddItem(QStringLiteral("COM10"));
    combo.Text(QStringLiteral("COM10"));
    QCOMPARE(combo.ListIndex(), qint16{1});
    combo.Text(QStringLiteral("COM1"));
    QCOMPARE(combo.ListIndex(), qint16{0});
    combo.Text(QStringLiteral("com10"));
    QCOMPARE(combo.ListIndex(), qint16{-1});
}

void tst_controlli::comboPerIndice()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("COM1"));
    combo.AddItem(QStringLiteral("COM2"));
    combo.ListIndex(1);
    QCOMPARE(combo.Text(), QStringLiteral("COM2"));
    QCOMPARE(Errore_Di([&] { combo.ListIndex(2); }), 380);
    QCOMPARE(Errore_Di([&] { combo.ListIndex(-2); }), 380);
    QCOMPARE(combo.ListIndex(), qint16{1});
    combo.ListIndex(-1);
    QCOMPARE(combo.Text(), QString());
}

void tst_controlli::comboClickSoloDellOperatore()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    combo.Visible(true);
    int clic = 0;
    combo.Click = [&] { ++clic; };
    combo.AddItem(QStringLiteral("COM1"));
    combo.AddItem(QStringLiteral("COM2"));
    combo.ListIndex(0);
    combo.Text(QStringLiteral("COM2"));
    combo.Clear();
    combo.AddItem(QStringLiteral("COM1"));
    combo.AddItem(QStringLiteral("COM2"));
    QCOMPARE(clic, 0);
    combo.SetFocus();
    QTest::keyClick(combo.Widget(), Qt::Key_Down);
    QTest::keyClick(combo.Widget(), Qt::Key_Down);
    QCOMPARE(clic, 2);
    QCOMPARE(combo.ListIndex(), qint16{1});
}

void tst_controlli::comboClickAncheSullaStessaVoce()
{
    CasellaCombinata combo(m_finestra.get(), QStringLiteral("cbo"));
    combo.Posto(150, 150, 3000, 450);
    combo.Visible(true);
    combo.AddItem(QStringLiteral("QX5"));
    combo.AddItem(QStringLiteral("altro"));
    combo.ListIndex(0);
    QList<qint16> scelte;
    combo.Click = [&] { scelte.append(combo.ListIndex()); };
    auto *widget = qobject_cast<QComboBox *>(combo.Widget());
    for (const int riga : {0, 1, 1}) {
        QTest::keyClick(widget, Qt::Key_F4);
        QTRY_VERIFY(widget->view()->isVisible());
        widget->view()->setCurrentIndex(widget->model()->index(riga, 0));
        QTest::keyClick(widget->view(), Qt::Key_Return);
        QTRY_VERIFY(!widget->view()->isVisible());
    }
    QCOMPARE(scelte, QList<qint16>({0, 1, 1}));
}

// --- CasellaSpunta ----------------------------------------------------------------------------------------

void tst_controlli::spuntaDalProgrammaSollevaClick()
{
    CasellaSpunta spunta(m_finestra.get(), QStringLiteral("chk"));
    QList<qint16> stati;
    spunta.Click = [&] { stati.append(spunta.Value()); };
    spunta.Value(0);
    spunta.Value(1);
    spunta.Value(1);
    spunta.Value(0);
    QCOMPARE(stati, QList<qint16>({1, 0}));
    for (const qint16 altro : {qint16{2}, qint16{-1}, qint16{32767}}) {
        spunta.Value(1);
        spunta.Value(altro); // only 1 is a tick
        QCOMPARE(spunta.Value(), qint16{0});
    }
}

void tst_controlli::spuntaSiPremeOvunque()
{
    CasellaSpunta spunta(m_finestra.get(), QStringLiteral("chk"));
    spunta.Posto(150, 150, 900, 450);
    spunta.Visible(true);
    int clic = 0;
    spunta.Click = [&] { ++clic; };
    const QRect posto = spunta.Widget()->rect();
    qint16 atteso = 0;
    for (const QPoint punto : {QPoint(2, 2), posto.center(), posto.bottomRight()}) {
        QTest::mouseClick(spunta.Widget(), Qt::LeftButton, {}, punto);
        atteso = atteso == 0 ? 1 : 0;
        QCOMPARE(spunta.Value(), atteso);
    }
    QTest::keyClick(spunta.Widget(), Qt::Key_Space);
    QCOMPARE(spunta.Value(), qint16{0});
    QCOMPARE(clic, 4);
    spunta.Enabled(false);
    QTest::mouseClick(spunta.Widget(), Qt::LeftButton);
    QCOMPARE(clic, 4);
}

// --- Pulsante ---------------------------------------------------------------------------------------------

void tst_controlli::pulsanteClick()
{
    Pulsante pulsante(m_finestra.get(), QStringLiteral("cmd"));
    QTest::mouseClick(pulsante.Widget(), Qt::LeftButton); // nobody bound
    int clic = 0;
    pulsante.Click = [&] { ++clic; };
    pulsante.Visible(true);
    pulsante.Caption(QStringLiteral("Ok"));
    QCOMPARE(pulsante.Caption(), QStringLiteral("Ok"));
    QTest::mouseClick(pulsante.Widget(), Qt::LeftButton);
    pulsante.SetFocus();
    QTest::keyClick(pulsante.Widget(), Qt::Key_Space);
    QCOMPARE(clic, 2);
    pulsante.Enabled(false);
    QTest::mouseClick(pulsante.Widget(), Qt::LeftButton);
    QCOMPARE(clic, 2);
    QVERIFY(!pulsante.Default() && !pulsante.Cancel());
    pulsante.Default(true);
    pulsante.Cancel(true);
    QVERIFY(pulsante.Default() && pulsante.Cancel());
}

// --- ElencoVoci -------------------------------------------------------------------------------------------

namespace {

void Riempi(ElencoVoci &elenco)
{
    elenco.Posto(150, 150, 4500, 3000);
    elenco.Visible(true);
    for (const char16_t *voce : {u"AB123CD\tVERDI", u"EF456GH\tROSSI", u"IJ789KL\tBIANCHI"})
        elenco.AddItem(QString::fromUtf16(voce));
}

void Clic_Riga(const ElencoVoci &elenco, int riga)
{
    const auto *lista = qobject_cast<QListWidget *>(elenco.Widget());
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                      lista->visualItemRect(lista->item(riga)).center());
}

} // namespace

void tst_controlli::elencoVoci()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    QCOMPARE(elenco.List(0), QString());
    QCOMPARE(elenco.ListIndex(), -1);
    Riempi(elenco);
    QCOMPARE(elenco.ListIndex(), -1);
    QCOMPARE(elenco.List(0), QStringLiteral("AB123CD\tVERDI"));
    QCOMPARE(elenco.List(2), QStringLiteral("IJ789KL\tBIANCHI"));
    QCOMPARE(elenco.List(3), QString());
    QCOMPARE(elenco.List(-1), QString());
    elenco.Clear();
    QCOMPARE(elenco.List(0), QString());
}

void tst_controlli::elencoIndiceDalProgramma()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    QList<qint32> scelte;
    elenco.Click = [&] { scelte.append(elenco.ListIndex()); };
    elenco.ListIndex(1);
    elenco.ListIndex(1); // also the line that is chosen already
    elenco.ListIndex(-1);
    elenco.ListIndex(0);
    QCOMPARE(scelte, QList<qint32>({1, 1, 0})); // -1 takes the choice away and raises nothing
    QVERIFY(qobject_cast<QListWidget *>(elenco.Widget())->item(0)->isSelected());
    elenco.ListIndex(-1);
    QCOMPARE(elenco.ListIndex(), -1);
    QVERIFY(qobject_cast<QListWidget *>(elenco.Widget())->selectedItems().isEmpty());
}

void tst_controlli::elencoIndiceErrato_data()
{
    QTest::addColumn<int>("indice");
    for (const int indice : {-2, 3, 40000})
        QTest::addRow("%d", indice) << indice;
}

void tst_controlli::elencoIndiceErrato()
{
    QFETCH(int, indice);
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    elenco.ListIndex(1);
    QCOMPARE(Errore_Di([&] { elenco.ListIndex(indice); }), 380);
    QCOMPARE(elenco.ListIndex(), 1);
}

void tst_controlli::elencoClicDelMouseUnaVolta()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    QList<qint32> scelte;
    elenco.Click = [&] { scelte.append(elenco.ListIndex()); };
    Clic_Riga(elenco, 1);
    QCOMPARE(scelte, QList<qint32>({1}));
    Clic_Riga(elenco, 1); // the line that is chosen already
    Clic_Riga(elenco, 0);
    QCOMPARE(scelte, QList<qint32>({1, 1, 0}));
    const auto *lista = qobject_cast<QListWidget *>(elenco.Widget());
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, QPoint(20, lista->viewport()->height() - 2));
    QCOMPARE(scelte.size(), 3); // below the last line there is nothing to choose
}

// The line counts on which the button is let go; any button chooses.
void tst_controlli::elencoTrascinato()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    QList<qint32> scelte;
    elenco.Click = [&] { scelte.append(elenco.ListIndex()); };
    const auto *lista = qobject_cast<QListWidget *>(elenco.Widget());
    const auto punto = [lista](int riga) { return lista->visualItemRect(lista->item(riga)).center(); };
    QTest::mousePress(lista->viewport(), Qt::LeftButton, {}, punto(0));
    QCOMPARE(scelte.size(), 0);
    QTest::mouseMove(lista->viewport(), punto(2));
    QTest::mouseRelease(lista->viewport(), Qt::LeftButton, {}, punto(2));
    QCOMPARE(scelte.size(), 1);
    QTest::mouseClick(lista->viewport(), Qt::RightButton, {}, punto(1));
    QCOMPARE(elenco.ListIndex(), 1);
    QCOMPARE(scelte.last(), 1);
    QCOMPARE(scelte.size(), 2);
}

void tst_controlli::elencoTasti()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    QList<qint32> scelte;
    elenco.Click = [&] { scelte.append(elenco.ListIndex()); };
    elenco.SetFocus();
    for (const Qt::Key tasto : {Qt::Key_Down, Qt::Key_Down, Qt::Key_End, Qt::Key_Down, Qt::Key_Home})
        QTest::keyClick(elenco.Widget(), tasto);
    QCOMPARE(scelte, QList<qint32>({0, 1, 2, 0})); // behind the last line there is none
    QTest::keyClick(elenco.Widget(), Qt::Key_E);
    QCOMPARE(elenco.ListIndex(), 1);
    QCOMPARE(scelte.last(), 1);
}

// Coming to the list is no choice: in the worklist a choice opens a vehicle.
void tst_controlli::elencoFuocoNonSceglie()
{
    CasellaTesto casella(m_finestra.get(), QStringLiteral("txt"));
    casella.Visible(true);
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    int clic = 0;
    elenco.Click = [&] { ++clic; };
    casella.SetFocus();
    QTest::keyClick(casella.Widget(), Qt::Key_Tab);
    QVERIFY(elenco.Widget()->hasFocus());
    QCOMPARE(elenco.ListIndex(), -1);
    QCOMPARE(clic, 0);
    casella.SetFocus();
    elenco.SetFocus();
    QWidget altra;
    altra.show();
    QVERIFY(QTest::qWaitForWindowActive(&altra));
    m_finestra->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_finestra.get()));
    QCOMPARE(elenco.ListIndex(), -1);
    QCOMPARE(clic, 0);
    QTest::keyClick(elenco.Widget(), Qt::Key_Down);
    QCOMPARE(elenco.ListIndex(), 0);
    QCOMPARE(clic, 1);
}

void tst_controlli::elencoSvuotatoNonSceglie()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    Riempi(elenco);
    elenco.ListIndex(2);
    elenco.SetFocus();
    int clic = 0;
    elenco.Click = [&] { ++clic; };
    elenco.Clear();
    Riempi(elenco);
    QCOMPARE(elenco.ListIndex(), -1);
    QCOMPARE(clic, 0);
}

// Its widget goes when the loop has control again: until then it may still hear the button come up.
void tst_controlli::elencoDistruttoAMouseGiu()
{
    auto elenco = std::make_unique<ElencoVoci>(m_finestra.get(), QStringLiteral("lst"));
    elenco->Posto(0, 0, 6000, 3000);
    elenco->Visible(true);
    Riempi(*elenco);
    int volte = 0;
    elenco->Click = [&] { ++volte; };
    const auto *lista = qobject_cast<QListWidget *>(elenco->Widget());
    const QPoint riga = lista->visualItemRect(lista->item(1)).center();
    QTest::mousePress(lista->viewport(), Qt::LeftButton, {}, riga);
    elenco.reset();
    QMouseEvent su(QEvent::MouseButtonRelease, riga, lista->viewport()->mapToGlobal(riga), Qt::LeftButton,
                   Qt::NoButton, {});
    QCoreApplication::sendEvent(lista->viewport(), &su);
    QCOMPARE(volte, 0);
}

// The ground is the list's own: asked for by its inside at every paint it would be kept for ever.
void tst_controlli::elencoSenzaFondoDentro()
{
    const ElencoVoci voci(m_finestra.get(), QStringLiteral("lst"));
    const ElencoLettura lettura(m_finestra.get(), QStringLiteral("lstTesto"));
    for (const Controllo *elenco : std::initializer_list<const Controllo *>{&voci, &lettura})
        QVERIFY(!qobject_cast<QListWidget *>(elenco->Widget())->viewport()->autoFillBackground());
}

void tst_controlli::elencoInDueColonne()
{
    ElencoVoci elenco(m_finestra.get(), QStringLiteral("lst"));
    elenco.Posto(0, 0, 6000, 3030);
    elenco.Visible(true);
    elenco.AddItem(QStringLiteral("H\tH"));
    elenco.AddItem(QStringLiteral("H\tH"));
    QFont sistema = elenco.Widget()->font();
    sistema.setPixelSize(qRound(Pixel_DaPunti(12)));
    elenco.FontSize(20);
    const int pixel = 120 * QFontMetrics(sistema).averageCharWidth() / 4;
    QCOMPARE(Elenco_Colonne(elenco, 120, 4), Twip_DaPixel(pixel)); // whatever this list is written in

    auto *lista = qobject_cast<QListWidget *>(elenco.Widget());
    QApplication::processEvents();                  // the lines find their places
    const int dentro = lista->viewport()->height(); // without the frame
    QCOMPARE(dentro % 4, 0);
    QCOMPARE(lista->visualItemRect(lista->item(0)).height(), dentro / 4);
    const auto lettera = [&](int riga, int da, int a) {
        const QImage vista = lista->viewport()->grab().toImage();
        const QRect posto = lista->visualItemRect(lista->item(riga));
        QRect dove;
        for (int x = da; x < a; ++x) {
            for (int y = posto.top(); y <= posto.bottom(); ++y) {
                if (vista.pixelColor(x, y) != QColor(Qt::white))
                    dove |= QRect(x, y - posto.top(), 1, 1);
            }
        }
        return dove;
    };
    const int larga = lista->viewport()->width();
    const QRect prima = lettera(0, 0, pixel);
    const QRect seconda = lettera(0, pixel, larga);
    QVERIFY(!prima.isEmpty());
    QVERIFY(seconda.height() > prima.height()); // what is looked for is larger,
    QVERIFY(qAbs(prima.center().y() - seconda.center().y()) <=
            2); // in the middle of the line as the other is
    const int alta = lista->visualItemRect(lista->item(0)).height();
    QVERIFY(4 * alta <= lista->viewport()->height() && 5 * alta > lista->viewport()->height());

    // A line that is done bears a tick at its end, is paler, and says so; the mark goes as it came.
    const auto nero = [&](int riga) {
        const QImage vista = lista->viewport()->grab(lista->visualItemRect(lista->item(riga))).toImage();
        int scuri = 0;
        for (int y = 0; y < vista.height(); ++y) {
            for (int x = 0; x < vista.width(); ++x)
                scuri += vista.pixelColor(x, y) == Colore_Tema(Tinta::Testo);
        }
        return scuri;
    };
    Elenco_Fatta(elenco, 1, true, QStringLiteral("fatto"));
    QApplication::processEvents();
    QVERIFY(nero(0) > 0);
    QCOMPARE(nero(1), 0);
    QVERIFY(lettera(1, larga - 40, larga).width() > 5);
    QCOMPARE(lettera(0, larga - 40, larga), QRect());
    QCOMPARE(lista->item(1)->data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("fatto"));
    QVERIFY(!lista->item(0)->data(Qt::AccessibleDescriptionRole).isValid());
    Elenco_Fatta(elenco, 1, false, QStringLiteral("fatto"));
    QApplication::processEvents();
    QCOMPARE(nero(1), nero(0));
    QVERIFY(!lista->item(1)->data(Qt::AccessibleDescriptionRole).isValid());
    Elenco_Fatta(elenco, 7, true, QString()); // no such line
    QCOMPARE(elenco.List(0), QStringLiteral("H\tH"));
}

// --- Immagine ---------------------------------------------------------------------------------------------

namespace {

/// A folder with a red picture of 40 by 20 pixels and a file that is none.
class Cartella
{
public:
    Cartella()
    {
        QImage immagine(40, 20, QImage::Format_RGB32);
        immagine.fill(Qt::red);
        immagine.save(m_cartella.filePath(QStringLiteral("Faro0.png")));
        QFile testo(m_cartella.filePath(QStringLiteral("testo.jpg")));
        if (testo.open(QIODevice::WriteOnly))
            testo.write("nessuna immagine");
    }
    QString Percorso(const QString &nome) const { return m_cartella.filePath(nome).replace(u'/', u'\\'); }

private:
    QTemporaryDir m_cartella;
};

} // namespace

void tst_controlli::immagineCheManca()
{
    const Cartella cartella;
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    QCOMPARE(Errore_Di([&] { immagine.Picture(cartella.Percorso(QStringLiteral("manca.jpg"))); }), 53);
    QCOMPARE(Errore_Di([&] { immagine.Picture(cartella.Percorso(QString())); }), 53); // a folder
    QCOMPARE(Errore_Di([&] { immagine.Picture(QString()); }), 53);
}

void tst_controlli::immagineNonValida()
{
    const Cartella cartella;
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    QCOMPARE(Errore_Di([&] { immagine.Picture(cartella.Percorso(QStringLiteral("testo.jpg"))); }), 481);
}

void tst_controlli::immagineInAltraGrafia()
{
    const Cartella cartella;
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    immagine.Posto(0, 0, 1500, 1500);
    immagine.Visible(true);
    immagine.Picture(cartella.Percorso(QStringLiteral("FARO0.PNG")));
    QCOMPARE(Punto(immagine, 50, 50), QColor(Qt::red));
}

void tst_controlli::immagineSenzaDistorsione()
{
    const Cartella cartella;
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    immagine.Visible(true);
    immagine.Picture(cartella.Percorso(QStringLiteral("Faro0.png")));
    immagine.Posto(0, 0, 3000, 3000); // 200 by 200: the picture is 200 by 100 in its middle
    const QColor rosso(Qt::red);
    QCOMPARE(Punto(immagine, 2, 100), rosso);
    QCOMPARE(Punto(immagine, 197, 100), rosso);
    QCOMPARE(Punto(immagine, 100, 53), rosso);
    QVERIFY(Punto(immagine, 100, 47) != rosso);
    QVERIFY(Punto(immagine, 100, 153) != rosso);
    immagine.Posto(0, 0, 6000, 1500); // it follows its place
    QCOMPARE(Punto(immagine, 200, 2), rosso);
    QVERIFY(Punto(immagine, 90, 50) != rosso);
}

// Only what is shown is kept, not the whole picture: another size is read from the file again, the same is
// not.
void tst_controlli::immagineLettaAllaMisuraDelPosto()
{
    const Cartella cartella;
    const QString file = cartella.Percorso(QStringLiteral("Faro0.png"));
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    immagine.Posto(0, 0, 3000, 3000);
    immagine.Picture(file);
    const auto *label = qobject_cast<QLabel *>(immagine.Widget());
    QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), QSize(200, 100));

    QImage altra(40, 20, QImage::Format_RGB32);
    altra.fill(Qt::blue);
    QVERIFY(altra.save(QString(file).replace(u'\\', u'/')));
    immagine.Visible(true); // the control is told the size that it has
    QCOMPARE(Punto(immagine, 100, 100), QColor(Qt::red));
    immagine.Posto(0, 0, 6000, 6000);
    QCOMPARE(Punto(immagine, 200, 200), QColor(Qt::blue));

    QVERIFY(QFile::remove(QString(file).replace(u'\\', u'/')));
    immagine.Posto(0, 0, 3000, 3000);
    QVERIFY(!label->pixmap(Qt::ReturnByValue).isNull()); // gone: what was shown stays
}

namespace {

/// Mean difference of two pictures of one size, in levels of 256.
double Differenza(const QImage &a, const QImage &b)
{
    qint64 somma = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            somma += qAbs(qRed(p) - qRed(q)) + qAbs(qGreen(p) - qGreen(q)) + qAbs(qBlue(p) - qBlue(q));
        }
    }
    return static_cast<double>(somma) / (3.0 * a.width() * a.height());
}

} // namespace

void tst_controlli::immagineComeRimpicciolitaDaIntera_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<qint32>("larghezza");
    QTest::addColumn<qint32>("altezza");
    for (const char *file : {"splash_kp_net.jpg", "faro0.jpg", "faro1.jpg"}) {
        QTest::addRow("%s 800", file) << QString::fromLatin1(file) << 11800 << 6300;
        QTest::addRow("%s 1920", file) << QString::fromLatin1(file) << 28600 << 11500;
    }
}

// The decoder scales by other means than the toolkit: nobody sees it.
void tst_controlli::immagineComeRimpicciolitaDaIntera()
{
    QFETCH(QString, file);
    QFETCH(qint32, larghezza);
    QFETCH(qint32, altezza);
    const StazioneProva stazione;
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    immagine.Posto(0, 0, larghezza, altezza);
    immagine.Picture(gDirImmagini + file);
    const QImage mostrata = qobject_cast<QLabel *>(immagine.Widget())->pixmap(Qt::ReturnByValue).toImage();
    const QImage attesa =
        QImage(Percorso_Nativo(gDirImmagini + file))
            .scaled(immagine.Widget()->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QCOMPARE(mostrata.size(), attesa.size());
    const double differenza = Differenza(mostrata, attesa);
    QVERIFY2(differenza < 0.4, qPrintable(QString::number(differenza)));
}

void tst_controlli::immagineTestoEAvviso()
{
    Immagine immagine(m_finestra.get(), QStringLiteral("img"));
    immagine.Posto(0, 0, 680, 680);
    immagine.Testo(QStringLiteral("lumira"));
    QCOMPARE(qobject_cast<QLabel *>(immagine.Widget())->text(), QStringLiteral("lumira"));
    immagine.Avviso();
    const QPixmap segno = qobject_cast<QLabel *>(immagine.Widget())->pixmap(Qt::ReturnByValue);
    QVERIFY(!segno.isNull());
    QVERIFY(segno.width() <= immagine.Widget()->width() && segno.height() <= immagine.Widget()->height());
}

// --- Forma ------------------------------------------------------------------------------------------------

void tst_controlli::formaColore()
{
    Forma cerchio(m_finestra.get(), QStringLiteral("sha"), Forma::Cerchio);
    Forma rettangolo(m_finestra.get(), QStringLiteral("Shape1"), Forma::Rettangolo);
    for (Forma *forma : {&cerchio, &rettangolo}) {
        forma->Posto(0, 0, 1500, 1500);
        forma->Visible(true);
        QCOMPARE(Punto(*forma, 50, 50), QColor(Qt::white));
        forma->FillColor(COLORE_VERDE);
        QCOMPARE(Punto(*forma, 50, 50), QColor(Qt::green));
    }
    QCOMPARE(Punto(rettangolo, 5, 5), QColor(Qt::green));
    QVERIFY(Punto(cerchio, 5, 5) != QColor(Qt::green));
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_controlli>(argc, argv);
}

#include "tst_controlli.moc"
