// Yardstick: a menu with the station's picture and as many buttons, written the plain way.
//   metro-menu PICTURE
#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QWidget>

int main(int argc, char **argv)
{
    constexpr int RIGHE = 3;
    constexpr int COLONNE = 3;
    const QApplication applicazione(argc, argv);
    if (argc < 2)
        return 2;
    const QSize schermo = QGuiApplication::primaryScreen()->size();
    const int altezza = schermo.height() * 9 / 100; // of a button, as in the station's menu
    const QSize posto(schermo.width(), schermo.height() - RIGHE * altezza);
    const QPixmap immagine(QString::fromLocal8Bit(argv[1]));
    if (immagine.isNull())
        return 1;

    QWidget finestra(nullptr, Qt::Window | Qt::FramelessWindowHint);
    finestra.setFixedSize(schermo);
    auto *griglia = new QGridLayout(&finestra);
    griglia->setContentsMargins(0, 0, 0, 0);
    griglia->setSpacing(0);
    auto *figura = new QLabel;
    figura->setAlignment(Qt::AlignCenter);
    figura->setPixmap(immagine.scaled(posto, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    griglia->addWidget(figura, 0, 0, 1, COLONNE);
    for (int i = 0; i < RIGHE * COLONNE - 1; ++i) {
        auto *pulsante = new QPushButton(QStringLiteral("Voce %1").arg(i + 1));
        pulsante->setFixedHeight(altezza);
        griglia->addWidget(pulsante, 1 + i / COLONNE, i % COLONNE);
    }
    finestra.showFullScreen();
    return QApplication::exec();
}
