// The profile calls outside Windows. The values of a file are kept in memory for as long as its status (one
// query) says that it has not changed. A write locks the folder and puts a new file in the place of the old.
#include "platform/profilo.h"

#include "platform/percorsi.h"
#include "platform/profilo_testo.h"
#include "platform/serratura.h"
#include "platform/sostituzione.h"

#include <QCache>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

namespace {

/// What tells one state of a file from the next.
struct StatoFile
{
    quint64 dispositivo = 0;
    quint64 nodo = 0;
    qint64 lungo = 0;
    qint64 secondi = 0;
    qint64 nanosecondi = 0;

    bool operator==(const StatoFile &) const = default;
};

struct Profilo
{
    StatoFile stato;
    bool certo = false; // a change made after the reading is bound to show in the status
    bool fermo = false; // and the file had been left alone for a while when it was read
    ValoriProfilo valori;
};

/// The worklist reads thousands of small files, each once or twice: only the last few are kept.
constexpr int PROFILI_TENUTI = 8;

QCache<QString, std::shared_ptr<Profilo>> tenuti(PROFILI_TENUTI);

/// Files that are not looked at for now, by the path that the reads give; nothing for one that is missing.
QHash<QString, std::shared_ptr<Profilo>> fermi;

/// Paths spelled in another case than their files, and where those are.
QCache<QString, QString> risolti(PROFILI_TENUTI);

std::optional<StatoFile> Stato_Di(const QString &nativo)
{
    struct stat s;
    if (::stat(QFile::encodeName(nativo).constData(), &s) != 0)
        return std::nullopt;
    return StatoFile{s.st_dev, s.st_ino, s.st_size, s.st_ctim.tv_sec, s.st_ctim.tv_nsec};
}

/// How long a change may take from its stamp to its last byte: a program that is held up in the middle of
/// writing has stamped the file already.
constexpr qint64 ASSESTAMENTO = 2; // s

/// True when the clock that stamps the files has passed this state by so many seconds.
bool Gia_Passato(const StatoFile &stato, qint64 secondi)
{
    timespec ora;
    ::clock_gettime(CLOCK_REALTIME_COARSE, &ora);
    const qint64 limite = stato.secondi + secondi;
    return ora.tv_sec > limite || (ora.tv_sec == limite && ora.tv_nsec > stato.nanosecondi);
}

/// True when a change from now on gets another stamp. A file system with a coarse grain (whole seconds, even
/// seconds) is given its time.
bool Timbro_Passato(const StatoFile &stato)
{
    return Gia_Passato(stato, stato.nanosecondi == 0 ? 2 : 0);
}

/// True when what was read still stands. A file read soon after its stamp is read once more later on.
bool Ancora_Valido(const Profilo &profilo, const StatoFile &stato)
{
    return profilo.stato == stato && profilo.certo && (profilo.fermo || !Gia_Passato(stato, ASSESTAMENTO));
}

/// Where a file is and how it stands. A path spelled as the file is costs one status query; one in another
/// case is searched for once, and two queries from then on.
std::optional<StatoFile> Trova_Profilo(const QString &file, QString &nativo)
{
    nativo = file;
    nativo.replace(u'\\', u'/');
    if (const auto stato = Stato_Di(nativo))
        return stato;
    if (const QString *noto = risolti.object(file)) {
        nativo = *noto;
        if (const auto stato = Stato_Di(nativo))
            return stato;
    }
    nativo = Percorso_Nativo(file);
    const auto stato = Stato_Di(nativo);
    if (stato)
        risolti.insert(file, new QString(nativo));
    return stato;
}

/// The bytes of a file; none when it cannot be read. By the system's own calls: of a small file, of which the
/// worklist reads thousands, the toolkit's class takes as long to come and go as to read it.
std::optional<QByteArray> Byte_Di(const QString &nativo)
{
    const QByteArray nome = QFile::encodeName(nativo);
    const int aperto = nome.contains('\0') ? -1 : ::open(nome.constData(), O_RDONLY | O_CLOEXEC);
    if (aperto < 0)
        return std::nullopt;
    std::array<char, 16384> blocco;
    QByteArray byte;
    ssize_t letti = 0;
    do { // a signal that breaks a call off is no fault of the file
        letti = ::read(aperto, blocco.data(), blocco.size());
        byte.append(blocco.data(), std::max<ssize_t>(0, letti));
    } while (letti > 0 || (letti < 0 && errno == EINTR));
    ::close(aperto);
    return letti < 0 ? std::nullopt : std::optional(byte);
}

/// The file as it stands now; nullptr when it is missing or cannot be read.
std::shared_ptr<Profilo> Profilo_Attuale(const QString &file)
{
    QString nativo;
    const std::optional<StatoFile> stato = Trova_Profilo(file, nativo);
    if (!stato) {
        tenuti.remove(nativo);
        return nullptr;
    }
    if (const auto *tenuto = tenuti.object(nativo); tenuto != nullptr && Ancora_Valido(**tenuto, *stato))
        return *tenuto;

    auto letto = std::make_shared<Profilo>();
    letto->stato = *stato;
    letto->certo = Timbro_Passato(*stato);
    letto->fermo = Gia_Passato(*stato, ASSESTAMENTO);
    const std::optional<QByteArray> byte = Byte_Di(nativo);
    if (!byte) {
        tenuti.remove(nativo);
        return nullptr;
    }
    letto->valori = ValoriProfilo(*byte);
    tenuti.insert(nativo, new std::shared_ptr<Profilo>(letto));
    return letto;
}

/// What a read is answered from.
std::shared_ptr<Profilo> Profilo_Da(const QString &file)
{
    const auto fermo = fermi.constFind(file);
    return fermo != fermi.cend() ? *fermo : Profilo_Attuale(file);
}

/// Where the file of a path is, behind however many symbolic links: its folder is the one to lock. A path to
/// nothing stays as it is.
QString Percorso_Vero(const QString &nativo)
{
    const QString vero = QFileInfo(nativo).canonicalFilePath();
    return vero.isEmpty() ? nativo : vero;
}

/// Reads, changes and replaces a file while no other of these programs does: the keys of both are kept. It
/// starts from what the file holds, never from what is kept of it.
bool Valore_Sostituisci(const QString &vero, const QString &sezione, const QString &chiave,
                        const QString &valore)
{
    const Serratura serratura(QFileInfo(vero).path());
    const std::optional<QByteArray> byte = QFile::exists(vero) ? Byte_Di(vero) : QByteArray();
    if (!byte)
        return false; // there, but not to be read: writing would lose what it holds
    return File_Sostituisci(vero, Profilo_Aggiornato(*byte, sezione, chiave, valore));
}

} // namespace

QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int capienza,
                      const QString &file)
{
    std::optional<QString> valore;
    if (const std::shared_ptr<Profilo> profilo = Profilo_Da(file))
        valore = profilo->valori.Valore(Nome_DaConfrontare(sezione), Nome_DaConfrontare(chiave));
    return valore.value_or(predefinito).left(std::max(0, capienza - 1));
}

bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore, const QString &file)
{
    if (!Profilo_Ammette(sezione, chiave, valore))
        return false;
    const QString nativo = Percorso_Nativo(file);
    const QString vero = Percorso_Vero(nativo);
    const bool scritto = Valore_Sostituisci(vero, sezione, chiave, valore);
    tenuti.remove(nativo);
    fermi.clear(); // the file may be one of them under another spelling
    if (scritto)
        File_Riassetta(vero);
    return scritto;
}

ProfiloFermo::ProfiloFermo(const QString &file)
{
    if (fermi.contains(file))
        return;
    m_file = file;
    fermi.insert(file, Profilo_Attuale(file));
}

ProfiloFermo::~ProfiloFermo()
{
    fermi.remove(m_file);
}
