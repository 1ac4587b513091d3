// The state of the station in words: each thing that was found, and the border days of a verification.
#include "app/stato_stazione.h"

#include "core/modGeneral.h"
#include "core/versione.h"
#include "tests/comuni/stazione_prova.h"

#include <QFile>
#include <QTest>

Q_DECLARE_METATYPE(Rilievo)

namespace {

const QDate OGGI(2026, 11, 22);

/// A station in order.
Rilievo In_Ordine()
{
    Rilievo rilievo;
    rilievo.Lista = true;
    rilievo.Cartella = CartellaScambio{StatoCartella::ConAccettazioni, 3};
    rilievo.Porta = 12;
    rilievo.PortaPresente = true;
    rilievo.Scadenza = QStringLiteral("31/12/2027");
    rilievo.Oggi = OGGI;
    return rilievo;
}

} // namespace

class tst_stato_stazione : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<StazioneProva> stazione;

private Q_SLOTS:
    void init() { stazione = std::make_unique<StazioneProva>(); }
    void cleanup() { stazione.reset(); }

    void verifica_data()
    {
        QTest::addColumn<QString>("scadenza");
        QTest::addColumn<StatoVerifica>("stato");
        QTest::newRow("oggi stesso") << QStringLiteral("22/11/2026") << StatoVerifica::InScadenza;
        QTest::newRow("ieri") << QStringLiteral("21/11/2026") << StatoVerifica::Scaduta;
        QTest::newRow("anni fa") << QStringLiteral("31/12/1999") << StatoVerifica::Scaduta;
        QTest::newRow("fra trenta giorni") << QStringLiteral("22/12/2026") << StatoVerifica::InScadenza;
        QTest::newRow("fra trentuno") << QStringLiteral("23/12/2026") << StatoVerifica::Valida;
        QTest::newRow("altri segni fra i numeri") << QStringLiteral("23-12.2026") << StatoVerifica::Valida;
        QTest::newRow("vuota") << QString() << StatoVerifica::SenzaData;
        QTest::newRow("29 febbraio proposto") << QStringLiteral("29/02/2027") << StatoVerifica::Illeggibile;
        QTest::newRow("anno corto") << QStringLiteral("31/12/27") << StatoVerifica::Illeggibile;
        QTest::newRow("giorno corto") << QStringLiteral("1/12/2027") << StatoVerifica::Illeggibile;
        QTest::newRow("coda") << QStringLiteral("31/12/2027 ") << StatoVerifica::Illeggibile;
        QTest::newRow("lettere") << QStringLiteral("31 dic '27") << StatoVerifica::Illeggibile;
        QTest::newRow("segno meno") << QStringLiteral("31/12/-027") << StatoVerifica::Illeggibile;
        QTest::newRow("dieci lettere") << QStringLiteral("dopodomani") << StatoVerifica::Illeggibile;
        QTest::newRow("corta") << QStringLiteral("31") << StatoVerifica::Illeggibile;
    }
    void verifica()
    {
        QFETCH(QString, scadenza);
        QTEST(Verifica_Di(scadenza, OGGI), "stato");
    }

    void righe_data()
    {
        QTest::addColumn<Rilievo>("rilievo");
        QTest::addColumn<size_t>("riga");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("avviso");
        const auto riga = [](const char *nome, size_t quale, const char16_t *testo, bool avviso,
                             const std::function<void(Rilievo &)> &cambia) {
            Rilievo rilievo = In_Ordine();
            cambia(rilievo);
            QTest::newRow(nome) << rilievo << quale << QString::fromUtf16(testo) << avviso;
        };
        using R = Rilievo;
        riga("versione", 0, u"lumira " LUMIRA_VERSIONE, false, [](R &) {});
        riga("in attesa", 1, u"Cartella: 3 in attesa", false, [](R &) {});
        riga("vuota", 1, u"Cartella: nessun veicolo", false, [](R &r) {
            r.Cartella = CartellaScambio{StatoCartella::Vuota, 0};
        });
        riga("mancante", 1, u"Cartella assente o non raggiungibile", true, [](R &r) {
            r.Cartella = CartellaScambio{StatoCartella::Mancante, 0};
        });
        riga("illeggibile", 1, u"Cartella non leggibile", true, [](R &r) {
            r.Cartella = CartellaScambio{StatoCartella::Illeggibile, 0};
        });
        riga("non ancora guardata", 1, u"Cartella: attesa della risposta", false,
             [](R &r) { r.Cartella.reset(); });
        riga("lista spenta", 1, u"Lista accettazioni spenta", false, [](R &r) {
            r.Lista = false;
            r.Cartella = CartellaScambio{StatoCartella::Mancante, 0};
        });
        riga("porta", 2, u"Porta COM12 presente", false, [](R &) {});
        riga("senza porta", 2, u"Porta COM12 assente", true, [](R &r) { r.PortaPresente = false; });
        riga("porta senza numero", 2, u"Porta: numero mancante", true, [](R &r) { r.Porta = 0; });
        riga("valida", 3, u"Verifica valida fino al 31/12/2027", false, [](R &) {});
        riga("in scadenza", 3, u"Verifica in scadenza il 01/12/2026", true,
             [](R &r) { r.Scadenza = QStringLiteral("01/12/2026"); });
        riga("scaduta", 3, u"VERIFICA SCADUTA il 01/11/2026", true,
             [](R &r) { r.Scadenza = QStringLiteral("01/11/2026"); });
        riga("senza data", 3, u"Verifica: data mancante", true, [](R &r) { r.Scadenza.clear(); });
        riga("non una data", 3, u"Verifica: non è una data: %2 domani", true,
             [](R &r) { r.Scadenza = QStringLiteral("%2 domani"); });
    }
    void righe()
    {
        QFETCH(Rilievo, rilievo);
        QFETCH(size_t, riga);
        const RigaStato stato = Stato_Righe(rilievo)[riga];
        QTEST(stato.Testo, "testo");
        QTEST(stato.Avviso, "avviso");
    }

    /// A file of texts from before these leaves the lines empty; the version has no text of a language.
    void fileDeiTestiDiPrima()
    {
        QVERIFY(QFile::remove(stazione->Nativo(QStringLiteral("lingueMCTC.ini"))));
        const auto righe = Stato_Righe(In_Ordine());
        QCOMPARE(righe[0].Testo, QStringLiteral("lumira " LUMIRA_VERSIONE));
        for (size_t i = 1; i < righe.size(); ++i)
            QCOMPARE(righe[i].Testo, QString());
        QCOMPARE(Versione_Programma(), QStringLiteral(LUMIRA_VERSIONE));
    }
};

QTEST_GUILESS_MAIN(tst_stato_stazione)
#include "tst_stato_stazione.moc"
