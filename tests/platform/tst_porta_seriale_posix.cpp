// Ports as terminal devices: what a number stands for, and which of them are there.
#include "platform/porta_seriale.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr qint16 NUMERO = 77; // of a port that no machine has

QString Cartella_Legami()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/porte");
}
QString Legame()
{
    return Cartella_Legami() + QStringLiteral("/COM%1").arg(NUMERO);
}

} // namespace

class tst_porta_seriale_posix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(QDir().mkpath(Cartella_Legami())); }
    void cleanup()
    {
        QFile::remove(Legame());
        QDir().rmdir(Cartella_Legami());
    }

    void senzaLegameIlDispositivoDelSistema()
    {
        QCOMPARE(Porta_Dispositivo(1), QStringLiteral("/dev/ttyS0"));
        QCOMPARE(Porta_Dispositivo(NUMERO), QStringLiteral("/dev/ttyS76"));
        QVERIFY(!Porta_Presente(NUMERO));
    }

    /// An adapter is there while it is plugged in, also while somebody else has it open.
    void legameAUnTerminale()
    {
        const int maestro = ::posix_openpt(O_RDWR | O_NOCTTY);
        QVERIFY(maestro >= 0 && ::grantpt(maestro) == 0 && ::unlockpt(maestro) == 0);
        const QString dispositivo = QFile::decodeName(::ptsname(maestro));
        QVERIFY(QFile::link(dispositivo, Legame()));
        QCOMPARE(Porta_Dispositivo(NUMERO), dispositivo);
        QVERIFY(Porta_Presente(NUMERO));
        ::close(maestro);
        QVERIFY(!Porta_Presente(NUMERO));
        QCOMPARE(Porta_Dispositivo(NUMERO), dispositivo);
    }

    /// Those with a number in its order; a station elsewhere has links of its own.
    void elenco()
    {
        const int maestro = ::posix_openpt(O_RDWR | O_NOCTTY);
        QVERIFY(maestro >= 0 && ::grantpt(maestro) == 0 && ::unlockpt(maestro) == 0);
        const QString dispositivo = QFile::decodeName(::ptsname(maestro));
        QVERIFY(QFile::link(dispositivo, Legame()));
        const auto trovata = [&dispositivo] {
            const QList<PortaTrovata> porte = Porte_Elenca();
            return std::any_of(porte.cbegin(), porte.cend(), [&dispositivo](const PortaTrovata &porta) {
                return porta.Numero == NUMERO && porta.Dispositivo == dispositivo && porta.Permessa;
            });
        };
        QVERIFY(trovata());
        const QList<PortaTrovata> porte = Porte_Elenca();
        QVERIFY(std::is_sorted(porte.cbegin(), porte.cend(),
                               [](const PortaTrovata &una, const PortaTrovata &altra) {
                                   return una.Numero != 0 && (altra.Numero == 0 || una.Numero < altra.Numero);
                               }));
        const QTemporaryDir altrove;
        Porte_Stazione(altrove.path().replace(u'/', u'\\'));
        QVERIFY(!trovata());
        QVERIFY(!Porta_Presente(NUMERO));
        Porte_Stazione(QCoreApplication::applicationDirPath().replace(u'/', u'\\'));
        QVERIFY(trovata());
        ::close(maestro);
        QVERIFY(!trovata());
    }

    /// A name that the system keeps for a chip that the machine has not got is no port: the driver says which
    /// it has found.
    void nomiDelSistemaComeDiceIlDriver()
    {
        for (qint16 numero = 1; numero <= 32; ++numero) {
            const QString nome = QStringLiteral("ttyS%1").arg(numero - 1);
            QFile tipo(QStringLiteral("/sys/class/tty/%1/type").arg(nome));
            const bool circuito = !tipo.open(QIODevice::ReadOnly) || tipo.readAll().trimmed() != "0";
            QCOMPARE(Porta_Presente(numero), circuito && QFile::exists(QStringLiteral("/dev/") + nome));
        }
    }
};

QTEST_GUILESS_MAIN(tst_porta_seriale_posix)
#include "tst_porta_seriale_posix.moc"
