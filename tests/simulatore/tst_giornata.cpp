// The plausible working day.
#include "simulatore/giornata.h"

#include <QTest>

#include <algorithm>

namespace {

constexpr int VEICOLI = 2000;

/// The verdict of the station on one beam, with the limits of a new installation.
bool Record_Regolare(const Veicolo &veicolo, size_t numero)
{
    const QByteArray &record = veicolo.record[numero];
    const int lux = record.first(4).toInt();
    const bool intensita = numero % 2 == 0 ? lux >= 38 && lux <= 899 : lux >= 201 && lux <= 1499;
    return intensita && record.last(2) == "OO";
}

int Record_Irregolari(const Veicolo &veicolo)
{
    int irregolari = 0;
    for (size_t i = 0; i < veicolo.record.size(); ++i)
        irregolari += Record_Regolare(veicolo, i) ? 0 : 1;
    return irregolari;
}

} // namespace

class tst_giornata : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stessoSemeStessaGiornata();
    void veicoliBenFormati();
    void unoSuCinqueNonPassa();
    void unaSolaLampadaGuasta();
    void guastiDIntensitaEDOrientamento();
};

void tst_giornata::stessoSemeStessaGiornata()
{
    Giornata prima(42);
    Giornata seconda(42);
    Giornata altra(43);
    bool diversa = false;
    for (int n = 0; n < 50; ++n) {
        const Veicolo veicolo = prima.Prossimo();
        const Veicolo uguale = seconda.Prossimo();
        QCOMPARE(uguale.riposo, veicolo.riposo);
        QCOMPARE(uguale.prova, veicolo.prova);
        QVERIFY(uguale.record == veicolo.record);
        diversa = diversa || altra.Prossimo().record != veicolo.record;
    }
    QVERIFY(diversa);
}

void tst_giornata::veicoliBenFormati()
{
    Giornata giornata(1);
    for (int n = 0; n < VEICOLI; ++n) {
        const Veicolo veicolo = giornata.Prossimo();
        QVERIFY(veicolo.riposo >= 3 && veicolo.riposo <= 6);
        QVERIFY(veicolo.prova >= 5 && veicolo.prova <= 12);
        for (const QByteArray &record : veicolo.record) {
            QCOMPARE(record.size(), 6);
            QVERIFY(std::all_of(record.cbegin(), record.cbegin() + 4,
                                [](char c) { return c >= '0' && c <= '9'; }));
        }
    }
}

void tst_giornata::unoSuCinqueNonPassa()
{
    Giornata giornata(1);
    int scartati = 0;
    for (int n = 0; n < VEICOLI; ++n)
        scartati += Record_Irregolari(giornata.Prossimo()) == 0 ? 0 : 1;
    QVERIFY2(scartati > VEICOLI * 16 / 100 && scartati < VEICOLI * 24 / 100,
             qPrintable(QString::number(scartati)));
}

void tst_giornata::unaSolaLampadaGuasta()
{
    Giornata giornata(7);
    for (int n = 0; n < VEICOLI; ++n)
        QVERIFY(Record_Irregolari(giornata.Prossimo()) <= 1);
}

void tst_giornata::guastiDIntensitaEDOrientamento()
{
    Giornata giornata(1);
    int orientamento = 0;
    int intensita = 0;
    for (int n = 0; n < VEICOLI; ++n) {
        const Veicolo veicolo = giornata.Prossimo();
        if (Record_Irregolari(veicolo) == 0)
            continue;
        const bool mira = std::any_of(veicolo.record.cbegin(), veicolo.record.cend(),
                                      [](const QByteArray &record) { return record.last(2) != "OO"; });
        ++(mira ? orientamento : intensita);
    }
    QVERIFY(orientamento > 50);
    QVERIFY(intensita > 50);
}

QTEST_GUILESS_MAIN(tst_giornata)
#include "tst_giornata.moc"
