// The limits of the evaluation: defaults, decimal separators, degrees, and what is read with them.
#include "core/limiti.h"

#include "core/modGeneral.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

#include <cmath>

namespace {

struct ChiaveLux
{
    const char *chiave;
    qint32 *limite;
    qint32 predefinito;
};

constexpr ChiaveLux LUX[] = {
    {"LuxMaxAbb",  &gLuxMaxAbb,  150000},
    {"LuxMaxAnab", &gLuxMaxAnab, 90000 },
    {"LuxMinAbb",  &gLuxMinAbb,  20000 },
    {"LuxMinAnab", &gLuxMinAnab, 3750  },
};

struct ChiaveDev
{
    const char *chiave;
    float *limite;
    float predefinito;
};

constexpr ChiaveDev DEV[] = {
    {"DevVertAbb",  &gDevVertAbb,  1.5F },
    {"DevVertAnab", &gDevVertAnab, 1.5F },
    {"DevOrizAbb",  &gDevOrizAbb,  15.0F},
    {"DevOrizAnab", &gDevOrizAnab, 15.0F},
};

const QString PARAMETRI = QStringLiteral("PARAMETRI");
const QString IMPOSTAZIONI = QStringLiteral("IMPOSTAZIONI");

/// The last digits of a single-precision figure are its own.
bool Circa(double valore, double atteso)
{
    return std::fabs(valore - atteso) <= std::fabs(atteso) * 1e-6;
}

} // namespace

Q_DECLARE_METATYPE(Fascio)

class tst_limiti : public QObject
{
    Q_OBJECT

private:
    void Imposta_Tutti(const QString &valore) const
    {
        for (const ChiaveLux &voce : LUX)
            stazione->Imposta(PARAMETRI, QString::fromLatin1(voce.chiave), valore);
        for (const ChiaveDev &voce : DEV)
            stazione->Imposta(PARAMETRI, QString::fromLatin1(voce.chiave), valore);
    }

    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init()
    {
        Imposta_Locale(QLocale::c());
        stazione = std::make_unique<StazioneProva>();
    }
    void cleanup() { Imposta_Locale(QLocale::c()); }

    /// First of all: nothing has been read yet.
    void primaDiOgniLettura()
    {
        for (const ChiaveLux &voce : LUX)
            QCOMPARE(*voce.limite, 0);
        for (const ChiaveDev &voce : DEV)
            QCOMPARE(*voce.limite, 0.0F);
        QCOMPARE(int(gSimmetrico), 0);
    }

    /// Every limit takes its own key: distinct values in all eight.
    void ogniLimiteDallaSuaChiave()
    {
        int numero = 1;
        for (const ChiaveLux &voce : LUX)
            stazione->Imposta(PARAMETRI, QString::fromLatin1(voce.chiave), QString::number(1000 * numero++));
        for (const ChiaveDev &voce : DEV)
            stazione->Imposta(PARAMETRI, QString::fromLatin1(voce.chiave), QString::number(numero++));
        Carica_Limiti();
        QCOMPARE(gLuxMaxAbb, 1000);
        QCOMPARE(gLuxMaxAnab, 2000);
        QCOMPARE(gLuxMinAbb, 3000);
        QCOMPARE(gLuxMinAnab, 4000);
        QCOMPARE(gDevVertAbb, 5.0F);
        QCOMPARE(gDevVertAnab, 6.0F);
        QVERIFY(Circa(gDevOrizAbb, std::tan(7 * 3.1416 / 180) * 400));
        QVERIFY(Circa(gDevOrizAnab, std::tan(8 * 3.1416 / 180) * 400));
    }

    void valoreNonNumericoDaIlPredefinito_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::newRow("vuoto") << QString();
        QTest::newRow("parola") << QStringLiteral("alto");
        QTest::newRow("numero e unita") << QStringLiteral("100 lux");
        QTest::newRow("due punti") << QStringLiteral("1.2.3");
    }
    /// The defaults of the horizontal limits stay unconverted.
    void valoreNonNumericoDaIlPredefinito()
    {
        QFETCH(QString, valore);
        Imposta_Tutti(valore);
        Carica_Limiti();
        for (const ChiaveLux &voce : LUX)
            QCOMPARE(*voce.limite, voce.predefinito);
        for (const ChiaveDev &voce : DEV)
            QCOMPARE(*voce.limite, voce.predefinito);
    }

    void sezioneMancanteDaIPredefiniti()
    {
        stazione->Scrivi(QStringLiteral("lumira.ini"), "[GENERAL]\r\nUser=KP\r\n");
        Carica_Limiti();
        for (const ChiaveLux &voce : LUX)
            QCOMPARE(*voce.limite, voce.predefinito);
        for (const ChiaveDev &voce : DEV)
            QCOMPARE(*voce.limite, voce.predefinito);
        QCOMPARE(gSimmetrico, quint8{0});
        QCOMPARE(gPwdCorrente, QString());
    }

    void luxArrotondatoAlPari_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<qint32>("limite");
        QTest::newRow("intero") << QStringLiteral("90000") << 90000;
        QTest::newRow("mezzo in giu") << QStringLiteral("100.5") << 100;
        QTest::newRow("mezzo in su") << QStringLiteral("101.5") << 102;
        QTest::newRow("oltre il mezzo") << QStringLiteral("100.6") << 101;
        QTest::newRow("negativo") << QStringLiteral("-5") << -5;
        QTest::newRow("esponente") << QStringLiteral("9e4") << 90000;
        QTest::newRow("zero") << QStringLiteral("0") << 0;
    }
    void luxArrotondatoAlPari()
    {
        QFETCH(QString, valore);
        QFETCH(qint32, limite);
        stazione->Imposta(PARAMETRI, QStringLiteral("LuxMaxAnab"), valore);
        Carica_Limiti();
        QCOMPARE(gLuxMaxAnab, limite);
    }

    void luxOltre32BitFinisceIlProgramma()
    {
        stazione->Imposta(PARAMETRI, QStringLiteral("LuxMinAbb"), QStringLiteral("2147483648"));
        QCOMPARE(Errore_Di(Carica_Limiti), 6);
    }

    void gradiInTangente_data()
    {
        QTest::addColumn<QString>("gradi");
        QTest::addColumn<double>("limite");
        QTest::newRow("zero") << QStringLiteral("0") << 0.0;
        QTest::newRow("due") << QStringLiteral("2") << 13.9683409;
        QTest::newRow("mezzo") << QStringLiteral("0.5") << 3.4907558;
        QTest::newRow("quarantacinque") << QStringLiteral("45") << 400.00147;
    }
    /// The figures come out as the instrument's own: with 3.1416, whose tangent of 45 degrees is not 1.
    void gradiInTangente()
    {
        QFETCH(QString, gradi);
        QFETCH(double, limite);
        for (const QString &chiave : {QStringLiteral("DevOrizAbb"), QStringLiteral("DevOrizAnab")})
            stazione->Imposta(PARAMETRI, chiave, gradi);
        Carica_Limiti();
        QVERIFY2(Circa(gDevOrizAbb, limite), qPrintable(QString::number(gDevOrizAbb, 'g', 9)));
        QCOMPARE(gDevOrizAnab, gDevOrizAbb);
    }

    void limitiVerticaliComeStanno()
    {
        stazione->Imposta(PARAMETRI, QStringLiteral("DevVertAbb"), QStringLiteral("2"));
        stazione->Imposta(PARAMETRI, QStringLiteral("DevVertAnab"), QStringLiteral("0.25"));
        Carica_Limiti();
        QCOMPARE(gDevVertAbb, 2.0F);
        QCOMPARE(gDevVertAnab, 0.25F);
    }

    void separatoreDecimale_data()
    {
        QTest::addColumn<bool>("virgola");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<float>("limite");
        QTest::newRow("virgola, punto nel file") << true << QStringLiteral("2.5") << 2.5F;
        QTest::newRow("virgola, virgola nel file") << true << QStringLiteral("2,5") << 2.5F;
        QTest::newRow("punto, punto nel file") << false << QStringLiteral("2.5") << 2.5F;
        QTest::newRow("punto, virgola nel file") << false << QStringLiteral("2,5") << 1.5F; // the default
        QTest::newRow("virgola, due punti nel file") << true << QStringLiteral("1.000.5") << 1.5F;
    }
    void separatoreDecimale()
    {
        QFETCH(bool, virgola);
        QFETCH(QString, valore);
        QFETCH(float, limite);
        if (virgola)
            Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        stazione->Imposta(PARAMETRI, QStringLiteral("DevVertAbb"), valore);
        Carica_Limiti();
        QCOMPARE(gSepDecimale, virgola ? QStringLiteral(",") : QStringLiteral("."));
        QCOMPARE(gDevVertAbb, limite);
    }

    /// A point in a whole limit is a decimal point too on a machine with a comma, not a group mark.
    void puntoNelLuxConLaVirgola()
    {
        Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        stazione->Imposta(PARAMETRI, QStringLiteral("LuxMinAnab"), QStringLiteral("3.750"));
        Carica_Limiti();
        QCOMPARE(gLuxMinAnab, 4);
    }

    void simmetrico_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<int>("simmetrico");
        QTest::newRow("uno") << QStringLiteral("1") << 1;
        QTest::newRow("zero") << QStringLiteral("0") << 0;
        QTest::newRow("due") << QStringLiteral("2") << 0;
        QTest::newRow("vuoto") << QString() << 0;
        QTest::newRow("parola") << QStringLiteral("S") << 0;
        QTest::newRow("come intero uno") << QStringLiteral("1.4") << 1;
        QTest::newRow("come intero due") << QStringLiteral("1.6") << 0;
    }
    void simmetrico()
    {
        QFETCH(QString, valore);
        QFETCH(int, simmetrico);
        gSimmetrico = 1 - static_cast<quint8>(simmetrico);
        stazione->Imposta(IMPOSTAZIONI, QStringLiteral("Simmetrico"), valore);
        Carica_Limiti();
        QCOMPARE(int{gSimmetrico}, simmetrico);
    }

    /// Also in the variant whose main window took the other key.
    void passwordSempreDaPwd()
    {
        gLogoFile = QStringLiteral("norvo_logo.gif");
        stazione->Imposta(IMPOSTAZIONI, QStringLiteral("Pwd"), QStringLiteral("ej"));
        stazione->Imposta(IMPOSTAZIONI, QStringLiteral("Pwd2"), QStringLiteral("xx"));
        Carica_Limiti();
        gLogoFile.clear();
        QCOMPARE(gPwdCorrente, QStringLiteral("ab"));
    }

    void passwordSottoZeroFinisceIlProgramma()
    {
        stazione->Imposta(IMPOSTAZIONI, QStringLiteral("Pwd"), QStringLiteral("aaaaaaaaaaaaaaaaaaaaaaaaa"));
        QCOMPARE(Errore_Di(Carica_Limiti), 6);
    }

    /// Each beam by its own pair, and the limits themselves outside.
    void luxFraISuoiLimiti_data()
    {
        QTest::addColumn<Fascio>("fascio");
        QTest::addColumn<double>("lux");
        QTest::addColumn<bool>("regolare");
        const auto coppia = [](const char *nome, Fascio fascio, double minimo, double massimo) {
            QTest::addRow("%s, minimum", nome) << fascio << minimo << false;
            QTest::addRow("%s, above it", nome) << fascio << minimo + 1 << true;
            QTest::addRow("%s, below maximum", nome) << fascio << massimo - 1 << true;
            QTest::addRow("%s, maximum", nome) << fascio << massimo << false;
            QTest::addRow("%s, not measured", nome) << fascio << -100.0 << false;
        };
        coppia("dipped", FascioAnabbagliante, 3750, 90000);
        coppia("main", FascioAbbagliante, 20000, 150000);
    }
    void luxFraISuoiLimiti()
    {
        QFETCH(Fascio, fascio);
        QFETCH(double, lux);
        Carica_Limiti();
        QTEST(Lux_Regolare(lux, fascio), "regolare");
    }

    void limitiDiOgniFascio()
    {
        Carica_Limiti();
        const LimitiFascio anabbagliante = Limiti_Di(FascioAnabbagliante);
        const LimitiFascio abbagliante = Limiti_Di(FascioAbbagliante);
        QCOMPARE(anabbagliante.minimo, 3750);
        QCOMPARE(anabbagliante.massimo, 90000);
        QCOMPARE(abbagliante.minimo, 20000);
        QCOMPARE(abbagliante.massimo, 150000);
    }

    /// The file is read at every call: what setup saved counts at once.
    void rilettiOgniVolta()
    {
        Carica_Limiti();
        QCOMPARE(gLuxMaxAnab, 90000);
        stazione->Imposta(PARAMETRI, QStringLiteral("LuxMaxAnab"), QStringLiteral("80000"));
        Carica_Limiti();
        QCOMPARE(gLuxMaxAnab, 80000);
    }
};

QTEST_GUILESS_MAIN(tst_limiti)
#include "tst_limiti.moc"
