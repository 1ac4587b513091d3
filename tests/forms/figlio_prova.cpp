#include "tests/forms/figlio_prova.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int PAZIENZA = 240000; // ms, on a machine that builds besides

constexpr QSize SCHERMI[] = {
    {800,  600 },
    {1024, 768 },
    {1280, 720 },
    {1366, 768 },
    {1280, 1024},
    {1600, 1200},
    {1920, 1080},
    {1920, 1200},
    {2184, 1365},
    {2185, 1366},
    {2560, 1440},
    {3440, 1440},
    {3840, 2160},
    {5120, 2880},
    {7680, 4320},
};

/// Configuration of a display without a screen of its own. Its events arrive at once, as on some window
/// systems.
QByteArray Configurazione(QSize schermo)
{
    return QStringLiteral("{\"synchronousWindowSystemEvents\":true,\"screens\":[{\"name\":\"prova\",\"x\":0,"
                          "\"y\":0,\"width\":%1,\"height\":%2,"
                          "\"logicalDpi\":96,\"logicalBaseDpi\":96,\"dpr\":1}]}")
        .arg(schermo.width())
        .arg(schermo.height())
        .toLatin1();
}

/// What was written, as the program wrote it: Windows puts a CR before each line end.
QString Testo(QByteArray scritto)
{
    if (QSysInfo::kernelType() == QStringLiteral("winnt"))
        scritto.replace("\r\n", "\n");
    return QString::fromUtf8(scritto);
}

EsitoFiglio Esegui(const QString &programma, const QStringList &argomenti, QSize schermo)
{
    QTemporaryDir cartella;
    QProcess figlio;
    // On Windows the messages of a program without a console go to the debugger, if there is one.
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
    figlio.setProcessEnvironment(ambiente);
    QString piattaforma = QStringLiteral("offscreen");
    if (schermo.isValid()) {
        QFile file(cartella.filePath(QStringLiteral("schermo.json")));
        if (!file.open(QIODevice::WriteOnly) || file.write(Configurazione(schermo)) < 0)
            return {};
        // By its bare name: the drive of a whole path would end the option.
        figlio.setWorkingDirectory(cartella.path());
        piattaforma += QStringLiteral(":configfile=schermo.json");
    }
    figlio.start(programma, argomenti + QStringList{QStringLiteral("-platform"), piattaforma});
    EsitoFiglio esito;
    if (!figlio.waitForFinished(PAZIENZA)) {
        figlio.kill();
        figlio.waitForFinished();
    } else {
        esito.Finito = figlio.exitStatus() == QProcess::NormalExit;
    }
    esito.Stato = figlio.exitCode();
    esito.Uscita = Testo(figlio.readAllStandardOutput());
    esito.Errori = Testo(figlio.readAllStandardError());
    return esito;
}

} // namespace

EsitoFiglio Figlio_Esegui(const QStringList &argomenti, QSize schermo)
{
    return Esegui(QCoreApplication::applicationFilePath(), argomenti, schermo);
}

EsitoFiglio Vicino_Esegui(const QString &programma, const QStringList &argomenti, QSize schermo)
{
    return Esegui(QCoreApplication::applicationDirPath() + u'/' + programma, argomenti, schermo);
}

void Righe_PerSchermo()
{
    QTest::addColumn<QSize>("schermo");
    for (const QSize schermo : SCHERMI)
        QTest::addRow("%dx%d", schermo.width(), schermo.height()) << schermo;
}
