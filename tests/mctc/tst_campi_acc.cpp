// The record of an acceptance file and the reading of one.
#include "mctc/campi_acc.h"

#include "core/modGeneral.h"
#include "platform/errore_esecuzione.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

class tst_campi_acc : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void impostaSoloIMembriFissi()
    {
        const ProvaAcc prova;
        const CampoForm &cap = gCampiAcc[AccCAP];
        QCOMPARE(cap.Section, QStringLiteral("Prenotazione"));
        QCOMPARE(cap.Key, QStringLiteral("CAP"));
        QCOMPARE(cap.LabelId, MctcNessuno);
        QCOMPARE(cap.Kind, quint8{CampoTesto});
        QCOMPARE(cap.ValueKind, qint16{ValoreTesto});
        QCOMPARE(cap.CtlLeft, qint16{-1});
        QVERIFY(cap.Value.isEmpty());
        QVERIFY(cap.File.isEmpty());
    }

    void tutteLeRigheSonoSoloDaVedereEHannoUnTipo()
    {
        const ProvaAcc prova;
        for (const CampoForm &campo : gCampiAcc) {
            QCOMPARE(campo.Editable, Falso);
            QVERIFY(campo.ValueKind != ValoreNessuno);
        }
    }

    void apreUnFile()
    {
        const ProvaAcc prova;
        const QString percorso = prova.Scrivi(prova.Con("Prenotazione", "CAP", "47122"));
        Acc_Apri(percorso);
        QCOMPARE(gCampiAcc[AccCAP].Value, QStringLiteral("47122"));
        QCOMPARE(gCampiAcc[AccTarga].Value, QStringLiteral("AB123CD"));
        for (const CampoForm &campo : gCampiAcc)
            QCOMPARE(campo.File, percorso);
    }

    /// A file reads as the checks have seen it: a CR of its own ends a line there too.
    void apreUnFileConAltreFiniDiRiga_data()
    {
        QTest::addColumn<QByteArray>("fine");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("CR CR LF") << QByteArray("\r\r\n");
    }
    void apreUnFileConAltreFiniDiRiga()
    {
        QFETCH(QByteArray, fine);
        const ProvaAcc prova;
        Acc_Apri(prova.Scrivi(prova.Con("Prenotazione", "CAP", "47122").replace("\r\n", fine)));
        QCOMPARE(gCampiAcc[AccCAP].Value, QStringLiteral("47122"));
        QCOMPARE(gCampiAcc[AccTarga].Value, QStringLiteral("AB123CD"));
    }

    void assegnareUnFileNonLegge()
    {
        const ProvaAcc prova;
        const QString percorso = prova.Scrivi(prova.Buono());
        Acc_AssegnaFile(percorso);
        QCOMPARE(gCampiAcc[AccData].File, percorso);
        QVERIFY(gCampiAcc[AccData].Value.isEmpty());
    }

    /// No value is upper-cased or converted on its way in.
    void ilValoreRestaComeScritto()
    {
        const ProvaAcc prova;
        Acc_Apri(prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "PotMaxkW", "085.0x")));
        QCOMPARE(gCampiAcc[AccPotMaxkW].Value, QStringLiteral("085.0x"));
    }

    void chiaveMancanteEVuotaSiLeggonoUguali()
    {
        const ProvaAcc prova;
        Acc_Apri(prova.Scrivi(prova.Buono()));
        Acc_Apri(prova.Scrivi(prova.Al_Posto("Prenotazione", "Nome=", ""), QStringLiteral("00000001.acc")));
        QVERIFY(gCampiAcc[AccNome].Value.isEmpty());
        Acc_Apri(prova.Scrivi(prova.Con("Prenotazione", "Nome", ""), QStringLiteral("00000002.acc")));
        QVERIFY(gCampiAcc[AccNome].Value.isEmpty());
    }

    void chiaveDoppiaDaLaPrima()
    {
        const ProvaAcc prova;
        Acc_Apri(prova.Scrivi(prova.Al_Posto("Prenotazione", "Nome=", "Nome=UNO\r\nNome=DUE\r\n")));
        QCOMPARE(gCampiAcc[AccNome].Value, QStringLiteral("UNO"));
    }

    void fileCheNonCeDaValoriVuoti()
    {
        const ProvaAcc prova;
        Acc_Apri(prova.Scrivi(prova.Buono()));
        Acc_Apri(prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc")));
        for (const CampoForm &campo : gCampiAcc)
            QVERIFY(campo.Value.isEmpty());
    }

    void rigaFuoriTabella_data()
    {
        QTest::addColumn<qint16>("riga");
        QTest::newRow("sotto") << qint16{-1};
        QTest::newRow("sopra") << qint16{49};
    }
    void rigaFuoriTabella()
    {
        QFETCH(qint16, riga);
        try {
            Campo_Acc(riga);
            QFAIL("no error");
        } catch (const ErroreEsecuzione &errore) {
            QCOMPARE(errore.Numero(), 9);
        }
    }

    void targaSenzaToccareICampi()
    {
        const ProvaAcc prova;
        const QString percorso = prova.Scrivi(prova.Con("DatiLibrettoVeicolo", "Targa", "ZZ999ZZ"));
        QCOMPARE(Targa_Leggi(percorso), QStringLiteral("ZZ999ZZ"));
        QVERIFY(gCampiAcc[AccTarga].Value.isEmpty());
        QVERIFY(gCampiAcc[AccTarga].File.isEmpty());
    }

    void targaVuotaSenzaLibretto()
    {
        const ProvaAcc prova;
        QCOMPARE(Targa_Leggi(prova.Scrivi(prova.Senza("DatiLibrettoVeicolo"))), QString());
        QCOMPARE(Targa_Leggi(prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc"))), QString());
    }

    void visivoCompilato_data()
    {
        QTest::addColumn<QByteArray>("valore");
        QTest::addColumn<bool>("compilato");
        QTest::newRow("lettera") << QByteArray("R") << true;
        QTest::newRow("qualunque cosa") << QByteArray("?") << true;
        QTest::newRow("vuoto") << QByteArray() << false;
    }
    void visivoCompilato()
    {
        QFETCH(QByteArray, valore);
        QFETCH(bool, compilato);
        const ProvaAcc prova;
        const QByteArray byte =
            prova.Con("Vis_DispositiviFrenatura", "StatoMeccanicoFrenoServizio_111", valore);
        QCOMPARE(Visivo_Compilato(prova.Scrivi(byte)), compilato ? Vero : Falso);
    }

    void visivoNonCompilatoSenzaSezione()
    {
        const ProvaAcc prova;
        QCOMPARE(Visivo_Compilato(prova.Scrivi(prova.Senza("Vis_DispositiviFrenatura"))), Falso);
    }
};

QTEST_GUILESS_MAIN(tst_campi_acc)
#include "tst_campi_acc.moc"
