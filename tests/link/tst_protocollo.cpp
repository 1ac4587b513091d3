#include "link/protocollo.h"

#include "core/modGeneral.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/linea_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

class tst_protocollo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    // frames that go out
    void carattereDiControllo_data();
    void carattereDiControllo();
    void comandiSenzaDati_data();
    void comandiSenzaDati();
    void tipoSconosciutoNonCambiaNulla_data();
    void tipoSconosciutoNonCambiaNulla();
    void scriviDati1_data();
    void scriviDati1();
    void scriviDati2_data();
    void scriviDati2();
    void scriviTaratura();
    void scriviTaraturaConSezioneVuota();
    void sommaOltre16Bit_data();
    void sommaOltre16Bit();
    void componiDati_data();
    void componiDati();
    void fineNelTestoTroncaIlFrame();
    void leggiDatiStrumentoDalProfilo();
    void leggiDatiStrumentoSenzaChiavi();

    // frames that come in
    void rumoreFuoriDalFrame();
    void assemblaUnFrame();
    void unSecondoInizioEUnByteQualunque();
    void dueFrameDiSeguito();
    void bufferNonSvuotatoTraIFrame();
    void frameDi106Byte();
    void frameOltre106Byte();
    void rispostaValida_data();
    void rispostaValida();
    void rispostaSenzaFine();

    // what they mean
    void leggeLaMisura();
    void figuraConZeriInTesta();
    void misuraAzzerataPrimaDiLeggere();
    void cifreNonValidate_data();
    void cifreNonValidate();
    void cifraChePassa16Bit_data();
    void cifraChePassa16Bit();
    void misuraCortaLeggeIlFramePrecedente();
    void misuraCortaInSessioneNuova();
    void leggeIDati();
    void leggeLaTaratura();
    void testiSenzaFine();
    void separatoreNelTestoSpostaISeguenti();
    void leggiTestiSostituisceIVecchi();
};

namespace {

QByteArray Esa(const char *cifre)
{
    return QByteArray::fromHex(cifre);
}

QByteArray Frame_Di(quint8 tipo, QByteArray dati = {})
{
    quint8 comando = 0;
    Componi_Comando(tipo, dati, comando);
    return gTxFrame;
}

/// A buffer that holds these bytes from offset 0 on.
BufferRx Buffer_Di(const QByteArray &byte, quint8 resto = 0)
{
    BufferRx buffer;
    buffer.fill(resto);
    for (qsizetype i = 0; i < byte.size(); ++i)
        buffer[static_cast<size_t>(i)] = static_cast<quint8>(byte[i]);
    return buffer;
}

QByteArray Byte_Di(const BufferRx &buffer, qsizetype conta)
{
    return QByteArray(reinterpret_cast<const char *>(buffer.data()), conta);
}

QList<EsitoByte> Passa(Assemblatore &assemblatore, const QByteArray &byte)
{
    QList<EsitoByte> esiti;
    for (const char b : byte)
        esiti.append(assemblatore.Aggiungi(static_cast<quint8>(b)));
    return esiti;
}

QStringList Misura_Letta(const QByteArray &frame, quint8 resto = 0)
{
    QStringList righe;
    Leggi_Misura(Buffer_Di(frame, resto), [&righe](const QString &riga) { righe.append(riga); });
    return righe;
}

QStringList Testi_Letti(const QByteArray &frame, qint16 posto, QStringList &testi, quint8 resto = 0)
{
    QStringList righe;
    Leggi_Testi(Buffer_Di(frame, resto), posto, testi, [&righe](const QString &riga) { righe.append(riga); });
    return righe;
}

} // namespace

void tst_protocollo::init()
{
    gTxFrame = QByteArray("prima");
    gDatiStrumento = QStringList(QStringLiteral("prima"));
    gDatiTaratura = QStringList(QStringLiteral("prima"));
    gMisure.fill(MisuraFaro());
}

void tst_protocollo::carattereDiControllo_data()
{
    QTest::addColumn<qint16>("somma");
    QTest::addColumn<char>("carattere");

    QTest::newRow("stato") << qint16(216) << '6';
    QTest::newRow("leggi dati") << qint16(280) << '4';
    QTest::newRow("zero") << qint16(0) << '0';
    QTest::newRow("255") << qint16(255) << '5';
    QTest::newRow("256 vale zero") << qint16(256) << '0';
    QTest::newRow("482") << qint16(482) << '6';
    QTest::newRow("massima") << qint16(32767) << '5';
}

void tst_protocollo::carattereDiControllo()
{
    QFETCH(qint16, somma);
    QFETCH(char, carattere);
    QCOMPARE(Carattere_Controllo(somma), static_cast<quint8>(carattere));
}

void tst_protocollo::comandiSenzaDati_data()
{
    QTest::addColumn<quint8>("tipo");
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("stato") << quint8(1) << Esa("02414243103603");
    QTest::newRow("misura") << quint8(2) << Esa("02414243203203");
    QTest::newRow("leggi dati") << quint8(4) << Esa("02414243503403");
    QTest::newRow("leggi taratura") << quint8(7) << Esa("02414243903803");
}

void tst_protocollo::comandiSenzaDati()
{
    QFETCH(quint8, tipo);
    QFETCH(QByteArray, frame);
    QByteArray dati("abc");
    quint8 comando = 0;
    Componi_Comando(tipo, dati, comando);
    QCOMPARE(gTxFrame, frame);
    QCOMPARE(comando, tipo);
    QCOMPARE(dati, QByteArray("abc"));
}

void tst_protocollo::tipoSconosciutoNonCambiaNulla_data()
{
    QTest::addColumn<quint8>("tipo");
    for (const int tipo : {0, 3, 9, 16, 255})
        QTest::addRow("%d", tipo) << static_cast<quint8>(tipo);
}

void tst_protocollo::tipoSconosciutoNonCambiaNulla()
{
    QFETCH(quint8, tipo);
    QByteArray dati("abc");
    quint8 comando = CmdMisura;
    Componi_Comando(tipo, dati, comando);
    QCOMPARE(gTxFrame, QByteArray("prima"));
    QCOMPARE(comando, quint8(CmdMisura));
    QCOMPARE(dati, QByteArray("abc"));
    QCOMPARE(gDatiTaratura, QStringList(QStringLiteral("prima")));
}

void tst_protocollo::scriviDati1_data()
{
    QTest::addColumn<QByteArray>("dati");
    QTest::addColumn<QByteArray>("frame");

    // 296 + 65 + 66 + 67 + 68 + 69 + 5 * 23 = 746, 234 of it
    QTest::newRow("cinque testi") << Esa("41174217431744174517") << Esa("0241424360411742174317441745173403");
    QTest::newRow("il sesto resta fuori")
        << Esa("41174217431744174517465617") << Esa("0241424360411742174317441745173403");
    // 296 + 5 * 23 = 411, 155 of it
    QTest::newRow("testi vuoti") << Esa("1717171717")
                                 << Esa("0241424360"
                                        "1717171717"
                                        "3503");
    // 296 + 65 + 66 + 23 = 450, 194 of it: the sum covers what the frame does not carry
    QTest::newRow("meno di cinque testi") << Esa("414217")
                                          << Esa("0241424360"
                                                 "41"
                                                 "3403");
    // 296 + 65 + 66 + 67 + 68 + 4 * 23 = 654, 142 of it
    QTest::newRow("quattro testi") << Esa("4117421743174417")
                                   << Esa("0241424360"
                                          "41"
                                          "3203");
    // 296: 40
    QTest::newRow("nessun dato") << QByteArray()
                                 << Esa("0241424360"
                                        "00"
                                        "3003");
    // 0xE9 counts as 233: 296 + 233 + 115 = 644, 132 of it
    QTest::newRow("byte alto") << Esa("E91717171717")
                               << Esa("0241424360"
                                      "E91717171717"
                                      "3203");
}

void tst_protocollo::scriviDati1()
{
    QFETCH(QByteArray, dati);
    QFETCH(QByteArray, frame);
    QCOMPARE(Frame_Di(CmdScriviDati1, dati), frame);
}

void tst_protocollo::scriviDati2_data()
{
    QTest::addColumn<QByteArray>("dati");
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("cinque testi") << Esa("41174217431744174517") << Esa("0241424380003203");
    QTest::newRow("il sesto e' AB") << Esa("41174217431744174517414217") << Esa("0241424380414217003603");
    QTest::newRow("il sesto e' vuoto") << Esa("171717171717")
                                       << Esa("0241424380"
                                              "17"
                                              "00"
                                              "3503");
    // without a fifth separator what follows the first byte goes: 328 + 66 + 23 = 417, 161 of it
    QTest::newRow("meno di cinque testi") << Esa("414217")
                                          << Esa("0241424380"
                                                 "4217"
                                                 "00"
                                                 "3103");
    QTest::newRow("nessun dato") << QByteArray() << Esa("0241424380003203");
}

void tst_protocollo::scriviDati2()
{
    QFETCH(QByteArray, dati);
    QFETCH(QByteArray, frame);
    QCOMPARE(Frame_Di(CmdScriviDati2, dati), frame);
}

void tst_protocollo::scriviTaratura()
{
    const StazioneProva stazione;
    stazione.Scrivi(QStringLiteral("lumira.ini"),
                    "[CALIBRAZIONE_COM]\r\nS8=j\r\nS7=i\r\nS6=h\r\nS5=g\r\nS4=f\r\nS3=e\r\nS2=d\r\nS1=c\r\n"
                    "MinManopola=b\r\nMaxManopola=a\r\n");
    QByteArray dati("vecchi");
    quint8 comando = 0;
    Componi_Comando(CmdScriviTaratura, dati, comando);

    QCOMPARE(gDatiTaratura.join(u' '), QStringLiteral("a b c d e f g h i j"));
    QCOMPARE(dati, Esa("6117621763176417651766176717681769176A17"));
    // 360 + (97 + ... + 106) + 10 * 23 = 1605, 69 of it
    QCOMPARE(gTxFrame, Esa("02414243A0"
                           "6117621763176417651766176717681769176A17"
                           "3903"));
    QCOMPARE(comando, quint8(CmdScriviTaratura));
}

void tst_protocollo::scriviTaraturaConSezioneVuota()
{
    const StazioneProva stazione;
    stazione.Scrivi(QStringLiteral("lumira.ini"), "[CALIBRAZIONE_COM]\r\n");
    // 360 + 230 = 590, 78 of it
    QCOMPARE(Frame_Di(CmdScriviTaratura), Esa("02414243A0"
                                              "17171717171717171717"
                                              "3803"));
    QCOMPARE(gDatiTaratura.size(), 10);
}

void tst_protocollo::sommaOltre16Bit_data()
{
    QTest::addColumn<quint8>("tipo");
    QTest::addColumn<int>("somma"); // sum of the payload that just fits

    QTest::newRow("dati 1") << quint8(CmdScriviDati1) << 32767 - 296;
    QTest::newRow("dati 2") << quint8(CmdScriviDati2) << 32767 - 328;
}

void tst_protocollo::sommaOltre16Bit()
{
    QFETCH(quint8, tipo);
    QFETCH(int, somma);
    // The five separators come first for the second frame, last for the first one.
    const auto dati = [tipo](int quanto) {
        const int testo = tipo == CmdScriviDati1 ? quanto - 5 * 0x17 : quanto;
        const QByteArray byte = QByteArray(testo / 200, '\xC8') +
                                QByteArray(testo % 200 == 0 ? 0 : 1, static_cast<char>(testo % 200));
        return tipo == CmdScriviDati1 ? byte + QByteArray(5, '\x17') : QByteArray(5, '\x17') + byte;
    };
    QCOMPARE(Errore_Di([&] { Frame_Di(tipo, dati(somma)); }), 0);
    QVERIFY(gTxFrame != QByteArray("prima"));
    gTxFrame = "prima";
    QCOMPARE(Errore_Di([&] { Frame_Di(tipo, dati(somma + 1)); }), 6);
    QCOMPARE(gTxFrame, QByteArray("prima"));
}

void tst_protocollo::componiDati_data()
{
    QTest::addColumn<QStringList>("testi");
    QTest::addColumn<QByteArray>("dati");

    QTest::newRow("nessuno") << QStringList() << QByteArray();
    QTest::newRow("vuoto") << QStringList(QString()) << Esa("17");
    QTest::newRow("due") << QStringList({QStringLiteral("AB"), QStringLiteral("C")}) << Esa("4142174317");
    QTest::newRow("un byte a carattere") << QStringList(QStringLiteral(u"\u00E0\u20AC")) << Esa("E08017");
    QTest::newRow("fine nel testo") << QStringList(QStringLiteral(u"a\u0003b")) << Esa("61036217");
    QTest::newRow("fuori dalla tabella dei codici") << QStringList(QStringLiteral(u"\u03A9")) << Esa("3F17");
}

void tst_protocollo::componiDati()
{
    QFETCH(QStringList, testi);
    QFETCH(QByteArray, dati);
    QCOMPARE(Componi_Dati(testi), dati);
}

/// No text is kept from holding the end byte: it goes out and is summed as any other, and whoever takes the
/// frame sees it end there.
void tst_protocollo::fineNelTestoTroncaIlFrame()
{
    const QByteArray frame = Frame_Di(CmdScriviDati1, Esa("6103621717171717"));
    // 296 + 97 + 3 + 98 + 5 * 23 = 609, 97 of it
    QCOMPARE(frame, Esa("0241424360"
                        "6103621717171717"
                        "3703"));
    Assemblatore assemblatore;
    QCOMPARE(Passa(assemblatore, frame).indexOf(EsitoByte::Fine), 6);
    QCOMPARE(assemblatore.InfoRx.Indice, qint16(7));
    QCOMPARE(Byte_Di(assemblatore.BufRx, 7), Esa("02414243606103"));
    QVERIFY(!Risposta_Valida(assemblatore.BufRx));
}

void tst_protocollo::leggiDatiStrumentoDalProfilo()
{
    const StazioneProva stazione;
    stazione.Scrivi(QStringLiteral("lumira.ini"),
                    "[LUMIRA]\r\nComm_Marca=b\r\nComm_Modello=a\r\nComm_NOmologazione=c\r\nComm_NSerie=d\r\n"
                    "Comm_ScadRevisione=e\r\nOperatore=no\r\n[VEICOLO]\r\nOperatore=f\r\n");
    Leggi_DatiStrumento();
    QCOMPARE(gDatiStrumento.join(u' '), QStringLiteral("a b c d e f"));
}

void tst_protocollo::leggiDatiStrumentoSenzaChiavi()
{
    const StazioneProva stazione;
    stazione.Scrivi(QStringLiteral("lumira.ini"), "");
    gDatiStrumento = QStringList(9, QStringLiteral("vecchio"));
    Leggi_DatiStrumento();
    QCOMPARE(gDatiStrumento, QStringList(6, QString()));
}

void tst_protocollo::rumoreFuoriDalFrame()
{
    Assemblatore assemblatore;
    const QList<EsitoByte> esiti = Passa(assemblatore, Esa("00030341FF17"));
    QCOMPARE(esiti, QList<EsitoByte>(6, EsitoByte::Nulla));
    QCOMPARE(assemblatore.StatoRx, quint8(0));
    QCOMPARE(assemblatore.BufRx, BufferRx{});
    QCOMPARE(assemblatore.InfoRx.Conta, qint16(0));
}

void tst_protocollo::assemblaUnFrame()
{
    Assemblatore assemblatore;
    assemblatore.InfoRx.Riservato = 5;
    const QList<EsitoByte> esiti = Passa(assemblatore, Esa("0241E903"));
    QCOMPARE(esiti,
             QList<EsitoByte>({EsitoByte::Nulla, EsitoByte::Accolto, EsitoByte::Accolto, EsitoByte::Fine}));
    QCOMPARE(assemblatore.StatoRx, quint8(0));
    QCOMPARE(Byte_Di(assemblatore.BufRx, 5), Esa("0241E90300"));
    QCOMPARE(assemblatore.InfoRx.Riservato, qint16(0));
    QCOMPARE(assemblatore.InfoRx.Conta, qint16(3));
    QCOMPARE(assemblatore.InfoRx.Indice, qint16(4));
    QCOMPARE(assemblatore.InfoRx.Testo, QStringLiteral(u"A\u00E9\u0003"));
}

void tst_protocollo::unSecondoInizioEUnByteQualunque()
{
    Assemblatore assemblatore;
    Passa(assemblatore, Esa("02410242"));
    QCOMPARE(assemblatore.StatoRx, quint8(1));
    QCOMPARE(assemblatore.InfoRx.Indice, qint16(4));
    QCOMPARE(Byte_Di(assemblatore.BufRx, 4), Esa("02410242"));
}

void tst_protocollo::dueFrameDiSeguito()
{
    Assemblatore assemblatore;
    const QList<EsitoByte> esiti = Passa(assemblatore, Esa("02414203"
                                                           "0243034403"));
    QCOMPARE(esiti.count(EsitoByte::Fine), 2);
    QCOMPARE(esiti.mid(7), QList<EsitoByte>(2, EsitoByte::Nulla)); // noise behind the second end
    QCOMPARE(assemblatore.InfoRx.Conta, qint16(2));
    QCOMPARE(assemblatore.InfoRx.Testo, QStringLiteral(u"C\u0003"));
}

void tst_protocollo::bufferNonSvuotatoTraIFrame()
{
    Assemblatore assemblatore;
    Passa(assemblatore, Esa("024142434403"));
    Passa(assemblatore, Esa("025003"));
    QCOMPARE(Byte_Di(assemblatore.BufRx, 7), Esa("02500343440300"));
}

void tst_protocollo::frameDi106Byte()
{
    Assemblatore assemblatore;
    const QList<EsitoByte> esiti = Passa(assemblatore, '\x02' + QByteArray(104, 'x') + '\x03');
    QCOMPARE(esiti.last(), EsitoByte::Fine);
    QCOMPARE(assemblatore.BufRx[105], quint8(3));
    QCOMPARE(assemblatore.StatoRx, quint8(0));
}

void tst_protocollo::frameOltre106Byte()
{
    Assemblatore assemblatore;
    Passa(assemblatore, '\x02' + QByteArray(105, 'x'));
    for (const char byte : {'y', '\x03', '\x02'}) {
        QCOMPARE(Errore_Di([&] { assemblatore.Aggiungi(static_cast<quint8>(byte)); }), 9);
        QCOMPARE(assemblatore.InfoRx.Indice, qint16(106));
        QCOMPARE(assemblatore.InfoRx.Conta, qint16(105));
        QCOMPARE(assemblatore.StatoRx, quint8(1));
    }
    QCOMPARE(assemblatore.BufRx[105], quint8('x'));
}

void tst_protocollo::rispostaValida_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<bool>("valida");

    QTest::newRow("stato") << Risposta_Stato('1') << true;
    QTest::newRow("byte alti") << Frame_Risposta(QByteArray(100, '\xFF')) << true;
    // 2 + 254 = 256
    QTest::newRow("somma 256 vale zero") << Esa("02FE3003") << true;
    QTest::newRow("somma 256 non vale sei") << Esa("02FE3603") << false;
    QTest::newRow("controllo sbagliato") << Esa("02414243313603") << false;
    QTest::newRow("controllo in binario") << Esa("02414243310903") << false;
    QTest::newRow("solo controllo") << Esa("023203") << true;
    QTest::newRow("niente tra inizio e fine") << Esa("0203") << false;
    QTest::newRow("conta la prima fine") << Esa("023203") + Esa("9999") << true;
    QTest::newRow("fine in testa") << Esa("03023203") << false;
}

void tst_protocollo::rispostaValida()
{
    QFETCH(QByteArray, frame);
    QFETCH(bool, valida);
    QCOMPARE(Risposta_Valida(Buffer_Di(frame)), valida);
}

void tst_protocollo::rispostaSenzaFine()
{
    QVERIFY(!Risposta_Valida(Buffer_Di(QByteArray(), 'x')));
    QVERIFY(!Risposta_Valida(BufferRx{}));
    // Not for its check character: 105 * 120 = 12600, 56 of it.
    QVERIFY(!Risposta_Valida(Buffer_Di(QByteArray(LUNGHEZZA_RX - 1, 'x') + '6')));
}

void tst_protocollo::leggeLaMisura()
{
    const QByteArray frame = Risposta_Misura("0001O#", "9999#N", "1234OO", "0560X\xE9");
    QCOMPARE(frame.size(), 30);
    const QStringList righe = Misura_Letta(frame);
    QCOMPARE(righe.join(u' '), QStringLiteral(u"L0=1 V0=O O0=# L1=9999 V1=# O1=N L2=1234 V2=O O2=O "
                                              u"L3=560 V3=X O3=\u00E9"));
    QCOMPARE(gMisure[0].Lux, 1);
    QCOMPARE(gMisure[1].Lux, 9999);
    QCOMPARE(gMisure[1].EsitoV, QStringLiteral("#"));
    QCOMPARE(gMisure[1].EsitoO, QStringLiteral("N"));
    QCOMPARE(gMisure[2].Lux, 1234);
    QCOMPARE(gMisure[3].Lux, 560);
    QCOMPARE(gMisure[3].EsitoO, QStringLiteral(u"\u00E9"));
}

void tst_protocollo::figuraConZeriInTesta()
{
    Misura_Letta(Risposta_Misura("0123OO", "0000OO", "0010OO", "0009OO"));
    QCOMPARE(gMisure[0].Lux, 123);
    QCOMPARE(gMisure[1].Lux, 0);
    QCOMPARE(gMisure[2].Lux, 10);
    QCOMPARE(gMisure[3].Lux, 9);
}

void tst_protocollo::misuraAzzerataPrimaDiLeggere()
{
    gMisure.fill({4321, QStringLiteral("a"), QStringLiteral("b")});
    // The second figure overflows: the records behind it are already cleared.
    QCOMPARE(Errore_Di([] {
                 Misura_Letta(Risposta_Misura("0001OO",
                                              "\xFF"
                                              "001OO",
                                              "0001OO", "0001OO"));
             }),
             6);
    QCOMPARE(gMisure[0].Lux, 1);
    QCOMPARE(gMisure[1].Lux, -1);
    QCOMPARE(gMisure[3].Lux, -1);
    QCOMPARE(gMisure[3].EsitoV, QString());
    QCOMPARE(gMisure[3].EsitoO, QString());
}

void tst_protocollo::cifreNonValidate_data()
{
    QTest::addColumn<QByteArray>("cifre");
    QTest::addColumn<int>("lux");

    QTest::newRow("spazi davanti") << QByteArray("   5") << -16 * 1110 + 5;
    QTest::newRow("zero binario alle unita'") << QByteArray("100\0", 4) << 1000 - 48;
    QTest::newRow("zero binario alle decine") << QByteArray("10\0"
                                                            "0",
                                                            4)
                                              << 1000 - 480;
    QTest::newRow("zero binario alle centinaia") << QByteArray("1\0"
                                                               "00",
                                                               4)
                                                 << 1000 - 4800;
    QTest::newRow("lettera") << QByteArray("00A0") << 170;
    QTest::newRow("migliaia 0x10") << QByteArray("\x10"
                                                 "000")
                                   << -32000;
    QTest::newRow("migliaia 0x50") << QByteArray("P000") << 32000;
    QTest::newRow("byte piu' alti sotto le migliaia") << QByteArray("0\xFF\xFF\xFF") << 207 * 111;
}

void tst_protocollo::cifreNonValidate()
{
    QFETCH(QByteArray, cifre);
    QFETCH(int, lux);
    const QStringList righe = Misura_Letta(Risposta_Misura("0000OO", cifre + "OO", "0000OO", "0000OO"));
    QCOMPARE(gMisure[1].Lux, lux);
    QCOMPARE(righe[3], QStringLiteral("L1=%1").arg(lux));
}

void tst_protocollo::cifraChePassa16Bit_data()
{
    QTest::addColumn<QByteArray>("cifre");

    QTest::newRow("migliaia 0x51") << QByteArray("Q000");
    QTest::newRow("migliaia 0x0F") << QByteArray("\x0F"
                                                 "000");
    QTest::newRow("migliaia 0x00") << QByteArray("\0"
                                                 "000",
                                                 4);
    QTest::newRow("migliaia 0xFF") << QByteArray("\xFF"
                                                 "000");
    // 33000 - 1600: the thousands alone are too many, whatever the sum
    QTest::newRow("prodotto troppo alto") << QByteArray("Q 00");
    // 32000 + 700 + 380
    QTest::newRow("somma troppo alta") << QByteArray("P7V0");
    // -32000 - 800 + 30 - 7
    QTest::newRow("somma troppo bassa") << QByteArray("\x10"
                                                      "(3)");
}

void tst_protocollo::cifraChePassa16Bit()
{
    QFETCH(QByteArray, cifre);
    QCOMPARE(
        Errore_Di([&cifre] { Misura_Letta(Risposta_Misura("0000OO", "0000OO", cifre + "OO", "0000OO")); }),
        6);
    QCOMPARE(gMisure[2].Lux, -1);
}

void tst_protocollo::misuraCortaLeggeIlFramePrecedente()
{
    Assemblatore assemblatore;
    Passa(assemblatore, Risposta_Misura("1111AA", "2222BB", "3333CC", "4444DD"));
    Passa(assemblatore, Frame_Risposta("ABC9876EF5432GH"));
    QVERIFY(Risposta_Valida(assemblatore.BufRx));
    Leggi_Misura(assemblatore.BufRx, [](const QString &) {});
    QCOMPARE(gMisure[0].Lux, 9876);
    QCOMPARE(gMisure[1].Lux, 5432);
    QCOMPARE(gMisure[1].EsitoO, QStringLiteral("H"));
    // Two bytes of the third record are the short frame's check character and end byte.
    const int controllo = Frame_Risposta("ABC9876EF5432GH").at(16);
    QCOMPARE(gMisure[2].Lux, 1000 * (controllo - 0x30) + 100 * (3 - 0x30) + 33);
    QCOMPARE(gMisure[3].Lux, 4444);
    QCOMPARE(gMisure[3].EsitoO, QStringLiteral("D"));
}

void tst_protocollo::misuraCortaInSessioneNuova()
{
    // The bytes never received are 0: a thousands place of 0x00 is beyond 16 bits.
    QCOMPARE(Errore_Di([] { Misura_Letta(Frame_Risposta("ABC9876EF")); }), 6);
    QCOMPARE(gMisure[0].Lux, 9876);
}

void tst_protocollo::leggeIDati()
{
    QStringList testi;
    const QByteArray frame = Risposta_Dati({"QX5", "", "OM\xE0", "77", "01/02/2030", "Rossi"});
    const QStringList righe = Testi_Letti(frame, 5, testi);
    QCOMPARE(righe,
             QStringList({QStringLiteral("QX5"), QString(), QStringLiteral(u"OM\u00E0"), QStringLiteral("77"),
                          QStringLiteral("01/02/2030"), QStringLiteral("Rossi")}));
    QCOMPARE(testi.size(), 7);
    QCOMPARE(testi.first(6), righe);
    QCOMPARE(testi[6], QString(QChar::fromLatin1(frame[frame.size() - 2])));
}

void tst_protocollo::leggeLaTaratura()
{
    QStringList testi;
    const QByteArray frame = Risposta_Taratura({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"});
    Testi_Letti(frame, 4, testi);
    QCOMPARE(testi.size(), 11);
    QCOMPARE(testi.first(10).join(u' '), QStringLiteral("1 2 3 4 5 6 7 8 9 10"));
    QCOMPARE(testi[10], QString(QChar::fromLatin1(frame[frame.size() - 2])));
}

void tst_protocollo::testiSenzaFine()
{
    QStringList testi;
    const QStringList righe = Testi_Letti(Esa("02414243554117"), 5, testi, 'x');
    QCOMPARE(righe, QStringList(QStringLiteral("A")));
    QCOMPARE(testi, QStringList({QStringLiteral("A"), QString(99, u'x')})); // up to offset 105
}

void tst_protocollo::separatoreNelTestoSpostaISeguenti()
{
    const QByteArray dati = Componi_Dati({QStringLiteral(u"a\u0017b"), QStringLiteral("c")});
    QStringList testi;
    Testi_Letti(Frame_Risposta("ABCU" + dati), 5, testi);
    QCOMPARE(testi.first(3).join(u' '), QStringLiteral("a b c"));
}

void tst_protocollo::leggiTestiSostituisceIVecchi()
{
    QStringList testi(8, QStringLiteral("vecchio"));
    const QStringList righe = Testi_Letti(Esa("0241424355"
                                              "3703"),
                                          5, testi);
    QCOMPARE(testi, QStringList(QStringLiteral("7")));
    QCOMPARE(righe, QStringList());
}

QTEST_GUILESS_MAIN(tst_protocollo)
#include "tst_protocollo.moc"
