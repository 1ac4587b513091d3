// The rules of a single value, one test a kind; the locale's decimal separator is a point unless told.
#include "mctc/regole_valore.h"

#include "tests/comuni/locale_prova.h"

#include <QTest>

namespace {

constexpr qint16 NESSUN_MASSIMO = 0;
constexpr Vocabolario NESSUN_ELENCO;
constexpr QStringView LETTERE[] = {u"S", u"N"};

} // namespace

class tst_regole_valore : public QObject
{
    Q_OBJECT

private:
    static void Colonne()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<qint16>("errore");
    }

    static void Confronta(TipoControllo tipo, qint16 massimo, Vocabolario ammessi, Flag obbligatorio = Vero)
    {
        QFETCH(QString, valore);
        QFETCH(qint16, errore);
        QCOMPARE(qint16{Valore_Errore(valore, tipo, massimo, ammessi, obbligatorio)}, errore);
    }

private Q_SLOTS:
    void init() { Imposta_Locale(QLocale::c()); }

    void testo_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreAssente};
        QTest::newRow("al massimo") << QStringLiteral("ABCDE") << qint16{ValoreBuono};
        QTest::newRow("oltre") << QStringLiteral("ABCDEF") << qint16{ValoreLunghezza};
        QTest::newRow("accenti contano uno") << QStringLiteral("àèìòù") << qint16{ValoreBuono};
        QTest::newRow("fuori elenco") << QStringLiteral("Z") << qint16{ValoreBuono};
    }
    void testo() { Confronta(TipoControllo::Testo, 5, LETTERE); }

    void elenco_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreNonAmmesso};
        QTest::newRow("primo") << QStringLiteral("S") << qint16{ValoreBuono};
        QTest::newRow("ultimo") << QStringLiteral("N") << qint16{ValoreBuono};
        QTest::newRow("minuscolo") << QStringLiteral("s") << qint16{ValoreNonAmmesso};
        QTest::newRow("con bianco") << QStringLiteral("S ") << qint16{ValoreNonAmmesso};
        QTest::newRow("inizio di un altro") << QStringLiteral("SI") << qint16{ValoreNonAmmesso};
    }
    void elenco() { Confronta(TipoControllo::Testo, NESSUN_MASSIMO, LETTERE); }

    void decimale_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreNonAmmesso};
        QTest::newRow("buono") << QStringLiteral("123.45") << qint16{ValoreBuono};
        QTest::newRow("corto") << QStringLiteral("1.00") << qint16{ValoreBuono};
        QTest::newRow("senza interi") << QStringLiteral(".50") << qint16{ValoreBuono};
        QTest::newRow("segno") << QStringLiteral("-1.50") << qint16{ValoreBuono};
        QTest::newRow("un decimale") << QStringLiteral("12.5") << qint16{ValoreNonAmmesso};
        QTest::newRow("tre decimali") << QStringLiteral("1.234") << qint16{ValoreNonAmmesso};
        QTest::newRow("punto in fondo") << QStringLiteral("12.") << qint16{ValoreNonAmmesso};
        QTest::newRow("senza punto") << QStringLiteral("123") << qint16{ValoreNonAmmesso};
        QTest::newRow("il punto conta") << QStringLiteral("1234.56") << qint16{ValoreLunghezza};
        QTest::newRow("lungo senza punto") << QStringLiteral("1234567") << qint16{ValoreLunghezza};
        QTest::newRow("virgola") << QStringLiteral("123,45") << qint16{ValoreNonAmmesso};
        QTest::newRow("lettere") << QStringLiteral("12.AB") << qint16{ValoreNonAmmesso};
        QTest::newRow("lettere, lungo") << QStringLiteral("ABCDEFGHI") << qint16{ValoreNonAmmesso};
    }
    void decimale() { Confronta(TipoControllo::Decimale, 6, NESSUN_ELENCO); }

    /// With a comma as separator points group digits and so pass the numeric test, wherever they stand.
    void decimaleConVirgola_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreNonAmmesso};
        QTest::newRow("punto") << QStringLiteral("123.45") << qint16{ValoreBuono};
        QTest::newRow("virgola: numero, ma senza punto")
            << QStringLiteral("123,45") << qint16{ValoreNonAmmesso};
        QTest::newRow("virgola, lungo") << QStringLiteral("1234,56") << qint16{ValoreLunghezza};
        QTest::newRow("conta il primo punto") << QStringLiteral("1.2.34") << qint16{ValoreNonAmmesso};
        QTest::newRow("due punti, primo buono") << QStringLiteral("12..3") << qint16{ValoreBuono};
    }
    void decimaleConVirgola()
    {
        Imposta_Locale(QLocale(QLocale::Italian));
        Confronta(TipoControllo::Decimale, 6, NESSUN_ELENCO);
    }

    void data_data()
    {
        Colonne();
        QTest::newRow("vuota") << QString() << qint16{ValoreNonData};
        QTest::newRow("buona") << QStringLiteral("02111999") << qint16{ValoreBuono};
        QTest::newRow("29 febbraio") << QStringLiteral("29022024") << qint16{ValoreBuono};
        QTest::newRow("29 febbraio, anno comune") << QStringLiteral("29022023") << qint16{ValoreNonData};
        QTest::newRow("anno in testa") << QStringLiteral("20240229") << qint16{ValoreNonData};
        QTest::newRow("prima del 1900") << QStringLiteral("31121899") << qint16{ValoreNonData};
        QTest::newRow("7 cifre, resto buono") << QStringLiteral("1112024") << qint16{ValoreLunghezza};
        QTest::newRow("7 cifre, resto guasto") << QStringLiteral("1132024") << qint16{ValoreNonData};
        QTest::newRow("9 cifre, resto buono") << QStringLiteral("011112024") << qint16{ValoreLunghezza};
        QTest::newRow("una cifra") << QStringLiteral("1") << qint16{ValoreNonData};
        QTest::newRow("con barre") << QStringLiteral("02/11/1999") << qint16{ValoreNonData};
        QTest::newRow("lettere") << QStringLiteral("ABCDEFGH") << qint16{ValoreNonData};
        QTest::newRow("segno nel giorno") << QStringLiteral("+1112024") << qint16{ValoreBuono};
        QTest::newRow("segno meno") << QStringLiteral("-1112024") << qint16{ValoreNonData};
        QTest::newRow("anno con esponente") << QStringLiteral("010119e2") << qint16{ValoreBuono};
        QTest::newRow("anno oltre i 16 bit") << QStringLiteral("010110e9") << qint16{ValoreNonData};
        QTest::newRow("mese che non è un numero") << QStringLiteral("011e2024") << qint16{ValoreNonData};
        QTest::newRow("bianco in testa, resto buono") << QStringLiteral(" 1112024") << qint16{ValoreBuono};
    }
    void data() { Confronta(TipoControllo::Data, NESSUN_MASSIMO, NESSUN_ELENCO); }

    void ora_data()
    {
        Colonne();
        QTest::newRow("vuota") << QString() << qint16{ValoreNonOra};
        QTest::newRow("mezzanotte") << QStringLiteral("000000") << qint16{ValoreBuono};
        QTest::newRow("ultima") << QStringLiteral("235959") << qint16{ValoreBuono};
        QTest::newRow("ore") << QStringLiteral("240000") << qint16{ValoreNonOra};
        QTest::newRow("minuti") << QStringLiteral("236000") << qint16{ValoreNonOra};
        QTest::newRow("secondi") << QStringLiteral("235960") << qint16{ValoreNonOra};
        QTest::newRow("5 cifre, resto buono") << QStringLiteral("93000") << qint16{ValoreNonOra};
        QTest::newRow("7 cifre") << QStringLiteral("0930000") << qint16{ValoreLunghezza};
        QTest::newRow("7 cifre, contano le ultime") << QStringLiteral("0930100") << qint16{ValoreLunghezza};
        // Of a time of another length the minutes are its third and fourth character, the seconds its last
        // two.
        QTest::newRow("7 cifre, minuti dopo le ore") << QStringLiteral("0960500") << qint16{ValoreNonOra};
        QTest::newRow("7 cifre, 96 non sono minuti") << QStringLiteral("0959600") << qint16{ValoreLunghezza};
        QTest::newRow("7 cifre, secondi in fondo") << QStringLiteral("0930160") << qint16{ValoreNonOra};
        QTest::newRow("7 cifre, 60 non sono secondi") << QStringLiteral("0930600") << qint16{ValoreLunghezza};
        QTest::newRow("5 cifre, minuti dopo le ore") << QStringLiteral("09600") << qint16{ValoreNonOra};
        QTest::newRow("5 cifre, 93 non sono minuti") << QStringLiteral("09300") << qint16{ValoreLunghezza};
        QTest::newRow("5 cifre, secondi in fondo") << QStringLiteral("09360") << qint16{ValoreNonOra};
        QTest::newRow("una cifra") << QStringLiteral("5") << qint16{ValoreLunghezza};
        QTest::newRow("con punti") << QStringLiteral("09.30.00") << qint16{ValoreNonOra};
        QTest::newRow("lettere") << QStringLiteral("AABBCC") << qint16{ValoreNonOra};
        // Only too much is wrong: a sign gives hours below 0, an exponent cut in two seconds of 0.
        QTest::newRow("segno") << QStringLiteral("-13000") << qint16{ValoreBuono};
        QTest::newRow("esponente") << QStringLiteral("0930e1") << qint16{ValoreBuono};
    }
    void ora() { Confronta(TipoControllo::Ora, NESSUN_MASSIMO, NESSUN_ELENCO); }

    void cifre_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreAssente};
        QTest::newRow("al massimo") << QStringLiteral("98500") << qint16{ValoreBuono};
        QTest::newRow("zero") << QStringLiteral("0") << qint16{ValoreBuono};
        QTest::newRow("oltre") << QStringLiteral("123456") << qint16{ValoreLunghezza};
        QTest::newRow("oltre, con lettere") << QStringLiteral("12345A") << qint16{ValoreLunghezza};
        QTest::newRow("lettera") << QStringLiteral("12A") << qint16{ValoreNonAmmesso};
        QTest::newRow("segno") << QStringLiteral("-12") << qint16{ValoreNonAmmesso};
        QTest::newRow("punto") << QStringLiteral("1.5") << qint16{ValoreNonAmmesso};
        QTest::newRow("carattere prima di 0") << QStringLiteral("1/") << qint16{ValoreNonAmmesso};
        QTest::newRow("carattere dopo 9") << QStringLiteral("1:") << qint16{ValoreNonAmmesso};
        QTest::newRow("esponente in alto") << QStringLiteral("12²") << qint16{ValoreNonAmmesso};
    }
    void cifre() { Confronta(TipoControllo::Cifre, 5, NESSUN_ELENCO); }

    void esatto_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreLunghezza};
        QTest::newRow("corto") << QStringLiteral("F") << qint16{ValoreLunghezza};
        QTest::newRow("esatto") << QStringLiteral("FC") << qint16{ValoreBuono};
        QTest::newRow("di ogni genere") << QStringLiteral("?1") << qint16{ValoreBuono};
        QTest::newRow("lungo") << QStringLiteral("FCX") << qint16{ValoreLunghezza};
    }
    void esatto() { Confronta(TipoControllo::Esatto, 2, NESSUN_ELENCO); }

    void anno_data()
    {
        Colonne();
        QTest::newRow("vuoto") << QString() << qint16{ValoreLunghezza};
        QTest::newRow("corto") << QStringLiteral("99") << qint16{ValoreLunghezza};
        QTest::newRow("lungo") << QStringLiteral("20240") << qint16{ValoreLunghezza};
        QTest::newRow("primo") << QStringLiteral("1900") << qint16{ValoreBuono};
        QTest::newRow("prima del primo") << QStringLiteral("1899") << qint16{ValoreNonAmmesso};
        QTest::newRow("lontano") << QStringLiteral("9999") << qint16{ValoreBuono};
        QTest::newRow("lettera") << QStringLiteral("20A4") << qint16{ValoreNonAmmesso};
        QTest::newRow("esponente") << QStringLiteral("19e2") << qint16{ValoreNonAmmesso};
    }
    void anno() { Confronta(TipoControllo::Anno, 4, NESSUN_ELENCO); }

    void targa_data()
    {
        Colonne();
        QTest::newRow("vuota") << QString() << qint16{ValoreAssente};
        QTest::newRow("3") << QStringLiteral("AB1") << qint16{ValoreNonTarga};
        QTest::newRow("4") << QStringLiteral("AB12") << qint16{ValoreBuono};
        QTest::newRow("10") << QStringLiteral("AB12345678") << qint16{ValoreBuono};
        QTest::newRow("11") << QStringLiteral("AB123456789") << qint16{ValoreNonTarga};
        QTest::newRow("di ogni genere") << QStringLiteral("?? !") << qint16{ValoreBuono};
    }
    void targa() { Confronta(TipoControllo::Targa, 10, NESSUN_ELENCO); }

    void targaFacoltativaNonHaRegole()
    {
        QCOMPARE(Valore_Errore(QStringLiteral("A"), TipoControllo::Targa, 10, {}, Falso), ValoreBuono);
    }

    void facoltativoVuotoPassaSempre_data()
    {
        QTest::addColumn<int>("tipo");
        for (int tipo = int(TipoControllo::Testo); tipo <= int(TipoControllo::Targa); ++tipo)
            QTest::addRow("%d", tipo) << tipo;
    }
    void facoltativoVuotoPassaSempre()
    {
        QFETCH(int, tipo);
        QCOMPARE(Valore_Errore(QString(), TipoControllo(tipo), 0, LETTERE, Falso), ValoreBuono);
    }

    void facoltativoPienoSiControlla()
    {
        QCOMPARE(Valore_Errore(QStringLiteral("m"), TipoControllo::Testo, 0, LETTERE, Falso),
                 ValoreNonAmmesso);
        QCOMPARE(Valore_Errore(QStringLiteral("X"), TipoControllo::Data, 0, {}, Falso), ValoreNonData);
    }

    void giorniDelCalendario_data()
    {
        QTest::addColumn<int>("anno");
        QTest::addColumn<int>("mese");
        QTest::addColumn<int>("giorno");
        QTest::addColumn<bool>("valida");
        const int giorni[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        for (int mese = 1; mese <= 12; ++mese) {
            QTest::addRow("ultimo del mese %d", mese) << 2023 << mese << giorni[mese - 1] << true;
            QTest::addRow("oltre il mese %d", mese) << 2023 << mese << giorni[mese - 1] + 1 << false;
        }
        QTest::newRow("giorno 0") << 2023 << 1 << 0 << false;
        QTest::newRow("giorno negativo") << 2023 << 1 << -1 << false;
        QTest::newRow("mese 0") << 2023 << 0 << 1 << false;
        QTest::newRow("mese 13") << 2023 << 13 << 1 << false;
        QTest::newRow("1900") << 1900 << 1 << 1 << true;
        QTest::newRow("1899") << 1899 << 12 << 31 << false;
        QTest::newRow("bisestile per 4") << 2024 << 2 << 29 << true;
        QTest::newRow("30 febbraio") << 2024 << 2 << 30 << false;
        QTest::newRow("comune per 100") << 1900 << 2 << 29 << false;
        QTest::newRow("bisestile per 400") << 2000 << 2 << 29 << true;
    }
    void giorniDelCalendario()
    {
        QFETCH(int, anno);
        QFETCH(int, mese);
        QFETCH(int, giorno);
        QFETCH(bool, valida);
        QCOMPARE(Data_Valida(qint16(anno), qint16(mese), qint16(giorno)), valida ? Vero : Falso);
    }

    void pezziFuoriDiUnOra_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<qint16>("fuori");
        QTest::newRow("nessuno") << QStringLiteral("235959") << qint16{0};
        QTest::newRow("ore") << QStringLiteral("245959") << qint16{1};
        QTest::newRow("minuti") << QStringLiteral("096000") << qint16{1};
        QTest::newRow("secondi") << QStringLiteral("005960") << qint16{1};
        QTest::newRow("ore e secondi") << QStringLiteral("245960") << qint16{2};
        QTest::newRow("tutti") << QStringLiteral("999999") << qint16{3};
        QTest::newRow("non numeri") << QStringLiteral("AABBCC") << qint16{0};
    }
    void pezziFuoriDiUnOra()
    {
        QFETCH(QString, valore);
        QFETCH(qint16, fuori);
        QCOMPARE(Ora_PezziFuori(valore), fuori);
    }
};

QTEST_GUILESS_MAIN(tst_regole_valore)
#include "tst_regole_valore.moc"
