#include "platform/aspetto.h"

#include "platform/controlli.h"
#include "platform/schermo.h"
#include "tests/forms/principale_prova.h"

#include <QPalette>

#include <cmath>

class tst_aspetto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloreBluVerdeRosso_data();
    void coloreBluVerdeRosso();
    void coloriDiSistemaDiversi();
    void carattereDellApplicazione();
    void testiLeggibili_data();
    void testiLeggibili();
    void fuocoSiVede();

private:
    static double Contrasto(const QColor &a, const QColor &b);
};

/// Contrast of two colours, 1 to 21, from their relative luminance.
double tst_aspetto::Contrasto(const QColor &a, const QColor &b)
{
    const auto luminanza = [](const QColor &colore) {
        const auto canale = [](double v) {
            return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * canale(colore.redF()) + 0.7152 * canale(colore.greenF()) +
               0.0722 * canale(colore.blueF());
    };
    const double chiaro = std::max(luminanza(a), luminanza(b));
    const double scuro = std::min(luminanza(a), luminanza(b));
    return (chiaro + 0.05) / (scuro + 0.05);
}

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

// A box that is locked looks different from one to write in.
void tst_aspetto::coloriDiSistemaDiversi()
{
    QVERIFY(Colore_Da(COLORE_SISTEMA_GRIGIO) != Colore_Da(COLORE_SISTEMA_FINESTRA));
    QCOMPARE(Colore_Da(COLORE_SISTEMA_FINESTRA), QColor(Qt::white));
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
    QVERIFY2(Contrasto(testo, sfondo) >= 4.5, qPrintable(QString::number(Contrasto(testo, sfondo))));
}

void tst_aspetto::fuocoSiVede()
{
    QWidget finestra;
    Pulsante primo(&finestra, QStringLiteral("cmd_0"));
    Pulsante secondo(&finestra, QStringLiteral("cmd_1"));
    CasellaTesto casella(&finestra, QStringLiteral("txt_0"));
    primo.Posto(150, 150, 1500, 450);
    secondo.Posto(150, 750, 1500, 450);
    casella.Posto(150, 1350, 1500, 450);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&finestra));
    const auto vista = [](const Controllo &controllo) { return controllo.Widget()->grab().toImage(); };
    secondo.SetFocus();
    const QImage pulsante = vista(primo);
    const QImage testo = vista(casella);
    primo.SetFocus();
    QVERIFY(vista(primo) != pulsante);
    casella.SetFocus();
    QVERIFY(vista(casella) != testo);
    QCOMPARE(vista(primo), pulsante);
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_aspetto>(argc, argv);
}

#include "tst_aspetto.moc"
