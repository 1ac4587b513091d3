// The two forms of a table, row by row.
#include "strumenti/tabella.h"

#include <algorithm>

namespace {

QString Valore_Csv(const QString &valore)
{
    const bool semplice = std::none_of(valore.cbegin(), valore.cend(), [](QChar c) {
        return c == u',' || c == u'"' || c == u'\r' || c == u'\n';
    });
    return semplice ? valore : u'"' + QString(valore).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QByteArray Riga_Csv(const QStringList &riga)
{
    QStringList valori;
    std::transform(riga.cbegin(), riga.cend(), std::back_inserter(valori), Valore_Csv);
    return valori.join(u',').toUtf8() + "\r\n";
}

QString Riga_Testo(const QStringList &riga, const QList<qsizetype> &larghezze)
{
    QString testo;
    for (qsizetype i = 0; i < riga.size(); ++i)
        testo += riga[i].leftJustified(larghezze[i] + 2);
    while (testo.endsWith(u' '))
        testo.chop(1);
    return testo + u'\n';
}

} // namespace

QString Tabella_Testo(const Tabella &tabella)
{
    QList<qsizetype> larghezze;
    for (qsizetype i = 0; i < tabella.Colonne.size(); ++i) {
        qsizetype larghezza = tabella.Colonne[i].size();
        for (const QStringList &riga : tabella.Righe)
            larghezza = std::max(larghezza, riga[i].size());
        larghezze.append(larghezza);
    }
    QString testo = Riga_Testo(tabella.Colonne, larghezze);
    for (const QStringList &riga : tabella.Righe)
        testo += Riga_Testo(riga, larghezze);
    return testo;
}

QByteArray Tabella_Csv(const Tabella &tabella)
{
    QByteArray csv = Riga_Csv(tabella.Colonne);
    for (const QStringList &riga : tabella.Righe)
        csv += Riga_Csv(riga);
    return csv;
}
