// What can be read and pressed by an operator who stands at the car: every form on every screen and in every
// language, its letters in minutes of arc, its buttons in millimetres. Each size of screen is a process of
// its own. The figures are written beside the test program (leggibilita.tsv); attrezzi/leggibilita.py puts
// them into docs/leggibilita.md.
#include "tests/forms/figlio_prova.h"
#include "tests/forms/lettere_prova.h"
#include "tests/forms/modulo_prova.h"
#include "tests/forms/principale_prova.h"
#include "tests/forms/scene_prova.h"

#include <QFile>
#include <QLabel>
#include <QMap>
#include <QRegularExpression>
#include <QSysInfo>

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

constexpr double DISTANZA = 2000; // mm from the eye to the screen
constexpr double BERSAGLIO = 15;  // mm

/// A screen as workshops have it. Of a size that comes in several diagonals the smallest that is sold for the
/// desk: what can be read there can be read on the others.
struct SchermoProva
{
    QSize pixel;
    double pollici;

    double Millimetri(double punti) const
    {
        return punti * pollici * 25.4 / std::hypot(pixel.width(), pixel.height());
    }
    double Minuti(double punti) const
    {
        return std::atan(Millimetri(punti) / DISTANZA) * 180 * 60 / std::numbers::pi;
    }
    QString Nome() const { return QStringLiteral("%1x%2").arg(pixel.width()).arg(pixel.height()); }
};

constexpr std::array SCHERMI = {
    SchermoProva{{800, 600},   15}, // a 15 inch one set to less than it has
    SchermoProva{{1024, 768},  15},
    SchermoProva{{1280, 1024}, 17},
    SchermoProva{{1920, 1080}, 22},
    SchermoProva{{3840, 2160}, 27},
};

/// From where a text is read, as the height of its capitals in minutes of arc.
enum Vista
{
    Auto = 16,    ///< from the car, while working on it
    Schermo = 10, ///< from two metres, by who looks at the screen
    Tastiera = 5, ///< by who sits there: a technician, or who types
};

/// Who presses. A technician's button may be lower than an operator's.
enum Mano
{
    Operatore,
    Tecnico,
};

struct Classe
{
    const char *modulo;
    const char *controllo; ///< a pattern, the first that fits counts
    Vista vista;
    Mano mano;
};

constexpr Classe CLASSI[] = {
    {"frmComm",          "lbl_0",                    Auto,     Operatore}, // the message
    {"frmComm",          "lblTarga|lblPorta",        Auto,     Operatore},
    {"frmComm",          "lbl(Nome)?(Tx|Rx)|lstDbg", Tastiera, Tecnico  },
    {"frmComm",          ".*",                       Schermo,  Operatore},
    {"frmEsito",         "lblTitolo",                Auto,     Operatore}, // the verdict
    {"frmEsito",         "lblTab_.*|lblPar_[0-3]",   Auto,     Operatore}, // of each lamp; which lamp
    {"frmEsito",         "lblTarga|lblGuasto_.*",    Auto,     Operatore},
    {"frmEsito",         ".*",                       Schermo,  Operatore},
    {"frmMctcO",         "lblTarga",                 Auto,     Operatore}, // of the vehicle in hand
    {"frmMctcO",         "(lbl|txt|lblDes)_.*",      Tastiera, Operatore}, // the record of the file; column heads
    {"frmMctcO",         ".*",                       Schermo,  Operatore},
    {"frmMctc2",         "lblTarga",                 Auto,     Operatore},
    {"frmMctc2",         "lblMotivo",                Schermo,  Operatore}, // why there is no vehicle to choose
    {"frmMctc2",         "cmd_.*",                   Schermo,  Operatore},
    {"frmMctc2",         ".*",                       Tastiera, Operatore}, // its rows are typed in
    {"frmMain",          "lblStato_.*",              Tastiera, Tecnico  }, // what asks for somebody is in lblAvviso too
    {"frmMain",          ".*",                       Schermo,  Operatore},
    {"frmMsg",           "lblTitolo",                Tastiera, Operatore}, // says what the sign beside it says
    {"frmMsg",           ".*",                       Schermo,  Operatore},
    {"dlgPwd",           ".*",                       Tastiera, Tecnico  },
    {"frmAbout",         ".*",                       Tastiera, Tecnico  },
    {"frmAnagOffO",      ".*",                       Tastiera, Tecnico  },
    {"frmCartella",      ".*",                       Tastiera, Tecnico  },
    {"frmControlliMctc", ".*",                       Tastiera, Tecnico  },
    {"frmSetupO",        ".*",                       Tastiera, Tecnico  },
    {"frmVerPerO",       ".*",                       Tastiera, Tecnico  },
};

enum Grandezza
{
    Lettera,
    Premuto,
};

/// What falls below its class, how far it may, and why. A line that nothing needs any more fails.
struct Sottosoglia
{
    const char *modulo;
    const char *controllo; ///< a pattern
    Grandezza grandezza;
    double almeno; ///< minutes or millimetres
    const char *motivo;
};

constexpr Sottosoglia SOTTOSOGLIA[] = {
    {"frmEsito",         "cmd_.*",              Lettera, 8.5,  "the width of the buttons is given"                    },
    {"frmEsito",         "lbl_.*|lblTipo",      Lettera, 5.8,  "the captions stand 300 above their boxes"             },
    {"frmEsito",         "lblDes_.*",           Lettera, 6.6,  "their width is given, and the heads stand 350 below"  },
    {"frmEsito",         "lblPar_[0-3]",        Lettera, 5.2,  "the columns are 1300 wide; lblGuasto names the lamps" },
    {"frmEsito",         "lblPar_[4-6]",        Lettera, 5.3,  "long words between the frame and the cells"           },
    {"frmEsito",         "lblTab_([89]|1[01])", Lettera, 9.4,  "five signs in a cell of 1300"                         },
    {"frmMain",          "cmdMnu_.*",           Lettera, 9.4,  "the size of the menu's type is given"                 },
    {"frmMain",          "lblStato_.*",         Lettera, 4.4,  "four lines in the place of a button"                  },
    {"frmMctc2",         "cmd_.*",              Lettera, 6.7,  "given for the smallest screen"                        },
    {"frmMctc2",         "lbl_.*",              Lettera, 3.9,  "rows of labels and boxes share a height that is given"},
    {"frmComm",          "lbl_0",               Lettera, 15.7, "its longest sentence, on the smallest screen"         },
    {"frmComm",          "lblPorta",            Lettera, 12.5, "a wrong format, a sentence for a technician"          },
    {"frmComm",          "lblRx",               Lettera, 4.7,  "a whole measure beside the plate, once it has failed" },
    {"frmMsg",           "lbl_0",               Lettera, 9.1,  "a low message has the height that is given"           },
    {"frmSetupO",        "lbl_.*",              Lettera, 4.9,  "a hair, on the smallest screen"                       },
    {"frmMctcO",         "(lbl|txt|lblDes)_.*", Lettera, 4.4,  "frames and pitch of its rows are given"               },
    {"frmMctcO",         "lstAuto",             Premuto, 12.6, "its frame is low, and shows 3 lines"                  },
    {"frmControlliMctc", "cbo_.*",              Lettera, 4.0,  "the width of the lists is given"                      },
    {"frmVerPerO",       "lbl_.*",              Lettera, 3.2,  "200 twips from one box to the next are all there is"  },
};

bool Corrisponde(const char *modello, const QString &nome)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(modello)))
        .match(nome)
        .hasMatch();
}

template <typename Voce, size_t N>
const Voce *Voce_Per(const Voce (&voci)[N], const QString &modulo, const QString &controllo)
{
    const auto *voce = std::find_if(std::begin(voci), std::end(voci), [&](const Voce &una) {
        return modulo == QLatin1String(una.modulo) && Corrisponde(una.controllo, controllo);
    });
    return voce != std::end(voci) ? voce : nullptr;
}

// --- the child process ------------------------------------------------------------------------------------

/// A line a control: scene, form, control, pixels of its capitals and of what is pressed; tabs between them.
void Racconta()
{
    for (const char *lingua : LINGUE_SCENE) {
        Scene_Percorri(QString::fromLatin1(lingua), [&](const QString &scena, const Modulo &modulo) {
            for (const Lettere &voce : Lettere_Di(modulo))
                std::printf("%s, %s\t%s\t%s\t%f\t%f\n", lingua, qPrintable(scena),
                            qPrintable(modulo.objectName()), qPrintable(voce.controllo), voce.maiuscole,
                            voce.bersaglio);
        });
    }
}

// --- what they told ---------------------------------------------------------------------------------------

/// A control of a form, over all scenes and languages: its lowest figure on each screen.
struct Riga
{
    QString modulo;
    QString controllo;
    Grandezza grandezza = Lettera;
    bool operator<(const Riga &altra) const
    {
        return std::tie(modulo, controllo, grandezza) <
               std::tie(altra.modulo, altra.controllo, altra.grandezza);
    }
};

struct Minimo
{
    double valore = 0; // minutes or millimetres; 0: not seen on this screen
    QString dove;      // language and scene
};

using Tabella = QMap<Riga, std::array<Minimo, SCHERMI.size()>>;

/// What a control has not gives no row.
void Aggiungi(Tabella &tabella, const Riga &riga, size_t schermo, double valore, const QString &dove)
{
    if (valore == 0)
        return;
    Minimo &minimo = tabella[riga][schermo];
    if (minimo.valore == 0 || valore < minimo.valore)
        minimo = {valore, dove};
}

/// What is asked of a row; 0 for nothing.
double Richiesto(const Riga &riga)
{
    const Classe *classe = Voce_Per(CLASSI, riga.modulo, riga.controllo);
    if (classe == nullptr)
        qFatal("%s has no class", qPrintable(riga.modulo));
    if (riga.grandezza == Lettera)
        return classe->vista;
    return classe->mano == Operatore ? BERSAGLIO : 0;
}

bool Troppo_Poco(const Riga &riga, double valore)
{
    return valore > 0 && valore < Richiesto(riga);
}

/// The line that lets a row fall below its class; nullptr for none.
const Sottosoglia *Ammessa(const Riga &riga)
{
    const auto *voce = std::find_if(std::begin(SOTTOSOGLIA), std::end(SOTTOSOGLIA), [&riga](const auto &una) {
        return riga.grandezza == una.grandezza && riga.modulo == QLatin1String(una.modulo) &&
               Corrisponde(una.controllo, riga.controllo);
    });
    return voce != std::end(SOTTOSOGLIA) ? voce : nullptr;
}

/// What a letter may fall short of its figure. The figures are those of Debian; the test's own Windows type
/// has other widths by a hair, so that a text takes one size less, or two, to fit the same place.
double Tolleranza(const Riga &riga, const SchermoProva &schermo)
{
    constexpr double PASSI = 1.4; // pixels: the capitals of two sizes
    const bool windows = QSysInfo::kernelType() == QStringLiteral("winnt");
    return windows && riga.grandezza == Lettera ? schermo.Minuti(PASSI) : 0;
}

/// The controls of an array that are asked the same are one line for who reads the figures.
Tabella Riassunto(const Tabella &tabella)
{
    static const QRegularExpression INDICE(QStringLiteral("_\\d+$"));
    Tabella riassunto;
    for (auto voce = tabella.cbegin(); voce != tabella.cend(); ++voce) {
        Riga riga = voce.key();
        riga.controllo.remove(INDICE);
        riga.controllo += QStringLiteral("\t%1").arg(Richiesto(voce.key()));
        for (size_t i = 0; i < SCHERMI.size(); ++i)
            Aggiungi(riassunto, riga, i, voce.value()[i].valore, voce.value()[i].dove);
    }
    return riassunto;
}

} // namespace

class tst_leggibile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void maiuscoleSonoQuelleDipinte_data();
    void maiuscoleSonoQuelleDipinte();
    void minutiDiUnoSchermo();
    void initTestCase();
    void formSiLeggono_data();
    void formSiLeggono();
    void classeServe();
    void sottosogliaServe();

private:
    void Scrivi_Tabella() const;

    Tabella m_tabella;
};

// --- the measure ------------------------------------------------------------------------------------------

void tst_leggibile::maiuscoleSonoQuelleDipinte_data()
{
    QTest::addColumn<int>("pixel");
    for (const int pixel : {9, 14, 27, 44, 90})
        QTest::addRow("%d", pixel) << pixel;
}

// The figure that the type tells against the rows of the picture that the letter stands in.
void tst_leggibile::maiuscoleSonoQuelleDipinte()
{
    QFETCH(int, pixel);
    QLabel etichetta(QStringLiteral("H"));
    QFont carattere(QStringLiteral("Arial"));
    carattere.setPixelSize(pixel);
    etichetta.setFont(carattere);
    etichetta.setStyleSheet(QStringLiteral("background: white; color: black;"));
    etichetta.setFont(carattere);
    etichetta.resize(200, 200);
    const QImage vista = etichetta.grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    std::vector<int> inchiostro; // of each row
    for (int y = 0; y < vista.height(); ++y) {
        const uchar *riga = vista.constScanLine(y);
        inchiostro.push_back(255 - *std::min_element(riga, riga + vista.width()));
    }
    // A row that the smoothed edge darkens a little is none of the letter's.
    const int soglia = *std::max_element(inchiostro.begin(), inchiostro.end()) / 3;
    const auto righe = std::count_if(inchiostro.begin(), inchiostro.end(), [=](int v) { return v > soglia; });
    const double detto = Maiuscole_Di(&etichetta);
    QVERIFY2(std::abs(static_cast<double>(righe) - detto) <= 1,
             qPrintable(QStringLiteral("%1 painted, %2 told").arg(righe).arg(detto)));
}

// 16 minutes at two metres are 9.3 mm: 31 of the points of a 15 inch screen.
void tst_leggibile::minutiDiUnoSchermo()
{
    QVERIFY(std::abs(SCHERMI[1].Millimetri(1024) - 304.8) < 0.1);
    QVERIFY(std::abs(SCHERMI[1].Minuti(31.27) - 16) < 0.01);
}

// --- every form -------------------------------------------------------------------------------------------

void tst_leggibile::initTestCase()
{
    for (size_t i = 0; i < SCHERMI.size(); ++i) {
        const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--racconta")}, SCHERMI[i].pixel);
        QVERIFY2(figlio.Buono(), qPrintable(figlio.Racconto()));
        for (const QString &detto : figlio.Uscita.split(u'\n', Qt::SkipEmptyParts)) {
            const QStringList pezzi = detto.split(u'\t');
            QCOMPARE(pezzi.size(), 5);
            Aggiungi(m_tabella, {pezzi[1], pezzi[2], Lettera}, i, SCHERMI[i].Minuti(pezzi[3].toDouble()),
                     pezzi[0]);
            Aggiungi(m_tabella, {pezzi[1], pezzi[2], Premuto}, i, SCHERMI[i].Millimetri(pezzi[4].toDouble()),
                     pezzi[0]);
        }
    }
    Scrivi_Tabella();
}

/// A line a row: form, control, what is asked, letters or press, then the figure of each screen.
void tst_leggibile::Scrivi_Tabella() const
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/leggibilita.tsv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QStringList testa = {QStringLiteral("modulo\tcontrollo\trichiesto\tgrandezza")};
    for (const SchermoProva &schermo : SCHERMI)
        testa.append(QStringLiteral("%1 %2\"").arg(schermo.Nome()).arg(schermo.pollici));
    file.write(testa.join(u'\t').toUtf8() + '\n');
    const Tabella riassunto = Riassunto(m_tabella);
    for (auto voce = riassunto.cbegin(); voce != riassunto.cend(); ++voce) {
        const Riga &riga = voce.key();
        QStringList celle = {riga.modulo, riga.controllo,
                             riga.grandezza == Lettera ? QStringLiteral("minuti") : QStringLiteral("mm")};
        for (const Minimo &minimo : voce.value())
            celle.append(
                QString::number(std::floor(minimo.valore * 10) / 10, 'f', 1)); // never up to what is asked
        file.write(celle.join(u'\t').toUtf8() + '\n');
    }
}

void tst_leggibile::formSiLeggono_data()
{
    QTest::addColumn<QString>("modulo");
    QStringList moduli;
    for (const Classe &classe : CLASSI)
        moduli.append(QLatin1String(classe.modulo));
    moduli.removeDuplicates();
    for (const QString &modulo : std::as_const(moduli))
        QTest::addRow("%s", qPrintable(modulo)) << modulo;
}

void tst_leggibile::formSiLeggono()
{
    QFETCH(QString, modulo);
    QStringList difetti;
    for (auto voce = m_tabella.cbegin(); voce != m_tabella.cend(); ++voce) {
        const Riga &riga = voce.key();
        if (riga.modulo != modulo)
            continue;
        const Sottosoglia *ammessa = Ammessa(riga);
        const double soglia = ammessa != nullptr ? ammessa->almeno : Richiesto(riga);
        for (size_t i = 0; i < SCHERMI.size(); ++i) {
            const Minimo &minimo = voce.value()[i];
            if (minimo.valore > 0 && minimo.valore < soglia - Tolleranza(riga, SCHERMI[i]))
                difetti.append(
                    QStringLiteral("%1: %2 %3 of %4 on %5 (%6)")
                        .arg(riga.controllo)
                        .arg(minimo.valore, 0, 'f', 1)
                        .arg(riga.grandezza == Lettera ? QStringLiteral("minutes") : QStringLiteral("mm"))
                        .arg(soglia)
                        .arg(SCHERMI[i].Nome(), minimo.dove));
        }
    }
    for (const QString &difetto : std::as_const(difetti))
        qWarning("%s", qPrintable(difetto)); // one by one: a message holds only so much
    QVERIFY(difetti.isEmpty());
}

// Every form of the program is looked at, and no class stands for a control that no scene shows.
void tst_leggibile::classeServe()
{
    for (const Classe &classe : CLASSI) {
        bool serve = false;
        for (auto riga = m_tabella.cbegin(); riga != m_tabella.cend(); ++riga)
            serve = serve || Voce_Per(CLASSI, riga.key().modulo, riga.key().controllo) == &classe;
        QVERIFY2(serve, qPrintable(QStringLiteral("%1 %2 is not shown")
                                       .arg(QLatin1String(classe.modulo), QLatin1String(classe.controllo))));
    }
}

// What has been mended is held to its class from then on.
void tst_leggibile::sottosogliaServe()
{
    for (const Sottosoglia &voce : SOTTOSOGLIA) {
        bool serve = false;
        for (auto riga = m_tabella.cbegin(); riga != m_tabella.cend(); ++riga) {
            serve = serve ||
                    (Ammessa(riga.key()) == &voce &&
                     std::any_of(riga.value().cbegin(), riga.value().cend(),
                                 [&](const auto &minimo) { return Troppo_Poco(riga.key(), minimo.valore); }));
        }
        QVERIFY2(serve, qPrintable(QStringLiteral("%1 %2 needs its line no more")
                                       .arg(QLatin1String(voce.modulo), QLatin1String(voce.controllo))));
    }
}

int main(int argc, char **argv)
{
    return Principale_Racconta<tst_leggibile>(argc, argv, Racconta);
}

#include "tst_leggibile.moc"
