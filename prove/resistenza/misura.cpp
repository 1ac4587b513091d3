// Linux alone: what it tells of a process stands in /proc.
#include "prove/resistenza/misura.h"

#include "tests/comuni/memoria.h"
#include "tests/forms/banco_form.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmapCache>
#include <QSet>

#include <unistd.h>

/// The toolkit's own way in for whoever looks at its objects.
// NOLINTNEXTLINE(readability-redundant-declaration) -- its header is not among the public ones
extern quintptr qtHookData[];

namespace resistenza {

namespace {

enum Gancio
{
    GancioNato = 3,
    GancioMorto = 4,
};

/// Never destroyed: objects of the whole program's life go at its very end.
QSet<QObject *> &Oggetti()
{
    static auto *const oggetti = new QSet<QObject *>;
    return *oggetti;
}

void Nato(QObject *oggetto)
{
    Oggetti().insert(oggetto);
}

void Morto(QObject *oggetto)
{
    Oggetti().remove(oggetto);
}

qint64 Residente()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no /proc");
    return file.readAll().split(' ').at(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
}

int Voci(const char *cartella)
{
    const QDir dir(QString::fromLatin1(cartella));
    return static_cast<int>(dir.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size());
}

int Timer_Accesi()
{
    qsizetype accesi = 0;
    const auto *ciclo = QAbstractEventDispatcher::instance();
    for (QObject *oggetto : std::as_const(Oggetti()))
        accesi += ciclo->registeredTimers(oggetto).size();
    return static_cast<int>(accesi);
}

constexpr double AMMESSA = 1; // hundredths, of bytes

struct Voce
{
    const char *Nome;
    qint64 (*Valore)(const Misura &misura);
    bool Contato;
};

constexpr Voce VOCI[] = {
    {"allocated bytes",              [](const Misura &m) { return m.Heap; },                false},
    {"resident bytes",               [](const Misura &m) { return m.Residente; },           false},
    {"bytes of pictures kept by Qt", [](const Misura &m) { return m.Immagini; },            false},
    {"open descriptors",             [](const Misura &m) { return qint64{m.Descrittori}; }, true },
    {"threads",                      [](const Misura &m) { return qint64{m.Thread}; },      true },
    {"widgets",                      [](const Misura &m) { return qint64{m.Widget}; },      true },
    {"objects of Qt",                [](const Misura &m) { return qint64{m.Oggetti}; },     true },
    {"running timers of Qt",         [](const Misura &m) { return qint64{m.Timer}; },       true },
    {"armed alarms of the clock",    [](const Misura &m) { return qint64{m.Sveglie}; },     true },
};

} // namespace

void Oggetti_Conta()
{
    qtHookData[GancioNato] = reinterpret_cast<quintptr>(&Nato);
    qtHookData[GancioMorto] = reinterpret_cast<quintptr>(&Morto);
}

Misura Misura_Adesso()
{
    Misura m;
    m.Residente = Residente();
    const qint64 tutto = Memoria_InUso();
    QPixmapCache::clear();
    m.Heap = Memoria_InUso();
    m.Immagini = tutto - m.Heap;
    m.Descrittori = Voci("/proc/self/fd");
    m.Thread = Voci("/proc/self/task");
    m.Widget = static_cast<int>(QApplication::allWidgets().size());
    m.Oggetti = static_cast<int>(Oggetti().size());
    m.Timer = Timer_Accesi();
    m.Sveglie = Orologio_Banco().Armate();
    return m;
}

double Crescita::Parte() const
{
    return Prima == 0 ? 100.0 * double(Dopo) : 100.0 * double(Dopo - Prima) / double(Prima);
}

bool Crescita::Ferma() const
{
    return Contato ? Dopo <= Prima : Parte() < AMMESSA;
}

QList<Crescita> Crescite(const Misura &prima, const Misura &dopo)
{
    QList<Crescita> crescite;
    for (const Voce &voce : VOCI)
        crescite.append({voce.Nome, voce.Valore(prima), voce.Valore(dopo), voce.Contato});
    return crescite;
}

QList<QByteArray> Cresciute(const QList<Crescita> &crescite)
{
    QList<QByteArray> nomi;
    for (const Crescita &crescita : crescite) {
        if (!crescita.Ferma())
            nomi.append(crescita.Nome);
    }
    return nomi;
}

} // namespace resistenza
