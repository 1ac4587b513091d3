// The log: lines with date and time, in UTF-8, on a file or on the standard output.
#pragma once

#include <QFile>
#include <QString>

#include <functional>

class Registro
{
public:
    /// @param percorso of the file, which is added to; empty for the standard output.
    /// @param[out] errore why not, when it returns false.
    bool Apri(const QString &percorso, QString &errore);

    void Annota(const QString &testo);

    /// Takes each line too, with its date and time and without its end.
    std::function<void(const QString &)> Annotata;

private:
    QFile m_file;
};
