// The locale calls on Qt's locale data: the environment's locale, or the one set as default.
#include "platform/localita.h"

#include "platform/codifica.h"

#include <QLocale>

namespace {

/// What stands between day and month in the locale's short date.
QString Separatore_Data(const QLocale &locale)
{
    const QString forma = locale.dateFormat(QLocale::ShortFormat);
    for (const QChar c : forma) {
        if (!c.isLetter() && c != u'\'')
            return c;
    }
    return QStringLiteral("/");
}

} // namespace

quint32 Locale_Utente()
{
    return static_cast<quint32>(QLocale().language());
}

qint32 Locale_Dato(quint32, qint32 tipo, QByteArray &testo, qint32 capienza)
{
    const QLocale locale;
    QString trovato;
    if (tipo == LOCALE_SEPARATORE_DECIMALE)
        trovato = locale.decimalPoint();
    else if (tipo == LOCALE_SEPARATORE_DATA)
        trovato = Separatore_Data(locale);
    else
        return 0;

    const QByteArray conNul = Testo_InAnsi(trovato) + '\0';
    const auto serve = static_cast<qint32>(conNul.size());
    if (capienza == 0)
        return serve;
    if (capienza < serve)
        return 0;
    testo.replace(0, serve, conNul);
    return serve;
}

QChar Separatore_Decimale()
{
    return QLocale().decimalPoint().at(0);
}
