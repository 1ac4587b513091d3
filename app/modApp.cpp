// The evaluation as tables: which record feeds which row, which rows decide. It knows no form and no frame.
#include "app/modApp.h"

#include "core/codici.h"
#include "core/fari.h"
#include "core/limiti.h"
#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modReport.h"
#include "core/risultato.h"
#include "link/protocollo.h"
#include "mctc/far.h"
#include "platform/file.h"
#include "platform/numeri.h"
#include "platform/orologio.h"

namespace {

/// The lamps in the order of the records: left dipped, left main, right dipped, right main.
constexpr Faro FARI_STRUMENTO[] = {FaroAnabSx, FaroAbbSx, FaroAnabDx, FaroAbbDx};

struct RigaStrumento
{
    RigaFar riga;
    ChiaveIni chiave;
};

constexpr RigaStrumento RIGHE_STRUMENTO[] = {
    {FarMarca,      ChiaveStrumentoMarca       },
    {FarTipo,       ChiaveStrumentoModello     },
    {FarNumOmologa, ChiaveStrumentoOmologazione},
    {FarNumSerie,   ChiaveStrumentoSerie       },
};

QString Verdetto(bool regolare)
{
    return (regolare ? FAR_REGOLARE : FAR_IRREGOLARE).toString();
}

QString Verdetto_Mira(const QString &esito)
{
    return Verdetto(esito == u"O" || esito == u"#");
}

/// dd/mm/yyyy to ddmmyyyy, by position: no check is made that the text has that form.
QString Data_SenzaSeparatori(const QString &data)
{
    return data.mid(0, 2) + data.mid(3, 2) + data.right(4);
}

/// The time noted when the link form opened; a text that is no time goes out as it stands.
QString Ora_Inizio()
{
    const QTime ora = QTime::fromString(gRepMisure[RepInizio], QStringLiteral("hh:mm:ss"));
    return ora.isValid() ? ora.toString(QStringLiteral("hhmmss")) : gRepMisure[RepInizio];
}

void Dati_Prova()
{
    Far_Imposta(FarAltezzaAnab, u'#' + Numero_Testo(gAltezzaFaro));
    for (const RigaStrumento &riga : RIGHE_STRUMENTO)
        Far_Imposta(riga.riga, Valore_Ini(gFileIni, riga.chiave));
    Far_Imposta(FarDataScadenza, Data_SenzaSeparatori(Valore_Ini(gFileIni, ChiaveStrumentoScadenza)));
    Far_Imposta(FarOperatore, Valore_Ini(gFileIni, ChiaveOperatore));
    Far_Imposta(FarTipoAnab, (gSimmetrico == 1 ? FAR_SIMMETRICO : FAR_ASIMMETRICO).toString());
    Far_Imposta(FarCodErrore, QString());
    Far_Imposta(FarNumVersioneSoftware, FAR_VERSIONE.toString());
}

void Verdetti_Faro(const MisuraFaro &misura, const RigheFaro &faro)
{
    Far_Imposta(faro.vert, Verdetto_Mira(misura.EsitoV));
    Far_Imposta(faro.orizz, Verdetto_Mira(misura.EsitoO));
    const qint32 lux = Intero32(qint64{misura.Lux} * 100);
    Far_Imposta(faro.lux, QString::number(lux));
    Far_Imposta(faro.esitoLux, Verdetto(Lux_Regolare(lux, faro.fascio)));
}

void Tempi_Prova()
{
    const QDateTime adesso = Orologio_Corrente().Adesso();
    Far_Imposta(FarDataMisura, adesso.toString(QStringLiteral("ddMMyyyy")));
    Far_Imposta(FarFineMisura, adesso.toString(QStringLiteral("hhmmss")));
    Far_Imposta(FarInizioMisura, Ora_Inizio());
}

} // namespace

void Calcola_Esito()
{
    Carica_Limiti();
    Far_Azzera();
    Dati_Prova();
    for (size_t i = 0; i < std::size(FARI_STRUMENTO); ++i)
        Verdetti_Faro(gMisure[i], FARI[FARI_STRUMENTO[i]]);
    Far_Imposta(FarEsito, Verdetto(Far_Regolare(gRisultatoFar)));
    Tempi_Prova();
    if (!gFileAcc.isEmpty())
        Far_Scrivi(gFileAcc);
    if (gModalita && gTipoProva == ProvaConfermata && Fs_Esiste(gFileAcc, 0))
        File_Elimina(gFileAcc);
}
