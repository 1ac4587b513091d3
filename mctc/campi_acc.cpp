// The record's rows, filled from the format's table and from one file. It knows no control and no rule of a
// value.
#include "mctc/campi_acc.h"

#include "core/modGeneral.h"
#include "core/sezioni_acc.h"
#include "platform/errore_esecuzione.h"
#include "platform/profilo.h"

std::array<CampoForm, RIGHE_ACC> gCampiAcc;

void Campi_ImpostaAcc()
{
    for (size_t riga = 0; riga < gCampiAcc.size(); ++riga) {
        const RegolaCampo &regola = REGOLE_ACC[riga];
        CampoForm &campo = gCampiAcc[riga];
        campo.Section = regola.Section.toString();
        campo.Key = regola.Key.toString();
        campo.LabelId = regola.LabelId;
        campo.Kind = regola.Kind;
        campo.ValueKind = regola.ValueKind;
        campo.Editable = Falso;
    }
}

void Acc_AssegnaFile(const QString &percorso)
{
    for (CampoForm &campo : gCampiAcc)
        campo.File = percorso;
}

void Acc_Apri(const QString &percorso)
{
    const ProfiloFermo accettazione(percorso);
    Acc_AssegnaFile(percorso);
    for (CampoForm &campo : gCampiAcc)
        Campo_Leggi(campo);
}

CampoForm &Campo_Acc(qint16 riga)
{
    if (riga < 0 || riga > ULTIMA_RIGA_ACC)
        Solleva(NumeroErrore::IndiceFuoriIntervallo);
    return gCampiAcc[static_cast<size_t>(riga)];
}

QString Targa_Leggi(const QString &percorso)
{
    return Valore_Ini(percorso, SEZIONE_LIBRETTO.toString(), QStringLiteral("Targa"));
}

Flag Visivo_Compilato(const QString &percorso)
{
    QString valore;
    return Leggi_Ini(percorso, QStringLiteral("Vis_DispositiviFrenatura"),
                     QStringLiteral("StatoMeccanicoFrenoServizio_111"), valore);
}
