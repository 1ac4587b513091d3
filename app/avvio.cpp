// Start-up's readings, a line a flag. No window and no message: what is missing is modMain's to tell.
#include "app/avvio.h"

#include "core/modGeneral.h"
#include "core/modStr.h"

namespace {

struct FlagIni
{
    ChiaveIni chiave;
    Flag *flag;
};

/// The flags of section MCTC, in the order of their reading.
constexpr FlagIni FLAG_MCTC[] = {
    {ChiaveIniFile,         &gIniFile        },
    {ChiaveEsce,            &gEsce           },
    {ChiaveControlloVisivo, &gControlloVisivo},
    {ChiaveAllarmeAcustico, &gAllarmeAcustico},
    {ChiaveAlimentazione,   &gAlimentazione  },
    {ChiaveAltezzaFaroAuto, &gAltezzaFaroAuto},
    {ChiaveModalita,        &gModalita       },
};

/// Only the exact text "1" counts.
Flag Flag_Ini(const ChiaveIni &chiave)
{
    return Flag_Da(Valore_Ini(gFileIni, chiave) == u"1");
}

} // namespace

void Avvio_Percorsi(const QString &cartella)
{
    gAppPath = cartella + u'\\';
    gFileIni = gAppPath + QStringLiteral("lumira.ini");
    gDirImmagini = gAppPath + QStringLiteral("dati\\");
    gDirModelli = gAppPath + QStringLiteral("dati\\");
    gFileLingue = gAppPath + QStringLiteral("lingue.ini");
    gFileLingueMctc = gAppPath + QStringLiteral("lingueMCTC.ini");
}

void Avvio_Impostazioni()
{
    if (Flag_Ini(ChiaveDebug))
        gDebug = Vero;
    const QString utente = Valore_Ini(gFileIni, ChiaveUtente);
    gUser = Str_Token(utente, QStringLiteral(" "), 1);
    if (gUser.isEmpty())
        gUser = utente;
    Avvio_Variante();
    gLingua = Valore_Ini(gFileIni, ChiaveLingua).toUpper();
    for (const FlagIni &voce : FLAG_MCTC)
        *voce.flag = Flag_Ini(voce.chiave);
    Imposta_Cartelle();
    Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
}

void Avvio_Variante()
{
    const bool kp = gUser.toUpper() == u"KP";
    gLogoFile = kp ? QStringLiteral("kp_logo.gif") : QString();
    gSplashFile = kp ? QStringLiteral("splash_kp_net.jpg") : QString();
}
