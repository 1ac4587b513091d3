// Yardstick: what a running Qt program takes for a second window over the whole screen, bare or with as many
// labels as the station's result has, written the plain way.
//   metro-esito nudo|scritto      each line on its standard input opens the window, the next one closes it
#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSocketNotifier>
#include <QWidget>

#include <memory>
#include <string_view>
#include <unistd.h>

namespace {

constexpr int RIGHE = 3; // of the table, below its heads
constexpr int COLONNE = 4;

QLabel *Scritta(const QString &testo, int punti)
{
    auto *scritta = new QLabel(testo);
    QFont carattere = scritta->font();
    carattere.setPointSize(punti);
    carattere.setBold(true);
    scritta->setFont(carattere);
    scritta->setAlignment(Qt::AlignCenter);
    return scritta;
}

/// As many words as the result of a vehicle in order has, in letters about as large.
void Scrivi(QWidget &finestra)
{
    auto *griglia = new QGridLayout(&finestra);
    QLabel *verdetto = Scritta(QStringLiteral("ESITO REGOLARE"), 60);
    verdetto->setStyleSheet(QStringLiteral("background: #00c000"));
    griglia->addWidget(verdetto, 0, 0, 1, COLONNE + 1);
    for (int i = 0; i < COLONNE; ++i)
        griglia->addWidget(Scritta(QStringLiteral("Abbagliante %1").arg(i + 1), 24), 1, i + 1);
    for (int riga = 0; riga < RIGHE; ++riga) {
        griglia->addWidget(Scritta(QStringLiteral("Orientamento"), 16), 2 + riga, 0);
        for (int i = 0; i < COLONNE; ++i) {
            QLabel *cella = Scritta(QStringLiteral("SI"), 24);
            cella->setStyleSheet(QStringLiteral("background: black; color: #00ff00"));
            griglia->addWidget(cella, 2 + riga, i + 1);
        }
    }
    for (int i = 0; i < 2 * COLONNE + 2; ++i)
        griglia->addWidget(Scritta(QStringLiteral("Altezza faro %1").arg(i), 16), 5 + i / 5, i % 5);
    griglia->addWidget(new QPushButton(QStringLiteral("Stampa")), 7, 0);
    griglia->addWidget(new QPushButton(QStringLiteral("Esci")), 7, COLONNE);
}

std::unique_ptr<QWidget> Finestra(bool scritta)
{
    auto finestra = std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint);
    finestra->setFixedSize(QGuiApplication::primaryScreen()->size());
    if (scritta)
        Scrivi(*finestra);
    finestra->showFullScreen();
    return finestra;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication applicazione(argc, argv);
    const bool scritto = argc > 1 && std::string_view(argv[1]) == "scritto";
    QWidget fondo(nullptr, Qt::Window | Qt::FramelessWindowHint);
    fondo.setFixedSize(QGuiApplication::primaryScreen()->size());
    fondo.setStyleSheet(QStringLiteral("background: white"));
    fondo.showFullScreen();
    std::unique_ptr<QWidget> aperta;
    QSocketNotifier ingresso(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&ingresso, &QSocketNotifier::activated, &fondo, [&] {
        char riga = 0;
        if (read(STDIN_FILENO, &riga, 1) != 1) {
            QApplication::quit();
            return;
        }
        if (aperta == nullptr)
            aperta = Finestra(scritto);
        else
            aperta.reset();
    });
    return QApplication::exec();
}
