// The profile calls outside Windows. A file is kept in memory, cut into its lines, for as long as its status
// (one query) says that it has not changed; a write goes through a temporary file and a rename.
#include "platform/profilo.h"

#include "platform/codifica.h"
#include "platform/maiuscole.h"
#include "platform/percorsi.h"

#include <QByteArrayView>
#include <QCache>
#include <QFile>
#include <QHash>
#include <QSaveFile>

#include <algorithm>
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
    qint64 misura = 0;
    qint64 secondi = 0;
    qint64 nanosecondi = 0;

    bool operator==(const StatoFile &) const = default;
};

enum class TipoRiga
{
    Testa,
    Chiave,
    Altro
};

/// One line of a profile, by its places in the bytes of the file.
struct Riga
{
    TipoRiga tipo = TipoRiga::Altro;
    QString nome;         // of the section or the key, as it is compared
    qsizetype valore = 0; // first byte behind "="; without one, the end of the text
    bool uguale = false;  // a key without "=" stands in the way of a later one of its name, and has no value
    qsizetype fine = 0;   // behind the text, before the line end
    qsizetype dopo = 0;   // behind the line end
};

struct Profilo
{
    StatoFile stato;
    bool certo = false; // a change made after the reading is bound to show in the status
    bool fermo = false; // and the file had been left alone for a while when it was read
    QByteArray byte;
    std::vector<Riga> righe;
    QHash<QString, QHash<QString, std::optional<QString>>> valori;
};

/// The worklist reads thousands of small files, each once or twice: only the last few are kept.
constexpr int PROFILI_TENUTI = 8;

QCache<QString, Profilo> tenuti(PROFILI_TENUTI);

/// Paths spelled in another case than their files, and where those are.
QCache<QString, QString> risolti(PROFILI_TENUTI);

bool Bianco(char c)
{
    return c == ' ' || c == '\t' || c == '\v';
}

QByteArrayView Senza_Bianchi(QByteArrayView testo)
{
    while (!testo.isEmpty() && Bianco(testo.front()))
        testo = testo.sliced(1);
    while (!testo.isEmpty() && Bianco(testo.back()))
        testo.chop(1);
    return testo;
}

/// A name as it is compared, without regard to case.
QString Nome_DaAnsi(const QByteArray &byte)
{
    return Maiuscole(Testo_DaAnsi(byte));
}

QString Nome_DaByte(QByteArrayView nome)
{
    return Nome_DaAnsi(Senza_Bianchi(nome).toByteArray());
}

/// A section or key as the caller gives it: it ends at a NUL and loses spaces, only spaces, at both ends.
QByteArray Nome_Richiesto(const QString &nome)
{
    const QByteArray intero = Testo_InAnsi(nome.left(nome.indexOf(QChar(0))));
    QByteArrayView byte = intero;
    while (byte.startsWith(' '))
        byte = byte.sliced(1);
    while (byte.endsWith(' '))
        byte.chop(1);
    return byte.toByteArray();
}

QString Nome_DaConfrontare(const QString &nome)
{
    return Nome_DaAnsi(Nome_Richiesto(nome));
}

QString Valore_DaByte(QByteArrayView valore)
{
    valore = Senza_Bianchi(valore);
    const bool virgolette = valore.size() >= 2 && valore.front() == valore.back() &&
                            (valore.front() == '"' || valore.front() == '\'');
    if (virgolette)
        valore = valore.sliced(1, valore.size() - 2);
    return Testo_DaAnsi(valore.toByteArray());
}

Riga Riga_Da(QByteArrayView byte, qsizetype inizio)
{
    Riga riga;
    const qsizetype fineRiga = byte.indexOf('\n', inizio);
    riga.dopo = fineRiga < 0 ? byte.size() : fineRiga + 1;
    riga.fine = fineRiga < 0 ? byte.size() : fineRiga;
    if (riga.fine > inizio && byte[riga.fine - 1] == '\r')
        --riga.fine;

    const QByteArrayView testo = byte.sliced(inizio, riga.fine - inizio);
    const QByteArrayView spoglio = Senza_Bianchi(testo);
    if (spoglio.startsWith('[')) {
        const qsizetype chiusa = spoglio.indexOf(']');
        riga.tipo = TipoRiga::Testa;
        riga.nome = Nome_DaByte(spoglio.sliced(1, (chiusa < 0 ? spoglio.size() : chiusa) - 1));
    } else if (!spoglio.isEmpty() && !spoglio.startsWith(';')) {
        const qsizetype uguale = testo.indexOf('=');
        riga.tipo = TipoRiga::Chiave;
        riga.uguale = uguale >= 0;
        riga.nome = Nome_DaByte(riga.uguale ? testo.first(uguale) : testo);
        riga.valore = riga.uguale ? inizio + uguale + 1 : riga.fine;
    }
    return riga;
}

std::optional<QString> Valore_Di(const Riga &riga, QByteArrayView byte)
{
    if (!riga.uguale)
        return std::nullopt;
    return Valore_DaByte(byte.sliced(riga.valore, riga.fine - riga.valore));
}

void Analizza(Profilo &profilo)
{
    const QByteArrayView byte = profilo.byte;
    QHash<QString, std::optional<QString>> *sezione =
        nullptr; // the section that is being filled: the first of its name
    for (qsizetype posto = 0; posto < byte.size();) {
        const Riga riga = Riga_Da(byte, posto);
        if (riga.tipo == TipoRiga::Testa)
            sezione = profilo.valori.contains(riga.nome) ? nullptr : &profilo.valori[riga.nome];
        else if (riga.tipo == TipoRiga::Chiave && sezione != nullptr && !sezione->contains(riga.nome))
            sezione->insert(riga.nome, Valore_Di(riga, byte));
        posto = riga.dopo;
        profilo.righe.push_back(riga);
    }
}

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

/// The file as it stands now; nullptr when it is missing or cannot be read.
const Profilo *Profilo_Attuale(const QString &file)
{
    QString nativo;
    const std::optional<StatoFile> stato = Trova_Profilo(file, nativo);
    if (!stato) {
        tenuti.remove(nativo);
        return nullptr;
    }
    if (const Profilo *tenuto = tenuti.object(nativo); tenuto != nullptr && Ancora_Valido(*tenuto, *stato))
        return tenuto;

    auto letto = std::make_unique<Profilo>();
    letto->stato = *stato;
    letto->certo = Timbro_Passato(*stato);
    letto->fermo = Gia_Passato(*stato, ASSESTAMENTO);
    QFile aperto(nativo);
    if (aperto.open(QIODevice::ReadOnly))
        letto->byte = aperto.readAll();
    if (aperto.error() != QFileDevice::NoError) {
        tenuti.remove(nativo);
        return nullptr;
    }
    Analizza(*letto);
    tenuti.insert(nativo, letto.release());
    return tenuti.object(nativo);
}

/// Where a key stands, or where it would go.
struct Posto
{
    const Riga *chiave = nullptr; // its line
    bool sezione = false;         // its section is there
    qsizetype nuova = 0;          // where a new line of the section goes
};

Posto Posto_Di(const Profilo &profilo, const QString &sezione, const QString &chiave)
{
    Posto posto;
    for (const Riga &riga : profilo.righe) {
        if (riga.tipo == TipoRiga::Testa) {
            if (posto.sezione)
                break;
            posto.sezione = riga.nome == sezione;
        }
        if (!posto.sezione || riga.tipo == TipoRiga::Altro)
            continue;
        posto.nuova = riga.dopo;
        if (riga.tipo == TipoRiga::Chiave && riga.nome == chiave) {
            posto.chiave = &riga;
            break;
        }
    }
    return posto;
}

QByteArray Byte_Aggiornati(const Profilo &profilo, const QString &sezione, const QString &chiave,
                           const QByteArray &valore)
{
    QByteArray byte = profilo.byte;
    const Posto posto = Posto_Di(profilo, Nome_DaConfrontare(sezione), Nome_DaConfrontare(chiave));
    if (const Riga *riga = posto.chiave; riga != nullptr)
        return byte.replace(riga->valore, riga->fine - riga->valore, riga->uguale ? valore : '=' + valore);

    QByteArray righe = Nome_Richiesto(chiave) + '=' + valore + "\r\n";
    if (!posto.sezione)
        righe.prepend('[' + Nome_Richiesto(sezione) + "]\r\n");
    const qsizetype dove = posto.sezione ? posto.nuova : byte.size();
    if (dove > 0 && byte[dove - 1] != '\n')
        righe.prepend("\r\n");
    return byte.insert(dove, righe);
}

} // namespace

QString Profilo_Leggi(const QString &sezione, const QString &chiave, const QString &predefinito, int misura,
                      const QString &file)
{
    QString valore = predefinito;
    if (const Profilo *profilo = Profilo_Attuale(file)) {
        const auto trovata = profilo->valori.constFind(Nome_DaConfrontare(sezione));
        if (trovata != profilo->valori.cend())
            valore = trovata->value(Nome_DaConfrontare(chiave)).value_or(predefinito);
    }
    return valore.left(std::max(0, misura - 1));
}

bool Profilo_Scrivi(const QString &sezione, const QString &chiave, const QString &valore, const QString &file)
{
    if (!Profilo_Ammette(sezione, chiave, valore))
        return false;
    const QString nativo = Percorso_Nativo(file);
    tenuti.remove(nativo); // a write starts from what the file holds, never from what is kept of it
    const Profilo *attuale = Profilo_Attuale(nativo);
    if (attuale == nullptr && QFile::exists(nativo))
        return false; // there, but not to be read: writing would lose what it holds

    const QByteArray valoreByte = Testo_InAnsi(valore.left(valore.indexOf(QChar(0))));
    const QByteArray byte =
        Byte_Aggiornati(attuale != nullptr ? *attuale : Profilo{}, sezione, chiave, valoreByte);
    QSaveFile salvato(nativo);
    // The new bytes are on the disk before they take the place of the old; a rename alone does not see to it.
    const bool scritto = salvato.open(QIODevice::WriteOnly) && salvato.write(byte) == byte.size() &&
                         salvato.flush() && ::fsync(salvato.handle()) == 0 && salvato.commit();
    tenuti.remove(nativo);
    return scritto;
}
