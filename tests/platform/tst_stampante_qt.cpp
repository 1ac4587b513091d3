// The print system against a real scheduler of the test's own: what it tells of the queues, what a page looks
// like when it comes out of the printer, and how long it waits for a scheduler that gives no answer.
#include "platform/stampante_qt.h"

#include "platform/unita.h"
#include "tests/comuni/errore_prova.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

constexpr double PUNTI_2MM = 2 / 25.4 * 72;
/// Longer than the program waits for any one answer, far shorter than for ever.
constexpr qint64 PAZIENZA = 30000; // ms
constexpr int ATTESA_FOGLIO = 30000;
/// Where the library learns where the system bus is. It keeps what it has learnt.
constexpr char BUS[] = "DBUS_SYSTEM_BUS_ADDRESS";

struct Esito
{
    int stato = -1;
    QString uscita;
};

Esito Esegui(const QString &programma, const QStringList &argomenti)
{
    QProcess processo;
    auto ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.remove(QString::fromLatin1(BUS)); // the scheduler has its own reasons to ask it
    processo.setProcessEnvironment(ambiente);
    processo.setProcessChannelMode(QProcess::MergedChannels);
    processo.start(programma, argomenti);
    if (!processo.waitForFinished())
        return {};
    return {processo.exitCode(), QString::fromUtf8(processo.readAll())};
}

/// Runs an administration command of the scheduler.
bool Amministra(const char *comando)
{
    QStringList parole = QString::fromUtf8(comando).split(u' ');
    const QString programma = parole.takeFirst();
    return Esegui(programma, parole).stato == 0;
}

/// A scheduler that stands still, and goes on at the end of the scope.
class GestoreFermo
{
public:
    explicit GestoreFermo(pid_t gestore) : m_gestore(gestore) { ::kill(m_gestore, SIGSTOP); }
    ~GestoreFermo() { ::kill(m_gestore, SIGCONT); }
    Q_DISABLE_COPY_MOVE(GestoreFermo)

private:
    pid_t m_gestore;
};

struct TestoFoglio
{
    qint32 x, y;
    const char16_t *carattere;
    float punti;
    bool grassetto;
    const char16_t *testo;
};

constexpr TestoFoglio TESTI_FOGLIO[] = {
    {586,  1150,  u"Arial",       10, true,  u"Officina"     },
    {4000, 1409,  u"Arial",       10, false, u"Località:"   },
    {5000, 3172,  u"Arial Black", 16, false, u"Rapporto"     },
    {586,  6021,  u"Courier New", 12, true,  u"Anabbaglianti"},
    {9578, 13014, u"Courier New", 10, false, u"Firma:"       },
    {0,    0,     u"Courier New", 10, false, u"MMMM"         },
    {9000, 16300, u"Courier New", 18, true,  u"*"            },
};

void Scrivi(OggettoStampa &oggetto, const TestoFoglio &testo)
{
    oggetto.FontTransparent(true);
    oggetto.ForeColor(0);
    oggetto.FontName(QString::fromUtf16(testo.carattere));
    oggetto.FontSize(testo.punti);
    oggetto.FontBold(testo.grassetto);
    oggetto.CurrentX(static_cast<float>(testo.x));
    oggetto.CurrentY(static_cast<float>(testo.y));
    oggetto.Print(QString::fromUtf16(testo.testo));
}

/// Place of a word on a sheet, in points; empty when it is not there.
QRectF Posto_Parola(const QString &bbox, const QString &parola)
{
    static const QString NUMERO = QStringLiteral("=\"(-?[0-9.]+)\"");
    const QRegularExpression cerca(QStringLiteral("<word xMin%1 yMin%1 xMax%1 yMax%1>").arg(NUMERO) +
                                   QRegularExpression::escape(parola) + QStringLiteral("</word>"));
    const auto trovata = cerca.match(bbox);
    if (!trovata.hasMatch())
        return {};
    return QRectF(QPointF(trovata.captured(1).toDouble(), trovata.captured(2).toDouble()),
                  QPointF(trovata.captured(3).toDouble(), trovata.captured(4).toDouble()));
}

} // namespace

class tst_stampante_qt : public QObject
{
    Q_OBJECT

private:
    QString Cartella(const char *nome) const { return dir.filePath(QString::fromLatin1(nome)); }
    static QString Copione() { return QStringLiteral(LUMIRA_SORGENTE "/attrezzi/stampante.sh"); }
    bool Ferma() const { return Esegui(Copione(), {QStringLiteral("stop"), dir.path()}).stato == 0; }
    pid_t Gestore() const
    {
        QFile file(Cartella("lavoro/cupsd.pid"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : -1;
    }
    /// How often the scheduler has been asked for something.
    int Volte_Chiesto(QByteArrayView cosa) const
    {
        QFile registro(Cartella("lavoro/accessi.log"));
        return registro.open(QIODevice::ReadOnly) ? static_cast<int>(registro.readAll().count(cosa)) : -1;
    }
    QStringList Fogli() const
    {
        return QDir(Cartella("uscita")).entryList({QStringLiteral("*.pdf")}, QDir::Files);
    }
    /// Waits for the one sheet that the printer lays out. @return its path.
    QString Attendi_Foglio() const
    {
        const bool uscito = QTest::qWaitFor([this] { return !Fogli().isEmpty(); }, ATTESA_FOGLIO);
        return uscito && Fogli().size() == 1 ? Cartella("uscita/") + Fogli().first() : QString();
    }
    /// Its picture, 360 points an inch: 4 twips a point. Null when there is none.
    QImage Immagine_Foglio() const
    {
        const QString immagine = Cartella("foglio");
        const QStringList argomenti = {QStringLiteral("-r"),
                                       QStringLiteral("360"),
                                       QStringLiteral("-gray"),
                                       QStringLiteral("-png"),
                                       QStringLiteral("-singlefile"),
                                       Attendi_Foglio(),
                                       immagine};
        const bool fatta = Esegui(QStringLiteral("pdftoppm"), argomenti).stato == 0;
        return fatta ? QImage(immagine + QStringLiteral(".png")) : QImage();
    }
    /// Dark points of such a picture on a way of 60 twips across a line.
    static int Scuri(const QImage &pixel, QPoint centro, QPoint passo)
    {
        int scuri = 0;
        for (int i = -7; i <= 7; ++i)
            scuri += qGray(pixel.pixel(centro / 4 + i * passo)) < 128 ? 1 : 0;
        return scuri;
    }
    static std::shared_ptr<OggettoStampa> Stampante() { return SistemaStampaQt().Printer(); }

    QTemporaryDir dir;

private Q_SLOTS:
    void initTestCase()
    {
        // The library keeps the first server that it meets: it is the same one all along.
        qputenv("CUPS_SERVER", QFile::encodeName(Cartella("cups.sock")));
        qputenv("CUPS_SERVERROOT", QFile::encodeName(Cartella("lavoro")));
        qputenv("HOME", QFile::encodeName(dir.path())); // no printer options of whoever runs this
        // Whoever asks the bus leaves this file.
        qputenv(BUS, "unixexec:path=/usr/bin/touch,argv1=" + QFile::encodeName(Cartella("cercato")));
        for (const char *strumento : {"pdftotext", "pdftoppm", "pdfinfo"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(strumento)).isEmpty())
                QSKIP("pdftotext, pdftoppm or pdfinfo is missing (poppler-utils)");
        }
    }
    void init()
    {
        QVERIFY(QDir(Cartella("uscita")).removeRecursively());
        const Esito esito = Esegui(Copione(), {QStringLiteral("start"), dir.path()});
        if (esito.stato == 77)
            QSKIP(qPrintable(esito.uscita));
        QVERIFY2(esito.stato == 0, qPrintable(esito.uscita));
    }
    void cleanup()
    {
        Ferma();
        QDir(Cartella(".cups")).removeRecursively(); // what lpoptions has chosen
    }

    // --- queues -------------------------------------------------------------------------------------------

    void codaPredefinita()
    {
        const SistemaStampaQt sistema;
        QCOMPARE(sistema.Count(), qint16{1});
        QCOMPARE(sistema.Printers(0)->DeviceName(), QStringLiteral("Rapporto"));
        QCOMPARE(sistema.Printer()->DeviceName(), QStringLiteral("Rapporto"));
    }

    void nessunaCoda()
    {
        QVERIFY(Amministra("lpadmin -x Rapporto"));
        QCOMPARE(SistemaStampaQt().Count(), qint16{0});
        QVERIFY(Stampante() == nullptr);
    }

    void nessunaPredefinita()
    {
        QVERIFY(Amministra("lpadmin -p Altra -E -v file:/dev/null"));
        QVERIFY(Amministra("lpadmin -x Rapporto"));
        QCOMPARE(SistemaStampaQt().Count(), qint16{1});
        QVERIFY(Stampante() == nullptr);
    }

    /// It is the current printer still, and no longer one of the list.
    void codaCheRifiuta()
    {
        QVERIFY(Amministra("lpadmin -p Altra -E -v file:/dev/null"));
        QVERIFY(Amministra("cupsreject Rapporto"));
        const SistemaStampaQt sistema;
        QCOMPARE(sistema.Count(), qint16{1});
        QCOMPARE(sistema.Printers(0)->DeviceName(), QStringLiteral("Altra"));
        QCOMPARE(sistema.Printer()->DeviceName(), QStringLiteral("Rapporto"));
        QVERIFY(Amministra("cupsaccept Rapporto"));
        QCOMPARE(sistema.Count(), qint16{2});
    }

    void predefinitaDiChiLavora_data()
    {
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QByteArray>("variabile");
        QTest::newRow("scelta con lpoptions") << QStringLiteral("lpoptions -d Altra") << QByteArray();
        QTest::newRow("scelta nell'ambiente") << QStringLiteral("lpstat -r") << QByteArrayLiteral("Altra");
    }
    /// It goes before the default of the machine.
    void predefinitaDiChiLavora()
    {
        QFETCH(QString, comando);
        QFETCH(QByteArray, variabile);
        QVERIFY(Amministra("lpadmin -p Altra -E -v file:/dev/null"));
        QVERIFY(Amministra(qUtf8Printable(comando)));
        if (!variabile.isEmpty())
            qputenv("LPDEST", variabile);
        const auto rimetti = qScopeGuard([] { qunsetenv("LPDEST"); });
        QCOMPARE(Stampante()->DeviceName(), QStringLiteral("Altra"));
        QCOMPARE(SistemaStampaQt().Count(), qint16{2});
    }

    /// A queue may be a printer of another computer, switched off: none is asked twice for one page.
    void unElencoPerPagina()
    {
        constexpr qint16 ALTRE = 5;
        for (int i = 0; i < ALTRE; ++i)
            QVERIFY(
                Amministra(qUtf8Printable(QStringLiteral("lpadmin -p Altra%1 -E -v file:/dev/null").arg(i))));
        const int prima = Volte_Chiesto("CUPS-Get-Printers");
        const SistemaStampaQt sistema;
        QCOMPARE(sistema.Count(), qint16{ALTRE + 1});
        QCOMPARE(sistema.Printer()->DeviceName(), QStringLiteral("Rapporto"));
        QStringList nomi;
        for (qint16 i = 0; i <= ALTRE; ++i)
            nomi.append(sistema.Printers(i)->DeviceName());
        QCOMPARE(nomi.count(QStringLiteral("Rapporto")), 1);
        QCOMPARE(nomi.count(QStringLiteral("Altra4")), 1);
        QCOMPARE(Volte_Chiesto("CUPS-Get-Printers") - prima, 1);
    }

    /// What was chosen has been taken away since.
    void predefinitaCheNonCePiu()
    {
        QVERIFY(Amministra("lpadmin -p Altra -E -v file:/dev/null"));
        QVERIFY(Amministra("lpoptions -d Altra"));
        QVERIFY(Amministra("lpadmin -x Altra"));
        QVERIFY(Stampante() == nullptr);
        QCOMPARE(SistemaStampaQt().Count(), qint16{1});
    }

    /// Looking for printers on the network takes a quarter of a second each time, with the window standing
    /// still: who looks there asks the system bus for whoever knows of them.
    void nessunoCercaNellaRete()
    {
        QFile::remove(Cartella("cercato")); // of a test whose queue was nowhere else
        const auto stampante = Stampante();
        QCOMPARE(SistemaStampaQt().Printers(0)->Width(), 11906);
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        stampante->EndDoc();
        QVERIFY(!Attendi_Foglio().isEmpty());
        QVERIFY(!QFile::exists(Cartella("cercato")));
    }

    void cartaDellaCoda_data()
    {
        QTest::addColumn<QString>("carta");
        QTest::addColumn<qint32>("width");
        QTest::addColumn<qint32>("height");
        QTest::newRow("A4") << QStringLiteral("A4") << 11906 << 16838;
        QTest::newRow("Letter") << QStringLiteral("Letter") << 12240 << 15840;
        QTest::newRow("A5") << QStringLiteral("A5") << 8391 << 11906;
    }
    void cartaDellaCoda()
    {
        QFETCH(QString, carta);
        QFETCH(qint32, width);
        QFETCH(qint32, height);
        QVERIFY(Amministra(qPrintable(QStringLiteral("lpadmin -p Rapporto -o PageSize=") + carta)));
        const auto stampante = SistemaStampaQt().Printers(0);
        QCOMPARE(stampante->Width(), width);
        QCOMPARE(stampante->Height(), height);
        QCOMPARE(stampante->ScaleLeft(), 0);
        QCOMPARE(stampante->ScaleTop(), 0);
        QCOMPARE(stampante->ScaleWidth(), width);
        QCOMPARE(stampante->ScaleHeight(), height);
    }

    // --- a page -------------------------------------------------------------------------------------------

    /// Widths of the families that the page is made of, or of their twins: twips of ten letters.
    void larghezzeDeiCaratteri_data()
    {
        QTest::addColumn<QString>("carattere");
        QTest::addColumn<float>("punti");
        QTest::addColumn<bool>("grassetto");
        QTest::addColumn<double>("attesa");
        QTest::addColumn<double>("scarto"); // percent
        QTest::newRow("Courier New") << QStringLiteral("Courier New") << 10.0F << false << 1200.0 << 0.5;
        QTest::newRow("Courier New grassetto")
            << QStringLiteral("Courier New") << 12.0F << true << 1440.0 << 0.5;
        QTest::newRow("Arial") << QStringLiteral("Arial") << 10.0F << false << 1112.3 << 0.1;
        QTest::newRow("una che la macchina ha")
            << QStringLiteral("Liberation Mono") << 10.0F << false << 1200.0 << 0.5;
        QTest::newRow("Arial Black") << QStringLiteral("Arial Black") << 16.0F << false << 2134.0 << 4.0;
    }
    void larghezzeDeiCaratteri()
    {
        QFETCH(QString, carattere);
        QFETCH(float, punti);
        QFETCH(bool, grassetto);
        QFETCH(double, attesa);
        QFETCH(double, scarto);
        const auto stampante = Stampante();
        stampante->FontName(carattere);
        stampante->FontSize(punti);
        stampante->FontBold(grassetto);
        const double larghezza = stampante->TextWidth(QStringLiteral("0123456789"));
        QVERIFY2(qAbs(larghezza - attesa) <= attesa * scarto / 100, qPrintable(QString::number(larghezza)));
        const double altezza = stampante->TextHeight(QStringLiteral("0123456789"));
        const double corpo = static_cast<double>(punti) * TWIP_PUNTO;
        QVERIFY2(altezza > corpo && altezza < 1.5 * corpo, qPrintable(QString::number(altezza)));
    }

    /// The black cut where the machine lacks it: the bold one, wider by a sixth.
    void neroDalGrassettoAllargato()
    {
        if (QFontDatabase::hasFamily(QStringLiteral("Arial Black")))
            QSKIP("this machine has the black cut itself");
        const auto stampante = Stampante();
        stampante->FontSize(16);
        const auto larghezza = [&stampante](const char16_t *carattere, bool grassetto) {
            stampante->FontName(QString::fromUtf16(carattere));
            stampante->FontBold(grassetto);
            return static_cast<double>(stampante->TextWidth(QStringLiteral("Rapporto ").repeated(20)));
        };
        const double volte = larghezza(u"Arial Black", false) / larghezza(u"Arial", true);
        QVERIFY2(qAbs(volte - 1.17) < 0.002, qPrintable(QString::number(volte)));
    }

    void foglioStampato_data()
    {
        QTest::addColumn<QString>("carta");
        QTest::addColumn<QString>("misura");
        QTest::newRow("A4") << QStringLiteral("A4") << QStringLiteral("Page size: +595(\\.\\d+)? x 842");
        QTest::newRow("Letter") << QStringLiteral("Letter") << QStringLiteral("Page size: +612 x 792");
    }
    /// Nothing on the way to the paper moves the page or makes it smaller, whatever the printer's margins.
    void foglioStampato()
    {
        QFETCH(QString, carta);
        QFETCH(QString, misura);
        QVERIFY(Amministra(qPrintable(QStringLiteral("lpadmin -p Rapporto -o PageSize=") + carta)));
        const auto stampante = Stampante();
        const double altezza = stampante->Height() / TWIP_PUNTO;
        for (const TestoFoglio &testo : TESTI_FOGLIO)
            Scrivi(*stampante, testo);
        stampante->EndDoc();
        const QString foglio = Attendi_Foglio();
        QVERIFY(!foglio.isEmpty());
        const QString informazioni = Esegui(QStringLiteral("pdfinfo"), {foglio}).uscita;
        QVERIFY2(informazioni.contains(QRegularExpression(misura)), qPrintable(informazioni));
        QVERIFY(informazioni.contains(QRegularExpression(QStringLiteral("Pages: +1\n"))));
        const QString bbox =
            Esegui(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), foglio, QStringLiteral("-")})
                .uscita;
        for (const TestoFoglio &testo : TESTI_FOGLIO) {
            if (testo.y / TWIP_PUNTO > altezza)
                continue; // below a shorter sheet
            stampante->FontName(QString::fromUtf16(testo.carattere));
            stampante->FontSize(testo.punti);
            stampante->FontBold(testo.grassetto);
            const QString parola = QString::fromUtf16(testo.testo);
            const QRectF posto = Posto_Parola(bbox, parola);
            QVERIFY2(posto.isValid(), qPrintable(parola + u'\n' + bbox));
            const QRectF atteso(testo.x / TWIP_PUNTO, testo.y / TWIP_PUNTO,
                                stampante->TextWidth(parola) / TWIP_PUNTO,
                                stampante->TextHeight(parola) / TWIP_PUNTO);
            const double scarti[] = {posto.left() - atteso.left(), posto.top() - atteso.top(),
                                     posto.right() - atteso.right(), posto.bottom() - atteso.bottom()};
            for (const double scarto : scarti)
                QVERIFY2(qAbs(scarto) <= PUNTI_2MM,
                         qPrintable(QStringLiteral("%1: %2 pt").arg(parola).arg(scarto)));
        }
    }

    void codaDiOgniNome_data()
    {
        QTest::addColumn<QStringList>("comandi");
        QTest::addColumn<QString>("coda");
        QTest::addColumn<qint32>("larghezza");
        const QString strana = QString::fromUtf8("Città%20;&è");
        const QString crea = QStringLiteral("lpadmin -p %1 -E -v carta:/%2 -o PageSize=Letter -P "
                                            "/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd");
        QTest::newRow("lettere di ogni sorta")
            << QStringList(crea.arg(strana, dir.path())) << strana << 12240;
        QTest::newRow("una classe") << QStringList{QStringLiteral("lpadmin -p Rapporto -c Officina"),
                                                   QStringLiteral("cupsaccept Officina"),
                                                   QStringLiteral("cupsenable Officina")}
                                    << QStringLiteral("Officina") << 11906; // a class tells no paper
    }
    void codaDiOgniNome()
    {
        QFETCH(QStringList, comandi);
        QFETCH(QString, coda);
        QFETCH(qint32, larghezza);
        for (const QString &comando : comandi)
            QVERIFY(Amministra(qUtf8Printable(comando)));
        QVERIFY(Amministra(qUtf8Printable(QStringLiteral("lpadmin -d ") + coda)));
        const auto stampante = Stampante();
        QVERIFY(stampante != nullptr);
        QCOMPARE(stampante->DeviceName(), coda);
        QCOMPARE(stampante->Width(), larghezza);
        QCOMPARE(SistemaStampaQt().Count(), qint16{2});
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        stampante->EndDoc();
        QVERIFY(!Attendi_Foglio().isEmpty());
    }

    void lineeStampate()
    {
        const auto stampante = Stampante();
        stampante->DrawStyle(0);
        stampante->DrawWidth(2);
        stampante->Line(586, 841, 11141, 841, 0);
        stampante->DrawWidth(1);
        stampante->Line(586, 841, 586, 2331, 0);
        stampante->EndDoc();
        const QImage pixel = Immagine_Foglio();
        QVERIFY(!pixel.isNull());
        const auto spessore = [&pixel](QPoint centro, QPoint passo) { return Scuri(pixel, centro, passo); };
        const QPoint giu(0, 1);
        const QPoint destra(1, 0);
        for (const int x : {600, 5000, 11130}) {
            const int scuri = spessore({x, 841}, giu);
            QVERIFY2(scuri >= 2 && scuri <= 3, qPrintable(QString::number(scuri))); // 9.6 twips
        }
        for (const int y : {900, 1500, 2320}) {
            const int scuri = spessore({586, y}, destra);
            QVERIFY2(scuri >= 1 && scuri <= 2, qPrintable(QString::number(scuri))); // 4.8 twips
        }
        QCOMPARE(spessore({5000, 2331}, giu), 0);
        QCOMPARE(spessore({11300, 841}, giu), 0);
    }

    /// What stands there already shows between the letters.
    void testoTrasparenteSuUnaLinea()
    {
        const auto stampante = Stampante();
        stampante->DrawStyle(0);
        stampante->DrawWidth(2);
        stampante->Line(586, 1000, 5000, 1000, 0);
        Scrivi(*stampante, {586, 880, u"Courier New", 12, false, u"I         I"});
        stampante->EndDoc();
        const QImage pixel = Immagine_Foglio();
        QVERIFY(!pixel.isNull());
        QVERIFY(Scuri(pixel, {1300, 1000}, {0, 1}) >= 2);
        QVERIFY(Scuri(pixel, {4000, 1000}, {0, 1}) >= 2);
    }

    void senzaDisegnoNessunFoglio()
    {
        const auto stampante = Stampante();
        stampante->EndDoc();
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        stampante->EndDoc();
        stampante->EndDoc(); // and nothing more after a sheet
        QVERIFY(!Attendi_Foglio().isEmpty());
        QCOMPARE(Fogli(), QStringList({QStringLiteral("1.pdf")}));
    }

    void dueFogliDallaStessaStampante()
    {
        const auto stampante = Stampante();
        for (const TestoFoglio &testo : {TESTI_FOGLIO[0], TESTI_FOGLIO[3]}) {
            Scrivi(*stampante, testo);
            stampante->EndDoc();
        }
        QTRY_COMPARE_WITH_TIMEOUT(Fogli().size(), qsizetype{2}, ATTESA_FOGLIO);
        for (const int numero : {1, 2}) {
            const QString foglio = Cartella("uscita/") + QString::number(numero) + QStringLiteral(".pdf");
            const QString testo = Esegui(QStringLiteral("pdftotext"), {foglio, QStringLiteral("-")}).uscita;
            QCOMPARE(testo.simplified(), QString::fromUtf16(TESTI_FOGLIO[numero == 1 ? 0 : 3].testo));
        }
    }

    // --- failures -----------------------------------------------------------------------------------------

    void paginaRifiutata_data()
    {
        QTest::addColumn<QString>("comando");
        QTest::newRow("la coda rifiuta") << QStringLiteral("cupsreject Rapporto");
        QTest::newRow("la coda non c'e piu") << QStringLiteral("lpadmin -x Rapporto");
    }
    void paginaRifiutata()
    {
        QFETCH(QString, comando);
        const auto stampante = Stampante();
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        QVERIFY(Amministra(qPrintable(comando)));
        QCOMPARE(Errore_Di([&stampante] { stampante->EndDoc(); }), 482);
        stampante->EndDoc(); // the page that was refused is gone
        QVERIFY(Fogli().isEmpty());
    }

    void gestoreSpento()
    {
        const auto stampante = Stampante();
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        QVERIFY(Ferma());
        QCOMPARE(Errore_Di([&stampante] { stampante->EndDoc(); }), 482);
        QCOMPARE(SistemaStampaQt().Count(), qint16{0});
        QVERIFY(Stampante() == nullptr);
    }

    void gestoreFermoNessunaStampante()
    {
        const GestoreFermo fermo(Gestore());
        QElapsedTimer tempo;
        tempo.start();
        QCOMPARE(SistemaStampaQt().Count(), qint16{0});
        QVERIFY2(tempo.elapsed() < PAZIENZA, qPrintable(QString::number(tempo.elapsed())));
    }

    /// It stops in the middle of a page: neither the drawing nor its end waits for ever.
    void gestoreFermoPaginaRifiutata()
    {
        const auto stampante = Stampante();
        const GestoreFermo fermo(Gestore());
        QElapsedTimer tempo;
        tempo.start();
        QCOMPARE(stampante->Width(), 11906); // its answer did not come: A4
        Scrivi(*stampante, TESTI_FOGLIO[0]);
        QCOMPARE(Errore_Di([&stampante] { stampante->EndDoc(); }), 482);
        QVERIFY2(tempo.elapsed() < PAZIENZA, qPrintable(QString::number(tempo.elapsed())));
    }
};

QTEST_MAIN(tst_stampante_qt)
#include "tst_stampante_qt.moc"
