#include "link/modComm.h"

#include "core/modGeneral.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/linea_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

class tst_modComm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void leggeLeCinqueChiavi();
    void chiaveGuastaFermaLaLettura_data();
    void chiaveGuastaFermaLaLettura();

    void apreEPoiImposta();
    void portaGiaApertaNonVieneImpostata();
    void aperturaRifiutata();
    void impostazioniRifiutateLascianoLaPortaApertaESorda();
    void chiudeSoloSeAperta();

    void prendeIByteInAttesa();
    void byteTraLeDueLetturePerduti();
    void nienteInAttesaNonHaArray();
    void menoByteDelConto();

    void ilFrameNuovoSostituisceIlVecchio();
    void scrivereAPortaChiusa();

    void statoDegliEventi_data();
    void statoDegliEventi();
    void formattaHex_data();
    void formattaHex();

private:
    static void Scrivi_Comm(const StazioneProva &stazione, const QByteArray &righe);
};

void tst_modComm::init()
{
    gPortaNum = 77;
    gPortaBaud = 77;
    gPortaParity = QStringLiteral("?");
    gPortaDataBit = 77;
    gPortaStopBit = 77;
    gRxConta = 77;
    gRxDati = QByteArray("vecchi");
}

void tst_modComm::Scrivi_Comm(const StazioneProva &stazione, const QByteArray &righe)
{
    stazione.Scrivi(QStringLiteral("lumira.ini"), "[COMM]\r\n" + righe);
}

void tst_modComm::leggeLeCinqueChiavi()
{
    const StazioneProva stazione;
    Scrivi_Comm(stazione, "Num=12\r\nBaud=115200\r\nParity=E\r\nDataBit=7\r\nStopBit=2\r\n");
    Leggi_Porta(gFileIni);
    QCOMPARE(gPortaNum, qint16(12));
    QCOMPARE(gPortaBaud, 115200);
    QCOMPARE(gPortaParity, QStringLiteral("E"));
    QCOMPARE(gPortaDataBit, quint8(7));
    QCOMPARE(gPortaStopBit, quint8(2));
}

void tst_modComm::chiaveGuastaFermaLaLettura_data()
{
    QTest::addColumn<QByteArray>("righe");
    QTest::addColumn<int>("errore");
    QTest::addColumn<QString>("lette"); // the five values after the failure

    const int tipo = 13;
    const int troppo = 6;
    QTest::newRow("Num manca") << QByteArray("Baud=1\nParity=N\nDataBit=8\nStopBit=1") << tipo
                               << "77 77 ? 77 77";
    QTest::newRow("Num parola") << QByteArray("Num=COM1\nBaud=1\nParity=N\nDataBit=8\nStopBit=1") << tipo
                                << "77 77 ? 77 77";
    QTest::newRow("Num oltre 16 bit")
        << QByteArray("Num=32768\nBaud=1\nParity=N\nDataBit=8\nStopBit=1") << troppo << "77 77 ? 77 77";
    QTest::newRow("Baud manca") << QByteArray("Num=3\nParity=N\nDataBit=8\nStopBit=1") << tipo
                                << "3 77 ? 77 77";
    QTest::newRow("Baud oltre 32 bit")
        << QByteArray("Num=3\nBaud=2147483648\nParity=N\nDataBit=8\nStopBit=1") << troppo << "3 77 ? 77 77";
    QTest::newRow("Parity manca e non e' un errore")
        << QByteArray("Num=3\nBaud=9600\nDataBit=8\nStopBit=1") << 0 << "3 9600  8 1";
    QTest::newRow("DataBit oltre 8 bit")
        << QByteArray("Num=3\nBaud=9600\nParity=N\nDataBit=256\nStopBit=1") << troppo << "3 9600 N 77 77";
    QTest::newRow("StopBit vuota") << QByteArray("Num=3\nBaud=9600\nParity=N\nDataBit=8\nStopBit=") << tipo
                                   << "3 9600 N 8 77";
}

void tst_modComm::chiaveGuastaFermaLaLettura()
{
    QFETCH(QByteArray, righe);
    QFETCH(int, errore);
    QFETCH(QString, lette);
    const StazioneProva stazione;
    Scrivi_Comm(stazione, righe);

    QCOMPARE(Errore_Di([] { Leggi_Porta(gFileIni); }), errore);
    QCOMPARE(QStringLiteral("%1 %2 %3 %4 %5")
                 .arg(gPortaNum)
                 .arg(gPortaBaud)
                 .arg(gPortaParity)
                 .arg(gPortaDataBit)
                 .arg(gPortaStopBit),
             lette);
}

void tst_modComm::apreEPoiImposta()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    gPortaNum = 4;
    gPortaBaud = 9600;
    gPortaParity = QStringLiteral("N");
    gPortaDataBit = 8;
    gPortaStopBit = 1;

    QCOMPARE(Apri_Porta(linea), Vero);
    QCOMPARE(linea.Registro, QStringList({QStringLiteral("CommPort 4"), QStringLiteral("PortOpen 1"),
                                          QStringLiteral("Settings 9600,N,8,1"), QStringLiteral("InputLen 0"),
                                          QStringLiteral("InputMode 1"), QStringLiteral("RThreshold 1"),
                                          QStringLiteral("NullDiscard 0")}));
}

void tst_modComm::portaGiaApertaNonVieneImpostata()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.PortOpen(true);
    linea.Registro.clear();
    gPortaNum = 4;

    QCOMPARE(Apri_Porta(linea), Vero);
    QCOMPARE(linea.Registro, QStringList(QStringLiteral("CommPort 4")));
}

void tst_modComm::aperturaRifiutata()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.RifiutaApertura = true;

    QCOMPARE(Apri_Porta(linea), Falso);
    QVERIFY(!linea.PortOpen());
    QCOMPARE(linea.Registro.last(), QStringLiteral("PortOpen 1"));
}

void tst_modComm::impostazioniRifiutateLascianoLaPortaApertaESorda()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.RifiutaImpostazioni = true;

    QCOMPARE(Apri_Porta(linea), Falso);
    QVERIFY(linea.PortOpen());
    QVERIFY(!linea.Registro.contains(QStringLiteral("RThreshold 1")));
}

void tst_modComm::chiudeSoloSeAperta()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    Chiudi_Porta(linea);
    QCOMPARE(linea.Registro, QStringList());

    linea.PortOpen(true);
    Chiudi_Porta(linea);
    QVERIFY(!linea.PortOpen());
    QCOMPARE(linea.Registro.last(), QStringLiteral("PortOpen 0"));
}

void tst_modComm::prendeIByteInAttesa()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.PortOpen(true);
    linea.Arriva(QByteArray("\x02\x00\xFF", 3));

    Ricevi_Porta(linea);
    QCOMPARE(gRxConta, qint16(3));
    QCOMPARE(gRxDati, QByteArray("\x02\x00\xFF", 3));
    QCOMPARE(linea.InBufferCount(), qint16(0));
}

void tst_modComm::byteTraLeDueLetturePerduti()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.PortOpen(true);
    linea.Arriva("abc");
    linea.TraLeDueLetture = "de";

    Ricevi_Porta(linea);
    QCOMPARE(gRxConta, qint16(3));
    QCOMPARE(gRxDati, QByteArray("abc"));
    QCOMPARE(linea.InBufferCount(), qint16(0));
}

void tst_modComm::nienteInAttesaNonHaArray()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.PortOpen(true);

    QCOMPARE(Errore_Di([&linea] { Ricevi_Porta(linea); }), 9);
    QCOMPARE(gRxConta, qint16(0));
    QCOMPARE(gRxDati, QByteArray("vecchi"));
}

void tst_modComm::menoByteDelConto()
{
    // A control that counts more than it gives.
    class LineaBugiarda : public LineaProva
    {
    public:
        using LineaProva::LineaProva;
        qint16 InBufferCount() const override { return 4; }
    };
    OrologioProva orologio;
    LineaBugiarda linea(orologio);
    linea.PortOpen(true);
    linea.Arriva("abc");

    QCOMPARE(Errore_Di([&linea] { Ricevi_Porta(linea); }), 9);
    QCOMPARE(gRxDati, QByteArray("vecchi"));
}

void tst_modComm::ilFrameNuovoSostituisceIlVecchio()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    linea.PortOpen(true);
    linea.Registro.clear();

    Scrivi_Porta(linea, QByteArray("\x02\x03"));
    QCOMPARE(linea.Registro,
             QStringList({QStringLiteral("OutBufferCount 0"), QStringLiteral("Output 0203")}));
}

void tst_modComm::scrivereAPortaChiusa()
{
    OrologioProva orologio;
    LineaProva linea(orologio);
    QCOMPARE(Errore_Di([&linea] { Scrivi_Porta(linea, QByteArray("x")); }), 8018);
}

void tst_modComm::statoDegliEventi_data()
{
    QTest::addColumn<qint16>("evento");
    QTest::addColumn<qint16>("stato");

    const qint16 coppie[][2] = {
        {1001, 0 },
        {1004, 1 },
        {1006, 2 },
        {1008, 3 },
        {1009, 4 },
        {1010, 5 },
        {1011, 6 },
        {5,    7 },
        {3,    8 },
        {4,    9 },
        {6,    10},
        {1,    11},
        {7,    12},
        {2,    13},
        {0,    -1},
        {8,    -1},
        {1002, -1},
        {1005, -1},
        {1007, -1},
        {1012, -1},
        {-1,   -1}
    };
    for (const auto &coppia : coppie)
        QTest::addRow("%d", coppia[0]) << coppia[0] << coppia[1];
}

void tst_modComm::statoDegliEventi()
{
    QFETCH(qint16, evento);
    QFETCH(qint16, stato);
    QCOMPARE(Stato_Evento(evento), stato);
}

void tst_modComm::formattaHex_data()
{
    QTest::addColumn<QByteArray>("byte");
    QTest::addColumn<int>("conta");
    QTest::addColumn<QString>("testo");

    QTest::newRow("frame") << QByteArray("\x02"
                                         "ABC\x10"
                                         "6\x03")
                           << 7 << "02414243103603";
    QTest::newRow("solo i primi") << QByteArray("\x0F\x10\xFF") << 2 << "0F10";
    QTest::newRow("maiuscole e zeri") << QByteArray("\x00\x0A\xAB\xFF", 4) << 4 << "000AABFF";
    QTest::newRow("nessuno") << QByteArray("abc") << 0 << "";
}

void tst_modComm::formattaHex()
{
    QFETCH(QByteArray, byte);
    QFETCH(int, conta);
    QFETCH(QString, testo);
    QCOMPARE(Formatta_Hex(byte, conta), testo);
}

QTEST_GUILESS_MAIN(tst_modComm)
#include "tst_modComm.moc"
