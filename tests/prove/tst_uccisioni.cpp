// The station killed in the middle of what it writes, some hundreds of times: prove/uccisioni/uccisioni goes
// on for thousands.
#include "prove/uccisioni/prove.h"
#include "prove/uccisioni/scritture.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTest>

using namespace uccisioni;

class tst_uccisioni : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void configurazioneACaso()
    {
        const Scritture scritture = Scritture_ACaso(100, 7);
        QCOMPARE(scritture.Guaste, QStringList());
        QCOMPARE(scritture.Uccise, 100);
        QCOMPARE(scritture.Prima + scritture.Dopo, scritture.Uccise);
    }

    /// Before and behind every system call of a save: both sides of the one that changes the file are met.
    void configurazioneAOgniChiamata()
    {
        const Scritture scritture = Scritture_AOgniConfine();
        QCOMPARE(scritture.Guaste, QStringList());
        QVERIFY2(scritture.Uccise > 2 * 20, qPrintable(QString::number(scritture.Uccise)));
        QVERIFY(scritture.Prima > 0);
        QVERIFY(scritture.Dopo >= 2);
    }

    void provaACaso()
    {
        const Prove prove = Prove_ACaso(60, 7);
        QCOMPARE(prove.Guaste, QStringList());
        QCOMPARE(prove.Uccise, 60);
    }

    void valutazioneACaso()
    {
        const Prove prove = Prove_ACasoAllaFine(60, 7);
        QCOMPARE(prove.Guaste, QStringList());
    }

    /// Every state that a vehicle goes through is met, and in none of them it is gone without its result.
    void provaAOgniChiamata()
    {
        const Prove prove = Prove_AOgniConfine();
        QCOMPARE(prove.Guaste, QStringList());
        QVERIFY(prove.SenzaRisultato > 0);
        QVERIFY(prove.Vuote > 0);
        QCOMPARE(prove.ParteDelRisultato, 0); // 31 lines go out in one piece
        QVERIFY(prove.ConRisultato > 0);
        QVERIFY(prove.Concluse > 0);
    }

    /// A kill leaves what was written to the system; a machine that dies needs the order on the disk as well.
    void risultatoSulDiscoPrimaCheIlVeicoloSparisca()
    {
        const QList<QByteArray> effetti = Prova_Effetti();
        const auto posto = [&effetti](const char *effetto) { return effetti.indexOf(QByteArray(effetto)); };
        QVERIFY2(posto("write 12345678.far") >= 0, effetti.join(", ").constData());
        QVERIFY(posto("write 12345678.far") < posto("fsync 12345678.far"));
        QVERIFY(posto("fsync 12345678.far") < posto("fsync DIR_FAR"));
        QVERIFY(posto("fsync DIR_FAR") < posto("unlink 12345678.acc"));
        QCOMPARE(effetti.count("write 12345678.far"), 1);
    }
};

int main(int argc, char *argv[])
{
    // In memory where there is such a disk: what a killed process leaves does not depend on how slow the disk
    // is, and the thousands of files are written at once.
    const QFileInfo memoria(QStringLiteral("/dev/shm"));
    if (memoria.isDir() && memoria.isWritable())
        qputenv("TMPDIR", "/dev/shm");
    const QCoreApplication applicazione(argc, argv);
    tst_uccisioni prova;
    return QTest::qExec(&prova, argc, argv);
}
#include "tst_uccisioni.moc"
