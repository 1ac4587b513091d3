// For the installer: prints the scrambled text of a password, to be stored in lumira.ini as Pwd or Pwd2.
// The password is read from standard input, so that it stays out of the shell's history.
#include "core/pwd_cifra.h"

#include <QFile>
#include <QTextStream>

int main()
{
    QTextStream ingresso(stdin);
    QTextStream uscita(stdout);
    QTextStream errori(stderr);
    errori << QStringLiteral("Password: ") << Qt::flush;
    QString cifrato;
    QString errore;
    if (!Pwd_Cifra(ingresso.readLine(), cifrato, errore)) {
        errori << QStringLiteral("Non si può usare: ") << errore << u'.' << Qt::endl;
        return 1;
    }
    uscita << cifrato << Qt::endl;
    return 0;
}
