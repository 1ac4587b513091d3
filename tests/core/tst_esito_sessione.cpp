// The record of the last session's end.
#include "core/esito_sessione.h"

#include "tests/comuni/orologio_prova.h"

#include <QTest>

class tst_esito_sessione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nienteFinoAllaPrimaSessione() { QVERIFY(Sessione_Fine().Testo.isEmpty()); }

    /// Text and time are those of the last one, and a session that goes well takes the text away.
    void ricordaSoloLUltima()
    {
        OrologioProva orologio;
        Sessione_Annota(QStringLiteral("controllare il cavo"));
        const QDateTime prima = orologio.Adesso();
        orologio.Avanza(45000);
        QCOMPARE(Sessione_Fine().Testo, QStringLiteral("controllare il cavo"));
        QCOMPARE(Sessione_Fine().Quando, prima);
        Sessione_Annota(QStringLiteral("linea disturbata"));
        QCOMPARE(Sessione_Fine().Testo, QStringLiteral("linea disturbata"));
        QCOMPARE(Sessione_Fine().Quando, prima.addSecs(45));
        Sessione_Annota(QString());
        QVERIFY(Sessione_Fine().Testo.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_esito_sessione)
#include "tst_esito_sessione.moc"
