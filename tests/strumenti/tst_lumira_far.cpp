// lumira-far as a process: table, CSV, JSON, counts and charts of result files that the station has written.
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "mctc/far.h"
#include "tests/comuni/stazione_prova.h"
#include "tests/strumenti/processo.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QXmlStreamReader>

class tst_lumira_far : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_cartella = m_stazione.Nativo(QStringLiteral("DIR_FAR"));

    Esecuzione Esegui(const QStringList &argomenti) const
    {
        return Processo_Esegui(QStringLiteral(LUMIRA_FAR),
                               QStringList{QStringLiteral("--lingua"), QStringLiteral("IT")} + argomenti);
    }

    /// A vehicle as the evaluation writes it; irregular when the row named says so.
    void Veicolo(const QString &nome, const QString &giorno, const QString &operatore,
                 std::optional<RigaFar> irregolare = std::nullopt) const
    {
        Far_Azzera();
        for (const RigaFar riga : FAR_DECISIVE)
            Far_Imposta(riga, QStringLiteral("R"));
        if (irregolare)
            Far_Imposta(*irregolare, QStringLiteral("I"));
        Far_Imposta(FarEsito, irregolare ? QStringLiteral("I") : QStringLiteral("R"));
        for (const RigaFar riga : {FarIllumLuxAnabDx, FarIllumLuxAnabSx, FarIllumLuxAbbDx})
            Far_Imposta(riga, QStringLiteral("30000"));
        Far_Imposta(FarIllumLuxAbbSx, QStringLiteral("-100"));
        Far_Imposta(FarNumVersioneSoftware, QStringLiteral("1.0"));
        Far_Imposta(FarDataScadenza, QStringLiteral("31122027"));
        Far_Imposta(FarAltezzaAnab, QStringLiteral("#72.5"));
        Far_Imposta(FarTipoAnab, QStringLiteral("#S"));
        Far_Imposta(FarDataMisura, giorno);
        Far_Imposta(FarInizioMisura, QStringLiteral("083000"));
        Far_Imposta(FarFineMisura, QStringLiteral("083215"));
        Far_Imposta(FarOperatore, operatore);
        Far_Scrivi(gDirAcc + nome + QStringLiteral(".acc"));
    }

    /// The fields of a line of CSV, read by its own rule.
    static QStringList Campi(const QString &riga)
    {
        QStringList campi{QString()};
        bool dentro = false;
        for (qsizetype i = 0; i < riga.size(); ++i) {
            if (riga[i] == u'"' && dentro && i + 1 < riga.size() && riga[i + 1] == u'"')
                campi.last() += riga[++i];
            else if (riga[i] == u'"')
                dentro = !dentro;
            else if (riga[i] == u',' && !dentro)
                campi.append(QString());
            else
                campi.last() += riga[i];
        }
        return campi;
    }

private Q_SLOTS:
    void init()
    {
        // Windows keeps a file for a moment after the program that has read it.
        QTRY_VERIFY(QDir(m_cartella).removeRecursively());
        QVERIFY(QDir().mkpath(m_cartella));
        Veicolo(QStringLiteral("10000001"), QStringLiteral("01022026"), QStringLiteral("Bianchi"));
        Veicolo(QStringLiteral("10000002"), QStringLiteral("01022026"), QStringLiteral("Nicolò, \"il\" capo"),
                FarVertAbbDx);
        Veicolo(QStringLiteral("10000003"), QStringLiteral("31012026"), QStringLiteral("Bianchi"),
                FarEsitoIllumLuxAnabSx);
    }

    void tabella()
    {
        const Esecuzione e = Esegui({m_cartella});
        QCOMPARE(e.stato, 0);
        QVERIFY2(e.errori.isEmpty(), qPrintable(e.errori));
        const QStringList righe = e.uscita.split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(righe.size(), 4);
        QVERIFY(righe[0].startsWith(QStringLiteral("file ")));
        const QStringList terza = righe[3].simplified().split(u' ');
        QVERIFY(terza[0].endsWith(QStringLiteral("10000003.far")));
        QCOMPARE(terza.mid(1),
                 (QStringList{QStringLiteral("31/01/2026"), QStringLiteral("08.30.00"),
                              QStringLiteral("08.32.15"), QStringLiteral("Bianchi"), QStringLiteral("I"),
                              QStringLiteral("EsitoIllumLuxAnabSx"), QStringLiteral("0")}));
    }

    /// Quotes, commas and accents come back as they were; every line ends with CR LF on every system.
    void csv()
    {
        const Esecuzione e = Esegui({QStringLiteral("--csv"), m_cartella});
        QCOMPARE(e.stato, 0);
        QCOMPARE(e.byte.count('\n'), 4);
        QCOMPARE(e.byte.count("\r\n"), 4);
        QCOMPARE(e.byte.count("\r\r"), 0);
        const QStringList righe = QString::fromUtf8(e.byte).split(QStringLiteral("\r\n"));
        const QStringList nomi = Campi(righe[0]);
        const QStringList valori = Campi(righe[2]);
        QCOMPARE(nomi.size(), RIGHE_FAR + 2);
        QCOMPARE(valori.size(), nomi.size());
        QCOMPARE(nomi[1 + FarOperatore], QStringLiteral("Operatore"));
        QCOMPARE(valori[1 + FarOperatore], QStringLiteral("Nicolò, \"il\" capo"));
        QCOMPARE(valori[1 + FarVertAbbDx], QStringLiteral("I"));
    }

    void json()
    {
        m_stazione.Scrivi(
            QStringLiteral("DIR_FAR\\10000001.far"),
            m_stazione.Leggi(QStringLiteral("DIR_FAR\\10000001.far")).replace("TipoAnab=#S", "TipoAnab=S"));
        const Esecuzione e = Esegui({QStringLiteral("--json"), m_cartella});
        QCOMPARE(e.stato, 1);
        QVERIFY2(e.errori.isEmpty(), qPrintable(e.errori));
        const QJsonArray oggetti = QJsonDocument::fromJson(e.byte).array();
        QCOMPARE(oggetti.size(), 3);
        const QJsonObject difetto = oggetti[0][QStringLiteral("difetti")][0].toObject();
        QCOMPARE(difetto[QStringLiteral("riga")].toInt(), 9);
        QCOMPARE(difetto[QStringLiteral("difetto")].toString(), QStringLiteral("valore"));
        QCOMPARE(difetto[QStringLiteral("testo")].toString(), QStringLiteral("TipoAnab=S"));
        const QJsonObject righe = oggetti[1][QStringLiteral("righe")].toObject();
        QCOMPARE(righe.size(), RIGHE_FAR);
        QCOMPARE(righe[QStringLiteral("VertAbbDx")].toString(), QStringLiteral("I"));
    }

    void difettiConFileERiga()
    {
        m_stazione.Scrivi(QStringLiteral("DIR_FAR\\10000002.far"), "[Kandelo]\r\n");
        const Esecuzione e = Esegui({m_cartella});
        QCOMPARE(e.stato, 1);
        QCOMPARE(e.errori.count(u'\n'), RIGHE_FAR);
        QVERIFY2(e.errori.contains(QStringLiteral("10000002.far:2: manca la chiave: Marca\n")),
                 qPrintable(e.errori));
        QCOMPARE(e.uscita.count(u'\n'), 4);
    }

    /// A name with a mark like those that texts are filled in at is told as it stands.
    void difettiConNomeSegnato()
    {
        const QString nome = QStringLiteral("DIR_FAR\\al 50%2.far");
        m_stazione.Scrivi(nome, "[Kandelo]\r\n");
        const Esecuzione e = Esegui({m_stazione.Nativo(nome)});
        QVERIFY2(e.errori.contains(QStringLiteral("al 50%2.far:2: manca la chiave: Marca\n")),
                 qPrintable(e.errori));
    }

    void riepilogo()
    {
        const Esecuzione e = Esegui({QStringLiteral("--riepilogo"), QStringLiteral("--csv"), m_cartella});
        QCOMPARE(e.stato, 0);
        QCOMPARE(e.uscita, QStringLiteral("gruppo,voce,veicoli,regolari,irregolari\n"
                                          "giorno,2026-01-31,1,0,1\n"
                                          "giorno,2026-02-01,2,1,1\n"
                                          "operatore,Bianchi,2,1,1\n"
                                          "operatore,\"Nicolò, \"\"il\"\" capo\",1,0,1\n"
                                          "esito,I,2,0,2\n"
                                          "esito,R,1,1,0\n"
                                          "causa,EsitoIllumLuxAnabSx,1,0,1\n"
                                          "causa,VertAbbDx,1,0,1\n"));
        const Esecuzione json = Esegui({QStringLiteral("--riepilogo"), QStringLiteral("--json"), m_cartella});
        QCOMPARE(QJsonDocument::fromJson(json.byte)[1][QStringLiteral("veicoli")].toInt(), 2);
        const Esecuzione inglese = Esegui(
            {QStringLiteral("--lingua"), QStringLiteral("EN"), QStringLiteral("--riepilogo"), m_cartella});
        QVERIFY2(inglese.uscita.contains(QStringLiteral("verdict   R")), qPrintable(inglese.uscita));
    }

    /// The limits are those of the station; what is drawn is whole XML with a bar a day and verdict.
    void graficoSvg()
    {
        m_stazione.Imposta(QStringLiteral("PARAMETRI"), QStringLiteral("LuxMinAnab"), QStringLiteral("4321"));
        const QString file = m_stazione.Nativo(QStringLiteral("grafico.svg"));
        const Esecuzione e = Esegui({QStringLiteral("--grafico"), file, QStringLiteral("--stazione"),
                                     m_stazione.Nativo(QString()), m_cartella});
        QCOMPARE(e.stato, 0);
        QVERIFY(e.uscita.isEmpty());
        const QByteArray svg = m_stazione.Leggi(QStringLiteral("grafico.svg"));
        QXmlStreamReader xml(svg);
        QStringList testi;
        while (!xml.atEnd()) {
            if (xml.readNextStartElement() && (xml.name() == u"text" || xml.name() == u"title"))
                testi.append(xml.readElementText());
        }
        QVERIFY2(!xml.hasError() || xml.error() == QXmlStreamReader::PrematureEndOfDocumentError,
                 qPrintable(xml.errorString()));
        for (const char16_t *testo :
             {u"Prove dei proiettori: 3 veicoli", u"2026-01-31", u"2026-02-01", u"minimo 4321",
              u"massimo 90000", u"Abbagliante sinistro (3 mai misurati)", u"Anabbagliante destro"})
            QVERIFY2(testi.contains(QString::fromUtf16(testo)), qPrintable(testi.join(u'|')));
    }

    void graficoPng()
    {
        const QString file = m_stazione.Nativo(QStringLiteral("grafico.PNG"));
        const Esecuzione e = Esegui({QStringLiteral("--grafico"), file, m_cartella});
        QCOMPARE(e.stato, 0);
        const QImage immagine(file);
        QCOMPARE(immagine.size(), QSize(2000, 2040));
        qsizetype blu = 0, arancio = 0, rosso = 0;
        for (int y = 0; y < immagine.height(); ++y) {
            for (int x = 0; x < immagine.width(); ++x) {
                const QRgb punto = immagine.pixel(x, y) & 0xFFFFFF;
                blu += punto == 0x1F6FB2 ? 1 : 0;
                arancio += punto == 0xD9822B ? 1 : 0;
                rosso += punto == 0xB00020 ? 1 : 0;
            }
        }
        QVERIFY2(blu > 10000 && arancio > 10000 && rosso > 100,
                 qPrintable(QStringLiteral("%1 %2 %3").arg(blu).arg(arancio).arg(rosso)));
    }

    void usoErrato_data()
    {
        QTest::addColumn<QStringList>("argomenti");
        QTest::newRow("niente") << QStringList();
        QTest::newRow("due forme") << QStringList{QStringLiteral("--csv"), QStringLiteral("--json"),
                                                  m_cartella};
        QTest::newRow("grafico d'altro tipo")
            << QStringList{QStringLiteral("--grafico"), QStringLiteral("g.jpg"), m_cartella};
        QTest::newRow("grafico non scrivibile") << QStringList{
            QStringLiteral("--grafico"), m_cartella + QStringLiteral("/manca/g.svg"), m_cartella};
        QTest::newRow("stazione che non c'è")
            << QStringList{QStringLiteral("--grafico"), m_cartella + QStringLiteral("/g.svg"),
                           QStringLiteral("--stazione"), m_cartella, m_cartella};
        QTest::newRow("stazione senza grafico")
            << QStringList{QStringLiteral("--stazione"), m_cartella, m_cartella};
        QTest::newRow("file che manca")
            << QStringList{QStringLiteral("--riepilogo"), m_cartella + QStringLiteral("/manca.far")};
    }
    void usoErrato()
    {
        QFETCH(QStringList, argomenti);
        const Esecuzione e = Esegui(argomenti);
        QCOMPARE(e.stato, 2);
        QVERIFY(e.errori.startsWith(QStringLiteral("lumira-far: ")));
        QVERIFY(!QFile::exists(m_cartella + QStringLiteral("/g.svg")));
    }

    void lingueAiutoEVersione()
    {
        QVERIFY(Esegui({QStringLiteral("--help")}).uscita.startsWith(QStringLiteral("Uso: lumira-far")));
        QVERIFY(Esegui({QStringLiteral("--lingua"), QStringLiteral("EN"), QStringLiteral("--help")})
                    .uscita.startsWith(QStringLiteral("Usage: lumira-far")));
        QCOMPARE(Esegui({QStringLiteral("--version")}).uscita,
                 QStringLiteral("lumira-far " LUMIRA_VERSIONE "\n"));
    }
};

QTEST_GUILESS_MAIN(tst_lumira_far)
#include "tst_lumira_far.moc"
