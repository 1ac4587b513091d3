// The result record: its thirty keys and their values.
#include "core/risultato.h"

#include "tests/comuni/errore_prova.h"

#include <QTest>

namespace {

constexpr const char *CHIAVI[] = {
    "Marca",
    "Tipo",
    "NumOmologa",
    "NumSerie",
    "NumVersioneSoftware",
    "DataScadenza",
    "AltezzaAnab",
    "TipoAnab",
    "VertAnabDx",
    "VertAnabSx",
    "VertAbbDx",
    "VertAbbSx",
    "OrizzAnabDx",
    "OrizzAnabSx",
    "OrizzAbbDx",
    "OrizzAbbSx",
    "IllumLuxAnabDx",
    "IllumLuxAnabSx",
    "IllumLuxAbbDx",
    "IllumLuxAbbSx",
    "EsitoIllumLuxAnabDx",
    "EsitoIllumLuxAnabSx",
    "EsitoIllumLuxAbbDx",
    "EsitoIllumLuxAbbSx",
    "Esito",
    "CodErrore",
    "DataMisura",
    "InizioMisura",
    "FineMisura",
    "Operatore",
};

} // namespace

class tst_risultato : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Before the first measure there is no key to be found.
    void vuotoFinoAlPrimoAzzeramento()
    {
        QCOMPARE(gRisultatoFar.size(), size_t{30});
        QCOMPARE(gRisultatoFar[0].Chiave, QString());
        QCOMPARE(Errore_Di([] { Far_Valore(QStringLiteral("Marca")); }), 9);
    }

    void trentaRigheNelLoroOrdine()
    {
        Far_Azzera();
        QCOMPARE(std::size(CHIAVI), gRisultatoFar.size());
        for (size_t i = 0; i < gRisultatoFar.size(); ++i)
            QCOMPARE(gRisultatoFar[i].Chiave, QString::fromLatin1(CHIAVI[i]));
    }

    void azzeraSvuotaIValori()
    {
        Far_Azzera();
        for (RigaFar &riga : gRisultatoFar)
            riga = {QStringLiteral("x"), QStringLiteral("x")};
        Far_Azzera();
        for (size_t i = 0; i < gRisultatoFar.size(); ++i) {
            QCOMPARE(gRisultatoFar[i].Chiave, QString::fromLatin1(CHIAVI[i]));
            QCOMPARE(gRisultatoFar[i].Valore, QString());
        }
    }

    void ogniRigaTieneIlSuoValore()
    {
        Far_Azzera();
        for (const char *chiave : CHIAVI)
            Far_Imposta(QString::fromLatin1(chiave), QStringLiteral("v-") + QString::fromLatin1(chiave));
        for (const char *chiave : CHIAVI)
            QCOMPARE(Far_Valore(QString::fromLatin1(chiave)),
                     QStringLiteral("v-") + QString::fromLatin1(chiave));
    }

    void chiaveSconosciutaDaErrore9()
    {
        Far_Azzera();
        QCOMPARE(Errore_Di([] { Far_Valore(QStringLiteral("manca")); }), 9);
        QCOMPARE(Errore_Di([] { Far_Imposta(QStringLiteral("ESITO"), QStringLiteral("R")); }), 9);
    }
};

QTEST_GUILESS_MAIN(tst_risultato)
#include "tst_risultato.moc"
