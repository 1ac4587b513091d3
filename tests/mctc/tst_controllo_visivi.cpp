// The fourth pass: the visual check of a file.
#include "mctc/controllo_visivi.h"

#include "mctc/formato_acc.h"
#include "tests/comuni/locale_prova.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

class tst_controllo_visivi : public QObject
{
    Q_OBJECT

private:
    ProvaAcc m_prova;

    /// The section names that a file yields; the count must agree.
    QStringList Esito(const QByteArray &byte)
    {
        QStringList sezioni{QStringLiteral("vecchia")};
        const qint16 quanti = Visivo_Controlla(m_prova.Scrivi(byte), sezioni);
        return quanti == sezioni.size() ? sezioni : QStringList{QStringLiteral("conteggio sbagliato")};
    }

private Q_SLOTS:
    void init() { Imposta_Locale(QLocale::c()); }

    void ilModelloNonHaErrori() { QCOMPARE(Esito(m_prova.Buono()), QStringList()); }

    void ogniChiaveConUnValoreGuasto_data()
    {
        QTest::addColumn<QByteArray>("sezione");
        QTest::addColumn<QByteArray>("chiave");
        for (const RegolaVisivo &regola : REGOLE_VISIVI) {
            if (regola.Massimo == 0)
                QTest::addRow("%s", regola.Key.toLatin1().constData())
                    << regola.Section.toLatin1() << regola.Key.trimmed().toLatin1();
        }
    }
    void ogniChiaveConUnValoreGuasto()
    {
        QFETCH(QByteArray, sezione);
        QFETCH(QByteArray, chiave);
        QCOMPARE(Esito(m_prova.Con(sezione, chiave, "X")), QStringList{QString::fromLatin1(sezione)});
        QCOMPARE(Esito(m_prova.Con(sezione, chiave, "")), QStringList());
    }

    void giudizi_data()
    {
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<bool>("buono");
        QTest::newRow("regolare") << QByteArray("R") << true;
        QTest::newRow("irregolare") << QByteArray("I") << true;
        QTest::newRow("terza lettera") << QByteArray("A") << true;
        QTest::newRow("vuoto") << QByteArray("") << true;
        QTest::newRow("minuscola") << QByteArray("r") << false;
        QTest::newRow("due lettere") << QByteArray("RR") << false;
    }
    void giudizi()
    {
        QFETCH(QByteArray, valore);
        QFETCH(bool, buono);
        const QStringList attesi = buono ? QStringList() : QStringList{QStringLiteral("Vis_Sterzo")};
        QCOMPARE(Esito(m_prova.Con("Vis_Sterzo", "GiocoSterzo_22", valore)), attesi);
    }

    void unPuntoNonSiGuardaMai()
    {
        QCOMPARE(Esito(m_prova.Con("Vis_ImpiantoElettrico", "OrientVertAbbDx_41221", "X")), QStringList());
    }

    void laSezioneCompareUnaVoltaPerErrore()
    {
        QByteArray byte = m_prova.Buono();
        byte.replace("Rumori_81=R", "Rumori_81=X").replace("GasScarico_82=R", "GasScarico_82=Y");
        byte.replace("Vetri_32=R", "Vetri_32=Z");
        QCOMPARE(Esito(byte),
                 (QStringList{QStringLiteral("Vis_Visibilita"), QStringLiteral("Vis_EffettiNocivi"),
                              QStringLiteral("Vis_EffettiNocivi")}));
    }

    void date_data()
    {
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<bool>("buona");
        QTest::newRow("buona") << QByteArray("29022024") << true;
        QTest::newRow("vuota") << QByteArray("") << true;
        QTest::newRow("non del calendario") << QByteArray("29022023") << false;
        QTest::newRow("corta") << QByteArray("1112024") << false;
        QTest::newRow("lettere") << QByteArray("ABCDEFGH") << false;
    }
    void date()
    {
        QFETCH(QByteArray, valore);
        QFETCH(bool, buona);
        const auto attesi = [buona](const QString &sezione) {
            return buona ? QStringList() : QStringList{sezione};
        };
        QCOMPARE(Esito(m_prova.Con("Vis_IdentificazioneVeicolo", "DataControlli", valore)),
                 attesi(QStringLiteral("Vis_IdentificazioneVeicolo")));
        QCOMPARE(Esito(m_prova.Con("EsitoComplessivo", "DataEffettiva", valore)),
                 attesi(QStringLiteral("EsitoComplessivo")));
    }

    void ore_data()
    {
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<int>("errori");
        QTest::newRow("buona") << QByteArray("235959") << 0;
        QTest::newRow("vuota") << QByteArray("") << 0;
        QTest::newRow("ore") << QByteArray("240000") << 1;
        QTest::newRow("minuti e secondi") << QByteArray("236060") << 2;
        QTest::newRow("tutto") << QByteArray("999999") << 3;
        QTest::newRow("corta, e fuori") << QByteArray("99999") << 1;
        QTest::newRow("lunga") << QByteArray("0930000") << 1;
        QTest::newRow("lettere") << QByteArray("AABBCC") << 1;
    }
    void ore()
    {
        QFETCH(QByteArray, valore);
        QFETCH(int, errori);
        for (const char *chiave : {"OraInizioControlli", "OraFineControlli"}) {
            const QStringList attesi(errori, QStringLiteral("Vis_IdentificazioneVeicolo"));
            QCOMPARE(Esito(m_prova.Con("Vis_IdentificazioneVeicolo", chiave, valore)), attesi);
        }
    }

    void lunghezze_data()
    {
        QTest::addColumn<QByteArray>("sezione");
        QTest::addColumn<QByteArray>("chiave");
        QTest::addColumn<int>("massimo");
        QTest::newRow("operatore") << QByteArray("Vis_IdentificazioneVeicolo") << QByteArray("Operatore")
                                   << 50;
        QTest::newRow("note") << QByteArray("EsitoComplessivo") << QByteArray("Note") << 320;
    }
    void lunghezze()
    {
        QFETCH(QByteArray, sezione);
        QFETCH(QByteArray, chiave);
        QFETCH(int, massimo);
        QCOMPARE(Esito(m_prova.Con(sezione, chiave, QByteArray(massimo, 'x'))), QStringList());
        QCOMPARE(Esito(m_prova.Con(sezione, chiave, QByteArray(massimo + 1, 'x'))),
                 QStringList{QString::fromLatin1(sezione)});
    }

    void esiti_data()
    {
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<bool>("buono");
        for (const char *buono : {"SOSPESO", "REGOLARE", "RIPETERE", "NEGATIVO", "IN RIPARAZIONE", ""})
            QTest::addRow("\"%s\"", buono) << QByteArray(buono) << true;
        for (const char *guasto : {"regolare", "POSITIVO", "R"})
            QTest::addRow("\"%s\"", guasto) << QByteArray(guasto) << false;
    }
    void esiti()
    {
        QFETCH(QByteArray, valore);
        QFETCH(bool, buono);
        const QStringList attesi = buono ? QStringList() : QStringList{QStringLiteral("EsitoComplessivo")};
        QCOMPARE(Esito(m_prova.Con("EsitoComplessivo", "EsitoRevisione", valore)), attesi);
    }

    void fileMancanteNonHaErrori()
    {
        QStringList sezioni;
        QCOMPARE(
            Visivo_Controlla(m_prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc")), sezioni),
            qint16{0});
    }
};

QTEST_GUILESS_MAIN(tst_controllo_visivi)
#include "tst_controllo_visivi.moc"
