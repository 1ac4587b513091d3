// The four passes in their order, and the words of the report. It knows no window and no rule of a value.
#include "mctc/modMctc.h"

#include "core/modGeneral.h"
#include "mctc/controllo_sintassi.h"
#include "mctc/controllo_struttura.h"
#include "mctc/controllo_valori.h"
#include "mctc/controllo_visivi.h"

#include <QStringBuilder>

namespace {

/// Words by TipoAnomalia.
constexpr QStringView PAROLE_TIPO[] = {u"", u"Sezione", u"Entry", u"File"};

/// Words by ErroreAnomalia. Two begin with a blank: behind the blank of the line they stand at a distance.
constexpr QStringView PAROLE_ERRORE[] = {
    u"",                       // 0
    u"Estranea",               // 1 AnomaliaEstranea
    u"Mancante",               // 2 AnomaliaMancante
    u"Duplicata",              // 3 AnomaliaDuplicata
    u" non idoneo",            // 4 AnomaliaNonIdoneo
    u" non disponibile",       // 5 AnomaliaNonDisponibile
    u"Non è un valore valido", // 6 AnomaliaInizio
    u"Non è un valore valido", // 7 AnomaliaFine
    u"Non è un valore valido", // 8 AnomaliaPosto
};

constexpr QStringView A_CAPO = u"\r\n";

/// What both kinds of finding begin with: where it stands, what it is about, and its text.
QString Inizio_Riga(const AnomaliaAcc &anomalia)
{
    QString riga;
    if (anomalia.Tipo == AnomaliaEntry)
        riga += u"Sezione:[" % anomalia.Sezione % u"] - ";
    return riga % PAROLE_TIPO[anomalia.Tipo] % u": " % anomalia.Testo.Vista() % u" - ";
}

/// Not composed beyond what a report may hold: of a file of 30 KB it can be half a gigabyte.
QString Rapporto_Anomalie()
{
    QString rapporto;
    for (const AnomaliaAcc &anomalia : std::as_const(gAnomalieStruttura)) {
        if (rapporto.size() > MASSIMO_RAPPORTO)
            break;
        rapporto += Inizio_Riga(anomalia) % PAROLE_TIPO[anomalia.Tipo] % u' ' %
                    PAROLE_ERRORE[anomalia.Errore] % A_CAPO;
    }
    for (const AnomaliaAcc &anomalia : std::as_const(gAnomalieSintassi)) {
        if (rapporto.size() > MASSIMO_RAPPORTO)
            break;
        rapporto += Inizio_Riga(anomalia) % PAROLE_ERRORE[anomalia.Errore] % A_CAPO;
    }
    return rapporto;
}

QString Rapporto_Errori()
{
    QString rapporto;
    for (const QString &riga : std::as_const(mErroriDati))
        rapporto += riga % A_CAPO;
    for (const QString &sezione : std::as_const(mErroriVisivi))
        rapporto += u"Controllo Visivo-Sezione: " % sezione % A_CAPO;
    return rapporto;
}

/// Cuts a report at the last end of a line that it may hold; a single line beyond that is cut where it is.
QString Tagliato(QString rapporto)
{
    if (rapporto.size() > MASSIMO_RAPPORTO) {
        const qsizetype fine = rapporto.lastIndexOf(A_CAPO, MASSIMO_RAPPORTO - A_CAPO.size());
        rapporto.truncate(fine < 0 ? MASSIMO_RAPPORTO : fine + A_CAPO.size());
    }
    return rapporto;
}

} // namespace

EsitoControllo Acc_Controlla(const QString &percorso, QString &rapporto)
{
    rapporto.clear();
    Acc_ControllaStruttura(gFileModelloAcc, percorso, gAnomalieStruttura);
    Acc_ControllaSintassi(percorso, gAnomalieSintassi);
    const qint16 dati = Dati_Controlla(mErroriDati);
    mErroriVisivi.clear();
    const qint16 visivi = gControlloVisivo ? Visivo_Controlla(percorso, mErroriVisivi) : qint16{0};

    if (!gAnomalieStruttura.isEmpty() || !gAnomalieSintassi.isEmpty()) {
        rapporto = Tagliato(Rapporto_Anomalie());
        return AccAnomala;
    }
    if (dati == 0 && visivi == 0)
        return AccBuona;
    rapporto = Tagliato(Rapporto_Errori());
    return AccErrata;
}
