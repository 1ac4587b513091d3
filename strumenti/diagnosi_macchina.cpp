// The machine under the station: disk and clock.
#include "strumenti/diagnosi.h"

#include "core/modGeneral.h"
#include "core/parole.h"
#include "platform/orologio.h"
#include "platform/percorsi.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace {

constexpr qint64 MEGA = qint64{1024} * 1024;
constexpr qint64 SPAZIO_GUASTO = 100 * MEGA;
constexpr qint64 SPAZIO_AVVISO = 1024 * MEGA;

constexpr Parole LIBERI = {u"%1: %2 MB liberi", u"%1: %2 MB free"};
constexpr Parole LIBERARE = {u"liberare spazio: copiare altrove i risultati vecchi",
                             u"free some room: put old results elsewhere"};

constexpr int PRIMO_ANNO = 2024;
constexpr int TOLLERANZA = 120; // seconds: the clocks of a network are never quite the same
constexpr Parole ADESSO = {u"%1", u"%1"};
constexpr Parole ANNO_PASSATO = {u"il computer crede che sia il %1", u"the computer takes it to be the %1"};
constexpr Parole FUTURO = {u"%1 è stato scritto il %2, dopo l'ora del computer (%3)",
                           u"%1 was written on %2, later than the computer's time (%3)"};
constexpr Parole METTERE_ORA = {u"mettere a posto data e ora: stanno nei risultati e sul rapporto",
                                u"set date and time: they stand in the results and on the report"};

QString Data_Detta(const QDateTime &quando)
{
    return quando.toString(QStringLiteral("dd/MM/yyyy HH:mm"));
}

/// The youngest of the files that the station writes, and those of its folder.
QFileInfo Piu_Recente()
{
    QFileInfo recente;
    for (const QString &cartella : {gAppPath, gDirAcc}) {
        const QFileInfoList file =
            QDir(Percorso_Nativo(cartella)).entryInfoList(QDir::Files, QDir::Time); // the youngest first
        if (!file.isEmpty() && (!recente.exists() || file.first().lastModified() > recente.lastModified()))
            recente = file.first();
    }
    return recente;
}

} // namespace

Grado Spazio_Grado(qint64 byte)
{
    if (byte < SPAZIO_GUASTO)
        return Grado::Guasto;
    return byte < SPAZIO_AVVISO ? Grado::Avviso : Grado::Buono;
}

void Diagnosi_Disco(Riscontri &riscontri)
{
    QList<QStorageInfo> visti;
    for (const QString &cartella : {gAppPath, gDirAcc}) {
        const QStorageInfo disco(Percorso_Nativo(cartella));
        if (!disco.isValid() || visti.contains(disco))
            continue;
        visti.append(disco);
        const Grado grado = Spazio_Grado(disco.bytesAvailable());
        riscontri.append({Materia::Disco, grado,
                          In_Parole(LIBERI).arg(QDir::toNativeSeparators(disco.rootPath()),
                                                QString::number(disco.bytesAvailable() / MEGA)),
                          grado == Grado::Buono ? QString() : In_Parole(LIBERARE)});
    }
}

void Diagnosi_Orologio(Riscontri &riscontri)
{
    const QDateTime adesso = Orologio_Corrente().Adesso();
    const QFileInfo recente = Piu_Recente();
    if (adesso.date().year() < PRIMO_ANNO)
        Trovato_Avviso(riscontri, Materia::Orologio, In_Parole(ANNO_PASSATO).arg(adesso.date().year()),
                       In_Parole(METTERE_ORA));
    else if (recente.exists() && recente.lastModified() > adesso.addSecs(TOLLERANZA))
        Trovato_Avviso(
            riscontri, Materia::Orologio,
            In_Parole(FUTURO).arg(recente.fileName(), Data_Detta(recente.lastModified()), Data_Detta(adesso)),
            In_Parole(METTERE_ORA));
    else
        Trovato_Buono(riscontri, Materia::Orologio, In_Parole(ADESSO).arg(Data_Detta(adesso)));
}
