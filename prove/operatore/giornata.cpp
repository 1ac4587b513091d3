#include "prove/operatore/giornata.h"

#include "prove/operatore/regole.h"
#include "prove/operatore/vita.h"
#include "tests/forms/figlio_prova.h"

#include <algorithm>

namespace operatore {

namespace {

constexpr int AZIONI_VITA = 1000; // then a station begins anew
constexpr int ULTIME = 30;        // actions told with what went wrong
constexpr qsizetype DETTE = 60;   // lines of the program's and the sanitizer's words

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

/// What the error followed; empty for none.
QString Errore_Dopo(const EsitoFiglio &figlio)
{
    for (const QString &riga : figlio.Uscita.split(u'\n')) {
        if (riga.startsWith(QLatin1String(SEGNO_DOPO)))
            return riga.mid(qsizetype(qstrlen(SEGNO_DOPO)));
    }
    return {};
}

QStringList Azioni_Di(const EsitoFiglio &figlio)
{
    QStringList azioni = figlio.Uscita.split(u'\n', Qt::SkipEmptyParts);
    azioni.removeIf([](const QString &riga) {
        return riga.startsWith(u'!') || riga.startsWith(QLatin1String(SEGNO_DOPO));
    });
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
        const QString dopo = Errore_Dopo(figlio);
        const bool perErrore =
            figlio.Finito && figlio.Stato == VitaFinitaPerErrore && Errore_Ammesso(errore, dopo);
        if (perErrore)
            ++giornate.Errori[errore + QStringLiteral(" after ") + dopo];
        if ((!figlio.Buono() && !perErrore) || fatte == 0)
            giornate.Guasto = Racconto(figlio, seme);
        avviso(QStringLiteral("seed %1: %2 actions %3 %4").arg(seme).arg(fatte).arg(errore, dopo));
        giornate.Azioni += fatte;
        ++giornate.Vite;
        ++seme;
    }
    return giornate;
}

} // namespace operatore
