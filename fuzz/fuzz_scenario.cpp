// Any bytes as a scenario of the instrument's stand-in: what is read lies within its bounds and stands when
// it is written and read again; what is refused leaves the scenario in force, and each error quotes what it
// refuses.
#include "core/modGeneral.h"
#include "fuzz/comune.h"
#include "platform/codifica.h"
#include "platform/profilo.h"
#include "simulatore/scenario.h"

#include <QRegularExpression>

#include <limits>

namespace {

QString Comando_Testo(const Guasto &guasto)
{
    return guasto.comando ? QString::fromUtf16(Comando_DaCodice(static_cast<quint8>(*guasto.comando))->nome)
                          : QStringLiteral("*");
}

QString Volte_Testo(const Guasto &guasto)
{
    const QString da = QString::number(guasto.daVolta);
    return guasto.aVolta == std::numeric_limits<int>::max() ? da + u'-'
                                                            : da + u'-' + QString::number(guasto.aVolta);
}

QByteArray Guasti_Testo(const QList<Guasto> &guasti)
{
    QStringList righe;
    for (const Guasto &guasto : guasti) {
        // A kind of fault without a number has 0 for one.
        const QString numero = Guasto_Continuo(guasto.tipo, std::nullopt).numero == 0
                                   ? QString()
                                   : u';' + QString::number(guasto.numero);
        righe.append(QStringLiteral("Guasto%1=").arg(righe.size() + 1) + Comando_Testo(guasto) + u';' +
                     Volte_Testo(guasto) + u';' + Guasto_Nome(guasto.tipo) + numero + u'\n');
    }
    return righe.join(QString()).toLatin1();
}

QByteArray Scenario_Testo(const Scenario &scenario)
{
    QByteArray testo = "[GENERALE]\nRitardo=" + QByteArray::number(scenario.ritardo) +
                       "\nRicomincia=" + (scenario.ricomincia ? "1" : "0") + "\n[GUASTI]\n" +
                       Guasti_Testo(scenario.guasti);
    for (qsizetype n = 0; n < scenario.veicoli.size(); ++n) {
        const Veicolo &veicolo = scenario.veicoli[n];
        testo += "[VEICOLO" + QByteArray::number(n + 1) + "]\nRiposo=" + QByteArray::number(veicolo.riposo) +
                 "\nProva=" + QByteArray::number(veicolo.prova) + '\n';
        for (size_t i = 0; i < NOMI_RECORD.size(); ++i)
            testo += QString::fromUtf16(NOMI_RECORD[i]).toLatin1() + "=\"" + veicolo.record[i] + "\"\n";
        testo += Guasti_Testo(veicolo.guasti);
    }
    return testo;
}

void Prova_Guasti(const QList<Guasto> &guasti)
{
    for (const Guasto &guasto : guasti) {
        Pretendi(guasto.daVolta >= 1 && guasto.aVolta >= guasto.daVolta,
                 "a fault strikes from a time to a later one");
        Pretendi(guasto.numero >= 0 && guasto.numero <= 60000, "the number of a fault has its bounds");
    }
}

void Prova_Letto(const Scenario &scenario)
{
    Pretendi(scenario.ritardo >= 0 && scenario.ritardo <= 60000, "a delay has its bounds");
    Prova_Guasti(scenario.guasti);
    for (const Veicolo &veicolo : scenario.veicoli) {
        Prova_Guasti(veicolo.guasti);
        for (const QByteArray &record : veicolo.record)
            Pretendi(record.size() == 6 && record.left(4).toUInt() <= 9999,
                     "a record is four digits and two characters");
    }
    const QByteArray testo = Scenario_Testo(scenario);
    const QString percorso = File_Con(QStringLiteral("scritto.ini"), testo);
    const ProfiloFermo scritto(percorso);
    Scenario ancora;
    Pretendi(Scenario_Leggi(percorso, ancora).isEmpty(), "a scenario that is written out is read again");
    Pretendi(Scenario_Testo(ancora) == testo, "it is the same scenario");
}

/// "[SECTION] key: what is wrong": the words quote the value, or a piece of it.
void Prova_Errore(const QString &percorso, const QString &errore)
{
    static const QRegularExpression FORMA(
        QRegularExpression::anchoredPattern(QStringLiteral("\\[(\\w+)\\] (\\w+): (.*)")),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch forma = FORMA.match(errore);
    Pretendi(forma.hasMatch(), "an error tells section and key");
    const QString valore = Valore_Ini(percorso, forma.captured(1), forma.captured(2));
    bool citato = forma.captured(3).contains(u'"' + valore + u'"');
    for (const QString &pezzo : valore.split(u';'))
        citato = citato || forma.captured(3).contains(u'"' + pezzo.trimmed() + u'"');
    Pretendi(citato, "an error quotes what it refuses");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    constexpr int IN_VIGORE = 77;
    const QString percorso = File_Con(QStringLiteral("scenario.ini"), Byte_Di(dati, quanti));
    const ProfiloFermo letto(percorso); // a file just written would be read anew for each of its keys
    Scenario scenario;
    scenario.ritardo = IN_VIGORE;
    const QStringList errori = Scenario_Leggi(percorso, scenario);
    for (const QString &errore : errori)
        Prova_Errore(percorso, errore);
    if (errori.isEmpty())
        Prova_Letto(scenario);
    else
        Pretendi(scenario.ritardo == IN_VIGORE && scenario.veicoli.isEmpty(),
                 "an error leaves the scenario in force");
    return 0;
}
