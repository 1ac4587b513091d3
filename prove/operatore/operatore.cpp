// The command: days of somebody who does anything, and what came of them.
#include "prove/comuni/sezione.h"
#include "prove/operatore/giornata.h"
#include "prove/operatore/tabella.h"
#include "prove/operatore/vita.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstring>

using namespace operatore;

namespace {

constexpr const char *SEZIONE = "operatore";
constexpr const char *TESTO =
    R"(## Operatore a caso

Written by `operatore --documento docs/affidabilita.md` (`prove/operatore`), in the build with the sanitizers. Somebody
clicks, double-clicks, drags, turns the wheel, presses, holds, types and pastes anything on whatever window is in front,
closes and minimises it, on stations of several settings, with an instrument, a folder and a printer that are right or
wrong by chance. A day is a process of 1,000 actions; a program that is left is started again. Every 20 actions each
file of the station is held against a table of what may change it (`prove/operatore/regole.cpp`): a key of `lumira.ini`
by the form and the button that save it, a result behind a session, an acceptance file when its result is there, and
nothing else. A run-time error that ends the program may do so only where a row of that file allows it, by the form and
the button or the passing of time that it follows. What is kept in memory is not looked at here: that is the soak's.
The Windows program of this name does the same under Wine, without the sanitizers; a row is written on the system that
it names, and leaves the others alone.

)";

int Comanda(int &quanti, char **argomenti)
{
    const QCoreApplication applicazione(quanti, argomenti);
    QCommandLineParser riga;
    riga.setApplicationDescription(QStringLiteral("Days of somebody who does anything."));
    riga.addHelpOption();
    riga.addOptions({
        {QStringLiteral("azioni"), QStringLiteral("How many."), QStringLiteral("N"),
         QStringLiteral("100000")},
        {QStringLiteral("seme"),                        QStringLiteral("Seed of the first day."),                              QStringLiteral("S"),
         QStringLiteral("1")},
        {QStringLiteral("documento"),      QStringLiteral("Writes the section of this file."),
         QStringLiteral("FILE")                                        },
    });
    riga.process(applicazione);
    const quint32 seme = riga.value(QStringLiteral("seme")).toUInt();
    const Giornate giornate =
        Giornate_Vivi(riga.value(QStringLiteral("azioni")).toInt(), seme, [](const QString &avviso) {
            std::printf("%s\n", qPrintable(avviso));
            static_cast<void>(std::fflush(stdout));
        });
    const QString documento = riga.value(QStringLiteral("documento"));
    const QByteArray tabella =
        Tabella(giornate, seme, QSysInfo::prettyProductName().toUtf8(), Sezione_Leggi(documento, SEZIONE));
    std::printf("%s%s\n", tabella.constData(), qPrintable(giornate.Guasto));
    if (!giornate.Guasto.isEmpty())
        return 1;
    return documento.isEmpty() || Sezione_Scrivi(documento, SEZIONE, TESTO + tabella) ? 0 : 1;
}

} // namespace

int main(int quanti, char **argomenti)
{
    const bool vita = quanti > 1 && std::strcmp(argomenti[1], ARGOMENTO_VITA) == 0;
    return vita ? Vita_Vivi(quanti, argomenti) : Comanda(quanti, argomenti);
}
