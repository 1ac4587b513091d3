#include "core/versione.h"

#include <QTest>

namespace {

/// A program's file: something, the version behind our words, what stands behind it.
QByteArray Programma(const QString &versione, const QString &dopo = QString(QChar()))
{
    const QString testo = QStringLiteral("lumira, versione ") + versione + dopo;
    return QByteArrayLiteral("\x7f"
                             "ELF\0") +
           QByteArray(reinterpret_cast<const char *>(testo.utf16()), testo.size() * qsizetype{2});
}

} // namespace

class tst_versione : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comeFuCostruita();
    void diUnAltroProgramma_data();
    void diUnAltroProgramma();
};

void tst_versione::comeFuCostruita()
{
    QCOMPARE(Versione_Programma(), QStringLiteral(LUMIRA_VERSIONE));
}

void tst_versione::diUnAltroProgramma_data()
{
    QTest::addColumn<QByteArray>("programma");
    QTest::addColumn<QString>("versione");
    const auto riga = [](const char *nome, const QByteArray &programma, const QString &versione) {
        QTest::newRow(nome) << programma << versione;
    };
    const QString lunga(19, u'9');
    riga("ours", Programma(QStringLiteral("12.3.4")), QStringLiteral("12.3.4"));
    riga("more behind it", Programma(QStringLiteral("1.0"), QString(QChar()) + QStringLiteral("2.0")),
         QStringLiteral("1.0"));
    riga("a letter of two bytes", Programma(QStringLiteral("1.0\u0142")), QStringLiteral("1.0\u0142"));
    riga("as long as it may be", Programma(lunga), lunga);
    riga("too long", Programma(lunga + u'9'), {});
    riga("without an end", Programma(QStringLiteral("1.0"), {}), {});
    riga("cut in the middle of a letter", Programma(QStringLiteral("1.0")).chopped(1), {});
    riga("none",
         QByteArrayLiteral("\x7f"
                           "ELF\0 lumira, versione 1.0"),
         {});
    riga("nothing behind our words", Programma({}), {});
    riga("empty", {}, {});
}

void tst_versione::diUnAltroProgramma()
{
    QFETCH(QByteArray, programma);
    QFETCH(QString, versione);
    QCOMPARE(Versione_Di(programma), versione);
}

QTEST_GUILESS_MAIN(tst_versione)
#include "tst_versione.moc"
