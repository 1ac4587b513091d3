// The profile calls of this system's body, on a list of requests: profilo_confronto FOLDER < requests >
// answers. The comparison of two systems' bodies stands in prova_profilo.py; nothing is judged here.
//
// A request is a line, its texts in hexadecimal bytes of the code page:
//   L FILE SECTION KEY          answered by "=" and the value that is read; "?" is the default
//   S FILE SECTION KEY VALUE    answered by 1 when it was written, else by 0
// "-" is an empty text.
#include "platform/codifica.h"
#include "platform/profilo.h"

#include <QByteArrayList>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

constexpr int MISURA = 500;

QString Testo(const QByteArray &esadecimale)
{
    // What is no hexadecimal digit counts for nothing.
    return Testo_DaAnsi(QByteArray::fromHex(esadecimale));
}

QByteArray Risposta(const QString &cartella, const QByteArrayList &richiesta)
{
    const QString file = cartella + QString::fromLatin1(richiesta[1]);
    const QString sezione = Testo(richiesta[2]);
    const QString chiave = Testo(richiesta[3]);
    if (richiesta[0] == "S")
        return Profilo_Scrivi(sezione, chiave, Testo(richiesta[4]), file) ? "1" : "0";
    return '=' + Testo_InAnsi(Profilo_Leggi(sezione, chiave, QStringLiteral("?"), MISURA, file)).toHex();
}

} // namespace

int main(int quanti, char **argomenti)
{
    if (quanti != 2)
        return 2;
    const QString cartella = QString::fromLocal8Bit(argomenti[1]) + u'\\';
    std::string riga;
    while (std::getline(std::cin, riga)) {
        const QByteArrayList richiesta = QByteArray::fromStdString(riga).trimmed().split(' ');
        std::printf("%s\n", Risposta(cartella, richiesta).constData());
    }
    return 0;
}
