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

    /// The operator leaves the program while a folder is read: events run again behind that press, file by
    /// file, before the loop around it has control. It has to end then, not when something else comes in:
    /// with no window left nothing does.
    void laFineVieneSentita()
    {
        QTimer tardi;
        tardi.setSingleShot(true);
        tardi.start(10000);
        QTimer::singleShot(0, this, [] {
            QCoreApplication::quit();
            Eventi_Esegui();
            Eventi_Esegui();
        });
        QCoreApplication::exec();
        QVERIFY2(tardi.isActive(), "the loop went on until a timer woke it");
    }

    void laFineDiUnCicloVieneSentita()
    {
        QTimer tardi;
        tardi.setSingleShot(true);
        tardi.start(10000);
        QEventLoop ciclo; // as of a modal form
        QTimer::singleShot(0, this, [&ciclo] {
            ciclo.quit();
            Eventi_Esegui();
            Eventi_Esegui();
        });
        ciclo.exec();
        QVERIFY2(tardi.isActive(), "the loop went on until a timer woke it");
    }
};

QTEST_GUILESS_MAIN(tst_eventi)
#include "tst_eventi.moc"
