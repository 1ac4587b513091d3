// The command: a working life of vehicles in one instance, and what it holds before and after.
#include "prove/comuni/sezione.h"
#include "prove/resistenza/misura.h"
#include "prove/resistenza/turno.h"
#include "toolkit/applicazione.h"

#include <QCommandLineParser>

#include <cstdio>

using namespace resistenza;

namespace {

const QByteArray SEZIONE = "resistenza";

QByteArray Tabella(int prima, int veicoli, const QList<Crescita> &crescite)
{
    QByteArray testo = "| held | after " + QByteArray::number(prima) + " vehicles | after " +
                       QByteArray::number(veicoli) + " more | growth |\n|---|---|---|---|\n";
    for (const Crescita &crescita : crescite)
        testo += QByteArray("| ") + crescita.Nome + " | " + QByteArray::number(crescita.Prima) + " | " +
                 QByteArray::number(crescita.Dopo) + " | " + QByteArray::number(crescita.Parte(), 'f', 2) +
                 " % |\n";
    return testo;
}

constexpr const char *TESTO =
    R"(## Resistenza

Written by `resistenza --documento docs/affidabilita.md` (`prove/resistenza`). One instance, on a test's clock and with an
instrument of the test's own, tests vehicle after vehicle through its real forms: menu, list, a file that is not in
order with its report, list, vehicle, session, result, page, menu. The result file of each is looked at and fetched.
What the process holds when the first vehicles have been tested, and when all have, each time before the menu.

)";

/// @return false when one did not come out as it has to.
bool Prova_Veicoli(Turno &turno, int quanti)
{
    for (int i = 0; i < quanti; ++i) {
        const QString guasto = turno.Prova_Veicolo();
        if (!guasto.isEmpty()) {
            std::printf("vehicle %d: %s\n", i + 1, qPrintable(guasto));
            return false;
        }
    }
    return true;
}

} // namespace

int main(int quanti, char **argomenti)
{
    Oggetti_Conta();
    Applicazione applicazione(quanti, argomenti);
    QCommandLineParser riga;
    riga.setApplicationDescription(QStringLiteral("Tests vehicles and looks at what the program holds."));
    riga.addHelpOption();
    riga.addOptions({
        {QStringLiteral("veicoli"), QStringLiteral("How many."), QStringLiteral("N"),
         QStringLiteral("10000")},
        {QStringLiteral("prima"),                         QStringLiteral("How many before the first look."),                              QStringLiteral("N"),
         QStringLiteral("200")},
        {QStringLiteral("documento"),     QStringLiteral("Writes the section of this file."),
         QStringLiteral("FILE")                                                 },
    });
    riga.process(applicazione);
    const int prima = riga.value(QStringLiteral("prima")).toInt();
    const int veicoli = riga.value(QStringLiteral("veicoli")).toInt();

    Turno turno;
    if (!Prova_Veicoli(turno, prima))
        return 1;
    const Misura inizio = Misura_Adesso();
    if (!Prova_Veicoli(turno, veicoli))
        return 1;
    const QList<Crescita> crescite = Crescite(inizio, Misura_Adesso());
    const QByteArray tabella = Tabella(prima, veicoli, crescite);
    std::printf("%s", tabella.constData());
    // Also what has grown is a matter of record.
    const QString documento = riga.value(QStringLiteral("documento"));
    const bool scritto = documento.isEmpty() || Sezione_Scrivi(documento, SEZIONE, TESTO + tabella);
    return scritto && Cresciute(crescite).isEmpty() ? 0 : 1;
}
