// The report tables: the texts of the printed page, filled in stages while a test runs. What the page looks
// like is pagina's business.
#pragma once

#include "platform/tipi.h"

#include <QList>
#include <QString>

#include <array>

/// Rows of gRepMisure. The instrument gives no figure for an aim: those rows stay empty, and the page prints
/// none of them.
enum RigaMisure : size_t
{
    RepTipoFaro = 0,
    RepMireAnab = 1, ///< first of RIGHE_MIRE
    RepLuxAnabDx = 5,
    RepLuxAnabSx = 6,
    RepMireAbb = 7, ///< first of RIGHE_MIRE
    RepLuxAbbDx = 11,
    RepLuxAbbSx = 12,
    RepData = 13,
    RepInizio = 14,
    RepFine = 15,
    RepOperatore = 16,
};
inline constexpr size_t RIGHE_MISURE = RepOperatore + 1;
inline constexpr size_t RIGHE_MIRE = RepLuxAnabDx - RepMireAnab;

/// Rows of gRepTitoli.
enum RigaTitoli : size_t
{
    RepTitoloPagina,
    RepTitoloStrumento,
    RepTitoloVeicolo,
    RepTitoloAnab,
    RepTitoloAbb,
};
inline constexpr size_t RIGHE_TITOLI = RepTitoloAbb + 1;

/// Rows of gRepVoci: the captions of a tick table's rows, those of the footer, the heads of the tick columns.
enum RigaVoci : size_t
{
    RepVoceVert,
    RepVoceOrizz,
    RepVoceLux,
    RepVoceData,
    RepVoceInizio,
    RepVoceFine,
    RepVoceOperatore,
    RepVoceFirma,
    RepVoceRegolare,
    RepVoceIrregolare,
};
inline constexpr size_t RIGHE_VOCI = RepVoceIrregolare + 1;

/// Lines of the workshop's heading and of each block.
inline constexpr size_t RIGHE_BLOCCO = 5;
using BloccoReport = std::array<QString, RIGHE_BLOCCO>;

extern std::array<QString, RIGHE_MISURE> gRepMisure;
extern BloccoReport gRepOfficina;
extern std::array<QString, RIGHE_TITOLI> gRepTitoli;
extern BloccoReport gRepStrumentoEt, gRepStrumentoVal;
extern BloccoReport gRepVeicoloEt, gRepVeicoloVal;
extern std::array<QString, RIGHE_VOCI> gRepVoci;

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
