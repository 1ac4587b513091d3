#include "prove/comuni/sezione.h"

#include <QFile>

bool Sezione_Scrivi(const QString &documento, const QByteArray &nome, const QByteArray &testo)
{
    const QByteArray inizio = "<!-- " + nome + " -->\n";
    const QByteArray fine = "<!-- fine: " + nome + " -->\n";
    QFile file(documento);
    QByteArray tutto = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("# Reliability\n\n");
    file.close();
    const QByteArray blocco = inizio + testo + fine;
    const qsizetype da = tutto.indexOf(inizio);
    const qsizetype a = tutto.indexOf(fine);
    if (da >= 0 && a > da)
        tutto.replace(da, a + fine.size() - da, blocco);
    else
        tutto += (tutto.endsWith("\n\n") ? "" : "\n") + blocco;
    return file.open(QIODevice::WriteOnly) && file.write(tutto) == tutto.size() && file.flush();
}
