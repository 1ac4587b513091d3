// The drawing as elements of SVG: texts stay texts. It needs no application and no display.
#include "strumenti/disegno.h"

#include <QXmlStreamWriter>

namespace {

QString Coordinata(double valore)
{
    return QString::number(valore, 'f', 1);
}

QString Colore(quint32 colore)
{
    return QStringLiteral("#%1").arg(colore, 6, 16, QChar(u'0'));
}

QString Ancora(Appoggio lato)
{
    return lato == Appoggio::Inizio   ? QStringLiteral("start")
           : lato == Appoggio::Centro ? QStringLiteral("middle")
                                      : QStringLiteral("end");
}

void Scrivi(QXmlStreamWriter &xml, const Rettangolo &r)
{
    xml.writeEmptyElement(QStringLiteral("rect"));
    xml.writeAttribute(QStringLiteral("x"), Coordinata(r.X));
    xml.writeAttribute(QStringLiteral("y"), Coordinata(r.Y));
    xml.writeAttribute(QStringLiteral("width"), Coordinata(r.Largo));
    xml.writeAttribute(QStringLiteral("height"), Coordinata(r.Alto));
    xml.writeAttribute(QStringLiteral("fill"), Colore(r.Colore));
}

void Scrivi(QXmlStreamWriter &xml, const Linea &l)
{
    xml.writeEmptyElement(QStringLiteral("line"));
    xml.writeAttribute(QStringLiteral("x1"), Coordinata(l.X1));
    xml.writeAttribute(QStringLiteral("y1"), Coordinata(l.Y1));
    xml.writeAttribute(QStringLiteral("x2"), Coordinata(l.X2));
    xml.writeAttribute(QStringLiteral("y2"), Coordinata(l.Y2));
    xml.writeAttribute(QStringLiteral("stroke"), Colore(l.Colore));
}

void Scrivi(QXmlStreamWriter &xml, const Scritta &s)
{
    xml.writeStartElement(QStringLiteral("text"));
    xml.writeAttribute(QStringLiteral("x"), Coordinata(s.X));
    xml.writeAttribute(QStringLiteral("y"), Coordinata(s.Y));
    xml.writeAttribute(QStringLiteral("font-size"), Coordinata(s.Corpo));
    xml.writeAttribute(QStringLiteral("text-anchor"), Ancora(s.Lato));
    xml.writeAttribute(QStringLiteral("fill"), Colore(s.Colore));
    xml.writeCharacters(s.Testo);
    xml.writeEndElement();
}

} // namespace

QByteArray Disegno_Svg(const Disegno &disegno)
{
    QByteArray svg;
    QXmlStreamWriter xml(&svg);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("svg"));
    xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
    xml.writeAttribute(QStringLiteral("width"), Coordinata(disegno.Largo));
    xml.writeAttribute(QStringLiteral("height"), Coordinata(disegno.Alto));
    xml.writeAttribute(QStringLiteral("viewBox"),
                       QStringLiteral("0 0 %1 %2").arg(Coordinata(disegno.Largo), Coordinata(disegno.Alto)));
    xml.writeAttribute(QStringLiteral("font-family"), QStringLiteral("Liberation Sans, Arial, sans-serif"));
    xml.writeAttribute(QStringLiteral("role"), QStringLiteral("img"));
    xml.writeTextElement(QStringLiteral("title"), disegno.Titolo);
    for (const Rettangolo &r : disegno.Rettangoli)
        Scrivi(xml, r);
    for (const Linea &l : disegno.Linee)
        Scrivi(xml, l);
    for (const Scritta &s : disegno.Scritte)
        Scrivi(xml, s);
    xml.writeEndDocument();
    return svg;
}
