// The tables of the exchange, a row a field. Constants only: no file and no code that walks them.
#include "mctc/formato_acc.h"

#include "core/sezioni_acc.h"

namespace {

using enum TipoControllo;

constexpr QStringView PRENOTAZIONE = SEZIONE_PRENOTAZIONE;
constexpr QStringView LIBRETTO = SEZIONE_LIBRETTO;
constexpr QStringView PROTOCOLLO = u"IdentificazioneProtocollo";

constexpr QStringView FRENATURA = u"Vis_DispositiviFrenatura";
constexpr QStringView STERZO = u"Vis_Sterzo";
constexpr QStringView VISIBILITA = u"Vis_Visibilita";
constexpr QStringView IMPIANTO = u"Vis_ImpiantoElettrico";
constexpr QStringView ASSI = u"Vis_AssiRuotePneumaticiSospensioni";
constexpr QStringView TELAIO = u"Vis_TelaioElementiFissatiTelaio";
constexpr QStringView ALTRI = u"Vis_AltriEquipaggiamenti";
constexpr QStringView EFFETTI = u"Vis_EffettiNocivi";
constexpr QStringView IDENTIFICAZIONE = u"Vis_IdentificazioneVeicolo";
constexpr QStringView ESITO = u"EsitoComplessivo";

constexpr QStringView REVISIONI[] = {u"ANNUALI", u"PERIODICHE", u"STRAORDINARIE"};
constexpr QStringView SESSI[] = {u"M", u"F"};
constexpr QStringView CLASSI[] = {u"LEGGERO", u"PESANTE"};
// Also for a class that is missing or unknown.
constexpr QStringView DESCRIZIONI[] = {u"AUTOVETTURA",   u"AUTOCARRO",         u"AUTOCARAVAN",
                                       u"AUTOBUS",       u"PROMISCUO",         u"RIMORCHIO",
                                       u"SEMIRIMORCHIO", u"USO SPECIALE",      u"TRASPORTO SPECIFICO",
                                       u"MOTOCICLO",     u"TRICICLO",          u"QUADRICICLO",
                                       u"CICLOMOTORE",   u"TRATTORE STRADALE", u"TRATTORE PER SEMIRIMORCHIO"};
constexpr QStringView PESANTI[] = {
    u"AUTOCARRO",           u"RIMORCHIO", u"SEMIRIMORCHIO",     u"USO SPECIALE",
    u"TRASPORTO SPECIFICO", u"AUTOBUS",   u"TRATTORE STRADALE", u"TRATTORE PER SEMIRIMORCHIO"};
// "NESSUNA" is how a file says that there is no second fuel.
constexpr QStringView ALIMENTAZIONI[] = {u"BENZINA<86",
                                         u"BENZINA NO CAT",
                                         u"BENZINA CAT",
                                         u"DIESEL ASPIRATO CON CORRETTORE",
                                         u"DIESEL ASPIRATO SENZA CORRETTORE",
                                         u"DIESEL TURBO COMPRESSO",
                                         u"METANO",
                                         u"GPL",
                                         u"ELETTRICO",
                                         u"MISCELA",
                                         u"NESSUNA"};
constexpr QStringView COMANDI_FRENO[] = {u"PEDALE", u"MANO"};
constexpr QStringView SI_NO[] = {u"S", u"N"};
// The two-letter codes are the ministry's own and mean nothing here.
constexpr QStringView FRENI_SOCCORSO[] = {u"NON NOTO",      u"XX",     u"TT", u"LL", u"HH", u"HT",
                                          u"STAZIONAMENTO", u"NESSUNO"};
// Version and date together are the identity of the format.
constexpr QStringView VERSIONI[] = {u"100"};
constexpr QStringView DATE_FORMATO[] = {u"02111999"};
// Regular, irregular, and a third letter that passes without a meaning of its own.
constexpr QStringView GIUDIZI[] = {u"I", u"R", u"A"};
constexpr QStringView ESITI[] = {u"SOSPESO", u"REGOLARE", u"RIPETERE", u"NEGATIVO", u"IN RIPARAZIONE"};

// clang-format off

// The number in a key is its point in the ministry's inspection list. Two keys are asked for with a blank at
// their end. OrientVertAbbDx_41221 is left out on purpose: the exchange carries it and nobody judges it.
constexpr RegolaVisivo VISIVI[] = {
    {FRENATURA,       u"StatoMeccanicoFrenoServizio_111",              Testo,   0, GIUDIZI},
    {FRENATURA,       u"EfficienzaFrenoServizio_112",                  Testo,   0, GIUDIZI},
    {FRENATURA,       u"EquilibraturaFrenoServizio_113",               Testo,   0, GIUDIZI},
    {FRENATURA,       u"StatoMeccanicoFrenoStaz_121",                  Testo,   0, GIUDIZI},
    {FRENATURA,       u"EfficienzaFrenoStaz_122",                      Testo,   0, GIUDIZI},
    {FRENATURA,       u"StatoMeccanicoFrenoRimSemirimorchio_141",      Testo,   0, GIUDIZI},
    {FRENATURA,       u"EfficienzaFrenoRimSemirimorchio_142",          Testo,   0, GIUDIZI},
    {STERZO,          u"StatoMeccanicoSterzo_21",                      Testo,   0, GIUDIZI},
    {STERZO,          u"GiocoSterzo_22",                               Testo,   0, GIUDIZI},
    {STERZO,          u"FissaggioSistemaSterzo_23",                    Testo,   0, GIUDIZI},
    {STERZO,          u"CuscinettiRuota_24",                           Testo,   0, GIUDIZI},
    {VISIBILITA,      u"CampoVisibilita_31",                           Testo,   0, GIUDIZI},
    {VISIBILITA,      u"Vetri_32",                                     Testo,   0, GIUDIZI},
    {VISIBILITA,      u"Retrovisori_33",                               Testo,   0, GIUDIZI},
    {VISIBILITA,      u"Tergicristallo_34",                            Testo,   0, GIUDIZI},
    {VISIBILITA,      u"Lavavetro_35",                                 Testo,   0, GIUDIZI},
    {IMPIANTO,        u"StatoFunzionamentoProiettoriAbbAnab_411",      Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientVertAnabDx_41211",                       Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientVertAnabSx_41212",                       Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientOrizzAnabDx_41213",                      Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientOrizzAnabSx_41214",                      Testo,   0, GIUDIZI},
    {IMPIANTO,        u"IllumLuxAnabDx_41215",                         Testo,   0, GIUDIZI},
    {IMPIANTO,        u"IllumLuxAnabSx_41216",                         Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientVertAbbSx_41222 ",                       Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientOrizzAbbDx_41223",                       Testo,   0, GIUDIZI},
    {IMPIANTO,        u"OrientOrizzAbbSx_41224",                       Testo,   0, GIUDIZI},
    {IMPIANTO,        u"IllumLuxAbbDx_41225",                          Testo,   0, GIUDIZI},
    {IMPIANTO,        u"IllumLuxAbbSx_41226",                          Testo,   0, GIUDIZI},
    {IMPIANTO,        u"CommutazioneAbbAnab_413",                      Testo,   0, GIUDIZI},
    {IMPIANTO,        u"LuciPosizione_421",                            Testo,   0, GIUDIZI},
    {IMPIANTO,        u"LuciArresto_422",                              Testo,   0, GIUDIZI},
    {IMPIANTO,        u"IndicatoriLuminosiDirezione_423",              Testo,   0, GIUDIZI},
    {IMPIANTO,        u"ProiettoriRetromarcia_424",                    Testo,   0, GIUDIZI},
    {IMPIANTO,        u"ProiettoriFendinebbia_425",                    Testo,   0, GIUDIZI},
    {IMPIANTO,        u"DispositivoIlluminazioneTarga_426",            Testo,   0, GIUDIZI},
    {IMPIANTO,        u"Catarifrangenti_427",                          Testo,   0, GIUDIZI},
    {IMPIANTO,        u"LuciSegnalazionePericolo_428",                 Testo,   0, GIUDIZI},
    {ASSI,            u"Assi_51",                                      Testo,   0, GIUDIZI},
    {ASSI,            u"RuotePneumatici_52",                           Testo,   0, GIUDIZI},
    {ASSI,            u"Sospensioni_53",                               Testo,   0, GIUDIZI},
    {TELAIO,          u"StatoGeneraleTelaioElementiFissatiTelaio_611", Testo,   0, GIUDIZI},
    {TELAIO,          u"TubiScaricoSilenziatori_612",                  Testo,   0, GIUDIZI},
    {TELAIO,          u"SerbatoiTubiCarburante_613",                   Testo,   0, GIUDIZI},
    {TELAIO,          u"SupportoRuotaScorta_614",                      Testo,   0, GIUDIZI},
    {TELAIO,          u"SicurezzaDispositivoAccoppiamento_615",        Testo,   0, GIUDIZI},
    {TELAIO,          u"StatoStrutturaleCarrozzeria_621",              Testo,   0, GIUDIZI},
    {TELAIO,          u"PorteSerrature_622",                           Testo,   0, GIUDIZI},
    {ALTRI,           u"FissaggioSedileConducente_71",                 Testo,   0, GIUDIZI},
    {ALTRI,           u"FissaggioBatteria_72 ",                        Testo,   0, GIUDIZI},
    {ALTRI,           u"AvvisatoreAcustico_73",                        Testo,   0, GIUDIZI},
    {ALTRI,           u"DispositivoPlurifunzionaleSoccorso_74",        Testo,   0, GIUDIZI},
    {ALTRI,           u"TriangoloSegnalazioneVeicoloFermo_75",         Testo,   0, GIUDIZI},
    {ALTRI,           u"SicurezzaMontaggioCintureSicurezza_761",       Testo,   0, GIUDIZI},
    {ALTRI,           u"StatoCintureSicurezza_762",                    Testo,   0, GIUDIZI},
    {ALTRI,           u"FunzionamentoCintureSicurezza_763",            Testo,   0, GIUDIZI},
    {EFFETTI,         u"Rumori_81",                                    Testo,   0, GIUDIZI},
    {EFFETTI,         u"GasScarico_82",                                Testo,   0, GIUDIZI},
    {EFFETTI,         u"EliminazioneDisturbiRadio_83",                 Testo,   0, GIUDIZI},
    {IDENTIFICAZIONE, u"Targa_91",                                     Testo,   0, GIUDIZI},
    {IDENTIFICAZIONE, u"Telaio_92",                                    Testo,   0, GIUDIZI},
    {IDENTIFICAZIONE, u"DataControlli",                                Data,    0, {}},
    {IDENTIFICAZIONE, u"OraInizioControlli",                           Ora,     0, {}},
    {IDENTIFICAZIONE, u"OraFineControlli",                             Ora,     0, {}},
    {IDENTIFICAZIONE, u"Operatore",                                    Testo,  50, {}},
    {ESITO,           u"EsitoRevisione",                               Testo,   0, ESITI},
    {ESITO,           u"DataEffettiva",                                Data,    0, {}},
    {ESITO,           u"Note",                                         Testo, 320, {}},
};

// clang-format on

} // namespace

// clang-format off

/// In the order of RigaAcc.
constinit const std::array<RegolaCampo, RIGHE_ACC> REGOLE_ACC = {{
    {PRENOTAZIONE, u"DataAccettazione",     MctcDataAccettazione,       CampoTesto,      ValoreData,   Vero,    0, Data,     {}},
    {PRENOTAZIONE, u"DataPrenotazione",     MctcDataPrenotazione,       CampoTesto,      ValoreData,   Vero,    0, Data,     {}},
    {PRENOTAZIONE, u"Ora",                  MctcOraPrenotazione,        CampoTesto,      ValoreOra,    Vero,    0, Ora,      {}},
    {PRENOTAZIONE, u"Operatore",            MctcOperatoreAccettazione,  CampoTesto,      ValoreTesto,  Vero,   50, Testo,    {}},
    {PRENOTAZIONE, u"Linea",                MctcLinea,                  CampoTesto,      ValoreNumero, Vero,    2, Cifre,    {}},
    {PRENOTAZIONE, u"TipoRevisione",        MctcTipo,                   CampoTesto,      ValoreTesto,  Vero,    0, Testo,    REVISIONI},
    {PRENOTAZIONE, u"CognomeDenominazione", MctcCognomeDenominazione,   CampoTesto,      ValoreTesto,  Vero,   25, Testo,    {}},
    {PRENOTAZIONE, u"Nome",                 MctcNomeCliente,            CampoTesto,      ValoreTesto,  Falso,  20, Testo,    {}},
    {PRENOTAZIONE, u"DataNascita",          MctcNascitaSesso,           CampoTesto,      ValoreData,   Falso,   0, Data,     {}},
    {PRENOTAZIONE, u"Sesso",                MctcNessuno,                CampoTesto,      ValoreTesto,  Falso,   0, Testo,    SESSI},
    {PRENOTAZIONE, u"LuogoNascita",         MctcNascitaLuogo,           CampoTesto,      ValoreTesto,  Falso,  25, Testo,    {}},
    {PRENOTAZIONE, u"ProvinciaNascita",     MctcNessuno,                CampoTesto,      ValoreTesto,  Falso,   2, Esatto,   {}},
    {PRENOTAZIONE, u"Indirizzo",            MctcIndirizzo,              CampoTesto,      ValoreTesto,  Vero,   30, Testo,    {}},
    {PRENOTAZIONE, u"CAP",                  MctcNessuno,                CampoTesto,      ValoreTesto,  Vero,    5, Esatto,   {}},
    {PRENOTAZIONE, u"Citta",                MctcCitta,                  CampoTesto,      ValoreTesto,  Vero,   25, Testo,    {}},
    {PRENOTAZIONE, u"Provincia",            MctcNessuno,                CampoTesto,      ValoreTesto,  Vero,    2, Esatto,   {}},
    {PRENOTAZIONE, u"Telefono",             MctcTelefonoFax,            CampoTesto,      ValoreTesto,  Falso,  17, Testo,    {}},
    {PRENOTAZIONE, u"Note",                 MctcNote,                   CampoTesto,      ValoreTesto,  Falso, 160, Testo,    {}},
    {LIBRETTO,     u"TipoVeicolo",          MctcTipoVeicolo,            CampoTesto,      ValoreTesto,  Vero,    0, Testo,    CLASSI},
    {LIBRETTO,     u"DescrizioneVeicolo",   MctcDescrizioneVeicolo,     CampoTesto,      ValoreTesto,  Vero,    0, Testo,    DESCRIZIONI},
    {LIBRETTO,     u"Telaio",               MctcTelaio,                 CampoTesto,      ValoreNumero, Vero,   20, Testo,    {}},
    {LIBRETTO,     u"Fabbrica",             MctcFabbricaMarca,          CampoTesto,      ValoreTesto,  Vero,   50, Testo,    {}},
    {LIBRETTO,     u"Tipo",                 MctcTipoLibretto,           CampoTesto,      ValoreTesto,  Vero,   50, Testo,    {}},
    {LIBRETTO,     u"TipoMotore",           MctcMotoreAllestimento,     CampoTesto,      ValoreTesto,  Falso,  50, Testo,    {}},
    {LIBRETTO,     u"NumOmologazione",      MctcOmologazione,           CampoTesto,      ValoreTesto,  Vero,   50, Testo,    {}},
    {LIBRETTO,     u"AnnoPrimaImm",         MctcAnnoImmatricolazione,   CampoTesto,      ValoreNumero, Vero,    4, Anno,     {}},
    {LIBRETTO,     u"DataRilascio",         MctcDataRilascio,           CampoTesto,      ValoreData,   Vero,    0, Data,     {}},
    {LIBRETTO,     u"DataUltimaRev",        MctcUltimaRevisione,        CampoTesto,      ValoreData,   Falso,   0, Data,     {}},
    {LIBRETTO,     u"Alimentazione_1",      MctcAlimentazione1,         CampoTesto,      ValoreTesto,  Vero,    0, Testo,    ALIMENTAZIONI},
    {LIBRETTO,     u"Alimentazione_2",      MctcAlimentazione2,         CampoTesto,      ValoreTesto,  Vero,    0, Testo,    ALIMENTAZIONI},
    {LIBRETTO,     u"Km",                   MctcChilometri,             CampoTesto,      ValoreNumero, Falso,   6, Cifre,    {}},
    {LIBRETTO,     u"Tara",                 MctcTara,                   CampoTesto,      ValoreNumero, Falso,   5, Cifre,    {}},
    {LIBRETTO,     u"MassaComplessiva",     MctcMassaComplessiva,       CampoTesto,      ValoreNumero, Falso,   5, Cifre,    {}},
    {LIBRETTO,     u"MassaRimorchiabile",   MctcMassaRimorchiabile,     CampoTesto,      ValoreNumero, Falso,   5, Cifre,    {}},
    {LIBRETTO,     u"Cilindrata",           MctcCilindrata,             CampoTesto,      ValoreNumero, Falso,   5, Cifre,    {}},
    {LIBRETTO,     u"Decibel",              MctcRumorosita,             CampoTesto,      ValoreNumero, Falso,   3, Cifre,    {}},
    {LIBRETTO,     u"PotMaxkW",             MctcPotenzaMassima,         CampoTesto,      ValoreNumero, Falso,   6, Decimale, {}},
    {LIBRETTO,     u"GiriMotoredB",         MctcGiriRumorosita,         CampoTesto,      ValoreNumero, Falso,   4, Cifre,    {}},
    {LIBRETTO,     u"PotFiscaleCV",         MctcPotenzaFiscale,         CampoTesto,      ValoreNumero, Falso,   3, Cifre,    {}},
    {LIBRETTO,     u"NumTotalePosti",       MctcPostiTotali,            CampoTesto,      ValoreNumero, Vero,    3, Cifre,    {}},
    {LIBRETTO,     u"FrenoStazionamento",   MctcFrenoStazionamento,     CampoTesto,      ValoreTesto,  Vero,    0, Testo,    COMANDI_FRENO},
    {LIBRETTO,     u"NumTotaleAssi",        MctcAssiTotali,             CampoTesto,      ValoreNumero, Vero,    1, Cifre,    {}},
    {LIBRETTO,     u"NumAssiStazionamento", MctcAssiFrenoStazionamento, CampoTesto,      ValoreNumero, Vero,    1, Cifre,    {}},
    {LIBRETTO,     u"Veicolo4WD",           MctcTrazioneIntegrale,      CampoSpunta,     ValoreTesto,  Vero,    0, Testo,    SI_NO},
    {LIBRETTO,     u"ImpiantoABS",          MctcImpiantoAbs,            CampoSpunta,     ValoreTesto,  Vero,    0, Testo,    SI_NO},
    {LIBRETTO,     u"FrenoSoccorso",        MctcFrenoSoccorso,          CampoTesto,      ValoreTesto,  Vero,    0, Testo,    FRENI_SOCCORSO},
    {LIBRETTO,     u"Targa",                MctcNessuno,                CampoSoloValore, ValoreTesto,  Vero,   10, Targa,    {}},
    {PROTOCOLLO,   u"Versione",             MctcNessuno,                CampoSoloValore, ValoreTesto,  Vero,    0, Testo,    VERSIONI},
    {PROTOCOLLO,   u"Data",                 MctcNessuno,                CampoSoloValore, ValoreData,   Vero,    0, Testo,    DATE_FORMATO},
}};

// clang-format on

constinit const std::span<const RegolaVisivo> REGOLE_VISIVI = VISIVI;
constinit const Vocabolario DESCRIZIONI_PESANTI = PESANTI;
