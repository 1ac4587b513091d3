// Paths where a slash parts them and case counts: a name that is not there as spelled is looked for without
// regard to case. It opens no file.
#include "platform/percorsi.h"

#include "platform/maiuscole.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <climits>
#include <optional>
#include <sys/stat.h>

namespace {

bool C_E(const QString &nativo)
{
    struct stat stato;
    const QByteArray nome = QFile::encodeName(nativo);
    return !nome.contains('\0') && ::lstat(nome.constData(), &stato) == 0;
}

/// Spelled in two ways and no more: a long s and a dotless i are capital S and I, too.
bool Di_DueForme(QChar lettera)
{
    const QChar grande = lettera.toUpper();
    return grande >= u'A' && grande <= u'Z' && grande != u'I' && grande != u'S';
}

/// The letters of a name, to be spelled one way and the other; nothing when they are too many to try, or when
/// one of them has more ways.
std::optional<QList<qsizetype>> Lettere_Provabili(const QString &nome)
{
    constexpr qsizetype PROVATE = 4; // sixteen questions cost less than the listing of a small folder
    QList<qsizetype> lettere;
    for (qsizetype i = 0; i < nome.size(); ++i) {
        if (Di_DueForme(nome[i]))
            lettere.append(i);
        else if (nome[i].unicode() > 127 || nome[i].isLetter())
            return std::nullopt;
    }
    return lettere.size() <= PROVATE ? std::optional(lettere) : std::nullopt;
}

/// The first spelling, in plain order, that the folder has: capitals stand before small letters.
QString Nome_PerProve(const QString &cartella, const QString &nome, const QList<qsizetype> &lettere)
{
    QString prova = Maiuscole(nome);
    for (quint32 numero = 0; numero < 1u << lettere.size(); ++numero) {
        for (qsizetype i = 0; i < lettere.size(); ++i) {
            const bool piccola = (numero >> (lettere.size() - 1 - i) & 1) != 0;
            QChar &lettera = prova[lettere[i]];
            lettera = piccola ? lettera.toLower() : lettera.toUpper();
        }
        if (C_E(cartella + prova))
            return prova;
    }
    return nome;
}

/// The same by looking at every name.
QString Nome_PerElenco(const QString &cartella, const QString &nome)
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

/// The entry of a folder that has this name, whatever its case, the first in plain order of several; the name
/// itself when there is none. A listing shows the same one of several. The worklist asks for its files in
/// capitals: a number and three letters, for which a folder of ten thousand is not listed.
QString Nome_SenzaCaso(const QString &cartella, const QString &nome)
{
    const auto lettere = Lettere_Provabili(nome);
    return lettere ? Nome_PerProve(cartella, nome, *lettere) : Nome_PerElenco(cartella, nome);
}

/// @param nativo with slashes.
QString Trovato_SenzaCaso(const QString &nativo)
{
    if (nativo.isEmpty() || QFileInfo::exists(nativo))
        return nativo;
    const qsizetype barra = nativo.lastIndexOf(u'/');
    const QString nome = nativo.mid(barra + 1);
    const QString cartella = barra < 0 ? QString() : Trovato_SenzaCaso(nativo.left(barra)) + u'/';
    return nome.isEmpty() ? cartella : cartella + Nome_SenzaCaso(cartella, nome);
}

} // namespace

QString Percorso_Nativo(const QString &percorso)
{
    return Trovato_SenzaCaso(QString(percorso).replace(u'\\', u'/'));
}

bool Percorso_Ammesso(const QString &percorso)
{
    return QFile::encodeName(percorso).size() < PATH_MAX; // which counts the closing NUL
}

QString Cartella_Programma()
{
    return QCoreApplication::applicationDirPath().replace(u'/', u'\\');
}
