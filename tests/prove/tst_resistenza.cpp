// A station that is not closed, for some vehicles: prove/resistenza/resistenza goes on for thousands.
#include "prove/resistenza/misura.h"
#include "prove/resistenza/turno.h"

#include "toolkit/applicazione.h"

#include <QTest>

using namespace resistenza;

class tst_resistenza : public QObject
{
    Q_OBJECT

private:
    /// Vehicles until everything that is made once has been made, and those that have to leave nothing
    /// behind.
    static constexpr int PRIMA = 20;
    static constexpr int VEICOLI = 40;
    /// Bytes a vehicle: glyphs and files that are met for the first time cost some 130; an entry that the
    /// style sheet keeps for a list, a picture of a bar, or a form that is kept, costs more.
    static constexpr qint64 AMMESSI = 500;
    static constexpr qint64 AMMESSI_IMMAGINI = 600;

private Q_SLOTS:
    void nienteResta()
    {
        Turno turno;
        for (int i = 0; i < PRIMA; ++i)
            QCOMPARE(turno.Prova_Veicolo(), QString());
        const Misura prima = Misura_Adesso();
        for (int i = 0; i < VEICOLI; ++i)
            QCOMPARE(turno.Prova_Veicolo(), QString());
        const Misura dopo = Misura_Adesso();
        QCOMPARE_LE(dopo.Descrittori, prima.Descrittori);
        QCOMPARE_LE(dopo.Thread, prima.Thread);
        QCOMPARE_LE(dopo.Widget, prima.Widget);
        QCOMPARE_LE(dopo.Oggetti, prima.Oggetti);
        QCOMPARE_LE(dopo.Timer, prima.Timer);
        QCOMPARE_LE(dopo.Sveglie, prima.Sveglie);
        QCOMPARE_LT(dopo.Heap - prima.Heap, VEICOLI * AMMESSI);
        QCOMPARE_LT(dopo.Immagini, prima.Immagini + VEICOLI * AMMESSI_IMMAGINI);
    }
};

int main(int argc, char *argv[])
{
    Oggetti_Conta();
    Applicazione applicazione(argc, argv);
    tst_resistenza prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_resistenza.moc"
