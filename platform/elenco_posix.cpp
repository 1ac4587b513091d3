// Listings on the POSIX directory calls.
#include "platform/elenco.h"

#include "platform/errore_esecuzione.h"
#include "platform/maiuscole.h"
#include "platform/percorsi.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

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
QRegularExpression Espressione_Di(const QString &maschera)
{
    QString forma = QRegularExpression::escape(maschera == u"*.*" ? QStringLiteral("*") : maschera);
    forma.replace(QStringLiteral("\\*"), QStringLiteral(".*"))
        .replace(QStringLiteral("\\?"), QStringLiteral("."));
    static const QRegularExpression TRE_LETTERE(QStringLiteral("\\*\\.[^.*?]{3}$"));
    if (TRE_LETTERE.match(maschera).hasMatch())
        forma += QStringLiteral("[^.]*");
    return QRegularExpression(QRegularExpression::anchoredPattern(forma),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

quint64 Tempo_1601(const timespec &tempo)
{
    return static_cast<quint64>(DAL_1601_AL_1970 + static_cast<qint64>(tempo.tv_sec) * 10000000 +
                                tempo.tv_nsec / 100);
}

bool Gemelli(const RecordTrovato &a, const RecordTrovato &b)
{
    return std::equal(a.cFileName.cbegin(), a.cFileName.cend(), b.cFileName.cbegin(), b.cFileName.cend(),
                      [](QChar x, QChar y) { return x.toUpper() == y.toUpper(); });
}

/// By name without regard to case; of names that differ by case alone, the one first that a search for the
/// name in capitals opens: the one in capitals, else the first in plain order.
bool Prima_Su_Ntfs(const RecordTrovato &a, const RecordTrovato &b)
{
    if (Gemelli(a, b)) {
        const QString grande = Maiuscole(a.cFileName);
        return b.cFileName != grande && (a.cFileName == grande || a.cFileName < b.cFileName);
    }
    return std::lexicographical_compare(a.cFileName.cbegin(), a.cFileName.cend(), b.cFileName.cbegin(),
                                        b.cFileName.cend(),
                                        [](QChar x, QChar y) { return x.toUpper() < y.toUpper(); });
}

RecordTrovato Record_Di(const QString &nome, const struct stat &stato)
{
    RecordTrovato trovato;
    trovato.cFileName = nome;
    if (S_ISDIR(stato.st_mode))
        trovato.dwFileAttributes |= ATTRIBUTO_CARTELLA;
    if (nome.startsWith(u'.') && nome != u"." && nome != u"..")
        trovato.dwFileAttributes |= ATTRIBUTO_NASCOSTO;
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

/// Lists a folder whole or not at all: a connection lost in the middle must not make the rest of the vehicles
/// look gone. @return 0, or the number of the system's error.
int Elenca(const QString &cartella, const QRegularExpression &espressione, QList<RecordTrovato> &trovati)
{
    const QByteArray nome = QFile::encodeName(cartella.isEmpty() ? QStringLiteral(".") : cartella);
    if (nome.contains('\0'))
        return EINVAL;
    const std::unique_ptr<DIR, int (*)(DIR *)> aperta(::opendir(nome.constData()), &::closedir);
    if (!aperta)
        return errno;
    QList<RecordTrovato> elenco;
    int errore = 0;
    while (const dirent *voce = Voce_Seguente(aperta.get(), errore)) {
        const QString trovato = QFile::decodeName(voce->d_name);
        if (!espressione.match(trovato).hasMatch())
            continue;
        struct stat stato;
        if (::fstatat(::dirfd(aperta.get()), voce->d_name, &stato, 0) == 0)
            elenco.append(Record_Di(trovato, stato));
        else if (!Solo_Della_Voce(errno))
            return errno;
    }
    if (errore != 0)
        return errore;
    std::sort(elenco.begin(), elenco.end(), Prima_Su_Ntfs);
    // A volume of Windows holds one name in one spelling. Here a line of the worklist, whose name is in
    // capitals, would show one file and open another.
    elenco.erase(std::unique(elenco.begin(), elenco.end(), Gemelli), elenco.end());
    trovati = elenco;
    return 0;
}

/// The entry that a path names as it is spelled; nothing when there is none, or when a mask is asked for. The
/// question whether a file is there must not cost a listing: in a folder of ten thousand, asked for each of
/// them, that took minutes.
std::optional<RecordTrovato> Voce_Esatta(const Richiesta &richiesta)
{
    struct stat stato;
    const QByteArray nome = QFile::encodeName(richiesta.cartella + richiesta.maschera);
    if (richiesta.maschera.isEmpty() || richiesta.maschera.contains(u'*') ||
        richiesta.maschera.contains(u'?') || nome.contains('\0') || ::stat(nome.constData(), &stato) != 0)
        return std::nullopt;
    return Record_Di(richiesta.maschera, stato);
}

} // namespace

bool Trova_File(const QString &percorso, QList<RecordTrovato> &trovati)
{
    trovati.clear();
    const Richiesta richiesta = Richiesta_Di(percorso);
    return Elenca(richiesta.cartella, Espressione_Di(richiesta.maschera), trovati) == 0 && !trovati.isEmpty();
}

QStringList Cartella_Elenca(const QString &percorso, qint16 attributo)
{
    const Richiesta richiesta = Richiesta_Di(percorso);
    if (const std::optional<RecordTrovato> voce = Voce_Esatta(richiesta))
        return Nomi_Con({*voce}, attributo);
    const QString maschera = richiesta.maschera.isEmpty() ? QStringLiteral("*") : richiesta.maschera;
    QList<RecordTrovato> trovati;
    const int errore = Elenca(richiesta.cartella, Espressione_Di(maschera), trovati);
    if (errore != 0 && errore != ENOENT && errore != ENOTDIR)
        Solleva(NumeroErrore::NomeFileErrato);
    return Nomi_Con(trovati, attributo);
}
