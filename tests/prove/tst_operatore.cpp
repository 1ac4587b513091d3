// Somebody at the station who does anything, for a while: prove/operatore/operatore goes on for a hundred
// thousand things.
#include "platform/errore_esecuzione.h"
#include "prove/operatore/giornata.h"
#include "prove/operatore/regole.h"
#include "prove/operatore/tabella.h"
#include "prove/operatore/vita.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include <cstring>

using namespace operatore;

namespace {

/// In the environment of a life: the program ends by an error at a key, which no row of the table allows.
constexpr const char *INCIAMPO = "LUMIRA_PROVA_INCIAMPO";

class Inciampo : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *evento) override
    {
        constexpr int TASTI = 5;
        if (evento->type() == QEvent::KeyPress && ++m_tasti == TASTI)
            Solleva(NumeroErrore::Overflow);
        return false;
    }

private:
    int m_tasti = 0;
};

void Inciampa()
{
    if (qEnvironmentVariableIsSet(INCIAMPO))
        qApp->installEventFilter(new Inciampo(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(Inciampa)

} // namespace

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

    void erroreAlSuoPosto_data()
    {
        QTest::addColumn<QString>("errore");
        QTest::addColumn<QString>("dopo");
        QTest::addColumn<bool>("ammesso");
        const QString overflow = QStringLiteral("run-time error 6: Overflow");
        const QString indice = QStringLiteral("run-time error 9: Subscript out of range");
        QTest::newRow("measure") << overflow << "frmComm 0 clock" << true;
        QTest::newRow("long texts") << overflow << "frmComm 2 clock" << true;
        QTest::newRow("reading session") << overflow << "frmComm 1 clock" << false;
        QTest::newRow("save of the setup") << overflow << "frmSetupO cmd_0" << false;
        QTest::newRow("no place") << overflow << "" << false;
        QTest::newRow("vanished files") << indice << "frmMctcO cmd_0" << true;
        QTest::newRow("way out of the list") << indice << "frmMctcO cmd_1" << false;
        QTest::newRow("index in a session") << indice << "frmComm 0 clock" << false;
        QTest::newRow("type") << "run-time error 13: Type mismatch"
                              << "frmMctcO cmd_0" << false;
    }
    void erroreAlSuoPosto()
    {
        QFETCH(QString, errore);
        QFETCH(QString, dopo);
        QTEST(Errore_Ammesso(errore, dopo), "ammesso");
    }

    void erroreAltroveEGuasto()
    {
        qputenv(INCIAMPO, "1");
        const Giornate giornate = Giornate_Vivi(100, 7, [](const QString &) {});
        qunsetenv(INCIAMPO);
        QVERIFY2(giornate.Guasto.contains(QStringLiteral("run-time error 6: Overflow")),
                 qPrintable(giornate.Guasto));
        QCOMPARE(giornate.Vite, 1);
        QVERIFY(giornate.Errori.isEmpty());
    }

    void ogniSistemaTieneLaSuaRiga()
    {
        Giornate poche;
        poche.Azioni = 10;
        poche.Vite = 1;
        Giornate molte;
        molte.Azioni = 2001;
        molte.Vite = 3;
        molte.Errori = {
            {QStringLiteral("un errore"),     1},
            {QStringLiteral("un altro dopo"), 2}
        };
        QByteArray sezione = "## Titolo\n\nTesto.\n\n" + Tabella(poche, 1, "Windows 6.1", QByteArray());
        sezione = "Testo.\n\n" + Tabella(poche, 4, "Debian 12", sezione);
        const QList<QByteArray> righe = Tabella(molte, 7, "Debian 12", sezione).split('\n');
        QCOMPARE(righe.size(), 5);
        QVERIFY(righe[0].startsWith("| system | actions | first seed | days |"));
        QCOMPARE(righe[1], QByteArray("|---|---|---|---|---|---|"));
        QCOMPARE(righe[2], QByteArray("| Debian 12 | 2001 | 7 | 3 | 0 | un altro dopo: 2; un errore: 1 |"));
        QCOMPARE(righe[3], QByteArray("| Windows 6.1 | 10 | 1 | 1 | 0 | none |"));
        QVERIFY(righe[4].isEmpty());
    }

    void inUnCicloContaIlSuoUltimo()
    {
        Fatti fatti;
        fatti.Comincia(QStringLiteral("clock"));
        QCOMPARE(fatti.Ultimo(), QStringLiteral(" clock"));
        QEventLoop ciclo;
        QTimer::singleShot(0, &ciclo, [&] {
            fatti.Segue(QStringLiteral("frmMsg cmd_0"));
            QCOMPARE(fatti.Ultimo(), QStringLiteral("frmMsg cmd_0"));
            ciclo.quit();
        });
        ciclo.exec();
        QCOMPARE(fatti.Ultimo(), QStringLiteral(" clock"));
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
