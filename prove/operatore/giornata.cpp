#include "prove/operatore/giornata.h"

#include "prove/operatore/vita.h"
#include "tests/forms/figlio_prova.h"

#include <algorithm>
#include <iterator>

namespace operatore {

namespace {

constexpr int AZIONI_VITA = 1000; // then a station begins anew
constexpr int ULTIME = 30;        // actions told with what went wrong
constexpr qsizetype DETTE = 60;   // lines of the program's and the sanitizer's words

/// The run-time errors that the program ends by as it has to, when somebody does what cannot go on.
constexpr const char *ERRORI_AMMESSI[] = {
    "run-time error 6: Overflow",
    "run-time error 9: Subscript out of range",
    "run-time error 13: Type mismatch",
};

/// The words of the error that the program has told; empty for none.
QString Errore_Detto(const EsitoFiglio &figlio)
{
    for (const QString &riga : figlio.Errori.split(u'\n')) {
        const qsizetype posto = riga.indexOf(QStringLiteral("run-time error"));
        if (riga.startsWith(QStringLiteral("lumira: ")) && posto >= 0)
            return riga.mid(posto).trimmed();
    }
    return {};
}

bool Ammesso(const QString &errore)
{
    return std::any_of(std::begin(ERRORI_AMMESSI), std::end(ERRORI_AMMESSI),
                       [&errore](const char *ammesso) { return errore == QLatin1String(ammesso); });
}

QStringList Azioni_Di(const EsitoFiglio &figlio)
{
    QStringList azioni = figlio.Uscita.split(u'\n', Qt::SkipEmptyParts);
    azioni.removeIf([](const QString &riga) { return riga.startsWith(u'!'); });
    return azioni;
}

QString Racconto(const EsitoFiglio &figlio, quint32 seme)
{
    const QStringList righe = figlio.Uscita.split(u'\n', Qt::SkipEmptyParts);
    QStringList errori = figlio.Errori.split(u'\n', Qt::SkipEmptyParts);
    // Of a display that is none.
    errori.removeIf([](const QString &riga) { return riga.startsWith(QStringLiteral("This plugin")); });
    return QStringLiteral("seed %1, action %2, status %3\n%4\n%5")
        .arg(seme)
        .arg(Azioni_Di(figlio).size())
        .arg(figlio.Finito ? QString::number(figlio.Stato) : QStringLiteral("none: killed or hung"),
             righe.mid(std::max<qsizetype>(0, righe.size() - ULTIME)).join(u'\n'),
             errori.first(std::min(errori.size(), DETTE)).join(u'\n'));
}

} // namespace

Giornate Giornate_Vivi(int azioni, quint32 seme, const std::function<void(const QString &)> &avviso)
{
    Giornate giornate;
    while (giornate.Azioni < azioni && giornate.Guasto.isEmpty()) {
        const int quante = std::min(AZIONI_VITA, azioni - giornate.Azioni);
        const EsitoFiglio figlio = Figlio_Esegui(
            {QString::fromLatin1(ARGOMENTO_VITA), QString::number(seme), QString::number(quante)});
        const int fatte = int(Azioni_Di(figlio).size());
        const QString errore = Errore_Detto(figlio);
        const bool perErrore = figlio.Finito && figlio.Stato == VitaFinitaPerErrore && Ammesso(errore);
        if (perErrore)
            ++giornate.Errori[errore];
        if ((!figlio.Buono() && !perErrore) || fatte == 0)
            giornate.Guasto = Racconto(figlio, seme);
        avviso(QStringLiteral("seed %1: %2 actions %3").arg(seme).arg(fatte).arg(errore));
        giornate.Azioni += fatte;
        ++giornate.Vite;
        ++seme;
    }
    return giornate;
}

} // namespace operatore
