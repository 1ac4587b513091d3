// The lines of a profile, as whoever looks for what is wrong with it sees them. What they give to read and
// what a write makes of them is tst_profilo's.
#include "platform/profilo_testo.h"

#include <QTest>

class tst_profilo_testo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void righe()
    {
        const QList<RigaProfilo> righe =
            Righe_Profilo("; nota\r\n\r\n[ Uno ]x\r\nA = 1\r\n\tsola\n[uno\nA=2\n=7");
        const auto inBreve = [](const RigaProfilo &riga) {
            const QString testa = riga.Testa ? QStringLiteral("[") : QStringLiteral(" ");
            const QString uguale = riga.Uguale ? QStringLiteral(" =") : QString();
            return QString::number(riga.Numero) + testa + riga.Nome + u' ' + QString::fromLatin1(riga.Byte) +
                   uguale;
        };
        QStringList trovate;
        std::transform(righe.cbegin(), righe.cend(), std::back_inserter(trovate), inBreve);
        QCOMPARE(trovate, (QStringList{QStringLiteral("3[UNO [ Uno ]x"), QStringLiteral("4 A A = 1 ="),
                                       QStringLiteral("5 SOLA \tsola"), QStringLiteral("6[UNO [uno"),
                                       QStringLiteral("7 A A=2 ="), QStringLiteral("8  =7 =")}));
    }
    void nienteRighe() { QVERIFY(Righe_Profilo("\r\n;a\r\n  \n").isEmpty()); }
};

QTEST_GUILESS_MAIN(tst_profilo_testo)
#include "tst_profilo_testo.moc"
