// Paths where a slash parts them and case counts: a name that is not there as spelled is looked for without
// regard to case. It opens no file.
#include "platform/percorsi.h"

#include "platform/maiuscole.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <climits>

namespace {

/// The entry of a folder that has this name, whatever its case, the first in plain order of several; the name
/// itself when there is none. A listing shows the same one of several.
QString Nome_SenzaCaso(const QString &cartella, const QString &nome)
{
    const QStringList voci = QDir(cartella.isEmpty() ? QStringLiteral(".") : cartella)
                                 .entryList(QDir::AllEntries | QDir::Hidden | QDir::System, QDir::Unsorted);
    const QString grande = Maiuscole(nome);
    QString trovato;
    for (const QString &voce : voci) {
        const bool suo = voce.size() == nome.size() && Maiuscole(voce) == grande;
        if (suo && (trovato.isEmpty() || voce < trovato))
            trovato = voce;
    }
    return trovato.isEmpty() ? nome : trovato;
}

} // namespace

QString Percorso_Nativo(const QString &percorso)
{
    QString nativo = percorso;
    nativo.replace(u'\\', u'/');
    if (QFileInfo::exists(nativo))
        return nativo;

    QString fatto;
    qsizetype inizio = 0;
    while (inizio < nativo.size()) {
        const qsizetype barra = nativo.indexOf(u'/', inizio);
        const qsizetype fine = barra < 0 ? nativo.size() : barra;
        const QString parte = nativo.mid(inizio, fine - inizio);
        if (!parte.isEmpty())
            fatto += QFileInfo::exists(fatto + parte) ? parte : Nome_SenzaCaso(fatto, parte);
        if (barra >= 0)
            fatto += u'/';
        inizio = fine + 1;
    }
    return fatto;
}

bool Percorso_Ammesso(const QString &percorso)
{
    return QFile::encodeName(percorso).size() < PATH_MAX; // which counts the closing NUL
}

QString Cartella_Programma()
{
    return QCoreApplication::applicationDirPath().replace(u'/', u'\\');
}
