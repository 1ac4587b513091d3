// The serial control on COM ports. At the far end of COM1 and COM12 somebody sends every byte back; who is
// told so on COM12 pulls the adapter of COM1 out and plugs it in again: tests/windows/prova_seriale.py, which
// starts this program.
#include "link/seriale.h"

#include "platform/errore_esecuzione.h"
#include "platform/porta_seriale.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/linea_prova.h"
#include "tests/link/porta_vera_win32.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

namespace {

constexpr qint16 PORTA = 1;
constexpr qint16 PORTA_OLTRE_LA_NONA = 12;
constexpr qint16 PORTA_MANCANTE = 9;
/// What the adapter of COM1 is told, on COM12.
constexpr char STACCA[] = "\x04";
constexpr char RIMETTI[] = "\x05";

// What the system ends a read with, and the error that it becomes.
constexpr uint ABBANDONATA = 0xC0000120U;      // ERROR_OPERATION_ABORTED
constexpr uint IN_RIMOZIONE = 0xC0000056U;     // ERROR_ACCESS_DENIED
constexpr uint STATO_NON_VALIDO = 0xC0000184U; // ERROR_BAD_COMMAND
constexpr uint RIMOSSO = 0xC00002B6U;          // ERROR_DEVICE_REMOVED
constexpr uint NON_RIUSCITA = 0xC0000001U;     // ERROR_GEN_FAILURE

/// Counts the ends of calls that the form loop is told of.
class ContaAvvisi : public QObject
{
public:
    int Avvisi = 0;
    bool eventFilter(QObject *, QEvent *evento) override
    {
        if (evento->type() == QEvent::WinEventAct)
            ++Avvisi;
        return false;
    }
};

} // namespace

class tst_seriale_win32 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void nomeDellaPorta_data();
    void nomeDellaPorta();
    void porteDellaMacchina();
    void portaMancante();
    void portaOccupata();
    void portaChiusaSolleva();
    void formatoCheArrivaAllaPorta_data();
    void formatoCheArrivaAllaPorta();
    void formatoRifiutato();
    void formatoCheLoPseudoTerminaleNonHa();
    void codaDelDriver();
    void rafficaFraDueGiri();

    void cavoStaccato();
    void adattatoreRimessoFraDueSessioni();
    void adattatoreRimessoASessioneAperta();
    void adattatoreTolto_data();
    void adattatoreTolto();
    void adattatoreToltoMentreSiManda();
    void adattatoreToltoELaLetturaNonFinisce();
    void adattatoreToltoDuranteLApertura_data();
    void adattatoreToltoDuranteLApertura();
    void letturaAbbandonataNonPerdeLaLinea();
    void controlloDistruttoNonLasciaManiglie();
    void chiusaNonAvvisaDiCioCheAbbandona();

private:
    void Apri(qint16 numero = PORTA);
    void Ordina(const char *ordine);
    /// The port works: what goes out comes back.
    void Verifica_Eco(const QByteArray &byte);
    /// The session goes on as on a line without an instrument, and ends.
    void Verifica_Sorda();

    bool m_staccato = false; ///< the adapter of COM1

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

void tst_seriale_win32::cleanup()
{
    m_porta.reset();
    if (m_staccato)
        Ordina(RIMETTI);
}

void tst_seriale_win32::Ordina(const char *ordine)
{
    const auto comandi = Crea_ControlloSeriale();
    comandi->CommPort(PORTA_OLTRE_LA_NONA);
    comandi->PortOpen(true);
    comandi->Settings(QStringLiteral("9600,N,8,1"));
    comandi->Output(ordine);
    m_staccato = ordine == STACCA;
    QTRY_COMPARE(comandi->InBufferCount(), qint16(1)); // it has been carried out
}

void tst_seriale_win32::Verifica_Eco(const QByteArray &byte)
{
    m_arrivati.clear();
    m_porta->Output(byte);
    QTRY_COMPARE(m_arrivati, byte);
}

void tst_seriale_win32::Verifica_Sorda()
{
    m_arrivati.clear();
    m_eventi = 0;
    QVERIFY(m_porta->PortOpen());
    for (int giro = 0; giro < 20; ++giro) {
        QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(0); }), 0);
        QCOMPARE(Errore_Di([this] { m_porta->Output("perduto"); }), 0);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QCOMPARE(m_eventi, 0);
    QCOMPARE(m_porta->Input(), QByteArray());
    QVERIFY(m_porta->PortOpen());
    m_porta->PortOpen(false);
    QVERIFY(!m_porta->PortOpen());
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

void tst_seriale_win32::nomeDellaPorta_data()
{
    QTest::addColumn<qint16>("numero");
    QTest::addColumn<QString>("nome");
    QTest::newRow("prima") << qint16(1) << QStringLiteral("\\\\.\\COM1");
    QTest::newRow("decima") << qint16(10) << QStringLiteral("\\\\.\\COM10");
    QTest::newRow("ultima dell'elenco") << qint16(20) << QStringLiteral("\\\\.\\COM20");
    QTest::newRow("ultima del sistema") << qint16(256) << QStringLiteral("\\\\.\\COM256");
}

void tst_seriale_win32::nomeDellaPorta()
{
    QFETCH(qint16, numero);
    QFETCH(QString, nome);
    PortaVera porta;
    m_porta->CommPort(numero);
    Errore_Di([this] { m_porta->PortOpen(true); });
    QCOMPARE(porta.Nomi, QStringList(nome));
}

/// What the menu says of a port, without opening it.
void tst_seriale_win32::porteDellaMacchina()
{
    QVERIFY(Porta_Presente(PORTA));
    QVERIFY(Porta_Presente(PORTA_OLTRE_LA_NONA));
    QVERIFY(!Porta_Presente(PORTA_MANCANTE));
    Apri();
    QVERIFY(Porta_Presente(PORTA)); // a session has it
}

void tst_seriale_win32::portaMancante()
{
    QCOMPARE(Errore_Di([this] { Apri(PORTA_MANCANTE); }), 8002);
    QVERIFY(!m_porta->PortOpen());
}

/// A port has one user at a time, whatever program that is.
void tst_seriale_win32::portaOccupata()
{
    const PortaVera porta;
    Apri();
    const auto altra = Crea_ControlloSeriale();
    altra->CommPort(PORTA);
    QCOMPARE(Errore_Di([&altra] { altra->PortOpen(true); }), 8002);
    QVERIFY(!altra->PortOpen());
    m_porta->PortOpen(false);
    QCOMPARE(Errore_Di([&altra] { altra->PortOpen(true); }), 0);
    QVERIFY(altra->PortOpen());
}

void tst_seriale_win32::portaChiusaSolleva()
{
    QCOMPARE(Errore_Di([this] { m_porta->Input(); }), 8018);
    QCOMPARE(Errore_Di([this] { m_porta->OutBufferCount(0); }), 8018);
    QCOMPARE(Errore_Di([this] { m_porta->Output("x"); }), 8018);
    QCOMPARE(m_porta->InBufferCount(), qint16(0));
    m_porta->PortOpen(false); // closing once more is no error
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

/// The driver's queue holds what comes in while the loop stands still.
void tst_seriale_win32::codaDelDriver()
{
    const PortaVera porta;
    Apri();
    QCOMPARE(int(porta.CodaIngresso), BUFFER_INGRESSO);
}

void tst_seriale_win32::rafficaFraDueGiri()
{
    const PortaVera porta;
    Apri();
    m_porta->Settings(QStringLiteral("115200,N,8,1"));
    const QByteArray risposta = Risposta_Stato('1');
    const qsizetype quante = BUFFER_INGRESSO / risposta.size();
    QByteArray raffica = risposta.repeated(quante);
    raffica += QByteArray(BUFFER_INGRESSO - raffica.size(), 'x'); // noise between two frames
    Assemblatore ricezione;
    for (int giro = 0; giro < 5; ++giro) {
        m_arrivati.clear();
        m_porta->Output(raffica);
        // Nobody turns the loop until all is there; one byte is in the read that waits.
        QDeadlineTimer limite(5000);
        while (porta.In_Coda() < BUFFER_INGRESSO - 1 && !limite.hasExpired())
            QThread::yieldCurrentThread();
        QCOMPARE(m_arrivati, QByteArray());
        QTRY_COMPARE(m_arrivati.size(), raffica.size());
        QCOMPARE(m_arrivati, raffica);
        QCOMPARE(Risposte_Valide(ricezione, m_arrivati), quante);
    }
}

// --- an adapter pulled out --------------------------------------------------------------------------------

void tst_seriale_win32::cavoStaccato()
{
    Apri();
    Verifica_Eco("x");
    Ordina(STACCA);
    Verifica_Sorda();
}

void tst_seriale_win32::adattatoreRimessoFraDueSessioni()
{
    Apri();
    Verifica_Eco("prima");
    m_porta->PortOpen(false);
    Ordina(STACCA);
    QCOMPARE(Errore_Di([this] { Apri(); }), 8002);
    QVERIFY(!m_porta->PortOpen());
    Ordina(RIMETTI);
    Apri();
    Verifica_Eco("dopo");
}

/// The session that lost it does not get it back; the next one has it.
void tst_seriale_win32::adattatoreRimessoASessioneAperta()
{
    Apri();
    Verifica_Eco("prima");
    Ordina(STACCA);
    Ordina(RIMETTI);
    Verifica_Sorda();
    Apri();
    Verifica_Eco("dopo");
}

void tst_seriale_win32::adattatoreTolto_data()
{
    QTest::addColumn<uint>("stato");
    QTest::newRow("accesso negato") << IN_RIMOZIONE;
    QTest::newRow("comando non valido") << STATO_NON_VALIDO;
    QTest::newRow("rimosso") << RIMOSSO;
    QTest::newRow("non funziona") << NON_RIUSCITA;
    QTest::newRow("operazione abbandonata") << ABBANDONATA;
}

/// Every driver ends the read that waits in its own way. The handle is closed while the session still stands:
/// the adapter would not get its number back.
void tst_seriale_win32::adattatoreTolto()
{
    QFETCH(uint, stato);
    PortaVera porta;
    Apri();
    porta.Muta = true;
    Verifica_Eco("x");
    QVERIFY(porta.In_Lettura());
    porta.Togli();
    porta.Interrompi(stato);
    QTRY_COMPARE(porta.Aperte(), qsizetype(0));
    Verifica_Sorda();
    QCOMPARE(Errore_Di([this] { Apri(); }), 8002);

    porta.Rimetti();
    porta.Muta = false;
    Apri();
    Verifica_Eco("dopo");
}

void tst_seriale_win32::adattatoreToltoMentreSiManda()
{
    PortaVera porta;
    Apri();
    porta.Togli();
    QCOMPARE(Errore_Di([this] { m_porta->Output("perduto"); }), 0);
    QCOMPARE(porta.Aperte(), qsizetype(0));
    Verifica_Sorda();
}

/// Some drivers leave the read waiting; the wait for the events of the line they end.
void tst_seriale_win32::adattatoreToltoELaLetturaNonFinisce()
{
    PortaVera porta;
    porta.Muta = true;
    Apri();
    QVERIFY(porta.In_Lettura());
    porta.Togli();
    porta.Sveglia_Attesa();
    QTRY_COMPARE(porta.Aperte(), qsizetype(0));
    Verifica_Sorda();
}

void tst_seriale_win32::adattatoreToltoDuranteLApertura_data()
{
    QTest::addColumn<QByteArray>("chiamata");
    QTest::addColumn<int>("errore");
    for (const char *apre :
         {"CreateFile", "SetupComm", "GetCommState", "SetCommTimeouts", "ClearCommError", "ReadFile"})
        QTest::newRow(apre) << QByteArray(apre) << 8002;
    // From here on it is an adapter pulled out of an open port.
    for (const char *aperta : {"SetCommMask", "WaitCommEvent", "SetCommState"})
        QTest::newRow(aperta) << QByteArray(aperta) << 0;
}

void tst_seriale_win32::adattatoreToltoDuranteLApertura()
{
    QFETCH(QByteArray, chiamata);
    QFETCH(int, errore);
    PortaVera porta;
    porta.Muta = true;
    porta.Chiamata = [&porta, &chiamata](const char *nome) {
        if (chiamata == nome)
            porta.Togli();
    };
    QCOMPARE(Errore_Di([this] { Apri(); }), errore);
    QCOMPARE(m_porta->PortOpen(), errore == 0);
    if (errore == 0) {
        porta.Interrompi(STATO_NON_VALIDO);
        QTRY_COMPARE(porta.Aperte(), qsizetype(0));
        Verifica_Sorda();
    }
    QCOMPARE(porta.Aperte(), qsizetype(0));

    porta.Chiamata = nullptr;
    porta.Rimetti();
    porta.Muta = false;
    Apri();
    Verifica_Eco("dopo");
}

/// A driver gives its reads up when the machine goes to sleep too, and works on afterwards.
void tst_seriale_win32::letturaAbbandonataNonPerdeLaLinea()
{
    PortaVera porta;
    Apri();
    porta.Muta = true;
    Verifica_Eco("x");
    QVERIFY(porta.In_Lettura());
    porta.Muta = false;
    porta.Interrompi(ABBANDONATA);
    Verifica_Eco("abc");
    QCOMPARE(porta.Aperte(), qsizetype(1));
}

/// A station makes a control for each session, thousands between two starts.
void tst_seriale_win32::controlloDistruttoNonLasciaManiglie()
{
    PortaVera porta;
    m_porta = Crea_ControlloSeriale();
    QVERIFY(porta.Eventi() > 0);
    Apri();
    Verifica_Eco("x");
    m_porta.reset();
    QCOMPARE(porta.Aperte(), qsizetype(0));
    QCOMPARE(porta.Eventi(), qsizetype(0));
}

/// A session closes its line and lets go of the control at once: what is told of it then finds no control.
void tst_seriale_win32::chiusaNonAvvisaDiCioCheAbbandona()
{
    ContaAvvisi conta;
    qApp->installEventFilter(&conta);
    PortaVera porta;
    Apri();
    porta.Muta = true;
    Verifica_Eco("x");
    QVERIFY(porta.In_Lettura());
    QTRY_VERIFY(conta.Avvisi > 0); // of the echo
    porta.Lenta = true;
    conta.Avvisi = 0;
    m_porta->PortOpen(false);
    const QDeadlineTimer unPo(200);
    QTRY_VERIFY(unPo.hasExpired());
    QCOMPARE(conta.Avvisi, 0);

    porta.Muta = false;
    porta.Lenta = false;
    Apri();
    Verifica_Eco("dopo");
}

QTEST_GUILESS_MAIN(tst_seriale_win32)
#include "tst_seriale_win32.moc"
