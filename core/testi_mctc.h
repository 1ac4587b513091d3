// The texts of the forms: a name for each id of lingueMCTC.ini that the program shows, in the order of the
// ids. Here alone stand the numbers. A text that comes in gets the next number behind the last and stands in
// the five languages of impianto/lingueMCTC.ini; a number whose text has gone is not given again, since a
// workshop may keep an older text file.
#pragma once

#include <QtGlobal>

// clang-format off

#define TESTI_MCTC(testo)                   \
    testo(MctcNonDisponibile0,           0) \
    testo(MctcImpostazioni,              1) \
    testo(MctcProvaProiettori,           2) \
    testo(MctcNonDisponibile3,           3) \
    testo(MctcVerificaPeriodica,         4) \
    testo(MctcAnagraficaOfficina,        5) \
    testo(MctcInformazioni,              6) \
    testo(MctcEsci,                      7) \
    testo(MctcNonDisponibile8,           8) \
    testo(MctcDenominazione,             9) \
    testo(MctcIndirizzo,                10) \
    testo(MctcLocalita,                 11) \
    testo(MctcSitoWeb,                  13) \
    testo(MctcModelloStrumento,         14) \
    testo(MctcMarcaStrumento,           15) \
    testo(MctcNumeroOmologazione,       16) \
    testo(MctcNumeroSerie,              17) \
    testo(MctcScadenzaVerifica,         18) \
    testo(MctcPasswordServizio,         20) \
    testo(MctcCartelleScambio,          22) \
    testo(MctcCartellaRisultati,        23) \
    testo(MctcCartellaAccettazioni,     24) \
    testo(MctcDeviazioneOrizzontale,    25) \
    testo(MctcDeviazioneVerticale,      26) \
    testo(MctcIlluminamentoMassimo,     27) \
    testo(MctcIlluminamentoMinimo,      28) \
    testo(MctcInclinazioneMinima80,     29) \
    testo(MctcInclinazioneMassima80,    30) \
    testo(MctcAbbagliante,              31) \
    testo(MctcAnabbagliante,            32) \
    testo(MctcLingua,                   33) \
    testo(MctcFileAccettazione,         36) \
    testo(MctcTarga,                    37) \
    testo(MctcDataAccettazione,         40) \
    testo(MctcDataPrenotazione,         41) \
    testo(MctcOraPrenotazione,          42) \
    testo(MctcOperatoreAccettazione,    43) \
    testo(MctcLinea,                    44) \
    testo(MctcTipo,                     45) \
    testo(MctcCognomeDenominazione,     46) \
    testo(MctcNomeCliente,              47) \
    testo(MctcNascitaSesso,             48) \
    testo(MctcNascitaLuogo,             49) \
    testo(MctcCitta,                    51) \
    testo(MctcTelefonoFax,              52) \
    testo(MctcNote,                     53) \
    testo(MctcTipoVeicolo,              55) \
    testo(MctcDescrizioneVeicolo,       56) \
    testo(MctcTelaio,                   57) \
    testo(MctcFabbricaMarca,            58) \
    testo(MctcTipoLibretto,             59) \
    testo(MctcMotoreAllestimento,       60) \
    testo(MctcOmologazione,             61) \
    testo(MctcAnnoImmatricolazione,     62) \
    testo(MctcDataRilascio,             63) \
    testo(MctcUltimaRevisione,          64) \
    testo(MctcAlimentazione1,           65) \
    testo(MctcAlimentazione2,           66) \
    testo(MctcChilometri,               67) \
    testo(MctcMassaComplessiva,         68) \
    testo(MctcCilindrata,               69) \
    testo(MctcPotenzaMassima,           70) \
    testo(MctcPotenzaFiscale,           71) \
    testo(MctcTara,                     72) \
    testo(MctcMassaRimorchiabile,       73) \
    testo(MctcRumorosita,               74) \
    testo(MctcGiriRumorosita,           75) \
    testo(MctcPostiTotali,              76) \
    testo(MctcFrenoStazionamento,       77) \
    testo(MctcAssiTotali,               78) \
    testo(MctcAssiFrenoStazionamento,   79) \
    testo(MctcFrenoSoccorso,            80) \
    testo(MctcItaliano,                 81) \
    testo(MctcFrancese,                 82) \
    testo(MctcInglese,                  83) \
    testo(MctcSpagnolo,                 84) \
    testo(MctcTedesco,                  85) \
    testo(MctcTrazioneIntegrale,        86) \
    testo(MctcImpiantoAbs,              87) \
    testo(MctcListaAccettazioni,        88) \
    testo(MctcUscitaFineProva,          89) \
    testo(MctcControlloVisivo,          90) \
    testo(MctcCartelleRete,             91) \
    testo(MctcCartelleLocali,           92) \
    testo(MctcSbloccaLimiti,            93) \
    testo(MctcDataNonValida,            94) \
    testo(MctcNumeroNonValido,          95) \
    testo(MctcOraNonValida,             96) \
    testo(MctcTestoNonValido,           97) \
    testo(MctcStampa,                   98) \
    testo(MctcAllarmeAcustico,         103) \
    testo(MctcAlimentazione,           104) \
    testo(MctcAltezzaAutomatica,       105) \
    testo(MctcAnnulla,                 106) \
    testo(MctcConferma,                107) \
    testo(MctcCampoErrato,             108) \
    testo(MctcFileConAnomalie,         110) \
    testo(MctcSi,                      112) \
    testo(MctcAvvia,                   113) \
    testo(MctcIndietro,                114) \
    testo(MctcAltezzaFaro,             118) \
    testo(MctcInclinazione,            119) \
    testo(MctcTipoSimmetrico,          120) \
    testo(MctcTipoAsimmetrico,         121) \
    testo(MctcAvviso,                  124) \
    testo(MctcEsitoRegolare,           126) \
    testo(MctcEsitoIrregolare,         127) \
    testo(MctcNuovaScadenza,           128) \
    testo(MctcEsitoProva,              129) \
    testo(MctcDatiProiettori,          130) \
    testo(MctcAnabbaglianteSx,         131) \
    testo(MctcAnabbaglianteDx,         132) \
    testo(MctcAbbaglianteSx,           133) \
    testo(MctcAbbaglianteDx,           134) \
    testo(MctcOrientamentoVerticale,   135) \
    testo(MctcOrientamentoOrizzontale, 136) \
    testo(MctcIlluminamento,           137) \
    testo(MctcAzzeraTelecamera,        138) \
    testo(MctcFariSimmetrici,          140) \
    testo(MctcNo,                      141) \
    testo(MctcOperatore,               142) \
    testo(MctcStrumentoDaLeggere,      147) \
    testo(MctcDestro,                  150) \
    testo(MctcSinistro,                151) \
    testo(MctcCollegamentoInCorso,     152) \
    testo(MctcStrumentoMuto,           153) \
    testo(MctcRispostaNonValida,       154) \
    testo(MctcRispostaAltroTipo,       155) \
    testo(MctcScambioCompletato,       156) \
    testo(MctcPortaSeriale,            157) \
    testo(MctcLivelliControlli,        158) \
    testo(MctcControllo,               159) \
    testo(MctcConfigurazioneBloccata,  160) \
    testo(MctcPortaNonAperta,          161) \
    testo(MctcSessioneInterrotta,      162) \
    testo(MctcDurata,                  163) \
    testo(MctcRispostaFa,              164) \
    testo(MctcNessunaRisposta,         165) \
    testo(MctcLampadaAttesa,           166) \
    testo(MctcLampadaRisposta,         167) \
    testo(MctcLampadaFermo,            168) \
    testo(MctcLampadaChiusa,           169) \
    testo(MctcPassoMisura,             170) \
    testo(MctcPassoStrumento,          171) \
    testo(MctcPassoDati,               172) \
    testo(MctcPassoFatto,              173) \
    testo(MctcAnabbaglianteDestro,     174) \
    testo(MctcAnabbaglianteSinistro,   175) \
    testo(MctcAbbaglianteDestro,       176) \
    testo(MctcAbbaglianteSinistro,     177) \
    testo(MctcAmmesso,                 178) \
    testo(MctcVerticaleErrato,         179) \
    testo(MctcOrizzontaleErrato,       180) \
    testo(MctcMiraErrata,              181) \
    testo(MctcPortaRimedio,            182)

// clang-format on

enum TestoMctc : qint16
{
    MctcNessuno = -1, ///< a row that has no caption
#define ENUMERATORE(nome, numero) nome = (numero),
    TESTI_MCTC(ENUMERATORE)
#undef ENUMERATORE
};
