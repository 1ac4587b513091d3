// The scrambling of a stored password: what comes out is what the station unscrambles and what the profile
// file keeps; what neither could give back is refused.
#include "core/pwd_cifra.h"

#include "core/modGeneral.h"
#include "core/modStr.h"
#include "core/parole.h"
#include "platform/codifica.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

namespace {

const QString IMPOSTAZIONI = QStringLiteral("IMPOSTAZIONI");
const QString PWD = QStringLiteral("Pwd");

} // namespace

class tst_pwd_cifra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    void ogniPostoAlzatoDiQuattroVolte_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<QByteArray>("cifrato");
        QTest::newRow("un carattere") << QStringLiteral("A") << QByteArray("E");
        QTest::newRow("due") << QStringLiteral("AA") << QByteArray("EI");
        QTest::newRow("ripetuti") << QStringLiteral("0000") << QByteArray("48<@");
        QTest::newRow("blank in mezzo") << QStringLiteral("a b") << QByteArray("e(n");
        QTest::newRow("fino in fondo alla tabella") << QString(QChar(0xFB)) << QByteArray("\xFF");
        QTest::newRow("lettera accentata") << QString(QChar(0xE0)) << QByteArray("\xE4");
        QTest::newRow("oltre 0x80") << QStringLiteral("~") << QByteArray("\x82");
        QTest::newRow("blank in testa e in coda") << QStringLiteral("  ") << QByteArray("$(");
        QTest::newRow("euro") << QString(QChar(0x20AC)) << QByteArray("\x84");
    }
    void ogniPostoAlzatoDiQuattroVolte()
    {
        QFETCH(QString, password);
        QFETCH(QByteArray, cifrato);
        QString testo, errore;
        QVERIFY(Pwd_Cifra(password, testo, errore));
        QCOMPARE(Testo_InAnsi(testo), cifrato);
        QVERIFY(errore.isEmpty());
    }

    /// Through the station's own file and back.
    void andataERitornoNelProfilo_data()
    {
        QTest::addColumn<QString>("password");
        for (const char16_t *password :
             {u"lumira", u"a", u"0123456789", u"MAIUSCOLE e minuscole", u"'apici'", u"x;y=[z]", u"è ora~"})
            QTest::newRow(QString::fromUtf16(password).toUtf8().constData()) << QString::fromUtf16(password);
    }
    void andataERitornoNelProfilo()
    {
        QFETCH(QString, password);
        const StazioneProva stazione;
        QString testo, errore;
        QVERIFY2(Pwd_Cifra(password, testo, errore), qPrintable(errore));
        QVERIFY(testo != password);
        QCOMPARE(testo.size(), password.size());
        QVERIFY(Scrivi_Ini(gFileIni, IMPOSTAZIONI, PWD, testo));
        QCOMPARE(Pwd_Decifra(Valore_Ini(gFileIni, IMPOSTAZIONI, PWD)), password);
    }

    /// Two characters, both at an end of the value: either they are refused, or the profile gives them back.
    void quelCheSiAccettaTorna()
    {
        const StazioneProva stazione;
        int accettate = 0, rifiutate = 0;
        for (int primo = 1; primo <= 255; ++primo) {
            for (const int secondo : {32, 247, 248}) {
                QByteArray byte(1, static_cast<char>(primo));
                byte.append(static_cast<char>(secondo));
                QString testo, errore;
                if (!Pwd_Cifra(Testo_DaAnsi(byte), testo, errore)) {
                    QVERIFY(testo.isEmpty());
                    QVERIFY(!errore.isEmpty());
                    ++rifiutate;
                    continue;
                }
                ++accettate;
                Scrivi_Ini(gFileIni, IMPOSTAZIONI, PWD, testo);
                QCOMPARE(Testo_InAnsi(Pwd_Decifra(Valore_Ini(gFileIni, IMPOSTAZIONI, PWD))), byte);
            }
        }
        QCOMPARE(accettate, (251 - 31 - 6) * 2); // six of them are no characters: DEL and the unassigned
        QCOMPARE(rifiutate, 255 * 3 - accettate);
    }

    void rifiutata_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<QString>("motivo");
        const QString comando = QStringLiteral("è un comando");
        const QString mai = QStringLiteral("non può stare in una password");
        QTest::newRow("vuota") << QString() << QStringLiteral("la password è vuota");
        QTest::newRow("fuori dalla tabella")
            << QStringLiteral("caffè\u0416")
            << QStringLiteral("il carattere 6 (\"Ж\") è fuori da Windows-1252");
        QTest::newRow("fuori dal piano di base")
            << QStringLiteral("a\U0001F600")
            << QStringLiteral("il carattere 2 (\"\U0001F600\") è fuori da Windows-1252");
        QTest::newRow("troppo lunga") << QString(56, u' ') << QStringLiteral("al più al posto 55");
        QTest::newRow("oltre 255") << QString(QChar(0xFC)) << mai;
        QTest::newRow("oltre 255 più avanti")
            << QStringLiteral("aa") + QChar(0xF4) << QStringLiteral("al più al posto 2");
        QTest::newRow("tabulazione") << QStringLiteral("a\tb") << comando;
        QTest::newRow("fine riga") << QStringLiteral("\nb") << comando;
        QTest::newRow("cancella") << QStringLiteral("a\u007F") << comando;
        QTest::newRow("byte senza carattere") << QStringLiteral("\u0081") << comando;
        QTest::newRow("diventerebbe un blank") << QString(QChar(0x1C)) << comando;
        QTest::newRow("diventerebbe tra apici") << QStringLiteral("#z") + QChar(0x1B) << comando;
    }
    void rifiutata()
    {
        QFETCH(QString, password);
        QFETCH(QString, motivo);
        QString testo = QStringLiteral("prima"), errore;
        QVERIFY(!Pwd_Cifra(password, testo, errore));
        QVERIFY(testo.isEmpty());
        QVERIFY2(errore.contains(motivo), qPrintable(errore));
    }

    /// The message tells the installer which character is in the way.
    void motivoConPostoECarattere()
    {
        QString testo, errore;
        QVERIFY(!Pwd_Cifra(QStringLiteral("ab") + QChar(0xFA), testo, errore));
        QVERIFY2(errore.contains(QStringLiteral("il carattere 3 (\"ú\")")), qPrintable(errore));
    }
};

QTEST_GUILESS_MAIN(tst_pwd_cifra)
#include "tst_pwd_cifra.moc"
