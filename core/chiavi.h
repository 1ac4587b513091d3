// The keys of lumira.ini: a name for each, with its section, its spelling and what the program takes where
// the key is missing or empty. Here alone stand the spellings. The manual tells the same keys to the
// technician, and the delivered lumira.ini holds them all.
#pragma once

#include <QStringView>

/// A key of lumira.ini. The files of acceptance, of results and of texts have keys of their own.
struct ChiaveIni
{
    QStringView Sezione;
    QStringView Nome;
    /// What a missing key, or one without a value, stands for; empty for the empty text, null for a number
    /// that must be there.
    QStringView Predefinito;
};

inline constexpr QStringView SezioneGenerale = u"GENERAL";
inline constexpr QStringView SezioneOfficina = u"OFFICINA";
inline constexpr QStringView SezioneStrumento = u"LUMIRA";
inline constexpr QStringView SezioneImpostazioni = u"IMPOSTAZIONI";
inline constexpr QStringView SezioneVeicolo = u"VEICOLO";
inline constexpr QStringView SezioneAssistenza = u"DATIUSER";
inline constexpr QStringView SezioneMctc = u"MCTC";
inline constexpr QStringView SezioneParametri = u"PARAMETRI";
inline constexpr QStringView SezionePorta = u"COMM";
inline constexpr QStringView SezioneLivelli = u"LivelliMctc";
inline constexpr QStringView SezioneTaratura = u"CALIBRAZIONE_COM";

// clang-format off

#define CHIAVI_INI(chiave)                                                                     \
    /* 1: the link form stays open, with the traffic of the line */                            \
    chiave(ChiaveDebug,                 SezioneGenerale,     u"Debug",              u"0")      \
    /* customer code; its first word counts */                                                 \
    chiave(ChiaveUtente,                SezioneGenerale,     u"User",               u"")       \
    /* the workshop, head of the report */                                                     \
    chiave(ChiaveOfficinaDenominazione, SezioneOfficina,     u"Denominazione",      u"")       \
    chiave(ChiaveOfficinaIndirizzo,     SezioneOfficina,     u"Indirizzo",          u"")       \
    chiave(ChiaveOfficinaLocalita,      SezioneOfficina,     u"Localita",           u"")       \
    chiave(ChiaveOfficinaTelefonoFax,   SezioneOfficina,     u"TelFax",             u"")       \
    chiave(ChiaveOfficinaSitoWeb,       SezioneOfficina,     u"Web",                u"")       \
    /* identity of the instrument in use */                                                    \
    chiave(ChiaveStrumentoMarca,        SezioneStrumento,    u"Comm_Marca",         u"")       \
    chiave(ChiaveStrumentoModello,      SezioneStrumento,    u"Comm_Modello",       u"")       \
    chiave(ChiaveStrumentoOmologazione, SezioneStrumento,    u"Comm_NOmologazione", u"")       \
    chiave(ChiaveStrumentoSerie,        SezioneStrumento,    u"Comm_NSerie",        u"")       \
    /* dd/mm/yyyy: end of the periodic verification */                                         \
    chiave(ChiaveStrumentoScadenza,     SezioneStrumento,    u"Comm_ScadRevisione", u"")       \
    /* section of the text files: IT, FR, EN, ES, DE */                                        \
    chiave(ChiaveLingua,                SezioneImpostazioni, u"Lingua",             u"")       \
    /* service password, scrambled */                                                          \
    chiave(ChiavePassword,              SezioneImpostazioni, u"Pwd",                u"")       \
    /* the same, for a customer variant */                                                     \
    chiave(ChiavePassword2,             SezioneImpostazioni, u"Pwd2",               u"")       \
    /* 1: symmetric headlamps */                                                               \
    chiave(ChiaveSimmetrico,            SezioneImpostazioni, u"Simmetrico",         u"0")      \
    /* headlamp height, cm, last entered */                                                    \
    chiave(ChiaveAltezzaFaro,           SezioneImpostazioni, u"AltezzaFaro",        u"")       \
    /* headlamp inclination; emptied for every vehicle */                                      \
    chiave(ChiaveInclinazioneFaro,      SezioneImpostazioni, u"InclinazioneFaro",   u"")       \
    /* 1 once an instrument was chosen; read by nobody */                                      \
    chiave(ChiaveModelloSeriale,        SezioneImpostazioni, u"ModSeriale",         u"")       \
    /* ticked for S only; saved as 0 or 1; no effect on a test */                              \
    chiave(ChiaveAzzeraTelecamera,      SezioneImpostazioni, u"CamReset",           u"N")      \
    /* the last vehicle entered by hand */                                                     \
    chiave(ChiaveVeicoloMarca,          SezioneVeicolo,      u"Marca",              u"")       \
    chiave(ChiaveVeicoloModello,        SezioneVeicolo,      u"Modello",            u"")       \
    chiave(ChiaveVeicoloAllestimento,   SezioneVeicolo,      u"Allestimento",       u"")       \
    chiave(ChiaveVeicoloTarga,          SezioneVeicolo,      u"Targa",              u"")       \
    chiave(ChiaveVeicoloTelaio,         SezioneVeicolo,      u"Telaio",             u"")       \
    chiave(ChiaveVeicoloAnno,           SezioneVeicolo,      u"AnnoImm",            u"")       \
    chiave(ChiaveClienteNome,           SezioneVeicolo,      u"NomeCliente",        u"")       \
    chiave(ChiaveClienteIndirizzo,      SezioneVeicolo,      u"Indirizzo",          u"")       \
    chiave(ChiaveClienteCitta,          SezioneVeicolo,      u"Citta",              u"")       \
    chiave(ChiaveClienteTelefono,       SezioneVeicolo,      u"Telefono",           u"")       \
    /* who runs the test */                                                                    \
    chiave(ChiaveOperatore,             SezioneVeicolo,      u"Operatore",          u"")       \
    chiave(ChiaveVeicoloNote,           SezioneVeicolo,      u"Note",               u"")       \
    /* lines of the information form */                                                        \
    chiave(ChiaveAssistenzaProgramma,   SezioneAssistenza,   u"NomeProgrUser",      u"")       \
    chiave(ChiaveAssistenzaVersione,    SezioneAssistenza,   u"VerSwUser",          u"")       \
    chiave(ChiaveAssistenzaNome,        SezioneAssistenza,   u"NomeUser",           u"")       \
    chiave(ChiaveAssistenzaIndirizzo,   SezioneAssistenza,   u"IndirizzoUser",      u"")       \
    chiave(ChiaveAssistenzaTelefonoFax, SezioneAssistenza,   u"TelefonoFaxUser",    u"")       \
    chiave(ChiaveAssistenzaMail,        SezioneAssistenza,   u"MailUser",           u"")       \
    chiave(ChiaveAssistenzaSitoWeb,     SezioneAssistenza,   u"WebUser",            u"")       \
    /* 1: local folders, the acceptance file goes with the test; 0: network */                 \
    chiave(ChiaveModalita,              SezioneMctc,         u"Modalita",           u"0")      \
    /* folders, each with its backslash at the end */                                          \
    chiave(ChiaveReteDati,              SezioneMctc,         u"ReteDati",           u"")       \
    chiave(ChiaveReteRisultati,         SezioneMctc,         u"ReteRisultati",      u"")       \
    chiave(ChiaveLocaleDati,            SezioneMctc,         u"DirDati",            u"")       \
    chiave(ChiaveLocaleRisultati,       SezioneMctc,         u"DirRisultati",       u"")       \
    /* 1: a test starts from the worklist */                                                   \
    chiave(ChiaveIniFile,               SezioneMctc,         u"IniFile",            u"0")      \
    /* kept, no effect */                                                                      \
    chiave(ChiaveEsce,                  SezioneMctc,         u"Esce",               u"0")      \
    /* 1: the visual sections are checked too */                                               \
    chiave(ChiaveControlloVisivo,       SezioneMctc,         u"ControlloVisivo",    u"0")      \
    /* 1: an irregular result sounds */                                                        \
    chiave(ChiaveAllarmeAcustico,       SezioneMctc,         u"AllarmeAcustico",    u"0")      \
    /* kept, no effect */                                                                      \
    chiave(ChiaveAlimentazione,         SezioneMctc,         u"Alimentazione",      u"0")      \
    /* 1: the height is not entered by hand */                                                 \
    chiave(ChiaveAltezzaFaroAuto,       SezioneMctc,         u"AltezzaFaroAuto",    u"0")      \
    /* limits of the intensity, lux */                                                         \
    chiave(ChiaveLuxMaxAbb,             SezioneParametri,    u"LuxMaxAbb",          u"150000") \
    chiave(ChiaveLuxMaxAnab,            SezioneParametri,    u"LuxMaxAnab",         u"90000")  \
    chiave(ChiaveLuxMinAbb,             SezioneParametri,    u"LuxMinAbb",          u"20000")  \
    chiave(ChiaveLuxMinAnab,            SezioneParametri,    u"LuxMinAnab",         u"3750")   \
    /* deviations, shown only */                                                               \
    chiave(ChiaveDevVertAbb,            SezioneParametri,    u"DevVertAbb",         u"1.5")    \
    chiave(ChiaveDevVertAnab,           SezioneParametri,    u"DevVertAnab",        u"1.5")    \
    /* degrees; the default is a limit after the conversion */                                 \
    chiave(ChiaveDevOrizAbb,            SezioneParametri,    u"DevOrizAbb",         u"15")     \
    chiave(ChiaveDevOrizAnab,           SezioneParametri,    u"DevOrizAnab",        u"15")     \
    /* inclinations at 80 cm, shown only */                                                    \
    chiave(ChiaveIncVertMin80An,        SezioneParametri,    u"IncVertMin80An",     u"")       \
    chiave(ChiaveIncVertMin80Ab,        SezioneParametri,    u"IncVertMin80Ab",     u"")       \
    chiave(ChiaveIncVertMax80An,        SezioneParametri,    u"IncVertMax80An",     u"")       \
    chiave(ChiaveIncVertMax80Ab,        SezioneParametri,    u"IncVertMax80Ab",     u"")       \
    /* serial line: number of the COM port */                                                  \
    chiave(ChiavePortaNumero,           SezionePorta,        u"Num",                nullptr)   \
    chiave(ChiavePortaBaud,             SezionePorta,        u"Baud",               nullptr)   \
    chiave(ChiavePortaParita,           SezionePorta,        u"Parity",             u"")       \
    chiave(ChiavePortaBitDati,          SezionePorta,        u"DataBit",            nullptr)   \
    chiave(ChiavePortaBitStop,          SezionePorta,        u"StopBit",            nullptr)   \
    /* a level a class of fault; shown only */                                                 \
    chiave(ChiaveLivelloNomeFile,       SezioneLivelli,      u"NomeFile",           u"")       \
    chiave(ChiaveLivelloSezDuplicate,   SezioneLivelli,      u"SezDuplicate",       u"")       \
    chiave(ChiaveLivelloSezEstranee,    SezioneLivelli,      u"SezEstranee",        u"")       \
    chiave(ChiaveLivelloSezMancanti,    SezioneLivelli,      u"SezMancanti",        u"")       \
    chiave(ChiaveLivelloKeyDuplicate,   SezioneLivelli,      u"KeyDuplicate",       u"")       \
    chiave(ChiaveLivelloKeyEstranee,    SezioneLivelli,      u"KeyEstranee",        u"")       \
    chiave(ChiaveLivelloKeyMancanti,    SezioneLivelli,      u"KeyMancanti",        u"")       \
    chiave(ChiaveLivelloSpazi,          SezioneLivelli,      u"Spazi",              u"")       \
    chiave(ChiaveLivelloDati,           SezioneLivelli,      u"Dati",               u"")       \
    chiave(ChiaveLivelloData,           SezioneLivelli,      u"Data",               u"")       \
    chiave(ChiaveLivelloVersione,       SezioneLivelli,      u"Versione",           u"")       \
    /* copy of the instrument's calibration */                                                 \
    chiave(ChiaveTaraturaMaxManopola,   SezioneTaratura,     u"MaxManopola",        u"")       \
    chiave(ChiaveTaraturaMinManopola,   SezioneTaratura,     u"MinManopola",        u"")       \
    chiave(ChiaveTaraturaS1,            SezioneTaratura,     u"S1",                 u"")       \
    chiave(ChiaveTaraturaS2,            SezioneTaratura,     u"S2",                 u"")       \
    chiave(ChiaveTaraturaS3,            SezioneTaratura,     u"S3",                 u"")       \
    chiave(ChiaveTaraturaS4,            SezioneTaratura,     u"S4",                 u"")       \
    chiave(ChiaveTaraturaS5,            SezioneTaratura,     u"S5",                 u"")       \
    chiave(ChiaveTaraturaS6,            SezioneTaratura,     u"S6",                 u"")       \
    chiave(ChiaveTaraturaS7,            SezioneTaratura,     u"S7",                 u"")       \
    chiave(ChiaveTaraturaS8,            SezioneTaratura,     u"S8",                 u"")

// clang-format on

#define OGGETTO(nome, sezione, chiave, predefinito)                                                          \
    inline constexpr ChiaveIni nome = {sezione, chiave, predefinito};
CHIAVI_INI(OGGETTO)
#undef OGGETTO
