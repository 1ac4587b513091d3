// lumira-acc as a process: verdicts, report, JSON, what it cannot look at, and a folder under watch.
#include "core/modGeneral.h"
#include "mctc/modMctc.h"
#include "tests/mctc/prova_acc.h"
#include "tests/strumenti/processo.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

namespace {

const QString BUONO = QStringLiteral("10000001.acc");
const QString ERRATO = QStringLiteral("10000002.acc");
const QString ANOMALO = QStringLiteral("10000003.ACC");

} // namespace

class tst_lumira_acc : public QObject
{
    Q_OBJECT

    ProvaAcc m_prova;
    const QString m_stazione = m_prova.Stazione.Nativo(QString());
    const QString m_cartella = m_prova.Stazione.Nativo(QStringLiteral("DIR_FAR"));

    QString Nativo(const QString &nome) const { return m_cartella + u'/' + nome; }

    Esecuzione Esegui(const QStringList &argomenti) const
    {
        return Processo_Esegui(QStringLiteral(LUMIRA_ACC),
                               QStringList{QStringLiteral("--lingua"), QStringLiteral("IT"),
                                           QStringLiteral("--stazione"), m_stazione} +
                                   argomenti);
    }

    /// The objects of a run, by the file's name.
    static QMap<QString, QJsonObject> Oggetti(const QByteArray &json)
    {
        QMap<QString, QJsonObject> oggetti;
        QJsonParseError errore;
        const QJsonArray lista = QJsonDocument::fromJson(json, &errore).array();
        if (errore.error != QJsonParseError::NoError)
            qWarning("%s", qPrintable(errore.errorString()));
        for (const QJsonValueConstRef &valore : lista)
            oggetti.insert(QFileInfo(valore[QStringLiteral("file")].toString()).fileName(),
                           valore.toObject());
        return oggetti;
    }

private Q_SLOTS:
    void init()
    {
        // Windows keeps a file for a moment after the program that has read it.
        QTRY_VERIFY(QDir(m_cartella).removeRecursively());
        m_prova.Scrivi(m_prova.Buono(), BUONO);
        m_prova.Scrivi(m_prova.Con("Prenotazione", "CAP", "1"), ERRATO);
        m_prova.Scrivi(m_prova.Senza("Vis_Sterzo"), ANOMALO);
    }

    void fileBuono()
    {
        const Esecuzione e = Esegui({Nativo(BUONO)});
        QCOMPARE(e.stato, 0);
        QVERIFY2(e.uscita.contains(BUONO + QStringLiteral(": buona\n")), qPrintable(e.uscita));
        QVERIFY2(e.errori.isEmpty(), qPrintable(e.errori));
    }

    /// The report is the station's own, line by line.
    void cartella()
    {
        const Esecuzione e = Esegui({m_cartella});
        QCOMPARE(e.stato, 1);
        QVERIFY2(
            e.uscita.contains(ERRATO + QStringLiteral(": errata\nSezione:[Prenotazione] - Campo:CAP - Errore "
                                                      "di lunghezza\n")),
            qPrintable(e.uscita));
        QVERIFY2(e.uscita.contains(ANOMALO +
                                   QStringLiteral(": anomala\nSezione: Vis_Sterzo - Sezione Mancante\n")),
                 qPrintable(e.uscita));
        QVERIFY2(e.uscita.endsWith(QStringLiteral("3 file: 1 buoni, 2 con anomalie, 0 non esaminati\n")),
                 qPrintable(e.uscita));
    }

    void soloGliAnomali()
    {
        const Esecuzione e = Esegui({QStringLiteral("--solo-anomali"), m_cartella});
        QCOMPARE(e.stato, 1);
        QVERIFY(!e.uscita.contains(BUONO) && e.uscita.contains(ERRATO));
        QVERIFY(e.uscita.contains(QStringLiteral("3 file")));
    }

    void json()
    {
        const Esecuzione e = Esegui({QStringLiteral("--json"), m_cartella});
        QCOMPARE(e.stato, 1);
        const QMap<QString, QJsonObject> oggetti = Oggetti(e.byte);
        QCOMPARE(oggetti.keys(), (QStringList{BUONO, ERRATO, ANOMALO}));
        QCOMPARE(oggetti[BUONO][QStringLiteral("esito")].toString(), QStringLiteral("buona"));
        QCOMPARE(oggetti[BUONO][QStringLiteral("rilievi")].toArray().size(), 0);
        const QJsonObject rilievo = oggetti[ERRATO][QStringLiteral("rilievi")][0].toObject();
        QCOMPARE(rilievo[QStringLiteral("sezione")].toString(), QStringLiteral("Prenotazione"));
        QCOMPARE(rilievo[QStringLiteral("campo")].toString(), QStringLiteral("CAP"));
        QCOMPARE(rilievo[QStringLiteral("motivo")].toString(), QStringLiteral("Errore di lunghezza"));
        QFile file(Nativo(ERRATO));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll().split('\n').value(rilievo[QStringLiteral("riga")].toInt() - 1),
                 QByteArray("CAP=1\r"));
        QVERIFY(!oggetti[ANOMALO][QStringLiteral("rilievi")][0].toObject().contains(QStringLiteral("riga")));
    }

    void jsonDiNiente()
    {
        QVERIFY(QDir().mkpath(Nativo(QStringLiteral("vuota"))));
        const Esecuzione e = Esegui({QStringLiteral("--json"), Nativo(QStringLiteral("vuota"))});
        QCOMPARE(e.stato, 0);
        QCOMPARE(QJsonDocument::fromJson(e.byte), QJsonDocument(QJsonArray()));
    }

    /// The station's flag, and the two options over it.
    void controlloVisivo()
    {
        m_prova.Scrivi(m_prova.Con("Vis_Sterzo", "StatoMeccanicoSterzo_21", "X"), ERRATO);
        const auto stato = [this](const QStringList &opzioni) {
            return Esegui(opzioni + QStringList{Nativo(ERRATO)}).stato;
        };
        m_prova.Stazione.Imposta(QStringLiteral("MCTC"), QStringLiteral("ControlloVisivo"),
                                 QStringLiteral("0"));
        QCOMPARE(stato({}), 0);
        QCOMPARE(stato({QStringLiteral("--visivo")}), 1);
        m_prova.Stazione.Imposta(QStringLiteral("MCTC"), QStringLiteral("ControlloVisivo"),
                                 QStringLiteral("1"));
        QCOMPARE(stato({}), 1);
        QCOMPARE(stato({QStringLiteral("--senza-visivo")}), 0);
        QCOMPARE(stato({QStringLiteral("--visivo"), QStringLiteral("--senza-visivo")}), 2);
    }

    void altroModello()
    {
        m_prova.Stazione.Scrivi(QStringLiteral("altro.acc"), m_prova.Senza("Vis_Sterzo"));
        const QStringList modello = {QStringLiteral("--modello"),
                                     m_prova.Stazione.Nativo(QStringLiteral("altro.acc"))};
        QCOMPARE(Esegui(modello + QStringList{Nativo(ANOMALO)}).stato, 0);
        const Esecuzione e = Esegui(modello + QStringList{Nativo(BUONO)});
        QCOMPARE(e.stato, 1);
        QVERIFY2(e.uscita.contains(QStringLiteral("Sezione: Vis_Sterzo - Sezione Estranea")),
                 qPrintable(e.uscita));
    }

    /// The texts of the report that are the station's, in its language.
    void testiDellaStazione()
    {
        m_prova.Scrivi(m_prova.Con("Prenotazione", "Ora", "999999"), ERRATO);
        m_prova.Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Lingua"),
                                 QStringLiteral("EN"));
        const QString atteso = Valore_Ini(gFileLingueMctc, QStringLiteral("EN"), QStringLiteral("096"));
        const Esecuzione e = Esegui({Nativo(ERRATO)});
        m_prova.Stazione.Imposta(QStringLiteral("IMPOSTAZIONI"), QStringLiteral("Lingua"),
                                 QStringLiteral("IT"));
        QVERIFY(!atteso.isEmpty());
        QVERIFY2(e.uscita.contains(QStringLiteral("Campo:Ora - ") + atteso), qPrintable(e.uscita));
    }

    /// What could not be looked at is told, and the rest is looked at all the same.
    void nonGuardati()
    {
        m_prova.Scrivi(QByteArray(40000, 'x'), ERRATO);
        const Esecuzione e = Esegui({Nativo(QStringLiteral("manca.acc")), Nativo(ERRATO), Nativo(BUONO)});
        QCOMPARE(e.stato, 2);
        QVERIFY2(e.errori.contains(QStringLiteral("manca.acc non c'è")), qPrintable(e.errori));
        QVERIFY2(e.uscita.contains(ERRATO + QStringLiteral(": non esaminata (oltre i 32767 byte")),
                 qPrintable(e.uscita));
        QVERIFY2(e.uscita.contains(BUONO + QStringLiteral(": buona")), qPrintable(e.uscita));
    }

    void senzaStazioneOModello()
    {
        const Esecuzione senza = Processo_Esegui(QStringLiteral(LUMIRA_ACC),
                                                 {QStringLiteral("--lingua"), QStringLiteral("IT"),
                                                  QStringLiteral("--stazione"), m_cartella, m_cartella});
        QCOMPARE(senza.stato, 2);
        QVERIFY2(senza.errori.contains(QStringLiteral("manca lumira.ini (--stazione CARTELLA)")),
                 qPrintable(senza.errori));
        const Esecuzione modello =
            Esegui({QStringLiteral("--modello"), Nativo(QStringLiteral("x.acc")), m_cartella});
        QCOMPARE(modello.stato, 2);
        QVERIFY2(modello.errori.contains(QStringLiteral("x.acc non c'è")), qPrintable(modello.errori));
        QVERIFY(modello.uscita.isEmpty());
    }

    void percorsoRelativo()
    {
        const QString prima = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_cartella));
        const Esecuzione e = Esegui({BUONO, QStringLiteral(".")});
        QVERIFY(QDir::setCurrent(prima));
        QCOMPARE(e.stato, 1);
        QVERIFY2(e.uscita.contains(QStringLiteral("4 file: 2 buoni")), qPrintable(e.uscita));
    }

    void usoErrato_data()
    {
        QTest::addColumn<QStringList>("argomenti");
        QTest::newRow("niente") << QStringList();
        QTest::newRow("sconosciuta") << QStringList{QStringLiteral("--tutto"), m_cartella};
        QTest::newRow("senza valore") << QStringList{m_cartella, QStringLiteral("--modello")};
        QTest::newRow("lingua") << QStringList{QStringLiteral("--lingua"), QStringLiteral("FR"), m_cartella};
        QTest::newRow("osserva un file") << QStringList{QStringLiteral("--osserva"), Nativo(BUONO)};
    }
    void usoErrato()
    {
        QFETCH(QStringList, argomenti);
        const Esecuzione e = Esegui(argomenti);
        QCOMPARE(e.stato, 2);
        QVERIFY(e.errori.startsWith(QStringLiteral("lumira-acc: ")));
        QVERIFY(e.uscita.isEmpty());
    }

    void lingueAiutoEVersione()
    {
        const auto aiuto = [](const char *lingua) {
            return Processo_Esegui(
                QStringLiteral(LUMIRA_ACC),
                {QStringLiteral("--lingua"), QString::fromUtf8(lingua), QStringLiteral("--help")});
        };
        QCOMPARE(aiuto("IT").stato, 0);
        QVERIFY(aiuto("IT").uscita.startsWith(QStringLiteral("Uso: lumira-acc")));
        QVERIFY(aiuto("en").uscita.startsWith(QStringLiteral("Usage: lumira-acc")));
        const Esecuzione versione =
            Processo_Esegui(QStringLiteral(LUMIRA_ACC), {QStringLiteral("--version")});
        QCOMPARE(versione.stato, 0);
        QCOMPARE(versione.uscita, QStringLiteral("lumira-acc " LUMIRA_VERSIONE "\n"));
    }

    /// What is there first, then what arrives, then what is written anew; a line of JSON each.
    void osserva()
    {
        QVERIFY(QFile::remove(Nativo(ERRATO)) && QFile::remove(Nativo(ANOMALO)));
        QFile vecchio(Nativo(BUONO)); // the check's own reading is the first for a long time: no news
        const QDateTime prima = QDateTime::currentDateTime().addSecs(-7200);
        QVERIFY(vecchio.open(QIODevice::ReadWrite) &&
                vecchio.setFileTime(prima, QFileDevice::FileModificationTime) &&
                vecchio.setFileTime(prima, QFileDevice::FileAccessTime));
        vecchio.close();
        QProcess processo;
        processo.start(QStringLiteral(LUMIRA_ACC),
                       {QStringLiteral("--stazione"), m_stazione, QStringLiteral("--json"),
                        QStringLiteral("--osserva"), m_cartella});
        const auto arriva = [&processo](const QString &nome, const char *esito) {
            if (!QTest::qWaitFor([&processo] { return processo.canReadLine(); }, 20000))
                return false;
            const QJsonObject oggetto = QJsonDocument::fromJson(processo.readLine()).object();
            return oggetto[QStringLiteral("file")].toString().endsWith(nome) &&
                   oggetto[QStringLiteral("esito")].toString() == QString::fromUtf8(esito);
        };
        QVERIFY(arriva(BUONO, "buona"));
        m_prova.Scrivi(m_prova.Con("Prenotazione", "CAP", "1"), ERRATO);
        QVERIFY(arriva(ERRATO, "errata"));
        m_prova.Scrivi(m_prova.Buono(), ERRATO);
        QVERIFY(arriva(ERRATO, "buona"));
        processo.kill();
        QVERIFY(processo.waitForFinished());
        QVERIFY(!processo.canReadLine());
    }
};

QTEST_GUILESS_MAIN(tst_lumira_acc)
#include "tst_lumira_acc.moc"
