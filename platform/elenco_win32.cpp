// Listings by the find calls of Windows. The order is the volume's: an NTFS volume keeps its names sorted.
#include "platform/elenco.h"

#include "platform/errore_esecuzione.h"
#include "platform/percorsi.h"

#include <qt_windows.h>

namespace {

quint64 Tempo_1601(const FILETIME &tempo)
{
    return quint64{tempo.dwHighDateTime} << 32 | tempo.dwLowDateTime;
}

RecordTrovato Record_Di(const WIN32_FIND_DATAW &dati)
{
    RecordTrovato trovato;
    trovato.cFileName = QString::fromWCharArray(dati.cFileName);
    trovato.dwFileAttributes = dati.dwFileAttributes;
    trovato.ftLastAccessTime = Tempo_1601(dati.ftLastAccessTime);
    trovato.ftLastWriteTime = Tempo_1601(dati.ftLastWriteTime);
    trovato.nFileSize = quint64{dati.nFileSizeHigh} << 32 | dati.nFileSizeLow;
    return trovato;
}

/// Files between two turns of what runs meanwhile.
constexpr qsizetype FILE_A_TURNO = 200;

/// Lists what matches, whole or not at all: a connection lost in the middle must not make the rest of the
/// vehicles look gone. @return 0, or the number of the system's error.
DWORD Elenca(const QString &percorso, QList<RecordTrovato> &trovati, const std::function<void()> &intanto)
{
    // To the call a path would end at a NUL, and one past the longest would just not be there.
    if (percorso.contains(QChar(0)) || !Percorso_Ammesso(percorso))
        return ERROR_INVALID_NAME;
    WIN32_FIND_DATAW dati;
    const HANDLE ricerca = FindFirstFileW(reinterpret_cast<const wchar_t *>(percorso.utf16()), &dati);
    if (ricerca == INVALID_HANDLE_VALUE)
        return GetLastError();
    QList<RecordTrovato> elenco;
    do {
        elenco.append(Record_Di(dati));
        if (intanto && elenco.size() % FILE_A_TURNO == 0)
            intanto();
    } while (FindNextFileW(ricerca, &dati) != FALSE);
    const DWORD errore = GetLastError();
    FindClose(ricerca);
    if (errore != ERROR_NO_MORE_FILES)
        return errore;
    trovati = elenco;
    return 0;
}

/// Nothing matches, or the folder is missing, or a file stands in its place.
bool Non_Trovato(DWORD errore)
{
    return errore == ERROR_FILE_NOT_FOUND || errore == ERROR_PATH_NOT_FOUND || errore == ERROR_DIRECTORY;
}

} // namespace

bool Trova_File(const QString &percorso, QList<RecordTrovato> &trovati, const std::function<void()> &intanto)
{
    trovati.clear();
    return Elenca(percorso, trovati, intanto) == 0;
}

QStringList Cartella_Elenca(const QString &percorso, qint16 attributo, const std::function<void()> &intanto)
{
    const bool cartella = percorso.isEmpty() || percorso.endsWith(u'\\');
    QList<RecordTrovato> trovati;
    const DWORD errore = Elenca(cartella ? percorso + u'*' : percorso, trovati, intanto);
    if (errore != 0 && !Non_Trovato(errore))
        Solleva(NumeroErrore::NomeFileErrato);
    return Nomi_Con(trovati, attributo);
}
