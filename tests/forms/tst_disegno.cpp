// How every control is painted in each of its states, held against what was found good: on a usual screen as
// a picture, a sign for each pixel; on one where a pixel is a twip as the lengths of the colours along some
// lines, where a frame or a margin that is one twip thicker is seen.
#include "platform/colori.h"
#include "tests/forms/foglio_atteso.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/aspetto.h"
#include "toolkit/controlli.h"
#include "toolkit/elenco_colonne.h"
#include "toolkit/elenco_lettura.h"
#include "toolkit/risalto.h"
#include "toolkit/schermo.h"

#include <QComboBox>
#include <QImage>
#include <QListWidget>
#include <QScrollBar>

#include <cstdio>

namespace {

constexpr qint32 LUNGHEZZA_LINEA = 15; // twips: a pixel of a usual screen

/// A colour of the look by its sign; any other, such as the smoothed edge of a letter, by how light it is.
QChar Segno_Di(QRgb colore)
{
    static constexpr struct
    {
        Tinta tinta;
        char segno;
    } SEGNI[] = {
        {Tinta::Sfondo,      '.'},
        {Tinta::Campo,       ' '},
        {Tinta::CampoSpento, ','},
        {Tinta::Testo,       '#'},
        {Tinta::TestoSpento, '+'},
        {Tinta::Cornice,     '-'},
        {Tinta::Fuoco,       'F'},
        {Tinta::FuocoTenue,  'f'},
        {Tinta::Guasto,      'G'},
    };
    for (const auto &voce : SEGNI) {
        if (Colore_Tema(voce.tinta).rgb() == colore)
            return QLatin1Char(voce.segno);
    }
    return QChar(u'0' + qGray(colore) * 9 / 255);
}

/// The signs from one point on, by a step: each run of a sign as its length.
QString Tratti(const QImage &vista, QPoint da, QPoint passo)
{
    QStringList tratti;
    QChar segno;
    int quanti = 0;
    const auto chiudi = [&] {
        if (quanti > 0)
            tratti += QStringLiteral("'%1'%2").arg(segno).arg(quanti);
    };
    for (QPoint punto = da; vista.valid(punto); punto += passo) {
        const QChar qui = Segno_Di(vista.pixel(punto));
        if (qui != segno) {
            chiudi();
            segno = qui;
            quanti = 0;
        }
        ++quanti;
    }
    chiudi();
    return tratti.join(u' ');
}

void Dipingi(const QImage &vista)
{
    for (int y = 0; y < vista.height(); ++y) {
        QString riga;
        for (int x = 0; x < vista.width(); ++x)
            riga += Segno_Di(vista.pixel(x, y));
        std::printf("|%s|\n", qPrintable(riga));
    }
}

/// Across and down at the edge, at an eighth, in the middle, at the last eighth; and from the corner inwards,
/// where it is round.
void Misura(const QImage &vista)
{
    for (const int ottavi : {0, 1, 4, 7}) {
        const QPoint inizio(vista.width() * ottavi / 8, vista.height() * ottavi / 8);
        std::printf("across %d/8: %s\n", ottavi, qPrintable(Tratti(vista, {0, inizio.y()}, {1, 0})));
        std::printf("down %d/8: %s\n", ottavi, qPrintable(Tratti(vista, {inizio.x(), 0}, {0, 1})));
    }
    std::printf("inwards: %s\n", qPrintable(Tratti(vista, {0, 0}, {1, 1})));
}

/// A control as it stands in its window, with the ground that shines through.
void Mostra(const char *titolo, QWidget &widget)
{
    QApplication::processEvents(); // a list lays out its lines, a style looks at the new state
    QWidget &finestra = *widget.window();
    const QRect posto(widget.mapTo(&finestra, QPoint()), widget.size());
    const QImage vista = finestra.grab(posto).toImage().convertToFormat(QImage::Format_RGB32);
    std::printf("[%s] %dx%d\n", titolo, vista.width(), vista.height());
    Pixel_DaTwip(LUNGHEZZA_LINEA) == 1 ? Dipingi(vista) : Misura(vista);
}

void Mostra(const char *titolo, const Controllo &controllo)
{
    Mostra(titolo, *controllo.Widget());
}

/// The states that any control to work with has. Its neighbour takes the focus away.
void Mostra_Stati(const QString &nome, Controllo &controllo, Controllo &vicino)
{
    const auto titolo = [&nome](const char *stato) { return nome.toLatin1() + ' ' + stato; };
    vicino.SetFocus();
    Mostra(titolo("at rest"), controllo);
    controllo.SetFocus();
    Mostra(titolo("with the keyboard"), controllo);
    vicino.SetFocus();
    controllo.Enabled(false);
    Mostra(titolo("disabled"), controllo);
    controllo.Enabled(true);
}

void Etichette(QWidget &finestra)
{
    const auto nuova = [&finestra] {
        auto etichetta = std::make_unique<Etichetta>(&finestra, QStringLiteral("lbl"));
        etichetta->Posto(150, 150, 600, 300);
        etichetta->Caption(QStringLiteral("He"));
        etichetta->Visible(true);
        return etichetta;
    };
    static constexpr const char *ORIZZONTALI[] = {"left", "centre", "right"};
    static constexpr const char *VERTICALI[] = {"top", "middle", "bottom"};
    for (const Orizzontale x : {Orizzontale::Sinistra, Orizzontale::Centro, Orizzontale::Destra}) {
        for (const Verticale y : {Verticale::Alto, Verticale::Mezzo, Verticale::Basso}) {
            const auto etichetta = nuova();
            etichetta->Allineamento(x, y);
            const QByteArray titolo = QByteArray("label ") + ORIZZONTALI[static_cast<size_t>(x)] + ' ' +
                                      VERTICALI[static_cast<size_t>(y)];
            Mostra(titolo.constData(), *etichetta);
        }
    }
    {
        const auto etichetta = nuova();
        etichetta->ForeColor(COLORE_BIANCO);
        etichetta->BackColor(Numero_Tinta(Tinta::Guasto));
        Mostra("label in colours", *etichetta);
        etichetta->Bordo();
        Mostra("label in colours, with a border", *etichetta);
        etichetta->Bordo_Evidente();
        Mostra("label in colours, with a border that stands out", *etichetta);
    }
    {
        const auto etichetta = nuova();
        etichetta->Bordo();
        Mostra("label with a border", *etichetta);
        etichetta->Bordo_Evidente();
        Mostra("label with a border that stands out", *etichetta);
    }
    {
        const auto etichetta = nuova();
        etichetta->Margini(60, 75);
        Mostra("label with free strips", *etichetta);
    }
    const auto etichetta = nuova();
    etichetta->SpezzaOvunque();
    etichetta->Caption(QStringLiteral("0A1B2C3D4E"));
    Mostra("label broken anywhere", *etichetta);
}

void Caselle(QWidget &finestra, Controllo &vicino)
{
    CasellaTesto casella(&finestra, QStringLiteral("txt"));
    casella.Posto(150, 150, 600, 300);
    casella.Text(QStringLiteral("He"));
    casella.Visible(true);
    casella.Locked(true); // no caret, which comes and goes
    Mostra_Stati(QStringLiteral("text box"), casella, vicino);
    casella.BackColor(COLORE_ROSSO);
    Mostra("text box in red", casella);
}

void Combinate(QWidget &finestra, Controllo &vicino)
{
    CasellaCombinata combo(&finestra, QStringLiteral("cbo"));
    combo.Posto(150, 150, 750, 300);
    combo.AddItem(QStringLiteral("He"));
    combo.AddItem(QStringLiteral("Hi"));
    combo.Visible(true);
    Mostra("combo box without a choice", combo);
    combo.ListIndex(1);
    Mostra_Stati(QStringLiteral("combo box"), combo, vicino);
    qobject_cast<QComboBox *>(combo.Widget())->showPopup();
    Mostra("list of a combo box", *combo.Elenco());
    qobject_cast<QComboBox *>(combo.Widget())->hidePopup();
}

void Spunte(QWidget &finestra, Controllo &vicino)
{
    CasellaSpunta spunta(&finestra, QStringLiteral("chk"));
    spunta.Posto(150, 150, 375, 300);
    spunta.Visible(true);
    Mostra_Stati(QStringLiteral("check box"), spunta, vicino);
    spunta.Value(1);
    Mostra_Stati(QStringLiteral("checked box"), spunta, vicino);
    spunta.Posto(150, 150, 375, 150);
    Mostra("checked box in a low place", spunta);
}

void Pulsanti(QWidget &finestra, Controllo &vicino)
{
    Pulsante pulsante(&finestra, QStringLiteral("cmd"));
    pulsante.Posto(150, 150, 600, 300);
    pulsante.Caption(QStringLiteral("He"));
    pulsante.Visible(true);
    QWidget *bottone = pulsante.Widget();
    const auto stati = [&](const QString &nome) {
        Mostra_Stati(nome, pulsante, vicino);
        QTest::mouseMove(bottone);
        Mostra(qPrintable(nome + QStringLiteral(" under the pointer")), pulsante);
        QTest::mousePress(bottone, Qt::LeftButton);
        Mostra(qPrintable(nome + QStringLiteral(" pressed")), pulsante);
        QTest::mouseRelease(bottone, Qt::LeftButton);
        QTest::mouseMove(vicino.Widget());
    };
    stati(QStringLiteral("button"));
    Pulsante_Principale(pulsante);
    stati(QStringLiteral("main button"));
    Pulsante_Assente(pulsante);
    pulsante.Enabled(false);
    Mostra("absent button", pulsante);
}

void Elenchi(QWidget &finestra, Controllo &vicino)
{
    ElencoVoci elenco(&finestra, QStringLiteral("lst"));
    elenco.Posto(150, 150, 900, 600);
    elenco.AddItems({QStringLiteral("He"), QStringLiteral("Hi"), QStringLiteral("Ho"), QStringLiteral("Ha")});
    elenco.Visible(true);
    elenco.ListIndex(1);
    Mostra_Stati(QStringLiteral("list"), elenco, vicino);
}

void Colonne(QWidget &finestra)
{
    ElencoVoci colonne(&finestra, QStringLiteral("lst"));
    colonne.Posto(150, 150, 1500, 750);
    colonne.AddItems({QStringLiteral("H\tI"), QStringLiteral("E\tF"), QStringLiteral("L\tT")});
    Elenco_Colonne(colonne, 32, 3);
    colonne.Visible(true);
    colonne.ListIndex(2);
    Elenco_Fatta(colonne, 1, true, QStringLiteral("fatto"));
    Mostra("list in two columns", colonne);
    Elenco_Fatta(colonne, 2, true, QStringLiteral("fatto"));
    Mostra("list in two columns, the chosen line done", colonne);
}

void Letture(QWidget &finestra)
{
    ElencoLettura lettura(&finestra, QStringLiteral("lst"));
    lettura.Posto(150, 150, 1200, 900);
    lettura.Testo(QStringLiteral("He\nHi ha ho hu he hi ho hu\nLo\nHHHHHHHHHHHHHHHHHHHHHHHHHHH\nEnd"));
    lettura.Visible(true);
    Mostra("list to read", lettura);
    auto *barra = qobject_cast<QListWidget *>(lettura.Widget())->verticalScrollBar();
    barra->setValue(barra->maximum());
    Mostra("list to read, its end", lettura);
}

void Forme(QWidget &finestra)
{
    for (const auto &[aspetto, nome] : {
             std::pair{Forma::Cerchio,    "circle"   },
             std::pair{Forma::Rettangolo, "rectangle"}
    })
    {
        Forma forma(&finestra, QStringLiteral("sha"), aspetto);
        forma.Posto(150, 150, 330, 270);
        forma.Visible(true);
        Mostra(nome, forma);
        forma.FillColor(Numero_Tinta(Tinta::Fuoco));
        Mostra((QByteArray(nome) + " filled").constData(), forma);
    }
}

void Immagini(QWidget &finestra)
{
    Immagine immagine(&finestra, QStringLiteral("img"));
    immagine.Posto(150, 150, 450, 300);
    immagine.Visible(true);
    immagine.Testo(QStringLiteral("He"));
    Mostra("picture that is a text", immagine);
    immagine.Avviso();
    Mostra("picture of a warning", immagine);
}

/// A form's window: a small one has a frame of its own, one that covers the screen has none.
void Finestre()
{
    const auto piccola = std::make_shared<ModuloProva>();
    piccola->AlDisegno = [&] {
        piccola->Width(600);
        piccola->Height(300);
    };
    piccola->AlPaint = [&] {
        piccola->Linea(75, 90, 450, 90);
        piccola->Linea(300, 90, 300, 225);
    };
    piccola->Mostra();
    Mostra("form", *piccola->Finestra());
    piccola->Scarica();
}

/// The child process: every control in every state.
void Racconta()
{
    {
        QWidget finestra;
        finestra.setFixedSize(Pixel_DaTwip(1800), Pixel_DaTwip(1200));
        Pulsante vicino(&finestra, QStringLiteral("cmdVicino"));
        vicino.Posto(1650, 1050, 150, 150);
        finestra.show();
        if (!QTest::qWaitForWindowActive(&finestra))
            qFatal("the window is not active");
        Etichette(finestra);
        Caselle(finestra, vicino);
        Spunte(finestra, vicino);
        Pulsanti(finestra, vicino);
        Elenchi(finestra, vicino);
        Colonne(finestra);
        Letture(finestra);
        Forme(finestra);
        Immagini(finestra);
        Combinate(finestra, vicino); // the last: its list takes the keyboard from the window
    }
    Finestre();
}

} // namespace

class tst_disegno : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void differenzeSiVedono();
    void comeFuTrovatoBuono_data();
    void comeFuTrovatoBuono();
    void lettereIntereSeEntra_data();
    void lettereIntereSeEntra();
};

void tst_disegno::differenzeSiVedono()
{
    QImage vista(4, 2, QImage::Format_RGB32);
    vista.fill(Colore_Tema(Tinta::Campo));
    vista.setPixelColor(3, 0, Colore_Tema(Tinta::Cornice));
    vista.setPixelColor(1, 1, Qt::black);
    QCOMPARE(Tratti(vista, {0, 0}, {1, 0}), QStringLiteral("' '3 '-'1"));
    QCOMPARE(Tratti(vista, {1, 0}, {0, 1}), QStringLiteral("' '1 '0'1"));
    QCOMPARE(Tratti(vista, {0, 0}, {1, 1}), QStringLiteral("' '1 '0'1"));
}

void tst_disegno::comeFuTrovatoBuono_data()
{
    QTest::addColumn<QSize>("schermo");
    for (const QSize schermo : {QSize(1024, 768), QSize(32000, 4000)})
        QTest::addRow("%dx%d", schermo.width(), schermo.height()) << schermo;
}

void tst_disegno::comeFuTrovatoBuono()
{
    QFETCH(QSize, schermo);
    const QString difetto = Foglio_Confronta(QStringLiteral("disegno"), schermo);
    QVERIFY2(difetto.isEmpty(), qPrintable(difetto));
}

void tst_disegno::lettereIntereSeEntra_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<Verticale>("verticale");
    for (const char *testo : {"ace", "HIT", "gy", "Hg"}) {
        QTest::addRow("%s in alto", testo) << QString::fromLatin1(testo) << Verticale::Alto;
        QTest::addRow("%s nel mezzo", testo) << QString::fromLatin1(testo) << Verticale::Mezzo;
        QTest::addRow("%s in basso", testo) << QString::fromLatin1(testo) << Verticale::Basso;
    }
}

// The line of a text may stick out of a low place as long as its letters do not, and a pixel is left for
// their smoothed edge: the place that is the first to be called high enough is a pixel higher than the first
// that shows all the ink of a high one.
void tst_disegno::lettereIntereSeEntra()
{
    QFETCH(QString, testo);
    QFETCH(Verticale, verticale);
    QWidget finestra;
    finestra.setFixedSize(200, 150);
    finestra.show();
    Etichetta etichetta(&finestra, QStringLiteral("lbl"));
    etichetta.FontSize(Carattere_Minimo() / Pixel_DaPunti(1)); // none smaller: it stays as it is
    etichetta.Allineamento(Orizzontale::Sinistra, verticale);
    etichetta.Caption(testo);
    etichetta.Visible(true);
    const auto inchiostro = [&](int alto) {
        etichetta.Posto(0, 0, 1500, Twip_DaPixel(alto));
        const QImage vista = etichetta.Widget()->grab().toImage();
        int punti = 0;
        for (int y = 0; y < vista.height(); ++y) {
            for (int x = 0; x < vista.width(); ++x)
                punti += vista.pixelColor(x, y) != Colore_Tema(Tinta::Sfondo);
        }
        return punti;
    };
    const int tutto = inchiostro(100);
    QVERIFY(tutto > 0);
    bool prima = false; // whether a place lower by a pixel shows all
    for (int alto = 1; alto < 30; ++alto) {
        const bool intero = inchiostro(alto) == tutto;
        QVERIFY2(etichetta.Entra() == prima, qPrintable(QString::number(alto)));
        prima = intero;
    }
    QVERIFY(prima);
}

int main(int argc, char **argv)
{
    return Principale_Racconta<tst_disegno>(argc, argv, Racconta);
}

#include "tst_disegno.moc"
