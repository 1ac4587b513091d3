// The exchange folder, and the check of every file that lies in it.
#include "strumenti/diagnosi.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/parole.h"
#include "mctc/cartella_scambio.h"
#include "mctc/lettura_far.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "strumenti/controllo_acc.h"
#include "strumenti/elenco_file.h"
#include "strumenti/scrivibile.h"
#include "strumenti/stazione_strumento.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

namespace {

constexpr qint64 ELENCO_LENTO = 1000; // ms: the operator waits for every listing
constexpr qsizetype NOMI_DETTI = 3;

constexpr Parole PRESENTE = {u"%1: elencata in %2 ms, %3 file .acc di cui %4 senza risultato",
                             u"%1: listed in %2 ms, %3 files .acc, %4 of them without a result"};
constexpr Parole LENTA = {u"%1: l'elenco ha preso %2 ms", u"%1: the listing took %2 ms"};
constexpr Parole RETE = {u"guardare la rete, o svuotare la cartella dei file vecchi",
                         u"look at the network, or take old files out of the folder"};
constexpr Parole MANCA = {u"%1 non c'è", u"%1 is not there"};
constexpr Parole CREARE = {
    u"crearla, o correggere la cartella nelle impostazioni; se è di rete, guardare la rete",
    u"make it, or mend the folder in the settings; look at the network if it is there"};
constexpr Parole ILLEGGIBILE = {u"%1 non si può elencare", u"%1 cannot be listed"};
constexpr Parole NON_SCRIVIBILE = {u"in %1 non si può scrivere", u"%1 cannot be written to"};
constexpr Parole DARE_DIRITTI = {
    u"dare all'utente della stazione il diritto di leggere e scrivere la cartella",
    u"let the station's user read and write the folder"};
constexpr Parole SCRITTA = {u"in %1 si può scrivere (provato)", u"%1 can be written to (tried)"};
constexpr Parole ACC_BUONI = {u"%1 file .acc, tutti buoni", u"%1 files .acc, all good"};
constexpr Parole ACC_ANOMALI = {u"%1 file .acc su %2 con anomalie: %3",
                                u"%1 files .acc of %2 with anomalies: %3"};
constexpr Parole USARE_ACC = {u"lumira-acc --solo-anomali %1 dice quali",
                              u"lumira-acc --solo-anomali %1 tells which"};
constexpr Parole FAR_BUONI = {u"%1 file .far, tutti come la rete li aspetta",
                              u"%1 files .far, all as the network expects them"};
constexpr Parole FAR_DIFETTOSI = {u"%1 file .far su %2 con difetti: %3",
                                  u"%1 files .far of %2 with defects: %3"};
constexpr Parole USARE_FAR = {u"lumira-far %1 dice quali", u"lumira-far %1 tells which"};

/// @param cartella ends in a backslash.
QString Cartella_Mostrata(const QString &cartella)
{
    return Percorso_Mostrato(cartella.chopped(1));
}

/// A folder that cannot be listed is told as such: it is no empty one.
QStringList File_Con(Riscontri &riscontri, const QString &cartella, const QString &maschera)
{
    QStringList file;
    if (!Cartella_Elenca(cartella, maschera, file))
        Trovato_Guasto(riscontri, Materia::Cartelle, In_Parole(ILLEGGIBILE).arg(Cartella_Mostrata(cartella)),
                       In_Parole(DARE_DIRITTI));
    return file;
}

/// Of a file that cannot be read nobody knows that it is good.
bool Acc_Buono(const QString &file)
{
    return Controllo_Fine(Controllo_Esegui(file)) == FineStrumento::Buono;
}
bool Far_Buono(const QString &file)
{
    try {
        return Far_Leggi(file).Difetti.isEmpty();
    } catch (const ErroreEsecuzione &) {
        return false;
    }
}

QString Nomi_Detti(const QStringList &file)
{
    QStringList nomi;
    for (const QString &uno : file.first(std::min(file.size(), NOMI_DETTI)))
        nomi.append(Fs_Nome(uno));
    return nomi.join(QStringLiteral(", ")) + (file.size() > NOMI_DETTI ? QStringLiteral(", ...") : QString());
}

void Guarda_File(Riscontri &riscontri, const QString &cartella, const QStringList &file,
                 bool (*buono)(const QString &), const Parole &tutti, const Parole &alcuni,
                 const Parole &rimedio)
{
    QStringList cattivi = file;
    cattivi.removeIf(buono);
    if (file.isEmpty())
        return;
    if (cattivi.isEmpty())
        Trovato_Buono(riscontri, Materia::Cartelle, In_Parole(tutti).arg(file.size()));
    else
        Trovato_Avviso(riscontri, Materia::Cartelle,
                       In_Parole(alcuni).arg(QString::number(cattivi.size()), QString::number(file.size()),
                                             Nomi_Detti(cattivi)),
                       In_Parole(rimedio).arg(Cartella_Mostrata(cartella)));
}

/// A name that no mask of the station or of the network's software takes, and that nobody else has.
bool Scrittura_Riuscita(const QString &cartella)
{
    QFile prova(Percorso_Nativo(
        cartella + QStringLiteral("lumira-diagnosi-%1.tmp").arg(QCoreApplication::applicationPid())));
    if (!prova.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return false;
    const bool scritto = prova.write("x") == 1 && prova.flush();
    return prova.remove() && scritto;
}

void Guarda_Diritti(Riscontri &riscontri, const QString &cartella, bool scrivi)
{
    const bool buoni = scrivi ? Scrittura_Riuscita(cartella) : Cartella_Scrivibile(cartella);
    if (!buoni)
        Trovato_Guasto(riscontri, Materia::Cartelle,
                       In_Parole(NON_SCRIVIBILE).arg(Cartella_Mostrata(cartella)), In_Parole(DARE_DIRITTI));
    else if (scrivi)
        Trovato_Buono(riscontri, Materia::Cartelle, In_Parole(SCRITTA).arg(Cartella_Mostrata(cartella)));
}

/// @param[out] accettazioni its acceptance files. @return false when there is nothing to look into.
bool Guarda_Cartella(Riscontri &riscontri, const QString &cartella, bool scrivi, QStringList &accettazioni)
{
    QElapsedTimer tempo;
    tempo.start();
    const CartellaScambio trovata = Cartella_Guarda(cartella);
    const qint64 durata = tempo.elapsed();
    const QString mostrata = Cartella_Mostrata(cartella);
    // A station that starts from an empty form does without.
    const Grado seManca = gIniFile ? Grado::Guasto : Grado::Avviso;
    if (trovata.Stato == StatoCartella::Mancante) {
        riscontri.append({Materia::Cartelle, seManca, In_Parole(MANCA).arg(mostrata), In_Parole(CREARE)});
        return false;
    }
    if (trovata.Stato == StatoCartella::Illeggibile) {
        riscontri.append(
            {Materia::Cartelle, seManca, In_Parole(ILLEGGIBILE).arg(mostrata), In_Parole(DARE_DIRITTI)});
        return false;
    }
    accettazioni = File_Con(riscontri, cartella, QStringLiteral("*.acc"));
    if (durata > ELENCO_LENTO)
        Trovato_Avviso(riscontri, Materia::Cartelle, In_Parole(LENTA).arg(mostrata, QString::number(durata)),
                       In_Parole(RETE));
    else
        Trovato_Buono(riscontri, Materia::Cartelle,
                      In_Parole(PRESENTE).arg(mostrata, QString::number(durata),
                                              QString::number(accettazioni.size()),
                                              QString::number(trovata.InAttesa)));
    Guarda_Diritti(riscontri, cartella, scrivi);
    return true;
}

} // namespace

/// Results go where the acceptance files lie: the folder that lumira.ini has for them nobody uses.
void Diagnosi_Cartelle(Riscontri &riscontri, bool scrivi)
{
    QStringList accettazioni;
    if (!Guarda_Cartella(riscontri, gDirAcc, scrivi, accettazioni))
        return;
    // Without the template every file is anomalous, and that is no fault of theirs.
    if (Fs_Esiste(gFileModelloAcc, 0)) {
        Controllo_Prepara();
        Guarda_File(riscontri, gDirAcc, accettazioni, Acc_Buono, ACC_BUONI, ACC_ANOMALI, USARE_ACC);
    }
    Guarda_File(riscontri, gDirAcc, File_Con(riscontri, gDirAcc, QStringLiteral("*.far")), Far_Buono,
                FAR_BUONI, FAR_DIFETTOSI, USARE_FAR);
}
