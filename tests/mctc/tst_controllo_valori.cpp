// The third pass: field by field, as rows of gCampiAcc.
#include "mctc/controllo_valori.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "platform/errore_esecuzione.h"
#include "tests/comuni/locale_prova.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

class tst_controllo_valori : public QObject
{
    Q_OBJECT

private:
    ProvaAcc m_prova;

    /// Row and error of every field that fails.
    QMap<int, int> Errori(const QByteArray &byte)
    {
        Acc_Apri(m_prova.Scrivi(byte));
        QStringList righe;
        const qint16 quanti = Dati_Controlla(righe);
        QMap<int, int> errori;
        for (int riga = 0; riga < RIGHE_ACC; ++riga) {
            if (gErroriCampiAcc[size_t(riga)] != 0)
                errori.insert(riga, gErroriCampiAcc[size_t(riga)]);
        }
        return quanti == errori.size() && quanti == righe.size() ? errori
                                                                 : QMap<int, int>{
                                                                       {-1, quanti}
        };
    }

private Q_SLOTS:
    void init() { Imposta_Locale(QLocale::c()); }

    void ilModelloNonHaErrori()
    {
        QCOMPARE(Errori(m_prova.Buono()), (QMap<int, int>()));
        Imposta_Locale(QLocale(QLocale::Italian));
        QCOMPARE(Errori(m_prova.Buono()), (QMap<int, int>()));
    }

    /// What every field says of an empty value.
    void tuttoVuoto()
    {
        for (CampoForm &campo : gCampiAcc)
            campo.Value.clear();
        QStringList righe;
        Dati_Controlla(righe);
        const std::array<qint16, RIGHE_ACC> attesi{
            2, 2, 3, 5, 5, 7, 5, 0, 0, 0, 0, 0, 5, 6, 5, 6, 0, 0, // 0 to 17
            7, 7, 5, 5, 5, 0, 5, 6, 2, 0, 7, 7, 0, 0, 0, 0, 0, 0, // 18 to 35
            0, 0, 0, 5, 7, 5, 5, 7, 7, 7, 5,                      // 36 to 46
            7, 7,                                                 // 47, 48
        };
        for (size_t riga = 0; riga < attesi.size(); ++riga)
            QCOMPARE(qint16{gErroriCampiAcc[riga]}, attesi[riga]);
        QCOMPARE(righe.size(), 31);
    }

    void unValoreAllaVolta_data()
    {
        QTest::addColumn<int>("riga");
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<int>("errore");
        const auto prova = [](int riga, const QByteArray &valore, int errore) {
            QTest::addRow("%s=%.10s (%d)", qPrintable(REGOLE_ACC[size_t(riga)].Key.toString()),
                          valore.constData(), int(valore.size()))
                << riga << valore << errore;
        };
        const QByteArray lungo(200, 'x');
        prova(0, "30022024", 2);
        prova(1, "1112024", 6);
        prova(2, "250000", 3);
        prova(3, lungo.first(50), 0);
        prova(3, lungo.first(51), 6);
        prova(4, "12", 0);
        prova(4, "123", 6);
        prova(4, "A", 7);
        prova(5, "ANNUALI", 0);
        prova(5, "annuali", 7);
        prova(6, lungo.first(26), 6);
        prova(7, "", 0);
        prova(7, lungo.first(21), 6);
        prova(8, "", 0);
        prova(8, "x", 2);
        prova(9, "", 0);
        prova(9, "F", 0);
        prova(9, "m", 7);
        prova(10, lungo.first(26), 6);
        prova(11, "", 0);
        prova(11, "F", 6);
        prova(12, lungo.first(31), 6);
        prova(13, "4712", 6);
        prova(13, "ABCDE", 0);
        prova(14, lungo.first(26), 6);
        prova(15, "ROM", 6);
        prova(16, lungo.first(18), 6);
        prova(17, lungo.first(160), 0);
        prova(17, lungo.first(161), 6);
        prova(18, "LEGGERA", 7);
        prova(20, lungo.first(21), 6);
        prova(25, "1899", 7);
        prova(26, "00000000", 2);
        prova(27, "", 0);
        prova(28, "", 7);
        prova(29, "NESSUNA", 0);
        prova(29, "", 7);
        prova(29, "BENZINA<86", 0);
        prova(30, "1234567", 6);
        prova(36, "", 0);
        prova(36, "123.45", 0);
        prova(36, "85", 7);
        prova(39, "1234", 6);
        prova(40, "PIEDE", 7);
        prova(41, "10", 6);
        prova(43, "s", 7);
        prova(44, "", 7);
        prova(45, "STAZIONAMENTO", 0);
        prova(45, "hh", 7);
        prova(46, "AB1", 8);
        prova(46, "", 5);
        prova(47, "101", 7);
        prova(48, "03111999", 7);
        prova(48, "2111999", 7);
    }
    void unValoreAllaVolta()
    {
        QFETCH(int, riga);
        QFETCH(QByteArray, valore);
        QFETCH(int, errore);
        const RegolaCampo &regola = REGOLE_ACC[size_t(riga)];
        const QMap<int, int> attesi = errore == 0 ? QMap<int, int>()
                                                  : QMap<int, int>{
                                                        {riga, errore}
        };
        QCOMPARE(Errori(m_prova.Con(regola.Section.toLatin1(), regola.Key.toLatin1(), valore)), attesi);
    }

    void descrizioneSecondoLaClasse_data()
    {
        QTest::addColumn<QByteArray>("classe");
        QTest::addColumn<QByteArray>("descrizione");
        QTest::addColumn<bool>("buona");
        QTest::newRow("leggero, autovettura") << QByteArray("LEGGERO") << QByteArray("AUTOVETTURA") << true;
        QTest::newRow("pesante, autovettura") << QByteArray("PESANTE") << QByteArray("AUTOVETTURA") << false;
        QTest::newRow("pesante, autocarro") << QByteArray("PESANTE") << QByteArray("AUTOCARRO") << true;
        QTest::newRow("sconosciuto, autovettura") << QByteArray("MEDIO") << QByteArray("AUTOVETTURA") << true;
        QTest::newRow("vuoto, autovettura") << QByteArray("") << QByteArray("AUTOVETTURA") << true;
        QTest::newRow("minuscolo, autovettura") << QByteArray("pesante") << QByteArray("AUTOVETTURA") << true;
        QTest::newRow("leggero, altro") << QByteArray("LEGGERO") << QByteArray("CARROZZA") << false;
    }
    void descrizioneSecondoLaClasse()
    {
        QFETCH(QByteArray, classe);
        QFETCH(QByteArray, descrizione);
        QFETCH(bool, buona);
        QByteArray byte = m_prova.Con("DatiLibrettoVeicolo", "TipoVeicolo", classe);
        byte.replace("DescrizioneVeicolo=AUTOVETTURA", "DescrizioneVeicolo=" + descrizione);
        QCOMPARE(Errori(byte).contains(AccDescrizioneVeicolo), !buona);
    }

    void laPotenzaVuoleIlPuntoAncheConLaVirgola()
    {
        Imposta_Locale(QLocale(QLocale::Italian));
        QCOMPARE(Errori(m_prova.Con("DatiLibrettoVeicolo", "PotMaxkW", "123.45")), (QMap<int, int>()));
        QCOMPARE(Errori(m_prova.Con("DatiLibrettoVeicolo", "PotMaxkW", "123,45")), (QMap<int, int>{
                                                                                       {36, 7}
        }));
    }

    void rigaSenzaTipoNonSiControlla()
    {
        Acc_Apri(m_prova.Scrivi(m_prova.Con("Prenotazione", "CAP", "1")));
        QStringList righe;
        QCOMPARE(Dati_Controlla(righe), qint16{1});
        gCampiAcc[AccCAP].ValueKind = ValoreNessuno;
        QCOMPARE(Dati_Controlla(righe), qint16{0});
        QCOMPARE(gErroriCampiAcc[AccCAP], ValoreBuono);
        QVERIFY(righe.isEmpty());
        gCampiAcc[AccCAP].ValueKind = ValoreTesto;
    }

    void leRigheSonoInOrdineESiRifanno()
    {
        QByteArray byte = m_prova.Con("Prenotazione", "CAP", "1");
        byte.replace("Linea=1", "Linea=X").replace("Targa=AB123CD", "Targa=A");
        Acc_Apri(m_prova.Scrivi(byte));
        QStringList righe;
        for (int volta = 0; volta < 2; ++volta) {
            QCOMPARE(Dati_Controlla(righe), qint16{3});
            QCOMPARE(righe,
                     (QStringList{
                         QStringLiteral("Sezione:[Prenotazione] - Campo:Linea - Non è un valore valido"),
                         QStringLiteral("Sezione:[Prenotazione] - Campo:CAP - Errore di lunghezza"),
                         QStringLiteral("Sezione:[DatiLibrettoVeicolo] - Campo:Targa - Targa non valida")}));
        }
    }

    void testoDegliErrori_data()
    {
        QTest::addColumn<qint16>("errore");
        QTest::addColumn<QString>("testo");
        const QString inizio = QStringLiteral("Sezione:[DatiLibrettoVeicolo] - Campo:Targa - ");
        QTest::newRow("0") << qint16{0} << QString();
        QTest::newRow("1") << qint16{1} << inizio + QStringLiteral("testo 95");
        QTest::newRow("2") << qint16{2} << inizio + QStringLiteral("testo 94");
        QTest::newRow("3") << qint16{3} << inizio + QStringLiteral("testo 96");
        QTest::newRow("4") << qint16{4} << inizio + QStringLiteral("testo 97");
        QTest::newRow("5") << qint16{5} << inizio + QStringLiteral("Valore non presente");
        QTest::newRow("6") << qint16{6} << inizio + QStringLiteral("Errore di lunghezza");
        QTest::newRow("7") << qint16{7} << inizio + QStringLiteral("Non è un valore valido");
        QTest::newRow("8") << qint16{8} << inizio + QStringLiteral("Targa non valida");
    }
    void testoDegliErrori()
    {
        QFETCH(qint16, errore);
        QFETCH(QString, testo);
        QCOMPARE(Errore_Testo(AccTarga, static_cast<ErroreValore>(errore)), testo);
    }

    void senzaErroreNessunMotivo() { QCOMPARE(Errore_Motivo(ValoreBuono), QString()); }

    void fuoriTabellaEUnErrore()
    {
        const auto numero = [](qint16 riga, qint16 errore) {
            try {
                Errore_Testo(riga, static_cast<ErroreValore>(errore));
            } catch (const ErroreEsecuzione &sollevato) {
                return sollevato.Numero();
            }
            return 0;
        };
        QCOMPARE(numero(49, 5), 9);
        QCOMPARE(numero(-1, 5), 9);
        QCOMPARE(numero(0, 9), 9);
        QCOMPARE(numero(0, -1), 9);
    }

    void unaRigaConRegoleDate()
    {
        gCampiAcc[AccOperatore].Value = QStringLiteral("ABC");
        constexpr QStringView ammessi[] = {u"ABC"};
        QCOMPARE(Valore_Controlla(AccOperatore, TipoControllo::Testo, 0, ammessi, Vero), ValoreBuono);
        QCOMPARE(Valore_Controlla(AccOperatore, TipoControllo::Esatto, 4, {}, Vero), ValoreLunghezza);
        gCampiAcc[AccOperatore].Value.clear();
        QCOMPARE(Valore_Controlla(AccOperatore, TipoControllo::Cifre, 4, {}, Vero), ValoreAssente);
        QCOMPARE(Valore_Controlla(AccOperatore, TipoControllo::Cifre, 4, {}, Falso), ValoreBuono);
    }
};

QTEST_GUILESS_MAIN(tst_controllo_valori)
#include "tst_controllo_valori.moc"
