// A result file read back: its values, and every way in which it can be otherwise.
#include "mctc/lettura_far.h"

#include "core/modGeneral.h"
#include "mctc/far.h"
#include "tests/comuni/errore_prova.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

namespace {

/// A regular vehicle, row by row.
constexpr const char *RIGHE[] = {
    "Marca=ACME",
    "Tipo=X",
    "NumOmologa=1",
    "NumSerie=2",
    "NumVersioneSoftware=1.0",
    "DataScadenza=31122027",
    "AltezzaAnab=#72,5",
    "TipoAnab=#A",
    "VertAnabDx=R",
    "VertAnabSx=R",
    "VertAbbDx=R",
    "VertAbbSx=R",
    "OrizzAnabDx=R",
    "OrizzAnabSx=R",
    "OrizzAbbDx=R",
    "OrizzAbbSx=R",
    "IllumLuxAnabDx=20000",
    "IllumLuxAnabSx=20100",
    "IllumLuxAbbDx=60000",
    "IllumLuxAbbSx=-100",
    "EsitoIllumLuxAnabDx=R",
    "EsitoIllumLuxAnabSx=R",
    "EsitoIllumLuxAbbDx=R",
    "EsitoIllumLuxAbbSx=R",
    "Esito=R",
    "CodErrore=",
    "DataMisura=29022024",
    "InizioMisura=080000",
    "FineMisura=235959",
    "Operatore=Bianchi = figlio",
};

QByteArray Buono()
{
    QByteArray byte = "[Kandelo]\r\n";
    for (const char *riga : RIGHE)
        byte += QByteArray(riga) + "\r\n";
    return byte;
}

QByteArray Con(const QByteArray &prima, const QByteArray &dopo)
{
    if (Buono().count(prima) != 1)
        qFatal("not once: %s", prima.constData());
    return Buono().replace(prima, dopo);
}

} // namespace

Q_DECLARE_METATYPE(ErroreFar)

class tst_lettura_far : public QObject
{
    Q_OBJECT

    const StazioneProva m_stazione;
    const QString m_file = m_stazione.Percorso(QStringLiteral("DIR_FAR\\12345678.far"));

    FarLetto Letto(const QByteArray &byte) const
    {
        m_stazione.Scrivi(QStringLiteral("DIR_FAR\\12345678.far"), byte);
        return Far_Leggi(m_file);
    }

private Q_SLOTS:
    void buono()
    {
        const FarLetto letto = Letto(Buono());
        QVERIFY(letto.Difetti.isEmpty());
        for (size_t i = 0; i < RIGHE_FAR; ++i)
            QCOMPARE(letto.Righe[i].Chiave + u'=' + letto.Righe[i].Valore, QString::fromUtf8(RIGHE[i]));
    }

    /// What the station writes is what it reads back.
    void quelloCheLaStazioneScrive()
    {
        Far_Azzera();
        for (size_t i = 0; i < RIGHE_FAR; ++i)
            gRisultatoFar[i].Valore = QString::fromUtf8(RIGHE[i]).section(u'=', 1);
        Far_Imposta(FarOperatore, QStringLiteral("Nicolò"));
        Far_Scrivi(gDirAcc + QStringLiteral("12345678.acc"));
        const FarLetto letto = Far_Leggi(gFileFar);
        QVERIFY(letto.Difetti.isEmpty());
        QCOMPARE(letto.Righe[FarOperatore].Valore, QStringLiteral("Nicolò"));
    }

    void difetti_data()
    {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<int>("riga");
        QTest::addColumn<ErroreFar>("errore");
        QTest::addColumn<QString>("testo");
        const auto caso = [](const char *nome, const QByteArray &byte, int riga, ErroreFar errore,
                             const char16_t *testo) {
            QTest::newRow(nome) << byte << riga << errore << QString::fromUtf16(testo);
        };
        const auto valore = [&](const char *prima, const char *dopo, int riga) {
            caso(dopo, Con(prima, dopo), riga, ErroreFar::Valore,
                 QString::fromUtf8(dopo).toStdU16String().c_str());
        };
        caso("testa", Con("[Kandelo]", "[kandelo]"), 1, ErroreFar::Testa, u"[kandelo]");
        caso("mancante", Con("NumSerie=2\r\n", ""), 5, ErroreFar::Mancante, u"NumSerie");
        // A verdict that is not there speaks neither for nor against the vehicle's.
        caso("verdetto mancante", Con("VertAbbDx=R\r\n", ""), 12, ErroreFar::Mancante, u"VertAbbDx");
        caso("troncato", Buono().first(Buono().indexOf("Operatore=")), 31, ErroreFar::Mancante, u"Operatore");
        caso("estranea", Con("NumSerie=2\r\n", "NumSerie=2\r\nNumeri=3\r\n"), 6, ErroreFar::Estranea,
             u"Numeri=3");
        caso("in coda", Buono() + "\r\n", 32, ErroreFar::Estranea, u"");
        caso("senza segno", Con("NumSerie=2\r\n", "NumSerie=2\r\nMarca\r\n"), 6, ErroreFar::Estranea,
             u"Marca");
        caso("doppia", Buono() + "Esito=I\r\n", 32, ErroreFar::Doppia, u"Esito");
        caso("fuori posto", Con("Marca=ACME\r\nTipo=X\r\n", "Tipo=X\r\nMarca=ACME\r\n"), 3,
             ErroreFar::FuoriPosto, u"Marca=ACME");
        caso("solo LF", Con("NumSerie=2\r\n", "NumSerie=2\n"), 5, ErroreFar::FineRiga, u"NumSerie=2");
        caso("senza fine", Buono().chopped(2), 31, ErroreFar::FineRiga, u"Operatore=Bianchi = figlio");
        valore("NumVersioneSoftware=1.0", "NumVersioneSoftware=1.1", 6);
        valore("DataScadenza=31122027", "DataScadenza=31/12/27", 7);
        valore("DataScadenza=31122027", "DataScadenza=", 7);
        valore("AltezzaAnab=#72,5", "AltezzaAnab=72,5", 8);
        valore("AltezzaAnab=#72,5", "AltezzaAnab=#", 8);
        valore("TipoAnab=#A", "TipoAnab=A", 9);
        valore("IllumLuxAbbSx=-100", "IllumLuxAbbSx=-200", 21);
        valore("IllumLuxAbbSx=-100", "IllumLuxAbbSx=600.5", 21);
        valore("IllumLuxAbbSx=-100", "IllumLuxAbbSx=0600", 21);
        valore("CodErrore=", "CodErrore=7", 27);
        valore("DataMisura=29022024", "DataMisura=29022023", 28);
        valore("InizioMisura=080000", "InizioMisura=080060", 29);
        valore("InizioMisura=080000", "InizioMisura=8.0000", 29);
        caso("verdetto incoerente", Con("\r\nEsito=R", "\r\nEsito=I"), 26, ErroreFar::Incoerente, u"Esito=I");
        caso("una riga irregolare", Con("OrizzAbbSx=R", "OrizzAbbSx=I"), 26, ErroreFar::Incoerente,
             u"Esito=R");
    }
    void difetti()
    {
        QFETCH(QByteArray, byte);
        QFETCH(int, riga);
        QFETCH(ErroreFar, errore);
        QFETCH(QString, testo);
        const FarLetto letto = Letto(byte);
        QCOMPARE(letto.Difetti, (QList<DifettoFar>{
                                    {riga, errore, testo}
        }));
    }

    /// A verdict out of its vocabulary is no regular one: the vehicle's is out with it.
    void verdettoIgnoto()
    {
        const FarLetto letto = Letto(Con("VertAbbDx=R", "VertAbbDx=r"));
        QCOMPARE(letto.Difetti, (QList<DifettoFar>{
                                    {12, ErroreFar::Valore,     QStringLiteral("VertAbbDx=r")},
                                    {26, ErroreFar::Incoerente, QStringLiteral("Esito=R")    }
        }));
    }

    void vuoto()
    {
        const FarLetto letto = Letto("");
        QCOMPARE(letto.Difetti.size(), 1 + RIGHE_FAR);
        QCOMPARE(letto.Difetti[0], (DifettoFar{1, ErroreFar::Testa, QString()}));
        QCOMPARE(letto.Righe[FarEsito].Chiave, QStringLiteral("Esito"));
    }

    void assente()
    {
        QCOMPARE(Errore_Di([this] { Far_Leggi(m_stazione.Percorso(QStringLiteral("DIR_FAR\\manca.far"))); }),
                 53);
    }
};

QTEST_GUILESS_MAIN(tst_lettura_far)
#include "tst_lettura_far.moc"
