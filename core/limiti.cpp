// The limits by table, with their defaults and conversions, and the one judgement of an intensity by them.
#include "core/limiti.h"

#include "core/modGeneral.h"
#include "core/modStr.h"
#include "platform/localita.h"
#include "platform/numeri.h"

#include <cmath>

qint32 gLuxMaxAbb = 0, gLuxMaxAnab = 0, gLuxMinAbb = 0, gLuxMinAnab = 0;
float gDevVertAbb = 0, gDevVertAnab = 0, gDevOrizAbb = 0, gDevOrizAnab = 0;
quint8 gSimmetrico = 0;
QString gSepDecimale;

namespace {

struct LimiteLux
{
    const char16_t *chiave;
    qint32 *limite;
    qint32 predefinito;
};

constexpr LimiteLux LIMITI_LUX[] = {
    {u"LuxMaxAbb",  &gLuxMaxAbb,  150000},
    {u"LuxMaxAnab", &gLuxMaxAnab, 90000 },
    {u"LuxMinAbb",  &gLuxMinAbb,  20000 },
    {u"LuxMinAnab", &gLuxMinAnab, 3750  },
};

struct LimiteDev
{
    const char16_t *chiave;
    float *limite;
    float predefinito;
    bool gradi; // stored as tan(degrees) x 400; its default is not converted, as on the instrument
};

constexpr LimiteDev LIMITI_DEV[] = {
    {u"DevVertAbb",  &gDevVertAbb,  1.5F,  false},
    {u"DevVertAnab", &gDevVertAnab, 1.5F,  false},
    {u"DevOrizAbb",  &gDevOrizAbb,  15.0F, true },
    {u"DevOrizAnab", &gDevOrizAnab, 15.0F, true },
};

/// Not a more exact pi: the limits must come out as the instrument's own do.
constexpr double PI_STRUMENTO = 3.1416;

QString Valore_Limite(const char16_t *chiave)
{
    const QString valore = Valore_Ini(gFileIni, QStringLiteral("PARAMETRI"), QString::fromUtf16(chiave));
    // The file may use a decimal point on a machine with a decimal comma; not the other way round.
    return gSepDecimale == u"," ? Str_Sostituisci(valore, QStringLiteral("."), QStringLiteral(",")) : valore;
}

float In_Millimetri(float gradi)
{
    return static_cast<float>(std::tan(static_cast<double>(gradi) * PI_STRUMENTO / 180) * 400);
}

quint8 Simmetrico_Da(const QString &valore)
{
    return Numero_Valido(valore) && Numero_32(valore) == 1 ? 1 : 0;
}

} // namespace

bool Lux_Regolare(double lux, Fascio fascio)
{
    const bool anabbagliante = fascio == FascioAnabbagliante;
    return lux > (anabbagliante ? gLuxMinAnab : gLuxMinAbb) &&
           lux < (anabbagliante ? gLuxMaxAnab : gLuxMaxAbb);
}

void Carica_Limiti()
{
    const QString impostazioni = QStringLiteral("IMPOSTAZIONI");
    gSepDecimale = Locale_Info(LOCALE_SEPARATORE_DECIMALE);
    // Always the key Pwd, also in the variant that took Pwd2 when the main window opened.
    gPwdCorrente = Pwd_Decifra(Valore_Ini(gFileIni, impostazioni, QStringLiteral("Pwd")));
    gSimmetrico = Simmetrico_Da(Valore_Ini(gFileIni, impostazioni, QStringLiteral("Simmetrico")));
    for (const LimiteLux &lux : LIMITI_LUX) {
        const QString valore = Valore_Limite(lux.chiave);
        *lux.limite = Numero_Valido(valore) ? Numero_32(valore) : lux.predefinito;
    }
    for (const LimiteDev &dev : LIMITI_DEV) {
        const QString valore = Valore_Limite(dev.chiave);
        if (!Numero_Valido(valore))
            *dev.limite = dev.predefinito;
        else
            *dev.limite = dev.gradi ? In_Millimetri(Numero_Singolo(valore)) : Numero_Singolo(valore);
    }
}
