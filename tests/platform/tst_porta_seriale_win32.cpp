// Ports as the system's device names: which of them are there.
#include "platform/porta_seriale.h"

#include <QTest>

#include <qt_windows.h>

class tst_porta_seriale_win32 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nomeLungo() { QCOMPARE(Porta_Dispositivo(12), QStringLiteral("\\\\.\\COM12")); }

    /// An adapter is there while it is plugged in: its driver makes the name, and takes it away.
    void presenteFinoAlNome()
    {
        constexpr const wchar_t *NOME = L"COM177";
        QVERIFY(!Porta_Presente(177));
        QVERIFY(DefineDosDeviceW(DDD_NO_BROADCAST_SYSTEM, NOME, L"C:\\") != FALSE);
        const bool presente = Porta_Presente(177);
        QVERIFY(DefineDosDeviceW(DDD_REMOVE_DEFINITION | DDD_NO_BROADCAST_SYSTEM, NOME, nullptr) != FALSE);
        QVERIFY(presente);
        QVERIFY(!Porta_Presente(177));
    }
};

QTEST_GUILESS_MAIN(tst_porta_seriale_win32)
#include "tst_porta_seriale_win32.moc"
