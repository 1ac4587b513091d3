// What a check finds, part by part, and the line of the file that each finding is about.
#include "mctc/righe_acc.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "mctc/modMctc.h"
#include "tests/mctc/prova_acc.h"

#include <QTest>

namespace {

/// The number of the line that begins so, from 1.
int Numero_Di(const QByteArray &byte, const QByteArray &inizio, qsizetype da = 0)
{
    const qsizetype posto = byte.indexOf("\r\n" + inizio, da);
    if (posto < 0)
        qFatal("no line %s", inizio.constData());
    return static_cast<int>(byte.first(posto).count("\r\n")) + 2;
}

QString Detto(const RilievoAcc &r)
{
    return QStringLiteral("%1 [%2] %3: %4").arg(r.Riga).arg(r.Sezione, r.Campo, r.Motivo);
}

} // namespace

class tst_righe_acc : public QObject
{
    Q_OBJECT

    ProvaAcc m_prova;
    ControlloAcc m_controllo;

    QStringList Esamina(const QByteArray &byte, const QString &nome = QStringLiteral("12345678.acc"))
    {
        const QString percorso = m_prova.Scrivi(byte, nome);
        Acc_Apri(percorso);
        m_controllo = Acc_Esamina(percorso);
        Rilievi_Numera(percorso, m_controllo.Rilievi);
        QStringList detti;
        for (const RilievoAcc &rilievo : std::as_const(m_controllo.Rilievi))
            detti.append(Detto(rilievo));
        return detti;
    }

private Q_SLOTS:
    void init() { gControlloVisivo = Vero; }

    void fileBuono()
    {
        QCOMPARE(Esamina(m_prova.Buono()), QStringList());
        QCOMPARE(m_controllo.Esito, AccBuona);
    }

    void valore()
    {
        const QByteArray byte = m_prova.Con("Prenotazione", "CAP", "4712");
        QCOMPARE(
            Esamina(byte),
            QStringList{
                QStringLiteral("%1 [Prenotazione] CAP: Errore di lunghezza").arg(Numero_Di(byte, "CAP="))});
        QCOMPARE(m_controllo.Esito, AccErrata);
        QCOMPARE(m_controllo.Rilievi[0].Testo,
                 QStringLiteral("Sezione:[Prenotazione] - Campo:CAP - Errore di lunghezza"));
    }

    /// A time of the visual check that is out in two of its pieces is two faults of one key.
    void visivo()
    {
        const QByteArray byte = m_prova.Con("Vis_IdentificazioneVeicolo", "OraInizioControlli", "256000");
        const QString atteso = QStringLiteral("%1 [Vis_IdentificazioneVeicolo] OraInizioControlli: testo 96")
                                   .arg(Numero_Di(byte, "OraInizioControlli="));
        QCOMPARE(Esamina(byte), (QStringList{atteso, atteso}));
        QCOMPARE(m_controllo.Rilievi[0].Testo,
                 QStringLiteral("Controllo Visivo-Sezione: Vis_IdentificazioneVeicolo"));
        gControlloVisivo = Falso;
        QCOMPARE(Esamina(byte), QStringList());
    }

    void sezioneMancante()
    {
        QCOMPARE(Esamina(m_prova.Senza("Vis_Sterzo")),
                 QStringList{QStringLiteral("0 [Vis_Sterzo] : Mancante")});
        QCOMPARE(m_controllo.Esito, AccAnomala);
    }

    void sezioneEstranea()
    {
        const QByteArray byte = m_prova.Buono() + "[Altra]\r\n";
        QCOMPARE(Esamina(byte),
                 QStringList{QStringLiteral("%1 [Altra] : Estranea").arg(Numero_Di(byte, "[Altra]"))});
    }

    void chiaviMancantiEstraneeEDoppie()
    {
        QByteArray byte = m_prova.Al_Posto("Prenotazione", "Nome=", "Nomi=X\r\n");
        QCOMPARE(
            Esamina(byte),
            (QStringList{QStringLiteral("0 [Prenotazione] Nome: Mancante"),
                         QStringLiteral("%1 [Prenotazione] Nomi: Estranea").arg(Numero_Di(byte, "Nomi="))}));
        // Of a doubled key the second is the one that nobody reads.
        byte = m_prova.Al_Posto("Prenotazione", "CAP=", "CAP=47122\r\nCAP=47100\r\n");
        QCOMPARE(Esamina(byte),
                 QStringList{
                     QStringLiteral("%1 [Prenotazione] CAP: Duplicata").arg(Numero_Di(byte, "CAP=47100"))});
    }

    /// The line that the scan has counted, empty lines among them.
    void rigaConBianchi()
    {
        const QByteArray byte = m_prova.Al_Posto("Prenotazione", "CAP=", "\r\n\r\nCAP= 47122\r\n");
        QCOMPARE(Esamina(byte), QStringList{QStringLiteral("%1 [Prenotazione] CAP: Non è un valore valido")
                                                .arg(Numero_Di(byte, "CAP="))});
    }

    void rigaSenzaSenso()
    {
        const QByteArray byte = m_prova.Buono() + "senza senso\r\n";
        QCOMPARE(Esamina(byte),
                 QStringList{QStringLiteral("%1 [] : Estranea").arg(Numero_Di(byte, "senza senso"))});
    }

    void nomeNonIdoneo()
    {
        QCOMPARE(Esamina(m_prova.Buono(), QStringLiteral("ABC.acc")),
                 QStringList{QStringLiteral("0 [] : non idoneo")});
        QVERIFY(m_controllo.Rilievi[0].Testo.endsWith(QStringLiteral("ABC.acc - File  non idoneo")));
    }

    void fileSparitoDopoIlControllo()
    {
        ListaRilievi rilievi = {
            {QStringLiteral("x"), QStringLiteral("A"), QStringLiteral("B"), {}}
        };
        Rilievi_Numera(m_prova.Stazione.Percorso(QStringLiteral("DIR_FAR\\manca.acc")), rilievi);
        QCOMPARE(rilievi[0].Riga, 0);
    }

    /// What the operator reads and what is told part by part are the same lines.
    void ilRapportoSonoIRilievi()
    {
        for (const QByteArray &byte : {m_prova.Con("Prenotazione", "CAP", "1"), m_prova.Senza("Vis_Sterzo"),
                                       m_prova.Buono() + "x\r\n =\r\n"})
        {
            Esamina(byte);
            QString unito;
            for (const RilievoAcc &rilievo : std::as_const(m_controllo.Rilievi))
                unito += rilievo.Testo + QStringLiteral("\r\n");
            QCOMPARE(m_prova.Controlla(byte), qint16{m_controllo.Esito});
            QCOMPARE(m_prova.Rapporto, unito);
            QVERIFY(!unito.isEmpty());
        }
    }

    /// Of thousands of findings as many as a report holds.
    void nonOltreIlRapporto()
    {
        Esamina(m_prova.Buono() + QByteArray("x\r\n").repeated(7000));
        QVERIFY(m_controllo.Rilievi.size() > 100);
        qsizetype caratteri = 0;
        for (const RilievoAcc &rilievo :
             std::as_const(m_controllo.Rilievi).first(m_controllo.Rilievi.size() - 1))
            caratteri += rilievo.Testo.size() + 2;
        QVERIFY2(caratteri <= MASSIMO_RAPPORTO, qPrintable(QString::number(caratteri)));
    }
};

QTEST_GUILESS_MAIN(tst_righe_acc)
#include "tst_righe_acc.moc"
