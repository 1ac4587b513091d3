// Events in the middle of a procedure.
#include "platform/eventi.h"

#include <QTest>
#include <QTimer>

class tst_eventi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quelliInAttesaPassano()
    {
        bool passato = false;
        QTimer::singleShot(0, this, [&passato] { passato = true; });
        QVERIFY(!passato);
        Eventi_Esegui();
        QVERIFY(passato);
    }
};

QTEST_GUILESS_MAIN(tst_eventi)
#include "tst_eventi.moc"
