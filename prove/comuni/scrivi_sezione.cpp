// scrivi_sezione DOCUMENT NAME: the section comes from the standard input. For the commands that are no C++.
#include "prove/comuni/sezione.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

int main(int quanti, char **argomenti)
{
    const QCoreApplication applicazione(quanti, argomenti);
    const QStringList parole = QCoreApplication::arguments();
    QFile ingresso;
    if (parole.size() != 3 || !ingresso.open(stdin, QIODevice::ReadOnly)) {
        (void)std::fputs("scrivi_sezione DOCUMENTO NOME < testo\n", stderr);
        return 2;
    }
    return Sezione_Scrivi(parole[1], parole[2].toUtf8(), ingresso.readAll()) ? 0 : 1;
}
