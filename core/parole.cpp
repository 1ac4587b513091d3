// The user's language, asked of the system once. It knows no text.
#include "core/parole.h"

#include <QLocale>
#include <QStringList>

namespace {

bool Sistema_Italiano()
{
    const QStringList lingue = QLocale::system().uiLanguages();
    return lingue.isEmpty() || lingue.first() == u"C" || lingue.first().startsWith(u"it");
}

bool &Italiano()
{
    static bool italiano = Sistema_Italiano();
    return italiano;
}

} // namespace

bool Lingua_Scegli(const QString &codice)
{
    const QString grande = codice.toUpper();
    if (grande != u"IT" && grande != u"EN")
        return false;
    Italiano() = grande == u"IT";
    return true;
}

QString In_Parole(const Parole &parole)
{
    return (Italiano() ? parole.Italiano : parole.Inglese).toString();
}
