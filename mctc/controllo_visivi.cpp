// The visual keys against their rules, one reading each. It keeps no value.
#include "mctc/controllo_visivi.h"

#include "core/modGeneral.h"
#include "mctc/formato_acc.h"
#include "platform/numeri.h"

QStringList mErroriVisivi;

namespace {

/// How many faults a value has: in a time of the right form each piece counts for itself, anything else is
/// good or not.
qint16 Difetti(const QString &valore, const RegolaVisivo &regola)
{
    const bool oraInForma =
        regola.Controllo == TipoControllo::Ora && valore.size() == LUNGHEZZA_ORA && Numero_Valido(valore);
    if (oraInForma)
        return Ora_PezziFuori(valore);
    const qint16 errore = Valore_Errore(valore, regola.Controllo, regola.Massimo, regola.Ammessi, Falso);
    return errore == ValoreBuono ? 0 : 1;
}

} // namespace

qint16 Visivo_Controlla(const QString &percorso, QStringList &sezioni)
{
    sezioni.clear();
    for (const RegolaVisivo &regola : REGOLE_VISIVI) {
        const QString sezione = regola.Section.toString();
        const qint16 difetti = Difetti(Valore_Ini(percorso, sezione, regola.Key.toString()), regola);
        for (qint16 i = 0; i < difetti; ++i)
            sezioni.append(sezione);
    }
    return Intero16(sezioni.size());
}
