#include "toolkit/aspetto.h"

#include "platform/colore_qt.h"
#include "tests/forms/difetti_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/controlli.h"
#include "toolkit/schermo.h"
#include "toolkit/segno_avviso.h"

#include <QImage>
#include <QPalette>

class tst_aspetto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloreBluVerdeRosso_data();
    void coloreBluVerdeRosso();
    void numeroDellaTinta();
    void coloriDiSistemaDiversi();
    void tavolozza_data();
    void tavolozza();
    void carattereDellApplicazione();
    void testiLeggibili_data();
    void testiLeggibili();
    void leggibileSuOgniFondo_data();
    void leggibileSuOgniFondo();
    void leggibileRestaComE();
    void lineaComeLoSchermo();
    void carattereMinimo();
    void fuocoSiVede_data();
    void fuocoSiVede();
    void spuntaSiVede();
    void segnoDiAvvisoIntero();
};

void tst_aspetto::coloreBluVerdeRosso_data()
{
    QTest::addColumn<quint32>("colore");
    QTest::addColumn<QColor>("atteso");
    QTest::newRow("nero") << COLORE_NERO << QColor(0, 0, 0);
    QTest::newRow("bianco") << COLORE_BIANCO << QColor(255, 255, 255);
    QTest::newRow("rosso") << COLORE_ROSSO << QColor(255, 0, 0);
    QTest::newRow("verde") << COLORE_VERDE << QColor(0, 255, 0);
    QTest::newRow("misto") << quint32{0x00123456} << QColor(0x56, 0x34, 0x12);
}

void tst_aspetto::coloreBluVerdeRosso()
{
    QFETCH(quint32, colore);
    QFETCH(QColor, atteso);
    QCOMPARE(Colore_Da(colore), atteso);
}

// A control that takes a number shows the colour of the look.
void tst_aspetto::numeroDellaTinta()
{
    for (const Tinta tinta :
         {Tinta::Sfondo, Tinta::Testo, Tinta::TestoSpento, Tinta::Fuoco, Tinta::FuocoTenue, Tinta::Guasto})
        QCOMPARE(Colore_Da(Numero_Tinta(tinta)), Colore_Tema(tinta));
    QCOMPARE(Numero_Tinta(Tinta::Fuoco), 0x8A5C0Bu);
}

// A box that is locked looks different from one to write in.
void tst_aspetto::coloriDiSistemaDiversi()
{
    QVERIFY(Colore_Da(COLORE_SISTEMA_GRIGIO) != Colore_Da(COLORE_SISTEMA_FINESTRA));
    QCOMPARE(Colore_Da(COLORE_SISTEMA_FINESTRA), QColor(Qt::white));
}

void tst_aspetto::tavolozza_data()
{
    QTest::addColumn<QPalette::ColorRole>("ruolo");
    QTest::addColumn<Tinta>("tinta");
    QTest::addColumn<Tinta>("spenta"); // of a disabled control
    QTest::newRow("finestra") << QPalette::Window << Tinta::Sfondo << Tinta::Sfondo;
    QTest::newRow("scritta") << QPalette::WindowText << Tinta::Testo << Tinta::TestoSpento;
    QTest::newRow("campo") << QPalette::Base << Tinta::Campo << Tinta::Campo;
    QTest::newRow("testo del campo") << QPalette::Text << Tinta::Testo << Tinta::TestoSpento;
    QTest::newRow("pulsante") << QPalette::Button << Tinta::Sfondo << Tinta::Sfondo;
    QTest::newRow("testo del pulsante") << QPalette::ButtonText << Tinta::Testo << Tinta::TestoSpento;
    QTest::newRow("voce scelta") << QPalette::Highlight << Tinta::Fuoco << Tinta::Fuoco;
    QTest::newRow("testo della scelta") << QPalette::HighlightedText << Tinta::Campo << Tinta::Campo;
}

void tst_aspetto::tavolozza()
{
    QFETCH(QPalette::ColorRole, ruolo);
    QFETCH(Tinta, tinta);
    QFETCH(Tinta, spenta);
    const QPalette colori = QApplication::palette();
    QCOMPARE(colori.color(QPalette::Active, ruolo), Colore_Tema(tinta));
    QCOMPARE(colori.color(QPalette::Inactive, ruolo), Colore_Tema(tinta));
    QCOMPARE(colori.color(QPalette::Disabled, ruolo), Colore_Tema(spenta));
}

void tst_aspetto::carattereDellApplicazione()
{
    QCOMPARE(QApplication::font().family(), Carattere_Normale());
    QCOMPARE(QApplication::font().pixelSize(), qRound(Pixel_DaPunti(Punti_Normali())));
    QVERIFY(Carattere_Fisso() != Carattere_Normale());
}

void tst_aspetto::testiLeggibili_data()
{
    QTest::addColumn<QColor>("testo");
    QTest::addColumn<QColor>("sfondo");
    const QPalette tavolozza = QApplication::palette();
    const QColor finestra = tavolozza.color(QPalette::Window);
    const QColor testo = tavolozza.color(QPalette::WindowText);
    const QColor spento = tavolozza.color(QPalette::Disabled, QPalette::WindowText);
    QTest::newRow("etichetta") << testo << finestra;
    QTest::newRow("etichetta spenta") << spento << finestra;
    QTest::newRow("casella bloccata e spenta") << spento << Colore_Da(COLORE_SISTEMA_GRIGIO);
    QTest::newRow("casella") << tavolozza.color(QPalette::Text) << Colore_Da(COLORE_SISTEMA_FINESTRA);
    QTest::newRow("casella bloccata") << tavolozza.color(QPalette::Text) << Colore_Da(COLORE_SISTEMA_GRIGIO);
    QTest::newRow("voce scelta") << tavolozza.color(QPalette::HighlightedText)
                                 << tavolozza.color(QPalette::Highlight);
}

void tst_aspetto::testiLeggibili()
{
    QFETCH(QColor, testo);
    QFETCH(QColor, sfondo);
    const double contrasto = Contrasto_Di(testo.rgb(), sfondo.rgb());
    QVERIFY2(contrasto >= 4.5, qPrintable(QString::number(contrasto)));
}

void tst_aspetto::leggibileSuOgniFondo_data()
{
    QTest::addColumn<QColor>("scritta");
    QTest::addColumn<QColor>("fondo");
    const QColor testo = Colore_Tema(Tinta::Testo);
    const QColor rosso = Colore_Da(COLORE_ROSSO);
    QTest::newRow("casella con un errore") << testo << rosso;
    QTest::newRow("esito regolare") << testo << Colore_Da(COLORE_VERDE);
    QTest::newRow("rosso sulla finestra") << rosso << Colore_Tema(Tinta::Sfondo);
    QTest::newRow("nero su nero") << QColor(Qt::black) << QColor(Qt::black);
    QTest::newRow("bianco su bianco") << QColor(Qt::white) << QColor(Qt::white);
    QTest::newRow("grigio su grigio") << QColor(0x77, 0x77, 0x77) << QColor(0x77, 0x77, 0x77);
}

void tst_aspetto::leggibileSuOgniFondo()
{
    QFETCH(QColor, scritta);
    QFETCH(QColor, fondo);
    QVERIFY(Contrasto_Di(Colore_Leggibile(scritta, fondo).rgb(), fondo.rgb()) >= 4.5);
}

// A red stays red, and what can be read stays as it is.
void tst_aspetto::leggibileRestaComE()
{
    const QColor rosso = Colore_Da(COLORE_ROSSO);
    QCOMPARE(Colore_Leggibile(rosso, Colore_Da(COLORE_NERO)), rosso);
    const QColor scuro = Colore_Leggibile(rosso, Colore_Da(COLORE_BIANCO));
    QVERIFY(scuro.red() > 180 && scuro.green() == 0 && scuro.blue() == 0);
}

void tst_aspetto::lineaComeLoSchermo()
{
    QCOMPARE(Spessore_Linea(), Pixel_DaTwip(15));
    QCOMPARE(Spessore_Linea(4), Pixel_DaTwip(60));
}

void tst_aspetto::carattereMinimo()
{
    QVERIFY(Carattere_Minimo() >= 9);
    QVERIFY(Carattere_Minimo() < QApplication::font().pixelSize());
}

void tst_aspetto::fuocoSiVede_data()
{
    QTest::addColumn<int>("quale");
    QTest::newRow("pulsante") << 0;
    QTest::newRow("casella") << 1;
    QTest::newRow("combo") << 2;
    QTest::newRow("spunta") << 3;
    QTest::newRow("elenco") << 4;
}

void tst_aspetto::fuocoSiVede()
{
    QFETCH(int, quale);
    QWidget finestra;
    Pulsante altro(&finestra, QStringLiteral("cmd_1"));
    Pulsante pulsante(&finestra, QStringLiteral("cmd_0"));
    CasellaTesto casella(&finestra, QStringLiteral("txt_0"));
    CasellaCombinata combo(&finestra, QStringLiteral("cbo_0"));
    CasellaSpunta spunta(&finestra, QStringLiteral("chk_0"));
    ElencoVoci elenco(&finestra, QStringLiteral("lst"));
    Controllo *const controlli[] = {&pulsante, &casella, &combo, &spunta, &elenco};
    Controllo &controllo = *controlli[quale];
    controllo.Posto(150, 150, 1500, 450);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&finestra));
    const auto vista = [&] { return controllo.Widget()->grab().toImage(); };
    altro.SetFocus();
    const QImage senza = vista();
    controllo.SetFocus();
    QVERIFY(vista() != senza);
    altro.SetFocus();
    QCOMPARE(vista(), senza);
}

// The whole of the warning sign stands in the middle of its picture, however large that is.
void tst_aspetto::segnoDiAvvisoIntero()
{
    constexpr int LATO = 1000;
    const QImage segno = Segno_Avviso(LATO).toImage();
    QRect coperto;
    for (int y = 0; y < LATO; ++y) {
        for (int x = 0; x < LATO; ++x) {
            if (qAlpha(segno.pixel(x, y)) > 127)
                coperto |= QRect(x, y, 1, 1);
        }
    }
    // Its corners are rounded by half its pen: 3 hundredths beyond where they stand.
    const QRect atteso(QPoint(20, 60), QPoint(979, 919));
    const QMargins scarto(coperto.left() - atteso.left(), coperto.top() - atteso.top(),
                          coperto.right() - atteso.right(), coperto.bottom() - atteso.bottom());
    for (const int pixel : {scarto.left(), scarto.top(), scarto.right(), scarto.bottom()})
        QVERIFY2(qAbs(pixel) <= 2, qPrintable(QString::number(pixel)));
}

void tst_aspetto::spuntaSiVede()
{
    QWidget finestra;
    CasellaSpunta spunta(&finestra, QStringLiteral("chk_0"));
    spunta.Posto(150, 150, 600, 330);
    const auto vista = [&] { return spunta.Widget()->grab().toImage(); };
    const QImage vuota = vista();
    spunta.Value(1);
    const QImage piena = vista();
    QVERIFY(piena != vuota);
    spunta.Enabled(false);
    QVERIFY(vista() != piena);
    spunta.Value(0);
    QVERIFY(vista() != vuota);
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_aspetto>(argc, argv);
}

#include "tst_aspetto.moc"
