// Which clock is in force.
#include "platform/orologio.h"

#include "tests/comuni/orologio_prova.h"

#include <QTest>

class TestOrologio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quelloDelSistemaDaIlTempoDiAdesso()
    {
        const QDateTime prima = QDateTime::currentDateTime();
        const QDateTime adesso = Orologio_Corrente().Adesso();
        QVERIFY(prima <= adesso && adesso <= QDateTime::currentDateTime());
    }

    void unAltroPrendeIlSuoPosto()
    {
        Orologio *sistema = &Orologio_Corrente();
        {
            OrologioProva prova(QDateTime(QDate(2030, 1, 2), QTime(3, 4, 5)));
            QCOMPARE(&Orologio_Corrente(), &prova);
            prova.Avanza(1500);
            QCOMPARE(Orologio_Corrente().Adesso(), QDateTime(QDate(2030, 1, 2), QTime(3, 4, 6, 500)));
        }
        QCOMPARE(&Orologio_Corrente(), sistema);
    }
};

QTEST_GUILESS_MAIN(TestOrologio)
#include "tst_orologio.moc"
