// The drawing painted on an image.
#include "strumenti/disegno.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

namespace {

constexpr double INGRANDIMENTO = 2;

void Dipingi(QPainter &pittore, const Scritta &s)
{
    QFont carattere(QStringLiteral("Liberation Sans"));
    carattere.setStyleHint(QFont::SansSerif);
    carattere.setPixelSize(static_cast<int>(s.Corpo));
    pittore.setFont(carattere);
    pittore.setPen(QColor(s.Colore));
    const double largo = QFontMetricsF(carattere).horizontalAdvance(s.Testo);
    const double indietro = s.Lato == Appoggio::Inizio ? 0 : s.Lato == Appoggio::Centro ? largo / 2 : largo;
    pittore.drawText(QPointF(s.X - indietro, s.Y), s.Testo);
}

} // namespace

QByteArray Disegno_Png(const Disegno &disegno)
{
    QImage immagine(static_cast<int>(disegno.Largo * INGRANDIMENTO),
                    static_cast<int>(disegno.Alto * INGRANDIMENTO), QImage::Format_RGB32);
    immagine.fill(Qt::white);
    QPainter pittore(&immagine);
    pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    pittore.scale(INGRANDIMENTO, INGRANDIMENTO);
    for (const Rettangolo &r : disegno.Rettangoli)
        pittore.fillRect(QRectF(r.X, r.Y, r.Largo, r.Alto), QColor(r.Colore));
    for (const Linea &l : disegno.Linee) {
        pittore.setPen(QColor(l.Colore));
        pittore.drawLine(QPointF(l.X1, l.Y1), QPointF(l.X2, l.Y2));
    }
    for (const Scritta &s : disegno.Scritte)
        Dipingi(pittore, s);
    pittore.end();

    QByteArray png;
    QBuffer fine(&png);
    fine.open(QIODevice::WriteOnly);
    immagine.save(&fine, "PNG");
    return png;
}
