// Any bytes as an acceptance file, through the whole check with the delivered template: what the report, the
// findings and the outcome say of each other, and that a good file has the template's keys with good values.
#include "core/modGeneral.h"
#include "fuzz/comune.h"
#include "fuzz/valori_profilo.h"
#include "mctc/campi_acc.h"
#include "mctc/controllo_sintassi.h"
#include "mctc/controllo_struttura.h"
#include "mctc/controllo_valori.h"
#include "mctc/controllo_visivi.h"
#include "mctc/modMctc.h"
#include "platform/profilo.h"

#include <QFile>

namespace {

QByteArray Consegnato(const char *nome)
{
    QFile file(QStringLiteral(LUMIRA_SORGENTE "/") + QLatin1String(nome));
    Pretendi(file.open(QIODevice::ReadOnly), nome);
    return file.readAll();
}

/// The keys of the template, by their sections; what is good has no other.
const QHash<QString, ValoriSezione> &Modello()
{
    static const QHash<QString, ValoriSezione> VALORI = Valori_Profilo(Consegnato("dati/ModelloAcc.acc"));
    return VALORI;
}

/// What a station has read before it looks at its first file.
void Prepara_Stazione()
{
    gFileModelloAcc = File_Con(QStringLiteral("ModelloAcc.acc"), Consegnato("dati/ModelloAcc.acc"));
    gFileLingueMctc = File_Con(QStringLiteral("lingueMCTC.ini"), Consegnato("impianto/lingueMCTC.ini"));
    gLingua = QStringLiteral("IT");
    Carica_Lingua(gFileLingueMctc, ULTIMO_TESTO_MCTC, gTabMctc);
    gControlloVisivo = Vero;
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
}

QString Rapporto_Atteso(const ListaRilievi &rilievi)
{
    QString rapporto;
    for (const RilievoAcc &rilievo : rilievi)
        rapporto += rilievo.Testo + QStringLiteral("\r\n");
    return rapporto;
}

void Prova_Buona(const QByteArray &byte)
{
    const QHash<QString, ValoriSezione> valori = Valori_Profilo(byte);
    for (auto sezione = Modello().cbegin(); sezione != Modello().cend(); ++sezione) {
        // A section without any key has always passed: there is nothing in it to compare.
        const ValoriSezione letti = valori.value(sezione.key());
        for (auto chiave = sezione->cbegin(); chiave != sezione->cend() && !letti.isEmpty(); ++chiave)
            Pretendi(letti.value(chiave.key()).has_value(), "a good file has every key of the template");
    }
    Pretendi(valori.size() == Modello().size(), "a good file has the template's sections");
    for (const ErroreValore errore : gErroriCampiAcc)
        Pretendi(errore == ValoreBuono, "a good file has good values");
    Pretendi(gDifettiVisivi.isEmpty(), "a good file has a good visual check");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *dati, size_t quanti)
{
    static const bool PRONTA = (Prepara_Stazione(), true);
    Q_UNUSED(PRONTA)
    const QByteArray byte = Byte_Di(dati, quanti);
    const QString percorso = File_Con(QStringLiteral("12345678.acc"), byte);
    const ProfiloFermo letto(percorso); // a file just written would be read anew for each of its keys
    Acc_Apri(percorso);
    ControlloAcc controllo;
    QString rapporto;
    EsitoControllo esito = AccBuona;
    if (!Esegui({NumeroErrore::Overflow}, [&] {
            controllo = Acc_Esamina(percorso);
            esito = Acc_Controlla(percorso, rapporto);
        }))
        return 0;

    const bool anomala = !gAnomalieStruttura.isEmpty() || !gAnomalieSintassi.isEmpty();
    const bool errata = !mErroriDati.isEmpty() || !mErroriVisivi.isEmpty();
    Pretendi(controllo.Esito == (anomala  ? AccAnomala
                                 : errata ? AccErrata
                                          : AccBuona),
             "the outcome is the findings'");
    Pretendi(esito == controllo.Esito, "operator and tools are told the same outcome");
    Pretendi(controllo.Rilievi.isEmpty() == (esito == AccBuona),
             "a file that is not good has something to tell");
    Pretendi(rapporto.size() <= MASSIMO_RAPPORTO, "a report has an end");
    Pretendi(Rapporto_Atteso(controllo.Rilievi).startsWith(rapporto),
             "the report tells the findings in their order");
    Pretendi(rapporto.isEmpty() == controllo.Rilievi.isEmpty(),
             "the report of a file that is not good has a line");
    if (esito == AccBuona)
        Prova_Buona(byte);
    return 0;
}
