// The evaluation: limits, verdicts, the result file of a whole test, and the end of the acceptance file.
#include "app/modApp.h"

#include "core/codici.h"
#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "link/protocollo.h"
#include "platform/errore_esecuzione.h"
#include "tests/comuni/far_prova.h"
#include "tests/comuni/locale_prova.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

namespace {

const QString FILE_ACC = QStringLiteral("12345678.ACC");
const QString FILE_FAR = QStringLiteral("DIR_FAR\\12345678.far");

/// Records of the instrument and the names of the rows that they feed.
constexpr const char *FASCI[] = {"AnabSx", "AbbSx", "AnabDx", "AbbDx"};

QString Riga(const char *nome)
{
    return Far_Valore(Far_Riga(QString::fromLatin1(nome)));
}
QString Riga(const char *inizio, const char *fascio)
{
    return Far_Valore(Far_Riga(QString::fromLatin1(inizio) + QString::fromLatin1(fascio)));
}

bool Esiste(const QString &nativo)
{
    return QFileInfo::exists(nativo);
}

} // namespace

class tst_modApp : public QObject
{
    Q_OBJECT

private:
    /// Four regular beams: a vehicle that passes.
    static void Misure_Buone()
    {
        gMisure = {
            MisuraFaro{123, QStringLiteral("O"), QStringLiteral("#")},
            MisuraFaro{456, QStringLiteral("O"), QStringLiteral("O")},
            MisuraFaro{234, QStringLiteral("#"), QStringLiteral("O")},
            MisuraFaro{567, QStringLiteral("#"), QStringLiteral("#")}
        };
    }

    std::unique_ptr<OrologioProva> orologio;
    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init()
    {
        Imposta_Locale(QLocale::c());
        orologio = std::make_unique<OrologioProva>(QDateTime(QDate(2024, 3, 5), QTime(9, 7, 8)));
        stazione = std::make_unique<StazioneProva>();
        gAltezzaFaro = 65;
        gTipoProva = ProvaConfermata;
        gRepMisure[RepInizio] = QStringLiteral("09:05:01");
        Misure_Buone();
    }
    void cleanup()
    {
        Imposta_Locale(QLocale::c());
        orologio.reset();
    }

    // --- intensity ----------------------------------------------------------------------------------------

    void limitiDellIntensita_data()
    {
        QTest::addColumn<int>("fascio"); // record of the instrument
        QTest::addColumn<qint32>("lux");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("verdetto");
        const auto riga = [](int fascio, qint32 lux, const char *verdetto) {
            QTest::addRow("%s %d", FASCI[fascio], lux)
                << fascio << lux << QString::number(lux * 100) << QString::fromLatin1(verdetto);
        };
        for (const int anabbagliante : {0, 2}) {
            riga(anabbagliante, 899, "R");
            riga(anabbagliante, 900, "I");
            riga(anabbagliante, 901, "I");
            riga(anabbagliante, 37, "I");
            riga(anabbagliante, 38, "R");
            riga(anabbagliante, 0, "I");
            riga(anabbagliante, -1, "I");
        }
        for (const int abbagliante : {1, 3}) {
            riga(abbagliante, 199, "I");
            riga(abbagliante, 200, "I");
            riga(abbagliante, 201, "R");
            riga(abbagliante, 1499, "R");
            riga(abbagliante, 1500, "I");
            riga(abbagliante, 32767, "I");
            riga(abbagliante, -1, "I");
        }
    }
    void limitiDellIntensita()
    {
        QFETCH(int, fascio);
        QFETCH(qint32, lux);
        QFETCH(QString, valore);
        QFETCH(QString, verdetto);
        gMisure[static_cast<size_t>(fascio)].Lux = lux;
        Calcola_Esito();
        QCOMPARE(Riga("IllumLux", FASCI[fascio]), valore);
        QCOMPARE(Riga("EsitoIllumLux", FASCI[fascio]), verdetto);
        QCOMPARE(Riga("Esito"), verdetto);
        // The other beams are judged for themselves.
        for (int altro = 0; altro < 4; ++altro)
            QVERIFY(altro == fascio || Riga("EsitoIllumLux", FASCI[altro]) == u"R");
    }

    void limiteMinimoEsattoIrregolare()
    {
        stazione->Imposta(QStringLiteral("PARAMETRI"), QStringLiteral("LuxMinAnab"), QStringLiteral("3800"));
        gMisure[0].Lux = 38;
        gMisure[2].Lux = 39;
        Calcola_Esito();
        QCOMPARE(Riga("EsitoIllumLuxAnabSx"), QStringLiteral("I"));
        QCOMPARE(Riga("EsitoIllumLuxAnabDx"), QStringLiteral("R"));
    }

    void fascioMaiMisurato()
    {
        gMisure.fill(MisuraFaro());
        Calcola_Esito();
        for (const char *fascio : FASCI) {
            QCOMPARE(Riga("IllumLux", fascio), QStringLiteral("-100"));
            QCOMPARE(Riga("EsitoIllumLux", fascio), QStringLiteral("I"));
            QCOMPARE(Riga("Vert", fascio), QStringLiteral("I"));
            QCOMPARE(Riga("Orizz", fascio), QStringLiteral("I"));
        }
    }

    void cifraOltre32BitFinisceIlProgramma()
    {
        gMisure[3].Lux = 21474837;
        QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calcola_Esito());
    }

    // --- aim ----------------------------------------------------------------------------------------------

    void verdettoDellaMira_data()
    {
        QTest::addColumn<QString>("carattere");
        QTest::addColumn<QString>("verdetto");
        QTest::newRow("O") << QStringLiteral("O") << QStringLiteral("R");
        QTest::newRow("#") << QStringLiteral("#") << QStringLiteral("R");
        QTest::newRow("o") << QStringLiteral("o") << QStringLiteral("I");
        QTest::newRow("zero") << QStringLiteral("0") << QStringLiteral("I");
        QTest::newRow("X") << QStringLiteral("X") << QStringLiteral("I");
        QTest::newRow("blank") << QStringLiteral(" ") << QStringLiteral("I");
        QTest::newRow("O e altro") << QStringLiteral("O ") << QStringLiteral("I");
        QTest::newRow("vuoto") << QString() << QStringLiteral("I");
    }
    /// Each of the eight characters falls on its own row, and alone decides the whole.
    void verdettoDellaMira()
    {
        QFETCH(QString, carattere);
        QFETCH(QString, verdetto);
        for (size_t i = 0; i < gMisure.size(); ++i) {
            for (const bool verticale : {true, false}) {
                Misure_Buone();
                (verticale ? gMisure[i].EsitoV : gMisure[i].EsitoO) = carattere;
                Calcola_Esito();
                QCOMPARE(Riga(verticale ? "Vert" : "Orizz", FASCI[i]), verdetto);
                QCOMPARE(Riga(verticale ? "Orizz" : "Vert", FASCI[i]), QStringLiteral("R"));
                QCOMPARE(Riga("Esito"), verdetto);
            }
        }
    }

    // --- overall ------------------------------------------------------------------------------------------

    void tutteRegolari()
    {
        Calcola_Esito();
        QCOMPARE(Riga("Esito"), QStringLiteral("R"));
    }

    /// A value of the rows 16 to 19 decides nothing by itself: with limits that let everything pass, any
    /// does.
    void iValoriNonDecidono()
    {
        for (const char16_t *chiave : {u"LuxMinAnab", u"LuxMinAbb"})
            stazione->Imposta(QStringLiteral("PARAMETRI"), QString::fromUtf16(chiave),
                              QStringLiteral("-1000"));
        gMisure[0].Lux = -1;
        gMisure[1].Lux = 0;
        Calcola_Esito();
        QCOMPARE(Riga("IllumLuxAnabSx"), QStringLiteral("-100"));
        QCOMPARE(Riga("Esito"), QStringLiteral("R"));
    }

    /// What setup saved counts at the very next evaluation.
    void limitiRilettiAOgniProva()
    {
        Calcola_Esito();
        QCOMPARE(Riga("EsitoIllumLuxAnabSx"), QStringLiteral("R"));
        stazione->Imposta(QStringLiteral("PARAMETRI"), QStringLiteral("LuxMaxAnab"), QStringLiteral("12300"));
        Calcola_Esito();
        QCOMPARE(Riga("EsitoIllumLuxAnabSx"), QStringLiteral("I"));
    }

    // --- the other rows -----------------------------------------------------------------------------------

    void simmetricoSoloNelTipo_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("tipo");
        QTest::newRow("1") << QStringLiteral("1") << QStringLiteral("#S");
        QTest::newRow("0") << QStringLiteral("0") << QStringLiteral("#A");
        QTest::newRow("2") << QStringLiteral("2") << QStringLiteral("#A");
        QTest::newRow("vuoto") << QString() << QStringLiteral("#A");
        QTest::newRow("testo") << QStringLiteral("S") << QStringLiteral("#A");
    }
    void simmetricoSoloNelTipo()
    {
        QFETCH(QString, valore);
        QFETCH(QString, tipo);
        stazione->Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Simmetrico"), valore);
        Calcola_Esito();
        QCOMPARE(Riga("TipoAnab"), tipo);
        QCOMPARE(Riga("Esito"), QStringLiteral("R"));
        QCOMPARE(gLuxMaxAnab, 90000);
    }

    void altezzaComeLaScriveIlLocale_data()
    {
        QTest::addColumn<double>("altezza");
        QTest::addColumn<bool>("virgola");
        QTest::addColumn<QString>("testo");
        QTest::newRow("intera") << 65.0 << false << QStringLiteral("#65");
        QTest::newRow("punto") << 6.5 << false << QStringLiteral("#6.5");
        QTest::newRow("virgola") << 6.5 << true << QStringLiteral("#6,5");
        QTest::newRow("zero") << 0.0 << false << QStringLiteral("#0");
        QTest::newRow("zero con il meno") << -0.0 << false << QStringLiteral("#0");
    }
    void altezzaComeLaScriveIlLocale()
    {
        QFETCH(double, altezza);
        QFETCH(bool, virgola);
        QFETCH(QString, testo);
        if (virgola)
            Imposta_Locale(QLocale(QLocale::Italian, QLocale::Italy));
        gAltezzaFaro = altezza;
        Calcola_Esito();
        QCOMPARE(Riga("AltezzaAnab"), testo);
    }

    void scadenzaPerPosizione_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("riga");
        QTest::newRow("data") << QStringLiteral("31/12/2027") << QStringLiteral("31122027");
        QTest::newRow("altri segni") << QStringLiteral("31-12.2027") << QStringLiteral("31122027");
        QTest::newRow("anno corto") << QStringLiteral("1/2/27") << QStringLiteral("1//22/27");
        QTest::newRow("parola") << QStringLiteral("mai") << QStringLiteral("mamai");
        QTest::newRow("vuota") << QString() << QString();
    }
    /// A text of another form is cut by position all the same, without complaint.
    void scadenzaPerPosizione()
    {
        QFETCH(QString, stored);
        QFETCH(QString, riga);
        stazione->Imposta(QStringLiteral("LUMIRA"), QStringLiteral("Comm_ScadRevisione"), stored);
        Calcola_Esito();
        QCOMPARE(Riga("DataScadenza"), riga);
    }

    void tempiDellaProva()
    {
        orologio->Avanza(14 * 3600 * 1000);
        Calcola_Esito();
        QCOMPARE(Riga("DataMisura"), QStringLiteral("05032024"));
        QCOMPARE(Riga("FineMisura"), QStringLiteral("230708"));
        QCOMPARE(Riga("InizioMisura"), QStringLiteral("090501"));
    }

    /// The link form notes the time in the report tables; before any session they hold a mere dash.
    void inizioSenzaOra_data()
    {
        QTest::addColumn<QString>("nota");
        QTest::newRow("trattino") << QStringLiteral("-");
        QTest::newRow("vuoto") << QString();
    }
    void inizioSenzaOra()
    {
        QFETCH(QString, nota);
        gRepMisure[RepInizio] = nota;
        Calcola_Esito();
        QCOMPARE(Riga("InizioMisura"), nota);
    }

    /// Nothing of the test before is left.
    void tabellaNuovaAOgniProva()
    {
        Calcola_Esito();
        for (VoceFar &riga : gRisultatoFar)
            riga = {QStringLiteral("x"), QStringLiteral("x")};
        Calcola_Esito();
        for (const VoceFar &riga : gRisultatoFar)
            QVERIFY(riga.Chiave != u"x" && riga.Valore != u"x");
    }

    // --- the files ----------------------------------------------------------------------------------------

    void fileDiUnaProvaIntera()
    {
        gFileAcc = stazione->Accettazione(FILE_ACC);
        stazione->Imposta(QStringLiteral("VEICOLO"), QStringLiteral("Operatore"),
                          QStringLiteral("Nicolò B."));
        stazione->Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Simmetrico"), QStringLiteral("1"));
        gMisure[1].EsitoO = QStringLiteral("X");
        gMisure[3].Lux = 1500;
        gAltezzaFaro = 6.5;
        Calcola_Esito();
        QCOMPARE(stazione->Leggi(FILE_FAR), QByteArray("[Kandelo]\r\n"
                                                       "Marca=Marca di prova\r\n"
                                                       "Tipo=QX5\r\n"
                                                       "NumOmologa=OM00000\r\n"
                                                       "NumSerie=000001\r\n"
                                                       "NumVersioneSoftware=1.0\r\n"
                                                       "DataScadenza=31122027\r\n"
                                                       "AltezzaAnab=#6.5\r\n"
                                                       "TipoAnab=#S\r\n"
                                                       "VertAnabDx=R\r\n"
                                                       "VertAnabSx=R\r\n"
                                                       "VertAbbDx=R\r\n"
                                                       "VertAbbSx=R\r\n"
                                                       "OrizzAnabDx=R\r\n"
                                                       "OrizzAnabSx=R\r\n"
                                                       "OrizzAbbDx=R\r\n"
                                                       "OrizzAbbSx=I\r\n"
                                                       "IllumLuxAnabDx=23400\r\n"
                                                       "IllumLuxAnabSx=12300\r\n"
                                                       "IllumLuxAbbDx=150000\r\n"
                                                       "IllumLuxAbbSx=45600\r\n"
                                                       "EsitoIllumLuxAnabDx=R\r\n"
                                                       "EsitoIllumLuxAnabSx=R\r\n"
                                                       "EsitoIllumLuxAbbDx=I\r\n"
                                                       "EsitoIllumLuxAbbSx=R\r\n"
                                                       "Esito=I\r\n"
                                                       "CodErrore=\r\n"
                                                       "DataMisura=05032024\r\n"
                                                       "InizioMisura=090501\r\n"
                                                       "FineMisura=090708\r\n"
                                                       "Operatore=Nicol\xF2 B.\r\n"));
    }

    void fineDelFileDiAccettazione_data()
    {
        QTest::addColumn<Flag>("modalita");
        QTest::addColumn<qint16>("tipoProva");
        QTest::addColumn<bool>("resta");
        QTest::newRow("locale, veicolo confermato") << Vero << qint16{4} << false;
        QTest::newRow("locale, altro inizio") << Vero << qint16{2} << true;
        QTest::newRow("rete") << Falso << qint16{4} << true;
        QTest::newRow("rete, altro inizio") << Falso << qint16{2} << true;
    }
    void fineDelFileDiAccettazione()
    {
        QFETCH(Flag, modalita);
        QFETCH(qint16, tipoProva);
        QFETCH(bool, resta);
        gFileAcc = stazione->Accettazione(FILE_ACC);
        gModalita = modalita;
        gTipoProva = tipoProva;
        Calcola_Esito();
        QVERIFY(!stazione->Leggi(FILE_FAR).isEmpty());
        QCOMPARE(Esiste(stazione->Nativo(QStringLiteral("DIR_FAR\\") + FILE_ACC)), resta);
    }

    /// The list writes the name in capitals; the file may have it in any.
    void fileConAltreMaiuscole()
    {
        stazione->Accettazione(QStringLiteral("12345678.acc"));
        gFileAcc = gDirAcc + FILE_ACC;
        Calcola_Esito();
        QVERIFY(!stazione->Leggi(FILE_FAR).isEmpty());
        QVERIFY(!Esiste(stazione->Nativo(QStringLiteral("DIR_FAR\\12345678.acc"))));
    }

    void accettazioneSparitaNelFrattempo()
    {
        gFileAcc = gDirAcc + FILE_ACC;
        Calcola_Esito();
        QVERIFY(!stazione->Leggi(FILE_FAR).isEmpty());
    }

    void senzaAccettazioneNullaScrittoNullaTolto()
    {
        stazione->Accettazione(FILE_ACC);
        gFileAcc.clear();
        Calcola_Esito();
        QCOMPARE(Riga("Esito"), QStringLiteral("R"));
        const QStringList file =
            QDir(stazione->Nativo(QStringLiteral("DIR_FAR"))).entryList(QDir::Files | QDir::Hidden);
        QCOMPARE(file, QStringList(FILE_ACC));
    }

    /// The acceptance file goes only after its result has been written.
    void risultatoNonScrittoAccettazioneResta()
    {
        gFileAcc = stazione->Accettazione(FILE_ACC);
        gDirAcc = stazione->Percorso(QStringLiteral("manca\\"));
        QVERIFY_THROWS_EXCEPTION(ErroreEsecuzione, Calcola_Esito());
        QVERIFY(Esiste(stazione->Nativo(QStringLiteral("DIR_FAR\\") + FILE_ACC)));
    }
};

QTEST_GUILESS_MAIN(tst_modApp)
#include "tst_modApp.moc"
