#include "toolkit/array_controlli.h"

#include "tests/comuni/errore_prova.h"
#include "tests/forms/principale_prova.h"
#include "toolkit/controlli.h"

class tst_array_controlli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void vuoto();
    void nomeConLIndice();
    void nuovoNascostoEComeIlPrimo();
    void indiciConVuoti();
    void esistente380();
    void negativo380();
    void mancante9_data();
    void mancante9();
    void scaricato();
    void scaricatoTuttoRestaVuoto();
    void alNuovoPerOgniMembro();
    void iniziaSvuota();
    void indirizziStabili();
};

void tst_array_controlli::vuoto()
{
    const ArrayControlli<CasellaTesto> txt(QStringLiteral("txt"));
    QCOMPARE(txt.UBound(), qint16{-1});
    QVERIFY(!txt.Esiste(0));
    QCOMPARE(Errore_Di([&] { txt[0]; }), 9);
}

void tst_array_controlli::nomeConLIndice()
{
    QWidget finestra;
    ArrayControlli<CasellaTesto> txt(QStringLiteral("txt"));
    txt.Inizia(&finestra);
    QCOMPARE(txt.Carica(12).Widget()->objectName(), QStringLiteral("txt_12"));
    QCOMPARE(txt[12].Widget()->parentWidget(), &finestra);
}

void tst_array_controlli::nuovoNascostoEComeIlPrimo()
{
    QWidget finestra;
    ArrayControlli<CasellaTesto> txt(QStringLiteral("txt"));
    txt.Inizia(&finestra);
    CasellaTesto &primo = txt.Carica(0);
    QVERIFY(!primo.Visible());
    primo.Posto(150, 300, 4500, 600);
    primo.FontSize(15);
    primo.FontBold(true);
    primo.Tag(QStringLiteral("7"));
    primo.Text(QStringLiteral("AB"));
    primo.Visible(true);
    const CasellaTesto &nuovo = txt.Carica(1);
    QVERIFY(!nuovo.Visible());
    QCOMPARE(nuovo.Widget()->geometry(), QRect(10, 20, 300, 40));
    QCOMPARE(nuovo.Width(), 4500);
    QCOMPARE(nuovo.FontSize(), 15.0);
    QCOMPARE(nuovo.Widget()->font(), primo.Widget()->font());
    QCOMPARE(nuovo.Tag(), QString());
    QCOMPARE(nuovo.Text(), QString());
}

void tst_array_controlli::indiciConVuoti()
{
    QWidget finestra;
    ArrayControlli<Etichetta> lbl(QStringLiteral("lbl"));
    lbl.Inizia(&finestra);
    lbl.Carica(0);
    lbl.Carica(5);
    QCOMPARE(lbl.UBound(), qint16{5});
    QVERIFY(lbl.Esiste(0) && lbl.Esiste(5));
    QVERIFY(!lbl.Esiste(3) && !lbl.Esiste(6) && !lbl.Esiste(-1));
    QCOMPARE(Errore_Di([&] { lbl[3]; }), 9);
    lbl.Carica(3);
    QCOMPARE(lbl.UBound(), qint16{5});
    QVERIFY(lbl.Esiste(3));
}

void tst_array_controlli::esistente380()
{
    QWidget finestra;
    ArrayControlli<Etichetta> lbl(QStringLiteral("lbl"));
    lbl.Inizia(&finestra);
    lbl.Carica(0).Caption(QStringLiteral("Targa"));
    QCOMPARE(Errore_Di([&] { lbl.Carica(0); }), 380);
    QCOMPARE(lbl[0].Caption(), QStringLiteral("Targa"));
}

void tst_array_controlli::negativo380()
{
    QWidget finestra;
    ArrayControlli<Etichetta> lbl(QStringLiteral("lbl"));
    lbl.Inizia(&finestra);
    lbl.Carica(0);
    QCOMPARE(Errore_Di([&] { lbl.Carica(-1); }), 380);
    QCOMPARE(Errore_Di([&] { lbl.Carica(-32768); }), 380);
    QCOMPARE(lbl.UBound(), qint16{0});
}

void tst_array_controlli::mancante9_data()
{
    QTest::addColumn<int>("indice");
    for (const int indice : {-32768, -1, 1, 2, 32767})
        QTest::addRow("%d", indice) << indice;
}

void tst_array_controlli::mancante9()
{
    QFETCH(int, indice);
    const auto i = static_cast<qint16>(indice);
    QWidget finestra;
    ArrayControlli<Pulsante> cmd(QStringLiteral("cmd"));
    cmd.Inizia(&finestra);
    cmd.Carica(0);
    QCOMPARE(Errore_Di([&] { cmd[i]; }), 9);
    QCOMPARE(Errore_Di([&] { cmd.Scarica(i); }), 9);
    QVERIFY(cmd.Esiste(0));
}

void tst_array_controlli::scaricato()
{
    QWidget finestra;
    ArrayControlli<Pulsante> cmd(QStringLiteral("cmd"));
    cmd.Inizia(&finestra);
    for (qint16 i = 0; i <= 3; ++i)
        cmd.Carica(i);
    const QPointer<QWidget> widget = cmd[1].Widget();
    cmd.Scarica(1);
    QVERIFY(widget->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(widget == nullptr);
    QVERIFY(!cmd.Esiste(1));
    QCOMPARE(cmd.UBound(), qint16{3});
    cmd.Scarica(3);
    QCOMPARE(cmd.UBound(), qint16{2});
    cmd.Scarica(2);
    QCOMPARE(cmd.UBound(), qint16{0}); // the gap left by 1 goes with it
    QCOMPARE(Errore_Di([&] { cmd.Scarica(2); }), 9);
    cmd.Carica(2);
    QCOMPARE(cmd.UBound(), qint16{2});
}

void tst_array_controlli::scaricatoTuttoRestaVuoto()
{
    QWidget finestra;
    ArrayControlli<Pulsante> cmd(QStringLiteral("cmd"));
    cmd.Inizia(&finestra);
    cmd.Carica(0);
    cmd.Scarica(0);
    QCOMPARE(cmd.UBound(), qint16{-1});
    QVERIFY(!cmd.Esiste(0));
}

void tst_array_controlli::alNuovoPerOgniMembro()
{
    QWidget finestra;
    QStringList nuovi;
    ArrayControlli<Pulsante> cmd(QStringLiteral("cmd"));
    cmd.Inizia(&finestra, [&](Pulsante &pulsante, qint16 indice) {
        nuovi.append(QStringLiteral("%1=%2").arg(pulsante.Widget()->objectName()).arg(indice));
    });
    cmd.Carica(0);
    cmd.Carica(4);
    QCOMPARE(nuovi, QStringList({QStringLiteral("cmd_0=0"), QStringLiteral("cmd_4=4")}));
}

void tst_array_controlli::iniziaSvuota()
{
    QWidget prima;
    QWidget seconda;
    ArrayControlli<Pulsante> cmd(QStringLiteral("cmd"));
    cmd.Inizia(&prima);
    cmd.Carica(0);
    cmd.Carica(1);
    cmd.Inizia(&seconda);
    QCOMPARE(cmd.UBound(), qint16{-1});
    QCOMPARE(cmd.Carica(0).Widget()->parentWidget(), &seconda);
}

// A form keeps no reference across a Carica of its own, but a handler may be inside a member just then.
void tst_array_controlli::indirizziStabili()
{
    QWidget finestra;
    ArrayControlli<Etichetta> lbl(QStringLiteral("lbl"));
    lbl.Inizia(&finestra);
    const Etichetta *primo = &lbl.Carica(0);
    for (qint16 i = 1; i < 200; ++i)
        lbl.Carica(i);
    QCOMPARE(&lbl[0], primo);
    QCOMPARE(lbl.UBound(), qint16{199});
}

int main(int argc, char **argv)
{
    return Principale_Prova<tst_array_controlli>(argc, argv);
}

#include "tst_array_controlli.moc"
