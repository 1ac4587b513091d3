// One listing, and what its names tell. What stands in a file is not known here.
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

VeicoliFatti Fatti_Tra(const QStringList &nomi)
{
    VeicoliFatti fatti;
    for (const QString &nome : nomi) {
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
    QStringList nomi;
    if (!Trova_Nomi(cartella + u'*', 0, nomi)) {
        const bool presente = Fs_Esiste(cartella.chopped(1), ATTRIBUTO_CARTELLA);
        return {presente ? StatoCartella::Illeggibile : StatoCartella::Mancante, 0};
    }
    const VeicoliFatti fatti = Fatti_Tra(nomi);
    nomi.removeIf([](const QString &nome) { return !Ha_Estensione(nome, u"acc"); });
    const auto attesa =
        std::count_if(nomi.cbegin(), nomi.cend(), [&](const QString &nome) { return !E_Fatto(fatti, nome); });
    return {nomi.isEmpty() ? StatoCartella::Vuota : StatoCartella::ConAccettazioni, Intero32(attesa)};
}

VeicoliFatti Fatti_Elenca(const QString &cartella)
{
    QStringList nomi;
    Trova_Nomi(cartella + QStringLiteral("*.far"), 0, nomi);
    return Fatti_Tra(nomi);
}

bool E_Fatto(const VeicoliFatti &fatti, const QString &nomeFile)
{
    return fatti.contains(Maiuscole(Fs_Radice(nomeFile)));
}
