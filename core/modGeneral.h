// State of the run, and access to the profile files: settings, screen texts, locale. Every other module
// builds on this one; it knows none of them.
#pragma once

#include "core/chiavi.h"
#include "core/testi_lingua.h"
#include "core/testi_mctc.h"
#include "platform/tipi.h"

#include <QString>
#include <QStringList>

// --- set at start-up (modMain), before the main window opens ---------------------------------------------

extern qint32 gScreenW, gScreenH; ///< screen size in twips: the base of ScalaX and ScalaY
extern Flag gDebug;               ///< GENERAL/Debug reads "1": the link form stays open with its traffic
extern QString gAppPath;          ///< the program's folder, with its backslash
extern QString gFileIni;          ///< lumira.ini
extern QString gDirImmagini;      ///< folder of the pictures
extern QString gDirModelli;     ///< folder of the acceptance template; the same folder, a variable of its own
extern QString gFileLingue;     ///< lingue.ini
extern QString gFileLingueMctc; ///< lingueMCTC.ini
extern QString gUser;           ///< customer code, as typed
extern QString gLogoFile;       ///< pictures of the customer variant; empty for any other customer
extern QString gSplashFile;
extern QString gLingua;         ///< language code in upper case: the section of the text files
extern Flag gIniFile;           ///< tests start from the worklist of acceptance files
extern Flag gEsce;              ///< read and edited only
extern Flag gControlloVisivo;   ///< the visual-inspection sections are checked
extern Flag gAllarmeAcustico;   ///< a negative result sounds
extern Flag gAlimentazione;     ///< read and edited only
extern Flag gAltezzaFaroAuto;   ///< the headlamp height is not entered by hand
extern Flag gModalita;          ///< local folders (True) or network folders (False)
extern QString gDirAcc;         ///< exchange folder: acceptance files in, result files out
extern QString gDirFar;         ///< built beside gDirAcc and read by nothing: results go into gDirAcc
extern QString gFileModelloAcc; ///< the acceptance template
extern QStringList gTabMctc;    ///< screen texts of lingueMCTC.ini, by TestoMctc

// --- set while the program runs ---------------------------------------------------------------------------

extern QStringList gTabLingua; ///< screen texts of lingue.ini, by TestoLingua; filled each time a test starts
extern QString gPwdCorrente;   ///< the service password, clear
extern qint16 gTipoProva;      ///< how the session at hand was started, a TipoProva
extern double gAltezzaFaro;    ///< headlamp height of the test at hand
extern QString gFileAcc;       ///< acceptance file of the test at hand; empty for a test without one
extern Flag gCaricamento; ///< True while the program itself sets a check box: the click it causes is ignored

/// Last ids of the two text tables.
inline constexpr qint16 ULTIMO_TESTO_MCTC = 159;
inline constexpr qint16 ULTIMO_TESTO_LINGUA = 67;

/// Reads a value of at most 499 characters.
/// @param[out] valore the text; empty when there is none.
/// @return True when a value of at least one character was found. A key that is present but empty gives
/// False exactly as a missing one.
Flag Leggi_Ini(const QString &file, const QString &sezione, const QString &chiave, QString &valore);

/// The same, for callers that take the value and not the result.
QString Valore_Ini(const QString &file, const QString &sezione, const QString &chiave);

/// Writes a value at once; an empty one leaves the key with an empty value.
/// @return True when the file now holds it; nearly all callers ignore it.
Flag Scrivi_Ini(const QString &file, const QString &sezione, const QString &chiave, const QString &valore);

/// The same for the keys of lumira.ini. @param file the station's own (gFileIni), or another one.
Flag Leggi_Ini(const QString &file, const ChiaveIni &chiave, QString &valore);
QString Valore_Ini(const QString &file, const ChiaveIni &chiave);
Flag Scrivi_Ini(const QString &file, const ChiaveIni &chiave, const QString &valore);

/// True when a value saved to the station's own configuration was lost, and not saved again since: the forms
/// that save go on as if it had been kept, and the menu says so behind them.
bool Scrittura_Persa();

/// True when a path exists under an attribute mask: 0 for a plain file, 16 for a folder. It has no guard
/// (Fs_Esiste has). @throws ErroreEsecuzione 52 for a bad path.
Flag File_Presente(const QString &percorso, qint16 attributo);

/// A text of the user's locale, e.g. type 14, the decimal separator; empty when there is none.
QString Locale_Info(qint32 tipo);

/// Reads a whole file and appends it to a text, which the caller passes empty.
/// @return the length in bytes; -1 for a failure or an empty file.
qint32 File_Leggi(const QString &percorso, QString &testo);

/// The id as the text files spell it: three digits with leading zeros.
QString Lingua_Id(qint16 id);

/// Fills a table of screen texts, ids 0 to the upper bound, in the language in force (gLingua). A missing
/// file or key gives an empty text.
void Carica_Lingua(const QString &file, qint16 ultimo, QStringList &tabella);

/// The text of an id, empty where the table was never filled. Texts that came behind the last of
/// lingueMCTC.ini are read when they are asked for: a file from before them, kept by a workshop, has none.
QString Testo_Mctc(TestoMctc id);
QString Testo_Lingua(TestoLingua id);

/// Derives gDirAcc, gDirFar and gFileModelloAcc from the keys of section MCTC and from gModalita. The
/// stored folders must end in a backslash: none is inserted.
void Imposta_Cartelle();
