// The command: kills, looks at what is left, and prints what it has seen.
#include "prove/comuni/sezione.h"
#include "prove/uccisioni/prove.h"
#include "prove/uccisioni/scritture.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace uccisioni;

namespace {

const QByteArray SEZIONE = "uccisioni";

constexpr const char *TESTO =
    R"(## Uccisioni

Written by `uccisioni --documento docs/affidabilita.md` (`prove/uccisioni`), on Linux. A process that saves three values
of `lumira.ini` one by one, or makes a whole test from the first frame to the removal of the acceptance file, is killed
(SIGKILL): at random moments, and before and behind every one of its system calls. What it has left is looked at, byte
for byte, and the next value is written.

An empty result is what a death between the making of the file and its one write leaves: it is made under its final
name. Its vehicle stays in the folder and does not count as done. On Windows the profile call is the system's own;
what could be killed under Wine is Wine's body of it, which says nothing of Windows.

)";

QByteArray Riga(const char *come, const QList<int> &cifre, qsizetype guaste)
{
    QByteArray riga = QByteArray("| ") + come;
    for (const int cifra : cifre)
        riga += " | " + QByteArray::number(cifra);
    return riga + " | " + QByteArray::number(guaste) + " |\n";
}

QByteArray Riga_Di(const char *come, const Scritture &s)
{
    return Riga(come, {s.Uccise, s.Prima, s.Dopo, s.Avanzi, int(s.Attesa)}, s.Guaste.size());
}

QByteArray Riga_Di(const char *come, const Prove &p)
{
    return Riga(come, {p.Uccise, p.SenzaRisultato, p.Vuote, p.ParteDelRisultato, p.ConRisultato, p.Concluse},
                p.Guaste.size());
}

} // namespace

int main(int quanti, char **argomenti)
{
    const QCoreApplication applicazione(quanti, argomenti);
    QCommandLineParser riga;
    riga.setApplicationDescription(QStringLiteral("Kills the station in the middle of what it writes."));
    riga.addHelpOption();
    riga.addOptions({
        {QStringLiteral("quante"), QStringLiteral("Killings at random, of each kind."), QStringLiteral("N"),
         QStringLiteral("5000")},
        {QStringLiteral("seme"),                        QStringLiteral("Seed of their moments."),                                                      QStringLiteral("S"),
         QStringLiteral("1")},
        {QStringLiteral("documento"),      QStringLiteral("Writes the section of this file."),
         QStringLiteral("FILE")                                                 },
    });
    riga.process(applicazione);
    const int quante = riga.value(QStringLiteral("quante")).toInt();
    const quint32 seme = riga.value(QStringLiteral("seme")).toUInt();

    const Scritture scritture[] = {Scritture_ACaso(quante, seme), Scritture_AOgniConfine()};
    const Prove prove[] = {Prove_ACaso(quante, seme), Prove_ACasoAllaFine(quante, seme),
                           Prove_AOgniConfine()};

    const QByteArray tabelle =
        "| lumira.ini, killed | kills | as the last write left it | as the one at work makes it | temporary "
        "files left "
        "| next write, ms at most | anything else |\n|---|---|---|---|---|---|---|\n" +
        Riga_Di("at random", scritture[0]) + Riga_Di("at every system call", scritture[1]) +
        "\n| whole test, killed | kills | no result yet | empty result | part of it | whole, vehicle still "
        "listed "
        "| whole, vehicle gone | anything else |\n|---|---|---|---|---|---|---|---|\n" +
        Riga_Di("at random", prove[0]) + Riga_Di("at random in the evaluation", prove[1]) +
        Riga_Di("at every system call of the evaluation", prove[2]);

    std::printf("%s", tabelle.constData());
    QStringList guaste;
    for (const Scritture &s : scritture)
        guaste += s.Guaste;
    for (const Prove &p : prove)
        guaste += p.Guaste;
    for (const QString &guasta : std::as_const(guaste))
        std::printf("%s\n", qPrintable(guasta));
    if (!guaste.isEmpty())
        return 1;
    const QString documento = riga.value(QStringLiteral("documento"));
    return documento.isEmpty() || Sezione_Scrivi(documento, SEZIONE, TESTO + tabelle) ? 0 : 1;
}
