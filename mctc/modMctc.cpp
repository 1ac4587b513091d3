// The four passes in their order, and the words of the report. It knows no window and no rule of a value.
#include "mctc/modMctc.h"

#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
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

/// A finding about names: its text is the section or the key.
RilievoAcc Rilievo_Struttura(const AnomaliaAcc &anomalia)
{
    const QStringView parola = PAROLE_ERRORE[anomalia.Errore];
    const bool sezione = anomalia.Tipo == AnomaliaSezione;
    return {Inizio_Riga(anomalia) % PAROLE_TIPO[anomalia.Tipo] % u' ' % parola,
            sezione ? anomalia.Testo.Copia() : anomalia.Sezione,
            anomalia.Tipo == AnomaliaEntry ? anomalia.Testo.Copia() : QString(), parola.trimmed().toString(),
            anomalia.Riga};
}

/// A finding about a line: its text is the whole line, and the key what stands before the sign.
RilievoAcc Rilievo_Sintassi(const AnomaliaAcc &anomalia)
{
    const QStringView parola = PAROLE_ERRORE[anomalia.Errore];
    const QStringView riga = anomalia.Testo.Vista();
    const qsizetype uguale = anomalia.Tipo == AnomaliaEntry ? riga.indexOf(u'=') : -1;
    return {Inizio_Riga(anomalia) % parola, anomalia.Sezione,
            uguale < 0 ? QString() : riga.first(uguale).trimmed().toString(), parola.trimmed().toString(),
            anomalia.Riga};
}

/// Not composed beyond what a report may hold: of a file of 30 KB it can be half a gigabyte.
ListaRilievi Rilievi_Anomalie()
{
    ListaRilievi rilievi;
    qsizetype caratteri = 0;
    const auto aggiungi = [&](const ListaAnomalie &anomalie, RilievoAcc (*rilievo)(const AnomaliaAcc &)) {
        for (const AnomaliaAcc &anomalia : anomalie) {
            if (caratteri > MASSIMO_RAPPORTO)
                return;
            rilievi.append(rilievo(anomalia));
            caratteri += rilievi.last().Testo.size() + A_CAPO.size();
        }
    };
    aggiungi(gAnomalieStruttura, Rilievo_Struttura);
    aggiungi(gAnomalieSintassi, Rilievo_Sintassi);
    return rilievi;
}

ListaRilievi Rilievi_Errori()
{
    ListaRilievi rilievi;
    for (qint16 riga = 0; riga <= ULTIMA_RIGA_ACC; ++riga) {
        const ErroreValore errore = gErroriCampiAcc[static_cast<size_t>(riga)];
        if (errore != ValoreBuono)
            rilievi.append({Errore_Testo(riga, errore), Campo_Acc(riga).Section, Campo_Acc(riga).Key,
                            Errore_Motivo(errore)});
    }
    for (const DifettoVisivo &difetto : std::as_const(gDifettiVisivi))
        rilievi.append({u"Controllo Visivo-Sezione: " % difetto.Sezione, difetto.Sezione, difetto.Chiave,
                        Errore_Motivo(difetto.Errore)});
    return rilievi;
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

ControlloAcc Acc_Esamina(const QString &percorso)
{
    Acc_ControllaStruttura(gFileModelloAcc, percorso, gAnomalieStruttura);
    Acc_ControllaSintassi(percorso, gAnomalieSintassi);
    Dati_Controlla(mErroriDati);
    mErroriVisivi.clear();
    gDifettiVisivi.clear();
    if (gControlloVisivo)
        Visivo_Controlla(percorso, mErroriVisivi);

    if (!gAnomalieStruttura.isEmpty() || !gAnomalieSintassi.isEmpty())
        return {AccAnomala, Rilievi_Anomalie()};
    const ListaRilievi errori = Rilievi_Errori();
    return {errori.isEmpty() ? AccBuona : AccErrata, errori};
}

EsitoControllo Acc_Controlla(const QString &percorso, QString &rapporto)
{
    rapporto.clear();
    const ControlloAcc controllo = Acc_Esamina(percorso);
    for (const RilievoAcc &rilievo : controllo.Rilievi)
        rapporto += rilievo.Testo % A_CAPO;
    rapporto = Tagliato(rapporto);
    return controllo.Esito;
}
