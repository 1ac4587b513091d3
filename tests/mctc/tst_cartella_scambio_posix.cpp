// An exchange folder that is there and lets nobody in.
#include "core/modGeneral.h"
#include "mctc/cartella_scambio.h"
#include "tests/comuni/privilegi_posix.h"
#include "tests/comuni/stazione_prova.h"

#include <QTest>

#include <sys/stat.h>

class tst_cartella_scambio_posix : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cartellaSenzaDiritti()
    {
        const StazioneProva stazione;
        const QByteArray fuori = QFile::encodeName(stazione.Nativo(QString()));
        const QByteArray cartella = QFile::encodeName(stazione.Nativo(QStringLiteral("DIR_FAR")));
        QCOMPARE(::chmod(fuori.constData(), 0755), 0);
        QCOMPARE(::chmod(cartella.constData(), 0700), 0);
        StatoCartella stato = StatoCartella::Vuota;
        {
            const SenzaPrivilegi nessuno;
            QCOMPARE(::access(cartella.constData(), R_OK), -1);
            stato = Cartella_Guarda(gDirAcc).Stato;
        }
        QCOMPARE(stato, StatoCartella::Illeggibile);
    }
};

QTEST_GUILESS_MAIN(tst_cartella_scambio_posix)
#include "tst_cartella_scambio_posix.moc"
