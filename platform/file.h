// Plain file operations on the program's own paths, with the classic errors.
#pragma once

#include <QString>
#include <QStringList>

/// Writes a text file anew under its final name: each line ended by CR LF, in the workstation's code page. It
/// stands on the disk, with its name, when the procedure returns: what it answers to may go then.
/// @throws ErroreEsecuzione 76 when the folder does not exist, 70 when the file may not be written, 61 when
/// the disk is full or does not take the bytes.
void File_ScriviRighe(const QString &percorso, const QStringList &righe);

/// Deletes a file. @throws ErroreEsecuzione 53 when there is none, 70 when it may not be deleted.
void File_Elimina(const QString &percorso);

/// Where folders begin: the drives of the machine, each with its backslash.
QStringList Unita_Disco();

/// A text file open for reading line by line: a line ends at CR, LF or CR LF, the last one also without.
class FileRighe
{
public:
    /// @throws ErroreEsecuzione 53 when there is no such file, 70 when it cannot be read.
    explicit FileRighe(const QString &percorso);
    bool Fine() const { return m_posto >= m_testo.size(); }
    /// @return the next line, without its end.
    QString Leggi();
    /// True when the line last read ended with CR LF, as this program ends them.
    bool ConCrLf() const { return m_conCrLf; }

private:
    QString m_testo;
    qsizetype m_posto = 0;
    bool m_conCrLf = false;
};
