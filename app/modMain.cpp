// The entry point: start-up in its order, then the form loop until the main window is unloaded.
#include "app/avvio.h"
#include "app/frmMain.h"
#include "core/modGeneral.h"
#include "dialogs/frmMsg.h"
#include "platform/errore_esecuzione.h"
#include "platform/istanza.h"
#include "platform/percorsi.h"
#include "platform/profilo_scrivibile.h"
#include "toolkit/applicazione.h"
#include "toolkit/schermo.h"

namespace {

constexpr qint16 TESTO_CONFIGURAZIONE_BLOCCATA = 160;

/// The text is fixed and in English: no text file may be there to provide another.
void Esige_File(const QString &file)
{
    if (File_Presente(file, 0))
        return;
    Mostra_MsgTempo(QStringLiteral("Setup File not Found\r\n (") + file + u')');
    Programma_Termina();
}

/// Whoever saves a value is not told when it is lost: the forms go on as if it had been written. So it is
/// said here, once, and the station works on. An older text file has no words for it.
void Avverte_SeNonScrivibile(const QString &file)
{
    if (Profilo_Scrivibile(file))
        return;
    const QString testo = Testo_Mctc(TESTO_CONFIGURAZIONE_BLOCCATA);
    Mostra_MsgConferma((testo.isEmpty() ? QStringLiteral("Setup File not Writable") : testo) +
                       QStringLiteral("\r\n (") + file + u')');
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
    Esige_File(gFileIni);
    // lingueMCTC.ini is not asked for: without it every text of the screen is empty and the program goes on.
    Esige_File(gFileLingue);
    Avvio_Impostazioni();
    Predefinito<frmMain>().Mostra();
    Avverte_SeNonScrivibile(gFileIni);
    return Predefinito<frmMain>().Caricato(); // the way out may have been taken under the message
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
