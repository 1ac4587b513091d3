// One listing, and what it tells. What stands in a file is not known here.
#include "mctc/cartella_scambio.h"

#include "core/modFs.h"
#include "platform/elenco.h"
#include "platform/maiuscole.h"

#include <QStringList>

#include <algorithm>

namespace {

bool Ha_Estensione(const QString &nome, QStringView estensione)
{
    return Fs_Estensione(nome).compare(estensione, Qt::CaseInsensitive) == 0;
}

/// A result file that is empty is none: a station that was switched off in the middle of writing leaves it
/// so, and its vehicle has to be tested again.
VeicoliFatti Fatti_Tra(QList<RecordTrovato> trovati)
{
    trovati.removeIf([](const RecordTrovato &trovato) { return trovato.nFileSize == 0; });
    VeicoliFatti fatti;
    for (const QString &nome : Nomi_Con(trovati, 0)) {
        if (Ha_Estensione(nome, u"far"))
            fatti.insert(Maiuscole(Fs_Radice(nome)));
    }
    return fatti;
}

} // namespace

CartellaScambio Cartella_Guarda(const QString &cartella)
{
    if (!Fs_CartellaAmmessa(cartella))
        return {StatoCartella::Illeggibile, 0}; // too deep for its files
    QList<RecordTrovato> trovati;
    if (!Trova_File(cartella + u'*', trovati)) {
        const bool presente = Fs_Esiste(cartella.chopped(1), ATTRIBUTO_CARTELLA);
        return {presente ? StatoCartella::Illeggibile : StatoCartella::Mancante, 0};
    }
    const VeicoliFatti fatti = Fatti_Tra(trovati);
    QStringList nomi = Nomi_Con(trovati, 0);
    nomi.removeIf([](const QString &nome) { return !Ha_Estensione(nome, u"acc"); });
    const auto attesa =
        std::count_if(nomi.cbegin(), nomi.cend(), [&](const QString &nome) { return !E_Fatto(fatti, nome); });
    return {nomi.isEmpty() ? StatoCartella::Vuota : StatoCartella::ConAccettazioni, Intero32(attesa)};
}

VeicoliFatti Fatti_Elenca(const QString &cartella, const std::function<void()> &intanto)
{
    QList<RecordTrovato> trovati;
    Trova_File(cartella + QStringLiteral("*.far"), trovati, intanto);
    return Fatti_Tra(trovati);
}

bool E_Fatto(const VeicoliFatti &fatti, const QString &nomeFile)
{
    // A full list asks ten thousand times, and while it does no key is taken up.
    return !fatti.isEmpty() && fatti.contains(Maiuscole(Fs_Radice(nomeFile)));
}
