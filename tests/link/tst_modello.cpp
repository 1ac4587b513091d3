// The exchange machine against its model, a part of the way: prove/modello/modello goes to the end.
#include "core/modGeneral.h"
#include "prove/modello/esplorazione.h"

#include <QTest>

#include <algorithm>
#include <memory>

using namespace modello;

class tst_modello : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_stazione = std::make_unique<Stazione>(); }
    void cleanup() { m_stazione.reset(); }

    void ogniStato_data();
    void ogniStato();
    void sessioniACaso();
    void oltreOgniRinvio();
    void unaDifferenzaSiVede_data();
    void unaDifferenzaSiVede();

private:
    std::unique_ptr<Stazione> m_stazione;
};

void tst_modello::ogniStato_data()
{
    QTest::addColumn<quint8>("modo");
    QTest::addColumn<int>("stati");
    QTest::newRow("misura") << quint8(0) << 900;
    QTest::newRow("leggi") << quint8(1) << 280;
    QTest::newRow("scrivi") << quint8(2) << 170;
    QTest::newRow("default") << quint8(3) << 100;
}

void tst_modello::ogniStato()
{
    QFETCH(quint8, modo);
    QFETCH(int, stati);
    const Misurata misurata = Esplora(modo, 6);
    QCOMPARE(misurata.Diverse, QStringList());
    QVERIFY2(misurata.Stati >= stati, qPrintable(QString::number(misurata.Stati)));
    QVERIFY(misurata.Transizioni > 10 * misurata.Stati);
}

void tst_modello::sessioniACaso()
{
    const Estratte estratte = Estrai(2000, 1);
    QCOMPARE(estratte.Diverse, QStringList());
    QCOMPARE(estratte.Sessioni, 2000);
    // The mix must hold every way to end, or the run proves little.
    QVERIFY(estratte.Riuscite > 500);
    QVERIFY(estratte.Fallite > 300);
    QVERIFY(estratte.Fatali > 10);
}

/// The depth of the exploration is short of it: silence up to the last resend, and on behind it.
void tst_modello::oltreOgniRinvio()
{
    const QList<Evento> &alfabeto = Alfabeto();
    const auto chiamato = [&alfabeto](const char *nome) {
        return *std::find_if(alfabeto.cbegin(), alfabeto.cend(),
                             [nome](const Evento &evento) { return evento.Nome == nome; });
    };
    Banco banco(0, Porta::Buona, PROFILO_IDENTITA);
    for (int battito = 0; battito < 121; ++battito)
        banco.Accada(chiamato("battito"));
    QCOMPARE(banco.Modello().Reinvii, 11);
    banco.Accada(chiamato("stato 1"));
    for (int battito = 0; battito < 12; ++battito)
        banco.Accada(chiamato("battito"));
    QCOMPARE(banco.Modello().Reinvii, 12);
    banco.Accada(chiamato("battito"));
    QVERIFY(banco.Modello().Finita);
    banco.Dopo_LaFine();
    QCOMPARE(banco.Differenza(), QString());
}

void tst_modello::unaDifferenzaSiVede_data()
{
    QTest::addColumn<quint8>("modo");
    QTest::addColumn<int>("scritta");
    QTest::newRow("risposta errata") << quint8(0) << 154;
    QTest::newRow("altro genere") << quint8(1) << 155;
    QTest::newRow("fine") << quint8(2) << 156;
}

/// A station whose texts are not the model's: the comparison must say so.
void tst_modello::unaDifferenzaSiVede()
{
    QFETCH(quint8, modo);
    QFETCH(int, scritta);
    gTabMctc[scritta] = QStringLiteral("altro");
    QCOMPARE(Esplora(modo, 7).Diverse.size(), BASTANO);
    QCOMPARE(Estrai(2000, 1).Diverse.size(), BASTANO);
}

QTEST_GUILESS_MAIN(tst_modello)
#include "tst_modello.moc"
