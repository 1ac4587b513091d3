// The plain file operations on Qt's files. What the lines mean is the callers' business.
#include "platform/file.h"

#include "platform/codifica.h"
#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"
#include "platform/su_disco.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void File_ScriviRighe(const QString &percorso, const QStringList &righe)
{
    QByteArray byte;
    for (const QString &riga : righe)
        byte += Testo_InAnsi(riga) + "\r\n";

    QFile file(Percorso_Nativo(percorso));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        Solleva(QFileInfo(file).dir().exists() ? NumeroErrore::PermessoNegato
                                               : NumeroErrore::PercorsoNonTrovato);
    }
    if (file.write(byte) != byte.size() || !file.flush() || !File_SuDisco(file.handle()))
        Solleva(NumeroErrore::DiscoPieno);
    Cartella_SuDisco(QFileInfo(file).path());
}

void File_Elimina(const QString &percorso)
{
    QFile file(Percorso_Nativo(percorso));
    if (!file.exists())
        Solleva(NumeroErrore::FileNonTrovato);
    if (!file.remove())
        Solleva(NumeroErrore::PermessoNegato);
}

QStringList Unita_Disco()
{
    QStringList unita;
    for (const QFileInfo &radice : QDir::drives())
        unita.append(radice.path().replace(u'/', u'\\'));
    return unita;
}

FileRighe::FileRighe(const QString &percorso)
{
    QFile file(Percorso_Nativo(percorso));
    if (!file.exists())
        Solleva(NumeroErrore::FileNonTrovato);
    if (!file.open(QIODevice::ReadOnly))
        Solleva(NumeroErrore::PermessoNegato);
    const QByteArray byte = file.readAll();
    if (file.error() != QFileDevice::NoError)
        Solleva(NumeroErrore::PermessoNegato); // a network folder that goes away while it is read
    m_testo = Testo_DaAnsi(byte);
}

QString FileRighe::Leggi()
{
    const qsizetype inizio = m_posto;
    while (!Fine() && m_testo[m_posto] != u'\r' && m_testo[m_posto] != u'\n')
        ++m_posto;
    QString riga = m_testo.mid(inizio, m_posto - inizio);
    m_conCrLf = QStringView(m_testo).sliced(m_posto).startsWith(u"\r\n");
    if (!Fine())
        m_posto += m_conCrLf ? 2 : 1;
    return riga;
}
