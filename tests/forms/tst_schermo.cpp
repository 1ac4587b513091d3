#include "toolkit/schermo.h"

#include "platform/errore_esecuzione.h"
#include "tests/comuni/errore_prova.h"
#include "tests/forms/figlio_prova.h"
#include "tests/forms/principale_prova.h"

#include <QCursor>
#include <QScreen>

#include <cmath>
#include <cstdio>

class tst_schermo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unita_data();
    void unita();
    void unitaSulBordo();
    void posizioniInSediciBit_data();
    void posizioniInSediciBit();
    void misureDelloSchermo_data();
    void misureDelloSchermo();
    void andataERitorno();
    void pixelArrotondati();
    void puntiInPixel();
    void clessidraUnaSola();
    void clessidraFinisceConUnErrore();
};

namespace {

constexpr int MASSIMO_16 = 32767;

/// What a screen measures, in one line: twips, unit and size of type.
QString Misure()
{
    return QStringLiteral("%1 %2 %3 %4 %5")
        .arg(Schermo_Larghezza())
        .arg(Schermo_Altezza())
        .arg(Pixel_DaTwip(Schermo_Larghezza()))
        .arg(Pixel_DaTwip(Schermo_Altezza()))
        .arg(Punti_Normali(), 0, 'f', 3);
}

} // namespace

void tst_schermo::unita_data()
{
    QTest::addColumn<QSize>("pixel");
    QTest::addColumn<double>("twip");
    const struct
    {
        int larghezza, altezza;
        double twip;
    } righe[] = {
        {800,  600,  15.0},
        {1024, 768,  15.0},
        {1280, 1024, 15.0},
        {1920, 1080, 15.0},
        {1080, 1920, 15.0},
        {2184, 1365, 15.0},
        {2185, 1366, 7.5 },
        {1366, 2185, 7.5 },
        {2560, 1440, 7.5 },
        {3840, 2160, 7.5 },
        {4096, 2160, 7.5 },
        {5120, 2880, 5.0 },
        {6553, 3686, 5.0 },
        {7680, 4320, 3.75},
    };
    for (const auto &riga : righe)
        QTest::addRow("%dx%d", riga.larghezza, riga.altezza)
            << QSize(riga.larghezza, riga.altezza) << riga.twip;
}

void tst_schermo::unita()
{
    QFETCH(QSize, pixel);
    QFETCH(double, twip);
    QCOMPARE(Twip_PerPixel(pixel), twip);
}

// 2184 pixels at 15 twips are 32760; one pixel more would pass 16 bits.
void tst_schermo::unitaSulBordo()
{
    for (int larghezza = 1; larghezza <= 2184; ++larghezza)
        QCOMPARE(Twip_PerPixel(QSize(larghezza, 100)), 15.0);
    QVERIFY(Twip_PerPixel(QSize(2185, 100)) < 15.0);
}

void tst_schermo::posizioniInSediciBit_data()
{
    QTest::addColumn<int>("da");
    QTest::addColumn<int>("a");
    for (int da = 800; da < 7700; da += 1000)
        QTest::addRow("da %d", da) << da << std::min(da + 1000, 7700);
}

void tst_schermo::posizioniInSediciBit()
{
    QFETCH(int, da);
    QFETCH(int, a);
    for (int lato = da; lato < a; ++lato) {
        const double unita = Twip_PerPixel(QSize(lato, 600));
        QVERIFY(std::round(lato * unita) <= MASSIMO_16);
        QVERIFY(std::round(lato * unita) > MASSIMO_16 / 2.0 || unita == 15.0); // and no coarser than need be
        QCOMPARE(Twip_PerPixel(QSize(600, lato)), unita);
    }
}

void tst_schermo::misureDelloSchermo_data()
{
    QTest::addColumn<QSize>("pixel");
    QTest::addColumn<QString>("misure");
    const struct
    {
        int larghezza, altezza;
        const char *misure;
    } righe[] = {
        {800,  600,  "12000 9000 800 600 7.813"    },
        {1024, 768,  "15360 11520 1024 768 10.000" },
        {1280, 1024, "19200 15360 1280 1024 12.500"},
        {1920, 1080, "28800 16200 1920 1080 14.063"},
        {2184, 1365, "32760 20475 2184 1365 17.773"},
        {2185, 1366, "16388 10245 2185 1366 8.893" },
        {3840, 2160, "28800 16200 3840 2160 14.063"},
        {7680, 4320, "28800 16200 7680 4320 14.063"},
    };
    for (const auto &riga : righe)
        QTest::addRow("%dx%d", riga.larghezza, riga.altezza)
            << QSize(riga.larghezza, riga.altezza) << QString::fromLatin1(riga.misure);
}

void tst_schermo::misureDelloSchermo()
{
    QFETCH(QSize, pixel);
    QFETCH(QString, misure);
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--misure")}, pixel);
    QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
    QCOMPARE(figlio.Uscita.trimmed(), misure);
}

void tst_schermo::andataERitorno()
{
    for (int pixel = -10; pixel <= 2184; ++pixel)
        QCOMPARE(Pixel_DaTwip(Twip_DaPixel(pixel)), pixel);
    QCOMPARE(Twip_DaPixel(100), 1500);
}

void tst_schermo::pixelArrotondati()
{
    QCOMPARE(Pixel_DaTwip(0), 0);
    QCOMPARE(Pixel_DaTwip(7), 0);
    QCOMPARE(Pixel_DaTwip(8), 1);
    QCOMPARE(Pixel_DaTwip(-7), 0);
    QCOMPARE(Pixel_DaTwip(-8), -1);
    QCOMPARE(Pixel_DaTwip(32767), 2184);
}

void tst_schermo::puntiInPixel()
{
    QCOMPARE(Pixel_DaPunti(9), 12.0);
    QCOMPARE(Pixel_DaPunti(72), 96.0);
}

void tst_schermo::clessidraUnaSola()
{
    QCOMPARE(QApplication::overrideCursor(), nullptr);
    {
        const Clessidra esterna;
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        {
            const Clessidra interna;
            QVERIFY(QApplication::overrideCursor() != nullptr);
        }
        QCOMPARE(QApplication::overrideCursor(), nullptr); // for what the inner procedure has to tell
    }
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void tst_schermo::clessidraFinisceConUnErrore()
{
    const int errore = Errore_Di([] {
        const Clessidra clessidra;
        Solleva(NumeroErrore::FileNonTrovato);
    });
    QCOMPARE(errore, 53);
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "--misure") == 0) {
        const Applicazione applicazione(argc, argv);
        std::puts(qPrintable(Misure()));
        return 0;
    }
    return Principale_Prova<tst_schermo>(argc, argv);
}

#include "tst_schermo.moc"
