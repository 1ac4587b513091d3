// The drawing primitives: which printer is taken, where a text stands, and in what order a target is told.
#include "report/modPrn.h"

#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stampa_prova.h"

#include <QTest>

namespace {

const QString COURIER = QStringLiteral("Courier New");
const QString ABC = QStringLiteral("abc"); // 361 wide and 230 high in Courier New 10, bold 391 wide

struct Pagina
{
    qint16 width, height, scaleLeft, scaleTop, scaleWidth, scaleHeight;
    bool operator==(const Pagina &altra) const = default;
};

Pagina Pagina_Presente()
{
    return {gPrnWidth, gPrnHeight, gPrnScaleLeft, gPrnScaleTop, gPrnScaleWidth, gPrnScaleHeight};
}

constexpr Pagina SENZA_STAMPANTE = {12140, 15740, 0, 0, 12240, 15840};

} // namespace

class tst_modPrn : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StampaProva> stampa;
    std::shared_ptr<OggettoProva> oggetto;

    /// Where a text stands in Courier New 10. @param nome "CurrentX" or "CurrentY".
    double Posto(const char *nome) const
    {
        const QString inizio = QString::fromLatin1(nome) + u' ';
        const QStringList posti = oggetto->Operazioni.filter(inizio);
        return posti.size() == 1 ? posti.first().mid(inizio.size()).toDouble() : qQNaN();
    }
    void Testo(qint16 x, qint16 y, qint16 orizzontale, qint16 verticale, const QString &testo) const
    {
        Prn_Testo(x, y, orizzontale, verticale, 0, Falso, 10, COURIER, testo);
    }

private Q_SLOTS:
    void init()
    {
        stampa = std::make_unique<StampaProva>();
        oggetto = std::make_shared<OggettoProva>(QStringLiteral("foglio"));
        Prn_ImpostaOggetto(oggetto);
        gPrnStampante.reset();
        gPrnWidth = gPrnHeight = gPrnScaleLeft = gPrnScaleTop = gPrnScaleWidth = gPrnScaleHeight = -1;
    }
    void cleanup()
    {
        gPrnOggetto.reset();
        stampa.reset();
    }

    // --- the printer --------------------------------------------------------------------------------------

    void nessunaStampantePaginaFissa()
    {
        QCOMPARE(Prn_Inizializza(), Falso);
        QCOMPARE(gPrnPresente, Falso);
        QVERIFY(Pagina_Presente() == SENZA_STAMPANTE);
    }

    void predefinitaMaElencoVuoto()
    {
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Prn_CercaStampante(), Falso);
        QVERIFY(gPrnStampante == nullptr);
    }

    void elencoSenzaPredefinita()
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"));
        QCOMPARE(Prn_Inizializza(), Falso);
        QVERIFY(gPrnStampante == nullptr);
        QVERIFY(Pagina_Presente() == SENZA_STAMPANTE);
    }

    void predefinitaFuoriDallElenco()
    {
        stampa->Aggiungi(QStringLiteral("Etichette"));
        stampa->Aggiungi(QStringLiteral("rapporto"));
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Prn_Inizializza(), Falso);
        QVERIFY(gPrnStampante == nullptr);
        QVERIFY(Pagina_Presente() == SENZA_STAMPANTE);
    }

    void paginaDellaStampanteTrovata()
    {
        stampa->Aggiungi(QStringLiteral("Etichette"), CARTA_A4);
        stampa->Aggiungi(QStringLiteral("Rapporto"), {12240, 15840, 11, 22, 12000, 15500});
        stampa->Aggiungi(QStringLiteral("Fax"), CARTA_A4);
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Prn_Inizializza(), Vero);
        QCOMPARE(gPrnPresente, Vero);
        QCOMPARE(gPrnStampante->DeviceName(), QStringLiteral("Rapporto"));
        QVERIFY((Pagina_Presente() == Pagina{12240, 15840, 11, 22, 12000, 15500}));
    }

    void tantePariVinceLUltima()
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"), CARTA_A4);
        stampa->Aggiungi(QStringLiteral("Rapporto"), CARTA_LETTER);
        stampa->Aggiungi(QStringLiteral("Fax"), CARTA_A4);
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Prn_CercaStampante(), Vero);
        QVERIFY(gPrnStampante == stampa->Printers(1));
    }

    /// The layout has reduced the width of the print before.
    void ogniVoltaDaCapo()
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"));
        stampa->Predefinita(QStringLiteral("Rapporto"));
        Prn_Inizializza();
        gPrnWidth = 100;
        QCOMPARE(Prn_Inizializza(), Vero);
        QCOMPARE(gPrnWidth, qint16{11906});
    }

    void cartaOltreISediciBit()
    {
        stampa->Aggiungi(QStringLiteral("Rapporto"), {32767, 32768, 0, 0, 0, 0});
        stampa->Predefinita(QStringLiteral("Rapporto"));
        QCOMPARE(Errore_Di([] { Prn_Inizializza(); }), 6);
    }

    void impostaOggettoConScalaUno()
    {
        gPrnScala = 0.25F;
        const auto altro = std::make_shared<OggettoProva>(QStringLiteral("altro"));
        Prn_ImpostaOggetto(altro);
        QVERIFY(gPrnOggetto == altro);
        QCOMPARE(gPrnScala, 1.0F);
    }

    // --- texts --------------------------------------------------------------------------------------------

    void ordineDelleScrittureDiUnTesto()
    {
        Prn_Testo(1000, 2000, PRN_DESTRA, PRN_SOTTO, 0x102030, Vero, 12, QStringLiteral("Arial"), ABC);
        const QStringList attese = {
            QStringLiteral("FontTransparent 1"), QStringLiteral("ForeColor 1056816"),
            QStringLiteral("FontName Arial"),    QStringLiteral("FontSize 12"),
            QStringLiteral("FontBold 1"),        QStringLiteral("TextWidth abc"),
            QStringLiteral("TextHeight abc"),    QStringLiteral("CurrentX 567"),
            QStringLiteral("CurrentY 2000"),     QStringLiteral("Print abc"),
        };
        QCOMPARE(oggetto->Operazioni, attese);
    }

    void ordineDelleScrittureDiUnaMisura()
    {
        qint16 altezza = 0;
        qint16 larghezza = 0;
        Prn_MisuraTesto(altezza, larghezza, Vero, 10, COURIER, ABC);
        const QStringList attese = {
            QStringLiteral("FontTransparent 1"), QStringLiteral("FontName Courier New"),
            QStringLiteral("FontSize 10"),       QStringLiteral("FontBold 1"),
            QStringLiteral("TextWidth abc"),     QStringLiteral("TextHeight abc"),
        };
        QCOMPARE(oggetto->Operazioni, attese);
        QCOMPARE(altezza, qint16{230});
        QCOMPARE(larghezza, qint16{391});
    }

    void allineamentoOrizzontale_data()
    {
        QTest::addColumn<qint16>("allineamento");
        QTest::addColumn<double>("sinistra");
        QTest::newRow("inizia a x") << qint16{0} << 1000.0;
        QTest::newRow("centrato") << qint16{1} << 820.0; // 819.5 to even
        QTest::newRow("finisce a x") << qint16{2} << 639.0;
        QTest::newRow("3") << qint16{3} << 0.0;
        QTest::newRow("-1") << qint16{-1} << 0.0;
    }
    void allineamentoOrizzontale()
    {
        QFETCH(qint16, allineamento);
        QFETCH(double, sinistra);
        Testo(1000, 2000, allineamento, PRN_SOTTO, ABC);
        QCOMPARE(Posto("CurrentX"), sinistra);
        QCOMPARE(Posto("CurrentY"), 2000.0);
    }

    void allineamentoVerticale_data()
    {
        QTest::addColumn<qint16>("allineamento");
        QTest::addColumn<double>("cima");
        QTest::newRow("finisce a y") << qint16{0} << 1770.0;
        QTest::newRow("centrato") << qint16{1} << 1885.0;
        QTest::newRow("inizia a y") << qint16{2} << 2000.0;
        QTest::newRow("3") << qint16{3} << 0.0;
        QTest::newRow("-1") << qint16{-1} << 0.0;
    }
    void allineamentoVerticale()
    {
        QFETCH(qint16, allineamento);
        QFETCH(double, cima);
        Testo(1000, 2000, PRN_SINISTRA, allineamento, ABC);
        QCOMPARE(Posto("CurrentX"), 1000.0);
        QCOMPARE(Posto("CurrentY"), cima);
    }

    void mezzoTwipAlPari_data()
    {
        QTest::addColumn<qint16>("x");
        QTest::addColumn<double>("sinistra");
        // Half of 361 is 180.5.
        QTest::newRow("999.5 sale") << qint16{1180} << 1000.0;
        QTest::newRow("1000.5 scende") << qint16{1181} << 1000.0;
        QTest::newRow("1001.5 sale") << qint16{1182} << 1002.0;
        QTest::newRow("-0.5 a zero") << qint16{180} << 0.0;
        QTest::newRow("-1.5 scende") << qint16{179} << -2.0;
        QTest::newRow("-2.5 sale") << qint16{178} << -2.0;
    }
    void mezzoTwipAlPari()
    {
        QFETCH(qint16, x);
        QFETCH(double, sinistra);
        Testo(x, 0, PRN_CENTRO, PRN_SOPRA, ABC);
        QCOMPARE(Posto("CurrentX"), sinistra);
    }

    void mezzoTwipAlPariInAltezza()
    {
        // 11 points are 253 twips high: 2000 - 126.5 and 2001 - 126.5.
        for (const qint16 y : {qint16{2000}, qint16{2001}}) {
            oggetto->Operazioni.clear();
            Prn_Testo(0, y, PRN_SINISTRA, PRN_MEZZO, 0, Falso, 11, COURIER, ABC);
            QCOMPARE(Posto("CurrentY"), 1874.0);
        }
    }

    void testoVuotoAlSuoPosto()
    {
        Testo(1000, 2000, PRN_DESTRA, PRN_SOPRA, QString());
        QCOMPARE(Posto("CurrentX"), 1000.0);
        QCOMPARE(Posto("CurrentY"), 1770.0);
    }

    void postoOltreISediciBit()
    {
        QCOMPARE(Errore_Di([this] { Testo(-32700, 0, PRN_DESTRA, PRN_SOTTO, ABC); }), 6);
        QCOMPARE(Errore_Di([this] { Testo(0, -32700, PRN_SINISTRA, PRN_SOPRA, ABC); }), 6);
        QVERIFY(oggetto->Pagine.last().isEmpty());
    }

    void misuraOltreISediciBit()
    {
        qint16 altezza = 0;
        qint16 larghezza = 0;
        const QString lungo(300, u'x'); // 36001 twips
        QCOMPARE(Errore_Di([&] { Prn_MisuraTesto(altezza, larghezza, Falso, 10, COURIER, lungo); }), 6);
    }

    // --- lines --------------------------------------------------------------------------------------------

    void ordineDelleScrittureDiUnaLinea()
    {
        Prn_Linea(10, 20, 300, 400, 0x0000FF, 2, 3);
        const QStringList attese = {
            QStringLiteral("DrawStyle 3"),
            QStringLiteral("DrawWidth 2"),
            QStringLiteral("Line 10,20 300,400 colore 255"),
        };
        QCOMPARE(oggetto->Operazioni, attese);
    }

    void spessoreZeroDisegnatoUno_data()
    {
        QTest::addColumn<qint16>("spessore");
        QTest::addColumn<float>("scala");
        QTest::addColumn<int>("disegnato");
        QTest::newRow("0") << qint16{0} << 1.0F << 1;
        QTest::newRow("1") << qint16{1} << 1.0F << 1;
        QTest::newRow("0.25") << qint16{1} << 0.25F << 1;
        QTest::newRow("0.5 al pari") << qint16{1} << 0.5F << 1;
        QTest::newRow("1.5 al pari") << qint16{3} << 0.5F << 2;
        QTest::newRow("2.5 al pari") << qint16{5} << 0.5F << 2;
        QTest::newRow("doppio") << qint16{2} << 2.0F << 4;
    }
    void spessoreZeroDisegnatoUno()
    {
        QFETCH(qint16, spessore);
        QFETCH(float, scala);
        QFETCH(int, disegnato);
        gPrnScala = scala;
        Prn_Linea(0, 0, 1, 1, 0, spessore, 0);
        QCOMPARE(oggetto->Operazioni.at(1), QStringLiteral("DrawWidth %1").arg(disegnato));
    }

    // --- scale --------------------------------------------------------------------------------------------

    void scalaSuTutto()
    {
        gPrnScala = 0.5F;
        Prn_Testo(1001, 2001, PRN_SINISTRA, PRN_SOTTO, 0, Falso, 12, COURIER, ABC);
        QVERIFY(oggetto->Operazioni.contains(QStringLiteral("FontSize 6")));
        QCOMPARE(Posto("CurrentX"), 500.5);
        QCOMPARE(Posto("CurrentY"), 1000.5);
        qint16 altezza = 0;
        qint16 larghezza = 0;
        Prn_MisuraTesto(altezza, larghezza, Falso, 12, COURIER, ABC);
        QCOMPARE(altezza, qint16{138}); // of 6 points
        QCOMPARE(larghezza, qint16{217});
        Prn_Linea(11, 21, 31, 41, 0, 4, 0);
        QCOMPARE(oggetto->Operazioni.last(), QStringLiteral("Line 5.5,10.5 15.5,20.5 colore 0"));
    }
};

QTEST_GUILESS_MAIN(tst_modPrn)
#include "tst_modPrn.moc"
