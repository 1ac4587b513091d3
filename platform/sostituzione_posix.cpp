// A temporary file and a rename, and the disk made to follow: the bytes first, the name afterwards.
#include "platform/sostituzione.h"

#include "platform/su_disco.h"

#include <QDate>
#include <QDateTime>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>

#include <algorithm>
#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

/// The names of a file's extended attributes; its access list is among them.
QList<QByteArray> Attributi_Di(const QByteArray &nome)
{
    QByteArray nomi(XATTR_LIST_MAX, Qt::Uninitialized);
    nomi.truncate(std::max<ssize_t>(0, ::listxattr(nome.constData(), nomi.data(), XATTR_LIST_MAX)));
    QList<QByteArray> attributi = nomi.split('\0');
    attributi.removeAll(QByteArray());
    return attributi;
}

void Attributo_Copia(const QByteArray &nome, const QByteArray &attributo, int nuovo)
{
    QByteArray valore(XATTR_SIZE_MAX, Qt::Uninitialized);
    const ssize_t grandezza =
        ::getxattr(nome.constData(), attributo.constData(), valore.data(), XATTR_SIZE_MAX);
    if (grandezza >= 0)
        ::fsetxattr(nuovo, attributo.constData(), valore.constData(), size_t(grandezza), 0);
}

/// Gives the new file what the old one has beside its bytes and its rights. What this user may not give is
/// passed over: a value that could not be saved for it would be the worse loss.
void Corredo_Copia(const QByteArray &nome, int nuovo)
{
    struct stat vecchio;
    if (::stat(nome.constData(), &vecchio) != 0)
        return;
    // Whoever may not give a file away may still belong to its group.
    if (::fchown(nuovo, vecchio.st_uid, vecchio.st_gid) != 0)
        static_cast<void>(!::fchown(nuovo, uid_t(-1), vecchio.st_gid));
    // The folder may give an access list to each new file, which the old one need not have.
    ::fremovexattr(nuovo, "system.posix_acl_access");
    for (const QByteArray &attributo : Attributi_Di(nome))
        Attributo_Copia(nome, attributo, nuovo);
}

/// True for the ending of a temporary file of ours: a point and six letters taken at random.
/// lumira.ini.backup and lumira.ini.Backup are somebody's own: a person writes in letters of one case, the
/// first one apart. A few of ours look like that too, and stay.
bool Coda_Provvisoria(const QString &coda)
{
    static const QRegularExpression A_CASO(
        QRegularExpression::anchoredPattern(QStringLiteral("\\.(?=.*[a-z])(?=.+[A-Z])[A-Za-z]{6}")));
    return A_CASO.match(coda).hasMatch();
}

/// True once a day for each file: what has to be a day old need not be looked for more often, and an exchange
/// folder may hold thousands of files.
bool Da_Guardare(const QString &file)
{
    static QDate giorno;
    static QSet<QString> guardati;
    const QDate oggi = QDate::currentDate();
    if (giorno != oggi)
        guardati.clear();
    giorno = oggi;
    if (guardati.contains(file))
        return false;
    guardati.insert(file);
    return true;
}

/// A writer that was killed leaves its temporary file where the file system makes no files without a name,
/// and everywhere in the instant before the rename. One that is younger than a day may still be at work.
void Avanzi_Elimina(const QFileInfo &file)
{
    const QDateTime limite = QDateTime::currentDateTimeUtc().addDays(-1);
    QDirIterator voci(file.path(), QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    while (voci.hasNext()) {
        voci.next();
        const QString nome = voci.fileName();
        if (nome.startsWith(file.fileName()) && Coda_Provvisoria(nome.sliced(file.fileName().size())) &&
            voci.fileInfo().lastModified() < limite)
            QFile::remove(voci.filePath());
    }
}

} // namespace

bool File_Sostituisci(const QString &nativo, const QByteArray &byte)
{
    QSaveFile nuovo(nativo);
    if (!nuovo.open(QIODevice::WriteOnly))
        return false;
    Corredo_Copia(QFile::encodeName(nativo), nuovo.handle());
    // The new bytes are on the disk before they take the place of the old; a rename alone does not see to it.
    return nuovo.write(byte) == byte.size() && nuovo.flush() && File_SuDisco(nuovo.handle()) &&
           nuovo.commit();
}

void File_Riassetta(const QString &nativo)
{
    const QFileInfo file(nativo);
    Cartella_SuDisco(file.path()); // or the rename may be lost with the machine's power
    if (Da_Guardare(nativo))
        Avanzi_Elimina(file);
}
