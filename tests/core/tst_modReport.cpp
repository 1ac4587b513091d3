// The report tables, stage by stage, and the sections of the configuration file with their labels.
#include "core/modReport.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/comuni/testi_prova.h"

#include <QTest>

namespace {

/// All eight tables in one list, to compare.
QStringList Tabelle()
{
    QStringList tutte;
    const auto aggiungi = [&tutte](const auto &tabella) {
        for (const QString &testo : tabella)
            tutte.append(testo);
    };
    aggiungi(gRepMisure);
    aggiungi(gRepOfficina);
    aggiungi(gRepTitoli);
    aggiungi(gRepStrumentoEt);
    aggiungi(gRepStrumentoVal);
    aggiungi(gRepVeicoloEt);
    aggiungi(gRepVeicoloVal);
    aggiungi(gRepVoci);
    return tutte;
}

constexpr qsizetype ELEMENTI = 17 + 5 + 5 + 5 + 5 + 5 + 5 + 10;

void Riempi_Tabelle(const QString &testo)
{
    gRepMisure.fill(testo);
    gRepVoci.fill(testo);
    for (auto *tabella :
         {&gRepOfficina, &gRepTitoli, &gRepStrumentoEt, &gRepStrumentoVal, &gRepVeicoloEt, &gRepVeicoloVal})
        tabella->fill(testo);
}

template <size_t N>
QStringList Lista(const std::array<QString, N> &tabella)
{
    return QStringList(tabella.begin(), tabella.end());
}

QStringList Testi(qint16 da, qint16 a)
{
    QStringList testi;
    for (qint16 id = da; id <= a; ++id)
        testi.append(Testo_Lingua(Id_Lingua(id)));
    return testi;
}

} // namespace

class tst_modReport : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<OrologioProva> orologio;
    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init()
    {
        orologio = std::make_unique<OrologioProva>(QDateTime(QDate(2024, 3, 5), QTime(9, 7, 8)));
        stazione = std::make_unique<StazioneProva>();
        gTipoProva = ProvaConfermata;
        gSimmetrico = 0;
        Far_Azzera();
        Riempi_Tabelle(QStringLiteral("prima"));
    }
    void cleanup() { orologio.reset(); }

    void stadio0TuttoTrattini()
    {
        Report_Dati(0);
        QCOMPARE(Tabelle(), QStringList(ELEMENTI, QStringLiteral("-")));
    }

    void stadio1SoloDataEInizio()
    {
        Report_Dati(1);
        QCOMPARE(gRepMisure[13], QStringLiteral("05-03-2024"));
        QCOMPARE(gRepMisure[14], QStringLiteral("09:07:08"));
        QCOMPARE(Tabelle().count(QStringLiteral("prima")), ELEMENTI - 2);
    }

    void oreDelPomeriggio()
    {
        orologio->Avanza(6 * 3600 * 1000);
        Report_Dati(1);
        QCOMPARE(gRepMisure[14], QStringLiteral("15:07:08"));
    }

    void stadio2Misure()
    {
        Far_Imposta(FarIllumLuxAnabDx, QStringLiteral("23400"));
        Far_Imposta(FarIllumLuxAnabSx, QStringLiteral("12300"));
        Far_Imposta(FarIllumLuxAbbDx, QStringLiteral("150000"));
        Far_Imposta(FarIllumLuxAbbSx, QStringLiteral("-100"));
        Report_Dati(2);
        const QString prima = QStringLiteral("prima");
        const QStringList attese = {
            Testo_Lingua(Id_Lingua(38)), QString(), QString(), QString(), QString(), QStringLiteral("23400"),
            QStringLiteral("12300"),     QString(), QString(), QString(), QString(), QStringLiteral("150000"),
            QStringLiteral("-100"),      prima,     prima,     prima,     prima};
        QCOMPARE(Lista(gRepMisure), attese);
        QCOMPARE(Tabelle().count(prima), ELEMENTI - 13);
    }

    void stadio2TipoDelFaro()
    {
        gSimmetrico = 1;
        Report_Dati(2);
        QCOMPARE(gRepMisure[0], Testo_Lingua(Id_Lingua(37)));
        QCOMPARE(gRepMisure[0], QStringLiteral("Simmetrico"));
    }

    void stadio3OfficinaStrumentoTitoli()
    {
        Report_Dati(3);
        QCOMPARE(gRepMisure[15], QStringLiteral("09:07:08"));
        QCOMPARE(Lista(gRepOfficina),
                 QStringList({QStringLiteral("Officina di prova"), QStringLiteral("Via dell'Artigianato 1"),
                              QStringLiteral("00100 Roma RM"), QStringLiteral("06 0000000"),
                              QStringLiteral("www.officina.example")}));
        QCOMPARE(Lista(gRepStrumentoEt),
                 QStringList({QStringLiteral("Marca"), QStringLiteral("Modello"),
                              QStringLiteral("N. omologazione"), QStringLiteral("N. serie"),
                              QStringLiteral("Scadenza verifica")}));
        QCOMPARE(
            Lista(gRepStrumentoVal),
            QStringList({QStringLiteral("Marca di prova"), QStringLiteral("QX5"), QStringLiteral("OM00000"),
                         QStringLiteral("000001"), QStringLiteral("31/12/2027")}));
        QCOMPARE(Lista(gRepVeicoloEt),
                 QStringList({QStringLiteral("Marca"), QStringLiteral("Modello"), QStringLiteral("Targa"),
                              QStringLiteral("Telaio"), QStringLiteral("Anno immatric.")}));
        QCOMPARE(Lista(gRepTitoli), Testi(43, 47));
        QCOMPARE(Lista(gRepVoci), Testi(48, 57));
    }

    void veicoloEOperatorePerTipoDiProva_data()
    {
        QTest::addColumn<qint16>("tipoProva");
        QTest::addColumn<bool>("dalFile");
        QTest::addColumn<QString>("operatore");
        const QString scritto = QStringLiteral("Rossi Mario");
        QTest::newRow("1") << qint16{1} << false << scritto;
        QTest::newRow("2") << qint16{2} << false << QStringLiteral("Bianchi Anna");
        QTest::newRow("3") << qint16{3} << false << scritto;
        QTest::newRow("4") << qint16{4} << true << scritto;
    }
    void veicoloEOperatorePerTipoDiProva()
    {
        QFETCH(qint16, tipoProva);
        QFETCH(bool, dalFile);
        QFETCH(QString, operatore);
        gTipoProva = tipoProva;
        gFileAcc = stazione->Accettazione(QStringLiteral("12345678.acc"));
        for (const char16_t *chiave : {u"Marca", u"Modello", u"Targa", u"Telaio", u"AnnoImm"})
            stazione->Imposta(QStringLiteral("VEICOLO"), QString::fromUtf16(chiave),
                              QStringLiteral("a mano ") + QString::fromUtf16(chiave));
        Report_Dati(3);
        const QStringList aMano = {QStringLiteral("a mano Marca"), QStringLiteral("a mano Modello"),
                                   QStringLiteral("a mano Targa"), QStringLiteral("a mano Telaio"),
                                   QStringLiteral("a mano AnnoImm")};
        const QStringList libretto = {QStringLiteral("FABBRICA DI PROVA"), QStringLiteral("BERLINA 1.6"),
                                      QStringLiteral("AB123CD"), QStringLiteral("ZZZ00000000000001"),
                                      QStringLiteral("2018")};
        QCOMPARE(Lista(gRepVeicoloVal), dalFile ? libretto : aMano);
        QCOMPARE(gRepMisure[16], operatore);
    }

    void senzaFileVeicoloVuoto_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("prova a mano") << QString();
        QTest::newRow("file tolto a fine prova") << QStringLiteral("DIR_FAR\\12345678.acc");
    }
    /// After the confirmation the vehicle comes from the file alone, the operator from the configuration.
    void senzaFileVeicoloVuoto()
    {
        QFETCH(QString, file);
        gFileAcc = file.isEmpty() ? file : stazione->Percorso(file);
        stazione->Imposta(QStringLiteral("VEICOLO"), QStringLiteral("Marca"), QStringLiteral("FIAT"));
        Report_Dati(3);
        QCOMPARE(Lista(gRepVeicoloVal), QStringList(5, QString()));
        QCOMPARE(gRepVeicoloEt[0], QStringLiteral("Marca"));
        QCOMPARE(gRepMisure[16], QStringLiteral("Rossi Mario"));
    }

    /// Printing again: only the end time is another.
    void secondaStampaAltraFine()
    {
        Report_Dati(0);
        Report_Dati(1);
        Report_Dati(2);
        Report_Dati(3);
        QStringList prima = Tabelle();
        orologio->Avanza(61000);
        Report_Dati(2);
        Report_Dati(3);
        QCOMPARE(gRepMisure[15], QStringLiteral("09:08:09"));
        prima[15] = gRepMisure[15];
        QCOMPARE(Tabelle(), prima);
    }

    void stadioSconosciutoNonToccaNulla_data()
    {
        QTest::addColumn<int>("stadio");
        QTest::newRow("4") << 4;
        QTest::newRow("255") << 255;
    }
    void stadioSconosciutoNonToccaNulla()
    {
        QFETCH(int, stadio);
        Report_Dati(static_cast<quint8>(stadio));
        QCOMPARE(Tabelle(), QStringList(ELEMENTI, QStringLiteral("prima")));
    }

    // --- sections -----------------------------------------------------------------------------------------

    void chiaviDelleSezioni_data()
    {
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiavi");
        QTest::addColumn<QList<int>>("etichette");
        QTest::newRow("OFFICINA") << QStringLiteral("OFFICINA")
                                  << QStringLiteral("Denominazione,Indirizzo,Localita,TelFax,Web")
                                  << QList<int>{19, 20, 21, 22, 23};
        QTest::newRow("LUMIRA")
            << QStringLiteral("LUMIRA")
            << QStringLiteral("Comm_Marca,Comm_Modello,Comm_NOmologazione,Comm_NSerie,Comm_ScadRevisione")
            << QList<int>{25, 24, 26, 27, 28};
        QTest::newRow("IMPOSTAZIONI")
            << QStringLiteral("IMPOSTAZIONI") << QStringLiteral("Lingua") << QList<int>{30};
        QTest::newRow("VEICOLO") << QStringLiteral("VEICOLO")
                                 << QStringLiteral("Marca,Modello,Targa,Telaio,AnnoImm,Operatore")
                                 << QList<int>{25, 24, 39, 40, 41, 29};
    }
    void chiaviDelleSezioni()
    {
        QFETCH(QString, sezione);
        QFETCH(QString, chiavi);
        QFETCH(QList<int>, etichette);
        const QStringList nomi = chiavi.split(u',');
        for (const QString &nome : nomi)
            stazione->Imposta(sezione, nome, QStringLiteral("valore di ") + nome);
        QList<VoceSezione> voci(20, {QStringLiteral("x"), QStringLiteral("x"), QStringLiteral("x")});
        QCOMPARE(int{Leggi_Sezione(sezione, voci)}, nomi.size() - 1);
        QCOMPARE(voci.size(), nomi.size());
        for (qsizetype i = 0; i < voci.size(); ++i) {
            QCOMPARE(voci[i].Chiave, nomi[i]);
            QCOMPARE(voci[i].Valore, QStringLiteral("valore di ") + nomi[i]);
            QCOMPARE(voci[i].Etichetta, gTabLingua[etichette[i]]);
            QVERIFY(!voci[i].Etichetta.isEmpty());
        }
    }

    void sezioneSconosciutaUnaVoceVuota()
    {
        for (const QString &sezione : {QStringLiteral("COMM"), QString()}) {
            QList<VoceSezione> voci(3, {QStringLiteral("x"), QStringLiteral("x"), QStringLiteral("x")});
            QCOMPARE(Leggi_Sezione(sezione, voci), qint16{0});
            QCOMPARE(voci.size(), 1);
            QVERIFY(voci[0].Chiave.isEmpty() && voci[0].Valore.isEmpty() && voci[0].Etichetta.isEmpty());
        }
    }

    void chiaveMancanteValoreVuoto()
    {
        stazione->Scrivi(QStringLiteral("lumira.ini"), "[OFFICINA]\r\nWeb=w\r\n");
        QList<VoceSezione> voci;
        QCOMPARE(Leggi_Sezione(QStringLiteral("OFFICINA"), voci), qint16{4});
        QCOMPARE(voci[0].Valore, QString());
        QCOMPARE(voci[0].Etichetta, QStringLiteral("Denominazione"));
        QCOMPARE(voci[4].Valore, QStringLiteral("w"));
    }
};

QTEST_GUILESS_MAIN(tst_modReport)
#include "tst_modReport.moc"
