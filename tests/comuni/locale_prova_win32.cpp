// On Windows the program takes what the user has set in the control panel. A test sets the same; the end of
// the test program puts the user's own back.
#include "tests/comuni/locale_prova.h"

#include <array>
#include <qt_windows.h>

namespace {

constexpr std::array<LCTYPE, 3> TIPI = {LOCALE_SDECIMAL, LOCALE_STHOUSAND, LOCALE_SDATE};
constexpr int MISURA = 8;

using Separatori = std::array<QString, TIPI.size()>;

Separatori In_Vigore()
{
    Separatori separatori;
    for (size_t i = 0; i < TIPI.size(); ++i) {
        wchar_t testo[MISURA] = {};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, TIPI[i], testo, MISURA);
        separatori[i] = QString::fromWCharArray(testo);
    }
    return separatori;
}

void Imposta(const Separatori &separatori)
{
    for (size_t i = 0; i < TIPI.size(); ++i) {
        if (!SetLocaleInfoW(LOCALE_USER_DEFAULT, TIPI[i],
                            reinterpret_cast<const wchar_t *>(separatori[i].utf16())))
            qFatal("the user's separators cannot be set");
    }
}

/// What the user had, until the end of the program.
struct Utente
{
    Separatori separatori = In_Vigore();
    ~Utente() { Imposta(separatori); }
};

/// What stands between day and month in the locale's short date.
QString Separatore_Data(const QLocale &locale)
{
    const QString forma = locale.dateFormat(QLocale::ShortFormat);
    for (const QChar c : forma) {
        if (!c.isLetter())
            return c;
    }
    return QStringLiteral("/");
}

} // namespace

void Imposta_Locale(const QLocale &locale)
{
    static const Utente utente;
    QLocale::setDefault(locale);
    Imposta({locale.decimalPoint(), locale.groupSeparator(), Separatore_Data(locale)});
}
