// The names that passwords go by, and the stars.
#include "strumenti/password_coperta.h"

#include <QRegularExpression>

QString Password_Coperte(const QString &testo)
{
    // The names of the keys stay to be read where their "=" tells where they end; otherwise a password may
    // begin right behind the word.
    static const QRegularExpression PASSWORD(
        QStringLiteral("((?:pwd2?|password)[ \\t\\v]*=|pwd|password)[^\\r\\n]*"),
        QRegularExpression::CaseInsensitiveOption);
    return QString(testo).replace(PASSWORD, QStringLiteral("\\1********"));
}
