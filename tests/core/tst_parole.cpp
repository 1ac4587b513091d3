// The texts of the programs of the command line: both languages, or none at all.
#include "core/parole.h"

#include <QTest>

#include <stdexcept>

namespace {

constexpr Parole SALUTO = {u"ciao %1, sono le %2", u"it is %2, hello %1"};

/// False when the two do not make a text.
bool Fatte(QStringView italiano, QStringView inglese)
{
    try {
        return Parole(italiano, inglese).Italiano == italiano;
    } catch (const std::invalid_argument &) {
        return false;
    }
}

} // namespace

class tst_parole : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nellaLinguaScelta()
    {
        for (const char16_t *italiano : {u"IT", u"it"}) {
            QVERIFY(Lingua_Scegli(QStringLiteral("EN")));
            QCOMPARE(In_Parole(SALUTO), QStringLiteral("it is %2, hello %1"));
            QVERIFY(Lingua_Scegli(QString::fromUtf16(italiano)));
            QCOMPARE(In_Parole(SALUTO), QStringLiteral("ciao %1, sono le %2"));
        }
    }

    /// A language that is not spoken leaves the one in force.
    void linguaIgnota()
    {
        QVERIFY(Lingua_Scegli(QStringLiteral("EN")));
        for (const char16_t *ignota : {u"FR", u"ITA", u""})
            QVERIFY(!Lingua_Scegli(QString::fromUtf16(ignota)));
        QCOMPARE(In_Parole(SALUTO), SALUTO.Inglese.toString());
    }

    /// What a table would not compile with.
    void unaSolaLinguaNo()
    {
        QVERIFY(Fatte(u"manca %1", u"%1 is missing"));
        QVERIFY(Fatte(u"il 100% di %1, %9", u"100% of %9 and %1"));
        QVERIFY(!Fatte(u"manca %1", u""));
        QVERIFY(!Fatte(u"", u"%1 is missing"));
        QVERIFY(!Fatte(u"manca %1", u"missing"));
        QVERIFY(!Fatte(u"manca", u"%1 is missing"));
        QVERIFY(!Fatte(u"%1 e %2", u"%1 and %3"));
    }
};

QTEST_GUILESS_MAIN(tst_parole)
#include "tst_parole.moc"
