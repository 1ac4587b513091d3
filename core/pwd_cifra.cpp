// The scrambling, and what a password must be for the station to read it back. It stores nothing.
#include "core/pwd_cifra.h"

#include "platform/codifica.h"

namespace {

constexpr int MASSIMO_BYTE = 255;

/// From here up no character is raised to a blank or to a pair of quotes, which a profile read would drop
/// at the ends of the value.
constexpr int PRIMO_STAMPABILE = 32;

} // namespace

bool Pwd_Cifra(const QString &password, QString &cifrato, QString &errore)
{
    cifrato.clear();
    errore.clear();
    QByteArray byte = Testo_InAnsi(password);
    if (byte.isEmpty() || Testo_DaAnsi(byte) != password) {
        errore = QStringLiteral("la password è vuota o ha caratteri fuori da Windows-1252");
        return false;
    }
    for (qsizetype i = 0; i < byte.size(); ++i) {
        const qsizetype alzato = static_cast<quint8>(byte[i]) + 4 * (i + 1);
        if (static_cast<quint8>(byte[i]) < PRIMO_STAMPABILE || alzato > MASSIMO_BYTE) {
            errore = QStringLiteral("il carattere %1 (\"%2\") non può essere cifrato in quel posto")
                         .arg(i + 1)
                         .arg(password[i]);
            return false;
        }
        byte[i] = static_cast<char>(alzato);
    }
    cifrato = Testo_DaAnsi(byte);
    return true;
}
