// A password put into a lumira.ini: what the station then asks for, what is refused, and the copy that stays.
#include "strumenti/password_ini.h"

#include "core/modGeneral.h"
#include "core/modStr.h"
#include "core/parole.h"
#include "platform/codifica.h"
#include "tests/comuni/orologio_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

namespace {

constexpr int PASSWORD_A_CASO = 10000;

/// As the main window and the evaluation read what the password box compares with.
QString Password_Attesa(const QString &file, const char16_t *chiave)
{
    QString valore;
    Leggi_Ini(file, QStringLiteral("IMPOSTAZIONI"), QString::fromUtf16(chiave), valore);
    return Pwd_Decifra(valore);
}

/// What the scrambling allows, reckoned anew: each character one printable byte that is raised to 255 at
/// most.
bool Si_Conserva(const QString &password)
{
    for (qsizetype i = 0; i < password.size(); ++i) {
        const QByteArray byte = Testo_InAnsi(password.mid(i, 1));
        if (Testo_DaAnsi(byte) != password.mid(i, 1) || !password[i].isPrint() ||
            static_cast<quint8>(byte[0]) + 4 * (i + 1) > 255)
            return false;
    }
    return !password.isEmpty();
}

QString Password_A_Caso(QRandomGenerator &caso)
{
    static const QString ACCENTATE = QStringLiteral("àèéìòùÀÈÉÌÒÙçñäöüÄÖÜßâêîôûÂÊÎÔÛ");
    static const QString RARE = QStringLiteral("€ŠžΩЖ\t\u0001\u007F漢");
    QString password;
    for (quint32 lunghezza = caso.bounded(1u, 13u); lunghezza > 0; --lunghezza) {
        const quint32 dado = caso.bounded(100u);
        if (dado < 80)
            password += QChar(static_cast<char16_t>(caso.bounded(32u, 127u)));
        else if (dado < 99)
            password += ACCENTATE[qsizetype(caso.bounded(quint32(ACCENTATE.size())))];
        else
            password += RARE[qsizetype(caso.bounded(quint32(RARE.size())))];
    }
    return password;
}

/// A place where ten thousand writes do not wait for a disk, where the system has one.
QString Cartella_Veloce()
{
    const QString memoria = QStringLiteral("/dev/shm");
    return (QFileInfo(memoria).isWritable() ? memoria : QDir::tempPath()) +
           QStringLiteral("/lumira-password-XXXXXX");
}

} // namespace

class tst_password_ini : public QObject
{
    Q_OBJECT

    QStringList File_Di(const StazioneProva &stazione) const
    {
        return QDir(stazione.Nativo(QString())).entryList({QStringLiteral("lumira.ini*")}, QDir::Files);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(Lingua_Scegli(QStringLiteral("IT"))); }
    /// What the tool takes opens the box; what it does not take it refuses with a word, and the file stays.
    void diecimilaPassword()
    {
        const QTemporaryDir veloce(Cartella_Veloce());
        QFile ini(veloce.filePath(QStringLiteral("lumira.ini")));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        QVERIFY(ini.write("[IMPOSTAZIONI]\r\nLingua=IT\r\nPwd=\r\nPwd2=\r\n[MCTC]\r\n") > 0);
        ini.close();
        const auto byte = [&ini] {
            QFile file(ini.fileName());
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QString file = ini.fileName().replace(u'/', u'\\');
        QRandomGenerator caso(20260131);
        int scritte = 0, rifiutate = 0, accentate = 0;
        for (int volta = 0; volta < PASSWORD_A_CASO; ++volta) {
            const QString password = Password_A_Caso(caso);
            const QByteArray prima = byte();
            QString copia, errore;
            const EsitoPassword esito = Password_Scrivi(file, password, copia, errore);
            QVERIFY2((esito == EsitoPassword::Scritta) == Si_Conserva(password), qPrintable(password));
            if (esito == EsitoPassword::Scritta) {
                QCOMPARE(Password_Attesa(file, u"Pwd"), password);
                QCOMPARE(Password_Attesa(file, u"Pwd2"), password);
                QVERIFY(QFile::remove(copia));
                ++scritte;
                accentate += password.toUtf8().size() > password.size() ? 1 : 0;
            } else {
                QCOMPARE(esito, EsitoPassword::PasswordRifiutata);
                QVERIFY(!errore.isEmpty() && copia.isEmpty());
                QCOMPARE(byte(), prima);
                ++rifiutate;
            }
        }
        QVERIFY2(scritte > 5000 && rifiutate > 1000 && accentate > 500,
                 qPrintable(QStringLiteral("%1 %2 %3").arg(scritte).arg(rifiutate).arg(accentate)));
    }

    /// Accented letters of ordinary words, each as far as it goes.
    void lettereAccentate_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<bool>("scritta");
        for (const char16_t *buona : {u"è qui", u"metà", u"caffè", u"Città2", u"PERCHÉ SÌ", u"così"})
            QTest::newRow(QString::fromUtf16(buona).toUtf8().constData())
                << QString::fromUtf16(buona) << true;
        const auto estremo = [](const char *lettera, int ultimo) {
            const QString davanti(ultimo - 1, u'a');
            QTest::addRow("%s al posto %d", lettera, ultimo) << davanti + QString::fromUtf8(lettera) << true;
            QTest::addRow("%s dopo il %d", lettera, ultimo)
                << davanti + u'a' + QString::fromUtf8(lettera) << false;
        };
        estremo("z", 33);
        estremo("à", 7);
        estremo("è", 5);
        estremo("é", 5);
        estremo("ì", 4);
        estremo("ò", 3);
        estremo("ù", 1);
        estremo("À", 15);
        estremo("È", 13);
        estremo("Ù", 9);
    }
    void lettereAccentate()
    {
        QFETCH(QString, password);
        QFETCH(bool, scritta);
        const StazioneProva stazione;
        QString copia, errore;
        QCOMPARE(Password_Scrivi(gFileIni, password, copia, errore) == EsitoPassword::Scritta, scritta);
        QCOMPARE(Password_Attesa(gFileIni, u"Pwd") == password, scritta);
    }

    /// Every other byte of the file stays, and the copy is the file as it was, under the time of the writing.
    void dueChiaviEUnaCopia()
    {
        const OrologioProva orologio(QDateTime(QDate(2026, 1, 31), QTime(18, 45, 7)));
        const StazioneProva stazione;
        const QByteArray prima = stazione.Leggi(QStringLiteral("lumira.ini"));
        const QByteArray consegnata =
            Testo_InAnsi(Valore_Ini(gFileIni, QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd")));
        QCOMPARE(prima.count('=' + consegnata + '\r') + prima.count('=' + consegnata + '\n'), 2);
        QString copia, errore;
        QCOMPARE(Password_Scrivi(gFileIni, QStringLiteral("AAA"), copia, errore), EsitoPassword::Scritta);
        QByteArray dopo = prima;
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")), dopo.replace('=' + consegnata, "=EIM"));
        QVERIFY(errore.isEmpty());
        QCOMPARE(copia, stazione.Nativo(QStringLiteral("lumira.ini.20260131-184507")));
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini.20260131-184507")), prima);
    }

    /// No copy takes the place of an older one.
    void dueVolteNelloStessoSecondo()
    {
        const OrologioProva orologio(QDateTime(QDate(2026, 1, 31), QTime(18, 45, 7)));
        const StazioneProva stazione;
        QString copia, errore;
        for (const char16_t *password : {u"uno", u"due", u"tre"})
            QCOMPARE(Password_Scrivi(gFileIni, QString::fromUtf16(password), copia, errore),
                     EsitoPassword::Scritta);
        QCOMPARE(File_Di(stazione),
                 QStringList({QStringLiteral("lumira.ini"), QStringLiteral("lumira.ini.20260131-184507"),
                              QStringLiteral("lumira.ini.20260131-184507-2"),
                              QStringLiteral("lumira.ini.20260131-184507-3")}));
        QCOMPARE(Password_Attesa(copia.replace(u'/', u'\\'), u"Pwd"), QStringLiteral("due"));
    }

    void chiaviCheMancano()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"),
                        "[IMPOSTAZIONI]\r\nLingua=IT\r\n[MCTC]\r\nModalita=0\r\n");
        QString copia, errore;
        QCOMPARE(Password_Scrivi(gFileIni, QStringLiteral("AAA"), copia, errore), EsitoPassword::Scritta);
        QCOMPARE(stazione.Leggi(QStringLiteral("lumira.ini")),
                 "[IMPOSTAZIONI]\r\nLingua=IT\r\nPwd=EIM\r\nPwd2=EIM\r\n[MCTC]\r\nModalita=0\r\n");
    }

    /// Without its copy nothing is written.
    void senzaCopiaNienteScrittura()
    {
        const StazioneProva stazione;
        const QString file = stazione.Percorso(QStringLiteral("manca\\lumira.ini"));
        QString copia = QStringLiteral("prima"), errore;
        QCOMPARE(Password_Scrivi(file, QStringLiteral("AAA"), copia, errore), EsitoPassword::FileRifiutato);
        QVERIFY(copia.isEmpty());
        QVERIFY2(errore.contains(QStringLiteral("la password resta quella di prima")), qPrintable(errore));
        QVERIFY(!QFile::exists(stazione.Nativo(QStringLiteral("manca"))));
    }

    void fileAdatto_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<bool>("adatto");
        QTest::newRow("sezione") << QByteArray("[IMPOSTAZIONI]\r\n") << true;
        QTest::newRow("sezione in altro caso, con spazi") << QByteArray("[A]\n [ Impostazioni ] x\n") << true;
        QTest::newRow("vuoto") << QByteArray() << false;
        QTest::newRow("un altro profilo") << QByteArray("[IT]\r\n000=Prova\r\n") << false;
        QTest::newRow("sezione in una nota") << QByteArray(";[IMPOSTAZIONI]\r\n") << false;
        QTest::newRow("sezione in un valore") << QByteArray("[A]\r\nX=[IMPOSTAZIONI]\r\n") << false;
        QTest::newRow("nome più lungo") << QByteArray("[IMPOSTAZIONI2]\r\n") << false;
    }
    void fileAdatto()
    {
        QFETCH(QByteArray, byte);
        QFETCH(bool, adatto);
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("lumira.ini"), byte);
        QString errore;
        QCOMPARE(Ini_Adatto(gFileIni, errore), adatto);
        QCOMPARE(errore.isEmpty(), adatto);
    }
};

QTEST_GUILESS_MAIN(tst_password_ini)
#include "tst_password_ini.moc"
