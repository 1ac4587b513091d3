// Which clock is in force.
#include "platform/orologio.h"

#include "tests/comuni/orologio_prova.h"

#include <QAbstractEventDispatcher>
#include <QSet>
#include <QTest>
#include <QTimerEvent>

namespace {

/// Kinds of the timers whose beats come by.
class TempiVisti : public QObject
{
public:
    QSet<int> Tipi;

    bool eventFilter(QObject *oggetto, QEvent *evento) override
    {
        if (evento->type() == QEvent::Timer) {
            const auto *dispensa = QAbstractEventDispatcher::instance();
            for (const auto &timer : dispensa->registeredTimers(oggetto)) {
                if (timer.timerId == static_cast<QTimerEvent *>(evento)->timerId())
                    Tipi.insert(timer.timerType);
            }
        }
        return QObject::eventFilter(oggetto, evento);
    }
};

} // namespace

class tst_orologio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quelloDelSistemaDaIlTempoDiAdesso()
    {
        const QDateTime prima = QDateTime::currentDateTime();
        const QDateTime adesso = Orologio_Corrente().Adesso();
        QVERIFY(prima <= adesso && adesso <= QDateTime::currentDateTime());
    }

    /// The line's ticks are counted in steps of 200 ms: a timer that may be a twentieth early or late would
    /// move every pause of a session.
    void laSvegliaEPrecisa()
    {
        TempiVisti visti;
        QCoreApplication::instance()->installEventFilter(&visti);
        int battiti = 0;
        const std::unique_ptr<Sveglia> sveglia = Orologio_Corrente().Nuova_Sveglia([&battiti] { ++battiti; });
        sveglia->Arma(200); // below 20 ms every timer is made precise
        QTRY_VERIFY(battiti > 0);
        sveglia->Disarma();
        QCOMPARE(visti.Tipi, QSet<int>{Qt::PreciseTimer});
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

QTEST_GUILESS_MAIN(tst_orologio)
#include "tst_orologio.moc"
