// What is out of order, in sentences.
#include "report/guasti.h"

#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

namespace {

constexpr RigaFar MIRE[] = {FarVertAnabDx,  FarVertAnabSx,  FarVertAbbDx,  FarVertAbbSx,
                            FarOrizzAnabDx, FarOrizzAnabSx, FarOrizzAbbDx, FarOrizzAbbSx};
constexpr RigaFar LUX[] = {FarIllumLuxAnabDx, FarIllumLuxAnabSx, FarIllumLuxAbbDx, FarIllumLuxAbbSx};

} // namespace

class tst_guasti : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init()
    {
        Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        stazione = std::make_unique<StazioneProva>();
        Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
        Carica_Limiti();
        Far_Azzera();
        for (const RigaFar riga : MIRE)
            Far_Imposta(riga, QStringLiteral("R"));
        for (const RigaFar riga : LUX)
            Far_Imposta(riga, QStringLiteral("45600"));
        Far_Imposta(FarEsito, QStringLiteral("I"));
    }
    void cleanup() { Imposta_Locale(QLocale::c()); }

    void unaFrasePerFaro_data()
    {
        QTest::addColumn<int>("riga");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("frase");
        const auto caso = [](RigaFar riga, const char *valore, const QString &frase) {
            QTest::addRow("%d %s", int{riga}, valore) << int{riga} << QString::fromLatin1(valore) << frase;
        };
        caso(FarIllumLuxAnabDx, "2100",
             QStringLiteral("Anabbagliante destro: 2,1 klx, ammesso da 3,75 a 90"));
        caso(FarIllumLuxAnabSx, "90000",
             QStringLiteral("Anabbagliante sinistro: 90 klx, ammesso da 3,75 a 90")); // the limit is outside
        caso(FarIllumLuxAnabSx, "89900", QString());
        caso(FarIllumLuxAbbDx, "20000", QStringLiteral("Abbagliante destro: 20 klx, ammesso da 20 a 150"));
        caso(FarIllumLuxAbbSx, "-100", QStringLiteral("Abbagliante sinistro: -0,1 klx, ammesso da 20 a 150"));
        caso(FarIllumLuxAbbSx, "", QString()); // not measured: nothing to compare
        caso(FarVertAnabDx, "I", QStringLiteral("Anabbagliante destro: orientamento verticale errato"));
        caso(FarOrizzAbbSx, "", QStringLiteral("Abbagliante sinistro: orientamento orizzontale errato"));
    }
    void unaFrasePerFaro()
    {
        QFETCH(int, riga);
        QFETCH(QString, valore);
        QFETCH(QString, frase);
        Far_Imposta(static_cast<RigaFar>(riga), valore);
        QCOMPARE(Guasti_Elenca(), frase.isEmpty() ? QStringList() : QStringList(frase));
    }

    /// All that is wrong with a lamp stands in its one sentence, the lamps in the order of the columns.
    void tuttoInOrdine()
    {
        Far_Imposta(FarOrizzAbbSx, QStringLiteral("I"));
        Far_Imposta(FarVertAnabDx, QStringLiteral("I"));
        Far_Imposta(FarOrizzAnabDx, QStringLiteral("I"));
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("2100"));
        QCOMPARE(
            Guasti_Elenca(),
            QStringList({QStringLiteral("Anabbagliante destro: 2,1 klx, ammesso da 3,75 a 90; orientamento "
                                        "verticale e orizzontale errato"),
                         QStringLiteral("Abbagliante sinistro: orientamento orizzontale errato")}));
    }

    void limitiInVigore()
    {
        gLuxMaxAnab = 12300;
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("12300"));
        QCOMPARE(Guasti_Elenca().value(0),
                 QStringLiteral("Anabbagliante destro: 12,3 klx, ammesso da 3,75 a 12,3"));
    }

    void regolareTace()
    {
        Far_Imposta(FarEsito, QStringLiteral("R"));
        Far_Imposta(FarVertAnabDx, QStringLiteral("I"));
        QVERIFY(Guasti_Elenca().isEmpty());
    }

    /// A workshop keeps its text file over an upgrade.
    void senzaTestiTace()
    {
        gLingua = QStringLiteral("XX");
        Far_Imposta(FarVertAnabDx, QStringLiteral("I"));
        QVERIFY(Guasti_Elenca().isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_guasti)
#include "tst_guasti.moc"
