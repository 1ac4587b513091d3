// The four lamps as a table, and their sentences.
#include "report/guasti.h"

#include "core/limiti.h"
#include "core/modGeneral.h"
#include "core/risultato.h"
#include "platform/numeri.h"

namespace {

struct Faro
{
    qint16 nome; // id in gTabMctc
    bool anabbagliante;
    const char16_t *verticale;
    const char16_t *orizzontale;
    const char16_t *lux;
};

constexpr Faro FARI[] = {
    {174, true,  u"VertAnabDx", u"OrizzAnabDx", u"IllumLuxAnabDx"},
    {175, true,  u"VertAnabSx", u"OrizzAnabSx", u"IllumLuxAnabSx"},
    {176, false, u"VertAbbDx",  u"OrizzAbbDx",  u"IllumLuxAbbDx" },
    {177, false, u"VertAbbSx",  u"OrizzAbbSx",  u"IllumLuxAbbSx" },
};

constexpr qint16 TESTO_AMMESSO = 178; // %1 value, %2 and %3 limits
/// By what is wrong: 1 the vertical aim, 2 the horizontal one, 3 both.
constexpr qint16 TESTI_MIRA[] = {0, 179, 180, 181};

bool Errata(const char16_t *riga)
{
    return Far_Valore(QString::fromUtf16(riga)) != u"R";
}

/// As the cells of the table give it: thousands of the unit of the result file.
QString In_Migliaia(float valore)
{
    return Numero_Testo(valore / 1000);
}

QString Intensita(const Faro &faro, const QString &ammesso)
{
    const QString riga = Far_Valore(QString::fromUtf16(faro.lux));
    if (riga.isEmpty() || Lux_NeiLimiti(Numero_Singolo(riga), faro.anabbagliante))
        return {};
    const qint32 minimo = faro.anabbagliante ? gLuxMinAnab : gLuxMinAbb;
    const qint32 massimo = faro.anabbagliante ? gLuxMaxAnab : gLuxMaxAbb;
    return QString(ammesso)
        .replace(QStringLiteral("%1"), In_Migliaia(Numero_Singolo(riga)))
        .replace(QStringLiteral("%2"), In_Migliaia(static_cast<float>(minimo)))
        .replace(QStringLiteral("%3"), In_Migliaia(static_cast<float>(massimo)));
}

QString Mira(const Faro &faro)
{
    const int quale = (Errata(faro.verticale) ? 1 : 0) + (Errata(faro.orizzontale) ? 2 : 0);
    return quale == 0 ? QString() : Testo_Mctc(TESTI_MIRA[quale]);
}

} // namespace

bool Lux_NeiLimiti(float valore, bool anabbagliante)
{
    const auto minimo = static_cast<float>(anabbagliante ? gLuxMinAnab : gLuxMinAbb);
    const auto massimo = static_cast<float>(anabbagliante ? gLuxMaxAnab : gLuxMaxAbb);
    return valore > minimo && valore < massimo;
}

QStringList Guasti_Elenca()
{
    const QString ammesso = Testo_Mctc(TESTO_AMMESSO);
    if (ammesso.isEmpty() || Far_Valore(QStringLiteral("Esito")) == u"R")
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
