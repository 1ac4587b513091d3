// The station's own record and check, file by file, and the two forms of what they say.
#include "strumenti/controllo_acc.h"

#include "core/modFs.h"
#include "core/parole.h"
#include "mctc/campi_acc.h"
#include "mctc/righe_acc.h"
#include "platform/errore_esecuzione.h"
#include "strumenti/stazione_strumento.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// By EsitoControllo, and behind them what could not be checked. For a program the Italian ones.
constexpr Parole ESITI[] = {
    {u"buona",         u"good"       },
    {u"anomala",       u"anomalous"  },
    {u"errata",        u"wrong"      },
    {u"non esaminata", u"not checked"},
};
constexpr size_t NON_ESAMINATA = 3;

constexpr Parole ASSENTE = {u"il file non c'è", u"there is no such file"};
constexpr Parole TROPPO_GRANDE = {u"oltre i 32767 byte che la stazione sa leggere",
                                  u"past the 32767 bytes that the station can read"};
constexpr Parole ALTRO_ERRORE = {u"errore %1: %2", u"error %1: %2"};

const Parole &Esito_Di(const ControlloFile &controllo)
{
    return ESITI[controllo.Impedimento.isEmpty() ? static_cast<size_t>(controllo.Controllo.Esito)
                                                 : NON_ESAMINATA];
}

QString Impedimento_Da(const ErroreEsecuzione &errore)
{
    if (errore.Numero() == static_cast<int>(NumeroErrore::Overflow))
        return In_Parole(TROPPO_GRANDE);
    return In_Parole(ALTRO_ERRORE).arg(errore.Numero()).arg(errore.Descrizione());
}

/// Parts that a finding does not have are left out.
QJsonObject Oggetto_Di(const RilievoAcc &rilievo)
{
    QJsonObject oggetto;
    const auto metti = [&oggetto](const char16_t *nome, const QString &valore) {
        if (!valore.isEmpty())
            oggetto.insert(QString::fromUtf16(nome), valore);
    };
    metti(u"sezione", rilievo.Sezione);
    metti(u"campo", rilievo.Campo);
    metti(u"motivo", rilievo.Motivo);
    metti(u"testo", rilievo.Testo);
    if (rilievo.Riga != 0)
        oggetto.insert(QStringLiteral("riga"), rilievo.Riga);
    return oggetto;
}

} // namespace

void Controllo_Prepara()
{
    Campi_Azzera(gCampiAcc, ULTIMA_RIGA_ACC);
    Campi_ImpostaAcc();
}

ControlloFile Controllo_Esegui(const QString &percorso)
{
    ControlloFile controllo{percorso, {}, {}};
    // Taken away since it was listed: the network software does that, and it is no fault of the file's.
    if (!Fs_Esiste(percorso, 0)) {
        controllo.Impedimento = In_Parole(ASSENTE);
        return controllo;
    }
    try {
        Acc_Apri(percorso);
        controllo.Controllo = Acc_Esamina(percorso);
    } catch (const ErroreEsecuzione &errore) {
        controllo.Impedimento = Impedimento_Da(errore);
    }
    return controllo;
}

FineStrumento Controllo_Fine(const ControlloFile &controllo)
{
    if (!controllo.Impedimento.isEmpty())
        return FineStrumento::NonGuardato;
    return controllo.Controllo.Esito == AccBuona ? FineStrumento::Buono : FineStrumento::Anomalie;
}

QString Controllo_Testo(const ControlloFile &controllo)
{
    QString testo = Percorso_Mostrato(controllo.File) + QStringLiteral(": ") + In_Parole(Esito_Di(controllo));
    if (!controllo.Impedimento.isEmpty())
        testo += QStringLiteral(" (%1)").arg(controllo.Impedimento);
    testo += u'\n';
    for (const RilievoAcc &rilievo : controllo.Controllo.Rilievi)
        testo += rilievo.Testo + u'\n';
    return testo;
}

QByteArray Controllo_Json(const ControlloFile &controllo)
{
    ListaRilievi rilievi = controllo.Controllo.Rilievi;
    if (!rilievi.isEmpty())
        Rilievi_Numera(controllo.File, rilievi);
    QJsonArray lista;
    for (const RilievoAcc &rilievo : std::as_const(rilievi))
        lista.append(Oggetto_Di(rilievo));
    QJsonObject oggetto{
        {QStringLiteral("file"),    Percorso_Mostrato(controllo.File)      },
        {QStringLiteral("esito"),   Esito_Di(controllo).Italiano.toString()},
        {QStringLiteral("rilievi"), lista                                  },
    };
    if (!controllo.Impedimento.isEmpty())
        oggetto.insert(QStringLiteral("impedimento"), controllo.Impedimento);
    return QJsonDocument(oggetto).toJson(QJsonDocument::Compact);
}
