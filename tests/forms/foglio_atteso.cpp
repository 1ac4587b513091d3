// The comparison line by line. What the lines tell is not known here.
#include "tests/forms/foglio_atteso.h"

#include "tests/forms/figlio_prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace {

constexpr qsizetype RIGHE_DETTE = 30; // a heading and two lines for each difference

QStringList Righe_Del(const QString &percorso)
{
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n');
}

} // namespace

QStringList Foglio_Differenze(const QStringList &attese, const QStringList &viste)
{
    QStringList differenze;
    QString dove;
    for (qsizetype i = 0; i < qMax(attese.size(), viste.size()) && differenze.size() < RIGHE_DETTE; ++i) {
        if (viste.value(i).startsWith(u'['))
            dove = viste.value(i);
        if (attese.value(i) != viste.value(i))
            differenze += QStringList{dove, QStringLiteral("- ") + attese.value(i),
                                      QStringLiteral("+ ") + viste.value(i)};
    }
    return differenze;
}

QString Foglio_Confronta(const QString &cartella, QSize schermo)
{
    const EsitoFiglio figlio = Figlio_Esegui({QStringLiteral("--racconta")}, schermo);
    if (!figlio.Buono())
        return figlio.Racconto();
    const QString nome = QStringLiteral("%1x%2.txt").arg(schermo.width()).arg(schermo.height());
    const QString atteso =
        QStringLiteral(LUMIRA_SORGENTE) + QStringLiteral("/tests/forms/%1/%2").arg(cartella, nome);
    const QStringList differenze = Foglio_Differenze(Righe_Del(atteso), figlio.Uscita.split(u'\n'));
    if (differenze.isEmpty())
        return {};
    const QString visto = QDir(QCoreApplication::applicationDirPath()).filePath(cartella + u'_' + nome);
    QFile nuovo(visto);
    if (!nuovo.open(QIODevice::WriteOnly) || nuovo.write(figlio.Uscita.toUtf8()) < 0)
        return QStringLiteral("%1 cannot be written").arg(visto);
    return QStringLiteral("%1\nIf it is meant so: cp %2 %3").arg(differenze.join(u'\n'), visto, atteso);
}
