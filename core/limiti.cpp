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
    ChiaveIni chiave;
    qint32 *limite;
};

constexpr LimiteLux LIMITI_LUX[] = {
    {ChiaveLuxMaxAbb,  &gLuxMaxAbb },
    {ChiaveLuxMaxAnab, &gLuxMaxAnab},
    {ChiaveLuxMinAbb,  &gLuxMinAbb },
    {ChiaveLuxMinAnab, &gLuxMinAnab},
};

struct LimiteDev
{
    ChiaveIni chiave;
    float *limite;
    bool gradi; // stored as tan(degrees) x 400; its default is not converted, as on the instrument
};

constexpr LimiteDev LIMITI_DEV[] = {
    {ChiaveDevVertAbb,  &gDevVertAbb,  false},
    {ChiaveDevVertAnab, &gDevVertAnab, false},
    {ChiaveDevOrizAbb,  &gDevOrizAbb,  true },
    {ChiaveDevOrizAnab, &gDevOrizAnab, true },
};

/// Not a more exact pi: the limits must come out as the instrument's own do.
constexpr double PI_STRUMENTO = 3.1416;

QString Valore_Limite(const ChiaveIni &chiave)
{
    return Con_Separatore(Valore_Ini(gFileIni, chiave), gSepDecimale);
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

QString Con_Separatore(const QString &valore, const QString &separatore)
{
    return separatore == u"," ? Str_Sostituisci(valore, QStringLiteral("."), QStringLiteral(",")) : valore;
}

LimitiFascio Limiti_Di(Fascio fascio)
{
    return fascio == FascioAnabbagliante ? LimitiFascio{gLuxMinAnab, gLuxMaxAnab}
                                         : LimitiFascio{gLuxMinAbb, gLuxMaxAbb};
}

bool Lux_Regolare(double lux, Fascio fascio)
{
    const LimitiFascio limiti = Limiti_Di(fascio);
    return lux > limiti.minimo && lux < limiti.massimo;
}

void Carica_Limiti()
{
    gSepDecimale = Locale_Info(LOCALE_SEPARATORE_DECIMALE);
    // Always the key Pwd, also in the variant that took Pwd2 when the main window opened.
    gPwdCorrente = Pwd_Decifra(Valore_Ini(gFileIni, ChiavePassword));
    gSimmetrico = Simmetrico_Da(Valore_Ini(gFileIni, ChiaveSimmetrico));
    for (const LimiteLux &lux : LIMITI_LUX) {
        const QString valore = Valore_Limite(lux.chiave);
        *lux.limite = Numero_Valido(valore) ? Numero_32(valore) : lux.chiave.Predefinito.toInt();
    }
    for (const LimiteDev &dev : LIMITI_DEV) {
        const QString valore = Valore_Limite(dev.chiave);
        if (!Numero_Valido(valore))
            *dev.limite = dev.chiave.Predefinito.toFloat();
        else
            *dev.limite = dev.gradi ? In_Millimetri(Numero_Singolo(valore)) : Numero_Singolo(valore);
    }
}
