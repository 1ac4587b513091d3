// Names counted in the template and in the file, and compared. It looks at no value.
#include "mctc/controllo_struttura.h"

#include "core/modFs.h"
#include "core/modGeneral.h"
#include "core/modStr.h"
#include "platform/numeri.h"

#include <QHash>

#include <algorithm>
#include <optional>

ListaAnomalie gAnomalieStruttura;

namespace {

constexpr qsizetype LUNGHEZZA_NOME = 8;

/// A section head: its places in the text.
struct Testa
{
    qsizetype aperta;
    qsizetype chiusa;

    QStringView Nome(const QString &testo) const
    {
        return QStringView(testo).sliced(aperta + 1, chiusa - aperta - 1);
    }
};

/// The first head from a place on: a "[" and the first "]" behind it, with no other "[" between.
std::optional<Testa> Prossima_Testa(const QString &testo, qsizetype da)
{
    const qsizetype prima = testo.indexOf(u'[', da);
    const qsizetype chiusa = prima < 0 ? -1 : testo.indexOf(u']', prima);
    if (chiusa < 0)
        return std::nullopt;
    return Testa{testo.lastIndexOf(u'[', chiusa), chiusa};
}

/// A file that is compared: its text and its section names.
struct TestoLetto
{
    QString testo;
    ListaBrani sezioni;
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

/// @return the findings about the keys of one section; none when it has no key on either side.
ListaAnomalie Chiavi_Confronta(const QString &testoModello, const QString &testoFile, const QString &sezione)
{
    ListaAnomalie lista;
    qint16 ultimo = -1;
    ListaBrani chiaviModello, chiaviFile;
    if (Sezione_Chiavi(testoModello, sezione, chiaviModello) >= 0 &&
        Sezione_Chiavi(testoFile, sezione, chiaviFile) >= 0)
        Liste_Confronta(chiaviModello, chiaviFile, AnomaliaEntry, ultimo, lista, sezione);
    return lista;
}

/// How often one name stands on either side.
struct Copie
{
    qsizetype nelModello = 0;
    qsizetype nelFile = 0;
};

/// The names of the template and how often each stands on either side.
class Conteggio
{
public:
    /// @throws ErroreEsecuzione 6 for a name on both sides that stands 256 times on one of them.
    Conteggio(const ListaBrani &modello, const ListaBrani &file)
    {
        for (const Brano &nome : modello) {
            ++m_copie[nome.Vista()].nelModello;
            m_piuLungo = std::max(m_piuLungo, nome.Vista().size());
        }
        for (const Brano &nome : file) {
            if (Noto(nome))
                ++m_copie[nome.Vista()].nelFile;
        }
        for (const Copie &copie : std::as_const(m_copie)) {
            if (copie.nelFile > 0)
                Intero8(std::max(copie.nelModello, copie.nelFile));
        }
    }
    /// All 0 for a name that is not in the template.
    Copie Di(const Brano &nome) const { return Noto(nome) ? m_copie.value(nome.Vista()) : Copie{}; }

private:
    /// The length first: a line of thousands of equals signs makes names that are too long to look each of
    /// them up.
    bool Noto(const Brano &nome) const
    {
        return nome.Vista().size() <= m_piuLungo && m_copie.contains(nome.Vista());
    }

    QHash<QStringView, Copie> m_copie;
    qsizetype m_piuLungo = 0;
};

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
    // A name that stands in the file many times means its first section each time: the same findings again.
    QHash<QString, ListaAnomalie> confrontate;
    for (const Brano &nome : std::as_const(testoFile.sezioni)) {
        const QString sezione = nome.Copia();
        auto confrontata = confrontate.find(sezione);
        if (confrontata == confrontate.end())
            confrontata =
                confrontate.insert(sezione, Chiavi_Confronta(testoModello.testo, testoFile.testo, sezione));
        ultimo = Intero16(ultimo + confrontata->size());
        lista += *confrontata;
    }
    return ultimo;
}

qint16 Liste_Confronta(const ListaBrani &modello, const ListaBrani &file, quint8 tipo, qint16 &ultimo,
                       ListaAnomalie &lista, const QString &sezione)
{
    const qint16 prima = ultimo;
    const auto esamina = [&](const Brano &nome, qsizetype volte, quint8 mai) {
        if (volte != 0 && volte != 2)
            return;
        ultimo = Intero16(ultimo + 1);
        lista.append({nome, tipo, volte == 0 ? mai : quint8{AnomaliaDuplicata}, sezione});
    };
    const Conteggio conteggio(modello, file);
    for (const Brano &nome : modello)
        esamina(nome, conteggio.Di(nome).nelFile, AnomaliaMancante);
    for (const Brano &nome : file)
        esamina(nome, conteggio.Di(nome).nelModello, AnomaliaEstranea);
    return ultimo > prima ? ultimo : qint16{-1};
}

qint16 Sezione_Chiavi(const QString &testo, const QString &sezione, ListaBrani &chiavi)
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
