// Yardstick: the least that a Qt program does to have a window over the whole screen.
#include <QApplication>
#include <QScreen>
#include <QWidget>

int main(int argc, char **argv)
{
    const QApplication applicazione(argc, argv);
    QWidget finestra(nullptr, Qt::Window | Qt::FramelessWindowHint);
    finestra.setFixedSize(QGuiApplication::primaryScreen()->size());
    finestra.showFullScreen();
    return QApplication::exec();
}
