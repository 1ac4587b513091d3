// The result file, byte by byte.
#include "mctc/far.h"

#include "core/modGeneral.h"
#include "core/risultato.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QFileInfo>
#include <QTest>

class tst_far : public QObject
{
    Q_OBJECT

private:
    static QByteArrayList Righe(const QByteArray &byte) { return byte.split('\n'); }

private Q_SLOTS:
    void init() { Far_Azzera(); }

    void trentunoRigheConOgniChiave()
    {
        const StazioneProva stazione;
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        QByteArray atteso = "[Kandelo]\r\n";
        for (const VoceFar &riga : gRisultatoFar)
            atteso += riga.Chiave.toLatin1() + "=\r\n";
        const QByteArray scritto = stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far"));
        QCOMPARE(scritto, atteso);
        QCOMPARE(scritto.count("\r\n"), 31);
        QVERIFY(Righe(scritto).contains("CodErrore=\r"));
        QVERIFY(Righe(scritto).contains("Operatore=\r"));
    }

    void valoriComeStanno()
    {
        const StazioneProva stazione;
        Far_Imposta(FarMarca, QStringLiteral(" Officina=Forlì "));
        Far_Imposta(FarTipo, QStringLiteral("漢"));
        Far_Imposta(FarOperatore, QStringLiteral("Bianchi"));
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        const QByteArrayList righe = Righe(stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far")));
        QCOMPARE(righe.size(), 32); // the last end leaves an empty piece
        QCOMPARE(righe.at(1), QByteArray("Marca= Officina=Forl\xEC \r"));
        QCOMPARE(righe.at(2), QByteArray("Tipo=?\r"));
        QCOMPARE(righe.at(30), QByteArray("Operatore=Bianchi\r"));
    }

    void trentunoRigheQualunqueSiaIlValore_data()
    {
        QTest::addColumn<QString>("valore");
        QTest::newRow("CRLF") << QStringLiteral("Rossi\r\nEsito=R");
        QTest::newRow("LF") << QStringLiteral("Rossi\nEsito=R");
        QTest::newRow("CR") << QStringLiteral("Rossi\rEsito=R");
        QTest::newRow("NUL") << QString(QStringLiteral("Rossi") + QChar(0) + QStringLiteral("Esito=R"));
        QTest::newRow("a capo in fondo") << QStringLiteral("Rossi\r\n");
    }
    void trentunoRigheQualunqueSiaIlValore()
    {
        QFETCH(QString, valore);
        const StazioneProva stazione;
        for (VoceFar &riga : gRisultatoFar)
            riga.Valore = valore;
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        QByteArray atteso = "[Kandelo]\r\n";
        for (const VoceFar &riga : gRisultatoFar)
            atteso += riga.Chiave.toLatin1() + "=Rossi\r\n";
        QCOMPARE(stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far")), atteso);
    }

    void nomeAccantoAllAccettazione_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<QString>("nome");
        QTest::newRow("maiuscolo") << QStringLiteral("C:\\MCTC\\12345678.ACC")
                                   << QStringLiteral("12345678.far");
        QTest::newRow("due punti") << QStringLiteral("12345678.x.acc") << QStringLiteral("12345678.far");
        QTest::newRow("cartella con punto")
            << QStringLiteral("C:\\A.B\\12345678.acc") << QStringLiteral("12345678.far");
    }
    /// The folder is always gDirAcc, wherever the acceptance file came from.
    void nomeAccantoAllAccettazione()
    {
        QFETCH(QString, percorso);
        QFETCH(QString, nome);
        const StazioneProva stazione;
        Far_Scrivi(percorso);
        QCOMPARE(gFileFar, gDirAcc + nome);
        QVERIFY(!stazione.Leggi(QStringLiteral("DIR_FAR\\") + nome).isEmpty());
    }

    void sostituisceIlRisultatoDiPrima()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("DIR_FAR\\12345678.far"), QByteArray(5000, 'x'));
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        const QByteArray scritto = stazione.Leggi(QStringLiteral("DIR_FAR\\12345678.far"));
        QVERIFY(scritto.startsWith("[Kandelo]\r\n") && !scritto.contains("xxx"));
    }

    void nullaInDirFar()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("altrove\\segno"), "x");
        gDirFar = stazione.Percorso(QStringLiteral("altrove\\"));
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        QVERIFY(!QFileInfo::exists(stazione.Nativo(QStringLiteral("altrove\\12345678.far"))));
        QVERIFY(QFileInfo::exists(stazione.Nativo(QStringLiteral("DIR_FAR\\12345678.far"))));
    }

    void cartellaMancanteFinisceIlProgramma()
    {
        const StazioneProva stazione;
        gDirAcc = stazione.Percorso(QStringLiteral("manca\\"));
        QCOMPARE(Errore_Di([] { Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc")); }), 76);
    }

    void fileProtettoFinisceIlProgramma()
    {
        const StazioneProva stazione;
        stazione.Scrivi(QStringLiteral("DIR_FAR\\12345678.far\\dentro"), "x");
        QCOMPARE(Errore_Di([] { Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc")); }), 70);
    }
};

QTEST_GUILESS_MAIN(tst_far)
#include "tst_far.moc"
