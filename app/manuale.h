// Where the manual lies and which of its chapters speaks of which form. It opens nothing.
#pragma once

#include <QString>
#include <QUrl>

/// A form and the anchor of its chapter in the manual.
struct Capitolo
{
    const char16_t *Modulo;
    const char16_t *Ancora;
};

inline constexpr Capitolo CAPITOLI[] = {
    {u"dlgPwd",           u"password-di-servizio"              },
    {u"frmAbout",         u"anagrafica-officina-e-informazioni"},
    {u"frmAnagOffO",      u"anagrafica-officina-e-informazioni"},
    {u"frmCartella",      u"le-cartelle-di-scambio"            },
    {u"frmComm",          u"i-messaggi-e-che-cosa-fare"        },
    {u"frmControlliMctc", u"livelli-dei-controlli-f12"         },
    {u"frmEsito",         u"una-prova-passo-per-passo"         },
    {u"frmMain",          u"che-cosa-dice-il-menu"             },
    {u"frmMctc2",         u"una-prova-passo-per-passo"         },
    {u"frmMctcO",         u"una-prova-passo-per-passo"         },
    {u"frmMsg",           u"i-messaggi-e-che-cosa-fare"        },
    {u"frmSetupO",        u"impostazioni"                      },
    {u"frmVerPerO",       u"verifica-periodica"                },
};

/// The page that opens the manual at a form's chapter. Neither the shell of Windows nor what opens files on
/// Debian hands the browser the anchor of an address: each chapter has a small page of its own in the folder
/// manuale, which goes on to the anchor.
/// @param modulo name of the form. @return the manual's beginning for a form without a chapter; empty when
/// the manual is not beside the program.
QUrl Manuale_Indirizzo(const QString &modulo);
