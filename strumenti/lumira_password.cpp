// lumira-password: for the technician, puts a new service password into the lumira.ini of a station. The
// password is never among the arguments, which the shell keeps and others can see.
#include "strumenti/password_ini.h"
#include "strumenti/riga_comando.h"
#include "strumenti/terminale.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

// clang-format off
constexpr Parole AIUTO = {
    u"Uso: lumira-password [opzioni] --scrivi FILE\n"
    "Mette una nuova password di servizio nel lumira.ini di una stazione, nelle chiavi Pwd e Pwd2.\n"
    "La password si scrive due volte e non si vede; da un'altra uscita se ne leggono due righe in UTF-8.\n"
    "Accanto a FILE resta una copia di com'era: FILE.AAAAMMGG-HHMMSS.\n\n"
    "  --scrivi FILE      il lumira.ini della stazione\n"
    "  --lingua IT|EN     la lingua di questo programma\n"
    "  --help, --version  questo aiuto, la versione\n\n"
    "Lettere senza accento e cifre: fino a 33 caratteri. Una lettera accentata minuscola sta fra i primi:\n"
    "à fino al settimo posto, è ed é al quinto, ì al quarto, ò al terzo, ù al primo; le maiuscole più in\n"
    "là.\n\n"
    "Finisce con 0: scritta; 1: password rifiutata; 2: uso errato; 3: FILE rifiutato.\n",

    u"Usage: lumira-password [options] --scrivi FILE\n"
    "Puts a new service password into the lumira.ini of a station, under the keys Pwd and Pwd2.\n"
    "The password is typed twice and is not shown; from a pipe it is two lines in UTF-8.\n"
    "Beside FILE a copy of what it was stays: FILE.YYYYMMDD-HHMMSS.\n\n"
    "  --scrivi FILE      the lumira.ini of the station\n"
    "  --lingua IT|EN     the language of this program\n"
    "  --help, --version  this help, the version\n\n"
    "Letters without accent and digits: up to 33 characters. A small letter with an accent stands near\n"
    "the start: à up to the seventh place, è and é the fifth, ì the fourth, ò the third, ù the first;\n"
    "capitals go further.\n\n"
    "Ends with 0: written; 1: password refused; 2: wrong use; 3: FILE refused.\n",
};
// clang-format on

constexpr Parole SERVE_FILE = {
    u"serve --scrivi e il lumira.ini della stazione (lumira-password --help)",
    u"--scrivi and the lumira.ini of the station are needed (lumira-password --help)"};
constexpr Parole NUOVA = {u"Nuova password: ", u"New password: "};
constexpr Parole ANCORA = {u"Ancora la stessa: ", u"The same again: "};
constexpr Parole UNA_VOLTA = {u"la password va scritta due volte", u"the password has to be typed twice"};
constexpr Parole DIVERSE = {u"le due password non sono uguali", u"the two passwords are not the same"};
constexpr Parole SCRITTA = {u"Password scritta in %1: vale dal prossimo avvio della stazione.\n"
                            "Com'era prima: %2\n",
                            u"Password written in %1: it counts from the next start of the station.\n"
                            "What was there before: %2\n"};

const QString SCRIVI = QStringLiteral("scrivi");

int Finisci(const RigaComando &righe, EsitoPassword esito, const QString &errore)
{
    righe.Rifiuta(errore);
    return static_cast<int>(esito);
}

int Scrivi(const RigaComando &righe, const QString &file)
{
    QString copia, errore;
    if (!Ini_Adatto(file, errore))
        return Finisci(righe, EsitoPassword::FileRifiutato, errore);
    const std::optional<QString> password = Terminale_Chiedi(In_Parole(NUOVA));
    const std::optional<QString> ancora = password ? Terminale_Chiedi(In_Parole(ANCORA)) : std::nullopt;
    if (!ancora)
        return Finisci(righe, EsitoPassword::PasswordRifiutata, In_Parole(UNA_VOLTA));
    if (*password != *ancora)
        return Finisci(righe, EsitoPassword::PasswordRifiutata, In_Parole(DIVERSE));
    const EsitoPassword esito = Password_Scrivi(file, *password, copia, errore);
    if (esito != EsitoPassword::Scritta)
        return Finisci(righe, esito, errore);
    Terminale_Scrivi(Canale::Uscita, In_Parole(SCRITTA).arg(file, copia));
    return static_cast<int>(EsitoPassword::Scritta);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication programma(argc, argv);
    RigaComando righe(QStringLiteral("lumira-password"), AIUTO,
                      {
                          {SCRIVI, QString(), QStringLiteral("FILE")}
    },
                      RigaComando::Luoghi::Nessuno);
    // A wrong use has the same status in every tool.
    if (const std::optional<FineStrumento> fine = righe.Leggi(QCoreApplication::arguments()))
        return static_cast<int>(*fine);
    if (!righe.Ha(SCRIVI))
        return Finisci(righe, EsitoPassword::UsoErrato, In_Parole(SERVE_FILE));
    return Scrivi(righe, righe.Valore(SCRIVI));
}
