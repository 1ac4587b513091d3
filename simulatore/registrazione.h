// The record of a line: what the station and the instrument said, and when, in a text file that a person
// reads and writes. A fault seen in a workshop is kept in it, played again and becomes a test.
// docs/simulatore.md tells the format, which stays: a file of today is read by every later program.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

/// Who said it.
enum class Voce : quint8
{
    Stazione,
    Strumento,
};

/// Bytes that came in together.
struct BranoLinea
{
    qint64 ms = 0; ///< from the start of the record
    Voce voce = Voce::Stazione;
    QByteArray byte;
};

struct Registrazione
{
    QString far;             ///< file of the result that a station makes of it; empty when none is named
    QList<BranoLinea> brani; ///< in order of time
};

/// A record's line, without its end.
QString Brano_Testo(const BranoLinea &brano);

/// Reads a record.
/// @param[out] registrazione left as it was when there is an error.
/// @return what is wrong, a line an error, in the language chosen (core/parole.h); empty when all is well.
QStringList Registrazione_Leggi(const QString &file, Registrazione &registrazione);

/// Writes a record line by line, each one through to the system at once: whatever ends the program, the file
/// is whole up to that moment.
class ScrittoreRegistrazione
{
public:
    /// Makes the file with its head. One that exists is somebody's evidence: it is left alone.
    /// @param nota what the record is of, a line. @param[out] errore why not, when it returns false.
    bool Apri(const QString &percorso, const QString &nota, QString &errore);

    /// @return false when the line could not be written.
    bool Aggiungi(const BranoLinea &brano);

    /// Takes the file away again: nothing has been recorded.
    void Scarta();

    /// A comment, of that moment. @return as above.
    bool Annota(qint64 ms, const QString &testo);

private:
    bool Scrivi(const QString &riga);

    QFile m_file;
};
