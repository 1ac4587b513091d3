// lumira-password: for the technician, puts a new service password into the lumira.ini of a station. The
// password is never among the arguments, which the shell keeps and others can see.
#include "core/versione.h"
#include "strumenti/password_ini.h"
#include "strumenti/terminale.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

const QString AIUTO = QStringLiteral(
    "Uso: lumira-password --scrivi FILE\n"
    "Mette una nuova password di servizio nel lumira.ini di una stazione, nelle chiavi Pwd e Pwd2.\n"
    "La password si scrive due volte e non si vede; da un'altra uscita se ne leggono due righe in UTF-8.\n"
    "Accanto a FILE resta una copia di com'era: FILE.AAAAMMGG-HHMMSS.\n\n"
    "  --scrivi FILE   il lumira.ini della stazione\n"
    "  --help          mostra questo aiuto\n"
    "  --version       mostra la versione\n\n"
    "Lettere senza accento e cifre: fino a 33 caratteri. Una lettera accentata minuscola sta fra i primi:\n"
    "à fino al settimo posto, è ed é al quinto, ì al quarto, ò al terzo, ù al primo; le maiuscole più in "
    "là.\n\n"
    "Finisce con 0: scritta; 1: password rifiutata; 2: uso errato; 3: FILE rifiutato.\n");

int Finisci(EsitoPassword esito, const QString &errore)
{
    Terminale_Scrivi(Canale::Errori, QStringLiteral("lumira-password: ") + errore + u'\n');
    return static_cast<int>(esito);
}

int Scrivi(const QString &file)
{
    QString copia, errore;
    if (!Ini_Adatto(file, errore))
        return Finisci(EsitoPassword::FileRifiutato, errore);
    const std::optional<QString> password = Terminale_Chiedi(QStringLiteral("Nuova password: "));
    const std::optional<QString> ancora =
        password ? Terminale_Chiedi(QStringLiteral("Ancora la stessa: ")) : std::nullopt;
    if (!ancora)
        return Finisci(EsitoPassword::PasswordRifiutata, QStringLiteral("la password va scritta due volte"));
    if (*password != *ancora)
        return Finisci(EsitoPassword::PasswordRifiutata, QStringLiteral("le due password non sono uguali"));
    const EsitoPassword esito = Password_Scrivi(file, *password, copia, errore);
    if (esito != EsitoPassword::Scritta)
        return Finisci(esito, errore);
    Terminale_Scrivi(Canale::Uscita,
                     QStringLiteral("Password scritta in %1: vale dal prossimo avvio della stazione.\n"
                                    "Com'era prima: %2\n")
                         .arg(file, copia));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication programma(argc, argv);
    const QStringList argomenti = QCoreApplication::arguments().mid(1);
    if (argomenti == QStringList{QStringLiteral("--help")}) {
        Terminale_Scrivi(Canale::Uscita, AIUTO);
        return 0;
    }
    if (argomenti == QStringList{QStringLiteral("--version")}) {
        Terminale_Scrivi(Canale::Uscita, QStringLiteral("lumira-password ") + Versione_Programma() + u'\n');
        return 0;
    }
    if (argomenti.size() != 2 || argomenti[0] != u"--scrivi")
        return Finisci(
            EsitoPassword::UsoErrato,
            QStringLiteral("serve --scrivi e il lumira.ini della stazione (lumira-password --help)"));
    return Scrivi(argomenti[1]);
}
