// A drawing of lines, rectangles and texts, and its two ways into a file: SVG and PNG, the same on every
// system. It knows nothing of what is drawn.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// Where the place of a text lies on it.
enum class Appoggio : quint8
{
    Inizio,
    Centro,
    Fine,
};

/// Measures in pixels, from the upper left corner.
struct Rettangolo
{
    double X, Y, Largo, Alto;
    quint32 Colore; ///< 0xRRGGBB
};
struct Linea
{
    double X1, Y1, X2, Y2;
    quint32 Colore;
};
struct Scritta
{
    double X, Y; ///< on its base line
    double Corpo;
    quint32 Colore;
    Appoggio Lato;
    QString Testo;
};

struct Disegno
{
    double Largo = 0;
    double Alto = 0;
    QString Titolo; ///< what a screen reader says of it
    QList<Rettangolo> Rettangoli;
    QList<Linea> Linee; ///< over the rectangles
    QList<Scritta> Scritte;
};

QByteArray Disegno_Svg(const Disegno &disegno);

/// Twice as many pixels as the drawing has, for paper. Type needs a QGuiApplication, of any platform.
QByteArray Disegno_Png(const Disegno &disegno);
