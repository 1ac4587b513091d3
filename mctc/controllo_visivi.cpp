// The visual keys against their rules, one reading each. It keeps no value.
#include "mctc/controllo_visivi.h"

#include "core/modGeneral.h"
#include "mctc/formato_acc.h"
#include "platform/numeri.h"
#include "platform/profilo.h"

QStringList mErroriVisivi;
QList<DifettoVisivo> gDifettiVisivi;

namespace {

/// The faults of a value: in a time of the right form each piece counts for itself, anything else is good or
/// not.
QList<ErroreValore> Difetti(const QString &valore, const RegolaVisivo &regola)
{
    const bool oraInForma =
        regola.Controllo == TipoControllo::Ora && valore.size() == LUNGHEZZA_ORA && Numero_Valido(valore);
    if (oraInForma)
        return QList<ErroreValore>(Ora_PezziFuori(valore), ValoreNonOra);
    const ErroreValore errore =
        Valore_Errore(valore, regola.Controllo, regola.Massimo, regola.Ammessi, Falso);
    return errore == ValoreBuono ? QList<ErroreValore>() : QList<ErroreValore>{errore};
}

} // namespace

qint16 Visivo_Controlla(const QString &percorso, QStringList &sezioni)
{
    sezioni.clear();
    gDifettiVisivi.clear();
    const ProfiloFermo accettazione(percorso);
    for (const RegolaVisivo &regola : REGOLE_VISIVI) {
        const QString sezione = regola.Section.toString();
        const QString chiave = regola.Key.toString();
        const QList<ErroreValore> difetti = Difetti(Valore_Ini(percorso, sezione, chiave), regola);
        for (const ErroreValore errore : difetti) {
            sezioni.append(sezione);
            gDifettiVisivi.append({sezione, chiave, errore});
        }
    }
    return Intero16(sezioni.size());
}
