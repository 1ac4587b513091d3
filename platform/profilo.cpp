// What may be written to a profile, on every system. It opens no file.
#include "platform/profilo.h"

#include "platform/una_riga.h"

#include <algorithm>

namespace {

/// To the calls a text ends at its first NUL: what stands behind it is not written and does no harm.
QString Argomento(const QString &testo)
{
    return testo.left(testo.indexOf(QChar(0)));
}

/// What the line of a key begins with when it is read: blanks and control characters in front do not count.
QString Senza_Margine(const QString &testo)
{
    const auto *inizio = std::find_if(testo.cbegin(), testo.cend(), [](QChar c) { return c > u' '; });
    return testo.mid(inizio - testo.cbegin());
}

} // namespace

bool Profilo_Ammette(const QString &sezione, const QString &chiave, const QString &valore)
{
    const auto unaRiga = [](const QString &testo) { return Una_Riga(testo) == Argomento(testo); };
    if (!unaRiga(sezione) || !unaRiga(chiave) || !unaRiga(valore))
        return false;
    const QString nome = Senza_Margine(Argomento(chiave));
    return !nome.isEmpty() && !nome.startsWith(u'[') && !nome.startsWith(u';') && !nome.contains(u'=') &&
           !Argomento(sezione).contains(u']');
}
