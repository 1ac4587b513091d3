// The serial control on COM ports. At the far end of COM1 and COM12 somebody sends every byte back, and hangs
// up at the byte 0x04: tests/windows/prova_seriale.py, which starts this program.
#include "link/seriale.h"

#include "platform/errore_esecuzione.h"
#include "tests/link/porta_vera_win32.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

namespace {

constexpr qint16 PORTA = 1;
constexpr qint16 PORTA_OLTRE_LA_NONA = 12;
constexpr qint16 PORTA_MANCANTE = 9;
constexpr char RIAGGANCIA[] = "\x04";

template <typename Procedura>
int Errore_Di(Procedura procedura)
{
    try {
        procedura();
    } catch (const ErroreEsecuzione &errore) {
        return errore.Numero();
    }
    return 0;
}

} // namespace

class tst_seriale_win32 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_porta.reset(); }

    void byteNeiDueVersi();
    void zeroConservato();
    void senzaSogliaNessunEvento();
    void bloccoLungo();
    void ingressoPienoPerdeIlResto();
    void eventoDuranteUnRiquadro();
    void erroriDiLinea_data();
    void erroriDiLinea();
    void frameInCodaLasciatoCadere();
    void chiusuraNonAspettaLaLineaPiena();
    void riapertaFunzionaAncora();
    void chiusaDentroLEvento();
    void portaOltreLaNona();
    void portaMancante();
    void portaOccupata();
    void portaChiusaSolleva();
    void impostazioni_data();
    void impostazioni();
    void formatoCheArrivaAllaPorta_data();
    void formatoCheArrivaAllaPorta();
    void formatoRifiutato();
    void formatoCheLoPseudoTerminaleNonHa();
    void cavoStaccato(); // the last: nobody puts the cable back

private:
    void Apri(qint16 numero = PORTA);

    std::unique_ptr<ControlloSeriale> m_porta;
    int m_eventi = 0;
    QList<qint16> m_altri; ///< events that brought no bytes
    QByteArray m_arrivati;
};

void tst_seriale_win32::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_porta = Crea_ControlloSeriale();
    m_eventi = 0;
    m_altri.clear();
    m_arrivati.clear();
}

void tst_seriale_win32::Apri(qint16 numero)
{
    m_porta->OnComm = [this] {
        if (m_porta->CommEvent() != EventoRicezione) {
            m_altri.append(m_porta->CommEvent());
            return;
        }
        ++m_eventi;
        m_arrivati += m_porta->Input();
    };
    m_porta->CommPort(numero);
    m_porta->PortOpen(true);
    m_porta->Settings(QStringLiteral("9600,N,8,1"));
    m_porta->InputLen(0);
    m_porta->InputMode(1);
    m_porta->RThreshold(1);
    m_porta->NullDiscard(false);
}

void tst_seriale_win32::byteNeiDueVersi()
{
    Apri();
    m_porta->Output("\x02"
                    "ABC22\x03");
    QTRY_COMPARE(m_arrivati, QByteArray("\x02"
                                        "ABC22\x03"));
    QVERIFY(m_eventi >= 1);
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
}

void tst_seriale_win32::zeroConservato()
{
    Apri();
    const QByteArray byte("a\0b\xFF\x11\x13", 6);
    m_porta->Output(byte);
    QTRY_COMPARE(m_arrivati, byte);
}

void tst_seriale_win32::senzaSogliaNessunEvento()
{
    Apri();
    m_porta->RThreshold(0);
    m_porta->Output("xyz");
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(3));
    QCOMPARE(m_eventi, 0);
    QCOMPARE(m_porta->Input(), QByteArray("xyz"));
}

void tst_seriale_win32::bloccoLungo()
{
    Apri();
    QByteArray blocco;
    for (int i = 0; i < 1000; ++i)
        blocco.append(char('0' + i % 60));
    for (int giro = 1; giro <= 3; ++giro) {
        m_porta->Output(blocco);
        QTRY_COMPARE(m_arrivati, blocco.repeated(giro));
    }
}

void tst_seriale_win32::ingressoPienoPerdeIlResto()
{
    Apri();
    m_porta->RThreshold(0); // nobody takes them
    QByteArray byte;
    for (int i = 0; i < 1500; ++i)
        byte.append(char('0' + i % 60));
    m_porta->Output(byte);
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(1024));
    const QDeadlineTimer unPo(500);
    QTRY_VERIFY(unPo.hasExpired());
    QCOMPARE(m_porta->Input(), byte.first(1024));
    m_porta->Output("abc");
    QTRY_COMPARE(m_porta->InBufferCount(), qint16(3));
    QCOMPARE(m_porta->Input(), QByteArray("abc"));
}

void tst_seriale_win32::eventoDuranteUnRiquadro()
{
    // While the handler of one event sits in a modal box, the next bytes raise theirs.
    Apri();
    const auto raccogli = m_porta->OnComm;
    bool annidato = false;
    m_porta->OnComm = [&] {
        raccogli();
        if (m_arrivati != "uno" || std::exchange(annidato, true))
            return;
        m_porta->Output("due");
        QTRY_COMPARE(m_arrivati, QByteArray("unodue"));
    };
    m_porta->Output("uno");
    QTRY_COMPARE(m_arrivati, QByteArray("unodue"));
    m_porta->Output("tre");
    QTRY_COMPARE(m_arrivati, QByteArray("unoduetre"));
}

void tst_seriale_win32::erroriDiLinea_data()
{
    QTest::addColumn<uint>("errori");
    QTest::addColumn<QList<qint16>>("eventi");
    QTest::newRow("break") << uint{CE_BREAK} << QList<qint16>{1001};
    QTest::newRow("frame") << uint{CE_FRAME} << QList<qint16>{1004};
    QTest::newRow("overrun") << uint{CE_OVERRUN} << QList<qint16>{1006};
    QTest::newRow("buffer pieno") << uint{CE_RXOVER} << QList<qint16>{1008};
    QTest::newRow("parita'") << uint{CE_RXPARITY} << QList<qint16>{1009};
    QTest::newRow("due insieme") << uint{CE_FRAME | CE_RXPARITY} << QList<qint16>{1004, 1009};
}

/// They come as events of their own and take no byte along.
void tst_seriale_win32::erroriDiLinea()
{
    QFETCH(uint, errori);
    QFETCH(QList<qint16>, eventi);
    PortaVera porta;
    Apri();
    porta.Errori = errori;
    m_porta->Output("abc");
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
    QTRY_COMPARE(m_altri, eventi);
}

void tst_seriale_win32::frameInCodaLasciatoCadere()
{
    PortaVera porta;
    Apri();
    porta.Piena = true;
    m_porta->Output("per strada");
    m_porta->Output("in coda");
    m_porta->OutBufferCount(0);
    QCOMPARE(porta.Svuotate, QList<DWORD>{PURGE_TXABORT | PURGE_TXCLEAR});
    porta.Piena = false;
    m_porta->Output("nuovo");
    QTRY_COMPARE(m_arrivati, QByteArray("nuovo"));
}

void tst_seriale_win32::chiusuraNonAspettaLaLineaPiena()
{
    PortaVera porta;
    Apri();
    porta.Piena = true;
    m_porta->Output("per strada");
    m_porta->Output("in coda");
    QElapsedTimer durata;
    durata.start();
    m_porta->PortOpen(false);
    QVERIFY(durata.elapsed() < 1000);
    // The system itself would wait for what has not gone out.
    QCOMPARE(porta.Svuotate, QList<DWORD>{PURGE_TXABORT | PURGE_TXCLEAR});
    porta.Piena = false;
    Apri();
    m_porta->Output("nuovo");
    QTRY_COMPARE(m_arrivati, QByteArray("nuovo"));
}

void tst_seriale_win32::riapertaFunzionaAncora()
{
    Apri();
    m_porta->PortOpen(false);
    QVERIFY(!m_porta->PortOpen());
    Apri();
    m_porta->Output("di nuovo");
    QTRY_COMPARE(m_arrivati, QByteArray("di nuovo"));
}

void tst_seriale_win32::chiusaDentroLEvento()
{
    Apri();
    m_porta->OnComm = [this] {
        ++m_eventi;
        m_porta->PortOpen(false);
    };
    m_porta->Output("x");
    QTRY_COMPARE(m_eventi, 1);
    QVERIFY(!m_porta->PortOpen());
}

void tst_seriale_win32::portaOltreLaNona()
{
    Apri(PORTA_OLTRE_LA_NONA);
    m_porta->Output("dodici");
    QTRY_COMPARE(m_arrivati, QByteArray("dodici"));
}

void tst_seriale_win32::portaMancante()
{
    QCOMPARE(Errore_Di([this] { Apri(PORTA_MANCANTE); }), 8002);
    QVERIFY(!m_porta->PortOpen());
}

void tst_seriale_win32::portaOccupata()
{
    Apri();
    const auto altra = Crea_ControlloSeriale();
    altra->CommPort(PORTA);
    QVERIFY(Errore_Di([&altra] { altra->PortOpen(true); }) != 0);
    m_porta->PortOpen(false);
    QCOMPARE(Errore_Di([&altra] { altra->PortOpen(true); }), 0);
}

void tst_seriale_win32::portaChiusaSolleva()
{
    QCOMPARE(Errore_Di([this] { m_porta->Input(); }), 8018);
    QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(0); }), 8018);
    QCOMPARE(Errore_Di([this] { m_porta->Output("x"); }), 8018);
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
    m_porta->PortOpen(false); // closing once more is no error
}

void tst_seriale_win32::impostazioni_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("errore");

    for (const char *buono : {"9600,N,8,1", "9600,n,8,1", "19200,E,7,2", "115200,O,8,1"})
        QTest::newRow(buono) << QString::fromLatin1(buono) << 0;
    for (const char *guasto :
         {"9600", "9600,N,8", "0,N,8,1", "x,N,8,1", "9600,X,8,1", "9600,N,9,1", "9600,N,8,3"})
        QTest::newRow(guasto) << QString::fromLatin1(guasto) << 380;
}

void tst_seriale_win32::impostazioni()
{
    QFETCH(QString, testo);
    QFETCH(int, errore);
    Apri();
    QCOMPARE(Errore_Di([&] { m_porta->Settings(testo); }), errore);
    QVERIFY(m_porta->PortOpen());
}

void tst_seriale_win32::formatoCheArrivaAllaPorta_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("velocita");
    QTest::addColumn<int>("bit");
    QTest::addColumn<int>("parita");
    QTest::addColumn<int>("stop");

    const auto riga = [](const char *testo, int velocita, int bit, int parita, int stop) {
        QTest::newRow(testo) << QString::fromLatin1(testo) << velocita << bit << parita << stop;
    };
    riga("9600,N,8,1", 9600, 8, NOPARITY, ONESTOPBIT);
    riga("1200,N,8,2", 1200, 8, NOPARITY, TWOSTOPBITS);
    riga("300,E,7,1", 300, 7, EVENPARITY, ONESTOPBIT);
    riga("19200,O,7,2", 19200, 7, ODDPARITY, TWOSTOPBITS);
    riga("115200,n,8,1", 115200, 8, NOPARITY, ONESTOPBIT);
    riga("2400,e,8,1", 2400, 8, EVENPARITY, ONESTOPBIT);
    riga("4800,o,8,1", 4800, 8, ODDPARITY, ONESTOPBIT);
}

void tst_seriale_win32::formatoCheArrivaAllaPorta()
{
    QFETCH(QString, testo);
    QFETCH(int, velocita);
    QFETCH(int, bit);
    QFETCH(int, parita);
    QFETCH(int, stop);
    const PortaVera porta;
    m_porta->CommPort(PORTA);
    m_porta->PortOpen(true);
    m_porta->Settings(testo);
    QCOMPARE(int(porta.Formato.BaudRate), velocita);
    QCOMPARE(int{porta.Formato.ByteSize}, bit);
    QCOMPARE(int{porta.Formato.Parity}, parita);
    QCOMPARE(int{porta.Formato.StopBits}, stop);
    QCOMPARE(bool(porta.Formato.fParity), parita != NOPARITY);
    // No flow control, every byte kept, DTR raised and RTS not.
    QVERIFY(porta.Formato.fBinary);
    QVERIFY(!porta.Formato.fOutxCtsFlow && !porta.Formato.fOutxDsrFlow && !porta.Formato.fDsrSensitivity);
    QVERIFY(!porta.Formato.fOutX && !porta.Formato.fInX);
    QVERIFY(!porta.Formato.fErrorChar && !porta.Formato.fNull && !porta.Formato.fAbortOnError);
    QCOMPARE(int(porta.Formato.fDtrControl), DTR_CONTROL_ENABLE);
    QCOMPARE(int(porta.Formato.fRtsControl), RTS_CONTROL_DISABLE);
}

/// The port is closed and every frame fails: the session stands, and is not taken for one with a silent
/// instrument.
void tst_seriale_win32::formatoRifiutato()
{
    PortaVera porta;
    Apri();
    porta.Rifiuta = true;
    QCOMPARE(Errore_Di([this] { m_porta->Settings(QStringLiteral("9600,N,8,2")); }), 380);
    QVERIFY(!m_porta->PortOpen());
    QCOMPARE(Errore_Di([this] { m_porta->Output("x"); }), 8018);
}

void tst_seriale_win32::formatoCheLoPseudoTerminaleNonHa()
{
    PortaVera porta;
    porta.LineeModem = false;
    porta.Rifiuta = true;
    Apri();
    m_porta->Output("abc");
    QTRY_COMPARE(m_arrivati, QByteArray("abc"));
}

void tst_seriale_win32::cavoStaccato()
{
    Apri();
    m_porta->Output("x");
    QTRY_COMPARE(m_arrivati, QByteArray("x"));
    m_porta->Output(RIAGGANCIA);
    // Whatever goes out now is lost without a word; the loop goes round as before.
    for (int giro = 0; giro < 20; ++giro) {
        QCOMPARE(Errore_Di([this] { m_porta->Output("perduto"); }), 0);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QCOMPARE(m_arrivati.left(1), QByteArray("x"));
    m_porta->PortOpen(false);
    QVERIFY(!m_porta->PortOpen());
}

QTEST_GUILESS_MAIN(tst_seriale_win32)
#include "tst_seriale_win32.moc"
