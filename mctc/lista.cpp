// The listing of the folder as entries, and two listings compared. It knows no list box and no check.
#include "mctc/lista.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "mctc/campi_acc.h"
#include "platform/errore_esecuzione.h"
#include "platform/eventi.h"
#include "platform/maiuscole.h"

#include <QStringBuilder>

namespace {

/// @param cartella ends in a backslash afterwards. @return the last index of nomi; -1 also for a folder that
/// cannot be reached: a network folder comes and goes, and an empty list stays usable.
qint32 Nomi_Elenca(QString &cartella, QStringList &nomi)
{
    try {
        return Fs_Elenco(cartella, QStringLiteral("*.acc"), nomi, Falso, Vero);
    } catch (const ErroreEsecuzione &) {
        return -1;
    }
}

/// The entries once round, from one on.
template <typename Confronto>
qint32 Primo_In_Giro(const QList<VoceLista> &voci, qint32 da, qint32 passo, Confronto confronto)
{
    const auto quante = static_cast<qint32>(voci.size());
    for (qint32 n = 0; n < quante; ++n) {
        const qint32 i = ((da + n * passo) % quante + quante) % quante;
        if (confronto(voci[i]))
            return i;
    }
    return -1;
}

} // namespace

qint32 Lista_Leggi(const QString &cartella, QList<VoceLista> &voci)
{
    QString conBarra = cartella;
    QStringList nomi;
    // A folder of thousands takes longer than an operator who presses a button waits for an answer: events
    // run between the poll's listing and this one, and behind every file. Behind the last one too: what was
    // pressed while it was read is for the list that the operator still sees.
    Eventi_Esegui();
    const qint32 ultima = Nomi_Elenca(conBarra, nomi);
    if (ultima < 0)
        return -1;
    QList<VoceLista> lette;
    for (const QString &nome : std::as_const(nomi)) {
        VoceLista voce;
        voce.NomeFile = Maiuscole(nome);
        // Opened as listed: where names tell case apart, the upper-case name would cost a search of the
        // folder for every file.
        voce.Targa = Targa_Leggi(conBarra + nome);
        voce.Stato = Testo_Mctc(MctcSi);
        lette.append(voce);
        Eventi_Esegui();
    }
    voci = lette;
    return ultima;
}

QStringList Lista_Righe(const QList<VoceLista> &voci, qint32 quante)
{
    QStringList righe;
    for (qint32 i = 0; i < quante; ++i)
        righe.append(voci[i].NomeFile % u'\t' % voci[i].Targa);
    return righe;
}

qint32 Liste_Differenze(const QStringList &prima, const QStringList &dopo)
{
    if (prima.size() != dopo.size())
        return 0;
    qint32 differenza = -1;
    for (qsizetype i = 0; i < prima.size(); ++i) {
        if (prima[i] != dopo[i])
            ++differenza;
    }
    return differenza;
}

qint32 Lista_Cerca(const QList<VoceLista> &voci, const QString &testo, qint32 da, qint32 passo)
{
    const qint32 targa = Primo_In_Giro(voci, da, passo, [&testo](const VoceLista &voce) {
        return QString(voce.Targa).remove(u' ').contains(testo, Qt::CaseInsensitive);
    });
    if (targa >= 0)
        return targa;
    return Primo_In_Giro(voci, da, passo, [&testo](const VoceLista &voce) {
        return voce.NomeFile.contains(testo, Qt::CaseInsensitive);
    });
}
