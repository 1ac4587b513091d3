// The serial control on COM ports. At the far end of COM1 and COM12 somebody sends every byte back, and hangs
// up at the byte 0x04: tests/windows/prova_seriale.py, which starts this program.
#include "link/seriale.h"

#include "platform/errore_esecuzione.h"

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
    void riapertaFunzionaAncora();
    void chiusaDentroLEvento();
    void portaOltreLaNona();
    void portaMancante();
    void portaOccupata();
    void portaChiusaSolleva();
    void impostazioni_data();
    void impostazioni();
    void cavoStaccato(); // the last: nobody puts the cable back

private:
    void Apri(qint16 numero = PORTA);

    std::unique_ptr<ControlloSeriale> m_porta;
    int m_eventi = 0;
    QByteArray m_arrivati;
};

void tst_seriale_win32::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_porta = Crea_ControlloSeriale();
    m_eventi = 0;
    m_arrivati.clear();
}

void tst_seriale_win32::Apri(qint16 numero)
{
    m_porta->OnComm = [this] {
        if (m_porta->CommEvent() != EventoRicezione)
            return;
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
    for (int i = 0; i < 3000; ++i)
        blocco.append(char('0' + i % 60));
    m_porta->Output(blocco);
    QTRY_COMPARE(m_arrivati, blocco);
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
