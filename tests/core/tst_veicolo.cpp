// The vehicle in hand.
#include "core/veicolo.h"

#include "core/modGeneral.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QTest>

class tst_veicolo : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StazioneProva> stazione;

    QString File(const QByteArray &chiavi) const
    {
        stazione->Scrivi(QStringLiteral("v.acc"), "[DatiLibrettoVeicolo]\r\n" + chiavi);
        return stazione->Percorso(QStringLiteral("v.acc"));
    }

private Q_SLOTS:
    void init() { stazione = std::make_unique<StazioneProva>(); }

    void legge_data()
    {
        QTest::addColumn<QByteArray>("chiavi");
        QTest::addColumn<QString>("targa");
        QTest::addColumn<QString>("descrizione");
        QTest::newRow("intero") << QByteArray("Targa=AB123CD\r\nFabbrica=MARCA\r\nTipo=BERLINA 1.6\r\n")
                                << QStringLiteral("AB123CD") << QStringLiteral("MARCA BERLINA 1.6");
        QTest::newRow("senza marca") << QByteArray("Targa=AB123CD\r\nTipo=BERLINA\r\n")
                                     << QStringLiteral("AB123CD") << QStringLiteral("BERLINA");
        QTest::newRow("senza modello") << QByteArray("Targa=AB123CD\r\nFabbrica=MARCA\r\n")
                                       << QStringLiteral("AB123CD") << QStringLiteral("MARCA");
        QTest::newRow("senza niente") << QByteArray() << QString() << QString();
    }
    void legge()
    {
        QFETCH(QByteArray, chiavi);
        const VeicoloInMano veicolo = Veicolo_Leggi(File(chiavi));
        QTEST(veicolo.Targa, "targa");
        QTEST(veicolo.Descrizione, "descrizione");
    }

    void senzaFile()
    {
        QVERIFY(Veicolo_Leggi(QString()).Targa.isEmpty());
        QVERIFY(Veicolo_Leggi(stazione->Percorso(QStringLiteral("manca.acc"))).Targa.isEmpty());
    }

    /// It outlives the file, and goes with the next test that has none.
    void restaDopoIlFile()
    {
        gFileAcc = File("Targa=AB123CD\r\n");
        Veicolo_Prendi();
        QVERIFY(QFile::remove(stazione->Nativo(QStringLiteral("v.acc"))));
        QCOMPARE(gVeicolo.Targa, QStringLiteral("AB123CD"));
        gFileAcc.clear();
        Veicolo_Prendi();
        QVERIFY(gVeicolo.Targa.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_veicolo)
#include "tst_veicolo.moc"
