// The link put in one stroke and taken away only if it is still ours. It knows no terminal.
#include "simulatore/collegamento.h"

#include "core/parole.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace {

constexpr Parole ALTRO_FILE = {u"%1: esiste e non è un collegamento", u"%1: it is there and is not a link"};

} // namespace

bool Collegamento::Metti(const QString &destinazione, QString &errore)
{
    if (m_percorso.isEmpty())
        return true;
    const QFileInfo posto(m_percorso);
    if (posto.exists() && !posto.isSymLink()) {
        errore = In_Parole(ALTRO_FILE).arg(m_percorso);
        return false;
    }
    posto.dir().mkpath(QStringLiteral("."));
    const QFileInfo nuovo(m_percorso + QStringLiteral(".nuovo"));
    QFile::remove(nuovo.filePath()); // left by a start that was cut short
    QFile terminale(destinazione);
    if (!terminale.link(nuovo.filePath())) {
        errore = QStringLiteral("%1: %2").arg(m_percorso, terminale.errorString());
        return false;
    }
    std::error_code codice;
    std::filesystem::rename(nuovo.filesystemFilePath(), posto.filesystemFilePath(), codice);
    if (codice) {
        QFile::remove(nuovo.filePath());
        errore = QStringLiteral("%1: %2").arg(m_percorso, QString::fromLocal8Bit(codice.message()));
        return false;
    }
    m_destinazione = destinazione;
    return true;
}

void Collegamento::Togli()
{
    if (!m_destinazione.isEmpty() && QFileInfo(m_percorso).symLinkTarget() == m_destinazione)
        QFile::remove(m_percorso);
    m_destinazione.clear();
}
