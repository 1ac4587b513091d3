// Somebody at the station who does anything, for a while: prove/operatore/operatore goes on for a hundred
// thousand things.
#include "prove/operatore/giornata.h"
#include "prove/operatore/vita.h"

#include <QCoreApplication>
#include <QTest>

#include <cstring>

using namespace operatore;

class tst_operatore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nienteSiRompe()
    {
        constexpr int AZIONI = 2000;
        const Giornate giornate = Giornate_Vivi(AZIONI, 7, [](const QString &) {});
        QVERIFY2(giornate.Guasto.isEmpty(), qPrintable(giornate.Guasto));
        QVERIFY(giornate.Azioni >= AZIONI);
    }
};

int main(int argc, char *argv[])
{
    if (argc > 1 && std::strcmp(argv[1], ARGOMENTO_VITA) == 0)
        return Vita_Vivi(argc, argv);
    const QCoreApplication applicazione(argc, argv);
    tst_operatore prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_operatore.moc"
