// The evaluation as tables: which record feeds which row, which rows decide. It knows no form and no frame.
#include "app/modApp.h"

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

#include <algorithm>

namespace {

/// Which rows of the result a record of the instrument feeds, and the limits of its kind of beam.
struct FascioRisultato
{
    const char16_t *vertOrizz; // behind "Vert" and "Orizz"
    const qint32 *minimo;
    const qint32 *massimo;
};

constexpr FascioRisultato FASCI[] = {
    {u"AnabSx", &gLuxMinAnab, &gLuxMaxAnab}, // record 0: left, dipped
    {u"AbbSx",  &gLuxMinAbb,  &gLuxMaxAbb }, // record 1: left, main
    {u"AnabDx", &gLuxMinAnab, &gLuxMaxAnab}, // record 2: right, dipped
    {u"AbbDx",  &gLuxMinAbb,  &gLuxMaxAbb }, // record 3: right, main
};

/// The rows that decide the overall verdict: the aims, then the intensity verdicts.
constexpr int PRIMA_RIGA_MIRA = 8, ULTIMA_RIGA_MIRA = 15;
constexpr int PRIMA_RIGA_LUX = 20, ULTIMA_RIGA_LUX = 23;

struct RigaStrumento
{
    const char16_t *riga;
    ChiaveIni chiave;
};

constexpr RigaStrumento RIGHE_STRUMENTO[] = {
    {u"Marca",      ChiaveStrumentoMarca       },
    {u"Tipo",       ChiaveStrumentoModello     },
    {u"NumOmologa", ChiaveStrumentoOmologazione},
    {u"NumSerie",   ChiaveStrumentoSerie       },
};

QString Verdetto(bool regolare)
{
    return regolare ? QStringLiteral("R") : QStringLiteral("I");
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
    const QTime ora = QTime::fromString(gRepMisure[REP_INIZIO], QStringLiteral("hh:mm:ss"));
    return ora.isValid() ? ora.toString(QStringLiteral("hhmmss")) : gRepMisure[REP_INIZIO];
}

void Dati_Prova()
{
    Far_Imposta(QStringLiteral("AltezzaAnab"), u'#' + Numero_Testo(gAltezzaFaro));
    for (const RigaStrumento &riga : RIGHE_STRUMENTO)
        Far_Imposta(QString::fromUtf16(riga.riga), Valore_Ini(gFileIni, riga.chiave));
    Far_Imposta(QStringLiteral("DataScadenza"),
                Data_SenzaSeparatori(Valore_Ini(gFileIni, ChiaveStrumentoScadenza)));
    Far_Imposta(QStringLiteral("Operatore"), Valore_Ini(gFileIni, ChiaveOperatore));
    Far_Imposta(QStringLiteral("TipoAnab"), gSimmetrico == 1 ? QStringLiteral("#S") : QStringLiteral("#A"));
    Far_Imposta(QStringLiteral("CodErrore"), QString());
    // A fixed text for the ministry's system: it does not follow the program's version.
    Far_Imposta(QStringLiteral("NumVersioneSoftware"), QStringLiteral("1.0"));
}

void Verdetti_Fascio(const MisuraFaro &misura, const FascioRisultato &fascio)
{
    const QString nome = QString::fromUtf16(fascio.vertOrizz);
    Far_Imposta(QStringLiteral("Vert") + nome, Verdetto_Mira(misura.EsitoV));
    Far_Imposta(QStringLiteral("Orizz") + nome, Verdetto_Mira(misura.EsitoO));
    const qint32 lux = Intero32(qint64{misura.Lux} * 100);
    Far_Imposta(QStringLiteral("IllumLux") + nome, QString::number(lux));
    // The regular band is open at both ends: the limits themselves are irregular.
    Far_Imposta(QStringLiteral("EsitoIllumLux") + nome,
                Verdetto(lux > *fascio.minimo && lux < *fascio.massimo));
}

bool Regolari(int prima, int ultima)
{
    return std::all_of(gRisultatoFar.begin() + prima, gRisultatoFar.begin() + ultima + 1,
                       [](const RigaFar &riga) { return riga.Valore == u"R"; });
}

void Tempi_Prova()
{
    const QDateTime adesso = Orologio_Corrente().Adesso();
    Far_Imposta(QStringLiteral("DataMisura"), adesso.toString(QStringLiteral("ddMMyyyy")));
    Far_Imposta(QStringLiteral("FineMisura"), adesso.toString(QStringLiteral("hhmmss")));
    Far_Imposta(QStringLiteral("InizioMisura"), Ora_Inizio());
}

} // namespace

void Calcola_Esito()
{
    Carica_Limiti();
    Far_Azzera();
    Dati_Prova();
    for (size_t i = 0; i < std::size(FASCI); ++i)
        Verdetti_Fascio(gMisure[i], FASCI[i]);
    const bool regolare =
        Regolari(PRIMA_RIGA_MIRA, ULTIMA_RIGA_MIRA) && Regolari(PRIMA_RIGA_LUX, ULTIMA_RIGA_LUX);
    Far_Imposta(QStringLiteral("Esito"), Verdetto(regolare));
    Tempi_Prova();
    if (!gFileAcc.isEmpty())
        Far_Scrivi(gFileAcc);
    if (gModalita && gTipoProva == 4 && Fs_Esiste(gFileAcc, 0))
        File_Elimina(gFileAcc);
}
