// qx5sim: stands in for the instrument on a serial line, for demonstration, training and tests.
#include "simulatore/banco.h"
#include "simulatore/fine.h"
#include "simulatore/opzioni.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

/// Status of an end because the device has gone; 1 stands for a start that failed.
constexpr int STATO_SENZA_DISPOSITIVO = 2;

int Errore_Mostra(const QString &errore)
{
    QTextStream(stderr) << QStringLiteral("qx5sim: ") << errore << Qt::endl;
    return 1;
}

int Simula(const Opzioni &opzioni)
{
    QString errore;
    Scenario scenario;
    if (const QStringList errori = Scenario_Leggi(opzioni.scenario, scenario); !errori.isEmpty())
        return Errore_Mostra(errori.join(QStringLiteral("\nqx5sim: ")));
    Registro registro;
    if (!registro.Apri(opzioni.registro, errore))
        return Errore_Mostra(errore);

    // Without a state file the texts that the station writes live as long as the program.
    const QTemporaryDir passeggero;
    const QString stato =
        opzioni.stato.isEmpty() ? passeggero.filePath(QStringLiteral("stato.ini")) : opzioni.stato;
    const quint32 seme = opzioni.seme.value_or(QRandomGenerator::global()->generate());
    registro.Annota(
        QStringLiteral("-- qx5sim %1, seme %2").arg(QCoreApplication::applicationVersion()).arg(seme));
    Strumento strumento(opzioni.scenario, stato, seme,
                        [&registro](const QString &riga) { registro.Annota(riga); });
    const std::unique_ptr<Linea> linea = opzioni.dispositivo.isEmpty()
                                             ? Crea_LineaPty()
                                             : Crea_LineaSeriale(opzioni.dispositivo, opzioni.velocita);
    // An adapter that comes back has often another name: whoever started the program knows, and starts it
    // again.
    linea->Perduta = [&opzioni, &registro] {
        const QString perche = QStringLiteral("%1: il dispositivo non c'è più").arg(opzioni.dispositivo);
        registro.Annota(QStringLiteral("-- ") + perche);
        Errore_Mostra(perche);
        QCoreApplication::exit(STATO_SENZA_DISPOSITIVO);
    };
    Collegamento collegamento(opzioni.collega);
    Banco banco(*linea, strumento, registro, collegamento);
    Fine_Prepara();
    if (!banco.Apri(errore))
        return Errore_Mostra(errore);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication programma(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(QX5SIM_VERSIONE));
    QString errore;
    const std::optional<Opzioni> opzioni = Opzioni_Leggi(QCoreApplication::arguments(), errore);
    if (!opzioni)
        return Errore_Mostra(errore + QStringLiteral(" (qx5sim --help)"));
    if (opzioni->aiuto) {
        QTextStream(stdout) << Opzioni_Aiuto();
        return 0;
    }
    if (opzioni->versione) {
        QTextStream(stdout) << QStringLiteral("qx5sim ") << QCoreApplication::applicationVersion()
                            << Qt::endl;
        return 0;
    }
    return Simula(*opzioni);
}
