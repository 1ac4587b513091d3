// The entry point: start-up in its order, then the form loop until the main window is unloaded.
#include "app/avvio.h"
#include "app/frmMain.h"
#include "app/manuale.h"
#include "app/stato_stazione.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "platform/errore_esecuzione.h"
#include "platform/istanza.h"
#include "platform/percorsi.h"
#include "platform/profilo_scrivibile.h"
#include "toolkit/aiuto.h"
#include "toolkit/applicazione.h"
#include "toolkit/schermo.h"

namespace {

/// The text is fixed and in English: no text file may be there to provide another.
void Termina_Con(const QString &testo, const QString &file)
{
    Mostra_MsgTempo(testo + QStringLiteral("\r\n (") + file + u')');
    Programma_Termina();
}

/// A path that is too long for the system is too long to be read: how it begins.
QString Inizio_Di(const QString &percorso)
{
    return percorso.left(40) + QStringLiteral("...");
}

/// Asked before the file itself: the question for a file with too long a path is an error by itself.
void Esige_Lunghezza(const QString &file)
{
    if (!Percorso_Ammesso(file))
        Termina_Con(QStringLiteral("Setup File Path too Long"), Inizio_Di(file));
}

void Esige_File(const QString &file)
{
    Esige_Lunghezza(file);
    if (!File_Presente(file, 0))
        Termina_Con(QStringLiteral("Setup File not Found"), file);
}

/// The folder is a value of the setup, which has to open for it to be mended: the station works on.
void Avverte_SeTroppoLunga(const QString &cartella)
{
    if (!Fs_CartellaAmmessa(cartella))
        Mostra_MsgConferma(QStringLiteral("Folder Path too Long\r\n (") + Inizio_Di(cartella) + u')');
}

/// Whoever saves a value is not told when it is lost: the forms go on as if it had been written. So it is
/// said here, once, and the station works on.
void Avverte_SeNonScrivibile(const QString &file)
{
    if (Profilo_Scrivibile(file))
        return;
    Mostra_MsgConferma(Testo_SenzaScrittura() + QStringLiteral("\r\n (") + file + u')');
}

/// @return true when the main window is open.
bool Avvia()
{
    gScreenW = Schermo_Larghezza();
    gScreenH = Schermo_Altezza();
    gDebug = Falso;
    if (Istanza_Precedente())
        return false;
    Avvio_Percorsi(Cartella_Programma());
    Aiuto_Imposta(Manuale_Indirizzo);
    Esige_File(gFileIni);
    // lingueMCTC.ini is not asked for: without it every text of the screen is empty and the program goes on.
    Esige_File(gFileLingue);
    Avvio_Impostazioni();
    Esige_Lunghezza(gFileModelloAcc); // of the files that the calls open it has the longest path
    Predefinito<frmMain>().Mostra();
    Avverte_SeTroppoLunga(gDirAcc);
    Avverte_SeNonScrivibile(gFileIni);
    return Predefinito<frmMain>().Caricato(); // the way out may have been taken under a message
}

} // namespace

int main(int argc, char *argv[])
{
    Applicazione applicazione(argc, argv);
    try {
        if (!Avvia())
            return 0;
    } catch (const ErroreEsecuzione &errore) {
        Errore_Fatale(errore);
    }
    return Applicazione::exec();
}
