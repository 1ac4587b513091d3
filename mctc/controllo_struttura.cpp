// Names counted in the template and in the file, and compared. It looks at no value.
#include "mctc/controllo_struttura.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "platform/numeri.h"

#include <optional>
#include <vector>

ListaAnomalie gAnomalieStruttura;

namespace {

constexpr qsizetype LUNGHEZZA_NOME = 8;

/// A section head: its places in the text.
struct Testa
{
    qsizetype aperta = -1;
    qsizetype chiusa = -1;

    QStringView Nome(const QString &testo) const
    {
        return QStringView(testo).sliced(aperta + 1, chiusa - aperta - 1);
    }
};

/// The first head from a place on: a "[" and the first "]" behind it, with no other "[" between.
std::optional<Testa> Prossima_Testa(const QString &testo, qsizetype da)
{
    Testa testa;
    for (qsizetype i = da; i < testo.size(); ++i) {
        if (testo[i] == u'[') {
            testa.aperta = i;
        } else if (testo[i] == u']' && testa.aperta >= 0) {
            testa.chiusa = i;
            return testa;
        }
    }
    return std::nullopt;
}

/// A file that is compared: its text and its section names.
struct TestoLetto
{
    QString testo;
    QStringList sezioni;
};

/// @return what makes the file unfit, or nothing.
std::optional<AnomaliaAcc> Leggi_Testo(const QString &file, TestoLetto &letto)
{
    if (Intero16(File_Leggi(file, letto.testo)) < 0)
        return AnomaliaAcc{file, AnomaliaFile, AnomaliaNonDisponibile, {}};
    return std::nullopt;
}

std::optional<AnomaliaAcc> Leggi_Sezioni(const QString &file, TestoLetto &letto)
{
    if (Ini_Sezioni(letto.testo, letto.sezioni) < 0)
        return AnomaliaAcc{file, AnomaliaFile, AnomaliaNonIdoneo, {}};
    return std::nullopt;
}

/// Reads both files. @return the first thing that keeps them from being compared, the template's before the
/// file's, or nothing.
std::optional<AnomaliaAcc> Leggi_Entrambi(const QString &modello, const QString &file,
                                          TestoLetto &testoModello, TestoLetto &testoFile)
{
    if (!Acc_NomeValido(file))
        return AnomaliaAcc{file, AnomaliaFile, AnomaliaNonIdoneo, {}};
    std::optional<AnomaliaAcc> impedimento = Leggi_Testo(modello, testoModello);
    if (!impedimento)
        impedimento = Leggi_Testo(file, testoFile);
    if (!impedimento)
        impedimento = Leggi_Sezioni(modello, testoModello);
    if (!impedimento)
        impedimento = Leggi_Sezioni(file, testoFile);
    return impedimento;
}

} // namespace

Flag Acc_NomeValido(const QString &file)
{
    const QString radice = Fs_Radice(file);
    return Flag_Da(radice.size() == LUNGHEZZA_NOME && Numero_Valido(radice));
}

qint16 Acc_ControllaStruttura(const QString &modello, const QString &file, ListaAnomalie &lista)
{
    lista.clear();
    TestoLetto testoModello, testoFile;
    if (const auto impedimento = Leggi_Entrambi(modello, file, testoModello, testoFile)) {
        lista.append(*impedimento);
        return 0;
    }

    qint16 ultimo = -1;
    // Keys are compared only where the sections agree: a lost section head would report all of its keys.
    if (Liste_Confronta(testoModello.sezioni, testoFile.sezioni, AnomaliaSezione, ultimo, lista, QString()) >=
        0)
        return ultimo;
    for (const QString &sezione : std::as_const(testoFile.sezioni)) {
        QStringList chiaviModello, chiaviFile;
        const qint16 ultimaModello = Sezione_Chiavi(testoModello.testo, sezione, chiaviModello);
        const qint16 ultimaFile = Sezione_Chiavi(testoFile.testo, sezione, chiaviFile);
        if (ultimaModello >= 0 && ultimaFile >= 0)
            Liste_Confronta(chiaviModello, chiaviFile, AnomaliaEntry, ultimo, lista, sezione);
    }
    return ultimo;
}

qint16 Liste_Confronta(const QStringList &modello, const QStringList &file, quint8 tipo, qint16 &ultimo,
                       ListaAnomalie &lista, const QString &sezione)
{
    std::vector<quint8> nelModello(static_cast<size_t>(modello.size()));
    std::vector<quint8> nelFile(static_cast<size_t>(file.size()));
    for (size_t f = 0; f < nelFile.size(); ++f) {
        for (size_t m = 0; m < nelModello.size(); ++m) {
            if (modello[static_cast<qsizetype>(m)] != file[static_cast<qsizetype>(f)])
                continue;
            nelModello[m] = Intero8(nelModello[m] + 1);
            nelFile[f] = Intero8(nelFile[f] + 1);
        }
    }

    const qint16 prima = ultimo;
    const auto aggiungi = [&](const QStringList &nomi, const std::vector<quint8> &volte, quint8 mai) {
        for (size_t i = 0; i < volte.size(); ++i) {
            if (volte[i] != 0 && volte[i] != 2)
                continue;
            ultimo = Intero16(ultimo + 1);
            lista.append({nomi[static_cast<qsizetype>(i)], tipo,
                          volte[i] == 0 ? mai : quint8{AnomaliaDuplicata}, sezione});
        }
    };
    aggiungi(modello, nelModello, AnomaliaMancante);
    aggiungi(file, nelFile, AnomaliaEstranea);
    return ultimo > prima ? ultimo : qint16{-1};
}

qint16 Sezione_Chiavi(const QString &testo, const QString &sezione, QStringList &chiavi)
{
    chiavi.clear();
    std::optional<Testa> testa = Prossima_Testa(testo, 0);
    while (testa && testa->Nome(testo) != sezione)
        testa = Prossima_Testa(testo, testa->chiusa);
    if (!testa)
        return -1;
    // The text begins with the head's "]": an entry on the head's own line, which no profile read finds, does
    // not pass for the key of that name.
    const std::optional<Testa> dopo = Prossima_Testa(testo, testa->chiusa);
    const qsizetype fine = dopo ? dopo->aperta : testo.size();
    return Ini_Chiavi(testo.sliced(testa->chiusa, fine - testa->chiusa), chiavi);
}
