// The texts of the link form and of the printed page: a name for each id of lingue.ini that the program
// shows, in the order of the ids. What holds for core/testi_mctc.h holds here.
#pragma once

#include <QtGlobal>

// clang-format off

#define TESTI_LINGUA(testo)                   \
    testo(LinguaCartellaDatiAssente,       4) \
    testo(LinguaInterrompi,               18) \
    testo(LinguaDenominazione,            19) \
    testo(LinguaIndirizzo,                20) \
    testo(LinguaLocalita,                 21) \
    testo(LinguaTelefonoFax,              22) \
    testo(LinguaSitoWeb,                  23) \
    testo(LinguaModello,                  24) \
    testo(LinguaMarca,                    25) \
    testo(LinguaNumeroOmologazione,       26) \
    testo(LinguaNumeroSerie,              27) \
    testo(LinguaScadenzaVerifica,         28) \
    testo(LinguaOperatore,                29) \
    testo(LinguaLingua,                   30) \
    testo(LinguaSimmetrico,               37) \
    testo(LinguaAsimmetrico,              38) \
    testo(LinguaTarga,                    39) \
    testo(LinguaTelaio,                   40) \
    testo(LinguaAnnoImmatricolazione,     41) \
    testo(LinguaTitoloRapporto,           43) \
    testo(LinguaTitoloStrumento,          44) \
    testo(LinguaTitoloVeicolo,            45) \
    testo(LinguaTitoloAnabbaglianti,      46) \
    testo(LinguaTitoloAbbaglianti,        47) \
    testo(LinguaOrientamentoVerticale,    48) \
    testo(LinguaOrientamentoOrizzontale,  49) \
    testo(LinguaIlluminamento,            50) \
    testo(LinguaData,                     51) \
    testo(LinguaOraInizio,                52) \
    testo(LinguaOraFine,                  53) \
    testo(LinguaOperatoreProva,           54) \
    testo(LinguaFirma,                    55) \
    testo(LinguaRegolare,                 56) \
    testo(LinguaIrregolare,               57) \
    testo(LinguaNessunaStampante,         58)

// clang-format on

enum TestoLingua : qint16
{
#define ENUMERATORE(nome, numero) nome = (numero),
    TESTI_LINGUA(ENUMERATORE)
#undef ENUMERATORE
};
