#include "prove/comuni/sezione.h"

#include <QFile>

namespace {

QByteArray Inizio(const QByteArray &nome)
{
    return "<!-- " + nome + " -->\n";
}

QByteArray Fine(const QByteArray &nome)
{
    return "<!-- fine: " + nome + " -->\n";
}

} // namespace

QByteArray Sezione_Leggi(const QString &documento, const QByteArray &nome)
{
    QFile file(documento);
    const QByteArray tutto = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const qsizetype da = tutto.indexOf(Inizio(nome));
    const qsizetype a = tutto.indexOf(Fine(nome));
    const qsizetype testo = da + Inizio(nome).size();
    return da >= 0 && a > da ? tutto.mid(testo, a - testo) : QByteArray();
}

bool Sezione_Scrivi(const QString &documento, const QByteArray &nome, const QByteArray &testo)
{
    const QByteArray inizio = Inizio(nome);
    const QByteArray fine = Fine(nome);
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
