// The scrambling, and what a password must be for the station to read it back. It stores nothing.
//
// No character is raised to a blank, to a line break or to a pair of quotes, which a profile read would drop:
// the lowest that a box takes is the blank, and it is raised past all of them but the single quote, which can
// then stand in front and not at the end too.
#include "core/pwd_cifra.h"

#include "core/parole.h"
#include "platform/codifica.h"

namespace {

constexpr qsizetype MASSIMO_BYTE = 255;
constexpr qsizetype PASSO = 4; // how much higher a character is raised at each place

constexpr Parole VUOTA = {u"la password è vuota", u"the password is empty"};
constexpr Parole COMANDO = {u"il carattere %1 è un comando: nella casella della password non si scrive",
                            u"character %1 is a control character: the password box does not take it"};
constexpr Parole FUORI_TABELLA = {
    u"il carattere %1 (\"%2\") è fuori da Windows-1252: lumira.ini non lo conserva",
    u"character %1 (\"%2\") is not in Windows-1252: lumira.ini does not keep it"};
constexpr Parole SENZA_POSTO = {
    u"il carattere %1 (\"%2\") non può stare in una password: sceglierne un altro",
    u"character %1 (\"%2\") cannot stand in a password: choose another one"};
constexpr Parole POSTO_ALTO = {
    u"il carattere %1 (\"%2\") può stare al più al posto %3: metterlo prima o accorciare",
    u"character %1 (\"%2\") can stand at place %3 at most: put it further in front, or make the password "
    u"shorter"};

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
        return In_Parole(COMANDO).arg(posto);
    const QByteArray byte = Testo_InAnsi(QString(carattere));
    const QString numero = QString::number(posto);
    const QString mostrato = password.mid(posto - 1, carattere.isHighSurrogate() ? 2 : 1);
    if (Testo_DaAnsi(byte) != carattere)
        return In_Parole(FUORI_TABELLA).arg(numero, mostrato);
    const qsizetype ultimo = Ultimo_Posto(byte[0]);
    if (ultimo == 0)
        return In_Parole(SENZA_POSTO).arg(numero, mostrato);
    if (posto > ultimo)
        return In_Parole(POSTO_ALTO).arg(numero, mostrato, QString::number(ultimo));
    return {};
}

} // namespace

bool Pwd_Cifra(const QString &password, QString &cifrato, QString &errore)
{
    cifrato.clear();
    errore = password.isEmpty() ? In_Parole(VUOTA) : QString();
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
