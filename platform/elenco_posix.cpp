// Listings on the POSIX directory calls.
#include "platform/elenco.h"

#include "platform/errore_esecuzione.h"
#include "platform/maiuscole.h"
#include "platform/percorsi.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace {

/// 100 ns between 1601-01-01 and 1970-01-01.
constexpr qint64 DAL_1601_AL_1970 = 116444736000000000;

struct Richiesta
{
    QString cartella; // native, with a slash at its end, or empty
    QString maschera;
};

Richiesta Richiesta_Di(const QString &percorso)
{
    const qsizetype barra = percorso.lastIndexOf(u'\\');
    Richiesta richiesta;
    richiesta.maschera = percorso.mid(barra + 1);
    if (barra >= 0)
        richiesta.cartella = Percorso_Nativo(percorso.left(barra + 1));
    return richiesta;
}

/// A mask of the system: "*" and "?" without regard to case. "*.*" takes names without a point too. A mask
/// with a three-letter extension also takes longer extensions that begin with it, as a volume does that
/// keeps short names beside the long.
class Maschera
{
public:
    explicit Maschera(const QString &maschera)
        : m_segni(maschera == u"*.*" ? QStringLiteral("*") : Maiuscole(maschera)),
          m_treLettere(Di_TreLettere(m_segni))
    {
    }

    /// @param grande a name in capitals.
    bool Prende(QStringView grande) const
    {
        const qsizetype punto = m_treLettere ? grande.lastIndexOf(u'.') : -1;
        return Combacia(punto < 0 ? grande : grande.first(std::min(punto + 4, grande.size())));
    }

private:
    static bool Di_TreLettere(QStringView segni)
    {
        const QStringView coda = segni.last(std::min<qsizetype>(5, segni.size()));
        return coda.size() == 5 && coda.startsWith(u"*.") &&
               std::none_of(coda.begin() + 2, coda.end(),
                            [](QChar segno) { return segno == u'.' || segno == u'*' || segno == u'?'; });
    }

    /// Sign by sign; where it does not go on, the last star takes one letter more.
    bool Combacia(QStringView nome) const
    {
        qsizetype segno = 0, lettera = 0, stella = -1, presa = 0;
        while (lettera < nome.size()) {
            if (segno < m_segni.size() && m_segni[segno] == u'*') {
                stella = segno++;
                presa = lettera;
            } else if (segno < m_segni.size() && (m_segni[segno] == u'?' || m_segni[segno] == nome[lettera]))
            {
                ++segno;
                ++lettera;
            } else if (stella >= 0) {
                segno = stella + 1;
                lettera = ++presa;
            } else {
                return false;
            }
        }
        return std::all_of(m_segni.cbegin() + segno, m_segni.cend(),
                           [](QChar resto) { return resto == u'*'; });
    }

    QString m_segni;
    bool m_treLettere;
};

quint64 Tempo_1601(const timespec &tempo)
{
    return static_cast<quint64>(DAL_1601_AL_1970 + static_cast<qint64>(tempo.tv_sec) * 10000000 +
                                tempo.tv_nsec / 100);
}

/// An entry, and the name by which it is matched and sorted: a full folder would have each letter of it made
/// a capital a dozen times over.
struct Voce
{
    QString grande;
    RecordTrovato record;
};

bool Gemelle(const Voce &a, const Voce &b)
{
    return a.grande == b.grande;
}

/// By name without regard to case; of names that differ by case alone, the one first that a search for the
/// name in capitals opens: the one in capitals, else the first in plain order.
bool Prima_Su_Ntfs(const Voce &a, const Voce &b)
{
    if (const int ordine = a.grande.compare(b.grande); ordine != 0)
        return ordine < 0;
    const QString &nomeA = a.record.cFileName;
    const QString &nomeB = b.record.cFileName;
    return nomeB != a.grande && (nomeA == a.grande || nomeA < nomeB);
}

RecordTrovato Record_Di(const QString &nome, bool cartella)
{
    RecordTrovato trovato;
    trovato.cFileName = nome;
    if (cartella)
        trovato.dwFileAttributes |= ATTRIBUTO_CARTELLA;
    if (nome.startsWith(u'.') && nome != u"." && nome != u"..")
        trovato.dwFileAttributes |= ATTRIBUTO_NASCOSTO;
    return trovato;
}

RecordTrovato Record_Di(const QString &nome, const struct stat &stato)
{
    RecordTrovato trovato = Record_Di(nome, S_ISDIR(stato.st_mode));
    trovato.ftLastAccessTime = Tempo_1601(stato.st_atim);
    trovato.ftLastWriteTime = Tempo_1601(stato.st_mtim);
    trovato.nFileSize = static_cast<quint64>(stato.st_size);
    return trovato;
}

/// The next entry of an open folder; none behind the last, and when the folder does not go on answering.
/// @param[out] errore 0, or the number of the system's error.
const dirent *Voce_Seguente(DIR *aperta, int &errore)
{
    errno = 0;
    const dirent *voce = ::readdir(aperta);
    errore = voce == nullptr ? errno : 0;
    return voce;
}

/// True when the entry alone is the matter: it has gone since it was listed, is a link to nothing, or not for
/// this user. Any other error is the folder's, on a share that has lost its connection.
bool Solo_Della_Voce(int errore)
{
    return errore == ENOENT || errore == ENOTDIR || errore == EACCES || errore == ELOOP ||
           errore == EOVERFLOW;
}

/// What a listing is for: names alone do not cost a question a file.
enum class Serve
{
    Nomi,
    Tempi
};

/// The record of an entry of an open folder; nothing for one that leads nowhere.
/// @param[out] errore 0, or the number of the system's error where it is the folder's.
std::optional<RecordTrovato> Record_Della(const dirent &voce, const QString &nome, DIR *cartella, Serve serve,
                                          int &errore)
{
    // A link is what it leads to, and not every file system tells the kind.
    const bool nota = voce.d_type != DT_LNK && voce.d_type != DT_UNKNOWN;
    if (serve == Serve::Nomi && nota)
        return Record_Di(nome, voce.d_type == DT_DIR);
    struct stat stato;
    if (::fstatat(::dirfd(cartella), voce.d_name, &stato, 0) != 0) {
        errore = Solo_Della_Voce(errno) ? 0 : errno;
        return std::nullopt;
    }
    return Record_Di(nome, stato);
}

/// Entries between two turns of what runs meanwhile: a millisecond at most.
constexpr qsizetype VOCI_A_TURNO = 200;

/// Lists a folder whole or not at all: a connection lost in the middle must not make the rest of the vehicles
/// look gone. @return 0, or the number of the system's error.
int Elenca(const QString &cartella, const Maschera &maschera, Serve serve,
           const std::function<void()> &intanto, QList<RecordTrovato> &trovati)
{
    const QByteArray nome = QFile::encodeName(cartella.isEmpty() ? QStringLiteral(".") : cartella);
    if (nome.contains('\0'))
        return EINVAL;
    const std::unique_ptr<DIR, int (*)(DIR *)> aperta(::opendir(nome.constData()), &::closedir);
    if (!aperta)
        return errno;
    std::vector<Voce> voci;
    int errore = 0;
    for (qsizetype letta = 1; const dirent *voce = Voce_Seguente(aperta.get(), errore); ++letta) {
        if (intanto && letta % VOCI_A_TURNO == 0)
            intanto();
        const QString trovato = QFile::decodeName(voce->d_name);
        QString grande = Maiuscole(trovato);
        if (!maschera.Prende(grande))
            continue;
        if (auto record = Record_Della(*voce, trovato, aperta.get(), serve, errore))
            voci.push_back({std::move(grande), std::move(*record)});
        if (errore != 0)
            return errore;
    }
    if (errore != 0)
        return errore;
    std::sort(voci.begin(), voci.end(), Prima_Su_Ntfs);
    // A volume of Windows holds one name in one spelling. Here a line of the worklist, whose name is in
    // capitals, would show one file and open another.
    voci.erase(std::unique(voci.begin(), voci.end(), Gemelle), voci.end());
    trovati.reserve(static_cast<qsizetype>(voci.size()));
    for (Voce &voce : voci)
        trovati.append(std::move(voce.record));
    return 0;
}

/// The entry that a path names, in whatever case; nothing when there is none, or when a mask is asked for.
/// The question whether a file is there must not cost a listing: in a folder of ten thousand, asked for each
/// of them, that took minutes.
std::optional<RecordTrovato> Voce_Sola(const QString &percorso)
{
    const QString maschera = percorso.mid(percorso.lastIndexOf(u'\\') + 1);
    if (maschera.isEmpty() || maschera.contains(u'*') || maschera.contains(u'?'))
        return std::nullopt;
    struct stat stato;
    const QString nativo = Percorso_Nativo(percorso);
    const QByteArray nome = QFile::encodeName(nativo);
    if (nome.contains('\0') || ::stat(nome.constData(), &stato) != 0)
        return std::nullopt;
    return Record_Di(nativo.mid(nativo.lastIndexOf(u'/') + 1), stato);
}

} // namespace

bool Trova_File(const QString &percorso, QList<RecordTrovato> &trovati, const std::function<void()> &intanto)
{
    trovati.clear();
    const Richiesta richiesta = Richiesta_Di(percorso);
    return Elenca(richiesta.cartella, Maschera(richiesta.maschera), Serve::Tempi, intanto, trovati) == 0 &&
           !trovati.isEmpty();
}

QStringList Cartella_Elenca(const QString &percorso, qint16 attributo, const std::function<void()> &intanto)
{
    if (const std::optional<RecordTrovato> voce = Voce_Sola(percorso))
        return Nomi_Con({*voce}, attributo);
    const Richiesta richiesta = Richiesta_Di(percorso);
    const QString maschera = richiesta.maschera.isEmpty() ? QStringLiteral("*") : richiesta.maschera;
    QList<RecordTrovato> trovati;
    const int errore = Elenca(richiesta.cartella, Maschera(maschera), Serve::Nomi, intanto, trovati);
    if (errore != 0 && errore != ENOENT && errore != ENOTDIR)
        Solleva(NumeroErrore::NomeFileErrato);
    return Nomi_Con(trovati, attributo);
}
