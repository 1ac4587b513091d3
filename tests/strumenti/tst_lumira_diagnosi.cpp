// lumira-diagnosi as a process, on stations of which each has one thing wrong: it has to name it.
#include "core/parole.h"
#include "mctc/campi_acc.h"
#include "strumenti/archivio_zip.h"
#include "strumenti/diagnosi.h"
#include "strumenti/pacchetto.h"
#include "strumenti/riscontro.h"
#include "tests/strumenti/diagnosi_prova.h"

#include <QCryptographicHash>
#include <QDate>
#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <iterator>

namespace {

const QString INI = QStringLiteral("lumira.ini");
const QString TESTI = QStringLiteral("lingueMCTC.ini");
const QString JSON = QStringLiteral("--json");

/// What does not hang on the machine that the test runs on.
const QStringList DELLA_STAZIONE = {QStringLiteral("programma"), QStringLiteral("configurazione"),
                                    QStringLiteral("testi"), QStringLiteral("cartelle"),
                                    QStringLiteral("orologio")};

using Rottura = void (*)(const StazioneSana &stazione);

/// One thing wrong, and the finding that names it; what follows from it may be found too.
struct StazioneRotta
{
    const char *Nome;
    Rottura Rompi;
    const char16_t *Trovato;
};

QByteArray Fra_Giorni(int giorni)
{
    return QDate::currentDate().addDays(giorni).toString(QStringLiteral("dd/MM/yyyy")).toLatin1();
}

// clang-format off
const StazioneRotta ROTTE[] = {
    {"file mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(QStringLiteral("lingue.ini"))); },
     u"guasto programma: manca lingue.ini"},
    {"programma mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(s.Programma())); },
     u"guasto programma: manca %PROGRAMMA%"},
    {"programma senza versione", [](const StazioneSana &s) { s.Scrivi(s.Programma(), "lumira"); },
     u"avviso programma: %PROGRAMMA% non dice la sua versione; quella di questo strumento è la %VERSIONE%"},
    {"programma di un'altra versione", [](const StazioneSana &s) { s.Programma_DiVersione(u'2' + Versione_Programma()); },
     u"avviso programma: %PROGRAMMA% è della versione 2%VERSIONE%, e questo strumento della %VERSIONE%"},
    {"file vuoto", [](const StazioneSana &s) { s.Scrivi(QStringLiteral("dati\\ModelloAcc.acc"), {}); },
     u"guasto programma: dati\\ModelloAcc.acc è vuoto"},
    {"immagine mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(QStringLiteral("dati\\faro0.jpg"))); },
     u"guasto programma: manca dati\\faro0.jpg"},
    {"immagine dei simmetrici mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(QStringLiteral("dati\\faro1.jpg"))); },
     u"guasto programma: manca dati\\faro1.jpg"},
    {"immagine del cliente mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(QStringLiteral("dati\\splash_kp_net.jpg"))); },
     u"guasto programma: manca dati\\splash_kp_net.jpg"},
    {"immagine di un altro cliente mancante", [](const StazioneSana &s) { s.Cambia_Ini("User=KP", "User=ALTRO"); QFile::remove(s.Nativo(QStringLiteral("dati\\splash_kp_net.jpg"))); },
     u"avviso programma: manca dati\\splash_kp_net.jpg"},
    {"logo mancante", [](const StazioneSana &s) { QFile::remove(s.Nativo(QStringLiteral("dati\\kp_logo.gif"))); },
     u"avviso programma: manca dati\\kp_logo.gif"},
    {"immagine danneggiata", [](const StazioneSana &s) { s.Scrivi(QStringLiteral("dati\\faro1.jpg"), "<html>"); },
     u"guasto programma: dati\\faro1.jpg non è una figura, o è danneggiata: la stazione vi finisce"},
    {"configurazione vuota", [](const StazioneSana &s) { s.Scrivi(INI, {}); },
     u"guasto programma: lumira.ini è vuoto"},

    {"seconda sezione", [](const StazioneSana &s) { s.Scrivi(INI, "[Comm]\r\nNum=77\r\nBaud=9600\r\nParity=N\r\nDataBit=8\r\nStopBit=1\r\n" + s.Leggi(INI)); },
     u"guasto configurazione: riga %RIGA:[COMM]%: seconda sezione [COMM], nessuno la legge"},
    {"chiave doppia", [](const StazioneSana &s) { s.Cambia_Ini("Baud=9600\r\n", "Baud=9600\r\nbaud=4800\r\n"); },
     u"avviso configurazione: riga %RIGA:baud=4800%: [COMM] BAUD c'è già, questa nessuno la legge"},
    {"senza uguale", [](const StazioneSana &s) { s.Cambia_Ini("Debug=0", "Debug"); },
     u"avviso configurazione: riga %RIGA:Debug%: [GENERAL] DEBUG non ha il segno ="},
    {"senza uguale, con altre parole", [](const StazioneSana &s) { s.Cambia_Ini("Debug=0", "Debug: 0 o 1"); },
     u"avviso configurazione: riga %RIGA:Debug: 0 o 1%: [GENERAL] DEBUG non ha il segno ="},
    {"UTF-8 in un valore", [](const StazioneSana &s) { s.Cambia_Ini("Denominazione=Officina di prova", "Denominazione=Officina Nicol\xC3\xB2"); },
     u"avviso configurazione: riga %RIGA:Denominazione=Officina Nicol\u00C3\u00B2%, [OFFICINA] DENOMINAZIONE: lettere accentate in UTF-8, si leggeranno male"},
    {"segno di UTF-8", [](const StazioneSana &s) { s.Scrivi(INI, "\xEF\xBB\xBF" + s.Leggi(INI)); },
     u"guasto configurazione: lumira.ini comincia con il segno di UTF-8: la prima sezione non si trova"},
    {"UTF-16", [](const StazioneSana &s) { const QString testo = QString::fromLatin1(s.Leggi(INI)); s.Scrivi(INI, QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * qsizetype{2})); },
     u"guasto configurazione: lumira.ini è in UTF-16: la stazione non vi trova niente"},
    {"sezione mancante", [](const StazioneSana &s) { s.Cambia_Ini("[PARAMETRI]", "[PARAMETRI2]"); },
     u"guasto configurazione: manca la sezione [PARAMETRI]"},
    {"chiave mancante", [](const StazioneSana &s) { s.Cambia_Ini("LuxMinAbb=20000\r\n", ""); },
     u"avviso configurazione: manca [PARAMETRI] LuxMinAbb: vale \"20000\""},
    {"chiave necessaria mancante", [](const StazioneSana &s) { s.Cambia_Ini("Baud=9600\r\n", ""); },
     u"guasto configurazione: manca [COMM] Baud, che la stazione deve trovare"},
    {"limiti rovesciati", [](const StazioneSana &s) { s.Cambia_Ini("LuxMinAnab=3750", "LuxMinAnab=95000"); },
     u"guasto configurazione: LuxMinAnab (95000) non è sotto LuxMaxAnab (90000): nessun faro può essere regolare"},
    {"limite con il punto", [](const StazioneSana &s) { s.Cambia_Ini("LuxMaxAbb=150000", "LuxMaxAbb=150.000"); },
     u"guasto configurazione: [PARAMETRI] LuxMaxAbb=150.000 non va bene"},
    {"deviazione senza numero", [](const StazioneSana &s) { s.Cambia_Ini("DevVertAbb=1.5", "DevVertAbb=uno"); },
     u"avviso configurazione: [PARAMETRI] DevVertAbb=uno non va bene"},
    {"deviazione con la virgola dove vale il punto", [](const StazioneSana &s) { s.Cambia_Ini("DevVertAbb=1.5", "DevVertAbb=1,5"); },
     u"avviso configurazione: [PARAMETRI] DevVertAbb=1,5 non va bene"},
    {"flag con un'altra cifra", [](const StazioneSana &s) { s.Cambia_Ini("IniFile=1", "IniFile=si"); },
     u"avviso configurazione: [MCTC] IniFile=si non va bene"},
    {"telecamera", [](const StazioneSana &s) { s.Cambia_Ini("CamReset=N", "CamReset=X"); },
     u"avviso configurazione: [IMPOSTAZIONI] CamReset=X non va bene"},
    {"lingua sconosciuta", [](const StazioneSana &s) { s.Cambia_Ini("Lingua=IT", "Lingua=PT"); },
     u"guasto configurazione: [IMPOSTAZIONI] Lingua=PT non va bene"},
    {"senza lingua", [](const StazioneSana &s) { s.Cambia_Ini("Lingua=IT", "Lingua="); },
     u"guasto configurazione: [IMPOSTAZIONI] Lingua= non va bene"},
    {"cartella senza barra", [](const StazioneSana &s) { s.Imposta(QStringLiteral("MCTC"), QStringLiteral("ReteDati"), QStringLiteral("C:\\MCTC\\RETE")); },
     u"guasto configurazione: [MCTC] ReteDati=C:\\MCTC\\RETE non va bene"},
    {"cartella vuota", [](const StazioneSana &s) { s.Cambia_Ini("\nReteDati=" + gAppPath.toLatin1(), "\nReteDati="); },
     u"guasto configurazione: [MCTC] ReteDati= non va bene"},
    {"cartella in uso vuota", [](const StazioneSana &s) { s.Cambia_Ini("\nDirDati=" + gAppPath.toLatin1(), "\nDirDati="); },
     u"guasto configurazione: [MCTC] DirDati= non va bene"},
    {"altezza vuota", [](const StazioneSana &s) { s.Cambia_Ini("AltezzaFaro=65", "AltezzaFaro="); },
     u"guasto configurazione: [IMPOSTAZIONI] AltezzaFaro= non va bene"},
    {"altezza senza numero", [](const StazioneSana &s) { s.Cambia_Ini("AltezzaFaro=65", "AltezzaFaro=alto"); },
     u"guasto configurazione: [IMPOSTAZIONI] AltezzaFaro=alto non va bene"},
    {"modello seriale", [](const StazioneSana &s) { s.Cambia_Ini("ModSeriale=1", "ModSeriale=QX5"); },
     u"avviso configurazione: [IMPOSTAZIONI] ModSeriale=QX5 non va bene"},
    {"livello sconosciuto", [](const StazioneSana &s) { s.Cambia_Ini("KeyMancanti=0", "KeyMancanti=2"); },
     u"avviso configurazione: [LivelliMctc] KeyMancanti=2 non va bene"},
    {"data dei livelli", [](const StazioneSana &s) { s.Cambia_Ini("Data=02111999", "Data=31021999"); },
     u"avviso configurazione: [LivelliMctc] Data=31021999 non va bene"},
    {"versione dei livelli", [](const StazioneSana &s) { s.Cambia_Ini("Versione=100", "Versione=1.0"); },
     u"avviso configurazione: [LivelliMctc] Versione=1.0 non va bene"},
    {"password non cifrata", [](const StazioneSana &s) { s.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd2"), QString(40, u'a')); },
     u"guasto configurazione: [IMPOSTAZIONI] Pwd2=(non mostrato) non va bene"},
    {"porta senza numero", [](const StazioneSana &s) { s.Cambia_Ini("\nNum=77", "\nNum=0"); },
     u"guasto configurazione: [COMM] Num=0: non è il numero di una porta"},
    {"porta che non si legge", [](const StazioneSana &s) { s.Cambia_Ini("\nNum=77", "\nNum=COM1"); },
     u"guasto configurazione: [COMM]: porta, velocità e formato non si possono leggere (Type mismatch)"},
    {"formato sconosciuto", [](const StazioneSana &s) { s.Cambia_Ini("Parity=N", "Parity=X"); },
     u"guasto configurazione: [COMM]: 9600,X,8,1 non è una velocità con il suo formato, la porta resterà sorda"},
    {"verifica scaduta", [](const StazioneSana &s) { s.Cambia_Ini("=31/12/2027", '=' + Fra_Giorni(-1)); },
     u"guasto configurazione: la verifica periodica è scaduta il %IERI%"},
    {"verifica in scadenza", [](const StazioneSana &s) { s.Cambia_Ini("=31/12/2027", '=' + Fra_Giorni(7)); },
     u"avviso configurazione: la verifica periodica scade il %FRA7%"},
    {"verifica che non è una data", [](const StazioneSana &s) { s.Cambia_Ini("=31/12/2027", "=fine 2027"); },
     u"guasto configurazione: la scadenza della verifica periodica, \"fine 2027\", non è una data gg/mm/aaaa"},
    {"verifica senza data", [](const StazioneSana &s) { s.Cambia_Ini("=31/12/2027", "="); },
     u"avviso configurazione: la verifica periodica non ha una scadenza"},

    {"testo mancante", [](const StazioneSana &s) { const QByteArray byte = s.Leggi(TESTI); const qsizetype riga = byte.indexOf("\n007=", byte.indexOf("[FR]")); s.Scrivi(TESTI, QByteArray(byte).replace(riga, 5, "\nX07=")); },
     u"avviso testi: lingueMCTC.ini, [FR]: mancano 1 testi su %TESTI% (007)"},
    {"testi in UTF-8", [](const StazioneSana &s) { s.Scrivi(TESTI, QString::fromLatin1(s.Leggi(TESTI)).toUtf8()); },
     u"avviso testi: lingueMCTC.ini: lettere accentate in UTF-8, si leggeranno male"},
    {"tutti i testi della sua lingua", [](const StazioneSana &s) { s.Cambia(TESTI, "[IT]", "[ITA]"); },
     u"guasto testi: lingueMCTC.ini, [IT]: mancano %TESTI% testi su %TESTI% (000, 001, 002, 003, 004, 005, 006, 007, 008, 009, ...)"},

    {"cartella mancante", [](const StazioneSana &s) { QDir(s.Nativo(QStringLiteral("DIR_FAR"))).removeRecursively(); },
     u"guasto cartelle: %DIR_FAR% non c'è"},
    {"cartella mancante, senza lista", [](const StazioneSana &s) { s.Cambia_Ini("IniFile=1", "IniFile=0"); QDir(s.Nativo(QStringLiteral("DIR_FAR"))).removeRecursively(); },
     u"avviso cartelle: %DIR_FAR% non c'è"},
    {"accettazione anomala", [](const StazioneSana &s) { s.Scrivi(QStringLiteral("DIR_FAR\\10000001.acc"), "[Dati]\r\n"); },
     u"avviso cartelle: 1 file .acc su 1 con anomalie: 10000001.acc"},
    {"risultato difettoso", [](const StazioneSana &s) { s.Scrivi(QStringLiteral("DIR_FAR\\10000001.far"), "[Dati]\r\n"); },
     u"avviso cartelle: 1 file .far su 1 con difetti: 10000001.far"},

    {"orologio indietro", [](const StazioneSana &s) { QFile file(s.Nativo(INI)); QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(QDateTime(QDate(2090, 5, 4), QTime(3, 2)), QFile::FileModificationTime)); },
     u"avviso orologio: lumira.ini è stato scritto il 04/05/2090 03:02, dopo l'ora del computer"},
};
// clang-format on

/// Line of a text in lumira.ini, from 1; the last one of it.
int Riga_Di(const StazioneSana &stazione, const QString &testo)
{
    const QByteArray prima = stazione.Leggi(INI);
    return static_cast<int>(
        prima.first(qMax(qsizetype{0}, prima.lastIndexOf('\n' + testo.toLatin1()) + 1)).count('\n') + 1);
}

QString Atteso(const StazioneSana &stazione, QString testo)
{
#define NUMERO(nome, numero) qint16{numero},
    constexpr qint16 NUMERI[] = {TESTI_MCTC(NUMERO)};
#undef NUMERO
    testo.replace(QStringLiteral("%PROGRAMMA%"), StazioneSana::Programma());
    testo.replace(QStringLiteral("%VERSIONE%"), Versione_Programma());
    testo.replace(QStringLiteral("%TESTI%"), QString::number(std::size(NUMERI)));
    testo.replace(QStringLiteral("%IERI%"), QString::fromLatin1(Fra_Giorni(-1)));
    testo.replace(QStringLiteral("%FRA7%"), QString::fromLatin1(Fra_Giorni(7)));
    testo.replace(QStringLiteral("%DIR_FAR%"),
                  QDir::toNativeSeparators(stazione.Nativo(QStringLiteral("DIR_FAR"))));
    const qsizetype da = testo.indexOf(QStringLiteral("%RIGA:"));
    if (da >= 0) {
        const qsizetype fine = testo.indexOf(u'%', da + 1);
        const QString riga = testo.sliced(da + 6, fine - da - 6);
        testo.replace(da, fine + 1 - da, QString::number(Riga_Di(stazione, riga)));
    }
    return testo;
}

/// Some of the delivered files.
const QStringList CONSEGNATI = {QStringLiteral("lingue.ini"),      TESTI,
                                QStringLiteral("dati\\faro0.jpg"), QStringLiteral("dati\\lumira.png"),
                                StazioneSana::Programma(),         INI};

/// The bill of a station. @param radice what stands before the names in it, e.g. "./".
QByteArray Distinta_Di(const StazioneSana &stazione, const QString &radice)
{
    QJsonArray file;
    for (const QString &nome : CONSEGNATI) {
        const QByteArray byte = stazione.Leggi(nome);
        const auto somma = [&byte](const QString &nomeSomma, QCryptographicHash::Algorithm come) {
            return QJsonObject{
                {QStringLiteral("algorithm"),                       nomeSomma     },
                { QStringLiteral("checksumValue"),
                 QString::fromLatin1(QCryptographicHash::hash(byte, come).toHex())},
            };
        };
        file.append(QJsonObject{
            {QStringLiteral("fileName"), radice + QString(nome).replace(u'\\', u'/')},
            {QStringLiteral("checksums"),
             QJsonArray{somma(QStringLiteral("SHA1"), QCryptographicHash::Sha1),
                        somma(QStringLiteral("SHA256"), QCryptographicHash::Sha256)}                                   },
        });
    }
    return QJsonDocument(QJsonObject{
                             {QStringLiteral("files"), file}
    })
        .toJson();
}

} // namespace

class tst_lumira_diagnosi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stazioneSana()
    {
        const StazioneSana stazione;
        const Esecuzione e = Diagnosi(stazione, {JSON});
        const QStringList trovati = Solo(Trovati(e), DELLA_STAZIONE);
        QCOMPARE(Cattivi(trovati), QStringList());
        QVERIFY2(trovati.size() >= 7, qPrintable(trovati.join(u'\n')));
        QVERIFY2(e.errori.isEmpty(), qPrintable(e.errori));
    }

    void stazioneRotta_data()
    {
        QTest::addColumn<int>("quale");
        for (int i = 0; i < static_cast<int>(std::size(ROTTE)); ++i)
            QTest::newRow(ROTTE[i].Nome) << i;
    }
    void stazioneRotta()
    {
        QFETCH(int, quale);
        const StazioneSana stazione;
        ROTTE[quale].Rompi(stazione);
        const QString atteso = Atteso(stazione, QString::fromUtf16(ROTTE[quale].Trovato));
        const Esecuzione e = Diagnosi(stazione, {JSON});
        QCOMPARE(e.stato, 1);
        const QStringList trovati = Trovati(e);
        const bool detto = std::any_of(trovati.cbegin(), trovati.cend(), [&atteso](const QString &trovato) {
            return trovato == atteso || trovato.startsWith(atteso + QStringLiteral(" ("));
        });
        QVERIFY2(detto, qPrintable(atteso + QStringLiteral("\nnot in\n") + trovati.join(u'\n')));
    }

    /// The program's folder is a station's, also when what the workshop has set is gone: the rest is looked
    /// at, and the remedy told.
    void configurazionePersa()
    {
        const StazioneSana stazione;
        QVERIFY(QFile::remove(stazione.Nativo(INI)));
        const Esecuzione e = Diagnosi(stazione);
        QCOMPARE(e.stato, 1);
        QVERIFY2(
            e.uscita.contains(QStringLiteral("guasto  programma: manca lumira.ini. Da fare: rimettere la "
                                             "copia di lumira.ini, o quella consegnata.\n")),
            qPrintable(e.uscita));
        QVERIFY2(e.uscita.contains(QStringLiteral("\nok      orologio: ")), qPrintable(e.uscita));
        QVERIFY2(e.errori.isEmpty(), qPrintable(e.errori));
    }

    /// The station reads it with its limits; those are not what is wrong.
    void passwordIlleggibile()
    {
        const StazioneSana stazione;
        stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd"), QString(40, u'a'));
        QCOMPARE(Cattivi(Solo(Trovati(Diagnosi(stazione, {JSON})), {QStringLiteral("configurazione")})),
                 QStringList{
                     QStringLiteral("guasto configurazione: [IMPOSTAZIONI] Pwd=(non mostrato) non va bene")});
    }

    /// Of a program that lies there nobody knows more than its bytes.
    void versioneNelProgramma()
    {
        QFile strumento(QStringLiteral(LUMIRA_DIAGNOSI));
        QVERIFY(strumento.open(QIODevice::ReadOnly));
        QCOMPARE(Versione_Di(strumento.readAll()), Versione_Programma());
    }

    // --- the bill ------------------------------------------------------------------------------------------

    void distinta_data()
    {
        QTest::addColumn<QString>("cambiato");
        QTest::addColumn<QStringList>("trovati");
        const QString programma = StazioneSana::Programma();
        QTest::newRow("intera") << QString() << QStringList();
        QTest::newRow("testi") << QStringLiteral("lingue.ini")
                               << QStringList{
                                      QStringLiteral("avviso programma: lingue.ini non è quello consegnato")};
        QTest::newRow("programma")
            << programma
            << QStringList{QStringLiteral("guasto programma: %1 non è quello consegnato").arg(programma)};
        QTest::newRow("configurazione") << INI << QStringList();
    }
    void distinta()
    {
        QFETCH(QString, cambiato);
        QFETCH(QStringList, trovati);
        const StazioneSana stazione;
        stazione.Scrivi(QStringLiteral("licenze\\distinta.spdx.json"),
                        Distinta_Di(stazione, QStringLiteral("./")));
        if (!cambiato.isEmpty())
            stazione.Scrivi(cambiato, stazione.Leggi(cambiato) + ";");
        const QStringList programma =
            Solo(Trovati(Diagnosi(stazione, {JSON})), {QStringLiteral("programma")});
        QCOMPARE(Cattivi(programma), trovati);
        QCOMPARE(programma.contains(QStringLiteral("ok programma: 5 file consegnati, tutti interi")),
                 trovati.isEmpty());
    }

    void distintaConUnFileChePiuNonCe()
    {
        const StazioneSana stazione;
        stazione.Scrivi(QStringLiteral("licenze\\distinta.spdx.json"),
                        Distinta_Di(stazione, QStringLiteral("./")));
        for (const char16_t *nome : {u"dati\\lumira.png", u"dati\\faro0.jpg"})
            QVERIFY(QFile::remove(stazione.Nativo(QString::fromUtf16(nome))));
        QCOMPARE(Cattivi(Solo(Trovati(Diagnosi(stazione, {JSON})), {QStringLiteral("programma")})),
                 (QStringList{QStringLiteral("guasto programma: manca dati\\faro0.jpg"),
                              QStringLiteral("avviso programma: manca dati\\lumira.png")}));
    }

    /// A package's bill counts from the machine's root, two folders above the station.
    void distintaDelPacchetto()
    {
        const QTemporaryDir macchina;
        const QDir radice(macchina.path());
        QVERIFY(radice.mkpath(QStringLiteral("opt")) &&
                radice.mkpath(QStringLiteral("usr/share/doc/lumira")));
        const StazioneSana stazione;
        QFile distinta(radice.filePath(QStringLiteral("usr/share/doc/lumira/distinta.spdx.json")));
        const QByteArray byte = Distinta_Di(stazione, QStringLiteral("./opt/lumira/"));
        QVERIFY(distinta.open(QIODevice::WriteOnly) && distinta.write(byte) == byte.size());
        distinta.close();
        stazione.Scrivi(TESTI, stazione.Leggi(TESTI) + ";");
        const QStringList diverso{QStringLiteral("avviso programma: lingueMCTC.ini non è quello consegnato")};
        QVERIFY(QDir().rename(stazione.Cartella(), radice.filePath(QStringLiteral("opt/lumira"))));
        const auto rimetti = qScopeGuard(
            [&] { QDir().rename(radice.filePath(QStringLiteral("opt/lumira")), stazione.Cartella()); });
        const Esecuzione e = Processo_Esegui(QStringLiteral(LUMIRA_DIAGNOSI),
                                             {QStringLiteral("--lingua"), QStringLiteral("IT"), JSON,
                                              radice.filePath(QStringLiteral("opt/lumira"))});
        QCOMPARE(Cattivi(Solo(Trovati(e), {QStringLiteral("programma")})), diverso);
    }

    /// Results go into the folder of the acceptance files; the other one may not even be there.
    void cartellaDeiRisultatiDiversa()
    {
        const StazioneSana stazione;
        stazione.Imposta(QStringLiteral("MCTC"), QStringLiteral("DirRisultati"),
                         stazione.Percorso(QStringLiteral("altrove\\")));
        QCOMPARE(Cattivi(Solo(Trovati(Diagnosi(stazione, {JSON})), DELLA_STAZIONE)), QStringList());
        stazione.Scrivi(QStringLiteral("DIR_FAR\\10000001.far"), "[Dati]\r\n");
        QFile risultato(stazione.Nativo(QStringLiteral("DIR_FAR\\10000001.far")));
        QVERIFY(
            risultato.open(QIODevice::ReadWrite) &&
            risultato.setFileTime(QDateTime(QDate(2090, 5, 4), QTime(3, 2)), QFile::FileModificationTime));
        const QStringList cattivi = Cattivi(Solo(Trovati(Diagnosi(stazione, {JSON})), DELLA_STAZIONE));
        QCOMPARE(cattivi.size(), 2);
        QCOMPARE(cattivi[0], QStringLiteral("avviso cartelle: 1 file .far su 1 con difetti: 10000001.far"));
        QVERIFY2(cattivi[1].startsWith(QStringLiteral("avviso orologio: 10000001.far è stato scritto il ")),
                 qPrintable(cattivi[1]));
    }

    /// Whatever is not good says what to do about it.
    void ogniGuastoHaIlSuoRimedio()
    {
        const StazioneSana stazione;
        QVERIFY(QFile::remove(stazione.Nativo(QStringLiteral("lingue.ini"))));
        stazione.Cambia_Ini("Parity=N", "Parity=X");
        const Esecuzione e = Diagnosi(stazione, {JSON});
        const QJsonArray lista =
            QJsonDocument::fromJson(e.byte).object()[QStringLiteral("riscontri")].toArray();
        QVERIFY(lista.size() > 5);
        for (const QJsonValueConstRef &voce : lista) {
            const bool buono = voce[QStringLiteral("grado")].toString() == u"ok";
            QCOMPARE(voce[QStringLiteral("rimedio")].toString().isEmpty(), buono);
        }
    }

    void unaRigaPerRiscontro()
    {
        const StazioneSana stazione;
        stazione.Cambia_Ini("Lingua=IT", "Lingua=PT");
        const QString italiano = Diagnosi(stazione).uscita;
        QVERIFY2(
            italiano.contains(QStringLiteral("ok      programma: lumira %1.\n").arg(Versione_Programma())),
            qPrintable(italiano));
        QVERIFY2(
            italiano.contains(QStringLiteral("guasto  configurazione: [IMPOSTAZIONI] Lingua=PT non va bene. "
                                             "Da fare: mettere una di IT, FR, EN, ES, DE")),
            qPrintable(italiano));
        const QString inglese = Diagnosi(stazione, {QStringLiteral("--lingua"), QStringLiteral("en")}).uscita;
        QVERIFY2(
            inglese.contains(QStringLiteral("fault   configuration: [IMPOSTAZIONI] Lingua=PT is not good. "
                                            "To do: put one of")),
            qPrintable(inglese));
    }

    void nullaCambia()
    {
        const StazioneSana stazione;
        stazione.Accettazione(QStringLiteral("10000001.acc"));
        const auto foto = [&stazione] {
            QStringList righe;
            for (const QString &cartella : {QString(), QStringLiteral("DIR_FAR"), QStringLiteral("dati")}) {
                const QFileInfoList file =
                    QDir(stazione.Nativo(cartella)).entryInfoList(QDir::Files, QDir::Name);
                for (const QFileInfo &uno : file)
                    righe.append(uno.fileName() + u' ' + QString::number(uno.size()) + u' ' +
                                 uno.lastModified().toString(Qt::ISODateWithMs));
            }
            return righe;
        };
        const QStringList prima = foto();
        Diagnosi(stazione);
        QCOMPARE(foto(), prima);
        const Esecuzione e = Diagnosi(stazione, {QStringLiteral("--scrivi"), JSON});
        QCOMPARE(foto(), prima);
        QVERIFY(Trovati(e).contains(
            QStringLiteral("ok cartelle: in %1 si può scrivere (provato)")
                .arg(QDir::toNativeSeparators(stazione.Nativo(QStringLiteral("DIR_FAR"))))));
    }

    void portaSenzaNumero()
    {
        const StazioneSana stazione;
        QVERIFY(Lingua_Scegli(QStringLiteral("IT")));
        Riscontri riscontri;
        Porta_Aggiungi(riscontri, {0, QStringLiteral("/dev/ttyUSB0"), true});
        Porta_Aggiungi(riscontri, {3, QStringLiteral("/dev/ttyS2"), true});
        QCOMPARE(riscontri.size(), 2);
        QCOMPARE(
            Riscontro_Testo(riscontri[0]),
            QStringLiteral("avviso  porte: /dev/ttyUSB0, senza numero per la stazione. Da fare: dargliene "
                           "uno: mkdir -p %1; ln -s /dev/ttyUSB0 %1/COM1.\n")
                .arg(stazione.Nativo(QStringLiteral("porte"))));
        QCOMPARE(Riscontro_Testo(riscontri[1]), QStringLiteral("ok      porte: COM3: /dev/ttyS2.\n"));
    }

    void spazioSulDisco()
    {
        constexpr qint64 MEGA = 1024 * 1024;
        QCOMPARE(Spazio_Grado(0), Grado::Guasto);
        QCOMPARE(Spazio_Grado(100 * MEGA - 1), Grado::Guasto);
        QCOMPARE(Spazio_Grado(100 * MEGA), Grado::Avviso);
        QCOMPARE(Spazio_Grado(1024 * MEGA - 1), Grado::Avviso);
        QCOMPARE(Spazio_Grado(1024 * MEGA), Grado::Buono);
    }

    void statiDellaFine()
    {
        Riscontri riscontri;
        Trovato_Buono(riscontri, Materia::Disco, QStringLiteral("a"));
        QCOMPARE(Riscontri_Fine(riscontri), FineStrumento::Buono);
        Trovato_Avviso(riscontri, Materia::Disco, QStringLiteral("b"), QStringLiteral("c"));
        QCOMPARE(Riscontri_Fine(riscontri), FineStrumento::Anomalie);
    }

    void nonSiPuoGuardare_data()
    {
        QTest::addColumn<QStringList>("argomenti");
        QTest::addColumn<QString>("errore");
        QTest::newRow("nessuna stazione")
            << QStringList{QDir::tempPath()} << QStringLiteral("non è la cartella di una stazione");
        QTest::newRow("due cartelle")
            << QStringList{QStringLiteral("a"), QStringLiteral("b")} << QStringLiteral("più di una CARTELLA");
        QTest::newRow("opzione sconosciuta")
            << QStringList{QStringLiteral("--ripara")} << QStringLiteral("opzione sconosciuta: ripara");
        QTest::newRow("schermo con altro")
            << QStringList{QStringLiteral("--schermo")} << QStringLiteral("--schermo sta da solo");
    }
    void nonSiPuoGuardare()
    {
        QFETCH(QStringList, argomenti);
        QFETCH(QString, errore);
        const Esecuzione e =
            Processo_Esegui(QStringLiteral(LUMIRA_DIAGNOSI),
                            QStringList{QStringLiteral("--lingua"), QStringLiteral("IT")} + argomenti);
        QCOMPARE(e.stato, 2);
        QVERIFY2(e.errori.contains(errore), qPrintable(e.errori));
        QVERIFY2(!e.errori.contains(QStringLiteral("--stazione")), qPrintable(e.errori)); // no option of it
        QVERIFY2(e.uscita.isEmpty(), qPrintable(e.uscita));
    }

    void aiutoEVersione()
    {
        const Esecuzione aiuto =
            Processo_Esegui(QStringLiteral(LUMIRA_DIAGNOSI),
                            {QStringLiteral("--lingua"), QStringLiteral("IT"), QStringLiteral("--help")});
        QCOMPARE(aiuto.stato, 0);
        QVERIFY(aiuto.uscita.startsWith(QStringLiteral("Uso: lumira-diagnosi [opzioni] [CARTELLA]\n")));
        const Esecuzione versione =
            Processo_Esegui(QStringLiteral(LUMIRA_DIAGNOSI), {QStringLiteral("--version")});
        QCOMPARE(versione.uscita.trimmed(), QStringLiteral("lumira-diagnosi " LUMIRA_VERSIONE));
    }

    // --- the package ---------------------------------------------------------------------------------------

    void pacchetto()
    {
        const StazioneSana stazione;
        stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd"),
                         QStringLiteral("segretissima"));
        stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Pwd2"),
                         QStringLiteral("segretissima"));
        const QTemporaryDir altrove;
        const QString file = altrove.filePath(QStringLiteral("p.zip"));
        Diagnosi(stazione, {QStringLiteral("--pacchetto"), file});
        QFile zip(file);
        QVERIFY(zip.open(QIODevice::ReadOnly));
        const QByteArray byte = zip.readAll();
        for (const char *dentro :
             {"diagnosi.txt", "diagnosi.json", "lumira.ini", "somme.sha256", "Pwd=********\r\n",
              "Pwd2=********\r\n", "Operatore=Rossi Mario", "  lingueMCTC.ini\n"})
            QVERIFY2(byte.contains(dentro), dentro);
        QVERIFY(!byte.contains("segretissima"));
        // What is there already is somebody's, and nothing is looked at for it.
        const Esecuzione e = Diagnosi(stazione, {QStringLiteral("--pacchetto"), file});
        QCOMPARE(e.stato, 2);
        QVERIFY2(e.errori.contains(QStringLiteral("o c'è già")), qPrintable(e.errori));
        QVERIFY2(e.uscita.isEmpty(), qPrintable(e.uscita));
        QVERIFY(zip.seek(0));
        QCOMPARE(zip.readAll(), byte);
    }

    /// Nothing has a sum too: that of an empty file, which is there.
    void pacchettoSenzaUnFile()
    {
        const StazioneSana stazione;
        QVERIFY(QFile::remove(stazione.Nativo(QStringLiteral("lingue.ini"))));
        stazione.Scrivi(TESTI, {});
        const QTemporaryDir altrove;
        const QString file = altrove.filePath(QStringLiteral("p.zip"));
        Diagnosi(stazione, {QStringLiteral("--pacchetto"), file});
        QFile zip(file);
        QVERIFY(zip.open(QIODevice::ReadOnly));
        const QByteArray byte = zip.readAll();
        QVERIFY(byte.contains("e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"
                              "  lingueMCTC.ini\n"));
        QVERIFY(!byte.contains("  lingue.ini\n"));
    }

    /// A line that a hand has spoiled is told of, and its password is not: not on the screen either.
    void passwordInUnaRigaGuasta_data()
    {
        QTest::addColumn<QByteArray>("riga");
        QTest::newRow("senza uguale") << QByteArray("Pwd segretissima");
        QTest::newRow("senza niente") << QByteArray("Pwdsegretissima");
        QTest::newRow("con i due punti") << QByteArray("pwd2:segretissima");
        QTest::newRow("uguale più in là") << QByteArray("Pwd segretissima=\r\nPwd segretissima=");
        QTest::newRow("in una nota") << QByteArray(";vecchia password segretissima");
    }
    void passwordInUnaRigaGuasta()
    {
        QFETCH(QByteArray, riga);
        const StazioneSana stazione;
        stazione.Cambia_Ini("[IMPOSTAZIONI]\r\n", "[IMPOSTAZIONI]\r\n" + riga + "\r\n");
        const QTemporaryDir altrove;
        const QString file = altrove.filePath(QStringLiteral("p.zip"));
        const Esecuzione testo = Diagnosi(stazione, {QStringLiteral("--pacchetto"), file});
        const Esecuzione json = Diagnosi(stazione, {JSON});
        QFile zip(file);
        QVERIFY(zip.open(QIODevice::ReadOnly));
        const QByteArray byte = zip.readAll();
        QVERIFY(byte.contains("Operatore=Rossi Mario"));
        for (const QByteArray &dove : {byte, testo.byte, json.byte})
            QVERIFY2(!dove.toLower().contains("segretissima"), dove.constData());
    }

    void senzaPassword_data()
    {
        QTest::addColumn<QByteArray>("prima");
        QTest::addColumn<QByteArray>("dopo");
        QTest::newRow("le due") << QByteArray("[I]\r\nPwd=a=b\r\nPwd2=c d\r\nX=1")
                                << QByteArray("[I]\r\nPwd=********\r\nPwd2=********\r\nX=1");
        QTest::newRow("altra grafia, senza fine")
            << QByteArray("pWD \t= ab") << QByteArray("pWD \t=********");
        QTest::newRow("vecchia, in una nota")
            << QByteArray(";Pwd=ab\rX=\xE8") << QByteArray(";Pwd=********\rX=\xE8");
        QTest::newRow("vecchia, con un altro nome")
            << QByteArray(";Pwd_old=ab\nx_PASSWORD = c") << QByteArray(";Pwd********\nx_PASSWORD =********");
        QTest::newRow("senza uguale") << QByteArray("Pwd ab=c\r\nX=1") << QByteArray("Pwd********\r\nX=1");
        QTest::newRow("con i due punti") << QByteArray("Pwd2: ab") << QByteArray("Pwd********");
        QTest::newRow("dentro un'altra parola")
            << QByteArray("SenzaPwd=ab") << QByteArray("SenzaPwd=********");
        QTest::newRow("altra chiave") << QByteArray("Passo=ab\nPw=d") << QByteArray("Passo=ab\nPw=d");
        QTest::newRow("due byte a lettera") << QByteArray("P\0w\0d\0=\0a\0", 10) << QByteArray();
    }
    void senzaPassword()
    {
        QFETCH(QByteArray, prima);
        QFETCH(QByteArray, dopo);
        QCOMPARE(Senza_Password(prima), dopo);
    }

    /// Byte for byte as the usual programs write it.
    void zip()
    {
        const QByteArray byte = Zip_Componi(
            {
                {"a.txt", "123456789"}
        },
            QDateTime(QDate(2026, 11, 22), QTime(12, 30, 10)));
        QCOMPARE(byte.toHex(), QByteArray("504b03040a00000000"
                                          "00"
                                          "c563765d"
                                          "2639f4cb"
                                          "0900000009000000"
                                          "0500"
                                          "0000"
                                          "612e747874"
                                          "313233343536373839"
                                          "504b01020a000a0000000000"
                                          "c563765d"
                                          "2639f4cb"
                                          "0900000009000000"
                                          "0500"
                                          "0000"
                                          "0000"
                                          "0000"
                                          "0000"
                                          "00000000"
                                          "00000000"
                                          "612e747874"
                                          "504b050600000000"
                                          "0100"
                                          "0100"
                                          "33000000"
                                          "2c000000"
                                          "0000"));
    }
};

QTEST_GUILESS_MAIN(tst_lumira_diagnosi)
#include "tst_lumira_diagnosi.moc"
