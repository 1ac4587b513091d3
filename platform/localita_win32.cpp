// The locale calls of Windows themselves, with what the user has changed in the control panel.
#include "platform/localita.h"

#include <qt_windows.h>

quint32 Locale_Utente()
{
    return GetUserDefaultLCID();
}

qint32 Locale_Dato(quint32 locale, qint32 tipo, QByteArray &testo, qint32 capienza)
{
    // A buffer of our own: the call may leave half a text in one that is too small.
    QByteArray trovato(capienza, Qt::Uninitialized);
    const int scritti = GetLocaleInfoA(locale, static_cast<LCTYPE>(tipo),
                                       capienza == 0 ? nullptr : trovato.data(), static_cast<int>(capienza));
    if (capienza > 0 && scritti > 0)
        testo.replace(0, scritti, trovato.first(scritti));
    return scritti;
}

QChar Separatore_Decimale()
{
    wchar_t testo[4] = {};
    GetLocaleInfoW(GetUserDefaultLCID(), LOCALE_SDECIMAL, testo, 4);
    return testo[0] == 0 ? QChar(u'.') : QChar(testo[0]);
}
