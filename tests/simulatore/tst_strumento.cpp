// The instrument without a line: every reply and every fault, to the byte.
#include "simulatore/strumento.h"

#include "core/parole.h"
#include "link/protocollo.h"
#include "tests/simulatore/byte_prova.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

constexpr char TRE_VEICOLI[] = "[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=0001OO\n"
                               "[VEICOLO2]\nRiposo=1\nProva=0\nAnabSx=0002OO\n"
                               "[VEICOLO3]\nRiposo=1\nProva=0\nAnabSx=0003OO\n";

constexpr char IDENTITA[] =
    "[DATI]\nComm_Modello=QX5\nComm_Marca=Prova\nComm_NOmologazione=OM1\nComm_NSerie=7\n"
    "Comm_ScadRevisione=31/12/2030\nOperatore=Ugo\n"
    "[TARATURA]\nMaxManopola=0\nMinManopola=1\nS1=2\nS2=3\nS3=4\nS4=5\nS5=6\nS6=7\nS7=8\n"
    "S8=9\n";

const QByteArray DATI_INIZIALI =
    Byte("02 41 42 43 55 51 58 35 17 50 72 6F 76 61 17 4F 4D 31 17 37 17 33 31 2F 31 "
         "32 2F 32 30 33 30 17 55 67 6F 17 36 03");
const QByteArray TARATURA_INIZIALE =
    Byte("02 41 42 43 30 17 31 17 32 17 33 17 34 17 35 17 36 17 37 17 38 17 39 17 37 03");

/// Five texts: QX5, Nuova, OM2, 8, 01/02/2031.
const QByteArray SCRIVI_DATI1 =
    Byte("02 41 42 43 60 51 58 35 17 4E 75 6F 76 61 17 4F 4D 32 17 38 17 30 31 2F 30 32 "
         "2F 32 30 33 31 17 31 03");
/// The sixth: AB.
const QByteArray SCRIVI_DATI2 = Byte("02 41 42 43 80 41 42 17 00 36 03");
const QByteArray SCRIVI_DATI2_VUOTO = Byte("02 41 42 43 80 00 32 03");
/// What is read back after both.
const QByteArray DATI_SCRITTI =
    Byte("02 41 42 43 55 51 58 35 17 4E 75 6F 76 61 17 4F 4D 32 17 38 17 30 31 2F 30 32 "
         "2F 32 30 33 31 17 41 42 17 34 03");
/// Ten texts: 10 to 19.
const QByteArray SCRIVI_TARATURA =
    Byte("02 41 42 43 A0 31 30 17 31 31 17 31 32 17 31 33 17 31 34 17 31 35 17 31 36 "
         "17 31 37 17 31 38 17 31 39 17 39 03");

/// An instrument with a scenario and a state file of its own.
class Banchetto
{
public:
    explicit Banchetto(const QByteArray &scenario = {}) { Scrivi(scenario), Accendi(); }

    void Scrivi(const QByteArray &scenario) const
    {
        QFile file(Scenario_Percorso());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(scenario), scenario.size());
    }
    void Accendi(const QString &stato = QStringLiteral("stato.ini"))
    {
        m_strumento = std::make_unique<Strumento>(Scenario_Percorso(), m_cartella.filePath(stato), 1U,
                                                  [this](const QString &riga) { registro.append(riga); });
    }
    Strumento &operator*() const { return *m_strumento; }

    QList<Invio> Manda(const QByteArray &byte) const { return m_strumento->Ricevi(byte); }
    /// The bytes of all that goes out, whatever its delay.
    QByteArray Chiedi(const QByteArray &byte) const
    {
        QByteArray risposta;
        for (const Invio &invio : Manda(byte))
            risposta += invio.byte;
        return risposta;
    }
    /// Polls up to "4" and fetches the measure. @return the figure of the left dipped beam.
    QByteArray Misura_Prendi() const
    {
        for (int n = 0; n < 100; ++n) {
            if (Chiedi(STATO) == PRONTA)
                return Chiedi(MISURA).mid(4, 4);
        }
        return "mai";
    }

    QStringList registro;

private:
    QString Scenario_Percorso() const { return m_cartella.filePath(QStringLiteral("scenario.ini")); }

    QTemporaryDir m_cartella;
    std::unique_ptr<Strumento> m_strumento;
};

/// Pieces as "delay:hexadecimal", or "delay:via ms" for a hang-up.
QStringList In_Testo(const QList<Invio> &invii)
{
    QStringList pezzi;
    for (const Invio &invio : invii)
        pezzi.append(
            QString::number(invio.ritardo) + u':' +
            (invio.riaggancio < 0 ? Trama_Hex(invio.byte) : QStringLiteral("via %1").arg(invio.riaggancio)));
    return pezzi;
}

BufferRx Buffer_Con(const QByteArray &trama)
{
    Assemblatore assemblatore;
    for (const char byte : trama)
        assemblatore.Aggiungi(static_cast<quint8>(byte));
    return assemblatore.BufRx;
}

} // namespace

class tst_strumento : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    // --- status ---------------------------------------------------------------------------------------
    void interrogazioniFinoAllaMisura_data();
    void interrogazioniFinoAllaMisura();
    void ritardoDelloScenario();

    // --- measure --------------------------------------------------------------------------------------
    void misuraAlByte();
    void misuraLettaDallaStazione();
    void misuraChiestaDiNuovo();
    void misuraPrimaDelTempoSenzaRisposta();
    void veicoliInOrdineEPoiLUltimo();
    void veicoliDaCapo();
    void giornataSenzaVeicoli();

    // --- by hand --------------------------------------------------------------------------------------
    void statoDelVeicolo();
    void statoMessoAMano_data();
    void statoMessoAMano();
    void statoFermo();
    void statoMessoDopoLaMisura();
    void recordFissati();
    void recordFissatiDopoLaMisuraPresa();
    void guastiMessiAMano();

    // --- identity and calibration ---------------------------------------------------------------------
    void datiAlByte();
    void taraturaAlByte();
    void testiDiFabbrica();
    void scritturaDatiCambiaLaLettura();
    void scritturaSenzaSestoTestoLasciaLOperatore();
    void scritturaTaratura();
    void scritturaDiPochiTestiLasciaGliAltri();
    void testiScrittiRestanoDopoLoSpegnimento();
    void testoVuotoScrittoRestaVuoto();
    void testiConBianchiVirgoletteEAccenti();
    void caratteriDiControlloNonRomponoIlFile();
    void statoCheNonSiScrive();
    void testiOltreLaStazioneAnnotati();
    void datiNonConsumanoInterrogazioni();

    // --- frames of the station ------------------------------------------------------------------------
    void comandoErratoSenzaRisposta_data();
    void comandoErratoSenzaRisposta();
    void comandoSpezzato();
    void dueComandiInUnaVolta();
    void rumoreTraITrameScartato();
    void inizioDentroLaTramaEUnByteQualsiasi();
    void tramaSenzaFineAbbandonata();
    void lineaLasciataScordaIlComandoAMeta();
    void registroDiOgniTrama();

    // --- faults ---------------------------------------------------------------------------------------
    void guastoAlByte_data();
    void guastoAlByte();
    void generePerOgniComando_data();
    void generePerOgniComando();
    void genereErratoConControlloGiusto();
    void tramaLungaNonStaNellaStazione();
    void unitaParteConLaSeguente();
    void unitaNonPassaAllaSessioneDopo();
    void volteContateNelVeicolo();
    void volteAIntervallo();
    void guastoDelVeicoloPrimaDiQuelliDiTutti();
    void guastoDiUnSoloVeicolo();
    void scritturaAvvenutaSottoGuasto();

    // --- the scenario changes while the instrument runs --------------------------------------------------
    void scenarioRilettoAOgniMisura();
    void scenarioRilettoQuandoLaStazioneChiudeARiposo();
    void scenarioNonRilettoAMisuraIncominciata();
    void scenarioErratoLasciaIlPrecedente();
};

void tst_strumento::interrogazioniFinoAllaMisura_data()
{
    QTest::addColumn<QByteArray>("scenario");
    QTest::addColumn<QByteArray>("stati");

    QTest::newRow("riposo, prova, pronta")
        << QByteArray("[VEICOLO1]\nRiposo=2\nProva=3\n") << QByteArray("112224444");
    QTest::newRow("senza prova") << QByteArray("[VEICOLO1]\nRiposo=1\nProva=0\n") << QByteArray("144");
    QTest::newRow("senza riposo") << QByteArray("[VEICOLO1]\nRiposo=0\nProva=1\n") << QByteArray("244");
    QTest::newRow("subito pronta") << QByteArray("[VEICOLO1]\nRiposo=0\nProva=0\n") << QByteArray("44");
    QTest::newRow("predefiniti") << QByteArray("[VEICOLO1]\nAnabSx=0100OO\n") << QByteArray("111222224");
}

void tst_strumento::interrogazioniFinoAllaMisura()
{
    QFETCH(QByteArray, scenario);
    QFETCH(QByteArray, stati);
    const Banchetto banco(scenario);
    const QHash<char, QByteArray> risposte = {
        {'1', A_RIPOSO},
        {'2', IN_PROVA},
        {'4', PRONTA  }
    };
    for (const char stato : stati)
        QCOMPARE(banco.Chiedi(STATO), risposte.value(stato));
}

void tst_strumento::ritardoDelloScenario()
{
    const Banchetto banco("[GENERALE]\nRitardo=120\n");
    const QList<Invio> invii = banco.Manda(STATO);
    QCOMPARE(invii.size(), 1);
    QCOMPARE(invii.first().ritardo, 120);
    QCOMPARE(Banchetto().Manda(STATO).first().ritardo, 40);
}

void tst_strumento::misuraAlByte()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=0\nProva=0\n"
                          "AnabSx=0123OO\nAbbSx=0456OO\nAnabDx=0125AO\nAbbDx=0460OS\n");
    QCOMPARE(banco.Chiedi(STATO), PRONTA);
    QCOMPARE(banco.Chiedi(MISURA),
             Byte("02 41 42 43 30 31 32 33 4F 4F 30 34 35 36 4F 4F 30 31 32 35 41 4F 30 34 36 "
                  "30 4F 53 33 03"));
}

void tst_strumento::misuraLettaDallaStazione()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=0\nProva=0\n"
                          "AnabSx=0123OO\nAbbSx=0456O#\nAnabDx=0125AO\nAbbDx=9999OS\n");
    banco.Chiedi(STATO);
    const BufferRx risposta = Buffer_Con(banco.Chiedi(MISURA));
    QVERIFY(Risposta_Valida(risposta));
    QStringList righe;
    Leggi_Misura(risposta, [&righe](const QString &riga) { righe.append(riga); });
    QCOMPARE(righe.join(u' '),
             QStringLiteral("L0=123 V0=O O0=O L1=456 V1=O O1=# L2=125 V2=A O2=O L3=9999 V3=O O3=S"));
}

void tst_strumento::misuraChiestaDiNuovo()
{
    const Banchetto banco(TRE_VEICOLI);
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0001"));
    QCOMPARE(banco.Chiedi(MISURA).mid(4, 4), QByteArray("0001"));
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0002"));
}

void tst_strumento::misuraPrimaDelTempoSenzaRisposta()
{
    const Banchetto banco(TRE_VEICOLI);
    QVERIFY(banco.Manda(MISURA).isEmpty());
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    QVERIFY(banco.Manda(MISURA).isEmpty());
    QCOMPARE(banco.Chiedi(STATO), PRONTA);
    QCOMPARE(banco.Chiedi(MISURA).size(), 30);
}

void tst_strumento::veicoliInOrdineEPoiLUltimo()
{
    const Banchetto banco(TRE_VEICOLI);
    for (const char *lux : {"0001", "0002", "0003", "0003", "0003"})
        QCOMPARE(banco.Misura_Prendi(), QByteArray(lux));
}

void tst_strumento::veicoliDaCapo()
{
    const Banchetto banco(QByteArray("[GENERALE]\nRicomincia=1\n") + TRE_VEICOLI);
    for (const char *lux : {"0001", "0002", "0003", "0001", "0002"})
        QCOMPARE(banco.Misura_Prendi(), QByteArray(lux));
}

void tst_strumento::giornataSenzaVeicoli()
{
    const Banchetto banco;
    Giornata giornata(1);
    for (int n = 0; n < 5; ++n)
        QCOMPARE(banco.Misura_Prendi(), giornata.Prossimo().record[0].first(4));
}

void tst_strumento::datiAlByte()
{
    QCOMPARE(Banchetto(IDENTITA).Chiedi(LEGGI_DATI), DATI_INIZIALI);
}

void tst_strumento::taraturaAlByte()
{
    QCOMPARE(Banchetto(IDENTITA).Chiedi(LEGGI_TARATURA), TARATURA_INIZIALE);
}

void tst_strumento::testiDiFabbrica()
{
    const Banchetto banco;
    QStringList testi;
    const auto niente = [](const QString &) {};
    Leggi_Testi(Buffer_Con(banco.Chiedi(LEGGI_DATI)), 5, testi, niente);
    QCOMPARE(testi.first(6), QStringList({QStringLiteral("QX5"), QStringLiteral("Strumenti Prova"),
                                          QStringLiteral("OM00123"), QStringLiteral("000042"),
                                          QStringLiteral("30/06/2030"), QStringLiteral("Rossi Mario")}));
    Leggi_Testi(Buffer_Con(banco.Chiedi(LEGGI_TARATURA)), 4, testi, niente);
    QCOMPARE(testi.first(10).join(u' '), QStringLiteral("1012 8 101 102 103 104 105 106 107 108"));
}

void tst_strumento::scritturaDatiCambiaLaLettura()
{
    const Banchetto banco(IDENTITA);
    QCOMPARE(banco.Chiedi(SCRIVI_DATI1), SCRITTO);
    QCOMPARE(banco.Chiedi(SCRIVI_DATI2), SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_SCRITTI);
    QCOMPARE(banco.Chiedi(LEGGI_TARATURA), TARATURA_INIZIALE);
}

void tst_strumento::scritturaSenzaSestoTestoLasciaLOperatore()
{
    const Banchetto banco(IDENTITA);
    QCOMPARE(banco.Chiedi(SCRIVI_DATI2_VUOTO), SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_INIZIALI);
}

void tst_strumento::scritturaTaratura()
{
    const Banchetto banco(IDENTITA);
    QCOMPARE(banco.Chiedi(SCRIVI_TARATURA), SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_TARATURA).chopped(2),
             Byte("02 41 42 43") + SCRIVI_TARATURA.sliced(5).chopped(2));
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_INIZIALI);
}

void tst_strumento::scritturaDiPochiTestiLasciaGliAltri()
{
    const Banchetto banco(IDENTITA);
    // QX6 and its separator; "Altra" has none and is no text.
    QCOMPARE(banco.Chiedi(Byte("02 41 42 43 60 51 58 36 17 41 6C 74 72 61 38 03")), SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_DATI),
             Byte("02 41 42 43 55 51 58 36 17 50 72 6F 76 61 17 4F 4D 31 17 37 17 33 31 2F "
                  "31 32 2F 32 30 33 30 17 55 67 6F 17 37 03"));
}

void tst_strumento::testiScrittiRestanoDopoLoSpegnimento()
{
    Banchetto banco(IDENTITA);
    banco.Chiedi(SCRIVI_DATI1);
    banco.Chiedi(SCRIVI_DATI2);
    banco.Accendi();
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_SCRITTI);
}

void tst_strumento::testoVuotoScrittoRestaVuoto()
{
    const Banchetto banco(IDENTITA);
    QCOMPARE(banco.Chiedi(Byte("02 41 42 43 80 17 00 35 03")), SCRITTO);
    QVERIFY(banco.Chiedi(LEGGI_DATI).chopped(2).endsWith(Byte("33 30 17 17")));
}

void tst_strumento::testiConBianchiVirgoletteEAccenti()
{
    const Banchetto banco(IDENTITA);
    // The texts: blank, quotes and blank; the euro sign; single quotes; nothing; a semicolon and an equals
    // sign.
    QCOMPARE(banco.Chiedi(
                 Byte("02 41 42 43 60 20 22 61 22 20 17 80 75 72 6F 17 27 62 27 17 17 63 3B 64 3D 65 17 30 "
                      "03")),
             SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_DATI),
             Byte("02 41 42 43 55 20 22 61 22 20 17 80 75 72 6F 17 27 62 27 17 17 63 3B 64 "
                  "3D 65 17 55 67 6F 17 35 03"));
}

void tst_strumento::caratteriDiControlloNonRomponoIlFile()
{
    const Banchetto banco(IDENTITA);
    // The first text holds a line end and what would be the next key.
    QCOMPARE(banco.Chiedi(Byte("02 41 42 43 60 61 0D 0A 62 3D 63 17 17 17 17 17 31 03")), SCRITTO);
    QVERIFY(banco.Chiedi(LEGGI_DATI)
                .startsWith(Byte("02 41 42 43 55 61 3F 3F 62 3D 63 17 17 17 17 17 55 67 6F 17")));
}

void tst_strumento::statoCheNonSiScrive()
{
    Banchetto banco(IDENTITA);
    banco.Accendi(QStringLiteral("manca/stato.ini"));
    QCOMPARE(banco.Chiedi(SCRIVI_DATI1), NON_SCRITTO);
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_INIZIALI);
}

void tst_strumento::testiOltreLaStazioneAnnotati()
{
    const Banchetto banco("[DATI]\nComm_Marca=" + QByteArray(100, 'm') + '\n');
    const QList<Invio> invii = banco.Manda(LEGGI_DATI);
    QVERIFY(invii.first().byte.size() > LUNGHEZZA_RX);
    QVERIFY(invii.first().nota.contains(QStringLiteral("la stazione ne tiene 106")));
    QVERIFY(!Banchetto().Manda(LEGGI_DATI).first().nota.contains(QStringLiteral("la stazione")));
}

void tst_strumento::datiNonConsumanoInterrogazioni()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=2\nProva=0\n");
    for (int sessione = 0; sessione < 5; ++sessione) {
        QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
        QVERIFY(!banco.Chiedi(LEGGI_DATI).isEmpty());
        QVERIFY(!banco.Chiedi(LEGGI_TARATURA).isEmpty());
    }
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    QCOMPARE(banco.Chiedi(STATO), PRONTA);
    // A measure that is ready stays ready.
    QVERIFY(!banco.Chiedi(LEGGI_DATI).isEmpty());
    QCOMPARE(banco.Chiedi(STATO), PRONTA);
}

void tst_strumento::comandoErratoSenzaRisposta_data()
{
    QTest::addColumn<QByteArray>("trama");
    QTest::addColumn<QString>("motivo");

    QTest::newRow("controllo errato") << Byte("02 41 42 43 10 37 03") << QStringLiteral("atteso \"6\"");
    QTest::newRow("prefisso errato") << Byte("02 41 42 44 10 37 03") << QStringLiteral("manca ABC");
    QTest::newRow("codice sconosciuto")
        << Byte("02 41 42 43 30 38 03") << QStringLiteral("comando sconosciuto");
    QTest::newRow("dati di troppo") << Byte("02 41 42 43 10 78 30 03")
                                    << QStringLiteral("dati in un comando");
    QTest::newRow("senza riempitivo")
        << Byte("02 41 42 43 80 41 42 17 36 03") << QStringLiteral("riempitivo");
    QTest::newRow("senza codice") << Byte("02 41 42 43 30 03") << QStringLiteral("troppo corta");
    QTest::newRow("vuota") << Byte("02 03") << QStringLiteral("troppo corta");
}

void tst_strumento::comandoErratoSenzaRisposta()
{
    QFETCH(QByteArray, trama);
    QFETCH(QString, motivo);
    const Banchetto banco(TRE_VEICOLI);
    QVERIFY(banco.Manda(trama).isEmpty());
    QVERIFY2(banco.registro.last().contains(motivo), qUtf8Printable(banco.registro.last()));
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::comandoSpezzato()
{
    const Banchetto banco;
    for (qsizetype i = 0; i < STATO.size() - 1; ++i)
        QVERIFY(banco.Manda(STATO.mid(i, 1)).isEmpty());
    QCOMPARE(banco.Chiedi(STATO.last(1)), A_RIPOSO);
}

void tst_strumento::dueComandiInUnaVolta()
{
    const Banchetto banco(IDENTITA);
    const QList<Invio> invii = banco.Manda(STATO + LEGGI_DATI);
    QCOMPARE(invii.size(), 2);
    QCOMPARE(invii[0].byte, A_RIPOSO);
    QCOMPARE(invii[1].byte, DATI_INIZIALI);
}

void tst_strumento::rumoreTraITrameScartato()
{
    const Banchetto banco;
    QCOMPARE(banco.Chiedi(Byte("00 03 FF 41") + STATO + Byte("03 55")), A_RIPOSO);
    QCOMPARE(banco.registro.last(), QStringLiteral("-- fuori trama: 00 03 FF 41 03 55"));
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::inizioDentroLaTramaEUnByteQualsiasi()
{
    const Banchetto banco;
    // A command cut short by the one that follows it: one bad frame, and the next one is good.
    QVERIFY(banco.Manda(STATO.first(3) + STATO).isEmpty());
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::tramaSenzaFineAbbandonata()
{
    const Banchetto banco;
    QVERIFY(banco.Manda(Byte("02") + QByteArray(9000, 'x')).isEmpty());
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::lineaLasciataScordaIlComandoAMeta()
{
    const Banchetto banco;
    QVERIFY(banco.Manda(STATO.first(4)).isEmpty());
    (*banco).Linea_Lasciata();
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::registroDiOgniTrama()
{
    const Banchetto banco(IDENTITA);
    QCOMPARE(banco.Manda(STATO).first().nota, QStringLiteral("\"1\" a riposo"));
    QCOMPARE(banco.registro.last(), QStringLiteral("<- 02 41 42 43 10 36 03  Stato"));
    QCOMPARE(banco.Manda(SCRIVI_DATI2).first().nota, QStringLiteral("scritto"));
    QCOMPARE(banco.registro.last(),
             QStringLiteral("<- 02 41 42 43 80 41 42 17 00 36 03  ScriviDati2 \"AB\""));
}

void tst_strumento::guastoAlByte_data()
{
    QTest::addColumn<QByteArray>("guasto");
    QTest::addColumn<QStringList>("invii");

    const auto riga = [](const char *guasto, const QStringList &invii) {
        QTest::newRow(guasto) << QByteArray(guasto) << invii;
    };
    const QString buona = QStringLiteral("40:02 41 42 43 31 39 03");
    const auto lunga = [](int riempimento) {
        return QStringLiteral("40:02 41 42 43 31 ") + QStringLiteral("58 ").repeated(riempimento);
    };
    riga("silenzio", {});
    riga("controllo", {QStringLiteral("40:02 41 42 43 31 30 03")});
    riga("tipo", {QStringLiteral("40:02 41 42 43 3F 37 03")});
    riga("spezzata", {QStringLiteral("40:02 41 42"), QStringLiteral("340:43 31 39 03")});
    riga("spezzata;1000", {QStringLiteral("40:02 41 42"), QStringLiteral("1040:43 31 39 03")});
    riga("unita", {});
    riga("rumore", {QStringLiteral("40:00 FF 55 03 AA 02 41 42 43 31 39 03 03 17 80 41 42")});
    riga("lunga", {lunga(100) + QStringLiteral("39 03")});
    riga("lunga;108", {lunga(101) + QStringLiteral("37 03")});
    riga("seconda", {buona, QStringLiteral("2540:02 41 42 43 31 39 03")});
    riga("seconda;0", {buona, buona});
    riga("ritardo", {QStringLiteral("2540:02 41 42 43 31 39 03")});
    riga("ritardo;10", {QStringLiteral("50:02 41 42 43 31 39 03")});
    riga("riaggancio", {QStringLiteral("40:via 2000")});
    riga("riaggancio;500", {QStringLiteral("40:via 500")});
}

void tst_strumento::guastoAlByte()
{
    QFETCH(QByteArray, guasto);
    QFETCH(QStringList, invii);
    const Banchetto banco("[GUASTI]\nGuasto1=Stato;1;" + guasto + '\n');
    QCOMPARE(In_Testo(banco.Manda(STATO)), invii);
}

void tst_strumento::generePerOgniComando_data()
{
    QTest::addColumn<QByteArray>("comando");
    QTest::addColumn<QByteArray>("risposta");

    QTest::newRow("Misura")
        << MISURA
        << Byte("02 41 42 43 3F 31 32 33 4F 4F 30 34 35 36 4F 4F 30 31 32 35 41 4F 30 34 36 30 "
                "4F 53 38 03");
    QTest::newRow("LeggiDati")
        << LEGGI_DATI
        << Byte("02 41 42 43 3F 51 58 35 17 50 72 6F 76 61 17 4F 4D 31 17 37 17 33 31 2F 31 "
                "32 2F 32 30 33 30 17 55 67 6F 17 34 03");
    QTest::newRow("ScriviDati1") << SCRIVI_DATI1 << Byte("02 41 42 43 3F 37 03");
    QTest::newRow("ScriviDati2") << SCRIVI_DATI2 << Byte("02 41 42 43 3F 37 03");
    QTest::newRow("LeggiTaratura")
        << LEGGI_TARATURA
        << Byte("02 41 42 3F 30 17 31 17 32 17 33 17 34 17 35 17 36 17 37 17 38 17 39 17 "
                "33 03");
    QTest::newRow("ScriviTaratura") << SCRIVI_TARATURA << Byte("02 41 42 43 3F 37 03");
}

void tst_strumento::generePerOgniComando()
{
    QFETCH(QByteArray, comando);
    QFETCH(QByteArray, risposta);
    const Banchetto banco(
        QByteArray(IDENTITA) + "[GUASTI]\nGuasto1=" + QTest::currentDataTag() + ";*;tipo\n" +
        "[VEICOLO1]\nRiposo=0\nProva=0\nAnabSx=0123OO\nAbbSx=0456OO\nAnabDx=0125AO\nAbbDx=0460OS\n");
    banco.Chiedi(STATO);
    QCOMPARE(banco.Chiedi(comando), risposta);
}

void tst_strumento::genereErratoConControlloGiusto()
{
    const Banchetto banco("[GUASTI]\nGuasto1=*;1;tipo\nGuasto2=*;2;controllo\n");
    for (const QByteArray &comando : {STATO, LEGGI_DATI, LEGGI_TARATURA, SCRIVI_DATI2}) {
        QVERIFY(Risposta_Valida(Buffer_Con(banco.Chiedi(comando))));
        QVERIFY(!Risposta_Valida(Buffer_Con(banco.Chiedi(comando))));
    }
}

void tst_strumento::tramaLungaNonStaNellaStazione()
{
    const Banchetto banco("[GUASTI]\nGuasto1=LeggiDati;1;lunga\n");
    const QByteArray trama = banco.Chiedi(LEGGI_DATI);
    QCOMPARE(trama.size(), 107);
    QVERIFY(!trama.chopped(1).contains(static_cast<char>(BYTE_FINE)));
}

void tst_strumento::unitaParteConLaSeguente()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=2\nProva=1\n[GUASTI]\nGuasto1=Stato;2;unita\n");
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    QVERIFY(banco.Manda(STATO).isEmpty());
    const QList<Invio> invii = banco.Manda(STATO);
    QCOMPARE(invii.size(), 1);
    QCOMPARE(invii.first().byte, A_RIPOSO + IN_PROVA);
    QCOMPARE(banco.Chiedi(STATO), PRONTA);
}

void tst_strumento::unitaNonPassaAllaSessioneDopo()
{
    const Banchetto banco("[GUASTI]\nGuasto1=Stato;1;unita\n");
    QVERIFY(banco.Manda(STATO).isEmpty());
    (*banco).Linea_Lasciata();
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
}

void tst_strumento::volteContateNelVeicolo()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=0\nProva=2\n[GUASTI]\nGuasto1=Stato;2;silenzio\n");
    for (int veicolo = 0; veicolo < 3; ++veicolo) {
        QCOMPARE(banco.Chiedi(STATO), IN_PROVA);
        QVERIFY(banco.Manda(STATO).isEmpty());
        // The poll without a reply counts: the instrument answered, the line did not carry it.
        QCOMPARE(banco.Chiedi(STATO), PRONTA);
        QCOMPARE(banco.Chiedi(MISURA).size(), 30);
    }
}

void tst_strumento::volteAIntervallo()
{
    const Banchetto banco(
        "[VEICOLO1]\nRiposo=9\n[GUASTI]\nGuasto1=Stato;2-3;silenzio\nGuasto2=stato;5-;SILENZIO\n");
    QByteArray parlate;
    for (int n = 1; n <= 7; ++n)
        parlate += banco.Manda(STATO).isEmpty() ? '.' : 'x';
    QCOMPARE(parlate, QByteArray("x..x..."));
}

void tst_strumento::guastoDelVeicoloPrimaDiQuelliDiTutti()
{
    const Banchetto banco("[VEICOLO1]\nGuasto1=Stato;1;ritardo;7\n[GUASTI]\nGuasto1=*;*;silenzio\n");
    QCOMPARE(In_Testo(banco.Manda(STATO)), QStringList(QStringLiteral("47:02 41 42 43 31 39 03")));
    QVERIFY(banco.Manda(STATO).isEmpty());
}

void tst_strumento::guastoDiUnSoloVeicolo()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=0\nProva=0\n"
                          "[VEICOLO2]\nRiposo=0\nProva=0\nGuasto1=Misura;1;silenzio\n"
                          "[VEICOLO3]\nRiposo=0\nProva=0\n");
    QByteArray misure;
    for (int n = 1; n <= 3; ++n) {
        banco.Chiedi(STATO);
        misure += banco.Manda(MISURA).isEmpty() ? '.' : 'x';
    }
    QCOMPARE(misure, QByteArray("x.x"));
}

void tst_strumento::scritturaAvvenutaSottoGuasto()
{
    const Banchetto banco(QByteArray(IDENTITA) + "[GUASTI]\nGuasto1=ScriviDati1;1;silenzio\n");
    QVERIFY(banco.Manda(SCRIVI_DATI1).isEmpty());
    banco.Chiedi(SCRIVI_DATI2);
    QCOMPARE(banco.Chiedi(LEGGI_DATI), DATI_SCRITTI);
}

void tst_strumento::scenarioRilettoAOgniMisura()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=0001OO\n");
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0001"));
    banco.Scrivi("[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=0777OO\n[GUASTI]\nGuasto1=Misura;2;silenzio\n");
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0777"));
    QVERIFY(banco.Manda(MISURA).isEmpty());
}

void tst_strumento::scenarioRilettoQuandoLaStazioneChiudeARiposo()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=3\nProva=0\nAnabSx=0001OO\n");
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    banco.Scrivi("[GUASTI]\nGuasto1=LeggiDati;1;silenzio\n[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=0777OO\n");
    (*banco).Linea_Lasciata();
    QVERIFY(banco.Manda(LEGGI_DATI).isEmpty());
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0777"));
}

void tst_strumento::scenarioNonRilettoAMisuraIncominciata()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=1\nProva=2\nAnabSx=0001OO\n");
    QCOMPARE(banco.Chiedi(STATO), A_RIPOSO);
    QCOMPARE(banco.Chiedi(STATO), IN_PROVA);
    banco.Scrivi("[VEICOLO1]\nRiposo=9\nProva=0\nAnabSx=0777OO\n");
    (*banco).Linea_Lasciata();
    QCOMPARE(banco.Chiedi(STATO), IN_PROVA);
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0001"));
}

void tst_strumento::scenarioErratoLasciaIlPrecedente()
{
    const Banchetto banco("[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=0001OO\n");
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0001"));
    banco.Scrivi("[VEICOLO1]\nRiposo=1\nProva=0\nAnabSx=12\n");
    QCOMPARE(banco.Misura_Prendi(), QByteArray("0001"));
    QVERIFY(banco.registro.join(u'\n').contains(QStringLiteral("scenario: [VEICOLO1] AnabSx")));
}

// --- by hand
// ------------------------------------------------------------------------------------------------

void tst_strumento::statoDelVeicolo()
{
    const Banchetto banchetto("[VEICOLO1]\nRiposo=1\nProva=1\n");
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Riposo);
    banchetto.Chiedi(STATO);
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Riposo);
    banchetto.Chiedi(STATO);
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Prova);
    banchetto.Chiedi(STATO);
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Pronta);
    banchetto.Chiedi(MISURA);
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Pronta);
    banchetto.Chiedi(STATO);
    QCOMPARE((*banchetto).Stato(), StatoStrumento::Riposo);
}

void tst_strumento::statoMessoAMano_data()
{
    QTest::addColumn<StatoStrumento>("stato");
    QTest::addColumn<QByteArray>("risposta");
    QTest::newRow("riposo") << StatoStrumento::Riposo << A_RIPOSO;
    QTest::newRow("prova") << StatoStrumento::Prova << IN_PROVA;
    QTest::newRow("pronta") << StatoStrumento::Pronta << PRONTA;
}

void tst_strumento::statoMessoAMano()
{
    QFETCH(StatoStrumento, stato);
    QFETCH(QByteArray, risposta);
    // A vehicle without polls in test too.
    for (const char *scenario : {"[VEICOLO1]\nRiposo=9\nProva=9\n", "[VEICOLO1]\nRiposo=9\nProva=0\n"}) {
        const Banchetto banchetto(scenario);
        (*banchetto).Stato_Ferma(true);
        (*banchetto).Stato_Imposta(stato);
        QCOMPARE((*banchetto).Stato(), stato);
        QCOMPARE(banchetto.Chiedi(STATO), risposta);
    }
}

void tst_strumento::statoFermo()
{
    const Banchetto banchetto("[VEICOLO1]\nRiposo=1\nProva=1\n");
    (*banchetto).Stato_Ferma(true);
    for (int n = 0; n < 10; ++n)
        QCOMPARE(banchetto.Chiedi(STATO), A_RIPOSO);
    (*banchetto).Stato_Ferma(false);
    QCOMPARE(banchetto.Chiedi(STATO), A_RIPOSO);
    QCOMPARE(banchetto.Chiedi(STATO), IN_PROVA);
}

void tst_strumento::statoMessoDopoLaMisura()
{
    const Banchetto banchetto(TRE_VEICOLI);
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0001"));
    (*banchetto).Stato_Imposta(StatoStrumento::Riposo);
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0002"));
}

void tst_strumento::recordFissati()
{
    const Banchetto banchetto(TRE_VEICOLI);
    (*banchetto).Record_Fissa(RecordMisura{"0123OA", "0456OO", "0789SO", "9999OO"});
    QCOMPARE((*banchetto).Record()[0], QByteArray("0123OA"));
    banchetto.Chiedi(STATO);
    QCOMPARE(banchetto.Chiedi(STATO), PRONTA);
    QCOMPARE(banchetto.Chiedi(MISURA).sliced(4).chopped(2), QByteArray("0123OA0456OO0789SO9999OO"));
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0123")); // the next vehicle too
    (*banchetto).Record_Fissa(std::nullopt);
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0003"));
}

void tst_strumento::recordFissatiDopoLaMisuraPresa()
{
    const Banchetto banchetto(TRE_VEICOLI);
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0001"));
    (*banchetto).Record_Fissa(RecordMisura{"0123OO", "0456OO", "0789OO", "9999OO"});
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0123"));
    // A station that leaves the line at rest has the scenario read anew: what was fixed stays.
    banchetto.Chiedi(STATO);
    (*banchetto).Linea_Lasciata();
    QCOMPARE(banchetto.Misura_Prendi(), QByteArray("0123"));
}

void tst_strumento::guastiMessiAMano()
{
    const Banchetto banchetto("[VEICOLO1]\nRiposo=9\nGuasto1=Stato;*;controllo\n");
    (*banchetto).Guasti_Imposta({Guasto_Continuo(TipoGuasto::Silenzio, CodiceComando::Stato)});
    QCOMPARE(banchetto.Chiedi(STATO), QByteArray());
    QCOMPARE(banchetto.Chiedi(STATO), QByteArray());
    QVERIFY(!banchetto.Chiedi(LEGGI_DATI).isEmpty());
    (*banchetto).Guasti_Imposta({Guasto_Continuo(TipoGuasto::Ritardo, std::nullopt)});
    const QList<Invio> tardiva = banchetto.Manda(LEGGI_DATI);
    QCOMPARE(tardiva.size(), 1);
    QCOMPARE(tardiva.first().ritardo, 2540);
    (*banchetto).Guasti_Imposta({});
    QVERIFY(banchetto.Chiedi(STATO) != A_RIPOSO); // the scenario's own is back
}

QTEST_GUILESS_MAIN(tst_strumento)
#include "tst_strumento.moc"
