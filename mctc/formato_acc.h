// The format of the exchange as tables: the 49 fields of an acceptance file, their vocabularies, and the keys
// of the visual check. Constants only: no value of any file.
#pragma once

#include "core/campo_form.h"
#include "mctc/regole_valore.h"

#include <array>

/// Fields of an acceptance file, each named as its key. A field's row number is its identity everywhere.
enum RigaAcc : qint16
{
    AccDataAccettazione,
    AccDataPrenotazione,
    AccOra,
    AccOperatore,
    AccLinea,
    AccTipoRevisione,
    AccCognomeDenominazione,
    AccNome,
    AccDataNascita,
    AccSesso,
    AccLuogoNascita,
    AccProvinciaNascita,
    AccIndirizzo,
    AccCAP,
    AccCitta,
    AccProvincia,
    AccTelefono,
    AccNote,
    AccTipoVeicolo,
    AccDescrizioneVeicolo,
    AccTelaio,
    AccFabbrica,
    AccTipo,
    AccTipoMotore,
    AccNumOmologazione,
    AccAnnoPrimaImm,
    AccDataRilascio,
    AccDataUltimaRev,
    AccAlimentazione1,
    AccAlimentazione2,
    AccKm,
    AccTara,
    AccMassaComplessiva,
    AccMassaRimorchiabile,
    AccCilindrata,
    AccDecibel,
    AccPotMaxkW,
    AccGiriMotoredB,
    AccPotFiscaleCV,
    AccNumTotalePosti,
    AccFrenoStazionamento,
    AccNumTotaleAssi,
    AccNumAssiStazionamento,
    AccVeicolo4WD,
    AccImpiantoABS,
    AccFrenoSoccorso,
    AccTarga,
    AccVersione,
    AccData,
};

inline constexpr qint16 ULTIMA_RIGA_ACC = AccData;
inline constexpr qint16 RIGHE_ACC = ULTIMA_RIGA_ACC + 1;

/// One field: where it stands, how a form shows it, what it may hold.
struct RegolaCampo
{
    QStringView Section;
    QStringView Key;
    TestoMctc LabelId; ///< MctcNessuno: no caption of its own
    TipoCampo Kind;
    TipoValore ValueKind;
    Flag Obbligatorio;
    qint16 Massimo; ///< length in characters, 0: none
    TipoControllo Controllo;
    Vocabolario Ammessi;
};

/// One key of the visual check. Every one of them may be empty.
struct RegolaVisivo
{
    QStringView Section;
    QStringView Key;
    TipoControllo Controllo;
    qint16 Massimo;
    Vocabolario Ammessi;
};

extern const std::array<RegolaCampo, RIGHE_ACC> REGOLE_ACC;

/// In the order of checking.
extern const std::span<const RegolaVisivo> REGOLE_VISIVI;

/// Vehicle class that narrows the descriptions, and the descriptions that it leaves.
inline constexpr QStringView CLASSE_PESANTE = u"PESANTE";
extern const Vocabolario DESCRIZIONI_PESANTI;
