// The rows against their rules, and the words of their errors. It opens no file and paints nothing.
#include "mctc/controllo_valori.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "platform/errore_esecuzione.h"

QStringList mErroriDati;
std::array<ErroreValore, RIGHE_ACC> gErroriCampiAcc{};

namespace {

/// Text of an error: one of the screen texts, or words that are the same in every language.
struct TestoErrore
{
    TestoMctc Id;
    QStringView Parole;
};

constexpr TestoErrore TESTI_ERRORE[] = {
    {MctcNessuno,         u""                       }, // 0 ValoreBuono
    {MctcNumeroNonValido, u""                       }, // 1 ValoreNonNumero
    {MctcDataNonValida,   u""                       }, // 2 ValoreNonData
    {MctcOraNonValida,    u""                       }, // 3 ValoreNonOra
    {MctcTestoNonValido,  u""                       }, // 4 ValoreNonTesto
    {MctcNessuno,         u"Valore non presente"    }, // 5 ValoreAssente
    {MctcNessuno,         u"Errore di lunghezza"    }, // 6 ValoreLunghezza
    {MctcNessuno,         u"Non è un valore valido"}, // 7 ValoreNonAmmesso
    {MctcNessuno,         u"Targa non valida"       }, // 8 ValoreNonTarga
};

Vocabolario Valori_Ammessi(qint16 riga)
{
    if (riga == AccDescrizioneVeicolo && Campo_Acc(AccTipoVeicolo).Value == CLASSE_PESANTE)
        return DESCRIZIONI_PESANTI;
    return REGOLE_ACC[static_cast<size_t>(riga)].Ammessi;
}

ErroreValore Riga_Controlla(qint16 riga)
{
    if (Campo_Acc(riga).ValueKind == ValoreNessuno)
        return ValoreBuono;
    const RegolaCampo &regola = REGOLE_ACC[static_cast<size_t>(riga)];
    return Valore_Controlla(riga, regola.Controllo, regola.Massimo, Valori_Ammessi(riga),
                            regola.Obbligatorio);
}

} // namespace

qint16 Dati_Controlla(QStringList &righe)
{
    righe.clear();
    for (qint16 riga = 0; riga <= ULTIMA_RIGA_ACC; ++riga) {
        const ErroreValore errore = Riga_Controlla(riga);
        gErroriCampiAcc[static_cast<size_t>(riga)] = errore;
        if (errore != ValoreBuono)
            righe.append(Errore_Testo(riga, errore));
    }
    return Intero16(righe.size());
}

ErroreValore Valore_Controlla(qint16 riga, TipoControllo tipo, qint16 massimo, Vocabolario ammessi,
                              Flag obbligatorio)
{
    return Valore_Errore(Campo_Acc(riga).Value, tipo, massimo, ammessi, obbligatorio);
}

QString Errore_Motivo(ErroreValore errore)
{
    if (errore < 0 || errore >= static_cast<qint16>(std::size(TESTI_ERRORE)))
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    const TestoErrore &testo = TESTI_ERRORE[errore];
    return testo.Id != MctcNessuno ? Testo_Mctc(testo.Id) : testo.Parole.toString();
}

QString Errore_Testo(qint16 riga, ErroreValore errore)
{
    const CampoForm &campo = Campo_Acc(riga);
    if (errore == ValoreBuono)
        return {};
    return QStringLiteral("Sezione:[") + campo.Section + QStringLiteral("] - Campo:") + campo.Key +
           QStringLiteral(" - ") + Errore_Motivo(errore);
}
