// The command: holds the exchange machine against its model and prints what it has been through.
#include "prove/comuni/sezione.h"
#include "prove/modello/esplorazione.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

using namespace modello;

namespace {

const QByteArray SEZIONE = "modello dello scambio";

constexpr const char *TESTO =
    R"(## Modello dello scambio

Written by `modello --documento docs/affidabilita.md` (`prove/modello`). A second writing of the exchange, tables only
and without a line of `link/`, finds every state that a session can come to, and the exchange machine is led through
every event in each of them: right, wrong, refused, damaged, short, long, split, doubled and late replies, noise, line
errors, silence, a port that does not open, is deaf or refuses what is sent, a profile that changes, the operator's
button. After each event what the machine has shown and sent, byte for byte and in order, its state, timer, resends,
results and notification are what the model has, or it is a difference. States: those that go different ways; the beat
falls due to the millisecond. Depth: events from the start to the farthest state; behind it nothing new turns up.

)";

constexpr const char *NOMI[MODI] = {"measure", "read", "write", "default"};

QByteArray Secondi(qint64 ms)
{
    return QByteArray::number(static_cast<double>(ms) / 1000, 'f', 1) + " s";
}

QByteArray Riga_Esplorata(quint8 modo, const Misurata &misurata, qint64 ms)
{
    return QByteArray("| ") + NOMI[modo] + " | " + QByteArray::number(misurata.Stati) + " | " +
           QByteArray::number(misurata.Transizioni) + " | " + QByteArray::number(misurata.Profondita) +
           " | " + QByteArray::number(misurata.Sessioni) + " | " +
           QByteArray::number(misurata.Diverse.size()) + " | " + Secondi(ms) + " |\n";
}

QByteArray Riga_Estratta(const Estratte &estratte, quint32 seme, qint64 ms)
{
    return "| " + QByteArray::number(estratte.Sessioni) + " | " + QByteArray::number(seme) + " | " +
           QByteArray::number(estratte.Eventi) + " | " + QByteArray::number(estratte.Riuscite) + " | " +
           QByteArray::number(estratte.Fallite) + " | " + QByteArray::number(estratte.Fatali) + " | " +
           QByteArray::number(estratte.Diverse.size()) + " | " + Secondi(ms) + " |\n";
}

} // namespace

int main(int quanti, char **argomenti)
{
    const QCoreApplication applicazione(quanti, argomenti);
    QCommandLineParser riga;
    riga.setApplicationDescription(QStringLiteral("Holds the exchange machine against its model."));
    riga.addHelpOption();
    riga.addOptions({
        {QStringLiteral("sessioni"), QStringLiteral("Random sessions."), QStringLiteral("N"),
         QStringLiteral("100000")},
        {QStringLiteral("seme"),                          QStringLiteral("Seed of the first of them."),                                       QStringLiteral("S"),
         QStringLiteral("1")},
        {QStringLiteral("fino"),        QStringLiteral("Depth of the exploration; 0: all."),                                          QStringLiteral("N"),
         QStringLiteral("0")},
        {QStringLiteral("documento"),       QStringLiteral("Writes the section of this file."),
         QStringLiteral("FILE")                                                                          },
    });
    riga.process(applicazione);
    const quint32 seme = riga.value(QStringLiteral("seme")).toUInt();

    const Stazione stazione;
    QStringList diverse;
    QElapsedTimer tempo;
    QByteArray tabelle =
        "| session | states | transitions | depth | sessions replayed | differences | time |\n"
        "|---|---|---|---|---|---|---|\n";
    for (quint8 modo = 0; modo < MODI; ++modo) {
        tempo.start();
        const Misurata misurata = Esplora(modo, riga.value(QStringLiteral("fino")).toInt());
        tabelle += Riga_Esplorata(modo, misurata, tempo.elapsed());
        diverse += misurata.Diverse;
    }
    tempo.start();
    const Estratte estratte = Estrai(riga.value(QStringLiteral("sessioni")).toLongLong(), seme);
    diverse += estratte.Diverse;
    tabelle +=
        "\n| random sessions | first seed | events | completed | failed or broken off | ended by an error "
        "| differences | time |\n|---|---|---|---|---|---|---|---|\n" +
        Riga_Estratta(estratte, seme, tempo.elapsed());

    std::printf("%s", tabelle.constData());
    for (const QString &diversa : std::as_const(diverse))
        std::printf("%s\n", qPrintable(diversa));
    if (!diverse.isEmpty())
        return 1;
    const QString documento = riga.value(QStringLiteral("documento"));
    return documento.isEmpty() || Sezione_Scrivi(documento, SEZIONE, TESTO + tabelle) ? 0 : 1;
}
