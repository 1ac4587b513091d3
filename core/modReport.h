// The report tables: the texts of the printed page, filled in stages while a test runs. What the page looks
// like is pagina's business.
#pragma once

#include "platform/tipi.h"

#include <QList>
#include <QString>

#include <array>

/// Rows of gRepMisure that others name.
inline constexpr size_t REP_TIPO_FARO = 0;
inline constexpr size_t REP_LUX_ANAB_DX = 5;
inline constexpr size_t REP_LUX_ANAB_SX = 6;
inline constexpr size_t REP_LUX_ABB_DX = 11;
inline constexpr size_t REP_LUX_ABB_SX = 12;
inline constexpr size_t REP_DATA = 13;
inline constexpr size_t REP_INIZIO = 14;
inline constexpr size_t REP_FINE = 15;
inline constexpr size_t REP_OPERATORE = 16;

extern std::array<QString, 17> gRepMisure;
extern std::array<QString, 5> gRepOfficina;
extern std::array<QString, 5> gRepTitoli;
extern std::array<QString, 5> gRepStrumentoEt, gRepStrumentoVal;
extern std::array<QString, 5> gRepVeicoloEt, gRepVeicoloVal;
extern std::array<QString, 10> gRepVoci;

/// One line of a report section.
struct VoceSezione
{
    QString Etichetta; ///< the label
    QString Valore;    ///< what the configuration file holds
    QString Chiave;    ///< the key in the configuration file
};

/// Fills the tables. @param stadio 0 everything to "-"; 1 date and start time; 2 measures and lamp type from
/// the result record; 3 end time, workshop, vehicle, operator, instrument and titles. Any other: nothing.
void Report_Dati(quint8 stadio);

/// Reads a section of the configuration file with its labels. @param[out] voci its lines; one empty line
/// for a section that the report does not know. @return the last index.
qint16 Leggi_Sezione(const QString &sezione, QList<VoceSezione> &voci);
