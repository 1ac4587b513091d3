// The rest after a look: as long as the look was slow, whatever becomes of the computer's clock.
#include "platform/riposo.h"

#include "tests/comuni/orologio_prova.h"

#include <QTest>

namespace {

constexpr int ALMENO = 100; // ms
constexpr int SGUARDO = 1000;
constexpr int RIPOSO = 100 * SGUARDO;
constexpr int ORA = 3600000;
constexpr qint64 GIORNO = 24 * qint64{ORA};

} // namespace

class tst_riposo : public QObject
{
    Q_OBJECT

private:
    /// A look that takes so long; the clock may be set meanwhile.
    void Guarda(qint64 ms, qint64 sposta = 0)
    {
        riposo.Comincia();
        orologio->Avanza(ms);
        orologio->Sposta(sposta);
        riposo.Finisci();
    }

    std::unique_ptr<OrologioProva> orologio;
    Riposo riposo;

private Q_SLOTS:
    void lento()
    {
        QVERIFY(!riposo.Lento()); // before the first look
        Guarda(499);
        QVERIFY(!riposo.Lento());
        Guarda(500);
        QVERIFY(riposo.Lento());
        Guarda(1);
        QVERIFY(!riposo.Lento());
    }

    void init()
    {
        orologio = std::make_unique<OrologioProva>();
        riposo = {};
    }
    void cleanup() { orologio.reset(); }

    void primaDiUnoSguardo()
    {
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
        riposo.Comincia();
        orologio->Avanza(SGUARDO);
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
    }

    void centoVolteLoSguardo()
    {
        Guarda(SGUARDO);
        QCOMPARE(riposo.Attesa(ALMENO), RIPOSO);
        orologio->Avanza(RIPOSO / 4);
        QCOMPARE(riposo.Attesa(ALMENO), RIPOSO / 4 * 3);
        Guarda(0); // a quick one leaves nothing of it
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
    }

    void maiMenoDelMinimo()
    {
        Guarda(SGUARDO);
        QCOMPARE(riposo.Attesa(RIPOSO + 1), RIPOSO + 1);
        orologio->Avanza(RIPOSO - ALMENO + 1);
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
        orologio->Avanza(GIORNO);
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
    }

    void maiPiuDiUnOra()
    {
        Guarda(ORA / 100);
        QCOMPARE(riposo.Attesa(ALMENO), ORA);
        Guarda(ORA / 100 + 1);
        QCOMPARE(riposo.Attesa(ALMENO), ORA);
    }

    /// The rest is as long as before, and not longer by the step.
    void orologioIndietro()
    {
        Guarda(SGUARDO);
        orologio->Sposta(-GIORNO);
        QCOMPARE(riposo.Attesa(ALMENO), RIPOSO);
        Guarda(SGUARDO, -GIORNO);
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
        Guarda(SGUARDO); // the next one counts again
        QCOMPARE(riposo.Attesa(ALMENO), RIPOSO);
    }

    void orologioAvanti()
    {
        Guarda(SGUARDO);
        orologio->Sposta(GIORNO);
        QCOMPARE(riposo.Attesa(ALMENO), ALMENO);
        Guarda(SGUARDO, 365 * GIORNO);
        QCOMPARE(riposo.Attesa(ALMENO), ORA);
    }
};

QTEST_GUILESS_MAIN(tst_riposo)
#include "tst_riposo.moc"
