// The screen of the station, asked by a process of its own: without a display the toolkit ends the program
// that asks, and the rest of a look at the station must not go with it.
#include "strumenti/diagnosi.h"

#include "core/parole.h"

#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QStringList>

#include <optional>

namespace {

constexpr qint32 LARGHEZZA_MINIMA = 1024;
constexpr qint32 ALTEZZA_MINIMA = 768;
constexpr Parole SCHERMO = {u"%1 x %2, ingrandimento %3", u"%1 x %2, scaled by %3"};
constexpr Parole SENZA_SCHERMO = {u"nessuno schermo da qui", u"no screen from here"};
constexpr Parole DA_DENTRO = {u"eseguire il programma dalla scrivania della stazione",
                              u"run the program from the station's desktop"};
constexpr Parole INGRANDIRE = {u"scegliere una risoluzione di almeno %1 x %2",
                               u"choose a resolution of at least %1 x %2"};
constexpr int ATTESA_SCHERMO = 10000; // ms

struct SchermoTrovato
{
    int Larghezza = 0; // pixels of the device
    int Altezza = 0;
    double Ingrandimento = 1;
};

/// What the asking process said.
std::optional<SchermoTrovato> Schermo_Da(const QString &riga)
{
    const QStringList pezzi = riga.trimmed().split(u' ');
    if (pezzi.size() != 3 || pezzi[0].toInt() <= 0)
        return std::nullopt;
    return SchermoTrovato{pezzi[0].toInt(), pezzi[1].toInt(), pezzi[2].toDouble()};
}

} // namespace

QString Schermo_Descrivi(int &argc, char **argv)
{
    const QGuiApplication programma(argc, argv);
    const QScreen *schermo = QGuiApplication::primaryScreen(); // where the station opens
    if (schermo == nullptr)
        return {};
    const double ingrandimento = schermo->devicePixelRatio();
    return QStringLiteral("%1 %2 %3\n")
        .arg(qRound(schermo->size().width() * ingrandimento))
        .arg(qRound(schermo->size().height() * ingrandimento))
        .arg(ingrandimento);
}

void Diagnosi_Schermo(Riscontri &riscontri, const QString &programma)
{
    QProcess altro;
    altro.start(programma, {QStringLiteral("--schermo")});
    const bool finito = altro.waitForFinished(ATTESA_SCHERMO);
    const std::optional<SchermoTrovato> schermo =
        finito ? Schermo_Da(QString::fromLatin1(altro.readAllStandardOutput())) : std::nullopt;
    if (!schermo) {
        Trovato_Avviso(riscontri, Materia::Schermo, In_Parole(SENZA_SCHERMO), In_Parole(DA_DENTRO));
        return;
    }
    const bool piccolo = schermo->Larghezza < LARGHEZZA_MINIMA || schermo->Altezza < ALTEZZA_MINIMA;
    riscontri.append(
        {Materia::Schermo, piccolo ? Grado::Avviso : Grado::Buono,
         In_Parole(SCHERMO).arg(schermo->Larghezza).arg(schermo->Altezza).arg(schermo->Ingrandimento),
         piccolo ? In_Parole(INGRANDIRE).arg(LARGHEZZA_MINIMA).arg(ALTEZZA_MINIMA) : QString()});
}
