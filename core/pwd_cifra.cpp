// The scrambling, and what a password must be for the station to read it back. It stores nothing.
//
// No character is raised to a blank, to a line break or to a pair of quotes, which a profile read would drop:
// the lowest that a box takes is the blank, and it is raised past all of them but the single quote, which can
// then stand in front and not at the end too.
#include "core/pwd_cifra.h"

#include "platform/codifica.h"

namespace {

constexpr qsizetype MASSIMO_BYTE = 255;
constexpr qsizetype PASSO = 4; // how much higher a character is raised at each place

/// The last place, from 1, where a character is not raised past the code page; 0 when there is none.
qsizetype Ultimo_Posto(char byte)
{
    return (MASSIMO_BYTE - static_cast<quint8>(byte)) / PASSO;
}

/// What stands in the way of the character at a place; empty when nothing does.
QString Impedimento(const QString &password, qsizetype posto)
{
    const QChar carattere = password[posto - 1];
    if (carattere.category() == QChar::Other_Control)
        return QStringLiteral("il carattere %1 è un comando: nella casella della password non si scrive")
            .arg(posto);
    const QByteArray byte = Testo_InAnsi(QString(carattere));
    const QString mostrato = QStringLiteral("il carattere %1 (\"%2\") ")
                                 .arg(posto)
                                 .arg(password.mid(posto - 1, carattere.isHighSurrogate() ? 2 : 1));
    if (Testo_DaAnsi(byte) != carattere)
        return mostrato + QStringLiteral("è fuori da Windows-1252: lumira.ini non lo conserva");
    const qsizetype ultimo = Ultimo_Posto(byte[0]);
    if (ultimo == 0)
        return mostrato + QStringLiteral("non può stare in una password: sceglierne un altro");
    if (posto > ultimo)
        return mostrato +
               QStringLiteral("può stare al più al posto %1: metterlo prima o accorciare").arg(ultimo);
    return {};
}

} // namespace

bool Pwd_Cifra(const QString &password, QString &cifrato, QString &errore)
{
    cifrato.clear();
    errore = password.isEmpty() ? QStringLiteral("la password è vuota") : QString();
    for (qsizetype posto = 1; posto <= password.size() && errore.isEmpty(); ++posto)
        errore = Impedimento(password, posto);
    if (!errore.isEmpty())
        return false;

    QByteArray byte = Testo_InAnsi(password);
    for (qsizetype i = 0; i < byte.size(); ++i)
        byte[i] = static_cast<char>(static_cast<quint8>(byte[i]) + PASSO * (i + 1));
    cifrato = Testo_DaAnsi(byte);
    return true;
}
