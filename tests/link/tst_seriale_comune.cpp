// What the serial control is on every system, over a device of the test's own: how a settings text is read.
#include "link/seriale_comune.h"

#include "tests/comuni/errore_prova.h"

#include <QTest>

namespace {

/// A device that keeps the format it was given last.
class SerialeProva final : public SerialeComune
{
public:
    FormatoLinea Formato;
    int Formati = 0; ///< how many it was given
    bool Rifiuta = false;
    bool Tolto = false; ///< the adapter has been pulled out

private:
    bool Apri_Dispositivo(qint16) override { return true; }
    void Chiudi_Dispositivo() override {}
    bool Dispositivo_Aperto() const override { return PortOpen() && !Tolto; }
    bool Imposta_Formato(const FormatoLinea &formato) override
    {
        Formato = formato;
        ++Formati;
        return !Rifiuta;
    }
    void Svuota_Uscita() override {}
    void Manda(const QByteArray &) override {}
};

} // namespace

class tst_seriale_comune : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dispositivoTolto()
    {
        SerialeProva porta;
        porta.Tolto = true;
        QVERIFY(!porta.Persa()); // nobody has opened it
        porta.Tolto = false;
        porta.PortOpen(true);
        QVERIFY(!porta.Persa());
        porta.Tolto = true;
        QVERIFY(porta.Persa());
        QVERIFY(porta.PortOpen());
        porta.PortOpen(false);
        QVERIFY(!porta.Persa());
    }
    void impostazioniLette_data()
    {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<qint32>("velocita");
        QTest::addColumn<Parita>("parita");
        QTest::addColumn<int>("bit");
        QTest::addColumn<BitStop>("stop");

        const auto riga = [](const char *testo, qint32 velocita, Parita parita, int bit, BitStop stop) {
            QTest::newRow(testo) << QString::fromLatin1(testo) << velocita << parita << bit << stop;
        };
        riga("9600,N,8,1", 9600, Parita::Nessuna, 8, BitStop::Uno);
        riga("9600,n,8,1", 9600, Parita::Nessuna, 8, BitStop::Uno);
        riga("300,E,7,2", 300, Parita::Pari, 7, BitStop::Due);
        riga("2400,e,8,1", 2400, Parita::Pari, 8, BitStop::Uno);
        riga("115200,O,5,1.5", 115200, Parita::Dispari, 5, BitStop::UnoEMezzo);
        riga("19200,M,6,1", 19200, Parita::Uno, 6, BitStop::Uno);
        riga("1200,S,8,2", 1200, Parita::Zero, 8, BitStop::Due);
    }
    void impostazioniLette()
    {
        QFETCH(QString, testo);
        SerialeProva porta;
        porta.PortOpen(true);
        porta.Settings(testo);
        QCOMPARE(porta.Formati, 1);
        QTEST(porta.Formato.velocita, "velocita");
        QTEST(porta.Formato.parita, "parita");
        QTEST(int{porta.Formato.bit}, "bit");
        QTEST(porta.Formato.stop, "stop");
    }

    void impostazioniErrate_data()
    {
        QTest::addColumn<QString>("testo");
        for (const char *testo : {"",           "9600",        "9600,N,8",    "9600,N,8,1,1",
                                  "0,N,8,1",    "-9600,N,8,1", "x,N,8,1",     ",N,8,1",
                                  "9600,,8,1",  "9600,X,8,1",  "9600,NN,8,1", "9600,N,4,1",
                                  "9600,N,9,1", "9600,N,,1",   "9600,N,8,0",  "9600,N,8,3",
                                  "9600,N,8,",  "9600,N,8,1,", "9600;N;8;1",  "2147483648,N,8,1"})
            QTest::newRow(*testo == '\0' ? "(vuoto)" : testo) << QString::fromLatin1(testo);
        QTest::newRow("NUL behind the speed") << QString::fromLatin1(QByteArrayLiteral("9600\0x,N,8,1"));
        QTest::newRow("NUL behind the bits") << QString::fromLatin1(QByteArrayLiteral("9600,N,8\0x,1"));
    }
    /// Nothing of a bad text reaches the device, and the port stays as it was.
    void impostazioniErrate()
    {
        QFETCH(QString, testo);
        SerialeProva porta;
        QCOMPARE(Errore_Di([&] { porta.Settings(testo); }), 380);
        porta.PortOpen(true);
        QCOMPARE(Errore_Di([&] { porta.Settings(testo); }), 380);
        QCOMPARE(porta.Formati, 0);
        QVERIFY(porta.PortOpen());
    }

    /// The session stands as without a port, and does not end as with an instrument that is silent.
    void formatoRifiutatoChiudeLaPorta()
    {
        SerialeProva porta;
        porta.Rifiuta = true;
        porta.PortOpen(true);
        QCOMPARE(Errore_Di([&] { porta.Settings(QStringLiteral("9600,N,8,1")); }), 380);
        QVERIFY(!porta.PortOpen());
        QCOMPARE(Errore_Di([&] { porta.Output("x"); }), 8018);
    }
};

QTEST_GUILESS_MAIN(tst_seriale_comune)
#include "tst_seriale_comune.moc"
