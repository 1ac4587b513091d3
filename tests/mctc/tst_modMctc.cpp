// The whole check and its report, word by word.
#include "mctc/modMctc.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_sintassi.h"
#include "mctc/controllo_struttura.h"
#include "mctc/controllo_valori.h"
#include "mctc/controllo_visivi.h"
#include "platform/errore_esecuzione.h"
#include "tests/comuni/locale_prova.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

class tst_modMctc : public QObject
{
    Q_OBJECT

private:
    ProvaAcc m_prova;

    /// The report as its lines would stand in it.
    static QString Righe(const QStringList &righe)
    {
        QString testo;
        for (const QString &riga : righe)
            testo += riga + QStringLiteral("\r\n");
        return testo;
    }

private Q_SLOTS:
    void init()
    {
        Imposta_Locale(QLocale::c());
        gControlloVisivo = Falso;
    }

    void laCopiaDelModelloPassa_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<int>("lingua");
        QTest::newRow("minuscolo") << QStringLiteral("12345678.acc") << int(QLocale::C);
        QTest::newRow("maiuscolo") << QStringLiteral("12345678.ACC") << int(QLocale::C);
        QTest::newRow("con la virgola") << QStringLiteral("12345678.acc") << int(QLocale::Italian);
    }
    void laCopiaDelModelloPassa()
    {
        QFETCH(QString, nome);
        QFETCH(int, lingua);
        Imposta_Locale(QLocale(QLocale::Language(lingua)));
        gControlloVisivo = Vero;
        m_prova.Rapporto = QStringLiteral("vecchio");
        QCOMPARE(m_prova.Controlla(m_prova.Buono(), nome), qint16{0});
        QCOMPARE(m_prova.Rapporto, QString());
        QVERIFY(gAnomalieStruttura.isEmpty() && gAnomalieSintassi.isEmpty());
        QVERIFY(mErroriDati.isEmpty() && mErroriVisivi.isEmpty());
    }

    void ilNomeInMaiuscoloTrovaIlFile()
    {
        m_prova.Scrivi(m_prova.Buono(), QStringLiteral("00000001.acc"));
        const QString percorso = m_prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\00000001.ACC"));
        Acc_Apri(percorso);
        QCOMPARE(qint16{Acc_Controlla(percorso, m_prova.Rapporto)}, qint16{0});
    }

    void nomeNonIdoneo()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Buono(), QStringLiteral("ABCDEFGH.ACC")), qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("File: ") + m_prova.Percorso + QStringLiteral(" - File  non idoneo\r\n"));
    }

    void nomeNonIdoneoERigheDelTesto()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Buono() + "riga senza senso\r\n", QStringLiteral("1234567.acc")),
                 qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 Righe({QStringLiteral("File: ") + m_prova.Percorso + QStringLiteral(" - File  non idoneo"),
                        QStringLiteral("File: riga senza senso - Estranea")}));
    }

    void modelloMancante()
    {
        const QString modello = gFileModelloAcc;
        gFileModelloAcc = m_prova.Stazione.Percorso(QStringLiteral("dati\\Manca.acc"));
        const qint16 esito = m_prova.Controlla(m_prova.Buono());
        const QString atteso =
            QStringLiteral("File: ") + gFileModelloAcc + QStringLiteral(" - File  non disponibile\r\n");
        gFileModelloAcc = modello;
        QCOMPARE(esito, qint16{1});
        QCOMPARE(m_prova.Rapporto, atteso);
    }

    /// The text scan words the same trouble without the second "File".
    void fileSparito()
    {
        const QString percorso = m_prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\99999999.acc"));
        Acc_Apri(percorso);
        QCOMPARE(qint16{Acc_Controlla(percorso, m_prova.Rapporto)}, qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 Righe({QStringLiteral("File: ") + percorso + QStringLiteral(" - File  non disponibile"),
                        QStringLiteral("File: ") + percorso + QStringLiteral(" -  non disponibile")}));
    }

    void fileVuoto()
    {
        QCOMPARE(m_prova.Controlla(""), qint16{1});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("File: ") + m_prova.Percorso +
                                       QStringLiteral(" - File  non disponibile\r\n"));
    }

    void fileSenzaSezioni()
    {
        QCOMPARE(m_prova.Controlla("abc\r\n"), qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 Righe({QStringLiteral("File: ") + m_prova.Percorso + QStringLiteral(" - File  non idoneo"),
                        QStringLiteral("Sezione:[] - Entry: abc - Non è un valore valido"),
                        QStringLiteral("File: abc - Estranea")}));
    }

    void sezioneMancante()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Senza("Vis_Sterzo")), qint16{1});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("Sezione: Vis_Sterzo - Sezione Mancante\r\n"));
    }

    void lErroreDiUnaEntryAspettaLaSezione()
    {
        QByteArray byte = m_prova.Senza("Vis_Sterzo");
        byte.replace("CAP=47121\r\n", "");
        QCOMPARE(m_prova.Controlla(byte), qint16{1});
        QVERIFY(!m_prova.Rapporto.contains(u"CAP"));
        QCOMPARE(m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "CAP=", "")), qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Entry: CAP - Entry Mancante\r\n"));
    }

    void sezioneEstranea()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Buono() + "[Altra]\r\n"), qint16{1});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("Sezione: Altra - Sezione Estranea\r\n"));
    }

    void entryDuplicataDueVolteTreVolteNo()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Nome=", "Nome=A\r\nNome=B\r\n")),
                 qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Entry: Nome - Entry Duplicata\r\n"));
        QCOMPARE(
            m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Nome=", "Nome=A\r\nNome=B\r\nNome=C\r\n")),
            qint16{0});
    }

    void ugualeNelValore()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "Note", "a=b")), qint16{1});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Entry: Note=a - Entry Estranea\r\n"));
    }

    void biancoPrimaDelSegno()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Nome=", "Nome =Rossi\r\n")), qint16{1});
        QCOMPARE(
            m_prova.Rapporto,
            Righe({QStringLiteral("Sezione:[Prenotazione] - Entry: Nome - Entry Mancante"),
                   QStringLiteral("Sezione:[Prenotazione] - Entry: Nome  - Entry Estranea"),
                   QStringLiteral("Sezione:[Prenotazione] - Entry: Nome =Rossi - Non è un valore valido")}));
    }

    void parentesiNelValore()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "Note", "[x]")), qint16{1});
        QCOMPARE(m_prova.Rapporto, Righe({QStringLiteral("Sezione: x - Sezione Estranea"),
                                          QStringLiteral("Sezione: Note=[x] - Non è un valore valido")}));
    }

    void rigaSenzaSenso()
    {
        QCOMPARE(
            m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Note=", "Note=\r\nriga senza senso\r\n")),
            qint16{1});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("File: riga senza senso - Estranea\r\n"));
    }

    void gliErroriNeiValoriAspettanoLaStruttura()
    {
        gControlloVisivo = Vero;
        QByteArray byte = m_prova.Con("Prenotazione", "CAP", "1");
        byte.replace("Rumori_81=R", "Rumori_81=X");
        QCOMPARE(m_prova.Controlla(byte + "abc\r\n"), qint16{1});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("File: abc - Estranea\r\n"));
        // They were found all the same: the boxes are painted by them.
        QCOMPARE(gErroriCampiAcc[AccCAP], ValoreLunghezza);
        QCOMPARE(mErroriVisivi, QStringList{QStringLiteral("Vis_EffettiNocivi")});
    }

    void valoriPoiVisivi()
    {
        gControlloVisivo = Vero;
        QByteArray byte = m_prova.Con("Vis_Sterzo", "GiocoSterzo_22", "X");
        byte.replace("CAP=47121", "CAP=1").replace("Targa=AB123CD", "Targa=AB1");
        QCOMPARE(m_prova.Controlla(byte), qint16{2});
        QCOMPARE(m_prova.Rapporto,
                 Righe({QStringLiteral("Sezione:[Prenotazione] - Campo:CAP - Errore di lunghezza"),
                        QStringLiteral("Sezione:[DatiLibrettoVeicolo] - Campo:Targa - Targa non valida"),
                        QStringLiteral("Controllo Visivo-Sezione: Vis_Sterzo")}));
    }

    void soloVisivi()
    {
        gControlloVisivo = Vero;
        QCOMPARE(m_prova.Controlla(m_prova.Con("Vis_Sterzo", "GiocoSterzo_22", "X")), qint16{2});
        QCOMPARE(m_prova.Rapporto, QStringLiteral("Controllo Visivo-Sezione: Vis_Sterzo\r\n"));
    }

    void senzaControlloVisivoNessunaRiga()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Con("Vis_Sterzo", "GiocoSterzo_22", "X")), qint16{0});
        QCOMPARE(m_prova.Rapporto, QString());
    }

    void iVisiviDiPrimaNonRestano()
    {
        gControlloVisivo = Vero;
        m_prova.Controlla(m_prova.Con("Vis_Sterzo", "GiocoSterzo_22", "X"));
        gControlloVisivo = Falso;
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "CAP", "1")), qint16{2});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Campo:CAP - Errore di lunghezza\r\n"));
    }

    void laParolaDelCampoVuotoDiElenco()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "TipoRevisione", "")), qint16{2});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Campo:TipoRevisione - Non è un valore valido\r\n"));
    }

    void dataDiSetteCifre()
    {
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "DataAccettazione", "1112024")), qint16{2});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Campo:DataAccettazione - Errore di lunghezza\r\n"));
        QCOMPARE(m_prova.Controlla(m_prova.Con("Prenotazione", "DataAccettazione", "1132024")), qint16{2});
        QCOMPARE(m_prova.Rapporto,
                 QStringLiteral("Sezione:[Prenotazione] - Campo:DataAccettazione - testo 94\r\n"));
    }

    // --- a report longer than anybody reads
    // -------------------------------------------------------------------

    /// Lines without a key, a few characters each, behind a complete file.
    QByteArray Con_RigheEstranee(int quante, int lunga) const
    {
        return m_prova.Buono() + (QByteArray(lunga, 'x') + "\r\n").repeated(quante);
    }
    /// The line of the report for such a line.
    static QString Riga_Estranea(int lunga)
    {
        return QStringLiteral("File: ") + QString(lunga, u'x') + QStringLiteral(" - Estranea\r\n");
    }

    /// 64,000 characters are given to the letter, the line that would pass them is left out whole.
    void rapportoFinoA64000Caratteri()
    {
        const QString riga = Riga_Estranea(1); // 20 characters
        QCOMPARE(riga.size(), 20);
        QCOMPARE(m_prova.Controlla(Con_RigheEstranee(3200, 1)), qint16{1});
        QCOMPARE(m_prova.Rapporto, riga.repeated(3200));
        QCOMPARE(m_prova.Controlla(Con_RigheEstranee(3201, 1)), qint16{1});
        QCOMPARE(m_prova.Rapporto, riga.repeated(3200));
        const QString altra = Riga_Estranea(4); // 23 characters, which do not make 64,000
        QCOMPARE(m_prova.Controlla(Con_RigheEstranee(3000, 4)), qint16{1});
        QCOMPARE(m_prova.Rapporto, altra.repeated(64000 / 23));
    }

    /// The structure's findings come first, and the cut may fall among them or behind them.
    void rapportoTagliatoInMezzoAllaStruttura()
    {
        QByteArray righe;
        for (int i = 0; i < 2000; ++i)
            righe += "k" + QByteArray::number(i) + "=\r\n";
        QCOMPARE(m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Nome=", righe) + "abc\r\n"), qint16{1});
        QString intero = QStringLiteral("Sezione:[Prenotazione] - Entry: Nome - Entry Mancante\r\n");
        for (int i = 0; i < 2000; ++i)
            intero += QStringLiteral("Sezione:[Prenotazione] - Entry: k%1 - Entry Estranea\r\n").arg(i);
        QVERIFY(intero.size() > 64000);
        QCOMPARE(m_prova.Rapporto, intero.left(intero.lastIndexOf(QStringLiteral("\r\n"), 63998) + 2));
        QCOMPARE(gAnomalieStruttura.size(), 2001); // the findings themselves are all there
        QCOMPARE(gAnomalieSintassi.size(), 1);
    }

    /// A line of equals signs would make half a gigabyte of report: it is not even composed.
    void rapportoNonCompostoOltre()
    {
        const QByteArray riga(20000, '=');
        QCOMPARE(m_prova.Controlla(m_prova.Al_Posto("Prenotazione", "Note=", "Note=\r\n" + riga + "\r\n")),
                 qint16{1});
        QCOMPARE(gAnomalieStruttura.size(), 20000);
        QVERIFY(m_prova.Rapporto.size() <= 64000);
        QVERIFY(m_prova.Rapporto.size() > 63000);
        QVERIFY2(m_prova.Rapporto.capacity() < 4 * 64000,
                 qPrintable(QString::number(m_prova.Rapporto.capacity())));
    }

    void fileTroppoLungoFinisceIlProgramma()
    {
        int numero = 0;
        try {
            m_prova.Controlla(m_prova.Buono().leftJustified(32768, 'x'));
        } catch (const ErroreEsecuzione &errore) {
            numero = errore.Numero();
        }
        QCOMPARE(numero, 6);
    }
};

QTEST_GUILESS_MAIN(tst_modMctc)
#include "tst_modMctc.moc"
