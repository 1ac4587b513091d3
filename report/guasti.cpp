// The four lamps as a table, and their sentences.
#include "report/guasti.h"

#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "platform/numeri.h"

namespace {

struct Faro
{
    TestoMctc nome;
    Fascio fascio;
    RigaFar verticale;
    RigaFar orizzontale;
    RigaFar lux;
};

// clang-format off
constexpr Faro FARI[] = {
    {MctcAnabbaglianteDestro,   FascioAnabbagliante, FarVertAnabDx, FarOrizzAnabDx, FarIllumLuxAnabDx},
    {MctcAnabbaglianteSinistro, FascioAnabbagliante, FarVertAnabSx, FarOrizzAnabSx, FarIllumLuxAnabSx},
    {MctcAbbaglianteDestro,     FascioAbbagliante,   FarVertAbbDx,  FarOrizzAbbDx,  FarIllumLuxAbbDx },
    {MctcAbbaglianteSinistro,   FascioAbbagliante,   FarVertAbbSx,  FarOrizzAbbSx,  FarIllumLuxAbbSx },
};
// clang-format on

bool Errata(RigaFar riga)
{
    return Far_Valore(riga) != u"R";
}

/// As the cells of the table give it: thousands of the unit of the result file.
QString In_Migliaia(float valore)
{
    return Numero_Testo(valore / 1000);
}

/// @param ammesso the text, with %1 for the value, %2 and %3 for the limits.
QString Intensita(const Faro &faro, const QString &ammesso)
{
    const QString riga = Far_Valore(faro.lux);
    if (riga.isEmpty() || Lux_Regolare(Numero_Singolo(riga), faro.fascio))
        return {};
    const LimitiLux limiti = Limiti_Lux(faro.fascio);
    return QString(ammesso)
        .replace(QStringLiteral("%1"), In_Migliaia(Numero_Singolo(riga)))
        .replace(QStringLiteral("%2"), In_Migliaia(static_cast<float>(limiti.Minimo)))
        .replace(QStringLiteral("%3"), In_Migliaia(static_cast<float>(limiti.Massimo)));
}

QString Mira(const Faro &faro)
{
    const bool verticale = Errata(faro.verticale);
    const bool orizzontale = Errata(faro.orizzontale);
    if (verticale && orizzontale)
        return Testo_Mctc(MctcMiraErrata);
    if (verticale)
        return Testo_Mctc(MctcVerticaleErrato);
    return orizzontale ? Testo_Mctc(MctcOrizzontaleErrato) : QString();
}

} // namespace

QStringList Guasti_Elenca()
{
    const QString ammesso = Testo_Mctc(MctcAmmesso);
    if (ammesso.isEmpty() || Far_Valore(FarEsito) == u"R")
        return {};
    QStringList guasti;
    for (const Faro &faro : FARI) {
        QStringList parti = {Intensita(faro, ammesso), Mira(faro)};
        parti.removeAll(QString());
        if (!parti.isEmpty())
            guasti.append(
                QStringLiteral("%1: %2").arg(Testo_Mctc(faro.nome), parti.join(QStringLiteral("; "))));
    }
    return guasti;
}
